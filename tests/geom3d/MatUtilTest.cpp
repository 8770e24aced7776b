#include <OrvelMath/geom3d/MatUtil.h>

#include "points.h"

#include <rapidcheck/gtest.h>

#include <cmath>

namespace {

Vector const origin;
Vector const unitX(1.0, 0.0, 0.0);
Vector const unitY(0.0, 1.0, 0.0);
Vector const unitZ(0.0, 0.0, 1.0);
Vector const presetVector(presetPoint);

Vector anyUnitVector()
{
    return Vector(anyDirection().Normalize());
}

double distance(Vector const &a, Vector const &b)
{
    return (a - b).length();
}

} // namespace

TEST(PerpendicularVector, TurnsClockwise)
{
    EXPECT_EQ(MatUtil::getPerpendicularVector(Point2D(1.0, 0.0)), Point2D(0.0, -1.0));
    EXPECT_EQ(MatUtil::getPerpendicularVector(Point2D(3.0, 4.0)), Point2D(4.0, -3.0));
}

TEST(CircleCenter, OfARightTriangle)
{
    double radius = 0.0;
    Point2D const center =
        MatUtil::getCircleCenter(Point2D(0.0, 0.0), Point2D(1.0, 0.0), Point2D(0.0, 1.0), radius);
    EXPECT_EQ(center, Point2D(0.5, 0.5));
    EXPECT_EQ(radius, std::sqrt(0.5));
}

TEST(CircleCenter, CollinearPointsHaveNone)
{
    double radius = 7.0;
    EXPECT_EQ(
        MatUtil::getCircleCenter(Point2D(1.0, 1.0), Point2D(2.0, 2.0), Point2D(3.0, 3.0), radius),
        Point2D(0.0, 0.0));
    EXPECT_EQ(radius, -1.0);
}

TEST(CircleCenter, SmallTrianglesCountAsCollinear)
{
    // Legs a: the doubled squared cross product is 2 a^4, at the limit for a = 0.0266.
    double radius = 0.0;
    MatUtil::getCircleCenter(Point2D(0.0, 0.0), Point2D(0.0265, 0.0), Point2D(0.0, 0.0265), radius);
    EXPECT_EQ(radius, -1.0);
    MatUtil::getCircleCenter(Point2D(0.0, 0.0), Point2D(0.0267, 0.0), Point2D(0.0, 0.0267), radius);
    EXPECT_NEAR(radius, 0.0267 * std::sqrt(0.5), 1e-16);
}

TEST(CircleCenter, NanComesOut)
{
    double radius = 0.0;
    Point2D const center = MatUtil::getCircleCenter(Point2D(notANumber, 0.0), Point2D(1.0, 0.0),
                                                    Point2D(0.0, 1.0), radius);
    EXPECT_TRUE(std::isnan(center.x()));
    EXPECT_TRUE(std::isnan(radius));
}

TEST(ProjectPoint, OntoLineAndPlane)
{
    Vector const point(1.0, 2.0, 3.0);
    EXPECT_EQ(MatUtil::projectPointOntoLine(point, Vector(0.0, 5.0, 5.0), unitX * 4.0),
              Vector(1.0, 5.0, 5.0));
    EXPECT_EQ(MatUtil::projectPointOntoPlane(point, Vector(0.0, 5.0, 5.0), unitZ * 4.0),
              Vector(1.0, 2.0, 5.0));
    EXPECT_EQ(MatUtil::reflectThroughLine(point, Vector(0.0, 5.0, 5.0), unitX * 4.0),
              Vector(1.0, 8.0, 7.0));
    EXPECT_EQ(MatUtil::reflectThroughPlane(point, Vector(0.0, 5.0, 5.0), unitZ * 4.0),
              Vector(1.0, 2.0, 7.0));
}

TEST(ProjectPoint, ZeroDirectionGivesNan)
{
    Vector const point(1.0, 2.0, 3.0);
    EXPECT_TRUE(isNan(Point3D(MatUtil::projectPointOntoLine(point, origin, origin))));
    EXPECT_TRUE(isNan(Point3D(MatUtil::projectPointOntoPlane(point, origin, origin))));
    EXPECT_TRUE(isNan(Point3D(MatUtil::reflectThroughLine(point, origin, origin))));
    EXPECT_TRUE(isNan(Point3D(MatUtil::reflectThroughPlane(point, origin, origin))));
}

TEST(IntersectPlanes, DirectionHasTheSignOfItsFreeColumn)
{
    Vector linePoint = presetVector;
    Vector direction = presetVector;
    ASSERT_TRUE(MatUtil::intersectPlanes(origin, unitZ, origin, unitY, linePoint, direction));
    EXPECT_EQ(direction, unitX);
    EXPECT_EQ(linePoint, origin);
}

