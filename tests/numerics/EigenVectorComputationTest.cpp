#include "support/Bits.h"

#include <OrvelMath/numerics/EigenVectorComputationC.h>

#include <Eigen/Eigenvalues>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <vector>

namespace {

using Matrix = matrixC3x3<double>;
using Vector = vectorC3d<double>;
using support::inf;
using support::nan;
using support::preset;

Matrix symmetric(double xx, double xy, double xz, double yy, double yz, double zz)
{
    return Matrix({xx, xy, xz}, {xy, yy, yz}, {xz, yz, zz});
}

Matrix diagonal(double x, double y, double z)
{
    return symmetric(x, 0, 0, y, 0, z);
}

struct Candidate
{
    bool found = false;
    Vector first{preset, preset, preset};
    Vector second{preset, preset, preset};
    Vector values{preset, preset, preset};
};

Candidate run(Matrix const &matrix, int algorithm)
{
    Candidate c;
    c.found = MatUtil::getEigenVector3d(matrix, c.first.data(), c.second.data(), c.values.data(),
                                        MatUtil::EigenVectorAlgoE(algorithm));
    return c;
}

double score(Matrix const &matrix, Candidate const &c)
{
    Vector const cross = c.first.cross(c.second);
    return EigenVectorComputationC::check(matrix, cross / cross.length(), c.values[1]) +
           EigenVectorComputationC::check(matrix, c.second, c.values[0]) +
           EigenVectorComputationC::check(matrix, c.first, c.values[2]);
}

double score(Matrix const &matrix, EigenVectorComputationC const &result)
{
    Matrix const v = result.getEigenVectors();
    Vector const l = result.getEigenValues();
    return EigenVectorComputationC::check(matrix, v.axis(1), l[1]) +
           EigenVectorComputationC::check(matrix, v.axis(0), l[0]) +
           EigenVectorComputationC::check(matrix, v.axis(2), l[2]);
}

void expectNear(Vector const &expected, Vector const &actual, double tolerance)
{
    for (int i = 0; i < 3; ++i) {
        EXPECT_NEAR(expected[i], actual[i], tolerance);
    }
}

/// The same line: equal but for the sign.
void expectSameLine(Vector const &expected, Vector const &actual, double tolerance)
{
    expectNear(expected, expected.dot(actual) < 0.0 ? -actual : actual, tolerance);
}

Matrix randomMatrix(std::mt19937 &random, bool positive)
{
    std::uniform_real_distribution<double> entry(-5.0, 5.0);
    Eigen::Matrix3d a;
    for (int i = 0; i < 9; ++i) {
        a(i / 3, i % 3) = entry(random);
    }
    Eigen::Matrix3d const s =
        positive ? Eigen::Matrix3d(a * a.transpose()) : Eigen::Matrix3d(a + a.transpose());
    return symmetric(s(0, 0), s(0, 1), s(0, 2), s(1, 1), s(1, 2), s(2, 2));
}

Vector eigenvaluesByPeer(Matrix const &m)
{
    Eigen::Matrix3d a;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
            a(i, j) = m(i, j);
        }
    }
    Eigen::Vector3d const l = Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d>(a).eigenvalues();
    return {l[0], l[1], l[2]};
}

TEST(EigenVectorComputation, AMatrixConvertsToItsDecomposition)
{
    auto const isValid = [](EigenVectorComputationC const &result) { return result.isValid(); };
    EXPECT_TRUE(isValid(matrixC3x3<double>::identity()));
}

TEST(GetEigenVector3d, UnknownAlgorithmIsRefused)
{
    for (int algorithm : {-1, 3, 4, 1000}) {
        Candidate const c = run(diagonal(1, 2, 3), algorithm);
        EXPECT_FALSE(c.found);
        EXPECT_EQ(c.first[0], preset);
        EXPECT_EQ(c.second[2], preset);
        EXPECT_EQ(c.values[1], preset);
    }
}

