#pragma once

#include <OrvelExact/base/points.h>
#include <OrvelExact/predicates/Sign.h>
#include <OrvelExact/predicates/determinants_p.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

/// @file
/// Rows of exact differences, as expansions or as whole numbers.

namespace orvelExact {

/// The exponents of the components of some points: of the largest one, and of the lowest bit of
/// all.
class ExponentRange
{
public:
    template <typename... Points>
    explicit ExponentRange(Points const &...points)
    {
        (add(points), ...);
    }

    /// Exponent of the lowest bit, 0 if all components are 0.
    int lowest() const { return m_lowest <= m_highest ? m_lowest : 0; }

    /// True if polynomials of this degree in the differences are free of overflow, and their
    /// expansions of underflow: of 2^1023 and 2^-1074 some digits are kept for sums and for the
    /// splitting of a factor.
    bool servesExpansions(int degree) const
    {
        return m_lowest > m_highest ||
               (m_lowest * degree >= -1040 && (m_highest + 2) * degree <= 980);
    }

private:
    void add(Point2 const &p)
    {
        add(p.x());
        add(p.y());
    }
    void add(Point3 const &p)
    {
        add(p.x());
        add(p.y());
        add(p.z());
    }
    void add(double component)
    {
        if (component == 0.0) {
            return;
        }
        std::uint64_t bits = 0;
        std::memcpy(&bits, &component, sizeof bits);
        int const exponent = std::max(static_cast<int>(bits >> 52 & 0x7ff), 1) - 1023;
        m_highest = std::max(m_highest, exponent);
        m_lowest = std::min(m_lowest, exponent - 52);
    }

    int m_highest = std::numeric_limits<int>::min();
    int m_lowest = std::numeric_limits<int>::max();
};

template <typename Number>
Sign signOf(Number const &number)
{
    return static_cast<Sign>(number.sign());
}

inline Row2<Expansion<2>> expansionRow(Point2 const &p, Point2 const &origin)
{
    return {exactDifference(p.x(), origin.x()), exactDifference(p.y(), origin.y())};
}

inline Row3<Expansion<2>> expansionRow(Point3 const &p, Point3 const &origin)
{
    return {exactDifference(p.x(), origin.x()), exactDifference(p.y(), origin.y()),
            exactDifference(p.z(), origin.z())};
}

/// Number of a component in units of 2^lowest.
inline BigInteger wholeNumber(double component, int lowest)
{
    if (component == 0.0) {
        return {};
    }
    int exponent = 0;
    double const fraction = std::frexp(component, &exponent);
    auto mantissa = static_cast<std::int64_t>(std::ldexp(fraction, 53));
    int shift = exponent - 53 - lowest;
    if (shift < 0) { // a denormal: the bits that are shifted out are 0
        mantissa /= std::int64_t(1) << -shift;
        shift = 0;
    }
    return {mantissa, shift};
}

inline Row2<BigInteger> wholeRow(Point2 const &p, Point2 const &origin, int lowest)
{
    return {wholeNumber(p.x(), lowest) - wholeNumber(origin.x(), lowest),
            wholeNumber(p.y(), lowest) - wholeNumber(origin.y(), lowest)};
}

inline Row3<BigInteger> wholeRow(Point3 const &p, Point3 const &origin, int lowest)
{
    return {wholeNumber(p.x(), lowest) - wholeNumber(origin.x(), lowest),
            wholeNumber(p.y(), lowest) - wholeNumber(origin.y(), lowest),
            wholeNumber(p.z(), lowest) - wholeNumber(origin.z(), lowest)};
}

} // namespace orvelExact