TEST(IntersectPlanes, FreeCoordinateOfTheLinePointIsZero)
{
    Vector linePoint;
    Vector direction;
    ASSERT_TRUE(MatUtil::intersectPlanes(Vector(3.0, 8.0, 9.0), unitX * 2.0, Vector(7.0, 4.0, 9.0),
                                         unitY * -5.0, linePoint, direction));
    EXPECT_EQ(linePoint, Vector(3.0, 4.0, 0.0));
    EXPECT_EQ(direction, unitZ);
}

TEST(IntersectPlanes, ParallelPlanesLeaveTheDirectionAlone)
{
    Vector linePoint = presetVector;
    Vector direction = presetVector;
    EXPECT_FALSE(MatUtil::intersectPlanes(Vector(0.0, 0.0, 2.0), unitZ, Vector(5.0, 5.0, 2.0),
                                          unitZ * -3.0, linePoint, direction));
    EXPECT_EQ(linePoint, Vector(0.0, 0.0, 2.0)); // one point of the common plane
    EXPECT_EQ(direction, presetVector);
    EXPECT_FALSE(
        MatUtil::intersectPlanes(origin, unitZ, unitZ, unitZ * -3.0, linePoint, direction));
    EXPECT_EQ(linePoint, origin); // zeros: there is none
    EXPECT_EQ(direction, presetVector);
}

TEST(IntersectLines, CommonPoint)
{
    Vector point = presetVector;
    ASSERT_TRUE(MatUtil::intersectLines(Vector(0.0, 2.0, 1.0), unitX * 3.0, Vector(6.0, 0.0, 1.0),
                                        unitY * -2.0, point));
    EXPECT_EQ(point, Vector(6.0, 2.0, 1.0));
}

TEST(IntersectLines, ParallelAndSkewLinesHaveNone)
{
    Vector point = presetVector;
    EXPECT_FALSE(MatUtil::intersectLines(origin, unitX, unitY, unitX * 2.0, point));
    EXPECT_FALSE(MatUtil::intersectLines(origin, unitX, origin, unitX, point));
    EXPECT_FALSE(MatUtil::intersectLines(origin, unitX, unitZ, unitY, point));
    EXPECT_FALSE(MatUtil::intersectLines(origin, unitX, Vector(0.0, 0.0, 2e-12), unitY, point));
    EXPECT_EQ(point, presetVector);
    EXPECT_TRUE(MatUtil::intersectLines(origin, unitX, Vector(0.0, 0.0, 1e-12), unitY, point));
    EXPECT_EQ(point, origin);
}

TEST(IntersectLinePlane, CommonPointAndAbsoluteLimit)
{
    Vector point = presetVector;
    ASSERT_TRUE(MatUtil::intersectLinePlane(Vector(1.0, 2.0, 9.0), Vector(1.0, 0.0, -2.0),
                                            Vector(8.0, 8.0, 3.0), unitZ, point));
    EXPECT_EQ(point, Vector(4.0, 2.0, 3.0));
    point = presetVector;
    EXPECT_FALSE(MatUtil::intersectLinePlane(origin, unitX, unitZ, unitZ, point));
    // It would cross, but the direction is too short for the limit.
    EXPECT_FALSE(MatUtil::intersectLinePlane(origin, unitZ * 0.99e-5, unitZ, unitZ, point));
    EXPECT_EQ(point, presetVector);
    EXPECT_TRUE(MatUtil::intersectLinePlane(origin, unitZ * 1e-5, unitZ, unitZ, point));
    expectNear(point, unitZ, 1e-15);
    EXPECT_TRUE(MatUtil::intersectLinePlane(origin, unitZ * notANumber, unitZ, unitZ, point));
    EXPECT_TRUE(isNan(Point3D(point)));
}

TEST(BisectingPlane, HalvesTheAngleOfTheNormals)
{
    Vector point;
    Vector normal;
    MatUtil::bisectingPlane(Vector(0.0, 0.0, 5.0), unitZ, Vector(0.0, 3.0, 0.0), unitY, point,
                            normal);
    EXPECT_EQ(point, Vector(0.0, 3.0, 5.0));
    // the sum of the normals, crossed with (1, 0, 0)
    expectNear(normal, Vector(0.0, std::sqrt(0.5), -std::sqrt(0.5)), 1e-15);
}

