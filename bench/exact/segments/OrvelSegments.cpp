#include "SegmentBench.h"

#include <benchmark/benchmark.h>

namespace {

void measure(benchmark::State &state, std::string const &kind, int count)
{
    QVector<orvelExact::Segment2> const segments = segmentsOf(kind, count);
    int pairs = 0;
    for (auto _ : state) {
        pairs = orvelExact::allCrossings(segments).pairs.size();
    }
    state.counters["pairs"] = pairs;
}

bool registerAll()
{
    for (std::string const kind : {"short", "long", "lattice"}) {
        for (int const count : {1000, kind == "long" ? 2000 : 100000}) {
            std::string const name = "allCrossings/" + kind + "/" + std::to_string(count);
            benchmark::RegisterBenchmark((name + "/orvel").c_str(), measure, kind, count)
                ->Unit(benchmark::kMillisecond);
        }
    }
    return true;
}

bool const registered = registerAll();

} // namespace
