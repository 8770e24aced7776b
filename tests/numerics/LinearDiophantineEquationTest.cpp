#include <OrvelMath/numerics/LinearDiophantineEquationC.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <numeric>
#include <tuple>

namespace {

using Equation = LinearDiophantineEquationC;

constexpr int minInt = std::numeric_limits<int>::min();
constexpr int maxInt = std::numeric_limits<int>::max();

struct Solution
{
    int x = 111, y = 222, xStep = 333, yStep = 444;

    bool operator==(Solution const &o) const
    {
        return std::tie(x, y, xStep, yStep) == std::tie(o.x, o.y, o.xStep, o.yStep);
    }
};

bool solve(Equation const &equation, int c, Solution &s)
{
    return equation.solve(c, s.x, s.y, s.xStep, s.yStep);
}

Solution solution(Equation const &equation, int c)
{
    Solution s;
    EXPECT_TRUE(solve(equation, c, s));
    return s;
}

TEST(LinearDiophantineEquation, ThreeAndFive)
{
    Equation const equation(3, 5);
    EXPECT_TRUE(solution(equation, 1) == (Solution{2, -1, 5, -3}));
    EXPECT_TRUE(solution(equation, 7) == (Solution{14, -7, 5, -3}));
    EXPECT_TRUE(solution(equation, 0) == (Solution{0, 0, 5, -3}));
}

TEST(LinearDiophantineEquation, NoMultipleOfTheDivisorLeavesTheOutputsAlone)
{
    Equation const equation(6, 4);
    Solution s;
    EXPECT_FALSE(solve(equation, 3, s));
    EXPECT_TRUE(s == Solution());
    int x = 111, y = 222;
    EXPECT_FALSE(equation.findSolutionInRange(3, -10, 10, -10, 10, x, y));
    EXPECT_EQ(111, x);
    EXPECT_EQ(222, y);
}

TEST(LinearDiophantineEquation, FirstCoefficientZero)
{
    Equation const equation(0, 7);
    EXPECT_TRUE(solution(equation, 14) == (Solution{0, 2, 1, 0}));
    int x = 111, y = 222;
    EXPECT_FALSE(equation.findSolutionInRange(14, -10, 10, -10, 10, x, y));
    EXPECT_EQ(111, x);
    EXPECT_EQ(222, y);
}

TEST(LinearDiophantineEquation, SecondCoefficientZero)
{
    Equation const equation(7, 0);
    EXPECT_TRUE(solution(equation, 14) == (Solution{2, 0, 0, -1}));
    int x = 111, y = 222;
    EXPECT_FALSE(equation.findSolutionInRange(14, -10, 10, -10, 10, x, y));
    EXPECT_EQ(111, x);
    EXPECT_TRUE(solution(Equation(-7, 0), 14) == (Solution{-2, 0, 0, -1}));
}

TEST(LinearDiophantineEquation, DivisorMayBeNegative)
{
    Equation const equation(4, -6); // divisor -2
    Solution const s = solution(equation, 2);
    EXPECT_EQ(2, 4 * s.x - 6 * s.y);
    EXPECT_EQ(3, s.xStep);
    EXPECT_EQ(2, s.yStep);
    EXPECT_EQ(-1, s.x); // -1 times the coefficient of Bezout for the divisor -2
    EXPECT_EQ(-1, s.y);
}

TEST(LinearDiophantineEquation, RangeGivesTheSmallestOfEachForPositiveCoefficients)
{
    // 3x + 5y = 100: (0, 20), (5, 17), ... (30, 2), (35, -1)
    Equation const equation(3, 5);
    int x, y;
    ASSERT_TRUE(equation.findSolutionInRange(100, 0, 100, 0, 100, x, y));
    EXPECT_EQ(0, x);
    EXPECT_EQ(2, y);
    EXPECT_FALSE(equation.testSolution(100, x, y));
}

TEST(LinearDiophantineEquation, SingleSolutionInRangeIsOne)
{
    Equation const equation(3, 5);
    int x, y;
    ASSERT_TRUE(equation.findSolutionInRange(100, 20, 20, 8, 8, x, y));
    EXPECT_EQ(20, x);
    EXPECT_EQ(8, y);
    EXPECT_TRUE(equation.testSolution(100, x, y));
}

TEST(LinearDiophantineEquation, EmptyIntervalLeavesTheOutputsAlone)
{
    Equation const equation(3, 5);
    int x = 111, y = 222;
    EXPECT_FALSE(equation.findSolutionInRange(100, 0, 10, 0, 5, x, y));
    EXPECT_EQ(111, x);
    EXPECT_EQ(222, y);
}

TEST(LinearDiophantineEquation, SmallPositiveQuotientsAreNotRoundedUp)
{
    // 3x + 5y = 1 from (2, -1): x >= 3 asks for t >= 1/5, which the rule turns into t >= 0
    Equation const equation(3, 5);
    int x, y;
    ASSERT_TRUE(equation.findSolutionInRange(1, 3, 100, -100, 100, x, y));
    EXPECT_EQ(2, x); // below the range
    // and x >= 8 asks for t >= 6/5, which becomes t >= 2
    ASSERT_TRUE(equation.findSolutionInRange(1, 8, 100, -100, 100, x, y));
    EXPECT_EQ(12, x);
}

TEST(LinearDiophantineEquation, TestSolutionWraps)
{
    EXPECT_TRUE(Equation(3, 5).testSolution(1, 2, -1));
    EXPECT_FALSE(Equation(3, 5).testSolution(1, 2, 0));
    EXPECT_TRUE(Equation(65536, 1).testSolution(7, 65536, 7)); // 2^32 + 7
    EXPECT_TRUE(Equation(maxInt, 1).testSolution(minInt, 1, 1));
}

TEST(LinearDiophantineEquation, CopiesAreEqual)
{
    Equation const equation(3, 5);
    Equation assigned(1, 1), moved(1, 1);
    assigned = equation;
    moved = Equation(assigned);
    EXPECT_TRUE(solution(assigned, 4) == solution(equation, 4));
    EXPECT_TRUE(solution(moved, 4) == solution(equation, 4));
}

TEST(LinearDiophantineEquation, SolvesExactlyTheSolvable)
{
    for (int a = -40; a <= 40; ++a) {
        for (int b = -40; b <= 40; ++b) {
            if (a == 0 && b == 0) {
                continue;
            }
            Equation const equation(a, b);
            int const g = std::gcd(a, b);
            for (int c = -120; c <= 120; ++c) {
                Solution s;
                ASSERT_EQ(solve(equation, c, s), c % g == 0) << a << ' ' << b << ' ' << c;
                if (c % g != 0) {
                    ASSERT_TRUE(s == Solution());
                    continue;
                }
                ASSERT_EQ(a * s.x + b * s.y, c);
                ASSERT_TRUE(equation.testSolution(c, s.x, s.y));
                ASSERT_EQ(0, a * s.xStep + b * s.yStep);
                // neighbours, with nothing between
                ASSERT_EQ(1, std::gcd(s.xStep, s.yStep));
            }
        }
    }
}

/// The range query as a count over all solutions, with bounds rounded by the rule of the class.
bool expectedInRange(int a, int b, Solution const &s, int const (&range)[4], int &x, int &y)
{
    if (a == 0 || b == 0) {
        return false;
    }
    auto const rounded = [](int p, int d) {
        bool const positiveDividend = p > 0;
        int const magnitude = std::abs(p) / std::abs(d);
        bool const up = positiveDividend && p % d != 0 && magnitude != 0;
        int const q = up ? magnitude + 1 : magnitude;
        return (p < 0) != (d < 0) ? -q : q;
    };
    std::pair<int, int> const tx =
        std::minmax({rounded(range[0] - s.x, s.xStep), rounded(s.x - range[1], -s.xStep)});
    std::pair<int, int> const ty =
        std::minmax({rounded(range[2] - s.y, s.yStep), rounded(s.y - range[3], -s.yStep)});
    int const low = std::max(tx.first, ty.first);
    int const high = std::min(tx.second, ty.second);
    if (low > high) {
        return false;
    }
    x = s.x + low * s.xStep;
    y = s.y + high * s.yStep;
    return true;
}

TEST(LinearDiophantineEquation, RangeQueryFollowsItsRounding)
{
    int const ranges[][4] = {{0, 50, 0, 50}, {-7, 13, -20, 5}, {3, 3, 0, 9}, {5, -5, 0, 10}};
    for (int a = -40; a <= 40; ++a) {
        for (int b = -40; b <= 40; ++b) {
            if (a == 0 && b == 0) {
                continue;
            }
            Equation const equation(a, b);
            for (int c = -60; c <= 60; c += 3) {
                Solution s;
                if (!solve(equation, c, s)) {
                    continue;
                }
                for (auto const &range : ranges) {
                    int x = 111, y = 222, expectedX = 111, expectedY = 222;
                    bool const expected = expectedInRange(a, b, s, range, expectedX, expectedY);
                    ASSERT_EQ(equation.findSolutionInRange(c, range[0], range[1], range[2],
                                                           range[3], x, y),
                              expected);
                    ASSERT_EQ(x, expectedX);
                    ASSERT_EQ(y, expectedY);
                    ASSERT_EQ(equation.testSolution(c, x, y),
                              std::int64_t(a) * x + std::int64_t(b) * y == c);
                }
            }
        }
    }
}

TEST(LinearDiophantineEquation, ExtremeArgumentsWrap)
{
    struct Case
    {
        int a, b, c;
        int range[4];
        Solution solution;
        int x, y;
    };
    Case const cases[] = {
        {minInt, 3, 5, {-100, 100, -100, 100}, {5, -715827881, 3, minInt}, 5, -715827881},
        {65536,
         65535,
         maxInt,
         {minInt, maxInt, 0, 1000000},
         {maxInt, -maxInt, 65535, -65536},
         maxInt,
         -maxInt},
        {-46341,
         46340,
         -2000000000,
         {-50, 50, -50, 50},
         {2000000000, 2000000000, -46340, -46341},
         11940,
         -31219},
        {minInt, minInt, minInt, {-5, 5, -5, 5}, {0, 1, 1, -1}, -4, -4},
        {7,
         minInt,
         minInt,
         {minInt, maxInt, minInt, maxInt},
         {minInt, minInt, minInt, -7},
         minInt,
         minInt},
    };
    for (Case const &k : cases) {
        SCOPED_TRACE(testing::Message() << k.a << ' ' << k.b << ' ' << k.c);
        Equation const equation(k.a, k.b);
        EXPECT_TRUE(solution(equation, k.c) == k.solution);
        EXPECT_TRUE(equation.testSolution(k.c, k.solution.x, k.solution.y));
        int x = 111, y = 222;
        EXPECT_TRUE(equation.findSolutionInRange(k.c, k.range[0], k.range[1], k.range[2],
                                                 k.range[3], x, y));
        EXPECT_EQ(x, k.x);
        EXPECT_EQ(y, k.y);
    }
}

RC_GTEST_PROP(LinearDiophantineEquation, WrapsWithoutUndefinedBehaviour, ())
{
    auto const any = rc::gen::arbitrary<int>();
    int const a = *any, b = *any, c = *any;
    RC_PRE(a > minInt && b > minInt && c > minInt && (a != 0 || b != 0));
    Equation const equation(a, b);
    Solution s;
    if (solve(equation, c, s)) {
        RC_ASSERT(equation.testSolution(c, s.x, s.y)); // holds modulo 2^32
    }
}

TEST(LinearDiophantineEquationDeathTest, BothCoefficientsZeroFault)
{
    EXPECT_DEATH(Equation(0, 0), "");
}

TEST(LinearDiophantineEquationDeathTest, OverflowingQuotientFaults)
{
    EXPECT_DEATH(Equation(minInt, -1), "");
    Equation const equation(0, -1);
    Solution s;
    EXPECT_DEATH(solve(equation, minInt, s), "");
    // x - xMax wraps to -2147483648, by a step of -1
    Equation const steps(1, 1);
    int x, y;
    EXPECT_DEATH(steps.findSolutionInRange(0, 0, minInt, 0, 1, x, y), "");
}

} // namespace
