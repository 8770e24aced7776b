#pragma once

#include <OrvelMath/lookup/LookupRegion_p.h>
#include <OrvelMath/lookup/LookupRun_p.h>
#include <OrvelMath/lookup/LookupSearch_p.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

/// A k-d tree with one value in every node, built by insertion only (Bentley, 1975). A value is a
/// point of K dimensions and a payload, which may be an empty class.
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
/// Concurrent reads are safe, since all state of a search is in the call; a writer needs exclusive
/// use.
template <int K, typename Payload>
class LookupTree
{
public:
    static constexpr int deepestLevel = 1001;

    using Point = LookupPoint<K>;

    /// What a search found; without a payload when it found nothing.
    struct Nearest
    {
        Point point = {};
        Payload const *payload = nullptr;
        double distance = 0.0;
    };

    LookupTree() = default;
    LookupTree(LookupTree const &) = delete;
    LookupTree &operator=(LookupTree const &) = delete;
    ~LookupTree();

    /// Number of stored values.
    std::uint64_t size() const { return m_count; }

    /// Stores a value, or nothing below the deepest level. When memory is exhausted it throws and
    /// the tree stays as it was.
    void insert(Point const &point, Payload payload);

    /// The value nearest to `query` among those whose point `accept` allows and that are at most
    /// `maxDistance` away.
    ///
    /// Of several at the same distance it is the last one in the order of the search: a node comes
    /// before its subtrees, and the subtree on the query's side of the node before the other one.
    template <typename Accept>
    Nearest findNearest(Point const &query, double maxDistance, Accept accept) const;

    /// Calls `visit(point, payload)` with every value inside the closed box, in pre-order: a node,
    /// its left subtree, its right subtree. A point with a NaN is outside of no box and may come
    /// too; a distance measured to it tells it apart.
    template <typename Visit>
    void collectInRegion(LookupRegion<K> const &region, Visit visit) const;

    /// Calls `visit(point, payload, squared distance)` with every value in the open disc or ball,
    /// in pre-order: those of its box whose squared distance is below the square of the radius.
    template <typename Visit>
    void collectInDisc(Point const &centre, double radius, Visit visit) const;

private:
    using Run = LookupRun<K, Payload>;
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
        bool isNull() const { return m_bits == runBit; }
        bool isRun() const { return !isNode() && !isNull(); }
        bool isNode() const { return (m_bits & runBit) == 0; }
        Node *node() const { return reinterpret_cast<Node *>(m_bits); }
        Run *run() const { return reinterpret_cast<Run *>(m_bits & ~runBit); }
        bool operator==(Link other) const { return m_bits == other.m_bits; }

    private:
        static constexpr std::uintptr_t runBit = 1;
        std::uintptr_t m_bits = runBit;
    };

    /// In one cache line.
    struct alignas(64) Node
    {
        Node *parent = nullptr;
        Link children[2]; ///< left, right; never both empty
        double split = 0; ///< the coordinate of `point` on which the node splits
        Point point = {};
        Payload payload = {};

        /// The side on which a coordinate belongs, and the other one.
        Link &towards(double c) { return children[split > c ? 0 : 1]; }
        Link towards(double c) const { return children[split > c ? 0 : 1]; }
        Link away(double c) const { return children[split > c ? 1 : 0]; }
    };

    /// Where a search stands: at a link, below a node, where the splits are on dimension d.
    struct Place
    {
        Link link;
        Node const *parent;
        int d;
    };

    static int next(int d) { return d + 1 == K ? 0 : d + 1; }
    static int previous(int d) { return d == 0 ? K - 1 : d - 1; }

    Node *reserveNode();
    void makeRoom(Link &link, Node *parent, int d);
    template <typename Search>
    static void descend(Search const &search, Place &place);
    template <typename Search>
    static void climb(Search &search, Place &place, Node const *&bestNode);
    static bool isBelow(Node const *node, Node const *ancestor);
    template <typename Visit>
    static void collect(Link link, int d, LookupRegion<K> const &region, Visit &visit);

    static constexpr std::size_t blockSize = 128;

    Link m_root;
    std::uint64_t m_count = 0;
    std::vector<std::unique_ptr<Node[]>> m_blocks; ///< the nodes
    std::size_t m_usedNodes = 0;
};

template <int K, typename Payload>
LookupTree<K, Payload>::~LookupTree()
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

template <int K, typename Payload>
void LookupTree<K, Payload>::insert(Point const &point, Payload payload)
{
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
            bool const stored = link->run()->insert(point, std::move(payload), level, deepestLevel);
            m_count += stored ? 1 : 0;
            return;
        }
        if (level >= deepestLevel) {
            return;
        }
        parent = link->node();
        link = &parent->towards(point[d]);
    }
}

