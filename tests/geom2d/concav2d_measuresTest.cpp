#include "PlaneFixtures.h"

#include <OrvelMath/geom2d/concav2d.h>

#include <rapidcheck/gtest.h>

#include <algorithm>

using namespace concav2d;

namespace {

constexpr double radians = 0.017453292519943295;

struct Box
{
    double xmin = untouched;
    double xmax = untouched;
    double ymin = untouched;
    double ymax = untouched;
};

void expectBox(Box const &box, double xmin, double xmax, double ymin, double ymax)
{
    EXPECT_NEAR(box.xmin, xmin, 1e-14);
    EXPECT_NEAR(box.xmax, xmax, 1e-14);
    EXPECT_NEAR(box.ymin, ymin, 1e-14);
    EXPECT_NEAR(box.ymax, ymax, 1e-14);
}

Box boxOfArc(Point2D const &centre, double radius, double start, double end)
{
    Box box;
    EXPECT_EQ(getArcExtrema(centre, radius, start, end, box.xmin, box.xmax, box.ymin, box.ymax), 0);
    return box;
}

TEST(GetArcAngle, GivesTheEndsOfTheCounterClockwiseSweep)
{
    double angle = untouched;
    EXPECT_EQ(getArcAngle({3, 3}, {2, 4}, {1, 3}, angle, true, 1e-6), 0);
    EXPECT_EQ(angle, 360.0);
    EXPECT_EQ(getArcAngle({3, 3}, {2, 4}, {1, 3}, angle, false, 1e-6), 0);
    EXPECT_EQ(angle, 180.0);
    EXPECT_EQ(getArcAngle({3, 3}, {2, 2}, {1, 3}, angle, true, 1e-6), 0);
    EXPECT_EQ(angle, 180.0);
    EXPECT_EQ(getArcAngle({3, 3}, {2, 2}, {1, 3}, angle, false, 1e-6), 0);
    EXPECT_EQ(angle, 360.0);
}

TEST(GetArcAngle, AnUncertainSenseCountsAsCounterClockwise)
{
    double angle = untouched;
    // With 100 degrees of tolerance the through point coincides with an end.
    EXPECT_EQ(getArcAngle({3, 3}, {2, 2}, {1, 3}, angle, true, 100.0), 0);
    EXPECT_EQ(angle, 360.0);
}

TEST(GetArcAngle, CollinearPointsLeaveTheAngleAlone)
{
    double angle = untouched;
    EXPECT_EQ(getArcAngle({0, 0}, {1, 1}, {2, 2}, angle, true, 1e-6), 1);
    EXPECT_EQ(angle, untouched);
}

TEST(GetArcAngle, TakesAGivenCentre)
{
    double angle = untouched;
    EXPECT_EQ(getArcAngle({0, 1}, {-1, 1}, {-1, 0}, {0, 0}, angle, true, 1e-6), 0);
    EXPECT_EQ(angle, 90.0);
    EXPECT_EQ(getArcAngle({0, 1}, {-1, 1}, {-1, 0}, {0, 0}, angle, false, 1e-6), 0);
    EXPECT_EQ(angle, 180.0);
}

TEST(GetArcRadius, IsTheDistanceOfTheFirstPoint)
{
    double radius = untouched;
    EXPECT_EQ(getArcRadius({5, 1}, {3, 3}, {1, 1}, radius, nan64), 0);
    EXPECT_EQ(radius, 2.0);
    EXPECT_EQ(getArcRadius({3, 4}, {nan64, 3}, {1, inf}, Point2D(0, 0), radius), 0);
    EXPECT_EQ(radius, 5.0);
    radius = untouched;
    EXPECT_EQ(getArcRadius({0, 0}, {1, 1}, {2, 2}, radius, 1.0), 1);
    EXPECT_EQ(radius, untouched);
}

TEST(GetEllipseExtrema, IsASquareOfTheFirstSemiAxis)
{
    Box box;
    EXPECT_EQ(getEllipseExtrema({2, 3}, 1, 5, nan64, box.xmin, box.xmax, box.ymin, box.ymax, nan64),
              0);
    expectBox(box, 1, 3, 2, 4);
    Box arc;
    EXPECT_EQ(getEllipsearcExtrema({2, 3}, 1, 5, nan64, nan64, nan64, arc.xmin, arc.xmax, arc.ymin,
                                   arc.ymax, nan64),
              0);
    expectBox(arc, 1, 3, 2, 4);
}

TEST(GetEllipseExtremaAngles, AxesAlongTheCoordinates)
{
    double t1 = untouched;
    double t2 = untouched;
    for (double const rotation : {0.0, 90.0, 180.0, 270.0, 360.0, 1e-7}) {
        EXPECT_EQ(getEllipseExtremaAngles({nan64, 0}, 4, 4, rotation, t1, t2, 1e-6), 0);
        EXPECT_EQ(t1, (360 - rotation) * radians);
        EXPECT_EQ(t2, (360 - rotation + 90) * radians);
    }
}

TEST(GetEllipseExtremaAngles, ToleranceIsExclusive)
{
    double t1 = untouched;
    double t2 = untouched;
    EXPECT_EQ(getEllipseExtremaAngles({0, 0}, 3, 2, 91, t1, t2, 1.0), 0);
    EXPECT_LT(t1, 2.0); // a principal value
    EXPECT_EQ(getEllipseExtremaAngles({0, 0}, 3, 2, 91, t1, t2, 1.5), 0);
    EXPECT_EQ(t1, 269 * radians);
}

TEST(GetEllipseExtremaAngles, PrincipalValuesOtherwise)
{
    double t1 = untouched;
    double t2 = untouched;
    EXPECT_EQ(getEllipseExtremaAngles({0, 0}, 3, 2, 30, t1, t2, 1e-6), 0);
    double const k = std::tan(30 * radians);
    EXPECT_EQ(t1, std::atan(-1.5 * k));
    EXPECT_EQ(t2, std::atan(1.5 / k));
    EXPECT_EQ(getEllipseExtremaAngles({0, 0}, 3, 2, nan64, t1, t2, 1e-6), 0);
    EXPECT_TRUE(std::isnan(t1));
}

TEST(GetArcExtrema, TheFullTurnHasTheFullBox)
{
    expectBox(boxOfArc({2, 3}, 2, 0, 360), 0, 4, 1, 5);
    expectBox(boxOfArc({2, 3}, 2, 360, 360), 4, 4, 3, 3); // but not a turn that starts at 360
}

TEST(GetArcExtrema, EachDirectionIsKeptWhenTheSweepPassesIt)
{
    double const d = std::sqrt(0.5);
    expectBox(boxOfArc({0, 0}, 1, 45, 135), -d, d, d, 1);
    expectBox(boxOfArc({0, 0}, 1, 135, 225), -1, -d, -d, d);
    expectBox(boxOfArc({0, 0}, 1, 225, 315), -d, d, -1, -d);
    expectBox(boxOfArc({0, 0}, 1, 315, 45), d, 1, -d, d);
    // The same again in a second turn.
    expectBox(boxOfArc({0, 0}, 1, 315, 135), -d, 1, -d, 1);
    expectBox(boxOfArc({0, 0}, 1, 315, 225), -1, 1, -d, 1);
    expectBox(boxOfArc({0, 0}, 1, 315, 300), -1, 1, -1, 1);
}

TEST(GetArcExtrema, ReducesAnglesAboveAFullTurn)
{
    double const d = std::sqrt(0.5);
    expectBox(boxOfArc({0, 0}, 1, 405, 360 + 135), -d, d, d, 1);
    Box const turns = boxOfArc({0, 0}, 1, 360000 + 45, 135);
    EXPECT_NEAR(turns.xmin, -d, 1e-12);
    EXPECT_EQ(turns.ymax, 1.0);
    expectBox(boxOfArc({0, 0}, 1, 90, 720), -1, 1, -1, 1); // 720 becomes 360 and not 0
    // Angles below 0 stay: the passage of the x axis is not seen.
    expectBox(boxOfArc({0, 0}, 1, -45, 45), d, d, -d, d);
}

TEST(GetArcExtrema, HugeAndInfiniteAnglesEnd)
{
    Box const box = boxOfArc({0, 0}, 1, inf, 90);
    EXPECT_TRUE(std::isnan(box.xmax));
    Box const huge = boxOfArc({0, 0}, 1, 1e300, 1e301);
    EXPECT_LE(std::fabs(huge.xmax), 1.0);
    EXPECT_TRUE(std::isnan(boxOfArc({0, 0}, 1, nan64, nan64).ymin));
}

TEST(GetArcExtrema, TakesAnArcOfThreePoints)
{
    Box box;
    EXPECT_EQ(getArcExtrema({3, 3}, {2, 4}, {1, 3}, box.xmin, box.xmax, box.ymin, box.ymax), 0);
    expectBox(box, 1, 3, 3, 4);
    EXPECT_EQ(getArcExtrema({3, 3}, {2, 2}, {1, 3}, box.xmin, box.xmax, box.ymin, box.ymax), 0);
    expectBox(box, 1, 3, 2, 3);
    Box left;
    EXPECT_EQ(getArcExtrema({0, 0}, {1, 1}, {2, 2}, left.xmin, left.xmax, left.ymin, left.ymax), 1);
    EXPECT_EQ(left.xmin, untouched);
    EXPECT_EQ(left.xmax, untouched);
    EXPECT_EQ(left.ymin, untouched);
    EXPECT_EQ(left.ymax, untouched);
}

TEST(GetEllipsePointNormal, HalvesTheDirectionOfTheSecondPointAlone)
{
    Point2D out;
    // At (3, 0) both points are seen along the axis, under 360 and 180 degrees.
    EXPECT_EQ(getEllipsePointNormal({0, 0}, 3, 2, 0, {3, 0}, out), 0);
    EXPECT_POINT_NEAR(out, 3.0, 1.0, 1e-15);
    // At (0, 2) the second point is seen under g2, the first one downwards.
    double const f = std::sqrt(9.0 + 4.0);
    double const h = WinVec(-f, -2) * 0.5 + 180 - 180;
    EXPECT_EQ(getEllipsePointNormal({0, 0}, 3, 2, 0, {0, 2}, out), 0);
    EXPECT_POINT(out, std::cos(h * radians), 2 + std::sin(h * radians));
    // At (0, -2) the first one is seen upwards: half a turn less.
    double const g = WinVec(-f, 2) * 0.5 - 180;
    EXPECT_EQ(getEllipsePointNormal({0, 0}, 3, 2, 0, {0, -2}, out), 0);
    EXPECT_POINT(out, std::cos(g * radians), -2 + std::sin(g * radians));
}

TEST(GetEllipsePointTangent, TurnsTheNormalByAQuarter)
{
    Point2D out;
    EXPECT_EQ(getEllipsePointTangent({0, 0}, 3, 2, 0, {3, 0}, out), 0);
    EXPECT_POINT_NEAR(out, 2.0, 0.0, 1e-15);
}

TEST(GetCirclePointTangent, GivesAPointAtTheDistanceOfTheRadius)
{
    Point2D out;
    EXPECT_EQ(getCirclePointTangent({1, 1}, {4, 5}, out), 0);
    EXPECT_POINT(out, 0.0, 8.0);
    Point2D p(4, 5);
    EXPECT_EQ(getCirclePointTangent({1, 1}, p, p), 0); // the point may be the output
    EXPECT_POINT(p, 0.0, 8.0);
}

rc::Gen<double> number(int low, int high)
{
    return rc::gen::map(rc::gen::inRange(low * 64, high * 64), [](int i) { return i / 64.0; });
}

RC_GTEST_PROP(GetArcExtrema, IsTheBoxOfItsPoints, ())
{
    Point2D const c(*number(-50, 50), *number(-50, 50));
    double const r = *number(1, 20);
    double const start = *number(1, 360);
    double const sweep = *number(1, 359);
    Box const box = boxOfArc(c, r, start, start + sweep);
    Box brute{inf, -inf, inf, -inf};
    for (int i = 0; i <= 7200; ++i) {
        Point2D p;
        getCirclePoint(c, r, start + sweep * i / 7200, p);
        brute.xmin = std::min(brute.xmin, p.x());
        brute.xmax = std::max(brute.xmax, p.x());
        brute.ymin = std::min(brute.ymin, p.y());
        brute.ymax = std::max(brute.ymax, p.y());
    }
    double const tol = 1e-5 * r;
    RC_ASSERT(std::fabs(box.xmin - brute.xmin) < tol);
    RC_ASSERT(std::fabs(box.xmax - brute.xmax) < tol);
    RC_ASSERT(std::fabs(box.ymin - brute.ymin) < tol);
    RC_ASSERT(std::fabs(box.ymax - brute.ymax) < tol);
}

RC_GTEST_PROP(GetEllipseExtremaAngles, AreExtremesOfTheEllipseWithExchangedAxes, ())
{
    double const a = *number(1, 20);
    double const b = *number(1, 20);
    double const rotation = *number(1, 89);
    double t1 = 0.0;
    double t2 = 0.0;
    getEllipseExtremaAngles({0, 0}, a, b, rotation, t1, t2, 1e-6);
    double const c = std::cos(rotation * radians);
    double const s = std::sin(rotation * radians);
    // The derivatives of x and y of the ellipse with b along its own x axis.
    RC_ASSERT(std::fabs(-c * b * std::sin(t1) - s * a * std::cos(t1)) < 1e-12 * (a + b));
    RC_ASSERT(std::fabs(-s * b * std::sin(t2) + c * a * std::cos(t2)) < 1e-12 * (a + b));
}

RC_GTEST_PROP(EllipseNormalAndTangent, AreUnitStepsAtARightAngle, ())
{
    Point2D const c(*number(-50, 50), *number(-50, 50));
    double const a = *number(1, 20);
    double const b = *number(1, 20);
    double const rotation = *number(0, 360);
    Point2D p;
    getEllipsePoint(c, a, b, p, rotation, *number(0, 360));
    Point2D n;
    Point2D t;
    getEllipsePointNormal(c, a, b, rotation, p, n);
    getEllipsePointTangent(c, a, b, rotation, p, t);
    Point2D const d = n - p;
    Point2D const e = t - p;
    RC_ASSERT(std::fabs(d.Length() - 1.0) < 1e-12);
    RC_ASSERT(std::fabs(e.x() + d.y()) < 1e-12);
    RC_ASSERT(std::fabs(e.y() - d.x()) < 1e-12);
}

} // namespace
