#include "PlaneFixtures.h"

#include <OrvelMath/geom2d/Math2D.h>
#include <OrvelMath/geom2d/concav2d.h>
#include <OrvelMath/geom2d/concav2d_p.h>

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

TEST(EdgeSide, TellsTheSideAndExactlyCollinearPoints)
{
    Point2D const a(0, 0), b(10, 0);
    double const tol = 1e-6;
    EXPECT_EQ(1, concav2d::edgeSide(a, b, Point2D(3, 1), tol));
    EXPECT_EQ(-1, concav2d::edgeSide(a, b, Point2D(3, -1), tol));
    EXPECT_EQ(0, concav2d::edgeSide(a, b, Point2D(3, 0), tol));
    EXPECT_EQ(0, concav2d::edgeSide(a, b, Point2D(-7, 0), tol));
    EXPECT_EQ(0, concav2d::edgeSide(a, b, a, tol));
    EXPECT_EQ(0, concav2d::edgeSide(a, b, Point2D(10 + 1e-7, 1e-7), tol)) << "within 1e-6 of b";
    // So flat an arc that the direction of b falls on another one.
    EXPECT_EQ(2, concav2d::edgeSide(a, b, Point2D(5, 1e-9), tol));
}

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

} // namespace
