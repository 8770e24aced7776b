#pragma once

/// @file
/// Exact sums and products of doubles as unevaluated sums of doubles (Shewchuk, Adaptive Precision
/// Floating-Point Arithmetic and Fast Robust Geometric Predicates, 1997; the product of two doubles
/// after Dekker, 1971). Exact as long as nothing overflows and no product falls below the smallest
/// double; `ExponentRange` tells when that is sure.

namespace orvelExact {

/// Two doubles whose exact sum is meant; the second is the rounding error of the first.
struct DoublePair
{
    double high;
    double low;
};

inline DoublePair twoSum(double a, double b)
{
    double const sum = a + b;
    double const ofB = sum - a;
    double const ofA = sum - ofB;
    return {sum, (a - ofA) + (b - ofB)};
}

/// The same where |a| >= |b| or a is 0.
inline DoublePair fastTwoSum(double a, double b)
{
    double const sum = a + b;
    return {sum, b - (sum - a)};
}

/// The upper and the lower half of the bits of `a`.
inline DoublePair split(double a)
{
    constexpr double splitter = 134217729.0; // 2^27 + 1
    double const c = splitter * a;
    double const high = c - (c - a);
    return {high, a - high};
}

inline DoublePair twoProduct(double a, DoublePair const &aHalves, double b,
                             DoublePair const &bHalves)
{
    double const product = a * b;
    double const rest = product - aHalves.high * bHalves.high - aHalves.low * bHalves.high -
                        aHalves.high * bHalves.low;
    return {product, aHalves.low * bHalves.low - rest};
}

inline DoublePair twoProduct(double a, double b)
{
    return twoProduct(a, split(a), b, split(b));
}

/// A sum of at most `capacity` doubles: none is 0, none overlaps another, smallest first.
template <int capacity>
struct Expansion
{
    int size = 0;
    double parts[capacity]; ///< of which the first `size` are set

    void append(double part)
    {
        if (part != 0.0) {
            parts[size++] = part;
        }
    }
    /// The part of the largest size has the sign of the sum.
    int sign() const { return size == 0 ? 0 : parts[size - 1] > 0.0 ? 1 : -1; }
};

inline Expansion<2> expand(DoublePair const &pair)
{
    Expansion<2> result;
    result.append(pair.low);
    result.append(pair.high);
    return result;
}

/// a - b without rounding.
inline Expansion<2> exactDifference(double a, double b)
{
    return expand(twoSum(a, -b));
}

template <int n>
Expansion<n> operator-(Expansion<n> const &a)
{
    Expansion<n> result;
    result.size = a.size;
    for (int i = 0; i < a.size; ++i) {
        result.parts[i] = -a.parts[i];
    }
    return result;
}

/// Shewchuk's fast expansion sum with zero elimination: merges the parts by size, then carries.
template <int m, int n>
Expansion<m + n> operator+(Expansion<m> const &a, Expansion<n> const &b)
{
    Expansion<m + n> result;
    int i = 0;
    int j = 0;
    auto const next = [&] {
        bool const takesA =
            j == b.size || (i < a.size && (b.parts[j] > a.parts[i]) == (b.parts[j] > -a.parts[i]));
        return takesA ? a.parts[i++] : b.parts[j++];
    };
    if (a.size + b.size == 0) {
        return result;
    }
    double carried = next();
    while (i < a.size || j < b.size) {
        DoublePair const sum = twoSum(carried, next());
        result.append(sum.low);
        carried = sum.high;
    }
    result.append(carried);
    return result;
}

template <int m, int n>
Expansion<m + n> operator-(Expansion<m> const &a, Expansion<n> const &b)
{
    return a + -b;
}

/// Shewchuk's scaling of an expansion with zero elimination.
template <int n>
Expansion<2 * n> operator*(Expansion<n> const &a, double b)
{
    Expansion<2 * n> result;
    if (a.size == 0 || b == 0.0) {
        return result;
    }
    DoublePair const bHalves = split(b);
    DoublePair product = twoProduct(a.parts[0], split(a.parts[0]), b, bHalves);
    result.append(product.low);
    double carried = product.high;
    for (int i = 1; i < a.size; ++i) {
        product = twoProduct(a.parts[i], split(a.parts[i]), b, bHalves);
        DoublePair const lower = twoSum(carried, product.low);
        result.append(lower.low);
        DoublePair const upper = fastTwoSum(product.high, lower.high);
        result.append(upper.low);
        carried = upper.high;
    }
    result.append(carried);
    return result;
}

/// The product by each part of b in turn, from the smallest.
template <int m, int n>
Expansion<2 * m * n> operator*(Expansion<m> const &a, Expansion<n> const &b)
{
    Expansion<2 * m * n> result;
    for (int j = 0; j < b.size; ++j) {
        auto const sum = result + a * b.parts[j];
        result.size = sum.size; // the parts of the product fit, whatever the type of the sum allows
        for (int i = 0; i < sum.size; ++i) {
            result.parts[i] = sum.parts[i];
        }
    }
    return result;
}

} // namespace orvelExact
