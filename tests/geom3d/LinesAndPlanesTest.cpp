#include <OrvelMath/geom3d/intersect3d.h>

#include "points.h"

#include <rapidcheck/gtest.h>

#include <cmath>

TEST(IntersectLinePlaneByCoefficients, CrossesAndReportsParallel)
{
    Point3D out;
    ASSERT_TRUE(IntersectLinePlane(Point3D(1.0, 2.0, 0.0), Point3D(1.0, 2.0, 1.0), 0.0, 0.0, 2.0,
                                   -10.0, out));
    EXPECT_EQ(out, Point3D(1.0, 2.0, 5.0));
    out = presetPoint;
    EXPECT_FALSE(IntersectLinePlane(Point3D(1.0, 2.0, 0.0), Point3D(3.0, 2.0, 0.0), 0.0, 0.0, 2.0,
                                    -10.0, out));
    EXPECT_EQ(out, presetPoint);
}

TEST(IntersectLinePlaneByCoefficients, LimitIsNotCrossed)
{
    const Point3D p0;
    const Point3D p1(1.0, 0.0, 0.0);
    Point3D out = presetPoint;
    EXPECT_FALSE(IntersectLinePlane(p0, p1, 1e-200, 0.0, 0.0, 0.0, out));
    EXPECT_FALSE(IntersectLinePlane(p0, p1, -1e-200, 0.0, 0.0, 0.0, out));
    EXPECT_FALSE(IntersectLinePlane(p0, p1, notANumber, 0.0, 0.0, 0.0, out));
    EXPECT_EQ(out, presetPoint);
    EXPECT_TRUE(IntersectLinePlane(p0, p1, 1.1e-200, 0.0, 0.0, 0.0, out));
    EXPECT_EQ(out, p0);
}

TEST(IntersectLinePlaneByNormal, LineInThePlanePassesFromThePlanePointOnly)
{
    const Point3D normal(0.0, 0.0, 1.0);
    const Point3D planePoint(1.0, 2.0, 3.0);
    Point3D out = presetPoint;
    EXPECT_TRUE(IntersectLinePlane(planePoint, Point3D(4.0, 4.0, 3.0), normal, planePoint, out));
    EXPECT_EQ(out, planePoint);
    out = presetPoint;
    EXPECT_FALSE(IntersectLinePlane(Point3D(4.0, 4.0, 3.0), planePoint, normal, planePoint, out));
    EXPECT_EQ(out, presetPoint);
}

TEST(IntersectLinePlaneByNormal, LimitIsCrossed)
{
    const Point3D p0;
    const Point3D p1(1.0, 0.0, 0.0);
    const Point3D planePoint(2.0, 0.0, 0.0);
    Point3D out = presetPoint;
    EXPECT_TRUE(IntersectLinePlane(p0, p1, Point3D(1e-200, 0.0, 0.0), planePoint, out));
    EXPECT_EQ(out, planePoint);
    out = presetPoint;
    EXPECT_FALSE(IntersectLinePlane(p0, p1, Point3D(0.9e-200, 0.0, 0.0), planePoint, out));
    EXPECT_EQ(out, presetPoint);
    EXPECT_TRUE(IntersectLinePlane(p0, p1, Point3D(notANumber, 0.0, 0.0), planePoint, out));
    EXPECT_TRUE(isNan(out));
}

TEST(IntersectLinePlaneByNormal, NormalMayHaveAnyLength)
{
    Point3D out;
    ASSERT_TRUE(IntersectLinePlane(Point3D(0.0, 0.0, 8.0), Point3D(1.0, 0.0, 6.0),
                                   Point3D(0.0, 0.0, -4.0), Point3D(9.0, 9.0, 2.0), out));
    EXPECT_EQ(out, Point3D(3.0, 0.0, 2.0));
}

TEST(CalcXLinePlane, StoresTheParameterUnlessNull)
{
    const Point3D p0(0.0, 0.0, 8.0);
    const Point3D p1(1.0, 0.0, 6.0);
    const Point3D planePoint(9.0, 9.0, 2.0);
    const Point3D normal(0.0, 0.0, 1.0);
    Point3D out;
    double t = 0.0;
    ASSERT_TRUE(CalcXLinePlane(p0, p1, planePoint, normal, out, &t));
    EXPECT_EQ(out, Point3D(3.0, 0.0, 2.0));
    EXPECT_EQ(t, 3.0); // beyond p1
    out = presetPoint;
    ASSERT_TRUE(CalcXLinePlane(p0, p1, planePoint, normal, out, nullptr));
    EXPECT_EQ(out, Point3D(3.0, 0.0, 2.0));
}

