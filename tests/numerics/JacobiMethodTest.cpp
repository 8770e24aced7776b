#include "IterativeMatrices.h"
#include "support/Bits.h"

#include <OrvelMath/numerics/JacobiMethod.h>

#include <Eigen/Eigenvalues>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <cstdlib>
#include <type_traits>
#include <vector>

namespace {

using namespace iterative;
using support::SameBits;

TEST(JacobiMethod, DiagonalMatrixIsFinishedAtOnce)
{
    auto matrix = makeMatrix<SymmetricMatrixNXN>(3, {3, 0, 0, 0, -1, 0, 0, 0, 2});
    JacobiMethod method(&matrix);
    EXPECT_EQ(0.0, method.getQuality());
    EXPECT_TRUE(method.iterate());
    EXPECT_EQ(0.0, method.getQuality());
    EXPECT_EQ(3.0, method.getEigenvalue(0));
    EXPECT_EQ(-1.0, method.getEigenvalue(1));
    EXPECT_EQ(2.0, method.getEigenvalue(2));
    EXPECT_EQ(eigenvector(method, 0), (std::vector<double>{1, 0, 0}));
    EXPECT_EQ(eigenvector(method, 1), (std::vector<double>{0, 1, 0}));
    EXPECT_EQ(eigenvector(method, 2), (std::vector<double>{0, 0, 1}));
}

TEST(JacobiMethod, AMatrixConvertsToAMethod)
{
    EXPECT_TRUE((std::is_convertible_v<SymmetricMatrixIF *, JacobiMethod>));
}

TEST(JacobiMethod, SingleElementIsFinishedAtOnce)
{
    auto matrix = makeMatrix<SymmetricMatrixNXN>(1, {7});
    JacobiMethod method(&matrix);
    EXPECT_TRUE(method.iterate());
    EXPECT_EQ(7.0, method.getEigenvalue(0));
    EXPECT_EQ(eigenvector(method, 0), (std::vector<double>{1}));
}

TEST(JacobiMethod, SumOfExactlyTheLimitIsConverged)
{
    auto atLimit = makeMatrix<SymmetricMatrixNXN>(2, {1, 1e-8, 1e-8, 2});
    JacobiMethod finished(&atLimit);
    EXPECT_TRUE(finished.iterate());
    EXPECT_EQ(1e-8, finished.getQuality());
    EXPECT_EQ(1e-8, atLimit.getElement(0, 1));

    double const above = std::nextafter(1e-8, 1.0);
    auto aboveLimit = makeMatrix<SymmetricMatrixNXN>(2, {1, above, above, 2});
    JacobiMethod unfinished(&aboveLimit);
    EXPECT_FALSE(unfinished.iterate());
    EXPECT_TRUE(unfinished.iterate());
}

TEST(JacobiMethod, RotatesByHalfARightAngle)
{
    auto matrix = makeMatrix<SymmetricMatrixNXN>(2, {1, 2, 2, 1});
    JacobiMethod method(&matrix);
    EXPECT_FALSE(method.iterate());
    EXPECT_EQ(2.0, method.getQuality());
    // theta = 0 gives t = 1
    EXPECT_EQ(-1.0, method.getEigenvalue(0));
    EXPECT_EQ(3.0, method.getEigenvalue(1));
    EXPECT_EQ(0.0, matrix.getElement(0, 1));
    double const c = 1.0 / std::sqrt(2.0);
    double const tau = c / (1.0 + c);
    EXPECT_TRUE(SameBits(1.0 - c * (1.0 * tau + 0.0), eigenvector(method, 0)[0]));
    EXPECT_TRUE(SameBits(0.0 - c * (0.0 * tau + 1.0), eigenvector(method, 0)[1]));
    EXPECT_TRUE(SameBits(0.0 + c * (1.0 - 0.0 * tau), eigenvector(method, 1)[0]));
    EXPECT_TRUE(method.iterate());
    EXPECT_EQ(0.0, method.getQuality());
}

TEST(JacobiMethod, NegligibleElementsBecomeZeroFromTheFirstSweep)
{
    // 100*1e-7 vanishes beside 1e12, and the small element is above the threshold of the sweep
    auto matrix = makeMatrix<SymmetricMatrixNXN>(2, {1e12, 1e-7, 1e-7, -1e12});
    JacobiMethod method(&matrix);
    EXPECT_FALSE(method.iterate());
    EXPECT_TRUE(SameBits(0.0, matrix.getElement(0, 1)));
    EXPECT_EQ(eigenvector(method, 0), (std::vector<double>{1, 0}));
    EXPECT_TRUE(method.iterate());
}

TEST(JacobiMethod, PassesOverSmallElementsInThreeSweeps)
{
    // The element 1e-6 is below a fifth of the mean of the upper triangle. Elements (2, 3) and
    // (0, 1) share no coordinate, so the first sweep clears the one and leaves the other.
    auto matrix =
        makeMatrix<SymmetricMatrixNXN>(4, {1, 5, 0, 0, 5, 2, 0, 0, 0, 0, 3, 1e-6, 0, 0, 1e-6, 4});
    JacobiMethod method(&matrix);
    EXPECT_FALSE(method.iterate());
    EXPECT_EQ(0.0, matrix.getElement(0, 1));
    EXPECT_EQ(1e-6, matrix.getElement(2, 3));
    EXPECT_FALSE(method.iterate()); // now it is all there is
    EXPECT_EQ(1e-6, method.getQuality());
    EXPECT_EQ(0.0, matrix.getElement(2, 3));
}

/// Ignores every write and notes which off-diagonal elements were to become zero.
class StubbornMatrix : public SparseMatrix
{
public:
    using SparseMatrix::SparseMatrix;

