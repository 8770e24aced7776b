#include <OrvelMath/hull/quick/HullBlock_p.h>

#include <OrvelMath/hull/quick/HullLanes_p.h>

#include <algorithm>

namespace {

using hullLanes::Doubles;
using hullLanes::FourDoubles;
using hullLanes::FourIntegers;
using hullLanes::Integers;
using hullLanes::LanePoints;

/// The work of `claim`, compiled once for each set of instructions.
ORVEL_INLINE bool claimLanes(HullBlock &block, long long claimant, vectorC3d<double> const &corner,
                             vectorC3d<double> const &normal)
{
    Integers open = {};
    for (std::size_t i = 0; i < block.size; i += hullLanes::width) {
        LanePoints offset;
        FourDoubles::load(offset.x, block.x + i);
        FourDoubles::load(offset.y, block.y + i);
        FourDoubles::load(offset.z, block.z + i);
        offset.x -= corner.x();
        offset.y -= corner.y();
        offset.z -= corner.z();
        Doubles above, height;
        Integers slot;
        hullLanes::dot(above, offset, normal);
        FourDoubles::load(height, block.height + i);
        FourIntegers::load(slot, block.slot + i);
        Integers const taken = (above > 1e-8) & (slot == 0); // a length
        slot |= taken & claimant;
        open |= slot == 0;
        FourDoubles::store(block.height + i, taken ? above : height);
        FourIntegers::store(block.slot + i, slot);
    }
    return FourIntegers::any(open != 0);
}

ORVEL_TARGET("avx2")
bool claimWide(HullBlock &block, long long claimant, vectorC3d<double> const &corner,
               vectorC3d<double> const &normal)
{
    return claimLanes(block, claimant, corner, normal);
}

} // namespace

void HullBlock::load(HullPoints const &points, int const *indices, std::size_t count)
{
    Q_ASSERT(count <= capacity);
    size = count;
    for (std::size_t i = 0; i < count; ++i) {
        vectorC3d<double> const &p = pointAt(points, indices[i]);
        x[i] = p.x();
        y[i] = p.y();
        z[i] = p.z();
    }
    std::fill_n(height, count, 0.0);
    std::fill_n(slot, count, 0);
    // The lanes past the end are nobody's: they look as if they had found a face.
    for (std::size_t i = count; i % hullLanes::width != 0; ++i) {
        x[i] = y[i] = z[i] = height[i] = 0.0;
        slot[i] = -1;
    }
}

bool HullBlock::claim(long long claimant, vectorC3d<double> const &corner,
                      vectorC3d<double> const &normal)
{
    if (hullLanes::registersAreWide()) {
        return claimWide(*this, claimant, corner, normal);
    }
    return claimLanes(*this, claimant, corner, normal);
}
