#pragma once

/// @file
/// The script class that makes the others.

#include <OrvelCore/script/ScriptLayer.h>
#include <OrvelMath/OrvelMathExport.h>

class prxMatrix3x3C;
class prxMatrix4x4C;
class prxVector2dC;
class prxVector3dC;

/// The script class "linquet.mathfactory": makes the others, each with the all-zero value, matrices
/// included. Holds no state and may be used from any thread.
class ORVELMATH_EXPORT prxMathFactoryC : public proxyObjectC
{
public:
    prxMathFactoryC();
    ~prxMathFactoryC() override;

    /// A new zero object each.
    prxMatrix4x4C *createMat4x4() const;
    prxMatrix3x3C *createMat3x3() const;
    prxVector3dC *createVec3d() const;
    prxVector2dC *createVec2d() const;
    /// A new object by its name, "matrix3x3", "matrix4x4", "vector3d" or "vector2d", spelt exactly
    /// so; null for any other.
    proxyObjectC *create(mzComStringC const &name) const;

    static mzIIDS const &OID();
    static mzComStringC getObjectName();
    static proxyMemberDescListS *getStaticProxyTypeInfo();
    proxyMemberDescListS const *getProxyTypeInfo() const override;
    static proxyMemberDescListS **getStaticBaseClasses();
    static proxyMemberDescS *getStaticMemberDescription();
    static void *_castTo(proxyObjectC const *object);
};
