#include "HullDefinition.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <limits>
#include <set>

namespace {

QList<int> indicesOf(Points2 const &points)
{
    return ConvexHullBuilderC::computeConvexHullIndices2D(points);
}

using Indices = QList<int>;

} // namespace

TEST(HullPolygon, OnePointIsItsOwnHull)
{
    EXPECT_EQ(Indices{0}, indicesOf({{3, 4}}));
    EXPECT_EQ((Points2{{3, 4}}), ConvexHullBuilderC::computeConvexHull2D({{3, 4}}));
}

TEST(HullPolygon, CopiesWithinToleranceOfStartLeaveOnlyTheStart)
{
    EXPECT_EQ(Indices{0}, indicesOf({{1, 1}, {1, 1}, {1 + 9e-9, 1}}));
    // Index 2 is the lexicographically smallest.
    EXPECT_EQ(Indices{2}, indicesOf({{1, 1}, {1, 1 + 5e-9}, {1 - 4e-9, 1}}));
}

TEST(HullPolygon, ADistanceOfExactlyTheToleranceIsNoCopy)
{
    EXPECT_EQ(Indices{}, indicesOf({{0, 0}, {1e-8, 0}}));
    EXPECT_EQ(Indices{0}, indicesOf({{0, 0}, {std::nextafter(1e-8, 0), 0}}));
}

TEST(HullPolygon, TwoPointsGiveNothing)
{
    EXPECT_EQ(Indices{}, indicesOf({{0, 0}, {1, 2}}));
    EXPECT_TRUE(ConvexHullBuilderC::computeConvexHull2D({{0, 0}, {1, 2}}).isEmpty());
}

TEST(HullPolygon, CollinearPointsGiveNothing)
{
    EXPECT_EQ(Indices{}, indicesOf({{0, 0}, {1, 1}, {2, 2}, {3, 3}, {-5, -5}}));
    EXPECT_EQ(Indices{}, indicesOf({{0, 3}, {0, 1}, {0, 2}}));
}

TEST(HullPolygon, TriangleRunsCounterClockwiseFromTheSmallestPointWhateverTheOrder)
{
    Points2 const corners{{0, 0}, {4, 1}, {1, 3}};
    int order[3] = {0, 1, 2};
    do {
        Points2 const points{corners[order[0]], corners[order[1]], corners[order[2]]};
        EXPECT_EQ(corners, ConvexHullBuilderC::computeConvexHull2D(points));
    } while (std::next_permutation(order, order + 3));
}

TEST(HullPolygon, PointOnASideIsNoCorner)
{
    EXPECT_EQ((Indices{0, 2, 3, 4}), indicesOf({{0, 0}, {1, 0}, {2, 0}, {2, 2}, {0, 2}}));
    EXPECT_EQ((Indices{0, 1, 3, 4}), indicesOf({{0, 0}, {2, 0}, {2, 1}, {2, 2}, {0, 2}}));
    EXPECT_EQ((Indices{0, 1, 2, 4}), indicesOf({{0, 0}, {2, 0}, {2, 2}, {1, 2}, {0, 2}}));
    EXPECT_EQ((Indices{0, 1, 2, 3}), indicesOf({{0, 0}, {2, 0}, {2, 2}, {0, 2}, {0, 1}}));
}

TEST(HullPolygon, OnlyTheFarthestOfAnAngleSurvives)
{
    EXPECT_EQ((Indices{0, 3, 4}), indicesOf({{0, 0}, {1, 1}, {2, 2}, {3, 0}, {3, 3}}));
    // Within 1e-8 radians too, even if the nearer one would be a corner.
    EXPECT_EQ((Indices{0, 2, 3}), indicesOf({{0, 0}, {1, 0}, {2, 9e-9}, {1, 1}}));
    EXPECT_EQ((Indices{0, 1, 2, 3}), indicesOf({{0, 0}, {1, 0}, {2, 3e-8}, {1, 1}}));
}

TEST(HullPolygon, ARunOfAnglesIsMeasuredAgainstItsFirst)
{
    // 0, 0.6e-8, 1.2e-8: the third differs too much from the first, though not from the second.
    Points2 const points{{0, 0}, {1, 0}, {2, 1.2e-8}, {3, 3.6e-8}, {1, 1}};
    EXPECT_EQ(definedPolygon(points), indicesOf(points));
    EXPECT_EQ((Indices{0, 2, 3, 4}), indicesOf(points));
}

