#include "support/Bits.h"

#include <OrvelMath/numerics/JacobiMethod.h>
#include <OrvelMath/numerics/MatrixNXN.h>
#include <OrvelMath/numerics/PowerMethod.h>
#include <OrvelMath/numerics/WielandtMethod.h>

#include <Eigen/Eigenvalues>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <initializer_list>
#include <map>
#include <random>
#include <utility>
#include <vector>

namespace {

using support::SameBits;

template <typename Matrix>
Matrix makeMatrix(unsigned int n, std::initializer_list<double> rows)
{
    Matrix matrix(n);
    unsigned int cell = 0;
    for (double value : rows) {
        matrix.setElement(cell / n, cell % n, value);
        ++cell;
    }
    return matrix;
}

/// Fills in place, because a MatrixNXN must not be copied and destroyed twice.
void fill(MatrixIF &matrix, unsigned int n, std::initializer_list<double> rows)
{
    unsigned int cell = 0;
    for (double value : rows) {
        matrix.setElement(cell / n, cell % n, value);
        ++cell;
    }
}

std::vector<double> eigenvector(JacobiMethod &method, unsigned int i)
{
    PValOrderedVector<double> list;
    method.getEigenvector(i, list);
    return std::vector<double>(list.begin(), list.end());
}

int sweepsToTheEnd(JacobiMethod &method)
{
    int sweeps = 1;
    while (!method.iterate())
        ++sweeps;
    return sweeps;
}

Eigen::MatrixXd randomSymmetric(int n, unsigned int seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> values(-10.0, 10.0);
    Eigen::MatrixXd a(n, n);
    for (int i = 0; i < n; ++i) {
        for (int j = i; j < n; ++j)
            a(i, j) = a(j, i) = values(random);
    }
    return a;
}

void copyTo(MatrixIF &matrix, const Eigen::MatrixXd &a)
{
    for (int i = 0; i < a.rows(); ++i) {
        for (int j = 0; j < a.cols(); ++j)
            matrix.setElement(unsigned(i), unsigned(j), a(i, j));
    }
}

/// A symmetric matrix as a user might write one: a map that holds what is not zero.
class SparseMatrix : public SymmetricMatrixIF
{
public:
    explicit SparseMatrix(unsigned int n)
        : m_size(n)
    {
    }
    double getElement(unsigned int row, unsigned int column) override
    {
        const auto found = m_elements.find(std::minmax(row, column));
        return found == m_elements.end() ? 0.0 : found->second;
    }
    void setElement(unsigned int row, unsigned int column, double value) override
    {
        if (checkBounds(row) && checkBounds(column))
            m_elements[std::minmax(row, column)] = value;
    }
    void getSize(unsigned int &size) override { size = m_size; }
    void makeIdentity() override { MatrixIF::makeIdentity(); }
    void makeNull() override { m_elements.clear(); }

private:
    unsigned int m_size;
    std::map<std::pair<unsigned int, unsigned int>, double> m_elements;
};

TEST(JacobiMethod, DiagonalMatrixIsFinishedAtOnce)
{
    auto matrix = makeMatrix<SymmetricMatrixNXN>(3, {3, 0, 0, 0, -1, 0, 0, 0, 2});
    JacobiMethod method(&matrix);
    EXPECT_EQ(method.getQuality(), 0.0);
    EXPECT_TRUE(method.iterate());
    EXPECT_EQ(method.getQuality(), 0.0);
    EXPECT_EQ(method.getEigenvalue(0), 3.0);
    EXPECT_EQ(method.getEigenvalue(1), -1.0);
    EXPECT_EQ(method.getEigenvalue(2), 2.0);
    EXPECT_EQ(eigenvector(method, 0), (std::vector<double>{1, 0, 0}));
    EXPECT_EQ(eigenvector(method, 1), (std::vector<double>{0, 1, 0}));
    EXPECT_EQ(eigenvector(method, 2), (std::vector<double>{0, 0, 1}));
}

TEST(JacobiMethod, SingleElementIsFinishedAtOnce)
{
    auto matrix = makeMatrix<SymmetricMatrixNXN>(1, {7});
    JacobiMethod method(&matrix);
    EXPECT_TRUE(method.iterate());
    EXPECT_EQ(method.getEigenvalue(0), 7.0);
    EXPECT_EQ(eigenvector(method, 0), (std::vector<double>{1}));
}

TEST(JacobiMethod, SumOfExactlyTheLimitIsConverged)
{
    auto atLimit = makeMatrix<SymmetricMatrixNXN>(2, {1, 1e-8, 1e-8, 2});
    JacobiMethod finished(&atLimit);
    EXPECT_TRUE(finished.iterate());
    EXPECT_EQ(finished.getQuality(), 1e-8);
    EXPECT_EQ(atLimit.getElement(0, 1), 1e-8);

    const double above = std::nextafter(1e-8, 1.0);
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
    EXPECT_EQ(method.getQuality(), 2.0);
    // theta = 0 gives t = 1
    EXPECT_EQ(method.getEigenvalue(0), -1.0);
    EXPECT_EQ(method.getEigenvalue(1), 3.0);
    EXPECT_EQ(matrix.getElement(0, 1), 0.0);
    const double c = 1.0 / std::sqrt(2.0);
    const double tau = c / (1.0 + c);
    EXPECT_TRUE(SameBits(1.0 - c * (1.0 * tau + 0.0), eigenvector(method, 0)[0]));
    EXPECT_TRUE(SameBits(0.0 - c * (0.0 * tau + 1.0), eigenvector(method, 0)[1]));
    EXPECT_TRUE(SameBits(0.0 + c * (1.0 - 0.0 * tau), eigenvector(method, 1)[0]));
    EXPECT_TRUE(method.iterate());
    EXPECT_EQ(method.getQuality(), 0.0);
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
    EXPECT_EQ(matrix.getElement(0, 1), 0.0);
    EXPECT_EQ(matrix.getElement(2, 3), 1e-6);
    EXPECT_FALSE(method.iterate()); // now it is all there is
    EXPECT_EQ(method.getQuality(), 1e-6);
    EXPECT_EQ(matrix.getElement(2, 3), 0.0);
}

/// Ignores every write and notes which off-diagonal elements were to become zero.
class StubbornMatrix : public SparseMatrix
{
public:
    using SparseMatrix::SparseMatrix;

