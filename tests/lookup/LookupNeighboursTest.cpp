// The passes of the k nearest: which radii they have, and how many values they visit.

#include "support/Bits.h"
#include "support/SmallStack.h"

#include <OrvelCore/runtime/PRefPtr.h>
#include <OrvelMath/lookup/LookupNeighbours_p.h>
#include <OrvelMath/lookup/LookupTree_p.h>
#include <OrvelMath/lookup/Point2DLookupC.h>
#include <OrvelMath/lookup/Point3DLookupC.h>

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

using support::inf;
using support::nan;

using Point = LookupPoint<2>;

/// A tree that writes down the radii of the discs it is asked for and counts what it hands out.
class WatchedTree
{
public:
    using Tree = LookupTree<2, int>;
    using Nearest = Tree::Nearest;

    WatchedTree() = default;
    /// `count` points at the distances 1, 2, 3 and so on from (0, 0), in no direction twice.
    explicit WatchedTree(int count)
    {
        for (int i = 0; i < count; ++i) {
            int const distance = i * 7919 % count + 1; // 7919 is prime
            insert({{distance * std::sin(distance), distance * std::cos(distance)}});
        }
    }

    void insert(Point const &p) { m_tree.insert(p, ++m_next); }
    std::uint64_t size() const { return m_tree.size(); }

    template <typename Visit>
    void collectInDisc(Point const &centre, double radius, Visit visit) const
    {
        radii.push_back(radius);
        m_tree.collectInDisc(centre, radius,
                             [&](Point const &p, int const &payload, double squaredDistance) {
                                 ++visits;
                                 visit(p, payload, squaredDistance);
                             });
    }

    mutable std::vector<double> radii;
    mutable long visits = 0;

private:
    Tree m_tree;
    int m_next = 0;
};

TEST(GrowingDisc, RadiusStartsAtTwiceTheNearestAndDoubles)
{
    WatchedTree const tree(100);
    auto const values = nearestByGrowingDisc(tree, Point{{0, 0}}, 10, 1.0, inf);
    EXPECT_EQ(std::vector<double>({2, 4, 8, 16}), tree.radii);
    ASSERT_EQ(10U, values.size());
    EXPECT_DOUBLE_EQ(1.0, values[0].distance);
    EXPECT_DOUBLE_EQ(10.0, values[9].distance);
}

TEST(GrowingDisc, LimitIsTheLastRadius)
{
    WatchedTree const tree(100);
    auto const values = nearestByGrowingDisc(tree, Point{{0, 0}}, 50, 1.0, 9.5);
    EXPECT_EQ(std::vector<double>({2, 4, 8, 9.5}), tree.radii);
    EXPECT_EQ(9U, values.size());
}

TEST(GrowingDisc, OnePassWhereTheLimitIsBelowTwiceTheNearest)
{
    WatchedTree const tree(100);
    EXPECT_EQ(1U, nearestByGrowingDisc(tree, Point{{0, 0}}, 50, 1.0, 1.5).size());
    EXPECT_EQ(std::vector<double>({1.5}), tree.radii);
}

TEST(GrowingDisc, EndsWhenItHoldsEveryValue)
{
    WatchedTree const tree(100);
    EXPECT_EQ(100U, nearestByGrowingDisc(tree, Point{{0, 0}}, 1000, 1.0, inf).size());
    EXPECT_EQ(128.0, tree.radii.back());
}

TEST(GrowingDisc, ValuesThatNoDiscHoldsCostTwoPassesAndNotAThousand)
{
    for (Point const &lost : {Point{{nan, 0}}, Point{{0, inf}}, Point{{1e200, 0}}}) {
        WatchedTree tree(1000);
        tree.insert(lost);
        EXPECT_EQ(1000U, nearestByGrowingDisc(tree, Point{{0, 0}}, 5000, 1.0, inf).size());
        EXPECT_LT(tree.visits, 5000) << lost[0] << ", " << lost[1];
        EXPECT_LT(tree.radii.size(), 20U);
    }
}

TEST(GrowingDisc, ManyLostValuesAreNoticedAfterAFewIdlePasses)
{
    WatchedTree tree(100);
    for (int i = 0; i < 300; ++i) {
        tree.insert({{nan, double(i)}});
    }
    EXPECT_EQ(100U, nearestByGrowingDisc(tree, Point{{0, 0}}, 200, 1.0, inf).size());
    EXPECT_LT(tree.visits, 2000);
    EXPECT_LT(tree.radii.size(), 20U);
}

TEST(GrowingDisc, GapsThatManyPassesCrossAreCrossed)
{
    WatchedTree tree;
    for (double const distance : {1.0, 1e3, 1e40, 1e41, 1e42}) {
        tree.insert({{distance, 0}});
    }
    tree.insert({{nan, 0}});
    auto const values = nearestByGrowingDisc(tree, Point{{0, 0}}, 3, 1.0, inf);
    ASSERT_EQ(3U, values.size());
    EXPECT_EQ(1e40, values[2].distance);
    EXPECT_EQ(5U, nearestByGrowingDisc(tree, Point{{0, 0}}, 6, 1.0, inf).size());
}

TEST(LookupStack, LongChainsTake256KBAtMost)
{
    support::runOnSmallStack([] {
        PRefPtr<Point2DLookupC> const plane(new Point2DLookupC);
        PRefPtr<Point3DLookupC> const space(new Point3DLookupC);
        for (int i = 0; i < 1500; ++i) {
            plane->insert({double(i), double(i)}, i);
            space->insert({double(i), double(i), double(i)});
            plane->insert({-double(i), 1.0}, i);
            space->insert({-double(i), 1.0, 1.0});
        }
        EXPECT_LE(1002, plane->findWithinRange({0, 0}, inf).size());
        EXPECT_LE(1002, space->findWithinRange({0, 0, 0}, inf).size());
        for (double const x : {-2000.0, 0.5, 2000.0}) {
            EXPECT_TRUE(plane->findNearest({x, x}, inf));
            EXPECT_TRUE(plane->findNearestNotEqual({x, x}, inf));
            EXPECT_EQ(900, plane->findKNearestNeighbors({x, x}, 900, inf).size());
            EXPECT_TRUE(space->findNearest({x, x, x}, inf).second);
        }
    });
}

} // namespace
