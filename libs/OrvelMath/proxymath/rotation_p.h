#pragma once

#include <cmath>

/// The three axis columns of a rotation matrix for column vectors.
struct RotationColumns
{
    double column[3][3];
};

/// Degrees to radians, multiplied first.
inline double scriptRadians(double degrees)
{
    return degrees * 3.141592653589793 / 180.0;
}

/// Rx(a) Ry(b) Rz(c) of the right-handed rotations about the axes; degrees.
inline RotationColumns rotationAboutAxes(double a, double b, double c)
{
    double const sa = std::sin(scriptRadians(a));
    double const ca = std::cos(scriptRadians(a));
    double const sb = std::sin(scriptRadians(b));
    double const cb = std::cos(scriptRadians(b));
    double const sc = std::sin(scriptRadians(c));
    double const cc = std::cos(scriptRadians(c));
    return {{{cb * cc, ca * sc + cc * sa * sb, sa * sc - cc * ca * sb},
             {-cb * sc, ca * cc - sc * sa * sb, sa * cc + sc * ca * sb},
             {sb, -sa * cb, ca * cb}}};
}
