#pragma once

/// @file
/// Whole numbers for what sums of doubles cannot hold.

#include <cstdint>

namespace orvelExact {

/// A whole number of up to 10752 bits and a sign, in place, without allocation.
///
/// All finite doubles are multiples of the smallest one. Counted in it they have up to 2098 bits,
/// a product of five differences has up to 10502: every sum and product in the predicates fits.
class BigInteger
{
public:
    BigInteger() = default;
    /// mantissa * 2^shift; the shift is not negative.
    BigInteger(std::int64_t mantissa, int shift);

    /// (high + low) * 2^exponent, off by less than 2^-74 of the number.
    void approximate(double &high, double &low, int &exponent) const;
    /// -1, 0 or 1.
    int sign() const { return m_size == 0 ? 0 : m_isNegative ? -1 : 1; }

    friend BigInteger operator+(BigInteger const &a, BigInteger const &b);
    friend BigInteger operator-(BigInteger const &a, BigInteger const &b);
    friend BigInteger operator*(BigInteger const &a, BigInteger const &b);
    BigInteger(BigInteger const &other) { *this = other; }
    BigInteger &operator=(BigInteger const &other);

private:
    using Digit = std::uint32_t;
    static constexpr int capacity = 336;

    static BigInteger sum(BigInteger const &a, BigInteger const &b, bool bIsNegative);
    static int compareMagnitudes(BigInteger const &a, BigInteger const &b);
    static void addMagnitudes(BigInteger const &a, BigInteger const &b, BigInteger &result);
    static void subtractMagnitudes(BigInteger const &a, BigInteger const &b, BigInteger &result);
    void dropLeadingZeros();

    int m_size = 0; ///< digits in use; the last of them is not 0
    bool m_isNegative = false;
    Digit m_digits[capacity]; ///< lowest first
};

} // namespace orvelExact
