#pragma once

/// @file
/// The shortcuts of the questions about directions. Not part of the interface.
///
/// The definitions ask `WinVec` for the angles of vectors and compare these. Where the directions
/// are clearly apart, the signs of cross products tell the same without an arc tangent. What is
/// proved, with k the tolerance in radians plus 1e-9:
///
/// - The sine of the angle between u and v is above k where (u x v)² > k² u² v². The directions,
///   and the opposite ones, then differ by more than the tolerance, and by far more than the 1e-12
///   degrees by which `WinVec` and the differences of its angles may be off.
/// - The sign of such a cross product is sure: its error is below 3 units of rounding of the
///   product of the lengths.
/// - Between 1e-140 and 1e140 no square of a length overflows or underflows, nor does a product of
///   two of them; NaN fails the comparisons and so proves nothing.

#include <OrvelMath/base/Point2D.h>
#include <OrvelMath/engine/angles_p.h>

namespace directions {

constexpr double angleNoise = 1e-9; ///< radians, far more than the error of an angle in degrees
constexpr double leastSquare = 1e-140;
constexpr double greatestSquare = 1e140;

inline double crossProduct(Point2D const &u, Point2D const &v)
{
    return u.x() * v.y() - u.y() * v.x();
}

inline bool isOrdinary(double square)
{
    return square > leastSquare && square < greatestSquare;
}

/// Square of k for a tolerance in degrees.
inline double squareOfClearSine(double tol)
{
    double const k = engine::degreesTimesFactor(tol) + angleNoise;
    return k * k;
}

/// In which order the directions of three vectors follow one another counter-clockwise: 1 for u, v,
/// w and -1 for w, v, u, as `ccw_vectors_origin` answers; 0 where it isn't proved, so also for
/// points that may be within 1e-6 of each other.
///
/// The turns from u to v, v to w and w to u add up to one full turn, or to two. One full turn has
/// at most one of them above half a turn, with a negative cross product; two have at most one
/// below.
inline int orderOf(Point2D const &u, Point2D const &v, Point2D const &w, double tol)
{
    double const uu = u.Length2();
    double const vv = v.Length2();
    double const ww = w.Length2();
    double const uv = crossProduct(u, v);
    double const vw = crossProduct(v, w);
    double const wu = crossProduct(w, u);
    double const limit = squareOfClearSine(tol);
    bool const areClear = (uv * uv > limit * (uu * vv)) & (vw * vw > limit * (vv * ww)) &
                          (wu * wu > limit * (ww * uu));
    double const apart = 1.01e-12; // the square of 1e-6, with room for rounding
    double const fromUToV = (u - v).Length2();
    double const fromVToW = (v - w).Length2();
    double const fromWToU = (w - u).Length2();
    bool const areApart = (fromUToV > apart) & (fromVToW > apart) & (fromWToU > apart);
    bool const areOrdinary = isOrdinary(uu) && isOrdinary(vv) && isOrdinary(ww);
    if (!(areClear & areApart & areOrdinary & (tol >= 0))) {
        return 0;
    }
    int const positive = (uv > 0 ? 1 : 0) + (vw > 0 ? 1 : 0) + (wu > 0 ? 1 : 0);
    return positive >= 2 ? 1 : -1;
}

/// Whether the directions of u and v clearly differ by more than a tolerance in degrees. Angles
/// between 0 and 360 differ at least by the angle between the directions.
inline bool areApart(Point2D const &u, Point2D const &v, double tol)
{
    double const uu = u.Length2();
    double const vv = v.Length2();
    double const cross = crossProduct(u, v);
    bool const isClear = cross * cross > squareOfClearSine(tol) * (uu * vv);
    // A tolerance above some 57 degrees makes k more than 1, and nothing clear.
    return isClear && isOrdinary(uu) && isOrdinary(vv) && tol >= 0;
}

} // namespace directions
