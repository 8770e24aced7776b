#include "ExactHullBench.h"

#include <OrvelExact/hull/ConvexHull.h>
#include <OrvelMath/hull/ConvexHullBuilderC.h>

#include <memory>

namespace {

void withExact(benchmark::State &state, std::string const &kind, int count)
{
    Cloud const &points = spaceCloud(kind, count);
    measureBuild(state, [&points] { return orvelExact::ConvexHull(points); });
    state.counters["corners"] = orvelExact::ConvexHull(points).vertices().size();
}

void withOrvelMath(benchmark::State &state, std::string const &kind, int count)
{
    QList<vectorC3d<double>> points;
    for (orvelExact::Point3 const &p : spaceCloud(kind, count)) {
        points.append(p);
    }
    measureBuild(state, [&points] {
        auto builder = std::make_unique<ConvexHullBuilderC>(points);
        builder->buildHull();
        return builder;
    });
}

/// Processor time of the calling thread, which does its share of the parts and all that follows: on
/// a machine with nothing else to do it is the time until the hull is there.
void byThreads(benchmark::State &state, std::string const &kind)
{
    Cloud const &points = spaceCloud(kind, 1000000);
    int const threads = static_cast<int>(state.range(0));
    measureBuild(state, [&] { return orvelExact::ConvexHull(points, threads); });
}

bool registerThreads()
{
    for (std::string const kind : {"ball", "cube", "gauss", "sphere"}) {
        benchmark::RegisterBenchmark(("exactHullThreads/" + kind + "/1000000/orvel").c_str(),
                                     byThreads, kind)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond)
            ->Arg(1)
            ->Arg(2);
    }
    return true;
}

bool const registered = (forSpaceClouds("orvel", withExact),
                         forSpaceClouds("OrvelMath", withOrvelMath), registerThreads());

} // namespace
