#pragma once

/// @file
/// The k-d tree of the lookups: its shape, and how values get in.

#include <OrvelMath/lookup/LookupDefinition_p.h>
#include <OrvelMath/lookup/LookupRun_p.h>
#include <OrvelMath/lookup/quick/DiscScan_p.h>
#include <OrvelMath/lookup/quick/NearestWalk_p.h>

#include <cstdint>
#include <memory>
#include <utility>

/// A subtree of a LookupTree, or nothing: slots `first` to `end` of a run.
template <int K, typename Payload>
class LookupSubtree
{
public:
    using Run = LookupRun<K, Payload>;

    LookupSubtree(Run const *run, int first, int end)
        : m_run(run)
        , m_first(first)
        , m_end(end)
    {
        if (m_first < m_end && m_run->isExit(m_first)) {
            m_run = m_run->exit(m_first);
            m_first = 0;
            m_end = m_run->count();
        }
    }

    bool isEmpty() const { return m_first == m_end; }
    LookupPoint<K> point() const { return m_run->point(m_first); }
    Payload const &payload() const { return m_run->payload(m_first); }
    LookupSubtree left() const { return {m_run, m_first + 1, m_run->endOfLeft(m_first)}; }
    LookupSubtree right() const { return {m_run, m_run->endOfLeft(m_first), m_end}; }

private:
    Run const *m_run;
    int m_first;
    int m_end;
};

/// A k-d tree with one value in every node, built by insertion only (Bentley, 1975). A value is a
/// point of K dimensions and a payload, which may be an empty class.
///
/// The node at level L splits on coordinate L modulo K: values with a smaller coordinate go left,
/// equal and greater ones right. The order of insertion alone shapes the tree; nothing is balanced,
/// merged or removed. Below `deepestLevel` nothing is stored.
///
/// That tree is what results and their order refer to. In memory it is cut into runs (LookupRun) of
/// up to 64 values and exits, wherever a cut leaves both sides a third: a chain takes as few of
/// them as a balanced tree does.
///
/// Concurrent reads are safe, since all state of a search is in the call; a writer needs exclusive
/// use.
template <int K, typename Payload>
class LookupTree
{
public:
    static constexpr int deepestLevel = lookupDeepestLevel;

    using Point = LookupPoint<K>;
    using Run = LookupRun<K, Payload>;
    using Subtree = LookupSubtree<K, Payload>;
    using Nearest = LookupNearest<K, Payload>;

    LookupTree() = default;
    LookupTree(LookupTree const &) = delete;
    LookupTree &operator=(LookupTree const &) = delete;
    ~LookupTree();

    /// Number of stored values.
    std::uint64_t size() const { return m_count; }
    /// The run with the root; null when the tree is empty.
    Run const *rootRun() const { return m_root; }
    Subtree root() const { return {m_root, 0, m_root ? m_root->count() : 0}; }

    /// Stores a value, or nothing below the deepest level. When memory is exhausted it throws and
    /// the tree stays as it was.
    void insert(Point const &point, Payload payload);

    /// See findNearestAsDefined, whose answer this is.
    template <typename Accept>
    Nearest findNearest(Point const &query, double maxDistance, Accept accept) const
    {
        if (m_root && isFinite(query)) {
            return NearestWalk<K, Payload, Accept>(*m_root, query, maxDistance, accept).nearest();
        }
        return findNearestAsDefined<Nearest>(root(), query, maxDistance, accept);
    }

    /// See collectInDiscAsDefined, whose calls of `visit` these are.
    template <typename Visit>
    void collectInDisc(Point const &centre, double radius, Visit visit) const
    {
        if (m_root && radius >= 0.0) {
            scanDisc(*m_root, centre, radius * radius, visit);
        } else {
            collectInDiscAsDefined(root(), centre, radius, visit);
        }
    }

private:
    static int next(int d) { return d + 1 == K ? 0 : d + 1; }

    void makeRoom(Run *run, int needed);
    void hoist(Run *run);
    void cut(Run *run);
    void put(Run *run, Run *inPlaceOf);

    Run *m_root = nullptr;
    std::uint64_t m_count = 0;
};

/// Goes by the runs' own pointers: no recursion.
template <int K, typename Payload>
LookupTree<K, Payload>::~LookupTree()
{
    Run *run = m_root;
    while (run) {
        if (run->exitCount() > 0) {
            run = run->dropExit();
        } else {
            Run *const parent = run->parent();
            Run::destroy(run);
            run = parent;
        }
    }
}

