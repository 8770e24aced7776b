#include "support/Bits.h"

#include <OrvelMath/numerics/CircleFit.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <initializer_list>
#include <random>

namespace {

using Vector = vectorC2d<double>;
using Points = std::vector<Vector, OrvelAllocatorT<Vector>>;
using Circle = std::pair<Vector, double>;
using support::inf;
using support::nan;
using support::SameBits;

constexpr double pi = 3.141592653589793;

Points arc(double cx, double cy, double radius, double from, double to, int count)
{
    Points points;
    for (int i = 0; i < count; ++i) {
        double const angle = from + (to - from) * i / (count - 1);
        points.emplace_back(cx + radius * std::cos(angle), cy + radius * std::sin(angle));
    }
    return points;
}

Points withNoise(Points points, double sigma, unsigned int seed)
{
    std::mt19937 random(seed);
    std::normal_distribution<double> noise(0.0, sigma);
    for (Vector &p : points) {
        p = p + Vector(noise(random), noise(random));
    }
    return points;
}

void expectCircle(double x, double y, double radius, Circle const &circle, double tolerance)
{
    EXPECT_NEAR(circle.first.x(), x, tolerance);
    EXPECT_NEAR(circle.first.y(), y, tolerance);
    EXPECT_NEAR(circle.second, radius, tolerance);
}

void expectNone(Circle const &circle)
{
    EXPECT_TRUE(SameBits(0.0, circle.first.x()));
    EXPECT_TRUE(SameBits(0.0, circle.first.y()));
    EXPECT_TRUE(SameBits(0.0, circle.second));
}

TEST(KasaFit, ReproducesThreePointsOnACircle)
{
    expectCircle(1, 2, 5, MatUtil::kasaFit({{6, 2}, {1, 7}, {-4, 2}}), 1e-14);
    expectCircle(0, 0, 1, MatUtil::kasaFit(arc(0, 0, 1, 0.1, 2.0, 3)), 1e-14);
}

TEST(TaubinFit, ReproducesThreePointsOnACircle)
{
    expectCircle(1, 2, 5, MatUtil::taubinFit({{6, 2}, {1, 7}, {-4, 2}}, 0.0), 1e-13);
    expectCircle(0, 0, 1, MatUtil::taubinFit(arc(0, 0, 1, 0.1, 2.0, 3), 0.0), 1e-13);
}

TEST(KasaFit, CollinearPointsAreRefused)
{
    expectNone(MatUtil::kasaFit({{0, 0}, {1, 1}, {2, 2}}));
    expectNone(MatUtil::kasaFit({{0, 3}, {1, 3}, {5, 3}}));
}

TEST(TaubinFit, CollinearPointsDependOnTheSmallestDeterminant)
{
    Points const line{{-1, 0}, {0, 0}, {1, 0}};
    for (double smallest : {1e-300, 1e-12, 1.0}) {
        expectNone(MatUtil::taubinFit(line, smallest));
    }
}

TEST(KasaFit, TooFewDistinctPointsAreRefused)
{
    expectNone(MatUtil::kasaFit({}));
    expectNone(MatUtil::kasaFit({{3, 4}}));
    expectNone(MatUtil::kasaFit({{3, 4}, {5, 6}}));
    expectNone(MatUtil::kasaFit({{3, 4}, {5, 7}, {5, 7}, {3, 4}}));
}

TEST(TaubinFit, TwoPointsAreRefusedWhateverTheDeterminant)
{
    expectNone(MatUtil::taubinFit({}, -inf));
    expectNone(MatUtil::taubinFit({{3, 4}}, -inf));
    expectNone(MatUtil::taubinFit({{3, 4}, {5, 6}}, -inf));
    expectNone(MatUtil::taubinFit({{nan, 4}, {5, 6}}, -inf));
}

TEST(TaubinFit, CoincidentPoints)
{
    Points const points{{3, 4}, {3, 4}, {3, 4}};
    expectNone(MatUtil::taubinFit(points, 1e-300));
    Circle const circle = MatUtil::taubinFit(points, 0.0); // 0.0 is not above 0.0
    EXPECT_TRUE(std::isnan(circle.first.x()));
    Circle const accepted = MatUtil::taubinFit(points, -inf);
    EXPECT_FALSE(std::isfinite(accepted.first.x()));
    EXPECT_FALSE(std::isfinite(accepted.first.y()));
}

TEST(TaubinFit, SmallestDeterminantIsASignedLimit)
{
    Points const points = withNoise(arc(0, 0, 1, 0, 3, 30), 0.01, 4);
    double const above = MatUtil::taubinFit(points, 0.01).second;
    EXPECT_NEAR(1.0, above, 0.05);
    expectNone(MatUtil::taubinFit(points, 10.0));
    expectNone(MatUtil::taubinFit(points, inf));
    EXPECT_EQ(MatUtil::taubinFit(points, -inf).second, above);
    EXPECT_EQ(MatUtil::taubinFit(points, nan).second, above); // no comparison holds
}

/// The fit with the sums written out, to the last bit.
Circle plainTaubin(Points const &points)
{
    double const n = double(points.size());
    double mx = 0.0, my = 0.0;
    for (Vector const &p : points) {
        mx += p.x();
        my += p.y();
    }
    mx /= n;
    my /= n;
    double xx = 0, yy = 0, xy = 0, xz = 0, yz = 0, zz = 0;
    for (Vector const &p : points) {
        double const u = p.x() - mx, v = p.y() - my, z = u * u + v * v;
        xx += u * u;
        yy += v * v;
        xy += u * v;
        xz += z * u;
        yz += z * v;
        zz += z * z;
    }
    xx /= n, yy /= n, xy /= n, xz /= n, yz /= n, zz /= n;
    double const mz = xx + yy, cov = xx * yy - xy * xy, var = zz - mz * mz;
    double const a2 = 4 * cov - 3 * mz * mz - zz;
    double const a1 = (var + 4 * cov) * mz - xz * xz - yz * yz;
    double const a0 = xz * (xz * yy - yz * xy) + yz * (yz * xx - xz * xy) - var * cov;
    double x = 0.0, y = a0;
    for (int i = 0; i < 99; ++i) {
        double const d = 16 * x * x * x + 2 * a2 * x + a1;
        if (1e-16 > d) {
            break;
        }
        double const xn = x - y / d;
        double const yn = 4 * (xn * xn * xn * xn) + a2 * (xn * xn) + a1 * xn + a0;
        if (1e-16 > std::fabs(x - xn) || std::fabs(yn) > std::fabs(y)) {
            break;
        }
        x = xn;
        y = yn;
    }
    double const det = x * x - x * mz + cov;
    double const cu = (xz * (yy - x) - yz * xy) / (2.0 * det);
    double const cv = (yz * (xx - x) - xz * xy) / (2.0 * det);
    return {Vector(cu + mx, cv + my), std::sqrt(cu * cu + cv * cv + mz - (x + x))};
}

TEST(TaubinFit, HasItsOwnPolynomialAndRadius)
{
    for (unsigned int seed = 0; seed < 200; ++seed) {
        Points const points =
            withNoise(arc(3, -2, 1.0 + seed, 0, 0.2 + 0.03 * seed, 40), 0.001 * seed, seed);
        Circle const expected = plainTaubin(points), actual = MatUtil::taubinFit(points, -inf);
        EXPECT_TRUE(SameBits(expected.first.x(), actual.first.x()));
        EXPECT_TRUE(SameBits(expected.first.y(), actual.first.y()));
        EXPECT_TRUE(SameBits(expected.second, actual.second));
    }
}

TEST(TaubinFit, NaNArrivesInTheResult)
{
    Circle const circle = MatUtil::taubinFit({{0, 0}, {1, nan}, {2, 0}, {1, 1}}, 0.0);
    EXPECT_TRUE(std::isnan(circle.second));
}

TEST(KasaFit, NaNIsRefused)
{
    expectNone(MatUtil::kasaFit({{0, 0}, {nan, 1}, {2, 0}, {1, 1}}));
    expectNone(MatUtil::kasaFit({{0, 0}, {inf, 1}, {2, 0}, {1, 1}}));
}

TEST(CircleFits, FindKnownCirclesUnderNoise)
{
    for (unsigned int seed = 0; seed < 50; ++seed) {
        double const radius = 2.0 + seed, x = 10.0 * seed, y = -3.0 * seed;
        Points const points = withNoise(arc(x, y, radius, 0.0, 2 * pi, 200), 1e-3, seed);
        expectCircle(x, y, radius, MatUtil::kasaFit(points), 1e-3);
        expectCircle(x, y, radius, MatUtil::taubinFit(points, 0.0), 1e-3);
    }
}

TEST(CircleFits, KasaShrinksShortArcsMoreThanTaubin)
{
    int smaller = 0;
    for (unsigned int seed = 0; seed < 50; ++seed) {
        Points const points = withNoise(arc(0, 0, 1, 1.2, 1.9, 100), 0.02, seed);
        double const kasa = MatUtil::kasaFit(points).second;
        double const taubin = MatUtil::taubinFit(points, 0.0).second;
        EXPECT_LT(kasa, taubin);
        smaller += kasa < 1.0 ? 1 : 0;
    }
    EXPECT_GT(smaller, 45);
}

RC_GTEST_PROP(CircleFits, ReproduceAnyCircle, ())
{
    double const x = *rc::gen::inRange(-100, 100), y = *rc::gen::inRange(-100, 100);
    double const radius = *rc::gen::inRange(1, 100);
    double const span = 0.01 * *rc::gen::inRange(100, 620);
    int const count = *rc::gen::inRange(3, 40);
    Points const points = arc(x, y, radius, 0.3, 0.3 + span, count);
    for (Circle const &circle : {MatUtil::kasaFit(points), MatUtil::taubinFit(points, 0.0)}) {
        RC_ASSERT(std::fabs(circle.first.x() - x) < 1e-7 * radius);
        RC_ASSERT(std::fabs(circle.first.y() - y) < 1e-7 * radius);
        RC_ASSERT(std::fabs(circle.second - radius) < 1e-7 * radius);
    }
}

} // namespace
