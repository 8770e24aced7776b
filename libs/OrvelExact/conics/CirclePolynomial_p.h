#pragma once

/// @file
/// Trigonometric polynomials of degree 2: where they vanish and where they are extreme.

#include <OrvelExact/measures/DoubleDouble_p.h>

namespace orvelExact {

/// The function k0 + k1 c + k2 s + k3 (c² - s²) + k4 2 c s of a direction (c, s), c² + s² = 1.
///
/// A conic along an ellipse is one, as is the squared distance from a point and, with k3 = k4 = 0,
/// the distance from a line. It has at most four zeros unless it is 0, and its derivative by the
/// angle is one again.
struct CirclePolynomial
{
    DoubleDouble k[5];
    double noise = 0.0; ///< bound of the error of any value, from the coefficients and the sum
};

/// A direction to 106 bits, its length 1 within 2^-100.
struct Direction
{
    DoubleDouble c;
    DoubleDouble s;
};

DoubleDouble valueAt(CirclePolynomial const &f, Direction const &d);
CirclePolynomial derivativeOf(CirclePolynomial const &f);
/// The sum of |k|, a bound of the values.
double sizeOf(CirclePolynomial const &f);

/// The zero next to a direction that is right to about the last bit of a double, by Newton's steps.
/// The direction itself, its length 1, where they lead away.
Direction refinedZero(CirclePolynomial const &f, Direction const &start);

/// What turns a value into a length: the gradient of the implicit function that was put along the
/// ellipse, itself affine in the direction.
struct Gradient
{
    Point2 constant;
    Point2 cosine;
    Point2 sine;

    double lengthAt(double c, double s) const
    {
        return (constant + c * cosine + s * sine).length();
    }
    double bound() const { return constant.length() + cosine.length() + sine.length(); }
};

/// A zero, or a group of zeros and extrema that lie within the tolerance.
struct CircleZero
{
    Direction at;
    bool isTouch; ///< an extremum lies within the tolerance
    bool crosses; ///< the sign differs before and after
};

struct CircleZeros
{
    bool isEverywhere = false; ///< the whole circle lies within the tolerance
    int count = 0;
    CircleZero zeros[4];
};

/// All zeros, those groups joined that a tolerance makes one contact. The order is that of
/// discovery.
/// @param tolerance the length |f| / |gradient| up to which a value counts as 0, not below 0
CircleZeros zerosOf(CirclePolynomial const &f, Gradient const &gradient, double tolerance);

/// The extrema by the angle, at most four, counter-clockwise from (1, 0). Neighbours that rounding
/// can't part from an inflection may be missing or extra.
int extremaOf(CirclePolynomial const &f, Direction (&at)[8]);

} // namespace orvelExact
