#pragma once

/// @file
/// A block of points that look for their faces together.

#include <OrvelMath/hull/HullFace_p.h>

/// A few points, component by component, with the face that each has found.
///
/// Small enough for the nearest cache: points come from all over the memory once, then all faces
/// look at them. Several points are looked at in one step; each for itself, so the results don't
/// depend on how many.
struct HullBlock
{
    static constexpr std::size_t capacity = 256;

    /// Reads `count` points, at most `capacity`. None of them has a slot yet.
    void load(HullPoints const &points, int const *indices, std::size_t count);

    /// Gives the slot `claimant` to the points without one that lie more than 1e-8 above the plane.
    /// False if all points have a slot now.
    bool claim(long long claimant, vectorC3d<double> const &corner,
               vectorC3d<double> const &normal);

    double x[capacity];
    double y[capacity];
    double z[capacity];
    double height[capacity];  ///< above the plane of the slot
    long long slot[capacity]; ///< 0 while the point has none
    std::size_t size;
};