TEST(HullPolygon, OfExactCopiesTheEarlierInSortedOrderStays)
{
    EXPECT_EQ((Indices{0, 2, 3, 4}), indicesOf({{0, 0}, {0, 0}, {2, 0}, {2, 2}, {0, 2}}));
    // A sort of the records that keeps the order of equal ones would report 1, 2 and 3.
    Points2 points{{0, 0}};
    for (int copy = 0; copy < 5; ++copy) {
        points << vectorC2d<double>(2, 0) << vectorC2d<double>(2, 2) << vectorC2d<double>(0, 2);
    }
    EXPECT_EQ(definedPolygon(points), indicesOf(points));
}

TEST(HullPolygon, ACopyOfTheStartLeavesTheLowestIndex)
{
    EXPECT_EQ((Indices{1, 0, 3}), indicesOf({{2, 0}, {0, 0}, {0, 0}, {1, 2}}));
}

TEST(HullPolygon, AScanDownToOneEntryReportsNothing)
{
    // Angles fall into one run whose farthest point lies clockwise of the next run's.
    Points2 const points{{0, 0}, {1, 0}, {1e9, 5.0}, {1, 5.1e-9}, {2e9, 25.0}};
    EXPECT_EQ(definedPolygon(points), indicesOf(points));
    // Nothing turns left of a start that the others can't be told from.
    EXPECT_EQ(Indices{}, indicesOf({{0, 0}, {1, 0}, {support::nan, 0}, {1, 1}}));
}

TEST(HullPolygon, EmptyInputGivesIndexZeroAndTheOrigin)
{
    EXPECT_EQ(Indices{0}, indicesOf({}));
    EXPECT_EQ((Points2{{0, 0}}), ConvexHullBuilderC::computeConvexHull2D({}));
}

TEST(HullPolygon, NaNAndInfinityEndAsDefined)
{
    double const odd[] = {support::nan, support::inf, -support::inf, 0.0,
                          1.0,          1e308,        -1e308,        5e-324};
    std::mt19937 generator(11);
    for (int round = 0; round < 3000; ++round) {
        Points2 points;
        int const count = 200 + int(generator() % 12);
        unsigned const rate = 1 + unsigned(generator() % 400);
        for (int i = 0; i < count; ++i) {
            auto const coordinate = [&] {
                return generator() % rate ? double(generator() % 9) : odd[generator() % 8];
            };
            points.append({coordinate(), coordinate()});
        }
        ASSERT_EQ(definedPolygon(points), indicesOf(points)) << "round " << round;
    }
}

TEST(HullPolygon, NaNEverywhereEndsOnALargeInput)
{
    EXPECT_LE(indicesOf(Points2(100000, {support::nan, support::nan})).size(), 100000);
    EXPECT_EQ(definedPolygon(Points2(3000, {support::inf, support::nan})),
              indicesOf(Points2(3000, {support::inf, support::nan})));
}

TEST(HullPolygon, IsAsDefined)
{
    for (unsigned round = 0; round < 400; ++round) {
        std::mt19937 generator(round);
        Points2 points;
        int const count = 200 + int(generator() % (round % 10 == 0 ? 5000 : 60));
        unsigned const steps = 2u << generator() % 24;
        double const scale = round % 7 == 0 ? 1e-8 : round % 5 == 0 ? 1e7 : 0.01;
        for (int i = 0; i < count; ++i) {
            points.append(
                {double(generator() % steps) * scale, double(generator() % steps) * scale});
            if (round % 3 == 0 && generator() % 2) {
                points.append(points[int(generator() % unsigned(points.size()))]);
            }
        }
        ASSERT_EQ(definedPolygon(points), indicesOf(points)) << "round " << round;
    }
}

