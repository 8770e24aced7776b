#include "QtPeer.h"

#include <OrvelMath/proxymath/proxymath.h>

#include <benchmark/benchmark.h>

// Calls by name, beside Qt's way to call a method by its name. The caller keeps the name of the
// member, as an interpreter does; the benchmarks with FreshName build it anew for each call.
namespace {

using Vector3 = vectorC3d<double>;

void getX(benchmark::State &state)
{
    mzComPtrT<prxVector3dC> const vector(new prxVector3dC(Vector3(1, 2, 3)));
    mzComStringC const name("x");
    mzComVariantArrayC const arguments;
    mzComVariantC result;
    mzComPtrT<mzIException> exception;
    for (auto _ : state) {
        vector->invokeByName(name, proxyPropertyRead, arguments, result, exception);
        benchmark::DoNotOptimize(result.toDouble());
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(getX)->Name("callByName/get/1/orvel");

void getXFreshName(benchmark::State &state)
{
    mzComPtrT<prxVector3dC> const vector(new prxVector3dC(Vector3(1, 2, 3)));
    mzComVariantC result;
    mzComPtrT<mzIException> exception;
    for (auto _ : state) {
        vector->invokeByName("x", proxyPropertyRead, {}, result, exception);
        benchmark::DoNotOptimize(result.toDouble());
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(getXFreshName)->Name("callByName/getFreshName/1/orvel");

void qtGetX(benchmark::State &state)
{
    QtVector vector(Vector3(1, 2, 3));
    double result = 0.0;
    for (auto _ : state) {
        QMetaObject::invokeMethod(&vector, "x", Qt::DirectConnection, Q_RETURN_ARG(double, result));
        benchmark::DoNotOptimize(result);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(qtGetX)->Name("callByName/get/1/Qt");

void cross(benchmark::State &state)
{
    mzComPtrT<prxVector3dC> const vector(new prxVector3dC(Vector3(1, 2, 3)));
    mzComPtrT<mzIUnknown> const other(new prxVector3dC(Vector3(4, 5, 6)));
    mzComStringC const name("cross");
    mzComVariantArrayC const arguments = {mzComVariantC(other)};
    mzComVariantC result;
    mzComPtrT<mzIException> exception;
    for (auto _ : state) {
        vector->invokeByName(name, proxyMethod, arguments, result, exception);
        benchmark::DoNotOptimize(result);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(cross)->Name("callByName/cross/1/orvel");

void crossFreshName(benchmark::State &state)
{
    mzComPtrT<prxVector3dC> const vector(new prxVector3dC(Vector3(1, 2, 3)));
    mzComPtrT<mzIUnknown> const other(new prxVector3dC(Vector3(4, 5, 6)));
    mzComVariantC result;
    mzComPtrT<mzIException> exception;
    for (auto _ : state) {
        vector->invokeByName("cross", proxyMethod, {mzComVariantC(other)}, result, exception);
        benchmark::DoNotOptimize(result);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(crossFreshName)->Name("callByName/crossFreshName/1/orvel");

void qtCross(benchmark::State &state)
{
    QtVector vector(Vector3(1, 2, 3));
    QtVector other(Vector3(4, 5, 6));
    QObject *result = nullptr;
    for (auto _ : state) {
        QMetaObject::invokeMethod(&vector, "cross", Qt::DirectConnection,
                                  Q_RETURN_ARG(QObject *, result), Q_ARG(QObject *, &other));
        benchmark::DoNotOptimize(result);
        delete result;
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(qtCross)->Name("callByName/cross/1/Qt");

void qtCrossValue(benchmark::State &state)
{
    qRegisterMetaType<Vector3>("vectorC3d<double>");
    QtVector vector(Vector3(1, 2, 3));
    Vector3 const other(4, 5, 6);
    Vector3 result;
    for (auto _ : state) {
        QMetaObject::invokeMethod(&vector, "crossValue", Qt::DirectConnection,
                                  Q_RETURN_ARG(vectorC3d<double>, result),
                                  Q_ARG(vectorC3d<double>, other));
        benchmark::DoNotOptimize(result);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(qtCrossValue)->Name("callByName/crossBareValue/1/Qt");

} // namespace
