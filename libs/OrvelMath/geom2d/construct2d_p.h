/// @file
/// A helper shared by the files of the constructions. Not part of the interface.
#pragma once

#include <OrvelMath/base/Point2D.h>

/// p + a u + b v, summed in this order.
inline Point2D combined(Point2D const &p, double a, Point2D const &u, double b, Point2D const &v)
{
    return Point2D(p.x() + a * u.x() + b * v.x(), p.y() + a * u.y() + b * v.y());
}
