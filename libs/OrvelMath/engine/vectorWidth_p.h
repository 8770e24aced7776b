#pragma once

/// @file
/// The one place that asks what the processor can do.

#include <atomic>

namespace engine {

namespace detail {

extern std::atomic<int> knownVectorWidth; ///< 0 until the first question
int findVectorWidth();

} // namespace detail

/// How many doubles a vector register of this processor holds: 2, 4 (AVX2) or 8 (AVX-512). Every
/// width gives the same bits; a wider one is faster.
///
/// The environment variable ORVELMATH_VECTOR_WIDTH, read at the first call, lowers the answer to 2
/// or 4, so that a test reaches each code path on one machine. It never raises it.
inline int vectorWidth()
{
    int const known = detail::knownVectorWidth.load(std::memory_order_relaxed);
    return known != 0 ? known : detail::findVectorWidth();
}

/// Lowers the answer of vectorWidth() to at most `width` from now on, in this process; 8 takes the
/// limit away, that of the environment too. For tests.
/// @return the answer of vectorWidth() from now on.
int limitVectorWidth(int width);

} // namespace engine
