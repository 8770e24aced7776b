#pragma once

/// @file
/// The three algorithms behind MatUtil::getEigenVector3d, each with its convention of outputs.

#include <OrvelMath/base/valueTypes.h>

namespace EigenVectorAlgorithms {

struct Result
{
    vectorC3d<double> first;  ///< eigenvector of the largest eigenvalue
    vectorC3d<double> second; ///< eigenvector of the smallest eigenvalue
    vectorC3d<double> values;
};

bool power(matrixC3x3<double> const &matrix, Result &result);
bool shiftedQR(matrixC3x3<double> const &matrix, Result &result);
bool analytic(matrixC3x3<double> const &matrix, Result &result);

} // namespace EigenVectorAlgorithms
