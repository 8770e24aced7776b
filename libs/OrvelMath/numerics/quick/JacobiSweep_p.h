#pragma once

/// @file
/// A sweep of the Jacobi method on the storage of the library's own matrices.

class MatrixIF;

namespace JacobiSweep {

/// One sweep over the upper triangle, with the bits of the sweep through the matrices' operations.
///
/// Takes a SymmetricMatrixNXN and a MatrixNXN of exactly these classes. They are unpacked into
/// rows: all of the symmetric matrix, and the eigenvectors as rows. A rotation turns element i of
/// two rows for each i by itself, so that several go side by side, and no result changes. Costs
/// O(n^2) more than the O(n^3) of the sweep, and 16 n^2 bytes meanwhile.
///
/// @param matrix        read and written
/// @param eigenvectors  read and written
/// @param n             rows of both
/// @param threshold     elements below it are passed over; no element is below 0.0
/// @return false when the classes or sizes are others, or there is no memory; nothing is changed
/// then
bool run(MatrixIF &matrix, MatrixIF &eigenvectors, unsigned int n, double threshold);

} // namespace JacobiSweep
