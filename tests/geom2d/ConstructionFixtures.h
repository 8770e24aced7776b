#pragma once

/// @file
/// Random input and checks that the tests of the constructions share.

#include "PlaneFixtures.h"

#include <OrvelMath/geom2d/mathPoly.h>

#include <rapidcheck/gtest.h>

/// A multiple of 0.001 within -limit to limit.
inline double anyNumber(int limit)
{
    return *rc::gen::inRange(-1000 * limit, 1000 * limit + 1) / 1000.0;
}

inline double anyPositive(int limit)
{
    return *rc::gen::inRange(1, 1000 * limit + 1) / 1000.0;
}

inline Point2D anyPoint(int limit)
{
    double const x = anyNumber(limit);
    return Point2D(x, anyNumber(limit));
}

inline double distanceToLine(Point2D const &p, Point2D const &a, Point2D const &b)
{
    Point2D const d = b - a;
    return std::fabs(d.x() * (p.y() - a.y()) - d.y() * (p.x() - a.x())) / d.Length();
}

inline void requireNear(double actual, double expected, double tol)
{
    RC_ASSERT(std::fabs(actual - expected) <= tol);
}

/// Counter-clockwise sweep in degrees, from 0 up to 360.
inline double sweepOf(Point2D const &m, Point2D const &a, Point2D const &b)
{
    double const sweep =
        (std::atan2(b.y() - m.y(), b.x() - m.x()) - std::atan2(a.y() - m.y(), a.x() - m.x())) *
        180 / pi;
    return sweep < 0 ? sweep + 360 : sweep;
}

/// What the equation of a conic gives at a place; 0 on the curve.
inline double valueAt(mathPoly::Conic const &q, double x, double y)
{
    return q.A * x * x + 2 * q.B * x * y + q.C * y * y + 2 * q.D * x + 2 * q.E * y + q.F;
}
