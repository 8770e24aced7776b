#include "../support/rows.h"
#include "workload.h"

#include <OrvelMath/engine/Lanes_p.h>
#include <OrvelMath/numerics/Transforms.h>

#include <benchmark/benchmark.h>

#ifdef ORVEL_HAVE_EIGEN
#include <Eigen/Core>
#endif
#ifdef ORVEL_HAVE_OPENBLAS
#include <cblas.h>
#endif

#include <cstddef>
#include <cstdint>
#include <vector>

// Order 0: a table of n/2 rows of n doubles times a vector. The size is n; with n = 256 the
// table stays in the second cache, with 16384 it takes 1 GiB. Rates are bytes of the table.

namespace {

struct Step
{
    explicit Step(std::int64_t n)
        : data(std::size_t(n))
        , weights(std::size_t(n))
        , scratch(std::size_t(n))
        , result(std::size_t(n / 2))
        , table(std::size_t(n * n / 2))
    {
        data.fillRandomly(1);
        weights.fillRandomly(2);
        scratch.fillRandomly(3);
        for (std::size_t i = 0; i < table.size(); ++i) {
            table[i] = double(i % 1013) / 1013.0 - 0.5;
        }
    }
    AlignedArray data, weights, scratch, result, table;
};

void report(benchmark::State &state, std::int64_t size)
{
    state.SetBytesProcessed(state.iterations() * size * size / 2 * std::int64_t(sizeof(double)));
}

void legendreOrvel(benchmark::State &state, std::int64_t size)
{
    Step step(size);
    for (auto _ : state) {
        legendreTrafo(step.data.data(), step.result.data(), int(size), 0, step.weights.data(),
                      step.table.data(), step.scratch.data());
        benchmark::ClobberMemory();
    }
    report(state, size);
}

void legendrePlainLoop(benchmark::State &state, std::int64_t size)
{
    Step step(size);
    std::size_t const n = std::size_t(size);
    for (auto _ : state) {
        for (std::size_t l = 0; l < n / 2; ++l) {
            double sum = 0.0;
            for (std::size_t j = 0; j < n; ++j) {
                sum += step.table[l * n + j] * step.scratch[j];
            }
            step.result[l] = sum;
        }
        benchmark::ClobberMemory();
    }
    report(state, size);
}

/// The sum of all elements in 32 independent lanes: nothing but reading. What the memory gives.
template <int W>
ORVEL_INLINE double sumAll(double const *values, std::size_t count)
{
    typename engine::Lanes<double, W>::Vector sums[32 / W] = {}, v;
    for (std::size_t i = 0; i < count; i += 32) {
        for (int k = 0; k < 32 / W; ++k) {
            engine::Lanes<double, W>::load(v, values + i + k * W);
            sums[k] += v;
        }
    }
    double total = 0.0;
    for (auto const &lanes : sums) {
        for (int lane = 0; lane < W; ++lane) {
            total += lanes[lane];
        }
    }
    return total;
}

#if defined(__x86_64__)
ORVEL_TARGET("avx512f")
double sumWide(double const *values, std::size_t count)
{
    return sumAll<8>(values, count);
}
#endif

double sumNarrow(double const *values, std::size_t count)
{
    return sumAll<2>(values, count);
}

void legendreReadOnly(benchmark::State &state, std::int64_t size)
{
    Step step(size);
    auto sum = sumNarrow;
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx512f")) {
        sum = sumWide;
    }
#endif
    for (auto _ : state) {
        benchmark::DoNotOptimize(sum(step.table.data(), step.table.size()));
    }
    report(state, size);
}

#ifdef ORVEL_HAVE_EIGEN
void legendreEigen(benchmark::State &state, std::int64_t size)
{
    Step step(size);
    Eigen::Index const n = size;
    using RowMajor = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;
    Eigen::Map<RowMajor const> const table(step.table.data(), n / 2, n);
    Eigen::Map<Eigen::VectorXd const> const x(step.scratch.data(), n);
    Eigen::Map<Eigen::VectorXd> result(step.result.data(), n / 2);
    for (auto _ : state) {
        result.noalias() = table * x;
        benchmark::ClobberMemory();
    }
    report(state, size);
}
#endif

#ifdef ORVEL_HAVE_OPENBLAS
void legendreOpenBLAS(benchmark::State &state, std::int64_t size)
{
    openblas_set_num_threads(1);
    Step step(size);
    int const n = int(size);
    for (auto _ : state) {
        cblas_dgemv(CblasRowMajor, CblasNoTrans, n / 2, n, 1.0, step.table.data(), n,
                    step.scratch.data(), 1, 0.0, step.result.data(), 1);
        benchmark::ClobberMemory();
    }
    report(state, size);
}
#endif

void sphericalOrvel(benchmark::State &state, std::int64_t size)
{
    int const b = int(size);
    std::size_t const n = 2 * std::size_t(b);
    AlignedArray re(n * n), im(n * n), coefficientsRe(n * n / 4), coefficientsIm(n * n / 4);
    AlignedArray workspace(2 * n * n + 5 * n), weights(n), table(n * n / 4 * (std::size_t(b) + 1));
    for (AlignedArray *array : {&re, &im, &weights, &table}) {
        array->fillRandomly(5);
    }
    std::vector<int> offsets;
    for (int m = 0, offset = 0; m < b; offset += (b - m) * 2 * b, ++m) {
        offsets.push_back(offset);
    }
    for (auto _ : state) {
        computeFSTSlow(re.data(), im.data(), coefficientsRe.data(), coefficientsIm.data(),
                       workspace.data(), false, table.data(), weights.data(), offsets.data(), b);
        benchmark::ClobberMemory();
    }
}

[[maybe_unused]] bool const areRegistered = [] {
    std::vector<std::int64_t> const sizes = rows::sizes(256, 16384, 4);
    rows::add("legendre/order0", sizes, "orvel", legendreOrvel);
    rows::add("legendre/order0", sizes, "readOnly", legendreReadOnly);
#ifdef ORVEL_HAVE_EIGEN
    rows::add("legendre/order0", sizes, "eigen", legendreEigen);
#endif
#ifdef ORVEL_HAVE_OPENBLAS
    rows::add("legendre/order0", sizes, "openblas", legendreOpenBLAS);
#endif
    rows::add("legendre/order0", sizes, "plainLoop", legendrePlainLoop);
    rows::add("spherical/slow", {16, 64, 256}, "orvel", sphericalOrvel);
    return true;
}();

} // namespace
