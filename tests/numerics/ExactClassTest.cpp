// The iterative methods work on the storage of the library's own matrices. A class derived from one
// of them is asked for every element, and the two roads give the same bits.

#include "IterativeMatrices.h"
#include "support/Bits.h"

#include <OrvelMath/engine/vectorWidth_p.h>
#include <OrvelMath/numerics/PowerMethod.h>
#include <OrvelMath/numerics/WielandtMethod.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>

namespace {

using support::SameBits;

/// Counts the questions; for the methods it is a class of its own.
template <typename Matrix>
struct Asked : Matrix
{
    using Matrix::Matrix;

    double getElement(unsigned int row, unsigned int column) override
    {
        ++questions;
        return Matrix::getElement(row, column);
    }

    long questions = 0;
};

/// Fills both alike: any numbers, few integers, many sizes, or NaN and infinity among them.
void fillAlike(MatrixIF &a, MatrixIF &b, unsigned int n, int kind, std::mt19937_64 &random)
{
    std::uniform_real_distribution<double> element(-10.0, 10.0);
    for (unsigned int i = 0; i < n; ++i) {
        for (unsigned int j = 0; j < n; ++j) {
            double value = element(random);
            if (kind == 1) {
                value = double(random() % 5) - 2.0;
            } else if (kind == 2) {
                value *= std::pow(10.0, double(random() % 40) - 20.0);
            } else if (kind == 3 && random() % 50 == 0) {
                value = random() % 2 == 0 ? support::nan : support::inf;
            }
            a.setElement(i, j, value);
            b.setElement(i, j, value);
        }
    }
}

int trials(int everyday)
{
    return std::getenv("ORVEL_LONG_TESTS") != nullptr ? 20 * everyday : everyday;
}

class OpenPowerMethod : public PowerMethod
{
public:
    using PowerMethod::iterateVector;
    using PowerMethod::PowerMethod;
};

template <typename Matrix>
void expectPowerMethodAlike()
{
    std::mt19937_64 random(20261122);
    for (int trial = 0; trial < trials(1000); ++trial) {
        unsigned int const n = unsigned(trial) % 23;
        Matrix exact(n);
        Asked<Matrix> asked(n);
        fillAlike(exact, asked, n, trial % 4, random);
        OpenPowerMethod quick(&exact, 1e-9);
        OpenPowerMethod plain(&asked, 1e-9);
        for (unsigned int i = 0; i < n; ++i) {
            quick.getEigenvector()[i] = plain.getEigenvector()[i] = std::sin(double(i) + trial);
        }
        for (int step = 0; step < 4; ++step) {
            ASSERT_EQ(plain.iterateVector(), quick.iterateVector());
            ASSERT_TRUE(SameBits(plain.getEigenvalue(), quick.getEigenvalue()));
            ASSERT_TRUE(SameBits(plain.getQuality(), quick.getQuality()));
            for (unsigned int i = 0; i < n; ++i) {
                ASSERT_TRUE(SameBits(plain.getEigenvector()[i], quick.getEigenvector()[i]));
            }
        }
        ASSERT_EQ(4 * long(n) * long(n), asked.questions);
    }
}

void expectJacobiMethodAlike()
{
    std::mt19937_64 random(20261122);
    for (int trial = 0; trial < trials(1000); ++trial) {
        unsigned int const n = unsigned(trial) % 21;
        SymmetricMatrixNXN exact(n);
        Asked<SymmetricMatrixNXN> asked(n);
        fillAlike(exact, asked, n, trial % 4, random);
        JacobiMethod quick(&exact);
        JacobiMethod plain(&asked);
        bool finished = false;
        for (int sweep = 0; sweep < 12 && !finished; ++sweep) {
            finished = plain.iterate();
            ASSERT_EQ(finished, quick.iterate());
            ASSERT_TRUE(SameBits(plain.getQuality(), quick.getQuality()));
            for (unsigned int i = 0; i < n; ++i) {
                std::vector<double> const expected = iterative::eigenvector(plain, i);
                std::vector<double> const actual = iterative::eigenvector(quick, i);
                for (unsigned int j = 0; j < n; ++j) {
                    ASSERT_TRUE(SameBits(expected[j], actual[j]));
                    ASSERT_TRUE(SameBits(asked.getElement(i, j), exact.getElement(i, j)));
                }
            }
        }
        ASSERT_TRUE(finished || trial % 4 == 3) << "a finite matrix needs more than 12 sweeps";
    }
}

} // namespace

TEST(ExactClass, PowerMethodGivesTheBitsOfTheOperations)
{
    expectPowerMethodAlike<MatrixNXN>();
    expectPowerMethodAlike<SymmetricMatrixNXN>();
}

TEST(ExactClass, JacobiMethodGivesTheBitsOfTheOperationsAtEachWidth)
{
    int const before = engine::vectorWidth();
    for (int width : {2, 4, 8}) {
        engine::limitVectorWidth(width);
        expectJacobiMethodAlike();
    }
    engine::limitVectorWidth(before);
}

TEST(ExactClass, JacobiMethodAsksADerivedClassForEveryElement)
{
    Asked<SymmetricMatrixNXN> matrix(3);
    iterative::fill(matrix, 3, {4, 1, 2, 1, 3, 1, 2, 1, 2});
    JacobiMethod method(&matrix);
    method.iterate();
    EXPECT_GE(matrix.questions, 3 + 3 * 3);
}

TEST(ExactClass, JacobiMethodTakesAMatrixThatHasGrownSince)
{
    // The method knows the number of rows that the matrix had at the start.
    SymmetricMatrixNXN matrix(3);
    JacobiMethod method(&matrix);
    SymmetricMatrixNXN larger(4);
    iterative::fill(larger, 4, {4, 1, 2, 9, 1, 3, 1, 9, 2, 1, 2, 9, 9, 9, 9, 5});
    matrix = larger;
    EXPECT_FALSE(method.iterate());
    EXPECT_EQ(4.0, method.getQuality());
    EXPECT_EQ(9.0, matrix.getElement(0, 3));
    EXPECT_EQ(5.0, matrix.getElement(3, 3));
}
