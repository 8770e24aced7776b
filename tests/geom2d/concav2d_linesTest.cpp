#include "PlaneFixtures.h"

#include <OrvelMath/geom2d/concav2d.h>

#include <rapidcheck/gtest.h>

using namespace concav2d;

namespace {

TEST(ComparePoints, OrdersByXThenByY)
{
    EXPECT_EQ(comparePoints({0, 0}, {2, -5}, 1.0), -1);
    EXPECT_EQ(comparePoints({2, -5}, {0, 0}, 1.0), 1);
    EXPECT_EQ(comparePoints({0, 0}, {0.5, 2}, 1.0), -1);
    EXPECT_EQ(comparePoints({0.5, 2}, {0, 0}, 1.0), 1);
}

TEST(ComparePoints, DistanceEqualToTheToleranceIsTheSamePoint)
{
    EXPECT_EQ(comparePoints({0, 0}, {3, 4}, 5.0), 0);
    EXPECT_EQ(comparePoints({0, 0}, {3, 4}, std::nextafter(5.0, 0.0)), 1);
}

TEST(ComparePoints, NearInEachCoordinateButNotInDistanceGivesOneBothWays)
{
    EXPECT_EQ(comparePoints({0, 0}, {0.9, 0.9}, 1.0), 1);
    EXPECT_EQ(comparePoints({0.9, 0.9}, {0, 0}, 1.0), 1);
}

TEST(ComparePoints, DifferenceEqualToTheToleranceDoesNotDecide)
{
    // dx is exactly tol: y decides.
    EXPECT_EQ(comparePoints({0, 0}, {1, 3}, 1.0), -1);
    EXPECT_EQ(comparePoints({0, 0}, {1, -3}, 1.0), 1);
    EXPECT_EQ(comparePoints({1, 0}, {0, 3}, 1.0), -1);
    // dy is exactly tol: 1.
    EXPECT_EQ(comparePoints({0, 0}, {1, 1}, 1.0), 1);
}

TEST(ComparePoints, NanComparesOne)
{
    EXPECT_EQ(comparePoints({nan64, 0}, {0, 0}, 1.0), 1);
    EXPECT_EQ(comparePoints({0, 0}, {nan64, 0}, 1.0), 1);
    EXPECT_EQ(comparePoints({0, 0}, {0, 0}, nan64), 1);
    EXPECT_EQ(comparePoints({0, 0}, {inf, 0}, 1.0), -1);
    EXPECT_EQ(comparePoints({0, 0}, {0, 0}, -1.0), -1); // 0 is above -1
}

TEST(IsColinear, NamesTheOrderAlongTheLine)
{
    Point2D const a(0, 0);
    Point2D const b(1, 1);
    Point2D const c(3, 3);
    double const tol = 1e-9;
    EXPECT_EQ(isColinear(a, b, c, tol), 1);
    EXPECT_EQ(isColinear(a, c, b, tol), 2);
    EXPECT_EQ(isColinear(b, a, c, tol), 3);
    EXPECT_EQ(isColinear(c, a, b, tol), 4);
    EXPECT_EQ(isColinear(b, c, a, tol), 5);
    EXPECT_EQ(isColinear(c, b, a, tol), 6);
}

TEST(IsColinear, RefusesATriangle)
{
    EXPECT_EQ(isColinear({0, 0}, {1, 1}, {2, 0}, 1e-6), 0);
    EXPECT_EQ(isColinear({0, 0}, {1, 1}, {2, 0}, nan64), 0);
    EXPECT_EQ(isColinear({nan64, 0}, {1, 1}, {2, 0}, 1e-6), 0);
}

TEST(IsColinear, ToleranceEqualToTheExcessCounts)
{
    // 3-4-5: 5 - 3 - 4 is exactly -2.
    EXPECT_EQ(isColinear({0, 0}, {3, 0}, {3, 4}, 2.0), 1);
    EXPECT_EQ(isColinear({0, 0}, {3, 0}, {3, 4}, std::nextafter(2.0, 0.0)), 0);
}

TEST(IsColinear, CoincidingPointsTakeTheFirstOrder)
{
    EXPECT_EQ(isColinear({1, 1}, {1, 1}, {1, 1}, 0.0), 4);
    // p1 and p2 coincide: p2 counts as between p0 and p1.
    EXPECT_EQ(isColinear({0, 0}, {1, 0}, {1, 0}, 0.0), 2);
}

TEST(AreLinesParallel, WantsTheSameSense)
{
    EXPECT_TRUE(areLinesParallel({0, 0}, {1, 0}, {5, 5}, {7, 5}, 0.0));
    EXPECT_FALSE(areLinesParallel({0, 0}, {1, 0}, {1, 0}, {0, 0}, 1e-3));
}

TEST(AreLinesParallel, DoesNotBridgeThePositiveAxis)
{
    // p0 - p1 points along (1, 0.001) and p2 - p3 along (1, -0.001): 0.06 and 359.94 degrees.
    EXPECT_FALSE(areLinesParallel({1, 0.001}, {0, 0}, {1, -0.001}, {0, 0}, 1.0));
    EXPECT_TRUE(areLinesParallel({-1, 0.001}, {0, 0}, {-1, -0.001}, {0, 0}, 1.0));
}

TEST(AreLinesParallel, ToleranceIsDegreesAndInclusive)
{
    // 90 degrees exactly by definition, 180 likewise.
    EXPECT_TRUE(areLinesParallel({0, 1}, {0, 0}, {-1, 0}, {0, 0}, 90.0));
    EXPECT_FALSE(areLinesParallel({0, 1}, {0, 0}, {-1, 0}, {0, 0}, std::nextafter(90.0, 0.0)));
    EXPECT_FALSE(areLinesParallel({0, 1}, {0, 0}, {-1, 0}, {0, 0}, nan64));
    EXPECT_FALSE(areLinesParallel({nan64, 1}, {0, 0}, {-1, 0}, {0, 0}, 360.0));
}

TEST(DistanceBetweenParallels, MeasuresAlongTheFirstNormal)
{
    double dist = untouched;
    EXPECT_EQ(distanceBetweenParallels({0, 0}, {4, 0}, {-7, 3}, {9, 3}, dist, nan64), 0);
    EXPECT_EQ(dist, 3.0);
    // Not parallel, and not checked: the second line has the height 1 above p0.
    EXPECT_EQ(distanceBetweenParallels({0, 0}, {4, 0}, {-1, 0}, {1, 2}, dist, 0.0), 0);
    EXPECT_EQ(dist, 1.0);
}

TEST(DistanceBetweenParallels, NormalAlongTheSecondLineHasNoAnswer)
{
    double dist = untouched;
    EXPECT_EQ(distanceBetweenParallels({0, 0}, {1, 0}, {3, 0}, {3, 5}, dist, 0.0), 1);
    EXPECT_EQ(distanceBetweenParallels({0, 0}, {0, 0}, {3, 0}, {3, 5}, dist, 0.0), 1);
    EXPECT_EQ(dist, untouched);
    EXPECT_EQ(distanceBetweenParallels({nan64, 0}, {1, 0}, {3, 0}, {4, 5}, dist, 0.0), 0);
    EXPECT_TRUE(std::isnan(dist));
}

TEST(DistanceBetweenParallels, CrossProductLimitIsExclusive)
{
    double dist = untouched;
    // The cross product is 1e-100 in both directions and passes; a hair below does not.
    EXPECT_EQ(distanceBetweenParallels({0, 0}, {1, 0}, {0, 2}, {1e-100, 2}, dist, 0.0), 0);
    EXPECT_EQ(dist, 2.0);
    dist = untouched;
    double const below = std::nextafter(1e-100, 0.0);
    EXPECT_EQ(distanceBetweenParallels({0, 0}, {1, 0}, {0, 2}, {below, 2}, dist, 0.0), 1);
    EXPECT_EQ(dist, untouched);
}

TEST(PointOnLine, EndsWinOverTheMiddle)
{
    EXPECT_EQ(pointOnLine({0, 0}, {10, 0}, {0.25, 0}, 0.5), 1);
    EXPECT_EQ(pointOnLine({0, 0}, {10, 0}, {9.75, 0}, 0.5), 2);
    EXPECT_EQ(pointOnLine({0, 0}, {10, 0}, {5, 0}, 0.5), 3);
    EXPECT_EQ(pointOnLine({0, 0}, {10, 0}, {11, 0}, 0.5), 0);
}

TEST(PointOnLine, FirstEndWinsOnAShortSegment)
{
    EXPECT_EQ(pointOnLine({0, 0}, {2, 0}, {1, 0}, 1.0), 1);
    EXPECT_EQ(pointOnLine({0, 0}, {2, 0}, {1, 0}, std::nextafter(1.0, 0.0)), 3);
}

TEST(PointOnLine, MeasuresTheDetourAndNotTheDistance)
{
    // 3-4-5 twice: the detour over (4, 3) is 5 + 5 - 8 = 2.
    EXPECT_EQ(pointOnLine({0, 0}, {8, 0}, {4, 3}, 2.0), 3);
    EXPECT_EQ(pointOnLine({0, 0}, {8, 0}, {4, 3}, std::nextafter(2.0, 0.0)), 0);
}

TEST(PointOnLine, NanFallsThroughToBetween)
{
    EXPECT_EQ(pointOnLine({0, 0}, {8, 0}, {nan64, 3}, 1.0), 3);
    EXPECT_EQ(pointOnLine({0, 0}, {8, 0}, {4, 3}, nan64), 3);
    EXPECT_EQ(pointOnLine({0, 0}, {8, 0}, {inf, 0}, 1.0), 0);
}

TEST(IntersectLineLine, CutsInfiniteLines)
{
    Point2D out;
    EXPECT_EQ(intersectLineLine({0, 0}, {1, 1}, {4, 0}, {4, 1}, out), 0);
    EXPECT_POINT(out, 4.0, 4.0);
}

TEST(IntersectLineLine, OnlyAnExactlyZeroDeterminantIsParallel)
{
    Point2D out = untouchedPoint();
    EXPECT_EQ(intersectLineLine({0, 0}, {1, 0}, {0, 1}, {5, 1}, out), 1);
    EXPECT_EQ(intersectLineLine({2, 2}, {2, 2}, {0, 1}, {5, 1}, out), 1);
    EXPECT_POINT(out, untouched, untouched);
    EXPECT_EQ(intersectLineLine({0, 0}, {1, 0}, {0, 1}, {1, 1 - 1e-15}, out), 0);
    EXPECT_GT(out.x(), 9e14);
    EXPECT_EQ(intersectLineLine({nan64, 0}, {1, 0}, {0, 1}, {5, 1}, out), 0);
    EXPECT_TRUE(std::isnan(out.x()));
}

TEST(IntersectLineLineOfTheConstructions, AnswersOneForFound)
{
    Point2D out;
    EXPECT_EQ(intersect_line_line({0, 0}, {1, 1}, {4, 0}, {4, 1}, out, 1e-9), 1);
    EXPECT_POINT(out, 4.0, 4.0);
}

TEST(IntersectLineLineOfTheConstructions, EpsBoundsTheRawCrossProduct)
{
    Point2D out = untouchedPoint();
    // The cross product is exactly 6; equality passes.
    EXPECT_EQ(intersect_line_line({0, 0}, {2, 0}, {0, 1}, {0, 4}, out, 6.0), 1);
    EXPECT_POINT(out, 0.0, 0.0);
    out = untouchedPoint();
    EXPECT_EQ(intersect_line_line({0, 0}, {2, 0}, {0, 1}, {0, 4}, out, std::nextafter(6.0, 7.0)),
              0);
    EXPECT_POINT(out, untouched, untouched);
    // Scaled down it is refused at the same eps: an area.
    EXPECT_EQ(intersect_line_line({0, 0}, {0.2, 0}, {0, 1}, {0, 1.3}, out, 1.0), 0);
    EXPECT_POINT(out, untouched, untouched);
}

TEST(IntersectLineLineOfTheConstructions, ParallelsWithoutEpsGiveInfinityOrNan)
{
    Point2D out;
    EXPECT_EQ(intersect_line_line({0, 0}, {1, 0}, {0, 1}, {1, 1}, out, 0.0), 1);
    EXPECT_FALSE(std::isfinite(out.x()));
    EXPECT_EQ(intersect_line_line({nan64, 0}, {1, 0}, {0, 1}, {1, 1}, out, 1.0), 1);
    EXPECT_TRUE(std::isnan(out.x()));
}

TEST(IntersectEdgeEdge, ClassesTheCrossing)
{
    Point2D out;
    EXPECT_EQ(intersectEdgeEdge({0, 0}, {4, 4}, {0, 4}, {4, 0}, out, 1e-9), Crossing);
    EXPECT_POINT(out, 2.0, 2.0);
    EXPECT_EQ(intersectEdgeEdge({0, 0}, {4, 0}, {4, 0}, {4, 4}, out, 1e-9), EndToEnd);
    EXPECT_POINT(out, 4.0, 0.0);
    EXPECT_EQ(intersectEdgeEdge({0, 0}, {4, 0}, {2, 0}, {2, 4}, out, 1e-9), EndOnEdge);
    EXPECT_EQ(intersectEdgeEdge({2, 0}, {2, 4}, {0, 0}, {4, 0}, out, 1e-9), EndOnEdge);
    EXPECT_POINT(out, 2.0, 0.0);
}

TEST(IntersectEdgeEdge, TheEnumeratorsKeepTheirValues)
{
    EXPECT_EQ(int(concav2d::NoIntersection), 0);
    EXPECT_EQ(int(concav2d::EndToEnd), 1);
    EXPECT_EQ(int(concav2d::EndOnEdge), 2);
    EXPECT_EQ(int(concav2d::Crossing), 4);
}

TEST(IntersectEdgeEdge, OffAnEdgeTheOutputKeepsTheCrossingOfTheLines)
{
    Point2D out = untouchedPoint();
    EXPECT_EQ(intersectEdgeEdge({0, 0}, {1, 0}, {4, -1}, {4, 1}, out, 1e-9),
              concav2d::NoIntersection);
    EXPECT_POINT(out, 4.0, 0.0);
    EXPECT_EQ(intersectEdgeEdge({0, 0}, {8, 0}, {5, 1}, {5, 2}, out, 1e-9),
              concav2d::NoIntersection);
    EXPECT_POINT(out, 5.0, 0.0);
}

TEST(IntersectEdgeEdge, ParallelsLeaveTheOutputAlone)
{
    Point2D out = untouchedPoint();
    EXPECT_EQ(intersectEdgeEdge({0, 0}, {1, 0}, {0, 1}, {1, 1}, out, 1.0),
              concav2d::NoIntersection);
    EXPECT_EQ(intersectEdgeEdge({0, 0}, {1, 0}, {0, 0}, {1, 0}, out, 1.0),
              concav2d::NoIntersection);
    EXPECT_POINT(out, untouched, untouched);
}

TEST(IntersectEdgeEdge, EndWithinTheToleranceOffTheOtherEdgeStillCounts)
{
    Point2D out;
    // The crossing lies 0.25 beyond the end of the first edge: a detour of 0.5.
    EXPECT_EQ(intersectEdgeEdge({0, 0}, {2, 0}, {2.25, -1}, {2.25, 1}, out, 0.5), EndOnEdge);
    EXPECT_EQ(intersectEdgeEdge({0, 0}, {2, 0}, {2.25, -1}, {2.25, 1}, out, 0.4375),
              concav2d::NoIntersection);
}

TEST(IntersectEdgeEdge, NanCrosses)
{
    Point2D out;
    EXPECT_EQ(intersectEdgeEdge({nan64, 0}, {2, 0}, {1, -1}, {1, 1}, out, 0.5), Crossing);
}

TEST(DoOverlap, SharesMoreThanAPoint)
{
    Point2D sorted[4];
    EXPECT_TRUE(doOverlap({0, 0}, {2, 0}, {1, 0}, {3, 0}, sorted, 1e-9));
    EXPECT_POINT(sorted[0], 0.0, 0.0);
    EXPECT_POINT(sorted[1], 1.0, 0.0);
    EXPECT_POINT(sorted[2], 2.0, 0.0);
    EXPECT_POINT(sorted[3], 3.0, 0.0);
}

TEST(DoOverlap, TouchingInAPointSortsAndDenies)
{
    Point2D sorted[4] = {untouchedPoint(), untouchedPoint(), untouchedPoint(), untouchedPoint()};
    EXPECT_FALSE(doOverlap({0, 0}, {1, 0}, {1, 0}, {2, 0}, sorted, 1e-9));
    EXPECT_POINT(sorted[0], 0.0, 0.0);
    EXPECT_POINT(sorted[1], 1.0, 0.0);
    EXPECT_POINT(sorted[2], 1.0, 0.0);
    EXPECT_POINT(sorted[3], 2.0, 0.0);
}

TEST(DoOverlap, SensesOfTheSegmentsDoNotMatter)
{
    Point2D sorted[4];
    EXPECT_TRUE(doOverlap({3, 3}, {0, 0}, {2, 2}, {1, 1}, sorted, 1e-9));
    EXPECT_POINT(sorted[0], 0.0, 0.0);
    EXPECT_POINT(sorted[1], 1.0, 1.0);
    EXPECT_POINT(sorted[2], 2.0, 2.0);
    EXPECT_POINT(sorted[3], 3.0, 3.0);
}

TEST(DoOverlap, LeavesTheSortedPointsAloneWhenItCanTellAtOnce)
{
    Point2D sorted[4] = {untouchedPoint(), untouchedPoint(), untouchedPoint(), untouchedPoint()};
    EXPECT_FALSE(doOverlap({0, 0}, {1, 0}, {2, 0}, {3, 0}, sorted, 1e-9));      // apart
    EXPECT_FALSE(doOverlap({2, 0}, {3, 0}, {0, 0}, {1, 0}, sorted, 1e-9));      // apart
    EXPECT_FALSE(doOverlap({0, 0}, {4, 0}, {1, 0}, {3, 1}, sorted, 1e-9));      // p3 off the line
    EXPECT_FALSE(doOverlap({0, 0}, {4, 0}, {1, -1}, {3, 0}, sorted, 1e-9));     // p2 off the line
    EXPECT_FALSE(doOverlap({0, 0}, {0.5, 0}, {0, 0}, {3, 0}, sorted, 0.5));     // first too short
    EXPECT_FALSE(doOverlap({0, 0}, {3, 0}, {0.25, 0}, {0.75, 0}, sorted, 0.5)); // second
    for (Point2D const &p : sorted) {
        EXPECT_POINT(p, untouched, untouched);
    }
}

TEST(DoOverlap, ToleranceOfTheTurnIsAnArea)
{
    Point2D sorted[4];
    // p3 is 0.125 off a first segment of length 4: twice the triangle is 0.5.
    EXPECT_TRUE(doOverlap({0, 0}, {4, 0}, {1, 0}, {3, 0.125}, sorted, 0.5));
    EXPECT_FALSE(doOverlap({0, 0}, {4, 0}, {1, 0}, {3, 0.125}, sorted, 0.4375));
}

Point2D pointOf(std::pair<int, int> const &p)
{
    return Point2D(p.first / 8.0, p.second / 8.0);
}

rc::Gen<std::pair<int, int>> eighths()
{
    return rc::gen::pair(rc::gen::inRange(-800, 800), rc::gen::inRange(-800, 800));
}

double distanceFromLine(Point2D const &p, Point2D const &a, Point2D const &b)
{
    double const cross = (b.x() - a.x()) * (p.y() - a.y()) - (b.y() - a.y()) * (p.x() - a.x());
    return std::fabs(cross) / distanceOf(a, b);
}

RC_GTEST_PROP(LineCrossings, LieOnBothLinesAndAgree, ())
{
    Point2D const p0 = pointOf(*eighths());
    Point2D const p1 = pointOf(*eighths());
    Point2D const p2 = pointOf(*eighths());
    Point2D const p3 = pointOf(*eighths());
    double const cross =
        (p1.x() - p0.x()) * (p3.y() - p2.y()) - (p1.y() - p0.y()) * (p3.x() - p2.x());
    Point2D a;
    Point2D b;
    int const byDeterminant = intersectLineLine(p0, p1, p2, p3, a);
    int const byParameter = intersect_line_line(p0, p1, p2, p3, b, 1e-9);
    // The coordinates are multiples of 1/8, so the cross product is exact.
    RC_ASSERT(byDeterminant == (cross == 0.0 ? 1 : 0));
    RC_ASSERT(byParameter == (cross == 0.0 ? 0 : 1));
    if (cross == 0.0) {
        return;
    }
    double const condition = (1.0 + distanceOf(p0, p1) * distanceOf(p2, p3)) / std::fabs(cross);
    double const bound = 1e-12 * condition * (1.0 + distanceOf(p0, b));
    RC_ASSERT(distanceFromLine(a, p0, p1) <= bound);
    RC_ASSERT(distanceFromLine(a, p2, p3) <= bound);
    RC_ASSERT(distanceFromLine(b, p0, p1) <= bound);
    RC_ASSERT(distanceFromLine(b, p2, p3) <= bound);
}

RC_GTEST_PROP(PointOnLine, FindsWhatIsOnTheSegmentAndOnlyThat, ())
{
    Point2D const p0 = pointOf(*eighths());
    Point2D const p1 = pointOf(*eighths());
    RC_PRE(distanceOf(p0, p1) > 1.0);
    double const t = *rc::gen::inRange(100, 901) / 1000.0;
    Point2D const on(p0.x() + t * (p1.x() - p0.x()), p0.y() + t * (p1.y() - p0.y()));
    RC_ASSERT(pointOnLine(p0, p1, on, 1e-9) == 3);
    Point2D const beyond(p0.x() + (1 + t) * (p1.x() - p0.x()),
                         p0.y() + (1 + t) * (p1.y() - p0.y()));
    RC_ASSERT(pointOnLine(p0, p1, beyond, 1e-9) == 0);
    RC_ASSERT(pointOnLine(p0, p1, p0, 1e-9) == 1);
    RC_ASSERT(pointOnLine(p0, p1, p1, 1e-9) == 2);
}

RC_GTEST_PROP(IsColinear, ReversingTheOrderReversesTheCode, ())
{
    Point2D const p0 = pointOf(*eighths());
    std::pair<int, int> const d = *rc::gen::suchThat(
        eighths(), [](std::pair<int, int> const &v) { return v.first != 0 || v.second != 0; });
    Point2D const p1(p0.x() + d.first, p0.y() + d.second);
    Point2D const p2(p0.x() + 3 * d.first, p0.y() + 3 * d.second);
    int const code = isColinear(p0, p1, p2, 1e-9);
    RC_ASSERT(code == 1 || code == 6);
    RC_ASSERT(isColinear(p2, p1, p0, 1e-9) == 7 - code);
}

} // namespace