TEST(GetEigenVector3d, QROfADiagonalMatrix)
{
    Candidate const c = run(diagonal(1, 2, 3), MatUtil::EigenVectorQR);
    ASSERT_TRUE(c.found);
    expectNear({1, 2, 3}, c.values, 0.0);
    expectSameLine({0, 0, 1}, c.first, 0.0);
    expectSameLine({1, 0, 0}, c.second, 0.0);
}

TEST(GetEigenVector3d, PowerOfADiagonalMatrix)
{
    Candidate const c = run(diagonal(1, 2, 4), MatUtil::EigenVectorPower);
    ASSERT_TRUE(c.found);
    expectNear({1, 2, 4}, c.values, 1e-6);
    expectNear({0, 0, 1}, c.first, 1e-6);
    expectNear({1, 0, 0}, c.second, 1e-6);
}

TEST(GetEigenVector3d, AnalyticOfADiagonalMatrix)
{
    Candidate const c = run(diagonal(2, -1, 3), MatUtil::EigenVectorAnalytic);
    ASSERT_TRUE(c.found);
    expectNear({-1, 2, 3}, c.values, 1e-14);
    expectNear({0, 0, 1}, c.first, 1e-14);
    expectNear({0, 1, 0}, c.second, 1e-14);
}

TEST(GetEigenVector3d, PowerAndQRLoseTheSign)
{
    Matrix const matrix = diagonal(-4, 2, 1);
    for (int algorithm : {0, 1}) {
        Candidate const c = run(matrix, algorithm);
        ASSERT_TRUE(c.found);
        expectNear({1, 2, 4}, c.values, 1e-6);
        expectSameLine({1, 0, 0}, c.first, 1e-6);
    }
    expectNear({-4, 1, 2}, run(matrix, 2).values, 1e-14);
}

TEST(GetEigenVector3d, PowerFailsOnSingularMatrices)
{
    EXPECT_FALSE(run(Matrix(), 0).found);
    EXPECT_FALSE(run(diagonal(1, 0, 2), 0).found);
    EXPECT_FALSE(run(symmetric(1, 1, 1, 1, 1, 1), 0).found);
    EXPECT_FALSE(run(symmetric(0, 1, 0, 0, 0, 0), 0).found);
}

TEST(GetEigenVector3d, PowerFillsAnEmptyDiagonal)
{
    // eigenvalues -1, -1 and 2, of which the power method tells the magnitudes
    Candidate const c = run(symmetric(0, 1, 1, 0, 1, 0), 0);
    ASSERT_TRUE(c.found);
    EXPECT_NEAR(c.values[2], 2.0, 1e-6);
    expectNear(Vector(1, 1, 1) / std::sqrt(3.0), c.first, 1e-6);
}

TEST(GetEigenVector3d, PowerAddsARowForAVanishedPivot)
{
    // the second pivot vanishes after the first elimination, and row 2 stands in
    Candidate const c = run(symmetric(1, 1, 1, 1, 2, 5), 0);
    ASSERT_TRUE(c.found);
    Vector const l = eigenvaluesByPeer(symmetric(1, 1, 1, 1, 2, 5));
    EXPECT_NEAR(c.values[2], std::max(std::fabs(l[0]), std::fabs(l[2])), 1e-6);
}

TEST(GetEigenVector3d, PowerSnapsSmallElementsOfTheInverse)
{
    // 1/1e13 lies below the snap limit, so the inverse is singular and knows the x axis only
    Candidate const c = run(diagonal(1, 1e13, 1e13), 0);
    ASSERT_TRUE(c.found);
    expectNear({1, 0, 0}, c.second, 0.0);
    EXPECT_EQ(c.values[0], 1.0);
}

TEST(GetEigenVector3d, AnalyticTakesAllVectorsOfATripleEigenvalueAtOnce)
{
    for (double value : {5.0, 0.25, 1e3}) {
        Candidate const c = run(diagonal(value, value, value), MatUtil::EigenVectorAnalytic);
        ASSERT_TRUE(c.found);
        expectNear({value, value, value}, c.values, 0.0);
        expectNear({1, 0, 0}, c.first, 0.0); // null vectors come by descending column
        expectNear({0, 0, 1}, c.second, 0.0);
    }
}

