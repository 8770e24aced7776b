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

void multiplyOrvel(benchmark::State &state)
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
BENCHMARK(multiplyOrvel)->Name("matrix/multiply/64/orvel");

void multiplyClassOrvel(benchmark::State &state)
{
    std::vector<Matrix4X4C> const m = anyMatrices(false);
    Turn turn;
    for (auto _ : state) {
        Matrix4X4C result = m[turn.next()] * m[0];
        benchmark::DoNotOptimize(result);
    }
}
BENCHMARK(multiplyClassOrvel)->Name("matrix/multiply/64/orvel.class");

void invertOrvel(benchmark::State &state)
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
BENCHMARK(invertOrvel)->Name("matrix/inverse/64/orvel");

/// Many different matrices, so that no order of pivots can be learnt.
void invertManyOrvel(benchmark::State &state)
{
    std::vector<Matrix4X4C> const m = manyMatrices();
    Turn turn(m.size());
    for (auto _ : state) {
        Matrix4X4C work = m[turn.next()];
        bool done = work.Invert();
        benchmark::DoNotOptimize(done);
        benchmark::DoNotOptimize(work);
    }
}
BENCHMARK(invertManyOrvel)->Name("matrix/inverse/4096/orvel");

void invertOrthogonalOrvel(benchmark::State &state)
{
    std::vector<Matrix4X4C> const m = anyMatrices(true);
    Turn turn;
    for (auto _ : state) {
        Matrix4X4C work = m[turn.next()];
        work.InvertOrthogonal();
        benchmark::DoNotOptimize(work);
    }
}
BENCHMARK(invertOrthogonalOrvel)->Name("matrix/orthogonalInverse/64/orvel");

void transformOrvel(benchmark::State &state)
{
    std::vector<Point3D> const points = anyPoints();
    Matrix4X4C const m = anyMatrices(false)[0];
    Turn turn;
    for (auto _ : state) {
        Point3D image = m.MultMatrixVector(points[turn.next()]);
        benchmark::DoNotOptimize(image);
    }
}
BENCHMARK(transformOrvel)->Name("matrix/transform/64/orvel");

void transformRespectWOrvel(benchmark::State &state)
{
    std::vector<Point3D> const points = anyPoints();
    Matrix4X4C const m = anyMatrices(false)[0];
    Turn turn;
    for (auto _ : state) {
        Point3D image = m.MultMatrixVectorRespectW(points[turn.next()]);
        benchmark::DoNotOptimize(image);
    }
}
BENCHMARK(transformRespectWOrvel)->Name("matrix/transformRespectW/64/orvel");

#ifdef ORVEL_HAVE_EIGEN

void multiplyEigen(benchmark::State &state)
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
BENCHMARK(multiplyEigen)->Name("matrix/multiply/64/eigen");

/// Not across a boundary: the aligned type of Eigen's own, inlined into the loop.
void multiplyEigenInlined(benchmark::State &state)
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
BENCHMARK(multiplyEigenInlined)->Name("matrix/multiply/64/eigen.inlined");

void invertEigen(benchmark::State &state)
{
    std::vector<Matrix4X4C> const m = anyMatrices(false);
    Turn turn;
    for (auto _ : state) {
        Matrix4X4C work = m[turn.next()];
        eigenPeer::invert(work.GetMatrixRef());
        benchmark::DoNotOptimize(work);
    }
}
BENCHMARK(invertEigen)->Name("matrix/inverse/64/eigen");

void invertManyEigen(benchmark::State &state)
{
    std::vector<Matrix4X4C> const m = manyMatrices();
    Turn turn(m.size());
    for (auto _ : state) {
        Matrix4X4C work = m[turn.next()];
        eigenPeer::invert(work.GetMatrixRef());
        benchmark::DoNotOptimize(work);
    }
}
BENCHMARK(invertManyEigen)->Name("matrix/inverse/4096/eigen");

void invertOrthogonalEigen(benchmark::State &state)
{
    std::vector<Matrix4X4C> const m = anyMatrices(true);
    Turn turn;
    for (auto _ : state) {
        Matrix4X4C work = m[turn.next()];
        eigenPeer::invertOrthogonal(work.GetMatrixRef());
        benchmark::DoNotOptimize(work);
    }
}
BENCHMARK(invertOrthogonalEigen)->Name("matrix/orthogonalInverse/64/eigen");

void transformEigen(benchmark::State &state)
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
BENCHMARK(transformEigen)->Name("matrix/transform/64/eigen");

void transformRespectWEigen(benchmark::State &state)
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
BENCHMARK(transformRespectWEigen)->Name("matrix/transformRespectW/64/eigen");

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

void multiplyQtFloat(benchmark::State &state)
{
    std::vector<QMatrix4x4> const m = anyQtMatrices();
    QMatrix4x4 result;
    Turn turn;
    for (auto _ : state) {
        qtPeer::multiply(result, m[turn.next()], m[0]);
        benchmark::DoNotOptimize(result);
    }
}
BENCHMARK(multiplyQtFloat)->Name("matrix/multiply/64/qt.float");

void invertQtFloat(benchmark::State &state)
{
    std::vector<QMatrix4x4> const m = anyQtMatrices();
    Turn turn;
    for (auto _ : state) {
        QMatrix4x4 work = m[turn.next()];
        qtPeer::invert(work);
        benchmark::DoNotOptimize(work);
    }
}
BENCHMARK(invertQtFloat)->Name("matrix/inverse/64/qt.float");

void transformQtFloat(benchmark::State &state)
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
BENCHMARK(transformQtFloat)->Name("matrix/transform/64/qt.float");

#endif

} // namespace
