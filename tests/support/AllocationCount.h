#pragma once

#include <gtest/gtest.h>

namespace support {

/// Heap allocations of this thread so far, by `malloc` and by `operator new`, the libraries' own
/// included; -1 where they cannot be counted (under a sanitizer, or with another C library).
///
/// For suites with COUNTS_ALLOCATIONS, whose program brings a `malloc` of its own.
long allocationCount();

/// Allocations while `call` runs.
template <typename Call>
long allocationsOf(Call call)
{
    long const before = allocationCount();
    call();
    return allocationCount() - before;
}

/// Base of the tests that count allocations; skips them where that is not possible.
class AllocationCounting : public testing::Test
{
protected:
    void SetUp() override
    {
        if (allocationCount() < 0) {
            GTEST_SKIP() << "allocations cannot be counted here";
        }
    }
};

} // namespace support
