#include "guardedArray.h"
#include "support/Bits.h"

#include <OrvelMath/numerics/LegendreRows_p.h>
#include <OrvelMath/numerics/Transforms.h>

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <random>
#include <vector>

namespace {

using support::GuardedArray;
using support::SameBits;

constexpr double pi = 3.141592653589793;

std::vector<double> randomNumbers(int count, unsigned int seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> values(-1.0, 1.0);
    std::vector<double> numbers(static_cast<std::size_t>(count));
    for (double &number : numbers) {
        number = values(random);
    }
    return numbers;
}

/// The step as plain loops.
std::vector<double> plainLegendre(std::vector<double> const &data, int order,
                                  std::vector<double> const &weights, double const *table)
{
    std::size_t const size = data.size();
    double const s = order == 0 ? std::sqrt(12.566370614359172) : std::sqrt(6.283185307179586);
    std::vector<double> result;
    for (int l = 0; l < int(size) / 2 - order; ++l) {
        double sum = 0.0;
        for (std::size_t j = 0; j < size; ++j) {
            sum += table[std::size_t(l) * size + j] * (s * data[j] * weights[j]);
        }
        result.push_back(sum);
    }
    return result;
}

TEST(LegendreTrafo, HasTheBitsOfThePlainLoop)
{
    for (int size : {1, 2, 3, 6, 7, 8, 15, 16, 17, 30, 64, 100, 131, 256}) {
        for (int order : {0, 1, 2, size / 4, size / 2 - 1}) {
            int const count = size / 2 - order;
            if (order < 0 || count < 1) {
                continue;
            }
            SCOPED_TRACE(testing::Message() << size << ' ' << order);
            GuardedArray data(randomNumbers(size, 1)), weights(randomNumbers(size, 2));
            GuardedArray table(randomNumbers(size * count, 3)), result(count), scratch(size);
            legendreTrafo(data.data(), result.data(), size, order, weights.data(), table.data(),
                          scratch.data());
            auto const expected =
                plainLegendre(data.values(), order, weights.values(), table.data());
            for (int l = 0; l < count; ++l) {
                EXPECT_TRUE(SameBits(expected[std::size_t(l)], result[l])) << l;
            }
            double const s = std::sqrt(order == 0 ? 12.566370614359172 : 6.283185307179586);
            for (int j = 0; j < size; ++j) {
                EXPECT_TRUE(SameBits(s * data[j] * weights[j], scratch[j]));
            }
            for (GuardedArray const *array : {&data, &weights, &table, &result, &scratch}) {
                EXPECT_TRUE(array->intact());
            }
        }
    }
}

TEST(LegendreTrafo, OrderOfHalfTheSizeGivesNoCoefficients)
{
    for (int order : {4, 5, 100}) {
        GuardedArray data(randomNumbers(8, 1)), weights(randomNumbers(8, 2)), result(1), scratch(8);
        legendreTrafo(data.data(), result.data(), 8, order, weights.data(), nullptr,
                      scratch.data());
        EXPECT_EQ(support::preset, result[0]);
        EXPECT_NE(scratch[7], support::preset); // the weighting runs anyway
        EXPECT_TRUE(scratch.intact() && result.intact());
    }
}

TEST(LegendreTrafo, NaNStaysInItsRow)
{
    GuardedArray data(randomNumbers(32, 1)), weights(randomNumbers(32, 2));
    GuardedArray table(randomNumbers(32 * 16, 3)), result(16), scratch(32);
    table[5 * 32 + 7] = support::nan;
    table[9 * 32 + 31] = support::inf;
    legendreTrafo(data.data(), result.data(), 32, 0, weights.data(), table.data(), scratch.data());
    for (int l = 0; l < 16; ++l) {
        EXPECT_EQ(std::isfinite(result[l]), l != 5 && l != 9) << l;
    }
}

template <int W>
void expectRowBits()
{
    int const size = 37;
    auto const table = randomNumbers(8 * size, 3), x = randomNumbers(size, 4);
    double const *rows[Legendre::rowsTogether];
    for (int r = 0; r < 8; ++r) {
        rows[r] = table.data() + r * size;
    }
    double sums[Legendre::rowsTogether];
    Legendre::multiplyRows<W>(rows, x.data(), size, sums);
    for (int r = 0; r < 8; ++r) {
        double expected = 0.0;
        for (int j = 0; j < size; ++j) {
            expected += rows[r][j] * x[std::size_t(j)];
        }
        EXPECT_TRUE(SameBits(expected, sums[r]));
    }
}

TEST(LegendreTrafo, EveryVectorWidthHasTheSameBits)
{
    expectRowBits<2>();
    expectRowBits<4>();
    expectRowBits<8>();
}

/// Normalised associated Legendre function: Y(l, m) = value * exp(i*m*phi) / sqrt(2*pi), with the
/// phase (-1)^m of E. U. Condon and G. H. Shortley, for m >= 0. A table for the transform holds it
/// divided by sqrt(2) for order 0, since the weighting of that order is sqrt(4*pi).
double legendre(int l, int m, double x)
{
    double const factor =
        std::sqrt((2 * l + 1) / 2.0 * std::tgamma(l - m + 1) / std::tgamma(l + m + 1));
    return factor * (m % 2 == 1 ? -1.0 : 1.0) * std::assoc_legendre(unsigned(l), unsigned(m), x);
}

/// Equiangular grid, its quadrature weights (J. R. Driscoll and D. M. Healy, 1994) and the tables.
struct Sphere
{
    explicit Sphere(int b)
        : bandwidth(b)
    {
        int const n = 2 * b;
        for (int j = 0; j < n; ++j) {
            theta.push_back(pi * (2 * j + 1) / (4.0 * b));
            double sum = 0.0;
            for (int k = 0; k < b; ++k) {
                sum += std::sin((2 * k + 1) * theta.back()) / (2 * k + 1);
            }
            weights.push_back(2.0 / b * std::sin(theta.back()) * sum);
        }
        for (int m = 0; m < b; ++m) {
            offsets.push_back(int(table.size()));
            for (int l = m; l < b; ++l) {
                for (double t : theta) {
                    table.push_back(legendre(l, m, std::cos(t)) / (m == 0 ? std::sqrt(2.0) : 1.0));
                }
            }
        }
    }

