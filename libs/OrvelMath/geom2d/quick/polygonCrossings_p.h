#pragma once

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

#include <OrvelMath/engine/Pair_p.h>
#include <OrvelMath/geom2d/polygonCrossings_p.h>

#include <QtGlobal>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <utility>

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
        for (; i + 8 <= size; i += 8) {
            takeEight(at, begin + i, 2 * i, flags, std::make_integer_sequence<int, 8>());
        }
        for (; i < size; ++i) {
            engine::PairMask high;
            engine::PairMask low;
            compare(at(begin + i), 0, high, low);
            flags.high |= static_cast<std::uint64_t>(engine::answerBits(high)) << 2 * i;
            flags.low |= static_cast<std::uint64_t>(engine::answerBits(low)) << 2 * i;
        }
        return flags;
    }

    /// The least and the greatest coordinates, x first.
    Pair least() const { return engine::lesserOr(m_min[0], m_min[1]); }
    Pair greatest() const { return engine::greaterOr(m_max[0], m_max[1]); }

private:
    /// Eight vertices, of which the first gets the bits from `bit` on.
    template <typename At, int... K>
    ORVEL_INLINE void takeEight(At const &at, int begin, int bit, Flags &flags,
                                std::integer_sequence<int, K...>)
    {
        engine::PairMask high[8];
        engine::PairMask low[8];
        (compare(at(begin + K), K % 2, high[K], low[K]), ...);
        flags.high |= static_cast<std::uint64_t>(engine::answerBits(high)) << bit;
        flags.low |= static_cast<std::uint64_t>(engine::answerBits(low)) << bit;
    }

    ORVEL_INLINE void compare(Point2D const &vertex, int lane, engine::PairMask &high,
                              engine::PairMask &low)
    {
        Pair const v = engine::loadPair(&vertex.x());
        // In this order NaN changes nothing.
        m_min[lane] = engine::lesserOr(v, m_min[lane]);
        m_max[lane] = engine::greaterOr(v, m_max[lane]);
        high = v > m_high;
        low = v < m_low;
    }

    Pair m_low;
    Pair m_high;
    // Two of each, because one would wait for itself; the order doesn't matter.
    Pair m_min[2];
    Pair m_max[2];
};

/// The edges that the definition has to see, as long as there is room for them.
struct Unclear
{
    static constexpr int capacity = 32;

    void operator()(int edge)
    {
        Q_ASSERT(count <= capacity);
        isComplete = isComplete && count < capacity;
        edges[count] = edge;
        count += isComplete ? 1 : 0;
    }

    bool isComplete = true;
    int count = 0;
    int edges[capacity + 1];
};

/// Counts the crossings that are proved, by their parity, and calls `unclear(edge)` for each edge
/// that isn't clear. An edge has the index of the vertex that it begins at.
template <typename At, typename Visit>
class Count
{
public:
    Count(At const &at, int count, Point2D const &p, double clearance, Visit &unclear)
        : m_at(at)
        , m_count(count)
        , m_p(p)
        , m_clearance(clearance)
        , m_unclear(unclear)
    {
    }

    /// Takes in the edges from `size` vertices to the ones after them.
    ORVEL_INLINE void take(Flags const &cur, Flags const &next, int begin, int size)
    {
        std::uint64_t const present = ~std::uint64_t(0) >> (64 - 2 * size);
        std::uint64_t const bothRight = (cur.high & next.high & Flags::allX) << 1;
        std::uint64_t const bothLeft = (cur.low & next.low & Flags::allX) << 1;
        std::uint64_t const inBand =
            ~((cur.high | cur.low) & (next.high | next.low)) & Flags::allY & present;
        std::uint64_t const passing =
            ((cur.low & next.high) | (cur.high & next.low)) & Flags::allY & present;
        m_parity ^= passing & bothRight;
        for (std::uint64_t open = passing & ~(bothRight | bothLeft); open != 0; open &= open - 1) {
            takePassing(begin + __builtin_ctzll(open) / 2);
        }
        for (std::uint64_t edges = inBand & ~bothLeft; edges != 0; edges &= edges - 1) {
            m_unclear(begin + __builtin_ctzll(edges) / 2);
        }
    }

