#pragma once

/// @file
/// Checks and scaled copies of curves, for what is computed of them.

#include <OrvelExact/conics/CirclePolynomial_p.h>
#include <OrvelExact/conics/Ellipse.h>
#include <OrvelExact/measures/vectors_p.h>

namespace orvelExact {

inline bool isFinite(Ellipse const &e)
{
    return isFinite(e.centre) && isFinite(e.u) && isFinite(e.v);
}
/// The larger of the sizes of u and v, by their components.
inline double extentOf(Ellipse const &e)
{
    return std::max(largestOf(e.u), largestOf(e.v));
}
inline Ellipse timesPowerOfTwo(Ellipse const &e, int exponent)
{
    return {timesPowerOfTwo(e.centre, exponent), timesPowerOfTwo(e.u, exponent),
            timesPowerOfTwo(e.v, exponent)};
}

/// The lengths that products of four with all their digits leave room for.
constexpr double longestLength = 1e270;
constexpr double shortestLength = 1e-270;
/// How small one length may be by another.
constexpr double leastRatio = 0x1p-200;

/// The point in a direction, rounded once.
inline Point2 pointAt(Ellipse const &e, Direction const &d)
{
    return {rounded(d.c * e.u.x() + d.s * e.v.x() + e.centre.x()),
            rounded(d.c * e.u.y() + d.s * e.v.y() + e.centre.y())};
}

/// A direction of unit length in doubles.
inline Point2 plain(Direction const &d)
{
    return {rounded(d.c), rounded(d.s)};
}

/// True if a direction lies on the arc, ends included; plain doubles.
bool isOnArc(EllipseArc const &arc, Point2 const &direction);

/// True if a direction lies on the arc or its point within `tolerance` of an end.
bool isOnArc(EllipseArc const &arc, Point2 const &direction, double tolerance);

/// Whether an arc is one: finite, of an ellipse with an inside, with directions that aren't 0.
Status statusOf(Ellipse const &ellipse);
Status statusOf(EllipseArc const &arc);

} // namespace orvelExact