    void setElement(unsigned int row, unsigned int column, double value) override
    {
        if (!frozen) {
            SparseMatrix::setElement(row, column, value);
        } else if (row < column && value == 0.0) {
            cleared.emplace_back(row, column);
        }
    }

    bool frozen = false;
    std::vector<std::pair<unsigned int, unsigned int>> cleared;
};

TEST(JacobiMethod, ThresholdIsUsedInTheFirstThreeSweepsOnly)
{
    StubbornMatrix matrix(4);
    copyTo(matrix, Eigen::Vector4d(1, 2, 3, 4).asDiagonal());
    matrix.setElement(0, 1, 5.0);
    matrix.setElement(2, 3, 0.0625); // the threshold is 0.2 * 5.0625 / 16 = 0.0633
    matrix.frozen = true;
    using Pairs = std::vector<std::pair<unsigned int, unsigned int>>;
    auto const large = std::make_pair(0u, 1u), small = std::make_pair(2u, 3u);

    JacobiMethod method(&matrix);
    for (int sweep = 1; sweep <= 6; ++sweep) {
        matrix.cleared.clear();
        EXPECT_FALSE(method.iterate());
        EXPECT_EQ(5.0625, method.getQuality());
        Pairs ones;
        for (auto const &pair : matrix.cleared) {
            if (pair == large || pair == small) {
                ones.push_back(pair);
            }
        }
        EXPECT_EQ(ones, sweep <= 3 ? Pairs{large} : (Pairs{large, small})) << sweep;
    }
}

/// Opens the single rotation.
struct OpenJacobiMethod : JacobiMethod
{
    using JacobiMethod::JacobiMethod;
    using JacobiMethod::rotate;
};

TEST(JacobiMethod, RotationHasTheBitsOfTheFormula)
{
    double const app = 1.5, aqq = -0.7, apq = 0.3, g = 2.25, h = -4.1;
    auto matrix =
        makeMatrix<SymmetricMatrixNXN>(3, {app, g, apq, g, 9, h, apq, h, aqq}); // p = 0, q = 2
    OpenJacobiMethod method(&matrix);
    method.rotate(0, 2);
    double const theta = (aqq - app) / (apq + apq); // negative
    double const t = -1.0 / (std::fabs(theta) + std::sqrt(theta * theta + 1.0));
    double const c = 1.0 / std::sqrt(t * t + 1.0);
    double const s = c * t;
    double const tau = s / (1.0 + c);
    EXPECT_TRUE(SameBits(0.0, matrix.getElement(0, 2)));
    EXPECT_TRUE(SameBits(app - t * apq, matrix.getElement(0, 0)));
    EXPECT_TRUE(SameBits(aqq + t * apq, matrix.getElement(2, 2)));
    EXPECT_TRUE(SameBits(9.0, matrix.getElement(1, 1)));
    EXPECT_TRUE(SameBits(g - s * (g * tau + h), matrix.getElement(0, 1)));
    EXPECT_TRUE(SameBits(h + s * (g - h * tau), matrix.getElement(2, 1)));
    std::vector<double> const p = eigenvector(method, 0), q = eigenvector(method, 2);
    EXPECT_TRUE(SameBits(1.0 - s * (1.0 * tau + 0.0), p[0]));
    EXPECT_TRUE(SameBits(0.0 - s * (0.0 * tau + 1.0), p[2]));
    EXPECT_TRUE(SameBits(0.0 + s * (1.0 - 0.0 * tau), q[0]));
    EXPECT_TRUE(SameBits(1.0 + s * (0.0 - 1.0 * tau), q[2]));
    EXPECT_EQ(0.0, method.getQuality()); // no sweep
}

TEST(JacobiMethod, NaNNeverConverges)
{
    double const n = support::nan;
    auto matrix = makeMatrix<SymmetricMatrixNXN>(3, {1, n, 0, n, 1, 0, 0, 0, 1});
    JacobiMethod method(&matrix);
    for (int sweep = 0; sweep < 20; ++sweep) {
        ASSERT_FALSE(method.iterate());
    }
    EXPECT_TRUE(std::isnan(method.getQuality()));
}

TEST(JacobiMethod, NaNBetweenTwoRowsGoesToTheDiagonal)
{
    double const n = support::nan;
    auto matrix = makeMatrix<SymmetricMatrixNXN>(2, {1, n, n, 1});
    JacobiMethod method(&matrix);
    EXPECT_FALSE(method.iterate());
    EXPECT_TRUE(method.iterate()); // the rotation has made the one element zero
    EXPECT_TRUE(std::isnan(method.getEigenvalue(0)));
}

TEST(JacobiMethod, EigenvectorIsAppended)
{
    auto matrix = makeMatrix<SymmetricMatrixNXN>(2, {1, 0, 0, 2});
    JacobiMethod method(&matrix);
    method.iterate();
    PValOrderedVector<double> list;
    list.append(42.0);
    method.getEigenvector(1, list);
    method.getEigenvector(1, list);
    ASSERT_EQ(5, list.size());
    double const expected[] = {42, 0, 1, 0, 1};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(list[i], expected[i]);
    }
}

