#include "ClosedMeshes.h"
#include "TreeInspection.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

using namespace VolumeComparison;
using inspection::leaves;
using inspection::Node;
using meshes::Box;
using meshes::Vector;

namespace {

Box cube(double lo, double hi)
{
    return Box(Vector(lo, lo, lo), Vector(hi, hi, hi));
}

// Whether two cells share a part of a face, told without any tolerance.
bool shareFace(Node const &p, Node const &q)
{
    int overlaps = 0;
    for (int k = 0; k < 3; ++k) {
        double const lo = std::max(p.bounds.first[k], q.bounds.first[k]);
        double const hi = std::min(p.bounds.second[k], q.bounds.second[k]);
        if (lo > hi) {
            return false;
        }
        overlaps += lo < hi;
    }
    return overlaps == 2;
}

// The leaves that a fill from the first leaf reaches, by comparing all pairs.
std::set<Node const *> reachedByBruteForce(BinTreeBuilder const &builder)
{
    std::vector<Node *> const all = leaves(builder);
    std::set<Node const *> reached{all.front()};
    std::vector<Node const *> open{all.front()};
    while (!open.empty()) {
        Node const *const from = open.back();
        open.pop_back();
        for (Node const *to : all) {
            if (!to->boundary() && reached.count(to) == 0 && shareFace(*from, *to)) {
                reached.insert(to);
                open.push_back(to);
            }
        }
    }
    return reached;
}

std::set<Node const *> outerLeaves(BinTreeBuilder const &builder)
{
    std::set<Node const *> found;
    for (Node const *leaf : leaves(builder)) {
        if (leaf->outer()) {
            found.insert(leaf);
        }
    }
    return found;
}

} // namespace

TEST(FindOuterArea, WithoutTrianglesEveryLeafIsOuter)
{
    BinTreeBuilder builder(cube(0, 8), 0.5, Box(Vector(5, 1, 6), Vector(7, 2, 7)));
    builder.findOuterArea();
    for (Node const *leaf : leaves(builder)) {
        EXPECT_EQ(leaf->data & 12, int(Node::outerBit));
    }
    // Five leaves, pre-order: 1 00 1 1 00 1 00 00 00.
    SimpleBitVector const bits = builder.exportBitVector();
    EXPECT_EQ(bits.bitCount, 3U * 5U - 1U);
    ASSERT_EQ(bits.bytes.size(), 2U);
    EXPECT_EQ(bits.bytes[0], 1 + 8 + 16 + 128);
    EXPECT_EQ(bits.bytes[1], 0);
}

TEST(FindOuterArea, InnerNodesStayUnmarked)
{
    BinTreeBuilder builder(cube(0, 8), 1.0, cube(1, 7));
    meshes::addTo(builder, meshes::sphere(Vector(4, 4, 4), 2.5, 8));
    builder.findOuterArea();
    inspection::forEachNode(builder.root, [](Node const &node) {
        if (inspection::hasBoth(node)) {
            EXPECT_EQ(node.data & 12, 0);
        }
    });
}

TEST(FindOuterArea, ClosedBoxKeepsItsInterior)
{
    // Faces in the middle of cells: cells 1 and 6 of each axis are surface, 2 to 5 enclosed.
    BinTreeBuilder builder(cube(0, 8), 1.0, cube(1, 7));
    meshes::addTo(builder, meshes::box(Vector(1.5, 1.5, 1.5), Vector(6.5, 6.5, 6.5)));
    builder.findOuterArea();
    inspection::Volumes const v = inspection::volumes(builder);
    EXPECT_EQ(v.enclosed, 64.0);
    EXPECT_EQ(v.surface, 216.0 - 64.0);
    EXPECT_EQ(v.outer, 512.0 - 216.0);

    std::size_t const before = leaves(builder).size();
    builder.condense();
    EXPECT_LT(leaves(builder).size(), before);
    inspection::Volumes const after = inspection::volumes(builder);
    EXPECT_EQ(after.enclosed, v.enclosed);
    EXPECT_EQ(after.surface, v.surface);
    EXPECT_EQ(after.outer, v.outer);
    for (Node const *leaf : leaves(builder)) {
        if (!leaf->parent) {
            continue;
        }
        Node const *const other = leaf->parent->children[leaf == leaf->parent->children[0] ? 1 : 0];
        EXPECT_FALSE(other->isLeaf() && other->data == leaf->data);
    }
}

TEST(FindOuterArea, MeshWithAnOpenSideHoldsNothing)
{
    meshes::Mesh open = meshes::box(Vector(1.5, 1.5, 1.5), Vector(6.5, 6.5, 6.5));
    open.triangles.resize(10); // without the side at the upper x
    BinTreeBuilder builder(cube(0, 8), 1.0, cube(1, 7));
    meshes::addTo(builder, open);
    builder.findOuterArea();
    EXPECT_EQ(inspection::volumes(builder).enclosed, 0.0);
}

