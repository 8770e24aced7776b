#include "ConstructionFixtures.h"

#include <OrvelMath/geom2d/construct2d.h>

namespace {

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
