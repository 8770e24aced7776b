#include "support/Bits.h"
#include "support/Golden.h"

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
        EXPECT_EQ(preset, c.first[0]);
        EXPECT_EQ(preset, c.second[2]);
        EXPECT_EQ(preset, c.values[1]);
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
    EXPECT_NEAR(2.0, c.values[2], 1e-6);
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
    EXPECT_EQ(1.0, c.values[0]);
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
    // The cases come from a second wording, beside them in the folder generators.
    for (auto const &k : support::goldenCases("general/getEigenVector3d.txt", "getEigenVector3d")) {
        ASSERT_EQ(7u, k.arguments.size()) << k.where;
        double const *const m = k.arguments.data();
        Candidate const c = run(symmetric(m[0], m[1], m[2], m[3], m[4], m[5]), int(m[6]));
        ASSERT_EQ(k.results[0] != 0.0, c.found) << k.where;
        if (!c.found) {
            continue;
        }
        ASSERT_EQ(10u, k.results.size()) << k.where;
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_TRUE(support::SameBits(k.results[1 + i], c.first[int(i)])) << k.where;
            EXPECT_TRUE(support::SameBits(k.results[4 + i], c.second[int(i)])) << k.where;
            EXPECT_TRUE(support::SameBits(k.results[7 + i], c.values[int(i)])) << k.where;
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
    EXPECT_EQ(0.0, score(Matrix(), qr));
    EigenVectorComputationC const result{Matrix()};
    EXPECT_TRUE(result.isValid());
    EXPECT_TRUE(result.getEigenVectors() == Matrix::identity());
    EXPECT_TRUE(result.getEigenValues() == Vector());
}

TEST(EigenVectorComputation, LostSignLosesTheSelection)
{
    Matrix const matrix = diagonal(-1, 2, 3);
    EXPECT_NEAR(2.0, score(matrix, run(matrix, 0)), 1e-5);
    EXPECT_NEAR(2.0, score(matrix, run(matrix, 1)), 1e-12);
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
        EXPECT_EQ(5.0, upperValues[1]); // the values stay
        EXPECT_EQ(5.0001, upperValues[2]);

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
