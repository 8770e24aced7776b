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

TEST(ArcBetweenLines, TangentAtBothEnds)
{
    Point2D m = untouchedPoint();
    double radius = untouched;
    EXPECT_EQ(arc_line1end_to_line2anf(Point2D(0, 0), Point2D(1, 0), Point2D(2, 1), Point2D(2, 5),
                                       m, radius, 1e-6),
              1);
    EXPECT_POINT(m, 1, 1);
    EXPECT_EQ(radius, 1);
}

TEST(ArcBetweenLines, RadiusIsThatAtTheFirstLine)
{
    Point2D m;
    double radius = untouched;
    EXPECT_EQ(arc_line1end_to_line2anf(Point2D(0, 0), Point2D(1, 0), Point2D(4, 2), Point2D(4, 5),
                                       m, radius, 1e-6),
              1);
    EXPECT_POINT(m, 1, 2);
    EXPECT_EQ(radius, 2); // and 3 from m to the second line's start
}

TEST(ArcBetweenLines, ParallelLinesHaveNone)
{
    Point2D m = untouchedPoint();
    double radius = untouched;
    EXPECT_EQ(arc_line1end_to_line2anf(Point2D(0, 0), Point2D(1, 0), Point2D(1, 2), Point2D(0, 2),
                                       m, radius, 1e-6),
              0);
    EXPECT_POINT(m, untouched, untouched);
    EXPECT_EQ(radius, untouched);
}

TEST(ArcBetweenLines, NotANumber)
{
    Point2D m;
    double radius = 0;
    EXPECT_EQ(arc_line1end_to_line2anf(Point2D(nan64, 0), Point2D(1, 0), Point2D(4, 2),
                                       Point2D(4, 5), m, radius, 1e-6),
              1);
    EXPECT_TRUE(std::isnan(radius));
}

void adjust(Point2D m, Point2D &a, Point2D &b, int mode, double eps = 1e-6)
{
    Point2D const before = m;
    adjust_arc_m2pnt(m, a, b, nan64, mode, eps);
    EXPECT_TRUE(m == before);
}

TEST(AdjustArcM2pnt, ModeChoosesTheShorterOrTheLongerArc)
{
    Point2D a(2, 1), b(1, 2); // a quarter about (1, 1)
    adjust(Point2D(1, 1), a, b, 1);
    EXPECT_POINT(a, 2, 1);
    adjust(Point2D(1, 1), a, b, 0);
    EXPECT_POINT(a, 1, 2);
    EXPECT_POINT(b, 2, 1);
    adjust(Point2D(1, 1), a, b, 0);
    EXPECT_POINT(a, 1, 2);
    adjust(Point2D(1, 1), a, b, -3);
    EXPECT_POINT(a, 2, 1);
}

TEST(AdjustArcM2pnt, HalfCircleStays)
{
    for (int mode = 0; mode < 2; ++mode) {
        Point2D a(0, 1), b(2, 1);
        adjust(Point2D(1, 1), a, b, mode);
        EXPECT_POINT(a, 0, 1);
        Point2D c(2, 1), d(0, 1);
        adjust(Point2D(1, 1), c, d, mode);
        EXPECT_POINT(c, 2, 1);
    }
}

TEST(AdjustArcM2pnt, HalfCircleOnASlantKeepsItsEndsInEitherOrder)
{
    for (int y = -12; y <= 12; ++y) {
        for (int mode = 0; mode < 2; ++mode) {
            Point2D a(-12, y), b(12, -y);
            adjust(Point2D(0, 0), a, b, mode);
            EXPECT_EQ(std::fabs(a.x()), 12);
            EXPECT_EQ(a.x() * y, -12 * a.y());
            EXPECT_TRUE(b == -a);
        }
    }
}

TEST(AdjustArcM2pnt, EqualDirectionsAreASweepOfNothing)
{
    Point2D a(1, 0), b(2, 0);
    adjust(Point2D(0, 0), a, b, 1);
    EXPECT_POINT(a, 1, 0);
    adjust(Point2D(0, 0), a, b, 0);
    EXPECT_POINT(a, 2, 0);
}

TEST(AdjustArcM2pnt, EndOnTheCentreChangesNothing)
{
    Point2D a(1, 1), b(2, 1);
    adjust(Point2D(1, 1), a, b, 0);
    EXPECT_POINT(a, 1, 1);
    EXPECT_POINT(b, 2, 1);
    adjust(Point2D(2, 1), a, b, 0);
    EXPECT_POINT(a, 1, 1);
}

TEST(AdjustArcM2pnt, EpsIsASquaredLength)
{
    Point2D a(0.1, 0), b(0, 0.1);
    adjust(Point2D(0, 0), a, b, 0, 0.011);
    EXPECT_POINT(a, 0.1, 0);
    adjust(Point2D(0, 0), a, b, 0, 0.009);
    EXPECT_POINT(a, 0, 0.1);
}

