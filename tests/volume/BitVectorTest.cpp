#include "ClosedMeshes.h"
#include "TreeInspection.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <cstring>
#include <initializer_list>
#include <random>

using namespace VolumeComparison;
using inspection::leaves;
using inspection::Node;
using meshes::Box;
using meshes::Vector;

namespace {

Box const octant(Vector(0, 0, 0), Vector(8, 8, 8));
Box const middle(Vector(1, 1, 1), Vector(7, 7, 7));

SimpleBitVector bitsOf(std::initializer_list<int> values)
{
    SimpleBitVector bits;
    for (int value : values) {
        bits.append(value != 0);
    }
    return bits;
}

bool bitAt(SimpleBitVector const &bits, quint64 i)
{
    return (bits.bytes[i / 8] >> (i % 8) & 1) != 0;
}

// A random tree: inner nodes with the given odds while the leaves stay below a limit.
void appendRandomTree(SimpleBitVector &bits, std::mt19937 &random, unsigned oddsOf8, int &left)
{
    if (left > 0 && random() % 8 < oddsOf8) {
        --left;
        bits.append(true);
        appendRandomTree(bits, random, oddsOf8, left);
        appendRandomTree(bits, random, oddsOf8, left);
    } else {
        bits.append(false);
        bits.append(random() % 2 != 0);
    }
}

SimpleBitVector torusBits(bool condensed, double resolution = 0.125)
{
    BinTreeBuilder builder(octant, resolution, middle);
    meshes::addTo(builder, meshes::torus(Vector(4, 4, 4), 2.0, 0.8, 24));
    builder.findOuterArea();
    if (condensed) {
        builder.condense();
    }
    return builder.exportBitVector();
}

} // namespace

TEST(SimpleBitVector, StartsEmptyAndFillsBytesFromTheLowEnd)
{
    SimpleBitVector bits;
    EXPECT_EQ(bits.bitCount, 0U);
    EXPECT_TRUE(bits.bytes.empty());
    bits.append(true);
    EXPECT_EQ(bits.bitCount, 1U);
    ASSERT_EQ(bits.bytes.size(), 1U);
    EXPECT_EQ(bits.bytes[0], 1);
    for (int i = 1; i < 8; ++i) {
        bits.append(i == 7);
    }
    EXPECT_EQ(bits.bytes.size(), 1U);
    EXPECT_EQ(bits.bytes[0], 129);
    bits.append(false);
    EXPECT_EQ(bits.bytes.size(), 2U);
    EXPECT_EQ(bits.bytes[1], 0);
    bits.append(true);
    EXPECT_EQ(bits.bytes[1], 2);
    EXPECT_EQ(bits.bitCount, 10U);
}

TEST(SimpleBitVector, CopiesAreIndependent)
{
    SimpleBitVector first = bitsOf({1, 0, 1});
    SimpleBitVector const second = first;
    first.append(true);
    EXPECT_EQ(second.bitCount, 3U);
    EXPECT_EQ(second.bytes[0], 5);
    EXPECT_EQ(first.bytes[0], 13);
}

TEST(SimpleBitVector, MovedFromIsEmptyAndCanBeFilledAgain)
{
    SimpleBitVector source = bitsOf({1, 0, 1});
    SimpleBitVector const target = std::move(source);
    EXPECT_EQ(3U, target.bitCount);
    EXPECT_EQ(5, target.bytes.at(0));
    EXPECT_EQ(0U, source.bitCount);
    EXPECT_TRUE(source.bytes.empty());
    source.append(true);
    EXPECT_EQ(1U, source.bitCount);
    EXPECT_EQ(1, source.bytes.at(0));

    SimpleBitVector assigned = bitsOf({1, 1, 1, 1, 1, 1, 1, 1, 1});
    assigned = std::move(source);
    EXPECT_EQ(1U, assigned.bitCount);
    EXPECT_EQ(1U, assigned.bytes.size());
    EXPECT_EQ(0U, source.bitCount);
    EXPECT_TRUE(source.bytes.empty());
}

