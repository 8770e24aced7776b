#include "support.h"

#include <OrvelExact/measures/matrices.h>

#include <support/Bits.h>

#include <algorithm>
#include <array>

namespace {

using namespace orvelExact;
using measures::cases;
using measures::Random;
using measures::ulpOf;
using measures::Within;

/// A thousand digits of room: no product of four doubles of the samples is rounded.
using Real = boost::multiprecision::number<boost::multiprecision::cpp_bin_float<300>,
                                           boost::multiprecision::et_off>;
using Matrix3 = matrixC3x3<double>;
using Matrix4 = matrixC4x4<double>;

template <int n>
using Rows = std::array<std::array<Real, n>, n>;

template <int n, typename Matrix>
Rows<n> rowsOf(Matrix const &m)
{
    Rows<n> rows;
    for (int i = 0; i < n; ++i) {
        for (int k = 0; k < n; ++k) {
            rows[static_cast<std::size_t>(i)][static_cast<std::size_t>(k)] = Real(m(i, k));
        }
    }
    return rows;
}

/// By all permutations, so that nothing is divided.
template <std::size_t n>
Real determinantTruth(std::array<std::array<Real, n>, n> const &m)
{
    std::array<std::size_t, n> order;
    for (std::size_t i = 0; i < n; ++i) {
        order[i] = i;
    }
    Real sum = 0;
    do {
        Real product = 1;
        for (std::size_t i = 0; i < n; ++i) {
            product *= m[i][order[i]];
            for (std::size_t k = 0; k < i; ++k) {
                product = order[k] > order[i] ? Real(-product) : product;
            }
        }
        sum += product;
    } while (std::next_permutation(order.begin(), order.end()));
    return sum;
}

/// Random, lattice, nearly singular and unevenly scaled matrices.
template <int n, typename Matrix>
Matrix anyMatrix(Random &any)
{
    Matrix m;
    int const kind = any.whole(0, 4);
    double const off = any.power(-20, -3);
    for (int k = 0; k < n; ++k) {
        double const column = kind == 3 ? any.power(-20, 20) : 1.0;
        for (int i = 0; i < n; ++i) {
            m(i, k) = kind == 1 ? any.whole(-2, 2) : column * any.number(-1, 1);
        }
    }
    if (kind == 2 || kind == 4) { // the last column nearly in the span of two others
        double const a = any.whole(-2, 2), b = any.whole(1, 2);
        for (int i = 0; i < n; ++i) {
            m(i, 0) = std::round(m(i, 0) * 1024) / 1024;
            m(i, 1) = std::round(m(i, 1) * 1024) / 1024;
            m(i, n - 1) = a * m(i, 0) + b * m(i, 1) + (kind == 2 ? off * any.number(-1, 1) : 0.0);
        }
    }
    return m;
}

template <int n, typename Matrix>
void expectDeterminants(unsigned seed, int count)
{
    Random any(seed);
    int singular = 0;
    for (int i = 0; i < count; ++i) {
        Matrix const m = anyMatrix<n, Matrix>(any);
        Real const truth = determinantTruth(rowsOf<n>(m));
        Determinant const found = determinantOf(m);
        ASSERT_EQ(Status::Ok, found.status);
        ASSERT_EQ(truth.sign(), (found.value > 0) - (found.value < 0));
        Real const off = abs(truth - Real(found.value));
        ASSERT_LE(off, Real(ulpOf(found.value))) << i;
        singular += found.value == 0.0 ? 1 : 0;
    }
    EXPECT_GT(singular, count / 10);
}

TEST(DeterminantOf, MatricesOf3x3)
{
    expectDeterminants<3, Matrix3>(1, cases(100000));
}

TEST(DeterminantOf, MatricesOf4x4)
{
    expectDeterminants<4, Matrix4>(2, cases(100000));
}

TEST(DeterminantOf, RefusesWhatCannotBeHeld)
{
    Matrix3 m = Matrix3::identity();
    m(0, 0) = m(1, 1) = m(2, 2) = 1e-110;
    EXPECT_EQ(Status::OutOfRange, determinantOf(m).status);
    m(0, 0) = m(1, 1) = m(2, 2) = 1e110;
    EXPECT_EQ(Status::OutOfRange, determinantOf(m).status);
    m(2, 1) = support::nan;
    EXPECT_EQ(Status::NotFinite, determinantOf(m).status);
    Matrix4 w = Matrix4::identity();
    w(3, 0) = support::inf;
    EXPECT_EQ(Status::NotFinite, determinantOf(w).status);
    EXPECT_EQ(0.0, determinantOf(Matrix4()).value);
    EXPECT_EQ(Status::Ok, determinantOf(Matrix4()).status);
}

template <std::size_t n>
Rows<n> inverseTruth(Rows<n> m)
{
    Rows<n> r{};
    for (std::size_t i = 0; i < n; ++i) {
        r[i][i] = 1;
    }
    for (std::size_t step = 0; step < n; ++step) {
        std::size_t pivot = step;
        for (std::size_t i = step; i < n; ++i) {
            pivot = abs(m[i][step]) > abs(m[pivot][step]) ? i : pivot;
        }
        std::swap(m[step], m[pivot]);
        std::swap(r[step], r[pivot]);
        Real const factor = 1 / m[step][step];
        for (std::size_t k = 0; k < n; ++k) {
            m[step][k] *= factor;
            r[step][k] *= factor;
        }
        for (std::size_t i = 0; i < n; ++i) {
            Real const part = m[i][step];
            for (std::size_t k = 0; k < n && i != step; ++k) {
                m[i][k] -= part * m[step][k];
                r[i][k] -= part * r[step][k];
            }
        }
    }
    return r;
}

template <int n, typename Matrix>
void expectInverses(unsigned seed, int count)
{
    Random any(seed);
    int singular = 0;
    for (int i = 0; i < count; ++i) {
        Matrix const m = anyMatrix<n, Matrix>(any);
        auto const found = inverseOf(m);
        if (determinantOf(m).value == 0.0) {
            ASSERT_EQ(Status::Degenerate, found.status);
            ++singular;
            continue;
        }
        ASSERT_EQ(Status::Ok, found.status);
        Rows<n> const truth = inverseTruth<n>(rowsOf<n>(m));
        Real largest = 0;
        Real norm = 0, inverseNorm = 0;
        for (std::size_t k = 0; k < n; ++k) {
            Real sum = 0, inverseSum = 0;
            for (std::size_t j = 0; j < n; ++j) {
                largest = std::max<Real>(largest, abs(truth[j][k]));
                inverseSum += abs(truth[j][k]);
                sum += abs(Real(m(static_cast<int>(j), static_cast<int>(k))));
            }
            norm = std::max(norm, sum);
            inverseNorm = std::max(inverseNorm, inverseSum);
        }
        double const condition = static_cast<double>(norm * inverseNorm);
        ASSERT_NEAR(condition, found.condition, 1e-12 * condition);
        for (std::size_t k = 0; k < n; ++k) {
            for (std::size_t j = 0; j < n; ++j) {
                double const actual = found.matrix(static_cast<int>(j), static_cast<int>(k));
                Real const bound = Real(ulpOf(static_cast<double>(truth[j][k]))) +
                                   Real(0x1p-95) * condition * largest;
                ASSERT_LE(abs(truth[j][k] - Real(actual)), bound) << i;
            }
        }
    }
    EXPECT_GT(singular, count / 10);
}

TEST(InverseOf, MatricesOf3x3)
{
    expectInverses<3, Matrix3>(3, cases(100000));
}

TEST(InverseOf, MatricesOf4x4)
{
    // not 10^5, which takes about 6 s
    expectInverses<4, Matrix4>(4, cases(20000));
}

TEST(InverseOf, ServesAllSizesAndRefusesTheRest)
{
    for (double const size : {1e-300, 1e-200, 1e-9, 1e9, 1e200, 1e300}) {
        Matrix3 m = Matrix3::identity();
        m(0, 0) = m(1, 1) = m(2, 2) = size;
        EXPECT_EQ(Status::Ok, inverseOf(m).status);
        EXPECT_EQ(1.0 / size, inverseOf(m).matrix(1, 1));
        EXPECT_NEAR(1.0, inverseOf(m).condition, 1e-15);
    }
    Matrix4 m = Matrix4::identity();
    EXPECT_EQ(m, inverseOf(m).matrix);
    m(1, 2) = support::nan;
    EXPECT_EQ(Status::NotFinite, inverseOf(m).status);
    EXPECT_EQ(Status::Degenerate, inverseOf(Matrix3()).status);
    Matrix3 tiny = Matrix3::identity();
    tiny(0, 0) = 1e-310;
    EXPECT_EQ(Status::OutOfRange, inverseOf(tiny).status);
}

/// The turn that is nearest makes R^T M symmetric and leaves no plane in which a turn would help.
void expectNearest(Matrix3 const &m, NearestRotation const &found)
{
    ASSERT_EQ(Status::Ok, found.status);
    Matrix3 const &r = found.rotation;
    double size = 0.0;
    double s[3][3];
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 3; ++k) {
            size = std::max(size, std::fabs(m(i, k)));
            double unit = 0.0;
            s[i][k] = 0.0;
            for (int j = 0; j < 3; ++j) {
                unit += r(j, i) * r(j, k);
                s[i][k] += r(j, i) * m(j, k);
            }
            ASSERT_NEAR(i == k ? 1.0 : 0.0, unit, 1e-15);
        }
    }
    ASSERT_NEAR(1.0, determinantOf(r).value, 1e-15);
    double const trace = s[0][0] + s[1][1] + s[2][2];
    Matrix3 helped;
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 3; ++k) {
            ASSERT_NEAR(s[k][i], s[i][k], 2e-15 * size);
            helped(i, k) = (i == k ? trace : 0.0) - s[i][k];
        }
    }
    ASSERT_GE(symmetricEigen(helped).values[2], -4e-15 * size);
}

