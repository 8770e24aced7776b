#pragma once

/// @file
/// The k nearest values in one search.

#include <OrvelMath/lookup/quick/LookupWalk_p.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

/// Finds what nearestByGrowingDisc finds, for a finite query, a limit of 0 and above and a first
/// radius above 0.
///
/// Let D be the k-th least squared distance below the square of the limit. A disc of radius r holds
/// k values when r * r is above D, and not before; so the disc at which the growth ends is known
/// without growing. Its first k values by distance are among those of at most D, but for one thing:
/// two squares next to each other may have the same root, and a value a little farther than D may
/// then be equally far, and come first in the tree. So everything within a few units of rounding
/// above D is kept, and what is beyond the disc drops out at the end. When less than k values are
/// below the limit, the growth ends with the limit, and all of them are the answer.
template <int K, typename Payload>
class NeighbourWalk
{
public:
    using Run = LookupRun<K, Payload>;
    using Nearest = LookupNearest<K, Payload>;

    NeighbourWalk(Run const &root, LookupPoint<K> const &query, int k, double maxDistance)
        : m_query(query)
        , m_k(static_cast<std::size_t>(k))
        , m_limitSq(maxDistance * maxDistance)
        , m_maxSq(m_limitSq)
    {
        Q_ASSERT(k > 0 && maxDistance >= 0.0);
        m_values.reserve(m_k + 8);
        LookupWalk<K, Payload, NeighbourWalk>(query, *this).through(root);
    }

    /// Distance of the nearest value that is not equal to the query, when it is known: one of the k
    /// nearest that is not equal is the nearest of all these. Otherwise 0.
    double nearestOther() const
    {
        for (Value const &value : m_values) {
            if (!areEqual(value.run->point(value.slot), m_query)) {
                return std::sqrt(value.squaredDistance);
            }
        }
        return 0.0;
    }

    /// The answer when the growth begins with the radius `first`.
    std::vector<Nearest> nearest(double first, double maxDistance)
    {
        double radius = first;
        if (m_values.size() >= m_k) {
            double const kth = m_values[m_k - 1].squaredDistance;
            while (!(radius * radius > kth) && radius < maxDistance) {
                radius = std::min(2.0 * radius, maxDistance);
            }
        } else {
            radius = maxDistance;
        }
        while (!m_values.empty() && !(radius * radius > m_values.back().squaredDistance)) {
            m_values.pop_back();
        }
        for (Value &value : m_values) {
            value.distance = std::sqrt(value.squaredDistance);
        }
        std::sort(m_values.begin(), m_values.end(), [](Value const &a, Value const &b) {
            return a.distance < b.distance || (a.distance == b.distance && comesBefore(a, b));
        });
        std::vector<Nearest> answer;
        answer.reserve(m_k);
        for (std::size_t i = 0; i < std::min(m_k, m_values.size()); ++i) {
            Value const &v = m_values[i];
            answer.push_back({v.run->point(v.slot), &v.run->payload(v.slot), v.distance});
        }
        return answer;
    }

    double maxSq() const { return m_maxSq; }

    void takeNode(Run const &run, int slot, int)
    {
        offer(run, slot, squaredDistance(m_query, run.point(slot)));
    }

    bool takeSlots(Run const &run, int first, int end, int)
    {
        for (int slot = first; slot < end; slot += 2) {
            engine::Pair const distances = squaredDistancesUpTo(run, slot, end, m_query);
            int const near = engine::answerBits(engine::pairOf(m_maxSq) >= distances);
            if ((near & 1) != 0) {
                offer(run, slot, distances[0]);
            }
            if ((near & 2) != 0) {
                offer(run, slot + 1, distances[1]);
            }
        }
        return true;
    }

private:
    struct Value
    {
        double squaredDistance;
        double distance;
        Run const *run;
        int slot;
    };

    /// Keeps the values by ascending squared distance: k of them, and those hardly farther than
    /// the last of these.
    void offer(Run const &run, int slot, double d2)
    {
        if (!(m_maxSq >= d2) || !(m_limitSq > d2)) {
            return;
        }
        std::size_t at = m_values.size();
        m_values.push_back({});
        for (; at > 0 && m_values[at - 1].squaredDistance > d2; --at) {
            m_values[at] = m_values[at - 1];
        }
        m_values[at] = {d2, 0.0, &run, slot};
        if (m_values.size() >= m_k) {
            double const kth = m_values[m_k - 1].squaredDistance;
            // The squares with the same root are fewer than four units of rounding apart.
            m_maxSq = kth + kth * (4.0 * std::numeric_limits<double>::epsilon()) +
                      std::numeric_limits<double>::min();
            while (m_values.back().squaredDistance > m_maxSq) {
                m_values.pop_back();
            }
        }
    }

    static int depthOf(Run const *run)
    {
        int depth = 0;
        for (; run->parent(); run = run->parent()) {
            ++depth;
        }
        return depth;
    }

    /// The order of the tree, which is that of the slots where both are under one run.
    static bool comesBefore(Value const &a, Value const &b)
    {
        Run const *runOfA = a.run;
        Run const *runOfB = b.run;
        int slotOfA = a.slot;
        int slotOfB = b.slot;
        int depthOfA = depthOf(runOfA);
        int depthOfB = depthOf(runOfB);
        while (runOfA != runOfB) {
            bool const liftsA = depthOfA >= depthOfB;
            Run const *&run = liftsA ? runOfA : runOfB;
            (liftsA ? slotOfA : slotOfB) = run->parent()->slotOf(run);
            --(liftsA ? depthOfA : depthOfB);
            run = run->parent();
        }
        return slotOfA < slotOfB;
    }

    LookupPoint<K> m_query;
    std::size_t m_k;
    double m_limitSq; ///< values must be below
    double m_maxSq;   ///< values must not be above
    std::vector<Value> m_values;
};
