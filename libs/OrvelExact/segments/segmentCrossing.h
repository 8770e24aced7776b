#pragma once

/// @file
/// Whether two segments of the plane meet, exactly, and where.

#include <OrvelExact/OrvelExactExport.h>
#include <OrvelExact/base/points.h>

namespace orvelExact {

/// What two segments have in common.
enum class CrossingKind {
    None,
    Proper,   ///< one point, inside of both
    AtEnd,    ///< one point, an end of at least one
    Overlap,  ///< a segment of the line that both lie on
    NotFinite ///< an end is NaN or infinite
};

struct SegmentCrossing
{
    CrossingKind kind = CrossingKind::None;
    Point2 point; ///< in common; of an overlap the smaller end by x and then y
    Point2 last;  ///< of an overlap the larger end, else as `point`
};

/// What the segments a0 a1 and b0 b1 have in common, exactly, for all finite ends. A segment may be
/// a point: on the other segment it is `AtEnd`.
///
/// @see Math2DIntersect2Lines and concav2d::intersectEdgeEdge, which have tolerances.
ORVELEXACT_EXPORT CrossingKind classifyCrossing(Point2 const &a0, Point2 const &a1,
                                                Point2 const &b0, Point2 const &b1);

/// The same with the place. Ends and the ends of an overlap are exact. Each component of a proper
/// crossing is off by at most half a unit in the last place and 2^-20 of it: it is the nearest
/// double but where two are nearly equally near. A denormal component is within one unit.
///
/// @see Math2DIntersect2Lines and concav2d::intersectEdgeEdge, which have tolerances;
/// concav2d::intersectLineLine for infinite lines.
ORVELEXACT_EXPORT SegmentCrossing crossSegments(Point2 const &a0, Point2 const &a1,
                                                Point2 const &b0, Point2 const &b1);

} // namespace orvelExact
