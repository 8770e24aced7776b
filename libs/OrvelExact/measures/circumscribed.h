#pragma once

/// @file
/// The circle and the sphere through given points.
///
/// `condition` says up to how many times its size a small shift of a point can move the centre, by
/// order of magnitude: the product of the lengths of two (three) edges by the area (volume) that
/// they span, or more. The result belongs to the points as they are and is right to the last digit
/// whatever the condition; but points that are themselves rounded lose as many digits as the
/// condition has.
///
/// Of the points as they are, centre and radius are within one unit in their last place plus
/// 2^-95 `condition` times the radius.

#include <OrvelExact/base/Status.h>
#include <OrvelExact/base/points.h>

namespace orvelExact {

/// From here on more than half of the digits of rounded points are lost.
constexpr double illCondition = 0x1p26;

/// The circle through three points of the plane.
struct CircleThrough2
{
    Status status = Status::Ok;
    Point2 centre;
    double radius = 0.0;
    double condition = 0.0;
    bool isIllConditioned = false; ///< condition above `illCondition`
};

/// The circle through three points of space, or the sphere through four.
struct CircleThrough3
{
    Status status = Status::Ok;
    Point3 centre;
    double radius = 0.0;
    double condition = 0.0;
    bool isIllConditioned = false; ///< condition above `illCondition`
    Point3 normal; ///< of the circle's plane, unit length, a, b, c counter-clockwise
};

/// @return `NotFinite` for NaN or infinity, `Degenerate` for points of one line, told exactly,
///     `OutOfRange` for coordinates above 1e270, a condition above 2^90, or a circle that doubles
///     don't hold
/// @see MatUtil::getCircleCenter
ORVELEXACT_EXPORT CircleThrough2 circleThrough(Point2 const &a, Point2 const &b, Point2 const &c);

/// The same in space.
ORVELEXACT_EXPORT CircleThrough3 circleThrough(Point3 const &a, Point3 const &b, Point3 const &c);

/// The sphere through four points; `normal` is left 0.
/// @return as for the circle, `Degenerate` for points of one plane
/// @see MatUtil::getSphereCenter
ORVELEXACT_EXPORT CircleThrough3 sphereThrough(Point3 const &a, Point3 const &b, Point3 const &c,
                                               Point3 const &d);

} // namespace orvelExact
