#include <OrvelMath/base/valueTypes.h>

#include "support/Bits.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstring>
#include <new>
#include <type_traits>

namespace {

using support::inf;
using support::nan;
using support::SameBits;

static_assert(sizeof(Point3D) == 3 * sizeof(double) && !std::is_polymorphic_v<Point3D>);
static_assert(sizeof(vectorC2d<double>) == 2 * sizeof(double));
static_assert(sizeof(vectorC3d<double>) == 3 * sizeof(double));
static_assert(sizeof(matrixC3x3<double>) == 9 * sizeof(double));
static_assert(sizeof(matrixC4x4<double>) == 16 * sizeof(double));
static_assert(sizeof(CoordinateSystem) == 8 + 12 * sizeof(double));
static_assert(std::is_trivially_copyable_v<vectorC3d<double>>);

TEST(Point3D, ConstructionAndAccess)
{
    EXPECT_TRUE(Point3D() == Point3D(0, 0, 0));
    Point3D p(1, 2, 3);
    p.x(4);
    p.y() = 5;
    p.z(p.z() * 2);
    EXPECT_TRUE(p == Point3D(4, 5, 6));
    EXPECT_EQ(6.0, p[2]);
    EXPECT_TRUE(p != Point3D(4, 5, 7));
    EXPECT_FALSE(Point3D(nan, 0, 0) == Point3D(nan, 0, 0));
    EXPECT_TRUE(Point3D(vectorC3d<double>(1, 2, 3)) == Point3D(1, 2, 3));
    EXPECT_TRUE(static_cast<vectorC3d<double>>(p) == vectorC3d<double>(4, 5, 6));
}

TEST(Point3D, Arithmetic)
{
    Point3D const p(1, 2, 3);
    EXPECT_TRUE(p + Point3D(3, 2, 1) == Point3D(4, 4, 4));
    EXPECT_TRUE(p - Point3D(3, 2, 1) == Point3D(-2, 0, 2));
    EXPECT_TRUE(2.0 * p == Point3D(2, 4, 6));
    EXPECT_TRUE(p * 2.0 == Point3D(2, 4, 6));
    EXPECT_TRUE(p / 2.0 == Point3D(0.5, 1, 1.5));
    EXPECT_TRUE(SameBits(-0.0, (-Point3D()).y()));
}

TEST(Point3D, DivisionByExactlyZeroGivesTheZeroPoint)
{
    EXPECT_TRUE(Point3D(1, 2, 3) / 0.0 == Point3D());
    EXPECT_TRUE(Point3D(1, nan, inf) / -0.0 == Point3D());
    EXPECT_TRUE(Point3D(1, 2, 3) / 5e-324 == Point3D(inf, inf, inf));
}

TEST(Point3D, DotAddsTheMiddleComponentFirst)
{
    Point3D const a(0.1, 0.2, 0.3);
    Point3D const b(0.7, 1e16, -1e16);
    EXPECT_TRUE(SameBits(0.2 * 1e16 + 0.1 * 0.7 + 0.3 * -1e16, a.Dot(b)));
    EXPECT_EQ(32.0, Point3D(1, 2, 3).Dot(Point3D(4, 5, 6)));
}

TEST(Point3D, NormalizeHasNoThreshold)
{
    EXPECT_TRUE(Point3D(0, 3, 4).Normalize() == Point3D(0, 0.6, 0.8));
    EXPECT_TRUE(Point3D().Normalize() == Point3D());
    EXPECT_TRUE(SameBits(-0.0, Point3D(-0.0, 0, 0).Normalize().x())) << "returned unchanged";
    EXPECT_TRUE(Point3D(1e-150, 0, 0).Normalize() == Point3D(1, 0, 0));
    EXPECT_TRUE(Point3D(1e-200, 0, 0).Normalize() == Point3D(1e-200, 0, 0)) << "the square is 0";
    EXPECT_EQ(5.0, Point3D(0, 3, 4).Length());
    EXPECT_EQ(25.0, Point3D(0, 3, 4).Length2());
}

TEST(Point3D, NearIsStrict)
{
    EXPECT_TRUE(Point3D(1, 2, 3).IsNear(Point3D(1, 2, 3.00009)));
    EXPECT_FALSE(Point3D(0, 0, 0).IsNear(Point3D(1e-4, 0, 0)));
    EXPECT_FALSE(Point3D(nan, 0, 0).IsNear(Point3D(nan, 0, 0)));
}

TEST(Math3DVektorprodukt, IsRightHanded)
{
    EXPECT_TRUE(Math3DVektorprodukt(Point3D(1, 0, 0), Point3D(0, 1, 0)) == Point3D(0, 0, 1));
    EXPECT_TRUE(Math3DVektorprodukt(Point3D(0, 1, 0), Point3D(0, 0, 1)) == Point3D(1, 0, 0));
    EXPECT_TRUE(Math3DVektorprodukt(Point3D(0, 0, 1), Point3D(1, 0, 0)) == Point3D(0, 1, 0));
    EXPECT_TRUE(Math3DVektorprodukt(Point3D(1, 2, 3), Point3D(2, 4, 6)) == Point3D());
}

TEST(VectorC, AccessAndArithmetic)
{
    vectorC2d<double> a(1, 2);
    a.x() += 2;
    a[1] = 4;
    EXPECT_EQ(5.0, a.length());
    EXPECT_EQ(25.0, a.squaredLength());
    EXPECT_TRUE(a + vectorC2d<double>(1, 1) == vectorC2d<double>(4, 5));
    EXPECT_TRUE(a - vectorC2d<double>(1, 1) == vectorC2d<double>(2, 3));
    EXPECT_TRUE(a * 2.0 == 2.0 * a && a / 2.0 == vectorC2d<double>(1.5, 2));
    EXPECT_TRUE(-a == vectorC2d<double>(-3, -4) && a != -a);
    EXPECT_EQ(inf, (a / 0.0).x());

    vectorC3d<double> b(1, 2, 3);
    b.z() = 2;
    EXPECT_EQ(3.0, b.length());
    EXPECT_EQ(9.0, b.dot(b));
    b += vectorC3d<double>(1, 1, 1);
    b -= vectorC3d<double>(0, 0, 1);
    b *= 2.0;
    b /= 4.0;
    EXPECT_TRUE(b == vectorC3d<double>(1, 1.5, 1));
    EXPECT_TRUE(vectorC3d<double>(1, 0, 0).cross({0, 1, 0}) == vectorC3d<double>(0, 0, 1));
    EXPECT_TRUE(std::isnan((vectorC3d<double>() / 0.0).x()));
}

TEST(VectorC, DotRunsFromZeroInIndexOrder)
{
    vectorC3d<double> const a(0.1, 0.2, 0.3);
    vectorC3d<double> const b(0.7, 1e16, -1e16);
    EXPECT_TRUE(SameBits(0.0 + 0.1 * 0.7 + 0.2 * 1e16 + 0.3 * -1e16, a.dot(b)));
    EXPECT_TRUE(SameBits(0.0, vectorC2d<double>(-0.0, 0).dot({1, -0.0}))) << "0.0 + -0.0 is 0.0";
}

TEST(MatrixC, DefaultIsZeroAndIdentityIsMade)
{
    matrixC3x3<double> const zero3;
    matrixC4x4<double> const zero4;
    for (int i = 0; i < 9; ++i) {
        EXPECT_EQ(0.0, zero3[i]);
        EXPECT_EQ(i % 4 == 0 ? 1.0 : 0.0, matrixC3x3<double>::identity()[i]);
    }
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(0.0, zero4[i]);
        EXPECT_EQ(i % 5 == 0 ? 1.0 : 0.0, matrixC4x4<double>::identity()[i]);
    }
}

