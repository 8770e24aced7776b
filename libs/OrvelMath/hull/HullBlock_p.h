#pragma once

#include <OrvelMath/hull/HullFace_p.h>

/// A few points, component by component, with the face that each has found.
///
/// Small enough for the nearest cache: points come from all over the memory once, then all faces
/// look at them. Lanes hold independent points, so the results don't depend on their number.
struct HullBlock
{
    using Lanes = double __attribute__((vector_size(32)));
    using LaneMask = long long __attribute__((vector_size(32)));
    static constexpr std::size_t laneCount = 4;
    static constexpr std::size_t capacity = 256;
    static constexpr std::size_t groupCapacity = capacity / laneCount;

    /// Reads `count` points, at most `capacity`, none of which has a slot yet.
    void load(HullPoints const &points, int const *indices, std::size_t count);

    /// Gives the points without slot that lie more than 1e-8 above the plane this slot. False if
    /// all points have one now.
    bool claim(long long slot, vectorC3d<double> const &corner, vectorC3d<double> const &normal);

    Lanes x[groupCapacity];
    Lanes y[groupCapacity];
    Lanes z[groupCapacity];
    LaneMask slot[groupCapacity]; ///< 0 while the point has none
    Lanes height[groupCapacity];  ///< above the plane of the slot
    std::size_t size;
    std::size_t groups;

    double heightAt(std::size_t i) const { return height[i / laneCount][i % laneCount]; }
    std::size_t slotAt(std::size_t i) const
    {
        return static_cast<std::size_t>(slot[i / laneCount][i % laneCount]);
    }
};
