#pragma once

/// @file
/// The clouds on which hulls are measured, and how.

#include <benchmark/benchmark.h>

#include <array>
#include <ctime>
#include <string>
#include <vector>

using Point2 = std::array<double, 2>;
using Point3 = std::array<double, 3>;

/// Registers the rows hullSpace/CLOUD/SIZE/who, or hullPlane/..., of one of the libraries.
void forSpaceClouds(std::string const &who,
                    void (*measure)(benchmark::State &, std::vector<Point3> const &));
void forPlaneClouds(std::string const &who,
                    void (*measure)(benchmark::State &, std::vector<Point2> const &));

inline double processorSeconds()
{
    std::timespec time;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

/// Times `build`, which returns an object that holds the hull. Its destruction is measured too, but
/// told apart: the counter `free_ms`.
template <typename Build>
void measureBuild(benchmark::State &state, Build const &build)
{
    double freeing = 0.0;
    for (auto _ : state) {
        double built;
        {
            double const start = processorSeconds();
            auto const hull = build();
            built = processorSeconds();
            state.SetIterationTime(built - start);
            benchmark::DoNotOptimize(&hull);
            built = processorSeconds();
        }
        freeing += processorSeconds() - built;
    }
    state.counters["free_ms"] =
        benchmark::Counter(1e3 * freeing, benchmark::Counter::kAvgIterations);
}
