#pragma once

/// @file
/// The script class of a 4x4 matrix.

#include <OrvelMath/proxymath/prxVariantUserTypeBaseC.h>

class prxMathFactoryC;
class prxMatrix3x3C;
class prxVector2dC;
class prxVector3dC;

/// The script class "linquet.matrix4x4". See proxymath.h on references.
///
/// `getXVec`, `getYVec`, `getZVec` and `getTVec` give a vector that lives in the matrix: it reads
/// the present column, what is set on it is set in the matrix, and it keeps the matrix alive.
class ORVELMATH_EXPORT prxMatrix4x4C : public prxVariantUserTypeBaseC<matrixC4x4<double>>
{
public:
    /// The zero matrix.
    prxMatrix4x4C();
    prxMatrix4x4C(matrixC4x4<double> const &value);
    ~prxMatrix4x4C() override;

    /// A new matrix: this times other.
    prxMatrix4x4C *mulMat4x4(matrixC4x4<double> const &other) const;
    /// The image of a point; no division by the fourth component.
    prxVector3dC *mulVec3dMat4x4(vectorC3d<double> const &point) const;
    /// The image of a point with z = 0, in space.
    prxVector3dC *mulVec2dMat4x4(vectorC2d<double> const &point) const;
    /// A new matrix: the inverse of a rigid motion, of nothing else. The 3x3 part is transposed,
    /// the old translation goes through it and changes its sign, the fourth row stays.
    prxMatrix4x4C *inv4x4() const;
    /// Becomes Rx(a) Ry(b) Rz(c), right-handed rotations about the axes; degrees. The translation
    /// becomes 0. Returns this. Not the rotation of Math3DRotateMatrix.
    prxMatrix4x4C *rotAngle(double a, double b, double c);
    /// Becomes the right-handed rotation by `angle` degrees about `axis`, of any length, through
    /// the origin; the translation becomes 0. A zero axis gives NaN. Returns this.
    prxMatrix4x4C *rotVector(vectorC3d<double> const &axis, double angle);
    /// The upper left 3x3 part as a new matrix.
    prxMatrix3x3C *conv3x3() const;
    /// Becomes the identity; returns this.
    prxMatrix4x4C *ident();
    prxVector3dC *getXVec();
    prxVector3dC *getYVec();
    prxVector3dC *getZVec();
    prxVector3dC *getTVec();
    /// Replaces the top three elements of one column; returns this.
    prxMatrix4x4C *setXVec(vectorC3d<double> const &axis);
    prxMatrix4x4C *setYVec(vectorC3d<double> const &axis);
    prxMatrix4x4C *setZVec(vectorC3d<double> const &axis);
    prxMatrix4x4C *setTVec(vectorC3d<double> const &translation);
    /// Degrees: the first angle of Quaternion4D::GetEuler of the 3x3 part. For rotAngle(0, b, 0) it
    /// is -b.
    double getRoll();
    /// Degrees: the second angle. For rotAngle(0, 0, c) it is -c.
    double getPitch();
    /// Degrees: the third angle. For rotAngle(a, 0, 0) it is -a.
    double getYaw();
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
    vectorC3d<double> getT();
    void setX(vectorC3d<double> const &axis);
    void setY(vectorC3d<double> const &axis);
    void setZ(vectorC3d<double> const &axis);
    void setT(vectorC3d<double> const &translation);
};