TEST(NearestRotation, AnyMatrix)
{
    Random any(5);
    for (int i = 0; i < cases(100000) && !HasFatalFailure(); ++i) {
        Matrix3 const m = anyMatrix<3, Matrix3>(any);
        NearestRotation const found = nearestRotation(m);
        if (found.status == Status::Degenerate) {
            continue; // lattice matrices with equal stretches
        }
        SCOPED_TRACE(i);
        expectNearest(m, found);
    }
}

TEST(NearestRotation, IsThePolarFactorWithoutAMirror)
{
    Random any(6);
    // not 10^5, which takes about 40 s
    for (int i = 0; i < cases(2000); ++i) {
        Matrix3 m;
        for (int k = 0; k < 9; ++k) {
            m[k] = any.number(-1, 1);
        }
        if (determinantOf(m).value < 0.01) {
            continue;
        }
        Rows<3> x = rowsOf<3>(m);
        for (int step = 0; step < 30; ++step) { // Higham's iteration (1986)
            Rows<3> const inverse = inverseTruth<3>(x);
            for (std::size_t a = 0; a < 3; ++a) {
                for (std::size_t b = 0; b < 3; ++b) {
                    x[a][b] = (x[a][b] + inverse[b][a]) / 2;
                }
            }
        }
        NearestRotation const found = nearestRotation(m);
        for (int a = 0; a < 3; ++a) {
            for (int b = 0; b < 3; ++b) {
                Real const truth = x[static_cast<std::size_t>(a)][static_cast<std::size_t>(b)];
                double const bound = ulpOf(static_cast<double>(truth)) + 0x1p-90 * found.condition;
                ASSERT_LE(abs(truth - Real(found.rotation(a, b))), Real(bound));
            }
        }
    }
}

