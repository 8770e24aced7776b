#include "IterativeMatrices.h"
#include "support/Bits.h"

#include <OrvelMath/numerics/PowerMethod.h>
#include <OrvelMath/numerics/WielandtMethod.h>

#include <Eigen/Eigenvalues>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <vector>

namespace {

using namespace iterative;
using support::SameBits;

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
    for (double &component : r) {
        component = std::rand() / 32768.0;
    }
    double const length = std::sqrt(r[0] * r[0] + r[1] * r[1] + r[2] * r[2]);

    std::srand(17);
    PowerMethod method(&identity, 1e-9);
    EXPECT_EQ(0.0, method.getQuality());
    EXPECT_TRUE(method.iterate());
    for (int i = 0; i < 3; ++i) {
        EXPECT_NEAR(method.getEigenvector()[i], r[i] / length, 1e-15);
    }
    EXPECT_NEAR(1.0, method.getEigenvalue(), 1e-15);

    std::srand(17);
    PowerMethod second(&identity, 1e-9);
    second.iterate();
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(SameBits(method.getEigenvector()[i], second.getEigenvector()[i]));
    }
}

TEST(PowerMethod, StepHasTheBitsOfThePlainFormula)
{
    MatrixNXN matrix(3);
    fill(matrix, 3, {1.25, -0.5, 3, 0.75, 2, -1, 0.1, 0.2, -5});
    OpenPowerMethod method(&matrix, 1e-6);
    method.iterate();
    double v[3] = {0.3, -0.7, 0.2}, product[3];
    std::copy(v, v + 3, method.getEigenvector());
    bool const finished = method.iterateVector();

    double dot = 0.0, squared = 0.0, d = 0.0;
    for (unsigned int i = 0; i < 3; ++i) {
        product[i] = 0.0;
        for (unsigned int j = 0; j < 3; ++j) {
            product[i] += matrix.getElement(i, j) * v[j];
        }
    }
    for (int i = 0; i < 3; ++i) {
        dot += product[i] * v[i];
        squared += product[i] * product[i];
    }
    double const sign = dot < 0.0 ? -1.0 : 1.0;
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
    while (!method.iterate()) {
        ASSERT_LT(++steps, 200);
    }
    EXPECT_NEAR(3.0, method.getEigenvalue(), 1e-12);
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
    while (!method.iterate()) {
        ASSERT_LT(++steps, 200);
    }
    EXPECT_NEAR(-3.0, method.getEigenvalue(), 1e-12);
    double const before = method.getEigenvector()[0];
    EXPECT_TRUE(method.iterate());
    EXPECT_EQ(method.getEigenvector()[0], -before);
}

TEST(PowerMethod, OppositeEigenvaluesOfEqualMagnitudeNeverSettle)
{
    MatrixNXN matrix(2);
    fill(matrix, 2, {1, 0, 0, -1});
    PowerMethod method(&matrix, 1e-3);
    for (int step = 0; step < 1000; ++step) {
        ASSERT_FALSE(method.iterate());
    }
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
    EXPECT_EQ(0.0, method.getQuality());
}

TEST(PowerMethod, NullMatrixIsFinishedAtOnce)
{
    PowerMethod method(nullptr, 1e-9);
    EXPECT_TRUE(method.iterate());
    EXPECT_TRUE(method.iterate());
    EXPECT_EQ(nullptr, method.getEigenvector());
    EXPECT_EQ(0.0, method.getQuality());
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
    EXPECT_EQ(0.0, method.getEigenvalue());
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
    Eigen::Vector3d const a = Eigen::Vector3d(2, 1, 1) / std::sqrt(6.0);
    Eigen::Vector3d const b = Eigen::Vector3d(0, 1, -1) / std::sqrt(2.0);
    Eigen::Vector3d const c = a.cross(b);
    return 6 * a * a.transpose() + 3 * b * b.transpose() + c * c.transpose();
}

TEST(WielandtMethod, FindsTheSecondPair)
{
    MatrixNXN matrix(3);
    copyTo(matrix, knownMatrix());
    double known[3] = {2, 1, 1}; // any length will do
    WielandtMethod method(&matrix, 6.0, known, 1e-12);
    EXPECT_EQ(0.0, method.getQuality());
    int steps = 0;
    while (!method.iterate()) {
        ASSERT_LT(++steps, 500);
    }
    EXPECT_NEAR(3.0, method.getEigenvalue(), 1e-10);
    EXPECT_LT(std::sqrt(method.getQuality()), 1e-12);
    double const *const v = method.getEigenvector();
    double const sign = v[1] < 0.0 ? -1.0 : 1.0;
    EXPECT_NEAR(0.0, v[0], 1e-10);
    EXPECT_NEAR(sign * v[1], std::sqrt(0.5), 1e-10);
    EXPECT_NEAR(sign * v[2], -std::sqrt(0.5), 1e-10);
    EXPECT_EQ(method.getEigenvector(), v);
}

