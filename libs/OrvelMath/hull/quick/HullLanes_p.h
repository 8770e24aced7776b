#pragma once

/// @file
/// Four points of a hull in one step.

#include <OrvelMath/base/vectorC.h>
#include <OrvelMath/engine/Lanes_p.h>
#include <OrvelMath/engine/vectorWidth_p.h>

#include <cstddef>

namespace hullLanes {

using FourDoubles = engine::Lanes<double, 4>;
using FourIntegers = engine::Lanes<long long, 4>;
using Doubles = FourDoubles::Vector;
using Integers = FourIntegers::Vector;

constexpr std::size_t width = 4;

/// True if a register holds four doubles, so that functions compiled for AVX2 may be called.
inline bool registersAreWide()
{
    return engine::vectorWidth() >= 4;
}

/// Four points, component by component.
struct LanePoints
{
    Doubles x, y, z;
};

/// Reads four points that follow one another.
ORVEL_INLINE void loadPoints(LanePoints &lanes, vectorC3d<double> const *from)
{
    lanes.x = Doubles{from[0].x(), from[1].x(), from[2].x(), from[3].x()};
    lanes.y = Doubles{from[0].y(), from[1].y(), from[2].y(), from[3].y()};
    lanes.z = Doubles{from[0].z(), from[1].z(), from[2].z(), from[3].z()};
}

/// Scalar product of lanes with a vector, summed as that of vectors.
ORVEL_INLINE void dot(Doubles &product, LanePoints const &v, vectorC3d<double> const &w)
{
    product = 0.0 + v.x * w.x() + v.y * w.y() + v.z * w.z();
}

} // namespace hullLanes
