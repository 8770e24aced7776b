#pragma once

/// @file
/// Sums with their rounding errors beside them.

#include <cmath>

namespace orvelExact {

/// A sum whose rounding errors are summed beside it (Neumaier, 1974). The result is off by a
/// rounding of its own and, of second order, by the count of summands times the sum of their sizes.
class CompensatedSum
{
public:
    void add(double value)
    {
        double const sum = m_sum + value;
        m_lost +=
            std::fabs(m_sum) >= std::fabs(value) ? (m_sum - sum) + value : (value - sum) + m_sum;
        m_sum = sum;
    }
    double value() const { return std::isfinite(m_lost) ? m_sum + m_lost : m_sum; }

private:
    double m_sum = 0.0;
    double m_lost = 0.0;
};

} // namespace orvelExact
