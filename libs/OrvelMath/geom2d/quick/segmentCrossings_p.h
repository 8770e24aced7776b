#pragma once

/// @file
/// The shortcuts of the segment crossings. Not part of the interface.
///
/// Whether two segments cross is hard to predict, so a shortcut tells it without a branch and
/// without a root, and says whether the answer is proved. Proved are two cases only: no crossing,
/// and a crossing that is farther than the tolerance from all four ends. NaN leaves every
/// comparison false and so proves nothing.
///
/// The error bounds of both shortcuts, from the error of one rounding, at most 1.2e-16 of the
/// result:
///
/// - The cross products, the place of the crossing on the first segment and the crossing itself
///   are computed as the definitions compute them: the same operations in the same order, the same
///   bits.
/// - By parameters, a definition compares place times length with tol and with length less tol.
///   That takes fewer than 10 roundings of numbers that are at most 1.5 times the larger coordinate
///   difference: `parameterNoise` times that difference covers them 50 times.
/// - By lengths, a definition compares a sum of distances with another. While the sine of the angle
///   is not below about `leastSine`, rounding moves the crossing by less than 1100 roundings of the
///   coordinates and lengths about it (the sine takes a factor of 128 of them), and the sums by no
///   more than twice that: `lengthNoise` times these sizes covers both.
/// - With cross products above `leastArea` and sizes below `greatestSize`, no square, product or
///   quotient that decides overflows or underflows.

#include <OrvelMath/base/Point2D.h>
#include <OrvelMath/engine/Pair_p.h>

#include <cmath>

namespace segmentCrossings {

using engine::Pair;

constexpr double parameterNoise = 1e-13; ///< part of the larger coordinate difference
constexpr double lengthNoise = 3e-13;    ///< part of the coordinates and lengths about a crossing
constexpr double endNoise = 1e-14;       ///< part of the coordinates, in the distance of an end
constexpr double leastSine = 1.0 / 128;
constexpr double leastArea = 1e-60;
constexpr double greatestSize = 1e60;

ORVEL_INLINE Pair pairOf(Point2D const &p)
{
    return engine::loadPair(&p.x());
}

/// Two segments p0 + t d and p2 + s e, and their cross products. Lane 0 is of the first segment,
/// lane 1 of the second.
struct SegmentPair
{
    ORVEL_INLINE SegmentPair(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                             Point2D const &p3)
        : start(pairOf(p0))
        , offset(pairOf(p2) - start)
        , d(pairOf(p1) - start)
        , e(pairOf(p3) - pairOf(p2))
        , divisor(engine::crossProduct(d, e))
    {
        Pair const q = pairOf(p1) - pairOf(p3);
        numerators = engine::firsts(offset, q) * engine::seconds(e, d) -
                     engine::seconds(offset, q) * engine::firsts(e, d);
        Pair const x = engine::magnitude(engine::firsts(d, e));
        Pair const y = engine::magnitude(engine::seconds(d, e));
        sizes = engine::greaterOr(x, y);
        lengths = x + y;
    }

    /// The size of the cross product d x e, an area.
    ORVEL_INLINE double area() const { return std::fabs(divisor[0]); }

    ORVEL_INLINE Pair pointAt(double t) const { return start + engine::pairOf(t) * d; }

