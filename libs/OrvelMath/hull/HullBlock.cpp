#include <OrvelMath/hull/HullBlock_p.h>

#include <OrvelMath/hull/HullLanes_p.h>

#include <algorithm>

namespace {

/// The work of `claim`, compiled once for each set of instructions.
HULL_LANES_INLINE bool claimLanes(HullBlock &block, long long claimant,
                                  vectorC3d<double> const &corner, vectorC3d<double> const &normal)
{
    LaneMask open = {0, 0, 0, 0};
    for (std::size_t i = 0; i < block.size; i += laneCount) {
        LanePoints offset;
        readLanes(offset.x, block.x + i);
        readLanes(offset.y, block.y + i);
        readLanes(offset.z, block.z + i);
        offset.x -= corner.x();
        offset.y -= corner.y();
        offset.z -= corner.z();
        Lanes above, height;
        LaneMask slot;
        dotLanes(above, offset, normal);
        readLanes(height, block.height + i);
        readLanes(slot, block.slot + i);
        LaneMask const taken = (above > 1e-8) & (slot == 0); // a length
        slot |= taken & claimant;
        open |= slot == 0;
        writeLanes(block.height + i, taken ? above : height);
        writeLanes(block.slot + i, slot);
    }
    return anyLane(open);
}

HULL_WIDE_LANES bool claimWide(HullBlock &block, long long claimant,
                               vectorC3d<double> const &corner, vectorC3d<double> const &normal)
{
    return claimLanes(block, claimant, corner, normal);
}

} // namespace

void HullBlock::load(HullPoints const &points, int const *indices, std::size_t count)
{
    size = count;
    for (std::size_t i = 0; i < count; ++i) {
        vectorC3d<double> const &p = points[static_cast<std::size_t>(indices[i])];
        x[i] = p.x();
        y[i] = p.y();
        z[i] = p.z();
    }
    std::fill_n(height, count, 0.0);
    std::fill_n(slot, count, 0);
    // The lanes past the end are nobody's: they look as if they had found a face.
    for (std::size_t i = count; i % laneCount != 0; ++i) {
        x[i] = y[i] = z[i] = height[i] = 0.0;
        slot[i] = -1;
    }
}

bool HullBlock::claim(long long claimant, vectorC3d<double> const &corner,
                      vectorC3d<double> const &normal)
{
    if (hasWideLanes()) {
        return claimWide(*this, claimant, corner, normal);
    }
    return claimLanes(*this, claimant, corner, normal);
}
