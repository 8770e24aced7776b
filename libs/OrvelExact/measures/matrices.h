#pragma once

/// @file
/// Determinants, inverses and what is nearest to a matrix, for matrices of 3x3 and 4x4.

#include <OrvelExact/base/Status.h>
#include <OrvelExact/base/points.h>
#include <OrvelMath/base/matrixC.h>

namespace orvelExact {

/// A number or why there is none.
struct Determinant
{
    Status status = Status::Ok;
    double value = 0.0;
};

/// The inverse of a matrix of 3x3.
struct Inverse3
{
    Status status = Status::Ok;
    matrixC3x3<double> matrix;
    double condition = 0.0; ///< see `inverseOf`
};

/// The inverse of a matrix of 4x4.
struct Inverse4
{
    Status status = Status::Ok;
    matrixC4x4<double> matrix;
    double condition = 0.0; ///< see `inverseOf`
};

/// The determinant within one unit in its last place; its sign is exact, and it is 0 exactly for a
/// singular matrix. That holds as long as no element but 0 is below 2^-200 times the largest one
/// of its column.
///
/// A filter in 106 bits answers nearly all calls, sums without rounding the rest (Shewchuk 1997).
/// @return `NotFinite` for NaN or infinity, `OutOfRange` for a value above the largest double or
///     below the smallest normal one
ORVELEXACT_EXPORT Determinant determinantOf(matrixC3x3<double> const &m);
ORVELEXACT_EXPORT Determinant determinantOf(matrixC4x4<double> const &m);

/// The inverse by elimination with complete pivoting in 106 bits.
///
/// `condition` is the norm of the matrix times that of its inverse, both the largest sum of sizes
/// in a column: up to how much a relative error of the input grows in the inverse. Of the matrix
/// as it is, each element is within one unit in its last place plus 2^-95 `condition` times the
/// largest element of the inverse.
/// @return `NotFinite` for NaN or infinity, `Degenerate` for a singular matrix, told exactly,
///     `OutOfRange` for a matrix that 106 bits can't tell from a singular one, which needs a
///     condition above 1e28, and for an element of the inverse that overflows
/// @see Math3DInvertMatrix, Matrix4X4C::Invert, where elements below 1e-9 vanish
ORVELEXACT_EXPORT Inverse3 inverseOf(matrixC3x3<double> const &m);
ORVELEXACT_EXPORT Inverse4 inverseOf(matrixC4x4<double> const &m);

/// The rotation nearest to a matrix.
struct NearestRotation
{
    Status status = Status::Ok;
    matrixC3x3<double> rotation;
    double condition =
        0.0; ///< up to how much an error of the matrix, by its norm, turns the result
};

/// The rotation R for which the sum of the squares of the elements of R - M is least: the closest
/// one by orthogonal rows and columns and a determinant of 1, for mirroring matrices too.
///
/// The unit quaternion of R is the eigenvector of the largest eigenvalue of a symmetric matrix of
/// 4x4 (Davenport 1968). Each element is within one unit in its last place plus 2^-90 `condition`.
/// @return `NotFinite` for NaN or infinity, `Degenerate` where several rotations are equally near,
///     as to the zero matrix or to a mirror with equal stretches
/// @see Math3DRefresh, Matrix4X4C::AlignAxis, which keep the first axis
ORVELEXACT_EXPORT NearestRotation nearestRotation(matrixC3x3<double> const &m);

/// The eigenvalues and eigenvectors of a symmetric matrix.
struct Eigen3
{
    Status status = Status::Ok;
    double values[3] = {0.0, 0.0, 0.0}; ///< descending
    Point3 vectors[3];                  ///< of unit length, at right angles, right-handed
};

/// The eigenvalues and eigenvectors of the symmetric part of a matrix, after Jacobi (1846) in 106
/// bits.
///
/// The values descend; the component of the largest size in the first and the second vector, the
/// first of such, is positive, and the third vector is their vector product. Equal values leave
/// the choice of vectors free; the same one is made on every platform.
///
/// Values are within one unit in the last place plus 2^-95 of the largest one. The residual
/// |M v - value v| is below 4 units in the last place of the norm, which is the size of the
/// largest value.
/// @return `NotFinite` for NaN or infinity, `OutOfRange` for an element above 1e300
/// @see EigenVectorComputationC, MatUtil::getEigenVector3d, JacobiMethod
ORVELEXACT_EXPORT Eigen3 symmetricEigen(matrixC3x3<double> const &m);

} // namespace orvelExact
