#pragma once

#include <OrvelMath/engine/Lanes_p.h>
#include <OrvelMath/engine/vectorWidth_p.h>
#include <OrvelMath/hull/HullFace_p.h>

#include <cstring>

using Lanes = engine::Lanes<double, 4>::Vector;
using LaneMask = long long __attribute__((vector_size(32)));
constexpr std::size_t laneCount = 4;

#define HULL_LANES_INLINE ORVEL_INLINE

/// Before a function: compiled for AVX2. To be called where `hasWideLanes()` only.
#define HULL_WIDE_LANES ORVEL_TARGET("avx2")

inline bool hasWideLanes()
{
    return engine::vectorWidth() >= 4;
}

template <typename Vector, typename T>
HULL_LANES_INLINE void readLanes(Vector &lanes, T const *from)
{
    std::memcpy(&lanes, from, sizeof lanes);
}

template <typename Vector, typename T>
HULL_LANES_INLINE void writeLanes(T *to, Vector const &lanes)
{
    std::memcpy(to, &lanes, sizeof lanes);
}

HULL_LANES_INLINE bool anyLane(LaneMask const &mask)
{
    return (mask[0] | mask[1] | mask[2] | mask[3]) != 0;
}

/// Four points, component by component.
struct LanePoints
{
    Lanes x, y, z;
};

/// Reads four points that follow one another.
HULL_LANES_INLINE void readPoints(LanePoints &lanes, vectorC3d<double> const *from)
{
    lanes.x = Lanes{from[0].x(), from[1].x(), from[2].x(), from[3].x()};
    lanes.y = Lanes{from[0].y(), from[1].y(), from[2].y(), from[3].y()};
    lanes.z = Lanes{from[0].z(), from[1].z(), from[2].z(), from[3].z()};
}

/// Scalar product of lanes with a vector, summed as that of vectors.
HULL_LANES_INLINE void dotLanes(Lanes &product, LanePoints const &v, vectorC3d<double> const &w)
{
    product = 0.0 + v.x * w.x() + v.y * w.y() + v.z * w.z();
}