TEST(AdjustArcM2pnt, NotANumberIsSwapped)
{
    Point2D a(nan64, 0), b(0, 1);
    adjust(Point2D(0, 0), a, b, 1);
    EXPECT_POINT(a, 0, 1);
    adjust(Point2D(0, 0), a, b, 0);
    EXPECT_TRUE(std::isnan(a.x()));
}

struct Box
{
    Point2D lo = untouchedPoint();
    Point2D hi = untouchedPoint();
};

Box boxOf(Point2D const &m, Point2D const &a, Point2D const &b, double r)
{
    Box box;
    mat_bounding_box_of_arc_m2pnt(m, a, b, r, box.lo, box.hi, nan64);
    return box;
}

void expectBox(Box const &box, double x0, double y0, double x1, double y1)
{
    EXPECT_POINT(box.lo, x0, y0);
    EXPECT_POINT(box.hi, x1, y1);
}

TEST(BoxOfArcM2pnt, QuarterCircles)
{
    Point2D const m(10, 20);
    Point2D const p[4] = {Point2D(12, 20), Point2D(10, 22), Point2D(8, 20), Point2D(10, 18)};
    expectBox(boxOf(m, p[0], p[1], 2), 10, 20, 12, 22);
    expectBox(boxOf(m, p[1], p[2], 2), 8, 20, 10, 22);
    expectBox(boxOf(m, p[2], p[3], 2), 8, 18, 10, 20);
    expectBox(boxOf(m, p[3], p[0], 2), 10, 18, 12, 20);
    expectBox(boxOf(m, p[1], p[0], 2), 8, 18, 12, 22);
}

TEST(BoxOfArcM2pnt, AcrossThePositiveXAxis)
{
    Point2D const m(0, 0);
    Point2D const p45(3, 3), p135(-3, 3), p225(-3, -3), p315(3, -3);
    double const r = 5;
    expectBox(boxOf(m, p315, p45, r), 3, -3, 5, 3);
    expectBox(boxOf(m, p225, p45, r), -3, -5, 5, 3);
    expectBox(boxOf(m, p135, p45, r), -5, -5, 5, 3);
    expectBox(boxOf(m, p315, p225, r), -5, -3, 5, 5);
    expectBox(boxOf(m, p225, p135, r), -3, -5, 5, 5);
    // starts below 90 and comes round to a smaller angle
    expectBox(boxOf(m, Point2D(3, 4), Point2D(4, 3), r), -5, -5, 5, 5);
}

TEST(BoxOfArcM2pnt, EqualEndsRunUpToTheXAxisOnly)
{
    Point2D const m(0, 0);
    expectBox(boxOf(m, Point2D(0, 2), Point2D(0, 2), 2), -2, -2, 2, 2);
    expectBox(boxOf(m, Point2D(-3, 3), Point2D(-3, 3), 5), -5, -5, 5, 3);
    expectBox(boxOf(m, Point2D(3, -3), Point2D(3, -3), 5), 3, -3, 5, -3);
    expectBox(boxOf(m, Point2D(2, 0), Point2D(2, 0), 2), -2, -2, 2, 2);
}

TEST(BoxOfArcM2pnt, NegativeRadiusCountsAsZero)
{
    // the top falls to the centre's height, below the ends
    expectBox(boxOf(Point2D(0, 0), Point2D(3, 3), Point2D(-3, 3), -5), -3, 3, 3, 0);
}

TEST(BoxOfArcM2pnt, EndOnTheCentreHasTheDirectionZero)
{
    expectBox(boxOf(Point2D(0, 0), Point2D(0, 0), Point2D(-3, 3), 5), -3, 0, 0, 5);
}

TEST(BoxOfArcM2pnt, NotANumberExtendsNothing)
{
    Box const box = boxOf(Point2D(nan64, 0), Point2D(1, 0), Point2D(0, 1), 5);
    expectBox(box, 0, 0, 1, 1);
}

RC_GTEST_PROP(BoxOfArcM2pntProperty, HoldsTheArcAndNoMore, ())
{
    Point2D const m = anyPoint(50);
    double const r = anyPositive(30);
    int const from = *rc::gen::inRange(0, 3600);
    int const to = *rc::gen::inRange(0, 3600);
    RC_PRE(from != to);
    auto const at = [&](double tenths) {
        double const angle = tenths / 1800.0 * pi;
        return Point2D(m.x() + r * std::cos(angle), m.y() + r * std::sin(angle));
    };
    Box const box = boxOf(m, at(from), at(to), r);
    Point2D lo = at(from);
    Point2D hi = lo;
    int const last = to > from ? to : to + 3600;
    for (int i = from; i <= last; ++i) {
        Point2D const p = at(i);
        lo = Point2D(std::min(lo.x(), p.x()), std::min(lo.y(), p.y()));
        hi = Point2D(std::max(hi.x(), p.x()), std::max(hi.y(), p.y()));
    }
    requireNear(box.lo.x(), lo.x(), 1e-6);
    requireNear(box.lo.y(), lo.y(), 1e-6);
    requireNear(box.hi.x(), hi.x(), 1e-6);
    requireNear(box.hi.y(), hi.y(), 1e-6);
}

} // namespace
