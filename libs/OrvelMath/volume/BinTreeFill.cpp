#include <OrvelMath/volume/BinTreeWalk_p.h>

namespace VolumeComparison {

namespace {

enum class SpanRelation { Apart, Touching, Overlap };

// How two intervals of one axis lie to each other, within a band of `band` around touching.
SpanRelation relateSpans(double pMin, double pMax, double qMin, double qMax, double band)
{
    bool const pBeginsLater = pMin > qMin;
    double const lo = pBeginsLater ? pMin : qMin;
    double const hi = pBeginsLater ? qMax : pMax;
    if (lo - band > hi) {
        return SpanRelation::Apart;
    }
    return hi > lo + band ? SpanRelation::Overlap : SpanRelation::Touching;
}

bool isMarked(BinTreeNode<int> const *node)
{
    return node->boundary() || node->outer();
}

} // namespace

// Cells are neighbours if they share a part of a face: two axes overlap, one touches. The band is
// half the resolution, below the extent of any cell.
bool BinTreeBuilder::areNeighbors(BinTreeNode<int> *p, BinTreeNode<int> *q) const
{
    double const band = resolution * 0.5;
    int overlaps = 0;
    for (int k = 0; k < 3; ++k) {
        switch (relateSpans(p->bounds.first[k], p->bounds.second[k], q->bounds.first[k],
                            q->bounds.second[k], band)) {
        case SpanRelation::Apart:
            return false;
        case SpanRelation::Touching:
            break;
        case SpanRelation::Overlap:
            ++overlaps;
            break;
        }
    }
    return overlaps == 2;
}

void BinTreeBuilder::findOuterArea()
{
    BinTreeNode<int> *corner = root;
    while (!corner->isLeaf()) {
        corner = corner->children[0];
    }
    corner->data |= BinTreeNode<int>::outerBit;

    Frontier frontier;
    frontier.push(corner);
    while (!frontier.empty()) {
        BinTreeNode<int> *const leaf = frontier.top();
        frontier.pop();
        // Every cell outside the leaf lies in the sibling of one of its ancestors or in its own.
        for (BinTreeNode<int> *cell = leaf; cell->parent; cell = cell->parent) {
            BinTreeNode<int> *const parent = cell->parent;
            handleNode(leaf, parent->children[cell == parent->children[0] ? 1 : 0], frontier);
        }
    }
}

// Marks and pushes the leaves of the subtree of m that share a part of a face with n.
void BinTreeBuilder::handleNode(BinTreeNode<int> *n, BinTreeNode<int> *m, Frontier &frontier)
{
    for (BinTreeNode<int> *cell = m; cell;) {
        bool const reached = areNeighbors(n, cell) && !isMarked(cell);
        if (reached && !cell->isLeaf()) {
            cell = cell->children[0];
            continue;
        }
        if (reached) {
            cell->data |= BinTreeNode<int>::outerBit;
            frontier.push(cell);
        }
        cell = nextAfterSubtree(cell, m);
    }
}

} // namespace VolumeComparison