TEST(CalcXLinePlane, HasTheLooserLimitAndNoShortcut)
{
    const Point3D p0;
    const Point3D p1(1.0, 0.0, 0.0);
    Point3D out = presetPoint;
    double t = -7.0;
    EXPECT_FALSE(CalcXLinePlane(p0, p1, p0, Point3D(0.0, 0.0, 1.0), out, &t));
    EXPECT_FALSE(CalcXLinePlane(p0, p1, p1, Point3D(0.9e-9, 0.0, 0.0), out, &t));
    EXPECT_EQ(out, presetPoint);
    EXPECT_EQ(t, -7.0);
    EXPECT_TRUE(CalcXLinePlane(p0, p1, p1, Point3D(1e-9, 0.0, 0.0), out, &t));
    EXPECT_EQ(t, 1.0);
    EXPECT_TRUE(CalcXLinePlane(p0, p1, p1, Point3D(notANumber, 0.0, 0.0), out, &t));
    EXPECT_TRUE(std::isnan(t));
}

TEST(Projection, OntoAPlane)
{
    const Point3D normal(0.0, 0.0, 1.0);
    EXPECT_EQ(ProjectOntoPlane(normal, Point3D(5.0, 5.0, 2.0), Point3D(1.0, 2.0, 9.0)),
              Point3D(1.0, 2.0, 2.0));
    // a normal of length 2 overshoots fourfold
    EXPECT_EQ(ProjectOntoPlane(2.0 * normal, Point3D(), Point3D(1.0, 2.0, 3.0)),
              Point3D(1.0, 2.0, -9.0));
}

TEST(Projection, OntoALine)
{
    const Point3D direction(0.6, 0.8, 0.0);
    double s = -7.0;
    const Point3D foot =
        ProjectOntoLine(direction, Point3D(1.0, 1.0, 1.0), Point3D(4.0, 5.0, 7.0), s);
    EXPECT_DOUBLE_EQ(s, 5.0);
    expectNear(foot, Point3D(4.0, 5.0, 1.0), 1e-14);
    EXPECT_EQ(ProjectOntoLine(direction, Point3D(1.0, 1.0, 1.0), Point3D(4.0, 5.0, 7.0)), foot);

    const Point3D behind = ProjectOntoLine(direction, Point3D(), Point3D(-3.0, -4.0, 0.0), s);
    EXPECT_DOUBLE_EQ(s, -5.0);
    expectNear(behind, Point3D(-3.0, -4.0, 0.0), 1e-14);
}

TEST(Projection, OfTheLinePointItselfIsAtZero)
{
    double s = -7.0;
    const Point3D linePoint(1.0, 2.0, 3.0);
    EXPECT_EQ(ProjectOntoLine(Point3D(1.0, 0.0, 0.0), linePoint, linePoint, s), linePoint);
    EXPECT_EQ(s, 0.0);
}

TEST(CalcDistancePointPlane, IsSignedAndScaledByTheNormal)
{
    const Point3D normal(0.0, 0.0, 2.0);
    EXPECT_EQ(CalcDistancePointPlane(normal, Point3D(1.0, 1.0, 5.0), Point3D(9.0, 9.0, 2.0)), 6.0);
    EXPECT_EQ(CalcDistancePointPlane(normal, Point3D(1.0, 1.0, 1.0), Point3D(9.0, 9.0, 2.0)), -2.0);
}

