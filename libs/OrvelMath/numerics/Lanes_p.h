// Vectors of doubles in the compilers' own notation, and the widest that the processor has.
#pragma once

#include <utility>

#define ORVEL_INLINE inline __attribute__((always_inline))

#if defined(__x86_64__)
/// Compiles one function for a processor that the build as a whole doesn't demand.
#define ORVEL_TARGET(isa) __attribute__((target(isa)))
#endif

/// How many doubles a vector register of this processor holds: 2, 4 or 8.
int vectorWidth();

/// W doubles, each with a computation of its own: a lane never meets another, so its result has the
/// bits of the same computation on plain numbers.
///
/// Vectors travel by reference only: passing one wider than the baseline registers by value would
/// depend on the calling convention.
template <int W>
struct Lanes
{
    typedef double Vector __attribute__((vector_size(W * sizeof(double))));
    typedef Vector Unaligned __attribute__((aligned(alignof(double)), may_alias));

    static ORVEL_INLINE void load(Vector &v, double const *from)
    {
        v = *reinterpret_cast<Unaligned const *>(from);
    }

    static ORVEL_INLINE void store(double *to, Vector const &v)
    {
        *reinterpret_cast<Unaligned *>(to) = v;
    }

    static ORVEL_INLINE void broadcast(Vector &v, double value)
    {
        broadcast(v, value, std::make_integer_sequence<int, W>());
    }

    /// Every second one of the 2W elements of a and b.
    static ORVEL_INLINE void evens(Vector &v, Vector const &a, Vector const &b)
    {
        evens(v, a, b, std::make_integer_sequence<int, W>());
    }

    /// a0 b0 a1 b1 ... in the pair (low, high).
    static ORVEL_INLINE void interleave(Vector &low, Vector &high, Vector const &a, Vector const &b)
    {
        interleave(low, high, a, b, std::make_integer_sequence<int, W>());
    }

    /// from[0], from[Step], from[2*Step], ... for a Step of 1, 2 or 4.
    template <int Step>
    static ORVEL_INLINE void loadEvery(Vector &v, double const *from)
    {
        if constexpr (Step == 1) {
            load(v, from);
        } else {
            Vector a, b;
            loadEvery<Step / 2>(a, from);
            loadEvery<Step / 2>(b, from + W * (Step / 2));
            evens(v, a, b);
        }
    }

    /// Exchanges rows and lanes of W vectors.
    static ORVEL_INLINE void transpose(Vector (&rows)[W])
    {
        shuffleRows<W>(rows, std::make_integer_sequence<int, W / 2>());
    }

private:
    /// log2(Rounds) perfect shuffles of all elements: that many times, rows i and i + W/2 are
    /// interleaved into rows 2i and 2i + 1. With Rounds = W it is the transposition.
    template <int Rounds, int... I>
    static ORVEL_INLINE void shuffleRows(Vector (&v)[W], std::integer_sequence<int, I...> half)
    {
        if constexpr (Rounds > 1) {
            Vector shuffled[W];
            (interleave(shuffled[2 * I], shuffled[2 * I + 1], v[I], v[I + W / 2]), ...);
            ((v[2 * I] = shuffled[2 * I], v[2 * I + 1] = shuffled[2 * I + 1]), ...);
            shuffleRows<Rounds / 2>(v, half);
        }
    }

    template <int... I>
    static ORVEL_INLINE void broadcast(Vector &v, double value, std::integer_sequence<int, I...>)
    {
        v = Vector{(void(I), value)...};
    }

    template <int... I>
    static ORVEL_INLINE void evens(Vector &v, Vector const &a, Vector const &b,
                                   std::integer_sequence<int, I...>)
    {
        v = __builtin_shufflevector(a, b, (2 * I)...);
    }

    template <int... I>
    static ORVEL_INLINE void interleave(Vector &low, Vector &high, Vector const &a, Vector const &b,
                                        std::integer_sequence<int, I...>)
    {
        low = __builtin_shufflevector(a, b, (I / 2 + I % 2 * W)...);
        high = __builtin_shufflevector(a, b, (W / 2 + I / 2 + I % 2 * W)...);
    }
};
