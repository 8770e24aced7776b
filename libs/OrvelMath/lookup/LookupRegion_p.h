#pragma once

/// @file
/// Points and boxes of the lookups.

#include <utility>

/// A point of K dimensions.
template <int K>
struct LookupPoint
{
    double coordinates[K];

    double operator[](int i) const { return coordinates[i]; }
    double &operator[](int i) { return coordinates[i]; }
};

template <int K, int... I>
double squaredDistance(LookupPoint<K> const &a, LookupPoint<K> const &b,
                       std::integer_sequence<int, I...>)
{
    return (... + ((a[I] - b[I]) * (a[I] - b[I])));
}

/// The squares are added in the order of the coordinates.
template <int K>
double squaredDistance(LookupPoint<K> const &a, LookupPoint<K> const &b)
{
    return squaredDistance(a, b, std::make_integer_sequence<int, K>());
}

/// An axis-parallel box of K dimensions, both ends included.
template <int K>
struct LookupRegion
{
    LookupPoint<K> low;
    LookupPoint<K> high;

    /// The box that a ball of `radius` around `centre` touches from within. A negative radius gives
    /// a box whose `low` exceeds its `high`.
    static LookupRegion around(LookupPoint<K> const &centre, double radius)
    {
        LookupRegion region;
        for (int i = 0; i < K; ++i) {
            region.low[i] = centre[i] - radius;
            region.high[i] = centre[i] + radius;
        }
        return region;
    }

    /// No coordinate of the point outside; a NaN counts as inside.
    bool encloses(LookupPoint<K> const &p) const
    {
        bool outside = false; // no branch a coordinate: which one decides can't be foreseen
        for (int i = 0; i < K; ++i) {
            outside |= low[i] > p[i];
            outside |= p[i] > high[i];
        }
        return !outside;
    }

    bool intersects(LookupRegion const &other) const
    {
        for (int i = 0; i < K; ++i) {
            if (low[i] > other.high[i] || other.low[i] > high[i]) {
                return false;
            }
        }
        return true;
    }

    bool contains(LookupRegion const &other) const
    {
        for (int i = 0; i < K; ++i) {
            if (!(low[i] <= other.low[i] && other.high[i] <= high[i])) {
                return false;
            }
        }
        return true;
    }

    /// Whether points beyond a plane at `split` across dimension d, on the side below or from it
    /// upwards, can lie in the box.
    bool reachesBelow(double split, int d) const { return !(low[d] > split); }
    bool reachesAbove(double split, int d) const { return !(split > high[d]); }
};
