/// @file
/// The shortcut of the two point-in-polygon tests. Not part of the interface.
///
/// It takes in all vertices in one pass, two bits for each coordinate, and counts most crossings
/// as bits, without a look at the single edge. It answers only where it can prove that the
/// definition in polygonCrossings_p.h comes to the same answer, and says whether it does.
///
/// What it proves. Let all coordinates, those of the ray included, be at most a quarter of `scale`
/// in size. Both crossing functions then place the crossing of an edge with the ray, and measure
/// lengths over it, with errors that add up to less than 100 units of rounding (1.1e-14) times
/// `scale`. `noise` is 5e-14 times `scale`, so it covers those errors and the rounding here.
/// With `clearance` = tol + noise:
///
/// - An edge whose ends lie above and below the ray's line by more than the clearance passes the
///   band. If it crosses the ray's line left of the ray's start by more than the clearance, it
///   misses the ray; if right of it by more than the clearance and as far before the ray's end, it
///   crosses. The crossing function can take neither for another case. (Where that function goes
///   by lengths, a tolerance below the noise may turn a crossing into none, and nothing is proved.)
/// - The crossing lies between the ends in x. So it needs no place where both ends are clearly left
///   or both clearly right.
/// - An edge with an end in the band counts for nothing when both ends are clearly left.
/// - All other edges go through the definition's `countOf`, one by one. They are few.
///
/// The order of the edges matters to the definition only through the side from which the outline
/// came into the band; `sideBefore` finds it by a look back.
#pragma once

#include <OrvelMath/engine/Pair_p.h>
#include <OrvelMath/geom2d/polygonCrossings_p.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace polygonCrossings::quick {

using engine::Pair;

/// What is known of up to 32 vertices, two bits each: the even one tells of x, the odd one of y.
struct Flags
{
    static constexpr int capacity = 32;
    static constexpr std::uint64_t allX = 0x5555555555555555;
    static constexpr std::uint64_t allY = ~allX;

    std::uint64_t high; ///< clearly right of the ray's start, clearly above the band
    std::uint64_t low;  ///< clearly left of the ray's start, clearly below the band

    /// The flags of the vertices that follow these `size` ones, of which `first` holds the first.
    Flags next(Flags const &first, int size) const
    {
        int const last = 2 * (size - 1);
        return {high >> 2 | (first.high & 3) << last, low >> 2 | (first.low & 3) << last};
    }
};

/// The limits beyond which a coordinate is clear.
struct Limits
{
    Limits(Point2D const &p, double tol, double size)
        : scale(size)
        , clearance(tol + 5e-14 * size)
        , low{p.x() - clearance, p.y() - clearance}
        , high{p.x() + clearance, p.y() + clearance}
    {
    }

    double scale;
    double clearance;
    Pair low;
    Pair high;
};

/// One pass over the vertices for their flags and the box about them.
class Scan
{
public:
    Scan(Limits const &limits, Extent const &empty)
        : m_low(limits.low)
        , m_high(limits.high)
        , m_min{Pair{empty.min, 1e300}, Pair{empty.min, 1e300}}
        , m_max{Pair{empty.max, -1e300}, Pair{empty.max, -1e300}}
    {
    }

    /// Takes in the `size` vertices from `begin` on.
    template <typename At>
    ORVEL_INLINE Flags take(At const &at, int begin, int size)
    {
        Flags flags{0, 0};
        int i = 0;
        for (; i + 4 <= size; i += 4) {
            Flags const a = flagsOf(at(begin + i), 0);
            Flags const b = flagsOf(at(begin + i + 1), 1);
            Flags const c = flagsOf(at(begin + i + 2), 0);
            Flags const d = flagsOf(at(begin + i + 3), 1);
            flags.high |= (a.high | b.high << 2 | c.high << 4 | d.high << 6) << 2 * i;
            flags.low |= (a.low | b.low << 2 | c.low << 4 | d.low << 6) << 2 * i;
        }
        for (; i < size; ++i) {
            Flags const one = flagsOf(at(begin + i), 0);
            flags.high |= one.high << 2 * i;
            flags.low |= one.low << 2 * i;
        }
        return flags;
    }

