#pragma once

/// @file
/// Crossings of cubic Bezier curves with lines and with each other.
///
/// As with the other conics, each crossing clear of a contact is one entry, and a place where the
/// curves come within `tolerance` of each other and turn away, or lie within it between two
/// crossings, is one entry with `isTouch` set. An end of a curve counts within `tolerance`.
///
/// Status `NotFinite` for NaN or infinity, `Degenerate` for a line through one point twice or a
/// curve of four equal points, `OutOfRange` for lengths above 1e270 or below 1e-270. A tolerance
/// below 0 counts as 0.

#include <OrvelExact/base/Status.h>
#include <OrvelExact/base/points.h>

namespace orvelExact {

/// The curve (1-t)³ p0 + 3 (1-t)² t p1 + 3 (1-t) t² p2 + t³ p3 for t from 0 to 1.
struct CubicBezier
{
    Point2 p[4];
};

/// One crossing or contact of a curve and a line.
struct BezierLineCrossing
{
    Point2 point;
    double t = 0.0;         ///< on the curve
    double parameter = 0.0; ///< on the line: 0 at its first point, 1 at its second
    bool isTouch = false;
};

/// The crossings of a curve and a line, by ascending t.
struct BezierLineCrossings
{
    Status status = Status::Ok;
    bool coincide = false; ///< the whole curve is within the tolerance; count is 0
    int count = 0;
    BezierLineCrossing crossings[3];
};

/// One crossing or contact of two curves.
struct BezierCrossing
{
    Point2 point;
    double onFirst = 0.0;  ///< t on the first curve
    double onSecond = 0.0; ///< t on the second curve
    bool isTouch = false;
};

/// The crossings of two curves, by ascending t on the first one.
struct BezierCrossings
{
    Status status = Status::Ok;
    bool coincide = false; ///< more than nine places, or a piece in common; count is 0
    int count = 0;
    BezierCrossing crossings[9];
};

/// The point of a curve by de Casteljau's rule, plain doubles.
ORVELEXACT_EXPORT Point2 pointAt(CubicBezier const &curve, double t);

/// All crossings of a curve and the infinite line through two points.
///
/// The tolerance is a distance. Points lie within 1e-12 of the curve's size (the largest distance
/// of a control point from the line's first point, or the length of the line's vector when that is
/// more) from the true ones, plus half a unit in the last place. The least tolerance at work is
/// 1e-28 of that size. Constant cost, no allocation.
ORVELEXACT_EXPORT BezierLineCrossings bezierLineCrossings(CubicBezier const &curve,
                                                          Point2 const &p0, Point2 const &p1,
                                                          double tolerance);

/// The crossings with the segment from p0 to p1: those with its line whose parameter is from 0 to
/// 1, or whose point is within `tolerance` or 2^-50 of the segment's length of an end.
ORVELEXACT_EXPORT BezierLineCrossings bezierSegmentCrossings(CubicBezier const &curve,
                                                             Point2 const &p0, Point2 const &p1,
                                                             double tolerance);

/// All crossings of two curves, at most nine.
///
/// Points lie within 1e-12 of the curves' size (the largest difference of a coordinate among the
/// control points) from the true ones, plus half a unit in the last place. The least tolerance at
/// work is 2e-13 of that size: a gap below it is a contact. The gap is the distance of the curves
/// where their tangents are parallel. Two ends meet within the tolerance.
///
/// Curves that share a piece, within the tolerance, are told by `coincide`; a contact of higher
/// order than three may be taken for one. A curve's crossing with itself is no subject here.
///
/// Pieces are halved until their tangents tell them apart (Sederberg and Meyers 1988), then a
/// crossing is found in 106 bits. Cost: some tens of microseconds, a millisecond or two near
/// contacts, tens of milliseconds for curves that coincide. No allocation.
ORVELEXACT_EXPORT BezierCrossings bezierCrossings(CubicBezier const &first,
                                                  CubicBezier const &second, double tolerance);

} // namespace orvelExact
