#include <OrvelMath/numerics/CircleFit.h>
#include <OrvelMath/numerics/EigenVectorComputationC.h>
#include <OrvelMath/numerics/LinearDiophantineEquationC.h>
#include <OrvelMath/numerics/Transforms.h>

#include "support/AllocationCount.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

namespace {

using NumericsAllocations = support::AllocationCounting;
using support::allocationsOf;

TEST_F(NumericsAllocations, TransformsMakeNone)
{
    for (int n : {1, 2, 8, 16, 32, 64, 100, 128, 1024, 4096}) {
        std::size_t const size = std::size_t(n);
        std::vector<double> re(size, 1.0), im(size, 2.0), outRe(size), outIm(size);
        std::vector<double> rootsRe(size), rootsIm(size), scratch(2 * size);
        EXPECT_EQ(0, allocationsOf([&] {
                      generateRoots(rootsRe.data(), rootsIm.data(), n);
                      computeFFT(re.data(), im.data(), outRe.data(), outIm.data(), n,
                                 rootsRe.data(), rootsIm.data(), scratch.data());
                      computeInverseFFT(outRe.data(), outIm.data(), re.data(), im.data(), n,
                                        rootsRe.data(), rootsIm.data(), scratch.data());
                  }));
    }
    std::vector<double> grid(256), coefficients(64), workspace(2 * 256 + 5 * 16);
    std::vector<double> weights(16), table(16 * 36);
    std::vector<int> offsets(8, 0);
    EXPECT_EQ(0, allocationsOf([&] {
                  computeFSTSlow(grid.data(), grid.data(), coefficients.data(), coefficients.data(),
                                 workspace.data(), false, table.data(), weights.data(),
                                 offsets.data(), 8);
              }));
}

TEST_F(NumericsAllocations, CircleFitsMakeNone)
{
    std::vector<vectorC2d<double>, OrvelAllocatorT<vectorC2d<double>>> const points{
        {6, 2}, {1, 7}, {-4, 2}};
    EXPECT_EQ(0, allocationsOf([&] {
                  MatUtil::kasaFit(points);
                  MatUtil::taubinFit(points, 0.0);
              }));
}

TEST_F(NumericsAllocations, EigenVectorComputationMakesItsRecordOnly)
{
    matrixC3x3<double> const matrix({2, 1, 0}, {1, 3, 1}, {0, 1, 4});
    EXPECT_EQ(1, allocationsOf([&] { EigenVectorComputationC{matrix}; }));
    double first[3], second[3], values[3];
    for (int algorithm = 0; algorithm < 3; ++algorithm) {
        EXPECT_EQ(0, allocationsOf([&] {
                      MatUtil::getEigenVector3d(matrix, first, second, values,
                                                MatUtil::EigenVectorAlgoE(algorithm));
                  }));
    }
}

TEST_F(NumericsAllocations, LinearDiophantineEquationMakesNone)
{
    EXPECT_EQ(0, allocationsOf([] {
                  int x, y, xStep, yStep;
                  LinearDiophantineEquationC const equation(3, 5);
                  equation.solve(1, x, y, xStep, yStep);
                  equation.findSolutionInRange(100, 0, 100, 0, 100, x, y);
              }));
}

} // namespace