TEST(SimpleBitVector, MovedToItselfStaysAsItWas)
{
    SimpleBitVector bits = bitsOf({1, 0, 1});
    SimpleBitVector &alias = bits;
    bits = std::move(alias);
    EXPECT_EQ(3U, bits.bitCount);
    EXPECT_EQ(5, bits.bytes.at(0));
}

TEST(SimpleBitVector, IsMadeFromBytesAndACount)
{
    SimpleBitVector const bits{{5, 1}, 9};
    EXPECT_EQ(9U, bits.bitCount);
    EXPECT_EQ(2U, bits.bytes.size());
    EXPECT_TRUE(bitAt(bits, 8));
}

TEST(BitFormat, LowerLeafOutsideAndUpperLeafInside)
{
    BinTreeBuilder builder(octant, 1.0, middle);
    builder.root->children[0]->data |= Node::outerBit;
    SimpleBitVector const bits = builder.exportBitVector();
    EXPECT_EQ(bits.bitCount, 5U);
    ASSERT_EQ(bits.bytes.size(), 1U);
    EXPECT_EQ(bits.bytes[0], 17);
}

TEST(BitFormat, TreeOfOneLeaf)
{
    BinTreeBuilder builder(octant, 1.0, middle);
    builder.condense();
    ASSERT_TRUE(builder.root->isLeaf());
    SimpleBitVector bits = builder.exportBitVector();
    EXPECT_EQ(bits.bitCount, 2U);
    ASSERT_EQ(bits.bytes.size(), 1U);
    EXPECT_EQ(bits.bytes[0], 2);
    builder.findOuterArea();
    bits = builder.exportBitVector();
    EXPECT_EQ(bits.bitCount, 2U);
    EXPECT_EQ(bits.bytes[0], 0);
}

TEST(BitFormat, NodeWithOneChildCountsAsLeaf)
{
    BinTreeBuilder builder(octant, 1.0, middle);
    builder.root->children[1] = nullptr;
    SimpleBitVector const bits = builder.exportBitVector();
    EXPECT_EQ(bits.bitCount, 2U);
    EXPECT_EQ(bits.bytes[0], 2);
}

TEST(BitFormat, BeforeTheFillEveryStateBitIsOne)
{
    BinTreeBuilder builder(octant, 0.5, middle);
    meshes::addTo(builder, meshes::sphere(Vector(4, 4, 4), 2.0, 8));
    SimpleBitVector const bits = builder.exportBitVector();
    quint64 const count = leaves(builder).size();
    EXPECT_EQ(bits.bitCount, 3 * count - 1);
    quint64 states = 0;
    for (quint64 i = 0; i < bits.bitCount; ++i) {
        if (!bitAt(bits, i)) {
            ++i;
            ASSERT_TRUE(bitAt(bits, i));
            ++states;
        }
    }
    EXPECT_EQ(states, count);
}

TEST(BitFormat, CondensedTreeIsShorter)
{
    EXPECT_LT(torusBits(true).bitCount, torusBits(false).bitCount);
}

TEST(BitFormat, ThreeBitsALeafLessOne)
{
    BinTreeBuilder builder(octant, 0.25, middle);
    meshes::addTo(builder, meshes::torus(Vector(4, 4, 4), 2.0, 0.8, 24));
    builder.findOuterArea();
    builder.condense();
    SimpleBitVector const bits = builder.exportBitVector();
    EXPECT_EQ(bits.bitCount, 3 * leaves(builder).size() - 1);
    EXPECT_EQ(bits.bytes.size(), (bits.bitCount + 7) / 8);
    if (bits.bitCount % 8 != 0) {
        EXPECT_EQ(bits.bytes.back() >> (bits.bitCount % 8), 0);
    }
}

TEST(BitImport, ExportImportExportGivesTheSameBits)
{
    for (bool condensed : {false, true}) {
        SimpleBitVector const first = torusBits(condensed);
        BinTreeBuilder reader(octant, 0.125, middle);
        reader.importBitVector(first);
        SimpleBitVector const second = reader.exportBitVector();
        EXPECT_EQ(first.bytes, second.bytes);
        EXPECT_EQ(first.bitCount, second.bitCount);

        BinTreeBuilder viewer(octant, 0.125, middle);
        viewer.importBitView(BitView{first.bytes.data()});
        EXPECT_EQ(viewer.exportBitVector().bytes, first.bytes);
    }
}

