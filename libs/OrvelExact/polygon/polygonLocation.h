#pragma once

/// @file
/// Where a point lies as to a polygon, exactly, and how far it is from the border.

#include <OrvelExact/OrvelExactExport.h>
#include <OrvelExact/base/Status.h>
#include <OrvelExact/base/points.h>

#include <QtCore/QVector>

namespace orvelExact {

/// What is inside where a polygon crosses itself.
enum class FillRule {
    EvenOdd, ///< what a ray leaves over an odd number of edges
    Winding  ///< what the polygon winds around, in sum not 0 times
};

enum class PolygonPlace {
    Outside,
    Inside,
    Vertex, ///< equal to a corner
    Edge,   ///< on an edge, between its ends
    NotFinite
};

struct PolygonLocation
{
    PolygonPlace place = PolygonPlace::Outside;
    int index = -1; ///< of the first such corner, or of the first such edge; else -1
    int winding =
        0; ///< times that the polygon runs counter-clockwise around an inner or outer point
};

struct NearestOnPolygon
{
    Status status = Status::Ok; ///< `Ok`, `Empty` without corners, `NotFinite`
    double distance = 0.0;      ///< from the border, inside as outside
    Point2 point;               ///< of the border
    int edge = -1;              ///< the first edge of that distance
};

/// Where a point lies, exactly. Corners come before edges. The empty polygon has the whole plane
/// outside. Edge i leads from corner i to the next, the last one to the first corner. `NotFinite`
/// for NaN or infinity in the point or the polygon. Cost: linear.
///
/// @see concav2d::pointInsidePolygone and Math2DInsidePolygon, which have tolerances.
ORVELEXACT_EXPORT PolygonLocation locateInPolygon(QVector<Point2> const &polygon,
                                                  Point2 const &point,
                                                  FillRule rule = FillRule::EvenOdd);

/// The nearest point of the border. The error of its coordinates and of the distance is below
/// 2^-48 times the largest distance between two of the point and the corners plus a unit in the
/// last place of the largest coordinate. Coordinates of the order of 1e154 or more may overflow to
/// an infinite distance. Cost: linear.
ORVELEXACT_EXPORT NearestOnPolygon nearestOnPolygon(QVector<Point2> const &polygon,
                                                    Point2 const &point);

} // namespace orvelExact
