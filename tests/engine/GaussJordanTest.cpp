#include "support/Bits.h"
#include <OrvelMath/engine/GaussJordan_p.h>
#include <OrvelMath/engine/vectorWidth_p.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <random>

using support::SameBits;

TEST(GaussJordan, InverseTimesMatrixIsTheIdentity)
{
    std::mt19937_64 random(20261122);
    std::uniform_real_distribution<double> element(-2.0, 2.0);
    for (int trial = 0; trial < 1000; ++trial) {
        double source[3][3];
        double rows[3][3];
        for (int i = 0; i < 9; ++i) {
            source[i / 3][i % 3] = rows[i / 3][i % 3] = element(random) + (i % 4 == 0 ? 6.0 : 0.0);
        }
        double inverse[3][3];
        ASSERT_TRUE(engine::GaussJordan<3>(rows, 1e-12).run(inverse));
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 3; ++column) {
                double sum = 0.0;
                for (int k = 0; k < 3; ++k) {
                    sum += inverse[row][k] * source[k][column];
                }
                ASSERT_NEAR(row == column ? 1.0 : 0.0, sum, 1e-12);
            }
        }
    }
}

TEST(GaussJordan, LeavesTheRowsHalfReducedWhenItFails)
{
    double rows[2][2] = {{1.0, 1.0}, {1.0, 1.0}};
    double inverse[2][2] = {{support::preset, support::preset}, {support::preset, support::preset}};
    EXPECT_FALSE(engine::GaussJordan<2>(rows, 1e-9).run(inverse));
    EXPECT_TRUE(SameBits(1.0, rows[0][0]));
    EXPECT_TRUE(SameBits(0.0, rows[1][0]));
    EXPECT_TRUE(SameBits(0.0, rows[1][1]));
    EXPECT_TRUE(SameBits(support::preset, inverse[0][0]));
}

TEST(GaussJordan, RepairsAZeroOnTheDiagonalByTheFirstRowThatCan)
{
    double rows[2][2] = {{0.0, 1.0}, {1.0, 0.0}};
    ASSERT_TRUE(engine::GaussJordan<2>(rows, 1e-9).run(rows));
    EXPECT_TRUE(SameBits(0.0, rows[0][0]));
    EXPECT_TRUE(SameBits(1.0, rows[0][1]));
    EXPECT_TRUE(SameBits(1.0, rows[1][0]));
    EXPECT_TRUE(SameBits(0.0, rows[1][1]));
}

TEST(GaussJordan, SnapsValuesBelowTheTolerance)
{
    double rows[2][2] = {{1e10, 0.0}, {0.0, 1.0}};
    ASSERT_TRUE(engine::GaussJordan<2>(rows, 1e-9).run(rows));
    EXPECT_TRUE(SameBits(0.0, rows[0][0]));

    double finer[2][2] = {{1e10, 0.0}, {0.0, 1.0}};
    ASSERT_TRUE(engine::GaussJordan<2>(finer, 1e-12).run(finer));
    EXPECT_TRUE(SameBits(1e-10, finer[0][0]));
}

TEST(GaussJordan, RefusesSingularMatrices)
{
    double column[2][2] = {{0.0, 1.0}, {0.0, 1.0}};
    EXPECT_FALSE(engine::GaussJordan<2>(column, 1e-9).run(column));
    double rank1[2][2] = {{1.0, 1.0}, {1.0, 1.0}};
    EXPECT_FALSE(engine::GaussJordan<2>(rank1, 1e-9).run(rank1));
}

namespace {

/// The same steps, element by element.
template <int N>
class PlainGaussJordan
{
public:
    PlainGaussJordan(double (*rows)[N], double tolerance)
        : m_rows(rows)
        , m_tolerance(tolerance)
    {
        for (int cell = 0; cell < N * N; ++cell) {
            m_inverse[cell / N][cell % N] = cell / N == cell % N ? 1.0 : 0.0;
        }
    }

    bool run(double (*inverse)[N])
    {
        for (int i = 0; i < N; ++i) {
            if (m_rows[i][i] == 0.0) {
                int row = 0;
                while (row < N && m_rows[row][i] == 0.0) {
                    ++row;
                }
                if (row == N) {
                    return false;
                }
                addRow(i, 1.0, row);
            }
        }
        for (int pivot = 0; pivot < N; ++pivot) {
            for (int row = 0; row < N; ++row) {
                if (row != pivot && !eliminate(row, pivot)) {
                    return false;
                }
            }
        }
        for (int i = 0; i < N; ++i) {
            double const scale = 1.0 / m_rows[i][i];
            for (int c = 0; m_rows[i][i] != 1.0 && c < N; ++c) {
                inverse[i][c] = snapped(m_inverse[i][c] * scale);
            }
            for (int c = 0; m_rows[i][i] == 1.0 && c < N; ++c) {
                inverse[i][c] = m_inverse[i][c];
            }
        }
        return true;
    }

private:
    double snapped(double v) const { return v > -m_tolerance && v < m_tolerance ? 0.0 : v; }

