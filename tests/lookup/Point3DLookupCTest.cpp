#include <OrvelMath/lookup/Point3DLookupC.h>

#include <OrvelCore/runtime/PRefPtr.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

namespace {

double const inf = std::numeric_limits<double>::infinity();
double const nan = std::numeric_limits<double>::quiet_NaN();

class Point3DLookup : public ::testing::Test
{
protected:
    void insert(std::initializer_list<Point3D> points)
    {
        for (Point3D const &p : points) {
            lookup->insert(p);
        }
    }

    void expectNearest(Point3D const &query, double maxDistance, Point3D const &expected)
    {
        auto const answer = lookup->findNearest(query, maxDistance);
        EXPECT_TRUE(answer.second);
        EXPECT_EQ(answer.first, expected);
    }

    void expectNone(Point3D const &query, double maxDistance)
    {
        auto const answer = lookup->findNearest(query, maxDistance);
        EXPECT_FALSE(answer.second);
        EXPECT_EQ(answer.first, Point3D(0, 0, 0));
    }

    PRefPtr<Point3DLookupC> const lookup{new Point3DLookupC};
};

TEST_F(Point3DLookup, FindsNothingWhenEmpty)
{
    expectNone({1, 2, 3}, inf);
    expectNone({0, 0, 0}, 0.0);
    EXPECT_TRUE(lookup->findWithinRange({1, 2, 3}, inf).isEmpty());
}

TEST_F(Point3DLookup, LimitOfFindNearestIsInclusive)
{
    insert({{3, 4, 0}});
    expectNearest({0, 0, 0}, 5.0, {3, 4, 0});
    expectNone({0, 0, 0}, std::nextafter(5.0, 0.0));
}

TEST_F(Point3DLookup, LimitOfZeroFindsTheQueryItself)
{
    insert({{1, 2, 3}, {1, 2, 4}});
    expectNearest({1, 2, 3}, 0.0, {1, 2, 3});
    expectNone({1, 2, 5}, 0.0);
}

TEST_F(Point3DLookup, RootOutsideTheLimitIsNotReported)
{
    insert({{10, 0, 0}});
    expectNone({0, 0, 0}, 9.0);
    insert({{20, 0, 0}, {-11, 0, 0}});
    expectNone({0, 0, 0}, 9.0);
    insert({{0, 8, 0}});
    expectNearest({0, 0, 0}, 9.0, {0, 8, 0});
}

TEST_F(Point3DLookup, OnlyTheSizeOfTheLimitCounts)
{
    insert({{1, 0, 0}});
    expectNearest({0, 0, 0}, -1.0, {1, 0, 0});
    expectNone({0, 0, 0}, -0.5);
}

TEST_F(Point3DLookup, RangeIsOpen)
{
    insert({{3, 4, 0}, {0, 0, 1}, {5, 5, 5}});
    EXPECT_EQ(lookup->findWithinRange({0, 0, 0}, 5.0), QList<Point3D>({{0, 0, 1}}));
    EXPECT_EQ(lookup->findWithinRange({0, 0, 0}, std::nextafter(5.0, 6.0)),
              QList<Point3D>({{3, 4, 0}, {0, 0, 1}}));
}

TEST_F(Point3DLookup, RangeOfZeroOrNegativeRadiusIsEmpty)
{
    insert({{1, 2, 3}});
    EXPECT_TRUE(lookup->findWithinRange({1, 2, 3}, 0.0).isEmpty());
    EXPECT_TRUE(lookup->findWithinRange({1, 2, 3}, -1.0).isEmpty());
    EXPECT_TRUE(lookup->findWithinRange({1, 2, 3}, -inf).isEmpty());
}

TEST_F(Point3DLookup, RangeOfInfiniteRadiusHoldsEverythingFinite)
{
    insert({{1, 2, 3}, {inf, 0, 0}, {-4, 5, 6}, {0, nan, 0}});
    EXPECT_EQ(lookup->findWithinRange({0, 0, 0}, inf), QList<Point3D>({{1, 2, 3}, {-4, 5, 6}}));
}

TEST_F(Point3DLookup, DuplicateComesTwice)
{
    insert({{1, 1, 1}, {1, 1, 1}});
    EXPECT_EQ(lookup->findWithinRange({1, 1, 1}, 0.5), QList<Point3D>({{1, 1, 1}, {1, 1, 1}}));
}

TEST_F(Point3DLookup, RangeComesInTheOrderNodeLeftRight)
{
    // Split by x, then y, then z: the children of (0, 0, 0) are (-1, 0, 0) and (1, 0, 0), and so
    // on.
    insert({{0, 0, 0}, {1, 0, 0}, {-1, 0, 0}, {1, 2, 0}, {-1, -2, 0}, {1, -2, 0}, {-1, 2, 0}});
    EXPECT_EQ(
        lookup->findWithinRange({0, 0, 0}, 3.0),
        QList<Point3D>(
            {{0, 0, 0}, {-1, 0, 0}, {-1, -2, 0}, {-1, 2, 0}, {1, 0, 0}, {1, -2, 0}, {1, 2, 0}}));
}

TEST_F(Point3DLookup, TieGoesToTheSideAwayFromTheQuery)
{
    insert({{0, 0, 0}, {-1, 0, 0}, {1, 0, 0}});
    expectNearest({0.0, 3, 0}, inf, {0, 0, 0});
    // A coordinate equal to the node's goes right, so the left side is searched last.
    insert({{0, 5, 0}, {-1, 3, 0}, {1, 3, 0}});
    expectNearest({0, 3, 0}, inf, {-1, 3, 0});
}

TEST_F(Point3DLookup, LaterOfTwoZerosOfUnlikeSignWins)
{
    // Equal values: the second lies to the right of the first and is examined later.
    insert({{0.0, 0, 0}, {-0.0, 0, 0}});
    auto const answer = lookup->findNearest({0, 0, 0}, 1.0);
    ASSERT_TRUE(answer.second);
    EXPECT_TRUE(std::signbit(answer.first.x()));
}

TEST_F(Point3DLookup, AscendingInputLosesItsTail)
{
    for (int i = 0; i < 2000; ++i) {
        insert({{double(i), double(i), double(i)}});
    }
    QList<Point3D> const stored = lookup->findWithinRange({0, 0, 0}, inf);
    ASSERT_EQ(stored.size(), 1002);
    for (int i = 0; i < 1002; ++i) {
        EXPECT_EQ(stored[i], Point3D(i, i, i));
    }
    expectNearest({1500, 1500, 1500}, inf, {1001, 1001, 1001});
    // Another path is still open.
    insert({{-1, 0, 0}});
    EXPECT_EQ(lookup->findWithinRange({0, 0, 0}, inf).size(), 1003);
    expectNearest({-2, 0, 0}, inf, {-1, 0, 0});
}

TEST_F(Point3DLookup, DescendingInputLosesItsTail)
{
    for (int i = 0; i < 1500; ++i) {
        insert({{-double(i), -double(i), -double(i)}});
    }
    EXPECT_EQ(lookup->findWithinRange({0, 0, 0}, inf).size(), 1002);
}

TEST_F(Point3DLookup, DuplicatesFillTheDepthToo)
{
    for (int i = 0; i < 1100; ++i) {
        insert({{1, 2, 3}});
    }
    EXPECT_EQ(lookup->findWithinRange({1, 2, 3}, 1.0).size(), 1002);
}

TEST_F(Point3DLookup, NanIsStoredAndNeverFound)
{
    insert({{nan, 0, 0}, {0, nan, 0}, {1, 1, nan}});
    expectNone({0, 0, 0}, inf);
    EXPECT_TRUE(lookup->findWithinRange({0, 0, 0}, inf).isEmpty());
    insert({{1, 1, 1}});
    expectNearest({0, 0, 0}, inf, {1, 1, 1});
    EXPECT_EQ(lookup->findWithinRange({0, 0, 0}, 2.0), QList<Point3D>({{1, 1, 1}}));
}

TEST_F(Point3DLookup, QuestionsWithNanFindNothing)
{
    insert({{1, 1, 1}, {2, 2, 2}});
    expectNone({nan, 1, 1}, inf);
    expectNone({1, 1, nan}, 1.0);
    expectNone({1, 1, 1}, nan);
    EXPECT_TRUE(lookup->findWithinRange({1, nan, 1}, 1.0).isEmpty());
    EXPECT_TRUE(lookup->findWithinRange({1, 1, 1}, nan).isEmpty());
}

TEST_F(Point3DLookup, InfiniteQueryFindsFinitePointsWithoutLimitOnly)
{
    insert({{1, 1, 1}, {2, 2, 2}});
    // Both are infinitely far away; the second, to the right of the first, is examined later.
    expectNearest({inf, 0, 0}, inf, {2, 2, 2});
    // The left side comes last, and its plane is no farther than the limit.
    insert({{0, 0, 0}});
    expectNearest({inf, 0, 0}, inf, {0, 0, 0});
    expectNone({inf, 0, 0}, 1e100);
}

TEST_F(Point3DLookup, InfiniteNodeHidesItsLeftSideFromAnInfiniteQuery)
{
    // The difference of two infinities is NaN: the plane of the root fails its test.
    insert({{inf, 0, 0}, {1, 1, 1}});
    expectNone({inf, 0, 0}, inf);
    expectNearest({-inf, 0, 0}, inf, {1, 1, 1});
}

TEST_F(Point3DLookup, OverflowingDistancesAreWithinAnOverflowingLimit)
{
    insert({{1e200, 0, 0}});
    expectNearest({0, 0, 0}, 1e160, {1e200, 0, 0});
    expectNone({0, 0, 0}, 1e150);
}

TEST_F(Point3DLookup, UnderflowingDistancesAreEqual)
{
    insert({{0, 0, 0}, {1e-170, 0, 0}});
    expectNearest({0, 0, 0}, 0.0, {1e-170, 0, 0});
}

TEST(Point3DLookupLifetime, ReferencesKeepTheLookup)
{
    static_assert(std::is_base_of_v<PRefObject, Point3DLookupC>);
    static_assert(std::has_virtual_destructor_v<Point3DLookupC>);
    PRefPtr<Point3DLookupC> first(new Point3DLookupC);
    first->insert({1, 2, 3});
    PRefPtr<Point3DLookupC> const second = first;
    EXPECT_EQ(second->refCount(), 2);
    first = nullptr;
    EXPECT_EQ(second->refCount(), 1);
    EXPECT_TRUE(second->findNearest({1, 2, 3}, 0.0).second);
}

} // namespace
