#pragma once

/// @file
/// Registers rows whose name says the size.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

namespace rows {

/// The sizes from first on, each `factor` times the one before it, up to last.
inline std::vector<std::int64_t> sizes(std::int64_t first, std::int64_t last, std::int64_t factor)
{
    std::vector<std::int64_t> all;
    for (std::int64_t size = first; size <= last; size *= factor) {
        all.push_back(size);
    }
    return all;
}

/// Adds a row familyAndCase/size/who for each size, which measures run(state, size).
template <typename Run>
void add(std::string const &familyAndCase, std::vector<std::int64_t> const &sizes,
         std::string const &who, Run run)
{
    for (std::int64_t const size : sizes) {
        std::string const name = familyAndCase + '/' + std::to_string(size) + '/' + who;
        benchmark::RegisterBenchmark(name.c_str(),
                                     [=](benchmark::State &state) { run(state, size); });
    }
}

} // namespace rows
