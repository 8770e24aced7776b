#pragma once

/// @file
/// Numbers and the loop of the measurements.

#include <benchmark/benchmark.h>

#include <random>
#include <string>
#include <vector>

/// Numbers for the measurements: `random` in [-1, 1], or `lattice` of 0.1, where many signs are 0.
inline std::vector<double> numbers(bool isLattice)
{
    std::mt19937_64 generator(42);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    std::vector<double> result(1 << 14);
    for (double &value : result) {
        value = isLattice ? 0.1 * static_cast<double>(generator() % 11) : uniform(generator);
    }
    return result;
}

/// Registers a measurement for both kinds of numbers, the kind as its argument.
inline void forNumbers(std::string const &predicate, std::string const &who,
                       void (*measure)(benchmark::State &))
{
    for (int const isLattice : {0, 1}) {
        std::string const row =
            predicate + (isLattice ? "/lattice/16384/" : "/random/16384/") + who;
        benchmark::RegisterBenchmark(row.c_str(), measure)->Arg(isLattice);
    }
}

/// Calls `signOf` for each window of `count` consecutive points of the dimension of `Point`.
template <typename Point, int dimension, int count, typename SignOf>
void measureSigns(benchmark::State &state, SignOf const &signOf)
{
    std::vector<double> const coordinates = numbers(state.range(0) != 0);
    std::vector<Point> points;
    for (std::size_t i = 0; i + dimension <= coordinates.size(); i += dimension) {
        if constexpr (dimension == 2) {
            points.emplace_back(coordinates[i], coordinates[i + 1]);
        } else {
            points.emplace_back(coordinates[i], coordinates[i + 1], coordinates[i + 2]);
        }
    }
    std::size_t const windows = points.size() - count;
    for (auto _ : state) {
        for (std::size_t i = 0; i < windows; ++i) {
            int const sign = static_cast<int>(signOf(&points[i]));
            benchmark::DoNotOptimize(sign); // one by one, as in an algorithm that branches on it
        }
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * windows));
}
