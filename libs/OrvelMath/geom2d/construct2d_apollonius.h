#pragma once

/// @file
/// The circle that touches three circles.

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/Point2D.h>

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
///
/// With NaN the result is 1 and the outputs are NaN. Constant cost, no allocation.
///
/// @image html apolloniusCCC.svg
ORVELMATH_EXPORT int apolloniusCCC(Point2D const &c1, double r1, bool s1, Point2D const &c2,
                                   double r2, bool s2, Point2D const &c3, double r3, bool s3,
                                   Point2D &centre, double &radius);
