#include "ClosedMeshes.h"
#include "TreeInspection.h"

#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <limits>
#include <new>
#include <type_traits>

using namespace VolumeComparison;
using inspection::leaves;
using inspection::Node;
using meshes::Box;
using meshes::Vector;

namespace {

double const notANumber = std::numeric_limits<double>::quiet_NaN();

Box cube(double lo, double hi)
{
    return Box(Vector(lo, lo, lo), Vector(hi, hi, hi));
}

void expectBounds(Node const &node, Vector const &lo, Vector const &hi)
{
    EXPECT_EQ(node.bounds.first, lo);
    EXPECT_EQ(node.bounds.second, hi);
}

QByteArray contentOf(QString const &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

// Whether constructing such a builder is still going on after a fifth of a second.
bool constructionHangs(Box const &bounds, double resolution, Box const &content)
{
    pid_t const child = fork();
    if (child == 0) {
        BinTreeBuilder const builder(bounds, resolution, content);
        _exit(builder.root ? 0 : 1);
    }
    usleep(200000);
    int status = 0;
    bool const running = waitpid(child, &status, WNOHANG) == 0;
    if (running) {
        kill(child, SIGKILL);
        waitpid(child, &status, 0);
    }
    return running;
}

} // namespace

TEST(BinTreeNode, TakesEightyBytesInTheToldOrder)
{
    EXPECT_LE(sizeof(Node), 80U);
    Node const node{cube(0, 1), nullptr, {nullptr, nullptr}, 4 | 8 | 3};
    EXPECT_LT(static_cast<void const *>(&node.bounds), static_cast<void const *>(&node.parent));
    EXPECT_LT(static_cast<void const *>(&node.parent), static_cast<void const *>(&node.children));
    EXPECT_LT(static_cast<void const *>(&node.children), static_cast<void const *>(&node.data));
    EXPECT_EQ(node.axis(), 3);
    EXPECT_TRUE(node.boundary());
    EXPECT_TRUE(node.outer());
    EXPECT_TRUE(node.isLeaf());
}

TEST(BinTreeBuilder, RootHoldsTheWholeBoxAndSplitsAlongX)
{
    BinTreeBuilder builder(cube(0, 8), 4.0, cube(3, 5));
    ASSERT_NE(builder.root, nullptr);
    expectBounds(*builder.root, Vector(0, 0, 0), Vector(8, 8, 8));
    EXPECT_EQ(builder.root->data, 1);
    EXPECT_EQ(builder.root->parent, nullptr);
    EXPECT_EQ(builder.resolution, 4.0);
    EXPECT_EQ(builder.bounds, cube(0, 8));
    EXPECT_EQ(builder.contentBounds, cube(3, 5));
}

TEST(BinTreeBuilder, ContentAcrossTheFirstPlaneStaysAtTheRoot)
{
    BinTreeBuilder builder(cube(0, 8), 1.0, cube(3, 5));
    EXPECT_EQ(builder.contentNode, builder.root);
    EXPECT_EQ(inspection::nodeCount(builder), 3U);
    Node const &lower = *builder.root->children[0];
    Node const &upper = *builder.root->children[1];
    expectBounds(lower, Vector(0, 0, 0), Vector(4, 8, 8));
    expectBounds(upper, Vector(4, 0, 0), Vector(8, 8, 8));
    EXPECT_EQ(lower.data, 2);
    EXPECT_EQ(upper.data, 2);
    EXPECT_EQ(lower.parent, builder.root);
    EXPECT_EQ(upper.parent, builder.root);
}

TEST(BinTreeBuilder, DescendsToTheDeepestCellThatHoldsTheContent)
{
    // Upper x, lower y, upper z, then the content straddles x = 6.
    BinTreeBuilder builder(cube(0, 8), 0.5, Box(Vector(5, 1, 6), Vector(7, 2, 7)));
    Node const &node = *builder.contentNode;
    expectBounds(node, Vector(4, 0, 4), Vector(8, 4, 8));
    EXPECT_EQ(node.data, 1); // after z comes x again
    EXPECT_EQ(node.parent->data, 3);
    EXPECT_EQ(node.parent->parent->data, 2);
    EXPECT_EQ(node.parent->parent->parent, builder.root);
    EXPECT_FALSE(node.isLeaf());
    EXPECT_EQ(inspection::nodeCount(builder), 9U);
}

TEST(BinTreeBuilder, LowerHalfIsTriedFirstAndLimitsAreClosed)
{
    // A plate in the split plane x = 4 fits into both halves; then y and z split it.
    BinTreeBuilder builder(cube(0, 8), 1.0, Box(Vector(4, 0, 0), Vector(4, 8, 8)));
    expectBounds(*builder.contentNode, Vector(0, 0, 0), Vector(4, 8, 8));
    // A box equal to a cell is held by it.
    BinTreeBuilder equal(cube(0, 8), 1.0, Box(Vector(4, 0, 0), Vector(8, 8, 8)));
    expectBounds(*equal.contentNode, Vector(4, 0, 0), Vector(8, 8, 8));
}

TEST(BinTreeBuilder, ContentThatNoHalfHoldsStaysAtTheRoot)
{
    BinTreeBuilder nan(cube(0, 8), 1.0, cube(notANumber, notANumber));
    EXPECT_EQ(nan.contentNode, nan.root);
    BinTreeBuilder outside(cube(0, 8), 1.0, cube(20, 21));
    EXPECT_EQ(outside.contentNode, outside.root);
}

TEST(BinTreeBuilder, SplitsAtAHalfExtentEqualToTheResolution)
{
    // 8 -> 4 -> 2: a cell of extent 2 has the half extent 1 and is split once more.
    BinTreeBuilder builder(cube(0, 8), 1.0, cube(3, 5));
    builder.addTriangle(Vector(0.5, 0.5, 0.5), Vector(0.75, 0.5, 0.5), Vector(0.5, 0.75, 0.5));
    for (Node const *leaf : leaves(builder)) {
        if (leaf->boundary()) {
            expectBounds(*leaf, Vector(0, 0, 0), Vector(1, 1, 1));
        }
    }
    BinTreeBuilder coarser(cube(0, 8), std::nextafter(1.0, 2.0), cube(3, 5));
    coarser.addTriangle(Vector(0.5, 0.5, 0.5), Vector(0.75, 0.5, 0.5), Vector(0.5, 0.75, 0.5));
    for (Node const *leaf : leaves(coarser)) {
        if (leaf->boundary()) {
            expectBounds(*leaf, Vector(0, 0, 0), Vector(2, 2, 2));
        }
    }
}

TEST(BinTreeBuilder, UnsplittableLeavesAreThinnerThanTwiceTheResolution)
{
    BinTreeBuilder builder(Box(Vector(0, 0, 0), Vector(10, 7, 5)), 0.3,
                           Box(Vector(1, 1, 1), Vector(9, 6, 4)));
    meshes::addTo(builder, meshes::sphere(Vector(5, 3.5, 2.5), 1.4, 12));
    int boundaries = 0;
    for (Node const *leaf : leaves(builder)) {
        if (!leaf->boundary()) {
            continue;
        }
        int const a = leaf->axis() - 1;
        double const extent = leaf->bounds.second[a] - leaf->bounds.first[a];
        EXPECT_LT(extent, 2 * 0.3);
        EXPECT_GE(extent, 0.3);
        ++boundaries;
    }
    EXPECT_GT(boundaries, 100);
}

TEST(BinTreeBuilder, ThinAxisEndsTheSplitWhateverTheOthersAre)
{
    // y is too thin when its turn comes, although x and z are long.
    BinTreeBuilder builder(Box(Vector(0, 0, 0), Vector(64, 1, 64)), 1.0,
                           Box(Vector(1, 0, 1), Vector(63, 1, 63)));
    builder.addTriangle(Vector(1, 0.5, 1), Vector(63, 0.5, 1), Vector(32, 0.5, 63));
    std::vector<Node *> const found = leaves(builder);
    ASSERT_EQ(found.size(), 2U);
    expectBounds(*found[0], Vector(0, 0, 0), Vector(32, 1, 64));
    EXPECT_TRUE(found[0]->boundary());
    EXPECT_TRUE(found[1]->boundary());
}

TEST(BinTreeBuilder, ConstructionDoesNotReturnIfNothingCanBeSplit)
{
    // Half of the x extent is 4.
    EXPECT_TRUE(constructionHangs(cube(0, 8), 4.5, cube(1, 7)));
    EXPECT_TRUE(constructionHangs(cube(0, 8), 4.5, cube(1, 2)));
    EXPECT_FALSE(constructionHangs(cube(0, 8), 4.0, cube(1, 7)));
    // Content inside a cell that cannot be split.
    EXPECT_TRUE(constructionHangs(cube(0, 8), 1.0, cube(0.25, 0.5)));
    EXPECT_FALSE(constructionHangs(cube(0, 8), 1.0, cube(0.25, 1.5)));
}

TEST(BinTreeBuilder, TriangleOutsideTheContentCellIsNotRecorded)
{
    BinTreeBuilder builder(cube(0, 8), 1.0, Box(Vector(1, 1, 1), Vector(3, 7, 7)));
    ASSERT_EQ(builder.contentNode, builder.root->children[0]);
    builder.addTriangle(Vector(5, 5, 5), Vector(6, 5, 5), Vector(5, 6, 5));
    for (Node const *leaf : leaves(builder)) {
        EXPECT_FALSE(leaf->boundary());
    }
    // Touching the cell's face is inside.
    builder.addTriangle(Vector(4, 5, 5), Vector(6, 5, 5), Vector(5, 6, 5));
    int boundaries = 0;
    for (Node const *leaf : leaves(builder)) {
        boundaries += leaf->boundary();
    }
    EXPECT_GT(boundaries, 0);
}

TEST(BinTreeBuilder, TriangleWithNaNIsNotRecorded)
{
    BinTreeBuilder builder(cube(0, 8), 1.0, cube(1, 7));
    builder.addTriangle(Vector(notANumber, 1, 1), Vector(2, 1, 1), Vector(2, 2, 1));
    EXPECT_EQ(inspection::nodeCount(builder), 3U);
}

TEST(BinTreeBuilder, NullContentNodeMeansTheRoot)
{
    BinTreeBuilder builder(cube(0, 8), 1.0, Box(Vector(1, 1, 1), Vector(3, 7, 7)));
    builder.contentNode = nullptr;
    builder.addTriangle(Vector(5, 5, 5), Vector(5.25, 5, 5), Vector(5, 5.25, 5));
    bool recorded = false;
    for (Node const *leaf : leaves(builder)) {
        recorded = recorded || leaf->boundary();
    }
    EXPECT_TRUE(recorded);
}

TEST(BinTreeBuilder, ContentNodeThatCannotBeSplitIsMarkedItself)
{
    BinTreeBuilder builder(cube(0, 8), 1.0, cube(1, 7));
    builder.condense(); // the root has lost its children
    builder.resolution = 100.0;
    builder.addTriangle(Vector(9, 1, 1), Vector(10, 1, 1), Vector(9, 2, 1));
    EXPECT_EQ(builder.root->data, 1);
    builder.addTriangle(Vector(1, 1, 1), Vector(2, 1, 1), Vector(1, 2, 1));
    EXPECT_EQ(builder.root->data, 1 | Node::boundaryBit);
    EXPECT_TRUE(builder.root->isLeaf());
}

TEST(BinTreeBuilder, AssignmentNamesTheSameNodes)
{
    static_assert(!std::is_copy_constructible<BinTreeBuilder>::value,
                  "two owners of one arena must not come about by passing a value");
    for (bool move : {false, true}) {
        // Only one of two builders that share an arena may be destroyed, so the target lives in
        // plain storage; its own arena is put back before it goes.
        alignas(BinTreeBuilder) unsigned char storage[sizeof(BinTreeBuilder)];
        unsigned char own[sizeof(BinTreeBuilder)];
        BinTreeBuilder *const target = new (storage) BinTreeBuilder(cube(0, 4), 1.0, cube(1, 3));
        std::memcpy(own, storage, sizeof own);
        BinTreeBuilder source(cube(0, 8), 0.5, cube(2, 7));
        BinTreeBuilder &result = move ? (*target = std::move(source)) : (*target = source);
        EXPECT_EQ(&result, target);
        EXPECT_EQ(target->root, source.root);
        EXPECT_EQ(target->contentNode, source.contentNode);
        EXPECT_EQ(target->bounds, cube(0, 8));
        EXPECT_EQ(target->contentBounds, cube(2, 7));
        EXPECT_EQ(target->resolution, 0.5);
        EXPECT_EQ(std::memcmp(&target->arena, &source.arena, sizeof(PArena)), 0);
        std::memcpy(storage, own, sizeof own);
        target->~BinTreeBuilder();
    }
}

TEST(BinTreeBuilder, AssignmentToItselfChangesNothing)
{
    BinTreeBuilder builder(cube(0, 8), 1.0, cube(2, 7));
    BinTreeBuilder &alias = builder;
    Node *const root = builder.root;
    builder = alias;
    EXPECT_EQ(builder.root, root);
    meshes::addTo(builder, meshes::box(Vector(2, 2, 2), Vector(7, 7, 7)));
    EXPECT_GT(inspection::nodeCount(builder), 3U);
}

TEST(BinTreeBuilder, CondenseMergesEqualSiblingsOnly)
{
    BinTreeBuilder builder(cube(0, 8), 2.0, cube(1, 7));
    // Two levels below the root by hand: x, then y in both halves.
    for (Node *half : {builder.root->children[0], builder.root->children[1]}) {
        half->children[0] = new (builder.arena.allocateAligned(sizeof(Node)))
            Node{half->bounds, half, {nullptr, nullptr}, 3};
        half->children[1] = new (builder.arena.allocateAligned(sizeof(Node)))
            Node{half->bounds, half, {nullptr, nullptr}, 3};
    }
    Node *const lower = builder.root->children[0];
    Node *const upper = builder.root->children[1];
    lower->children[0]->data |= Node::boundaryBit;
    lower->children[1]->data |= Node::boundaryBit;
    upper->children[1]->data |= Node::boundaryBit; // beside an enclosed one: not merged
    builder.condense();
    EXPECT_TRUE(lower->isLeaf());
    EXPECT_EQ(lower->children[0], nullptr);
    EXPECT_EQ(lower->children[1], nullptr);
    EXPECT_EQ(lower->data, 2 | Node::boundaryBit);
    EXPECT_FALSE(upper->isLeaf());
    EXPECT_FALSE(builder.root->isLeaf());

    // Once alike, they merge up to the root, which keeps its axis.
    upper->children[0]->data |= Node::boundaryBit;
    builder.condense();
    EXPECT_TRUE(builder.root->isLeaf());
    EXPECT_EQ(builder.root->data, 1 | Node::boundaryBit);
    builder.condense();
    EXPECT_EQ(builder.root->data, 1 | Node::boundaryBit);
}

TEST(BinTreeBuilder, CondenseBeforeTheFillMergesUntouchedCells)
{
    BinTreeBuilder builder(cube(0, 8), 1.0, Box(Vector(5, 1, 6), Vector(7, 2, 7)));
    ASSERT_EQ(inspection::nodeCount(builder), 9U);
    builder.condense();
    EXPECT_TRUE(builder.root->isLeaf());
    EXPECT_EQ(builder.root->data, 1);
}

TEST(BinTreeBuilder, DumpWritesTheMinimumCornersOfCellsThatAreNotOuter)
{
    QTemporaryDir const folder;
    QString const path = folder.filePath(QStringLiteral("cells.xyz"));
    BinTreeBuilder builder(Box(Vector(-1.0 / 3.0, 0, 1e7), Vector(8, 8, 3e7)), 1.0,
                           Box(Vector(1, 1, 1.5e7), Vector(7, 7, 2.5e7)));
    builder.root->children[1]->data |= Node::outerBit;
    builder.dumpXYZ(path);
    EXPECT_EQ(contentOf(path), QByteArray("-0.333333,0,1e+07,0,0,0\n"));

    builder.root->children[1]->data = 2;
    builder.dumpXYZ(path); // replaces what stands there
    EXPECT_EQ(contentOf(path), QByteArray("-0.333333,0,1e+07,0,0,0\n3.83333,0,1e+07,0,0,0\n"));

    builder.root->children[0]->data |= Node::outerBit;
    builder.root->children[1]->data |= Node::outerBit;
    builder.dumpXYZ(path);
    EXPECT_EQ(contentOf(path), QByteArray());
}

TEST(BinTreeBuilder, DumpGoesThroughTheTreeInOrder)
{
    QTemporaryDir const folder;
    QString const path = folder.filePath(QStringLiteral("cells.xyz"));
    BinTreeBuilder builder(cube(0, 8), 0.5, Box(Vector(5, 1, 6), Vector(7, 2, 7)));
    builder.dumpXYZ(path);
    EXPECT_EQ(contentOf(path), QByteArray("0,0,0,0,0,0\n" // lower half in x
                                          "4,0,0,0,0,0\n" // lower half in z
                                          "4,0,4,0,0,0\n6,0,4,0,0,0\n"
                                          "4,4,0,0,0,0\n"));
}

TEST(BinTreeBuilder, DumpToAnUnwritablePathIsSilent)
{
    QTemporaryDir const folder;
    QString const path = folder.filePath(QStringLiteral("missing/cells.xyz"));
    BinTreeBuilder builder(cube(0, 8), 1.0, cube(1, 7));
    builder.dumpXYZ(path);
    EXPECT_FALSE(QFile::exists(path));
    builder.dumpXYZ(folder.path()); // a folder cannot be opened for writing
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}
