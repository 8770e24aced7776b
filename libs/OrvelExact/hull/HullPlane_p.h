#pragma once

/// @file
/// The plane of a facet and the bound of its rounding errors.

#include <OrvelExact/base/points.h>

#include <cmath>

namespace orvelExact {

/// The plane of a facet in rounded coordinates, with the largest error of a height over it.
///
/// With u = 2^-53 and components of at most 1, a difference of components is off by 3 u, a
/// component of the normal by 10 u times the lengths of the edges along the other two axes, and a
/// height by 10 u (|x| + |y| + |z|) of the normal plus 40 u times the edges' components. `maxError`
/// is half as much again.
struct HullPlane
{
    Point3 normal; ///< outwards, not of unit length
    double offset = 0.0;
    double maxError = 0.0;

    HullPlane() = default;
    HullPlane(Point3 const &a, Point3 const &b, Point3 const &c, bool isExact)
    {
        Point3 const u = b - a;
        Point3 const v = c - a;
        normal = {u.y() * v.z() - u.z() * v.y(), u.z() * v.x() - u.x() * v.z(),
                  u.x() * v.y() - u.y() * v.x()};
        offset = normal.x() * a.x() + normal.y() * a.y() + normal.z() * a.z();
        if (!isExact) {
            maxError = 1.7e-15 * sum(normal) + 6.7e-15 * (sum(u) + sum(v)) + 1e-300;
        }
    }

    /// The orientation of the corners and p, rounded; the sign is sure above `maxError`.
    double height(Point3 const &p) const
    {
        return normal.x() * p.x() + normal.y() * p.y() + normal.z() * p.z() - offset;
    }

private:
    static double sum(Point3 const &v)
    {
        return std::fabs(v.x()) + std::fabs(v.y()) + std::fabs(v.z());
    }
};

} // namespace orvelExact
