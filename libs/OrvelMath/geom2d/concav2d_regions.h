#pragma once

/// @file
/// Points, lines and arcs against regions: a polygon, and a rectangle of four corners.

#include <OrvelCore/runtime/PPtrOrderedVector.h>
#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/Point2D.h>

namespace concav2d {

/// Where a point lies against a polygon. `InsidePolyType` of Math2D.h counts the other way round.
enum LocationType : int {
    Outside = 0,    ///< outside, or the polygon has fewer than three vertices
    OnBoundary = 1, ///< on an edge or a vertex, within the tolerance
    Inside = 2      ///< strictly inside
};

/// Where a point lies against a polygon, by a horizontal ray to the right inside a band.
///
/// Vertices within the band, tol above and below p, count as lying on the ray. The outline passes
/// the band once, where it leaves it to the other side than it came from. The ray ends 10000
/// beyond the polygon; coordinates are expected between -2147483648 and 2147483647.
///
/// @verbatim
///        above          o
///   ------------------ / ---------- p.y + tol
///        p  ----------x----------->   ray
///   ---------------- / ------------ p.y - tol
///        below      o
/// @endverbatim
///
/// @param polygon vertices in order, either sense, closed from the last to the first. The points
///                are only read; null pointers are not allowed.
/// @param tol length.
///
/// A polygon that lies within the band as a whole has no inside. The nesting rule is even-odd.
/// Cost: linear in the number of vertices (M. Shimrat, 1962, for the ray; the band is our own).
///
/// NaN in a coordinate of a vertex counts as in the band (y) or as no extent (x). No input makes it
/// run longer than a few passes over the vertices. @see Math2DInsidePolygon
/// @see orvelExact::locateInPolygon, which says exactly on which edge or corner the point is
///
/// @image html point_location.svg
ORVELMATH_EXPORT concav2d::LocationType
pointInsidePolygone(PPtrOrderedVector<Point2D> const &polygon, Point2D const &p, double tol);

/// Whether a point lies in a rectangle or on its outline.
///
/// @param r0, r1, r2, r3 corners in counter-clockwise order; any convex quadrilateral will do.
/// @param tol not read; the tolerance is 1e-6 degrees.
/// @return 1 inside or on the outline, 0 outside.
///
/// The sides are taken on the circle through two corners and the point; a point within 1e-6 of a
/// corner is on the outline.
///
/// NaN and infinity, in a corner or in a point that is looked at, count as outside.
///
/// @image html point_location.svg
ORVELMATH_EXPORT int pointInsideRectangle(Point2D &p, Point2D &r0, Point2D &r1, Point2D &r2,
                                          Point2D &r3, double tol);

/// Whether a segment lies in a rectangle, to pick lines with a box.
///
/// A start point strictly inside settles it, whatever the other end. Otherwise both ends have to
/// lie in the rectangle, and a segment that runs along an edge counts only if the flag of that
/// edge is set.
///
/// @param r0, r1, r2, r3 corners in counter-clockwise order; any convex quadrilateral will do.
/// @param tol not read; the tolerance is 1e-6 degrees.
/// @param onEdge30, onEdge12, onEdge01, onEdge23 whether segments on that edge count. If r0 is
///                                               the lower left corner these are, in this order,
///                                               left, right, bottom and top.
/// @return 1 inside, 0 outside.
///
/// NaN and infinity, in a corner or in a point that is looked at, count as outside.
///
/// @image html clipping.svg
ORVELMATH_EXPORT int lineInsideRectangle(Point2D &p0, Point2D &p1, Point2D &r0, Point2D &r1,
                                         Point2D &r2, Point2D &r3, double tol, bool onEdge30,
                                         bool onEdge12, bool onEdge01, bool onEdge23);

/// Whether a three-point arc lies in a rectangle, to pick arcs with a box.
///
/// A through point p1 strictly inside settles it. Otherwise p1 and the start p0 have to lie in
/// the rectangle. The end p2 is not read.
///
/// @param r0, r1, r2, r3 corners in counter-clockwise order; any convex quadrilateral will do.
/// @param tol not read; the tolerance is 1e-6 degrees.
/// @return 1 inside, 0 outside.
///
/// NaN and infinity, in a corner or in a point that is looked at, count as outside.
ORVELMATH_EXPORT int arcInsideRectangle(Point2D &p0, Point2D &p1, Point2D &p2, Point2D &r0,
                                        Point2D &r1, Point2D &r2, Point2D &r3, double tol);

/// Whether an ellipse arc lies in a rectangle, to pick ellipse arcs with a box.
///
/// A point at the start strictly inside settles it. Otherwise that point and the one at the mean
/// of the two parameter angles have to lie in the rectangle.
///
/// @param axisA, axisB vectors whose lengths are the semi-axes; their directions are not read.
/// @param rotation of the ellipse's own x axis, in degrees.
/// @param start, end parameter angles in degrees.
/// @param r0, r1, r2, r3 corners in counter-clockwise order; any convex quadrilateral will do.
/// @param tol not read; the tolerance is 1e-6 degrees.
/// @return 1 inside, 0 outside.
///
/// NaN and infinity, in a corner or in a point that is looked at, count as outside.
ORVELMATH_EXPORT int ellipsearcInsideRectangle(Point2D &centre, Point2D &axisA, Point2D &axisB,
                                               double rotation, double start, double end,
                                               Point2D &r0, Point2D &r1, Point2D &r2, Point2D &r3,
                                               double tol);

} // namespace concav2d
