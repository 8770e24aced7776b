#include "PolygonBench.h"

#include <OrvelExact/polygon/polygonLocation.h>
#include <OrvelExact/polygon/polygonMeasures.h>

#include <benchmark/benchmark.h>

namespace {

void locate(benchmark::State &state, int corners)
{
    auto const polygon = raggedPolygon(corners);
    auto const points = queriesOf(polygon);
    int i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(orvelExact::locateInPolygon(polygon, points.at(i)));
        i = (i + 1) % queryCount;
    }
}

void measureArea(benchmark::State &state, int corners)
{
    auto const polygon = raggedPolygon(corners);
    for (auto _ : state) {
        benchmark::DoNotOptimize(orvelExact::polygonArea(polygon));
    }
}

BENCHMARK_CAPTURE(locate, 100, 100)->Name("locateInPolygon/ragged/100/orvel");
BENCHMARK_CAPTURE(locate, 10000, 10000)->Name("locateInPolygon/ragged/10000/orvel");
BENCHMARK_CAPTURE(measureArea, 100, 100)->Name("polygonArea/ragged/100/orvel");
BENCHMARK_CAPTURE(measureArea, 10000, 10000)->Name("polygonArea/ragged/10000/orvel");

} // namespace
