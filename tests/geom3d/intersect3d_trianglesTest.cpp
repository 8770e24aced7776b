#include <OrvelMath/geom3d/intersect3d.h>

#include "points.h"

#include <rapidcheck/gtest.h>

#include <cmath>

namespace {

// A right triangle of area 50 in the plane z = 3.
Point3D const t0(0.0, 0.0, 3.0);
Point3D const t1(10.0, 0.0, 3.0);
Point3D const t2(0.0, 10.0, 3.0);

bool piercesAt(double x, double y, double tol)
{
    return LineInsideTriangle(t0, t1, t2, Point3D(x, y, 9.0), Point3D(x, y, 8.0), tol);
}

} // namespace

TEST(GetDropCoord, GreatestMagnitudeAndTies)
{
    EXPECT_EQ(GetDropCoord(Point3D(-3.0, 2.0, 1.0)), 1);
    EXPECT_EQ(GetDropCoord(Point3D(2.0, -3.0, 1.0)), 2);
    EXPECT_EQ(GetDropCoord(Point3D(2.0, 1.0, -3.0)), 3);
    EXPECT_EQ(GetDropCoord(Point3D(1.0, 1.0, 1.0)), 1);
    EXPECT_EQ(GetDropCoord(Point3D(0.0, 1.0, 1.0)), 2);
    EXPECT_EQ(GetDropCoord(Point3D(1.0, 0.0, -1.0)), 1);
    EXPECT_EQ(GetDropCoord(Point3D(0.0, 0.0, 0.0)), 1);
}

TEST(GetDropCoord, NanIsNeverTheGreatest)
{
    EXPECT_EQ(GetDropCoord(Point3D(notANumber, 1.0, 2.0)), 3);
    EXPECT_EQ(GetDropCoord(Point3D(9.0, notANumber, 2.0)), 3);
    EXPECT_EQ(GetDropCoord(Point3D(9.0, 1.0, notANumber)), 3);
    EXPECT_EQ(GetDropCoord(Point3D(1.0, -infinity, infinity)), 2);
}

TEST(DropCoord, KeepsTheOthersInTheirOrder)
{
    Point3D const p(1.0, 2.0, 3.0);
    EXPECT_EQ(DropCoord(p, 1), Point2D(2.0, 3.0));
    EXPECT_EQ(DropCoord(p, 2), Point2D(1.0, 3.0));
    for (int other : {3, 0, -1, 4}) {
        EXPECT_EQ(DropCoord(p, other), Point2D(1.0, 2.0)) << other;
    }
}

TEST(LineInsideTriangle, InsideBoundaryAndOutside)
{
    EXPECT_TRUE(piercesAt(2.0, 2.0, 0.0));
    EXPECT_TRUE(piercesAt(0.0, 0.0, 0.0));
    EXPECT_TRUE(piercesAt(5.0, 5.0, 0.0));
    EXPECT_TRUE(piercesAt(5.0, 0.0, 0.0));
    EXPECT_FALSE(piercesAt(5.5, 5.5, 0.0));
    EXPECT_FALSE(piercesAt(-1.0, 2.0, 0.0));
}

TEST(LineInsideTriangle, ToleranceIsAnAreaDividedByAHundred)
{
    // 1 beyond the leg: the areas are 5 for that leg, 55 and 10 for the others, 60 against 50.
    EXPECT_FALSE(piercesAt(-1.0, 2.0, 999.0));
    EXPECT_TRUE(piercesAt(-1.0, 2.0, 1000.0));
}

TEST(LineInsideTriangle, TheLineRunsBeyondItsPoints)
{
    EXPECT_TRUE(
        LineInsideTriangle(t0, t1, t2, Point3D(2.0, 2.0, 9.0), Point3D(2.0, 2.0, 10.0), 0.0));
}

TEST(LineInsideTriangle, LineInThePlaneIsOutside)
{
    EXPECT_FALSE(
        LineInsideTriangle(t0, t1, t2, Point3D(1.0, 1.0, 3.0), Point3D(2.0, 2.0, 3.0), 1e9));
}

TEST(LineInsideTriangle, DegenerateTriangleIsOutside)
{
    EXPECT_FALSE(
        LineInsideTriangle(t0, t1, t1, Point3D(5.0, 0.0, 9.0), Point3D(5.0, 0.0, 8.0), 1e9));
    EXPECT_FALSE(LineInsideTriangle(t0, t0, t0, t0, Point3D(5.0, 0.0, 8.0), 1e9));
}

TEST(LineInsideTriangle, NanIsOutside)
{
    EXPECT_FALSE(piercesAt(notANumber, 2.0, 1e9));
    EXPECT_FALSE(piercesAt(2.0, 2.0, notANumber));
    EXPECT_FALSE(LineInsideTriangle(Point3D(notANumber, 0.0, 0.0), t1, t2, Point3D(2.0, 2.0, 9.0),
                                    Point3D(2.0, 2.0, 8.0), 1e9));
    EXPECT_TRUE(piercesAt(-1.0, 2.0, infinity));
}

TEST(LineInsideTriangle, WorksInAllThreeProjections)
{
    for (int axis = 0; axis < 3; ++axis) {
        auto const turned = [axis](Point3D const &p) {
            return Point3D(p[(3 - axis) % 3], p[(4 - axis) % 3], p[(5 - axis) % 3]);
        };
        auto const pierces = [&](double x, double y) {
            return LineInsideTriangle(turned(t0), turned(t1), turned(t2),
                                      turned(Point3D(x, y, 9.0)), turned(Point3D(x, y, 8.0)), 0.0);
        };
        EXPECT_TRUE(pierces(2.0, 3.0)) << axis;
        EXPECT_FALSE(pierces(6.0, 6.0)) << axis;
    }
}

RC_GTEST_PROP(LineInsideTriangleProperty, AgreesWithTheBarycentricWeights, ())
{
    Point3D const a = anyPoint();
    Point3D const b = a + anyDirection();
    Point3D const c = a + anyDirection();
    Point3D const normal = Math3DVektorprodukt(b - a, c - a);
    RC_PRE(normal.Length() > 0.1);
    double const u = uniform(-200, 900) * 1e-3;
    double const v = uniform(-200, 900) * 1e-3;
    double const least = std::fmin(std::fmin(u, v), 1.0 - u - v);
    RC_PRE(std::fabs(least) > 1e-4);
    Point3D const hit = a + u * (b - a) + v * (c - a);
    Point3D const direction = anyDirection();
    RC_PRE(std::fabs(direction.Dot(normal)) > 0.1 * direction.Length() * normal.Length());
    RC_TAG(least > 0.0);
    RC_ASSERT(LineInsideTriangle(a, b, c, hit + direction, hit + 2.0 * direction, 1e-7) ==
              (least > 0.0));
}
