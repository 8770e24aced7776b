#include "ConstructionFixtures.h"

#include <OrvelMath/geom2d/construct2d.h>

namespace {

/// What a fillet function gives back.
struct Fillet
{
    int result;
    Point2D m = untouchedPoint();
    Point2D t1 = untouchedPoint();
    Point2D t2 = untouchedPoint();
};

Fillet lines(Point2D const &p0, Point2D const &p1, Point2D const &p2, Point2D const &p3, double r,
             int side1, int side2, double eps = 1e-6)
{
    Fillet f{};
    f.result = fillet_line_line(p0, p1, p2, p3, r, side1, side2, f.m, f.t1, f.t2, eps);
    return f;
}

Fillet circles(Point2D const &c1, double r1, Point2D const &c2, double r2, double r, int side,
               int inner, double eps = 1e-6)
{
    Fillet f{};
    f.result = fillet_kreis_kreis(c1, r1, c2, r2, r, side, inner, f.m, f.t1, f.t2, eps);
    return f;
}

Fillet lineAndCircle(Point2D const &p0, Point2D const &p1, Point2D const &c, double rc, double r,
                     int side, int far, int inner, double eps = 1e-6)
{
    Fillet f{};
    f.result = fillet_line_circle(p0, p1, c, rc, r, side, far, f.m, f.t1, f.t2, inner, eps);
    return f;
}

void expectNone(Fillet const &f)
{
    EXPECT_EQ(f.result, 0);
    EXPECT_POINT(f.m, untouched, untouched);
    EXPECT_POINT(f.t1, untouched, untouched);
    EXPECT_POINT(f.t2, untouched, untouched);
}

bool samePoint(Point2D const &p, Point2D const &q)
{
    return distanceOf(p, q) < 1e-6;
}

/// The arc's ends in the order in which they belong to the first and the second element.
void inOrder(Fillet const &f, bool swapped, Point2D &first, Point2D &second)
{
    first = swapped ? f.t2 : f.t1;
    second = swapped ? f.t1 : f.t2;
}

TEST(FilletLineLine, SidesChooseTheQuadrant)
{
    Point2D const o(0, 0), x(10, 0), y(0, 10);
    struct
    {
        int side1, side2;
        double mx, my;
    } const cases[] = {{0, 0, -2, 2}, {0, 1, 2, 2}, {1, 0, -2, -2}, {1, 1, 2, -2}};
    for (auto const &c : cases) {
        Fillet const f = lines(o, x, o, y, 2, c.side1, c.side2);
        EXPECT_EQ(f.result, 1);
        EXPECT_POINT(f.m, c.mx, c.my);
    }
}

TEST(FilletLineLine, TouchingPointsAreSwappedToTheShorterArc)
{
    Fillet const f = lines(Point2D(0, 0), Point2D(10, 0), Point2D(0, 0), Point2D(0, 10), 2, 0, 1);
    EXPECT_POINT(f.t1, 0, 2);
    EXPECT_POINT(f.t2, 2, 0);
    Fillet const g = lines(Point2D(0, 0), Point2D(10, 0), Point2D(0, 0), Point2D(0, 10), 2, 0, 0);
    EXPECT_POINT(g.t1, -2, 0);
    EXPECT_POINT(g.t2, 0, 2);
}

TEST(FilletLineLine, ParallelLinesHaveNone)
{
    expectNone(lines(Point2D(0, 0), Point2D(10, 0), Point2D(0, 5), Point2D(10, 5), 2, 0, 1));
    expectNone(lines(Point2D(0, 0), Point2D(10, 0), Point2D(10, 5), Point2D(0, 5), 2, 0, 1));
}

TEST(FilletLineLine, LineWithoutLengthHasNone)
{
    expectNone(lines(Point2D(1, 1), Point2D(1, 1), Point2D(0, 5), Point2D(10, 6), 2, 0, 1));
    expectNone(lines(Point2D(0, 5), Point2D(10, 6), Point2D(1, 1), Point2D(1, 1), 2, 0, 1));
}

TEST(FilletLineLine, LengthAtTheLimitPassesButIsNotProjectedOn)
{
    // the squared length 1 is not below eps, yet not above it either: t1 stays as it was
    Fillet const f =
        lines(Point2D(0, 0), Point2D(1, 0), Point2D(0, 0), Point2D(0, 2), 0.5, 0, 1, 1.0);
    EXPECT_EQ(f.result, 1);
    EXPECT_POINT(f.m, 0.5, 0.5);
    bool const firstLeftAlone = f.t1 == untouchedPoint() || f.t2 == untouchedPoint();
    EXPECT_TRUE(firstLeftAlone);
}

TEST(FilletLineLine, NotANumber)
{
    Fillet const f =
        lines(Point2D(nan64, 0), Point2D(10, 0), Point2D(0, 0), Point2D(0, 10), 2, 0, 0);
    EXPECT_EQ(f.result, 1);
    EXPECT_TRUE(std::isnan(f.m.x()));
    EXPECT_EQ(lines(Point2D(0, 0), Point2D(10, 0), Point2D(0, 0), Point2D(0, 10), inf, 0, 0).result,
              1);
}

RC_GTEST_PROP(FilletLineLineProperty, TouchesBothLinesOnTheChosenSides, ())
{
    Point2D const p[4] = {anyPoint(50), anyPoint(50), anyPoint(50), anyPoint(50)};
    Point2D const d1 = p[1] - p[0];
    Point2D const d2 = p[3] - p[2];
    double const cross = d1.x() * d2.y() - d1.y() * d2.x();
    RC_PRE(d1.Length() > 0.1 && d2.Length() > 0.1);
    RC_PRE(std::fabs(cross) > 0.05 * d1.Length() * d2.Length());
    double const r = anyPositive(20);
    for (int sides = 0; sides < 4; ++sides) {
        int const side1 = sides & 1;
        int const side2 = sides >> 1;
        Fillet const f = lines(p[0], p[1], p[2], p[3], r, side1, side2);
        RC_ASSERT(f.result == 1);
        requireNear(distanceOf(f.t1, f.m), r, 1e-8);
        requireNear(distanceOf(f.t2, f.m), r, 1e-8);
        Point2D first, second;
        inOrder(f, distanceToLine(f.t1, p[0], p[1]) > 1e-8, first, second);
        requireNear(distanceToLine(first, p[0], p[1]), 0, 1e-8);
        requireNear(distanceToLine(second, p[2], p[3]), 0, 1e-8);
        Point2D const toCentre = f.m - p[0];
        RC_ASSERT((d1.x() * toCentre.y() - d1.y() * toCentre.x() > 0) == (side1 == 0));
        RC_ASSERT(sweepOf(f.m, f.t1, f.t2) <= 180 + 1e-6);
    }
}

TEST(FilletKreisKreis, SideChoosesTheCentre)
{
    Fillet const left = circles(Point2D(0, 0), 1, Point2D(4, 0), 1, 2, 0, 0);
    double const h = std::sqrt(5.0);
    EXPECT_EQ(left.result, 1);
    EXPECT_POINT_NEAR(left.m, 2, h, 1e-15);
    EXPECT_POINT_NEAR(left.t1, 2.0 / 3.0, h / 3.0, 1e-15);
    EXPECT_POINT_NEAR(left.t2, 4 - 2.0 / 3.0, h / 3.0, 1e-15);
    Fillet const right = circles(Point2D(0, 0), 1, Point2D(4, 0), 1, 2, 1, 0);
    EXPECT_POINT_NEAR(right.m, 2, -h, 1e-15);
    EXPECT_NEAR(right.t1.x(), 4 - 2.0 / 3.0, 1e-15); // swapped
}

TEST(FilletKreisKreis, InnerEnclosesBothCircles)
{
    Fillet const f = circles(Point2D(0, 0), 1, Point2D(4, 0), 1, 5, 0, 1);
    double const h = std::sqrt(12.0);
    EXPECT_EQ(f.result, 1);
    EXPECT_POINT_NEAR(f.m, 2, h, 1e-15);
    EXPECT_POINT_NEAR(f.t1, -0.5, -h / 4.0, 1e-15);
    EXPECT_POINT_NEAR(f.t2, 4.5, -h / 4.0, 1e-15);
}

TEST(FilletKreisKreis, ConcentricCirclesHaveNone)
{
    expectNone(circles(Point2D(1, 1), 1, Point2D(1, 1), 2, 2, 0, 0));
    expectNone(circles(Point2D(0, 0), 1, Point2D(0.99e-5, 0), 1, 2, 0, 0, 0.0));
    EXPECT_EQ(circles(Point2D(0, 0), 1, Point2D(1e-5, 0), 1, 2, 0, 0, 1.0).result, 1);
}

TEST(FilletKreisKreis, TooSmallToEncloseOrToReach)
{
    expectNone(circles(Point2D(0, 0), 3, Point2D(4, 0), 1, 2, 0, 1));
    expectNone(circles(Point2D(0, 0), 1, Point2D(4, 0), 3, 2, 0, 1));
    expectNone(circles(Point2D(0, 0), 1, Point2D(40, 0), 3, 2, 0, 0));
}

TEST(FilletKreisKreis, RadiusOfOneCircleDividesZeroByZero)
{
    Fillet const f = circles(Point2D(0, 0), 1, Point2D(0.5, 0), 0.5, 1, 0, 1);
    EXPECT_EQ(f.result, 1);
    EXPECT_POINT(f.m, 0, 0);
    EXPECT_TRUE(std::isnan(f.t2.x())); // the first touching point, swapped as a NaN is
    EXPECT_POINT(f.t1, 1, 0);
}

TEST(FilletKreisKreis, NotANumber)
{
    EXPECT_EQ(circles(Point2D(nan64, 0), 1, Point2D(4, 0), 1, 2, 0, 0).result, 1);
    EXPECT_EQ(circles(Point2D(0, 0), 1, Point2D(4, 0), 1, nan64, 0, 0).result, 1);
    EXPECT_EQ(circles(Point2D(0, 0), 1, Point2D(inf, 0), 1, 2, 0, 0).result, 1);
}

RC_GTEST_PROP(FilletKreisKreisProperty, TouchesBothCircles, ())
{
    Point2D const c1 = anyPoint(40);
    Point2D const c2 = anyPoint(40);
    double const r1 = anyPositive(20);
    double const r2 = anyPositive(20);
    double const r = anyPositive(60);
    int const inner = *rc::gen::inRange(0, 2);
    double const L = distanceOf(c1, c2);
    double const R1 = inner ? r - r1 : r + r1;
    double const R2 = inner ? r - r2 : r + r2;
    RC_PRE(L > 0.01 && R1 > 0.01 && R2 > 0.01);
    RC_PRE(L < (R1 + R2) * 0.999 && L > std::fabs(R1 - R2) * 1.001);
    for (int side = 0; side < 2; ++side) {
        Fillet const f = circles(c1, r1, c2, r2, r, side, inner);
        RC_ASSERT(f.result == 1);
        requireNear(distanceOf(f.m, c1), R1, 1e-7);
        requireNear(distanceOf(f.m, c2), R2, 1e-7);
        requireNear(distanceOf(f.m, f.t1), r, 1e-7);
        requireNear(distanceOf(f.m, f.t2), r, 1e-7);
        Point2D first, second;
        inOrder(f,
                std::fabs(distanceOf(f.t1, c1) - r1) + std::fabs(distanceOf(f.t2, c2) - r2) >
                    std::fabs(distanceOf(f.t2, c1) - r1) + std::fabs(distanceOf(f.t1, c2) - r2),
                first, second);
        requireNear(distanceOf(first, c1), r1, 1e-6);
        requireNear(distanceOf(second, c2), r2, 1e-6);
        RC_ASSERT(sweepOf(f.m, f.t1, f.t2) <= 180 + 1e-4);
    }
}

TEST(FilletLineCircle, BetweenALineAndACircleAboveIt)
{
    Fillet const f = lineAndCircle(Point2D(0, 0), Point2D(10, 0), Point2D(5, 3), 1, 1, 0, 0, 0);
    EXPECT_EQ(f.result, 1);
    EXPECT_POINT(f.m, 5, 1);
    EXPECT_POINT(f.t1, 5, 0);
    EXPECT_POINT(f.t2, 5, 2);
}

TEST(FilletLineCircle, SelectorsChooseSideAndPlace)
{
    Point2D const p0(0, 0), p1(10, 0), c(5, 1);
    // near side, from outside: |m - c| = 4, height 2, so 5 -+ sqrt(15)
    Fillet const left = lineAndCircle(p0, p1, c, 2, 2, 0, 0, 0);
    EXPECT_POINT_NEAR(left.m, 5 - std::sqrt(15.0), 2, 1e-14);
    Fillet const right = lineAndCircle(p0, p1, c, 2, 2, 1, 0, 0);
    EXPECT_POINT_NEAR(right.m, 5 + std::sqrt(15.0), 2, 1e-14);
    // far side: height -2, so 5 -+ sqrt(16 - 9)
    Fillet const far = lineAndCircle(p0, p1, c, 2, 2, 0, 1, 0);
    EXPECT_POINT_NEAR(far.m, 5 - std::sqrt(7.0), -2, 1e-14);
    // from within, radius 1: |m - c| = 1, height 1: the lowest and the highest coincide at |G| = 0
    Fillet const inner = lineAndCircle(p0, p1, c, 2, 1, 1, 0, 1);
    EXPECT_POINT_NEAR(inner.m, 6, 1, 1e-14);
    EXPECT_POINT_NEAR(inner.t1, 6, 0, 1e-14);
    EXPECT_POINT_NEAR(inner.t2, 7, 1, 1e-14);
}

TEST(FilletLineCircle, CentreOnTheLineHasNone)
{
    expectNone(lineAndCircle(Point2D(0, 0), Point2D(10, 0), Point2D(5, 0), 1, 1, 0, 0, 0));
}

TEST(FilletLineCircle, OutOfReachHasNone)
{
    expectNone(lineAndCircle(Point2D(0, 0), Point2D(10, 0), Point2D(5, 9), 1, 1, 0, 0, 0));
    expectNone(lineAndCircle(Point2D(0, 0), Point2D(10, 0), Point2D(5, 1), 2, 1, 0, 1, 1));
}

TEST(FilletLineCircle, LineWithoutLengthTakesTheOriginAndLeavesItsTouchingPoint)
{
    Fillet const f = lineAndCircle(Point2D(1, 1), Point2D(1, 1), Point2D(0, 4), 1, 1.5, 0, 0, 0);
    EXPECT_EQ(f.result, 1);
    EXPECT_POINT(f.m, 0, 1.5);
    bool const oneLeftAlone = f.t1 == untouchedPoint() || f.t2 == untouchedPoint();
    EXPECT_TRUE(oneLeftAlone);
}

TEST(FilletLineCircle, NotANumber)
{
    Fillet const f = lineAndCircle(Point2D(0, 0), Point2D(10, 0), Point2D(nan64, 3), 1, 1, 0, 0, 0);
    EXPECT_EQ(f.result, 1);
    EXPECT_TRUE(std::isnan(f.m.x()));
    Fillet const g = lineAndCircle(Point2D(0, 0), Point2D(10, 0), Point2D(5, 3), inf, 1, 0, 0, 0);
    EXPECT_EQ(g.result, 1);
}

RC_GTEST_PROP(FilletLineCircleProperty, TouchesTheLineAndTheCircle, ())
{
    Point2D const p0 = anyPoint(20);
    Point2D const p1 = anyPoint(20);
    Point2D const c = anyPoint(20);
    RC_PRE(distanceOf(p0, p1) > 0.1);
    double const D = distanceToLine(c, p0, p1);
    RC_PRE(D > 0.01);
    double const rc = anyPositive(20);
    double const r = anyPositive(20);
    int const far = *rc::gen::inRange(0, 2);
    int const inner = *rc::gen::inRange(0, 2);
    double const G = far ? D + r : D - r;
    double const H = inner ? rc - r : rc + r;
    RC_PRE(std::fabs(G) < std::fabs(H) * 0.999 && std::fabs(H) > 0.01);
    for (int side = 0; side < 2; ++side) {
        Fillet const f = lineAndCircle(p0, p1, c, rc, r, side, far, inner);
        RC_ASSERT(f.result == 1);
        requireNear(distanceToLine(f.m, p0, p1), r, 1e-8);
        requireNear(distanceOf(f.m, c), std::fabs(H), 1e-7);
        Point2D onLine, onCircle;
        inOrder(f, distanceToLine(f.t1, p0, p1) > distanceToLine(f.t2, p0, p1), onLine, onCircle);
        if (samePoint(onLine, onCircle)) {
            continue;
        }
        if (std::fabs(distanceOf(onCircle, c) - rc) > 1e-7) {
            std::swap(onLine, onCircle); // both lie on the line
        }
        requireNear(distanceToLine(onLine, p0, p1), 0, 1e-7);
        requireNear(distanceOf(onLine, f.m), r, 1e-7);
        requireNear(distanceOf(onCircle, c), rc, 1e-7);
        if (inner && r > rc) {
            // the fillet encloses the circle: the nearest point of the circle is not the touching
            // one, which lies straight across
            requireNear(distanceOf(onCircle, f.m), std::fabs(r - 2 * rc), 1e-6);
        } else {
            requireNear(distanceOf(onCircle, f.m), r, 1e-6);
        }
        RC_ASSERT(sweepOf(f.m, f.t1, f.t2) <= 180 + 1e-3);
    }
}

} // namespace
