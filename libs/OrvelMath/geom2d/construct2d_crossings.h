#pragma once

/// @file
/// Crossings of lines and circles, projections on them, the direction of a vector, the grid of
/// the tolerance. The crossing of two lines, `intersect_line_line`, is in concav2d_lines.h.

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/Point2D.h>

/// The multiple of eps nearest to x: floor(x / eps + 0.5) * eps.
///
/// A length counts as zero if it rounds to exactly 0 and as negative if it rounds below 0, so the
/// threshold in effect is eps / 2. An eps of 0 gives NaN.
///
/// NaN gives NaN. An infinite x stays infinite; an infinite eps gives NaN.
ORVELMATH_EXPORT double mat_round_to_grid(double x, double eps);

/// A crossing of the infinite line through (p0, p1) with a circle.
///
/// @param which 0 for the crossing further along the direction from p0 to p1, anything else for
///              the other one. Without effect if the line touches.
/// @param out written only if the result is 1.
/// @param eps length: shortest distance from p0 to p1, grid on which the line may miss the
///            circle, and how far from touching the line still touches; then @p out is the foot
///            of the centre on the line.
/// @return 1 found; 0 if the line misses the circle or p0 and p1 coincide.
///
/// The radius is expected to be at least 0.
///
/// @see circleLineIntersect, which is in single precision, and intersect_line_ellipse
/// @see orvelExact::lineCrossings, which gives both crossings at any size
///
/// @image html circle_crossings.svg
ORVELMATH_EXPORT int intersect_line_circle(Point2D const &p0, Point2D const &p1, Point2D const &c,
                                           double r, int which, Point2D &out, double eps);

/// A crossing of two circles.
///
/// @param which 0 for the crossing left of the direction from c1 to c2, anything else for the
///              right one. Circles that touch give the same point for both.
/// @param out written only if the result is 1.
/// @param eps length: shortest distance of the centres, grid on which the circles may miss each
///            other.
/// @return 1 found; 0 if the centres coincide, or the circles lie apart or one in the other.
///
/// With NaN the result is 1 and @p out is NaN. @see intersect_circle_ellipse
/// @see orvelExact::ellipseCrossings, which gives both crossings at any size
///
/// @image html circle_crossings.svg
ORVELMATH_EXPORT int intersect_circle_circle(Point2D const &c1, double r1, Point2D const &c2,
                                             double r2, int which, Point2D &out, double eps);

/// Foot of p on the infinite line through (a, b).
///
/// @param out written only if the result is 1.
/// @param eps a squared length: that of b - a has to lie above it.
/// @return 1 done; 0 if a and b coincide.
///
/// With NaN in p the result is 1 and @p out holds NaN; with NaN in a or b it is 0.
ORVELMATH_EXPORT int projektion_punkt_auf_linie(Point2D const &p, Point2D const &a,
                                                Point2D const &b, Point2D &out, double const &eps);

/// The point of a circle nearest to p.
///
/// @param out written only if the result is 1.
/// @param eps a squared length: that of p - c has to lie above it.
/// @return 1 done; 0 if p is the centre.
///
/// With NaN in p or c the result is 0.
ORVELMATH_EXPORT int projektion_punkt_auf_kreis(Point2D const &p, Point2D const &c, double r,
                                                Point2D &out, double const &eps);

/// Direction of a vector in degrees, counter-clockwise from the positive x axis, from 0 up to
/// 360.
///
/// Unlike `WinVec` it gives 0 for the positive x axis, works through the arc cosine (coarse near
/// the x axis: steps of about 1e-6 degrees) and gives NaN for the zero vector.
///
/// NaN gives NaN. @see WinVec
/// @see orvelExact::turnBetween, which is right near the x axis too; radians
ORVELMATH_EXPORT double mat_vektor_winkel(Point2D const &v);