TEST(GetPlanarVectors, ByTheFirstComponentThatIsNotZero)
{
    Point3D u;
    Point3D v;
    getPlanarVectors(Point3D(2.0, 4.0, 6.0), u, v);
    EXPECT_EQ(u, Point3D(-5.0, 1.0, 1.0).Normalize());
    getPlanarVectors(Point3D(0.0, 2.0, 6.0), u, v);
    EXPECT_EQ(u, Point3D(1.0, -3.0, 1.0).Normalize());
    getPlanarVectors(Point3D(0.0, 0.0, 6.0), u, v);
    EXPECT_EQ(u, Point3D(1.0, 1.0, 0.0).Normalize());
    expectNear(v, Point3D(-1.0, 1.0, 0.0).Normalize(), 1e-15);
    getPlanarVectors(Point3D(), u, v);
    EXPECT_EQ(u, Point3D(1.0, 1.0, 1.0).Normalize());
    EXPECT_EQ(v, Point3D());
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
    const Point3D origin;
    const Point3D unitX(1.0, 0.0, 0.0);
    const Point3D tiny(0.0001, -0.0001, 0.0001);
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

TEST(IntersectPlanePlane, CommonLineOfTwoPlanes)
{
    Point3D linePoint;
    Point3D direction;
    ASSERT_TRUE(IntersectPlanePlane(Point3D(7.0, 8.0, 2.0), Point3D(0.0, 0.0, 2.0),
                                    Point3D(3.0, 4.0, 5.0), Point3D(3.0, 0.0, 0.0), linePoint,
                                    direction));
    EXPECT_EQ(direction, Point3D(0.0, 6.0, 0.0)); // not normalised
    EXPECT_EQ(linePoint, Point3D(3.0, 8.0, 2.0));
}

TEST(IntersectPlanePlane, EqualUnitNormalsWriteNothing)
{
    const Point3D z(0.0, 0.0, 1.0);
    Point3D linePoint = presetPoint;
    Point3D direction = presetPoint;
    EXPECT_FALSE(
        IntersectPlanePlane(Point3D(), z, Point3D(0.0, 0.0, 1.0), z, linePoint, direction));
    EXPECT_EQ(linePoint, presetPoint);
    EXPECT_EQ(direction, presetPoint);
}

TEST(IntersectPlanePlane, OppositeNormalsWriteAZeroDirection)
{
    const Point3D z(0.0, 0.0, 1.0);
    Point3D linePoint = presetPoint;
    Point3D direction = presetPoint;
    EXPECT_FALSE(
        IntersectPlanePlane(Point3D(), z, Point3D(0.0, 0.0, 1.0), -z, linePoint, direction));
    EXPECT_EQ(linePoint, presetPoint);
    EXPECT_EQ(direction, Point3D());

    const Point3D shared(1.0, 2.0, 3.0);
    direction = presetPoint;
    EXPECT_TRUE(IntersectPlanePlane(shared, z, shared, -z, linePoint, direction));
    EXPECT_EQ(linePoint, shared);
    EXPECT_EQ(direction, Point3D());
}

TEST(IntersectPlanePlane, UnequalNormalsOfProductOneAreRefusedToo)
{
    Point3D linePoint = presetPoint;
    Point3D direction = presetPoint;
    EXPECT_FALSE(IntersectPlanePlane(Point3D(), Point3D(1.0, 0.0, 0.0), Point3D(),
                                     Point3D(1.0, 1.0, 0.0), linePoint, direction));
    EXPECT_EQ(direction, presetPoint);
}

TEST(IntersectThreePlanes, CommonPoint)
{
    Point3D out = presetPoint;
    ASSERT_TRUE(IntersectThreePlanes(Point3D(1.0, 9.0, 9.0), Point3D(2.0, 0.0, 0.0),
                                     Point3D(9.0, 2.0, 9.0), Point3D(0.0, -1.0, 0.0),
                                     Point3D(9.0, 9.0, 3.0), Point3D(0.0, 0.0, 4.0), out));
    EXPECT_EQ(out, Point3D(1.0, 2.0, 3.0));
}

TEST(IntersectThreePlanes, DependentNormalsWriteNothing)
{
    Point3D out = presetPoint;
    EXPECT_FALSE(IntersectThreePlanes(Point3D(), Point3D(1.0, 2.0, 3.0), Point3D(),
                                      Point3D(4.0, 5.0, 6.0), Point3D(), Point3D(5.0, 7.0, 9.0),
                                      out));
    EXPECT_EQ(out, presetPoint);
    // No limit catches what is nearly dependent.
    EXPECT_TRUE(IntersectThreePlanes(Point3D(), Point3D(1.0, 0.0, 0.0), Point3D(),
                                     Point3D(0.0, 1.0, 0.0), Point3D(), Point3D(1.0, 0.0, 1e-300),
                                     out));
    EXPECT_TRUE(IntersectThreePlanes(Point3D(), Point3D(notANumber, 0.0, 0.0), Point3D(),
                                     Point3D(0.0, 1.0, 0.0), Point3D(), Point3D(0.0, 0.0, 1.0),
                                     out));
    EXPECT_TRUE(isNan(out));
}

RC_GTEST_PROP(LinesAndPlanesProperty, CrossingLiesOnLineAndPlane, ())
{
    const Point3D p0 = anyPoint();
    const Point3D d = anyDirection();
    const Point3D normal = anyDirection();
    const Point3D planePoint = anyPoint();
    RC_PRE(std::fabs(d.Dot(normal)) > 1e-2 * d.Length() * normal.Length());

    Point3D byNormal;
    Point3D byCoefficients;
    Point3D byX;
    double t = 0.0;
    RC_ASSERT(IntersectLinePlane(p0, p0 + d, normal, planePoint, byNormal));
    RC_ASSERT(IntersectLinePlane(p0, p0 + d, normal.x(), normal.y(), normal.z(),
                                 -normal.Dot(planePoint), byCoefficients));
    RC_ASSERT(CalcXLinePlane(p0, p0 + d, planePoint, normal, byX, &t));
    RC_ASSERT((byNormal - byCoefficients).Length() < 1e-8);
    RC_ASSERT((byNormal - byX).Length() < 1e-8);
    RC_ASSERT(std::fabs(CalcDistancePointPlane(normal.Normalize(), byNormal, planePoint)) < 1e-9);
    RC_ASSERT(Math3DVektorprodukt(byNormal - p0, d.Normalize()).Length() < 1e-9);
    RC_ASSERT((p0 + t * d - byX).Length() < 1e-12);
}

RC_GTEST_PROP(LinesAndPlanesProperty, FeetAreNearestAndStay, ())
{
    const Point3D u = anyDirection().Normalize();
    const Point3D base = anyPoint();
    const Point3D q = anyPoint();
    const Point3D onPlane = ProjectOntoPlane(u, base, q);
    RC_ASSERT(std::fabs(CalcDistancePointPlane(u, onPlane, base)) < 1e-13);
    RC_ASSERT(Math3DVektorprodukt(q - onPlane, u).Length() < 1e-13);
    RC_ASSERT((ProjectOntoPlane(u, base, onPlane) - onPlane).Length() < 1e-13);

    double s = 0.0;
    const Point3D onLine = ProjectOntoLine(u, base, q, s);
    RC_ASSERT(std::fabs((q - onLine).Dot(u)) < 1e-13);
    RC_ASSERT(std::fabs((onLine - base).Dot(u) - s) < 1e-13);
    // the two feet share out the vector from the base to q
    RC_ASSERT(((onPlane - base) + (onLine - base) - (q - base)).Length() < 1e-13);
}

RC_GTEST_PROP(LinesAndPlanesProperty, PlanarVectorsAndNormalAreOrthonormal, ())
{
    const Point3D normal = anyDirection();
    Point3D u;
    Point3D v;
    getPlanarVectors(normal, u, v);
    RC_ASSERT(std::fabs(u.Length() - 1.0) < 1e-15);
    RC_ASSERT(std::fabs(v.Length() - 1.0) < 1e-15);
    RC_ASSERT(std::fabs(u.Dot(normal.Normalize())) < 1e-12);
    RC_ASSERT((Math3DVektorprodukt(u, v) - normal.Normalize()).Length() < 1e-12);
}

RC_GTEST_PROP(LinesAndPlanesProperty, ClosestPointsArePerpendicularToBothLines, ())
{
    const Point3D p1 = anyPoint();
    const Point3D d1 = anyDirection();
    const Point3D p3 = anyPoint();
    const Point3D d2 = anyDirection();
    const Point3D n = Math3DVektorprodukt(d1.Normalize(), d2.Normalize());
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

RC_GTEST_PROP(LinesAndPlanesProperty, CommonLineLiesInBothPlanes, ())
{
    const Point3D p1 = anyPoint();
    const Point3D n1 = anyDirection().Normalize();
    const Point3D p2 = anyPoint();
    const Point3D n2 = anyDirection().Normalize();
    RC_PRE(Math3DVektorprodukt(n1, n2).Length() > 0.05);
    Point3D linePoint;
    Point3D direction;
    RC_ASSERT(IntersectPlanePlane(p1, n1, p2, n2, linePoint, direction));
    for (double t : {0.0, -5.0, 5.0}) {
        const Point3D x = linePoint + t * direction;
        RC_ASSERT(std::fabs(CalcDistancePointPlane(n1, x, p1)) < 1e-10);
        RC_ASSERT(std::fabs(CalcDistancePointPlane(n2, x, p2)) < 1e-10);
    }
    RC_ASSERT(std::fabs((linePoint - p1).Dot(direction)) < 1e-10); // straight across from p1
}

RC_GTEST_PROP(LinesAndPlanesProperty, CommonPointLiesInThreePlanes, ())
{
    const Point3D p[3] = {anyPoint(), anyPoint(), anyPoint()};
    const Point3D n[3] = {anyDirection().Normalize(), anyDirection().Normalize(),
                          anyDirection().Normalize()};
    RC_PRE(std::fabs(n[0].Dot(Math3DVektorprodukt(n[1], n[2]))) > 0.01);
    Point3D out;
    RC_ASSERT(IntersectThreePlanes(p[0], n[0], p[1], n[1], p[2], n[2], out));
    for (int i = 0; i < 3; ++i) {
        RC_ASSERT(std::fabs(CalcDistancePointPlane(n[i], out, p[i])) < 1e-10);
    }
}
