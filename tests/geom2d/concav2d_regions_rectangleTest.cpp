#include "PlaneFixtures.h"

#include <OrvelMath/geom2d/Math2D.h>
#include <OrvelMath/geom2d/concav2d.h>

#include <rapidcheck/gtest.h>

#include <algorithm>
#include <random>

namespace {

/// The square from (0, 0) to (10, 10); the tests take non-const references.
struct Square
{
    Point2D r0{0, 0};
    Point2D r1{10, 0};
    Point2D r2{10, 10};
    Point2D r3{0, 10};

    int point(Point2D p) { return concav2d::pointInsideRectangle(p, r0, r1, r2, r3, nan64); }
    int line(Point2D p, Point2D q, bool left, bool right, bool bottom, bool top)
    {
        return concav2d::lineInsideRectangle(p, q, r0, r1, r2, r3, nan64, left, right, bottom, top);
    }
    int line(Point2D p, Point2D q) { return line(p, q, false, false, false, false); }
    int arc(Point2D p, Point2D q, Point2D r)
    {
        return concav2d::arcInsideRectangle(p, q, r, r0, r1, r2, r3, nan64);
    }
    int ellipseArc(Point2D centre, Point2D axisA, Point2D axisB, double rotation, double start,
                   double end)
    {
        return concav2d::ellipsearcInsideRectangle(centre, axisA, axisB, rotation, start, end, r0,
                                                   r1, r2, r3, nan64);
    }
};

TEST(PointInsideRectangle, InsideAndOnTheOutlineIsOne)
{
    Square square;
    EXPECT_EQ(square.point({5, 5}), 1);
    EXPECT_EQ(square.point({5, 0}), 1);
    EXPECT_EQ(square.point({10, 2}), 1);
    EXPECT_EQ(square.point({3, 10}), 1);
    EXPECT_EQ(square.point({0, 7}), 1);
    for (Point2D const corner : {square.r0, square.r1, square.r2, square.r3}) {
        EXPECT_EQ(square.point(corner), 1);
    }
}

TEST(PointInsideRectangle, OutsideIsZero)
{
    Square square;
    EXPECT_EQ(square.point({15, 5}), 0);
    EXPECT_EQ(square.point({-5, 5}), 0);
    EXPECT_EQ(square.point({5, 15}), 0);
    EXPECT_EQ(square.point({5, -5}), 0);
    EXPECT_EQ(square.point({12, 12}), 0);
}

TEST(PointInsideRectangle, OnTheLineOfAnEdgeTheOthersDecide)
{
    Square square;
    EXPECT_EQ(square.point({15, 0}), 0);
    EXPECT_EQ(square.point({-1, 10}), 0);
}

TEST(PointInsideRectangle, NearACornerCountsAsOnIt)
{
    Square square;
    EXPECT_EQ(square.point({-5e-7, -5e-7}), 1);
    EXPECT_EQ(square.point({-5e-6, -5e-6}), 0);
}

TEST(PointInsideRectangle, NanIsOutside)
{
    Square square;
    EXPECT_EQ(square.point({nan64, 5}), 0);
}

TEST(LineInsideRectangle, AStartStrictlyInsideSettlesIt)
{
    Square square;
    EXPECT_EQ(square.line({5, 5}, {500, 5}), 1);
    EXPECT_EQ(square.line({5, 5}, {nan64, 5}), 1);
    EXPECT_EQ(square.line({500, 5}, {5, 5}), 0);
}

TEST(LineInsideRectangle, AStartOnTheOutlineLooksAtTheOtherEnd)
{
    Square square;
    EXPECT_EQ(square.line({0, 5}, {5, 5}), 1);
    EXPECT_EQ(square.line({0, 5}, {10, 5}), 1);
    EXPECT_EQ(square.line({0, 5}, {15, 5}), 0);
    EXPECT_EQ(square.line({0, 5}, {-5, 5}), 0);
    EXPECT_EQ(square.line({5, 0}, {5, 15}), 0);
    EXPECT_EQ(square.line({5, 10}, {5, -5}), 0);
}

TEST(LineInsideRectangle, EachEdgeHasItsFlag)
{
    Square square;
    // In the order of the arguments: left, right, bottom, top.
    EXPECT_EQ(square.line({0, 2}, {0, 8}, true, false, false, false), 1);
    EXPECT_EQ(square.line({0, 2}, {0, 8}, false, true, true, true), 0);
    EXPECT_EQ(square.line({10, 2}, {10, 8}, false, true, false, false), 1);
    EXPECT_EQ(square.line({10, 2}, {10, 8}, true, false, true, true), 0);
    EXPECT_EQ(square.line({2, 0}, {8, 0}, false, false, true, false), 1);
    EXPECT_EQ(square.line({2, 0}, {8, 0}, true, true, false, true), 0);
    EXPECT_EQ(square.line({2, 10}, {8, 10}, false, false, false, true), 1);
    EXPECT_EQ(square.line({2, 10}, {8, 10}, true, true, true, false), 0);
}

TEST(ArcInsideRectangle, AThroughPointStrictlyInsideSettlesIt)
{
    Square square;
    EXPECT_EQ(square.arc({-500, 5}, {5, 5}, {500, 6}), 1);
    EXPECT_EQ(square.arc({5, 5}, {15, 5}, {5, 6}), 0);
}

TEST(ArcInsideRectangle, AThroughPointOnTheOutlineLooksAtTheStartOnly)
{
    Square square;
    EXPECT_EQ(square.arc({5, 5}, {10, 5}, {500, 6}), 1);
    EXPECT_EQ(square.arc({500, 6}, {10, 5}, {5, 5}), 0);
    EXPECT_EQ(square.arc({0, 5}, {10, 5}, {nan64, 6}), 1);
}

TEST(EllipsearcInsideRectangle, LooksAtTheStartAndTheMean)
{
    Square square;
    EXPECT_EQ(square.ellipseArc({5, 5}, {2, 0}, {0, 1}, 0, 0, 90), 1);
    EXPECT_EQ(square.ellipseArc({5, 5}, {7, 0}, {0, 1}, 0, 0, 90), 0);
    // The start lies on the right edge, so the mean decides: 90 or 360 degrees.
    EXPECT_EQ(square.ellipseArc({5, 5}, {5, 0}, {0, 8}, 0, 0, 180), 0);
    EXPECT_EQ(square.ellipseArc({5, 5}, {5, 0}, {0, 4}, 0, 0, 180), 1);
    // The axes give lengths alone.
    EXPECT_EQ(square.ellipseArc({5, 5}, {0, 5}, {4, 0}, 0, 0, 180), 1);
    // Strictly inside at the start, the mean is not looked at.
    EXPECT_EQ(square.ellipseArc({5, 5}, {4, 0}, {0, 80}, 0, 0, 180), 1);
}

rc::Gen<int> small()
{
    return rc::gen::inRange(-20, 21);
}

RC_GTEST_PROP(PointInsideRectangle, AgreesWithCrossProductsOnConvexQuadrilaterals, ())
{
    // A turned rectangle with corners on the grid, so that the cross products are exact.
    int const ux = *rc::gen::inRange(1, 10);
    int const uy = *small();
    int const width = *rc::gen::inRange(1, 5);
    int const height = *rc::gen::inRange(1, 5);
    Point2D r0(*small(), *small());
    Point2D r1 = r0 + Point2D(width * ux, width * uy);
    Point2D r2 = r1 + Point2D(-height * uy, height * ux);
    Point2D r3 = r0 + Point2D(-height * uy, height * ux);
    Point2D p(*small(), *small());
    bool inside = true;
    Point2D const corner[4] = {r0, r1, r2, r3};
    for (int i = 0; i < 4; ++i) {
        Point2D const a = corner[i];
        Point2D const b = corner[(i + 1) % 4];
        double const cross = (b.x() - a.x()) * (p.y() - a.y()) - (b.y() - a.y()) * (p.x() - a.x());
        inside = inside && cross >= 0;
    }
    RC_ASSERT(concav2d::pointInsideRectangle(p, r0, r1, r2, r3, 0.0) == (inside ? 1 : 0));
}

/// A segment that `clipline` moves in place.
struct Segment
{
    double x1, y1, x2, y2;

