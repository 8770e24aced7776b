#include "IterativeMatrices.h"
#include "support/AllocationCount.h"

#include <OrvelMath/numerics/PowerMethod.h>
#include <OrvelMath/numerics/WielandtMethod.h>

#include <gtest/gtest.h>

#include <new>

namespace {

using OutOfMemory = support::AllocationCounting;
using support::failEachAllocation;

} // namespace

TEST_F(OutOfMemory, PowerMethodGivesBackWhatItHad)
{
    MatrixNXN matrix(3);
    iterative::fill(matrix, 3, {4, 1, 0, 1, 3, 1, 0, 1, 2});
    EXPECT_EQ(2, failEachAllocation([&] { PowerMethod(&matrix, 1e-9); }));
}

TEST_F(OutOfMemory, WielandtMethodGivesBackWhatItHad)
{
    MatrixNXN matrix(3);
    iterative::fill(matrix, 3, {4, 1, 0, 1, 3, 1, 0, 1, 2});
    double known[3] = {0.8, 0.5, 0.2};
    EXPECT_GE(failEachAllocation([&] { WielandtMethod(&matrix, 4.7, known, 1e-9); }), 4);
}

TEST_F(OutOfMemory, JacobiMethodGivesBackWhatItHad)
{
    SymmetricMatrixNXN matrix(3);
    EXPECT_EQ(2, failEachAllocation([&] { JacobiMethod method(&matrix); }));
}

TEST(MatrixNXN, BytesWithoutANumberAreRefused)
{
    // n * n * 8 would wrap to 0, to 8 and to a few gigabytes.
    for (unsigned int n : {0x80000000u, 0xffffffffu, 1518500250u, 3037000500u}) {
        EXPECT_THROW(MatrixNXN matrix(n), std::bad_alloc) << n;
        EXPECT_THROW(SymmetricMatrixNXN matrix(n), std::bad_alloc) << n;
    }
}
