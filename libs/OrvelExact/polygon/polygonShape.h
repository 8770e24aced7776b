#pragma once

/// @file
/// Whether a polygon is convex, and whether it meets itself, exactly.

#include <OrvelExact/OrvelExactExport.h>
#include <OrvelExact/base/Status.h>
#include <OrvelExact/base/points.h>
#include <OrvelExact/predicates/Sign.h>

#include <QtCore/QVector>

namespace orvelExact {

struct PolygonConvexity
{
    Status status = Status::Ok; ///< `Ok` or `NotFinite`
    bool isConvex = false;
    Sign sense = Sign::Zero; ///< of a convex polygon: `Positive` counter-clockwise (y up)
};

struct PolygonSimplicity
{
    Status status = Status::Ok; ///< `Ok` or `NotFinite`
    bool isSimple = false;
    int firstEdge = -1;  ///< of two edges that meet where they should not; the lower one
    int secondEdge = -1; ///< -1 for a simple polygon and for one of fewer than three corners
};

/// True for the border of a convex region, run through once in either sense. Corners may lie on
/// straight parts and may be repeated at once. False for fewer than three corners, for points of
/// one line, and for borders that cross or go back.
ORVELEXACT_EXPORT PolygonConvexity polygonConvexity(QVector<Point2> const &polygon);

/// True if no two edges have a common point, save each edge and the next one the corner between
/// them. Edge i leads from corner i to the next. An edge without length meets the next one. False
/// for fewer than three corners, without a pair.
///
/// The pair is the first that the search comes upon: consecutive edges, then equal corners, then a
/// sweep from left to right (Shamos and Hoey, 1976). Cost: n log n.
ORVELEXACT_EXPORT PolygonSimplicity polygonSimplicity(QVector<Point2> const &polygon);

} // namespace orvelExact
