#include <OrvelExact/predicates/BigInteger_p.h>

#include <algorithm>

namespace orvelExact {

namespace {

constexpr int bitsPerDigit = 32;

} // namespace

BigInteger::BigInteger(std::int64_t mantissa, int shift)
    : m_isNegative(mantissa < 0)
{
    std::uint64_t const magnitude = mantissa < 0 ? 0 - static_cast<std::uint64_t>(mantissa)
                                                 : static_cast<std::uint64_t>(mantissa);
    if (magnitude == 0) {
        return;
    }
    int const whole = shift / bitsPerDigit;
    int const bits = shift % bitsPerDigit;
    std::fill(m_digits, m_digits + whole, 0);
    std::uint64_t const low = (magnitude & 0xffffffffu) << bits;
    std::uint64_t const high = ((magnitude >> bitsPerDigit) << bits) + (low >> bitsPerDigit);
    m_digits[whole] = static_cast<Digit>(low);
    m_digits[whole + 1] = static_cast<Digit>(high);
    m_digits[whole + 2] = static_cast<Digit>(high >> bitsPerDigit);
    m_size = whole + 3;
    dropLeadingZeros();
}

BigInteger &BigInteger::operator=(BigInteger const &other)
{
    m_size = other.m_size;
    m_isNegative = other.m_isNegative;
    std::copy(other.m_digits, other.m_digits + other.m_size, m_digits);
    return *this;
}

void BigInteger::dropLeadingZeros()
{
    while (m_size > 0 && m_digits[m_size - 1] == 0) {
        --m_size;
    }
}

void BigInteger::approximate(double &high, double &low, int &exponent) const
{
    high = 0.0;
    low = 0.0;
    exponent = std::max(m_size - 4, 0) * bitsPerDigit;
    // Each half is whole in a double but for the last: two digits have 64 bits.
    double const sign = m_isNegative ? -1.0 : 1.0;
    constexpr double base = 4294967296.0;
    double digit[4] = {0.0, 0.0, 0.0, 0.0};
    for (int i = 0; i < std::min(m_size, 4); ++i) {
        digit[i] = sign * m_digits[std::max(m_size - 4, 0) + i];
    }
    double const upper = digit[3] * base;
    double const lower = digit[1] * base + digit[0]; // off by 2^-53 of itself at most
    double const sum = upper + digit[2];
    double const lost = digit[2] - (sum - upper);
    high = sum * base * base;
    low = lost * base * base + lower;
}

int BigInteger::compareMagnitudes(BigInteger const &a, BigInteger const &b)
{
    if (a.m_size != b.m_size) {
        return a.m_size < b.m_size ? -1 : 1;
    }
    for (int i = a.m_size - 1; i >= 0; --i) {
        if (a.m_digits[i] != b.m_digits[i]) {
            return a.m_digits[i] < b.m_digits[i] ? -1 : 1;
        }
    }
    return 0;
}

/// |a| + |b|, where a is the longer one.
void BigInteger::addMagnitudes(BigInteger const &a, BigInteger const &b, BigInteger &result)
{
    std::uint64_t carry = 0;
    for (int i = 0; i < a.m_size; ++i) {
        carry += a.m_digits[i];
        carry += i < b.m_size ? b.m_digits[i] : 0;
        result.m_digits[i] = static_cast<Digit>(carry);
        carry >>= bitsPerDigit;
    }
    result.m_digits[a.m_size] = static_cast<Digit>(carry);
    result.m_size = a.m_size + 1;
}

/// |a| - |b|, where a is the larger one.
void BigInteger::subtractMagnitudes(BigInteger const &a, BigInteger const &b, BigInteger &result)
{
    std::uint64_t borrow = 0;
    for (int i = 0; i < a.m_size; ++i) {
        std::uint64_t const taken = (i < b.m_size ? b.m_digits[i] : 0) + borrow;
        borrow = taken > a.m_digits[i] ? 1 : 0;
        result.m_digits[i] = static_cast<Digit>(a.m_digits[i] - taken);
    }
    result.m_size = a.m_size;
}

BigInteger BigInteger::sum(BigInteger const &a, BigInteger const &b, bool bIsNegative)
{
    BigInteger result;
    if (a.m_isNegative == bIsNegative) {
        bool const aIsLonger = a.m_size >= b.m_size;
        addMagnitudes(aIsLonger ? a : b, aIsLonger ? b : a, result);
        result.m_isNegative = bIsNegative;
    } else if (compareMagnitudes(a, b) >= 0) {
        subtractMagnitudes(a, b, result);
        result.m_isNegative = a.m_isNegative;
    } else {
        subtractMagnitudes(b, a, result);
        result.m_isNegative = bIsNegative;
    }
    result.dropLeadingZeros();
    return result;
}

BigInteger operator+(BigInteger const &a, BigInteger const &b)
{
    return BigInteger::sum(a, b, b.m_isNegative);
}

BigInteger operator-(BigInteger const &a, BigInteger const &b)
{
    return BigInteger::sum(a, b, !b.m_isNegative);
}

BigInteger operator*(BigInteger const &a, BigInteger const &b)
{
    BigInteger result;
    if (a.m_size == 0 || b.m_size == 0) {
        return result;
    }
    result.m_isNegative = a.m_isNegative != b.m_isNegative;
    result.m_size = a.m_size + b.m_size;
    std::fill(result.m_digits, result.m_digits + result.m_size, 0);
    for (int i = 0; i < a.m_size; ++i) {
        std::uint64_t carry = 0;
        for (int j = 0; j < b.m_size; ++j) {
            carry += std::uint64_t(a.m_digits[i]) * b.m_digits[j] + result.m_digits[i + j];
            result.m_digits[i + j] = static_cast<BigInteger::Digit>(carry);
            carry >>= bitsPerDigit;
        }
        result.m_digits[i + b.m_size] = static_cast<BigInteger::Digit>(carry);
    }
    result.dropLeadingZeros();
    return result;
}

} // namespace orvelExact
