#pragma once

/// @file
/// The script class of a vector of the plane.

#include <OrvelMath/proxymath/prxVectorBaseC.h>

class prxMathFactoryC;

/// The script class "linquet.vector2d". See proxymath.h on references.
class ORVELMATH_EXPORT prxVector2dC : public prxVectorBaseC<vectorC2d<double>, prxVector2dC>
{
public:
    /// The zero vector.
    prxVector2dC();
    prxVector2dC(vectorC2d<double> const &value);
    ~prxVector2dC() override;

    /// A component. Reading goes through the editing handle and writes the value back.
    double getx();
    double gety();
    /// Sets one component; returns this, as all setters do.
    prxVector2dC *setx(double x);
    prxVector2dC *sety(double y);
    /// Sets x, then y.
    prxVector2dC *setXY(double x, double y);
    /// A new vector (-y, x): this one turned a quarter left.
    prxVector2dC *perpendicular() const;
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
