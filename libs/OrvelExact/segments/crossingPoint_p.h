#pragma once

/// @file
/// The point in which two lines cross, as fractions of exact numbers.

#include <OrvelExact/base/points.h>
#include <OrvelExact/predicates/exactRows_p.h>

namespace orvelExact {

/// The crossing of the lines a0 a1 and b0 b1 is (x, y) / weight.
///
/// With the turns d0 = (b0, b1, a0) and d1 = (b0, b1, a1) the line from a0 to a1 is crossed where
/// d1 a0 - d0 a1 over d1 - d0 is.
template <typename Number>
struct CrossingFraction
{
    Number x, y, weight;
};

inline CrossingFraction<BigInteger> wholeCrossing(Point2 const &a0, Point2 const &a1,
                                                  Point2 const &b0, Point2 const &b1, int unit)
{
    auto const b0Row = [&](Point2 const &p) { return wholeRow(p, b0, unit); };
    BigInteger const d0 = determinant(b0Row(b1), b0Row(a0));
    BigInteger const d1 = determinant(b0Row(b1), b0Row(a1));
    return {wholeNumber(a0.x(), unit) * d1 - wholeNumber(a1.x(), unit) * d0,
            wholeNumber(a0.y(), unit) * d1 - wholeNumber(a1.y(), unit) * d0, d1 - d0};
}

/// Rounded to doubles, see crossSegments. The lines must cross in one point.
Point2 roundedCrossing(Point2 const &a0, Point2 const &a1, Point2 const &b0, Point2 const &b1);

} // namespace orvelExact
