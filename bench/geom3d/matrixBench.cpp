#include "samples.h"

#include <benchmark/benchmark.h>

#ifdef ORVEL_HAVE_EIGEN
#include "peers/eigenPeer.h"

#include <Eigen/Dense>
#endif
#ifdef ORVEL_HAVE_QTGUI
#include "peers/qtPeer.h"

#include <QMatrix4x4>
#include <QVector3D>
#endif

namespace {

void MultiplyOrvel(benchmark::State &state)
{
    std::vector<Matrix4X4C> const m = anyMatrices(false);
    double result[4][4];
    Turn turn;
    for (auto _ : state) {
        std::size_t const i = turn.next();
        Math3DMultMatrix(result, m[i].GetConstMatrixRef(), m[0].GetConstMatrixRef());
        benchmark::DoNotOptimize(result);
    }
}
BENCHMARK(MultiplyOrvel);

void MultiplyClassOrvel(benchmark::State &state)
{
    std::vector<Matrix4X4C> const m = anyMatrices(false);
    Turn turn;
    for (auto _ : state) {
        Matrix4X4C result = m[turn.next()] * m[0];
        benchmark::DoNotOptimize(result);
    }
}
BENCHMARK(MultiplyClassOrvel);

void InvertOrvel(benchmark::State &state)
{
    std::vector<Matrix4X4C> const m = anyMatrices(false);
    Turn turn;
    for (auto _ : state) {
        Matrix4X4C work = m[turn.next()];
        bool done = work.Invert();
        benchmark::DoNotOptimize(done);
        benchmark::DoNotOptimize(work);
    }
}
BENCHMARK(InvertOrvel);

void InvertOrthogonalOrvel(benchmark::State &state)
{
    std::vector<Matrix4X4C> const m = anyMatrices(true);
    Turn turn;
    for (auto _ : state) {
        Matrix4X4C work = m[turn.next()];
        work.InvertOrthogonal();
        benchmark::DoNotOptimize(work);
    }
}
BENCHMARK(InvertOrthogonalOrvel);

void TransformOrvel(benchmark::State &state)
{
    std::vector<Point3D> const points = anyPoints();
    Matrix4X4C const m = anyMatrices(false)[0];
    Turn turn;
    for (auto _ : state) {
        Point3D image = m.MultMatrixVector(points[turn.next()]);
        benchmark::DoNotOptimize(image);
    }
}
BENCHMARK(TransformOrvel);

void TransformRespectWOrvel(benchmark::State &state)
{
    std::vector<Point3D> const points = anyPoints();
    Matrix4X4C const m = anyMatrices(false)[0];
    Turn turn;
    for (auto _ : state) {
        Point3D image = m.MultMatrixVectorRespectW(points[turn.next()]);
        benchmark::DoNotOptimize(image);
    }
}
BENCHMARK(TransformRespectWOrvel);

#ifdef ORVEL_HAVE_EIGEN

void MultiplyEigen(benchmark::State &state)
{
    std::vector<Matrix4X4C> const m = anyMatrices(false);
    double result[4][4];
    Turn turn;
    for (auto _ : state) {
        std::size_t const i = turn.next();
        eigenPeer::multiply(result, m[i].GetConstMatrixRef(), m[0].GetConstMatrixRef());
        benchmark::DoNotOptimize(result);
    }
}
BENCHMARK(MultiplyEigen);

/// Not across a boundary: the aligned type of Eigen's own, inlined into the loop.
void MultiplyEigenInlined(benchmark::State &state)
{
    using Matrix = Eigen::Matrix<double, 4, 4, Eigen::RowMajor>;
    std::vector<Matrix, Eigen::aligned_allocator<Matrix>> m;
    for (Matrix4X4C const &source : anyMatrices(false)) {
        m.push_back(Eigen::Map<Matrix const>(source.GetConstMatrixRef()[0]));
    }
    Turn turn;
    for (auto _ : state) {
        Matrix result = m[turn.next()] * m[0];
        benchmark::DoNotOptimize(result);
    }
}
BENCHMARK(MultiplyEigenInlined);

void InvertEigen(benchmark::State &state)
{
    std::vector<Matrix4X4C> const m = anyMatrices(false);
    Turn turn;
    for (auto _ : state) {
        Matrix4X4C work = m[turn.next()];
        eigenPeer::invert(work.GetMatrixRef());
        benchmark::DoNotOptimize(work);
    }
}
BENCHMARK(InvertEigen);

void InvertOrthogonalEigen(benchmark::State &state)
{
    std::vector<Matrix4X4C> const m = anyMatrices(true);
    Turn turn;
    for (auto _ : state) {
        Matrix4X4C work = m[turn.next()];
        eigenPeer::invertOrthogonal(work.GetMatrixRef());
        benchmark::DoNotOptimize(work);
    }
}
BENCHMARK(InvertOrthogonalEigen);

void TransformEigen(benchmark::State &state)
{
    std::vector<Point3D> const points = anyPoints();
    Matrix4X4C const m = anyMatrices(false)[0];
    Turn turn;
    for (auto _ : state) {
        double image[3];
        Point3D const &p = points[turn.next()];
        eigenPeer::transform(m.GetConstMatrixRef(), reinterpret_cast<double const *>(&p), image);
        benchmark::DoNotOptimize(image);
    }
}
BENCHMARK(TransformEigen);

void TransformRespectWEigen(benchmark::State &state)
{
    std::vector<Point3D> const points = anyPoints();
    Matrix4X4C const m = anyMatrices(false)[0];
    Turn turn;
    for (auto _ : state) {
        double image[3];
        Point3D const &p = points[turn.next()];
        eigenPeer::transformRespectW(m.GetConstMatrixRef(), reinterpret_cast<double const *>(&p),
                                     image);
        benchmark::DoNotOptimize(image);
    }
}
BENCHMARK(TransformRespectWEigen);

#endif

#ifdef ORVEL_HAVE_QTGUI

std::vector<QMatrix4x4> anyQtMatrices()
{
    std::vector<QMatrix4x4> matrices;
    for (Matrix4X4C const &m : anyMatrices(false)) {
        QMatrix4x4 narrow;
        for (int row = 0; row < 4; ++row) {
            for (int column = 0; column < 4; ++column) {
                narrow(row, column) = static_cast<float>(m.GetConstMatrixRef()[row][column]);
            }
        }
        matrices.push_back(narrow);
    }
    return matrices;
}

void MultiplyQtFloat(benchmark::State &state)
{
    std::vector<QMatrix4x4> const m = anyQtMatrices();
    QMatrix4x4 result;
    Turn turn;
    for (auto _ : state) {
        qtPeer::multiply(result, m[turn.next()], m[0]);
        benchmark::DoNotOptimize(result);
    }
}
BENCHMARK(MultiplyQtFloat);

void InvertQtFloat(benchmark::State &state)
{
    std::vector<QMatrix4x4> const m = anyQtMatrices();
    Turn turn;
    for (auto _ : state) {
        QMatrix4x4 work = m[turn.next()];
        qtPeer::invert(work);
        benchmark::DoNotOptimize(work);
    }
}
BENCHMARK(InvertQtFloat);

void TransformQtFloat(benchmark::State &state)
{
    std::vector<QVector3D> points;
    for (Point3D const &p : anyPoints()) {
        points.emplace_back(static_cast<float>(p.x()), static_cast<float>(p.y()),
                            static_cast<float>(p.z()));
    }
    QMatrix4x4 const m = anyQtMatrices()[0];
    QVector3D image;
    Turn turn;
    for (auto _ : state) {
        qtPeer::transform(m, points[turn.next()], image);
        benchmark::DoNotOptimize(image);
    }
}
BENCHMARK(TransformQtFloat);

#endif

} // namespace
