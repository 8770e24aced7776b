#pragma once

/// @file
/// The rotations that a script can set a matrix to.

#include <OrvelMath/engine/angles_p.h>

#include <cmath>

/// The three axis columns of a rotation matrix for column vectors.
struct RotationColumns
{
    double column[3][3];
};

/// Rx(a) Ry(b) Rz(c) of the right-handed rotations about the axes; degrees.
inline RotationColumns rotationAboutAxes(double a, double b, double c)
{
    double const sa = std::sin(engine::degreesTimesPiBy180(a));
    double const ca = std::cos(engine::degreesTimesPiBy180(a));
    double const sb = std::sin(engine::degreesTimesPiBy180(b));
    double const cb = std::cos(engine::degreesTimesPiBy180(b));
    double const sc = std::sin(engine::degreesTimesPiBy180(c));
    double const cc = std::cos(engine::degreesTimesPiBy180(c));
    return {{{cb * cc, ca * sc + cc * sa * sb, sa * sc - cc * ca * sb},
             {-cb * sc, ca * cc - sc * sa * sb, sa * cc + sc * ca * sb},
             {sb, -sa * cb, ca * cb}}};
}
