#pragma once

#include <OrvelExact/OrvelExactExport.h>
#include <OrvelExact/base/points.h>
#include <OrvelExact/predicates/Sign.h>

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
    // Each of the six products of three passes at most 8 roundings, e = 2^-53 each, in the
    // determinant, and as many in the sum of the sizes: the error is at most (8 + 160 e) e of that
    // sum, and 8 e = 8.882e-16.
    //
    // Products that underflow are kept away by the scale. Each product of two loses at most 2^-1075
    // of the scaled one, so that the six of three lose at most 6 * 2^-1075 * 2^1024 = 2.7e-15 and
    // 6 * 2^-1075 more, whatever the third factors are.
    constexpr double maxRelativeError = 8.9e-16;
    constexpr double underflow = 1e-14;
    constexpr double scale = 0x1p400; // signs are found here for determinants of 1e-134 to 1e187
    using Lanes = double __attribute__((vector_size(16))); // x and y at once
    using Bits = long long __attribute__((vector_size(16)));
    auto const sizes = [](Lanes lanes) {
        constexpr long long allButSign = 0x7fffffffffffffff;
        return reinterpret_cast<Lanes>(reinterpret_cast<Bits>(lanes) & allButSign);
    };
    Lanes const origin{d.x(), d.y()};
    Lanes const u = Lanes{a.x(), a.y()} - origin;
    Lanes const v = Lanes{b.x(), b.y()} - origin;
    Lanes const w = Lanes{c.x(), c.y()} - origin;
    Lanes const vSwapped = Lanes{v[1], v[0]} * scale;
    Lanes const wSwapped = Lanes{w[1], w[0]} * scale;
    Lanes const vw = v * wSwapped * (a.z() - d.z());
    Lanes const uw = u * wSwapped * (b.z() - d.z());
    Lanes const uv = u * vSwapped * (c.z() - d.z());
    Lanes const halves = vw - uw + uv;
    Lanes const sums = sizes(vw) + sizes(uw) + sizes(uv);
    double const determinant = halves[1] - halves[0];
    if (std::fabs(determinant) > maxRelativeError * (sums[0] + sums[1]) + underflow) {
        return determinant > 0.0 ? Sign::Positive : Sign::Negative;
    }
    return unfilteredOrientation3d(a, b, c, d);
}

} // namespace orvelExact
