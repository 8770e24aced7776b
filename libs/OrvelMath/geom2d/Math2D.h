#pragma once

/// @file
/// The first generation of the plane: crossings of segments, a line clipper, a point-in-polygon
/// test and the cut of a line with a circle in single precision.
///
/// Tolerances are lengths, by value. Crossings answer with an enumeration in which 0 means none.
///
/// The crossings of two straight lines, side by side. None replaces another:
///
/// | Function                      | Lines    | Parallel if          | Then           | Found |
/// |-------------------------------|----------|----------------------|----------------|-------|
/// | `concav2d::intersectLineLine` | infinite | determinant is 0     | 1              | 0     |
/// | `intersect_line_line`         | infinite | eps > cross product  | 0              | 1     |
/// | `inter_lin_lin`               | infinite | cross product is 0   | middle point   | point |
/// | `Math2DIntersect2Lines`       | segments | tol² > cross product | NoIntersection | class |
/// | `Math2DIntersect2LinesWrong`  | segments | cross product is 0   | NoIntersection | class |
/// | `concav2d::intersectEdgeEdge` | segments | 1e-100 > cross prod. | NoIntersection | class |
///
/// All take two points per line, but for `inter_lin_lin`: a point and a direction. The classes of
/// `intersectEdgeEdge` are those of `concav2d::IntersectionType`.
///
/// The two point-in-polygon tests:
///
/// |                     | `Math2DInsidePolygon`      | `concav2d::pointInsidePolygone`       |
/// |---------------------|----------------------------|---------------------------------------|
/// | polygon             | array and count            | ordered vector of pointers            |
/// | 0, 1, 2             | inside, on edge, outside   | outside, on boundary, inside          |
/// | extent in x         | may be passed in, exact    | scanned, widened by the tolerance     |
/// | p at a vertex       | as the crossings tell      | on boundary                           |
/// | p on a level edge   | ends do not count          | ends count                            |
///
/// Take the second one unless the extent is at hand or an old result has to be met.

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/Point2D.h>

/// How two segments meet. `concav2d::IntersectionType` has other values and another meaning.
enum IntersectionType : int {
    NoIntersection = 0, ///< parallel, or they do not meet
    ProperCrossing = 1, ///< they cross away from all four ends
    EndOnSegment = 2,   ///< the crossing is within tol of an end of exactly one segment
    EndToEnd = 3        ///< the crossing is within tol of an end of both, or two ends coincide
};

/// Where a point lies against a polygon. `concav2d::LocationType` counts the other way round.
enum InsidePolyType : int {
    InsidePolygon = 0, ///< strictly inside
    OnPolygonEdge = 1, ///< on the outline
    OutsidePolygon = 2 ///< outside, or fewer than three vertices
};

/// Compares two points through the square of half-width tol about b, border included.
///
/// @param tol length.
/// @return 0 if a lies in the square; otherwise 1 or -1 as a lies above or below it in x, and if
///         it does neither, in y. NaN counts as within the square in its coordinate.
///
/// @see concav2d::comparePoints
ORVELMATH_EXPORT int Math2DComparePoints(Point2D const &a, Point2D const &b, double tol);

/// How the segments p0 to p1 and p2 to p3 meet.
///
/// Ends that coincide within the square of `Math2DComparePoints` are looked at first, in the
/// order p0 p3, p0 p2, p1 p3, p1 p2. Otherwise the crossing of the two lines has to lie within
/// both segments, without a tolerance, and is classed by its distance from the ends.
///
/// @param out receives the crossing, or the end of the first segment that coincides; untouched
///            with `NoIntersection`.
/// @param tol length; squared, it also limits the cross product of the directions from below.
///
/// Segments on one line give `NoIntersection`, unless two ends coincide. With NaN in x the result
/// follows from y alone where ends are compared, and is `ProperCrossing` with an @p out of NaN
/// where they do not coincide.
///
/// @see concav2d::intersectEdgeEdge, intersect_line_line
/// @see orvelExact::crossSegments, orvelExact::classifyCrossing, which are exact and know overlaps
///
/// @image html segment_crossings.svg
ORVELMATH_EXPORT IntersectionType Math2DIntersect2Lines(Point2D const &p0, Point2D const &p1,
                                                        Point2D const &p2, Point2D const &p3,
                                                        Point2D &out, double tol);

