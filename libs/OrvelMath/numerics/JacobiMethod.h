#pragma once

/// @file
/// All eigenpairs of a symmetric matrix.

#include <OrvelCore/runtime/PValOrderedVector.h>
#include <OrvelMath/numerics/AlgorithmIF.h>
#include <OrvelMath/numerics/MatrixIF.h>

/// All eigenvalues and eigenvectors of a symmetric matrix by cyclic Jacobi rotations (C. G. J.
/// Jacobi, 1846; threshold schedule of the first sweeps after H. Rutishauser, 1966).
///
/// One iterate() is one sweep over the upper triangle and costs O(n^3). The matrix is borrowed and
/// OVERWRITTEN: after convergence its diagonal holds the eigenvalues, in no particular order. The
/// matrix of eigenvectors is owned; a copy of the object shares it with its source, and only one
/// of the two may be destroyed.
///
///     SymmetricMatrixNXN matrix(3);
///     // ... fill it ...
///     JacobiMethod method(&matrix);
///     while (!method.iterate()) {
///     }
///
/// @see PowerMethod, for one pair of any matrix; EigenVectorComputationC, for 3x3
/// @see orvelExact::symmetricEigen, for 3x3, whose order and signs are fixed
class ORVELMATH_EXPORT JacobiMethod : public AlgorithmIF
{
public:
    /// Starts on `matrix`, with the identity as eigenvectors.
    ///
    /// @param matrix borrowed and overwritten; not null
    JacobiMethod(SymmetricMatrixIF *matrix);
    JacobiMethod(JacobiMethod const &);
    JacobiMethod &operator=(JacobiMethod const &);
    ~JacobiMethod() override;

    /// One sweep. The limit of convergence is absolute and does not scale with the matrix. A NaN or
    /// an infinity off the diagonal never converges, but for a matrix of two rows, where a NaN
    /// moves onto the diagonal.
    ///
    /// @return true, without rotating, when the magnitudes of the strict upper triangle sum up to
    ///         at most 1e-8
    bool iterate() override;

    /// The sum of magnitudes of the strict upper triangle at the start of the latest sweep; 0.0
    /// before the first.
    double getQuality();

    /// The current element (i, i) of the matrix: eigenvalue `i` after convergence.
    double getEigenvalue(unsigned int i);

    /// Appends the n components of eigenvector `i`, a unit vector; the list is not cleared first.
    void getEigenvector(unsigned int i, PValOrderedVector<double> &result);

protected:
    /// Makes element (p, q) zero by a rotation in the plane of coordinates p and q, which differ.
    /// Costs O(n).
    void rotate(unsigned int p, unsigned int q);

private:
    SymmetricMatrixIF *m_matrix;
    MatrixIF *m_eigenvectors;
    unsigned int m_size;
    unsigned int m_iterations;
    double m_quality;
};