    bool clip(double xmin, double ymin, double xmax, double ymax)
    {
        return clipline(xmin, ymin, xmax, ymax, x1, y1, x2, y2);
    }
};

void expectSegment(Segment const &s, double x1, double y1, double x2, double y2)
{
    EXPECT_EQ(s.x1, x1);
    EXPECT_EQ(s.y1, y1);
    EXPECT_EQ(s.x2, x2);
    EXPECT_EQ(s.y2, y2);
}

TEST(Clipline, LeavesWhatIsInsideAlone)
{
    Segment s{1, 2, 8, 9};
    EXPECT_TRUE(s.clip(0, 0, 10, 10));
    expectSegment(s, 1, 2, 8, 9);
    Segment border{0, 0, 10, 10};
    EXPECT_TRUE(border.clip(0, 0, 10, 10));
    expectSegment(border, 0, 0, 10, 10);
}

TEST(Clipline, RefusesAtOnceWhatLiesBesideABorder)
{
    for (Segment const given : {Segment{-1, 5, -2, 6}, Segment{11, 5, 12, 6}, Segment{5, -1, 6, -2},
                                Segment{5, 11, 6, 12}}) {
        Segment s = given;
        EXPECT_FALSE(s.clip(0, 0, 10, 10));
        expectSegment(s, given.x1, given.y1, given.x2, given.y2);
    }
}

TEST(Clipline, MovesEachEndToItsBorder)
{
    Segment level{-5, 5, 15, 5};
    EXPECT_TRUE(level.clip(0, 0, 10, 10));
    expectSegment(level, 0, 5, 10, 5);
    Segment upright{5, 25, 5, -15};
    EXPECT_TRUE(upright.clip(0, 0, 10, 10));
    expectSegment(upright, 5, 10, 5, 0);
    Segment diagonal{-10, -20, 15, 30};
    EXPECT_TRUE(diagonal.clip(0, 0, 10, 10));
    expectSegment(diagonal, 0, 0, 5, 10);
}

TEST(Clipline, MovesInXAndYInOnePass)
{
    // The first move reaches (0, 3), which is inside; the second one, from the same outcode, leaves
    // again to (-7.5, 0), and the next pass comes back.
    Segment s{-10, -1, 5, 5};
    EXPECT_TRUE(s.clip(0, 0, 10, 10));
    double const y = -1 + (0.0 - -10) * 6 / 15;
    double const x = 0 + (0 - y) * 15 / 6;
    expectSegment(s, 0, 0 + (0 - x) * 6 / 15, 5, 5);
}

TEST(Clipline, RefusalMayHaveMovedAnEnd)
{
    Segment s{-1, 9, 1, 12};
    EXPECT_FALSE(s.clip(0, 0, 10, 10));
    expectSegment(s, 0, 10.5, 1, 12);
}

TEST(Clipline, ADegenerateSegmentIsAPoint)
{
    Segment inside{3, 3, 3, 3};
    EXPECT_TRUE(inside.clip(0, 0, 10, 10));
    Segment outside{13, 3, 13, 3};
    EXPECT_FALSE(outside.clip(0, 0, 10, 10));
}

TEST(Clipline, NanCountsAsInsideAndInfinityEnds)
{
    Segment s{nan64, 3, 5, 5};
    EXPECT_TRUE(s.clip(0, 0, 10, 10));
    for (double const x1 : {-inf, inf, -1e308, 1e308, 5.0}) {
        for (double const y1 : {-inf, inf, -1e308, 1e308, 5.0}) {
            Segment one{x1, y1, 5, 5};
            one.clip(0, 0, 10, 10);
            Segment two{x1, y1, -y1, x1};
            two.clip(0, 0, 10, 10);
            SUCCEED();
        }
    }
}

TEST(Clipline, ExchangedBordersEndAndKeepNothingOutside)
{
    double const numbers[] = {nan64, -inf, inf, 1e300, -20, -5, 0, 5, 20};
    for (double const x1 : numbers) {
        for (double const y1 : numbers) {
            for (double const x2 : numbers) {
                Segment x{x1, y1, x2, 3};
                Segment y{x1, y1, 3, x2};
                bool const keptInX = x.clip(10, 0, 0, 10);
                bool const keptInY = y.clip(0, 10, 10, 0);
                // Only what is no number is not outside.
                EXPECT_TRUE(!keptInX || (std::isnan(x.x1) && std::isnan(x.x2)));
                EXPECT_TRUE(!keptInY || (std::isnan(y.y1) && std::isnan(y.y2)));
            }
        }
    }
    Segment s{20, -5, -20, 15};
    EXPECT_FALSE(s.clip(10, 10, 0, 0));
}

TEST(Clipline, ASegmentThatEndsInACornerDoesNotGoToAndFroForEver)
{
    std::mt19937_64 random(4);
    std::uniform_real_distribution<double> around(-20.0, 20.0);
    std::uniform_real_distribution<double> size(0.1, 9.0);
    for (int i = 0; i < 20000; ++i) {
        double const xmin = around(random);
        double const ymin = around(random);
        double const xmax = xmin + size(random);
        double const ymax = ymin + size(random);
        double const cornerX = random() % 2 == 0 ? xmin : xmax;
        double const cornerY = random() % 2 == 0 ? ymin : ymax;
        Segment s{around(random), around(random), cornerX, cornerY};
        bool const kept = s.clip(xmin, ymin, xmax, ymax);
        // The corner itself is inside, and whatever is kept is in the rectangle.
        if (kept) {
            ASSERT_TRUE(xmin <= s.x1 && s.x1 <= xmax && ymin <= s.y1 && s.y1 <= ymax);
            ASSERT_TRUE(xmin <= s.x2 && s.x2 <= xmax && ymin <= s.y2 && s.y2 <= ymax);
        }
    }
}

RC_GTEST_PROP(Clipline, KeepsWhatIsInTheRectangleAndOnTheLine, ())
{
    int const xmin = *small();
    int const ymin = *small();
    int const xmax = xmin + *rc::gen::inRange(1, 20);
    int const ymax = ymin + *rc::gen::inRange(1, 20);
    int const x1 = *small();
    int const y1 = *small();
    int const x2 = *small();
    int const y2 = *small();
    auto const side = [&](int x, int y) { return (x2 - x1) * (y - y1) - (y2 - y1) * (x - x1); };
    int const sides[4] = {side(xmin, ymin), side(xmax, ymin), side(xmax, ymax), side(xmin, ymax)};
    int const low = *std::min_element(sides, sides + 4);
    int const high = *std::max_element(sides, sides + 4);
    bool const boxesMeet = std::max(x1, x2) >= xmin && std::min(x1, x2) <= xmax &&
                           std::max(y1, y2) >= ymin && std::min(y1, y2) <= ymax;
    bool const grazes = low == 0 || high == 0;

    Segment s{double(x1), double(y1), double(x2), double(y2)};
    bool const kept = s.clip(xmin, ymin, xmax, ymax);
    if (!grazes) {
        RC_ASSERT(kept == (boxesMeet && low < 0 && high > 0));
    }
    if (!kept) {
        return;
    }
    double const length = std::hypot(x2 - x1, y2 - y1);
    for (Point2D const &p : {Point2D(s.x1, s.y1), Point2D(s.x2, s.y2)}) {
        RC_ASSERT(xmin <= p.x() && p.x() <= xmax && ymin <= p.y() && p.y() <= ymax);
        double const off = (x2 - x1) * (p.y() - y1) - (y2 - y1) * (p.x() - x1);
        RC_ASSERT(std::fabs(off) <= 1e-12 * (1 + length) * (1 + length));
        RC_ASSERT(p.x() >= std::min(x1, x2) - 1e-12 && p.x() <= std::max(x1, x2) + 1e-12);
        RC_ASSERT(p.y() >= std::min(y1, y2) - 1e-12 && p.y() <= std::max(y1, y2) + 1e-12);
    }
}

} // namespace