TEST(GetEigenVector3d, AnalyticTakesBothVectorsOfADoubleEigenvalue)
{
    Matrix const matrix = symmetric(2, 1, 1, 2, 1, 2); // 1, 1 and 4
    Candidate const c = run(matrix, MatUtil::EigenVectorAnalytic);
    ASSERT_TRUE(c.found);
    expectNear({1, 1, 4}, c.values, 1e-7);
    EXPECT_LT(EigenVectorComputationC::check(matrix, c.second, 1.0), 1e-7);
    expectSameLine(Vector(1, 1, 1) / std::sqrt(3.0), c.first, 1e-7);
}

TEST(GetEigenVector3d, AnalyticFailsWhereTheShiftedMatrixIsNotSingularEnough)
{
    int failures = 0;
    std::mt19937 random(2);
    for (int i = 0; i < 200; ++i) {
        Matrix matrix = randomMatrix(random, false);
        for (int cell = 0; cell < 9; ++cell) {
            matrix[cell] *= 1e13; // rounding leaves pivots far above 0.0001
        }
        failures += run(matrix, MatUtil::EigenVectorAnalytic).found ? 0 : 1;
    }
    EXPECT_GT(failures, 100);
}

TEST(GetEigenVector3d, QRUsesUpItsPassesOnANearlyOppositePair)
{
    // The shift would be negative and is dropped: the pair 3 and -3.0001 stays coupled.
    double const c = std::cos(0.5), s = std::sin(0.5);
    double const p = 3.0, q = -3.0001;
    Matrix const matrix =
        symmetric(0.5, 0, 0, p * c * c + q * s * s, (p - q) * s * c, p * s * s + q * c * c);
    Candidate const qr = run(matrix, MatUtil::EigenVectorQR);
    EXPECT_TRUE(qr.found);
    EXPECT_GT(score(matrix, qr), 1.0);
    EigenVectorComputationC const best(matrix);
    expectNear({q, 0.5, p}, best.getEigenValues(), 1e-9);
}