    /// Y(l, m) at row j and column k.
    std::complex<double> harmonic(int l, int m, int j, int k) const
    {
        int const magnitude = std::abs(m);
        double const phi = 2 * pi * k / (2 * bandwidth);
        double const value =
            legendre(l, magnitude, std::cos(theta[std::size_t(j)])) / std::sqrt(2 * pi);
        double const sign = m < 0 && magnitude % 2 == 1 ? -1.0 : 1.0;
        return sign * value * std::polar(1.0, m * phi);
    }

    int bandwidth;
    std::vector<double> theta, weights, table;
    std::vector<int> offsets;
};

struct Coefficients
{
    std::vector<double> re, im;
};

Coefficients transform(Sphere const &sphere, std::vector<double> const &re,
                       std::vector<double> const &im, bool realData)
{
    int const b = sphere.bandwidth, n = 2 * b;
    int const count = realData ? b * (b + 1) / 2 : b * b;
    GuardedArray rdata(re), idata(im), rcoeffs(count), icoeffs(count);
    GuardedArray workspace(2 * n * n + 5 * n), table(sphere.table), weights(sphere.weights);
    computeFSTSlow(rdata.data(), idata.data(), rcoeffs.data(), icoeffs.data(), workspace.data(),
                   realData, table.data(), weights.data(), sphere.offsets.data(), b);
    for (GuardedArray const *array :
         {&rdata, &idata, &rcoeffs, &icoeffs, &workspace, &table, &weights}) {
        EXPECT_TRUE(array->intact());
    }
    EXPECT_EQ(rdata.values(), re);
    EXPECT_EQ(idata.values(), im);
    EXPECT_EQ(table.values(), sphere.table);
    return {rcoeffs.values(), icoeffs.values()};
}

/// Orders in the sequence of the coefficients.
std::vector<int> orders(int bandwidth, bool realData)
{
    std::vector<int> sequence;
    for (int m = 0; m < bandwidth; ++m) {
        sequence.push_back(m);
    }
    for (int m = bandwidth - 1; m >= 1 && !realData; --m) {
        sequence.push_back(-m);
    }
    return sequence;
}

TEST(ComputeFSTSlow, FindsTheCoefficientsOfASumOfHarmonics)
{
    for (int b : {1, 2, 4, 8, 16}) {
        SCOPED_TRACE(b);
        Sphere const sphere(b);
        int const n = 2 * b;
        auto const re = randomNumbers(b * b, 5), im = randomNumbers(b * b, 6);
        std::vector<double> rdata(std::size_t(n * n)), idata(std::size_t(n * n));
        std::size_t c = 0;
        for (int m : orders(b, false)) {
            for (int l = std::abs(m); l < b; ++l, ++c) {
                std::complex<double> const coefficient(re[c], im[c]);
                for (int cell = 0; cell < n * n; ++cell) {
                    auto const value = coefficient * sphere.harmonic(l, m, cell / n, cell % n);
                    rdata[std::size_t(cell)] += value.real();
                    idata[std::size_t(cell)] += value.imag();
                }
            }
        }
        ASSERT_EQ(c, std::size_t(b * b));
        Coefficients const found = transform(sphere, rdata, idata, false);
        for (std::size_t i = 0; i < c; ++i) {
            EXPECT_NEAR(found.re[i], re[i], 1e-12 * b) << i;
            EXPECT_NEAR(found.im[i], im[i], 1e-12 * b) << i;
        }
    }
}

TEST(ComputeFSTSlow, RealDataGiveTheOrdersThatAreNotNegative)
{
    Sphere const sphere(8);
    auto const data = randomNumbers(256, 9);
    std::vector<double> const zeros(256, 0.0);
    Coefficients const half = transform(sphere, data, zeros, true);
    Coefficients const all = transform(sphere, data, zeros, false);
    ASSERT_EQ(36u, half.re.size());
    ASSERT_EQ(64u, all.re.size());
    for (std::size_t i = 0; i < 36; ++i) {
        EXPECT_TRUE(SameBits(all.re[i], half.re[i]));
        EXPECT_TRUE(SameBits(all.im[i], half.im[i]));
    }
    // c(l, -m) = (-1)^m conjugate of c(l, m)
    std::size_t negative = 36;
    for (int m = 7; m >= 1; --m) {
        std::size_t positive = 0;
        for (int k = 0; k < m; ++k) {
            positive += std::size_t(8 - k);
        }
        for (int l = m; l < 8; ++l, ++positive, ++negative) {
            double const sign = m % 2 == 1 ? -1.0 : 1.0;
            EXPECT_NEAR(all.re[negative], sign * all.re[positive], 1e-14);
            EXPECT_NEAR(all.im[negative], -sign * all.im[positive], 1e-14);
        }
    }
}

TEST(ComputeFSTSlow, BandwidthOneHasOneCoefficient)
{
    Sphere const sphere(1);
    std::vector<double> const ones(4, 1.0), zeros(4, 0.0);
    for (bool realData : {false, true}) {
        Coefficients const found = transform(sphere, ones, zeros, realData);
        ASSERT_EQ(1u, found.re.size());
        EXPECT_NEAR(found.re[0], std::sqrt(4 * pi), 1e-14);
        EXPECT_NEAR(0.0, found.im[0], 1e-15);
    }
}

/// The steps one by one, from the exported parts.
Coefficients plainTransform(Sphere const &sphere, std::vector<double> re, std::vector<double> im)
{
    int const b = sphere.bandwidth, n = 2 * b;
    std::size_t const size = std::size_t(n);
    std::vector<double> rootsRe(size), rootsIm(size), scratch(2 * size);
    generateRoots(rootsRe.data(), rootsIm.data(), n);
    std::vector<std::vector<double>> columnsRe(size), columnsIm(size);
    for (int row = 0; row < n; ++row) {
        double *const r = re.data() + row * n, *const i = im.data() + row * n;
        computeInverseFFT(r, i, r, i, n, rootsRe.data(), rootsIm.data(), scratch.data());
        for (int m = 0; m < n; ++m) {
            columnsRe[std::size_t(m)].push_back(r[m]);
            columnsIm[std::size_t(m)].push_back(i[m]);
        }
    }
    Coefficients c;
    for (int m : orders(b, false)) {
        int const order = std::abs(m);
        std::size_t const column = std::size_t(m < 0 ? n + m : m);
        double const *const table = sphere.table.data() + sphere.offsets[std::size_t(order)];
        double const sign = m < 0 && order % 2 == 1 ? -1.0 : 1.0;
        for (double value : plainLegendre(columnsRe[column], order, sphere.weights, table)) {
            c.re.push_back(sign * value);
        }
        for (double value : plainLegendre(columnsIm[column], order, sphere.weights, table)) {
            c.im.push_back(sign * value);
        }
    }
    return c;
}

TEST(ComputeFSTSlow, HasTheBitsOfItsSteps)
{
    for (int b : {1, 2, 4, 16, 32}) {
        SCOPED_TRACE(b);
        Sphere sphere(b < 32 ? b : 1);
        if (b == 32) { // any table will do
            sphere.bandwidth = 32;
            sphere.weights = randomNumbers(64, 1);
            sphere.offsets.clear();
            sphere.table = randomNumbers(64 * 33 * 16, 2);
            for (int m = 0, offset = 0; m < 32; offset += (32 - m) * 64, ++m) {
                sphere.offsets.push_back(offset);
            }
        }
        auto const re = randomNumbers(4 * b * b, 3), im = randomNumbers(4 * b * b, 4);
        Coefficients const expected = plainTransform(sphere, re, im);
        Coefficients const found = transform(sphere, re, im, false);
        ASSERT_EQ(found.re.size(), expected.re.size());
        for (std::size_t i = 0; i < expected.re.size(); ++i) {
            EXPECT_TRUE(SameBits(expected.re[i], found.re[i])) << i;
            EXPECT_TRUE(SameBits(expected.im[i], found.im[i])) << i;
        }
    }
}

} // namespace
