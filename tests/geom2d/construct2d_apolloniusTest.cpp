#include "ConstructionFixtures.h"

#include <OrvelMath/geom2d/construct2d.h>

namespace {

struct Solution
{
    int result;
    Point2D centre = untouchedPoint();
    double radius = untouched;
};

Solution apollonius(Point2D const &c1, double r1, bool s1, Point2D const &c2, double r2, bool s2,
                    Point2D const &c3, double r3, bool s3)
{
    Solution s{};
    s.result = apolloniusCCC(c1, r1, s1, c2, r2, s2, c3, r3, s3, s.centre, s.radius);
    return s;
}

void expectNone(Solution const &s)
{
    EXPECT_EQ(s.result, 0);
    EXPECT_POINT(s.centre, untouched, untouched);
    EXPECT_EQ(s.radius, untouched);
}

TEST(ApolloniusCCC, ThreeEqualCirclesOnATriangle)
{
    Point2D const c1(-2, 0), c2(2, 0), c3(0, 2 * std::sqrt(3.0));
    double const around = 4 / std::sqrt(3.0); // from the middle to each centre
    Solution const outside = apollonius(c1, 1, false, c2, 1, false, c3, 1, false);
    EXPECT_EQ(outside.result, 1);
    EXPECT_NEAR(outside.radius, around - 1, 1e-14);
    EXPECT_POINT_NEAR(outside.centre, 0, around / 2, 1e-14);
    Solution const within = apollonius(c1, 1, true, c2, 1, true, c3, 1, true);
    EXPECT_EQ(within.result, 1);
    EXPECT_NEAR(within.radius, around + 1, 1e-14);
    EXPECT_POINT_NEAR(within.centre, 0, around / 2, 1e-14);
}

TEST(ApolloniusCCC, FirstTwoCentresOnAVerticalHaveNone)
{
    expectNone(apollonius(Point2D(1, 0), 1, true, Point2D(1, 5), 1, true, Point2D(4, 1), 1, true));
    expectNone(apollonius(Point2D(1, 2), 1, true, Point2D(1, 2), 1, true, Point2D(4, 1), 1, true));
    // twice the difference is compared, on a grid of 0.0001
    expectNone(
        apollonius(Point2D(1, 0), 1, true, Point2D(1.00002, 5), 1, true, Point2D(4, 1), 1, true));
}

TEST(ApolloniusCCC, CentresOnALineHaveNone)
{
    expectNone(
        apollonius(Point2D(0, 0), 1, false, Point2D(3, 1), 1, false, Point2D(6, 2), 1, false));
}

TEST(ApolloniusCCC, DiscriminantBelowItsLimitHasNone)
{
    // radii 0: the circle through three points, whose discriminant is 4 R²
    expectNone(apollonius(Point2D(0, 0), 0, true, Point2D(0.004, 0.001), 0, true,
                          Point2D(0.001, 0.004), 0, true));
    EXPECT_EQ(
        apollonius(Point2D(0, 0), 0, true, Point2D(0.4, 0.1), 0, true, Point2D(0.1, 0.4), 0, true)
            .result,
        1);
}

TEST(ApolloniusCCC, VanishingSquareTermHasNone)
{
    // N = 0 and Q = 1: w13 = 0 (equal radii, c1 and c2 level), w23 = z3 / z1, w22 = z2 / z1
    expectNone(apollonius(Point2D(0, 0), 1, true, Point2D(2, 0), 1, true, Point2D(4, 2), 3, true));
}

TEST(ApolloniusCCC, LastTwoCentresOnAVerticalDivideByZero)
{
    Solution const s =
        apollonius(Point2D(0, 0), 1, false, Point2D(4, 0), 1, false, Point2D(4, 4), 1, false);
    EXPECT_EQ(s.result, 1);
    EXPECT_TRUE(std::isnan(s.radius));
    EXPECT_TRUE(std::isnan(s.centre.x()));
}

TEST(ApolloniusCCC, RadiusMayComeOutNegative)
{
    // a small circle between two large ones, all to be touched from within
    Solution const s =
        apollonius(Point2D(-5, 0), 1, true, Point2D(5, 1), 1, true, Point2D(0, 8), 9, true);
    EXPECT_EQ(s.result, 1);
    EXPECT_NEAR(distanceOf(s.centre, Point2D(-5, 0)), std::fabs(s.radius - 1), 1e-9);
    Solution const t =
        apollonius(Point2D(0, 0), 9, false, Point2D(1, 3), 1, false, Point2D(3, -1), 1, false);
    EXPECT_EQ(t.result, 1);
    EXPECT_LT(t.radius, 0);
    EXPECT_NEAR(distanceOf(t.centre, Point2D(1, 3)), std::fabs(t.radius + 1), 1e-9);
}

TEST(ApolloniusCCC, NotANumber)
{
    Solution const s =
        apollonius(Point2D(nan64, 0), 1, false, Point2D(4, 0), 1, false, Point2D(2, 4), 1, false);
    EXPECT_EQ(s.result, 1);
    EXPECT_TRUE(std::isnan(s.radius));
    EXPECT_EQ(
        apollonius(Point2D(0, 0), inf, false, Point2D(4, 0), 1, false, Point2D(2, 4), 1, false)
            .result,
        1);
}

RC_GTEST_PROP(ApolloniusCCCProperty, TouchesAllThreeInTheChosenSense, ())
{
    Point2D const c[3] = {anyPoint(20), anyPoint(20), anyPoint(20)};
    double const r[3] = {anyPositive(5), anyPositive(5), anyPositive(5)};
    Point2D const d = c[1] - c[0];
    Point2D const e = c[2] - c[1];
    RC_PRE(std::fabs(d.x()) > 0.5 && std::fabs(e.x()) > 0.5);
    RC_PRE(std::fabs(e.y() / e.x() - d.y() / d.x()) > 0.1);
    for (int signs = 0; signs < 8; ++signs) {
        bool const s[3] = {(signs & 1) != 0, (signs & 2) != 0, (signs & 4) != 0};
        Solution const a = apollonius(c[0], r[0], s[0], c[1], r[1], s[1], c[2], r[2], s[2]);
        if (a.result == 0 || std::fabs(a.radius) > 1e3) {
            continue;
        }
        for (int i = 0; i < 3; ++i) {
            double const wanted = std::fabs(a.radius - (s[i] ? r[i] : -r[i]));
            requireNear(distanceOf(a.centre, c[i]), wanted, 1e-5);
        }
    }
}

} // namespace
