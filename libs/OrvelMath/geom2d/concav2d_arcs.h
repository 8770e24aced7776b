#pragma once

/// @file
/// Arcs, circles and ellipses: centre, points at an angle, and whether a point is on an arc.
///
/// An arc comes as three points (start, through, end; the sweep is the one by way of the through
/// point) or as two angles (swept counter-clockwise from the first to the second). Functions that
/// say "relative to the centre" leave it to the caller to subtract the centre.

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/Point2D.h>

namespace concav2d {

/// Whether the direction m lies on the counter-clockwise sweep from a to b.
///
/// @param a, m, b angles in degrees as `WinVec` gives them; b may exceed 360.
/// @param tol degrees.
/// @return 2 if m coincides with an end, which is looked at first; 0 if the ends coincide; 1 if m
///         lies on the sweep; -1 if it does not.
///
/// A sweep through the positive x axis (a above b) counts m as on it when m is beyond a or before
/// b. NaN in any angle gives -1.
ORVELMATH_EXPORT int ccw_angle_origin(double a, double m, double b, double tol);

/// Centre of the circle through three points, as the crossing of two perpendicular bisectors.
///
/// @param tol not read.
/// @return 0 and writes @p centre; 1 if the bisectors are exactly parallel, @p centre untouched.
///         Points that are nearly collinear give a far centre and 0.
///
/// With NaN or infinity the result is 0 and @p centre holds NaN.
///
/// @see MatUtil::getCircleCenter, which refuses flat triangles and gives the radius
ORVELMATH_EXPORT int getArcMiddle(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                  Point2D &centre, double tol);

/// Point of a circle at an angle in degrees.
/// @return always 0.
///
/// NaN and infinity give NaN. One sine and one cosine.
ORVELMATH_EXPORT int getCirclePoint(Point2D const &centre, double radius, double angle,
                                    Point2D &out);

/// Parameter angle, in degrees as by `WinVec`, of a point relative to the centre of an ellipse.
///
/// @param semiA, semiB semi-axes along the ellipse's own x and y axis; 0 gives infinities and
///                     NaN.
/// @param rotation of the ellipse's own x axis, in degrees.
///
/// The point need not be on the ellipse. The parameter angle is that of the circle from which the
/// ellipse is stretched, not the direction of the point.
ORVELMATH_EXPORT double getEllipsePointAngle(Point2D const &p, double semiA, double semiB,
                                             double rotation);

/// Where a point lies on an arc of three points, by its direction alone.
///
/// All four points are relative to the centre. The distance of @p p from the centre is not
/// related to the radius: a point anywhere on the ray through the arc passes.
///
/// @param tolDist length: radius about the two ends.
/// @param tolAngle degrees.
/// @return 1 at start; 2 at end; 3 if p is on the same side of the pair of ends as @p through;
///         otherwise 0.
///
/// With a NaN in p the result is 0, unless the through point is not on the sweep either: then it is
/// 3.
///
/// @image html points_on_curves.svg
ORVELMATH_EXPORT int pointOnArc(Point2D const &start, Point2D const &through, Point2D const &end,
                                Point2D const &p, double tolDist, double tolAngle);

/// Where a point, relative to the centre, lies on the arc from angle a by way of m to b.
///
/// An arc that does not run counter-clockwise is looked at from b to a: the result 1 then means
/// the end at b, and 2 the end at a.
///
/// @param tolDist degrees, in spite of its name: tolerance of the point's direction.
/// @param tolAngle degrees: tolerance for the sense of the arc.
/// @return as the form with two angles.
///
/// A NaN in p gives 0.
ORVELMATH_EXPORT int pointOnArc(double a, double m, double b, Point2D const &p, double tolDist,
                                double tolAngle);

/// Where the direction of a point, relative to the centre, lies on the counter-clockwise sweep
/// from a to b.
///
/// @param tol degrees.
/// @return 3 for every point if a and b coincide: a full circle; 1 at a; 2 at b; 3 between;
///         otherwise 0.
///
/// A NaN in a, b or p gives 0.
ORVELMATH_EXPORT int pointOnArc(double a, double b, Point2D const &p, double tol);

/// Where the parameter angle of a point, relative to the centre, lies on the counter-clockwise
/// sweep of an ellipse arc from a to b.
///
/// @param a, b parameter angles in degrees.
/// @param rotation of the ellipse's own x axis, in degrees.
/// @param tol degrees.
/// @return 1 at a; 2 at b; 3 between; otherwise 0. Unlike `pointOnArc`, equal ends are no full
///         ellipse: all other points give 0.
///
/// A NaN or an infinity in a, b or p gives 0.
///
/// @image html points_on_curves.svg
ORVELMATH_EXPORT int pointOnEllipsearc(double a, double b, double rotation, Point2D const &p,
                                       double semiA, double semiB, double tol);

/// Whether the direction of a point lies strictly inside the sweep of a three-point arc. 0 is
/// yes.
///
/// @param angle receives the direction of p from the centre in degrees, raised by 360 if it lies
///              below the low end of the arc; untouched if there is no centre.
/// @param tol degrees.
/// @return 0 if more than tol away from both ends and inside the sweep; 1 outside, at an end, or
///         if the three points are collinear.
///
/// With NaN the result is 0 and @p angle is NaN: no test refuses it.
ORVELMATH_EXPORT int isPointOnArc(Point2D const &start, Point2D const &through, Point2D const &end,
                                  Point2D const &p, double &angle, double tol);

/// Whether the direction of a point lies strictly inside the counter-clockwise sweep from a to b.
/// 0 is yes.
///
/// @param radius not read.
/// @param angle receives the direction of p from the centre in degrees, raised by 360 if it lies
///              below a.
/// @param tol degrees.
/// @return 0 if more than tol away from both ends and inside the sweep, otherwise 1.
///
/// With a NaN in p the result is 0 and @p angle is NaN.
ORVELMATH_EXPORT int isPointOnArc(Point2D const &centre, double radius, double a, double b,
                                  Point2D const &p, double &angle, double tol);

} // namespace concav2d