    void setElement(unsigned int row, unsigned int column, double value) override
    {
        if (!frozen)
            SparseMatrix::setElement(row, column, value);
        else if (row < column && value == 0.0)
            cleared.emplace_back(row, column);
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
    const auto large = std::make_pair(0u, 1u), small = std::make_pair(2u, 3u);

    JacobiMethod method(&matrix);
    for (int sweep = 1; sweep <= 6; ++sweep) {
        matrix.cleared.clear();
        EXPECT_FALSE(method.iterate());
        EXPECT_EQ(method.getQuality(), 5.0625);
        Pairs ones;
        for (const auto &pair : matrix.cleared) {
            if (pair == large || pair == small)
                ones.push_back(pair);
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
    const double app = 1.5, aqq = -0.7, apq = 0.3, g = 2.25, h = -4.1;
    auto matrix =
        makeMatrix<SymmetricMatrixNXN>(3, {app, g, apq, g, 9, h, apq, h, aqq}); // p = 0, q = 2
    OpenJacobiMethod method(&matrix);
    method.rotate(0, 2);
    const double theta = (aqq - app) / (apq + apq); // negative
    const double t = -1.0 / (std::fabs(theta) + std::sqrt(theta * theta + 1.0));
    const double c = 1.0 / std::sqrt(t * t + 1.0);
    const double s = c * t;
    const double tau = s / (1.0 + c);
    EXPECT_TRUE(SameBits(0.0, matrix.getElement(0, 2)));
    EXPECT_TRUE(SameBits(app - t * apq, matrix.getElement(0, 0)));
    EXPECT_TRUE(SameBits(aqq + t * apq, matrix.getElement(2, 2)));
    EXPECT_TRUE(SameBits(9.0, matrix.getElement(1, 1)));
    EXPECT_TRUE(SameBits(g - s * (g * tau + h), matrix.getElement(0, 1)));
    EXPECT_TRUE(SameBits(h + s * (g - h * tau), matrix.getElement(2, 1)));
    const std::vector<double> p = eigenvector(method, 0), q = eigenvector(method, 2);
    EXPECT_TRUE(SameBits(1.0 - s * (1.0 * tau + 0.0), p[0]));
    EXPECT_TRUE(SameBits(0.0 - s * (0.0 * tau + 1.0), p[2]));
    EXPECT_TRUE(SameBits(0.0 + s * (1.0 - 0.0 * tau), q[0]));
    EXPECT_TRUE(SameBits(1.0 + s * (0.0 - 1.0 * tau), q[2]));
    EXPECT_EQ(method.getQuality(), 0.0); // no sweep
}

TEST(JacobiMethod, NaNNeverConverges)
{
    const double n = support::nan;
    auto matrix = makeMatrix<SymmetricMatrixNXN>(3, {1, n, 0, n, 1, 0, 0, 0, 1});
    JacobiMethod method(&matrix);
    for (int sweep = 0; sweep < 20; ++sweep)
        ASSERT_FALSE(method.iterate());
    EXPECT_TRUE(std::isnan(method.getQuality()));
}

TEST(JacobiMethod, NaNBetweenTwoRowsGoesToTheDiagonal)
{
    const double n = support::nan;
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
    ASSERT_EQ(list.size(), 5);
    const double expected[] = {42, 0, 1, 0, 1};
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(list[i], expected[i]);
}

TEST(JacobiMethod, StepsAfterTheEndAreAllowed)
{
    auto matrix = makeMatrix<SymmetricMatrixNXN>(3, {2, 1, 0, 1, 2, 1, 0, 1, 2});
    JacobiMethod method(&matrix);
    sweepsToTheEnd(method);
    const double value = method.getEigenvalue(1);
    EXPECT_TRUE(method.iterate());
    EXPECT_EQ(method.getEigenvalue(1), value);
}

TEST(JacobiMethod, DiagonalisesAMatrixOfTheUser)
{
    const Eigen::MatrixXd a = randomSymmetric(7, 5);
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
    EXPECT_EQ(copy->getEigenvalue(1), 3.0);
    EXPECT_EQ(eigenvector(*copy, 0), eigenvector(method, 0));
    EXPECT_EQ(copy->getQuality(), 0.0); // a number is its own
    *copy = method;
    EXPECT_EQ(copy->getQuality(), 2.0);
}

TEST(JacobiMethod, AgreesWithEigen)
{
    for (int n : {2, 3, 5, 8, 13, 30, 60}) {
        const Eigen::MatrixXd a = randomSymmetric(n, unsigned(n));
        SymmetricMatrixNXN matrix{unsigned(n)};
        copyTo(matrix, a);
        JacobiMethod method(&matrix);
        EXPECT_LT(sweepsToTheEnd(method), 12);

        std::vector<double> values;
        double sum = 0.0;
        for (unsigned int i = 0; i < unsigned(n); ++i) {
            const double lambda = method.getEigenvalue(i);
            const std::vector<double> components = eigenvector(method, i);
            const auto v = Eigen::Map<const Eigen::VectorXd>(components.data(), n);
            EXPECT_LT((a * v - lambda * v).norm(), 1e-8);
            EXPECT_NEAR(v.norm(), 1.0, 1e-12);
            values.push_back(lambda);
            sum += lambda;
        }
        EXPECT_NEAR(sum, a.trace(), 1e-10 * n);
        std::sort(values.begin(), values.end());
        const Eigen::VectorXd expected =
            Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd>(a).eigenvalues();
        for (int i = 0; i < n; ++i)
            EXPECT_NEAR(values[unsigned(i)], expected[i], 1e-10 * n);
    }
}

RC_GTEST_PROP(JacobiMethod, KeepsTraceAndDeterminant, ())
{
    const auto entries = *rc::gen::container<std::vector<int>>(6, rc::gen::inRange(-1000, 1000));
    const double xx = entries[0], xy = entries[1], xz = entries[2];
    const double yy = entries[3], yz = entries[4], zz = entries[5];
    auto matrix = makeMatrix<SymmetricMatrixNXN>(3, {xx, xy, xz, xy, yy, yz, xz, yz, zz});
    JacobiMethod method(&matrix);
    sweepsToTheEnd(method);
    const double l0 = method.getEigenvalue(0);
    const double l1 = method.getEigenvalue(1);
    const double l2 = method.getEigenvalue(2);
    const double determinant =
        xx * (yy * zz - yz * yz) - xy * (xy * zz - yz * xz) + xz * (xy * yz - yy * xz);
    RC_ASSERT(std::fabs(l0 + l1 + l2 - (xx + yy + zz)) < 1e-9);
    RC_ASSERT(std::fabs(l0 * l1 * l2 - determinant) < 1e-3);
}

/// Opens the step without start vector and count.
struct OpenPowerMethod : PowerMethod
{
    using PowerMethod::iterateVector;
    using PowerMethod::PowerMethod;
};

TEST(PowerMethod, StartVectorComesFromTheGeneratorOfTheProcess)
{
    MatrixNXN identity(3);
    identity.makeIdentity();
    std::srand(17);
    double r[3];
    for (double &component : r)
        component = std::rand() / 32768.0;
    const double length = std::sqrt(r[0] * r[0] + r[1] * r[1] + r[2] * r[2]);

    std::srand(17);
    PowerMethod method(&identity, 1e-9);
    EXPECT_EQ(method.getQuality(), 0.0);
    EXPECT_TRUE(method.iterate());
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(method.getEigenvector()[i], r[i] / length, 1e-15);
    EXPECT_NEAR(method.getEigenvalue(), 1.0, 1e-15);

    std::srand(17);
    PowerMethod second(&identity, 1e-9);
    second.iterate();
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(SameBits(method.getEigenvector()[i], second.getEigenvector()[i]));
}

TEST(PowerMethod, StepHasTheBitsOfThePlainFormula)
{
    MatrixNXN matrix(3);
    fill(matrix, 3, {1.25, -0.5, 3, 0.75, 2, -1, 0.1, 0.2, -5});
    OpenPowerMethod method(&matrix, 1e-6);
    method.iterate();
    double v[3] = {0.3, -0.7, 0.2}, product[3];
    std::copy(v, v + 3, method.getEigenvector());
    const bool finished = method.iterateVector();

    double dot = 0.0, squared = 0.0, d = 0.0;
    for (unsigned int i = 0; i < 3; ++i) {
        product[i] = 0.0;
        for (unsigned int j = 0; j < 3; ++j)
            product[i] += matrix.getElement(i, j) * v[j];
    }
    for (int i = 0; i < 3; ++i) {
        dot += product[i] * v[i];
        squared += product[i] * product[i];
    }
    const double sign = dot < 0.0 ? -1.0 : 1.0;
    for (int i = 0; i < 3; ++i) {
        product[i] /= std::sqrt(squared);
        d += (v[i] - sign * product[i]) * (v[i] - sign * product[i]);
        EXPECT_TRUE(SameBits(product[i], method.getEigenvector()[i]));
    }
    EXPECT_TRUE(SameBits(dot, method.getEigenvalue()));
    EXPECT_TRUE(SameBits(d, method.getQuality()));
    EXPECT_EQ(finished, 1e-6 > std::sqrt(d));
}

TEST(PowerMethod, FindsTheDominantPair)
{
    MatrixNXN matrix(2);
    fill(matrix, 2, {2, 1, 1, 2});
    PowerMethod method(&matrix, 1e-10);
    int steps = 0;
    while (!method.iterate())
        ASSERT_LT(++steps, 200);
    EXPECT_NEAR(method.getEigenvalue(), 3.0, 1e-12);
    EXPECT_NEAR(method.getEigenvector()[0], std::sqrt(0.5), 1e-9);
    EXPECT_NEAR(method.getEigenvector()[1], std::sqrt(0.5), 1e-9);
    EXPECT_LT(std::sqrt(method.getQuality()), 1e-10); // the square of what was tested
}

TEST(PowerMethod, NegativeEigenvalueConvergesThoughTheVectorTurnsRound)
{
    MatrixNXN matrix(2);
    fill(matrix, 2, {-3, 0, 0, 1});
    PowerMethod method(&matrix, 1e-12);
    int steps = 0;
    while (!method.iterate())
        ASSERT_LT(++steps, 200);
    EXPECT_NEAR(method.getEigenvalue(), -3.0, 1e-12);
    const double before = method.getEigenvector()[0];
    EXPECT_TRUE(method.iterate());
    EXPECT_EQ(method.getEigenvector()[0], -before);
}

TEST(PowerMethod, OppositeEigenvaluesOfEqualMagnitudeNeverSettle)
{
    MatrixNXN matrix(2);
    fill(matrix, 2, {1, 0, 0, -1});
    PowerMethod method(&matrix, 1e-3);
    for (int step = 0; step < 1000; ++step)
        ASSERT_FALSE(method.iterate());
}

TEST(PowerMethod, AccuracyIsStrict)
{
    MatrixNXN identity(2);
    identity.makeIdentity();
    OpenPowerMethod method(&identity, 0.0);
    method.iterate();
    method.getEigenvector()[0] = 1.0;
    method.getEigenvector()[1] = 0.0;
    EXPECT_FALSE(method.iterateVector()); // 0.0 is not above 0.0
    EXPECT_EQ(method.getQuality(), 0.0);
}

TEST(PowerMethod, NullMatrixIsFinishedAtOnce)
{
    PowerMethod method(nullptr, 1e-9);
    EXPECT_TRUE(method.iterate());
    EXPECT_TRUE(method.iterate());
    EXPECT_EQ(method.getEigenvector(), nullptr);
    EXPECT_EQ(method.getQuality(), 0.0);
}

TEST(PowerMethod, NaNRunsThrough)
{
    MatrixNXN matrix(2);
    fill(matrix, 2, {support::nan, 0, 0, 1});
    PowerMethod method(&matrix, 1e300);
    EXPECT_FALSE(method.iterate());
    EXPECT_TRUE(std::isnan(method.getEigenvalue()));
}

TEST(PowerMethod, ZeroMatrixGivesNaN)
{
    MatrixNXN matrix(2);
    matrix.makeNull();
    PowerMethod method(&matrix, 1.0);
    EXPECT_FALSE(method.iterate());
    EXPECT_EQ(method.getEigenvalue(), 0.0);
    EXPECT_TRUE(std::isnan(method.getEigenvector()[0]));
}

TEST(PowerMethod, CopySharesTheVector)
{
    MatrixNXN identity(2);
    identity.makeIdentity();
    PowerMethod method(&identity, 1e-9);
    method.iterate();
    std::aligned_storage_t<sizeof(PowerMethod), alignof(PowerMethod)> place;
    auto *const copy = new (&place) PowerMethod(method); // never destroyed
    EXPECT_EQ(copy->getEigenvector(), method.getEigenvector());
    EXPECT_EQ(copy->getEigenvalue(), method.getEigenvalue());
}

/// Symmetric, with the eigenpairs 6, (2, 1, 1)/sqrt(6), and 3 and 1 perpendicular to it.
Eigen::Matrix3d knownMatrix()
{
    const Eigen::Vector3d a = Eigen::Vector3d(2, 1, 1) / std::sqrt(6.0);
    const Eigen::Vector3d b = Eigen::Vector3d(0, 1, -1) / std::sqrt(2.0);
    const Eigen::Vector3d c = a.cross(b);
    return 6 * a * a.transpose() + 3 * b * b.transpose() + c * c.transpose();
}

TEST(WielandtMethod, FindsTheSecondPair)
{
    MatrixNXN matrix(3);
    copyTo(matrix, knownMatrix());
    double known[3] = {2, 1, 1}; // any length will do
    WielandtMethod method(&matrix, 6.0, known, 1e-12);
    EXPECT_EQ(method.getQuality(), 0.0);
    int steps = 0;
    while (!method.iterate())
        ASSERT_LT(++steps, 500);
    EXPECT_NEAR(method.getEigenvalue(), 3.0, 1e-10);
    EXPECT_LT(std::sqrt(method.getQuality()), 1e-12);
    const double *const v = method.getEigenvector();
    const double sign = v[1] < 0.0 ? -1.0 : 1.0;
    EXPECT_NEAR(v[0], 0.0, 1e-10);
    EXPECT_NEAR(sign * v[1], std::sqrt(0.5), 1e-10);
    EXPECT_NEAR(sign * v[2], -std::sqrt(0.5), 1e-10);
    EXPECT_EQ(method.getEigenvector(), v);
}

TEST(WielandtMethod, DeflatedMatrixHasTheBitsOfTheFormula)
{
    const Eigen::MatrixXd a = randomSymmetric(4, 3);
    MatrixNXN matrix(4);
    copyTo(matrix, a);
    double v[4] = {0.25, -2.0, 1.0, 0.5};
    const double lambda = 1.75;
    WielandtMethod method(&matrix, lambda, v, 1e-9);
    MatrixIF *const d = method.getDeflatedMatrix();
    unsigned int size;
    d->getSize(size);
    ASSERT_EQ(size, 3u);
    const int kept[3] = {0, 2, 3}; // without the pivot, 1
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
            const double x = a(1, kept[j]) / (v[1] * lambda);
            EXPECT_TRUE(SameBits(a(kept[i], kept[j]) - v[kept[i]] * lambda * x,
                                 d->getElement(unsigned(i), unsigned(j))));
        }
    }
}

TEST(WielandtMethod, EigenvectorHasTheBitsOfTheFormula)
{
    const Eigen::MatrixXd a = randomSymmetric(3, 8);
    MatrixNXN matrix(3);
    copyTo(matrix, a);
    double v[3] = {0.25, -2.0, 1.0};
    const double lambda = 1.75;
    std::srand(4);
    WielandtMethod method(&matrix, lambda, v, 1e-9);
    for (int i = 0; i < 5; ++i)
        method.iterate();

    std::srand(4);
    PowerMethod inner(method.getDeflatedMatrix(), 1e-9);
    for (int i = 0; i < 5; ++i)
        inner.iterate();
    const double mu = inner.getEigenvalue();
    EXPECT_TRUE(SameBits(mu, method.getEigenvalue()));
    double w[3] = {inner.getEigenvector()[0], 0.0, inner.getEigenvector()[1]};
    double dot = 0.0, squared = 0.0;
    for (int i = 0; i < 3; ++i)
        dot += a(1, i) / (v[1] * lambda) * w[i];
    for (int i = 0; i < 3; ++i) {
        w[i] = (mu - lambda) * w[i] + lambda * dot * v[i];
        squared += w[i] * w[i];
    }
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(SameBits(w[i] / std::sqrt(squared), method.getEigenvector()[i]));
    v[0] = v[1] = v[2] = 99.0; // read no more
    EXPECT_TRUE(SameBits(w[0] / std::sqrt(squared), method.getEigenvector()[0]));
}

TEST(WielandtMethod, FirstOfEqualComponentsIsThePivot)
{
    const Eigen::MatrixXd a = randomSymmetric(3, 21);
    MatrixNXN matrix(3);
    copyTo(matrix, a);
    double v[3] = {-1.0, 1.0, 1.0};
    WielandtMethod method(&matrix, 2.0, v, 1e-9);
    const double x = a(0, 2) / (v[0] * 2.0);
    EXPECT_TRUE(SameBits(a(1, 2) - v[1] * 2.0 * x, method.getDeflatedMatrix()->getElement(0, 1)));
}

TEST(WielandtMethod, PivotInTheLastPlaceLeavesTheDeflatedMatrixAlone)
{
    MatrixNXN matrix(3);
    copyTo(matrix, knownMatrix());
    double v[3] = {1, 1, 2};
    WielandtMethod method(&matrix, 6.0, v, 1e-9);
    MatrixIF *const d = method.getDeflatedMatrix();
    unsigned int size;
    d->getSize(size);
    EXPECT_EQ(size, 2u);
    d->makeIdentity(); // its contents were arbitrary; what the caller puts there is used
    EXPECT_TRUE(method.iterate());
    EXPECT_NEAR(method.getEigenvalue(), 1.0, 1e-15);
    EXPECT_EQ(std::isnan(method.getEigenvector()[2]), false);
}

TEST(WielandtMethod, ZeroEigenvalueDividesByZero)
{
    MatrixNXN matrix(2);
    fill(matrix, 2, {1, 2, 2, 4});
    double v[2] = {2, -1};
    WielandtMethod method(&matrix, 0.0, v, 1e-9);
    EXPECT_TRUE(std::isnan(method.getDeflatedMatrix()->getElement(0, 0)));
    EXPECT_FALSE(method.iterate());
}

TEST(WielandtMethod, SingleElementLeavesAMatrixOfSizeZero)
{
    MatrixNXN matrix(1);
    matrix.setElement(0, 0, 4.0);
    double v[1] = {1.0};
    WielandtMethod method(&matrix, 4.0, v, 1e-9);
    unsigned int size = 9;
    method.getDeflatedMatrix()->getSize(size);
    EXPECT_EQ(size, 0u);
    EXPECT_TRUE(method.iterate());
    EXPECT_EQ(method.getEigenvalue(), 0.0);
    EXPECT_TRUE(std::isnan(method.getEigenvector()[0]));
}

TEST(WielandtMethod, CopySharesItsParts)
{
    MatrixNXN matrix(3);
    copyTo(matrix, knownMatrix());
    double known[3] = {2, 1, 1};
    WielandtMethod method(&matrix, 6.0, known, 1e-12);
    std::aligned_storage_t<sizeof(WielandtMethod), alignof(WielandtMethod)> place;
    auto *const copy = new (&place) WielandtMethod(method); // never destroyed
    EXPECT_EQ(copy->getDeflatedMatrix(), method.getDeflatedMatrix());
    method.iterate();
    EXPECT_EQ(copy->getEigenvalue(), method.getEigenvalue());
}

TEST(AlgorithmIF, DrivesAnyMethod)
{
    auto symmetric = makeMatrix<SymmetricMatrixNXN>(2, {1, 2, 2, 1});
    MatrixNXN matrix(2);
    fill(matrix, 2, {5, 0, 0, 1});
    double known[2] = {1, 0};
    AlgorithmIF *const methods[] = {new JacobiMethod(&symmetric), new PowerMethod(&matrix, 1e-6),
                                    new WielandtMethod(&matrix, 5.0, known, 1e-6)};
    for (AlgorithmIF *method : methods) {
        int steps = 0;
        while (!method->iterate())
            ASSERT_LT(++steps, 100);
        delete method;
    }
}

} // namespace
