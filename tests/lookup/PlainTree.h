#pragma once

#include <OrvelMath/lookup/LookupDefinition_p.h>

#include <cstddef>
#include <cstdint>
#include <memory>

/// The tree of the lookups in its plainest form: a node for every value, linked to its children.
/// What it answers is the shipped definition, with every shortcut off.
template <int K>
class PlainTree
{
public:
    using Point = LookupPoint<K>;
    using Nearest = LookupNearest<K, int>; ///< the payload is the caller's id

    struct Node
    {
        Point point;
        int id;
        std::unique_ptr<Node> left;
        std::unique_ptr<Node> right;
    };

    class Subtree
    {
    public:
        explicit Subtree(Node const *node)
            : m_node(node)
        {
        }
        bool isEmpty() const { return m_node == nullptr; }
        Point point() const { return m_node->point; }
        int const &payload() const { return m_node->id; }
        Subtree left() const { return Subtree(m_node->left.get()); }
        Subtree right() const { return Subtree(m_node->right.get()); }

    private:
        Node const *m_node;
    };

    std::uint64_t size() const { return m_size; }
    Subtree root() const { return Subtree(m_root.get()); }

    void insert(Point const &point, int id)
    {
        std::unique_ptr<Node> *link = &m_root;
        for (int level = 0; *link; ++level) {
            if (level > 1000) {
                return;
            }
            Node &node = **link;
            link = node.point[level % K] > point[level % K] ? &node.left : &node.right;
        }
        link->reset(new Node{point, id, nullptr, nullptr});
        ++m_size;
    }

    template <typename Accept>
    Nearest findNearest(Point const &query, double maxDistance, Accept accept) const
    {
        return findNearestAsDefined<Nearest>(root(), query, maxDistance, accept);
    }

    template <typename Visit>
    void collectInDisc(Point const &centre, double radius, Visit visit) const
    {
        collectInDiscAsDefined(root(), centre, radius, visit);
    }

private:
    std::unique_ptr<Node> m_root;
    std::uint64_t m_size = 0;
};
