#pragma once

/// @file
/// The passes of the radix-2 decimation-in-frequency transform, several stages at a time.
///
/// Each butterfly is the plain one: the sum goes to the upper place, the difference times its root
/// to the lower. A pass runs up to three stages on values held in registers, and a vector holds
/// butterflies that do not depend on each other, so every result has the bits that a loop over
/// single butterflies gives. The stages are laid out as in the self-sorting transform of T. G.
/// Stockham (1966): a pass leaves its results where the next one reads them contiguously, and the
/// last one leaves natural order, so no bit-reversed scatter is needed.

#include <OrvelMath/engine/Lanes_p.h>

#include <cstddef>
#include <cstring>
#include <functional>
#include <utility>

namespace Fourier {

/// Read-only split complex data, or the table of roots.
struct ComplexIn
{
    double const *re;
    double const *im;
};

/// Writable split complex data.
struct ComplexOut
{
    double *re;
    double *im;

    operator ComplexIn() const { return {re, im}; }
};

constexpr int log2Of(int powerOfTwo)
{
    return powerOfTwo < 2 ? 0 : 1 + log2Of(powerOfTwo / 2);
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

/// One butterfly on a number or, lane by lane, on vectors. The inverse takes the conjugate root.
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

/// R complex vectors and what is done to them between their load and their store.
template <int W, int R, bool Inverse>
class Block
{
    using L = engine::Lanes<double, W>;
    using Vector = typename L::Vector;
    using Rows = std::make_integer_sequence<int, R>;

public:
    /// The R - 1 roots of log2(R) stages: first those of the first stage, R/2 of them.
    struct Roots
    {
        Vector re[R];
        Vector im[R];
    };

    /// One set of roots for all lanes; t is the index of the first root of the first stage.
    static ORVEL_INLINE void broadcastRoots(Roots &w, ComplexIn roots, int t, int n)
    {
        broadcastStage<R / 2>(w, roots, t, n, std::make_integer_sequence<int, R / 2>());
    }

    /// Lane l takes the roots of index t + l.
    static ORVEL_INLINE void laneRoots(Roots &w, ComplexIn roots, int t, int n)
    {
        laneStage<R / 2>(w, roots, t, n, std::make_integer_sequence<int, R / 2>());
    }

    ORVEL_INLINE void load(ComplexIn from, int distance) { load(from, distance, Rows()); }

    ORVEL_INLINE void transform(Roots const &w)
    {
        stage<R>(w, 0, std::make_integer_sequence<int, R / 2>());
    }

    /// Stores the rows in the order of the reversed bits of their numbers.
    ORVEL_INLINE void store(ComplexOut to, int distance) const { store(to, distance, Rows()); }

    ORVEL_INLINE void scale(double factor)
    {
        Vector f;
        L::broadcast(f, factor);
        scale(f, Rows());
    }

    /// Stores element by element: the R values of lane 0, then those of lane 1 and so on; R is W.
    ORVEL_INLINE void storeTransposed(ComplexOut to) const
    {
        storeTransposed(to.re, m_re, Rows());
        storeTransposed(to.im, m_im, Rows());
    }

private:
    template <int Half, int... I>
    static ORVEL_INLINE void broadcastStage(Roots &w, ComplexIn roots, int t, int n,
                                            std::integer_sequence<int, I...>)
    {
        (L::broadcast(w.re[R - 2 * Half + I], roots.re[t + I * (n / (2 * Half))]), ...);
        (L::broadcast(w.im[R - 2 * Half + I], roots.im[t + I * (n / (2 * Half))]), ...);
        if constexpr (Half > 1) {
            broadcastStage<Half / 2>(w, roots, 2 * t, n,
                                     std::make_integer_sequence<int, Half / 2>());
        }
    }

    template <int Half, int... I>
    static ORVEL_INLINE void laneStage(Roots &w, ComplexIn roots, int t, int n,
                                       std::integer_sequence<int, I...>)
    {
        constexpr int Step = R / 2 / Half;
        (L::template loadEvery<Step>(w.re[R - 2 * Half + I], roots.re + t + I * (n / (2 * Half))),
         ...);
        (L::template loadEvery<Step>(w.im[R - 2 * Half + I], roots.im + t + I * (n / (2 * Half))),
         ...);
        if constexpr (Half > 1) {
            laneStage<Half / 2>(w, roots, 2 * t, n, std::make_integer_sequence<int, Half / 2>());
        }
    }

    template <int... I>
    ORVEL_INLINE void load(ComplexIn from, int distance, std::integer_sequence<int, I...>)
    {
        (L::load(m_re[I], from.re + I * distance), ...);
        (L::load(m_im[I], from.im + I * distance), ...);
    }

    template <int... I>
    ORVEL_INLINE void store(ComplexOut to, int distance, std::integer_sequence<int, I...>) const
    {
        (L::store(to.re + reverseBits(I, log2Of(R)) * distance, m_re[I]), ...);
        (L::store(to.im + reverseBits(I, log2Of(R)) * distance, m_im[I]), ...);
    }

    template <int... I>
    ORVEL_INLINE void scale(Vector const &f, std::integer_sequence<int, I...>)
    {
        ((m_re[I] *= f), ...);
        ((m_im[I] *= f), ...);
    }

    /// The stages of a group of Size rows that begins at row first, the coarsest one first.
    template <int Size, int... I>
    ORVEL_INLINE void stage(Roots const &w, int first, std::integer_sequence<int, I...>)
    {
        constexpr int Half = Size / 2;
        (butterfly<Inverse>(m_re[first + I], m_im[first + I], m_re[first + I + Half],
                            m_im[first + I + Half], w.re[R - Size + I], w.im[R - Size + I]),
         ...);
        if constexpr (Half > 1) {
            stage<Half>(w, first, std::make_integer_sequence<int, Half / 2>());
            stage<Half>(w, first + Half, std::make_integer_sequence<int, Half / 2>());
        }
    }

    template <int... I>
    static ORVEL_INLINE void storeTransposed(double *to, Vector const (&rows)[R],
                                             std::integer_sequence<int, I...>)
    {
        Vector v[R];
        ((v[reverseBits(I, log2Of(R))] = rows[I]), ...);
        L::transpose(v);
        (L::store(to + I * R, v[I]), ...);
    }

    Vector m_re[R];
    Vector m_im[R];
};

/// The first log2(W) stages: W neighbouring columns side by side.
template <int W, bool Inverse>
ORVEL_INLINE void firstPass(ComplexIn from, ComplexOut to, int n, ComplexIn roots)
{
    using Columns = Block<W, W, Inverse>;
    int const columns = n / W;
    for (int p = 0; p < columns; p += W) {
        typename Columns::Roots w = {};
        Columns::laneRoots(w, roots, p, n);
        Columns block;
        block.load({from.re + p, from.im + p}, columns);
        block.transform(w);
        block.storeTransposed({to.re + p * W, to.im + p * W});
    }
}

/// The next log2(R) stages; `groups` transforms are separated so far and stand side by side.
template <int W, int R, bool Inverse, bool Scaled>
ORVEL_INLINE void pass(ComplexIn from, ComplexOut to, int n, int groups, ComplexIn roots)
{
    using Groups = Block<W, R, Inverse>;
    int const columns = n / R / groups;
    for (int p = 0; p < columns; ++p) {
        typename Groups::Roots w = {};
        Groups::broadcastRoots(w, roots, p * groups, n);
        for (int q = 0; q < groups; q += W) {
            int const read = p * groups + q;
            int const written = p * R * groups + q;
            Groups block;
            block.load({from.re + read, from.im + read}, n / R);
            block.transform(w);
            if constexpr (Scaled) {
                block.scale(1.0 / n); // exact, since n is a power of two
            }
            block.store({to.re + written, to.im + written}, groups);
        }
    }
}

/// The smallest transform that transform() runs on vectors of W.
constexpr int smallestSize(int width)
{
    return width < 8 ? width * 8 : width * width;
}

inline bool overlap(double const *a, double const *b, int n)
{
    std::less<double const *> const before;
    return before(a, b + n) && before(b, a + n);
}

inline bool overlap(ComplexIn a, ComplexIn b, int n)
{
    return overlap(a.re, b.re, n) || overlap(a.re, b.im, n) || overlap(a.im, b.re, n) ||
           overlap(a.im, b.im, n);
}

/// The whole transform of a power of two n, at least smallestSize(W). `out` and `scratch` take
/// turns in receiving the results of the passes, the last of which writes `out`. The roots are
/// only read, and so is `in`, which may be the same memory as `out`.
template <int W, bool Inverse>
ORVEL_INLINE void transform(ComplexIn in, ComplexOut out, ComplexOut scratch, int n,
                            ComplexIn roots)
{
    int const stages = log2Of(n) - log2Of(W);
    bool const startsInOut = (stages + 2) / 3 % 2 == 0; // even count of passes after the first
    ComplexOut to = startsInOut ? out : scratch;
    ComplexOut other = startsInOut ? scratch : out;
    if (startsInOut && overlap(in, out, n)) {
        std::memcpy(scratch.re, in.re, std::size_t(n) * sizeof(double));
        std::memcpy(scratch.im, in.im, std::size_t(n) * sizeof(double));
        in = scratch;
    }

    firstPass<W, Inverse>(in, to, n, roots);
    int groups = W;
    if (stages % 3 == 1) {
        pass<W, 2, Inverse, false>(to, other, n, groups, roots);
        std::swap(to, other);
        groups *= 2;
    } else if (stages % 3 == 2) {
        pass<W, 4, Inverse, false>(to, other, n, groups, roots);
        std::swap(to, other);
        groups *= 4;
    }
    for (; groups < n / 8; groups *= 8) {
        pass<W, 8, Inverse, false>(to, other, n, groups, roots);
        std::swap(to, other);
    }
    pass<W, 8, Inverse, Inverse>(to, out, n, groups, roots);
}

} // namespace Fourier