TEST(GetEigenVector3d, PowerAndQRHaveTheBitsOfTheirFormulas)
{
    // From a second, plain implementation. Only sums, products, quotients and square roots are
    // taken, so the bits hold wherever these are rounded as IEEE 754 asks.
    struct Case
    {
        Matrix matrix;
        int algorithm;
        Candidate expected;
    };
    Case const cases[] = {
        {symmetric(4, 1, -2, 3, 0.5, 5),
         0,
         {true,
          {-0x1.41826f7426da1p-1, -0x1.132d46bcbdf7ep-4, 0x1.8cfaabc120ec8p-1},
          {0x1.46c7bd92df0b6p-1, -0x1.3aa5e3abde92cp-1, 0x1.dac9145b4db35p-2},
          {0x1.958e91e0efecep+0, 0x1.eb6f607ad79c6p+1, 0x1.a4e4ab4a58395p+2}}},
        {symmetric(4, 1, -2, 3, 0.5, 5),
         1,
         {true,
          {0x1.418271850533p-1, 0x1.132d63e845b3ep-4, -0x1.8cfaa9c3ec4fcp-1},
          {-0x1.46c7bc8820c07p-1, 0x1.3aa5e582aa8d6p-1, -0x1.dac91259a657ap-2},
          {0x1.958e91e0efe77p+0, 0x1.eb6f607ad793ap+1, 0x1.a4e4ab4a583c3p+2}}},
        {symmetric(2, -1, 0.25, 7, 3, 1.5),
         0,
         {true,
          {-0x1.039470604a937p-3, 0x1.d2dba746442b8p-1, 0x1.8fe192a105dc1p-2},
          {-0x1.3c0d05e79716ap-2, -0x1.a43e81e9f3d34p-2, 0x1.b75757791d3edp-1},
          {0x1.95065d4cccd66p-6, 0x1.0ceaacc1897c9p+1, 0x1.0d8fd7fe44076p+3}}},
        {symmetric(2, -1, 0.25, 7, 3, 1.5),
         1,
         {true,
          {-0x1.0394728599a54p-3, 0x1.d2dba747faff4p-1, 0x1.8fe1923fdf72ap-2},
          {-0x1.3c0d05e9b8dfap-2, -0x1.a43e81e9ed036p-2, 0x1.b7575778bcb81p-1},
          {0x1.95065d4cccc3dp-6, 0x1.0ceaacc1897c6p+1, 0x1.0d8fd7fe44077p+3}}},
        {symmetric(0, 1, 3, 0, 2, 0),
         0,
         {true,
          {0x1.2f8a3593a7c2bp-1, 0x1.db48011f09e25p-2, 0x1.50f2e24a83a19p-1},
          {-0x1.0cb1d37c7a9c1p-1, 0x1.af5eec4f801b2p-1, -0x1.f171f67c4b852p-4},
          {0x1.d28607574c3b2p-1, 0x1.99d83ebec1938p+1, 0x1.073ce04a4a50fp+2}}},
        {symmetric(0, 1, 3, 0, 2, 0),
         1,
         {true,
          {0x1.2f8a34c58cb04p-1, 0x1.db48006756e11p-2, 0x1.50f2e344f6996p-1},
          {0x1.0cb1d36891525p-1, -0x1.af5eec5856e83p-1, 0x1.f171f7420f424p-4},
          {0x1.d28607574c3b5p-1, 0x1.99d83ebec1932p+1, 0x1.073ce04a4a50cp+2}}},
        {symmetric(-6, 0.1, 0.2, 1, 0.3, 2),
         0,
         {true,
          {0x1.ffcd4723d605ap-1, -0x1.b12d19adc6563p-7, -0x1.9101f78892165p-6},
          {0x1.94d4676b18cb9p-8, 0x1.ed40df87d7ce8p-1, -0x1.127b59bcdd377p-2},
          {0x1.d59759dd32ea3p-1, 0x1.0b65f63874099p+1, 0x1.8065e657e061cp+2}}},
        {symmetric(-6, 0.1, 0.2, 1, 0.3, 2),
         1,
         {true,
          {0x1.ffcd4723bc333p-1, -0x1.b12d19ed829dfp-7, -0x1.9101f7fb2e06p-6},
          {-0x1.94d460383b95dp-8, -0x1.ed40def9b14c8p-1, 0x1.127b5dbb5317p-2},
          {0x1.d59759dd32e6bp-1, 0x1.0b65f63874096p+1, 0x1.8065e657e0614p+2}}},
    };
    for (Case const &k : cases) {
        Candidate const c = run(k.matrix, k.algorithm);
        ASSERT_TRUE(c.found);
        for (int i = 0; i < 3; ++i) {
            EXPECT_TRUE(support::SameBits(k.expected.first[i], c.first[i]));
            EXPECT_TRUE(support::SameBits(k.expected.second[i], c.second[i]));
            EXPECT_TRUE(support::SameBits(k.expected.values[i], c.values[i]));
        }
    }
}

TEST(GetEigenVector3d, NaNGivesNoGoodResult)
{
    Matrix const matrix = symmetric(nan, 1, 2, 3, 4, 5);
    for (int algorithm = 0; algorithm < 3; ++algorithm) {
        Candidate const c = run(matrix, algorithm);
        EXPECT_TRUE(!c.found || std::isnan(score(matrix, c)));
    }
}

TEST(EigenVectorComputation, ZeroMatrix)
{
    EXPECT_FALSE(run(Matrix(), 0).found);
    Candidate const qr = run(Matrix(), 1);
    EXPECT_TRUE(qr.found);
    EXPECT_EQ(score(Matrix(), qr), 0.0);
    EigenVectorComputationC const result{Matrix()};
    EXPECT_TRUE(result.isValid());
    EXPECT_TRUE(result.getEigenVectors() == Matrix::identity());
    EXPECT_TRUE(result.getEigenValues() == Vector());
}

