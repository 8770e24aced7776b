#pragma once

#include <OrvelMath/lookup/LookupRegion_p.h>

#include <algorithm>
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
/// The coordinates stand in K rows, so that two points at a time are measured; a row that isn't
/// full ends in NaN. A run is allocated together with the room for its values, and is made anew to
/// grow. It holds at least one value once it stands in a tree.
template <int K, typename Payload>
class LookupRun
{
public:
    static constexpr int maxCapacity = 64;

    using Point = LookupPoint<K>;

    /// An empty run with room for at least `count` values.
    static LookupRun *create(int count)
    {
        int capacity = 4;
        while (capacity < count) {
            capacity *= 2;
        }
        return new (::operator new(bytes(capacity))) LookupRun(capacity);
    }

    static void destroy(LookupRun *run)
    {
        if constexpr (hasPayload) {
            std::destroy_n(run->payloads(), run->m_count);
        }
        run->~LookupRun();
        ::operator delete(run);
    }

    LookupRun(LookupRun const &) = delete;
    LookupRun &operator=(LookupRun const &) = delete;

    int count() const { return m_count; }
    int capacity() const { return m_capacity; }
    bool isFull() const { return m_count == m_capacity; }

    Point point(int index) const
    {
        Point p;
        for (int i = 0; i < K; ++i) {
            p[i] = row(i)[index];
        }
        return p;
    }
    Payload const &payload(int index) const
    {
        if constexpr (hasPayload) {
            return payloads()[index];
        } else {
            static Payload const none = {};
            return none;
        }
    }
    /// Moves the payload out.
    Payload takePayload(int index)
    {
        if constexpr (hasPayload) {
            return std::move(payloads()[index]);
        } else {
            return {};
        }
    }
    /// Number of values in the left subtree of the run's root.
    int leftCount() const { return leftCounts()[0]; }

    /// Moves `count` values of `other`, from index `first` on, into this empty run. They must be a
    /// whole subtree.
    void take(LookupRun &other, int first, int count)
    {
        for (int i = 0; i < K; ++i) {
            std::copy_n(other.row(i) + first, count, row(i));
        }
        if constexpr (hasPayload) {
            std::uninitialized_move_n(other.payloads() + first, count, payloads());
        }
        std::copy_n(other.leftCounts() + first, count, leftCounts());
        m_count = static_cast<std::uint16_t>(count);
        for (int i = 0; i < count; ++i) {
            extendBox(point(i));
        }
    }

