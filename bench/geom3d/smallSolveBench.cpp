#include "../base/samples.h"

#include <OrvelMath/engine/LinearSystemT_p.h>

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
void solveOrvel(benchmark::State &state)
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
BENCHMARK_TEMPLATE(solveOrvel, 2, 2)->Name("smallSystem/2x2/64/orvel");
BENCHMARK_TEMPLATE(solveOrvel, 2, 3)->Name("smallSystem/2x3/64/orvel");
BENCHMARK_TEMPLATE(solveOrvel, 3, 2)->Name("smallSystem/3x2/64/orvel");
BENCHMARK_TEMPLATE(solveOrvel, 3, 3)->Name("smallSystem/3x3/64/orvel");

#ifdef ORVEL_HAVE_EIGEN

/// Solution alone: the null space of a square system of full rank is not asked for.
template <int R, int C>
void solveFullPivLu(benchmark::State &state)
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
BENCHMARK_TEMPLATE(solveFullPivLu, 2, 2)->Name("smallSystem/2x2/64/eigen.fullPivLu");
BENCHMARK_TEMPLATE(solveFullPivLu, 2, 3)->Name("smallSystem/2x3/64/eigen.fullPivLu");
BENCHMARK_TEMPLATE(solveFullPivLu, 3, 2)->Name("smallSystem/3x2/64/eigen.fullPivLu");
BENCHMARK_TEMPLATE(solveFullPivLu, 3, 3)->Name("smallSystem/3x3/64/eigen.fullPivLu");

#endif

} // namespace
