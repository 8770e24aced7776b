#include <OrvelExact/segments/SweepGeometry_p.h>

#include <OrvelExact/predicates/orientation.h>
#include <OrvelExact/segments/crossingPoint_p.h>

#include <algorithm>
#include <cmath>

namespace orvelExact {

namespace {

/// The exponents of the ends that a point comes from.
ExponentRange rangeOf(SweepPoint const &p)
{
    return p.isCrossing()
               ? ExponentRange(p.first->left, p.first->right, p.second->left, p.second->right)
               : ExponentRange(p.rounded);
}

CrossingFraction<BigInteger> wholePoint(SweepPoint const &p, int unit)
{
    if (p.isCrossing()) {
        return wholeCrossing(p.first->left, p.first->right, p.second->left, p.second->right, unit);
    }
    return {wholeNumber(p.rounded.x(), unit), wholeNumber(p.rounded.y(), unit), BigInteger(1, 0)};
}

/// The sign of a / v - b / w.
int compareFractions(BigInteger const &a, BigInteger const &v, BigInteger const &b,
                     BigInteger const &w)
{
    return (a * w - b * v).sign() * v.sign() * w.sign();
}

/// The order of two rounded components, 0 if rounding may have changed it.
int compareRounded(double a, double b)
{
    // Each is off by less than a unit in the last place, which is at most 2^-52 of it.
    double const error = 4.5e-16 * (std::fabs(a) + std::fabs(b)) + 1e-321;
    double const difference = a - b;
    return difference > error ? 1 : difference < -error ? -1 : 0;
}

int compareDoubles(double a, double b)
{
    return a < b ? -1 : a > b ? 1 : 0;
}

} // namespace

int compareExactly(SweepPoint const &a, SweepPoint const &b)
{
    Point2 const &p = a.rounded;
    Point2 const &q = b.rounded;
    if (!a.isCrossing() && !b.isCrossing()) {
        return p.x() != q.x() ? compareDoubles(p.x(), q.x()) : compareDoubles(p.y(), q.y());
    }
    int const byX = compareRounded(p.x(), q.x());
    if (byX != 0 || (a.first == b.first && a.second == b.second)) {
        return byX;
    }
    int const unit = std::min(rangeOf(a).lowest(), rangeOf(b).lowest());
    CrossingFraction<BigInteger> const first = wholePoint(a, unit);
    CrossingFraction<BigInteger> const second = wholePoint(b, unit);
    int const order = compareFractions(first.x, first.weight, second.x, second.weight);
    return order != 0 ? order : compareFractions(first.y, first.weight, second.y, second.weight);
}

Sign sideOfPoint(SweepSegment const &segment, SweepPoint const &point)
{
    Point2 const &l = segment.left;
    Point2 const &r = segment.right;
    Point2 const &p = point.rounded;
    if (!point.isCrossing()) {
        return orientation2d(l, r, p);
    }
    if (point.first == &segment || point.second == &segment) {
        return Sign::Zero;
    }
    // The point is off by a unit in the last place along x and y: 2^-52 of its size, or 2^-1074.
    double const dx = r.x() - l.x();
    double const dy = r.y() - l.y();
    double const left = dx * (p.y() - l.y());
    double const right = dy * (p.x() - l.x());
    double const error = 1e-15 * (std::fabs(left) + std::fabs(right)) +
                         4.5e-16 * (std::fabs(dx * p.y()) + std::fabs(dy * p.x())) +
                         1e-321 * (std::fabs(dx) + std::fabs(dy)) + 1e-300;
    if (std::fabs(left - right) > error) {
        return left > right ? Sign::Positive : Sign::Negative;
    }
    int const unit = std::min(rangeOf(point).lowest(), ExponentRange(l, r).lowest());
    CrossingFraction<BigInteger> const whole = wholePoint(point, unit);
    BigInteger const lx = wholeNumber(l.x(), unit), ly = wholeNumber(l.y(), unit);
    BigInteger const turn = (wholeNumber(r.x(), unit) - lx) * (whole.y - ly * whole.weight) -
                            (wholeNumber(r.y(), unit) - ly) * (whole.x - lx * whole.weight);
    return static_cast<Sign>(turn.sign() * whole.weight.sign());
}

Sign turnOfDirections(SweepSegment const &a, SweepSegment const &b)
{
    double const left = (a.right.x() - a.left.x()) * (b.right.y() - b.left.y());
    double const right = (a.right.y() - a.left.y()) * (b.right.x() - b.left.x());
    double const error = 1e-15 * (std::fabs(left) + std::fabs(right)) + 1e-300;
    if (std::fabs(left - right) > error) {
        return left > right ? Sign::Positive : Sign::Negative;
    }
    ExponentRange const range(a.left, a.right, b.left, b.right);
    if (range.servesExpansions(2)) {
        return signOf(determinant(expansionRow(a.right, a.left), expansionRow(b.right, b.left)));
    }
    int const unit = range.lowest();
    return signOf(determinant(wholeRow(a.right, a.left, unit), wholeRow(b.right, b.left, unit)));
}

} // namespace orvelExact
