#pragma once

/// @file
/// Products with a vector, on the storage of the library's own matrices.

#include <OrvelMath/numerics/quick/MatrixCells_p.h>

#include <algorithm>
#include <cstddef>

namespace MatrixProduct {

/// Four rows at a time, because the sum of one would wait for itself at each term.
inline void multiplyDense(double const *cells, std::size_t n, double const *v, double *product)
{
    std::size_t i = 0;
    for (; i + 4 <= n; i += 4) {
        double const *const row = cells + i * n;
        double a = 0.0, b = 0.0, c = 0.0, d = 0.0;
        for (std::size_t j = 0; j < n; ++j) {
            a += row[j] * v[j];
            b += row[n + j] * v[j];
            c += row[2 * n + j] * v[j];
            d += row[3 * n + j] * v[j];
        }
        product[i] = a;
        product[i + 1] = b;
        product[i + 2] = c;
        product[i + 3] = d;
    }
    for (; i < n; ++i) {
        double sum = 0.0;
        for (std::size_t j = 0; j < n; ++j) {
            sum += cells[i * n + j] * v[j];
        }
        product[i] = sum;
    }
}

/// Each stored element serves its row and its column. When row r is reached, the earlier rows have
/// brought the terms 0 to r - 1 of its sum, in this order; the row itself brings the others.
inline void multiplyPacked(double const *cells, std::size_t n, double const *v, double *product)
{
    std::fill_n(product, n, 0.0);
    for (std::size_t r = 0; r < n; ++r) {
        double sum = product[r];
        sum += *cells++ * v[r];
        for (std::size_t j = r + 1; j < n; ++j) {
            double const element = *cells++;
            sum += element * v[j];
            product[j] += element * v[r];
        }
        product[r] = sum;
    }
}

/// product = matrix * v, each sum from 0.0 in the order of the columns: the bits of the product
/// through the matrix's operations. False, with nothing written, for a matrix of another class.
inline bool multiply(MatrixIF &matrix, unsigned int n, double const *v, double *product)
{
    if (double const *const dense = MatrixCells::dense(matrix, n)) {
        multiplyDense(dense, n, v, product);
        return true;
    }
    if (double const *const packed = MatrixCells::packed(matrix, n)) {
        multiplyPacked(packed, n, v, product);
        return true;
    }
    return false;
}

} // namespace MatrixProduct
