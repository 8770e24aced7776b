#pragma once

/// @file
/// Transformations of the plane that carry direction angles along.

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/Point2D.h>

/// The transformation of the plane: a homogeneous 3x3 matrix for points and, beside it, a linear
/// map for direction angles in degrees, so one object carries a point and its direction along. A
/// mirror turns the sense of the angle map.
///
/// A plain value: a copy shares nothing. No operation reports an error; NaN and infinities run
/// through the arithmetic. Every operation takes constant time. Angles are degrees.
///
/// @see matrixC3x3, whose product with a vectorC2d is the same map without the angles
class ORVELMATH_EXPORT TMatrix
{
public:
    /// The identity.
    TMatrix();
    TMatrix(TMatrix const &other) = default;

    /// The translation by a vector; angles stay.
    TMatrix(Point2D const &translation);

    /// The rotation by `angle` degrees, counter-clockwise. Mind the type of the argument: an
    /// integer selects a mirror.
    TMatrix(double angle);

    /// The scaling along the axes. A negative factor is a mirror as well, and two make a half turn.
    /// The angle map is that of the signs: unequal factors don't bend it.
    TMatrix(double scaleX, double scaleY);

    /// A mirror:
    ///
    /// | `kind` | Mirror at      | Map     | Angle map |
    /// |--------|----------------|---------|-----------|
    /// | 0      | the x axis     | (x, -y) | 360 - a   |
    /// | 1      | the y axis     | (-x, y) | 180 - a   |
    /// | 2      | the diagonal   | (y, x)  | 90 - a    |
    ///
    /// Any other value leaves the object unwritten: it must not be read before it is assigned.
    TMatrix(int kind);

    ~TMatrix() = default;
    TMatrix &operator=(TMatrix const &other) = default;

    /// Sets the nine elements, row by row, then the factor and the offset, in degrees, of the angle
    /// map.
    void setMatrix(double m00, double m01, double m02, double m10, double m11, double m12,
                   double m20, double m21, double m22, double factor, double offset);

    /// Returns the image of a point. The third row is not read.
    Point2D operator*(Point2D const &point) const;

    /// Returns the image of a direction angle in degrees, not reduced to one turn.
    double operator*(double angle) const;

    /// Returns the transformation that does `other` first and this one after it.
    TMatrix operator*(TMatrix const &other) const;

    /// This transformation = this after `other`.
    TMatrix &operator*=(TMatrix const &other);

    /// Returns the inverse of a diagonal matrix, and of no other kind: the elimination scales the
    /// pivot row of the companion instead of reducing the other rows. That arithmetic is kept,
    /// since results depend on it. The angle map of the result is that of the identity, so the
    /// inverse of a mirror isn't known as a mirror. A matrix found singular gives the identity.
    ///
    /// For a general inverse see Math3DInvertMatrix.
    TMatrix operator~() const;

    /// Returns the image of a length, measured in the direction of 45 degrees: under unequal
    /// scaling another direction has another length.
    ///
    /// @param length model units, of either sign
    double Laenge(double length) const;

    /// Tells whether the angle map turns the sense of angles.
    bool isMirrorMatrix() const;

    /// Snaps the elements of the 2x2 part to 0 that lie within 1e-9 of it (strictly). Returns this
    /// object.
    TMatrix &correct();

    /// Snaps the elements of the 2x2 part to 1 or -1 that lie within 1e-9 of it (strictly). Returns
    /// this object.
    TMatrix &correctOne();

    /// Returns the element in `column` and `row`, 0 to 2 each. Mind the order.
    double getValue(int column, int row);

private:
    double m_angleFactor;
    double m_angleOffset;
    double m_matrix[3][3];
};