TEST(EigenVectorComputation, LostSignLosesTheSelection)
{
    Matrix const matrix = diagonal(-1, 2, 3);
    EXPECT_NEAR(score(matrix, run(matrix, 0)), 2.0, 1e-5);
    EXPECT_NEAR(score(matrix, run(matrix, 1)), 2.0, 1e-12);
    EigenVectorComputationC const result(matrix);
    ASSERT_TRUE(result.isValid());
    expectNear({-1, 2, 3}, result.getEigenValues(), 1e-14);
    for (int i = 0; i < 3; ++i) {
        EXPECT_LT(EigenVectorComputationC::check(matrix, result.getEigenVectors().axis(i),
                                                 result.getEigenValues()[i]),
                  1e-13);
    }
}

TEST(EigenVectorComputation, SingularMatrixIsLeftToTheOthers)
{
    Matrix const matrix = symmetric(1, 1, 0, 1, 0, 3); // 0, 2, 3
    EXPECT_FALSE(run(matrix, 0).found);
    EigenVectorComputationC const result(matrix);
    ASSERT_TRUE(result.isValid());
    expectNear({0, 2, 3}, result.getEigenValues(), 1e-12);
    EXPECT_LT(score(matrix, result), 1e-7);
}

TEST(EigenVectorComputation, ColumnsAreSecondMiddleFirst)
{
    EigenVectorComputationC const result(diagonal(1, 2, 3));
    ASSERT_TRUE(result.isValid());
    expectNear({1, 2, 3}, result.getEigenValues(), 1e-12);
    expectSameLine({1, 0, 0}, result.getEigenVectors().axis(0), 1e-12);
    expectSameLine({0, 1, 0}, result.getEigenVectors().axis(1), 1e-12);
    expectSameLine({0, 0, 1}, result.getEigenVectors().axis(2), 1e-12);
}

TEST(EigenVectorComputation, NaNAndInfinityAreInvalid)
{
    for (double bad : {nan, inf, -inf}) {
        EigenVectorComputationC const result(symmetric(bad, 1, 2, 3, 4, 5));
        EXPECT_FALSE(result.isValid());
        EXPECT_TRUE(result.getEigenVectors() == Matrix::identity());
        EXPECT_TRUE(result.getEigenValues() == Vector());
    }
}

TEST(EigenVectorComputation, AssignmentSharesTheRecord)
{
    std::aligned_storage_t<sizeof(EigenVectorComputationC), alignof(EigenVectorComputationC)> place;
    auto *const handle = new (&place) EigenVectorComputationC(Matrix());
    handle->~EigenVectorComputationC(); // assignment would lose this record
    EigenVectorComputationC const source(diagonal(1, 2, 3));
    *handle = source;
    EXPECT_TRUE(handle->getEigenVectors() == source.getEigenVectors());
    EXPECT_TRUE(handle->getEigenValues() == source.getEigenValues());
    static_assert(sizeof(EigenVectorComputationC) == sizeof(void *), "a handle");
    static_assert(!std::is_copy_constructible<EigenVectorComputationC>::value, "no copies");
}

TEST(EigenVectorComputation, ScoreIsTheBestOfTheThree)
{
    std::mt19937 random(7);
    std::array<int, 3> wins{};
    for (int i = 0; i < 3000; ++i) {
        Matrix matrix = randomMatrix(random, i % 2 == 0);
        double const scale = i % 3 == 0 ? 1e12 : 1.0; // too large for the null space's limit
        for (int cell = 0; cell < 9; ++cell) {
            matrix[cell] *= scale;
        }
        double best = 1e8;
        int winner = -1;
        for (int algorithm = 0; algorithm < 3; ++algorithm) {
            Candidate const c = run(matrix, algorithm);
            if (c.found && best > score(matrix, c)) {
                best = score(matrix, c);
                winner = algorithm;
            }
        }
        EigenVectorComputationC const result(matrix);
        ASSERT_EQ(result.isValid(), winner >= 0);
        if (winner < 0) {
            continue;
        }
        ASSERT_EQ(score(matrix, result), best);
        ++wins[std::size_t(winner)];
    }
    EXPECT_GT(wins[1], 0); // each branch of the selection was taken
    EXPECT_GT(wins[2], 0);
}

