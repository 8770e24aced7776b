#pragma once

/// @file
/// Measures of arcs and ellipses: end angles, radius, extent, normal and tangent points.

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/Point2D.h>

namespace concav2d {

/// Start or end angle of a three-point arc in its counter-clockwise sense.
///
/// @param angle receives degrees; untouched if the result is 1.
/// @param start true for the low, false for the high end of the counter-clockwise sweep.
/// @param tol degrees: tolerance for the sense of the arc. An arc whose sense cannot be told
///            counts as counter-clockwise.
/// @return 0 done; 1 if the three points are exactly collinear.
///
/// With NaN the result is 0 and @p angle is NaN.
///
/// @see getArcRadius, getArcExtrema
ORVELMATH_EXPORT int getArcAngle(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                 double &angle, bool start, double tol);

/// Start or end angle of a three-point arc about a given centre. As above; always 0.
ORVELMATH_EXPORT int getArcAngle(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                 Point2D const &centre, double &angle, bool start, double tol);

/// Radius of a three-point arc.
///
/// @param radius receives the distance of p0 from the centre; untouched if the result is 1.
/// @param tol not read.
/// @return 0 done; 1 if the three points are exactly collinear.
ORVELMATH_EXPORT int getArcRadius(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                  double &radius, double tol);

/// Distance of p0 from a given centre. p1 and p2 are not read; always 0.
ORVELMATH_EXPORT int getArcRadius(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                  Point2D const &centre, double &radius);

/// Box about an ellipse arc: the square of half-width a about the centre, and nothing finer.
///
/// @param a pass the larger semi-axis to be sure of an enclosing box.
/// @param b, rotation, start, end, tol not read.
/// @return always 0.
ORVELMATH_EXPORT int getEllipsearcExtrema(Point2D const &centre, double a, double b,
                                          double rotation, double start, double end, double &xmin,
                                          double &xmax, double &ymin, double &ymax, double tol);

/// Box about an ellipse: the square of half-width a about the centre, and nothing finer.
///
/// @param a pass the larger semi-axis to be sure of an enclosing box.
/// @param b, rotation, tol not read.
/// @return always 0.
///
/// @image html extrema.svg
ORVELMATH_EXPORT int getEllipseExtrema(Point2D const &centre, double a, double b, double rotation,
                                       double &xmin, double &xmax, double &ymin, double &ymax,
                                       double tol);

/// Parameter angles, in radians, at which an ellipse is extreme: t1 in x, t2 in y.
///
/// Mind which ellipse: the quotient a / b stands where an ellipse with the semi-axis a along its
/// own x axis has b / a. The angles are those of the ellipse with b along its own x axis and a
/// across.
///
/// @param centre not read.
/// @param rotation of the ellipse's own x axis, in degrees.
/// @param t1, t2 receive principal values of the arc tangent; the opposite points lie half a turn
///               on. If the axes lie along the coordinate axes they receive 360 - rotation, and a
///               quarter turn more.
/// @param tol degrees: how far the rotation may be from 0, 90, 180, 270 or 360 (exclusive).
/// @return always 0.
ORVELMATH_EXPORT int getEllipseExtremaAngles(Point2D const &centre, double a, double b,
                                             double rotation, double &t1, double &t2, double tol);

/// Box about a three-point arc.
/// @return 0 done; 1 if the three points are exactly collinear, the outputs then are untouched.
///
/// With NaN or infinity the result is 0 and the outputs are NaN.
///
/// @see mat_bounding_box_of_arc_m2pnt
ORVELMATH_EXPORT int getArcExtrema(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                   double &xmin, double &xmax, double &ymin, double &ymax);

/// Box about the arc that runs counter-clockwise from start to end.
///
/// @param start, end degrees. Angles above 360 are reduced, those below 0 are not. NaN and infinity
///                   have no end point, and the box then no meaning.
/// @return always 0.
///
/// @image html extrema.svg
ORVELMATH_EXPORT int getArcExtrema(Point2D const &centre, double radius, double start, double end,
                                   double &xmin, double &xmax, double &ymin, double &ymax);

/// A point one unit from p, in a direction that stands in for the normal of an ellipse.
///
/// With f = sqrt(a * a + b * b), p sees the points (f, 0) and (-f, 0) of the ellipse's own axes.
/// The direction is half the angle under which the second one is seen, turned back by half a turn
/// unless the first one is seen at more than 180 degrees: downwards, or to the right at 360. This
/// is not the analytic normal; at (a, 0) it runs along the tangent.
///
/// @param rotation of the ellipse's own x axis, in degrees.
/// @param p a point of the ellipse.
/// @return always 0.
ORVELMATH_EXPORT int getEllipsePointNormal(Point2D const &centre, double a, double b,
                                           double rotation, Point2D const &p, Point2D &out);

/// Where a quarter turn counter-clockwise about p takes the point of `getEllipsePointNormal`.
/// Arguments and result as there.
ORVELMATH_EXPORT int getEllipsePointTangent(Point2D const &centre, double a, double b,
                                            double rotation, Point2D const &p, Point2D &out);

/// A point on the tangent of a circle at p, in the counter-clockwise direction. Its distance from
/// p is the radius.
/// @return always 0.
ORVELMATH_EXPORT int getCirclePointTangent(Point2D const &centre, Point2D const &p, Point2D &out);

} // namespace concav2d