TEST(BitImport, VectorAndViewLeadWithThePointerToTheirBytes)
{
    SimpleBitVector const bits = bitsOf({1, 0, 1});
    unsigned char const *first = nullptr;
    std::memcpy(&first, static_cast<void const *>(&bits), sizeof first);
    EXPECT_EQ(first, bits.bytes.data());
    BitView const view{bits.bytes.data()};
    std::memcpy(&first, static_cast<void const *>(&view), sizeof first);
    EXPECT_EQ(first, bits.bytes.data());
}

TEST(BitImport, RebuildsCellsAndFlags)
{
    // Lower half outside; upper half split along y, its lower part inside, its upper part split
    // along z into outside and inside.
    SimpleBitVector const bits = bitsOf({1, 0, 0, 1, 0, 1, 1, 0, 0, 0, 1});
    BinTreeBuilder builder(octant, 4.0, middle);
    builder.importBitVector(bits);
    std::vector<Node *> const found = leaves(builder);
    ASSERT_EQ(found.size(), 4U);
    EXPECT_EQ(found[0]->bounds, Box(Vector(0, 0, 0), Vector(4, 8, 8)));
    EXPECT_EQ(found[1]->bounds, Box(Vector(4, 0, 0), Vector(8, 4, 8)));
    EXPECT_EQ(found[2]->bounds, Box(Vector(4, 4, 0), Vector(8, 8, 4)));
    EXPECT_EQ(found[3]->bounds, Box(Vector(4, 4, 4), Vector(8, 8, 8)));
    EXPECT_EQ(found[0]->data, 2 | Node::outerBit);
    EXPECT_EQ(found[1]->data, 3);
    EXPECT_EQ(found[2]->data, 1 | Node::outerBit);
    EXPECT_EQ(found[3]->data, 1);
    EXPECT_EQ(builder.root->data, 1);
}

TEST(BitImport, DoesNotConsultTheResolution)
{
    SimpleBitVector const fine = torusBits(true, 0.125);
    BinTreeBuilder coarse(octant, 4.0, middle);
    coarse.importBitVector(fine);
    EXPECT_EQ(coarse.exportBitVector().bytes, fine.bytes);
}

TEST(BitImport, StreamOfOneLeafLeavesTheChildrenInPlace)
{
    BinTreeBuilder builder(octant, 1.0, middle);
    Node *const lower = builder.root->children[0];
    builder.importBitVector(bitsOf({0, 1}));
    EXPECT_EQ(builder.root->data, 1);
    EXPECT_EQ(builder.root->children[0], lower);
    builder.importBitVector(bitsOf({0, 0}));
    EXPECT_EQ(builder.root->data, 1 | Node::outerBit);
    EXPECT_EQ(builder.root->children[0], lower);
    SimpleBitVector const again = builder.exportBitVector();
    EXPECT_EQ(again.bitCount, 5U);
    EXPECT_EQ(again.bytes[0], 1 + 4 + 16);
}

TEST(BitImport, AddsToTheTreeAsItStands)
{
    BinTreeBuilder builder(octant, 1.0, Box(Vector(1, 1, 1), Vector(3, 7, 7)));
    Node *const content = builder.contentNode;
    ASSERT_EQ(content, builder.root->children[0]);
    builder.root->data |= Node::outerBit; // stays: an inner node's flags are not in the stream
    builder.importBitVector(bitsOf({1, 0, 1, 0, 0}));
    EXPECT_EQ(builder.root->data, 1 | Node::outerBit);
    EXPECT_NE(builder.root->children[0], content);
    EXPECT_EQ(builder.contentNode, content);
    EXPECT_EQ(content->parent, builder.root);
    EXPECT_TRUE(builder.root->children[1]->outer());
    // Triangles now go to the node that fell out of the tree.
    SimpleBitVector const before = builder.exportBitVector();
    builder.addTriangle(Vector(1, 1, 1), Vector(2, 1, 1), Vector(1, 2, 1));
    EXPECT_EQ(builder.exportBitVector().bytes, before.bytes);
    EXPECT_FALSE(content->isLeaf());
}

