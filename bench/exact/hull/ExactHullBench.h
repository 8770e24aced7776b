#pragma once

/// @file
/// Clouds and the loop of the measurements.

#include <benchmark/benchmark.h>

#include <OrvelExact/base/points.h>

#include <string>

using Cloud = QVector<orvelExact::Point3>;

/// The clouds of the measurements, the same in every run.
Cloud const &spaceCloud(std::string const &kind, int count);

/// Registers a measurement for all clouds and sizes.
void forSpaceClouds(std::string const &name,
                    void (*measure)(benchmark::State &, std::string const &kind, int count));

double processorSeconds();

/// Times `build`, which returns an object that holds the hull, by the processor time of the thread;
/// destruction is left out.
template <typename Build>
void measureBuild(benchmark::State &state, Build const &build)
{
    for (auto _ : state) {
        double const start = processorSeconds();
        auto const hull = build();
        state.SetIterationTime(processorSeconds() - start);
        benchmark::DoNotOptimize(&hull);
    }
}
