#if defined(ORVEL_HAVE_CGAL)

#include "PolygonBench.h"

#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Polygon_2.h>

#include <benchmark/benchmark.h>

#include <vector>

namespace {

using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;

std::vector<Kernel::Point_2> cgalPoints(QVector<orvelExact::Point2> const &points)
{
    std::vector<Kernel::Point_2> result;
    for (orvelExact::Point2 const &p : points) {
        result.emplace_back(p.x(), p.y());
    }
    return result;
}

void locate(benchmark::State &state, int corners)
{
    auto const polygon = cgalPoints(raggedPolygon(corners));
    auto const points = cgalPoints(queriesOf(raggedPolygon(corners)));
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            CGAL::bounded_side_2(polygon.begin(), polygon.end(), points[i], Kernel()));
        i = (i + 1) % points.size();
    }
}

/// In plain doubles, without compensation.
void measureArea(benchmark::State &state, int corners)
{
    auto const polygon = cgalPoints(raggedPolygon(corners));
    for (auto _ : state) {
        benchmark::DoNotOptimize(CGAL::polygon_area_2(polygon.begin(), polygon.end(), Kernel()));
    }
}

BENCHMARK_CAPTURE(locate, 100, 100)->Name("locateInPolygon/ragged/100/cgal");
BENCHMARK_CAPTURE(locate, 10000, 10000)->Name("locateInPolygon/ragged/10000/cgal");
BENCHMARK_CAPTURE(measureArea, 100, 100)->Name("polygonArea/ragged/100/cgal");
BENCHMARK_CAPTURE(measureArea, 10000, 10000)->Name("polygonArea/ragged/10000/cgal");

} // namespace

#endif
