#pragma once

#include <OrvelExact/OrvelExactExport.h>
#include <OrvelExact/base/Status.h>
#include <OrvelExact/base/points.h>

#include <QtCore/QVector>

/// @file
/// The convex hull of points of the plane.

namespace orvelExact {

/// The convex hull of points of the plane, by the indices of its corners.
struct ConvexPolygon
{
    Status status = Status::Empty; ///< `Ok`, `NotFinite` or `Empty`
    int dimension = -1;            ///< of the points: 2, 1 on a line, 0 at one location, else -1
    QVector<int> corners;          ///< counter-clockwise from the smallest by x, then by y
};

/// The corners of the convex hull: every extreme point and no other, exactly.
///
/// The polygon begins at the point that is smallest by x and then by y, runs counter-clockwise (y
/// up) and doesn't repeat its start. Points on an edge are no corners. On a line there are two
/// corners, the smallest and the largest, at one location there is one. Of points with equal
/// coordinates the one with the lowest index is reported; 0 and -0 are equal.
///
/// Cost: that of sorting the points that don't lie deep inside (Andrew's scan, 1979, after a filter
/// by a quadrangle of extreme points, Akl and Toussaint, 1978).
///
/// @see ConvexHullBuilderC::computeConvexHullIndices2D, ConvexHullBuilderC::computeConvexHull2D,
/// which have a tolerance of 1e-8.
ORVELEXACT_EXPORT ConvexPolygon convexHull2d(QVector<Point2> const &points);

} // namespace orvelExact