    Pair start;
    Pair offset; ///< p2 - p0
    Pair d;
    Pair e;
    Pair divisor;    ///< d x e in both lanes
    Pair numerators; ///< of t, and of the place on the second segment counted from p3
    Pair sizes;      ///< the larger coordinate difference of each segment
    Pair lengths;    ///< the sum of the coordinate differences: at least the length
};

/// Classes a crossing by its parameters, for `Math2DIntersect2Lines` and its companion.
class ByParameters
{
public:
    ORVEL_INLINE ByParameters(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                              Point2D const &p3, double tol)
        : m_segments(p0, p1, p2, p3)
    {
        Pair const n = engine::turnedBySign(m_segments.divisor, m_segments.numerators);
        Pair const divisor = engine::magnitude(m_segments.divisor);
        // Outside 0 to 1 by so much that no rounding or underflow of the division changes it.
        int const below = engine::answerBits(n < divisor * -1e-200);
        int const above = engine::answerBits(n > divisor * (1 + 1e-15));
        Pair const margin =
            (engine::pairOf(tol) + engine::pairOf(parameterNoise) * m_segments.sizes) * divisor;
        Pair const inset = engine::lesserOr(n, divisor - n) * m_segments.sizes;

        crosses = engine::answerBits(inset > margin) == 3;
        bool const isOff = (below | above) != 0;
        bool const areSizesBounded =
            engine::answerBits(m_segments.sizes < engine::pairOf(greatestSize)) == 3;
        bool const isInRange = areSizesBounded & (m_segments.area() > leastArea) & (tol >= 0);
        isProved = isInRange & (crosses | isOff);
    }

    /// Whether both ends of the first segment lie so far from the second one's line that no two
    /// ends can coincide: farther than the tolerance and all rounding.
    ORVEL_INLINE bool areEndsApart(Point2D const &p2, Point2D const &p3, double tol) const
    {
        Pair const coordinates = engine::magnitude(pairOf(p2)) + engine::magnitude(pairOf(p3)) +
                                 engine::magnitude(m_segments.d);
        double const limit = (tol + endNoise * engine::sumOf(coordinates)) *
                             engine::sumOf(engine::magnitude(m_segments.e));
        // Of p0 and of p1 from the second line, times the second length.
        Pair const distances =
            engine::pairOf(m_segments.numerators[0]) - Pair{m_segments.divisor[0], 0.0};
        return engine::answerBits(engine::magnitude(distances) > engine::pairOf(limit)) == 3;
    }

    ORVEL_INLINE double area() const { return m_segments.area(); }

    /// Writes the crossing, if there is one.
    ORVEL_INLINE void deliver(Point2D &out) const
    {
        double const t = m_segments.numerators[0] / m_segments.divisor[0];
        double unused[2];
        // The output stays unwritten without a branch.
        engine::storePair(crosses ? &out.x() : unused, m_segments.pointAt(t));
    }

    bool crosses;
    bool isProved;

private:
    SegmentPair m_segments;
};

/// Classes a crossing by lengths, for `concav2d::intersectEdgeEdge`.
class ByLengths
{
public:
    ORVEL_INLINE ByLengths(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                           Point2D const &p3, double tol)
    {
        SegmentPair const segments(p0, p1, p2, p3);
        Pair const places = segments.numerators / segments.divisor;
        m_crossing = segments.pointAt(places[0]);

        double const scale = engine::sumOf(engine::magnitude(segments.start) +
                                           engine::magnitude(segments.offset) + segments.lengths) *
                             (1 + engine::sumOf(engine::magnitude(places)));
        double const noise = lengthNoise * scale;
        Pair const limit = engine::pairOf(tol + noise);
        // The place on the second segment is rounded otherwise than in the definition, within the
        // same bound.
        Pair const inset = engine::lesserOr(places, engine::pairOf(1.0) - places) * segments.sizes;
        isOff = engine::answerBits(inset < -limit) != 0;
        bool const isInset = engine::answerBits(inset > limit) == 3;
        // A tolerance below the noise may turn a crossing by lengths into none.
        bool const isAmid = isInset & (tol >= noise);
        double const area = segments.area();
        bool const isInRange = (area > leastArea) &
                               (area > leastSine * engine::productOf(segments.lengths)) &
                               (tol >= 0) & (scale < greatestSize);
        isProved = isInRange & (isOff | isAmid);
    }

    /// Writes the crossing of the lines.
    ORVEL_INLINE void deliver(Point2D &out) const { engine::storePair(&out.x(), m_crossing); }

    bool isOff; ///< off one of the segments by more than the tolerance
    bool isProved;

private:
    Pair m_crossing;
};

} // namespace segmentCrossings
