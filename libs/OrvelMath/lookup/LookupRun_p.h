#pragma once

#include <OrvelMath/lookup/LookupRegion_p.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

/// A small subtree of a LookupTree, its values in one piece of memory.
///
/// The values stand in pre-order: the root of the subtree, its left subtree, its right subtree.
/// With each value goes the size of its left subtree, which is all that is needed to walk them as
/// the tree that they are:
///
///     value        a  b  c  d  e             a
///     left count   2  1  0  0  0           /   \.
///                     ----  ----          b     d
///                     left  right        /       \.
///                     of a  of a        c         e
///
/// A run holds at least one value once it stands in a tree. It is allocated together with the room
/// for its values, and is made anew to grow.
template <int K, typename Value, typename Access>
class LookupRun
{
public:
    static constexpr int maxCapacity = 64;

    /// An empty run with room for at least `count` values.
    static LookupRun *create(int count)
    {
        int capacity = 4;
        while (capacity < count) {
            capacity *= 2;
        }
        void *const memory = ::operator new(bytes(capacity));
        return new (memory) LookupRun(capacity);
    }

    static void destroy(LookupRun *run)
    {
        std::destroy_n(run->values(), run->m_count);
        run->~LookupRun();
        ::operator delete(run);
    }

    LookupRun(LookupRun const &) = delete;
    LookupRun &operator=(LookupRun const &) = delete;

    int count() const { return m_count; }
    int capacity() const { return m_capacity; }
    bool isFull() const { return m_count == m_capacity; }

    /// The root of the subtree, and the number of values in the left subtree below it.
    Value &root() { return values()[0]; }
    int leftCount() const { return leftCounts()[0]; }

    /// Moves `count` values of `other`, from index `first` on, to the end of this run. They must be
    /// a whole subtree, and this run empty.
    void take(LookupRun &other, int first, int count)
    {
        std::uninitialized_move_n(other.values() + first, count, values());
        std::copy_n(other.leftCounts() + first, count, leftCounts());
        m_count = static_cast<std::uint16_t>(count);
        for (int i = 0; i < count; ++i) {
            extendBox(values()[i]);
        }
    }

    /// Stores `value` where the descent from the run's root, which stands at `level`, ends. False,
    /// and nothing stored, when that is below `deepestLevel`. The run must not be full.
    bool insert(Value &&value, int level, int deepestLevel)
    {
        std::array<std::uint8_t, maxCapacity> passedOnTheLeft;
        int passed = 0;
        int first = 0;
        int end = m_count;
        for (int d = level % K; first < end; d = next(d), ++level) {
            if (level >= deepestLevel) {
                return false;
            }
            int const right = first + 1 + leftCounts()[first];
            if (Access::coordinate(values()[first], d) > Access::coordinate(value, d)) {
                passedOnTheLeft[passed++] = static_cast<std::uint8_t>(first);
                end = right;
                ++first;
            } else {
                first = right;
            }
        }
        for (int i = 0; i < passed; ++i) {
            ++leftCounts()[passedOnTheLeft[i]];
        }
        extendBox(value);
        insertAt(first, std::move(value));
        return true;
    }

    /// Searches the subtree, whose root splits on dimension d.
    template <typename Search>
    void findNearest(Search &search, int d, bool queryIsFinite) const
    {
        if (!(search.maxSq >= boxDistance(search.query))) {
            return;
        }
        if (!queryIsFinite) {
            // The order of the walk matters: infinite differences hide subtrees from it.
            walkToNearest(search, 0, m_count, d);
            return;
        }
        std::array<double, maxCapacity> distances;
        double nearest = std::numeric_limits<double>::infinity();
        for (int i = 0; i < m_count; ++i) {
            Value const &value = values()[i];
            double const d2 = search.accept(value) ? search.squaredDistance(value)
                                                   : std::numeric_limits<double>::quiet_NaN();
            nearest = d2 < nearest ? d2 : nearest;
            distances[i] = d2;
        }
        if (!(search.maxSq >= nearest)) {
            return;
        }
        double const *const begin = distances.data();
        double const *const end = begin + m_count;
        double const *const found = std::find(begin, end, nearest);
        if (found != end && std::find(found + 1, end, nearest) == end) {
            search.maxSq = nearest;
            search.best = values() + (found - begin);
        } else if (found != end) {
            walkToNearest(search, 0, m_count, d);
        }
    }

