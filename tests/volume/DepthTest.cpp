// Trees far deeper than a stack of frames would reach, on a stack of 256 KB.

#include "ClosedMeshes.h"
#include "TreeInspection.h"

#include "support/SmallStack.h"

#include <OrvelMath/volume/BinTreeWalk_p.h>

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <limits>
#include <new>
#include <random>
#include <vector>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define SANITIZED 1
#endif
#endif
#ifndef SANITIZED
#define SANITIZED 0
#endif

using namespace VolumeComparison;
using inspection::Node;
using meshes::Box;
using meshes::Vector;

namespace {

constexpr bool underSanitizer = SANITIZED != 0;

Box const octant(Vector(0, 0, 0), Vector(8, 8, 8));
Box const middle(Vector(1, 1, 1), Vector(7, 7, 7)); // across x = 4: the content node is the root

/// A tree that goes on in its lower half alone, or in its upper half alone.
SimpleBitVector chain(int depth, int side)
{
    SimpleBitVector bits;
    for (int i = 0; i < depth; ++i) {
        bits.append(true);
        if (side == 1) {
            bits.append(false);
            bits.append(i % 2 == 0);
        }
    }
    for (int i = 0; i <= (side == 1 ? 0 : depth); ++i) {
        bits.append(false);
        bits.append(i % 2 == 0);
    }
    return bits;
}

/// `addTriangle` as a recursion, on a tree that can be split down to `resolution`.
void addByRecursion(BinTreeBuilder &builder, MatUtil::TriangleCuboidIntersector const &intersector,
                    Node *node, int axis, MatUtil::TriangleCuboidIntersectionType previous)
{
    auto const type =
        intersector.intersect(node->bounds.first, node->bounds.second, axis, previous);
    if (type == MatUtil::TriangleCuboidDisjoint) {
        return;
    }
    int const a = node->axis() - 1;
    if (node->isLeaf() &&
        builder.resolution > (node->bounds.second[a] - node->bounds.first[a]) * 0.5) {
        node->data |= Node::boundaryBit;
        return;
    }
    if (node->isLeaf()) {
        for (int side : {0, 1}) {
            double const m = (node->bounds.first[a] + node->bounds.second[a]) * 0.5;
            node->children[side] = new (builder.arena.allocateAligned(sizeof(Node)))
                Node{node->bounds, node, {nullptr, nullptr}, a == 2 ? 1 : a + 2};
            (side == 0 ? node->children[side]->bounds.second
                       : node->children[side]->bounds.first)[a] = m;
        }
    }
    addByRecursion(builder, intersector, node->children[0], a, type);
    addByRecursion(builder, intersector, node->children[1], a, type);
}

} // namespace

TEST(DeepTree, TrianglesMarkTheCellsOfTheRecursion)
{
    std::mt19937 random(21);
    auto const coordinate = [&random] { return double(random() % 17) * 0.5; };
    for (int round = 0; round < 20; ++round) {
        double const resolution = round % 2 == 0 ? 0.5 : 0.11;
        BinTreeBuilder builder(octant, resolution, middle);
        BinTreeBuilder plain(octant, resolution, middle);
        for (int i = 0; i < 10; ++i) {
            Vector const a(coordinate(), coordinate(), coordinate());
            Vector const b(coordinate(), coordinate(), coordinate());
            Vector const c(coordinate(), coordinate(), coordinate());
            builder.addTriangle(a, b, c);
            addByRecursion(plain, MatUtil::TriangleCuboidIntersector(a, b, c), plain.root, 3,
                           MatUtil::TriangleCuboidDisjoint);
        }
        auto const expected = inspection::leaves(plain);
        auto const found = inspection::leaves(builder);
        ASSERT_EQ(expected.size(), found.size());
        for (std::size_t i = 0; i < found.size(); ++i) {
            ASSERT_EQ(expected[i]->data, found[i]->data);
            ASSERT_EQ(expected[i]->bounds, found[i]->bounds);
        }
    }
}

TEST(DeepTree, EveryOperationTakesNoStack)
{
    for (int const side : {0, 1}) {
        SimpleBitVector const bits = chain(400000, side); // 150 KB
        ASSERT_TRUE(isWholeTree(BitView{bits.bytes.data()}, bits.bitCount));
        int boundaries = 0;
        support::runOnSmallStack([&] {
            BinTreeBuilder builder(octant, 1.0, middle);
            builder.importBitVector(bits);
            builder.contentNode = builder.root;
            double const corner = side == 0 ? 0.0 : 8.0;
            builder.addTriangle(Vector(corner, corner, corner), Vector(4, corner, corner),
                                Vector(corner, 4, corner));
            builder.findOuterArea();
            builder.condense();
            SimpleBitVector const again = builder.exportBitVector();
            EXPECT_TRUE(isWholeTree(BitView{again.bytes.data()}, again.bitCount));
            for (Node const *leaf : inspection::leaves(builder)) {
                boundaries += leaf->boundary() ? 1 : 0;
            }
        });
        EXPECT_GT(boundaries, 0) << side;
    }
}

TEST(DeepTree, TriangleReachesTheDeepestCellOfAChain)
{
    // The cells shrink towards the minimum corner until they are a point.
    BinTreeBuilder builder(octant, 1.0, middle);
    builder.importBitVector(chain(300, 0));
    builder.resolution = 1e-40;
    builder.contentNode = builder.root;
    builder.addTriangle(Vector(0, 0, 0), Vector(0, 0, 0), Vector(0, 0, 0));
    Node const *cell = builder.root;
    int depth = 0;
    while (!cell->isLeaf()) {
        cell = cell->children[0];
        ++depth;
    }
    EXPECT_GE(depth, 300);
    EXPECT_TRUE(cell->boundary());
}

TEST(DeepTree, WithoutAResolutionMemoryEndsTheSplitting)
{
    if (underSanitizer) {
        GTEST_SKIP() << "a sanitizer takes more than the limit";
    }
    for (double const resolution : {std::numeric_limits<double>::quiet_NaN(), 0.0, -1.0}) {
        pid_t const child = fork();
        if (child == 0) {
            // So little memory that the end comes soon.
            rlimit const space{rlim_t(400) << 20, rlim_t(400) << 20};
            if (setrlimit(RLIMIT_AS, &space) != 0) {
                _exit(3);
            }
            BinTreeBuilder builder(octant, resolution, middle);
            try {
                builder.addTriangle(Vector(1, 1, 1), Vector(2, 1, 1), Vector(1, 2, 1));
            } catch (std::bad_alloc const &) {
                _exit(builder.root->children[0] ? 0 : 2);
            }
            _exit(1);
        }
        int status = -1;
        ASSERT_EQ(child, waitpid(child, &status, 0));
        EXPECT_TRUE(WIFEXITED(status)) << resolution;
        EXPECT_EQ(0, WEXITSTATUS(status)) << resolution;
    }
}

TEST(BinTreePath, GivesBackTheBitsOfTheWay)
{
    std::mt19937 random(5);
    BinTreePath path;
    std::vector<bool> plain;
    for (int i = 0; i < 20000; ++i) {
        // Up and down around the borders of words, too.
        bool const down = plain.empty() || random() % 100 < (i / 1000 % 2 == 0 ? 60U : 40U);
        if (down) {
            plain.push_back(random() % 2 == 0);
            path.descend(plain.back());
        } else {
            ASSERT_EQ(plain.back(), path.ascend()) << i;
            plain.pop_back();
        }
    }
    while (!plain.empty()) {
        ASSERT_EQ(plain.back(), path.ascend());
        plain.pop_back();
    }
}