TEST(FindOuterArea, GapBelowACellStillHoldsTheInterior)
{
    // The four sides stop short of the lid by a quarter of a cell, within the lid's cells.
    meshes::Mesh mesh = meshes::box(Vector(1.5, 1.5, 1.5), Vector(6.5, 6.5, 6.25));
    std::size_t const first = mesh.vertices.size();
    for (std::size_t i = 4; i < 8; ++i) {
        Vector const v = mesh.vertices[i];
        mesh.vertices.push_back(Vector(v.x(), v.y(), 6.5));
    }
    mesh.triangles[2] = {first, first + 1, first + 3};
    mesh.triangles[3] = {first, first + 3, first + 2};
    BinTreeBuilder builder(cube(0, 8), 1.0, cube(1, 7));
    meshes::addTo(builder, mesh);
    builder.findOuterArea();
    EXPECT_EQ(inspection::volumes(builder).enclosed, 64.0);
}

TEST(FindOuterArea, DoesNotPassThroughEdgesAndCorners)
{
    // A slanted wall of cells that touch along edges only still separates.
    BinTreeBuilder builder(cube(0, 8), 1.0, cube(1, 7));
    builder.addTriangle(Vector(8, -1, -1), Vector(-1, 8, -1), Vector(8, -1, 20));
    builder.addTriangle(Vector(-1, 8, -1), Vector(-1, 8, 20), Vector(8, -1, 20));
    builder.findOuterArea();
    for (Node const *leaf : leaves(builder)) {
        Vector const m = (leaf->bounds.first + leaf->bounds.second) * 0.5;
        if (!leaf->boundary()) {
            EXPECT_EQ(leaf->outer(), m.x() + m.y() < 7.0);
        }
    }
}

TEST(FindOuterArea, CornerLeafIsOuterEvenOnTheSurface)
{
    BinTreeBuilder builder(cube(0, 8), 1.0, cube(1, 7));
    builder.addTriangle(Vector(0.25, 0.25, 0.25), Vector(0.5, 0.25, 0.25), Vector(0.25, 0.5, 0.25));
    builder.findOuterArea();
    Node const &corner = *leaves(builder).front();
    EXPECT_TRUE(corner.boundary());
    EXPECT_TRUE(corner.outer());
    // It counts as outside in the stream, and so does everything else here.
    SimpleBitVector const bits = builder.exportBitVector();
    BinTreeBuilder reader(cube(0, 8), 1.0, cube(1, 7));
    reader.importBitVector(bits);
    for (Node const *leaf : leaves(reader)) {
        EXPECT_TRUE(leaf->outer());
    }
}

TEST(FindOuterArea, SecondCallChangesNothing)
{
    BinTreeBuilder builder(cube(0, 8), 0.25, cube(1, 7));
    meshes::addTo(builder, meshes::torus(Vector(4, 4, 4), 2.0, 0.8, 16));
    builder.findOuterArea();
    SimpleBitVector const first = builder.exportBitVector();
    builder.findOuterArea();
    SimpleBitVector const second = builder.exportBitVector();
    EXPECT_EQ(first.bytes, second.bytes);
    EXPECT_EQ(first.bitCount, second.bitCount);
}

TEST(FindOuterArea, AgreesWithAFillOverAllPairsOfLeaves)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> place(0.0, 8.0);
    std::uniform_real_distribution<double> offset(-3.0, 3.0);
    for (int round = 0; round < 60; ++round) {
        // Flat boxes give cells that are far from cubic.
        Box const whole(Vector(0, 0, 0), Vector(8, round % 2 != 0 ? 8 : 4, round % 3 != 0 ? 8 : 2));
        BinTreeBuilder builder(whole, 0.5, Box(whole.second * 0.25, whole.second * 0.75));
        int const count = 1 + round / 2;
        for (int t = 0; t < count; ++t) {
            Vector const a(place(random), place(random), place(random));
            builder.addTriangle(a, a + Vector(offset(random), offset(random), offset(random)),
                                a + Vector(offset(random), offset(random), offset(random)));
        }
        builder.findOuterArea();
        ASSERT_EQ(outerLeaves(builder), reachedByBruteForce(builder)) << "round " << round;
    }
}

TEST(AddTriangle, MarksExactlyTheFinestCellsThatTheTriangleMeets)
{
    std::mt19937 random(12);
    std::uniform_int_distribution<int> place(-6, 54); // thirds of integers in units of 1/6
    for (int round = 0; round < 200; ++round) {
        auto const vertex = [&] {
            return Vector(place(random), place(random), place(random)) * 0.1875;
        };
        Vector const a = vertex();
        Vector const b = vertex();
        Vector const c = vertex();
        BinTreeBuilder builder(cube(0, 8), 1.0, cube(1, 7));
        builder.addTriangle(a, b, c);
        double marked = 0.0;
        for (Node const *leaf : leaves(builder)) {
            if (leaf->boundary()) {
                EXPECT_EQ(inspection::volume(*leaf), 1.0);
                EXPECT_TRUE(MatUtil::triangleIntersectsCuboid(a, b, c, leaf->bounds.first,
                                                              leaf->bounds.second));
                marked += 1.0;
            }
        }
        double met = 0.0;
        for (int i = 0; i < 512; ++i) {
            Vector const lo(i & 7, i >> 3 & 7, i >> 6);
            met += MatUtil::triangleIntersectsCuboid(a, b, c, lo, lo + Vector(1, 1, 1));
        }
        EXPECT_EQ(marked, met);
    }
}
