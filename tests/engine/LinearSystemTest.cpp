#include "support/Bits.h"

#include <OrvelMath/engine/LinearSystemT_p.h>

#include <OrvelMath/base/valueTypes.h>

#include <boost/rational.hpp>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace {

/// Row-major literals read better; the class wants columns.
template <int R, int C>
LinearSystemT<R, C> fromRows(double const (&rows)[R][C], double epsilon)
{
    double columns[R * C];
    for (int r = 0; r < R; ++r) {
        for (int c = 0; c < C; ++c) {
            columns[r + R * c] = rows[r][c];
        }
    }
    return LinearSystemT<R, C>(columns, epsilon);
}

template <int R, int C>
std::array<double, R> image(LinearSystemT<R, C> const &system, double const *x)
{
    std::array<double, R> result{};
    for (int r = 0; r < R; ++r) {
        for (int c = 0; c < C; ++c) {
            result[static_cast<std::size_t>(r)] += system.source[r + R * c] * x[c];
        }
    }
    return result;
}

using Fraction = boost::rational<long long>;

/// The reduced row echelon form in exact arithmetic.
template <int R, int C>
struct ExactReduction
{
    Fraction rows[R][C];
    std::vector<int> pivotColumns;
    Fraction determinant{1};

    explicit ExactReduction(int const (&values)[R][C])
    {
        for (int r = 0; r < R; ++r) {
            for (int c = 0; c < C; ++c) {
                rows[r][c] = values[r][c];
            }
        }
        int row = 0;
        for (int c = 0; c < C && row < R; ++c) {
            int pivot = row;
            while (pivot < R && rows[pivot][c] == 0) {
                ++pivot;
            }
            if (pivot == R) {
                continue;
            }
            reduceColumn(row++, pivot, c);
            pivotColumns.push_back(c);
        }
        if (R != C || rank() < R) {
            determinant = 0;
        }
    }

    int rank() const { return static_cast<int>(pivotColumns.size()); }

    bool isPivot(int column) const
    {
        for (int pivot : pivotColumns) {
            if (pivot == column) {
                return true;
            }
        }
        return false;
    }

private:
    void reduceColumn(int row, int pivot, int column)
    {
        if (pivot != row) {
            std::swap(rows[pivot], rows[row]);
            determinant = -determinant;
        }
        Fraction const scale = rows[row][column];
        determinant *= scale;
        for (Fraction &value : rows[row]) {
            value /= scale;
        }
        for (int r = 0; r < R; ++r) {
            if (r == row) {
                continue;
            }
            Fraction const factor = rows[r][column];
            for (int c = 0; c < C; ++c) {
                rows[r][c] -= rows[row][c] * factor;
            }
        }
    }
};

/// Small integers, and in half of the cases a last row that depends on the others.
template <int R, int C>
struct IntegerSystem
{
    int values[R][C];

    IntegerSystem()
    {
        for (int r = 0; r < R; ++r) {
            for (int c = 0; c < C; ++c) {
                values[r][c] = *rc::gen::inRange(-6, 7);
            }
        }
        if (*rc::gen::arbitrary<bool>()) {
            int const factor = *rc::gen::inRange(-2, 3);
            for (int c = 0; c < C; ++c) {
                values[R - 1][c] = values[0][c] * factor;
            }
        }
    }

    LinearSystemT<R, C> reduced() const
    {
        double columns[R * C];
        for (int r = 0; r < R; ++r) {
            for (int c = 0; c < C; ++c) {
                columns[r + R * c] = values[r][c];
            }
        }
        return LinearSystemT<R, C>(columns, 1e-12);
    }
};

template <int R, int C>
void checkReduction(IntegerSystem<R, C> const &input)
{
    LinearSystemT<R, C> const system = input.reduced();
    ExactReduction<R, C> const exact(input.values);
    RC_ASSERT(system.rank == exact.rank());
    RC_ASSERT(std::fabs(system.determinant - boost::rational_cast<double>(exact.determinant)) <
              1e-9);
    for (int r = 0; r < R; ++r) {
        for (int c = 0; c < C; ++c) {
            double product = 0.0;
            for (int k = 0; k < R; ++k) {
                product += system.transform[r + R * k] * system.source[k + R * c];
            }
            RC_ASSERT(std::fabs(product - system.reduced[r + R * c]) < 1e-12);
        }
    }
}

