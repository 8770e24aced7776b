#include "support.h"

#include <OrvelExact/measures/angles.h>

#include <support/Bits.h>

namespace {

using namespace orvelExact;
using measures::cases;
using measures::Random;
using measures::Within;

/// Enough for the product of two doubles, and faster than more.
using Real = boost::multiprecision::number<boost::multiprecision::cpp_bin_float<50>,
                                           boost::multiprecision::et_off>;

Real truthOf(Point2 const &a, Point2 const &b)
{
    Real cross = Real(a.x()) * b.y() - Real(a.y()) * b.x();
    cross = cross == 0 ? Real(0) : cross; // no negative zero
    return atan2(cross, Real(a.x()) * b.x() + Real(a.y()) * b.y());
}

Real truthOf(Point3 const &a, Point3 const &b)
{
    Real const x = Real(a.y()) * b.z() - Real(a.z()) * b.y();
    Real const y = Real(a.z()) * b.x() - Real(a.x()) * b.z();
    Real const z = Real(a.x()) * b.y() - Real(a.y()) * b.x();
    Real const dot = Real(a.x()) * b.x() + Real(a.y()) * b.y() + Real(a.z()) * b.z();
    return atan2(sqrt(x * x + y * y + z * z), dot);
}

TEST(AngleBetween, RandomVectors)
{
    Random any(1);
    // not 10^5, which takes about 10 s
    for (int i = 0; i < cases(20000); ++i) {
        Point2 const a = any.point2() * any.power(-30, 30), b = any.point2() * any.power(-30, 30);
        ASSERT_TRUE(Within(1, measures::Real(truthOf(a, b)), turnBetween(a, b).radians));
        Point3 const c = any.point3() * any.power(-30, 30), d = any.point3() * any.power(-30, 30);
        ASSERT_TRUE(Within(1, measures::Real(truthOf(c, d)), angleBetween(c, d).radians));
    }
}

TEST(AngleBetween, LatticeVectors)
{
    Random any(2);
    // not 10^5, which takes about 11 s
    for (int i = 0; i < cases(10000); ++i) {
        Point2 const a = any.lattice2(3), b = any.lattice2(3);
        Point3 const c = any.lattice3(2), d = any.lattice3(2);
        if (a != Point2() && b != Point2()) {
            ASSERT_TRUE(Within(1, measures::Real(truthOf(a, b)), turnBetween(a, b).radians));
            ASSERT_TRUE(Within(1, measures::Real(abs(truthOf(a, b))), angleBetween(a, b).radians));
        }
        if (c != Point3() && d != Point3()) {
            ASSERT_TRUE(Within(1, measures::Real(truthOf(c, d)), angleBetween(c, d).radians));
        }
    }
}

/// Where the arc cosine of the scalar product loses half of the digits.
TEST(AngleBetween, NearlyParallelVectors)
{
    Random any(3);
    for (int i = 0; i < cases(100000); ++i) {
        double const sign = any.whole(0, 1) == 0 ? 1.0 : -1.0;
        Point2 const a = any.point2();
        Point2 const b = sign * any.power(-3, 3) * (a + any.power(-20, -3) * any.point2());
        ASSERT_TRUE(Within(1, measures::Real(truthOf(a, b)), turnBetween(a, b).radians));
        Point3 const c = any.point3();
        Point3 const d = sign * any.power(-3, 3) * (c + any.power(-20, -3) * any.point3());
        ASSERT_TRUE(Within(1, measures::Real(truthOf(c, d)), angleBetween(c, d).radians));
    }
}

TEST(AngleBetween, KnownAngles)
{
    double const pi = 3.141592653589793;
    EXPECT_EQ(0.0, angleBetween(Point2(3, 1), Point2(6, 2)).radians);
    EXPECT_EQ(pi, angleBetween(Point2(3, 1), Point2(-6, -2)).radians);
    EXPECT_EQ(pi, turnBetween(Point2(3, 1), Point2(-6, -2)).radians);
    EXPECT_EQ(pi / 2, angleBetween(Point3(1, 0, 0), Point3(0, 0, 5)).radians);
    EXPECT_EQ(pi / 4, turnBetween(Point2(1, 0), Point2(1, 1)).radians);
    EXPECT_EQ(-pi / 4, turnBetween(Point2(1, 0), Point2(1, -1)).radians);
    EXPECT_EQ(3 * pi / 4, angleBetween(Point2(1, 0), Point2(-1, 1)).radians);
    EXPECT_EQ(1e-200, angleBetween(Point2(1, 0), Point2(1e300, 1e100)).radians);
    EXPECT_EQ(pi / 2, angleBetween(Point2(1e-320, 0), Point2(0, 1e308)).radians);
}

TEST(AngleBetween, RefuseWhatHasNoAngle)
{
    EXPECT_EQ(Status::Degenerate, angleBetween(Point2(0, 0), Point2(1, 0)).status);
    EXPECT_EQ(Status::Degenerate, angleBetween(Point3(0, 1, 0), Point3(0, 0, 0)).status);
    for (double const bad : {support::nan, support::inf}) {
        EXPECT_EQ(Status::NotFinite, angleBetween(Point2(bad, 0), Point2(1, 0)).status);
        EXPECT_EQ(Status::NotFinite, turnBetween(Point2(1, 0), Point2(0, bad)).status);
        EXPECT_EQ(Status::NotFinite, angleBetween(Point3(0, 1, 0), Point3(0, 0, bad)).status);
    }
}

} // namespace