TEST(EigenVectorComputation, AgreesWithEigen)
{
    std::mt19937 random(11);
    for (int i = 0; i < 2000; ++i) {
        Matrix const matrix = randomMatrix(random, i % 2 == 0);
        EigenVectorComputationC const result(matrix);
        std::array<double, 3> values;
        for (int k = 0; k < 3; ++k) {
            values[std::size_t(k)] = result.getEigenValues()[k];
        }
        std::sort(values.begin(), values.end());
        Vector const expected = eigenvaluesByPeer(matrix);
        for (int k = 0; k < 3; ++k) {
            ASSERT_NEAR(values[std::size_t(k)], expected[k], 1e-6);
        }
        ASSERT_NEAR(values[0] + values[1] + values[2], matrix[0] + matrix[4] + matrix[8], 1e-6);
    }
}

TEST(Check, IsTheResidual)
{
    Matrix const matrix = symmetric(2, 1, 0, 2, 0, 5);
    Vector const v(0.6, 0.8, 0);
    double const expected = std::sqrt((2 * 0.6 + 0.8 - 0.6 * 3) * (2 * 0.6 + 0.8 - 0.6 * 3) +
                                      (0.6 + 1.6 - 2.4) * (0.6 + 1.6 - 2.4));
    EXPECT_NEAR(EigenVectorComputationC::check(matrix, v, 3.0), expected, 1e-15);
}

TEST(Check, IsNearZeroForAnEigenpairOfEitherSign)
{
    Matrix const matrix = symmetric(2, 1, 0, 2, 0, 5);
    Vector const v = Vector(1, 1, 0) / std::sqrt(2.0);
    EXPECT_LT(EigenVectorComputationC::check(matrix, v, 3.0), 1e-15);
    EXPECT_EQ(EigenVectorComputationC::check(matrix, v, 3.0),
              EigenVectorComputationC::check(matrix, -v, 3.0));
}

TEST(Standardize, SortsAscendingWithTheColumns)
{
    Matrix vectors({0, 0, 1}, {1, 0, 0}, {0, 1, 0});
    Vector values(3, 1, 2);
    EigenVectorComputationC::standardize(vectors, values);
    expectNear({1, 2, 3}, values, 0.0);
    EXPECT_TRUE(vectors == Matrix::identity());
}

TEST(Standardize, MakesDominantComponentsPositive)
{
    Matrix vectors({-1, 0, 0}, {0, -1, 0}, {0, 0, -1});
    Vector values(1, 2, 3);
    EigenVectorComputationC::standardize(vectors, values);
    expectNear({1, 0, 0}, vectors.axis(0), 0.0);
    expectNear({0, 1, 0}, vectors.axis(1), 0.0); // column 2 x column 0
    expectNear({0, 0, 1}, vectors.axis(2), 0.0);
}

TEST(Standardize, FirstOfEqualComponentsIsDominant)
{
    double const h = std::sqrt(0.5);
    Matrix vectors({-h, h, 0}, {h, h, 0}, {0, 0, 1});
    Vector values(1, 2, 3);
    EigenVectorComputationC::standardize(vectors, values);
    EXPECT_GT(vectors(0, 0), 0.0);
    EXPECT_LT(vectors(1, 0), 0.0);
}

/// The axes x, y, z in the order told, as columns.
Matrix permuted(int i, int j, int k)
{
    Matrix vectors;
    vectors(i, 0) = vectors(j, 1) = vectors(k, 2) = 1.0;
    return vectors;
}

TEST(Standardize, TwoNearEqualEigenvaluesStandByTheirDominantIndex)
{
    // The pair is y and z, on either side of the third value.
    for (bool entered : {false, true}) {
        Matrix upper = entered ? permuted(0, 1, 2) : permuted(0, 2, 1);
        Vector upperValues(1.0, 5.0, 5.0001);
        EigenVectorComputationC::standardize(upper, upperValues);
        EXPECT_TRUE(upper == Matrix::identity());
        EXPECT_EQ(upperValues[1], 5.0); // the values stay
        EXPECT_EQ(upperValues[2], 5.0001);

        Matrix lower = entered ? permuted(1, 2, 0) : permuted(2, 1, 0);
        Vector lowerValues(5.0, 5.0001, 9.0);
        EigenVectorComputationC::standardize(lower, lowerValues);
        EXPECT_TRUE(lower == permuted(1, 2, 0));
    }
}

