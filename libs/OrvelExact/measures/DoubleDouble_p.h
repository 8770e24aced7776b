#pragma once

/// @file
/// Numbers of 106 bits: the unevaluated sum of two doubles.

#include <OrvelExact/base/points.h>

#include <cmath>

namespace orvelExact {

/// `high + low`, where `low` is at most half a unit in the last place of `high`.
///
/// Sums, products, quotients and roots have relative errors below 2^-102 as long as nothing
/// overflows and no product of low parts underflows; callers scale by powers of two to see to it.
/// The product is split after Dekker 1971 and needs no fused operation, so that the bits are the
/// same on every processor. The algorithms are those of Knuth 1969 and Dekker 1971, the bounds
/// those of Joldes, Muller and Popescu 2017.
struct DoubleDouble
{
    double high;
    double low;

    constexpr DoubleDouble(double value = 0.0)
        : high(value)
        , low(0.0)
    {
    }
    constexpr DoubleDouble(double h, double l)
        : high(h)
        , low(l)
    {
    }
};

/// a + b where |a| is not below |b| or a is 0.
inline DoubleDouble quickWideSum(double a, double b)
{
    double const sum = a + b;
    return {sum, b - (sum - a)};
}

/// a + b without error.
inline DoubleDouble wideSum(double a, double b)
{
    double const sum = a + b;
    double const part = sum - a;
    return {sum, (a - (sum - part)) + (b - part)};
}

/// a - b without error.
inline DoubleDouble wideDifference(double a, double b)
{
    return wideSum(a, -b);
}

/// a b without error.
inline DoubleDouble wideProduct(double a, double b)
{
    constexpr double splitter = 134217729.0; // 2^27 + 1 cuts a double into two halves of 26 bits
    double const aWide = splitter * a;
    double const aHigh = aWide - (aWide - a);
    double const aLow = a - aHigh;
    double const bWide = splitter * b;
    double const bHigh = bWide - (bWide - b);
    double const bLow = b - bHigh;
    double const product = a * b;
    return {product, ((aHigh * bHigh - product) + aHigh * bLow + aLow * bHigh) + aLow * bLow};
}

inline DoubleDouble operator-(DoubleDouble const &a)
{
    return {-a.high, -a.low};
}
inline DoubleDouble operator+(DoubleDouble const &a, DoubleDouble const &b)
{
    DoubleDouble high = wideSum(a.high, b.high);
    DoubleDouble const low = wideSum(a.low, b.low);
    high = quickWideSum(high.high, high.low + low.high);
    return quickWideSum(high.high, high.low + low.low);
}
inline DoubleDouble operator+(DoubleDouble const &a, double b)
{
    DoubleDouble const high = wideSum(a.high, b);
    return quickWideSum(high.high, high.low + a.low);
}
inline DoubleDouble operator-(DoubleDouble const &a, DoubleDouble const &b)
{
    return a + -b;
}
inline DoubleDouble operator-(DoubleDouble const &a, double b)
{
    return a + -b;
}
inline DoubleDouble operator*(DoubleDouble const &a, DoubleDouble const &b)
{
    DoubleDouble const product = wideProduct(a.high, b.high);
    return quickWideSum(product.high, product.low + (a.high * b.low + a.low * b.high));
}
inline DoubleDouble operator*(DoubleDouble const &a, double b)
{
    DoubleDouble const product = wideProduct(a.high, b);
    return quickWideSum(product.high, product.low + a.low * b);
}
inline DoubleDouble operator*(double a, DoubleDouble const &b)
{
    return b * a;
}
inline DoubleDouble operator/(DoubleDouble const &a, DoubleDouble const &b)
{
    double const first = a.high / b.high;
    DoubleDouble const rest = a - b * first;
    double const second = rest.high / b.high;
    DoubleDouble const last = rest - b * second;
    return quickWideSum(first, second) + last.high / b.high;
}

inline bool operator<(DoubleDouble const &a, DoubleDouble const &b)
{
    return a.high < b.high || (a.high == b.high && a.low < b.low);
}
inline bool operator>(DoubleDouble const &a, DoubleDouble const &b)
{
    return b < a;
}

inline DoubleDouble squareOf(DoubleDouble const &a)
{
    return a * a;
}
inline DoubleDouble magnitude(DoubleDouble const &a)
{
    return a.high < 0.0 ? -a : a;
}
/// The root of a number that is not negative; 0 for one that is.
inline DoubleDouble squareRoot(DoubleDouble const &a)
{
    if (!(a.high > 0.0)) {
        return {};
    }
    double const root = std::sqrt(a.high);
    DoubleDouble const once = quickWideSum(root, (a - wideProduct(root, root)).high / (2.0 * root));
    return once + (a - once * once).high / (2.0 * root);
}
/// The double next to the number.
inline double rounded(DoubleDouble const &a)
{
    return a.high + a.low;
}
/// a times a power of two.
inline DoubleDouble scaled(DoubleDouble const &a, double power)
{
    return {a.high * power, a.low * power};
}

} // namespace orvelExact
