#pragma once

/// @file
/// How many random cases a test takes.

#include <cstdlib>
#include <string>

namespace support {

/// True in a long run: with the environment variable ORVEL_LONG_TESTS=1.
inline bool runsLong()
{
    char const *const value = std::getenv("ORVEL_LONG_TESTS");
    return value && std::string(value) == "1";
}

/// How many random cases a test takes: 10^5, and 10^7 in a long run.
inline int caseCount()
{
    return runsLong() ? 10000000 : 100000;
}

} // namespace support