    /// Whether the number of proved crossings is odd.
    bool isOdd() const { return __builtin_parityll(m_parity) != 0; }

private:
    /// A passing edge whose place is open: the sign of a cross product tells it. The error of the
    /// product is less than 20 units of rounding times `scale` times the height of the edge.
    void takePassing(int edge)
    {
        Point2D const &cur = m_at(edge);
        Point2D const &next = m_at(edge + 1 == m_count ? 0 : edge + 1);
        double const rise = next.y() - cur.y();
        double const cross =
            (m_p.x() - cur.x()) * rise - (m_p.y() - cur.y()) * (next.x() - cur.x());
        double const limit = m_clearance * std::fabs(rise);
        // Which of them holds is hard to predict, so there is no branch.
        int const crossesIfRising = cross < -limit ? 1 : 0;
        int const crossesIfFalling = cross > limit ? 1 : 0;
        int const rises = rise > 0 ? 1 : 0;
        int const crosses = (crossesIfRising & rises) | (crossesIfFalling & ~rises);
        m_parity ^= static_cast<std::uint64_t>(crosses);
        if (!(std::fabs(cross) > limit)) {
            m_unclear(edge);
        }
    }

    At const &m_at;
    int m_count;
    Point2D m_p;
    double m_clearance;
    Visit &m_unclear;
    std::uint64_t m_parity = 0;
};

/// Passes over all edges once.
/// @return whether the number of proved crossings is odd.
template <typename At, typename Visit>
ORVEL_INLINE bool pass(At const &at, int count, Point2D const &p, double clearance, Scan &scan,
                       Visit &unclear)
{
    Count<At, Visit> edges(at, count, p, clearance, unclear);
    Flags const first = scan.take(at, 0, std::min(count, Flags::capacity));
    Flags cur = first;
    int begin = 0;
    for (; begin + Flags::capacity < count; begin += Flags::capacity) {
        int const following = begin + Flags::capacity;
        Flags const next = scan.take(at, following, std::min(count - following, Flags::capacity));
        edges.take(cur, cur.next(next, Flags::capacity), begin, Flags::capacity);
        cur = next;
    }
    edges.take(cur, cur.next(first, count - begin), begin, count - begin);
    return edges.isOdd();
}

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

/// The definition's count, edge by edge, for the unclear ones.
template <typename Test, typename At>
class DefinitionCount
{
public:
    DefinitionCount(At const &at, int count, Ray const &ray)
        : m_at(at)
        , m_count(count)
        , m_ray(ray)
        , m_start(startOfWalk(at, count, ray))
    {
    }

    void operator()(int edge)
    {
        // An outline within the band has no inside.
        if (m_crossings == onOutline || m_start < 0) {
            return;
        }
        Vertex const cur(m_at(edge), m_ray);
        Vertex const next(m_at(edge + 1 == m_count ? 0 : edge + 1), m_ray);
        bool const leavesBand = cur.isInBand() && !next.isInBand();
        Level const last = leavesBand ? sideBefore(m_at, m_count, m_start, edge, m_ray) : cur.level;
        int const added = countOf<Test>(cur, next, last, m_ray);
        m_crossings = added == onOutline ? onOutline : m_crossings + added;
    }

    int crossings() const { return m_crossings; }

private:
    At const &m_at;
    int m_count;
    Ray m_ray;
    int m_start;
    int m_crossings = 0;
};

/// The answer where some edges are unclear. Apart, because it is seldom needed.
template <typename Test, typename At>
[[gnu::noinline]] Place locateUnclear(At const &at, int count, Ray const &ray, Extent const &extent,
                                      Limits const &limits, Unclear const &unclear, bool isOdd)
{
    Q_ASSERT(unclear.count > 0);
    if (Test::isBeyond(ray.start.x(), extent, ray.tol)) {
        return Place::Outside;
    }
    DefinitionCount<Test, At> definition(at, count, ray);
    if (unclear.isComplete) {
        std::for_each(unclear.edges, unclear.edges + unclear.count, std::ref(definition));
    } else {
        Scan scan(limits, extent);
        pass(at, count, ray.start, limits.clearance, scan, definition);
    }
    int const crossings = definition.crossings();
    return crossings == onOutline ? Place::OnOutline : placeOf(crossings + (isOdd ? 1 : 0));
}

