#pragma once

/// @file
/// Fillets: arcs of a given radius that touch two lines, two circles, or a line and a circle.
///
/// A fillet comes in the form m2pnt: its centre m and its two ends, counter-clockwise from the
/// first end to the second. An `int` selector means only zero against non-zero. "Left" is left of
/// the direction named, looking along it.

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/Point2D.h>

/// The fillet arc of radius r between two infinite lines, on one of their four sides.
///
/// @param side1, side2 0: the centre lies left of the line's direction (p0 to p1, p2 to p3); else
///             right of it
/// @param m, t1, t2 the arc in the form m2pnt, the shorter of the two: t1 and t2 are the touching
///             points, swapped where needed, so that t1 need not lie on the first line
/// @param eps  limits, strictly above: the squared lengths of both directions; the raw cross
///             product of both directions, an area
/// @return 1 found; 0 for a line without length and for parallel lines
///
/// With NaN the result is 1 and the centre is NaN.
///
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
///
/// With NaN the result is 1 and the outputs are NaN.
///
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
/// @param inner 0: the fillet touches the circle from outside; else from within. It comes after
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