template <int K, typename Payload>
void LookupTree<K, Payload>::insert(Point const &point, Payload payload)
{
    if (!m_root) {
        m_root = Run::create(1, false);
    }
    Run *run = m_root;
    int level = 0;
    int d = 0;
    for (;;) {
        std::uint8_t leftOf[Run::maxSlots]; // the values whose left subtree we entered
        int lefts = 0;
        int first = 0;
        int end = run->count();
        auto const rows = run->allRows();
        while (first < end && !run->isExit(first)) {
            if (level >= deepestLevel) {
                return;
            }
            int const right = run->endOfLeft(first);
            if (rows[static_cast<std::size_t>(d)][first] > point[d]) {
                leftOf[lefts++] = static_cast<std::uint8_t>(first);
                end = right;
                ++first;
            } else {
                first = right;
            }
            d = next(d);
            ++level;
        }
        if (first < end) {
            run = run->exit(first);
            continue;
        }
        if (run->isFull()) {
            makeRoom(run, 1);
            run = m_root;
            level = 0;
            d = 0;
            continue;
        }
        run->insert(first, point, std::move(payload));
        for (int i = 0; i < lefts; ++i) {
            run->growLeft(leftOf[i], 1);
        }
        break;
    }
    ++m_count;
    while (run && run->extendBox(point)) {
        run = run->parent();
    }
}

/// A step towards room for more slots where `run` is.
template <int K, typename Payload>
void LookupTree<K, Payload>::makeRoom(Run *run, int needed)
{
    int const count = run->count();
    if (count + needed <= Run::maxSlots) {
        Run *const larger = Run::create(count + needed, run->exitCount() > 0);
        larger->take(*run, 0, count);
        put(larger, run);
        return;
    }
    constexpr int leastSide = 3;
    int const left = run->endOfLeft(0) - 1;
    if (std::min(left, count - 1 - left) < leastSide) {
        cut(run);
    } else if (run->parent() && run->parent()->room() < 2) {
        makeRoom(run->parent(), 2);
    } else {
        hoist(run);
    }
}

/// Moves the root of a run up into the run above, and its two subtrees into runs of their own.
template <int K, typename Payload>
void LookupTree<K, Payload>::hoist(Run *run)
{
    int const left = run->endOfLeft(0) - 1;
    int const right = run->count() - 1 - left;
    bool const withExits = run->exitCount() > 0;
    using OwnedRun = std::unique_ptr<Run, decltype(&Run::destroy)>;
    OwnedRun leftRun(Run::create(left + 1, withExits), &Run::destroy);
    OwnedRun rightRun(Run::create(right + 1, withExits), &Run::destroy);
    Run *const parent = run->parent();
    Run *const top = parent ? nullptr : Run::create(3, true);
    leftRun->take(*run, 1, left);
    rightRun->take(*run, 1 + left, right);
    if (parent) {
        parent->replaceExit(run, run->point(0), run->takePayload(), leftRun.release(),
                            rightRun.release());
    } else {
        top->insert(0, run->point(0), run->takePayload());
        top->extendBox(run->point(0));
        top->growLeft(0, 1);
        top->appendExit(leftRun.release());
        top->appendExit(rightRun.release());
        m_root = top;
    }
    run->forget();
    Run::destroy(run);
}

/// Puts a subtree of a third to two thirds of the slots into a run of its own. There is one: going
/// down the larger sides, a subtree of more than two thirds has one of a third or more.
template <int K, typename Payload>
void LookupTree<K, Payload>::cut(Run *run)
{
    int const count = run->count();
    int first = 0;
    int end = count;
    std::uint8_t leftOf[Run::maxSlots];
    int lefts = 0;
    while (3 * (end - first) > 2 * count) {
        int const right = run->endOfLeft(first);
        if (right - (first + 1) > end - right) {
            leftOf[lefts++] = static_cast<std::uint8_t>(first);
            end = right;
            ++first;
        } else {
            first = right;
        }
    }
    int const size = end - first;
    Q_ASSERT(3 * size >= count - 3 && first > 0 && !run->isExit(first));

    using OwnedRun = std::unique_ptr<Run, decltype(&Run::destroy)>;
    OwnedRun lower(Run::create(size + 1, run->exitCount() > 0), &Run::destroy);
    Run *const upper = Run::create(count - size + 2, true);
    lower->take(*run, first, size);
    upper->take(*run, 0, first);
    upper->appendExit(lower.release());
    upper->take(*run, end, count - end);
    for (int i = 0; i < lefts; ++i) {
        upper->growLeft(leftOf[i], 1 - size);
    }
    put(upper, run);
}

/// Hangs a run with the slots of another one into its place and frees the other one.
template <int K, typename Payload>
void LookupTree<K, Payload>::put(Run *run, Run *inPlaceOf)
{
    run->replace(inPlaceOf);
    m_root = m_root == inPlaceOf ? run : m_root;
    inPlaceOf->forget();
    Run::destroy(inPlaceOf);
}
