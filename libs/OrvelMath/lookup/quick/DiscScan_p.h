#pragma once

/// @file
/// The values in a disc or ball, run by run.

#include <OrvelMath/lookup/quick/RunDistances_p.h>

#include <cstdint>

/// Calls `visit(point, payload, squared distance)` with every value of a subtree, in pre-order.
template <int K, typename Payload, typename Visit>
void visitAll(LookupRun<K, Payload> const &run, LookupPoint<K> const &centre, Visit &visit)
{
    for (int slot = 0; slot < run.count(); ++slot) {
        if (run.isExit(slot)) {
            visitAll(*run.exit(slot), centre, visit);
        } else {
            LookupPoint<K> const p = run.point(slot);
            visit(p, run.payload(slot), squaredDistance(centre, p));
        }
    }
}

/// Calls `visit(point, payload, squared distance)` with every value of a subtree whose squared
/// distance is below `radiusSq`, in pre-order.
///
/// These are the calls of collectInDiscAsDefined for a radius of 0 and above. The box of the disc,
/// which the definition asks first, keeps none of them out: when p > c + r as computed, then p is
/// above c + r itself, so p - c is above r, is not below r as computed, nor its square below r * r,
/// nor the sum of squares. The slots of a run are in pre-order. A subtree whose box is too far away
/// holds no such value; one whose box is near enough as a whole holds no other, if it has no NaN.
template <int K, typename Payload, typename Visit>
void scanDisc(LookupRun<K, Payload> const &run, LookupPoint<K> const &centre, double radiusSq,
              Visit &visit)
{
    if (!(radiusSq > nearestOfBox(run.box(), centre))) {
        return;
    }
    if (!run.hasNan() && radiusSq > farthestOfBox(run.box(), centre)) {
        visitAll(run, centre, visit);
        return;
    }
    std::uint64_t near = slotsWithin(run, centre, radiusSq) | run.exitSlots();
    for (; near != 0; near &= near - 1) {
        int const slot = __builtin_ctzll(near);
        if (run.isExit(slot)) {
            scanDisc(*run.exit(slot), centre, radiusSq, visit);
        } else {
            LookupPoint<K> const p = run.point(slot);
            visit(p, run.payload(slot), squaredDistance(centre, p));
        }
    }
}
