#pragma once

/// @file
/// Powers of two that bring an input to about size 1, so that products keep all their digits.

#include <OrvelExact/measures/DoubleDouble_p.h>

#include <cmath>

namespace orvelExact {

/// The exponent e for which `size` 2^-e lies from 0.5 to 1; 0 for a size of 0.
inline int exponentOf(double size)
{
    int exponent = 0;
    std::frexp(size, &exponent);
    return exponent;
}

/// value 2^exponent; exact unless the result leaves the range of doubles or of normal doubles.
inline double timesPowerOfTwo(double value, int exponent)
{
    return std::ldexp(value, exponent);
}
inline DoubleDouble timesPowerOfTwo(DoubleDouble const &value, int exponent)
{
    return {std::ldexp(value.high, exponent), std::ldexp(value.low, exponent)};
}

} // namespace orvelExact
