#pragma once

/// @file
/// The dominant eigenpair of a square matrix.

#include <OrvelMath/numerics/AlgorithmIF.h>
#include <OrvelMath/numerics/MatrixIF.h>

/// The eigenvalue of greatest magnitude and its eigenvector, of any square matrix, by power
/// iteration (R. von Mises and H. Pollaczek-Geiringer, 1929).
///
/// One iterate() is one product with the matrix and costs O(n^2). The matrix is borrowed and only
/// read. With two dominant eigenvalues of equal magnitude and opposite sign the method never
/// settles: the limit on the steps is the caller's.
///
/// The two arrays are owned; a copy of the object shares them with its source, and only one of the
/// two may be destroyed.
///
/// @see WielandtMethod, for the next pair; JacobiMethod, for all of a symmetric matrix
class ORVELMATH_EXPORT PowerMethod : public AlgorithmIF
{
public:
    /// @param matrix   borrowed; null makes every step return true at once
    /// @param accuracy the distance of successive unit vectors below which the method has finished;
    ///                 with 0 or less it never does
    PowerMethod(MatrixIF *matrix, double accuracy);
    PowerMethod(PowerMethod const &);
    PowerMethod &operator=(PowerMethod const &);
    ~PowerMethod() override;

    /// One step. The first call draws the start vector from the process's `std::rand`, which the
    /// library never seeds: its components are not negative. A start vector of zeros gives NaN.
    ///
    /// @return true when the vector moved by less than the accuracy (strict), its sign aside
    bool iterate() override;

    /// The SQUARE of the distance that the latest step tested against the accuracy; 0.0 before the
    /// first.
    double getQuality();

    /// The Rayleigh quotient of the unit vector before the latest step; not set before the first.
    double getEigenvalue();

    /// The n components of the current unit vector, owned by this object. For a negative
    /// eigenvalue its sign changes at every step. Not set before the first step.
    double *getEigenvector();

protected:
    /// A step from the vector that is in place: no start vector, no count, no null test.
    bool iterateVector();

private:
    MatrixIF *m_matrix;
    double *m_vector;
    double *m_product;
    double m_accuracy;
    unsigned int m_iterations;
    double m_quality;
    double m_eigenvalue;
};