/// Whether a crossing that is clear by its place is clear by lengths too: for a tolerance that is
/// not below the noise of the actual sizes. `reach` is at least the greatest height of a vertex
/// above or below the ray's line.
template <typename Test>
ORVEL_INLINE bool areLengthsClear(double rayEnd, double xmin, Point2D const &p, double reach,
                                  double tol)
{
    double const sizes = std::fabs(rayEnd) + std::fabs(xmin) + std::fabs(p.x()) + std::fabs(p.y());
    return !Test::measuresLengths || tol >= 5e-14 * std::max(sizes, reach);
}

enum class Outcome { Answered, OutOfScale, Unproved };

/// `locate` on the assumption of a scale.
/// @param scale in: the assumed one; out: after `OutOfScale` one that will do.
template <typename Test, typename At>
ORVEL_INLINE Outcome locateInScale(At const &at, int count, Point2D const &p, double tol,
                                   Extent const *given, double &scale, Place &place)
{
    Limits const limits(p, tol, scale);
    Scan scan(limits, Test::emptyExtent);
    Unclear unclear;
    bool const isOdd = pass(at, count, p, limits.clearance, scan, unclear);

    Pair const least = scan.least();
    Pair const greatest = scan.greatest();
    Extent const extent = given != nullptr ? *given : Extent{least[0], greatest[0]};
    Ray const ray(p, extent.max + Test::reach, tol);
    Pair const sizes = engine::greaterOr(engine::magnitude(least), engine::magnitude(greatest));
    double const size = std::max(std::max(std::max(sizes[0], sizes[1]), std::fabs(ray.end.x())),
                                 std::max(std::fabs(p.x()), std::fabs(p.y())));
    if (!(4 * size <= scale)) {
        scale = 8 * size;
        return Outcome::OutOfScale;
    }
    double const heights = std::max(greatest[1] - p.y(), p.y() - least[1]);
    bool const areCrossingsClear =
        areLengthsClear<Test>(ray.end.x(), extent.min, p, std::max(sizes[0], heights), tol);
    if (!areCrossingsClear || !(greatest[0] < ray.end.x() - limits.clearance)) {
        return Outcome::Unproved;
    }
    if (unclear.count != 0) {
        place = locateUnclear<Test>(at, count, ray, extent, limits, unclear, isOdd);
    } else {
        // A point beyond the extent needs no test of its own: no edge, or an even number of them,
        // crosses its ray.
        place = placeOf(isOdd ? 1 : 0);
    }
    return Outcome::Answered;
}

/// Small outlines, in two lanes along the edges and without a branch, because which edges cross is
/// hard to predict. Gives up as soon as one edge is unclear.
///
/// With the vertices relative to the ray's start, an edge from c to n meets the ray's line at
/// (c x n) / (c.y - n.y) left of the start. The error of the cross product is less than 5 units of
/// rounding times `scale` times the height of the edge, where the edge passes.
class SmallOutline
{
public:
    /// Larger outlines are located faster by bits.
    static constexpr int largest = 12;

    template <typename At>
    ORVEL_INLINE SmallOutline(At const &at, int count, Point2D const &p, double clearance)
        : m_clearance(engine::pairOf(clearance))
    {
        Q_ASSERT(count > 2 && count <= largest);
        Pair const start = engine::loadPair(&p.x());
        Pair const first = start - engine::loadPair(&at(0).x());
        least = first;
        greatest = first;
        Pair cur = first;
        int i = 1;
        for (; i + 1 < count; i += 2) {
            Pair const middle = start - engine::loadPair(&at(i).x());
            Pair const next = start - engine::loadPair(&at(i + 1).x());
            takeEdges(cur, middle, next);
            cur = next;
        }
        takeEdges(cur, i < count ? start - engine::loadPair(&at(i).x()) : first, first);
        areAllClear = engine::answerBits(m_open) == 0;
        isOdd = (engine::answerBits(m_parity) + 1) / 2 == 1; // one of the two lanes is odd
    }