TEST(Standardize, ThreeNearEqualEigenvaluesAreExchangedInThreeStepsOnly)
{
    // 0 with 1, 1 with 2, 0 with 2: no full sort, so two of the six orders end half sorted
    int const orders[6][3] = {{0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {2, 0, 1}, {1, 2, 0}, {2, 1, 0}};
    for (auto const &order : orders) {
        Matrix vectors = permuted(order[0], order[1], order[2]);
        Vector values(5.0, 5.0001, 5.0002);
        EigenVectorComputationC::standardize(vectors, values);
        bool const sorted = order[2] != 0;
        Matrix expected = sorted ? Matrix::identity() : permuted(1, 0, 2);
        if (!sorted) {
            expected.setAxis(1, -expected.axis(1)); // right-handed
        }
        EXPECT_TRUE(vectors == expected) << order[0] << order[1] << order[2];
    }
}

TEST(Standardize, OnlyThePairThatIsNearEqualIsExchanged)
{
    // columns: z for 1, x for 2, y for 2.0001
    Matrix vectors({0, 0, 1}, {0, 1, 0}, {1, 0, 0});
    Vector values(1.0, 2.0, 2.0001);
    EigenVectorComputationC::standardize(vectors, values);
    expectNear({0, 0, 1}, vectors.axis(0), 0.0);
    expectNear({1, 0, 0}, vectors.axis(1), 0.0);
    expectNear({0, 1, 0}, vectors.axis(2), 0.0);

    Matrix apart({0, 0, 1}, {0, 1, 0}, {1, 0, 0});
    Vector apartValues(1.0, 2.0, 2.1);
    EigenVectorComputationC::standardize(apart, apartValues);
    expectNear({1, 0, 0}, apart.axis(2), 0.0);
}

TEST(Standardize, ZeroEigenvaluesSkipTheExchange)
{
    // 0/0 is not below 0.0001, so nothing is ordered
    Matrix vectors({0, 0, 1}, {0, 1, 0}, {1, 0, 0});
    Vector values(0, 0, 0);
    EigenVectorComputationC::standardize(vectors, values);
    expectNear({0, 0, 1}, vectors.axis(0), 0.0);
    expectNear({1, 0, 0}, vectors.axis(2), 0.0);
}

TEST(Standardize, ExchangedColumnsStayRightHanded)
{
    Matrix vectors({0, 1, 0}, {1, 0, 0}, {0, 0, 1});
    Vector values(2.0, 2.0, 7.0);
    EigenVectorComputationC::standardize(vectors, values);
    expectNear({1, 0, 0}, vectors.axis(0), 0.0);
    expectNear({0, 1, 0}, vectors.axis(1), 0.0);
    expectNear({0, 0, 1}, vectors.axis(2), 0.0);
}

RC_GTEST_PROP(Standardize, IsCanonical, ())
{
    auto const number = rc::gen::inRange(-1000, 1000);
    double const xx = *number, xy = *number, xz = *number, yy = *number, yz = *number, zz = *number;
    Matrix const matrix = symmetric(xx, xy, xz, yy, yz, zz);
    EigenVectorComputationC const result(matrix);
    RC_PRE(result.isValid());
    Matrix vectors = result.getEigenVectors();
    Vector values = result.getEigenValues();
    EigenVectorComputationC::standardize(vectors, values);
    RC_ASSERT(values[0] <= values[1] && values[1] <= values[2]);
    double const determinant = vectors.axis(0).cross(vectors.axis(1)).dot(vectors.axis(2));
    RC_ASSERT(determinant > -1e-9);
    for (int column : {0, 2}) {
        Vector const v = vectors.axis(column);
        double dominant = 0.0;
        for (int i = 0; i < 3; ++i) {
            if (std::fabs(v[i]) > std::fabs(dominant)) {
                dominant = v[i];
            }
        }
        RC_ASSERT(dominant >= 0.0);
    }
}

} // namespace
