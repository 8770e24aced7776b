#pragma once

/// @file
/// Sine, cosine and arc tangent with the same bits on every platform.

#include <OrvelExact/measures/DoubleDouble_p.h>

namespace orvelExact {

struct SineCosine
{
    DoubleDouble sine;
    DoubleDouble cosine;
};

/// The largest angle that `sineCosineOf` takes.
constexpr double largestAngle = 0x1p30;

/// Both within 2^-96 of the true value. The libraries of C differ in the last bit from platform to
/// platform; this is a Taylor series after a reduction by quarter turns of 160 bits.
/// @param angle radians, of a size not above `largestAngle`
SineCosine sineCosineOf(double angle);

/// The angle of the vector (x, y) in radians, from -pi to pi, within 2^-80 of itself. The vector is
/// not 0, and its components are scaled such that their squares neither overflow nor vanish.
DoubleDouble arcTangentOf(DoubleDouble const &y, DoubleDouble const &x);

} // namespace orvelExact
