#include <OrvelMath/hull/HullBlock_p.h>

namespace {

using Lanes = HullBlock::Lanes;
using LaneMask = HullBlock::LaneMask;

/// The work of `claim`, compiled once for each set of instructions.
__attribute__((always_inline)) inline bool claimLanes(HullBlock &block, long long slot,
                                                      vectorC3d<double> const &corner,
                                                      vectorC3d<double> const &normal)
{
    LaneMask open = {0, 0, 0, 0};
    for (std::size_t i = 0; i < block.groups; ++i) {
        Lanes const height = 0.0 + (block.x[i] - corner.x()) * normal.x() +
                             (block.y[i] - corner.y()) * normal.y() +
                             (block.z[i] - corner.z()) * normal.z();
        LaneMask const outside = (height > 1e-8) & (block.slot[i] == 0); // a length
        block.slot[i] |= outside & slot;
        block.height[i] = outside ? height : block.height[i];
        open |= block.slot[i] == 0;
    }
    return (open[0] | open[1] | open[2] | open[3]) != 0;
}

#if defined(__x86_64__)
__attribute__((target("avx2"))) bool claimWide(HullBlock &block, long long slot,
                                               vectorC3d<double> const &corner,
                                               vectorC3d<double> const &normal)
{
    return claimLanes(block, slot, corner, normal);
}
#endif

} // namespace

void HullBlock::load(HullPoints const &points, int const *indices, std::size_t count)
{
    size = count;
    groups = (count + laneCount - 1) / laneCount;
    double *const xs = reinterpret_cast<double *>(x);
    double *const ys = reinterpret_cast<double *>(y);
    double *const zs = reinterpret_cast<double *>(z);
    for (std::size_t i = 0; i < count; ++i) {
        vectorC3d<double> const &p = points[static_cast<std::size_t>(indices[i])];
        xs[i] = p.x();
        ys[i] = p.y();
        zs[i] = p.z();
    }
    for (std::size_t i = 0; i < groups; ++i) {
        slot[i] = LaneMask{0, 0, 0, 0};
        height[i] = Lanes{0.0, 0.0, 0.0, 0.0};
    }
    // The lanes past the end are nobody's: they look as if they had found a face.
    for (std::size_t i = count; i < groups * laneCount; ++i) {
        xs[i] = ys[i] = zs[i] = 0.0;
        slot[i / laneCount][i % laneCount] = -1;
    }
}

bool HullBlock::claim(long long claimant, vectorC3d<double> const &corner,
                      vectorC3d<double> const &normal)
{
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx2")) {
        return claimWide(*this, claimant, corner, normal);
    }
#endif
    return claimLanes(*this, claimant, corner, normal);
}
