#pragma once

/// @file
/// Ways through a tree of a BinTreeBuilder that need no recursion.

#include <OrvelMath/volume/BinTreeBuilder.h>

#include <QtCore/QtGlobal>

#include <vector>

namespace VolumeComparison {

/// The node that follows the whole subtree of @p node in pre-order, within the subtree of @p top;
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

/// One bit for every cell on the way from a cell down to another. The last 64 stand in a word, so
/// that memory is taken for deeper trees only.
class BinTreePath
{
public:
    void descend(bool bit)
    {
        if (m_depth % 64 == 0 && m_depth != 0) {
            m_above.push_back(m_bits);
        }
        m_bits = m_bits << 1 | (bit ? 1U : 0U);
        ++m_depth;
    }

    /// Takes the bit of the last cell back.
    bool ascend()
    {
        Q_ASSERT(m_depth > 0);
        bool const bit = (m_bits & 1U) != 0;
        m_bits >>= 1;
        --m_depth;
        if (m_depth % 64 == 0 && m_depth != 0) {
            m_bits = m_above.back();
            m_above.pop_back();
        }
        return bit;
    }

private:
    quint64 m_bits = 0;
    quint64 m_depth = 0;
    std::vector<quint64> m_above; ///< full words, the topmost cells first
};

} // namespace VolumeComparison
