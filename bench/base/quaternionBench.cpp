#include "samples.h"

#include <benchmark/benchmark.h>

#ifdef ORVEL_HAVE_EIGEN
#include "peers/eigenPeer.h"
#endif

#include <array>

namespace {

void quaternionToMatrixOrvel(benchmark::State &state)
{
    std::vector<Quaternion4D> const q = anyQuaternions();
    Turn turn;
    for (auto _ : state) {
        Matrix4X4C m = q[turn.next()].GetMatrix();
        benchmark::DoNotOptimize(m);
    }
}
BENCHMARK(quaternionToMatrixOrvel)->Name("quaternion/toMatrix/64/orvel");

void matrixToQuaternionOrvel(benchmark::State &state)
{
    std::vector<Matrix4X4C> const m = anyMatrices(true);
    Quaternion4D q;
    Turn turn;
    for (auto _ : state) {
        q.SetMatrix(m[turn.next()]);
        benchmark::DoNotOptimize(q);
    }
}
BENCHMARK(matrixToQuaternionOrvel)->Name("quaternion/fromMatrix/64/orvel");

void slerpOrvel(benchmark::State &state)
{
    std::vector<Quaternion4D> const q = anyQuaternions();
    Turn turn;
    for (auto _ : state) {
        Quaternion4D between = q[turn.next()].Slerp(q[0], 0.3);
        benchmark::DoNotOptimize(between);
    }
}
BENCHMARK(slerpOrvel)->Name("quaternion/slerp/64/orvel");

#ifdef ORVEL_HAVE_EIGEN

using Components = std::array<double, 4>;

std::vector<Components> anyComponents()
{
    std::vector<Components> result;
    for (Quaternion4D const &q : anyQuaternions()) {
        Components c;
        q.GetComponents(c[0], c[1], c[2], c[3]);
        result.push_back(c);
    }
    return result;
}

void quaternionToMatrixEigen(benchmark::State &state)
{
    std::vector<Components> const q = anyComponents();
    Turn turn;
    for (auto _ : state) {
        double m[4][4];
        eigenPeer::matrixOf(q[turn.next()].data(), m);
        benchmark::DoNotOptimize(m);
    }
}
BENCHMARK(quaternionToMatrixEigen)->Name("quaternion/toMatrix/64/eigen");

void matrixToQuaternionEigen(benchmark::State &state)
{
    std::vector<Matrix4X4C> const m = anyMatrices(true);
    Turn turn;
    for (auto _ : state) {
        Components q;
        eigenPeer::quaternionOf(m[turn.next()].GetConstMatrixRef(), q.data());
        benchmark::DoNotOptimize(q);
    }
}
BENCHMARK(matrixToQuaternionEigen)->Name("quaternion/fromMatrix/64/eigen");

void slerpEigen(benchmark::State &state)
{
    std::vector<Components> const q = anyComponents();
    Turn turn;
    for (auto _ : state) {
        Components between;
        eigenPeer::slerp(q[turn.next()].data(), q[0].data(), 0.3, between.data());
        benchmark::DoNotOptimize(between);
    }
}
BENCHMARK(slerpEigen)->Name("quaternion/slerp/64/eigen");

#endif

} // namespace
