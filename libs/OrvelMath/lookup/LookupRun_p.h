#pragma once

/// @file
/// The storage of the lookups: a piece of the tree in one piece of memory.

#include <OrvelMath/lookup/LookupRegion_p.h>

#include <QtCore/QtGlobal>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

/// A connected piece of a LookupTree.
///
/// Its slots are in pre-order: the root of the piece, its left subtree, its right subtree. A slot
/// holds a value, or it is an exit: the subtree that belongs there is a run of its own. With each
/// value goes the number of slots of its left subtree, which is all that is needed to walk the
/// piece as the tree that it is:
///
///     slot         a  b  c  d  *             a
///     left count   2  1  0  0  exit        /   \.
///                     ----  ----          b     d
///                     left  right        /       \.
///                     of a  of a        c         * another run
///
/// The coordinates form K rows, so that two points at a time are measured. An exit has NaN for
/// coordinates, and so has the rest of a row that isn't full. A run is allocated together with the
/// room for its slots, and is made anew to grow. Its first slot is a value.
template <int K, typename Payload>
class LookupRun
{
public:
    static constexpr int maxSlots = 64;
    /// A binary tree has one exit more than values at most.
    static constexpr int maxExits = maxSlots / 2 + 1;

    using Point = LookupPoint<K>;

    /// An empty run with room for at least `needed` slots, exits among them only when told so.
    static LookupRun *create(int needed, bool withExits)
    {
        int const step = needed <= 16 ? 8 : 16;
        int const capacity = std::min((needed + step - 1) / step * step, maxSlots);
        Q_ASSERT(needed <= capacity);
        return new (::operator new(bytes(capacity, withExits))) LookupRun(capacity, withExits);
    }

    /// Destroys this run alone.
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
    bool isFull() const { return m_count == m_capacity; }
    int room() const { return m_capacity - m_count; }
    int exitCount() const { return m_exitCount; }

    /// The run with the exit to this one; null at the root of the tree.
    LookupRun *parent() const { return m_parent; }
    /// The smallest box that holds the values of the subtree, exits included. A NaN is in no box.
    LookupRegion<K> const &box() const { return m_box; }
    /// Whether a coordinate in the subtree, exits included, is NaN.
    bool hasNan() const { return m_hasNan; }

    bool isExit(int slot) const { return leftCounts()[slot] >= exitMark; }
    /// Bit i is set where slot i is an exit.
    std::uint64_t exitSlots() const { return m_exitSlots; }
    LookupRun *exit(int slot) const
    {
        Q_ASSERT(isExit(slot));
        return exits()[leftCounts()[slot] - exitMark];
    }
    bool hasExits(int first, int end) const
    {
        Q_ASSERT(first < end && end <= maxSlots);
        std::uint64_t const width = ~std::uint64_t(0) >> (64 - (end - first));
        return (m_exitSlots >> first & width) != 0;
    }
    /// The slot of the exit to `child`.
    int slotOf(LookupRun const *child) const
    {
        int slot = 0;
        while (!(isExit(slot) && exit(slot) == child)) {
            ++slot;
            Q_ASSERT(slot < m_count);
        }
        return slot;
    }
    /// The slot after the left subtree of a value, where its right subtree begins if it has one.
    int endOfLeft(int slot) const
    {
        Q_ASSERT(!isExit(slot));
        return slot + 1 + leftCounts()[slot];
    }

    double coordinate(int slot, int i) const { return row(i)[slot]; }
    Point point(int slot) const
    {
        Point p;
        for (int i = 0; i < K; ++i) {
            p[i] = row(i)[slot];
        }
        return p;
    }
    Payload const &payload(int slot) const
    {
        if constexpr (hasPayload) {
            return payloads()[slot];
        } else {
            static Payload const none = {};
            return none;
        }
    }
    /// The coordinates of all slots in dimension i; one more can be read from every row.
    double const *row(int i) const { return rows() + i * m_capacity; }

    /// All rows, for a way through the run.
    std::array<double const *, K> allRows() const
    {
        std::array<double const *, K> all;
        for (int i = 0; i < K; ++i) {
            all[static_cast<std::size_t>(i)] = row(i);
        }
        return all;
    }

    /// Fetches the beginning of the run, which holds all of a small one but its payloads.
    void prefetch() const
    {
        char const *const start = reinterpret_cast<char const *>(this);
        for (int line = 0; line < 14; ++line) {
            __builtin_prefetch(start + 64 * line);
        }
    }

