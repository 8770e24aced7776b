#pragma once

#include <OrvelMath/volume/BinTreeBuilder.h>

#include <cstddef>
#include <vector>

/// Ways to look into a builder's tree.
namespace inspection {

using Node = VolumeComparison::BinTreeNode<int>;

inline bool hasBoth(Node const &node)
{
    return node.children[0] && node.children[1];
}

template <typename Visit>
void forEachNode(Node const *top, Visit visit)
{
    std::vector<Node const *> open{top};
    while (!open.empty()) {
        Node const *const node = open.back();
        open.pop_back();
        visit(*node);
        if (hasBoth(*node)) {
            open.push_back(node->children[1]);
            open.push_back(node->children[0]);
        }
    }
}

/// Leaves in pre-order.
inline std::vector<Node *> leaves(VolumeComparison::BinTreeBuilder const &builder)
{
    std::vector<Node *> found;
    forEachNode(builder.root, [&](Node const &node) {
        if (!hasBoth(node)) {
            found.push_back(const_cast<Node *>(&node));
        }
    });
    return found;
}

inline std::size_t nodeCount(VolumeComparison::BinTreeBuilder const &builder)
{
    std::size_t count = 0;
    forEachNode(builder.root, [&](Node const &) { ++count; });
    return count;
}

inline double volume(Node const &node)
{
    vectorC3d<double> const d = node.bounds.second - node.bounds.first;
    return d.x() * d.y() * d.z();
}

/// Volumes of the leaves by kind. A leaf that is both boundary and outer counts as outer.
struct Volumes
{
    double outer = 0.0;
    double surface = 0.0;
    double enclosed = 0.0;
};

inline Volumes volumes(VolumeComparison::BinTreeBuilder const &builder)
{
    Volumes sums;
    for (Node const *leaf : leaves(builder)) {
        double &sum = (leaf->data & 8) != 0   ? sums.outer
                      : (leaf->data & 4) != 0 ? sums.surface
                                              : sums.enclosed;
        sum += volume(*leaf);
    }
    return sums;
}

} // namespace inspection