    /// The least and the greatest coordinates, x first.
    Pair least() const { return engine::lesserOr(m_min[0], m_min[1]); }
    Pair greatest() const { return engine::greaterOr(m_max[0], m_max[1]); }

private:
    ORVEL_INLINE Flags flagsOf(Point2D const &vertex, int lane)
    {
        Pair const v = engine::loadPair(&vertex.x());
        // In this order NaN changes nothing.
        m_min[lane] = engine::lesserOr(v, m_min[lane]);
        m_max[lane] = engine::greaterOr(v, m_max[lane]);
        return {static_cast<std::uint64_t>(engine::answerBits(v > m_high)),
                static_cast<std::uint64_t>(engine::answerBits(v < m_low))};
    }

    Pair m_low;
    Pair m_high;
    // Two of each, because one would wait for itself; the order doesn't matter.
    Pair m_min[2];
    Pair m_max[2];
};

/// The count so far: the parity of what is proved, and the edges that the definition has to see.
template <typename At>
class Count
{
public:
    Count(At const &at, int count, Point2D const &p, double clearance)
        : m_at(at)
        , m_count(count)
        , m_p(p)
        , m_clearance(clearance)
    {
    }

    /// Takes in the edges from `size` vertices to the ones after them.
    /// @return false if there is no room for the edges that are unclear.
    ORVEL_INLINE bool take(Flags const &cur, Flags const &next, int begin, int size)
    {
        std::uint64_t const present = ~std::uint64_t(0) >> (64 - 2 * size);
        std::uint64_t const bothRight = (cur.high & next.high & Flags::allX) << 1;
        std::uint64_t const bothLeft = (cur.low & next.low & Flags::allX) << 1;
        std::uint64_t const inBand =
            ~((cur.high | cur.low) & (next.high | next.low)) & Flags::allY & present;
        std::uint64_t const passing =
            ((cur.low & next.high) | (cur.high & next.low)) & Flags::allY & present;
        m_parity ^= passing & bothRight;
        return takeEach(passing & ~(bothRight | bothLeft), begin) &&
               keepEach(inBand & ~bothLeft, begin);
    }

    /// Whether the number of proved crossings is odd.
    bool isOdd() const { return __builtin_parityll(m_parity) != 0; }

    /// The edges left to the definition.
    int const *begin() const { return m_unclear; }
    int const *end() const { return m_unclear + m_unclearCount; }

private:
    /// Passing edges whose place is open: told by the sign of a cross product. Its error is less
    /// than 20 units of rounding times `scale` times the height of the edge.
    bool takeEach(std::uint64_t edges, int begin)
    {
        for (; edges != 0; edges &= edges - 1) {
            int const i = begin + __builtin_ctzll(edges) / 2;
            Point2D const &cur = m_at(i);
            Point2D const &next = m_at(i + 1 == m_count ? 0 : i + 1);
            double const rise = next.y() - cur.y();
            double const cross =
                (m_p.x() - cur.x()) * rise - (m_p.y() - cur.y()) * (next.x() - cur.x());
            double const toTheLeft = rise < 0 ? -cross : cross;
            double const limit = m_clearance * std::fabs(rise);
            m_parity ^= static_cast<std::uint64_t>(toTheLeft < -limit);
            if (!(std::fabs(cross) > limit) && !keep(i)) {
                return false;
            }
        }
        return true;
    }

    bool keepEach(std::uint64_t edges, int begin)
    {
        for (; edges != 0; edges &= edges - 1) {
            if (!keep(begin + __builtin_ctzll(edges) / 2)) {
                return false;
            }
        }
        return true;
    }

    bool keep(int edge)
    {
        if (m_unclearCount == capacity) {
            return false;
        }
        m_unclear[m_unclearCount++] = edge;
        return true;
    }

    static constexpr int capacity = 64;

    At const &m_at;
    int m_count;
    Point2D m_p;
    double m_clearance;
    std::uint64_t m_parity = 0;
    int m_unclearCount = 0;
    int m_unclear[capacity];
};

/// The side from which the outline came to vertex `i` in the band. A walk that begins in the band
/// begins on its border, and then counts as coming from above.
template <typename At>
Level sideBefore(At const &at, int count, int start, int i, Ray const &ray)
{
    for (;;) {
        Level const level = ray.levelOf(at(i).y());
        if (level != Level::InBand) {
            return level;
        }
        if (i == start) {
            return Level::Above;
        }
        i = i == 0 ? count - 1 : i - 1;
    }
}

