#pragma once

/// @file
/// Squared distances from a place to all slots of a run, two at a time, and to its box.
///
/// Every lane holds a result of its own with the squares added in the order of the coordinates, so
/// the bits are those of `squaredDistance`. Rounding is monotone: the distance to the nearest place
/// of the box is at most that of any value in it, also as computed, and the distance to the
/// farthest place at least that of any value without a NaN.

#include <OrvelMath/engine/Pair_p.h>
#include <OrvelMath/lookup/LookupRun_p.h>

#include <algorithm>
#include <cstdint>
#include <limits>

/// Squared distance to the nearest place of the box.
template <int K>
double nearestOfBox(LookupRegion<K> const &box, LookupPoint<K> const &place)
{
    double sum = 0.0;
    for (int i = 0; i < K; ++i) {
        double const below = box.low[i] - place[i];
        double const above = place[i] - box.high[i];
        double const outside = std::max(std::max(below, above), 0.0);
        sum += outside * outside;
    }
    return sum;
}

/// Squared distance to the farthest place of the box.
template <int K>
double farthestOfBox(LookupRegion<K> const &box, LookupPoint<K> const &place)
{
    double sum = 0.0;
    for (int i = 0; i < K; ++i) {
        double const toLow = place[i] - box.low[i];
        double const toHigh = box.high[i] - place[i];
        double const farther = std::max(toLow, toHigh);
        sum += farther * farther;
    }
    return sum;
}

/// Squared distances of two slots that follow one another.
template <int K, typename Payload>
ORVEL_INLINE engine::Pair squaredDistances(LookupRun<K, Payload> const &run, int slot,
                                           LookupPoint<K> const &place)
{
    engine::Pair sum = engine::pairOf(0.0);
    for (int i = 0; i < K; ++i) {
        engine::Pair const difference =
            engine::pairOf(place[i]) - engine::loadPair(run.row(i) + slot);
        sum += difference * difference;
    }
    return sum;
}

/// As squaredDistances, NaN in place of the second one when `end` comes before it.
template <int K, typename Payload>
ORVEL_INLINE engine::Pair squaredDistancesUpTo(LookupRun<K, Payload> const &run, int slot, int end,
                                               LookupPoint<K> const &place)
{
    engine::Pair distances = squaredDistances(run, slot, place);
    distances[1] = slot + 1 < end ? distances[1] : std::numeric_limits<double>::quiet_NaN();
    return distances;
}

/// Bit i is set where slot i holds a value whose squared distance is below `limit`.
template <int K, typename Payload>
std::uint64_t slotsWithin(LookupRun<K, Payload> const &run, LookupPoint<K> const &place,
                          double limit)
{
    std::uint64_t bits = 0;
    for (int slot = 0; slot < run.count(); slot += 4) {
        engine::Pair const first = squaredDistances(run, slot, place);
        engine::Pair const second = squaredDistances(run, slot + 2, place);
        int const firstBits = engine::answerBits(engine::pairOf(limit) > first);
        int const secondBits = engine::answerBits(engine::pairOf(limit) > second);
        bits |= static_cast<std::uint64_t>(firstBits | secondBits << 2) << slot;
    }
    return bits;
}
