#pragma once

/// @file
/// What the iterative methods ask of a matrix.

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/classAllocation.h>

/// A square matrix of n rows and n columns that is read and written element by element.
///
/// | Class              | Storage                               | A fresh object holds |
/// |--------------------|---------------------------------------|----------------------|
/// | MatrixNXN          | dense, row by row                     | arbitrary values     |
/// | SymmetricMatrixNXN | upper triangle, row by row            | zeros                |
///
/// Anyone may derive an implementation: the iterative methods reach the elements only through
/// these operations, but for objects of exactly the two classes above, where nobody can tell the
/// difference. An object allocated by one module may be freed by another.
class ORVELMATH_EXPORT MatrixIF
{
public:
    ORVELMATH_CLASS_ALLOCATION

    MatrixIF();
    MatrixIF(MatrixIF const &);
    MatrixIF &operator=(MatrixIF const &);
    virtual ~MatrixIF();

    /// The element in `row` and `column`, both counted from 0. The concrete matrices give 0.0 when
    /// one of the two is not below n.
    virtual double getElement(unsigned int row, unsigned int column) = 0;

    /// Stores an element. The concrete matrices do nothing when an index is not below n.
    virtual void setElement(unsigned int row, unsigned int column, double value) = 0;

    /// Writes n.
    virtual void getSize(unsigned int &size) = 0;

    /// Makes the matrix the identity. The body here calls makeNull() and then setElement() for each
    /// element of the diagonal; an implementation may share it.
    virtual void makeIdentity() = 0;

    /// Writes 0.0 into every stored cell.
    virtual void makeNull() = 0;

protected:
    /// True when `index` is below n, as a row or as a column.
    bool checkBounds(unsigned int index);
};

/// A matrix whose elements (i, j) and (j, i) are one: writing one of them writes the other.
/// JacobiMethod demands symmetry by this type.
class ORVELMATH_EXPORT SymmetricMatrixIF : public MatrixIF
{
public:
    SymmetricMatrixIF();
    SymmetricMatrixIF(SymmetricMatrixIF const &);
    SymmetricMatrixIF &operator=(SymmetricMatrixIF const &);
    ~SymmetricMatrixIF() override;
};