TEST(MatrixC, IsHeldAxisByAxis)
{
    matrixC3x3<double> m({1, 2, 3}, {4, 5, 6}, {7, 8, 9});
    EXPECT_EQ(4.0, m[3]);
    EXPECT_EQ(4.0, m(0, 1));
    EXPECT_EQ(6.0, m.data()[5]);
    m(2, 0) = 30;
    EXPECT_EQ(30.0, m[2]);
    EXPECT_TRUE(m.axis(2) == vectorC3d<double>(7, 8, 9));
    m.setAxis(1, {0, 0, 1});
    EXPECT_EQ(1.0, m[5]);

    matrixC4x4<double> t = matrixC4x4<double>::identity();
    t.setAxis(3, {5, 6, 7});
    EXPECT_EQ(5.0, t[12]);
    EXPECT_EQ(7.0, t(2, 3));
    EXPECT_EQ(1.0, t[15]);
    EXPECT_TRUE(t.axis(3) == vectorC3d<double>(5, 6, 7));
}

TEST(MatrixC, ImagesOfVectors)
{
    matrixC3x3<double> const m({1, 2, 3}, {4, 5, 6}, {7, 8, 9});
    EXPECT_TRUE(m * vectorC3d<double>(1, 10, 100) == vectorC3d<double>(741, 852, 963));
    EXPECT_TRUE(m * vectorC2d<double>(1, 10) == vectorC2d<double>(48, 60)) << "homogeneous";

    double cells[16];
    for (int i = 0; i < 16; ++i) {
        cells[i] = i + 1;
    }
    matrixC4x4<double> const t(cells);
    EXPECT_TRUE(t * vectorC3d<double>(1, 10, 100) == vectorC3d<double>(964, 1076, 1188));
    EXPECT_TRUE(t * vectorC2d<double>(1, 10) == vectorC3d<double>(64, 76, 88));
}

