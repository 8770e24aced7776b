#include "ConstructionFixtures.h"

#include <OrvelMath/geom2d/mathPoly.h>

#include <vector>

namespace {

using mathPoly::Conic;
using mathPoly::Ellipse;

std::vector<Point2D> crossings(Ellipse e1, Ellipse e2)
{
    Point2D points[12];
    int count = -1;
    mathPoly::FindIntersections(e1, e2, count, points);
    return std::vector<Point2D>(points, points + count);
}

Ellipse circle(double x, double y, double r)
{
    return Ellipse(Point2D(x, y), r);
}

TEST(FindIntersections, TwoUnitCirclesAtDistanceOne)
{
    std::vector<Point2D> const p = crossings(circle(0, 0, 1), circle(1, 0, 1));
    ASSERT_EQ(p.size(), 2U);
    for (Point2D const &q : p) {
        EXPECT_NEAR(q.x(), 0.5, 1e-14);
        EXPECT_NEAR(std::fabs(q.y()), std::sqrt(0.75), 1e-14);
    }
    EXPECT_LT(p[0].y() * p[1].y(), 0);
}

Ellipse wide()
{
    return Ellipse(Point2D(0, 0), 0, 2, 1);
}

Ellipse high()
{
    return Ellipse(Point2D(0, 0), 90, 2, 1);
}

TEST(FindIntersections, FourCrossings)
{
    std::vector<Point2D> const p = crossings(wide(), high());
    ASSERT_EQ(p.size(), 4U);
    double const at = std::sqrt(0.8);
    for (Point2D const &q : p) {
        EXPECT_NEAR(std::fabs(q.x()), at, 1e-13);
        EXPECT_NEAR(std::fabs(q.y()), at, 1e-13);
    }
    for (std::size_t i = 0; i < 4; ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            EXPECT_GT(distanceOf(p[i], p[j]), 1);
        }
    }
}

TEST(FindIntersections, CrossingsComeAsFirstDiscovered)
{
    std::vector<Point2D> const p = crossings(wide(), high());
    ASSERT_EQ(4U, p.size());
    double const at = std::sqrt(0.8);
    Point2D const expected[4] = {{at, at}, {-at, at}, {at, -at}, {-at, -at}};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_POINT_NEAR(p[i], expected[i].x(), expected[i].y(), 1e-13);
    }
}

TEST(FindIntersections, ConcentricCirclesHaveNone)
{
    EXPECT_TRUE(crossings(circle(1, 2, 1), circle(1, 2, 2)).empty());
    EXPECT_TRUE(crossings(circle(1, 2, 2), circle(1, 2, 1)).empty());
}

TEST(FindIntersections, ApartOrNestedHaveNone)
{
    EXPECT_TRUE(crossings(wide(), circle(9, 0, 1)).empty());
    EXPECT_TRUE(crossings(wide(), circle(0.1, 0, 0.5)).empty());
}

TEST(FindIntersections, ContactIsLostOrComesOnce)
{
    EXPECT_LE(crossings(circle(0, 0, 1), circle(2, 0, 1)).size(), 1U);
    EXPECT_LE(crossings(wide(), Ellipse(Point2D(4, 0), 0, 2, 1)).size(), 1U);
    EXPECT_LE(crossings(wide(), circle(0, 3, 2)).size(), 1U);
}

TEST(FindIntersections, CrossingsNearerThanTheSquareAreMerged)
{
    // half the chord is 4e-5, so the two points lie 8e-5 apart
    double const h = 4e-5;
    double const distance = 2 * std::sqrt(1 - h * h);
    std::vector<Point2D> const one = crossings(circle(0, 0, 1), circle(distance, 0, 1));
    ASSERT_EQ(one.size(), 1U);
    EXPECT_NEAR(std::fabs(one[0].y()), h, 1e-8);
    double const wider = 2 * std::sqrt(1 - 4 * h * h);
    EXPECT_EQ(crossings(circle(0, 0, 1), circle(wider, 0, 1)).size(), 2U);
}

TEST(FindIntersections, NotANumberHasNone)
{
    EXPECT_TRUE(crossings(circle(nan64, 0, 1), circle(1, 0, 1)).empty());
    EXPECT_TRUE(crossings(circle(0, 0, 1), circle(1, 0, nan64)).empty());
    EXPECT_TRUE(crossings(circle(0, 0, 1), circle(inf, 0, 1)).empty());
    EXPECT_TRUE(crossings(Ellipse(Point2D(0, 0), inf, 2, 1), circle(1, 0, 1)).empty());
    EXPECT_TRUE(crossings(circle(0, 0, 0), circle(1, 0, 1)).empty());
}

TEST(FindIntersections, IdenticalEllipsesStayWithinTheWorkingArray)
{
    for (int i = 0; i < 50; ++i) {
        Ellipse const e(Point2D(i, -i / 3.0), 7.0 * i, 1 + i / 9.0, 0.5 + i / 20.0);
        EXPECT_LE(crossings(e, e).size(), 12U);
    }
}

