#include <OrvelMath/lookup/Point2DLookupC.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

Q_DECLARE_METATYPE(std::shared_ptr<int>)

namespace {

double const inf = std::numeric_limits<double>::infinity();
double const nan = std::numeric_limits<double>::quiet_NaN();

using Result = PRefPtr<Point2DLookupResultC>;

class Point2DLookup : public ::testing::Test
{
protected:
    /// User data are 0, 1, 2 and so on in the order of insertion.
    void insert(std::initializer_list<Point2D> points)
    {
        for (Point2D const &p : points) {
            lookup->insert(p, next++);
        }
    }

    static void expectHit(Result const &result, int id, double distance)
    {
        ASSERT_TRUE(result);
        EXPECT_EQ(result->getUserData().toInt(), id);
        EXPECT_EQ(result->getDistance(), distance);
    }

    QList<int> idsInRange(Point2D const &centre, double radius) const
    {
        QList<int> ids;
        auto const hits = lookup->findWithinRangeUserData(centre, radius);
        for (auto const &hit : hits) {
            ids.append(hit.second.toInt());
        }
        return ids;
    }

    QList<int> neighbours(Point2D const &query, int k, double maxDistance = inf) const
    {
        QList<int> ids;
        auto const hits = lookup->findKNearestNeighbors(query, k, maxDistance);
        for (Result const &hit : hits) {
            ids.append(hit ? hit->getUserData().toInt() : -1);
        }
        return ids;
    }

