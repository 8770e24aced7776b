#pragma once

/// @file
/// Crossings of ellipses, circles and their arcs with each other and with lines: all of them.
///
/// | Function | Curves |
/// |---|---|
/// | `ellipseCrossings` | two ellipses or circles |
/// | `arcCrossings` | two arcs of ellipses or circles |
/// | `lineCrossings` | an ellipse or a circle, the line through two points |
/// | `segmentCrossings` | an arc of an ellipse or a circle, the segment between two points |
///
/// **What is found.** Where two curves cross clear of a contact, each crossing is one entry. A
/// place where one of the curves comes within `tolerance` of the other and turns away from it, or
/// lies within `tolerance` of it between two crossings, is a contact and one entry: `isTouch` is
/// true, and `crosses` says whether the curves change sides. The least `tolerance` at work is that
/// of the arithmetic, about 1e-28 of the larger semi-axis for ellipses of similar size; 0 stands
/// for it. The gap that is compared with `tolerance` is the value of an implicit function by the
/// length of its gradient, which is the distance up to a part of `tolerance` by the least radius
/// of curvature; for lines it is the distance.
///
/// **How right.** Coordinates lie within 1e-12 of the larger semi-axis from the true crossing of
/// the curves that the doubles describe, plus half a unit in the last place of the coordinate, for
/// semi-axes in a ratio up to 1e4 and ellipses up to 1e6 times as large as each other. A contact
/// stands at the point of nearest approach.
///
/// **Input.** Status `NotFinite` for NaN or infinity; `Degenerate` for an ellipse whose u and v are
/// parallel, for a line through one point twice and for an arc with a direction of (0, 0);
/// `OutOfRange` for a length above 1e270 or below 1e-270, for curves whose sizes differ by more
/// than 2^200, and for a crossing that lies below the resolution of 106 bits, which needs sizes
/// that differ by more than 1e18. A tolerance below 0 counts as 0.
///
/// Constant cost, no allocation: about twenty times as much near a contact as clear of it.

#include <OrvelExact/conics/Ellipse.h>

namespace orvelExact {

/// One crossing or contact of two ellipses.
struct ConicCrossing
{
    Point2 point;
    Point2 onFirst;  ///< its direction on the first ellipse, of unit length
    Point2 onSecond; ///< its direction on the second ellipse, of unit length
    bool isTouch = false;
    bool crosses = true;
};

/// The crossings of two ellipses, counter-clockwise along the first one from its u over its v.
struct ConicCrossings
{
    Status status = Status::Ok;
    bool coincide = false; ///< the whole of one ellipse is within the tolerance; count is 0
    int count = 0;
    ConicCrossing crossings[4];
};

/// One crossing or contact of an ellipse and a line.
struct LineCrossing
{
    Point2 point;
    Point2 direction;       ///< on the ellipse, of unit length
    double parameter = 0.0; ///< on the line: 0 at its first point, 1 at its second
    bool isTouch = false;
};

/// The crossings of an ellipse and a line, by ascending parameter.
struct LineCrossings
{
    Status status = Status::Ok;
    int count = 0;
    LineCrossing crossings[2];
};

/// All crossings of two ellipses; see the head of this file for what is found and how right.
/// @param tolerance up to which gap the curves touch, model units
/// @see mathPoly::FindIntersections, mathPoly::FindIntersections2, intersect_ellipse_ellipse,
///     intersect_circle_ellipse, intersect_circle_circle, which work with absolute limits
ORVELEXACT_EXPORT ConicCrossings ellipseCrossings(Ellipse const &first, Ellipse const &second,
                                                  double tolerance);

/// The crossings of two arcs: those of their ellipses that lie on both. An end counts within
/// `tolerance`, or within 2^-50 of its ellipse's size when that is more.
///
/// Arcs of coinciding ellipses are not compared: `coincide` is set, whether they share points or
/// not.
/// @param tolerance up to which gap the curves touch and ends count, model units
ORVELEXACT_EXPORT ConicCrossings arcCrossings(EllipseArc const &first, EllipseArc const &second,
                                              double tolerance);

/// The crossings of an ellipse and the infinite line through two points.
///
/// A tolerance of the size of the ellipse can make the whole of it one contact; then the nearest
/// approach to the line on either side is given.
/// @param tolerance up to which gap the line touches, model units
/// @see intersect_line_ellipse, intersect_line_circle, circleLineIntersect
ORVELEXACT_EXPORT LineCrossings lineCrossings(Ellipse const &ellipse, Point2 const &p0,
                                              Point2 const &p1, double tolerance);

/// The crossings of an arc and the segment from p0 to p1: those of the ellipse and the line that
/// lie on both. An end counts within `tolerance`, or within 2^-50 of the arc's ellipse's size or
/// of the segment's length when that is more.
/// @param tolerance up to which gap the curves touch and ends count, model units
ORVELEXACT_EXPORT LineCrossings segmentCrossings(EllipseArc const &arc, Point2 const &p0,
                                                 Point2 const &p1, double tolerance);

} // namespace orvelExact
