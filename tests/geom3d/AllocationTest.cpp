#include <OrvelMath/base/Quaternion4D.h>
#include <OrvelMath/base/TMatrix.h>
#include <OrvelMath/geom3d/CutPlane.h>
#include <OrvelMath/geom3d/MatUtil.h>
#include <OrvelMath/geom3d/intersect3d.h>

#include "support/AllocationCount.h"

#include <gtest/gtest.h>

#include <new>

namespace {

using Vector = vectorC3d<double>;
using Allocation = support::AllocationCounting;

TEST_F(Allocation, IsCountedHere)
{
    EXPECT_EQ(support::allocationsOf([] { ::operator delete(::operator new(16)); }), 1);
}

TEST_F(Allocation, NoneIsMadeBySmallSystemsAndCrossings)
{
    Vector const a(0.0, 0.0, 1.0);
    Vector const b(0.0, 1.0, 0.5);
    Vector const c(1.0, 0.2, 0.0);
    Vector point;
    Vector direction;
    Point3D first;
    Point3D second;
    double t1 = 0.0;
    double t2 = 0.0;
    long const before = support::allocationCount();
    MatUtil::intersectPlanes(a, b, c, a, point, direction);
    MatUtil::intersectLines(a, b, c, a, point);
    MatUtil::bisectingPlane(a, b, c, a, point, direction);
    MatUtil::getSphereCenter(a, b, c, Vector(), t1);
    MatUtil::rayIntersectsTriangle(a, b, c, Vector(), a, t1);
    IntersectLineLine(Point3D(a), Point3D(b), Point3D(c), Point3D(), first, second);
    IntersectLineCylinder(Point3D(a), Point3D(b), Point3D(c), Point3D(), 9.0, t1, first, t2,
                          second);
    IntersectLineSphere(Point3D(a), Point3D(b), Point3D(c), 9.0, first, second);
    LineInsideTriangle(Point3D(a), Point3D(b), Point3D(c), Point3D(), Point3D(b), 0.0);
    EXPECT_EQ(support::allocationCount(), before);
}

TEST_F(Allocation, NoneIsMadeByTransformations)
{
    long const before = support::allocationCount();
    Matrix4X4C m;
    m.Rotate(10.0, 20.0, 30.0);
    m.Invert();
    m.InvertOrthogonal();
    m.MultMatrixVectorRespectW((m * m).MultMatrixVector(Point3D(1.0, 2.0, 3.0)));
    Quaternion4D const q(m);
    q.Slerp(Quaternion4D(q.GetMatrix()).Normal(), 0.5);
    TMatrix t(30.0);
    t *= ~t;
    CutPlane plane(CutPlane::CutPlaneX, 1, 2.0);
    plane = CutPlane();
    EXPECT_EQ(support::allocationCount(), before);
}

} // namespace
