#pragma once

#include <gtest/gtest.h>

#include <new>

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

/// Blocks that this thread has taken and not given back: `malloc` and its kin, less `free`. A block
/// that another thread gives back counts there. 0 where allocations cannot be counted.
long livingAllocations();

/// Lets one request for memory of this thread fail: the one with this number, from 0, while the
/// object lives. Later requests are served again. Does nothing where allocations cannot be counted.
class FailingAllocation
{
public:
    explicit FailingAllocation(long index);
    FailingAllocation(FailingAllocation const &) = delete;
    FailingAllocation &operator=(FailingAllocation const &) = delete;
    ~FailingAllocation();

    /// Serves all requests from here on; returns whether one has failed.
    bool end();
};

/// Runs `call` again and again, each time with the next request for memory failed, until it gets by
/// without the failure; returns how many requests failed. What `call` throws then has to be
/// std::bad_alloc, and each run must give back all that it took: `call` is first run twice, so that
/// what is built once is there.
template <typename Call>
long failEachAllocation(Call call)
{
    call();
    call();
    for (long index = 0;; ++index) {
        long const before = livingAllocations();
        bool failed = false;
        {
            FailingAllocation failing(index);
            try {
                call();
            } catch (std::bad_alloc const &) {
            }
            failed = failing.end();
        }
        EXPECT_EQ(before, livingAllocations()) << "request " << index << " failed";
        if (!failed || testing::Test::HasFailure()) {
            return index;
        }
    }
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
