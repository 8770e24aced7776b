#pragma once

/// @file
/// The nearest value, run by run.

#include <OrvelMath/lookup/quick/LookupWalk_p.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

/// Finds what findNearestAsDefined finds, for a finite query.
///
/// Both answer with the least squared distance within the limit. Of several values at it the answer
/// is the last in the order of the search, and this is how it is found:
/// - Subtrees come in the order of the definition, so a later tie wins.
/// - A node comes after its first side here, before it there. So it loses a tie with a value from
///   that side, which is below it. `m_bestDepth` is the number of nodes that are above the best
///   value among those that the walk still comes back to.
/// - In a run that is measured from end to end, equal points are each below the one before: equal
///   coordinates go right. So the last one wins. Through other ties the walk is led step by step.
template <int K, typename Payload, typename Accept>
class NearestWalk
{
public:
    using Run = LookupRun<K, Payload>;
    using Nearest = LookupNearest<K, Payload>;

    NearestWalk(Run const &root, LookupPoint<K> const &query, double maxDistance, Accept accept)
        : m_query(query)
        , m_accept(accept)
        , m_maxSq(maxDistance * maxDistance)
    {
        LookupWalk<K, Payload, NearestWalk>(query, *this).through(root);
    }

    Nearest nearest() const
    {
        if (!m_bestRun) {
            return Nearest();
        }
        return {m_bestRun->point(m_bestSlot), &m_bestRun->payload(m_bestSlot), std::sqrt(m_maxSq)};
    }

    double maxSq() const { return m_maxSq; }

    void takeNode(Run const &run, int slot, int depth)
    {
        LookupPoint<K> const p = run.point(slot);
        double const d2 = squaredDistance(m_query, p);
        bool const bestIsBelow = m_bestDepth > depth;
        bool const wins = bestIsBelow && m_bestRun ? m_maxSq > d2 : m_maxSq >= d2;
        m_bestDepth = bestIsBelow ? depth : m_bestDepth;
        if (wins && m_accept(p)) {
            take(run, slot, d2, depth);
        }
    }

    bool takeSlots(Run const &run, int first, int end, int depth)
    {
        double distances[Run::maxSlots];
        double const least = measure(run, first, end, distances);
        if (!(m_maxSq >= least)) {
            return true;
        }
        std::uint64_t const ties = slotsAt(least, distances, end - first);
        if (ties == 0) {
            return true;
        }
        int const last = first + 63 - __builtin_clzll(ties);
        if ((ties & (ties - 1)) != 0 && !areAllEqual(run, first, ties, last)) {
            m_maxSq = least;
            return false;
        }
        take(run, last, least, depth);
        return true;
    }

private:
    void take(Run const &run, int slot, double d2, int depth)
    {
        m_maxSq = d2;
        m_bestRun = &run;
        m_bestSlot = slot;
        m_bestDepth = depth;
    }

    /// Writes the squared distance of every value that may be the answer, NaN for the others, and
    /// returns the least; infinity when there is none.
    double measure(Run const &run, int first, int end, double *distances) const
    {
        engine::Pair least = engine::pairOf(std::numeric_limits<double>::infinity());
        engine::Pair leastToo = least;
        int slot = first;
        for (; slot + 4 <= end; slot += 4) {
            engine::Pair const pair = accepted(run, slot, squaredDistances(run, slot, m_query));
            engine::Pair const next =
                accepted(run, slot + 2, squaredDistances(run, slot + 2, m_query));
            engine::storePair(distances + (slot - first), pair);
            engine::storePair(distances + (slot + 2 - first), next);
            least = engine::lesserOr(pair, least);
            leastToo = engine::lesserOr(next, leastToo);
        }
        for (; slot < end; slot += 2) {
            engine::Pair const pair =
                accepted(run, slot, squaredDistancesUpTo(run, slot, end, m_query));
            engine::storePair(distances + (slot - first), pair);
            least = engine::lesserOr(pair, least);
        }
        least = engine::lesserOr(least, leastToo);
        return least[1] < least[0] ? least[1] : least[0];
    }

    /// The distances of two slots, NaN where the value may not be the answer.
    engine::Pair accepted(Run const &run, int slot, engine::Pair distances) const
    {
        if constexpr (!std::is_same_v<Accept, LookupAcceptAll>) {
            double const nan = std::numeric_limits<double>::quiet_NaN();
            distances[0] = m_accept(run.point(slot)) ? distances[0] : nan;
            // The second slot may be beyond the end; its distance is NaN then.
            bool const isValue = distances[1] == distances[1];
            distances[1] = isValue && m_accept(run.point(slot + 1)) ? distances[1] : nan;
        }
        return distances;
    }

    /// Bit i is set where the i-th distance is the least.
    static std::uint64_t slotsAt(double least, double const *distances, int count)
    {
        std::uint64_t bits = 0;
        for (int i = 0; i < count; i += 2) {
            int const pair =
                engine::answerBits(engine::loadPair(distances + i) <= engine::pairOf(least));
            bits |= static_cast<std::uint64_t>(pair) << i;
        }
        return bits;
    }

    /// Whether the points of the slots `first` + i for all bits i are equal.
    static bool areAllEqual(Run const &run, int first, std::uint64_t bits, int last)
    {
        LookupPoint<K> const p = run.point(last);
        bool equal = true;
        for (; bits != 0; bits &= bits - 1) {
            equal = equal && areEqual(run.point(first + __builtin_ctzll(bits)), p);
        }
        return equal;
    }

    LookupPoint<K> m_query;
    Accept m_accept;
    double m_maxSq;
    Run const *m_bestRun = nullptr;
    int m_bestSlot = 0;
    int m_bestDepth = 0;
};
