#pragma once

/// @file
/// The passes of the transform: several stages at a time, several butterflies side by side.
///
/// A pass takes R rows of data through log2(R) stages in registers, and a vector holds butterflies
/// that don't depend on each other. Each value passes the same butterflies with the same roots as
/// in the loop over single butterflies, so every result has the bits of that loop. The stages are
/// laid out as in the self-sorting transform of T. G. Stockham (1966): a pass leaves its results
/// where the next one reads them contiguously, and the last one leaves natural order, so no
/// bit-reversed scatter is needed.
///
/// One pass, here with R = 4 rows. A + takes the sum of the two values on its line, w(k) below it
/// their difference times root k:
///
///     row  reads from              group of 4     groups of 2     writes to
///
///      0   source               ----+--------------+------------  target
///                                   |              |
///      1   source +   n/4       ----|----+---------w(2 t)-------  target + 2 groups
///                                   |    |
///      2   source + 2 n/4       ----w(t)-|---------+------------  target +   groups
///                                        |         |
///      3   source + 3 n/4       ---------w(t+n/4)--w(2 t)-------  target + 3 groups
///
/// `groups` transforms of n / groups values are separated so far; group q lies in every place
/// p * groups + q. A pass goes through the columns p < n / R / groups of each group q, with
///
///     source = p * groups + q,    target = p * R * groups + q,    t = p * groups.
///
/// The rows leave in the order of their reversed bits. In general, butterfly i of a group of S rows
/// takes the root (R/S) * t + i * (n/S).

#include <OrvelMath/engine/Lanes_p.h>
#include <OrvelMath/numerics/FourierButterfly_p.h>

#include <QtGlobal>

#include <cstddef>
#include <cstring>
#include <functional>
#include <type_traits>
#include <utility>

namespace Fourier {

template <typename Body, int... I>
ORVEL_INLINE void unrolled(Body const &body, std::integer_sequence<int, I...>)
{
    (body(std::integral_constant<int, I>()), ...);
}

/// Calls body(0) to body(Count - 1), whose arguments are constants of the compilation, so that what
/// they index stays in registers.
template <int Count, typename Body>
ORVEL_INLINE void unrolled(Body const &body)
{
    unrolled(body, std::make_integer_sequence<int, Count>());
}

/// The lanes are groups of one column: they share the roots of index t.
template <int W>
struct SharedRoots
{
    using L = engine::Lanes<double, W>;

    template <int Step>
    static ORVEL_INLINE void read(typename L::Vector &root, double const *first)
    {
        L::broadcast(root, *first);
    }
};

/// The lanes are columns: lane l takes the roots of index t + l, which lie Step apart.
template <int W>
struct RootsByLane
{
    using L = engine::Lanes<double, W>;

    template <int Step>
    static ORVEL_INLINE void read(typename L::Vector &root, double const *first)
    {
        L::template loadEvery<Step>(root, first);
    }
};

/// The R rows of one pass in registers, W of each.
template <int W, int R, bool Inverse>
class Block
{
    using L = engine::Lanes<double, W>;
    using Vector = typename L::Vector;

public:
    /// The R - 1 roots of the stages: R/2 of the group of R rows, then R/4 of the groups of half as
    /// many, and so on.
    struct Roots
    {
        Vector re[R];
        Vector im[R];
    };

    /// Reads the roots of the stages from the groups of Size rows on.
    template <typename Reader, int Size = R>
    static ORVEL_INLINE void readRoots(Roots &w, ComplexIn roots, int t, int n)
    {
        constexpr int step = R / Size;
        unrolled<Size / 2>([&](auto i) __attribute__((always_inline)) {
            constexpr int place = placeOfRoots<Size> + i;
            int const root = step * t + i * (n / Size);
            Reader::template read<step>(w.re[place], roots.re + root);
            Reader::template read<step>(w.im[place], roots.im + root);
        });
        if constexpr (Size > 2) {
            readRoots<Reader, Size / 2>(w, roots, t, n);
        }
    }

    ORVEL_INLINE void load(ComplexIn source, int distance)
    {
        unrolled<R>([&](auto row) __attribute__((always_inline)) {
            L::load(m_re[row], source.re + row * distance);
            L::load(m_im[row], source.im + row * distance);
        });
    }

