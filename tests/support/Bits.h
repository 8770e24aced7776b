#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>

namespace support {

inline std::uint64_t bitsOf(double value)
{
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

/// Equal to the last bit, so that 0 and -0 differ; any NaN equals any NaN.
inline bool sameBits(double a, double b)
{
    return (a != a && b != b) || bitsOf(a) == bitsOf(b);
}

inline testing::AssertionResult SameBits(double expected, double actual)
{
    if (sameBits(expected, actual)) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << testing::PrintToString(actual) << " is not, to the bit, "
                                       << testing::PrintToString(expected);
}

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

/// A value that no computation yields by chance; tells outputs that were left alone.
constexpr double preset = -7.25e77;

} // namespace support
