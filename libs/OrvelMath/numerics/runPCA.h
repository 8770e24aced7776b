#pragma once

#include <OrvelCore/runtime/PValOrderedVector.h>
#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/valueTypes.h>

/// Principal component analysis of a cloud of points (K. Pearson, 1901; H. Hotelling, 1933): the
/// mean of the points and their three principal axes with the variances along them.
///
/// `value1` >= `value2` >= `value3` are the eigenvalues of the sample covariance, whose divisor is
/// the count less 1 (squared model units), and `axis1`, `axis2`, `axis3` their eigenvectors, unit
/// vectors perpendicular to each other. `centerX`, `centerY` and `centerZ` are the mean; they stand
/// between the others only by custom and belong to no single axis.
///
/// The signs of the axes are arbitrary, and the three may be left-handed. Of equal variances, the
/// axis that started as the later coordinate axis counts as the larger.
///
/// Fewer than 3 points leave all outputs alone. Coincident and collinear points give zero variances
/// and some perpendicular axes. A NaN or an infinity in a coordinate makes the call NEVER RETURN.
///
/// Cost: two passes over the points.
ORVELMATH_EXPORT void runPCA(double &value1, double &centerX, Point3D &axis1, double &value2,
                             double &centerY, Point3D &axis2, double &value3, double &centerZ,
                             Point3D &axis3, PValOrderedVector<Point3D> const &points);
