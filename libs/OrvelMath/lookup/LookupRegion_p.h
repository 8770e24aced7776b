#pragma once

/// @file
/// Points and boxes of the lookups.

#include <cmath>
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

/// Whether all coordinates are the same numbers; 0 and -0 are.
template <int K>
bool areEqual(LookupPoint<K> const &a, LookupPoint<K> const &b)
{
    for (int i = 0; i < K; ++i) {
        if (!(a[i] == b[i])) {
            return false;
        }
    }
    return true;
}

template <int K>
bool isFinite(LookupPoint<K> const &p)
{
    for (double const c : p.coordinates) {
        if (!std::isfinite(c)) {
            return false;
        }
    }
    return true;
}

/// An axis-parallel box of K dimensions, both ends included.
template <int K>
struct LookupRegion
{
    LookupPoint<K> low;
    LookupPoint<K> high;

    /// The box that a ball of `radius` around `centre` touches from within. A negative radius gives
    /// a box whose `low` exceeds its `high`, unless rounding takes the radius away.
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
        for (int i = 0; i < K; ++i) {
            if (low[i] > p[i] || p[i] > high[i]) {
                return false;
            }
        }
        return true;
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
};
