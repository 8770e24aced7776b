#pragma once

/// @file
/// The eigenpair after a known one.

#include <OrvelMath/numerics/AlgorithmIF.h>
#include <OrvelMath/numerics/MatrixIF.h>
#include <OrvelMath/numerics/PowerMethod.h>

/// The next eigenpair of a matrix of which one pair is known: deflation (H. Wielandt, 1944), then
/// power iteration on the deflated matrix of n - 1 rows.
///
/// The largest component of the known eigenvector must NOT be the last one: the deflated matrix is
/// then left with arbitrary contents. Nothing checks that, nor that the known eigenvalue and that
/// component are not zero; a zero gives infinities and NaN.
///
/// The known eigenvector is borrowed and must outlive the object. What the object allocates it
/// owns; a copy shares it with its source, and only one of the two may be destroyed.
///
/// @see PowerMethod, which finds the first pair
class ORVELMATH_EXPORT WielandtMethod : public AlgorithmIF
{
public:
    /// Deflates the matrix. One without rows leaves one without rows. Costs O(n^2).
    ///
    /// @param matrix      only read, and not kept
    /// @param lambda      the known eigenvalue, not 0
    /// @param eigenvector its eigenvector: n components, of any length; borrowed
    /// @param accuracy    that of the inner PowerMethod
    WielandtMethod(MatrixIF *matrix, double lambda, double *eigenvector, double accuracy);
    WielandtMethod(WielandtMethod const &);
    WielandtMethod &operator=(WielandtMethod const &);
    ~WielandtMethod() override;

    /// One step of the inner PowerMethod, and its answer.
    bool iterate() override;

    /// The quality of the inner PowerMethod: a squared distance.
    double getQuality();

    /// The eigenvalue of the inner PowerMethod, which is one of the full matrix too. Not set before
    /// the first step.
    double getEigenvalue();

    /// The deflated matrix, owned by this object.
    MatrixIF *getDeflatedMatrix();

    /// The n components of the eigenvector of the full matrix, a unit vector owned by this object.
    /// It is built on the first call, from the state of that moment, and never again: ask after
    /// convergence.
    double *getEigenvector();

private:
    double m_accuracy;
    bool m_eigenvectorDone;
    double m_knownEigenvalue;
    double *m_knownEigenvector;
    unsigned int m_iterations;
    PowerMethod *m_innerMethod;
    MatrixIF *m_deflatedMatrix;
    double *m_rowVector;
    unsigned int m_pivot;
    double *m_eigenvector;
};
