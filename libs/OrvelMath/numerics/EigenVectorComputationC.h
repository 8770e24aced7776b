#pragma once

/// @file
/// Eigenvectors of symmetric 3x3 matrices.

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/valueTypes.h>

namespace MatUtil {

/// The algorithms of getEigenVector3d. The order within its `values` differs:
///
/// | Algorithm           | values[0]   | values[1]             | values[2]  | Sign       |
/// |---------------------|-------------|-----------------------|------------|------------|
/// | EigenVectorPower    | of `second` | of `first` x `second` | of `first` | magnitudes |
/// | EigenVectorQR       | smallest    | middle                | largest    | magnitudes |
/// | EigenVectorAnalytic | smallest    | middle                | largest    | signed     |
///
/// "Largest" and "smallest" go by magnitude in the first two and by signed value in the third.
enum EigenVectorAlgoE : int {
    EigenVectorPower = 0,   ///< power and inverse iteration; fails on singular matrices
    EigenVectorQR = 1,      ///< Householder reduction and shifted QR
    EigenVectorAnalytic = 2 ///< closed form (O. K. Smith, 1961) and null spaces
};

/// Finds eigenvectors and eigenvalues of a symmetric 3x3 matrix by one chosen algorithm. None of
/// them is reliable everywhere; EigenVectorComputationC tries all and keeps the best.
///
/// Running out of passes (500 of each iteration, 501 of QR) is no failure: the result is what
/// there is. NaN and infinity run through the arithmetic and never make a good result.
///
/// @param matrix    read as it is: of the two triangles neither is checked against the other
/// @param first     three doubles: the eigenvector of the largest eigenvalue, a unit vector
/// @param second    three doubles: that of the smallest one. With EigenVectorAnalytic the vectors
///                  of a double eigenvalue are not orthogonal to each other.
/// @param values    three doubles: the eigenvalues in the order of the table above
/// @param algorithm one of the three
/// @return false for a value that names no algorithm; when EigenVectorPower can't invert the
///         matrix; when EigenVectorQR meets a column of length zero; when EigenVectorAnalytic finds
///         a shifted matrix not singular within the absolute pivot limit 0.0001, which wants
///         entries of moderate size. The outputs may hold parts of a result then.
/// @see EigenVectorComputationC, which tries all three
/// @see orvelExact::symmetricEigen, whose order and signs are fixed
ORVELMATH_EXPORT bool getEigenVector3d(matrixC3x3<double> const &matrix, double *first,
                                       double *second, double *values, EigenVectorAlgoE algorithm);

} // namespace MatUtil

/// Eigenvectors and eigenvalues of a symmetric 3x3 matrix: runs the three algorithms of
/// MatUtil::getEigenVector3d and keeps the result that fits the matrix best.
///
/// The score of a result is the sum of the three residuals of check(); on equal scores the earlier
/// algorithm keeps its place. The result is neither sorted nor turned right-handed: that is
/// standardize(), which the caller may apply to it.
///
/// The object is a handle to one record on the heap, which it owns. Assignment copies the handle
/// and NOT the record: afterwards two handles share one record, only one of them may be destroyed,
/// and the record that the target held before is lost.
///
/// @see JacobiMethod, for any size; runPCA, for the axes of a cloud of points
/// @see orvelExact::symmetricEigen, whose order and signs are fixed
class ORVELMATH_EXPORT EigenVectorComputationC
{
public:
    /// Does all the work. A matrix that no result fits, such as one with a NaN, leaves the object
    /// invalid.
    EigenVectorComputationC(matrixC3x3<double> const &matrix);
    EigenVectorComputationC(EigenVectorComputationC const &) = delete;
    EigenVectorComputationC &operator=(EigenVectorComputationC const &);
    ~EigenVectorComputationC();

    /// Eigenvector j is column j, a unit vector. The identity when not valid.
    matrixC3x3<double> getEigenVectors() const;

    /// Component j belongs to column j of getEigenVectors(). Zeros when not valid.
    vectorC3d<double> getEigenValues() const;

    /// False when no result had a score below 1e8.
    bool isValid() const;

    /// The Euclidean norm of matrix * vector - value * vector: near 0.0 for an eigenpair, whichever
    /// way the vector points.
    static double check(matrixC3x3<double> const &matrix, vectorC3d<double> const &vector,
                        double value);

    /// Brings eigenvectors (columns, of unit length) and their eigenvalues to a canonical form:
    /// values ascending with their columns; the greatest component of columns 2 and 0 not negative;
    /// column 1 perpendicular to both; right-handed, or singular.
    ///
    /// Columns whose eigenvalues differ relatively by less than 0.0001 have no order of their own
    /// and are sorted by the index of their greatest component, the values staying where they are.
    /// A zero eigenvalue in the divisor of that comparison skips the exchange.
    static void standardize(matrixC3x3<double> &vectors, vectorC3d<double> &values);

private:
    struct Record;
    Record *m_record;
};
