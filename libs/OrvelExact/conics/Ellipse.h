#pragma once

/// @file
/// Ellipses, circles and their arcs, as OrvelExact takes them.

#include <OrvelExact/base/Status.h>
#include <OrvelExact/base/points.h>

namespace orvelExact {

/// The ellipse of the points `centre + c u + s v` for all c² + s² = 1.
///
/// u and v are conjugate half diameters: the semi-axes when they are perpendicular, but any two
/// that aren't parallel do, so that the image under an affine map is the image of the three
/// members. No angle takes part, hence the doubles say exactly which curve is meant.
///
/// A point of the ellipse is named by its *direction* (c, s); directions run from u over v.
///
/// ```
///            ...v...
///         .     |     .
///        .   centre----u
///         .           .
///            .......
/// ```
struct Ellipse
{
    Point2 centre;
    Point2 u;
    Point2 v;
};

/// The arc of an ellipse from one direction to another, the way from u over v.
///
/// `from` and `to` are directions in the ellipse's own measure, of any length but 0: (1, 0) is the
/// end of u, (0, 1) that of v. Equal directions make the whole ellipse. Of an ellipse that is a
/// circle by `circle`, the directions are those of the plane.
struct EllipseArc
{
    Ellipse ellipse;
    Point2 from{1.0, 0.0};
    Point2 to{1.0, 0.0};
};

/// An ellipse or why there is none.
struct EllipseResult
{
    Status status = Status::Ok;
    Ellipse ellipse;
};

/// The circle about a centre. Any radius is taken; what asks for crossings refuses one that isn't
/// a finite number above 0.
ORVELEXACT_EXPORT Ellipse circle(Point2 const &centre, double radius);

/// The arc of a circle between two directions of the plane, counter-clockwise; the directions need
/// no unit length. Equal directions make the whole circle.
ORVELEXACT_EXPORT EllipseArc circleArc(Point2 const &centre, double radius, Point2 const &from,
                                       Point2 const &to);

/// The ellipse with given semi-axes whose own x axis has an angle.
///
/// Each component of u and v is within one unit in its last place of a cos, a sin, -b sin and
/// b cos. The functions of the angle are our own and give the same bits everywhere.
/// @param angle of the own x axis, radians, counter-clockwise
/// @param a, b semi-axes along and across the own x axis, model units, above 0
/// @return `NotFinite` for NaN or infinity, `Degenerate` for a semi-axis not above 0, `OutOfRange`
///     for an angle above 2^30
///     or a semi-axis above 2^900
/// @see mathPoly::Ellipse, which takes degrees
ORVELEXACT_EXPORT EllipseResult ellipseAtAngle(Point2 const &centre, double angle, double a,
                                               double b);

/// The point in a direction of an ellipse: `centre + c u + s v`, plain doubles.
inline Point2 pointAt(Ellipse const &e, Point2 const &direction)
{
    return e.centre + direction.x() * e.u + direction.y() * e.v;
}

} // namespace orvelExact