/// The definition's count of the unclear edges alone.
template <typename Test, typename At>
int countUnclear(At const &at, int count, Count<At> const &unclear, Ray const &ray)
{
    int const start = startOfWalk(at, count, ray);
    if (start < 0) {
        return 0;
    }
    int crossings = 0;
    for (int const i : unclear) {
        Vertex const cur(at(i), ray);
        Vertex const next(at(i + 1 == count ? 0 : i + 1), ray);
        bool const leavesBand = cur.isInBand() && !next.isInBand();
        Level const last = leavesBand ? sideBefore(at, count, start, i, ray) : cur.level;
        int const added = countOf<Test>(cur, next, last, ray);
        if (added == onOutline) {
            return onOutline;
        }
        crossings += added;
    }
    return crossings;
}

enum class Outcome { Answered, OutOfScale, Unproved };

/// `locate` on the assumption of a scale.
/// @param scale in: the assumed one; out: after `OutOfScale` one that will do.
template <typename Test, typename At>
Outcome locateInScale(At const &at, int count, Point2D const &p, double tol, Extent const *given,
                      double &scale, Place &place)
{
    Limits const limits(p, tol, scale);
    Scan scan(limits, Test::emptyExtent);
    Count<At> edges(at, count, p, limits.clearance);
    Flags const first = scan.take(at, 0, std::min(count, Flags::capacity));
    Flags cur = first;
    int begin = 0;
    for (; begin + Flags::capacity < count; begin += Flags::capacity) {
        int const following = begin + Flags::capacity;
        Flags const next = scan.take(at, following, std::min(count - following, Flags::capacity));
        if (!edges.take(cur, cur.next(next, Flags::capacity), begin, Flags::capacity)) {
            return Outcome::Unproved;
        }
        cur = next;
    }
    if (!edges.take(cur, cur.next(first, count - begin), begin, count - begin)) {
        return Outcome::Unproved;
    }

    Pair const least = scan.least();
    Pair const greatest = scan.greatest();
    Extent const extent = given != nullptr ? *given : Extent{least[0], greatest[0]};
    if (Test::isBeyond(p.x(), extent, tol)) {
        place = Place::Outside;
        return Outcome::Answered;
    }
    Ray const ray(p, extent.max + Test::reach, tol);
    Pair const sizes = engine::greaterOr(engine::magnitude(least), engine::magnitude(greatest));
    double const size =
        std::max(std::max(sizes[0], sizes[1]), std::max(std::fabs(ray.end.x()), std::fabs(p.y())));
    if (!(4 * size <= scale && 4 * std::fabs(p.x()) <= scale)) {
        scale = 8 * std::max(size, std::fabs(p.x()));
        return Outcome::OutOfScale;
    }
    double const noise = 5e-14 * (std::fabs(ray.end.x()) + std::fabs(extent.min) +
                                  std::fabs(p.x()) + std::fabs(p.y()));
    bool const areCrossingsClear = !Test::measuresLengths || tol >= noise;
    if (!areCrossingsClear || !(greatest[0] < ray.end.x() - limits.clearance)) {
        return Outcome::Unproved;
    }
    int const unclear =
        edges.begin() == edges.end() ? 0 : countUnclear<Test>(at, count, edges, ray);
    place = unclear == onOutline ? Place::OnOutline : placeOf(unclear + (edges.isOdd() ? 1 : 0));
    return Outcome::Answered;
}

/// `polygonCrossings::locate` where a proof is at hand.
/// @return whether `place` was written.
template <typename Test, typename At>
bool locate(At const &at, int count, Point2D const &p, double tol, Extent const *given,
            Place &place)
{
    if (count < 3 || !(tol >= 0)) {
        return false;
    }
    if (given != nullptr && Test::isBeyond(p.x(), *given, tol)) {
        place = Place::Outside;
        return true;
    }
    Pair const some = engine::greaterOr(engine::magnitude(engine::loadPair(&at(0).x())),
                                        engine::magnitude(engine::loadPair(&at(count / 2).x())));
    Pair const all = engine::greaterOr(some, engine::magnitude(engine::loadPair(&p.x())));
    // Ample for the outline in most cases: its vertices may lie 16 times as far out as these.
    double scale = 64 * std::max(std::max(all[0], all[1]), Test::reach);
    for (int attempt = 0; attempt < 2 && scale < 1e100; ++attempt) {
        Outcome const outcome = locateInScale<Test>(at, count, p, tol, given, scale, place);
        if (outcome != Outcome::OutOfScale) {
            return outcome == Outcome::Answered;
        }
    }
    return false;
}

} // namespace polygonCrossings::quick
