#pragma once

#include <OrvelMath/lookup/LookupRegion_p.h>
#include <OrvelMath/lookup/LookupRun_p.h>
#include <OrvelMath/lookup/LookupSearch_p.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

/// A k-d tree with one value in every node, built by insertion only (Bentley, 1975).
///
/// The node at level L splits on coordinate L modulo K: values with a smaller coordinate go left,
/// equal and greater ones right. The order of insertion alone shapes the tree; nothing is balanced,
/// merged or removed. Below `deepestLevel` nothing is stored.
///
/// That tree is what results and their order refer to. In memory, only nodes with many values below
/// them are nodes of their own; the subtrees at the fringe are runs (LookupRun), each of which is
/// the same tree, written in pre-order into one piece of memory. A run that has no more room gives
/// its root to a node and its two subtrees to runs of their own.
///
/// `Access::coordinate(value, i)` reads coordinate i of a value. Concurrent reads are safe, since
/// all state of a search is in the call; a writer needs exclusive use.
template <int K, typename Value, typename Access>
class LookupTree
{
public:
    static constexpr int deepestLevel = 1001;

    using Point = std::array<double, K>;

    /// What a search found: null when nothing.
    struct Nearest
    {
        Value const *value = nullptr;
        double distance = 0.0;
    };

    LookupTree() = default;
    LookupTree(LookupTree const &) = delete;
    LookupTree &operator=(LookupTree const &) = delete;
    ~LookupTree();

    /// Number of stored values.
    std::uint64_t size() const { return m_count; }

    /// Stores a copy of `value`, or nothing below the deepest level. When memory is exhausted it
    /// throws and the tree stays as it was.
    void insert(Value const &value);

    /// The value nearest to `query` among those that `accept` allows and that are at most
    /// `maxDistance` away. Of several at the same distance the one examined last: a node comes
    /// before its subtrees, and the subtree on the query's side of the node before the other one.
    template <typename Accept>
    Nearest findNearest(Point const &query, double maxDistance, Accept accept) const;

    /// Calls `visit` with every value inside the closed box, in pre-order: a node, its left
    /// subtree, its right subtree.
    template <typename Visit>
    void collectInRegion(LookupRegion<K> const &region, Visit visit) const;

private:
    using Run = LookupRun<K, Value, Access>;
    struct Node;

    /// What hangs on one side of a node: nothing, a node or a run.
    class Link
    {
    public:
        Link() = default;
        Link(Node const *node)
            : m_bits(reinterpret_cast<std::uintptr_t>(node))
        {
        }
        Link(Run const *run)
            : m_bits(reinterpret_cast<std::uintptr_t>(run) | runBit)
        {
        }
        bool isNull() const { return m_bits == 0; }
        bool isRun() const { return (m_bits & runBit) != 0; }
        bool isNode() const { return !isNull() && !isRun(); }
        Node *node() const { return reinterpret_cast<Node *>(m_bits); }
        Run *run() const { return reinterpret_cast<Run *>(m_bits & ~runBit); }
        bool operator==(Link other) const { return m_bits == other.m_bits; }

    private:
        static constexpr std::uintptr_t runBit = 1;
        std::uintptr_t m_bits = 0;
    };

    struct Node
    {
        Node *parent = nullptr;
        Link children[2]; ///< left, right
        double split = 0; ///< the coordinate of `value` on which the node splits
        Value value;

        /// The side on which a coordinate belongs, and the other one.
        Link &towards(double c) { return children[split > c ? 0 : 1]; }
        Link towards(double c) const { return children[split > c ? 0 : 1]; }
        Link away(double c) const { return children[split > c ? 1 : 0]; }
    };

    static int next(int d) { return d + 1 == K ? 0 : d + 1; }
    static int previous(int d) { return d == 0 ? K - 1 : d - 1; }

    Node *reserveNode();
    void makeRoom(Link &link, Node *parent, int d);
    static Link subtreeOf(Run &run, int first, int count);
    template <typename Search>
    static Link climb(Search &search, Link done, Node const *&node, int &d);
    template <typename Visit>
    static void collect(Link link, int d, LookupRegion<K> const &region, Visit &visit);

    static constexpr std::size_t blockSize = 128;

    Link m_root;
    std::uint64_t m_count = 0;
    std::vector<std::unique_ptr<Node[]>> m_blocks; ///< the nodes
    std::size_t m_usedNodes = 0;
};

template <int K, typename Value, typename Access>
LookupTree<K, Value, Access>::~LookupTree()
{
    if (m_root.isRun()) {
        Run::destroy(m_root.run());
    }
    // Every other run hangs on a node, and the nodes stand in rows: no walk, no recursion.
    for (std::size_t i = 0; i < m_usedNodes; ++i) {
        for (Link const child : m_blocks[i / blockSize][i % blockSize].children) {
            if (child.isRun()) {
                Run::destroy(child.run());
            }
        }
    }
}

