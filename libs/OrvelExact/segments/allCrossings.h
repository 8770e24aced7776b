#pragma once

/// @file
/// All crossings among many segments of the plane.

#include <OrvelExact/OrvelExactExport.h>
#include <OrvelExact/base/Status.h>
#include <OrvelExact/base/points.h>
#include <OrvelExact/segments/segmentCrossing.h>

#include <QtCore/QVector>

namespace orvelExact {

/// A segment of the plane; it may be a point.
struct Segment2
{
    Point2 from;
    Point2 to;
};

/// Two segments that meet, by their places in the list.
struct CrossingPair
{
    int first; ///< the lower one
    int second;
    SegmentCrossing crossing; ///< as crossSegments gives it for the two in this order
};

struct SegmentCrossings
{
    Status status = Status::Ok; ///< `Ok` or `NotFinite`; the latter has no pairs
    QVector<CrossingPair> pairs;
};

/// Every pair of segments with a common point, exactly, and no other; sorted by `first`, then by
/// `second`. Serves all finite coordinates, and any number of segments through a point, vertical,
/// equal and overlapping ones and points included.
///
/// A sweep from left to right (Bentley and Ottmann, 1979), its points of crossing compared exactly.
/// Cost: (n + k) log n for n segments and k pairs; where segments overlap, k counts a pair once for
/// each end and crossing on their common part.
ORVELEXACT_EXPORT SegmentCrossings allCrossings(QVector<Segment2> const &segments);

} // namespace orvelExact