    PRefPtr<Point2DLookupC> const lookup{new Point2DLookupC};
    int next = 0;
};

TEST_F(Point2DLookup, FindsNothingWhenEmpty)
{
    EXPECT_FALSE(lookup->findNearest({0, 0}, inf));
    EXPECT_FALSE(lookup->findNearestNotEqual({0, 0}, inf));
    EXPECT_TRUE(lookup->findWithinRange({0, 0}, inf).isEmpty());
    EXPECT_TRUE(lookup->findWithinRangeUserData({0, 0}, inf).isEmpty());
}

TEST_F(Point2DLookup, NeighboursOfNothing)
{
    QList<Result> const one = lookup->findKNearestNeighbors({0, 0}, 1, inf);
    ASSERT_EQ(one.size(), 1);
    EXPECT_FALSE(one[0]);
    EXPECT_TRUE(lookup->findKNearestNeighbors({0, 0}, 3, inf).isEmpty());
    EXPECT_TRUE(lookup->findKNearestNeighbors({0, 0}, 0, inf).isEmpty());
    EXPECT_TRUE(lookup->findKNearestNeighbors({0, 0}, -1, inf).isEmpty());
}

TEST_F(Point2DLookup, HitCarriesPointDistanceAndUserData)
{
    lookup->insert({3, 4}, QStringLiteral("corner"));
    Result const hit = lookup->findNearest({0, 0}, inf);
    ASSERT_TRUE(hit);
    EXPECT_TRUE(hit->getPoint() == Point2D(3, 4));
    EXPECT_EQ(hit->getDistance(), 5.0);
    EXPECT_EQ(hit->getUserData(), QVariant(QStringLiteral("corner")));
    EXPECT_EQ(hit->refCount(), 1);
}

TEST_F(Point2DLookup, LimitOfFindNearestIsInclusive)
{
    insert({{3, 4}});
    expectHit(lookup->findNearest({0, 0}, 5.0), 0, 5.0);
    expectHit(lookup->findNearest({0, 0}, -5.0), 0, 5.0);
    expectHit(lookup->findNearestNotEqual({0, 0}, 5.0), 0, 5.0);
    EXPECT_FALSE(lookup->findNearest({0, 0}, std::nextafter(5.0, 0.0)));
    EXPECT_FALSE(lookup->findNearestNotEqual({0, 0}, std::nextafter(5.0, 0.0)));
    expectHit(lookup->findNearest({3, 4}, 0.0), 0, 0.0);
}

TEST_F(Point2DLookup, RootOutsideTheLimitIsNotReported)
{
    insert({{10, 0}, {20, 0}, {-30, 0}});
    EXPECT_FALSE(lookup->findNearest({0, 0}, 9.0));
    insert({{0, 9}});
    expectHit(lookup->findNearest({0, 0}, 9.0), 3, 9.0);
}

TEST_F(Point2DLookup, LaterDuplicateIsFound)
{
    insert({{1, 1}, {1, 1}});
    expectHit(lookup->findNearest({1, 1}, inf), 1, 0.0);
    expectHit(lookup->findNearest({0, 1}, inf), 1, 1.0);
}

TEST_F(Point2DLookup, TieGoesToTheValueExaminedLater)
{
    // Below (0, 0), split by x, stand (-3, 0) and (3, 0); the query's side comes first.
    insert({{0, 0}, {-3, 0}, {3, 0}, {-3, 4}, {3, 4}});
    expectHit(lookup->findNearest({0, 4}, inf), 3, 3.0);
    expectHit(lookup->findNearest({-0.0, 4}, inf), 3, 3.0);
    insert({{-1, 4}, {1, 4}});
    expectHit(lookup->findNearest({0, 4}, inf), 5, 1.0);
}

TEST_F(Point2DLookup, NotEqualPassesOverEveryCopyOfTheQuery)
{
    insert({{1, 1}, {1, 1}});
    EXPECT_FALSE(lookup->findNearestNotEqual({1, 1}, inf));
    insert({{2, 1}, {1, 5}});
    expectHit(lookup->findNearestNotEqual({1, 1}, inf), 2, 1.0);
    expectHit(lookup->findNearestNotEqual({2, 1}, inf), 1, 1.0);
}

TEST_F(Point2DLookup, NotEqualHasNoTolerance)
{
    double const almost = std::nextafter(1.0, 2.0);
    insert({{1, 1}, {almost, 1}});
    expectHit(lookup->findNearestNotEqual({1, 1}, inf), 1, almost - 1.0);
    // One equal coordinate doesn't make an equal point, and -0 equals 0.
    insert({{0, 7}, {-0.0, 0}});
    expectHit(lookup->findNearestNotEqual({0, 0}, inf), 0, std::sqrt(2.0));
}

TEST_F(Point2DLookup, SinglePointAskedForItself)
{
    insert({{2, 3}});
    expectHit(lookup->findNearest({2, 3}, inf), 0, 0.0);
    EXPECT_FALSE(lookup->findNearestNotEqual({2, 3}, inf));
    EXPECT_TRUE(lookup->findKNearestNeighbors({2, 3}, 2, inf).isEmpty());
}

TEST_F(Point2DLookup, NeighboursComeFromGrowingDiscs)
{
    // The disc of radius 2 holds one point, for the one at 2 is not inside; that of 4 holds all.
    insert({{3, 0}, {0, 1}, {-2, 0}});
    auto const hits = lookup->findKNearestNeighbors({0, 0}, 2, 100.0);
    ASSERT_EQ(hits.size(), 2);
    expectHit(hits[0], 1, 1.0);
    expectHit(hits[1], 2, 2.0);
    EXPECT_EQ(neighbours({0, 0}, 3, 100.0), QList<int>({1, 2, 0}));
    EXPECT_EQ(neighbours({0, 0}, 7, 100.0), QList<int>({1, 2, 0}));
}

TEST_F(Point2DLookup, NeighboursWithinASmallLimitTakeOnePass)
{
    insert({{1, 0}, {0, 1.4}, {0, 1.6}, {9, 9}});
    EXPECT_EQ(neighbours({0, 0}, 3, 1.5), QList<int>({0, 1}));
}

TEST_F(Point2DLookup, NeighboursIncludeTheQueryItself)
{
    insert({{5, 5}, {5, 6}, {9, 9}});
    auto const hits = lookup->findKNearestNeighbors({5, 5}, 2, inf);
    ASSERT_EQ(hits.size(), 2);
    expectHit(hits[0], 0, 0.0);
    expectHit(hits[1], 1, 1.0);
}

TEST_F(Point2DLookup, NeighbourAtTheLimitIsLostForMoreThanOne)
{
    insert({{1, 0}, {7, 0}});
    EXPECT_EQ(neighbours({0, 0}, 2, 1.0), QList<int>());
    EXPECT_EQ(neighbours({0, 0}, 1, 1.0), QList<int>({0}));
}

TEST_F(Point2DLookup, OneNeighbourIsTheAnswerOfFindNearest)
{
    insert({{1, 0}, {0, 0}});
    EXPECT_EQ(neighbours({0, 0}, 1), QList<int>({1}));
    EXPECT_EQ(neighbours({9, 0}, 1, 7.0), QList<int>({-1}));
}

TEST_F(Point2DLookup, BelowOneNeighbourThereIsNone)
{
    insert({{1, 0}, {0, 0}});
    EXPECT_EQ(neighbours({0, 0}, 0), QList<int>());
    EXPECT_EQ(neighbours({0, 0}, -1), QList<int>());
    EXPECT_EQ(neighbours({0, 0}, std::numeric_limits<int>::min()), QList<int>());
}

TEST_F(Point2DLookup, MoreNeighboursThanPoints)
{
    insert({{1, 0}, {2, 0}, {50, 0}});
    EXPECT_EQ(neighbours({0, 0}, std::numeric_limits<int>::max()), QList<int>({0, 1, 2}));
    EXPECT_EQ(neighbours({0, 0}, 10, 40.0), QList<int>({0, 1}));
}

TEST_F(Point2DLookup, NeighboursAtTheSameDistanceKeepTheOrderOfTheTree)
{
    insert({{0, 2}, {-1, 0}, {1, 0}, {0, -1}, {0, 1}});
    QList<int> const inOrder = idsInRange({0, 0}, 1.5);
    EXPECT_EQ(inOrder, QList<int>({1, 2, 3, 4}));
    EXPECT_EQ(neighbours({0, 0}, 4), inOrder);
    EXPECT_EQ(neighbours({0, 0}, 2), inOrder.mid(0, 2));
}

TEST_F(Point2DLookup, NeighboursWithANegativeLimit)
{
    insert({{1, 0}, {2, 0}});
    EXPECT_EQ(neighbours({0, 0}, 1, -3.0), QList<int>({0}));
    EXPECT_EQ(neighbours({0, 0}, 2, -3.0), QList<int>());
}

TEST_F(Point2DLookup, NeighboursWithNanFindNothing)
{
    insert({{1, 0}, {2, 0}});
    EXPECT_EQ(neighbours({0, 0}, 2, nan), QList<int>());
    EXPECT_EQ(neighbours({0, 0}, 1, nan), QList<int>({-1}));
    EXPECT_EQ(neighbours({nan, 0}, 2), QList<int>());
}

TEST_F(Point2DLookup, NeighboursStopWhereTheRestIsNeverInRange)
{
    insert({{1, 0}, {nan, 0}, {inf, 0}, {2, 0}});
    EXPECT_EQ(neighbours({0, 0}, 4), QList<int>({0, 3}));
    EXPECT_EQ(neighbours({0, 0}, 4, 1e300), QList<int>({0, 3}));
}

TEST_F(Point2DLookup, NeighboursSoNearThatTheSquareVanishes)
{
    // The distance of the nearest is 0 to the computer, and a disc of radius 0 would never grow.
    insert({{0, 0}, {1e-170, 0}, {1, 0}});
    EXPECT_EQ(neighbours({0, 0}, 2, 10.0), QList<int>({0, 1}));
}

TEST_F(Point2DLookup, RangeIsOpen)
{
    insert({{3, 4}, {0, 1}, {5, 5}});
    EXPECT_EQ(idsInRange({0, 0}, 5.0), QList<int>({1}));
    EXPECT_EQ(idsInRange({0, 0}, std::nextafter(5.0, 6.0)), QList<int>({0, 1}));
    EXPECT_EQ(lookup->findWithinRange({0, 0}, 5.0).size(), 1);
    EXPECT_TRUE(lookup->findWithinRange({0, 0}, 5.0)[0] == Point2D(0, 1));
}

TEST_F(Point2DLookup, RangeOfZeroOrNegativeRadiusIsEmpty)
{
    insert({{1, 2}});
    for (double const radius : {0.0, -1.0, -inf, nan}) {
        EXPECT_EQ(idsInRange({1, 2}, radius), QList<int>()) << radius;
        EXPECT_TRUE(lookup->findWithinRange({1, 2}, radius).isEmpty()) << radius;
    }
}

TEST_F(Point2DLookup, RangeComesInTheOrderNodeLeftRight)
{
    insert({{0, 0}, {1, 0}, {-1, 0}, {1, 2}, {-1, -2}, {1, -2}, {-1, 2}});
    EXPECT_EQ(idsInRange({0, 0}, 3.0), QList<int>({0, 2, 4, 6, 1, 5, 3}));
}

TEST_F(Point2DLookup, BothRangesAgree)
{
    insert({{0, 0}, {1, 0}, {1, 0}, {0.5, 0.25}, {8, 8}});
    QList<Point2D> const points = lookup->findWithinRange({0.25, 0}, 2.0);
    auto const pairs = lookup->findWithinRangeUserData({0.25, 0}, 2.0);
    ASSERT_EQ(points.size(), 4);
    ASSERT_EQ(pairs.size(), 4);
    for (int i = 0; i < 4; ++i) {
        EXPECT_TRUE(points[i] == pairs[i].first);
    }
}

TEST_F(Point2DLookup, AscendingInputLosesItsTail)
{
    for (int i = 0; i < 1500; ++i) {
        insert({{double(i), double(i)}});
    }
    QList<int> const ids = idsInRange({0, 0}, inf);
    ASSERT_EQ(ids.size(), 1002);
    for (int i = 0; i < ids.size(); ++i) {
        EXPECT_EQ(ids[i], i);
    }
    expectHit(lookup->findNearest({2000, 2000}, inf), 1001,
              std::sqrt(2.0 * (2000.0 - 1001.0) * (2000.0 - 1001.0)));
}

TEST_F(Point2DLookup, EqualPointsAndRasterRowsKeep1002)
{
    for (bool const equal : {true, false}) {
        PRefPtr<Point2DLookupC> const chain(new Point2DLookupC);
        for (int i = 0; i < 20000; ++i) {
            chain->insert({equal ? 3.0 : double(i), 4.0}, i);
        }
        EXPECT_EQ(1002, chain->findWithinRange({0, 0}, inf).size());
        EXPECT_EQ(1001, chain->findNearest({2000, 4}, inf)->getUserData().toInt());
    }
}

TEST_F(Point2DLookup, NanAndInfinityInQuestionsAndPoints)
{
    insert({{nan, 0}, {0, nan}, {inf, 1}});
    EXPECT_FALSE(lookup->findNearest({0, 0}, 1e100));
    expectHit(lookup->findNearest({0, 0}, inf), 2, inf);
    insert({{1, 1}});
    expectHit(lookup->findNearest({0, 1}, inf), 3, 1.0);
    expectHit(lookup->findNearestNotEqual({1, 1}, inf), 2, inf);
    EXPECT_FALSE(lookup->findNearest({nan, 0}, inf));
    EXPECT_FALSE(lookup->findNearest({1, 1}, nan));
    EXPECT_EQ(idsInRange({0, 0}, inf), QList<int>({3}));
}

TEST(Point2DLookupResult, Defaults)
{
    Result const result(new Point2DLookupResultC);
    EXPECT_EQ(result->getDistance(), -1.0);
    EXPECT_TRUE(result->getPoint() == Point2D(0, 0));
    EXPECT_FALSE(result->getUserData().isValid());
}

TEST(Point2DLookupResult, HoldsWhatItIsGiven)
{
    Result const result(new Point2DLookupResultC({1, 2}, 7, 0.5));
    EXPECT_EQ(result->getDistance(), 0.5);
    EXPECT_TRUE(result->getPoint() == Point2D(1, 2));
    EXPECT_EQ(result->getUserData(), QVariant(7));
}

TEST(Point2DLookupResult, OutlivesTheLookup)
{
    PRefPtr<Point2DLookupC> lookup(new Point2DLookupC);
    lookup->insert({1, 2}, QStringLiteral("kept"));
    Result const hit = lookup->findNearest({0, 0}, inf);
    QList<Result> const hits = lookup->findKNearestNeighbors({0, 0}, 2, inf);
    lookup = nullptr;
    EXPECT_EQ(hit->getUserData(), QVariant(QStringLiteral("kept")));
    EXPECT_TRUE(hit->getPoint() == Point2D(1, 2));
    ASSERT_EQ(hits.size(), 1);
    EXPECT_EQ(hits[0]->getUserData(), QVariant(QStringLiteral("kept")));
}

TEST(Point2DLookupUserData, IsHeldOncePerEntryAndGoesWithTheLookup)
{
    auto const data = std::make_shared<int>(5);
    PRefPtr<Point2DLookupC> lookup(new Point2DLookupC);
    for (int i = 0; i < 5000; ++i) {
        lookup->insert({std::sin(i * 1.7), std::sin(i * 2.9)}, QVariant::fromValue(data));
    }
    EXPECT_EQ(data.use_count(), 5001);
    Result hit = lookup->findNearest({0, 0}, inf);
    EXPECT_EQ(hit->getUserData().value<std::shared_ptr<int>>(), data);
    lookup = nullptr;
    EXPECT_EQ(data.use_count(), 2);
    hit = nullptr;
    EXPECT_EQ(data.use_count(), 1);
}

} // namespace
