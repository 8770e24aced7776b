#include "ExactHullBench.h"

#include <OrvelExact/hull/ConvexHull.h>
#include <OrvelMath/hull/ConvexHullBuilderC.h>

#include <memory>

namespace {

void withExact(benchmark::State &state, std::string const &kind)
{
    Cloud const &points = spaceCloud(kind, static_cast<int>(state.range(0)));
    measureBuild(state, [&points] { return orvelExact::ConvexHull(points); });
    state.counters["corners"] = orvelExact::ConvexHull(points).vertices().size();
}

void withOrvelMath(benchmark::State &state, std::string const &kind)
{
    QList<vectorC3d<double>> points;
    for (orvelExact::Point3 const &p : spaceCloud(kind, static_cast<int>(state.range(0)))) {
        points.append(p);
    }
    measureBuild(state, [&points] {
        auto builder = std::make_unique<ConvexHullBuilderC>(points);
        builder->buildHull();
        return builder;
    });
}

/// Wall time, by one thread and by two.
void byThreads(benchmark::State &state, std::string const &kind)
{
    Cloud const &points = spaceCloud(kind, 1000000);
    int const threads = static_cast<int>(state.range(0));
    for (auto _ : state) {
        orvelExact::ConvexHull const hull(points, threads);
        benchmark::DoNotOptimize(&hull);
    }
}

bool registerThreads()
{
    for (std::string const kind : {"ball", "cube", "gauss", "sphere"}) {
        benchmark::RegisterBenchmark((kind + "/threads").c_str(), byThreads, kind)
            ->UseRealTime()
            ->Unit(benchmark::kMillisecond)
            ->Arg(1)
            ->Arg(2);
    }
    return true;
}

bool const registered = (forSpaceClouds("OrvelExact", withExact),
                         forSpaceClouds("OrvelMath", withOrvelMath), registerThreads());

} // namespace
