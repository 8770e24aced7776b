#pragma once

/// @file
/// Points for which a predicate is hard.

#include <OrvelExact/base/points.h>

#include <cmath>
#include <random>

/// Points for which the sign of a predicate is 0 or nearly so, of several kinds by turns.
class NearDegenerate
{
public:
    explicit NearDegenerate(unsigned seed)
        : m_generator(seed)
    {
    }

    /// A whole number of a few or of many bits, or any double below 1.
    double component()
    {
        switch (m_kind % 4) {
        case 0:
            return below(9) - 4;
        case 1:
            return below(2000001) - 1000000;
        case 2:
            return std::uniform_real_distribution<double>(-1.0, 1.0)(m_generator);
        default:
            return 0.1 * (below(101) - 50);
        }
    }
    /// The value, or one of its neighbours a few steps away.
    double nudged(double value)
    {
        if (below(4) == 0) {
            return value;
        }
        if (value == 0.0) {
            return std::ldexp(below(5) - 2, -60); // its true neighbours would need 1000 bits
        }
        double const towards = below(2) == 0 ? -1e300 : 1e300;
        for (int steps = below(4); steps > 0; --steps) {
            value = std::nextafter(value, towards);
        }
        return value;
    }
    int below(int limit) { return static_cast<int>(m_generator() % static_cast<unsigned>(limit)); }
    double fraction() { return below(2) == 0 ? below(5) - 2 : below(1000) / 999.0; }
    void next() { m_kind = below(4); }
    /// A power of two from 2^-200 to 2^200 (1e-60 to 1e60), mostly 1.
    double scale() { return below(3) == 0 ? std::ldexp(1.0, below(401) - 200) : 1.0; }

private:
    std::mt19937_64 m_generator;
    int m_kind = 0;
};
