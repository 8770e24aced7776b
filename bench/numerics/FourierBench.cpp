#include "../support/rows.h"
#include "workload.h"

#include <OrvelMath/numerics/Transforms.h>

#include <benchmark/benchmark.h>

#ifdef ORVEL_HAVE_FFTW
#include <fftw3.h>
#endif
#ifdef ORVEL_HAVE_KISSFFT
#include <kissfft/kissfft.hh>
#endif

#include <algorithm>
#include <complex>
#include <cstdint>
#include <vector>

// Forward transforms of one random signal, in split arrays where the library takes them. Rates are
// n * log2(n) * 5 / time, the usual count of operations.

namespace {

struct Signal
{
    explicit Signal(std::int64_t n)
        : re(std::size_t(n))
        , im(std::size_t(n))
    {
        re.fillRandomly(1);
        im.fillRandomly(2);
    }
    AlignedArray re, im;
};

void report(benchmark::State &state, std::int64_t size)
{
    double log2 = 0;
    for (std::int64_t n = size; n > 1; n /= 2) {
        ++log2;
    }
    state.counters["FLOPS"] = benchmark::Counter(5.0 * double(size) * log2,
                                                 benchmark::Counter::kIsIterationInvariantRate);
}

using Transform = void (*)(double *, double *, double *, double *, int, double *, double *,
                           double *);

void runOrvel(benchmark::State &state, std::int64_t size, Transform transform)
{
    int const n = int(size);
    Signal in(n), out(n), roots(n);
    AlignedArray scratch(2 * std::size_t(n));
    generateRoots(roots.re.data(), roots.im.data(), n);
    for (auto _ : state) {
        transform(in.re.data(), in.im.data(), out.re.data(), out.im.data(), n, roots.re.data(),
                  roots.im.data(), scratch.data());
        benchmark::ClobberMemory();
    }
    report(state, size);
}

void fftOrvel(benchmark::State &state, std::int64_t size)
{
    runOrvel(state, size, computeFFT);
}

void fftOrvelInverse(benchmark::State &state, std::int64_t size)
{
    runOrvel(state, size, computeInverseFFT);
}

/// Single butterflies and a bit-reversed scatter: what the fast path must agree with.
void plainTransform(double *inRe, double *inIm, double *outRe, double *outIm, int n,
                    double *rootsRe, double *rootsIm, double *scratch)
{
    double *const re = scratch, *const im = scratch + n;
    std::copy(inRe, inRe + n, re);
    std::copy(inIm, inIm + n, im);
    int bits = 0;
    for (int half = n / 2, groups = 1; half > 0; half /= 2, groups *= 2, ++bits) {
        for (int g = 0; g < groups; ++g) {
            for (int j = 0; j < half; ++j) {
                int const a = 2 * half * g + j, b = a + half;
                double const dr = re[a] - re[b], di = im[a] - im[b];
                double const wr = rootsRe[j * groups], wi = rootsIm[j * groups];
                re[a] += re[b];
                im[a] += im[b];
                re[b] = dr * wr - di * wi;
                im[b] = dr * wi + di * wr;
            }
        }
    }
    for (int i = 0; i < n; ++i) {
        int reversed = 0;
        for (int b = 0; b < bits; ++b) {
            reversed = reversed << 1 | (i >> b & 1);
        }
        outRe[reversed] = re[i];
        outIm[reversed] = im[i];
    }
}

void fftPlainLoop(benchmark::State &state, std::int64_t size)
{
    runOrvel(state, size, plainTransform);
}

#ifdef ORVEL_HAVE_FFTW
void runFFTW(benchmark::State &state, std::int64_t size, unsigned int rigour)
{
    int const n = int(size);
    Signal in(n), out(n);
    fftw_iodim const dimension{n, 1, 1};
    fftw_plan plan = fftw_plan_guru_split_dft(1, &dimension, 0, nullptr, in.im.data(), in.re.data(),
                                              out.im.data(), out.re.data(),
                                              rigour); // exchanged parts: positive exponent
    in.re.fillRandomly(1);
    in.im.fillRandomly(2);
    for (auto _ : state) {
        fftw_execute(plan);
        benchmark::ClobberMemory();
    }
    fftw_destroy_plan(plan);
    report(state, size);
}

void fftFFTWEstimate(benchmark::State &state, std::int64_t size)
{
    runFFTW(state, size, FFTW_ESTIMATE);
}

void fftFFTWMeasure(benchmark::State &state, std::int64_t size)
{
    runFFTW(state, size, FFTW_MEASURE);
}
#endif

#ifdef ORVEL_HAVE_KISSFFT
void fftKissFFT(benchmark::State &state, std::int64_t size)
{
    std::size_t const n = std::size_t(size);
    kissfft<double> transform(n, true);
    std::vector<std::complex<double>> in(n), out(n);
    AlignedArray values(2 * n);
    values.fillRandomly(1);
    for (std::size_t i = 0; i < n; ++i) {
        in[i] = {values[2 * i], values[2 * i + 1]};
    }
    for (auto _ : state) {
        transform.transform(in.data(), out.data());
        benchmark::ClobberMemory();
    }
    report(state, size);
}
#endif

[[maybe_unused]] bool const areRegistered = [] {
    std::vector<std::int64_t> const sizes = rows::sizes(1 << 6, 1 << 22, 2);
    rows::add("fft/forward", sizes, "orvel", fftOrvel);
    rows::add("fft/inverse", sizes, "orvel", fftOrvelInverse);
    rows::add("fft/forward", rows::sizes(1 << 6, 1 << 21, 8), "plainLoop", fftPlainLoop);
#ifdef ORVEL_HAVE_FFTW
    rows::add("fft/forward", sizes, "fftw.estimate", fftFFTWEstimate);
    rows::add("fft/forward", sizes, "fftw.measure", fftFFTWMeasure);
#endif
#ifdef ORVEL_HAVE_KISSFFT
    rows::add("fft/forward", sizes, "kissfft", fftKissFFT);
#endif
    return true;
}();

} // namespace
