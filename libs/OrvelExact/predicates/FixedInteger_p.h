#pragma once

#include <OrvelExact/predicates/determinants_p.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

/// @file
/// Whole numbers of a few 64-bit digits, for points on a common grid.
///
/// Lattices and drawings in round numbers are where a sign is 0 most often. Their coordinates are
/// of similar size or have few bits, so that all of them are whole multiples of one power of two,
/// and less than 2^61 of it. Then the determinants need no more than 320 bits.

namespace orvelExact {

/// A whole number in two's complement. A product has the digits of both factors and so always
/// fits; a sum has the digits of its terms, and whoever adds knows that it fits.
template <int digits>
struct FixedInteger
{
    std::uint64_t digit[digits]; ///< lowest first

    bool isNegative() const { return digit[digits - 1] >> 63 != 0; }

    int sign() const
    {
        std::uint64_t bits = 0;
        for (std::uint64_t const d : digit) {
            bits |= d;
        }
        return isNegative() ? -1 : bits != 0 ? 1 : 0;
    }
};

__extension__ using TwoDigits = unsigned __int128;
__extension__ using SignedTwoDigits = __int128;

template <int n>
FixedInteger<n> operator+(FixedInteger<n> const &a, FixedInteger<n> const &b)
{
    FixedInteger<n> result;
    TwoDigits sum = 0;
    for (int i = 0; i < n; ++i) {
        sum += TwoDigits(a.digit[i]) + b.digit[i];
        result.digit[i] = static_cast<std::uint64_t>(sum);
        sum >>= 64;
    }
    return result;
}

/// Takes b * 2^(64 * shift) from the digits of a.
template <int m, int n>
void subtract(FixedInteger<m> &a, FixedInteger<n> const &b, int shift)
{
    std::uint64_t borrow = 0;
    for (int i = 0; i < n; ++i) {
        TwoDigits const difference = TwoDigits(a.digit[i + shift]) - b.digit[i] - borrow;
        a.digit[i + shift] = static_cast<std::uint64_t>(difference);
        borrow = static_cast<std::uint64_t>(difference >> 64) & 1;
    }
}

template <int n>
FixedInteger<n> operator-(FixedInteger<n> const &a, FixedInteger<n> const &b)
{
    FixedInteger<n> result = a;
    subtract(result, b, 0);
    return result;
}

/// The digits are multiplied as if both had no sign. A negative number is read as too large by
/// 2^(64 n): that multiple of the other factor is taken away again.
template <int m, int n>
FixedInteger<m + n> operator*(FixedInteger<m> const &a, FixedInteger<n> const &b)
{
    FixedInteger<m + n> result{};
    for (int i = 0; i < m; ++i) {
        std::uint64_t carried = 0;
        for (int j = 0; j < n; ++j) {
            TwoDigits const product =
                TwoDigits(a.digit[i]) * b.digit[j] + result.digit[i + j] + carried;
            result.digit[i + j] = static_cast<std::uint64_t>(product);
            carried = static_cast<std::uint64_t>(product >> 64);
        }
        result.digit[i + n] = carried;
    }
    if (a.isNegative()) {
        subtract(result, b, m);
    }
    if (b.isNegative()) {
        subtract(result, a, n);
    }
    return result;
}

inline FixedInteger<2> operator*(FixedInteger<1> const &a, FixedInteger<1> const &b)
{
    auto const product = SignedTwoDigits(static_cast<std::int64_t>(a.digit[0])) *
                         static_cast<std::int64_t>(b.digit[0]);
    return {{static_cast<std::uint64_t>(product), static_cast<std::uint64_t>(product >> 64)}};
}

/// The differences of points from the last one, in units of a power of two.
///
/// They are below 2^62 in size. So a minor of two rows and a squared length are below 2^126, a
/// minor of three rows is below 2^189, and the lifted determinant is below 2^252 in the plane and
/// below 2^317 in space: each has a bit to spare in its 2, 3, 4 or 5 digits.
template <typename Point, int dimension, int count>
class GridRows
{
public:
    explicit GridRows(Point const (&points)[count])
    {
        double largest = 0.0;
        for (Point const &p : points) {
            for (int k = 0; k < dimension; ++k) {
                largest = std::max(largest, std::fabs(p[k]));
            }
        }
        // Within these limits the unit and its inverse are doubles of full precision.
        if (!(largest > 1e-250 && largest < 1e290)) {
            return;
        }
        std::uint64_t bits = 0;
        std::memcpy(&bits, &largest, sizeof bits);
        std::uint64_t const exponent = bits >> 52; // largest < 2^(exponent - 1022)
        double const unit = powerOfTwo(exponent - 60);
        double const inverse = powerOfTwo(2046 + 60 - exponent);
        m_isValid = true;
        for (int i = 0; i < count; ++i) {
            for (int k = 0; k < dimension; ++k) {
                auto const whole = static_cast<std::int64_t>(points[i][k] * inverse);
                m_isValid &= static_cast<double>(whole) * unit == points[i][k];
                m_whole[i][k] = whole;
            }
        }
    }

    /// False if the points are on no such grid; then there are no differences.
    bool isValid() const { return m_isValid; }

    FixedInteger<1> difference(int point, int k) const
    {
        return {{static_cast<std::uint64_t>(m_whole[point][k] - m_whole[count - 1][k])}};
    }

private:
    static double powerOfTwo(std::uint64_t biasedExponent)
    {
        std::uint64_t const bits = biasedExponent << 52;
        double result = 0.0;
        std::memcpy(&result, &bits, sizeof result);
        return result;
    }

    bool m_isValid = false;
    std::int64_t m_whole[count][dimension];
};

} // namespace orvelExact
