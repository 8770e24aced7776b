#pragma once

/// @file
/// Arcs in the form m2pnt: the centre m and two ends, counter-clockwise from the first end to the
/// second.

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/Point2D.h>

/// The arc that leaves the end p1 of the first line and arrives at the start p2 of the second, at a
/// right angle to the radii there.
///
/// @param m      centre: the crossing of the normals in p1 and p2
/// @param radius distance from m to p1. That from m to p2 is not compared with it: the arc is
///               tangent at both ends only when the two agree
/// @param eps    limit of the raw cross product of the two directions, an area
/// @return 1 found, 0 for parallel lines
///
/// With NaN the result is 1 and the outputs are NaN.
///
/// @image html arc_line1end_to_line2anf.svg
ORVELMATH_EXPORT int arc_line1end_to_line2anf(Point2D const &p0, Point2D const &p1,
                                              Point2D const &p2, Point2D const &p3, Point2D &m,
                                              double &radius, double const &eps);

/// Swaps the ends of an arc in the form m2pnt where that gives the wanted sweep.
///
/// @param m    centre; never changed
/// @param a, b ends, swapped in place or left alone. Ends straight across from each other stay when
///             their directions, rounded, differ by exactly 180 degrees, as they do along the axes;
///             on a slant rounding decides
/// @param r    not read
/// @param mode non-zero: the arc that sweeps at most 180 degrees; zero: the one that sweeps at
///             least 180 degrees
/// @param eps  squared length: with an end nearer to m than its root nothing is changed
///
/// Ends that are NaN are swapped.
/// @image html adjust_arc_m2pnt.svg
ORVELMATH_EXPORT void adjust_arc_m2pnt(Point2D &m, Point2D &a, Point2D &b, double r, int mode,
                                       double const &eps);

/// The box, parallel to the axes, around an arc in the form m2pnt.
///
/// @param r      distance of the ends from m: where the arc passes an axis direction, that side of
///               the box is at this distance from m. A negative one counts as 0. It is not
///               checked against the ends, and a smaller one leaves them outside
/// @param lo, hi corners; always written
/// @param tol    not read
///
/// Ends on an axis direction count as passing it. Equal ends mean an arc from their direction up to
/// 360 degrees, not a full circle, unless that direction is 0. An end on m has the direction 0.
///
/// @see concav2d::getArcExtrema
///
/// @image html mat_bounding_box_of_arc_m2pnt.svg
ORVELMATH_EXPORT void mat_bounding_box_of_arc_m2pnt(Point2D const &m, Point2D const &a,
                                                    Point2D const &b, double r, Point2D &lo,
                                                    Point2D &hi, double tol);
