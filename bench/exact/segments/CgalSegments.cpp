#if defined(ORVEL_HAVE_CGAL)

#include "SegmentBench.h"

#include <CGAL/Arr_segment_traits_2.h>
#include <CGAL/Exact_predicates_exact_constructions_kernel.h>
#include <CGAL/Surface_sweep_2_algorithms.h>

#include <benchmark/benchmark.h>

namespace {

using Kernel = CGAL::Exact_predicates_exact_constructions_kernel;
using Traits = CGAL::Arr_segment_traits_2<Kernel>;

/// The sweep of CGAL gives the points of crossing, ends left out; it is asked for no pairs.
void measure(benchmark::State &state, std::string const &kind, int count)
{
    std::vector<Traits::Curve_2> segments;
    for (orvelExact::Segment2 const &s : segmentsOf(kind, count)) {
        if (s.from != s.to) {
            segments.emplace_back(Kernel::Point_2(s.from.x(), s.from.y()),
                                  Kernel::Point_2(s.to.x(), s.to.y()));
        }
    }
    for (auto _ : state) {
        std::vector<Kernel::Point_2> points;
        CGAL::compute_intersection_points(segments.begin(), segments.end(),
                                          std::back_inserter(points));
        state.counters["points"] = points.size();
    }
}

bool registerAll()
{
    for (std::string const kind : {"short", "long", "lattice"}) {
        for (int const count : {1000, kind == "long" ? 2000 : 100000}) {
            std::string const name = "allCrossings/" + kind + "/" + std::to_string(count);
            benchmark::RegisterBenchmark((name + "/cgal").c_str(), measure, kind, count)
                ->Unit(benchmark::kMillisecond);
        }
    }
    return true;
}

bool const registered = registerAll();

} // namespace

#endif