template <int K, typename Value, typename Access>
void LookupTree<K, Value, Access>::insert(Value const &value)
{
    Value copy(value);
    Link *link = &m_root;
    Node *parent = nullptr;
    int level = 0;
    for (int d = 0;; d = next(d), ++level) {
        if (link->isNull()) {
            *link = Run::create(1);
        } else if (link->isRun() && link->run()->isFull()) {
            makeRoom(*link, parent, d);
        }
        if (link->isRun()) {
            m_count += link->run()->insert(std::move(copy), level, deepestLevel) ? 1 : 0;
            return;
        }
        if (level >= deepestLevel) {
            return;
        }
        parent = link->node();
        link = &parent->towards(Access::coordinate(copy, d));
    }
}

/// Puts a larger run into `link`, or, where there is none, a node with the run's root and two runs
/// with its subtrees.
template <int K, typename Value, typename Access>
void LookupTree<K, Value, Access>::makeRoom(Link &link, Node *parent, int d)
{
    Run *const run = link.run();
    if (run->capacity() < Run::maxCapacity) {
        Run *const larger = Run::create(run->count() + 1);
        larger->take(*run, 0, run->count());
        link = larger;
        Run::destroy(run);
        return;
    }
    Node *const node = reserveNode();
    int const left = run->leftCount();
    int const right = run->count() - 1 - left;
    std::unique_ptr<Run, decltype(&Run::destroy)> leftRun(left ? Run::create(left + 1) : nullptr,
                                                          &Run::destroy);
    std::unique_ptr<Run, decltype(&Run::destroy)> rightRun(right ? Run::create(right + 1) : nullptr,
                                                           &Run::destroy);
    if (left) {
        leftRun->take(*run, 1, left);
        node->children[0] = leftRun.release();
    }
    if (right) {
        rightRun->take(*run, 1 + left, right);
        node->children[1] = rightRun.release();
    }
    node->parent = parent;
    node->value = std::move(run->root());
    node->split = Access::coordinate(node->value, d);
    ++m_usedNodes;
    link = node;
    Run::destroy(run);
}

/// The next unused node. It counts as used only when the caller says so, after the last allocation
/// that can fail.
template <int K, typename Value, typename Access>
auto LookupTree<K, Value, Access>::reserveNode() -> Node *
{
    if (m_usedNodes == m_blocks.size() * blockSize) {
        m_blocks.push_back(std::make_unique<Node[]>(blockSize));
    }
    return &m_blocks[m_usedNodes / blockSize][m_usedNodes % blockSize];
}

template <int K, typename Value, typename Access>
template <typename Accept>
auto LookupTree<K, Value, Access>::findNearest(Point const &query, double maxDistance,
                                               Accept accept) const -> Nearest
{
    LookupSearch<K, Value, Access, Accept> search(query, maxDistance, accept);
    bool const queryIsFinite = search.queryIsFinite();
    Link link = m_root;
    Node const *node = nullptr;
    int d = 0;
    do {
        while (link.isNode()) {
            node = link.node();
            search.examine(node->value);
            link = node->towards(query[d]);
            d = next(d);
        }
        if (link.isRun()) {
            link.run()->findNearest(search, d, queryIsFinite);
        }
        link = climb(search, link, node, d);
    } while (node);
    return search.best ? Nearest{search.best, std::sqrt(search.maxSq)} : Nearest();
}

/// From `node`, whose subtree `done` has been searched, up to the first node whose other side must
/// be searched too, and that side; a null node when there is none.
template <int K, typename Value, typename Access>
template <typename Search>
auto LookupTree<K, Value, Access>::climb(Search &search, Link done, Node const *&node, int &d)
    -> Link
{
    while (node) {
        int const dimension = previous(d);
        Link const away = node->away(search.query[dimension]);
        // Two empty sides look the same here, and neither is worth a visit.
        if (!(done == away) && search.reachesPlane(node->split, dimension)) {
            return away;
        }
        done = node;
        node = node->parent;
        d = dimension;
    }
    return Link();
}

template <int K, typename Value, typename Access>
template <typename Visit>
void LookupTree<K, Value, Access>::collectInRegion(LookupRegion<K> const &region, Visit visit) const
{
    if (region.intersects(region)) { // not turned inside out
        collect(m_root, 0, region, visit);
    }
}

template <int K, typename Value, typename Access>
template <typename Visit>
void LookupTree<K, Value, Access>::collect(Link link, int d, LookupRegion<K> const &region,
                                           Visit &visit)
{
    if (link.isRun()) {
        link.run()->collectInRegion(region, d, visit);
    } else if (link.isNode()) {
        Node const &node = *link.node();
        if (region.template encloses<Access>(node.value)) {
            visit(node.value);
        }
        if (region.reachesBelow(node.split, d)) {
            collect(node.children[0], next(d), region, visit);
        }
        if (region.reachesAbove(node.split, d)) {
            collect(node.children[1], next(d), region, visit);
        }
    }
}
