#pragma once

#include <OrvelMath/volume/BinTreeBuilder.h>

namespace VolumeComparison {

/// The node that follows the whole subtree of \p node in pre-order, within the subtree of \p top;
/// null when there is none. With it a tree is walked by its parent pointers: no stack is needed,
/// however deep an imported tree may be.
inline BinTreeNode<int> *nextAfterSubtree(BinTreeNode<int> *node, BinTreeNode<int> const *top)
{
    while (node != top) {
        BinTreeNode<int> *const parent = node->parent;
        if (node == parent->children[0]) {
            return parent->children[1];
        }
        node = parent;
    }
    return nullptr;
}

} // namespace VolumeComparison
