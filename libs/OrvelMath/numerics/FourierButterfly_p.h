#pragma once

/// @file
/// The butterfly of the radix-2 decimation-in-frequency transform, and its data.

#include <OrvelMath/engine/Lanes_p.h>

namespace Fourier {

/// Read-only split complex data, or the table of roots.
struct ComplexIn
{
    double const *re;
    double const *im;

    ComplexIn at(int index) const { return {re + index, im + index}; }
};

/// Writable split complex data.
struct ComplexOut
{
    double *re;
    double *im;

    ComplexOut at(int index) const { return {re + index, im + index}; }
    operator ComplexIn() const { return {re, im}; }
};

/// floor(log2(n)), and 0 below 2.
constexpr int log2Of(int n)
{
    return n < 2 ? 0 : 1 + log2Of(n / 2);
}

/// The lowest bits of i in reverse order.
constexpr int reverseBits(int i, int bits)
{
    int reversed = 0;
    for (int b = 0; b < bits; ++b) {
        reversed = reversed << 1 | (i & 1);
        i >>= 1;
    }
    return reversed;
}

/// Puts the sum into a, and the difference times the root w into b; the inverse takes the conjugate
/// root. On numbers or, lane by lane, on vectors.
template <bool Inverse, typename Number>
ORVEL_INLINE void butterfly(Number &aRe, Number &aIm, Number &bRe, Number &bIm, Number const &wRe,
                            Number const &wIm)
{
    Number const dRe = aRe - bRe;
    Number const dIm = aIm - bIm;
    aRe = aRe + bRe;
    aIm = aIm + bIm;
    if constexpr (Inverse) {
        bRe = dRe * wRe + dIm * wIm;
        bIm = dIm * wRe - dRe * wIm;
    } else {
        bRe = dRe * wRe - dIm * wIm;
        bIm = dRe * wIm + dIm * wRe;
    }
}

} // namespace Fourier
