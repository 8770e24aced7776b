#pragma once

#include <OrvelExact/OrvelExactExport.h>
#include <OrvelExact/base/points.h>
#include <OrvelExact/predicates/Sign.h>

#include <algorithm>
#include <cmath>

/// @file
/// On which side of a line or a plane a point lies, exactly.
///
/// A filter in floating-point numbers answers nearly all calls (Shewchuk, Adaptive Precision
/// Floating-Point Arithmetic and Fast Robust Geometric Predicates, 1997). What it leaves open is
/// computed without rounding: as sums of doubles where the exponents allow it, else in whole
/// numbers. So the answer is right for all finite doubles, denormals and the largest included.

namespace orvelExact {

/// The rest of the predicates below, for calls that the filter leaves open. No use of their own.
ORVELEXACT_EXPORT Sign unfilteredOrientation2d(Point2 const &a, Point2 const &b, Point2 const &c);
ORVELEXACT_EXPORT Sign unfilteredOrientation3d(Point3 const &a, Point3 const &b, Point3 const &c,
                                               Point3 const &d);

/// The turn a, b, c: `Positive` to the left (counter-clockwise with y up), that is c to the left of
/// the line from a to b; `Negative` to the right; `Zero` on one line, equal points included.
///
/// Exact for all finite points. `NotFinite` if a component is NaN or infinite.
///
/// @see concav2d::isColinear, which compares lengths and tells the order of the points
inline Sign orientation2d(Point2 const &a, Point2 const &b, Point2 const &c)
{
    constexpr double maxRelativeError = 3.3306690738754716e-16; // (3 + 16 e) e with e = 2^-53
    constexpr double underflow = 1e-300; // far above what products lose below the smallest double
    double const left = (a.x() - c.x()) * (b.y() - c.y());
    double const right = (a.y() - c.y()) * (b.x() - c.x());
    double const determinant = left - right;
    double const error = maxRelativeError * (std::fabs(left) + std::fabs(right)) + underflow;
    if (std::fabs(determinant) > error) {
        return determinant > 0.0 ? Sign::Positive : Sign::Negative;
    }
    return unfilteredOrientation2d(a, b, c);
}

/// The side of the plane a, b, c on which d lies: `Positive` where (b - a) x (c - a) points to,
/// from where a, b, c run counter-clockwise; `Negative` on the other side; `Zero` on the plane, and
/// when a, b and c have no plane of their own.
///
/// Exact for all finite points. `NotFinite` if a component is NaN or infinite.
///
/// @see LineInsideTriangle, MatUtil::rayIntersectsTriangle, which have tolerances
inline Sign orientation3d(Point3 const &a, Point3 const &b, Point3 const &c, Point3 const &d)
{
    // (7 + 56 e) e with e = 2^-53, times 6 products of the largest sizes, rounded up
    constexpr double maxRelativeError = 4.7e-15;
    constexpr double underflow = 1e-290; // as above, times the third factor
    double const ax = a.x() - d.x(), ay = a.y() - d.y(), az = a.z() - d.z();
    double const bx = b.x() - d.x(), by = b.y() - d.y(), bz = b.z() - d.z();
    double const cx = c.x() - d.x(), cy = c.y() - d.y(), cz = c.z() - d.z();
    double const determinant =
        (by * cx - bx * cy) * az + (cy * ax - cx * ay) * bz + (ay * bx - ax * by) * cz;
    double const sizeX = std::max(std::max(std::fabs(ax), std::fabs(bx)), std::fabs(cx));
    double const sizeY = std::max(std::max(std::fabs(ay), std::fabs(by)), std::fabs(cy));
    double const sizeZ = std::max(std::max(std::fabs(az), std::fabs(bz)), std::fabs(cz));
    double const error = maxRelativeError * ((sizeX * sizeY + underflow) * sizeZ) + underflow;
    if (std::fabs(determinant) > error) {
        return determinant > 0.0 ? Sign::Positive : Sign::Negative;
    }
    return unfilteredOrientation3d(a, b, c, d);
}

} // namespace orvelExact