    /// Moves `count` slots of `other`, from `first` on, to the end of this run. `other` must give
    /// up each of its slots once, and then forget them.
    void take(LookupRun &other, int first, int count)
    {
        Q_ASSERT(m_count + count <= m_capacity);
        for (int i = 0; i < K; ++i) {
            std::copy_n(other.row(i) + first, count, row(i) + m_count);
        }
        if constexpr (hasPayload) {
            relocate(payloads() + m_count, other.payloads() + first, count);
        }
        std::copy_n(other.leftCounts() + first, count, leftCounts() + m_count);
        int const end = m_count + count;
        bool const isWhole = count == other.m_count && m_count == 0;
        if (isWhole) {
            m_box = other.m_box;
            m_hasNan = other.m_hasNan;
        }
        for (int slot = m_count; slot < end; ++slot) {
            if (isExit(slot)) {
                LookupRun *const child = other.exits()[leftCounts()[slot] - exitMark];
                enterExit(slot, child);
            } else if (!isWhole) {
                extendBox(point(slot));
            }
        }
        m_count = static_cast<std::uint8_t>(end);
    }
    /// Moves the payload of the first slot out.
    Payload takePayload()
    {
        if constexpr (hasPayload) {
            Payload first = std::move(*payloads());
            payloads()->~Payload();
            return first;
        } else {
            return {};
        }
    }
    /// After all slots have been taken.
    void forget() { m_count = 0; }

    /// Takes the place of `other` in the tree.
    void replace(LookupRun *other)
    {
        m_parent = other->m_parent;
        if (m_parent) {
            LookupRun **const exit =
                std::find(m_parent->exits(), m_parent->exits() + m_parent->m_exitCount, other);
            Q_ASSERT(exit != m_parent->exits() + m_parent->m_exitCount);
            *exit = this;
        }
    }

    void appendExit(LookupRun *child)
    {
        Q_ASSERT(!isFull() && child->m_count > 0);
        for (int i = 0; i < K; ++i) {
            row(i)[m_count] = std::numeric_limits<double>::quiet_NaN();
        }
        if constexpr (hasPayload) {
            new (payloads() + m_count) Payload();
        }
        enterExit(m_count, child);
        ++m_count;
    }

    /// Removes the last exit and returns the run behind it; its slot can't be asked any more.
    LookupRun *dropExit() { return exits()[--m_exitCount]; }

    /// Puts a value without a left subtree into a slot; the slots from there on move up.
    void insert(int slot, Point const &p, Payload &&payload)
    {
        openSlot(slot, p, std::move(payload));
        leftCounts()[slot] = 0;
    }

    /// Puts a value with exits for its two subtrees into the slot of the exit to `former`.
    void replaceExit(LookupRun *former, Point const &p, Payload &&payload, LookupRun *left,
                     LookupRun *right)
    {
        int const slot = slotOf(former);
        std::uint8_t const exitToLeft = leftCounts()[slot];
        for (int at = 0; at < slot;) {
            int const end = endOfLeft(at);
            if (slot < end) {
                growLeft(at, 2);
            }
            at = slot < end ? at + 1 : end;
        }
        insert(slot, p, std::move(payload));
        growLeft(slot, 1);
        exits()[exitToLeft - exitMark] = left;
        left->m_parent = this;
        double const nan = std::numeric_limits<double>::quiet_NaN();
        Point none;
        std::fill_n(none.coordinates, K, nan);
        openSlot(slot + 2, none, Payload());
        enterExit(slot + 2, right);
    }

    /// The left subtree of the value in `slot` has so many slots more.
    void growLeft(int slot, int change)
    {
        leftCounts()[slot] = static_cast<std::uint8_t>(leftCounts()[slot] + change);
    }

    /// Lets the box hold a value of the subtree; false when it did so already.
    bool extendBox(Point const &p)
    {
        bool changed = false;
        for (int i = 0; i < K; ++i) {
            if (p[i] != p[i]) {
                changed = changed || !m_hasNan;
                m_hasNan = true;
            }
            if (p[i] < m_box.low[i]) {
                m_box.low[i] = p[i];
                changed = true;
            }
            if (p[i] > m_box.high[i]) {
                m_box.high[i] = p[i];
                changed = true;
            }
        }
        return changed;
    }

private:
    static constexpr bool hasPayload = !std::is_empty_v<Payload>;
    static constexpr std::size_t payloadSize = hasPayload ? sizeof(Payload) : 0;
    static constexpr std::uint8_t exitMark = 128; ///< left counts from here on number the exits

