#include <OrvelExact/segments/segmentCrossing.h>

#include <OrvelExact/predicates/orientation.h>
#include <OrvelExact/segments/crossingPoint_p.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace orvelExact {

namespace {

bool precedes(Point2 const &a, Point2 const &b)
{
    return a.x() != b.x() ? a.x() < b.x() : a.y() < b.y();
}

Point2 const &smaller(Point2 const &a, Point2 const &b)
{
    return precedes(b, a) ? b : a;
}

Point2 const &larger(Point2 const &a, Point2 const &b)
{
    return precedes(b, a) ? a : b;
}

/// Of two segments of one line, or of points on it.
SegmentCrossing crossOnLine(Point2 const &a0, Point2 const &a1, Point2 const &b0, Point2 const &b1)
{
    Point2 const first = larger(smaller(a0, a1), smaller(b0, b1));
    Point2 const last = smaller(larger(a0, a1), larger(b0, b1));
    if (precedes(last, first)) {
        return {};
    }
    return {first == last ? CrossingKind::AtEnd : CrossingKind::Overlap, first, last};
}

bool differ(Sign a, Sign b)
{
    return a != Sign::Zero && a == opposite(b);
}

/// The class of a crossing, and its place unless it is proper.
SegmentCrossing findCrossing(Point2 const &a0, Point2 const &a1, Point2 const &b0, Point2 const &b1)
{
    Sign const a0Side = orientation2d(b0, b1, a0);
    Sign const a1Side = orientation2d(b0, b1, a1);
    Sign const b0Side = orientation2d(a0, a1, b0);
    Sign const b1Side = orientation2d(a0, a1, b1);
    for (Sign const side : {a0Side, a1Side, b0Side, b1Side}) {
        if (side == Sign::NotFinite) {
            return {CrossingKind::NotFinite, {}, {}};
        }
    }
    if (differ(a0Side, a1Side) && differ(b0Side, b1Side)) {
        return {CrossingKind::Proper, {}, {}};
    }
    if (a0Side == Sign::Zero && a1Side == Sign::Zero && b0Side == Sign::Zero &&
        b1Side == Sign::Zero) {
        return crossOnLine(a0, a1, b0, b1);
    }
    std::pair<Sign, Point2 const *> const ends[] = {
        {a0Side, &a0}, {a1Side, &a1}, {b0Side, &b0}, {b1Side, &b1}};
    for (int i = 0; i < 4; ++i) {
        Point2 const &end = *ends[i].second;
        bool const isOn =
            ends[i].first == Sign::Zero &&
            (i < 2 ? crossOnLine(end, end, b0, b1) : crossOnLine(a0, a1, end, end)).kind !=
                CrossingKind::None;
        if (isOn) {
            return {CrossingKind::AtEnd, end, end};
        }
    }
    return {};
}

/// A number as two doubles times a power of two, off by less than 2^-74 of itself.
struct Approximation
{
    DoublePair value;
    int exponent;
};

template <int n>
Approximation approximate(Expansion<n> const &number)
{
    double rest = 0.0;
    for (int i = 0; i + 1 < number.size; ++i) {
        rest += number.parts[i];
    }
    return {fastTwoSum(number.size > 0 ? number.parts[number.size - 1] : 0.0, rest), 0};
}

Approximation approximate(BigInteger const &number)
{
    Approximation result{{0.0, 0.0}, 0};
    number.approximate(result.value.high, result.value.low, result.exponent);
    result.value = twoSum(result.value.high, result.value.low);
    return result;
}

double quotient(Approximation const &a, Approximation const &b, int unit)
{
    double const first = a.value.high / b.value.high;
    DoublePair const product = twoProduct(first, b.value.high);
    double const rest =
        ((a.value.high - product.high) - product.low) + a.value.low - first * b.value.low;
    return std::ldexp(first + rest / b.value.high, a.exponent - b.exponent + unit);
}

} // namespace

CrossingKind classifyCrossing(Point2 const &a0, Point2 const &a1, Point2 const &b0,
                              Point2 const &b1)
{
    return findCrossing(a0, a1, b0, b1).kind;
}

SegmentCrossing crossSegments(Point2 const &a0, Point2 const &a1, Point2 const &b0,
                              Point2 const &b1)
{
    SegmentCrossing crossing = findCrossing(a0, a1, b0, b1);
    if (crossing.kind == CrossingKind::Proper) {
        crossing.point = roundedCrossing(a0, a1, b0, b1);
        crossing.last = crossing.point;
    }
    return crossing;
}

Point2 roundedCrossing(Point2 const &a0, Point2 const &a1, Point2 const &b0, Point2 const &b1)
{
    ExponentRange const range(a0, a1, b0, b1);
    if (range.servesExpansions(4)) {
        auto const d0 = determinant(expansionRow(b1, b0), expansionRow(a0, b0));
        auto const d1 = determinant(expansionRow(b1, b0), expansionRow(a1, b0));
        Approximation const weight = approximate(d1 - d0);
        return {quotient(approximate(d1 * a0.x() - d0 * a1.x()), weight, 0),
                quotient(approximate(d1 * a0.y() - d0 * a1.y()), weight, 0)};
    }
    int const unit = range.lowest();
    CrossingFraction<BigInteger> const crossing = wholeCrossing(a0, a1, b0, b1, unit);
    Approximation const weight = approximate(crossing.weight);
    return {quotient(approximate(crossing.x), weight, unit),
            quotient(approximate(crossing.y), weight, unit)};
}

} // namespace orvelExact
