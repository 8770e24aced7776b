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
    Point3D const p0;
    Point3D const p1(1.0, 0.0, 0.0);
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
    Point3D const normal(0.0, 0.0, 1.0);
    Point3D const planePoint(1.0, 2.0, 3.0);
    Point3D out = presetPoint;
    EXPECT_TRUE(IntersectLinePlane(planePoint, Point3D(4.0, 4.0, 3.0), normal, planePoint, out));
    EXPECT_EQ(out, planePoint);
    out = presetPoint;
    EXPECT_FALSE(IntersectLinePlane(Point3D(4.0, 4.0, 3.0), planePoint, normal, planePoint, out));
    EXPECT_EQ(out, presetPoint);
}

TEST(IntersectLinePlaneByNormal, LimitIsCrossed)
{
    Point3D const p0;
    Point3D const p1(1.0, 0.0, 0.0);
    Point3D const planePoint(2.0, 0.0, 0.0);
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
    Point3D const p0(0.0, 0.0, 8.0);
    Point3D const p1(1.0, 0.0, 6.0);
    Point3D const planePoint(9.0, 9.0, 2.0);
    Point3D const normal(0.0, 0.0, 1.0);
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
    Point3D const p0;
    Point3D const p1(1.0, 0.0, 0.0);
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
    Point3D const normal(0.0, 0.0, 1.0);
    EXPECT_EQ(ProjectOntoPlane(normal, Point3D(5.0, 5.0, 2.0), Point3D(1.0, 2.0, 9.0)),
              Point3D(1.0, 2.0, 2.0));
    // a normal of length 2 overshoots fourfold
    EXPECT_EQ(ProjectOntoPlane(2.0 * normal, Point3D(), Point3D(1.0, 2.0, 3.0)),
              Point3D(1.0, 2.0, -9.0));
}

TEST(CalcDistancePointPlane, IsSignedAndScaledByTheNormal)
{
    Point3D const normal(0.0, 0.0, 2.0);
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
    Point3D const z(0.0, 0.0, 1.0);
    Point3D linePoint = presetPoint;
    Point3D direction = presetPoint;
    EXPECT_FALSE(
        IntersectPlanePlane(Point3D(), z, Point3D(0.0, 0.0, 1.0), z, linePoint, direction));
    EXPECT_EQ(linePoint, presetPoint);
    EXPECT_EQ(direction, presetPoint);
}

TEST(IntersectPlanePlane, OppositeNormalsWriteAZeroDirection)
{
    Point3D const z(0.0, 0.0, 1.0);
    Point3D linePoint = presetPoint;
    Point3D direction = presetPoint;
    EXPECT_FALSE(
        IntersectPlanePlane(Point3D(), z, Point3D(0.0, 0.0, 1.0), -z, linePoint, direction));
    EXPECT_EQ(linePoint, presetPoint);
    EXPECT_EQ(direction, Point3D());

    Point3D const shared(1.0, 2.0, 3.0);
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

RC_GTEST_PROP(PlanesProperty, CrossingLiesOnLineAndPlane, ())
{
    Point3D const p0 = anyPoint();
    Point3D const d = anyDirection();
    Point3D const normal = anyDirection();
    Point3D const planePoint = anyPoint();
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

RC_GTEST_PROP(PlanesProperty, FeetAreNearestAndStay, ())
{
    Point3D const u = anyDirection().Normalize();
    Point3D const base = anyPoint();
    Point3D const q = anyPoint();
    Point3D const onPlane = ProjectOntoPlane(u, base, q);
    RC_ASSERT(std::fabs(CalcDistancePointPlane(u, onPlane, base)) < 1e-13);
    RC_ASSERT(Math3DVektorprodukt(q - onPlane, u).Length() < 1e-13);
    RC_ASSERT((ProjectOntoPlane(u, base, onPlane) - onPlane).Length() < 1e-13);
}

RC_GTEST_PROP(PlanesProperty, PlanarVectorsAndNormalAreOrthonormal, ())
{
    Point3D const normal = anyDirection();
    Point3D u;
    Point3D v;
    getPlanarVectors(normal, u, v);
    RC_ASSERT(std::fabs(u.Length() - 1.0) < 1e-15);
    RC_ASSERT(std::fabs(v.Length() - 1.0) < 1e-15);
    RC_ASSERT(std::fabs(u.Dot(normal.Normalize())) < 1e-12);
    RC_ASSERT((Math3DVektorprodukt(u, v) - normal.Normalize()).Length() < 1e-12);
}

RC_GTEST_PROP(PlanesProperty, CommonLineLiesInBothPlanes, ())
{
    Point3D const p1 = anyPoint();
    Point3D const n1 = anyDirection().Normalize();
    Point3D const p2 = anyPoint();
    Point3D const n2 = anyDirection().Normalize();
    RC_PRE(Math3DVektorprodukt(n1, n2).Length() > 0.05);
    Point3D linePoint;
    Point3D direction;
    RC_ASSERT(IntersectPlanePlane(p1, n1, p2, n2, linePoint, direction));
    for (double t : {0.0, -5.0, 5.0}) {
        Point3D const x = linePoint + t * direction;
        RC_ASSERT(std::fabs(CalcDistancePointPlane(n1, x, p1)) < 1e-10);
        RC_ASSERT(std::fabs(CalcDistancePointPlane(n2, x, p2)) < 1e-10);
    }
    RC_ASSERT(std::fabs((linePoint - p1).Dot(direction)) < 1e-10); // straight across from p1
}

RC_GTEST_PROP(PlanesProperty, CommonPointLiesInThreePlanes, ())
{
    Point3D const p[3] = {anyPoint(), anyPoint(), anyPoint()};
    Point3D const n[3] = {anyDirection().Normalize(), anyDirection().Normalize(),
                          anyDirection().Normalize()};
    RC_PRE(std::fabs(n[0].Dot(Math3DVektorprodukt(n[1], n[2]))) > 0.01);
    Point3D out;
    RC_ASSERT(IntersectThreePlanes(p[0], n[0], p[1], n[1], p[2], n[2], out));
    for (int i = 0; i < 3; ++i) {
        RC_ASSERT(std::fabs(CalcDistancePointPlane(n[i], out, p[i])) < 1e-10);
    }
}
