#pragma once

#include <cstdint>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

/// \file
/// Two doubles side by side, for formulas that are the same in several coordinates. The lanes hold
/// independent results: each is what the scalar formula gives, to the last bit, on every processor.

namespace MatUtil {

/// Two doubles. Arithmetic and comparisons work lane by lane.
using Pair = double __attribute__((vector_size(16)));
/// The answers of a comparison of two pairs.
using PairMask = std::int64_t __attribute__((vector_size(16)));

inline PairMask signBits()
{
    return PairMask{INT64_MIN, INT64_MIN};
}

inline Pair magnitude(Pair a)
{
    return reinterpret_cast<Pair>(reinterpret_cast<PairMask>(a) & ~signBits());
}

/// \p a with its sign changed in the lanes where the answer is yes.
inline Pair negatedWhere(PairMask answers, Pair a)
{
    return reinterpret_cast<Pair>(reinterpret_cast<PairMask>(a) ^ (answers & signBits()));
}

/// a < b ? a : b in each lane: b where one of them is NaN.
inline Pair lesserOr(Pair a, Pair b)
{
#if defined(__SSE2__)
    return _mm_min_pd(a, b);
#else
    return Pair{a[0] < b[0] ? a[0] : b[0], a[1] < b[1] ? a[1] : b[1]};
#endif
}

/// a > b ? a : b in each lane: b where one of them is NaN.
inline Pair greaterOr(Pair a, Pair b)
{
#if defined(__SSE2__)
    return _mm_max_pd(a, b);
#else
    return Pair{a[0] > b[0] ? a[0] : b[0], a[1] > b[1] ? a[1] : b[1]};
#endif
}

/// Bit i is set where lane i answers yes.
inline int answerBits(PairMask answers)
{
#if defined(__SSE2__)
    return _mm_movemask_pd(reinterpret_cast<__m128d>(answers));
#else
    return (answers[0] != 0 ? 1 : 0) + (answers[1] != 0 ? 2 : 0);
#endif
}

} // namespace MatUtil
