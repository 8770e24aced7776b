#pragma once

#include <array>
#include <cmath>
#include <utility>

/// The state of one search for the nearest value: what is asked, and the best so far.
///
/// Distances are squared throughout. A value at the same distance as the best one replaces it, so
/// the order in which the tree examines its values decides a tie.
template <int K, typename Value, typename Access, typename Accept>
struct LookupSearch
{
    std::array<double, K> query;
    Accept accept;
    double maxSq; ///< squared distance of the best value, or the squared limit while there is none
    Value const *best = nullptr;

    LookupSearch(std::array<double, K> const &queryPoint, double maxDistance, Accept acceptValue)
        : query(queryPoint)
        , accept(acceptValue)
        , maxSq(maxDistance * maxDistance)
    {
    }

    double squaredDistance(Value const &value) const
    {
        return squaredDistance(value, std::make_integer_sequence<int, K>());
    }

    void examine(Value const &value)
    {
        double const d2 = squaredDistance(value);
        if (maxSq >= d2 && accept(value)) {
            maxSq = d2;
            best = &value;
        }
    }

    /// Whether a value beyond the plane at `split` across dimension d can still be the nearest.
    bool reachesPlane(double split, int d) const { return maxSq >= square(query[d] - split); }

    bool queryIsFinite() const
    {
        for (double const c : query) {
            if (!std::isfinite(c)) {
                return false;
            }
        }
        return true;
    }

private:
    static double square(double x) { return x * x; }

    // A left fold: the squares are added in the order of the coordinates.
    template <int... I>
    double squaredDistance(Value const &value, std::integer_sequence<int, I...>) const
    {
        return (... + square(query[I] - Access::coordinate(value, I)));
    }
};
