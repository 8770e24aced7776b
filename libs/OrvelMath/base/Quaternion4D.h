#pragma once

/// @file
/// Rotations as quaternions, in radians.

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/Matrix4X4C.h>
#include <OrvelMath/base/Point3D.h>
#include <OrvelMath/base/classAllocation.h>

/// The rotation quaternion, in the order x, y, z, w: the vector part first, the scalar part last.
///
/// Three things to know before use:
/// - all angles are radians, while the Math3D functions and Matrix4X4C take degrees;
/// - the matrix conversions use the transpose of the textbook matrix, in both directions alike:
///   GetMatrix of a turn by +angle maps points the way a turn by -angle does;
/// - SetEuler and GetEuler use different axis orders and are no inverses of each other.
///
/// A plain value: a copy shares nothing. Nothing is normalised unless it says so, and no function
/// reports an error: NaN passes through. Every function takes constant time.
///
/// @see Matrix4X4C, in degrees
class ORVELMATH_EXPORT Quaternion4D
{
public:
    ORVELMATH_CLASS_ALLOCATION

    /// The identity (0, 0, 0, 1).
    Quaternion4D();
    /// The components as given, not normalised.
    Quaternion4D(double x, double y, double z, double w);
    Quaternion4D(Quaternion4D const &other) = default;
    /// As SetMatrix.
    Quaternion4D(Matrix4X4C const &matrix);
    /// As SetEuler.
    Quaternion4D(Point3D const &angles);
    /// As SetRotation.
    Quaternion4D(Point3D const &axis, double angle);
    ~Quaternion4D() = default;

    Quaternion4D &operator=(Quaternion4D const &other) = default;

    /// The components as given, not normalised.
    void SetComponents(double x, double y, double z, double w);
    /// Writes all four.
    void GetComponents(double &x, double &y, double &z, double &w) const;

    /// Sets (0, 0, 0, 1).
    void SetIdentity();

    /// Sets the rotation about x, then y, then z by `angles` in radians, each about the fixed axis.
    void SetEuler(Point3D const &angles);

    /// Reads the quaternion, of unit length, as a rotation about y, then z, then x, and writes the
    /// angles in this order, in radians; not the inverse of SetEuler.
    ///
    /// `aboutZ` lies within a quarter turn either way. Near the poles, beyond |x y + z w| = 0.499,
    /// it is the quarter turn exactly and `aboutX` is 0.
    void GetEuler(double &aboutY, double &aboutZ, double &aboutX);

    /// Sets the rotation by `angle` radians about `axis`, of any length. A zero axis gives
    /// (0, 0, 0, cos(angle / 2)).
    void SetRotation(Point3D const &axis, double angle);

    /// Writes a unit axis and an angle from 0 to 2 pi.
    ///
    /// A rotation with |sin(angle / 2)| below 0.0001, near none or near a full turn, and a
    /// quaternion with |w| > 1 give the angle 0 about (1, 0, 0).
    ///
    /// @param axis  written
    /// @param angle written, radians
    void GetAngleAxis(Point3D &axis, double &angle) const;

    /// Sets the rotation of the 3x3 part of `matrix`, which is the inverse of GetMatrix if that
    /// part is a rotation (K. Shoemake, 1985: by the largest component; on the transpose). Of
    /// another matrix the result is no unit quaternion; the zero matrix gives (0.5, 0, 0, 0).
    void SetMatrix(Matrix4X4C const &matrix);

    /// Returns the transpose of the textbook rotation matrix of (x, y, z, w), with no translation.
    Matrix4X4C GetMatrix() const;

    /// The sum of the products of the components; for unit quaternions, the cosine of half the
    /// angle between the rotations.
    double Dot(Quaternion4D const &other) const;
    /// The sum of the squares of the components, x first.
    double LengthSqr() const;
    /// The root of LengthSqr().
    double Length() const;

    /// Returns the copy of unit length. The zero quaternion gives NaN.
    Quaternion4D Normal() const;
    /// Divides by the length. The zero quaternion turns into NaN.
    void Normalize();

    /// Spherical interpolation from this at `t` = 0 to `to` or -`to`, whichever is nearer, at
    /// `t` = 1 (K. Shoemake, 1985). For unit quaternions.
    ///
    /// From |dot product| 0.99999 upward the interpolation is linear; the result is not normalised
    /// there either, and its length may be short of 1 by 2.5e-6. `t` outside 0 to 1 goes on along
    /// the great circle.
    ///
    /// @see Lerp, which doesn't turn to the nearer one
    Quaternion4D Slerp(Quaternion4D const &to, double t) const;

    /// Linear interpolation of the components, neither by the shorter way nor normalised.
    Quaternion4D Lerp(Quaternion4D const &to, double t) const;

private:
    double m_x;
    double m_y;
    double m_z;
    double m_w;
};
