#pragma once

/// @file
/// Points and straight lines: comparison, collinearity, position on a segment, crossings,
/// overlap.

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/Point2D.h>

/// Crossing of the infinite lines through (p0, p1) and through (p2, p3).
///
/// @param eps limit of the raw cross product of the two direction vectors. It is an area: it
///            scales with both lengths, so the same pair of directions may pass or fail with its
///            scale.
/// @return 1 and writes @p out; 0 if eps lies above the absolute cross product, @p out untouched.
///
/// With NaN among the points the result is 1 and @p out holds NaN. See the table in Math2D.h for
/// the other crossings of straight lines.
///
/// @see concav2d::intersectLineLine, inter_lin_lin, Math2DIntersect2Lines
ORVELMATH_EXPORT int intersect_line_line(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                         Point2D const &p3, Point2D &out, double const &eps);

namespace concav2d {

/// How two edges meet. There is no value 3; the global `IntersectionType` of Math2D.h has other
/// values and another meaning.
enum IntersectionType : int {
    NoIntersection = 0, ///< parallel, or the crossing lies off one of the edges
    EndToEnd = 1,       ///< the crossing lies at an end of both edges
    EndOnEdge = 2,      ///< the crossing lies at an end of exactly one edge, inside the other
    Crossing = 4        ///< the crossing lies inside both edges
};

/// Orders two points by x, then by y.
///
/// @param tol length.
/// @return 0 if the points are at most @p tol apart; -1 if p comes first: q.x - p.x above tol, or
///         x within tol and q.y - p.y above tol; otherwise 1.
///
/// Points that differ by at most tol in each coordinate, but by more in distance, give 1 in both
/// orders of the arguments. Sort with it only what differs clearly. With NaN in x the order is that
/// of y, and with NaN in y as well it is 1.
///
/// @see Math2DComparePoints, which asks for a square and not for a circle
ORVELMATH_EXPORT int comparePoints(Point2D const &p, Point2D const &q, double tol);

/// Whether three points lie on one line, and in which order along it.
///
/// The points count 0, 1, 2 as passed, and the order begins with the end that `comparePoints`
/// puts first. Of three coinciding points the first order that fits is taken.
///
/// @param tol length: how far the longest of the three distances may differ from the sum of the
///            other two. A point beside the middle of a long segment passes at a much larger
///            distance from the line than tol.
/// @return 0 not collinear; 1 for 0, 1, 2; 2 for 0, 2, 1; 3 for 1, 0, 2; 4 for 1, 2, 0; 5 for 2,
///         0, 1; 6 for 2, 1, 0.
///
/// NaN and infinity give 0. Constant cost: three roots.
///
/// @see orvelExact::orientation2d for the exact side
ORVELMATH_EXPORT int isColinear(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                double tol);

/// Whether the directions p1 to p0 and p3 to p2 agree, sense included.
///
/// The two `WinVec` angles are compared as they stand. Lines of opposite sense do not pass, nor
/// do directions on either side of the positive x axis, whose angles are nearly 0 and nearly 360.
///
/// @param tol degrees.
///
/// False where an angle is NaN. A pair of equal points has the direction 90. Constant cost; the
/// angles are computed only for directions that may be within the tolerance.
ORVELMATH_EXPORT bool areLinesParallel(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                       Point2D const &p3, double tol);

/// Distance from p0 to the line through (p2, p3), measured along the normal of the line (p0, p1).
///
/// For parallels this is their distance. Whether they are parallel is not checked.
///
/// @param dist receives the distance; untouched if the result is 1.
/// @param tol not read.
/// @return 0 done; 1 if the second line runs along the normal of the first one, or one of the
///         pairs of points coincides (cross product below 1e-100).
///
/// With NaN the result is 0 and @p dist is NaN.
ORVELMATH_EXPORT int distanceBetweenParallels(Point2D const &p0, Point2D const &p1,
                                              Point2D const &p2, Point2D const &p3, double &dist,
                                              double tol);

/// Where a point lies on the segment p0 to p1, by the triangle equality.
///
/// @param tol length: radius about the ends, and how far the way from end to end by way of p may
///            exceed the segment. Beside the middle of a segment of length L that allows a
///            distance of about sqrt(tol * L / 2) from the line.
/// @return 0 off the segment; 1 at p0, also if at p1 as well; 2 at p1; 3 between the ends. NaN
///         gives 3.
///
/// @image html points_on_curves.svg
ORVELMATH_EXPORT int pointOnLine(Point2D const &p0, Point2D const &p1, Point2D const &p,
                                 double tol);

/// Crossing of the infinite lines through (p0, p1) and through (p2, p3), by determinants.
///
/// @return 0 and writes @p out; 1 if the determinant is exactly 0, @p out untouched. Lines that
///         are nearly parallel give a far point and 0. With NaN the result is 0 and @p out holds
///         NaN.
///
/// @see intersect_line_line, inter_lin_lin, intersectEdgeEdge
/// @see orvelExact::crossSegments, for segments
ORVELMATH_EXPORT int intersectLineLine(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                       Point2D const &p3, Point2D &out);

/// How the edges p0 to p1 and p2 to p3 meet.
///
/// @param out receives the crossing of the infinite lines whenever there is one, even if it lies
///            off an edge; untouched only if the cross product of the directions is below 1e-100.
/// @param tol length: radius about the ends, and how far the way over the crossing may exceed the
///            edge.
///
/// Edges that share an end give `EndToEnd`, with a tolerance that covers the rounding of the
/// crossing. Edges on one line are parallel and give `NoIntersection`; see doOverlap. With NaN the
/// result is `Crossing` and @p out holds NaN.
///
/// @see Math2DIntersect2Lines
/// @see orvelExact::crossSegments, orvelExact::classifyCrossing, which are exact and know overlaps
ORVELMATH_EXPORT concav2d::IntersectionType intersectEdgeEdge(Point2D const &p0, Point2D const &p1,
                                                              Point2D const &p2, Point2D const &p3,
                                                              Point2D &out, double tol);

/// Whether two segments on one line share more than a point.
///
/// @param sorted four entries. If the segments are long enough, collinear and not clearly apart
///               they receive p0, p1, p2, p3 in the order of `comparePoints`; an overlap then
///               runs from sorted[1] to sorted[2]. Otherwise they are untouched.
/// @param tol at once a length (shortest segment, comparison of points) and an area (twice the
///            triangle that p2 or p3 may span with the first segment).
/// @return true if sorted[1] and sorted[2] are more than @p tol apart.
///
/// A NaN or an infinity gives false.
ORVELMATH_EXPORT bool doOverlap(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                Point2D const &p3, Point2D *const sorted, double tol);

} // namespace concav2d