template <int R, int C>
void checkNullSpace(IntegerSystem<R, C> const &input)
{
    LinearSystemT<R, C> const system = input.reduced();
    ExactReduction<R, C> const exact(input.values);
    double const rhs[R] = {};
    double solution[C];
    double nullSpace[C * C];
    RC_ASSERT(system.solve(rhs, solution, nullSpace) == C - exact.rank());
    int t = 0;
    for (int free = C - 1; free >= 0; --free) {
        if (exact.isPivot(free)) {
            continue;
        }
        std::array<Fraction, C> expected{};
        expected[static_cast<std::size_t>(free)] = 1;
        for (int row = 0; row < exact.rank(); ++row) {
            int const pivot = exact.pivotColumns[static_cast<std::size_t>(row)];
            expected[static_cast<std::size_t>(pivot)] = -exact.rows[row][free];
        }
        for (int c = 0; c < C; ++c) {
            double const truth =
                boost::rational_cast<double>(expected[static_cast<std::size_t>(c)]);
            RC_ASSERT(std::fabs(nullSpace[t * C + c] - truth) < 1e-11);
        }
        ++t;
    }
    for (int cell = t * C; cell < C * C; ++cell) {
        RC_ASSERT(nullSpace[cell] == 0.0);
    }
}

template <int R, int C>
void checkSolution(IntegerSystem<R, C> const &input)
{
    LinearSystemT<R, C> const system = input.reduced();
    int integers[R][C + 1];
    double rhs[R];
    for (int r = 0; r < R; ++r) {
        for (int c = 0; c < C; ++c) {
            integers[r][c] = input.values[r][c];
        }
        integers[r][C] = *rc::gen::inRange(-6, 7);
        rhs[r] = integers[r][C];
    }
    ExactReduction<R, C + 1> const augmented(integers);
    bool const consistent = !augmented.isPivot(C);
    double solution[C];
    int const result = system.solve(rhs, solution);
    RC_ASSERT(result == (consistent ? C - system.rank : -1));
    if (!consistent) {
        return;
    }
    for (int row = 0; row < augmented.rank(); ++row) {
        int const pivot = augmented.pivotColumns[static_cast<std::size_t>(row)];
        RC_ASSERT(std::fabs(solution[pivot] -
                            boost::rational_cast<double>(augmented.rows[row][C])) < 1e-11);
    }
    for (int c = 0; c < C; ++c) {
        RC_ASSERT(augmented.isPivot(c) || solution[c] == 0.0);
    }
}

template <int R, int C>
void checkAll()
{
    IntegerSystem<R, C> const input;
    checkReduction(input);
    checkNullSpace(input);
    checkSolution(input);
}

} // namespace

TEST(LinearSystem, ZeroMatrixHasUnitNullVectorsInDescendingOrder)
{
    double const zero[9] = {};
    LinearSystemT<3, 3> const system(zero, 1e-12);
    EXPECT_EQ(0, system.rank);
    EXPECT_EQ(0.0, system.determinant);
    double const rhs[3] = {};
    double solution[3] = {7.0, 7.0, 7.0};
    double nullSpace[9];
    ASSERT_EQ(3, system.solve(rhs, solution, nullSpace));
    double const expected[9] = {0.0, 0.0, 1.0, 0.0, 1.0, 0.0, 1.0, 0.0, 0.0};
    for (int cell = 0; cell < 9; ++cell) {
        EXPECT_EQ(nullSpace[cell], expected[cell]) << cell;
    }
    for (double value : solution) {
        EXPECT_EQ(0.0, value);
    }
}

TEST(LinearSystem, ZeroMatrixRefusesOtherRightHandSidesWhateverTheEpsilon)
{
    double const zero[9] = {};
    double const rhs[3] = {0.0, 2e-12, 0.0};
    for (double epsilon : {1e-12, 1e-6, 1.0, 1e6}) {
        LinearSystemT<3, 3> const system(zero, epsilon);
        double solution[3] = {7.0, 7.0, 7.0};
        double nullSpace[9] = {7.0, 7.0, 7.0, 7.0, 7.0, 7.0, 7.0, 7.0, 7.0};
        EXPECT_EQ(-1, system.solve(rhs, solution, nullSpace));
        for (double value : solution) {
            EXPECT_EQ(0.0, value);
        }
        for (double value : nullSpace) {
            EXPECT_EQ(0.0, value);
        }
    }
}