TEST(MatrixC, FlatImageMultipliesTheThirdAxisByZero)
{
    matrixC4x4<double> m = matrixC4x4<double>::identity();
    m[8] = inf;
    EXPECT_TRUE(std::isnan((m * vectorC2d<double>(1, 1)).x()));
}

// Integer matrices, so that every product is exact.
template <typename M>
M anyMatrix(int cells)
{
    M m;
    for (int i = 0; i < cells; ++i) {
        m[i] = *rc::gen::inRange(-100, 100);
    }
    return m;
}

RC_GTEST_PROP(MatrixC, ProductActsLikeTheTwoInTurn, ())
{
    auto const a = anyMatrix<matrixC3x3<double>>(9);
    auto const b = anyMatrix<matrixC3x3<double>>(9);
    vectorC3d<double> const v(1, -2, 3);
    RC_ASSERT((a * b) * v == a * (b * v));
    auto const c = anyMatrix<matrixC4x4<double>>(16);
    auto const d = anyMatrix<matrixC4x4<double>>(16);
    auto const e = anyMatrix<matrixC4x4<double>>(16);
    RC_ASSERT((c * d) * e == c * (d * e));
    RC_ASSERT(c * matrixC4x4<double>::identity() == c);
}

TEST(CoordinateSystem, ConstructionLeavesTheLeadingMember)
{
    alignas(CoordinateSystem) unsigned char place[sizeof(CoordinateSystem)];
    std::memset(place, 0x5a, sizeof place);
    CoordinateSystem *const system = new (static_cast<void *>(place)) CoordinateSystem;
    EXPECT_TRUE(system->xAxis == Point3D() && system->origin == Point3D());
    EXPECT_EQ(0u, offsetof(CoordinateSystem, reserved));
    EXPECT_EQ(8u, offsetof(CoordinateSystem, xAxis));
    CoordinateSystem copy;
    copy.reserved = 17;
    copy.yAxis = Point3D(0, 1, 0);
    *system = copy;
    EXPECT_EQ(17, system->reserved);
    EXPECT_TRUE(system->yAxis == Point3D(0, 1, 0));
    delete new CoordinateSystem;
    delete[] new CoordinateSystem[2];
}

} // namespace
