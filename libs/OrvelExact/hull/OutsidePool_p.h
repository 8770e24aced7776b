#pragma once

/// @file
/// Memory for the points outside of facets.

#include <OrvelExact/base/points.h>

#include <memory>
#include <vector>

namespace orvelExact {

/// A point that waits outside a facet: rounded coordinates and index.
struct OutsidePoint
{
    Point3 position;
    int index;
};

/// Gives out arrays of outside points and takes them back.
///
/// Short arrays come from slabs, one free list for each length in steps of four; long ones from the
/// heap. Every array must be given back before the pool goes, the slabs go with it.
class OutsidePool
{
public:
    OutsidePool() = default;
    OutsidePool(OutsidePool const &) = delete;
    OutsidePool &operator=(OutsidePool const &) = delete;

    OutsidePoint *take(int count);
    void give(OutsidePoint *points, int count);

private:
    static constexpr int step = 4;
    static constexpr int classCount = 16;
    static constexpr int pointsPerSlab = 8192;

    static int classOf(int count) { return (count + step - 1) / step - 1; }

    std::vector<std::unique_ptr<OutsidePoint[]>> m_slabs;
    std::vector<OutsidePoint *> m_free[classCount];
    int m_usedOfSlab = pointsPerSlab;
};

} // namespace orvelExact
