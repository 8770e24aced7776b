#pragma once

#include <OrvelMath/base/vectorC.h>

/// A point as seen from the start point of a scan.
struct PolarRecord
{
    vectorC2d<double> position;
    double angle;    ///< direction from the start, radians
    double distance; ///< from the start
    int index;       ///< position in the input

    /// By angle, then by distance; exact.
    bool operator<(PolarRecord const &o) const
    {
        return angle < o.angle || (angle == o.angle && distance < o.distance);
    }
};
