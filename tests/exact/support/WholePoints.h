#pragma once

/// @file
/// Determinants in the whole numbers of Boost.

#include <OrvelExact/base/points.h>

#include <boost/multiprecision/cpp_int.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace support {

/// Exponent of the lowest bit of a double, 0 for 0.
inline int lowestBit(double value)
{
    if (value == 0.0) {
        return 0;
    }
    int exponent = 0;
    auto mantissa = static_cast<std::int64_t>(std::ldexp(std::frexp(value, &exponent), 53));
    exponent -= 53;
    while (mantissa % 2 == 0) {
        mantissa /= 2;
        ++exponent;
    }
    return exponent;
}

/// value * 2^-unit, where that is a whole number.
template <typename Integer>
Integer wholeOf(double value, int unit)
{
    int exponent = 0;
    auto mantissa = static_cast<std::int64_t>(std::ldexp(std::frexp(value, &exponent), 53));
    exponent -= 53 + unit;
    Integer whole = mantissa;
    if (exponent >= 0) {
        whole *= Integer(1) << exponent;
    } else {
        whole /= Integer(1) << -exponent;
    }
    return whole;
}

/// Minors of the rows of a predicate, in whole numbers of Boost, of which every double is a
/// multiple of a power of two. `Integer` must hold the results; nothing is checked.
template <typename Integer, typename Point, std::size_t count>
class WholeRows
{
public:
    static constexpr int dimension = sizeof(Point) / sizeof(double);

    /// Rows: the points but the last one, seen from the last one.
    explicit WholeRows(Point const (&points)[count])
    {
        constexpr int none = 4000; // above all exponents
        int unit = none;
        for (Point const &p : points) {
            for (int k = 0; k < dimension; ++k) {
                if (p[k] != 0.0) {
                    unit = std::min(unit, lowestBit(p[k]));
                }
            }
        }
        unit = unit == none ? 0 : unit;
        for (std::size_t i = 0; i + 1 < count; ++i) {
            for (int k = 0; k < dimension; ++k) {
                row[i][k] = wholeOf<Integer>(points[i][k], unit) -
                            wholeOf<Integer>(points[count - 1][k], unit);
            }
            for (int k = 0; k < dimension; ++k) {
                lift[i] += row[i][k] * row[i][k];
            }
        }
    }

    Integer row[count - 1][dimension];
    Integer lift[count - 1]{};

    Integer minor2(int i, int j) const { return row[i][0] * row[j][1] - row[i][1] * row[j][0]; }
    Integer minor3(int i, int j, int k) const
    {
        return row[i][2] * minor2(j, k) - row[j][2] * minor2(i, k) + row[k][2] * minor2(i, j);
    }
};

} // namespace support
