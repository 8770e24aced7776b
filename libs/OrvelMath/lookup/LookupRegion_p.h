#pragma once

#include <array>

/// An axis-parallel box of K dimensions, both ends included.
template <int K>
struct LookupRegion
{
    std::array<double, K> low;
    std::array<double, K> high;

    /// The box that a ball of `radius` around `centre` touches from within. A negative radius gives
    /// a box whose `low` exceeds its `high`.
    static LookupRegion around(std::array<double, K> const &centre, double radius)
    {
        LookupRegion region;
        for (int i = 0; i < K; ++i) {
            region.low[i] = centre[i] - radius;
            region.high[i] = centre[i] + radius;
        }
        return region;
    }

    /// No value outside in any coordinate; a NaN counts as inside.
    template <typename Access, typename Value>
    bool encloses(Value const &value) const
    {
        for (int i = 0; i < K; ++i) {
            double const c = Access::coordinate(value, i);
            if (low[i] > c || c > high[i]) {
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

    bool contains(LookupRegion const &other) const
    {
        for (int i = 0; i < K; ++i) {
            if (!(low[i] <= other.low[i] && other.high[i] <= high[i])) {
                return false;
            }
        }
        return true;
    }

    /// Whether values beyond a plane at `split` across dimension d, on the side below or from it
    /// upwards, can lie in the box.
    bool reachesBelow(double split, int d) const { return !(low[d] > split); }
    bool reachesAbove(double split, int d) const { return !(split > high[d]); }
};
