#pragma once

/// @file
/// Tangents from a point to a circle and tangents common to two circles.
///
/// An `int` selector means only zero against non-zero. "Left" is left of the direction named,
/// looking along it.

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/Point2D.h>

/// One of the two tangents from a point to a circle.
///
/// @param r    radius; only its size matters for the place of the two touching points, its sign
///             swaps them
/// @param side 0: the touching point left of the direction from the centre to p; else the right one
/// @param from set to p
/// @param touch where the tangent touches. For a p inside the circle the tangent does not exist and
///             the answer is a point of the centre line, at the distance r² / |p - c| from c
/// @param eps  least distance of p from the centre, a length
/// @return 1 found, 0 when eps lies strictly above the distance of p from the centre
///
/// With NaN the result is 1 and @p touch is NaN.
///
/// @image html tangente_punkt_kreis.svg
ORVELMATH_EXPORT int tangente_punkt_kreis(Point2D const &p, Point2D const &c, double r, int side,
                                          Point2D &from, Point2D &touch, double const &eps);

/// One of the four common tangents of two circles.
///
/// @param side  0: the touching point on c1 left of the direction from c1 to c2; else right of it.
///              An outer tangent has it the other way round when r1 lies below r2 and magnitudes
///              is 0
/// @param cross 0: an outer tangent, both circles on one side; else an inner one, which crosses the
///              centre line between the circles
/// @param t1, t2 touching points on the first and on the second circle
/// @param magnitudes non-zero: the offsets from the centre line are taken by their absolute value,
///              so that side means the same whichever circle is the larger
/// @param eps   grid, a length: centres that coincide, radii that are equal or zero, circles that
///              touch are found by rounding to it (the threshold is eps / 2); for the outer
///              tangents of circles one in the other it is compared with a squared length
/// @return 1 found; 0 for coinciding centres; for inner tangents also when the circles touch or
///         overlap, or both radii are zero; for outer tangents when one circle lies in the other
///
/// An inner tangent with r1 = 0 and r2 > 0 divides zero by zero: the result is 1 and the points are
/// NaN.
///
/// With NaN the result is 1 and the points are NaN, but for an outer tangent of radii that differ:
/// that gives 0.
///
/// @image html tangente_kreis_kreis.svg
ORVELMATH_EXPORT int tangente_kreis_kreis(Point2D const &c1, double r1, Point2D const &c2,
                                          double r2, int side, int cross, Point2D &t1, Point2D &t2,
                                          int magnitudes, double eps);