/// Puts a larger run into `link`, or, where there is none, a node with the run's root and two runs
/// with its subtrees.
template <int K, typename Payload>
void LookupTree<K, Payload>::makeRoom(Link &link, Node *parent, int d)
{
    Run *const run = link.run();
    if (run->capacity() < Run::maxCapacity) {
        Run *const larger = Run::create(run->count() + 1);
        larger->take(*run, 0, run->count());
        link = larger;
        Run::destroy(run);
        return;
    }
    using OwnedRun = std::unique_ptr<Run, decltype(&Run::destroy)>;
    int const left = run->leftCount();
    int const right = run->count() - 1 - left;
    Node *const node = reserveNode();
    OwnedRun leftRun(left > 0 ? Run::create(left + 1) : nullptr, &Run::destroy);
    OwnedRun rightRun(right > 0 ? Run::create(right + 1) : nullptr, &Run::destroy);
    if (leftRun) {
        leftRun->take(*run, 1, left);
        node->children[0] = leftRun.release();
    }
    if (rightRun) {
        rightRun->take(*run, 1 + left, right);
        node->children[1] = rightRun.release();
    }
    node->parent = parent;
    node->point = run->point(0);
    node->payload = run->takePayload(0);
    node->split = node->point[d];
    ++m_usedNodes;
    link = node;
    Run::destroy(run);
}

/// The next unused node. It counts as used only when the caller says so, after the last allocation
/// that can fail.
template <int K, typename Payload>
auto LookupTree<K, Payload>::reserveNode() -> Node *
{
    if (m_usedNodes == m_blocks.size() * blockSize) {
        m_blocks.push_back(std::make_unique<Node[]>(blockSize));
    }
    return &m_blocks[m_usedNodes / blockSize][m_usedNodes % blockSize];
}

template <int K, typename Payload>
template <typename Accept>
auto LookupTree<K, Payload>::findNearest(Point const &query, double maxDistance,
                                         Accept accept) const -> Nearest
{
    LookupSearch<K, Payload, Accept> search(query, maxDistance, accept);
    Place place = {m_root, nullptr, 0};
    Node const *bestNode = nullptr; // holds the best value, or the run with it
    do {
        descend(search, place);
        if (place.link.isRun() && place.link.run()->findNearest(search, place.d)) {
            bestNode = place.parent;
        }
        climb(search, place, bestNode);
    } while (place.parent);
    if (!search.found) {
        return Nearest();
    }
    return {search.bestPoint, search.bestPayload, std::sqrt(search.maxSq)};
}

/// Down the side of the query to a run, or to where nothing hangs. Both children are fetched while
/// the comparison is still under way, which is most of the cost of a level.
template <int K, typename Payload>
template <typename Search>
void LookupTree<K, Payload>::descend(Search const &search, Place &place)
{
    while (place.link.isNode()) {
        place.parent = place.link.node();
        __builtin_prefetch(place.parent->children[0].node());
        __builtin_prefetch(place.parent->children[1].node());
        place.link = place.parent->towards(search.query[place.d]);
        place.d = next(place.d);
    }
}

/// From a subtree that has been searched up to the first node whose other side must be searched
/// too, and to that side; to no parent when there is none.
///
/// A node is examined on the way up, when its first side is done and only if its plane is near
/// enough, for no value of its own is nearer than that. It comes before that side in the order of
/// the search, so a tie with a value from there is lost.
template <int K, typename Payload>
template <typename Search>
void LookupTree<K, Payload>::climb(Search &search, Place &place, Node const *&bestNode)
{
    while (place.parent) {
        Node const *const node = place.parent;
        int const d = previous(place.d);
        Link const away = node->away(search.query[d]);
        if (!(place.link == away) && search.reachesPlane(node->split, d)) {
            bool const tied = search.found && search.squaredDistance(node->point) == search.maxSq;
            if (!(tied && isBelow(bestNode, node)) && search.examine(node->point, node->payload)) {
                bestNode = node;
            }
            place.link = away;
            return;
        }
        place = {node, node->parent, d};
    }
}

template <int K, typename Payload>
bool LookupTree<K, Payload>::isBelow(Node const *node, Node const *ancestor)
{
    while (node && node != ancestor) {
        node = node->parent;
    }
    return node != nullptr;
}

template <int K, typename Payload>
template <typename Visit>
void LookupTree<K, Payload>::collectInRegion(LookupRegion<K> const &region, Visit visit) const
{
    if (region.intersects(region)) { // not turned inside out
        collect(m_root, 0, region, visit);
    }
}

template <int K, typename Payload>
template <typename Visit>
void LookupTree<K, Payload>::collectInDisc(Point const &centre, double radius, Visit visit) const
{
    double const radiusSq = radius * radius;
    collectInRegion(LookupRegion<K>::around(centre, radius),
                    [&](Point const &p, Payload const &payload) {
                        double const d2 = squaredDistance(centre, p);
                        if (radiusSq > d2) {
                            visit(p, payload, d2);
                        }
                    });
}

template <int K, typename Payload>
template <typename Visit>
void LookupTree<K, Payload>::collect(Link link, int d, LookupRegion<K> const &region, Visit &visit)
{
    if (link.isRun()) {
        link.run()->collectInRegion(region, visit);
    } else if (link.isNode()) {
        Node const &node = *link.node();
        if (region.encloses(node.point)) {
            visit(node.point, node.payload);
        }
        if (region.reachesBelow(node.split, d)) {
            collect(node.children[0], next(d), region, visit);
        }
        if (region.reachesAbove(node.split, d)) {
            collect(node.children[1], next(d), region, visit);
        }
    }
}
