#include <OrvelMath/geom3d/intersect3d.h>

#include "points.h"

#include <rapidcheck/gtest.h>

#include <cmath>

TEST(Projection, OntoALine)
{
    Point3D const direction(0.6, 0.8, 0.0);
    double s = -7.0;
    Point3D const foot =
        ProjectOntoLine(direction, Point3D(1.0, 1.0, 1.0), Point3D(4.0, 5.0, 7.0), s);
    EXPECT_DOUBLE_EQ(s, 5.0);
    expectNear(foot, Point3D(4.0, 5.0, 1.0), 1e-14);
    EXPECT_EQ(ProjectOntoLine(direction, Point3D(1.0, 1.0, 1.0), Point3D(4.0, 5.0, 7.0)), foot);

    Point3D const behind = ProjectOntoLine(direction, Point3D(), Point3D(-3.0, -4.0, 0.0), s);
    EXPECT_DOUBLE_EQ(s, -5.0);
    expectNear(behind, Point3D(-3.0, -4.0, 0.0), 1e-14);
}

TEST(Projection, OfTheLinePointItselfIsAtZero)
{
    double s = -7.0;
    Point3D const linePoint(1.0, 2.0, 3.0);
    EXPECT_EQ(ProjectOntoLine(Point3D(1.0, 0.0, 0.0), linePoint, linePoint, s), linePoint);
    EXPECT_EQ(s, 0.0);
}

TEST(IntersectLineLine, ClosestPointsOfSkewLines)
{
    Point3D pa;
    Point3D pb;
    ASSERT_TRUE(IntersectLineLine(Point3D(-1.0, 0.0, 0.0), Point3D(1.0, 0.0, 0.0),
                                  Point3D(0.0, 3.0, 5.0), Point3D(0.0, 4.0, 5.0), pa, pb));
    EXPECT_EQ(pa, Point3D(0.0, 0.0, 0.0));
    EXPECT_EQ(pb, Point3D(0.0, 0.0, 5.0));
}

TEST(IntersectLineLine, RefusesShortAndParallelSegments)
{
    Point3D const origin;
    Point3D const unitX(1.0, 0.0, 0.0);
    Point3D const tiny(0.0001, -0.0001, 0.0001);
    Point3D pa = presetPoint;
    Point3D pb = presetPoint;
    EXPECT_FALSE(IntersectLineLine(origin, tiny, origin, 1e6 * unitX, pa, pb));
    EXPECT_FALSE(IntersectLineLine(origin, 1e6 * unitX, origin, tiny, pa, pb));
    EXPECT_FALSE(
        IntersectLineLine(origin, unitX, Point3D(0.0, 1.0, 0.0), Point3D(1.0, 1.0, 0.0), pa, pb));
    // Perpendicular, but the product of the squared lengths is at the limit.
    EXPECT_FALSE(IntersectLineLine(origin, 0.1 * unitX, origin, Point3D(0.0, 0.0999, 0.0), pa, pb));
    EXPECT_EQ(pa, presetPoint);
    EXPECT_EQ(pb, presetPoint);
    EXPECT_TRUE(IntersectLineLine(origin, 0.1 * unitX, origin, Point3D(0.0, 0.101, 0.0), pa, pb));
    EXPECT_EQ(pa, origin);
    EXPECT_EQ(pb, origin);
}

TEST(IntersectLineLine, OneLongCoordinateIsEnough)
{
    Point3D pa;
    Point3D pb;
    EXPECT_TRUE(IntersectLineLine(Point3D(), Point3D(0.00011, 0.0, 0.0), Point3D(),
                                  Point3D(0.0, 1e4, 0.0), pa, pb));
    EXPECT_FALSE(IntersectLineLine(Point3D(), Point3D(0.0001, 0.0, 0.0), Point3D(),
                                   Point3D(0.0, 1e4, 0.0), pa, pb));
}

TEST(IntersectLineLine, NanComesOut)
{
    Point3D pa;
    Point3D pb;
    EXPECT_TRUE(IntersectLineLine(Point3D(notANumber, 0.0, 0.0), Point3D(1.0, 0.0, 0.0), Point3D(),
                                  Point3D(0.0, 1.0, 0.0), pa, pb));
    EXPECT_TRUE(isNan(pa));
}

TEST(IntersectLineLine, OutputsMayBeInputs)
{
    Point3D p1(-1.0, 0.0, 0.0);
    Point3D p3(0.0, 3.0, 5.0);
    ASSERT_TRUE(IntersectLineLine(p1, Point3D(1.0, 0.0, 0.0), p3, Point3D(0.0, 4.0, 5.0), p3, p1));
    EXPECT_EQ(p3, Point3D(0.0, 0.0, 0.0));
    EXPECT_EQ(p1, Point3D(0.0, 0.0, 5.0));
}

RC_GTEST_PROP(LinesProperty, FeetOnALineAndOnItsNormalPlaneShareOutTheVector, ())
{
    Point3D const u = anyDirection().Normalize();
    Point3D const base = anyPoint();
    Point3D const q = anyPoint();
    Point3D const onPlane = ProjectOntoPlane(u, base, q);
    double s = 0.0;
    Point3D const onLine = ProjectOntoLine(u, base, q, s);
    RC_ASSERT(std::fabs((q - onLine).Dot(u)) < 1e-13);
    RC_ASSERT(std::fabs((onLine - base).Dot(u) - s) < 1e-13);
    // the two feet share out the vector from the base to q
    RC_ASSERT(((onPlane - base) + (onLine - base) - (q - base)).Length() < 1e-13);
}

RC_GTEST_PROP(LinesProperty, ClosestPointsArePerpendicularToBothLines, ())
{
    Point3D const p1 = anyPoint();
    Point3D const d1 = anyDirection();
    Point3D const p3 = anyPoint();
    Point3D const d2 = anyDirection();
    Point3D const n = Math3DVektorprodukt(d1.Normalize(), d2.Normalize());
    RC_PRE(n.Length() > 0.05);
    RC_PRE(Math3DVektorprodukt(d1, d2).Length() > 0.05);
    Point3D pa;
    Point3D pb;
    RC_ASSERT(IntersectLineLine(p1, p1 + d1, p3, p3 + d2, pa, pb));
    RC_ASSERT(Math3DVektorprodukt(pa - p1, d1.Normalize()).Length() < 1e-9);
    RC_ASSERT(Math3DVektorprodukt(pb - p3, d2.Normalize()).Length() < 1e-9);
    RC_ASSERT(std::fabs((pb - pa).Dot(d1.Normalize())) < 1e-9);
    RC_ASSERT(std::fabs((pb - pa).Dot(d2.Normalize())) < 1e-9);
    RC_ASSERT(std::fabs((pb - pa).Length() - std::fabs((p3 - p1).Dot(n.Normalize()))) < 1e-9);
}
