#include <OrvelMath/geom3d/intersect3d.h>

#include "points.h"

#include <boost/multiprecision/cpp_bin_float.hpp>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

using Wide = boost::multiprecision::cpp_bin_float_quad;

struct WidePoint
{
    Wide x;
    Wide y;
    Wide z;

    explicit WidePoint(Point3D const &p)
        : x(p.x())
        , y(p.y())
        , z(p.z())
    {
    }
    WidePoint(Wide const &xValue, Wide const &yValue, Wide const &zValue)
        : x(xValue)
        , y(yValue)
        , z(zValue)
    {
    }
};

WidePoint difference(WidePoint const &a, WidePoint const &b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

Wide dot(WidePoint const &a, WidePoint const &b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

WidePoint cross(WidePoint const &a, WidePoint const &b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

/// The roots of |from + t direction| = radius, if they are well apart.
struct WideRoots
{
    bool exist;
    bool wellApart;
    double smaller = 0.0;
    double larger = 0.0;

    WideRoots(WidePoint const &direction, WidePoint const &from, Wide const &radius)
    {
        Wide const a = dot(direction, direction);
        Wide const b = dot(from, direction);
        Wide const c = dot(from, from) - radius * radius;
        Wide const discriminant = b * b - a * c;
        exist = discriminant > 0;
        wellApart = abs(discriminant) > 1e-6 * (b * b + abs(a * c));
        if (exist) {
            smaller = static_cast<double>(Wide((-b - sqrt(discriminant)) / a));
            larger = static_cast<double>(Wide((-b + sqrt(discriminant)) / a));
        }
    }
};

/// The outputs of IntersectLineCylinder, preset.
struct CylinderHit
{
    int count = -1;
    double t1 = -7.0;
    Point3D o1 = presetPoint;
    double t2 = -7.0;
    Point3D o2 = presetPoint;

    CylinderHit(Point3D const &p0, Point3D const &p1, Point3D const &a0, Point3D const &a1,
                double radius)
    {
        count = IntersectLineCylinder(p0, p1, a0, a1, radius, t1, o1, t2, o2);
    }

    bool isUntouched() const
    {
        return t1 == -7.0 && t2 == -7.0 && o1 == presetPoint && o2 == presetPoint;
    }
};

// The cylinder of the examples: about the x axis from 0 to 10, radius 2.
Point3D const axisStart(0.0, 0.0, 0.0);
Point3D const axisEnd(10.0, 0.0, 0.0);

CylinderHit hitExample(Point3D const &p0, Point3D const &p1)
{
    return CylinderHit(p0, p1, axisStart, axisEnd, 2.0);
}

} // namespace

TEST(IntersectLineSphere, TwoPointsTheLargerParameterFirst)
{
    Point3D const p0(-10.0, 0.0, 0.0);
    Point3D const p1(-9.0, 0.0, 0.0);
    double t1 = 0.0;
    double t2 = 0.0;
    EXPECT_EQ(IntersectLineSphereDst(p0, p1, Point3D(), 2.0, t1, t2), 2);
    EXPECT_EQ(t1, 12.0);
    EXPECT_EQ(t2, 8.0);
    Point3D o1;
    Point3D o2;
    EXPECT_EQ(IntersectLineSphere(p0, p1, Point3D(), 2.0, o1, o2), 2);
    EXPECT_EQ(o1, Point3D(2.0, 0.0, 0.0));
    EXPECT_EQ(o2, Point3D(-2.0, 0.0, 0.0));
}

TEST(IntersectLineSphere, TouchWritesTheFirstOutputOnly)
{
    Point3D const p0(-10.0, 2.0, 0.0);
    Point3D const p1(-9.0, 2.0, 0.0);
    double t1 = -7.0;
    double t2 = -7.0;
    EXPECT_EQ(IntersectLineSphereDst(p0, p1, Point3D(), 2.0, t1, t2), 1);
    EXPECT_EQ(t1, 10.0);
    EXPECT_EQ(t2, -7.0);
    Point3D o1 = presetPoint;
    Point3D o2 = presetPoint;
    EXPECT_EQ(IntersectLineSphere(p0, p1, Point3D(), 2.0, o1, o2), 1);
    EXPECT_EQ(o1, Point3D(0.0, 2.0, 0.0));
    EXPECT_EQ(o2, presetPoint);
}

TEST(IntersectLineSphere, MissWritesNothing)
{
    Point3D const p0(-10.0, 3.0, 0.0);
    Point3D const p1(-9.0, 3.0, 0.0);
    double t1 = -7.0;
    double t2 = -7.0;
    EXPECT_EQ(IntersectLineSphereDst(p0, p1, Point3D(), 2.0, t1, t2), 0);
    EXPECT_EQ(t1, -7.0);
    EXPECT_EQ(t2, -7.0);
    Point3D o1 = presetPoint;
    Point3D o2 = presetPoint;
    EXPECT_EQ(IntersectLineSphere(p0, p1, Point3D(), 2.0, o1, o2), 0);
    EXPECT_EQ(o1, presetPoint);
    EXPECT_EQ(o2, presetPoint);
}

TEST(IntersectLineSphere, LineWithoutLength)
{
    Point3D const onSphere(2.0, 0.0, 0.0);
    double t1 = -7.0;
    double t2 = -7.0;
    EXPECT_EQ(IntersectLineSphereDst(onSphere, onSphere, Point3D(), 2.0, t1, t2), 1);
    EXPECT_EQ(t1, 0.0);
    EXPECT_EQ(t2, -7.0);
    Point3D const inside(1.0, 0.0, 0.0);
    EXPECT_EQ(IntersectLineSphereDst(inside, inside, Point3D(), 2.0, t1, t2), 0);
    Point3D o1;
    Point3D o2;
    EXPECT_EQ(IntersectLineSphere(onSphere, onSphere, Point3D(), 2.0, o1, o2), 1);
    EXPECT_EQ(o1, onSphere);
}

TEST(IntersectLineSphere, NegativeRadiusCountsAsItsMagnitude)
{
    Point3D o1;
    Point3D o2;
    EXPECT_EQ(IntersectLineSphere(Point3D(-10.0, 0.0, 0.0), Point3D(-9.0, 0.0, 0.0), Point3D(),
                                  -2.0, o1, o2),
              2);
    EXPECT_EQ(o1, Point3D(2.0, 0.0, 0.0));
}

TEST(IntersectLineSphere, NanComesOut)
{
    double t1 = 0.0;
    double t2 = 0.0;
    EXPECT_EQ(IntersectLineSphereDst(Point3D(notANumber, 0.0, 0.0), Point3D(1.0, 0.0, 0.0),
                                     Point3D(), 2.0, t1, t2),
              2);
    EXPECT_TRUE(std::isnan(t1));
    EXPECT_TRUE(std::isnan(t2));
}

TEST(IntersectLineSphere, OutputsMayBeInputs)
{
    Point3D p0(-10.0, 0.0, 0.0);
    Point3D p1(-9.0, 0.0, 0.0);
    EXPECT_EQ(IntersectLineSphere(p0, p1, Point3D(), 2.0, p0, p1), 2);
    EXPECT_EQ(p0, Point3D(2.0, 0.0, 0.0));
    EXPECT_EQ(p1, Point3D(-2.0, 0.0, 0.0));
}

TEST(IntersectLineCylinder, LineAlongTheAxisWritesNothing)
{
    CylinderHit const along = hitExample(Point3D(0.0, 1.0, 0.0), Point3D(5.0, 1.0, 0.0));
    EXPECT_EQ(along.count, 0);
    EXPECT_TRUE(along.isUntouched());
    CylinderHit const noAxis(Point3D(0.0, 0.0, 5.0), Point3D(), axisStart, axisStart, 2.0);
    EXPECT_EQ(noAxis.count, 0);
    EXPECT_TRUE(noAxis.isUntouched());
}

TEST(IntersectLineCylinder, TangentAndMissWriteNothing)
{
    CylinderHit const tangent = hitExample(Point3D(5.0, 2.0, -5.0), Point3D(5.0, 2.0, 5.0));
    EXPECT_EQ(tangent.count, 0);
    EXPECT_TRUE(tangent.isUntouched());
    CylinderHit const miss = hitExample(Point3D(5.0, 3.0, -5.0), Point3D(5.0, 3.0, 5.0));
    EXPECT_EQ(miss.count, 0);
    EXPECT_TRUE(miss.isUntouched());
    CylinderHit const negative(Point3D(5.0, 0.0, -5.0), Point3D(5.0, 0.0, 5.0), axisStart, axisEnd,
                               -2.0);
    EXPECT_EQ(negative.count, 0);
    EXPECT_TRUE(negative.isUntouched());
}

TEST(IntersectLineCylinder, TwoPointsThroughTheMiddle)
{
    CylinderHit const hit = hitExample(Point3D(5.0, 0.0, -4.0), Point3D(5.0, 0.0, -3.0));
    EXPECT_EQ(hit.count, 2);
    EXPECT_EQ(std::min(hit.t1, hit.t2), 2.0);
    EXPECT_EQ(std::max(hit.t1, hit.t2), 6.0);
    EXPECT_EQ(hit.o1, Point3D(5.0, 0.0, -4.0 + hit.t1));
    EXPECT_EQ(hit.o2, Point3D(5.0, 0.0, -4.0 + hit.t2));
}

TEST(IntersectLineCylinder, HalfChordKeepsTheSignOfItsQuotient)
{
    // The divisor is ((D x A) x A) D, over lengths: never positive, so t1 exceeds t2.
    CylinderHit const there = hitExample(Point3D(5.0, 0.0, -4.0), Point3D(5.0, 0.0, -3.0));
    EXPECT_EQ(there.t1, 6.0);
    EXPECT_EQ(there.t2, 2.0);
}

TEST(IntersectLineCylinder, BeyondTheEndCountsNothingButWritesAll)
{
    CylinderHit const beyond = hitExample(Point3D(12.0, 0.0, -4.0), Point3D(12.0, 0.0, -3.0));
    EXPECT_EQ(beyond.count, 0);
    EXPECT_EQ(beyond.t1 + beyond.t2, 8.0);
    EXPECT_EQ(beyond.o1, Point3D(12.0, 0.0, -4.0 + beyond.t1));
    EXPECT_EQ(beyond.o2, Point3D(12.0, 0.0, -4.0 + beyond.t2));
    EXPECT_EQ(hitExample(Point3D(-1.0, 0.0, -4.0), Point3D(-1.0, 0.0, -3.0)).count, 0);
}

TEST(IntersectLineCylinder, EndsBelongToIt)
{
    EXPECT_EQ(hitExample(Point3D(0.0, 0.0, -4.0), Point3D(0.0, 0.0, -3.0)).count, 2);
    EXPECT_EQ(hitExample(Point3D(10.0, 0.0, -4.0), Point3D(10.0, 0.0, -3.0)).count, 2);
}

TEST(IntersectLineCylinder, LeavingThroughTheOpenEndCountsTheInnerPoint)
{
    // Through the mantle at (8, 0, -2), and out of the end before it meets the mantle at (12, 0,
    // 2).
    for (bool reversed : {false, true}) {
        Point3D p0(8.0, 0.0, -2.0);
        Point3D p1(12.0, 0.0, 2.0);
        if (reversed) {
            std::swap(p0, p1);
        }
        CylinderHit const hit = hitExample(p0, p1);
        EXPECT_EQ(hit.count, 1);
        expectNear(hit.o1, Point3D(8.0, 0.0, -2.0), 1e-15);
        EXPECT_NEAR(hit.t1, reversed ? 1.0 : 0.0, 1e-15);
    }
}

TEST(IntersectLineCylinder, OnlyTheSecondPointIsCopiedToTheFirst)
{
    CylinderHit const copied = hitExample(Point3D(8.0, 0.0, -2.0), Point3D(12.0, 0.0, 2.0));
    EXPECT_EQ(copied.o1, copied.o2);
    EXPECT_EQ(copied.t1, copied.t2);
    CylinderHit const kept = hitExample(Point3D(12.0, 0.0, -2.0), Point3D(8.0, 0.0, 2.0));
    EXPECT_EQ(kept.count, 1);
    expectNear(kept.o1, Point3D(8.0, 0.0, 2.0), 1e-15);
    expectNear(kept.o2, Point3D(12.0, 0.0, -2.0), 1e-15);
}

TEST(IntersectLineCylinder, NanCountsNothing)
{
    EXPECT_TRUE(hitExample(Point3D(notANumber, 0.0, -4.0), Point3D(5.0, 0.0, -3.0)).isUntouched());
    EXPECT_TRUE(hitExample(Point3D(5.0, 0.0, notANumber), Point3D(5.0, 0.0, -3.0)).isUntouched());
    CylinderHit const noRadius(Point3D(5.0, 0.0, -4.0), Point3D(5.0, 0.0, -3.0), axisStart, axisEnd,
                               notANumber);
    EXPECT_EQ(noRadius.count, 0);
    EXPECT_TRUE(noRadius.isUntouched());
}

TEST(IntersectLineCylinder, OutputsMayBeInputs)
{
    Point3D a0 = axisStart;
    Point3D a1 = axisEnd;
    double t1 = 0.0;
    double t2 = 0.0;
    EXPECT_EQ(IntersectLineCylinder(Point3D(8.0, 0.0, -2.0), Point3D(12.0, 0.0, 2.0), a0, a1, 2.0,
                                    t1, a0, t2, a1),
              1);
    expectNear(a0, Point3D(8.0, 0.0, -2.0), 1e-15);
}

RC_GTEST_PROP(SphereTruth, RootsAgreeWithAWideSolve, ())
{
    Point3D const p0 = anyPoint();
    Point3D const p1 = p0 + anyDirection();
    Point3D const centre = anyPoint();
    double const radius = std::fabs(anyCoordinate()) + 0.01;
    WideRoots const truth(difference(WidePoint(p1), WidePoint(p0)),
                          difference(WidePoint(p0), WidePoint(centre)), radius);
    RC_PRE(truth.wellApart);
    RC_CLASSIFY(truth.exist);
    double t1 = 0.0;
    double t2 = 0.0;
    RC_ASSERT(IntersectLineSphereDst(p0, p1, centre, radius, t1, t2) == (truth.exist ? 2 : 0));
    if (!truth.exist) {
        return;
    }
    double const tolerance = 1e-8 * (1.0 + std::fabs(truth.smaller) + std::fabs(truth.larger));
    RC_ASSERT(std::fabs(t1 - truth.larger) < tolerance);
    RC_ASSERT(std::fabs(t2 - truth.smaller) < tolerance);

    Point3D o1;
    Point3D o2;
    RC_ASSERT(IntersectLineSphere(p0, p1, centre, radius, o1, o2) == 2);
    RC_ASSERT(std::fabs((o1 - centre).Length() - radius) < 1e-7);
    RC_ASSERT(std::fabs((o2 - centre).Length() - radius) < 1e-7);
}

RC_GTEST_PROP(CylinderTruth, RootsAgreeWithAWideSolve, ())
{
    Point3D const p0 = anyPoint();
    Point3D const d = anyDirection();
    Point3D const p1 = p0 + d;
    Point3D const a0 = anyPoint();
    Point3D const axis = anyDirection();
    Point3D const a1 = a0 + axis;
    double const radius = std::fabs(anyCoordinate()) + 0.01;
    RC_PRE(Math3DVektorprodukt(d.Normalize(), axis.Normalize()).Length() > 0.05);

    // Crossing with the axis vector projects along it, and scales by its length.
    WidePoint const wideAxis = difference(WidePoint(a1), WidePoint(a0));
    WideRoots const truth(cross(difference(WidePoint(p1), WidePoint(p0)), wideAxis),
                          cross(difference(WidePoint(p0), WidePoint(a0)), wideAxis),
                          radius * sqrt(dot(wideAxis, wideAxis)));
    RC_PRE(truth.wellApart);
    CylinderHit const hit(p0, p1, a0, a1, radius);
    if (!truth.exist) {
        RC_ASSERT(hit.count == 0);
        RC_ASSERT(hit.isUntouched());
        return;
    }
    auto const height = [&](double t) {
        return (p0 + t * (p1 - p0) - a0).Dot(axis) / axis.Dot(axis);
    };
    double const heights[2] = {height(truth.smaller), height(truth.larger)};
    for (double h : heights) {
        RC_PRE(std::fabs(h) > 1e-6 && std::fabs(h - 1.0) > 1e-6);
    }
    bool const smallerCounts = heights[0] > 0.0 && heights[0] < 1.0;
    bool const largerCounts = heights[1] > 0.0 && heights[1] < 1.0;
    int const expected = (smallerCounts ? 1 : 0) + (largerCounts ? 1 : 0);
    RC_TAG(expected);
    RC_ASSERT(hit.count == expected);

    double const tolerance = 1e-8 * (1.0 + std::fabs(truth.smaller) + std::fabs(truth.larger));
    if (expected == 1) {
        RC_ASSERT(std::fabs(hit.t1 - (smallerCounts ? truth.smaller : truth.larger)) < tolerance);
    } else {
        RC_ASSERT(std::fabs(std::min(hit.t1, hit.t2) - truth.smaller) < tolerance);
        RC_ASSERT(std::fabs(std::max(hit.t1, hit.t2) - truth.larger) < tolerance);
    }
    RC_ASSERT((p0 + hit.t1 * (p1 - p0) - hit.o1).Length() < 1e-12);
    RC_ASSERT((p0 + hit.t2 * (p1 - p0) - hit.o2).Length() < 1e-12);
    double const fromAxis = Math3DVektorprodukt(hit.o1 - a0, axis.Normalize()).Length();
    RC_ASSERT(std::fabs(fromAxis - radius) < 1e-7);
}
