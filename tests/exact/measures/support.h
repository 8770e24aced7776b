#pragma once

/// @file
/// Numbers of many digits, random input and how much of it, for the tests of the measures.

#include <OrvelExact/base/points.h>

#include <boost/multiprecision/cpp_bin_float.hpp>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>

namespace measures {

using Real = boost::multiprecision::number<boost::multiprecision::cpp_bin_float<100>,
                                           boost::multiprecision::et_off>;
using orvelExact::Point2;
using orvelExact::Point3;

/// How many cases: more with ORVEL_LONG_TESTS=1.
inline int cases(int few)
{
    char const *const isLong = std::getenv("ORVEL_LONG_TESTS");
    return isLong != nullptr && *isLong == '1' ? 30 * few : few;
}

class Random
{
public:
    explicit Random(unsigned seed)
        : m_engine(seed)
    {
    }
    double number(double lo, double hi)
    {
        return lo + (hi - lo) * static_cast<double>(m_engine() >> 11) * 0x1p-53;
    }
    int whole(int lo, int hi)
    {
        return lo + static_cast<int>(m_engine() % static_cast<unsigned>(hi - lo + 1));
    }
    double power(double lo, double hi) { return std::pow(10.0, number(lo, hi)); }
    Point2 point2()
    {
        double const x = number(-1, 1);
        return {x, number(-1, 1)};
    }
    Point3 point3()
    {
        double const x = number(-1, 1);
        double const y = number(-1, 1);
        return {x, y, number(-1, 1)};
    }
    Point2 lattice2(int reach)
    {
        double const x = whole(-reach, reach);
        return {x, static_cast<double>(whole(-reach, reach))};
    }
    Point3 lattice3(int reach)
    {
        double const x = whole(-reach, reach);
        double const y = whole(-reach, reach);
        return {x, y, static_cast<double>(whole(-reach, reach))};
    }

private:
    std::mt19937_64 m_engine;
};

/// The spacing of doubles at a value.
inline double ulpOf(double value)
{
    double const size = std::fabs(value);
    return std::nextafter(size, std::numeric_limits<double>::infinity()) - size;
}

/// `actual` lies within some units in the last place of the truth, or within `slack`.
inline testing::AssertionResult Within(double ulps, Real const &truth, double actual,
                                       double slack = 0.0)
{
    Real const off = abs(truth - Real(actual));
    if (off <= Real(ulps) * ulpOf(static_cast<double>(truth)) + Real(slack)) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << testing::PrintToString(actual) << " is off the truth "
                                       << truth.str(25) << " by " << off.str(5);
}

} // namespace measures
