#pragma once

/// @file
/// The smallest circle and the smallest sphere around points.

#include <OrvelExact/base/Status.h>
#include <OrvelExact/base/points.h>

namespace orvelExact {

/// The smallest circle around points of the plane.
struct EnclosingCircle
{
    Status status = Status::Ok;
    Point2 centre;
    double radius = 0.0;
    QVector<int> support; ///< one to three points of its boundary that determine it, ascending
};

/// The smallest sphere around points of space.
struct EnclosingSphere
{
    Status status = Status::Ok;
    Point3 centre;
    double radius = 0.0;
    QVector<int> support; ///< one to four points of its boundary that determine it, ascending
};

/// The smallest circle around all points; it exists and is the only one.
///
/// The radius is within one unit in its last place plus 2^-70 of the size of the input (the
/// largest difference of a coordinate from the first point's), the centre within half a unit of
/// each coordinate plus 2^-35 of that size. About the rounded centre, points may lie outside by as
/// much as the centre is rounded. Of equal points the one with the lowest index is reported.
///
/// The circle grows by the farthest point in turn until none is outside (Welzl 1991 with the
/// choice of Gärtner 1999), so the result doesn't hang on chance. Cost in practice: fewer than
/// twenty passes over the points; no allocation but for `support`.
/// @return `Empty` without points, `NotFinite` for NaN or infinity, `OutOfRange` for a coordinate
///     above 1e270
ORVELEXACT_EXPORT EnclosingCircle smallestCircle(QVector<Point2> const &points);

/// The same in space.
ORVELEXACT_EXPORT EnclosingSphere smallestSphere(QVector<Point3> const &points);

} // namespace orvelExact
