#pragma once

#include <OrvelMath/lookup/LookupRegion_p.h>

#include <cmath>
#include <type_traits>
#include <utility>

/// Lets every value be the answer.
struct LookupAcceptAll
{
    template <typename Point>
    bool operator()(Point const &) const
    {
        return true;
    }
};

/// The state of one search for the nearest value: what is asked, and the best so far.
///
/// Distances are squared throughout and compared exactly. `accept(point)` tells whether a value may
/// be the answer.
template <int K, typename Payload, typename Accept>
struct LookupSearch
{
    using Point = LookupPoint<K>;

    static constexpr bool acceptsAll = std::is_same_v<Accept, LookupAcceptAll>;

    Point query;
    Accept accept;
    bool queryIsFinite = true;
    double maxSq; ///< squared distance of the best value, or the squared limit while there is none
    bool found = false;
    Point bestPoint = {};
    Payload const *bestPayload = nullptr;

    LookupSearch(Point const &queryPoint, double maxDistance, Accept acceptPoint)
        : query(queryPoint)
        , accept(acceptPoint)
        , maxSq(maxDistance * maxDistance)
    {
        for (double const c : query.coordinates) {
            queryIsFinite = queryIsFinite && std::isfinite(c);
        }
    }

    double squaredDistance(Point const &p) const { return ::squaredDistance<K>(query, p); }

    /// Whether a value beyond the plane at `split` across dimension d can still be the best.
    bool reachesPlane(double split, int d) const { return maxSq >= square(query[d] - split); }

    /// Takes the value as the best one when it is at least as near; true when it is.
    bool examine(Point const &p, Payload const &payload)
    {
        double const d2 = squaredDistance(p);
        bool const isBest = maxSq >= d2 && accept(p);
        if (isBest) {
            take(d2, p, payload);
        }
        return isBest;
    }

    void take(double d2, Point const &p, Payload const &payload)
    {
        maxSq = d2;
        found = true;
        bestPoint = p;
        bestPayload = &payload;
    }

private:
    static double square(double x) { return x * x; }
};
