#pragma once

/// @file
/// What the sweep over segments asks of points, exactly.

#include <OrvelExact/base/points.h>
#include <OrvelExact/predicates/Sign.h>

namespace orvelExact {

/// A segment from its smaller end by x and then y to its larger one.
struct SweepSegment
{
    Point2 left;
    Point2 right;
};

/// A place of the sweep: an end, or the proper crossing of two segments.
struct SweepPoint
{
    Point2 rounded;                      ///< exact for an end, else as roundedCrossing gives it
    SweepSegment const *first = nullptr; ///< no segments for an end
    SweepSegment const *second = nullptr;

    bool isCrossing() const { return first != nullptr; }
};

/// -1, 0 or 1 as a comes before, with or after b by x and then y.
int compareExactly(SweepPoint const &a, SweepPoint const &b);

/// `Positive` if the point lies above the segment's line, that is left of it from left to right.
Sign sideOfPoint(SweepSegment const &segment, SweepPoint const &point);

/// `Positive` if the direction of b is to the left of that of a.
Sign turnOfDirections(SweepSegment const &a, SweepSegment const &b);

} // namespace orvelExact
