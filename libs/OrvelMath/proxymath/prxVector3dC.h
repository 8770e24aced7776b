#pragma once

/// @file
/// The script class of a vector in space.

#include <OrvelMath/proxymath/prxVectorBaseC.h>

class prxMathFactoryC;

/// The script class "linquet.vector3d". See proxymath.h on references.
class ORVELMATH_EXPORT prxVector3dC : public prxVectorBaseC<vectorC3d<double>, prxVector3dC>
{
public:
    /// The zero vector.
    prxVector3dC();
    prxVector3dC(vectorC3d<double> value);
    ~prxVector3dC() override;

    /// A new vector: this × other, right-handed.
    prxVector3dC *cross(vectorC3d<double> const &other) const;
    /// A component. Reading goes through the editing handle and writes the value back.
    double getx();
    double gety();
    double getz();
    /// Sets one component; returns this, as all setters do.
    prxVector3dC *setx(double x);
    prxVector3dC *sety(double y);
    prxVector3dC *setz(double z);
    /// Sets x, then y, then z.
    prxVector3dC *setXYZ(double x, double y, double z);
    /// A new factory.
    prxMathFactoryC *getFactory() const;

    static mzIIDS const &OID();
    static mzComStringC getObjectName();
    static proxyMemberDescListS *getStaticProxyTypeInfo();
    proxyMemberDescListS const *getProxyTypeInfo() const override;
    static proxyMemberDescListS **getStaticBaseClasses();
    static proxyMemberDescS *getStaticMemberDescription();
    static void *_castTo(proxyObjectC const *object);
};
