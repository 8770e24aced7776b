#pragma once

/// @file
/// Short vector formulas of the plane, each in the order of operations in which its users are
/// defined. Not part of the interface.

#include <OrvelMath/base/Point2D.h>

#include <cmath>

namespace planeVectors {

inline double distance(Point2D const &p, Point2D const &q)
{
    double const dx = p.x() - q.x();
    double const dy = p.y() - q.y();
    return std::sqrt(dx * dx + dy * dy);
}

inline double length(Point2D const &v)
{
    return std::sqrt(v.x() * v.x() + v.y() * v.y());
}

/// The vector turned counter-clockwise by an angle in radians.
inline Point2D turned(Point2D const &v, double angle)
{
    double const c = std::cos(angle);
    double const s = std::sin(angle);
    return Point2D(c * v.x() - s * v.y(), s * v.x() + c * v.y());
}

/// p + a u + b v, summed in this order.
inline Point2D combined(Point2D const &p, double a, Point2D const &u, double b, Point2D const &v)
{
    return Point2D(p.x() + a * u.x() + b * v.x(), p.y() + a * u.y() + b * v.y());
}

} // namespace planeVectors