/// More crossings than conics have: in the frame of the second ellipse the first is so small that
/// every point of it counts as lying on it.
Ellipse tiny()
{
    return Ellipse(Point2D(0, 0), 20, 1.5, 0.25);
}

Ellipse huge()
{
    return Ellipse(Point2D(1e11, 0), 0, 1e11, 1.5e11);
}

struct Choice
{
    bool found;
    Point2D point = untouchedPoint();
};

Choice choice(Ellipse e1, Ellipse e2, bool last, bool inner)
{
    Choice c{};
    c.found = mathPoly::FindIntersections2(e1, e2, last, inner, c.point);
    return c;
}

void expectChoice(Choice const &c, double x, double y)
{
    EXPECT_TRUE(c.found);
    EXPECT_POINT_NEAR(c.point, x, y, 1e-6);
}

void expectNone(Choice const &c)
{
    EXPECT_FALSE(c.found);
    EXPECT_POINT(c.point, untouched, untouched);
}

TEST(FindIntersections2, FourCrossingsAroundTheFirstEllipse)
{
    double const at = std::sqrt(0.8);
    expectChoice(choice(wide(), high(), false, false), at, at);
    expectChoice(choice(wide(), high(), false, true), -at, at);
    expectChoice(choice(wide(), high(), true, false), at, -at);
    expectChoice(choice(wide(), high(), true, true), -at, -at);
    // from the high one's own x axis, which points up: the order starts left above
    expectChoice(choice(high(), wide(), false, false), -at, at);
    expectChoice(choice(high(), wide(), true, false), at, at);
}

TEST(FindIntersections2, ThreeCrossings)
{
    // the circle touches the ellipse in (2, 0) from within and crosses it at x = 2/3
    double const y = std::sqrt(8.0) / 3;
    expectChoice(choice(wide(), circle(1, 0, 1), false, false), 2.0 / 3, y);
    expectChoice(choice(wide(), circle(1, 0, 1), false, true), 2.0 / 3, -y);
    expectChoice(choice(wide(), circle(1, 0, 1), true, true), 2.0 / 3, -y);
    expectChoice(choice(wide(), circle(1, 0, 1), true, false), 2, 0); // 360, hence the last
}

TEST(FindIntersections2, TwoCrossings)
{
    double const y = std::sqrt(0.75);
    expectChoice(choice(circle(0, 0, 1), circle(1, 0, 1), false, false), 0.5, y);
    expectChoice(choice(circle(0, 0, 1), circle(1, 0, 1), true, false), 0.5, -y);
    expectNone(choice(circle(0, 0, 1), circle(1, 0, 1), false, true));
    expectNone(choice(circle(0, 0, 1), circle(1, 0, 1), true, true));
}

TEST(FindIntersections2, OneCrossingWhateverIsAsked)
{
    double const distance = 2 * std::sqrt(1 - 4e-5 * 4e-5);
    for (int i = 0; i < 4; ++i) {
        Choice const c =
            choice(circle(0, 0, 1), circle(distance, 0, 1), (i & 1) != 0, (i & 2) != 0);
        EXPECT_TRUE(c.found);
        EXPECT_NEAR(c.point.x(), 1, 1e-8);
    }
}

TEST(FindIntersections2, NoneWithoutCrossings)
{
    for (int i = 0; i < 4; ++i) {
        expectNone(choice(wide(), circle(9, 0, 1), (i & 1) != 0, (i & 2) != 0));
    }
}

TEST(FindIntersections2, NoneForMoreThanFour)
{
    ASSERT_GT(crossings(tiny(), huge()).size(), 4U);
    for (int i = 0; i < 4; ++i) {
        expectNone(choice(tiny(), huge(), (i & 1) != 0, (i & 2) != 0));
    }
}

TEST(IntersectEllipseEllipse, GivesAllCrossingsAndTheirCount)
{
    Point2D points[12];
    int count = -1;
    EXPECT_EQ(intersect_ellipse_ellipse(Point2D(0, 0), 0, 2, 1, Point2D(0, 0), 90 - 360, 2, 1,
                                        points, count, nan64),
              1);
    EXPECT_EQ(count, 4);
    EXPECT_EQ(intersect_ellipse_ellipse(Point2D(0, 0), 0, 2, 1, Point2D(9, 0), 90, 2, 1, points,
                                        count, 0),
              0);
    EXPECT_EQ(count, 0);
}

TEST(IntersectEllipseEllipse, CountIsCutAtFour)
{
    Point2D points[12];
    int count = -1;
    EXPECT_EQ(intersect_ellipse_ellipse(Point2D(0, 0), 20, 1.5, 0.25, Point2D(1e11, 0), 0, 1e11,
                                        1.5e11, points, count, 0),
              1);
    EXPECT_EQ(count, 4);
}

