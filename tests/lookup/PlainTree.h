#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <memory>
#include <vector>

/// The tree of the lookups in its plainest form: a node for every value, recursion, no pruning
/// beyond the rule of the plane. Its answers and their order are what the lookups must give.
template <std::size_t K>
class PlainTree
{
public:
    using Point = std::array<double, K>;

    struct Node
    {
        Point point;
        int id; ///< the caller's
        std::unique_ptr<Node> left;
        std::unique_ptr<Node> right;
    };

    std::size_t size() const { return m_size; }

    void insert(Point const &point, int id)
    {
        std::unique_ptr<Node> *link = &m_root;
        for (std::size_t level = 0; *link; ++level) {
            if (level > 1000) {
                return;
            }
            Node &node = **link;
            link = node.point[level % K] > point[level % K] ? &node.left : &node.right;
        }
        link->reset(new Node{point, id, nullptr, nullptr});
        ++m_size;
    }

    /// Null when nothing is found. `accept(node)` tells whether a node may be the answer.
    template <typename Accept>
    Node const *findNearest(Point const &query, double maxDistance, Accept accept,
                            double *distance = nullptr) const
    {
        double maxSq = maxDistance * maxDistance;
        Node const *best = nullptr;
        search(m_root.get(), 0, query, accept, maxSq, best);
        if (best && distance) {
            *distance = std::sqrt(maxSq);
        }
        return best;
    }
    Node const *findNearest(Point const &query, double maxDistance) const
    {
        return findNearest(query, maxDistance, [](Node const &) { return true; });
    }

    std::vector<Node const *> findWithinRange(Point const &centre, double radius) const
    {
        std::vector<Node const *> boxed;
        Bounds bounds;
        for (std::size_t i = 0; i < K; ++i) {
            bounds.low[i] = centre[i] - radius;
            bounds.high[i] = centre[i] + radius;
        }
        if (m_root) {
            collect(*m_root, 0, bounds, bounds, boxed);
        }
        std::vector<Node const *> kept;
        for (Node const *node : boxed) {
            if (radius * radius > squaredDistance(centre, node->point)) {
                kept.push_back(node);
            }
        }
        return kept;
    }

    static double squaredDistance(Point const &a, Point const &b)
    {
        double sum = 0.0;
        for (std::size_t i = 0; i < K; ++i) {
            sum += (a[i] - b[i]) * (a[i] - b[i]);
        }
        return sum;
    }

private:
    struct Bounds
    {
        Point low, high;
    };

    template <typename Accept>
    static void search(Node const *node, std::size_t level, Point const &query, Accept accept,
                       double &maxSq, Node const *&best)
    {
        if (!node) {
            return;
        }
        double const d2 = squaredDistance(query, node->point);
        if (accept(*node) && maxSq >= d2) {
            best = node;
            maxSq = d2;
        }
        std::size_t const d = level % K;
        bool const leftFirst = node->point[d] > query[d];
        Node const *const towards = leftFirst ? node->left.get() : node->right.get();
        Node const *const away = leftFirst ? node->right.get() : node->left.get();
        search(towards, level + 1, query, accept, maxSq, best);
        double const plane = query[d] - node->point[d];
        if (maxSq >= plane * plane) {
            search(away, level + 1, query, accept, maxSq, best);
        }
    }

    static bool intersect(Bounds const &a, Bounds const &b)
    {
        for (std::size_t i = 0; i < K; ++i) {
            if (a.low[i] > b.high[i] || b.low[i] > a.high[i]) {
                return false;
            }
        }
        return true;
    }

    static void collect(Node const &node, std::size_t level, Bounds const &bounds,
                        Bounds const &region, std::vector<Node const *> &out)
    {
        bool inside = true;
        for (std::size_t i = 0; i < K; ++i) {
            inside = inside && !(region.low[i] > node.point[i] || node.point[i] > region.high[i]);
        }
        if (inside) {
            out.push_back(&node);
        }
        std::size_t const d = level % K;
        Bounds below = bounds;
        below.high[d] = node.point[d];
        if (node.left && intersect(below, region)) {
            collect(*node.left, level + 1, below, region, out);
        }
        Bounds above = bounds;
        above.low[d] = node.point[d];
        if (node.right && intersect(above, region)) {
            collect(*node.right, level + 1, above, region, out);
        }
    }

    std::unique_ptr<Node> m_root;
    std::size_t m_size = 0;
};
