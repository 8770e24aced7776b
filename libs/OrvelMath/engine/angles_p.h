#pragma once

/// @file
/// Degrees to radians and back, in each order of operations that the library uses.
///
/// The orders differ in the last bits, and each caller keeps the one that it has always had. The
/// name of a function is its formula, read from left to right.

namespace engine {

constexpr double pi = 3.141592653589793;
constexpr double radiansPerDegree = 0.017453292519943295; ///< the double next to pi / 180

/// Radians, multiplied first.
constexpr double degreesTimesPiBy180(double degrees)
{
    return degrees * pi / 180.0;
}

/// Radians, by one product.
constexpr double degreesTimesFactor(double degrees)
{
    return degrees * radiansPerDegree;
}

/// Degrees, by one quotient.
constexpr double radiansByFactor(double radians)
{
    return radians / radiansPerDegree;
}

/// Degrees, multiplied first.
constexpr double radiansTimes180ByPi(double radians)
{
    return radians * 180.0 / pi;
}

/// Degrees, divided first.
constexpr double radiansByPiTimes180(double radians)
{
    return radians / pi * 180.0;
}

} // namespace engine
