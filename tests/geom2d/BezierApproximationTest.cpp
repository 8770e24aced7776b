#include "ConstructionFixtures.h"

#include <OrvelMath/geom2d/BezierApproximation.h>

namespace {

using Arcs = QList<QList<Point2D>>;

TEST(InterpolateCubic, TwoArcsMeetInTheMiddleOfTheCurve)
{
    Point2D const p0(0, 0), p1(1, 2), p2(3, 2), p3(4, 0);
    Arcs const arcs = BezierApproximation::interpolateCubic(p0, p1, p2, p3, 0.1);
    ASSERT_EQ(arcs.size(), 2);
    ASSERT_EQ(arcs[0].size(), 3);
    ASSERT_EQ(arcs[1].size(), 3);
    EXPECT_POINT(arcs[0][0], 0, 0);
    EXPECT_POINT(arcs[0][2], 2, 1.5);
    EXPECT_POINT(arcs[1][0], 2, 1.5);
    EXPECT_POINT(arcs[1][2], 4, 0);
    EXPECT_POINT(arcs[0][1],
                 0.5120000000000001 * 0 + 0.3840000000000001 * 1 + 0.09600000000000003 * 3 +
                     0.008000000000000002 * 4,
                 0.5120000000000001 * 0 + 0.3840000000000001 * 2 + 0.09600000000000003 * 2 +
                     0.008000000000000002 * 0);
    EXPECT_POINT(
        arcs[1][1],
        0.007999999999999995 * 0 + 0.09599999999999997 * 1 + 0.384 * 3 + 0.5120000000000001 * 4,
        0.007999999999999995 * 0 + 0.09599999999999997 * 2 + 0.384 * 2 + 0.5120000000000001 * 0);
}

TEST(InterpolateCubic, ToleranceAboveHalfTheSpanGivesOneArc)
{
    Arcs const arcs = BezierApproximation::interpolateCubic(Point2D(0, 0), Point2D(1, 2),
                                                            Point2D(3, 2), Point2D(4, 0), 2.6);
    ASSERT_EQ(arcs.size(), 1);
    ASSERT_EQ(arcs[0].size(), 3);
    EXPECT_POINT(arcs[0][0], 0, 0);
    EXPECT_POINT(arcs[0][1], 2, 1.5);
    EXPECT_POINT(arcs[0][2], 4, 0);
}

TEST(InterpolateCubic, OneShortEndIsEnoughForOneArc)
{
    // middle (4.5, 0): 4.5 from the start, 0.5 and a half from the end
    EXPECT_EQ(BezierApproximation::interpolateCubic(Point2D(0, 0), Point2D(6, 0), Point2D(6, 0),
                                                    Point2D(5, 0), 1.0)
                  .size(),
              1);
    EXPECT_EQ(BezierApproximation::interpolateCubic(Point2D(5, 0), Point2D(6, 0), Point2D(6, 0),
                                                    Point2D(0, 0), 1.0)
                  .size(),
              1);
}

TEST(InterpolateCubic, DistanceEqualToTheToleranceGivesTwoArcs)
{
    EXPECT_EQ(BezierApproximation::interpolateCubic(Point2D(0, 0), Point2D(1, 2), Point2D(3, 2),
                                                    Point2D(4, 0), 2.5)
                  .size(),
              2);
}

TEST(InterpolateCubic, CoincidingPointsWithoutToleranceGiveTwoArcs)
{
    // The weights at one half are exact. Those at one and four fifths add up to a little more than
    // one, so the through points may be a few units of rounding off.
    Point2D const p(3, 4);
    Arcs const arcs = BezierApproximation::interpolateCubic(p, p, p, p, 0);
    ASSERT_EQ(2, arcs.size());
    for (QList<Point2D> const &arc : arcs) {
        ASSERT_EQ(3, arc.size());
        EXPECT_POINT(arc[0], 3, 4);
        EXPECT_POINT(arc[2], 3, 4);
    }
    EXPECT_POINT(arcs[0][1], 3 + 0x1p-50, 4 + 0x1p-50);
    EXPECT_POINT(arcs[1][1], 3 + 0x1p-51, 4);

    Point2D const origin(0, 0);
    for (QList<Point2D> const &arc :
         BezierApproximation::interpolateCubic(origin, origin, origin, origin, 0)) {
        for (Point2D const &q : arc) {
            EXPECT_POINT(q, 0, 0);
        }
    }
}

TEST(InterpolateCubic, EndPointsPassUnchanged)
{
    Point2D const p0(0.1, 0.7), p3(1e-300, -0.0);
    Arcs const arcs =
        BezierApproximation::interpolateCubic(p0, Point2D(1, 1), Point2D(2, 2), p3, 0.001);
    ASSERT_EQ(arcs.size(), 2);
    EXPECT_POINT(arcs[0][0], 0.1, 0.7);
    EXPECT_POINT(arcs[1][2], 1e-300, 0);
    EXPECT_TRUE(std::signbit(arcs[1][2].y()));
    EXPECT_TRUE(arcs[0][2] == arcs[1][0]);
}

TEST(InterpolateCubic, NotANumberGivesTwoArcs)
{
    Point2D const p(nan64, 0);
    EXPECT_EQ(BezierApproximation::interpolateCubic(p, p, p, p, 1).size(), 2);
    EXPECT_EQ(BezierApproximation::interpolateCubic(Point2D(0, 0), Point2D(0, 0), Point2D(0, 0),
                                                    Point2D(0, 0), nan64)
                  .size(),
              2);
    Arcs const far = BezierApproximation::interpolateCubic(Point2D(0, 0), Point2D(inf, 0),
                                                           Point2D(1, 0), Point2D(2, 0), 1);
    EXPECT_EQ(far.size(), 2);
    EXPECT_EQ(far[0][2].x(), inf);
}

TEST(CubicToArc, RunsThroughTheMiddle)
{
    QList<Point2D> const arc =
        BezierApproximation::cubicToArc(Point2D(0, 0), Point2D(1, 2), Point2D(3, 2), Point2D(4, 0));
    ASSERT_EQ(arc.size(), 3);
    EXPECT_POINT(arc[0], 0, 0);
    EXPECT_POINT(arc[1], 2, 1.5);
    EXPECT_POINT(arc[2], 4, 0);
}

TEST(QuatToArc, IsEmpty)
{
    EXPECT_TRUE(
        BezierApproximation::quatToArc(Point2D(0, 0), Point2D(1, 2), Point2D(3, 2)).isEmpty());
    EXPECT_TRUE(BezierApproximation::quatToArc(Point2D(nan64, 0), Point2D(inf, 2), Point2D(3, 2))
                    .isEmpty());
}

RC_GTEST_PROP(InterpolateCubicProperty, ThroughPointsLieOnTheCurve, ())
{
    Point2D const p[4] = {anyPoint(100), anyPoint(100), anyPoint(100), anyPoint(100)};
    Arcs const arcs = BezierApproximation::interpolateCubic(p[0], p[1], p[2], p[3], 0);
    RC_ASSERT(arcs.size() == 2);
    auto const casteljau = [&p](double t) {
        Point2D q[4] = {p[0], p[1], p[2], p[3]};
        for (int level = 3; level > 0; --level) {
            for (int i = 0; i < level; ++i) {
                q[i] = q[i].Scale(1 - t) + q[i + 1].Scale(t);
            }
        }
        return q[0];
    };
    requireNear(distanceOf(arcs[0][1], casteljau(0.2)), 0, 1e-12);
    requireNear(distanceOf(arcs[0][2], casteljau(0.5)), 0, 1e-12);
    requireNear(distanceOf(arcs[1][1], casteljau(0.8)), 0, 1e-12);
}

} // namespace
