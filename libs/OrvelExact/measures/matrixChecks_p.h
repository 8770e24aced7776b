#pragma once

/// @file
/// What is asked of a matrix before it is computed with.

#include <OrvelMath/base/matrixC.h>

#include <algorithm>
#include <cmath>

namespace orvelExact {

/// The largest size of an element.
inline double largestOf(matrixC3x3<double> const &m)
{
    double largest = 0.0;
    for (int i = 0; i < 9; ++i) {
        largest = std::max(largest, std::fabs(m[i]));
    }
    return largest;
}

inline bool isFinite(matrixC3x3<double> const &m)
{
    for (int i = 0; i < 9; ++i) {
        if (!std::isfinite(m[i])) {
            return false;
        }
    }
    return true;
}

} // namespace orvelExact
