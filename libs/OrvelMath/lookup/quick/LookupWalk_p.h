#pragma once

/// @file
/// The way through the runs of a tree that the searches for near values take.

#include <OrvelMath/lookup/LookupDefinition_p.h>
#include <OrvelMath/lookup/LookupRun_p.h>
#include <OrvelMath/lookup/quick/RunDistances_p.h>

#include <QtCore/QtGlobal>

#include <cstdint>

/// Leads a search to every value that is at most as far from a finite query as its limit, which
/// falls as it goes. Subtrees come in the order of the definition, that on the query's side of a
/// node first.
///
/// What is passed over can't be an answer. A value beyond a node's plane is at least as far as the
/// plane, one in a box at least as far as the box, in computed numbers too, since rounding is
/// monotone; this includes the node itself, which therefore waits until its first side is done. A
/// NaN is no answer, and a node with one has nothing on its left.
///
/// The search gives:
///   double maxSq()                            the limit, squared; both ends may be answers
///   bool takeSlots(Run const &, int first, int end, int depth)
///                                             a subtree without exits; false to be led through it
///   void takeNode(Run const &, int slot, int depth)
///
/// `depth` is the number of nodes above that the walk still comes back to. It leads through an
/// array on the stack (24 KB, of which a search touches what the tree is deep), not by recursion.
template <int K, typename Payload, typename Search>
class LookupWalk
{
public:
    using Run = LookupRun<K, Payload>;

    LookupWalk(LookupPoint<K> const &query, Search &search)
        : m_query(query)
        , m_search(search)
    {
    }

    void through(Run const &root)
    {
        enterRun(root, 0);
        while (m_depth > 0) {
            // Field by field: a copy of the whole would wait for the stores of its parts.
            Step const &step = m_steps[--m_depth];
            double const toPlane = m_query[step.d] - step.split;
            if (m_search.maxSq() >= toPlane * toPlane) {
                Run const &run = *step.run;
                int const awayFirst = step.awayFirst;
                int const awayEnd = step.awayEnd;
                int const d = next(step.d);
                m_search.takeNode(run, step.slot, m_depth);
                descend(run, awayFirst, awayEnd, d);
            }
        }
    }

private:
    /// A node whose first side is under way.
    struct Step
    {
        Run const *run;
        double split;
        std::uint8_t slot;
        std::uint8_t d;
        std::uint8_t awayFirst;
        std::uint8_t awayEnd;
    };

    static int next(int d) { return d + 1 == K ? 0 : d + 1; }

    void enterRun(Run const &run, int d)
    {
        if (m_search.maxSq() >= nearestOfBox(run.box(), m_query)) {
            descend(run, 0, run.count(), d);
        }
    }

    /// Down the query's side of a subtree.
    void descend(Run const &run, int first, int end, int d)
    {
        auto const rows = run.allRows();
        while (first < end) {
            if (!run.hasExits(first, end) && m_search.takeSlots(run, first, end, m_depth)) {
                return;
            }
            if (run.isExit(first)) {
                Run const &child = *run.exit(first);
                child.prefetch();
                enterRun(child, d);
                return;
            }
            Q_ASSERT(m_depth <= lookupDeepestLevel);
            double const split = rows[static_cast<std::size_t>(d)][first];
            int const right = run.endOfLeft(first);
            bool const isLeft = split > m_query[d];
            Step &step = m_steps[m_depth++];
            step.run = &run;
            step.split = split;
            step.slot = static_cast<std::uint8_t>(first);
            step.d = static_cast<std::uint8_t>(d);
            step.awayFirst = static_cast<std::uint8_t>(isLeft ? right : first + 1);
            step.awayEnd = static_cast<std::uint8_t>(isLeft ? end : right);
            end = isLeft ? right : end;
            first = isLeft ? first + 1 : right;
            d = next(d);
        }
    }

    LookupPoint<K> m_query;
    Search &m_search;
    int m_depth = 0;
    Step m_steps[lookupDeepestLevel + 1];
};
