// What every benchmark prints above its rows beside the processor: the compiler and the peers that
// were there when it was configured.

#include <benchmark/benchmark.h>

namespace {

#if defined(__clang__)
constexpr char const *compiler = "Clang " __clang_version__;
#else
constexpr char const *compiler = "GCC " __VERSION__;
#endif

[[maybe_unused]] bool const added = [] {
    benchmark::AddCustomContext("compiler", compiler);
    benchmark::AddCustomContext("flags", ORVEL_BENCH_FLAGS);
    benchmark::AddCustomContext("peers", ORVEL_BENCH_PEERS);
    return true;
}();

} // namespace
