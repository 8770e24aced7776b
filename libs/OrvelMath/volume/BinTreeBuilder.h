#pragma once

/// @file
/// The volume of a closed triangle mesh as a tree of halved boxes.

#include <OrvelCore/runtime/OrvelAllocatorT.h>
#include <OrvelCore/runtime/PArena.h>
#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/valueTypes.h>
#include <OrvelMath/geom3d/TriangleCuboidIntersector.h>
#include <OrvelMath/volume/BitVector.h>

#include <QtCore/QString>

#include <deque>
#include <stack>
#include <utility>

class QTextStream;

namespace VolumeComparison {

/// A cell of the tree. It lives in the builder's arena until the builder is destroyed.
template <typename Payload>
struct BinTreeNode
{
    /// Parts of `data`.
    enum Bits {
        axisBits = 3,    ///< 1, 2 or 3: the cell is split along x, y or z
        boundaryBit = 4, ///< a triangle passes through the cell
        outerBit = 8     ///< the cell was reached from outside
    };

    std::pair<vectorC3d<double>, vectorC3d<double>> bounds; ///< minimum corner, maximum corner
    BinTreeNode *parent;                                    ///< null at the root
    BinTreeNode *children[2]; ///< lower and upper half; both null at a leaf
    Payload data;             ///< see `Bits`

    int axis() const { return data & axisBits; }
    bool boundary() const { return (data & boundaryBit) != 0; }
    bool outer() const { return (data & outerBit) != 0; }
    bool isLeaf() const { return !children[0] || !children[1]; }
};

/// Turns a closed triangle mesh into a compact description of the volume that it occupies.
///
/// The box is halved along x, y, z in turn, only where triangles pass. A leaf that a triangle hits
/// is marked `boundary`; a flood fill from the minimum corner marks the leaves that can be reached
/// from outside `outer`; a leaf with neither mark is enclosed. The usual order of calls:
///
///     BinTreeBuilder builder(box, resolution, meshBox);
///     for (...)
///         builder.addTriangle(a, b, c);
///     builder.findOuterArea();
///     builder.condense();
///     SimpleBitVector description = builder.exportBitVector();
///
/// A stored description is read back by a builder of the same box. The tree is a binary space
/// partition with planes at the middle of each cell, as a k-d tree has them (Bentley, 1975).
///
/// The builder owns its arena, and the arena all nodes. Nodes are never freed one by one, also not
/// those that `condense` or an import cuts off. Both assignments copy the fields as they are, the
/// arena's too: both builders then name the same nodes, only one of them may be used and destroyed
/// from then on, and what the target owned before is lost. There is no copy construction and no
/// move construction.
///
/// No operation reports an error but `std::bad_alloc` when memory is exhausted. No operation
/// recurses: a tree may be as deep as memory allows. A builder belongs to one thread at a time;
/// separate builders may work in parallel. The fields may be read at any time; only the operations
/// keep them consistent.
class ORVELMATH_EXPORT BinTreeBuilder
{
public:
    /// An empty tree over @p bounds, refined around @p contentBounds.
    ///
    /// @param bounds         the whole box (model units), minimum corner first. Two trees can only
    ///                       be compared cell by cell if they share it.
    /// @param resolution     the smallest half extent that may still be split (model units): a cell
    ///                       is split along its own axis if half its extent there is at least this.
    ///                       A cell whose turn falls on a thin axis stays whole, however long it is
    ///                       along the other two.
    /// @param contentBounds  the box in which the mesh lies (model units). Triangles descend from
    ///                       the deepest cell that holds it, faces included; what lies outside that
    ///                       cell is not recorded.
    ///
    /// **Does not return** if @p resolution is above half the x extent of @p bounds, or if
    /// @p contentBounds fits into a cell that cannot be split. A @p resolution of 0, below 0 or NaN
    /// lets every cell be split: then the constructor, where @p contentBounds is a point, and
    /// `addTriangle` split cells until memory is exhausted. A NaN in @p contentBounds leaves the
    /// content node at the root.
    BinTreeBuilder(std::pair<vectorC3d<double>, vectorC3d<double>> const &bounds, double resolution,
                   std::pair<vectorC3d<double>, vectorC3d<double>> const &contentBounds);

    ~BinTreeBuilder();

    BinTreeBuilder &operator=(BinTreeBuilder const &other);
    BinTreeBuilder &operator=(BinTreeBuilder &&other);

