#include "ConstructionFixtures.h"

#include <OrvelMath/geom2d/mathPoly.h>

#include <algorithm>

namespace {

using namespace mathPoly;

TEST(IsZero, BandIsOpen)
{
    EXPECT_TRUE(isZero(0.0));
    EXPECT_TRUE(isZero(-0.0));
    EXPECT_TRUE(isZero(0.999999e-9));
    EXPECT_TRUE(isZero(-0.999999e-9));
    EXPECT_FALSE(isZero(1e-9));
    EXPECT_FALSE(isZero(-1e-9));
    EXPECT_FALSE(isZero(nan64));
    EXPECT_FALSE(isZero(inf));
}

TEST(SolveLinear, OneRootOrNone)
{
    double root = untouched;
    double const c[] = {6, -3};
    EXPECT_EQ(solveLinear(c, &root), 1);
    EXPECT_EQ(root, 2);
    root = untouched;
    double const flat[] = {6, 0.5e-9};
    EXPECT_EQ(solveLinear(flat, &root), 0);
    EXPECT_EQ(root, untouched);
    double const bad[] = {nan64, 1};
    EXPECT_EQ(solveLinear(bad, &root), 1);
    EXPECT_TRUE(std::isnan(root));
}

TEST(SolveQuadratic, LargerRootFirst)
{
    double roots[2] = {untouched, untouched};
    double const c[] = {6, -5, 1};
    EXPECT_EQ(solveQuadratic(c, roots), 2);
    EXPECT_EQ(roots[0], 3);
    EXPECT_EQ(roots[1], 2);
    double const negative[] = {-6, 5, -1};
    EXPECT_EQ(solveQuadratic(negative, roots), 2);
    EXPECT_EQ(roots[0], 3);
}

TEST(SolveQuadratic, DoubleRootStandsInBothPlaces)
{
    double roots[2] = {untouched, untouched};
    double const c[] = {9, 6, 1};
    EXPECT_EQ(solveQuadratic(c, roots), 1);
    EXPECT_EQ(roots[0], -3);
    EXPECT_EQ(roots[1], -3);
    double const nearly[] = {9.0000000005, 6, 1};
    EXPECT_EQ(solveQuadratic(nearly, roots), 1);
}

TEST(SolveQuadratic, NoRealRootLeavesTheOutputAlone)
{
    double roots[2] = {untouched, untouched};
    double const c[] = {10, 6, 1};
    EXPECT_EQ(solveQuadratic(c, roots), 0);
    EXPECT_EQ(roots[0], untouched);
    EXPECT_EQ(roots[1], untouched);
}

TEST(SolveQuadratic, FallsBackToTheLine)
{
    double roots[2] = {untouched, untouched};
    double const line[] = {6, -3, 1e-10};
    EXPECT_EQ(solveQuadratic(line, roots), 1);
    EXPECT_EQ(roots[0], 2);
    EXPECT_EQ(roots[1], untouched);
    double const constant[] = {6, 1e-10, 1e-10};
    EXPECT_EQ(solveQuadratic(constant, roots), 0);
    double const bad[] = {nan64, 1, 1};
    EXPECT_EQ(solveQuadratic(bad, roots), 2);
    EXPECT_TRUE(std::isnan(roots[0]) && std::isnan(roots[1]));
}

TEST(SolveCubic, TripleRoot)
{
    double roots[3] = {untouched, untouched, untouched};
    double const c[] = {-8, 12, -6, 1};
    EXPECT_EQ(solveCubic(c, roots), 1);
    EXPECT_NEAR(roots[0], 2, 1e-15);
    EXPECT_EQ(roots[1], untouched);
    // p is not looked at: y (y² - 0.001) also counts as one root
    double const flat[] = {0, -0.001, 0, 1};
    EXPECT_EQ(solveCubic(flat, roots), 1);
    EXPECT_EQ(roots[0], 0);
}

TEST(SolveCubic, SingleAndDoubleRoot)
{
    double roots[3] = {untouched, untouched, untouched};
    double const c[] = {-2, 5, -4, 1}; // (x - 1)² (x - 2)
    EXPECT_EQ(solveCubic(c, roots), 2);
    EXPECT_NEAR(roots[0], 2, 1e-5);
    EXPECT_NEAR(roots[1], 1, 1e-5);
    EXPECT_EQ(roots[2], untouched);
    double const mirrored[] = {2, 5, 4, 1};
    EXPECT_EQ(solveCubic(mirrored, roots), 2);
    EXPECT_NEAR(roots[0], -2, 1e-5);
    EXPECT_NEAR(roots[1], -1, 1e-5);
}

TEST(SolveCubic, ThreeRootsInTheOrderOfTheCosines)
{
    double roots[3];
    double const c[] = {-12, 22, -12, 2}; // 2 (x - 1) (x - 2) (x - 3)
    EXPECT_EQ(solveCubic(c, roots), 3);
    EXPECT_NEAR(roots[0], 3, 1e-14);
    EXPECT_NEAR(roots[1], 2, 1e-14);
    EXPECT_NEAR(roots[2], 1, 1e-14);
    double const skew[] = {-6, 9.5, -4.5, 1}; // no three real roots
    EXPECT_EQ(solveCubic(skew, roots), 1);
    double const wide[] = {0, -99, -2, 1}; // (x + 9) x (x - 11)
    EXPECT_EQ(solveCubic(wide, roots), 3);
    EXPECT_NEAR(roots[0], 11, 1e-13);
    EXPECT_NEAR(roots[1], 0, 1e-13);
    EXPECT_NEAR(roots[2], -9, 1e-13);
}

TEST(SolveCubic, OneRoot)
{
    double roots[3];
    double const above[] = {-10, 1, -10, 1}; // (x - 10) (x² + 1)
    EXPECT_EQ(solveCubic(above, roots), 1);
    EXPECT_NEAR(roots[0], 10, 1e-13);
    double const below[] = {10, 1, 10, 1};
    EXPECT_EQ(solveCubic(below, roots), 1);
    EXPECT_NEAR(roots[0], -10, 1e-13);
}

TEST(SolveCubic, LeadingZeroAndNotANumber)
{
    double roots[3];
    double const c[] = {1, 1, 1, 0};
    EXPECT_EQ(solveCubic(c, roots), 1);
    EXPECT_TRUE(std::isnan(roots[0]));
    double const bad[] = {nan64, 1, 1, 1};
    EXPECT_EQ(solveCubic(bad, roots), 1);
    EXPECT_TRUE(std::isnan(roots[0]));
}

TEST(SolveQuartic, FourRoots)
{
    double roots[4];
    double const c[] = {24, -50, 35, -10, 1}; // 1, 2, 3, 4
    EXPECT_EQ(solveQuartic(c, roots), 4);
    std::sort(roots, roots + 4);
    for (int i = 0; i < 4; ++i) {
        EXPECT_NEAR(roots[i], i + 1, 1e-13);
    }
}

TEST(SolveQuartic, RootZeroOfTheDepressedEquationComesLast)
{
    double roots[4] = {untouched, untouched, untouched, untouched};
    double const c[] = {0, -1, 0, 0, 1}; // x (x³ - 1)
    EXPECT_EQ(solveQuartic(c, roots), 2);
    EXPECT_NEAR(roots[0], 1, 1e-14);
    EXPECT_EQ(roots[1], 0);
    EXPECT_EQ(roots[2], untouched);
    // the same, moved by 1 and scaled by 2
    double const moved[] = {4, -10, 12, -8, 2};
    EXPECT_EQ(solveQuartic(moved, roots), 2);
    EXPECT_NEAR(roots[0], 2, 1e-14);
    EXPECT_EQ(roots[1], 1);
}

TEST(SolveQuartic, TwoRootsOrNone)
{
    double roots[4];
    double const two[] = {-2, -2, -1, -2, 1};
    int const count = solveQuartic(two, roots);
    EXPECT_EQ(count, 2);
    for (int i = 0; i < count; ++i) {
        double const x = roots[i];
        EXPECT_NEAR((((x - 2) * x - 1) * x - 2) * x - 2, 0, 1e-10);
    }
    double const none[] = {1, 0, 1, 0, 1};
    EXPECT_EQ(solveQuartic(none, roots), 0);
    double const bad[] = {nan64, 0, 1, 0, 1};
    EXPECT_EQ(solveQuartic(bad, roots), 0);
}

/// Ascending numbers, each at least a half above the one before.
void separated(double *x, int count)
{
    x[0] = anyNumber(5);
    for (int i = 1; i < count; ++i) {
        x[i] = x[i - 1] + 0.5 + anyPositive(3);
    }
}

RC_GTEST_PROP(SolveCubicProperty, FindsSeparatedRoots, ())
{
    double x[3];
    separated(x, 3);
    double const scale = anyPositive(10);
    double const c[] = {-scale * x[0] * x[1] * x[2],
                        scale * (x[0] * x[1] + x[0] * x[2] + x[1] * x[2]),
                        -scale * (x[0] + x[1] + x[2]), scale};
    double roots[3];
    RC_ASSERT(solveCubic(c, roots) == 3);
    std::sort(roots, roots + 3);
    for (int i = 0; i < 3; ++i) {
        requireNear(roots[i], x[i], 1e-10);
    }
}

RC_GTEST_PROP(SolveQuarticProperty, FindsSeparatedRoots, ())
{
    double x[4];
    separated(x, 4);
    double c[5] = {1, 0, 0, 0, 0};
    int degree = 0;
    for (double const root : x) { // multiply by (t - root)
        for (int k = ++degree; k > 0; --k) {
            c[k] = c[k - 1] - root * c[k];
        }
        c[0] = -root * c[0];
    }
    double roots[4];
    RC_ASSERT(solveQuartic(c, roots) == 4);
    std::sort(roots, roots + 4);
    for (int i = 0; i < 4; ++i) {
        requireNear(roots[i], x[i], 1e-6);
    }
}

} // namespace