    /// Stores a value where the descent from the run's root, which stands at `level`, ends. False,
    /// and nothing stored, when that is below `deepestLevel`. The run must not be full.
    bool insert(Point const &p, Payload &&payload, int level, int deepestLevel)
    {
        std::uint8_t passedOnTheLeft[maxCapacity];
        int passed = 0;
        int first = 0;
        int end = m_count;
        for (int d = level % K; first < end; d = next(d), ++level) {
            if (level >= deepestLevel) {
                return false;
            }
            int const right = first + 1 + leftCounts()[first];
            if (row(d)[first] > p[d]) {
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
        insertAt(first, p, std::move(payload));
        extendBox(p);
        return true;
    }

    /// Searches the subtree, whose root splits on dimension d; true when it holds a new best value.
    template <typename Search>
    bool findNearest(Search &search, int d) const
    {
        prefetch();
        if (!(search.maxSq >= boxDistance(search.query))) {
            return false;
        }
        if (!search.queryIsFinite) {
            // Infinite differences hide subtrees from the walk, so it must be made.
            return walkToNearest(search, 0, m_count, d);
        }
        double distances[maxCapacity];
        double const nearest = measure(search, distances);
        if (!(search.maxSq >= nearest)) {
            return false;
        }
        int found = 0;
        int ties = 0;
        for (int i = 0; i < m_count; ++i) {
            bool const isNearest = distances[i] <= nearest;
            found = isNearest ? i : found;
            ties += isNearest ? 1 : 0;
        }
        if (ties > 1) {
            search.maxSq = nearest;
            return walkToNearest(search, 0, m_count, d);
        }
        if (ties == 1) {
            search.take(nearest, point(found), payload(found));
        }
        return ties == 1;
    }

    /// Calls `visit` with each value inside the region, in pre-order.
    template <typename Visit>
    void collectInRegion(LookupRegion<K> const &region, Visit &visit) const
    {
        if (region.contains(m_box)) {
            for (int i = 0; i < m_count; ++i) {
                visit(point(i), payload(i));
            }
        } else if (region.intersects(m_box)) {
            for (int i = 0; i < m_count; ++i) {
                Point const p = point(i);
                if (region.encloses(p)) {
                    visit(p, payload(i));
                }
            }
        }
    }

private:
    // Two doubles that are computed side by side. Every lane is a result of its own, so that the
    // bits are those of plain doubles.
    using Pair = double __attribute__((vector_size(2 * sizeof(double))));

    explicit LookupRun(int capacity)
        : m_count(0)
        , m_capacity(static_cast<std::uint16_t>(capacity))
    {
        std::fill_n(m_box.low.coordinates, K, std::numeric_limits<double>::infinity());
        std::fill_n(m_box.high.coordinates, K, -std::numeric_limits<double>::infinity());
        std::uninitialized_fill_n(row(0), K * capacity, std::numeric_limits<double>::quiet_NaN());
    }
    ~LookupRun() = default;

    static int next(int d) { return d + 1 == K ? 0 : d + 1; }

    // Layout of the memory: the run, the rows of coordinates, the payloads, the left counts.
    static constexpr bool hasPayload = !std::is_empty_v<Payload>;
    static constexpr std::size_t payloadSize = hasPayload ? sizeof(Payload) : 0;

    static std::size_t bytes(int capacity)
    {
        static_assert(alignof(Payload) <= alignof(double), "payloads follow doubles without a gap");
        static_assert(std::is_nothrow_move_constructible_v<Payload> &&
                          std::is_nothrow_move_assignable_v<Payload>,
                      "values change places within a run");
        return sizeof(LookupRun) +
               static_cast<std::size_t>(capacity) * (K * sizeof(double) + payloadSize + 1);
    }
    double *row(int i) { return reinterpret_cast<double *>(this + 1) + i * m_capacity; }
    double const *row(int i) const
    {
        return reinterpret_cast<double const *>(this + 1) + i * m_capacity;
    }
    Payload *payloads() { return reinterpret_cast<Payload *>(row(K)); }
    Payload const *payloads() const { return reinterpret_cast<Payload const *>(row(K)); }
    std::uint8_t *leftCounts()
    {
        return reinterpret_cast<std::uint8_t *>(row(K)) + payloadSize * m_capacity;
    }
    std::uint8_t const *leftCounts() const
    {
        return reinterpret_cast<std::uint8_t const *>(row(K)) + payloadSize * m_capacity;
    }

    void insertAt(int place, Point const &p, Payload &&payload)
    {
        for (int i = 0; i < K; ++i) {
            std::copy_backward(row(i) + place, row(i) + m_count, row(i) + m_count + 1);
            row(i)[place] = p[i];
        }
        if constexpr (hasPayload) {
            Payload *const v = payloads();
            if (place == m_count) {
                new (v + place) Payload(std::move(payload));
            } else {
                new (v + m_count) Payload(std::move(v[m_count - 1]));
                std::move_backward(v + place, v + m_count - 1, v + m_count);
                v[place] = std::move(payload);
            }
        }
        std::uint8_t *const c = leftCounts();
        std::copy_backward(c + place, c + m_count, c + m_count + 1);
        c[place] = 0;
        ++m_count;
    }

    /// A NaN leaves the box as it is, for no point with one is ever the answer.
    void extendBox(Point const &p)
    {
        for (int i = 0; i < K; ++i) {
            m_box.low[i] = p[i] < m_box.low[i] ? p[i] : m_box.low[i];
            m_box.high[i] = p[i] > m_box.high[i] ? p[i] : m_box.high[i];
        }
    }

    /// Fetches about half the memory of a large run while the box is still being tested.
    void prefetch() const
    {
        char const *const start = reinterpret_cast<char const *>(this);
        for (int line = 1; line <= 12; ++line) {
            __builtin_prefetch(start + 64 * line);
        }
    }

    /// Squared distance from the query to the box. Rounding is monotone and the sum runs in the
    /// order of the coordinates, so that no value of the run has a smaller computed distance.
    double boxDistance(Point const &query) const
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

    /// Writes the squared distance of every acceptable value, NaN for the others, and returns the
    /// smallest; infinity when there is none.
    template <typename Search>
    double measure(Search &search, double *distances) const
    {
        double const infinity = std::numeric_limits<double>::infinity();
        Pair smallest[2] = {{infinity, infinity}, {infinity, infinity}};
        for (int j = 0; j < m_count; j += 4) {
            for (int half = 0; half < 2; ++half) {
                int const at = j + 2 * half;
                Pair sum = {0.0, 0.0};
                for (int i = 0; i < K; ++i) {
                    double const *const c = row(i) + at;
                    Pair const difference =
                        Pair{search.query[i], search.query[i]} - Pair{c[0], c[1]};
                    sum += difference * difference;
                }
                if constexpr (!Search::acceptsAll) {
                    for (int lane = 0; lane < 2; ++lane) {
                        if (!search.accept(point(at + lane))) {
                            sum[lane] = std::numeric_limits<double>::quiet_NaN();
                        }
                    }
                }
                distances[at] = sum[0];
                distances[at + 1] = sum[1];
                smallest[half] = sum < smallest[half] ? sum : smallest[half];
            }
        }
        return std::min(std::min(smallest[0][0], smallest[0][1]),
                        std::min(smallest[1][0], smallest[1][1]));
    }

    /// The search of the tree on the subtree that fills the indices from `first` up to `end`; true
    /// when it holds a new best value.
    template <typename Search>
    bool walkToNearest(Search &search, int first, int end, int d) const
    {
        bool found = search.examine(point(first), payload(first));
        double const split = row(d)[first];
        int const right = first + 1 + leftCounts()[first];
        std::pair<int, int> towards(right, end);
        std::pair<int, int> away(first + 1, right);
        if (split > search.query[d]) {
            towards.swap(away);
        }
        if (towards.first < towards.second) {
            found |= walkToNearest(search, towards.first, towards.second, next(d));
        }
        if (away.first < away.second && search.reachesPlane(split, d)) {
            found |= walkToNearest(search, away.first, away.second, next(d));
        }
        return found;
    }

    std::uint16_t m_count;
    std::uint16_t m_capacity;
    LookupRegion<K> m_box; ///< the smallest that holds the values
};