TEST(NearestRotation, RefusesWhatHasNone)
{
    EXPECT_EQ(Status::Degenerate, nearestRotation(Matrix3()).status);
    Matrix3 mirror = Matrix3::identity();
    mirror(0, 0) = -1.0;
    EXPECT_EQ(Status::Degenerate, nearestRotation(mirror).status);
    mirror(1, 1) = 2.0;
    mirror(2, 2) = 3.0;
    EXPECT_EQ(Matrix3::identity(), nearestRotation(mirror).rotation);
    mirror(0, 1) = support::inf;
    EXPECT_EQ(Status::NotFinite, nearestRotation(mirror).status);
    Matrix3 huge = Matrix3::identity();
    huge(0, 0) = huge(1, 1) = huge(2, 2) = 1e307;
    EXPECT_EQ(Matrix3::identity(), nearestRotation(huge).rotation);
}

/// How many eigenvalues of the symmetric part are above x, by Sylvester's law of inertia.
int eigenvaluesAbove(Rows<3> m, Real const &x)
{
    for (std::size_t i = 0; i < 3; ++i) {
        m[i][i] -= x;
    }
    Real const m1 = m[0][0];
    Real const m2 = m[0][0] * m[1][1] - m[0][1] * m[1][0];
    Real const m3 = determinantTruth(m);
    int const first = m1 > 0 ? 1 : 0;
    int const second = (m2 > 0) == (m1 > 0) ? 1 : 0;
    int const third = (m3 > 0) == (m2 > 0) ? 1 : 0;
    return first + second + third;
}

