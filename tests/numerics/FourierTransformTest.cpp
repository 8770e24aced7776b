#include "guardedArray.h"
#include "support/Bits.h"

#include <OrvelMath/numerics/Transforms.h>
#include <OrvelMath/numerics/quick/FourierPasses_p.h>

#include <fftw3.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdint>
#include <random>
#include <vector>

namespace {

using support::GuardedArray;
using support::SameBits;

struct Signal
{
    std::vector<double> re;
    std::vector<double> im;
};

Signal randomSignal(int n, unsigned int seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> values(-1.0, 1.0);
    Signal s;
    for (int i = 0; i < n; ++i) {
        s.re.push_back(values(random));
        s.im.push_back(values(random));
    }
    return s;
}

Signal rootsOf(int n)
{
    Signal roots{std::vector<double>(std::size_t(n)), std::vector<double>(std::size_t(n))};
    generateRoots(roots.re.data(), roots.im.data(), n);
    return roots;
}

/// Runs a transform with guards round every array and checks what it may not touch.
Signal run(Signal const &input, bool inverse, Signal roots)
{
    int const n = int(input.re.size());
    GuardedArray inRe(input.re), inIm(input.im), rootsRe(roots.re), rootsIm(roots.im);
    GuardedArray outRe(n), outIm(n), scratch(2 * n);
    (inverse ? computeInverseFFT : computeFFT)(inRe.data(), inIm.data(), outRe.data(), outIm.data(),
                                               n, rootsRe.data(), rootsIm.data(), scratch.data());
    for (GuardedArray const *array : {&inRe, &inIm, &rootsRe, &rootsIm, &outRe, &outIm, &scratch}) {
        EXPECT_TRUE(array->intact());
    }
    for (int i = 0; i < n; ++i) {
        EXPECT_TRUE(SameBits(input.re[std::size_t(i)], inRe[i]));
        EXPECT_TRUE(SameBits(input.im[std::size_t(i)], inIm[i]));
    }
    EXPECT_EQ(rootsRe.values(), roots.re);
    EXPECT_EQ(rootsIm.values(), roots.im);
    return {outRe.values(), outIm.values()};
}

Signal run(Signal const &input, bool inverse)
{
    return run(input, inverse, rootsOf(int(input.re.size())));
}

/// The transform as plain loops over single butterflies.
Signal plain(Signal const &input, bool inverse, Signal const &roots)
{
    std::size_t const n = input.re.size();
    std::vector<double> re = input.re, im = input.im;
    int bits = 0;
    while ((2u << bits) <= n) {
        ++bits;
    }
    std::size_t half = n / 2, groups = 1;
    for (int stage = 0; stage < bits; ++stage) {
        for (std::size_t g = 0; g < groups; ++g) {
            for (std::size_t j = 0; j < half; ++j) {
                std::size_t const a = 2 * half * g + j, b = a + half;
                double const wr = roots.re[j * groups];
                double const wi = inverse ? -roots.im[j * groups] : roots.im[j * groups];
                double const dr = re[a] - re[b], di = im[a] - im[b];
                re[a] = re[a] + re[b];
                im[a] = im[a] + im[b];
                re[b] = dr * wr - di * wi;
                im[b] = dr * wi + di * wr;
            }
        }
        groups *= 2;
        half /= 2;
    }
    Signal out{std::vector<double>(n, support::preset), std::vector<double>(n, support::preset)};
    for (std::size_t i = 0; i < n; ++i) {
        std::size_t reversed = 0;
        for (int b = 0; b < bits; ++b) {
            reversed |= (i >> b & 1) << (bits - 1 - b);
        }
        out.re[reversed] = inverse ? re[i] / double(n) : re[i];
        out.im[reversed] = inverse ? im[i] / double(n) : im[i];
    }
    return out;
}

void expectSameBits(Signal const &expected, Signal const &actual)
{
    ASSERT_EQ(expected.re.size(), actual.re.size());
    for (std::size_t i = 0; i < expected.re.size(); ++i) {
        ASSERT_TRUE(SameBits(expected.re[i], actual.re[i])) << i;
        ASSERT_TRUE(SameBits(expected.im[i], actual.im[i])) << i;
    }
}

double greatestDifference(Signal const &a, Signal const &b)
{
    double greatest = 0.0;
    for (std::size_t i = 0; i < a.re.size(); ++i) {
        greatest = std::max({greatest, std::fabs(a.re[i] - b.re[i]), std::fabs(a.im[i] - b.im[i])});
    }
    return greatest;
}

TEST(GenerateRoots, IsTheExponentialWithPositiveExponent)
{
    Signal const roots = rootsOf(8);
    for (int k = 0; k < 8; ++k) {
        double const angle = k * (-6.283185307179586 / 8);
        EXPECT_TRUE(SameBits(std::cos(angle), roots.re[std::size_t(k)]));
        EXPECT_TRUE(SameBits(-std::sin(angle), roots.im[std::size_t(k)]));
    }
    EXPECT_EQ(1.0, roots.re[0]);
    EXPECT_NEAR(1.0, roots.im[2], 1e-15); // exp(+i*pi/2)
}

TEST(GenerateRoots, NothingHappensWithoutASize)
{
    for (int n : {0, -1, -100}) {
        GuardedArray re(4), im(4);
        generateRoots(re.data(), im.data(), n);
        EXPECT_EQ(support::preset, re[0]);
        EXPECT_EQ(support::preset, im[0]);
        EXPECT_TRUE(re.intact() && im.intact());
    }
}

TEST(ComputeFFT, SizeOneIsACopy)
{
    Signal const input{{3.5}, {-1.25}};
    expectSameBits(input, run(input, false));
    expectSameBits(input, run(input, true));
}

TEST(ComputeFFT, SizeTwoIsSumAndDifference)
{
    Signal const output = run({{3, 1}, {10, 4}}, false);
    EXPECT_EQ(output.re, (std::vector<double>{4, 2}));
    EXPECT_EQ(output.im, (std::vector<double>{14, 6}));
    Signal const inverse = run({{3, 1}, {10, 4}}, true);
    EXPECT_EQ(inverse.re, (std::vector<double>{2, 1}));
    EXPECT_EQ(inverse.im, (std::vector<double>{7, 3}));
}

TEST(ComputeFFT, ImpulseTurnsForward)
{
    Signal const output = run({{0, 1, 0, 0}, {0, 0, 0, 0}}, false);
    double const re[] = {1, 0, -1, 0}, im[] = {0, 1, 0, -1};
    for (std::size_t k = 0; k < 4; ++k) {
        EXPECT_NEAR(output.re[k], re[k], 1e-15);
        EXPECT_NEAR(output.im[k], im[k], 1e-15);
    }
}

TEST(ComputeFFT, NoSizeNoOutput)
{
    for (int n : {0, -1, -64}) {
        GuardedArray a(4), b(4), c(4), d(4), e(4), f(4), g(4);
        computeFFT(a.data(), b.data(), c.data(), d.data(), n, e.data(), f.data(), g.data());
        computeInverseFFT(a.data(), b.data(), c.data(), d.data(), n, e.data(), f.data(), g.data());
        for (GuardedArray const *array : {&a, &b, &c, &d, &e, &f, &g}) {
            EXPECT_TRUE(array->intact());
            EXPECT_EQ(array->values(), std::vector<double>(4, support::preset));
        }
    }
}

TEST(ComputeFFT, HasTheBitsOfThePlainLoop)
{
    for (int n = 1; n <= 1 << 17; n *= 2) {
        SCOPED_TRACE(n);
        Signal const input = randomSignal(n, unsigned(n));
        Signal const roots = rootsOf(n);
        expectSameBits(plain(input, false, roots), run(input, false, roots));
        expectSameBits(plain(input, true, roots), run(input, true, roots));
    }
}

TEST(ComputeFFT, TakesTheRootsFromTheTable)
{
    for (int n : {2, 4, 16, 32, 64, 128, 256, 512}) {
        Signal const input = randomSignal(n, 5);
        Signal const roots = randomSignal(n, 6); // no roots of anything
        expectSameBits(plain(input, false, roots), run(input, false, roots));
        expectSameBits(plain(input, true, roots), run(input, true, roots));
    }
}

TEST(ComputeFFT, KeepsSignedZerosInfinitiesAndNaN)
{
    for (int n : {4, 16, 64, 256}) {
        Signal input = randomSignal(n, 1);
        Signal const roots = rootsOf(n);
        std::fill(input.re.begin(), input.re.end(), -0.0);
        std::fill(input.im.begin(), input.im.end(), 0.0);
        expectSameBits(plain(input, false, roots), run(input, false, roots));
        input.re[3] = support::inf;
        expectSameBits(plain(input, false, roots), run(input, false, roots));
        input.im[1] = support::nan;
        expectSameBits(plain(input, true, roots), run(input, true, roots));
        input.re.assign(std::size_t(n), 5e-324); // divided by n in the subnormal range
        input.im.assign(std::size_t(n), 3e-320);
        expectSameBits(plain(input, true, roots), run(input, true, roots));
    }
}

TEST(ComputeFFT, SizesThatAreNoPowerOfTwoStayInsideTheArrays)
{
    for (int n : {3, 5, 6, 7, 12, 48, 63, 65, 96, 100, 1000}) {
        SCOPED_TRACE(n);
        Signal const input = randomSignal(n, unsigned(n));
        Signal const roots = rootsOf(n);
        expectSameBits(plain(input, false, roots), run(input, false, roots));
        expectSameBits(plain(input, true, roots), run(input, true, roots));
    }
}

TEST(ComputeFFT, MayWriteOverItsInput)
{
    for (int n = 1; n <= 4096; n *= 2) {
        SCOPED_TRACE(n);
        Signal const input = randomSignal(n, 77);
        Signal const expected = run(input, false);
        Signal data = input, roots = rootsOf(n);
        GuardedArray scratch(2 * n);
        computeFFT(data.re.data(), data.im.data(), data.re.data(), data.im.data(), n,
                   roots.re.data(), roots.im.data(), scratch.data());
        expectSameBits(expected, data);
        EXPECT_TRUE(scratch.intact());

        Signal crossed = input; // real parts over the imaginary ones
        computeFFT(crossed.re.data(), crossed.im.data(), crossed.im.data(), crossed.re.data(), n,
                   roots.re.data(), roots.im.data(), scratch.data());
        expectSameBits(expected, {crossed.im, crossed.re});
    }
}

TEST(ComputeFFT, MayWriteOverTheRoots)
{
    for (int n : {4, 64, 128, 1024}) {
        SCOPED_TRACE(n);
        Signal input = randomSignal(n, 78), roots = rootsOf(n);
        Signal const expected = run(input, true);
        GuardedArray scratch(2 * n);
        computeInverseFFT(input.re.data(), input.im.data(), roots.re.data(), roots.im.data(), n,
                          roots.re.data(), roots.im.data(), scratch.data());
        expectSameBits(expected, roots);
        EXPECT_TRUE(scratch.intact());
    }
}

TEST(ComputeFFT, ArraysNeedNoAlignment)
{
    int const n = 256;
    Signal const input = randomSignal(n, 3);
    Signal const expected = run(input, false);
    Signal const roots = rootsOf(n);
    for (int shift = 0; shift < 8; ++shift) {
        std::vector<double> memory(std::size_t(9 * (n + 8)), 0.0);
        double *part[7];
        for (int i = 0; i < 7; ++i) {
            part[i] = memory.data() + i * (n + 8) + (shift + i) % 8;
        }
        std::copy(input.re.begin(), input.re.end(), part[0]);
        std::copy(input.im.begin(), input.im.end(), part[1]);
        std::copy(roots.re.begin(), roots.re.end(), part[2]);
        std::copy(roots.im.begin(), roots.im.end(), part[3]);
        computeFFT(part[0], part[1], part[4], part[5], n, part[2], part[3], part[6]);
        expectSameBits(expected, {{part[4], part[4] + n}, {part[5], part[5] + n}});
    }
}

// The library takes the widest vectors of the processor at hand; here each width runs by itself.

template <int W, bool Inverse>
Signal runAtWidth(Signal const &input, Signal const &roots)
{
    int const n = int(input.re.size());
    Signal output = input;
    std::vector<double> scratch(2 * input.re.size());
    Fourier::transform<W, Inverse>(
        {input.re.data(), input.im.data()}, {output.re.data(), output.im.data()},
        {scratch.data(), scratch.data() + n}, n, {roots.re.data(), roots.im.data()});
    return output;
}

template <int W>
void expectBitsAtWidth()
{
    for (int n = Fourier::smallestSize(W); n <= 4096; n *= 2) {
        SCOPED_TRACE(n);
        Signal const input = randomSignal(n, unsigned(n));
        Signal const roots = rootsOf(n);
        expectSameBits(plain(input, false, roots), runAtWidth<W, false>(input, roots));
        expectSameBits(plain(input, true, roots), runAtWidth<W, true>(input, roots));
    }
}

TEST(ComputeFFT, EveryVectorWidthHasTheSameBits)
{
    expectBitsAtWidth<2>();
    expectBitsAtWidth<4>();
    expectBitsAtWidth<8>();
}

TEST(ComputeFFT, AgreesWithANaiveSum)
{
    for (int n : {4, 32, 256, 1 << 14, 1 << 20}) {
        Signal const input = randomSignal(n, unsigned(n));
        Signal const output = run(input, false);
        double const tolerance = 1e-15 * std::sqrt(double(n)) * (4 + std::log2(n));
        for (std::int64_t k = 0; k < n; k += n / 4 + 1) {
            std::complex<long double> sum = 0;
            for (std::int64_t j = 0; j < n; ++j) {
                long double const turns = static_cast<long double>(j * k % n) / n;
                sum +=
                    std::complex<long double>(input.re[std::size_t(j)], input.im[std::size_t(j)]) *
                    std::polar(1.0L, 2 * 3.14159265358979323846L * turns);
            }
            EXPECT_NEAR(output.re[std::size_t(k)], double(sum.real()), tolerance);
            EXPECT_NEAR(output.im[std::size_t(k)], double(sum.imag()), tolerance);
        }
    }
}

Signal byFFTW(Signal input, bool inverse)
{
    int const n = int(input.re.size());
    Signal output = input;
    fftw_iodim const size{n, 1, 1};
    // The plan of exchanged parts has the positive exponent.
    fftw_plan plan =
        inverse ? fftw_plan_guru_split_dft(1, &size, 0, nullptr, input.re.data(), input.im.data(),
                                           output.re.data(), output.im.data(), FFTW_ESTIMATE)
                : fftw_plan_guru_split_dft(1, &size, 0, nullptr, input.im.data(), input.re.data(),
                                           output.im.data(), output.re.data(), FFTW_ESTIMATE);
    fftw_execute(plan);
    fftw_destroy_plan(plan);
    if (inverse) {
        for (std::vector<double> *part : {&output.re, &output.im}) {
            for (double &value : *part) {
                value /= n;
            }
        }
    }
    return output;
}

TEST(ComputeFFT, AgreesWithFFTW)
{
    for (int n = 2; n <= 1 << 20; n *= 2) {
        Signal const input = randomSignal(n, unsigned(n) + 1);
        double const tolerance = 1e-15 * std::sqrt(double(n)) * (4 + std::log2(n));
        EXPECT_LT(greatestDifference(byFFTW(input, false), run(input, false)), tolerance) << n;
        EXPECT_LT(greatestDifference(byFFTW(input, true), run(input, true)), tolerance) << n;
    }
}

RC_GTEST_PROP(ComputeFFT, InverseUndoes, ())
{
    int const n = 1 << *rc::gen::inRange(0, 11);
    Signal const input = randomSignal(n, *rc::gen::arbitrary<unsigned int>());
    RC_ASSERT(greatestDifference(input, run(run(input, false), true)) < 1e-14);
}

} // namespace
