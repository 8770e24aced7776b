/// @file
/// Two doubles at a time, where the processor is known to do that. Not part of the interface.
#pragma once

#ifdef __SSE2__

#include <OrvelMath/base/Point2D.h>

#include <emmintrin.h>

namespace sse2 {

inline __m128d load(Point2D const &p)
{
    return _mm_loadu_pd(&p.x());
}

inline __m128d abs(__m128d v)
{
    return _mm_andnot_pd(_mm_set1_pd(-0.0), v);
}

inline __m128d negative(__m128d v)
{
    return _mm_xor_pd(_mm_set1_pd(-0.0), v);
}

inline double sum(__m128d v)
{
    return _mm_cvtsd_f64(_mm_add_sd(v, _mm_unpackhi_pd(v, v)));
}

inline double product(__m128d v)
{
    return _mm_cvtsd_f64(_mm_mul_sd(v, _mm_unpackhi_pd(v, v)));
}

/// The cross product a.x * b.y - a.y * b.x, in both lanes.
inline __m128d cross(__m128d a, __m128d b)
{
    __m128d const products = _mm_mul_pd(a, _mm_shuffle_pd(b, b, 1));
    return _mm_sub_pd(_mm_unpacklo_pd(products, products), _mm_unpackhi_pd(products, products));
}

} // namespace sse2

#endif
