// What the constructors of numerics do when memory runs out. The global operator new of this
// program counts, and fails when told to.

#include "IterativeMatrices.h"

#include <OrvelMath/numerics/EigenVectorComputationC.h>
#include <OrvelMath/numerics/PowerMethod.h>
#include <OrvelMath/numerics/WielandtMethod.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <limits>
#include <new>

namespace {

constexpr long never = std::numeric_limits<long>::max();

std::atomic<long> liveBlocks(0);
std::atomic<long> allocationsLeft(never);

void *allocate(std::size_t size)
{
    if (allocationsLeft.fetch_sub(1) <= 0) {
        throw std::bad_alloc();
    }
    void *const memory = std::malloc(size != 0 ? size : 1);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    ++liveBlocks;
    return memory;
}

void release(void *memory) noexcept
{
    if (memory != nullptr) {
        --liveBlocks;
        std::free(memory);
    }
}

/// Lets each allocation of `make` fail in turn and expects every block back.
/// @return how many allocations there are
template <typename Make>
int failEachAllocation(Make make)
{
    for (int allowed = 0;; ++allowed) {
        long const before = liveBlocks;
        bool failed = false;
        allocationsLeft = allowed;
        try {
            make();
        } catch (std::bad_alloc const &) {
            failed = true;
        }
        allocationsLeft = never;
        EXPECT_EQ(before, liveBlocks) << "after the failure of allocation " << allowed;
        if (!failed) {
            return allowed;
        }
    }
}

} // namespace

void *operator new(std::size_t size)
{
    return allocate(size);
}

void *operator new[](std::size_t size)
{
    return allocate(size);
}

void operator delete(void *memory) noexcept
{
    release(memory);
}

void operator delete[](void *memory) noexcept
{
    release(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    release(memory);
}

void operator delete[](void *memory, std::size_t) noexcept
{
    release(memory);
}

TEST(OutOfMemory, PowerMethodGivesBackWhatItHad)
{
    MatrixNXN matrix(3);
    iterative::fill(matrix, 3, {4, 1, 0, 1, 3, 1, 0, 1, 2});
    EXPECT_EQ(2, failEachAllocation([&] { PowerMethod(&matrix, 1e-9); }));
}

TEST(OutOfMemory, WielandtMethodGivesBackWhatItHad)
{
    MatrixNXN matrix(3);
    iterative::fill(matrix, 3, {4, 1, 0, 1, 3, 1, 0, 1, 2});
    double known[3] = {0.8, 0.5, 0.2};
    EXPECT_GE(failEachAllocation([&] { WielandtMethod(&matrix, 4.7, known, 1e-9); }), 4);
}

TEST(OutOfMemory, JacobiMethodGivesBackWhatItHad)
{
    SymmetricMatrixNXN matrix(3);
    EXPECT_EQ(1, failEachAllocation([&] { JacobiMethod method(&matrix); }));
}

TEST(OutOfMemory, MatricesWhoseBytesHaveNoNumberAreRefused)
{
    // n * n * 8 would wrap to 0, to 8 and to a few gigabytes.
    for (unsigned int n : {0x80000000u, 0xffffffffu, 1518500250u, 3037000500u}) {
        EXPECT_THROW(MatrixNXN matrix(n), std::bad_alloc) << n;
        EXPECT_THROW(SymmetricMatrixNXN matrix(n), std::bad_alloc) << n;
    }
}