TEST(HullPolygon, IsAsDefinedOnCrowdedAngles)
{
    // Seen from far away the points crowd into angles about the tolerance.
    for (unsigned round = 0; round < 60; ++round) {
        std::mt19937 generator(round);
        Points2 points{{-1.0, 0.0}};
        double const spread = std::pow(10.0, -double(generator() % 10));
        for (int i = 0; i < 4000; ++i) {
            double const x = double(generator()) / 4294967296.0;
            double const y = (double(generator()) / 4294967296.0 - 0.5) * spread;
            points.append(round % 2 ? vectorC2d<double>(x, y)
                                    : vectorC2d<double>(1e3, 0.0) + vectorC2d<double>(y, 1e3 * y));
        }
        ASSERT_EQ(definedPolygon(points), indicesOf(points)) << "round " << round;
    }
}

TEST(HullPolygon, LargeConvexCurveKeepsItsOrder)
{
    Points2 points;
    int const count = 20000;
    for (int i = 0; i < count; ++i) {
        double const t = 2.0 * 3.141592653589793 * ((i * 7919) % count) / count;
        points.append({std::cos(t), std::sin(t)});
    }
    QList<int> const hull = indicesOf(points);
    EXPECT_EQ(definedPolygon(points), hull);
    EXPECT_EQ(count, hull.size());
}

TEST(HullPolygon, ThereAndBackAgainIsNoWorstCase)
{
    // Rising, then falling angles starve a plain quicksort.
    Points2 points{{0.0, 0.0}};
    int const half = 200000;
    for (int i = 0; i < half; ++i) {
        double const t = double(i) / half;
        points.append({t + 1.0, t * t});
    }
    for (int i = half; i-- > 0;) {
        double const t = double(i) / half;
        points.append({t + 0.5, t * t + 0.1});
    }
    EXPECT_GE(indicesOf(points).size(), 3);
}

/// The corners are the points that no triangle of other points holds.
RC_GTEST_PROP(HullPolygonProperty, MatchesBruteForce, ())
{
    // Whole numbers: all products are exact, and angles differ by far more than the tolerance.
    auto const raw = *rc::gen::container<std::vector<std::pair<int, int>>>(
        rc::gen::pair(rc::gen::inRange(-20, 20), rc::gen::inRange(-20, 20)));
    std::set<std::pair<int, int>> const distinct(raw.begin(), raw.end());
    RC_PRE(distinct.size() >= 3);
    Points2 points;
    for (auto const &[x, y] : distinct) {
        points.append({double(x), double(y)});
    }
    std::set<int> corners;
    for (int i = 0; i < points.size(); ++i) {
        for (int j = 0; j < points.size(); ++j) {
            // A directed pair is an edge if all others lie left of it, or on it between the two.
            bool edge = i != j;
            for (int k = 0; edge && k < points.size(); ++k) {
                double const area = doubleArea(points[i], points[j], points[k]);
                bool const between = (points[k] - points[i]).dot(points[k] - points[j]) <= 0.0;
                edge = area > 0.0 || (area == 0.0 && between);
            }
            if (edge) {
                corners.insert(i);
                corners.insert(j);
            }
        }
    }
    QList<int> const hull = indicesOf(points);
    if (corners.size() == 2) { // all on one line
        RC_ASSERT(hull.isEmpty());
        return;
    }
    RC_ASSERT(std::set<int>(hull.begin(), hull.end()) == corners);
    RC_ASSERT(std::size_t(hull.size()) == corners.size());
    RC_ASSERT(hull[0] == 0);
    for (int i = 0; i < hull.size(); ++i) {
        RC_ASSERT(doubleArea(points[hull[i]], points[hull[(i + 1) % hull.size()]],
                             points[hull[(i + 2) % hull.size()]]) > 0.0);
    }
}

RC_GTEST_PROP(HullPolygonProperty, PointsAreTheGatheredIndices,
              (std::vector<std::pair<double, double>> const &raw))
{
    Points2 points;
    for (auto const &[x, y] : raw) {
        points.append({x, y});
    }
    QList<int> const indices = indicesOf(points);
    RC_ASSERT(indices == definedPolygon(points));
    Points2 const hull = ConvexHullBuilderC::computeConvexHull2D(points);
    RC_ASSERT(hull.size() == indices.size());
    for (int i = 0; i < hull.size() && !points.isEmpty(); ++i) {
        RC_ASSERT(hull[i] == points[indices[i]]);
    }
}