    /// Runs the stages of the group of Size rows that begins at row First.
    template <int Size = R, int First = 0>
    ORVEL_INLINE void transform(Roots const &w)
    {
        constexpr int half = Size / 2;
        unrolled<half>([&](auto i) __attribute__((always_inline)) {
            constexpr int upper = First + i;
            constexpr int lower = upper + half;
            constexpr int root = placeOfRoots<Size> + i;
            butterfly<Inverse>(m_re[upper], m_im[upper], m_re[lower], m_im[lower], w.re[root],
                               w.im[root]);
        });
        if constexpr (half > 1) {
            transform<half, First>(w);
            transform<half, First + half>(w);
        }
    }

    ORVEL_INLINE void scale(double factor)
    {
        Vector f;
        L::broadcast(f, factor);
        unrolled<R>([&](auto row) __attribute__((always_inline)) {
            m_re[row] *= f;
            m_im[row] *= f;
        });
    }

    ORVEL_INLINE void store(ComplexOut target, int distance) const
    {
        unrolled<R>([&](auto row) __attribute__((always_inline)) {
            constexpr int place = reverseBits(row, log2Of(R));
            L::store(target.re + place * distance, m_re[row]);
            L::store(target.im + place * distance, m_im[row]);
        });
    }

    /// Stores lane by lane: the R values of lane 0, then those of lane 1 and so on; R is W.
    ORVEL_INLINE void storeLaneByLane(ComplexOut target) const
    {
        storeRowsAsLanes(target.re, m_re);
        storeRowsAsLanes(target.im, m_im);
    }

private:
    /// Where the roots of the groups of Size rows begin in Roots.
    template <int Size>
    static constexpr int placeOfRoots = R - Size;

    static ORVEL_INLINE void storeRowsAsLanes(double *target, Vector const (&rows)[R])
    {
        Vector lanes[R];
        unrolled<R>([&](auto row) __attribute__((always_inline)) {
            constexpr int place = reverseBits(row, log2Of(R));
            lanes[place] = rows[row];
        });
        L::transpose(lanes);
        unrolled<R>([&](auto lane) __attribute__((always_inline)) {
            L::store(target + lane * R, lanes[lane]);
        });
    }

    Vector m_re[R];
    Vector m_im[R];
};

/// The first log2(W) stages: one group, of which W neighbouring columns run side by side.
template <int W, bool Inverse>
ORVEL_INLINE void firstPass(ComplexIn from, ComplexOut to, int n, ComplexIn roots)
{
    using Columns = Block<W, W, Inverse>;
    int const columns = n / W;
    for (int p = 0; p < columns; p += W) {
        int const source = p;
        int const target = p * W;
        typename Columns::Roots w = {};
        Columns::template readRoots<RootsByLane<W>>(w, roots, p, n);
        Columns block;
        block.load(from.at(source), columns);
        block.transform(w);
        block.storeLaneByLane(to.at(target));
    }
}

/// The next log2(R) stages: W of at least W groups run side by side.
template <int W, int R, bool Inverse, bool Scaled>
ORVEL_INLINE void pass(ComplexIn from, ComplexOut to, int n, int groups, ComplexIn roots)
{
    using Groups = Block<W, R, Inverse>;
    Q_ASSERT(groups >= W && groups % W == 0 && n % (R * groups) == 0);
    int const rowLength = n / R;
    int const columns = rowLength / groups;
    for (int p = 0; p < columns; ++p) {
        int const firstRoot = p * groups;
        typename Groups::Roots w = {};
        Groups::template readRoots<SharedRoots<W>>(w, roots, firstRoot, n);
        for (int q = 0; q < groups; q += W) {
            int const source = p * groups + q;
            int const target = p * R * groups + q;
            Groups block;
            block.load(from.at(source), rowLength);
            block.transform(w);
            if constexpr (Scaled) {
                block.scale(1.0 / n); // exact, since n is a power of two
            }
            block.store(to.at(target), groups);
        }
    }
}

/// The smallest n of which the first pass fills its vectors with columns, n >= W * W, and of which
/// a pass of eight rows is left for the end, n >= W * 8.
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
    Q_ASSERT((n & (n - 1)) == 0 && n >= smallestSize(W));
    int const stages = log2Of(n) - log2Of(W); // after the first pass
    int const passes = (stages + 2) / 3;      // of three stages, but for the second pass
    bool const startsInOut = passes % 2 == 0;
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
