#pragma once

/// @file
/// Vectors of numbers in the compilers' own notation: one wrapper for every folder and width.
///
/// GCC and Clang compile the notation for every processor: where a register holds fewer numbers,
/// they take several. So nothing here needs a second wording off x86.

#include <type_traits>
#include <utility>

/// Before a function of lanes: it becomes part of its caller and is compiled for the instructions
/// that the caller is compiled for.
#define ORVEL_INLINE inline __attribute__((always_inline))

#if defined(__x86_64__)
/// Compiles one function for a processor that the build as a whole doesn't demand. Call it only
/// where engine::vectorWidth() allows.
#define ORVEL_TARGET(isa) __attribute__((target(isa)))
#else
#define ORVEL_TARGET(isa)
#endif

namespace engine {

/// W numbers, each with a computation of its own: a lane never meets another, so its result has the
/// bits of the same computation on plain numbers. The operators + - * / and the comparisons of
/// `Vector` work lane by lane; `mask ? a : b` chooses lane by lane.
///
/// Vectors travel by reference only: passing one wider than the baseline registers by value would
/// depend on the calling convention. For two doubles, which always fit, see Pair_p.h.
template <typename T, int W>
struct Lanes
{
    static_assert(W >= 2 && (W & (W - 1)) == 0, "a power of two");
    static_assert(std::is_arithmetic_v<T>, "numbers");

    static constexpr int width = W;

    typedef T Vector __attribute__((vector_size(W * sizeof(T))));
    /// The answers of a comparison: all bits set for yes, none for no.
    using Mask = decltype(Vector{} < Vector{});

    static ORVEL_INLINE void load(Vector &v, T const *from)
    {
        v = *reinterpret_cast<Unaligned const *>(from);
    }

    static ORVEL_INLINE void store(T *to, Vector const &v)
    {
        *reinterpret_cast<Unaligned *>(to) = v;
    }

    static ORVEL_INLINE void broadcast(Vector &v, T value)
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

    /// from[0], from[Step], from[2*Step], ... for a Step of 1, 2 or 4. Reads W * Step numbers.
    template <int Step>
    static ORVEL_INLINE void loadEvery(Vector &v, T const *from)
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

    /// Sets the sign of each lane to plus, that of a NaN too.
    static ORVEL_INLINE void magnitude(Vector &v, Vector const &a)
    {
        Vector const minusZero = -Vector{}; // the sign bit alone
        v = reinterpret_cast<Vector>(reinterpret_cast<Mask>(a) &
                                     ~reinterpret_cast<Mask>(minusZero));
    }

    /// `value` where the answer is yes, +0.0 elsewhere.
    static ORVEL_INLINE void keepWhere(Vector &v, Mask const &answers, Vector const &value)
    {
        v = reinterpret_cast<Vector>(answers & reinterpret_cast<Mask>(value));
    }

    /// True when a lane answers yes.
    static ORVEL_INLINE bool any(Mask const &answers)
    {
        return any(answers, std::make_integer_sequence<int, W>());
    }

private:
    typedef T Unaligned __attribute__((vector_size(W * sizeof(T)), aligned(alignof(T)), may_alias));

    template <int... I>
    static ORVEL_INLINE bool any(Mask const &answers, std::integer_sequence<int, I...>)
    {
        return (answers[I] | ...) != 0;
    }

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
    static ORVEL_INLINE void broadcast(Vector &v, T value, std::integer_sequence<int, I...>)
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

} // namespace engine
