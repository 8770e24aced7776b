#include "PlaneFixtures.h"

#include <OrvelMath/geom2d/concav2d.h>

#include <rapidcheck/gtest.h>

using namespace concav2d;

namespace {

Point2D direction(double degrees, double radius = 1.0)
{
    return Point2D(radius * std::cos(degrees * pi / 180), radius * std::sin(degrees * pi / 180));
}

TEST(CcwAngleOrigin, CoincidenceWithAnEndComesFirst)
{
    EXPECT_EQ(ccw_angle_origin(10, 10, 20, 1e-6), 2);
    EXPECT_EQ(ccw_angle_origin(10, 20, 20, 1e-6), 2);
    EXPECT_EQ(ccw_angle_origin(10, 10, 10, 1e-6), 2);
    EXPECT_EQ(ccw_angle_origin(360, 0, 90, 1e-6), 2);
    EXPECT_EQ(ccw_angle_origin(90, 0, 360, 1e-6), 2);
}

TEST(CcwAngleOrigin, EqualEndsGiveZero)
{
    EXPECT_EQ(ccw_angle_origin(10, 100, 10, 1e-6), 0);
    EXPECT_EQ(ccw_angle_origin(0, 90, 360, 1e-6), 0);
}

TEST(CcwAngleOrigin, TheSweepMayPassTheAxis)
{
    EXPECT_EQ(ccw_angle_origin(350, 5, 10, 1e-6), 1);
    EXPECT_EQ(ccw_angle_origin(350, 355, 10, 1e-6), 1);
    EXPECT_EQ(ccw_angle_origin(350, 180, 10, 1e-6), -1);
}

TEST(CcwAngleOrigin, PlainSweep)
{
    EXPECT_EQ(ccw_angle_origin(10, 15, 20, 1e-6), 1);
    EXPECT_EQ(ccw_angle_origin(10, 30, 20, 1e-6), -1);
    EXPECT_EQ(ccw_angle_origin(10, 5, 20, 1e-6), -1);
}

TEST(CcwAngleOrigin, AnEndAboveAFullTurnRaisesTheMiddle)
{
    EXPECT_EQ(ccw_angle_origin(350, 5, 370, 1e-6), 1);
    EXPECT_EQ(ccw_angle_origin(350, 20, 370, 1e-6), -1);
    EXPECT_EQ(ccw_angle_origin(350, 5, 360, 1e-6), -1); // 360 is not above 360
    EXPECT_EQ(ccw_angle_origin(350, 350, 370, 0.0), 2); // 350 is not above 350
}

TEST(CcwAngleOrigin, ToleranceIsInclusive)
{
    EXPECT_EQ(ccw_angle_origin(10, 11, 20, 1.0), 2);
    EXPECT_EQ(ccw_angle_origin(10, 11, 20, std::nextafter(1.0, 0.0)), 1);
    EXPECT_EQ(ccw_angle_origin(10, 50, 11, 1.0), 0);
    EXPECT_EQ(ccw_angle_origin(11, 50, 10, std::nextafter(1.0, 0.0)), 1);
}

TEST(CcwAngleOrigin, NanIsNotOnTheSweep)
{
    EXPECT_EQ(ccw_angle_origin(nan64, 5, 10, 1e-6), -1);
    EXPECT_EQ(ccw_angle_origin(350, nan64, 10, 1e-6), -1);
    EXPECT_EQ(ccw_angle_origin(1, 5, nan64, 1e-6), -1);
    EXPECT_EQ(ccw_angle_origin(1, 5, 10, nan64), -1);
}

TEST(GetArcMiddle, FindsTheCircumcentre)
{
    Point2D c;
    EXPECT_EQ(getArcMiddle({5, 1}, {3, 3}, {1, 1}, c, nan64), 0);
    EXPECT_POINT(c, 3.0, 1.0);
}

TEST(GetArcMiddle, OnlyExactlyCollinearPointsFail)
{
    Point2D c = untouchedPoint();
    EXPECT_EQ(getArcMiddle({0, 0}, {1, 1}, {5, 5}, c, 0.0), 1);
    EXPECT_EQ(getArcMiddle({0, 0}, {1, 1}, {0, 0}, c, 0.0), 1);
    EXPECT_POINT(c, untouched, untouched);
    EXPECT_EQ(getArcMiddle({0, 0}, {1, 1e-12}, {2, 0}, c, 1.0), 0);
    EXPECT_LT(c.y(), -1e11);
}

TEST(GetCirclePoint, TakesDegrees)
{
    Point2D p;
    EXPECT_EQ(getCirclePoint({3, 4}, 2.0, 0.0, p), 0);
    EXPECT_POINT(p, 5.0, 4.0);
    EXPECT_EQ(getCirclePoint({3, 4}, 2.0, 90.0, p), 0);
    EXPECT_POINT(p, 3.0 + 2.0 * std::cos(90.0 * pi / 180), 6.0);
    EXPECT_EQ(getCirclePoint(p, 1.0, 180.0, p), 0); // the centre may be the output
    EXPECT_POINT_NEAR(p, 2.0, 6.0, 1e-15);
    EXPECT_EQ(getCirclePoint({3, 4}, 2.0, inf, p), 0);
    EXPECT_TRUE(std::isnan(p.x()));
}

TEST(GetEllipsePointAngle, IsTheParameterAndNotTheDirection)
{
    EXPECT_EQ(getEllipsePointAngle({3, 0}, 3, 2, 0), 360.0);
    EXPECT_EQ(getEllipsePointAngle({0, 2}, 3, 2, 0), 90.0);
    EXPECT_NEAR(getEllipsePointAngle({3, 2}, 3, 2, 0), 45.0, 1e-12);
    // The same place of an ellipse turned by 30 degrees.
    Point2D const p(3 * std::cos(pi / 6) - 2 * std::sin(pi / 6),
                    3 * std::sin(pi / 6) + 2 * std::cos(pi / 6));
    EXPECT_NEAR(getEllipsePointAngle(p, 3, 2, 30), 45.0, 1e-12);
    EXPECT_TRUE(std::isnan(getEllipsePointAngle({nan64, 0}, 3, 2, 0)));
}

TEST(PointOnArcOfPoints, AsksForTheSideOfTheThroughPoint)
{
    Point2D const right(1, 0);
    Point2D const up(0, 1);
    Point2D const left(-1, 0);
    Point2D const down(0, -1);
    EXPECT_EQ(pointOnArc(right, up, left, {0, 5}, 1e-6, 1e-6), 3);
    EXPECT_EQ(pointOnArc(right, up, left, {0, -5}, 1e-6, 1e-6), 0);
    EXPECT_EQ(pointOnArc(right, down, left, {0, 5}, 1e-6, 1e-6), 0);
    EXPECT_EQ(pointOnArc(right, down, left, {0, -5}, 1e-6, 1e-6), 3);
    EXPECT_EQ(pointOnArc(left, up, right, {0, 5}, 1e-6, 1e-6), 3);
}

TEST(PointOnArcOfPoints, EndsAreWithinADistance)
{
    EXPECT_EQ(pointOnArc({1, 0}, {0, 1}, {-1, 0}, {1.5, 0}, 0.5, 1e-6), 1);
    EXPECT_EQ(pointOnArc({1, 0}, {0, 1}, {-1, 0}, {-1.5, 0}, 0.5, 1e-6), 2);
    // Both ends within tolDist: the first one.
    EXPECT_EQ(pointOnArc({1, 0}, {0, 1}, {-1, 0}, {0, 0}, 1.0, 1e-6), 1);
    // In the direction of an end but too far out: neither side.
    EXPECT_EQ(pointOnArc({1, 0}, {0, 1}, {-1, 0}, {5, 0}, 0.5, 1e-6), 0);
}

TEST(PointOnArcOfAngles, TakesEitherSense)
{
    EXPECT_EQ(pointOnArc(0, 45, 90, direction(30), 1e-6, 1e-6), 3);
    EXPECT_EQ(pointOnArc(0, 45, 90, {1, 0}, 1e-6, 1e-6), 1);
    EXPECT_EQ(pointOnArc(0, 45, 90, {0, 1}, 1e-6, 1e-6), 2);
    EXPECT_EQ(pointOnArc(0, 45, 90, {-1, 0}, 1e-6, 1e-6), 0);
    // The other way round: swept from b to a, and 1 is the end at b.
    EXPECT_EQ(pointOnArc(0, 180, 90, {0, 1}, 1e-6, 1e-6), 1);
    EXPECT_EQ(pointOnArc(0, 180, 90, {1, 0}, 1e-6, 1e-6), 2);
    EXPECT_EQ(pointOnArc(0, 180, 90, {-1, 0}, 1e-6, 1e-6), 3);
    EXPECT_EQ(pointOnArc(0, 180, 90, direction(30), 1e-6, 1e-6), 0);
}

TEST(PointOnArcOfAngles, TheDistanceToleranceIsDegrees)
{
    EXPECT_EQ(pointOnArc(0, 45, 90, direction(95), 10.0, 1e-6), 2);
    EXPECT_EQ(pointOnArc(0, 45, 90, direction(95, 1000.0), 10.0, 1e-6), 2);
    EXPECT_EQ(pointOnArc(0, 45, 90, direction(95), 1.0, 10.0), 0);
}

TEST(PointOnArcOfTwoAngles, EqualEndsAreAFullCircle)
{
    EXPECT_EQ(pointOnArc(30, 30, {1, 7}, 1e-6), 3);
    EXPECT_EQ(pointOnArc(30, 30, direction(30), 1e-6), 3);
    EXPECT_EQ(pointOnArc(0, 360, {-1, -7}, 1e-6), 3);
    EXPECT_EQ(pointOnArc(30, 31, {-1, -7}, 1.0), 3);
    EXPECT_EQ(pointOnArc(30, 30, {nan64, 0}, 1e-6), 3);
}

TEST(PointOnArcOfTwoAngles, EndsAndBetween)
{
    EXPECT_EQ(pointOnArc(90, 180, {0, 3}, 1e-6), 1);
    EXPECT_EQ(pointOnArc(90, 180, {-3, 0}, 1e-6), 2);
    EXPECT_EQ(pointOnArc(90, 180, {-3, 3}, 1e-6), 3);
    EXPECT_EQ(pointOnArc(90, 180, {3, 3}, 1e-6), 0);
    EXPECT_EQ(pointOnArc(0, 90, {1, 0}, 1e-6), 1);
    EXPECT_EQ(pointOnArc(270, 0, {1, 0}, 1e-6), 2);
    EXPECT_EQ(pointOnArc(315, 45, {1, 0}, 1e-6), 3);
    EXPECT_EQ(pointOnArc(90, 180, {nan64, 0}, 1e-6), 0);
}

TEST(PointOnEllipsearc, EqualEndsAreNoFullEllipse)
{
    EXPECT_EQ(pointOnEllipsearc(90, 90, 0, {0, 2}, 3, 2, 1e-6), 1);
    EXPECT_EQ(pointOnEllipsearc(90, 90, 0, {3, 0}, 3, 2, 1e-6), 0);
    EXPECT_EQ(pointOnEllipsearc(90, 90, 0, {-3, 0}, 3, 2, 1e-6), 0);
}

TEST(PointOnEllipsearc, EndsAndBetween)
{
    EXPECT_EQ(pointOnEllipsearc(0, 90, 0, {3, 0}, 3, 2, 1e-6), 1);
    EXPECT_EQ(pointOnEllipsearc(0, 90, 0, {0, 2}, 3, 2, 1e-6), 2);
    EXPECT_EQ(pointOnEllipsearc(0, 90, 0, {3, 2}, 3, 2, 1e-6), 3);
    EXPECT_EQ(pointOnEllipsearc(0, 90, 0, {-3, 2}, 3, 2, 1e-6), 0);
    // Turned by 90 degrees the point (-2, 0) has the parameter 90.
    EXPECT_EQ(pointOnEllipsearc(45, 135, 90, {-2, 0}, 3, 2, 1e-6), 3);
    EXPECT_EQ(pointOnEllipsearc(45, 90, 90, {-2, 0}, 3, 2, 1e-6), 2);
    EXPECT_EQ(pointOnEllipsearc(0, 90, 0, {nan64, 2}, 3, 2, 1e-6), 0);
}

TEST(IsPointOnArcOfPoints, ZeroIsYes)
{
    double angle = untouched;
    // The upper half of a unit circle about (2, 3), counter-clockwise: from 360 to 540 degrees.
    EXPECT_EQ(isPointOnArc({3, 3}, {2, 4}, {1, 3}, {2, 9}, angle, 1e-6), 0);
    EXPECT_EQ(angle, 450.0);
    EXPECT_EQ(isPointOnArc({3, 3}, {2, 4}, {1, 3}, {2, 2}, angle, 1e-6), 1);
    EXPECT_EQ(angle, 630.0);
    EXPECT_EQ(isPointOnArc({3, 3}, {2, 4}, {1, 3}, {3, 3}, angle, 1e-6), 1);
    EXPECT_EQ(angle, 360.0);
    EXPECT_EQ(isPointOnArc({3, 3}, {2, 4}, {1, 3}, {1, 3}, angle, 1e-6), 1);
    EXPECT_EQ(angle, 540.0);
}

TEST(IsPointOnArcOfPoints, AClockwiseArcIsTurnedRound)
{
    double angle = untouched;
    EXPECT_EQ(isPointOnArc({3, 3}, {2, 2}, {1, 3}, {2, -9}, angle, 1e-6), 0);
    EXPECT_EQ(angle, 270.0);
    EXPECT_EQ(isPointOnArc({3, 3}, {2, 2}, {1, 3}, {2, 9}, angle, 1e-6), 1);
    EXPECT_EQ(angle, 450.0);
}

TEST(IsPointOnArcOfPoints, TwoEqualPointsCountAsCounterClockwise)
{
    // Within 1e-6 of each other the sense cannot be told.
    double angle = untouched;
    EXPECT_EQ(isPointOnArc({1, 0}, {1, -1e-7}, {0, 1}, {1, 1}, angle, 1e-6), 0);
    EXPECT_NEAR(angle, 45.0, 1e-4);
}

TEST(IsPointOnArcOfPoints, CollinearPointsFailAndLeaveTheAngleAlone)
{
    double angle = untouched;
    EXPECT_EQ(isPointOnArc({0, 0}, {1, 0}, {2, 0}, {1, 0}, angle, 1e-6), 1);
    EXPECT_EQ(angle, untouched);
}

TEST(IsPointOnArcOfAngles, SweepsCounterClockwiseFromAToB)
{
    double angle = untouched;
    EXPECT_EQ(isPointOnArc({1, 1}, nan64, 315, 45, {5, 1}, angle, 1e-6), 0);
    EXPECT_EQ(angle, 360.0);
    EXPECT_EQ(isPointOnArc({1, 1}, nan64, 45, 135, {1, 5}, angle, 1e-6), 0);
    EXPECT_EQ(angle, 90.0);
    EXPECT_EQ(isPointOnArc({1, 1}, nan64, 45, 135, {1, -5}, angle, 1e-6), 1);
    EXPECT_EQ(angle, 270.0);
    EXPECT_EQ(isPointOnArc({1, 1}, nan64, 300, 100, {1, 5}, angle, 1e-6), 0);
    EXPECT_EQ(angle, 450.0);
}

TEST(IsPointOnArcOfAngles, EndsAreOutsideInclusively)
{
    double angle = untouched;
    EXPECT_EQ(isPointOnArc({0, 0}, 1, 89, 180, {0, 1}, angle, 1.0), 1);
    EXPECT_EQ(isPointOnArc({0, 0}, 1, 89, 180, {0, 1}, angle, 0.5), 0);
    EXPECT_EQ(isPointOnArc({0, 0}, 1, 0, 91, {0, 1}, angle, 1.0), 1);
    EXPECT_EQ(isPointOnArc({0, 0}, 1, 0, 91, {0, 1}, angle, 0.5), 0);
    EXPECT_EQ(isPointOnArc({0, 0}, 1, 90, 180, {0, 1}, angle, 1e-9), 1);
    EXPECT_EQ(angle, 90.0);
    EXPECT_EQ(isPointOnArc({0, 0}, 1, 90, 180, {nan64, 1}, angle, 1e-9), 0);
}

rc::Gen<double> degrees(int low, int high)
{
    return rc::gen::map(rc::gen::inRange(low * 64, high * 64), [](int i) { return i / 64.0; });
}

RC_GTEST_PROP(GetArcMiddle, IsAsFarFromAllThreePoints, ())
{
    Point2D const c(*degrees(-100, 100), *degrees(-100, 100));
    double const r = *degrees(1, 50);
    double const a = *degrees(0, 360);
    double const b = a + *degrees(20, 160);
    double const d = b + *degrees(20, 160);
    Point2D const p[3] = {c + direction(a, r), c + direction(b, r), c + direction(d, r)};
    Point2D centre;
    RC_ASSERT(getArcMiddle(p[0], p[1], p[2], centre, 0.0) == 0);
    for (Point2D const &q : p) {
        RC_ASSERT(std::fabs(distanceOf(q, centre) - r) < 1e-9);
    }
}

RC_GTEST_PROP(PointOnArc, EveryFormAgreesWithTheSweep, ())
{
    double const start = *degrees(1, 360);
    double const sweep = *degrees(20, 340);
    double const middle = *degrees(5, 15) / 20.0;
    double const place = *degrees(-20, 340);
    RC_PRE(std::fabs(place) > 0.01 && std::fabs(place - sweep) > 0.01 &&
           std::fabs(place - sweep + 360) > 0.01);
    bool const on = place > 0 && place < sweep;
    auto const reduced = [](double angle) { return angle > 360 ? angle - 360 : angle; };
    double const a = start;
    double const m = reduced(start + middle * sweep);
    double const b = reduced(start + sweep);
    Point2D const p = direction(start + place, 3.0);

    RC_ASSERT(pointOnArc(a, b, p, 1e-6) == (on ? 3 : 0));
    RC_ASSERT(pointOnArc(a, m, b, p, 1e-6, 1e-6) == (on ? 3 : 0));
    RC_ASSERT(pointOnArc(b, m, a, p, 1e-6, 1e-6) == (on ? 3 : 0));
    RC_ASSERT(pointOnArc(direction(a), direction(m), direction(b), p, 1e-6, 1e-6) == (on ? 3 : 0));
    RC_ASSERT(pointOnArc(direction(b), direction(m), direction(a), p, 1e-6, 1e-6) == (on ? 3 : 0));
    double angle = 0.0;
    Point2D const c(7, -2);
    RC_ASSERT(isPointOnArc(c, 1.0, a, b, c + p, angle, 1e-6) == (on ? 0 : 1));
    RC_ASSERT(isPointOnArc(c + direction(a), c + direction(m), c + direction(b), c + p, angle,
                           1e-6) == (on ? 0 : 1));
    RC_ASSERT(isPointOnArc(c + direction(b), c + direction(m), c + direction(a), c + p, angle,
                           1e-6) == (on ? 0 : 1));
}

RC_GTEST_PROP(PointOnEllipsearc, AgreesWithTheParameter, ())
{
    double const start = *degrees(1, 360);
    double const sweep = *degrees(20, 340);
    double const place = *degrees(-20, 340);
    RC_PRE(std::fabs(place) > 0.01 && std::fabs(place - sweep) > 0.01 &&
           std::fabs(place - sweep + 360) > 0.01);
    double const rotation = *degrees(-180, 360);
    double const a = *degrees(1, 10);
    double const b = *degrees(1, 10);
    double const end = start + sweep > 360 ? start + sweep - 360 : start + sweep;
    Point2D p;
    getEllipsePoint({0, 0}, a, b, p, rotation, start + place);
    bool const on = place > 0 && place < sweep;
    RC_ASSERT(pointOnEllipsearc(start, end, rotation, p, a, b, 1e-6) == (on ? 3 : 0));
}

} // namespace