TEST(LinearSystem, ResidualOfExactlyTheLimitIsConsistent)
{
    double const zero[4] = {};
    LinearSystemT<2, 2> const system(zero, 1e-3);
    double solution[2];
    double const atLimit[2] = {0.0, 1e-12};
    EXPECT_EQ(2, system.solve(atLimit, solution));
    double const beyond[2] = {0.0, std::nextafter(1e-12, 1.0)};
    EXPECT_EQ(-1, system.solve(beyond, solution));
    double const unknown[2] = {0.0, support::nan};
    EXPECT_EQ(2, system.solve(unknown, solution));
}

TEST(LinearSystem, ParallelNormalsWithConsistentOffsetsLeaveAPlane)
{
    auto const system = fromRows<2, 3>({{1.0, 2.0, 3.0}, {2.0, 4.0, 6.0}}, 1e-12);
    EXPECT_EQ(1, system.rank);
    EXPECT_EQ(0.0, system.determinant);
    double const rhs[2] = {5.0, 10.0};
    double solution[3];
    double nullSpace[9];
    ASSERT_EQ(2, system.solve(rhs, solution, nullSpace));
    EXPECT_EQ(5.0, solution[0]);
    EXPECT_EQ(0.0, solution[1]);
    EXPECT_EQ(0.0, solution[2]);
    double const expected[9] = {-3.0, 0.0, 1.0, -2.0, 1.0, 0.0, 0.0, 0.0, 0.0};
    for (int cell = 0; cell < 9; ++cell) {
        EXPECT_EQ(nullSpace[cell], expected[cell]) << cell;
    }
}

TEST(LinearSystem, ParallelNormalsWithOtherOffsetsAreInconsistent)
{
    auto const system = fromRows<2, 3>({{1.0, 2.0, 3.0}, {2.0, 4.0, 6.0}}, 1e-12);
    double const rhs[2] = {5.0, 11.0};
    double solution[3];
    EXPECT_EQ(-1, system.solve(rhs, solution));
}

TEST(LinearSystem, SwappedRowsNegateTheDeterminant)
{
    auto const straight = fromRows<2, 2>({{2.0, 1.0}, {0.0, 3.0}}, 1e-12);
    auto const swapped = fromRows<2, 2>({{0.0, 3.0}, {2.0, 1.0}}, 1e-12);
    EXPECT_EQ(6.0, straight.determinant);
    EXPECT_EQ(-6.0, swapped.determinant);
}

TEST(LinearSystem, DeterminantTellsRotationFromReflection)
{
    double const c = std::cos(0.7);
    double const s = std::sin(0.7);
    auto const rotation = fromRows<3, 3>({{c, -s, 0.0}, {s, c, 0.0}, {0.0, 0.0, 1.0}}, 1e-12);
    auto const reflection = fromRows<3, 3>({{c, s, 0.0}, {s, -c, 0.0}, {0.0, 0.0, 1.0}}, 1e-12);
    EXPECT_NEAR(1.0, rotation.determinant, 1e-15);
    EXPECT_NEAR(-1.0, reflection.determinant, 1e-15);
}

TEST(LinearSystem, PivotOfExactlyEpsilonCountsAsMissing)
{
    auto const atLimit = fromRows<2, 2>({{0.25, 0.0}, {0.0, 1.0}}, 0.25);
    EXPECT_EQ(1, atLimit.rank);
    EXPECT_EQ(0.0, atLimit.reduced[0]);
    EXPECT_EQ(0.0, atLimit.determinant);
    auto const above = fromRows<2, 2>({{std::nextafter(0.25, 1.0), 0.0}, {0.0, 1.0}}, 0.25);
    EXPECT_EQ(2, above.rank);
}

TEST(LinearSystem, NanInTheFirstCandidateRowLeavesTheColumnWithoutPivot)
{
    auto const system = fromRows<2, 2>({{support::nan, 1.0}, {5.0, 3.0}}, 1e-12);
    EXPECT_EQ(1, system.rank);
    EXPECT_EQ(0.0, system.reduced[0]);
    EXPECT_EQ(0.0, system.reduced[1]);
    EXPECT_EQ(0.0, system.determinant);
}

