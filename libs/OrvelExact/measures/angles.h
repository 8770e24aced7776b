#pragma once

/// @file
/// Angles between vectors.

#include <OrvelExact/base/Status.h>
#include <OrvelExact/base/points.h>

namespace orvelExact {

/// An angle or why there is none.
struct Angle
{
    Status status = Status::Ok;
    double radians = 0.0;
};

/// The angle between two vectors, from 0 to pi, without regard to their lengths.
///
/// Within one unit in the last place, for nearly parallel vectors too, where the arc cosine loses
/// half of the digits; Kahan's formula (2006) for the same purpose has a few units. 0 exactly when
/// the vectors are parallel and point the same way. Angles below 1e-290 lose digits to underflow.
/// @return `NotFinite` for NaN or infinity, `Degenerate` for a vector of 0
/// @see WinVec, of one vector; degrees
ORVELEXACT_EXPORT Angle angleBetween(Point2 const &a, Point2 const &b);
ORVELEXACT_EXPORT Angle angleBetween(Point3 const &a, Point3 const &b);

/// The turn from a to b, above -pi and up to pi, positive counter-clockwise. As right as
/// `angleBetween`.
/// @return `NotFinite` for NaN or infinity, `Degenerate` for a vector of 0
/// @see WinVec, mat_vektor_winkel, of one vector; degrees
ORVELEXACT_EXPORT Angle turnBetween(Point2 const &a, Point2 const &b);

} // namespace orvelExact