/// `Math2DIntersect2Lines` without its care, kept because `Math2DInsidePolygon` is built on it.
///
/// Ends that coincide are not looked at beforehand, and only a cross product of exactly 0 is
/// refused. So segments that share an end may give `NoIntersection` when rounding puts the
/// crossing a hair off, and segments that are nearly parallel may give a crossing from a tiny
/// divisor.
///
/// With NaN the result is `ProperCrossing` and @p out is NaN. @see Math2DIntersect2Lines
ORVELMATH_EXPORT IntersectionType Math2DIntersect2LinesWrong(Point2D const &p0, Point2D const &p1,
                                                             Point2D const &p2, Point2D const &p3,
                                                             Point2D &out, double tol);

/// Crossing of the infinite lines p + t d and q + s e. The second and fourth arguments are
/// directions.
///
/// @param tol not read.
/// @return the crossing; the middle of p and q if the cross product of d and e is exactly 0.
///
/// NaN gives NaN. @see intersect_line_line, concav2d::intersectLineLine
ORVELMATH_EXPORT Point2D inter_lin_lin(Point2D const &p, Point2D const &d, Point2D const &q,
                                       Point2D const &e, double tol);

/// Cuts the infinite line through (x1, y1) and (x2, y2) with a circle, in single precision.
///
/// The first point is the one further along the line. A tangent gives two equal points.
///
/// @return 2 and writes the four outputs; 0 if the line misses the circle, outputs untouched. If
///         the two points of the line coincide, either 0 or outputs of infinity and NaN.
///
/// NaN gives 2 and outputs of NaN. @see intersect_line_circle
/// @see orvelExact::lineCrossings, which gives both crossings in double precision
ORVELMATH_EXPORT int circleLineIntersect(float x1, float y1, float x2, float y2, float cx, float cy,
                                         float r, float &ox1, float &oy1, float &ox2, float &oy2);

/// Cuts the infinite line through a and b with the circle about c, in single precision.
///
/// @param o1, o2 always overwritten. After 0 their contents have no meaning: look at the result
///               first.
/// @return 2 found, 0 not; as above.
ORVELMATH_EXPORT int circleLineIntersect(Point2D a, Point2D b, Point2D c, float r, Point2D &o1,
                                         Point2D &o2);

/// Clips a segment at an upright rectangle (after D. Cohen and I. Sutherland, 1967).
///
/// Unlike the textbook form, an end may move in x and y in the same pass, and the slope is that
/// of the segment as passed throughout. Points on the border are inside.
///
/// An end that rounding would drive off one border and back over another for ever, on a segment
/// through a corner, is put on the corner. Where exchanged borders (xmin above xmax, ymin above
/// ymax) would do so, the result is false.
///
/// @param x1, y1, x2, y2 ends of the segment, moved to the border where they lie outside. After
///                       false they may have been moved in part.
/// @return true if a part of the segment stays. A coordinate that is NaN counts as inside.
///
/// Always returns, mostly after four moves; a guard ends the cases that would go on for ever.
///
/// @image html clipping.svg
ORVELMATH_EXPORT bool clipline(double xmin, double ymin, double xmax, double ymax, double &x1,
                               double &y1, double &x2, double &y2);

/// Where a point lies against a polygon, by a horizontal ray to the right inside a band.
///
/// Vertices within the band, tol above and below p, count as lying on the ray. The outline passes
/// the band once, where it leaves it to the other side than it came from. The ray ends 100 beyond
/// the polygon.
///
/// @param points vertices in order, either sense, closed from the last to the first; only read.
/// @param count number of vertices.
/// @param xmin, xmax extent of the polygon in x, if both are non-null; it is not checked.
///                   Otherwise the vertices are scanned. Only read.
/// @param tol length.
///
/// The nesting rule is even-odd. Cost: linear in @p count (M. Shimrat, 1962, for the ray).
///
/// NaN in a coordinate of a vertex counts as in the band (y) or as no extent (x). No input makes it
/// run longer than a few passes over the vertices. @see concav2d::pointInsidePolygone
/// @see orvelExact::locateInPolygon, which says exactly on which edge or corner the point is
///
/// @image html point_location.svg
ORVELMATH_EXPORT InsidePolyType Math2DInsidePolygon(Point2D *points, int count, Point2D const &p,
                                                    double *xmin, double *xmax, double tol);