TEST(BisectingPlane, OfParallelPlanesKeepsTheSecondNormal)
{
    Vector point;
    Vector normal;
    MatUtil::bisectingPlane(Vector(1.0, 0.0, 0.0), unitZ, Vector(3.0, 4.0, 8.0), unitZ * -7.0,
                            point, normal);
    EXPECT_EQ(point, Vector(2.0, 2.0, 4.0));
    EXPECT_EQ(normal, unitZ * -7.0);
}

TEST(SphereCenter, ThroughFourPoints)
{
    double radius = 0.0;
    Vector const center =
        MatUtil::getSphereCenter(Vector(3.0, 2.0, 3.0), Vector(1.0, 4.0, 3.0),
                                 Vector(1.0, 2.0, 5.0), Vector(-1.0, 2.0, 3.0), radius);
    EXPECT_EQ(center, Vector(1.0, 2.0, 3.0));
    EXPECT_EQ(radius, 2.0);
}

TEST(SphereCenter, CoplanarPointsHaveNone)
{
    double radius = 7.0;
    EXPECT_EQ(MatUtil::getSphereCenter(origin, unitX, unitY, unitX + unitY, radius), origin);
    EXPECT_EQ(radius, -1.0);
    radius = 7.0;
    EXPECT_EQ(MatUtil::getSphereCenter(unitZ, unitZ, unitZ, unitZ, radius), origin);
    EXPECT_EQ(radius, -1.0);
}

TEST(SphereCenter, PivotAtTheLimitIsMissing)
{
    double radius = 0.0;
    MatUtil::getSphereCenter(origin, unitX, unitY, unitZ * 1e-6, radius);
    EXPECT_EQ(radius, -1.0);
    MatUtil::getSphereCenter(origin, unitX, unitY, unitZ * 1.1e-6, radius);
    EXPECT_GT(radius, 0.7);
}

TEST(RayIntersectsTriangle, HitsFromBothSidesAndBehind)
{
    double t = -7.0;
    Vector const inside(0.25, 0.25, 0.0);
    ASSERT_TRUE(
        MatUtil::rayIntersectsTriangle(origin, unitX, unitY, inside - unitZ * 4.0, unitZ * 2.0, t));
    EXPECT_EQ(t, 2.0);
    ASSERT_TRUE(MatUtil::rayIntersectsTriangle(origin, unitX, unitY, inside + unitZ * 4.0,
                                               unitZ * -2.0, t));
    EXPECT_EQ(t, 2.0);
    ASSERT_TRUE(
        MatUtil::rayIntersectsTriangle(origin, unitX, unitY, inside + unitZ * 4.0, unitZ * 2.0, t));
    EXPECT_EQ(t, -2.0); // beyond the triangle
}

TEST(RayIntersectsTriangle, ParallelDirectionMisses)
{
    double t = -7.0;
    EXPECT_FALSE(
        MatUtil::rayIntersectsTriangle(origin, unitX, unitY, Vector(0.2, 0.2, 0.0), unitX, t));
    EXPECT_FALSE(MatUtil::rayIntersectsTriangle(origin, unitX, unitY, unitZ, unitX, t));
    EXPECT_EQ(t, -7.0);
}

TEST(RayIntersectsTriangle, BoundaryBelongsToTheTriangle)
{
    double t = 0.0;
    auto const hitsAt = [&t](double x, double y) {
        return MatUtil::rayIntersectsTriangle(origin, unitX, unitY, Vector(x, y, -1.0), unitZ, t);
    };
    EXPECT_TRUE(hitsAt(0.0, 0.0));
    EXPECT_TRUE(hitsAt(1.0, 0.0));
    EXPECT_TRUE(hitsAt(0.0, 1.0));
    EXPECT_TRUE(hitsAt(0.5, 0.5));
    EXPECT_FALSE(hitsAt(-1e-9, 0.5));
    EXPECT_FALSE(hitsAt(1.001, 0.0));
    EXPECT_FALSE(hitsAt(0.5, -1e-9));
    EXPECT_FALSE(hitsAt(0.5, 0.500001));
}

TEST(RayIntersectsTriangle, LimitOfTheDeterminantIsOpen)
{
    double t = -7.0;
    auto const hitsWithin = [&t](double size) {
        return MatUtil::rayIntersectsTriangle(origin, unitX, unitY, origin - unitZ, unitZ * size,
                                              t);
    };
    EXPECT_TRUE(hitsWithin(1e-6));
    EXPECT_TRUE(hitsWithin(-1e-6));
    t = -7.0;
    EXPECT_FALSE(hitsWithin(0.99e-6));
    EXPECT_FALSE(hitsWithin(-0.99e-6));
    EXPECT_EQ(t, -7.0);
}

