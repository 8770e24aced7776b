#include "PlaneFixtures.h"

#include <OrvelMath/geom2d/Math2D.h>
#include <OrvelMath/geom2d/concav2d.h>

#include <rapidcheck/gtest.h>

#include <random>

namespace {

TEST(Math2DComparePoints, LooksAtXThenAtYInASquare)
{
    EXPECT_EQ(Math2DComparePoints({1, 1}, {0, 0}, 1.0), 0);
    EXPECT_EQ(Math2DComparePoints({-1, 1}, {0, 0}, 1.0), 0);
    EXPECT_EQ(Math2DComparePoints({1.5, -9}, {0, 0}, 1.0), 1);
    EXPECT_EQ(Math2DComparePoints({-1.5, 9}, {0, 0}, 1.0), -1);
    EXPECT_EQ(Math2DComparePoints({1, 1.5}, {0, 0}, 1.0), 1);
    EXPECT_EQ(Math2DComparePoints({1, -1.5}, {0, 0}, 1.0), -1);
    EXPECT_EQ(Math2DComparePoints({nan64, nan64}, {0, 0}, 1.0), 0);
}

TEST(Math2DIntersect2Lines, TheEnumeratorsKeepTheirValues)
{
    EXPECT_EQ(int(NoIntersection), 0);
    EXPECT_EQ(int(ProperCrossing), 1);
    EXPECT_EQ(int(EndOnSegment), 2);
    EXPECT_EQ(int(EndToEnd), 3);
}

TEST(Math2DIntersect2Lines, ASharedEndGivesTheEndOfTheFirstSegment)
{
    Point2D const end(1, 1);
    Point2D const near(1.25, 0.75); // within the square of the tolerance
    double const tol = 0.25;
    Point2D out;
    EXPECT_EQ(Math2DIntersect2Lines(end, {5, 1}, {1, 5}, near, out, tol), EndToEnd);
    EXPECT_POINT(out, 1.0, 1.0);
    EXPECT_EQ(Math2DIntersect2Lines(end, {5, 1}, near, {1, 5}, out, tol), EndToEnd);
    EXPECT_POINT(out, 1.0, 1.0);
    EXPECT_EQ(Math2DIntersect2Lines({5, 1}, end, {1, 5}, near, out, tol), EndToEnd);
    EXPECT_POINT(out, 1.0, 1.0);
    EXPECT_EQ(Math2DIntersect2Lines({5, 1}, end, near, {1, 5}, out, tol), EndToEnd);
    EXPECT_POINT(out, 1.0, 1.0);
}

TEST(Math2DIntersect2Lines, TheFirstEndOfTheFirstSegmentComesFirst)
{
    Point2D out;
    EXPECT_EQ(Math2DIntersect2Lines({0, 0}, {4, 0}, {4, 0}, {0, 0}, out, 1e-6), EndToEnd);
    EXPECT_POINT(out, 0.0, 0.0);
}

TEST(Math2DIntersect2Lines, ClassesTheCrossing)
{
    Point2D out;
    EXPECT_EQ(Math2DIntersect2Lines({0, 0}, {4, 4}, {0, 4}, {4, 0}, out, 1e-6), ProperCrossing);
    EXPECT_POINT(out, 2.0, 2.0);
    EXPECT_EQ(Math2DIntersect2Lines({0, 0}, {4, 0}, {1, 0}, {1, 4}, out, 1e-6), EndOnSegment);
    EXPECT_POINT(out, 1.0, 0.0);
    EXPECT_EQ(Math2DIntersect2Lines({1, 0}, {1, 4}, {0, 0}, {4, 0}, out, 1e-6), EndOnSegment);
    EXPECT_EQ(Math2DIntersect2Lines({0, 0}, {4, 0}, {1, 4}, {1, 0}, out, 1e-6), EndOnSegment);
}

TEST(Math2DIntersect2Lines, NearTheEndsOfBothIsEndToEndEvenIfTheEndsAreApart)
{
    Point2D out;
    EXPECT_EQ(Math2DIntersect2Lines({0, 0}, {4, 0}, {1.5, 0.5}, {-2, -3}, out, 1.25), EndToEnd);
    EXPECT_POINT(out, 1.0, 0.0);
}

TEST(Math2DIntersect2Lines, DistanceEqualToTheToleranceIsNotAtTheEnd)
{
    Point2D out;
    EXPECT_EQ(Math2DIntersect2Lines({0, 0}, {4, 0}, {1, -2}, {1, 2}, out, 1.0), ProperCrossing);
    EXPECT_EQ(Math2DIntersect2Lines({0, 0}, {4, 0}, {1, -2}, {1, 2}, out, 1.25), EndOnSegment);
    EXPECT_EQ(Math2DIntersect2Lines({0, 0}, {4, 0}, {3, -2}, {3, 2}, out, 1.0), ProperCrossing);
    EXPECT_EQ(Math2DIntersect2Lines({0, 0}, {4, 0}, {3, -2}, {3, 2}, out, 1.25), EndOnSegment);
}

TEST(Math2DIntersect2Lines, TheRangeOfTheSegmentsHasNoTolerance)
{
    Point2D out = untouchedPoint();
    // Each misses by a hair, in t below 0 and above 1 and in u likewise.
    EXPECT_EQ(Math2DIntersect2Lines({1e-9, 0}, {4, 0}, {0, -2}, {0, 2}, out, 0.5), NoIntersection);
    EXPECT_EQ(Math2DIntersect2Lines({-4, 0}, {-1e-9, 0}, {0, -2}, {0, 2}, out, 0.5),
              NoIntersection);
    EXPECT_EQ(Math2DIntersect2Lines({-2, 0}, {2, 0}, {0, 1e-9}, {0, 4}, out, 0.5), NoIntersection);
    EXPECT_EQ(Math2DIntersect2Lines({-2, 0}, {2, 0}, {0, -4}, {0, -1e-9}, out, 0.5),
              NoIntersection);
    EXPECT_POINT(out, untouched, untouched);
}

TEST(Math2DIntersect2Lines, TheParallelLimitIsTheSquareOfTheTolerance)
{
    Point2D out = untouchedPoint();
    // A cross product of 0.25 passes at a tolerance of 0.5, one of 0.24 does not.
    EXPECT_EQ(Math2DIntersect2Lines({0, 0}, {2, 0}, {1, -0.06}, {1, 0.06}, out, 0.5),
              NoIntersection);
    EXPECT_POINT(out, untouched, untouched);
    EXPECT_EQ(Math2DIntersect2Lines({0, 0}, {2, 0}, {1, -0.0625}, {1, 0.0625}, out, 0.5),
              EndOnSegment);
    EXPECT_POINT(out, 1.0, 0.0);
}

TEST(Math2DIntersect2Lines, NanCoincides)
{
    Point2D out;
    EXPECT_EQ(Math2DIntersect2Lines({nan64, nan64}, {2, 0}, {1, -1}, {1, 1}, out, 0.5), EndToEnd);
    EXPECT_TRUE(std::isnan(out.x()));
}

TEST(Math2DIntersect2LinesWrong, ClassesLikeTheOtherOne)
{
    Point2D out;
    EXPECT_EQ(Math2DIntersect2LinesWrong({0, 0}, {4, 4}, {0, 4}, {4, 0}, out, 1e-6),
              ProperCrossing);
    EXPECT_POINT(out, 2.0, 2.0);
    EXPECT_EQ(Math2DIntersect2LinesWrong({0, 0}, {4, 0}, {1, 0}, {1, 4}, out, 1e-6), EndOnSegment);
    EXPECT_EQ(Math2DIntersect2LinesWrong({0, 0}, {4, 0}, {4, 0}, {4, 4}, out, 1e-6), EndToEnd);
    EXPECT_POINT(out, 4.0, 0.0);
}

TEST(Math2DIntersect2LinesWrong, RefusesOnlyAnExactlyZeroCrossProduct)
{
    Point2D out = untouchedPoint();
    EXPECT_EQ(Math2DIntersect2LinesWrong({0, 0}, {4, 0}, {4, 0}, {8, 0}, out, 1e-4),
              NoIntersection);
    EXPECT_POINT(out, untouched, untouched);
    // Nearly parallel: refused by the careful one.
    Point2D const a(0, 0);
    Point2D const b(1, 0);
    Point2D const c(0.25, -1e-10);
    Point2D const d(0.75, 1e-10);
    EXPECT_EQ(Math2DIntersect2Lines(a, b, c, d, out, 1e-4), NoIntersection);
    EXPECT_POINT(out, untouched, untouched);
    EXPECT_EQ(Math2DIntersect2LinesWrong(a, b, c, d, out, 1e-4), ProperCrossing);
    EXPECT_POINT_NEAR(out, 0.5, 0.0, 1e-6);
}

TEST(Math2DIntersect2LinesWrong, DoesNotLookAtCoincidingEndsBeforehand)
{
    // The ends are within the tolerance, but the segments miss each other.
    Point2D out = untouchedPoint();
    EXPECT_EQ(Math2DIntersect2LinesWrong({0, 0}, {4, 0}, {-0.25, 0}, {-0.25, 4}, out, 0.5),
              NoIntersection);
    EXPECT_POINT(out, untouched, untouched);
    EXPECT_EQ(Math2DIntersect2Lines({0, 0}, {4, 0}, {-0.25, 0}, {-0.25, 4}, out, 0.5), EndToEnd);
    EXPECT_POINT(out, 0.0, 0.0);
}

TEST(Math2DIntersect2LinesWrong, RoundingMayMissASharedEnd)
{
    std::mt19937_64 random(9);
    std::uniform_real_distribution<double> coordinate(-10.0, 10.0);
    int missed = 0;
    for (int i = 0; i < 1000; ++i) {
        Point2D const end(coordinate(random), coordinate(random));
        Point2D const a(coordinate(random), coordinate(random));
        Point2D const b(coordinate(random), coordinate(random));
        Point2D out;
        EXPECT_EQ(Math2DIntersect2Lines(end, a, end, b, out, 1e-9), EndToEnd);
        EXPECT_POINT(out, end.x(), end.y());
        IntersectionType const type = Math2DIntersect2LinesWrong(end, a, end, b, out, 1e-9);
        EXPECT_TRUE(type == EndToEnd || type == NoIntersection);
        missed += type == NoIntersection ? 1 : 0;
    }
    EXPECT_GT(missed, 100);
    EXPECT_LT(missed, 900);
}

TEST(InterLinLin, TakesPointsAndDirections)
{
    Point2D const crossing = inter_lin_lin({0, 0}, {1, 1}, {4, 0}, {0, 5}, nan64);
    EXPECT_POINT(crossing, 4.0, 4.0);
}

TEST(InterLinLin, ParallelsGiveTheMiddleOfTheBasePoints)
{
    Point2D const middle = inter_lin_lin({0, 0}, {1, 0}, {4, 6}, {-3, 0}, 0.0);
    EXPECT_POINT(middle, 2.0, 3.0);
    Point2D const far = inter_lin_lin({0, 0}, {1, 0}, {0, 1}, {1, 1e-15}, 1.0);
    EXPECT_LT(far.x(), -9e14);
    EXPECT_TRUE(std::isnan(inter_lin_lin({nan64, 0}, {1, 0}, {0, 1}, {0, 1}, 1.0).x()));
}

/// Exact class of two segments with integer ends, for segments that are not parallel.
IntersectionType exactClass(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                            Point2D const &p3)
{
    auto const side = [](Point2D const &a, Point2D const &b, Point2D const &p) {
        double const cross = (b.x() - a.x()) * (p.y() - a.y()) - (b.y() - a.y()) * (p.x() - a.x());
        return (cross > 0) - (cross < 0);
    };
    int const a = side(p0, p1, p2);
    int const b = side(p0, p1, p3);
    int const c = side(p2, p3, p0);
    int const d = side(p2, p3, p1);
    if (a * b > 0 || c * d > 0) {
        return NoIntersection;
    }
    bool const endOfSecond = a * b == 0;
    bool const endOfFirst = c * d == 0;
    if (endOfFirst && endOfSecond) {
        return EndToEnd;
    }
    return endOfFirst || endOfSecond ? EndOnSegment : ProperCrossing;
}

concav2d::IntersectionType asEdgeClass(IntersectionType type)
{
    switch (type) {
    case ProperCrossing:
        return concav2d::Crossing;
    case EndOnSegment:
        return concav2d::EndOnEdge;
    case EndToEnd:
        return concav2d::EndToEnd;
    default:
        return concav2d::NoIntersection;
    }
}

RC_GTEST_PROP(SegmentCrossings, AllThreeAgreeWithExactArithmeticOnTheGrid, ())
{
    auto const place = rc::gen::inRange(-8, 9);
    Point2D const p0(*place, *place);
    Point2D const p1(*place, *place);
    Point2D const p2(*place, *place);
    Point2D const p3(*place, *place);
    double const cross =
        (p1.x() - p0.x()) * (p3.y() - p2.y()) - (p1.y() - p0.y()) * (p3.x() - p2.x());
    bool const shared = p0 == p2 || p0 == p3 || p1 == p2 || p1 == p3;
    Point2D first = untouchedPoint();
    Point2D wrong = untouchedPoint();
    Point2D edge = untouchedPoint();
    IntersectionType const firstType = Math2DIntersect2Lines(p0, p1, p2, p3, first, 1e-6);
    IntersectionType const wrongType = Math2DIntersect2LinesWrong(p0, p1, p2, p3, wrong, 1e-6);
    concav2d::IntersectionType const edgeType =
        concav2d::intersectEdgeEdge(p0, p1, p2, p3, edge, 1e-6);
    if (cross == 0.0) {
        RC_ASSERT(firstType == (shared ? EndToEnd : NoIntersection));
        RC_ASSERT(wrongType == NoIntersection);
        RC_ASSERT(edgeType == concav2d::NoIntersection);
        RC_ASSERT(edge.x() == untouched);
        return;
    }
    IntersectionType const truth = exactClass(p0, p1, p2, p3);
    RC_ASSERT(firstType == truth);
    RC_ASSERT(wrongType == truth);
    RC_ASSERT(edgeType == asEdgeClass(truth));
    if (truth == NoIntersection) {
        RC_ASSERT(first.x() == untouched);
        RC_ASSERT(wrong.x() == untouched);
        return;
    }
    for (Point2D const &out : {first, wrong, edge}) {
        RC_ASSERT(concav2d::pointOnLine(p0, p1, out, 1e-9) != 0);
        RC_ASSERT(concav2d::pointOnLine(p2, p3, out, 1e-9) != 0);
    }
}

} // namespace
