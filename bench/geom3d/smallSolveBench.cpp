#include "samples.h"

#include <OrvelMath/numerics/LinearSystemT_p.h>

#include <benchmark/benchmark.h>

#ifdef ORVEL_HAVE_EIGEN
#include <Eigen/LU>
#endif

#include <array>

namespace {

/// Matrix and right-hand side of one system, column by column.
template <int R, int C>
struct Sample
{
    alignas(16) std::array<double, R * C> matrix;
    alignas(16) std::array<double, R> rhs;
};

template <int R, int C>
std::vector<Sample<R, C>> anySystems()
{
    std::mt19937_64 random(20240303);
    std::vector<Sample<R, C>> samples(sampleCount);
    for (Sample<R, C> &sample : samples) {
        for (double &value : sample.matrix) {
            value = anyNumber(random, 10.0);
        }
        // a combination of the columns, so that tall systems have a solution too
        double weights[C];
        for (double &weight : weights) {
            weight = static_cast<int>(anyNumber(random, 8.0));
        }
        for (std::size_t r = 0; r < R; ++r) {
            sample.rhs[r] = 0.0;
            for (std::size_t c = 0; c < C; ++c) {
                sample.rhs[r] += weights[c] * sample.matrix[r + R * c];
            }
        }
    }
    return samples;
}

template <int R, int C>
void SolveOrvel(benchmark::State &state)
{
    std::vector<Sample<R, C>> const samples = anySystems<R, C>();
    Turn turn;
    for (auto _ : state) {
        Sample<R, C> const &sample = samples[turn.next()];
        LinearSystemT<R, C> const system(sample.matrix.data(), 1e-12);
        double solution[C];
        double nullSpace[C * C];
        int dimension = system.solve(sample.rhs.data(), solution, nullSpace);
        benchmark::DoNotOptimize(dimension);
        benchmark::DoNotOptimize(solution);
        benchmark::DoNotOptimize(nullSpace);
    }
}
BENCHMARK_TEMPLATE(SolveOrvel, 2, 2);
BENCHMARK_TEMPLATE(SolveOrvel, 2, 3);
BENCHMARK_TEMPLATE(SolveOrvel, 3, 2);
BENCHMARK_TEMPLATE(SolveOrvel, 3, 3);

#ifdef ORVEL_HAVE_EIGEN

/// Solution alone: the null space of a square system of full rank is not asked for.
template <int R, int C>
void SolveFullPivLu(benchmark::State &state)
{
    using Matrix = Eigen::Matrix<double, R, C>;
    using Rhs = Eigen::Matrix<double, R, 1>;
    std::vector<Sample<R, C>> const samples = anySystems<R, C>();
    Turn turn;
    for (auto _ : state) {
        Sample<R, C> const &sample = samples[turn.next()];
        Eigen::Map<Matrix const> const matrix(sample.matrix.data());
        Eigen::FullPivLU<Matrix> const lu(matrix);
        Eigen::Matrix<double, C, 1> solution = lu.solve(Eigen::Map<Rhs const>(sample.rhs.data()));
        benchmark::DoNotOptimize(solution);
    }
}
BENCHMARK_TEMPLATE(SolveFullPivLu, 2, 2);
BENCHMARK_TEMPLATE(SolveFullPivLu, 2, 3);
BENCHMARK_TEMPLATE(SolveFullPivLu, 3, 2);
BENCHMARK_TEMPLATE(SolveFullPivLu, 3, 3);

#endif

} // namespace