TEST(RayIntersectsTriangle, NanPassesTheTests)
{
    double t = 0.0;
    EXPECT_TRUE(MatUtil::rayIntersectsTriangle(origin, unitX, unitY, origin - unitZ,
                                               Vector(0.0, 0.0, notANumber), t));
    EXPECT_TRUE(std::isnan(t));
}

TEST(SortVectorComponents, Ascending)
{
    double const values[3] = {1.0, 2.0, 3.0};
    int const orders[6][3] = {{0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}};
    for (auto &order : orders) {
        Vector v(values[order[0]], values[order[1]], values[order[2]]);
        MatUtil::sortVectorComponents(v);
        EXPECT_EQ(v, Vector(1.0, 2.0, 3.0));
    }
}

TEST(SortVectorComponents, ColumnsGoAlong)
{
    Vector v(3.0, 1.0, 2.0);
    matrixC3x3<double> m(Vector(10.0, 11.0, 12.0), Vector(20.0, 21.0, 22.0),
                         Vector(30.0, 31.0, 32.0));
    MatUtil::sortVectorComponents(v, m);
    EXPECT_EQ(v, Vector(1.0, 2.0, 3.0));
    EXPECT_EQ(m.axis(0), Vector(20.0, 21.0, 22.0));
    EXPECT_EQ(m.axis(1), Vector(30.0, 31.0, 32.0));
    EXPECT_EQ(m.axis(2), Vector(10.0, 11.0, 12.0));
}

TEST(SortVectorComponents, EqualOnesAreNotExchanged)
{
    Vector v(2.0, 2.0, 2.0);
    matrixC3x3<double> m(unitX, unitY, unitZ);
    MatUtil::sortVectorComponents(v, m);
    EXPECT_EQ(m, matrixC3x3<double>::identity());

    // The exchange of the first with the last moves an equal one past its twin.
    v = Vector(2.0, 2.0, 1.0);
    MatUtil::sortVectorComponents(v, m);
    EXPECT_EQ(v, Vector(1.0, 2.0, 2.0));
    EXPECT_EQ(m.axis(0), unitZ);
    EXPECT_EQ(m.axis(1), unitY);
    EXPECT_EQ(m.axis(2), unitX);

    Vector zeros(0.0, -0.0, -1.0);
    MatUtil::sortVectorComponents(zeros);
    EXPECT_FALSE(std::signbit(zeros.y()));
    EXPECT_TRUE(std::signbit(zeros.z()));
}

TEST(SortVectorComponents, NanMovesNoColumn)
{
    Vector v(notANumber, 2.0, 1.0);
    matrixC3x3<double> m(unitX, unitY, unitZ);
    MatUtil::sortVectorComponents(v, m);
    EXPECT_TRUE(std::isnan(v.x()));
    EXPECT_EQ(v.y(), 1.0);
    EXPECT_EQ(m.axis(0), unitX);
    Vector alone(notANumber, notANumber, 1.0);
    MatUtil::sortVectorComponents(alone);
    EXPECT_EQ(alone.z(), 1.0);
}

RC_GTEST_PROP(MatUtilProperty, ReflectionsAreInvolutions, ())
{
    Vector const point = anyVector();
    Vector const base = anyVector();
    Vector const direction(anyDirection());
    Vector const inLine = MatUtil::reflectThroughLine(point, base, direction);
    Vector const inPlane = MatUtil::reflectThroughPlane(point, base, direction);
    RC_ASSERT(distance(MatUtil::reflectThroughLine(inLine, base, direction), point) < 1e-12);
    RC_ASSERT(distance(MatUtil::reflectThroughPlane(inPlane, base, direction), point) < 1e-12);
    // line and plane together are the point reflection
    RC_ASSERT(distance((inLine + inPlane) * 0.5, base) < 1e-12);
    RC_ASSERT(std::fabs(distance(inLine, base) - distance(point, base)) < 1e-12);
}

RC_GTEST_PROP(MatUtilProperty, FeetArePerpendicular, ())
{
    Vector const point = anyVector();
    Vector const base = anyVector();
    Vector const u = anyUnitVector();
    Vector const onLine = MatUtil::projectPointOntoLine(point, base, u);
    Vector const onPlane = MatUtil::projectPointOntoPlane(point, base, u);
    RC_ASSERT(std::fabs((point - onLine).dot(u)) < 1e-13);
    RC_ASSERT((onLine - base).cross(u).length() < 1e-13);
    RC_ASSERT(std::fabs((onPlane - base).dot(u)) < 1e-13);
    RC_ASSERT((point - onPlane).cross(u).length() < 1e-13);
}

