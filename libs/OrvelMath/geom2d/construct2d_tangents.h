/// @file
/// Tangents of points and circles, the circle that touches three circles, fillets between lines and
/// circles, and the arcs in the form m2pnt.
///
/// An arc in the form m2pnt is its centre m and two end points, counter-clockwise from the first
/// end to the second.
///
/// `int` selectors mean only zero against non-zero. "Left" is left of the direction named, looking
/// along it. Input is not checked: NaN and negative radii go through the formulas. All functions
/// are reentrant, allocate nothing and cost constant time; where the result is 0, the outputs are
/// left alone.
#pragma once

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
///              touch are told by rounding to it (the threshold is eps / 2); for the outer tangents
///              of circles one in the other it is compared with a squared length
/// @return 1 found; 0 for coinciding centres; for inner tangents also when the circles touch or
///         overlap, or both radii are zero; for outer tangents when one circle lies in the other
///
/// An inner tangent with r1 = 0 and r2 > 0 divides zero by zero: the result is 1 and the points are
/// NaN.
/// @image html tangente_kreis_kreis.svg
ORVELMATH_EXPORT int tangente_kreis_kreis(Point2D const &c1, double r1, Point2D const &c2,
                                          double r2, int side, int cross, Point2D &t1, Point2D &t2,
                                          int magnitudes, double eps);

/// A circle that touches three circles (Apollonius of Perga), by elimination: the differences of
/// the three circle equations give the centre as a linear function of the radius, the first
/// equation the radius.
///
/// The answer fulfils |centre - ci| = |radius - si ri| with si = +1 for true and -1 for false: with
/// a positive radius, true asks for a contact from within (one circle contains the other), false
/// for one from outside. Only one of the two roots is delivered, and its radius may be negative:
/// then the circle of radius |radius| touches with all three senses swapped.
///
/// @return 1 found; 0 when the solution does not exist or the elimination breaks down: the centres
///         c1 and c2 on a vertical, the three centres on a straight line, a discriminant below
///         0.0001, or a quadratic coefficient below 0.0001 in size. These limits are fixed and
///         assume model units of ordinary size.
///
/// Centres c2 and c3 on a vertical divide by zero: the outputs, or the result, follow from the
/// infinities. Number the circles such that c2 has an x of its own.
/// @image html apolloniusCCC.svg
ORVELMATH_EXPORT int apolloniusCCC(Point2D const &c1, double r1, bool s1, Point2D const &c2,
                                   double r2, bool s2, Point2D const &c3, double r3, bool s3,
                                   Point2D &centre, double &radius);

/// The fillet arc of radius r between two infinite lines, on one of their four sides.
///
/// @param side1, side2 0: the centre lies left of the line's direction (p0 to p1, p2 to p3); else
///             right of it
/// @param m, t1, t2 the arc in the form m2pnt, the shorter of the two: t1 and t2 are the touching
///             points, swapped where needed, so that t1 need not lie on the first line
/// @param eps  limits, strictly above: the squared lengths of both directions; the raw cross
///             product of both directions, an area
/// @return 1 found; 0 for a line without length and for parallel lines
/// @image html fillet_line_line.svg
ORVELMATH_EXPORT int fillet_line_line(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                      Point2D const &p3, double r, int side1, int side2, Point2D &m,
                                      Point2D &t1, Point2D &t2, double const &eps);

/// The fillet arc of radius r between two circles.
///
/// @param side  0: the centre lies left of the direction from c1 to c2; else right of it
/// @param inner 0: the fillet touches both circles from outside; else it encloses both
/// @param m, t1, t2 the arc in the form m2pnt, the shorter of the two: t1 and t2 are the touching
///              points, swapped where needed
/// @param eps   squared length below which `adjust_arc_m2pnt` leaves the order alone; nothing else
/// @return 1 found; 0 for centres nearer than 1e-5 (a fixed length), for a fillet smaller than one
///         of the circles it should enclose, and when no circle of this radius touches both
///
/// An enclosing fillet with r equal to one of the radii divides zero by zero: the result is 1 and
/// that touching point is NaN.
/// @image html fillet_kreis_kreis.svg
ORVELMATH_EXPORT int fillet_kreis_kreis(Point2D const &c1, double r1, Point2D const &c2, double r2,
                                        double r, int side, int inner, Point2D &m, Point2D &t1,
                                        Point2D &t2, double const &eps);

/// The fillet arc of radius r between an infinite line and a circle.
///
/// @param rc    radius of the circle
/// @param side  which of the two centres along the line. With e the direction from the line to the
///              circle's centre, 0 takes the one along e turned a quarter left, else the other
/// @param far   0: the fillet lies on the side of the line on which the circle's centre lies; else
///              on the other side
/// @param m, t1, t2 the arc in the form m2pnt, the shorter of the two: t1 and t2 are the touching
///              points, swapped where needed
/// @param inner 0: the fillet touches the circle from outside; else from within. It stands after
///              the outputs. With r above rc the fillet encloses the circle, and its touching point
///              is still given as the circle's point nearest to m, which then is not where they
///              touch
/// @param eps   squared length that the line's direction has to exceed, length that the circle's
///              centre has to keep from the line, and squared length for the touching point on the
///              circle and for `adjust_arc_m2pnt`
/// @return 1 found; 0 when the circle's centre lies on the line and when no circle of this radius
///         touches both
///
/// With a line without length the origin stands in for the foot of the circle's centre, the
/// touching point on the line is left as it was, and the result is 1 all the same.
/// @image html fillet_line_circle.svg
ORVELMATH_EXPORT int fillet_line_circle(Point2D const &p0, Point2D const &p1, Point2D const &c,
                                        double rc, double r, int side, int far, Point2D &m,
                                        Point2D &t1, Point2D &t2, int inner, double const &eps);

/// The arc that leaves the end p1 of the first line and arrives at the start p2 of the second, at a
/// right angle to the radii there.
///
/// @param m      centre: the crossing of the normals in p1 and p2
/// @param radius distance from m to p1. That from m to p2 is not compared with it: the arc is
///               tangent at both ends only when the two agree
/// @param eps    limit of the raw cross product of the two directions, an area
/// @return 1 found, 0 for parallel lines
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
///               the box stands at this distance from m. A negative one counts as 0. It is not
///               checked against the ends, and a smaller one leaves them outside
/// @param lo, hi corners; always written
/// @param tol    not read
///
/// Ends on an axis direction count as passing it. Equal ends mean an arc from their direction up to
/// 360 degrees, not a full circle, unless that direction is 0. An end on m has the direction 0.
/// @image html mat_bounding_box_of_arc_m2pnt.svg
ORVELMATH_EXPORT void mat_bounding_box_of_arc_m2pnt(Point2D const &m, Point2D const &a,
                                                    Point2D const &b, double r, Point2D &lo,
                                                    Point2D &hi, double tol);
