#pragma once

/// @file
/// The storage of the matrices that the library brings.

#include <OrvelMath/numerics/MatrixNXN.h>

#include <typeinfo>

/// Opens the cells of a matrix whose class is exactly MatrixNXN or SymmetricMatrixNXN: reading and
/// writing them is what its operations do, and nobody can tell the difference. A class derived from
/// them may do something else, and is asked for every element.
class MatrixCells
{
public:
    /// The n * n cells, row by row, of a MatrixNXN with n rows; null for any other matrix.
    static double *dense(MatrixIF &matrix, unsigned int n)
    {
        if (typeid(matrix) != typeid(MatrixNXN)) {
            return nullptr;
        }
        auto &exact = static_cast<MatrixNXN &>(matrix);
        return exact.m_size == n ? exact.m_elements : nullptr;
    }

    /// The cells of the upper triangle, row by row, of a SymmetricMatrixNXN with n rows; null for
    /// any other matrix. From 65536 rows on the class numbers its cells with wrapped products, and
    /// the answer is null.
    static double *packed(MatrixIF &matrix, unsigned int n)
    {
        if (typeid(matrix) != typeid(SymmetricMatrixNXN)) {
            return nullptr;
        }
        auto &exact = static_cast<SymmetricMatrixNXN &>(matrix);
        return exact.m_size == n && n < 65536 ? exact.m_elements.data() : nullptr;
    }
};
