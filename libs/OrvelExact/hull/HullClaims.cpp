#include <OrvelExact/hull/HullClaims_p.h>

#include <algorithm>
#include <limits>

#if defined(__x86_64__)
/// Compiles one function for processors with AVX2. To be called where they are.
#define ORVEL_EXACT_WIDE __attribute__((target("avx2")))
#else
#define ORVEL_EXACT_WIDE
#endif
/// Becomes part of its caller and is compiled for the caller's processor.
#define ORVEL_EXACT_INLINE inline __attribute__((always_inline))

namespace orvelExact {

namespace {

constexpr int laneCount = 4;
using Lanes = double __attribute__((vector_size(32)));
using UnalignedLanes = double __attribute__((vector_size(32), aligned(8), may_alias));
using Answers = long long __attribute__((vector_size(32)));
static_assert(sizeof(OutsidePoint) == sizeof(Lanes), "a point is loaded as four lanes");

bool hasWideLanes()
{
#if defined(__x86_64__)
    return __builtin_cpu_supports("avx2");
#else
    return false;
#endif
}

/// Four points and what was found for them.
struct Group
{
    Lanes x, y, z;
    Lanes height;
    Lanes claimant; ///< as a double, which a lane of doubles chooses without conversion
};

ORVEL_EXACT_INLINE void load(Group &group, OutsidePoint const *points)
{
    double const *const from = points->position.data();
    Lanes const a = *reinterpret_cast<UnalignedLanes const *>(from);
    Lanes const b = *reinterpret_cast<UnalignedLanes const *>(from + 4);
    Lanes const c = *reinterpret_cast<UnalignedLanes const *>(from + 8);
    Lanes const d = *reinterpret_cast<UnalignedLanes const *>(from + 12);
    Lanes const abX = __builtin_shufflevector(a, b, 0, 4, 2, 6);
    Lanes const abY = __builtin_shufflevector(a, b, 1, 5, 3, 7);
    Lanes const cdX = __builtin_shufflevector(c, d, 0, 4, 2, 6);
    Lanes const cdY = __builtin_shufflevector(c, d, 1, 5, 3, 7);
    group.x = __builtin_shufflevector(abX, cdX, 0, 1, 4, 5);
    group.y = __builtin_shufflevector(abY, cdY, 0, 1, 4, 5);
    group.z = __builtin_shufflevector(abX, cdX, 2, 3, 6, 7);
    group.height = Lanes{} - std::numeric_limits<double>::infinity();
    group.claimant = Lanes{} + double(noClaim);
}

ORVEL_EXACT_INLINE void offer(Group &group, HullPlane const &plane, double place)
{
    Lanes const height = plane.normal.x() * group.x + plane.normal.y() * group.y +
                         plane.normal.z() * group.z - plane.offset - plane.maxError;
    Answers const isHigher = height > group.height;
    group.claimant = isHigher ? Lanes{} + place : group.claimant;
    group.height = isHigher ? height : group.height;
}

/// A point is open if it may lie above some plane: the height less the error is below 0, but by
/// less than twice the largest error.
ORVEL_EXACT_INLINE void store(Group const &group, double maxError, int *claimants, double *heights)
{
    for (int i = 0; i < laneCount; ++i) {
        bool const isOpen = !(group.height[i] < -2.0 * maxError);
        claimants[i] = group.height[i] > 0.0 ? static_cast<int>(group.claimant[i])
                       : isOpen              ? openClaim
                                             : noClaim;
        heights[i] = group.height[i];
    }
}

ORVEL_EXACT_INLINE void claimGroups(HullPlane const *planes, int planeCount, double maxError,
                                    OutsidePoint const *points, int count, int *claimants,
                                    double *heights)
{
    for (int first = 0; first < count; first += 2 * laneCount) {
        Group low;
        Group high;
        load(low, points + first);
        load(high, points + first + laneCount);
        for (int i = 0; i < planeCount; ++i) {
            offer(low, planes[i], i);
            offer(high, planes[i], i);
        }
        store(low, maxError, claimants + first, heights + first);
        store(high, maxError, claimants + first + laneCount, heights + first + laneCount);
    }
}

ORVEL_EXACT_WIDE void claimGroupsWide(HullPlane const *planes, int planeCount, double maxError,
                                      OutsidePoint const *points, int count, int *claimants,
                                      double *heights)
{
    claimGroups(planes, planeCount, maxError, points, count, claimants, heights);
}

/// One point, for what is left and for sets too small for lanes.
int claimOne(HullPlane const *planes, int planeCount, double maxError, Point3 const &position,
             double &highest)
{
    int claimant = noClaim;
    highest = -std::numeric_limits<double>::infinity();
    for (int i = 0; i < planeCount; ++i) {
        double const height = planes[i].height(position) - planes[i].maxError;
        if (height > highest) {
            highest = height;
            claimant = i;
        }
    }
    return highest > 0.0 ? claimant : !(highest < -2.0 * maxError) ? openClaim : noClaim;
}

} // namespace

void claimPoints(HullPlane const *planes, int planeCount, OutsidePoint const *points, int count,
                 int *claimants, double *heights)
{
    double maxError = 0.0;
    for (int i = 0; i < planeCount; ++i) {
        maxError = std::max(maxError, planes[i].maxError);
    }
    int const grouped = count / (2 * laneCount) * (2 * laneCount);
    if (grouped > 0) {
        (hasWideLanes() ? claimGroupsWide : claimGroups)(planes, planeCount, maxError, points,
                                                         grouped, claimants, heights);
    }
    for (int i = grouped; i < count; ++i) {
        claimants[i] = claimOne(planes, planeCount, maxError, points[i].position, heights[i]);
    }
}

} // namespace orvelExact
