#pragma once

/// @file
/// Cubic Bezier segments as circular arcs.

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/Point2D.h>

#include <QList>

/// Turns a cubic Bezier segment into circular arcs. An arc is a list of exactly three points
/// (start, through, end), as `concav2d::getArcMiddle` and its kin take them; the through points lie
/// on the curve.
///
/// No error is measured and nothing recurs: a segment becomes at most two arcs. Split a long or
/// strongly bent segment beforehand. Control points that are not finite pass through the
/// arithmetic. Constant cost: an arc is four allocations, of the list and of its three points,
/// which QList keeps one by one; the list of arcs is one more.
///
/// The weights at 0.2 and 0.8 are doubles that add up to a little more than one, so for coinciding
/// control points the through points may be a few units of rounding off; ends and middle are not.
class ORVELMATH_EXPORT BezierApproximation
{
public:
    /// One or two arcs, in order along the curve. With m the curve's point at the parameter 0.5:
    /// one arc (p0, m, p3) when m lies nearer than tol to p0 or to p3; otherwise the arcs
    /// (p0, B(0.2), m) and (m, B(0.8), p3). A NaN distance gives two.
    /// @param tol least straight distance, in model units, from the curve's middle to either end
    ///     that is worth two arcs; not an approximation error
    /// @image html BezierApproximation.svg
    static QList<QList<Point2D>> interpolateCubic(Point2D p0, Point2D p1, Point2D p2, Point2D p3,
                                                  double tol);

    /// One arc: p0, the curve's point at the parameter 0.5, p3.
    static QList<Point2D> cubicToArc(Point2D p0, Point2D p1, Point2D p2, Point2D p3);

    /// Always an empty list; reads none of its arguments.
    static QList<Point2D> quatToArc(Point2D p0, Point2D p1, Point2D p2);
};
