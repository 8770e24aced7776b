#pragma once

/// @file
/// Circles through noisy points of the plane. Both fits take model units, go twice over the points
/// and allocate nothing.

#include <OrvelCore/runtime/OrvelAllocatorT.h>
#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/valueTypes.h>

#include <utility>
#include <vector>

namespace MatUtil {

/// Fits a circle to points of the plane by linear least squares (I. Kåsa, 1976) and returns its
/// centre and its radius. Exact for points on a circle; with noise on a short arc the radius comes
/// out too small, where taubinFit does better.
///
/// Fewer than three distinct points and collinear ones, where a pivot of the covariance is at or
/// below 1e-12 squared model units, give the centre (0, 0) and the radius 0.0, and so do an empty
/// list and a NaN among the coordinates. An infinity gives them, too.
///
/// @param points only read
/// @return centre and radius
/// @see taubinFit
ORVELMATH_EXPORT std::pair<vectorC2d<double>, double>
kasaFit(std::vector<vectorC2d<double>, OrvelAllocatorT<vectorC2d<double>>> const &points);

/// Fits a circle to points of the plane by an algebraic fit in the manner of G. Taubin (1991) and
/// returns its centre and its radius. A root of a quartic is found by at most 99 Newton steps from
/// 0; running out of steps is no failure.
///
/// The quartic has the leading factor 4, and the radius is corrected by twice the root: neither is
/// the textbook's form, and the two belong together.
///
/// What is refused, and a list of fewer than three points, gives the centre (0, 0) and the radius
/// 0.0. A NaN among the coordinates arrives in the result.
///
/// @param points         only read
/// @param minDeterminant the smallest value of the final determinant, a fourth power of a length,
///                       at which the result is accepted. The comparison is signed, so 0.0 refuses
///                       a negative determinant; minus infinity accepts all, and a determinant of
///                       0.0 then gives a centre that is not finite.
/// @return centre and radius
/// @see kasaFit
ORVELMATH_EXPORT std::pair<vectorC2d<double>, double>
taubinFit(std::vector<vectorC2d<double>, OrvelAllocatorT<vectorC2d<double>>> const &points,
          double minDeterminant);

} // namespace MatUtil