    Pair least;    ///< of the ray's start less the vertices, x first
    Pair greatest; ///< the same
    bool areAllClear;
    bool isOdd;

private:
    using Mask = engine::PairMask;

    /// Two edges, from cur to middle and from middle to next. Of the masks, the sign bits count.
    ORVEL_INLINE void takeEdges(Pair cur, Pair middle, Pair next)
    {
        least = engine::lesserOr(next, engine::lesserOr(middle, least));
        greatest = engine::greaterOr(next, engine::greaterOr(middle, greatest));
        Pair const p = cur * engine::exchanged(middle);
        Pair const q = middle * engine::exchanged(next);
        Pair const cross = engine::firsts(p, q) - engine::seconds(p, q);
        Pair const y0 = engine::seconds(cur, middle);
        Pair const y1 = engine::seconds(middle, next);
        Pair const height = y0 - y1;
        Mask const passes = bitsOf(y0) ^ bitsOf(y1);
        m_parity ^= passes & ~(bitsOf(cross) ^ bitsOf(height));
        m_open |= ~(engine::magnitude(y1) > m_clearance) |
                  (passes & ~(engine::magnitude(cross) > engine::magnitude(height) * m_clearance));
    }

    static ORVEL_INLINE Mask bitsOf(Pair v) { return reinterpret_cast<Mask>(v); }

    Pair m_clearance;
    Mask m_parity{0, 0};
    Mask m_open{0, 0};
};

/// `locate` for a small outline of which nothing is unclear.
template <typename Test, typename At>
ORVEL_INLINE bool locateSmall(At const &at, int count, Point2D const &p, double tol,
                              Extent const *given, double scale, Place &place)
{
    double const clearance = tol + 5e-14 * scale;
    SmallOutline const outline(at, count, p, clearance);
    Extent const actual{p.x() - outline.greatest[0], p.x() - outline.least[0]};
    Extent const extent = given != nullptr ? *given : actual;
    double const rayEnd = extent.max + Test::reach;
    Pair const reaches = engine::greaterOr(-outline.least, outline.greatest);
    double const sizes = std::fabs(p.x()) + std::fabs(p.y()) + std::fabs(rayEnd);
    double const reach = std::max(reaches[0], reaches[1]);
    bool const areCrossingsClear = areLengthsClear<Test>(rayEnd, extent.min, p, reach, tol);
    bool const isInScale = 4 * (sizes + reach) <= scale;
    place = placeOf(outline.isOdd ? 1 : 0);
    return outline.areAllClear & areCrossingsClear & isInScale &
           (actual.max < rayEnd - 2 * clearance);
}

/// `polygonCrossings::locate` where a proof is at hand.
/// @return whether `place` was written.
template <typename Test, typename At>
ORVEL_INLINE bool locate(At const &at, int count, Point2D const &p, double tol, Extent const *given,
                         Place &place)
{
    if (count < 3 || !(tol >= 0)) {
        return false;
    }
    if (given != nullptr && Test::isBeyond(p.x(), *given, tol)) {
        place = Place::Outside;
        return true;
    }
    // Ample in most cases: the outline may reach 16 times as far out as the point or the ray. It is
    // not asked for its own size, because all else would have to wait for the answer.
    double scale = 64 * std::max(std::max(std::fabs(p.x()), std::fabs(p.y())), Test::reach);
    if (count <= SmallOutline::largest && scale < 1e100 &&
        locateSmall<Test>(at, count, p, tol, given, scale, place)) {
        return true;
    }
    for (int attempt = 0; attempt < 2 && scale < 1e100; ++attempt) {
        Outcome const outcome = locateInScale<Test>(at, count, p, tol, given, scale, place);
        if (outcome != Outcome::OutOfScale) {
            return outcome == Outcome::Answered;
        }
    }
    return false;
}

} // namespace polygonCrossings::quick
