#include <OrvelMath/base/Point2D.h>

#include "support/Bits.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <type_traits>

namespace {

using support::inf;
using support::nan;
using support::SameBits;

static_assert(sizeof(Point2D) == 2 * sizeof(double));
static_assert(sizeof(Point2Df) == 2 * sizeof(float));
static_assert(std::is_trivially_copyable_v<Point2D> && !std::is_polymorphic_v<Point2D>);

TEST(Point2D, ConstructionAndAccess)
{
    EXPECT_TRUE(SameBits(0.0, Point2D().x()));
    EXPECT_TRUE(SameBits(0.0, Point2D().y()));
    double const xy[] = {3.0, 4.0};
    Point2D p(xy);
    EXPECT_EQ(3.0, p.x());
    EXPECT_EQ(4.0, p.y());
    p.x(5.0);
    p.y() = 6.0;
    EXPECT_EQ(5.0, p[0]);
    EXPECT_EQ(6.0, p[1]);
    p[0] = 7.0;
    p[5] = 8.0; // any index but 0 is y
    EXPECT_EQ(7.0, p.x());
    EXPECT_EQ(8.0, p.y());
    EXPECT_EQ(8.0, p[5]);
    EXPECT_EQ(8.0, p[-1]);
    Point2D const fromVector(vectorC2d<double>(1.0, 2.0));
    EXPECT_EQ(2.0, fromVector.y());
    p = vectorC2d<double>(9.0, 10.0);
    EXPECT_EQ(9.0, p.x());
    p = fromVector;
    EXPECT_EQ(1.0, p.x());
}

TEST(Point2D, EqualityIsExact)
{
    EXPECT_EQ(1, Point2D(1, 2) == Point2D(1, 2));
    EXPECT_EQ(0, Point2D(1, 2) != Point2D(1, 2));
    EXPECT_EQ(0, Point2D(1, 2) == Point2D(1, std::nextafter(2.0, 3.0)));
    EXPECT_EQ(1, Point2D(0, 0) == Point2D(-0.0, 0));
    EXPECT_EQ(0, Point2D(nan, 0) == Point2D(nan, 0));
    EXPECT_EQ(1, Point2D(nan, 0) != Point2D(nan, 0));
    static_assert(std::is_same_v<int, decltype(Point2D() == Point2D())>);
    static_assert(std::is_same_v<int, decltype(Point2D() < Point2D())>);
}

TEST(Point2D, OrderIsByXOutsideTheBandAndByYInside)
{
    EXPECT_EQ(0, Point2D(1, 5) < Point2D(1.00005, 2));
    EXPECT_EQ(1, Point2D(1, 5) > Point2D(1.00005, 2));
    EXPECT_EQ(1, Point2D(1, 5) < Point2D(1.001, 2));
    EXPECT_EQ(0, Point2D(1, 5) > Point2D(1.001, 2));
    EXPECT_EQ(1, Point2D(0, 5) < Point2D(1e-4, 2)) << "a difference of the band is outside it";
    EXPECT_EQ(0, Point2D(0, 5) < Point2D(0, 5));
    EXPECT_EQ(0, Point2D(0, 5) > Point2D(0, 5));
    EXPECT_EQ(0, Point2D(nan, 1) < Point2D(1, 2)) << "NaN is outside the band";
    EXPECT_EQ(0, Point2D(nan, 1) > Point2D(1, 0));
}

TEST(Point2D, Sentinels)
{
    Point2D p;
    p.PlusInf();
    EXPECT_TRUE(p == Point2D(1e300, 1e300));
    p.MinusInf();
    EXPECT_TRUE(p == Point2D(-1e300, -1e300));
    p.PlusInfinity();
    EXPECT_TRUE(p == Point2D(1e300, 1e300));
    p.MinusInfinity();
    EXPECT_TRUE(p == Point2D(-1e300, -1e300));
}

TEST(Point2D, NormalizeLeavesTheObjectAloneAndGuardsShortVectors)
{
    Point2D p(3, 4);
    EXPECT_TRUE(p.Normalize() == Point2D(0.6, 0.8));
    EXPECT_TRUE(p == Point2D(3, 4));
    EXPECT_TRUE(Point2D(0, 0).Normalize() == Point2D(0, 0));
    EXPECT_TRUE(Point2D(1e-101, 0).Normalize() == Point2D(0, 0));
    EXPECT_TRUE(Point2D(nan, 1).Normalize() == Point2D(0, 0)) << "NaN is not above the threshold";
    EXPECT_TRUE(Point2D(2e-100, 0).Normalize() == Point2D(1, 0));
}

TEST(Point2D, LengthNormaleAndScale)
{
    EXPECT_EQ(5.0, Point2D(3, 4).Length());
    EXPECT_EQ(25.0, Point2D(3, 4).Length2());
    EXPECT_EQ(25.0, MatUtil::getSquareOfLength(Point2D(3, 4)));
    EXPECT_TRUE(Point2D(1, 0).Normale() == Point2D(0, 1));
    EXPECT_TRUE(SameBits(-0.0, Point2D(1, 0).Normale().x()));
    EXPECT_TRUE(Point2D(3, 4).Scale(2, 3) == Point2D(6, 12));
    EXPECT_TRUE(Point2D(3, 4).Scale(2) == Point2D(6, 8));
    EXPECT_EQ(inf, Point2D(1e200, 0).Length()) << "a plain root of a sum, not a hypotenuse";
}

TEST(Point2D, CorrectIsStrict)
{
    Point2D p(1e-9, 2);
    p.Correct(1e-8);
    EXPECT_TRUE(p == Point2D(0, 2));
    Point2D q(-1e-8, 1e-8);
    q.Correct(1e-8);
    EXPECT_TRUE(q == Point2D(-1e-8, 1e-8));
    Point2D r(nan, -1e-9);
    r.Correct(1e-8);
    EXPECT_TRUE(std::isnan(r.x()));
    EXPECT_TRUE(SameBits(0.0, r.y()));
}

TEST(Point2D, Arithmetic)
{
    EXPECT_TRUE(SameBits(-0.0, (-Point2D(0, 1)).x()));
    Point2D p(1, 2);
    p += Point2D(3, 4);
    EXPECT_TRUE(p == Point2D(4, 6));
    p -= Point2D(1, 1);
    EXPECT_TRUE(p == Point2D(3, 5));
    p *= 2;
    EXPECT_TRUE(p == Point2D(6, 10));
    p /= 4;
    EXPECT_TRUE(p == Point2D(1.5, 2.5));
    EXPECT_TRUE(Point2D(1, 2) + Point2D(3, 4) == Point2D(4, 6));
    EXPECT_TRUE(Point2D(1, 2) - Point2D(3, 5) == Point2D(-2, -3));
    EXPECT_TRUE(Point2D(1, 2) / 4 == Point2D(0.25, 0.5));
    EXPECT_EQ(inf, (Point2D(1, 0) / 0.0).x());
    EXPECT_TRUE(std::isnan((Point2D(1, 0) / 0.0).y()));
    p /= 0.0;
    EXPECT_EQ(inf, p.x());
}

TEST(Point2D, ClassLevelAllocation)
{
    Point2D *const one = new Point2D(1, 2);
    EXPECT_EQ(2.0, one->y());
    delete one;
    Point2D *const many = new Point2D[3];
    EXPECT_EQ(0.0, many[2].x());
    delete[] many;
    alignas(Point2D) unsigned char place[sizeof(Point2D)];
    Point2D *const placed = new (static_cast<void *>(place)) Point2D(3, 4);
    EXPECT_EQ(static_cast<void *>(place), static_cast<void *>(placed));
    placed->~Point2D();
    Point2D::operator delete(placed, static_cast<void *>(place)); // does nothing
}

TEST(Point2Df, SumsInFloatAndRootsInDouble)
{
    Point2Df const p(0.1f, 0.7f);
    float const sum = 0.1f * 0.1f + 0.7f * 0.7f;
    EXPECT_EQ(sum, p.Length2());
    EXPECT_EQ(float(std::sqrt(double(sum))), p.Length());
    Point2Df q(0.1f, 0.7f);
    EXPECT_EQ(0.1f / p.Length(), q.Normalize().x());
    EXPECT_EQ(0.7f / p.Length(), q.Normalize().y());
    EXPECT_EQ(0.1f, q.x());
    EXPECT_TRUE(Point2Df(0, 0).Normalize() == Point2Df(0, 0));
    EXPECT_TRUE(Point2Df(1e-30f, 0).Normalize() == Point2Df(0, 0)) << "the square is 0 in float";
    static_assert(std::is_same_v<float, decltype(p.Length())>);
}

TEST(Point2Df, NarrowsAndOrders)
{
    Point2Df p(Point2D(0.1, 1e300));
    EXPECT_EQ(0.1f, p.x());
    EXPECT_EQ(std::numeric_limits<float>::infinity(), p.y());
    p = Point2D(2, 3);
    EXPECT_TRUE(p == Point2Df(2, 3));
    p = vectorC2d<double>(0.3, 4);
    EXPECT_EQ(0.3f, p[0]);
    EXPECT_EQ(4.0f, p[7]);
    EXPECT_EQ(0.2f, Point2Df(vectorC2d<double>(0.2, 0)).x());
    EXPECT_EQ(1, p != Point2Df(2, 3));
    // The difference of 1.0001f and 1 is above 1e-4 when formed in float.
    EXPECT_EQ(1, Point2Df(1, 5) < Point2Df(1.0001f, 2));
    EXPECT_EQ(0, Point2Df(1, 5) < Point2Df(1.00005f, 2));
    EXPECT_EQ(1, Point2Df(1, 5) > Point2Df(1.00005f, 2));
    EXPECT_EQ(0, Point2Df(1, 5) > Point2Df(1.5f, 2));
    p.PlusInf();
    EXPECT_TRUE(p == Point2Df(1e38f, 1e38f));
    p.MinusInf();
    EXPECT_TRUE(p == Point2Df(-1e38f, -1e38f));
    p.PlusInfinity();
    EXPECT_TRUE(p == Point2Df(1e38f, 1e38f));
    p.MinusInfinity();
    EXPECT_TRUE(p == Point2Df(-1e38f, -1e38f));
}

TEST(Point2Df, Arithmetic)
{
    Point2Df p(1, 2);
    p += Point2Df(3, 4);
    p -= Point2Df(1, 1);
    p *= 2;
    p /= 4;
    EXPECT_TRUE(p == Point2Df(1.5f, 2.5f));
    EXPECT_TRUE(p / 0.5f == Point2Df(3, 5));
    EXPECT_TRUE(-p == Point2Df(-1.5f, -2.5f));
    EXPECT_TRUE(p.Normale() == Point2Df(-2.5f, 1.5f));
    EXPECT_TRUE(p.Scale(2, 4) == Point2Df(3, 10));
    EXPECT_TRUE(p.Scale(2) == Point2Df(3, 5));
    p.x(0.1f);
    p.y(-3.0f);
    p.Correct(0.1); // 0.1f widened lies above 0.1
    EXPECT_EQ(0.1f, p.x());
    p.Correct(0.2);
    EXPECT_TRUE(p == Point2Df(0, -3));
    Point2Df *const one = new Point2Df(1, 2);
    delete one;
    delete[] new Point2Df[2];
}

TEST(WinVec, AxesAndQuadrants)
{
    EXPECT_EQ(360.0, WinVec(1, 0));
    EXPECT_EQ(315.0, WinVec(1, -1));
    EXPECT_EQ(180.0, WinVec(-1, 0));
    EXPECT_EQ(90.0, WinVec(0, 0));
    EXPECT_EQ(270.0, WinVec(0, -1));
    EXPECT_EQ(90.0, WinVec(0, 1));
    EXPECT_EQ(90.0, WinVec(-0.0, -0.0));
    EXPECT_EQ(45.0, WinVec(1, 1));
    EXPECT_EQ(135.0, WinVec(-1, 1));
    EXPECT_EQ(225.0, WinVec(Point2D(-1, -1)));
    EXPECT_EQ(90.0, WinVec(0, nan));
    EXPECT_TRUE(std::isnan(WinVec(nan, 1)));
    EXPECT_TRUE(std::isnan(WinVec(1, nan)));
}

TEST(VecWin, IsNotSnapped)
{
    EXPECT_TRUE(SameBits(std::cos(90.0 * 3.141592653589793 / 180.0), VecWin(90).x()));
    EXPECT_NEAR(6.1e-17, VecWin(90).x(), 0.05e-17);
    EXPECT_EQ(1.0, VecWin(90).y());
    EXPECT_TRUE(VecWin(0) == Point2D(1, 0));
}

RC_GTEST_PROP(WinVec, UndoesVecWin, ())
{
    double const angle = *rc::gen::inRange(1, 3600000) / 10000.0;
    RC_ASSERT(std::fabs(WinVec(VecWin(angle)) - angle) < 1e-9);
}

} // namespace