TEST(WielandtMethod, DeflatedMatrixHasTheBitsOfTheFormula)
{
    Eigen::MatrixXd const a = randomSymmetric(4, 3);
    MatrixNXN matrix(4);
    copyTo(matrix, a);
    double v[4] = {0.25, -2.0, 1.0, 0.5};
    double const lambda = 1.75;
    WielandtMethod method(&matrix, lambda, v, 1e-9);
    MatrixIF *const d = method.getDeflatedMatrix();
    unsigned int size;
    d->getSize(size);
    ASSERT_EQ(3u, size);
    int const kept[3] = {0, 2, 3}; // without the pivot, 1
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
            double const x = a(1, kept[j]) / (v[1] * lambda);
            EXPECT_TRUE(SameBits(a(kept[i], kept[j]) - v[kept[i]] * lambda * x,
                                 d->getElement(unsigned(i), unsigned(j))));
        }
    }
}

TEST(WielandtMethod, EigenvectorHasTheBitsOfTheFormula)
{
    Eigen::MatrixXd const a = randomSymmetric(3, 8);
    MatrixNXN matrix(3);
    copyTo(matrix, a);
    double v[3] = {0.25, -2.0, 1.0};
    double const lambda = 1.75;
    std::srand(4);
    WielandtMethod method(&matrix, lambda, v, 1e-9);
    for (int i = 0; i < 5; ++i) {
        method.iterate();
    }

    std::srand(4);
    PowerMethod inner(method.getDeflatedMatrix(), 1e-9);
    for (int i = 0; i < 5; ++i) {
        inner.iterate();
    }
    double const mu = inner.getEigenvalue();
    EXPECT_TRUE(SameBits(mu, method.getEigenvalue()));
    double w[3] = {inner.getEigenvector()[0], 0.0, inner.getEigenvector()[1]};
    double dot = 0.0, squared = 0.0;
    for (int i = 0; i < 3; ++i) {
        dot += a(1, i) / (v[1] * lambda) * w[i];
    }
    for (int i = 0; i < 3; ++i) {
        w[i] = (mu - lambda) * w[i] + lambda * dot * v[i];
        squared += w[i] * w[i];
    }
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(SameBits(w[i] / std::sqrt(squared), method.getEigenvector()[i]));
    }
    v[0] = v[1] = v[2] = 99.0; // read no more
    EXPECT_TRUE(SameBits(w[0] / std::sqrt(squared), method.getEigenvector()[0]));
}

TEST(WielandtMethod, FirstOfEqualComponentsIsThePivot)
{
    Eigen::MatrixXd const a = randomSymmetric(3, 21);
    MatrixNXN matrix(3);
    copyTo(matrix, a);
    double v[3] = {-1.0, 1.0, 1.0};
    WielandtMethod method(&matrix, 2.0, v, 1e-9);
    double const x = a(0, 2) / (v[0] * 2.0);
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
    EXPECT_EQ(2u, size);
    d->makeIdentity(); // its contents were arbitrary; what the caller puts there is used
    EXPECT_TRUE(method.iterate());
    EXPECT_NEAR(1.0, method.getEigenvalue(), 1e-15);
    EXPECT_EQ(false, std::isnan(method.getEigenvector()[2]));
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
    EXPECT_EQ(0u, size);
    EXPECT_TRUE(method.iterate());
    EXPECT_EQ(0.0, method.getEigenvalue());
    EXPECT_TRUE(std::isnan(method.getEigenvector()[0]));
}

TEST(WielandtMethod, MatrixWithoutRowsLeavesOneWithoutRows)
{
    MatrixNXN matrix(0);
    double v[1] = {support::preset};
    WielandtMethod method(&matrix, 1.0, v, 1e-9);
    unsigned int size = 9;
    method.getDeflatedMatrix()->getSize(size);
    EXPECT_EQ(0u, size);
    EXPECT_TRUE(method.iterate());
    EXPECT_NE(nullptr, method.getEigenvector());
    EXPECT_TRUE(SameBits(support::preset, v[0]));
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
        while (!method->iterate()) {
            ASSERT_LT(++steps, 100);
        }
        delete method;
    }
}

} // namespace