TEST(BitImport, BoundaryCellsComeBackWithoutFlags)
{
    BinTreeBuilder reader(octant, 0.125, middle);
    reader.importBitVector(torusBits(false));
    for (Node const *leaf : leaves(reader)) {
        EXPECT_FALSE(leaf->boundary());
    }
    EXPECT_GT(inspection::volumes(reader).enclosed, 0.0);
}

TEST(BitImport, DepthCostsNoStack)
{
    // A chain of lower halves: far deeper than a stack of frames would reach.
    constexpr int depth = 1000000;
    SimpleBitVector bits;
    for (int i = 0; i < depth; ++i) {
        bits.append(true);
    }
    for (int i = 0; i <= depth; ++i) {
        bits.append(false);
        bits.append(i % 2 != 0);
    }
    quint64 count = 0;
    ASSERT_TRUE(isWholeTree(BitView{bits.bytes.data()}, bits.bitCount, &count));
    EXPECT_EQ(count, quint64(depth) + 1);
    BinTreeBuilder builder(octant, 1.0, middle);
    builder.importBitVector(bits);
    EXPECT_EQ(builder.exportBitVector().bytes, bits.bytes);
    builder.condense();
    EXPECT_EQ(builder.exportBitVector().bytes, bits.bytes); // neighbours differ, nothing merges
}

TEST(WholeTree, LeafIsTheSmallestTree)
{
    quint64 count = 77;
    SimpleBitVector const inside = bitsOf({0, 1});
    EXPECT_TRUE(isWholeTree(BitView{inside.bytes.data()}, 2, &count));
    EXPECT_EQ(count, 1U);
    EXPECT_TRUE(isWholeTree(BitView{inside.bytes.data()}, 2));
}

TEST(WholeTree, NothingIsNoTree)
{
    quint64 count = 77;
    EXPECT_FALSE(isWholeTree(BitView{nullptr}, 0, &count));
    EXPECT_EQ(count, 77U);
}

TEST(WholeTree, EveryTruncationAndEveryExtensionIsRefused)
{
    SimpleBitVector bits = torusBits(true, 0.5);
    quint64 const whole = bits.bitCount;
    for (int i = 0; i < 16; ++i) {
        bits.append(i % 3 == 0);
    }
    quint64 count = 77;
    for (quint64 n = 0; n <= bits.bitCount; ++n) {
        if (n == whole) {
            continue;
        }
        ASSERT_FALSE(isWholeTree(BitView{bits.bytes.data()}, n, &count)) << n << " bits";
    }
    EXPECT_EQ(count, 77U);
    EXPECT_TRUE(isWholeTree(BitView{bits.bytes.data()}, whole, &count));
    EXPECT_EQ(whole, 3 * count - 1);
}

TEST(WholeTree, EndlessBranchingIsRefused)
{
    SimpleBitVector bits;
    for (int i = 0; i < 1000; ++i) {
        bits.append(true);
    }
    EXPECT_FALSE(isWholeTree(BitView{bits.bytes.data()}, bits.bitCount));
}

RC_GTEST_PROP(WholeTree, HoldsForTreesAndImportGivesThemBack, (unsigned seed))
{
    std::mt19937 random(seed);
    SimpleBitVector bits;
    int inner = *rc::gen::inRange(0, 400);
    appendRandomTree(bits, random, *rc::gen::inRange(3U, 9U), inner);
    quint64 count = 0;
    RC_ASSERT(isWholeTree(BitView{bits.bytes.data()}, bits.bitCount, &count));
    RC_ASSERT(bits.bitCount == 3 * count - 1);
    RC_PRE(count > 1);
    BinTreeBuilder builder(octant, 1.0, middle);
    builder.importBitVector(bits);
    RC_ASSERT(leaves(builder).size() == count);
    RC_ASSERT(builder.exportBitVector().bytes == bits.bytes);
}