TEST(IntersectCircleEllipse, GivesAllCrossingsAndTheirCount)
{
    Point2D points[12];
    int count = -1;
    EXPECT_EQ(
        intersect_circle_ellipse(Point2D(0, 0), 1.5, Point2D(0, 0), 30, 2, 1, points, count, nan64),
        1);
    EXPECT_EQ(count, 4);
    for (int i = 0; i < count; ++i) {
        EXPECT_NEAR(points[i].Length(), 1.5, 1e-14);
    }
    EXPECT_EQ(
        intersect_circle_ellipse(Point2D(0, 0), 0.5, Point2D(0, 0), 30, 2, 1, points, count, 0), 0);
    EXPECT_EQ(count, 0);
}

struct LineCut
{
    int result;
    Point2D out = untouchedPoint();
};

LineCut cut(Point2D const &p0, Point2D const &p1, Point2D const &centre, double angle, double a,
            double b, bool other, double eps = 1e-9)
{
    LineCut c{};
    c.result = intersect_line_ellipse(p0, p1, centre, angle, a, b, other, c.out, eps);
    return c;
}

TEST(IntersectLineEllipse, SelectorChoosesAlongTheLine)
{
    LineCut const first = cut(Point2D(-5, 2), Point2D(-4, 2), Point2D(1, 2), 0, 2, 1, false);
    EXPECT_EQ(first.result, 1);
    EXPECT_POINT_NEAR(first.out, 3, 2, 1e-14);
    LineCut const other = cut(Point2D(-5, 2), Point2D(-4, 2), Point2D(1, 2), 0, 2, 1, true);
    EXPECT_POINT_NEAR(other.out, -1, 2, 1e-14);
    LineCut const turned = cut(Point2D(1, 0), Point2D(1, 1), Point2D(1, 2), 90, 2, 1, false);
    EXPECT_POINT_NEAR(turned.out, 1, 4, 1e-14);
}

TEST(IntersectLineEllipse, MissByLessThanEpsIsATangent)
{
    // y = 1 + h has the discriminant -16 (2 h + h²) for a = 2, b = 1
    double const h = 1e-4;
    for (bool const other : {false, true}) {
        LineCut const c =
            cut(Point2D(-1, 1 + h), Point2D(1, 1 + h), Point2D(0, 0), 0, 2, 1, other, 0.0033);
        EXPECT_EQ(c.result, 1);
        EXPECT_POINT_NEAR(c.out, 0, 1 + h, 1e-15);
    }
    LineCut const none =
        cut(Point2D(-1, 1 + h), Point2D(1, 1 + h), Point2D(0, 0), 0, 2, 1, false, 0.0031);
    EXPECT_EQ(none.result, 0);
    EXPECT_POINT(none.out, untouched, untouched);
}

TEST(IntersectLineEllipse, LineWithoutLengthGivesNotANumber)
{
    LineCut const c = cut(Point2D(1, 1), Point2D(1, 1), Point2D(0, 0), 0, 2, 1, false);
    EXPECT_EQ(c.result, 1);
    EXPECT_TRUE(std::isnan(c.out.x()));
    EXPECT_TRUE(std::isnan(c.out.y()));
}

TEST(IntersectLineEllipse, NotANumberPassesThrough)
{
    LineCut const c = cut(Point2D(nan64, 1), Point2D(1, 1), Point2D(0, 0), 0, 2, 1, false);
    EXPECT_EQ(c.result, 1);
    EXPECT_TRUE(std::isnan(c.out.x()));
    EXPECT_EQ(cut(Point2D(-5, 0), Point2D(5, 0), Point2D(0, 0), inf, 2, 1, false).result, 1);
    EXPECT_EQ(cut(Point2D(-5, 0), Point2D(5, 0), Point2D(0, 0), 0, 2, 1, false, nan64).result, 1);
}

RC_GTEST_PROP(IntersectLineEllipseProperty, CrossingLiesOnBoth, ())
{
    Point2D const p0 = anyPoint(10);
    Point2D const p1 = anyPoint(10);
    RC_PRE(distanceOf(p0, p1) > 0.1);
    Point2D const centre = anyPoint(5);
    double const angle = anyNumber(400);
    double const a = 0.5 + anyPositive(5);
    double const b = 0.5 + anyPositive(5);
    Conic const q(Ellipse(centre, angle, a, b));
    LineCut const first = cut(p0, p1, centre, angle, a, b, false);
    LineCut const other = cut(p0, p1, centre, angle, a, b, true);
    RC_ASSERT(first.result == other.result);
    if (first.result == 0) {
        return;
    }
    for (Point2D const &p : {first.out, other.out}) {
        requireNear(distanceToLine(p, p0, p1), 0, 1e-11);
        requireNear(valueAt(q, p.x(), p.y()), 0, 1e-6);
    }
    Point2D const along = first.out - other.out;
    Point2D const d = p1 - p0;
    RC_ASSERT(along.x() * d.x() + along.y() * d.y() >= 0);
}

} // namespace