    void addRow(int target, double factor, int source)
    {
        for (int c = 0; c < N; ++c) {
            m_rows[target][c] = snapped(factor * m_rows[source][c] + m_rows[target][c]);
            m_inverse[target][c] = snapped(factor * m_inverse[source][c] + m_inverse[target][c]);
        }
    }

    bool eliminate(int row, int pivot)
    {
        for (int q = pivot + 1; m_rows[pivot][pivot] == 0.0; ++q) {
            if (q == N) {
                return false;
            }
            bool starts = m_rows[q][pivot] != 0.0;
            for (int c = 0; c < pivot; ++c) {
                starts = starts && m_rows[q][c] == 0.0;
            }
            if (starts) {
                addRow(pivot, 1.0, q);
                break;
            }
        }
        double const factor = -(m_rows[row][pivot] / m_rows[pivot][pivot]);
        if (factor > m_tolerance || -m_tolerance > factor) {
            addRow(row, factor, pivot);
        }
        return true;
    }

    double (*m_rows)[N];
    double m_inverse[N][N];
    double m_tolerance;
};

/// A matrix of one of six kinds: any, few integers, tiny elements among others, elements at the
/// tolerance, zeros, NaN and infinity.
template <int N>
void draw(double (*m)[N], int kind, std::mt19937_64 &random)
{
    std::uniform_real_distribution<double> element(-1.0, 1.0);
    for (int cell = 0; cell < N * N; ++cell) {
        double &v = m[cell / N][cell % N];
        v = kind == 1 ? double(random() % 4) - 1.0 : element(random);
        if (random() % 3 == 0) {
            double const tiny[] = {0.0, 1e-9, -1e-9, 1e-12, std::nextafter(1e-9, 0.0), 3e-9 * v};
            v = kind == 2 ? 1e-9 * v : kind == 3 ? tiny[random() % 6] : kind == 4 ? 0.0 : v;
        }
        if (kind == 5 && random() % 12 == 0) {
            v = random() % 2 == 0 ? support::nan : support::inf;
        }
    }
}

template <int N, int W>
ORVEL_INLINE void expectBitsOfThePlainSteps(double tolerance)
{
    std::mt19937_64 random(20261122);
    int const count = std::getenv("ORVEL_LONG_TESTS") != nullptr ? 1000000 : 100000;
    int refused = 0;
    for (int trial = 0; trial < count; ++trial) {
        double plain[N][N], rows[N][N], expected[N][N], actual[N][N];
        draw<N>(plain, trial % 6, random);
        std::memcpy(rows, plain, sizeof rows);
        bool const isRegular = PlainGaussJordan<N>(plain, tolerance).run(expected);
        ASSERT_EQ(isRegular, (engine::GaussJordan<N, W>(rows, tolerance).run(actual)));
        refused += isRegular ? 0 : 1;
        for (int cell = 0; cell < N * N; ++cell) {
            int const r = cell / N, c = cell % N;
            // What is left of a singular matrix is the same, too.
            ASSERT_TRUE(isRegular ? SameBits(expected[r][c], actual[r][c])
                                  : SameBits(plain[r][c], rows[r][c]))
                << "trial " << trial;
        }
    }
    EXPECT_GT(refused, count / 100);
    EXPECT_LT(refused, count / 2);
}

#if defined(__x86_64__)
ORVEL_TARGET("avx2")
void expectBitsOfThePlainStepsByFours()
{
    expectBitsOfThePlainSteps<4, 4>(1e-9);
}
#endif

} // namespace

TEST(GaussJordan, HasTheBitsOfThePlainSteps)
{
    expectBitsOfThePlainSteps<4, 2>(1e-9);
    expectBitsOfThePlainSteps<3, 2>(1e-12);
}

#if defined(__x86_64__)
TEST(GaussJordan, HasTheBitsOfThePlainStepsByFours)
{
    if (engine::vectorWidth() < 4) {
        GTEST_SKIP() << "no AVX2 here";
    }
    expectBitsOfThePlainStepsByFours();
}
#endif