RC_GTEST_PROP(MatUtilProperty, CommonLineLiesInBothPlanes, ())
{
    Vector const p1 = anyVector();
    Vector const n1 = anyUnitVector();
    Vector const p2 = anyVector();
    Vector const n2 = anyUnitVector();
    RC_PRE(n1.cross(n2).length() > 0.05);
    Vector linePoint;
    Vector direction;
    RC_ASSERT(MatUtil::intersectPlanes(p1, n1, p2, n2, linePoint, direction));
    RC_ASSERT(std::fabs(direction.length() - 1.0) < 1e-15);
    double const tolerance = 1e-13 * (10.0 + linePoint.length());
    RC_ASSERT(std::fabs((linePoint - p1).dot(n1)) < tolerance);
    RC_ASSERT(std::fabs((linePoint - p2).dot(n2)) < tolerance);
    RC_ASSERT(std::fabs(direction.dot(n1)) < 1e-13);
    RC_ASSERT(std::fabs(direction.dot(n2)) < 1e-13);
}

RC_GTEST_PROP(MatUtilProperty, BisectingPlaneHasEqualDistancesToBoth, ())
{
    Vector const p1 = anyVector();
    Vector const n1 = anyUnitVector();
    Vector const p2 = anyVector();
    Vector const n2 = anyUnitVector();
    RC_PRE(n1.cross(n2).length() > 0.05);
    Vector base;
    Vector normal;
    MatUtil::bisectingPlane(p1, n1, p2, n2, base, normal);
    RC_ASSERT(std::fabs(normal.length() - 1.0) < 1e-15);
    Vector const inPlane = MatUtil::projectPointOntoPlane(anyVector(), base, normal);
    double const first = (inPlane - p1).dot(n1);
    double const second = (inPlane - p2).dot(n2);
    RC_ASSERT(std::fabs(first - second) < 1e-12 * (10.0 + base.length()));
}

RC_GTEST_PROP(MatUtilProperty, LinesThroughAPointMeetThere, ())
{
    // Small integers: the demand for exact data is met.
    auto const whole = [] { return static_cast<double>(uniform(-8, 9)); };
    Vector const common(whole(), whole(), whole());
    Vector const d1(whole(), whole(), whole());
    Vector const d2(whole(), whole(), whole());
    RC_PRE(d1.cross(d2).length() > 0.0);
    Vector point;
    RC_ASSERT(MatUtil::intersectLines(common - d1 * whole(), d1, common + d2 * whole(), d2, point));
    RC_ASSERT(distance(point, common) < 1e-11);
}

RC_GTEST_PROP(MatUtilProperty, CircleAndSphereRunThroughTheirPoints, ())
{
    Vector const a = anyVector();
    Vector const b = anyVector();
    Vector const c = anyVector();
    Vector const d = anyVector();
    RC_PRE(std::fabs((b - a).dot((c - a).cross(d - a))) > 1.0);
    double radius = 0.0;
    Vector const center = MatUtil::getSphereCenter(a, b, c, d, radius);
    for (Vector const &p : {a, b, c, d}) {
        RC_ASSERT(std::fabs(distance(center, p) - radius) < 1e-7);
    }

    Point2D const flat[3] = {Point2D(a.x(), a.y()), Point2D(b.x(), b.y()), Point2D(c.x(), c.y())};
    RC_PRE(std::fabs((b - a).cross(c - a).z()) > 1.0);
    Point2D const middle = MatUtil::getCircleCenter(flat[0], flat[1], flat[2], radius);
    for (Point2D const &p : flat) {
        RC_ASSERT(std::fabs((p - middle).Length() - radius) < 1e-7);
    }
}

RC_GTEST_PROP(MatUtilProperty, RayHitsAtTheGivenWeights, ())
{
    Vector const a = anyVector();
    Vector const e1(anyDirection());
    Vector const e2(anyDirection());
    Vector const direction = anyUnitVector();
    RC_PRE(std::fabs(direction.dot(e1.cross(e2))) > 0.1);
    double const u = uniform(-200, 900) * 1e-3;
    double const v = uniform(-200, 900) * 1e-3;
    double const least = std::fmin(std::fmin(u, v), 1.0 - u - v);
    RC_PRE(std::fabs(least) > 1e-9);
    double const s = anyCoordinate();
    double t = -77.0;
    bool const hit = MatUtil::rayIntersectsTriangle(
        a, a + e1, a + e2, a + e1 * u + e2 * v - direction * s, direction, t);
    RC_TAG(hit);
    RC_ASSERT(hit == (least > 0.0));
    RC_ASSERT((hit ? std::fabs(t - s) < 1e-10 : t == -77.0));
}
