#pragma once

/// @file
/// The two matrices that the library brings.

#include <OrvelCore/runtime/OrvelAllocatorT.h>
#include <OrvelMath/numerics/MatrixIF.h>

#include <vector>

/// Dense square matrix, row by row: element (i, j) is cell i*n + j.
///
/// The elements are owned. A copy is member by member: it SHARES the elements with its source, and
/// only one of the two may be destroyed.
class ORVELMATH_EXPORT MatrixNXN : public MatrixIF
{
public:
    /// n rows and n columns of arbitrary values; see makeNull() and makeIdentity(). Throws
    /// `std::bad_alloc` when there is no memory for n * n doubles.
    MatrixNXN(unsigned int n);
    MatrixNXN(MatrixNXN const &);
    MatrixNXN &operator=(MatrixNXN const &);
    ~MatrixNXN() override;

    double getElement(unsigned int row, unsigned int column) override;
    void setElement(unsigned int row, unsigned int column, double value) override;
    void getSize(unsigned int &size) override;
    void makeIdentity() override;
    void makeNull() override;

private:
    friend class MatrixCells;

    unsigned int m_size;
    double *m_elements;
};

/// Square matrix that stores the upper triangle row by row: n*(n+1)/2 cells, of which (i, j) and
/// (j, i) are the same. A copy is deep.
class ORVELMATH_EXPORT SymmetricMatrixNXN : public SymmetricMatrixIF
{
public:
    /// n rows and n columns of zeros. Throws `std::bad_alloc` when there is no memory.
    SymmetricMatrixNXN(unsigned int n);
    SymmetricMatrixNXN(SymmetricMatrixNXN const &);
    /// Takes the cells; the source is a matrix of no rows afterwards, here and in the assignment.
    SymmetricMatrixNXN(SymmetricMatrixNXN &&) noexcept;
    SymmetricMatrixNXN &operator=(SymmetricMatrixNXN const &);
    SymmetricMatrixNXN &operator=(SymmetricMatrixNXN &&) noexcept;
    ~SymmetricMatrixNXN() override;

    double getElement(unsigned int row, unsigned int column) override;
    void setElement(unsigned int row, unsigned int column, double value) override;
    void getSize(unsigned int &size) override;
    void makeIdentity() override;
    void makeNull() override;

protected:
    /// The cell of element (i, j), in 32-bit arithmetic that wraps.
    unsigned int calcIndex(unsigned int i, unsigned int j);

private:
    friend class MatrixCells;

    unsigned int m_size;
    std::vector<double, OrvelAllocatorT<double>> m_elements;
};
