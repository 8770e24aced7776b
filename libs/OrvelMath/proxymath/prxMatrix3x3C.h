#pragma once

/// @file
/// The script class of a 3x3 matrix.

#include <OrvelMath/proxymath/prxVariantUserTypeBaseC.h>

class prxMathFactoryC;
class prxVector2dC;
class prxVector3dC;

/// The script class "linquet.matrix3x3". See proxymath.h on references.
///
/// `getXVec`, `getYVec` and `getZVec` give a vector that lives in the matrix: it reads the present
/// axis, what is set on it is set in the matrix, and it keeps the matrix alive.
class ORVELMATH_EXPORT prxMatrix3x3C : public prxVariantUserTypeBaseC<matrixC3x3<double>>
{
public:
    /// The zero matrix.
    prxMatrix3x3C();
    prxMatrix3x3C(matrixC3x3<double> const &value);
    ~prxMatrix3x3C() override;

    /// A new matrix: this times other.
    prxMatrix3x3C *mulMat3x3(matrixC3x3<double> const &other) const;
    /// The image of a vector.
    prxVector3dC *mulVec3x3(vectorC3d<double> const &vector) const;
    /// The image of a point of the plane: the z axis is the translation; no division.
    prxVector2dC *mulVec2x3(vectorC2d<double> const &point) const;
    /// The transpose, as a new matrix: the inverse of a rotation, of nothing else.
    prxMatrix3x3C *inv3x3() const;
    /// Becomes the identity; returns this.
    prxMatrix3x3C *ident();
    prxVector3dC *getXVec();
    prxVector3dC *getYVec();
    prxVector3dC *getZVec();
    /// Replaces one axis, a column; returns this.
    prxMatrix3x3C *setXVec(vectorC3d<double> const &axis);
    prxMatrix3x3C *setYVec(vectorC3d<double> const &axis);
    prxMatrix3x3C *setZVec(vectorC3d<double> const &axis);
    /// Becomes Rx(a) Ry(b) Rz(c), right-handed rotations about the axes; degrees. Returns this. Not
    /// the rotation of Math3DRotateMatrix.
    prxMatrix3x3C *rotAngle(double a, double b, double c);
    /// A new factory.
    prxMathFactoryC *getFactory() const;

    static mzIIDS const &OID();
    static mzComStringC getObjectName();
    static proxyMemberDescListS *getStaticProxyTypeInfo();
    proxyMemberDescListS const *getProxyTypeInfo() const override;
    static proxyMemberDescListS **getStaticBaseClasses();
    static proxyMemberDescS *getStaticMemberDescription();
    static void *_castTo(proxyObjectC const *object);

private:
    vectorC3d<double> getX();
    vectorC3d<double> getY();
    vectorC3d<double> getZ();
    void setX(vectorC3d<double> const &axis);
    void setY(vectorC3d<double> const &axis);
    void setZ(vectorC3d<double> const &axis);
};
