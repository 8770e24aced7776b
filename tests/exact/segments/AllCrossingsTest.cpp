#include "exact/support/caseCount.h"
#include "support/Bits.h"

#include <OrvelExact/segments/allCrossings.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace orvelExact;

namespace {

QVector<CrossingPair> allPairs(QVector<Segment2> const &s)
{
    QVector<CrossingPair> pairs;
    for (int i = 0; i < s.size(); ++i) {
        for (int j = i + 1; j < s.size(); ++j) {
            SegmentCrossing const c =
                crossSegments(s.at(i).from, s.at(i).to, s.at(j).from, s.at(j).to);
            if (c.kind != CrossingKind::None) {
                pairs.append({i, j, c});
            }
        }
    }
    return pairs;
}

void expectAllPairs(QVector<Segment2> const &segments)
{
    SegmentCrossings const actual = allCrossings(segments);
    QVector<CrossingPair> const expected = allPairs(segments);
    ASSERT_EQ(Status::Ok, actual.status);
    ASSERT_EQ(expected.size(), actual.pairs.size());
    for (int i = 0; i < expected.size(); ++i) {
        ASSERT_EQ(expected.at(i).first, actual.pairs.at(i).first);
        ASSERT_EQ(expected.at(i).second, actual.pairs.at(i).second);
        ASSERT_EQ(expected.at(i).crossing.kind, actual.pairs.at(i).crossing.kind);
        ASSERT_EQ(expected.at(i).crossing.point, actual.pairs.at(i).crossing.point);
        ASSERT_EQ(expected.at(i).crossing.last, actual.pairs.at(i).crossing.last);
    }
}

QVector<Segment2> onLattice(int count, int side, double unit, unsigned seed)
{
    std::mt19937_64 generator(seed);
    QVector<Segment2> segments;
    for (int i = 0; i < count; ++i) {
        double c[4];
        for (double &value : c) {
            value = unit * static_cast<double>(generator() % static_cast<unsigned>(side));
        }
        segments.append({{c[0], c[1]}, {c[2], c[3]}});
    }
    return segments;
}

QVector<Segment2> uniform(int count, double length, unsigned seed)
{
    std::mt19937_64 generator(seed);
    std::uniform_real_distribution<double> component(-1.0, 1.0);
    QVector<Segment2> segments;
    for (int i = 0; i < count; ++i) {
        Point2 const from(component(generator), component(generator));
        Point2 const step(component(generator), component(generator));
        segments.append({from, from + length * step});
    }
    return segments;
}

} // namespace

TEST(AllCrossings, AreThoseOfAllPairsOnALattice)
{
    int const rounds = support::runsLong() ? 300000 : 6000;
    for (int i = 0; i < rounds; ++i) {
        SCOPED_TRACE(i);
        double const unit = i % 2 == 0 ? 1.0 : 0.1;
        ASSERT_NO_FATAL_FAILURE(
            expectAllPairs(onLattice(i % 25, 2 + i % 9, unit, static_cast<unsigned>(i))));
    }
}

TEST(AllCrossings, AreThoseOfAllPairsOfRandomSegments)
{
    for (unsigned seed = 1; seed <= 10; ++seed) {
        expectAllPairs(uniform(300, 1.0, seed));
        expectAllPairs(uniform(1000, 0.1, seed));
        expectAllPairs(onLattice(200, 20, 1.0, seed));
        expectAllPairs(onLattice(300, 1000, 0.001, seed));
    }
}

TEST(AllCrossings, HoldForABundleThroughNearlyOnePoint)
{
    QVector<Segment2> bundle;
    QVector<Segment2> rounded;
    for (int i = 0; i < 80; ++i) {
        double const angle = 3.141592653589793 * i / 80;
        Point2 const direction(std::cos(angle), std::sin(angle));
        bundle.append({Point2(0.1, 0.3) - direction, Point2(0.1, 0.3) + direction});
        Point2 const whole(std::round(1000 * direction.x()), std::round(1000 * direction.y()));
        rounded.append({-whole, whole});
    }
    expectAllPairs(bundle);
    expectAllPairs(rounded);
    EXPECT_EQ(80 * 79 / 2, allCrossings(rounded).pairs.size());
}

TEST(AllCrossings, HoldForHugeAndTinyCoordinates)
{
    for (double const scale : {1e-300, 1e-60, 1e60, 1e300}) {
        QVector<Segment2> segments = uniform(100, 1.0, 3) + onLattice(60, 5, 0.25, 4);
        for (Segment2 &s : segments) {
            s.from *= scale;
            s.to *= scale;
        }
        expectAllPairs(segments);
    }
}

TEST(AllCrossings, KnowOverlapsAndPoints)
{
    SegmentCrossings const c =
        allCrossings({{{0, 0}, {4, 0}}, {{3, 0}, {1, 0}}, {{2, 0}, {2, 0}}, {{2, 5}, {2, -5}}});
    ASSERT_EQ(6, c.pairs.size());
    EXPECT_EQ(CrossingKind::Overlap, c.pairs.at(0).crossing.kind);
    EXPECT_EQ(Point2(1, 0), c.pairs.at(0).crossing.point);
    EXPECT_EQ(Point2(3, 0), c.pairs.at(0).crossing.last);
    EXPECT_EQ(CrossingKind::AtEnd, c.pairs.at(1).crossing.kind);
    EXPECT_EQ(CrossingKind::Proper, c.pairs.at(2).crossing.kind);
}

TEST(AllCrossings, RefuseNanAndInfinity)
{
    for (double const bad : {support::nan, support::inf}) {
        SegmentCrossings const c = allCrossings({{{0, 0}, {1, 1}}, {{0, 1}, {1, bad}}});
        EXPECT_EQ(Status::NotFinite, c.status);
        EXPECT_TRUE(c.pairs.isEmpty());
    }
    EXPECT_TRUE(allCrossings({}).pairs.isEmpty());
}
