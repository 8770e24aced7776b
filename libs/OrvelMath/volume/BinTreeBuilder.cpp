#include <OrvelMath/volume/BinTreeBuilder.h>

#include <OrvelMath/volume/BinTreeWalk_p.h>

#include <cstring>
#include <new>
#include <thread>

namespace VolumeComparison {

namespace {

using Box = std::pair<vectorC3d<double>, vectorC3d<double>>;

// A split axis that tells the intersector to test every axis.
constexpr int unknownHistory = 3;

// Closed limits: a box may share faces with the cell.
bool cellHolds(Box const &cell, Box const &box)
{
    for (int q = 0; q < 3; ++q) {
        if (!(cell.first[q] <= box.first[q] && cell.second[q] >= box.second[q])) {
            return false;
        }
    }
    return true;
}

} // namespace

BinTreeBuilder::BinTreeBuilder(Box const &wholeBox, double smallestHalfExtent, Box const &meshBox)
    : bounds(wholeBox)
    , resolution(smallestHalfExtent)
    , root(nullptr)
    , contentNode(nullptr)
    , contentBounds(meshBox)
{
    createRoot();
    BinTreeNode<int> *node = root;
    for (;;) {
        // The caller is bound to give boxes with which this loop ends.
        while (!getOrCreateChildren(node)) {
            std::this_thread::yield();
        }
        if (cellHolds(node->children[0]->bounds, contentBounds)) {
            node = node->children[0];
        } else if (cellHolds(node->children[1]->bounds, contentBounds)) {
            node = node->children[1];
        } else {
            contentNode = node;
            return;
        }
    }
}

BinTreeBuilder::~BinTreeBuilder() = default;

BinTreeBuilder &BinTreeBuilder::operator=(BinTreeBuilder const &other)
{
    bounds = other.bounds;
    resolution = other.resolution;
    root = other.root;
    contentNode = other.contentNode;
    contentBounds = other.contentBounds;
    // Ownership of the nodes is shared, not moved: the arena has no copy of its own to offer.
    std::memmove(static_cast<void *>(&arena), static_cast<void const *>(&other.arena),
                 sizeof(PArena));
    return *this;
}

BinTreeBuilder &BinTreeBuilder::operator=(BinTreeBuilder &&other)
{
    return *this = static_cast<BinTreeBuilder const &>(other);
}

void BinTreeBuilder::createRoot()
{
    root = new (arena.allocateAligned(sizeof(BinTreeNode<int>)))
        BinTreeNode<int>{bounds, nullptr, {nullptr, nullptr}, 1};
}

void BinTreeBuilder::createNode(BinTreeNode<int> *parent, int side)
{
    int const axis = parent->axis();
    int const a = axis - 1;
    double const m = (parent->bounds.first[a] + parent->bounds.second[a]) * 0.5;
    BinTreeNode<int> *const node = new (arena.allocateAligned(sizeof(BinTreeNode<int>)))
        BinTreeNode<int>{parent->bounds, parent, {nullptr, nullptr}, axis == 3 ? 1 : axis + 1};
    if (side == 0) {
        node->bounds.second[a] = m;
    } else {
        node->bounds.first[a] = m;
    }
    parent->children[side] = node;
}

bool BinTreeBuilder::getOrCreateChildren(BinTreeNode<int> *node)
{
    if (node->children[0] && node->children[1]) {
        return true;
    }
    int const a = node->axis() - 1;
    if (resolution > (node->bounds.second[a] - node->bounds.first[a]) * 0.5) {
        return false;
    }
    createNode(node, 0);
    createNode(node, 1);
    return true;
}

void BinTreeBuilder::addTriangle(vectorC3d<double> const &a, vectorC3d<double> const &b,
                                 vectorC3d<double> const &c)
{
    BinTreeNode<int> *const top = contentNode ? contentNode : root;
    MatUtil::TriangleCuboidIntersector const intersector(a, b, c);
    MatUtil::TriangleCuboidIntersectionType const type = intersector.intersect(
        top->bounds.first, top->bounds.second, unknownHistory, MatUtil::TriangleCuboidDisjoint);
    if (type == MatUtil::TriangleCuboidDisjoint) {
        return;
    }
    if (!getOrCreateChildren(top)) {
        top->data |= BinTreeNode<int>::boundaryBit;
        return;
    }
    int const axis = top->axis() - 1;
    addTriangleRec(intersector, top->children[0], axis, type);
    addTriangleRec(intersector, top->children[1], axis, type);
}

// Goes through the subtree in pre-order by parent pointers, so that depth costs no stack: an
// imported tree may be a chain of a million cells. `previous` is always what the parent of `node`
// got; on the way down the path keeps it for the way up.
void BinTreeBuilder::addTriangleRec(MatUtil::TriangleCuboidIntersector const &intersector,
                                    BinTreeNode<int> *top, int axis,
                                    MatUtil::TriangleCuboidIntersectionType previous)
{
    BinTreePath path;
    BinTreeNode<int> *node = top;
    for (;;) {
        MatUtil::TriangleCuboidIntersectionType const type =
            intersector.intersect(node->bounds.first, node->bounds.second, axis, previous);
        if (type != MatUtil::TriangleCuboidDisjoint) {
            if (getOrCreateChildren(node)) {
                path.descend(previous == MatUtil::TriangleCuboidContainsCentroid);
                axis = node->axis() - 1;
                previous = type;
                node = node->children[0];
                continue;
            }
            node->data |= BinTreeNode<int>::boundaryBit;
        }
        while (node != top && node == node->parent->children[1]) {
            node = node->parent;
            previous = path.ascend() ? MatUtil::TriangleCuboidContainsCentroid
                                     : MatUtil::TriangleCuboidOverlap;
        }
        if (node == top) {
            return;
        }
        axis = node->parent->axis() - 1;
        node = node->parent->children[1];
    }
}

} // namespace VolumeComparison