    /// Calls `visit` with each value inside the region, in pre-order.
    template <typename Visit>
    void collectInRegion(LookupRegion<K> const &region, int d, Visit &visit) const
    {
        if (region.contains(m_box)) {
            for (int i = 0; i < m_count; ++i) {
                visit(values()[i]);
            }
        } else if (region.intersects(m_box)) {
            walkRegion(region, visit, 0, m_count, d);
        }
    }

private:
    explicit LookupRun(int capacity)
        : m_count(0)
        , m_capacity(static_cast<std::uint16_t>(capacity))
    {
        m_box.low.fill(std::numeric_limits<double>::infinity());
        m_box.high.fill(-std::numeric_limits<double>::infinity());
    }
    ~LookupRun() = default;

    static int next(int d) { return d + 1 == K ? 0 : d + 1; }

    // Layout of the memory: the run, the values, the left counts.
    static std::size_t bytes(int capacity)
    {
        static_assert(alignof(Value) <= alignof(double), "values follow the run without a gap");
        static_assert(std::is_nothrow_move_constructible_v<Value> &&
                          std::is_nothrow_move_assignable_v<Value>,
                      "values change places within a run");
        return sizeof(LookupRun) + static_cast<std::size_t>(capacity) * (sizeof(Value) + 1);
    }
    Value *values() { return reinterpret_cast<Value *>(this + 1); }
    Value const *values() const { return reinterpret_cast<Value const *>(this + 1); }
    std::uint8_t *leftCounts() { return reinterpret_cast<std::uint8_t *>(values() + m_capacity); }
    std::uint8_t const *leftCounts() const
    {
        return reinterpret_cast<std::uint8_t const *>(values() + m_capacity);
    }

    void insertAt(int place, Value &&value)
    {
        Value *const v = values();
        std::uint8_t *const c = leftCounts();
        if (place == m_count) {
            new (v + place) Value(std::move(value));
        } else {
            new (v + m_count) Value(std::move(v[m_count - 1]));
            std::move_backward(v + place, v + m_count - 1, v + m_count);
            v[place] = std::move(value);
        }
        std::copy_backward(c + place, c + m_count, c + m_count + 1);
        c[place] = 0;
        ++m_count;
    }

    /// A NaN opens the box to all sides, for no test of the box may pass over it.
    void extendBox(Value const &value)
    {
        for (int i = 0; i < K; ++i) {
            double const c = Access::coordinate(value, i);
            if (std::isnan(c)) {
                m_box.low[i] = -std::numeric_limits<double>::infinity();
                m_box.high[i] = std::numeric_limits<double>::infinity();
            } else {
                m_box.low[i] = c < m_box.low[i] ? c : m_box.low[i];
                m_box.high[i] = c > m_box.high[i] ? c : m_box.high[i];
            }
        }
    }

    /// Squared distance from the query to the box. Rounding is monotone and the sum runs in the
    /// order of the coordinates, so that no value of the run has a smaller computed distance.
    double boxDistance(std::array<double, K> const &query) const
    {
        double sum = 0.0;
        for (int i = 0; i < K; ++i) {
            double const below = m_box.low[i] - query[i];
            double const above = query[i] - m_box.high[i];
            double const outside = below > above ? below : above;
            sum += outside > 0.0 ? outside * outside : 0.0;
        }
        return sum;
    }

    /// The search of the tree on the subtree that fills the indices from `first` up to `end`.
    template <typename Search>
    void walkToNearest(Search &search, int first, int end, int d) const
    {
        search.examine(values()[first]);
        double const split = Access::coordinate(values()[first], d);
        int const right = first + 1 + leftCounts()[first];
        std::pair<int, int> towards(right, end);
        std::pair<int, int> away(first + 1, right);
        if (split > search.query[d]) {
            towards.swap(away);
        }
        if (towards.first < towards.second) {
            walkToNearest(search, towards.first, towards.second, next(d));
        }
        if (away.first < away.second && search.reachesPlane(split, d)) {
            walkToNearest(search, away.first, away.second, next(d));
        }
    }

    template <typename Visit>
    void walkRegion(LookupRegion<K> const &region, Visit &visit, int first, int end, int d) const
    {
        Value const &value = values()[first];
        if (region.template encloses<Access>(value)) {
            visit(value);
        }
        double const split = Access::coordinate(value, d);
        int const left = first + 1;
        int const right = left + leftCounts()[first];
        if (left < right && region.reachesBelow(split, d)) {
            walkRegion(region, visit, left, right, next(d));
        }
        if (right < end && region.reachesAbove(split, d)) {
            walkRegion(region, visit, right, end, next(d));
        }
    }

    std::uint16_t m_count;
    std::uint16_t m_capacity;
    LookupRegion<K> m_box; ///< the smallest that holds the values
};
