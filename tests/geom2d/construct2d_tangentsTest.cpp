#include "ConstructionFixtures.h"

#include <OrvelMath/geom2d/construct2d.h>

namespace {

struct PointTangent
{
    int result;
    Point2D from = untouchedPoint();
    Point2D touch = untouchedPoint();
};

PointTangent tangentOf(Point2D const &p, Point2D const &c, double r, int side, double eps = 1e-6)
{
    PointTangent t{};
    t.result = tangente_punkt_kreis(p, c, r, side, t.from, t.touch, eps);
    return t;
}

struct CircleTangent
{
    int result;
    Point2D t1 = untouchedPoint();
    Point2D t2 = untouchedPoint();
};

enum Cross { Outer = 0, Inner = 1 };

CircleTangent tangentOf(Point2D const &c1, double r1, Point2D const &c2, double r2, int side,
                        int cross, int magnitudes = 0, double eps = 1e-6)
{
    CircleTangent t{};
    t.result = tangente_kreis_kreis(c1, r1, c2, r2, side, cross, t.t1, t.t2, magnitudes, eps);
    return t;
}

void expectNone(CircleTangent const &t)
{
    EXPECT_EQ(t.result, 0);
    EXPECT_POINT(t.t1, untouched, untouched);
    EXPECT_POINT(t.t2, untouched, untouched);
}

double const root3 = std::sqrt(3.0);

TEST(TangentePunktKreis, SideChoosesTheTouchingPointLeftOrRight)
{
    PointTangent const left = tangentOf(Point2D(5, 0), Point2D(0, 0), 3, 0);
    EXPECT_EQ(left.result, 1);
    EXPECT_POINT(left.from, 5, 0);
    EXPECT_POINT_NEAR(left.touch, 1.8, 2.4, 1e-15);
    PointTangent const right = tangentOf(Point2D(5, 0), Point2D(0, 0), 3, 1);
    EXPECT_EQ(right.result, 1);
    EXPECT_POINT_NEAR(right.touch, 1.8, -2.4, 1e-15);
    EXPECT_POINT(tangentOf(Point2D(5, 0), Point2D(0, 0), 3, -7).touch, right.touch.x(),
                 right.touch.y());
}

TEST(TangentePunktKreis, PointOnTheCircleTouchesItself)
{
    PointTangent const t = tangentOf(Point2D(4, 1), Point2D(1, 1), 3, 0);
    EXPECT_EQ(t.result, 1);
    EXPECT_POINT(t.touch, 4, 1);
}

TEST(TangentePunktKreis, CentreHasNone)
{
    PointTangent const t = tangentOf(Point2D(1, 2), Point2D(1, 2), 3, 0);
    EXPECT_EQ(t.result, 0);
    EXPECT_POINT(t.from, untouched, untouched);
    EXPECT_POINT(t.touch, untouched, untouched);
}

TEST(TangentePunktKreis, EpsIsExceededStrictly)
{
    EXPECT_EQ(tangentOf(Point2D(1, 0), Point2D(0, 0), 0.5, 0, 1.0).result, 1);
    EXPECT_EQ(tangentOf(Point2D(1, 0), Point2D(0, 0), 0.5, 0, 1.0000001).result, 0);
}

TEST(TangentePunktKreis, InsideGivesAPointOfTheCentreLine)
{
    PointTangent const t = tangentOf(Point2D(1, 0), Point2D(0, 0), 2, 0);
    EXPECT_EQ(t.result, 1);
    EXPECT_POINT(t.touch, 4, 0);
}

TEST(TangentePunktKreis, NegativeRadiusSwapsTheSides)
{
    PointTangent const t = tangentOf(Point2D(5, 0), Point2D(0, 0), -3, 0);
    EXPECT_POINT_NEAR(t.touch, 1.8, -2.4, 1e-15);
}

TEST(TangentePunktKreis, NotANumberPassesThrough)
{
    PointTangent const t = tangentOf(Point2D(nan64, 0), Point2D(0, 0), 3, 0);
    EXPECT_EQ(t.result, 1);
    EXPECT_TRUE(std::isnan(t.from.x()));
    EXPECT_TRUE(std::isnan(t.touch.x()));
    PointTangent const far = tangentOf(Point2D(inf, 0), Point2D(0, 0), 3, 0);
    EXPECT_EQ(far.result, 1);
    EXPECT_TRUE(std::isnan(far.touch.x()));
    EXPECT_EQ(tangentOf(Point2D(5, 0), Point2D(0, 0), 3, 0, nan64).result, 1);
}

RC_GTEST_PROP(TangentePunktKreisProperty, TouchesAtARightAngle, ())
{
    Point2D const c = anyPoint(100);
    Point2D const p = anyPoint(100);
    double const r = anyPositive(100);
    RC_PRE((p - c).Length() > r * 1.0001);
    for (int side = 0; side < 2; ++side) {
        PointTangent const t = tangentOf(p, c, r, side);
        RC_ASSERT(t.result == 1);
        requireNear(distanceOf(t.touch, c), r, 1e-10);
        requireNear(distanceToLine(c, t.from, t.touch), r, 1e-7);
        Point2D const d = p - c;
        Point2D const w = t.touch - c;
        RC_ASSERT((d.x() * w.y() - d.y() * w.x() > 0) == (side == 0));
    }
}

TEST(TangenteKreisKreis, OuterOfEqualRadiiLiesStraightAcross)
{
    CircleTangent const left = tangentOf(Point2D(0, 0), 1, Point2D(4, 0), 1, 0, Outer);
    EXPECT_EQ(left.result, 1);
    EXPECT_POINT(left.t1, 0, 1);
    EXPECT_POINT(left.t2, 4, 1);
    CircleTangent const right = tangentOf(Point2D(0, 0), 1, Point2D(4, 0), 1, 1, Outer);
    EXPECT_POINT(right.t1, 0, -1);
    EXPECT_POINT(right.t2, 4, -1);
}

TEST(TangenteKreisKreis, OuterOfEqualRadiiOnASlantLiesStraightAcross)
{
    // The centres are 5 apart along (3, 4) / 5; its left normal is (-4, 3) / 5.
    CircleTangent const left = tangentOf(Point2D(1, 2), 2.5, Point2D(4, 6), 2.5, 0, Outer);
    EXPECT_EQ(1, left.result);
    EXPECT_POINT_NEAR(left.t1, -1, 3.5, 1e-15);
    EXPECT_POINT_NEAR(left.t2, 2, 7.5, 1e-15);
    CircleTangent const right = tangentOf(Point2D(1, 2), 2.5, Point2D(4, 6), 2.5, 1, Outer);
    EXPECT_EQ(1, right.result);
    EXPECT_POINT_NEAR(right.t1, 3, 0.5, 1e-15);
    EXPECT_POINT_NEAR(right.t2, 6, 4.5, 1e-15);
}

TEST(TangenteKreisKreis, OuterOfNearlyEqualRadiiKeepsEachRadius)
{
    CircleTangent const t = tangentOf(Point2D(0, 0), 1, Point2D(4, 0), 1.04, 0, Outer, 0, 0.1);
    EXPECT_POINT(t.t1, 0, 1);
    EXPECT_POINT(t.t2, 4, 1.04);
}

TEST(TangenteKreisKreis, OuterOfALargeAndASmallCircle)
{
    CircleTangent const left = tangentOf(Point2D(0, 0), 3, Point2D(4, 0), 1, 0, Outer);
    EXPECT_EQ(left.result, 1);
    EXPECT_POINT_NEAR(left.t1, 1.5, 1.5 * root3, 1e-14);
    EXPECT_POINT_NEAR(left.t2, 4.5, 0.5 * root3, 1e-14);
    CircleTangent const right = tangentOf(Point2D(0, 0), 3, Point2D(4, 0), 1, 1, Outer);
    EXPECT_POINT_NEAR(right.t1, 1.5, -1.5 * root3, 1e-14);
    EXPECT_POINT_NEAR(right.t2, 4.5, -0.5 * root3, 1e-14);
}

TEST(TangenteKreisKreis, OuterSideTurnsOverWithTheLargerCircleUnlessByMagnitudes)
{
    CircleTangent const plain = tangentOf(Point2D(0, 0), 1, Point2D(4, 0), 3, 0, Outer);
    EXPECT_POINT_NEAR(plain.t1, -0.5, -0.5 * root3, 1e-14);
    EXPECT_POINT_NEAR(plain.t2, 2.5, -1.5 * root3, 1e-14);
    CircleTangent const magnitudes = tangentOf(Point2D(0, 0), 1, Point2D(4, 0), 3, 0, Outer, 1);
    EXPECT_POINT_NEAR(magnitudes.t1, -0.5, 0.5 * root3, 1e-14);
    EXPECT_POINT_NEAR(magnitudes.t2, 2.5, 1.5 * root3, 1e-14);
    CircleTangent const other = tangentOf(Point2D(0, 0), 1, Point2D(4, 0), 3, 1, Outer, 1);
    EXPECT_POINT_NEAR(other.t1, -0.5, -0.5 * root3, 1e-14);
}

TEST(TangenteKreisKreis, NoOuterForACircleInTheOther)
{
    expectNone(tangentOf(Point2D(0, 0), 3, Point2D(1, 0), 1, 0, Outer));
    expectNone(tangentOf(Point2D(0, 0), 3, Point2D(2, 0), 1, 0, Outer)); // touching from within
}

TEST(TangenteKreisKreis, NoneForCoincidingCentres)
{
    expectNone(tangentOf(Point2D(1, 1), 3, Point2D(1, 1), 1, 0, Outer));
    expectNone(tangentOf(Point2D(1, 1), 3, Point2D(1, 1), 1, 0, Inner));
    expectNone(tangentOf(Point2D(0, 0), 3, Point2D(0.49, 0), 3, 0, Outer, 0, 1.0));
    EXPECT_EQ(tangentOf(Point2D(0, 0), 3, Point2D(0.51, 0), 3, 0, Outer, 0, 1.0).result, 1);
}

TEST(TangenteKreisKreis, InnerCrossesTheCentreLine)
{
    CircleTangent const left = tangentOf(Point2D(0, 0), 1, Point2D(4, 0), 1, 0, Inner);
    EXPECT_EQ(left.result, 1);
    EXPECT_POINT_NEAR(left.t1, 0.5, 0.5 * root3, 1e-14);
    EXPECT_POINT_NEAR(left.t2, 3.5, -0.5 * root3, 1e-14);
    CircleTangent const right = tangentOf(Point2D(0, 0), 1, Point2D(4, 0), 1, 1, Inner);
    EXPECT_POINT_NEAR(right.t1, 0.5, -0.5 * root3, 1e-14);
    EXPECT_POINT_NEAR(right.t2, 3.5, 0.5 * root3, 1e-14);
}

TEST(TangenteKreisKreis, NoInnerForTouchingOrOverlappingCircles)
{
    expectNone(tangentOf(Point2D(0, 0), 2, Point2D(3, 0), 2, 0, Inner));
    expectNone(tangentOf(Point2D(0, 0), 2, Point2D(4, 0), 2, 0, Inner));
}

TEST(TangenteKreisKreis, InnerThresholdIsHalfTheGrid)
{
    expectNone(tangentOf(Point2D(0, 0), 2, Point2D(4.25, 0), 2, 0, Inner, 0, 1.0));
    EXPECT_EQ(tangentOf(Point2D(0, 0), 2, Point2D(4.75, 0), 2, 0, Inner, 0, 1.0).result, 1);
}

TEST(TangenteKreisKreis, NoInnerForTwoRadiiOfZero)
{
    expectNone(tangentOf(Point2D(0, 0), 0, Point2D(4, 0), 0, 0, Inner));
    expectNone(tangentOf(Point2D(0, 0), 0.2, Point2D(8, 0), -0.2, 0, Inner, 0, 1.0));
    CircleTangent const point = tangentOf(Point2D(0, 0), 0, Point2D(4, 0), 1, 0, Inner);
    EXPECT_EQ(point.result, 1);
    EXPECT_TRUE(std::isnan(point.t1.x()));
    CircleTangent const other = tangentOf(Point2D(0, 0), 1, Point2D(4, 0), 0, 0, Inner);
    EXPECT_EQ(other.result, 1);
    EXPECT_POINT(other.t2, 4, 0);
    EXPECT_NEAR(other.t1.x(), 0.25, 1e-15);
}

TEST(TangenteKreisKreis, MagnitudesUndoTheSwapOfNegativeRadii)
{
    CircleTangent const plain = tangentOf(Point2D(0, 0), -1, Point2D(4, 0), -1, 0, Inner);
    EXPECT_EQ(plain.result, 1);
    CircleTangent const magnitudes = tangentOf(Point2D(0, 0), -1, Point2D(4, 0), -1, 0, Inner, 1);
    EXPECT_NEAR(magnitudes.t1.y(), 0.5 * root3, 1e-14);
    EXPECT_NEAR(magnitudes.t2.y(), -0.5 * root3, 1e-14);
    EXPECT_NEAR(plain.t1.y(), -0.5 * root3, 1e-14);
    EXPECT_NEAR(plain.t2.y(), 0.5 * root3, 1e-14);
}

TEST(TangenteKreisKreis, NotANumber)
{
    EXPECT_EQ(tangentOf(Point2D(nan64, 0), 1, Point2D(4, 0), 1, 0, Outer).result, 1);
    expectNone(tangentOf(Point2D(nan64, 0), 2, Point2D(4, 0), 1, 0, Outer));
    EXPECT_EQ(tangentOf(Point2D(0, 0), nan64, Point2D(4, 0), 1, 0, Inner).result, 1);
    for (int const cross : {Outer, Inner}) {
        CircleTangent const far = tangentOf(Point2D(0, 0), 2, Point2D(inf, 0), 1, 0, cross);
        EXPECT_EQ(far.result, 1);
        EXPECT_TRUE(std::isnan(far.t1.x()));
    }
}

void requireTangent(CircleTangent const &t, Point2D const &c1, double r1, Point2D const &c2,
                    double r2)
{
    requireNear(distanceOf(t.t1, c1), r1, 1e-9);
    requireNear(distanceOf(t.t2, c2), r2, 1e-9);
    requireNear(distanceToLine(c1, t.t1, t.t2), r1, 1e-6);
    requireNear(distanceToLine(c2, t.t1, t.t2), r2, 1e-6);
}

RC_GTEST_PROP(TangenteKreisKreisProperty, LineTouchesBothCircles, ())
{
    Point2D const c1 = anyPoint(100);
    Point2D const c2 = anyPoint(100);
    double const r1 = anyPositive(60);
    double const r2 = anyPositive(60);
    double const L = distanceOf(c1, c2);
    RC_PRE(L > std::fabs(r1 - r2) + 0.01);
    RC_PRE(r1 == r2 || std::fabs(r1 - r2) > 0.001);
    for (int side = 0; side < 2; ++side) {
        for (int magnitudes = 0; magnitudes < 2; ++magnitudes) {
            CircleTangent const outer = tangentOf(c1, r1, c2, r2, side, Outer, magnitudes);
            RC_ASSERT(outer.result == 1);
            requireTangent(outer, c1, r1, c2, r2);
            CircleTangent const inner = tangentOf(c1, r1, c2, r2, side, Inner, magnitudes);
            if (L > r1 + r2 + 0.01) {
                RC_ASSERT(inner.result == 1);
                requireTangent(inner, c1, r1, c2, r2);
            } else if (L < r1 + r2) {
                RC_ASSERT(inner.result == 0);
            }
        }
    }
}

} // namespace
