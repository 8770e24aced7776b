#include <OrvelMath/base/Quaternion4D.h>
#include <OrvelMath/base/TMatrix.h>
#include <OrvelMath/geom3d/CutPlane.h>
#include <OrvelMath/geom3d/MatUtil.h>
#include <OrvelMath/geom3d/intersect3d.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

namespace {

using Vector = vectorC3d<double>;

thread_local long allocationCount = 0;

void *countedAllocation(std::size_t size)
{
    ++allocationCount;
    if (void *const memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

} // namespace

// Replaced for the whole program, the library's calls included.
void *operator new(std::size_t size)
{
    return countedAllocation(size);
}

void *operator new[](std::size_t size)
{
    return countedAllocation(size);
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete[](void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete[](void *memory, std::size_t) noexcept
{
    std::free(memory);
}

TEST(Allocation, IsCountedHere)
{
    const long before = allocationCount;
    ::operator delete(::operator new(16));
    EXPECT_EQ(allocationCount, before + 1);
}

TEST(Allocation, NoneIsMadeBySmallSystemsAndCrossings)
{
    const Vector a(0.0, 0.0, 1.0);
    const Vector b(0.0, 1.0, 0.5);
    const Vector c(1.0, 0.2, 0.0);
    Vector point;
    Vector direction;
    Point3D first;
    Point3D second;
    double t1 = 0.0;
    double t2 = 0.0;
    const long before = allocationCount;
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
    EXPECT_EQ(allocationCount, before);
}

TEST(Allocation, NoneIsMadeByTransformations)
{
    const long before = allocationCount;
    Matrix4X4C m;
    m.Rotate(10.0, 20.0, 30.0);
    m.Invert();
    m.InvertOrthogonal();
    m.MultMatrixVectorRespectW((m * m).MultMatrixVector(Point3D(1.0, 2.0, 3.0)));
    const Quaternion4D q(m);
    q.Slerp(Quaternion4D(q.GetMatrix()).Normal(), 0.5);
    TMatrix t(30.0);
    t *= ~t;
    CutPlane plane(CutPlane::CutPlaneX, 1, 2.0);
    plane = CutPlane();
    EXPECT_EQ(allocationCount, before);
}
