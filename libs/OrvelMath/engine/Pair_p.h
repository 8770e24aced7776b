#pragma once

/// @file
/// Two doubles side by side, for formulas that are the same in several coordinates. The lanes hold
/// independent results: each is what the scalar formula gives, to the last bit, on every processor.

#include <OrvelMath/engine/Lanes_p.h>

#include <cstdint>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace engine {

/// Two doubles. Arithmetic and comparisons work lane by lane.
using Pair = Lanes<double, 2>::Vector;
/// The answers of a comparison of two pairs.
using PairMask = std::int64_t __attribute__((vector_size(16)));

ORVEL_INLINE Pair pairOf(double both)
{
    return Pair{both, both};
}

/// Two doubles that follow one another.
ORVEL_INLINE Pair loadPair(double const *from)
{
    Pair v;
    Lanes<double, 2>::load(v, from);
    return v;
}

ORVEL_INLINE void storePair(double *to, Pair v)
{
    Lanes<double, 2>::store(to, v);
}

/// The first lanes of `a` and of `b`.
ORVEL_INLINE Pair firsts(Pair a, Pair b)
{
    return Pair{a[0], b[0]};
}

/// The second lanes of `a` and of `b`.
ORVEL_INLINE Pair seconds(Pair a, Pair b)
{
    return Pair{a[1], b[1]};
}

/// The two lanes in the other order.
ORVEL_INLINE Pair exchanged(Pair a)
{
    return Pair{a[1], a[0]};
}

/// First lane plus second lane, in this order.
ORVEL_INLINE double sumOf(Pair a)
{
    return a[0] + a[1];
}

/// First lane times second lane.
ORVEL_INLINE double productOf(Pair a)
{
    return a[0] * a[1];
}

ORVEL_INLINE PairMask signBits()
{
    return PairMask{INT64_MIN, INT64_MIN};
}

ORVEL_INLINE Pair magnitude(Pair a)
{
    return reinterpret_cast<Pair>(reinterpret_cast<PairMask>(a) & ~signBits());
}

/// `a` with its sign changed in the lanes where the answer is yes.
ORVEL_INLINE Pair negatedWhere(PairMask answers, Pair a)
{
    return reinterpret_cast<Pair>(reinterpret_cast<PairMask>(a) ^ (answers & signBits()));
}

/// `a` with its sign changed where that of `sign` is minus.
ORVEL_INLINE Pair turnedBySign(Pair sign, Pair a)
{
    return reinterpret_cast<Pair>(reinterpret_cast<PairMask>(a) ^
                                  (reinterpret_cast<PairMask>(sign) & signBits()));
}

/// a < b ? a : b in each lane: b where one of them is NaN.
ORVEL_INLINE Pair lesserOr(Pair a, Pair b)
{
#if defined(__SSE2__)
    return _mm_min_pd(a, b);
#else
    return Pair{a[0] < b[0] ? a[0] : b[0], a[1] < b[1] ? a[1] : b[1]};
#endif
}

/// a > b ? a : b in each lane: b where one of them is NaN.
ORVEL_INLINE Pair greaterOr(Pair a, Pair b)
{
#if defined(__SSE2__)
    return _mm_max_pd(a, b);
#else
    return Pair{a[0] > b[0] ? a[0] : b[0], a[1] > b[1] ? a[1] : b[1]};
#endif
}

/// Bit i is set where lane i answers yes.
ORVEL_INLINE int answerBits(PairMask answers)
{
#if defined(__SSE2__)
    return _mm_movemask_pd(reinterpret_cast<__m128d>(answers));
#else
    return (answers[0] != 0 ? 1 : 0) + (answers[1] != 0 ? 2 : 0);
#endif
}

/// The same for eight answers at once: bits 2 i and 2 i + 1 are those of the lanes of answers[i].
ORVEL_INLINE int answerBits(PairMask const (&answers)[8])
{
#if defined(__SSE2__)
    // Each answer is all bits or none, so narrowing it to a byte loses nothing.
    auto const narrowed = [&](int i) {
        __m128 const low = reinterpret_cast<__m128>(answers[i]);
        __m128 const high = reinterpret_cast<__m128>(answers[i + 1]);
        return _mm_castps_si128(_mm_shuffle_ps(low, high, _MM_SHUFFLE(2, 0, 2, 0)));
    };
    return _mm_movemask_epi8(_mm_packs_epi16(_mm_packs_epi32(narrowed(0), narrowed(2)),
                                             _mm_packs_epi32(narrowed(4), narrowed(6))));
#else
    int bits = 0;
    for (int i = 0; i < 8; ++i) {
        bits |= answerBits(answers[i]) << 2 * i;
    }
    return bits;
#endif
}

/// a.x * b.y - a.y * b.x of two vectors of the plane, in both lanes.
ORVEL_INLINE Pair crossProduct(Pair a, Pair b)
{
    Pair const products = a * exchanged(b);
    return pairOf(products[0]) - pairOf(products[1]);
}

} // namespace engine
