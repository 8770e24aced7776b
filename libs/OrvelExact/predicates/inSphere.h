#pragma once

#include <OrvelExact/OrvelExactExport.h>
#include <OrvelExact/base/points.h>
#include <OrvelExact/predicates/Sign.h>

#include <algorithm>
#include <cmath>

/// @file
/// Whether a point lies in the circle or the sphere through others, exactly.
///
/// Filter and exact stages as in orientation.h. Points on a common grid, where the sign is 0 most
/// often, are computed in whole numbers of at most 320 bits.

namespace orvelExact {

/// The rest of the predicates below, for calls that the filter leaves open. No use of their own.
ORVELEXACT_EXPORT Sign unfilteredInCircle(Point2 const &a, Point2 const &b, Point2 const &c,
                                          Point2 const &d);
ORVELEXACT_EXPORT Sign unfilteredInSphere(Point3 const &a, Point3 const &b, Point3 const &c,
                                          Point3 const &d, Point3 const &e);

/// Where d lies as to the circle through a, b and c.
///
/// With a, b, c counter-clockwise: `Positive` inside, `Negative` outside, `Zero` on the circle.
/// With a, b, c clockwise the signs are swapped. With a, b, c on one line that line is the circle,
/// and its sides change places when two of them do. `Zero` when two of the four points are equal.
///
/// Exact for all finite points. `NotFinite` if a component is NaN or infinite.
inline Sign inCircle(Point2 const &a, Point2 const &b, Point2 const &c, Point2 const &d)
{
    // Let e = 2^-53. The determinant is off by at most (10 + 96 e) e of the sum of the sizes of its
    // products (Shewchuk). That sum is at most 3 L^2, L the largest lift: a lift times
    // |bx cy| + |by cx| <= |b| |c|, three times. 30 e = 3.331e-15, and the rest is for the rounding
    // of L. Where L^2 does not overflow, products that underflow take less than 1e-168 away.
    constexpr double maxRelativeError = 3.4e-15;
    constexpr double underflow = 1e-165;
    double const ax = a.x() - d.x(), ay = a.y() - d.y();
    double const bx = b.x() - d.x(), by = b.y() - d.y();
    double const cx = c.x() - d.x(), cy = c.y() - d.y();
    double const aLift = ax * ax + ay * ay;
    double const bLift = bx * bx + by * by;
    double const cLift = cx * cx + cy * cy;
    double const determinant =
        aLift * (bx * cy - by * cx) + bLift * (cx * ay - cy * ax) + cLift * (ax * by - ay * bx);
    double const largestLift = std::max(std::max(aLift, bLift), cLift);
    double const error = maxRelativeError * (largestLift * largestLift) + underflow;
    if (std::fabs(determinant) > error) {
        return determinant > 0.0 ? Sign::Positive : Sign::Negative;
    }
    return unfilteredInCircle(a, b, c, d);
}

/// Where e lies as to the sphere through a, b, c and d.
///
/// With `orientation3d(a, b, c, d)` positive: `Positive` inside, `Negative` outside, `Zero` on the
/// sphere. With a negative orientation the signs are swapped. `Zero` when two of the five are
/// equal, and when all five are on one circle or one plane.
///
/// Exact for all finite points. `NotFinite` if a component is NaN or infinite.
inline Sign inSphere(Point3 const &a, Point3 const &b, Point3 const &c, Point3 const &d,
                     Point3 const &e)
{
    // Let u = 2^-53. The determinant is off by at most (16 + 224 u) u of the sum of the sizes of
    // its products (Shewchuk). That sum is at most 4 sqrt(2) L^(5/2), L the largest lift: the six
    // products of three rows b, c, d are together at most
    //     |dz| |bxy| |cxy| + |cz| |bxy| |dxy| + |bz| |cxy| |dxy|,
    // and by rows of length 1 that is s_b sin(C + D) + z_b s_c s_d <= s_b + z_b <= sqrt(2).
    // 64 sqrt(2) u = 1.00486e-14. Its square is compared, which needs no root: 1.0098e-28, the rest
    // for the rounding of L and for what underflow takes away, which is below 1e-220 where L^5 does
    // not overflow: (A + B)^2 <= 1.08 A^2 + 14 B^2.
    constexpr double maxSquaredRelativeError = 1.1e-28;
    constexpr double underflow = 1e-300;
    double const ax = a.x() - e.x(), ay = a.y() - e.y(), az = a.z() - e.z();
    double const bx = b.x() - e.x(), by = b.y() - e.y(), bz = b.z() - e.z();
    double const cx = c.x() - e.x(), cy = c.y() - e.y(), cz = c.z() - e.z();
    double const dx = d.x() - e.x(), dy = d.y() - e.y(), dz = d.z() - e.z();
    double const aLift = ax * ax + ay * ay + az * az;
    double const bLift = bx * bx + by * by + bz * bz;
    double const cLift = cx * cx + cy * cy + cz * cz;
    double const dLift = dx * dx + dy * dy + dz * dz;
    double const ab = ax * by - ay * bx, bc = bx * cy - by * cx, cd = cx * dy - cy * dx;
    double const da = dx * ay - dy * ax, ac = ax * cy - ay * cx, bd = bx * dy - by * dx;
    double const abc = az * bc - bz * ac + cz * ab;
    double const bcd = bz * cd - cz * bd + dz * bc;
    double const cda = cz * da + dz * ac + az * cd;
    double const dab = dz * ab + az * bd + bz * da;
    double const determinant = (cLift * dab - dLift * abc) + (aLift * bcd - bLift * cda);
    double const lift = std::max(std::max(aLift, bLift), std::max(cLift, dLift));
    double const squaredError =
        maxSquaredRelativeError * ((lift * lift) * (lift * lift) * lift) + underflow;
    if (determinant * determinant > squaredError) {
        return determinant > 0.0 ? Sign::Positive : Sign::Negative;
    }
    return unfilteredInSphere(a, b, c, d, e);
}

} // namespace orvelExact