    /// Refines the tree where the triangle @p a, @p b, @p c (model units) passes and marks the
    /// cells at full resolution that it meets, touching included. Call it before `findOuterArea`.
    ///
    /// The order of the corners doesn't matter; a triangle that is a segment or a point is recorded
    /// as that. A triangle with a NaN is not recorded, nor what lies outside of the content node.
    ///
    /// Linear in the number of cells met. With a resolution of 0, below 0 or NaN it splits cells
    /// until memory is exhausted and throws `std::bad_alloc`. A deep tree, as an import can make
    /// one, costs time but no stack. After an exception the tree can be used; part of the triangle
    /// may be recorded.
    ///
    /// Touching is decided in rounded arithmetic: a triangle that lies to the last bit in the plane
    /// between two cells may be missed by both, which lets the fill through. Choose `bounds` so
    /// that no face of the mesh lies in such a plane, or so that all halves are exact.
    void addTriangle(vectorC3d<double> const &a, vectorC3d<double> const &b,
                     vectorC3d<double> const &c);

    /// Marks every leaf that can be reached from the leaf at the minimum corner through faces,
    /// without passing a `boundary` leaf. The first leaf is marked whatever it holds. A gap in the
    /// mesh that is smaller than a cell still holds the interior; one that is larger empties it.
    /// A second call changes nothing.
    ///
    /// Two cells count as neighbours when their faces lie within half the resolution of each other,
    /// so the resolution must be the one that the tree was built with. Time is that of a descent
    /// from every ancestor of every outer leaf; memory is a stack of leaves on the heap.
    void findOuterArea();

    /// Merges pairs of leaves with equal marks, from the smallest cells up. Call it after
    /// `findOuterArea`: before it, all cells that no triangle hit are alike. A `boundary` cell and
    /// an enclosed one stay two, though they export alike. Linear in the number of cells.
    void condense();

    /// Writes a line "x,y,z,0,0,0" with the minimum corner of each leaf that is not `outer`, lower
    /// halves first, numbers with six significant digits. An existing file is replaced. If the file
    /// cannot be opened, nothing is written and nothing reported. Linear in the number of cells.
    ///
    /// @param fileName  path of the file, absolute or relative to the working folder
    void dumpXYZ(QString const &fileName);

    /// The tree as bits, in the format that BitVector.h describes. `boundary` and enclosed cells
    /// read alike: 1, for a cell that is not `outer`. Linear in the number of cells.
    SimpleBitVector exportBitVector() const;

    /// Rebuilds the tree from bit 0 on. Box and resolution are this builder's; the cells may be
    /// finer than its resolution. Leaves come without `boundary`.
    ///
    /// Adds to the tree as it stands: new children replace those of the root, but a stream of one
    /// leaf only sets the root's `outer` and leaves its children in place. `contentNode` is not
    /// updated, so triangles added afterwards do not reach the imported tree.
    ///
    /// **The length is not checked.** A truncated or hostile stream is read beyond its end; ask
    /// `isWholeTree` first. Bits are counted in a signed 32-bit number: streams of 2^31 bits or
    /// more cannot be read. A whole stream of n bits makes about 2 n / 3 nodes of 80 bytes. No
    /// recursion, so a deep tree costs no stack.
    void importBitVector(SimpleBitVector const &bits);

    /// As `importBitVector`, from bits that someone else owns.
    void importBitView(BitView const &bits);

    std::pair<vectorC3d<double>, vectorC3d<double>> bounds; ///< minimum corner, maximum corner
    double resolution;             ///< the smallest half extent that may still be split
    BinTreeNode<int> *root;        ///< never null
    BinTreeNode<int> *contentNode; ///< the deepest cell found to hold `contentBounds`, or null
    std::pair<vectorC3d<double>, vectorC3d<double>> contentBounds;
    PArena arena; ///< owns all nodes

private:
    using Frontier =
        std::stack<BinTreeNode<int> *,
                   std::deque<BinTreeNode<int> *, OrvelAllocatorT<BinTreeNode<int> *>>>;

    void createRoot();
    void createNode(BinTreeNode<int> *parent, int side);
    bool getOrCreateChildren(BinTreeNode<int> *node);
    void addTriangleRec(MatUtil::TriangleCuboidIntersector const &intersector,
                        BinTreeNode<int> *node, int axis,
                        MatUtil::TriangleCuboidIntersectionType previous);
    bool areNeighbors(BinTreeNode<int> *p, BinTreeNode<int> *q) const;
    void handleNode(BinTreeNode<int> *n, BinTreeNode<int> *m, Frontier &frontier);
    void condenseRec(BinTreeNode<int> *node);
    void dumpXYZRec(QTextStream &stream, BinTreeNode<int> *node);
};

} // namespace VolumeComparison