TEST(LinearSystem, NanInALaterRowDoesNotDisplaceAnEarlierOne)
{
    auto const system = fromRows<2, 2>({{5.0, 1.0}, {support::nan, 3.0}}, 1e-12);
    EXPECT_EQ(1, system.rank);
    EXPECT_EQ(1.0, system.reduced[0]);
    EXPECT_EQ(0.0, system.reduced[1]);
}

TEST(LinearSystem, InfinitePivotTurnsFiniteValuesToZero)
{
    auto const system = fromRows<2, 2>({{support::inf, 3.0}, {0.0, 2.0}}, 1e-12);
    EXPECT_EQ(2, system.rank);
    EXPECT_EQ(support::inf, system.determinant);
    EXPECT_EQ(0.0, system.reduced[2]);
}

TEST(LinearSystem, NanSpreadsThroughTheTransformRecord)
{
    // The second step multiplies the NaN of the last row by the zeros of its matrix.
    auto const system = fromRows<2, 2>({{5.0, 1.0}, {support::nan, 3.0}}, 1e-12);
    for (double value : system.transform) {
        EXPECT_TRUE(std::isnan(value));
    }
    double const rhs[2] = {1.0, 1.0};
    double solution[2];
    EXPECT_EQ(1, system.solve(rhs, solution));
    EXPECT_TRUE(std::isnan(solution[0]));
    EXPECT_EQ(0.0, solution[1]);
}

TEST(LinearSystem, EqualCandidatesTakeTheFirstRow)
{
    auto const system = fromRows<3, 3>({{2.0, 1.0, 0.0}, {-2.0, 0.0, 1.0}, {2.0, 5.0, 5.0}}, 1e-12);
    EXPECT_EQ(0.5, system.reduced[3]); // row 0 stayed in its place
    EXPECT_EQ(0.5, system.transform[0]);
}

TEST(LinearSystem, MatrixOfThreeColumnsPassesWithoutTransposition)
{
    matrixC3x3<double> m = matrixC3x3<double>::identity();
    m(0, 2) = 4.0;
    LinearSystemT<3, 3> const system(m.data(), 1e-12);
    double const rhs[3] = {9.0, 0.0, 2.0};
    double solution[3];
    ASSERT_EQ(0, system.solve(rhs, solution));
    EXPECT_EQ(1.0, solution[0]);
    EXPECT_EQ(0.0, solution[1]);
    EXPECT_EQ(2.0, solution[2]);
}

TEST(LinearSystem, TallSystemAnswersOnlyWhereAllRowsAgree)
{
    auto const system = fromRows<3, 2>({{1.0, 0.0}, {0.0, 1.0}, {1.0, 1.0}}, 1e-12);
    EXPECT_EQ(2, system.rank);
    EXPECT_EQ(0.0, system.determinant);
    double solution[2];
    double const agreeing[3] = {2.0, 3.0, 5.0};
    ASSERT_EQ(0, system.solve(agreeing, solution));
    EXPECT_EQ(2.0, solution[0]);
    EXPECT_EQ(3.0, solution[1]);
    double const skew[3] = {2.0, 3.0, 5.1};
    EXPECT_EQ(-1, system.solve(skew, solution));
    EXPECT_EQ(0.0, solution[0]);
}

TEST(LinearSystem, KeepsSourceAndEpsilon)
{
    auto const system = fromRows<2, 2>({{1.0, 2.0}, {3.0, 4.0}}, 0.125);
    EXPECT_EQ(0.125, system.epsilon);
    EXPECT_EQ(3.0, system.source[1]);
    EXPECT_EQ(2.0, system.source[2]);
}

RC_GTEST_PROP(LinearSystemTruth, TwoByTwoAgreesWithFractions, ())
{
    checkAll<2, 2>();
}

RC_GTEST_PROP(LinearSystemTruth, TwoByThreeAgreesWithFractions, ())
{
    checkAll<2, 3>();
}

RC_GTEST_PROP(LinearSystemTruth, ThreeByTwoAgreesWithFractions, ())
{
    checkAll<3, 2>();
}

RC_GTEST_PROP(LinearSystemTruth, ThreeByThreeAgreesWithFractions, ())
{
    checkAll<3, 3>();
}
