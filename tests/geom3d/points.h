#pragma once

/// @file
/// Values and random input that the tests of space share.

#include <OrvelMath/base/valueTypes.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <cmath>
#include <limits>

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

/// What an output holds before a call that must leave it alone.
inline Point3D const presetPoint(-77.0, 78.0, 79.0);

using Vector = vectorC3d<double>;

inline void expectNear(Point3D const &actual, Point3D const &expected, double tolerance)
{
    EXPECT_LE((actual - expected).Length(), tolerance)
        << "(" << actual.x() << ", " << actual.y() << ", " << actual.z() << ")";
}

inline void expectNear(Vector const &actual, Vector const &expected, double tolerance)
{
    expectNear(Point3D(actual), Point3D(expected), tolerance);
}

inline bool isNan(Point3D const &p)
{
    return std::isnan(p.x()) && std::isnan(p.y()) && std::isnan(p.z());
}

/// An integer from [low, high), as likely early in a run as late.
inline int uniform(int low, int high)
{
    return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(low, high));
}

/// A coordinate on a grid of 0.001 within 10 of the origin; every fourth one is a small integer, so
/// that degenerate positions do occur.
inline double anyCoordinate()
{
    if (uniform(0, 4) == 0) {
        return uniform(-2, 3);
    }
    return uniform(-10000, 10001) * 1e-3;
}

inline Point3D anyPoint()
{
    double const x = anyCoordinate();
    double const y = anyCoordinate();
    return Point3D(x, y, anyCoordinate());
}

inline Vector anyVector()
{
    return Vector(anyPoint());
}

/// A vector that isn't short.
inline Point3D anyDirection()
{
    Point3D const direction = anyPoint();
    RC_PRE(direction.Length() > 0.1);
    return direction;
}
