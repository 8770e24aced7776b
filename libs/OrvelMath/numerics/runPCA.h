#pragma once

/// @file
/// Principal axes of a cloud of points.

#include <OrvelCore/runtime/PValOrderedVector.h>
#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/valueTypes.h>

/// Principal component analysis of a cloud of points (K. Pearson, 1901; H. Hotelling, 1933): the
/// mean of the points and their three principal axes with the variances along them.
///
/// Fewer than 3 points leave all outputs alone. Coincident and collinear points give zero variances
/// and some perpendicular axes.
///
/// THE CALL NEVER RETURNS when a sum of the products of two coordinates' deviations from the mean
/// is no finite number: with a NaN or an infinity in a coordinate, and with deviations of about
/// 1.3e154 and more in two coordinates at once. It returns while the sum of the squared distances
/// from the mean is below 1e307. In one coordinate alone, deviations whose squares overflow give
/// an infinite `value1`.
///
/// Of equal variances, the axis that started as the later coordinate axis counts as the larger. The
/// signs of the axes are arbitrary, and the three may be left-handed.
///
/// Cost: two passes over the points, and at most a dozen sweeps over a 3x3 matrix.
///
/// @param value1, value2, value3    descending: the eigenvalues of the sample covariance, whose
///                                  divisor is the count less 1; squared model units
/// @param axis1, axis2, axis3       their eigenvectors: unit vectors, perpendicular to each other
/// @param centerX, centerY, centerZ the mean, model units; they stand between the others only by
///                                  custom and belong to no single axis
/// @param points                    only read
/// @see JacobiMethod, which this drives; EigenVectorComputationC for a given 3x3 matrix
ORVELMATH_EXPORT void runPCA(double &value1, double &centerX, Point3D &axis1, double &value2,
                             double &centerY, Point3D &axis2, double &value3, double &centerZ,
                             Point3D &axis3, PValOrderedVector<Point3D> const &points);
