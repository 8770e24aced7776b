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

// Forward transforms of one random signal, in split arrays where the library takes them. The
// argument is the size. Rates are n * log2(n) * 5 / time, the usual count of operations.

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

void report(benchmark::State &state)
{
    double log2 = 0;
    for (std::int64_t n = state.range(0); n > 1; n /= 2) {
        ++log2;
    }
    state.counters["FLOPS"] = benchmark::Counter(5.0 * double(state.range(0)) * log2,
                                                 benchmark::Counter::kIsIterationInvariantRate);
}

using Transform = void (*)(double *, double *, double *, double *, int, double *, double *,
                           double *);

void runOurs(benchmark::State &state, Transform transform)
{
    int const n = int(state.range(0));
    Signal in(n), out(n), roots(n);
    AlignedArray scratch(2 * std::size_t(n));
    generateRoots(roots.re.data(), roots.im.data(), n);
    for (auto _ : state) {
        transform(in.re.data(), in.im.data(), out.re.data(), out.im.data(), n, roots.re.data(),
                  roots.im.data(), scratch.data());
        benchmark::ClobberMemory();
    }
    report(state);
}

void fftOurs(benchmark::State &state)
{
    runOurs(state, computeFFT);
}

void fftOursInverse(benchmark::State &state)
{
    runOurs(state, computeInverseFFT);
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

void fftPlainLoop(benchmark::State &state)
{
    runOurs(state, plainTransform);
}

#ifdef ORVEL_HAVE_FFTW
void runFFTW(benchmark::State &state, unsigned int rigour)
{
    int const n = int(state.range(0));
    Signal in(n), out(n);
    fftw_iodim const size{n, 1, 1};
    fftw_plan plan =
        fftw_plan_guru_split_dft(1, &size, 0, nullptr, in.im.data(), in.re.data(), out.im.data(),
                                 out.re.data(), rigour); // exchanged parts: positive exponent
    in.re.fillRandomly(1);
    in.im.fillRandomly(2);
    for (auto _ : state) {
        fftw_execute(plan);
        benchmark::ClobberMemory();
    }
    fftw_destroy_plan(plan);
    report(state);
}

void fftFFTWEstimate(benchmark::State &state)
{
    runFFTW(state, FFTW_ESTIMATE);
}

void fftFFTWMeasure(benchmark::State &state)
{
    runFFTW(state, FFTW_MEASURE);
}
#endif

#ifdef ORVEL_HAVE_KISSFFT
void fftKissFFT(benchmark::State &state)
{
    std::size_t const n = std::size_t(state.range(0));
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
    report(state);
}
#endif

void sizes(benchmark::internal::Benchmark *bench)
{
    bench->RangeMultiplier(2)->Range(1 << 6, 1 << 22);
}

BENCHMARK(fftOurs)->Apply(sizes);
BENCHMARK(fftOursInverse)->Apply(sizes);
BENCHMARK(fftPlainLoop)->RangeMultiplier(8)->Range(1 << 6, 1 << 21);
#ifdef ORVEL_HAVE_FFTW
BENCHMARK(fftFFTWEstimate)->Apply(sizes);
BENCHMARK(fftFFTWMeasure)->Apply(sizes);
#endif
#ifdef ORVEL_HAVE_KISSFFT
BENCHMARK(fftKissFFT)->Apply(sizes);
#endif

} // namespace