    static_assert(alignof(Payload) <= alignof(double), "payloads follow doubles without a gap");
    static_assert(!QTypeInfo<Payload>::isStatic || !hasPayload, "payloads are moved as bytes");

    LookupRun(int capacity, bool withExits)
        : m_capacity(static_cast<std::uint8_t>(capacity))
        , m_exitRoom(withExits ? maxExits : 0)
    {
        std::fill_n(m_box.low.coordinates, K, std::numeric_limits<double>::infinity());
        std::fill_n(m_box.high.coordinates, K, -std::numeric_limits<double>::infinity());
        std::uninitialized_fill_n(row(0), K * capacity + 1,
                                  std::numeric_limits<double>::quiet_NaN());
    }
    ~LookupRun() = default;

    // Layout of the memory: the run, the left counts, the exits, the rows, a NaN, the payloads. The
    // capacity is a multiple of 8, so that nothing has to be aligned.
    static std::size_t bytes(int capacity, bool withExits)
    {
        return sizeof(LookupRun) +
               static_cast<std::size_t>(capacity) * (1 + K * sizeof(double) + payloadSize) +
               sizeof(double) + (withExits ? maxExits * sizeof(LookupRun *) : 0);
    }
    std::uint8_t *leftCounts() { return reinterpret_cast<std::uint8_t *>(this + 1); }
    std::uint8_t const *leftCounts() const
    {
        return reinterpret_cast<std::uint8_t const *>(this + 1);
    }
    LookupRun **exits() { return reinterpret_cast<LookupRun **>(leftCounts() + m_capacity); }
    LookupRun *const *exits() const
    {
        return reinterpret_cast<LookupRun *const *>(leftCounts() + m_capacity);
    }
    double *rows() { return reinterpret_cast<double *>(exits() + m_exitRoom); }
    double const *rows() const { return reinterpret_cast<double const *>(exits() + m_exitRoom); }
    double *row(int i) { return rows() + i * m_capacity; }
    Payload *payloads() { return reinterpret_cast<Payload *>(row(K) + 1); }
    Payload const *payloads() const { return reinterpret_cast<Payload const *>(row(K) + 1); }

    static void relocate(Payload *to, Payload *from, int count)
    {
        std::memmove(static_cast<void *>(to), static_cast<void *>(from),
                     sizeof(Payload) * static_cast<std::size_t>(count));
    }

    /// Makes room at a slot; the slots from there on move up. The left count is still to be set.
    void openSlot(int slot, Point const &p, Payload &&payload)
    {
        Q_ASSERT(!isFull() && slot <= m_count);
        int const behind = m_count - slot;
        for (int i = 0; i < K; ++i) {
            double *const at = row(i) + slot;
            std::memmove(at + 1, at, sizeof(double) * static_cast<std::size_t>(behind));
            *at = p[i];
        }
        if constexpr (hasPayload) {
            relocate(payloads() + slot + 1, payloads() + slot, behind);
            new (payloads() + slot) Payload(std::move(payload));
        }
        std::uint8_t *const left = leftCounts() + slot;
        std::memmove(left + 1, left, static_cast<std::size_t>(behind));
        std::uint64_t const before = (std::uint64_t(1) << slot) - 1;
        m_exitSlots = (m_exitSlots & before) | (m_exitSlots & ~before) << 1;
        ++m_count;
    }

    /// Lets a slot be the exit to `child`.
    void enterExit(int slot, LookupRun *child)
    {
        Q_ASSERT(m_exitCount < m_exitRoom);
        leftCounts()[slot] = static_cast<std::uint8_t>(exitMark + m_exitCount);
        exits()[m_exitCount++] = child;
        m_exitSlots |= std::uint64_t(1) << slot;
        child->m_parent = this;
        for (int i = 0; i < K; ++i) {
            m_box.low[i] = std::min(m_box.low[i], child->m_box.low[i]);
            m_box.high[i] = std::max(m_box.high[i], child->m_box.high[i]);
        }
        m_hasNan = m_hasNan || child->m_hasNan;
    }

    LookupRun *m_parent = nullptr;
    std::uint64_t m_exitSlots = 0;
    std::uint8_t m_count = 0; ///< slots
    std::uint8_t m_capacity;
    std::uint8_t m_exitCount = 0;
    std::uint8_t m_exitRoom;
    bool m_hasNan = false;
    LookupRegion<K> m_box;
};