TEST(JacobiMethod, StepsAfterTheEndAreAllowed)
{
    auto matrix = makeMatrix<SymmetricMatrixNXN>(3, {2, 1, 0, 1, 2, 1, 0, 1, 2});
    JacobiMethod method(&matrix);
    sweepsToTheEnd(method);
    double const value = method.getEigenvalue(1);
    EXPECT_TRUE(method.iterate());
    EXPECT_EQ(method.getEigenvalue(1), value);
}

TEST(JacobiMethod, DiagonalisesAMatrixOfTheUser)
{
    Eigen::MatrixXd const a = randomSymmetric(7, 5);
    SparseMatrix sparse(7);
    SymmetricMatrixNXN packed(7);
    copyTo(sparse, a);
    copyTo(packed, a);
    JacobiMethod onSparse(&sparse), onPacked(&packed);
    EXPECT_EQ(sweepsToTheEnd(onSparse), sweepsToTheEnd(onPacked));
    for (unsigned int i = 0; i < 7; ++i) {
        EXPECT_TRUE(SameBits(onPacked.getEigenvalue(i), onSparse.getEigenvalue(i)));
        EXPECT_EQ(eigenvector(onSparse, i), eigenvector(onPacked, i));
    }
}

TEST(JacobiMethod, CopySharesMatrixAndEigenvectors)
{
    auto matrix = makeMatrix<SymmetricMatrixNXN>(2, {1, 2, 2, 1});
    JacobiMethod method(&matrix);
    std::aligned_storage_t<sizeof(JacobiMethod), alignof(JacobiMethod)> place;
    auto *const copy = new (&place) JacobiMethod(method); // never destroyed
    method.iterate();
    EXPECT_EQ(3.0, copy->getEigenvalue(1));
    EXPECT_EQ(eigenvector(*copy, 0), eigenvector(method, 0));
    EXPECT_EQ(0.0, copy->getQuality()); // a number is its own
    *copy = method;
    EXPECT_EQ(2.0, copy->getQuality());
}

TEST(JacobiMethod, AgreesWithEigen)
{
    for (int n : {2, 3, 5, 8, 13, 30, 60}) {
        Eigen::MatrixXd const a = randomSymmetric(n, unsigned(n));
        SymmetricMatrixNXN matrix{unsigned(n)};
        copyTo(matrix, a);
        JacobiMethod method(&matrix);
        EXPECT_LT(sweepsToTheEnd(method), 12);

        std::vector<double> values;
        double sum = 0.0;
        for (unsigned int i = 0; i < unsigned(n); ++i) {
            double const lambda = method.getEigenvalue(i);
            std::vector<double> const components = eigenvector(method, i);
            auto const v = Eigen::Map<Eigen::VectorXd const>(components.data(), n);
            EXPECT_LT((a * v - lambda * v).norm(), 1e-8);
            EXPECT_NEAR(1.0, v.norm(), 1e-12);
            values.push_back(lambda);
            sum += lambda;
        }
        EXPECT_NEAR(sum, a.trace(), 1e-10 * n);
        std::sort(values.begin(), values.end());
        Eigen::VectorXd const expected =
            Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd>(a).eigenvalues();
        for (int i = 0; i < n; ++i) {
            EXPECT_NEAR(values[unsigned(i)], expected[i], 1e-10 * n);
        }
    }
}

RC_GTEST_PROP(JacobiMethod, KeepsTraceAndDeterminant, ())
{
    auto const entries = *rc::gen::container<std::vector<int>>(6, rc::gen::inRange(-1000, 1000));
    double const xx = entries[0], xy = entries[1], xz = entries[2];
    double const yy = entries[3], yz = entries[4], zz = entries[5];
    auto matrix = makeMatrix<SymmetricMatrixNXN>(3, {xx, xy, xz, xy, yy, yz, xz, yz, zz});
    JacobiMethod method(&matrix);
    sweepsToTheEnd(method);
    double const l0 = method.getEigenvalue(0);
    double const l1 = method.getEigenvalue(1);
    double const l2 = method.getEigenvalue(2);
    double const determinant =
        xx * (yy * zz - yz * yz) - xy * (xy * zz - yz * xz) + xz * (xy * yz - yy * xz);
    RC_ASSERT(std::fabs(l0 + l1 + l2 - (xx + yy + zz)) < 1e-9);
    RC_ASSERT(std::fabs(l0 * l1 * l2 - determinant) < 1e-3);
}

} // namespace