Matrix3 anySymmetric(Random &any)
{
    Matrix3 m;
    int const kind = any.whole(0, 3);
    double const size = kind == 3 ? any.power(-200, 200) : 1.0;
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k <= i; ++k) {
            double const x = kind == 0 ? any.whole(-2, 2) : size * any.number(-1, 1);
            m(i, k) = m(k, i) = x * (kind == 2 && i != k ? 1e-9 : 1.0);
        }
    }
    return m;
}

TEST(SymmetricEigen, ResidualIsBelowFourUnitsOfTheNorm)
{
    Random any(7);
    for (int i = 0; i < cases(100000); ++i) {
        Matrix3 const m = anySymmetric(any);
        Eigen3 const found = symmetricEigen(m);
        ASSERT_EQ(Status::Ok, found.status);
        double const norm = std::max(std::fabs(found.values[0]), std::fabs(found.values[2]));
        for (int e = 0; e < 3; ++e) {
            measures::Real square = 0;
            for (int row = 0; row < 3; ++row) {
                measures::Real sum = -measures::Real(found.values[e]) * found.vectors[e][row];
                for (int k = 0; k < 3; ++k) {
                    sum += measures::Real(m(row, k)) * found.vectors[e][k];
                }
                square += sum * sum;
            }
            ASSERT_LE(sqrt(square), 4 * ulpOf(norm)) << i;
            for (int other = 0; other < 3; ++other) {
                ASSERT_NEAR(e == other ? 1.0 : 0.0, found.vectors[e].dot(found.vectors[other]),
                            5e-16);
            }
        }
        ASSERT_GT(found.vectors[0].cross(found.vectors[1]).dot(found.vectors[2]), 0.99);
    }
}

TEST(SymmetricEigen, ValuesAreWithinAUnitAndDescend)
{
    Random any(8);
    // not 10^5, which takes about 7 s
    for (int i = 0; i < cases(30000); ++i) {
        Matrix3 const m = anySymmetric(any);
        Eigen3 const found = symmetricEigen(m);
        double const norm = std::max(std::fabs(found.values[0]), std::fabs(found.values[2]));
        for (int e = 0; e < 3; ++e) {
            double const value = found.values[e];
            Real const off = Real(ulpOf(value)) + Real(0x1p-95) * norm + Real(1e-320);
            ASSERT_LE(eigenvaluesAbove(rowsOf<3>(m), Real(value) + off), e) << i;
            ASSERT_GE(eigenvaluesAbove(rowsOf<3>(m), Real(value) - off), e + 1) << i;
        }
    }
}

TEST(SymmetricEigen, OrderAndSignsAreFixed)
{
    Matrix3 m;
    m(0, 0) = 1.0;
    m(1, 1) = 3.0;
    m(2, 2) = 2.0;
    Eigen3 const found = symmetricEigen(m);
    EXPECT_EQ(3.0, found.values[0]);
    EXPECT_EQ(2.0, found.values[1]);
    EXPECT_EQ(1.0, found.values[2]);
    EXPECT_EQ(Point3(0, 1, 0), found.vectors[0]);
    EXPECT_EQ(Point3(0, 0, 1), found.vectors[1]);
    EXPECT_EQ(Point3(1, 0, 0), found.vectors[2]);
    Eigen3 const unit = symmetricEigen(Matrix3::identity());
    EXPECT_EQ(Point3(1, 0, 0), unit.vectors[0]);
    EXPECT_EQ(Point3(0, 1, 0), unit.vectors[1]);
    EXPECT_EQ(Point3(0, 0, 1), unit.vectors[2]);
    EXPECT_EQ(0.0, symmetricEigen(Matrix3()).values[0]);
    m(0, 1) = support::nan;
    EXPECT_EQ(Status::NotFinite, symmetricEigen(m).status);
    m(0, 1) = 1e301;
    EXPECT_EQ(Status::OutOfRange, symmetricEigen(m).status);
}

} // namespace
