#pragma once

/// @file
/// How long the comparisons with a definition run.

#include <cstdlib>
#include <cstring>

/// A hundred thousand cases; a million with the environment variable ORVEL_LONG_TESTS=1.
inline int caseCount()
{
    char const *const isLong = std::getenv("ORVEL_LONG_TESTS");
    return isLong != nullptr && std::strcmp(isLong, "1") == 0 ? 1000000 : 100000;
}
