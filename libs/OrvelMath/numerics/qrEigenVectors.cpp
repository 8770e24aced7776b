#include <OrvelMath/engine/sortComponents_p.h>
#include <OrvelMath/numerics/EigenVectorAlgorithms_p.h>

#include <QtGlobal>

#include <algorithm>
#include <cmath>

namespace {

using Matrix = matrixC3x3<double>;
using Vector = vectorC3d<double>;

Matrix transposed(Matrix const &m)
{
    Matrix t;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            t(column, row) = m(row, column);
        }
    }
    return t;
}

/// Brings `a` to tridiagonal form by one reflection (A. S. Householder, 1958), written to `basis`.
Matrix reduce(Matrix const &a, Matrix &basis)
{
    double alpha = -std::sqrt(a(1, 0) * a(1, 0) + a(2, 0) * a(2, 0));
    if (a(1, 0) < 0.0) {
        alpha = -alpha;
    }

    basis = Matrix::identity();
    if (std::fabs(alpha) < 1e-8) { // length of the column below the diagonal
        Matrix reduced = a;
        reduced(1, 0) = reduced(2, 0) = reduced(0, 1) = reduced(0, 2) = 0.0;
        return reduced;
    }
    Vector const u(0.0, a(1, 0) - alpha, a(2, 0));
    double const h = (u[1] * u[1] + u[2] * u[2]) * 0.5;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            basis(row, column) -= u[row] * u[column] / h;
        }
    }
    return basis * a * basis;
}

void snapSmallCells(Matrix &h)
{
    for (int cell = 0; cell < 9; ++cell) {
        if (h[cell] * h[cell] < 1.0000000000000001e-16) { // 1e-8 * 1e-8: a squared element
            h[cell] = 0.0;
        }
    }
}

/// The eigenvalue of the coupling of the smallest and the middle diagonal element that is nearer
/// to the smallest one; 0.0 when it is below 0.01, hence always when negative.
double findShift(Matrix const &h)
{
    // Indices of the smallest and the middle diagonal element for each outcome of the three
    // comparisons; -1 where all are equal or one is a NaN.
    static int const order[8][2] = {{-1, -1}, {0, 2}, {1, 0}, {0, 1},
                                    {2, 1},   {2, 0}, {1, 2}, {-1, -1}};
    int const code =
        (h(0, 0) >= h(2, 2) ? 4 : 0) + (h(2, 2) >= h(1, 1) ? 2 : 0) + (h(1, 1) >= h(0, 0) ? 1 : 0);
    int const i = order[code][0];
    int const j = order[code][1];
    if (i < 0) {
        return 0.0;
    }

    double const b = h(i, i);
    double const a = h(j, j);
    double const s = a + b;
    double const q = h(i, j) * h(j, i);
    double const d = std::sqrt(std::max(0.0, s * s - 4.0 * (a * b - q)));
    double const upper = (s + d) / 2;
    double const lower = (s - d) / 2;
    double const shift = std::fabs(lower - b) > std::fabs(upper - b) ? upper : lower;
    return shift < 0.01 ? 0.0 : shift;
}

void addToDiagonal(Matrix &h, double value)
{
    for (int i = 0; i < 3; ++i) {
        h(i, i) += value;
    }
}

/// Turns rows `row` and row + 1 of `h` so that the element below the diagonal vanishes (J. W.
/// Givens, 1958) and writes the rotation. Returns false when there is nothing to divide by.
bool rotateRows(Matrix &h, int row, Matrix &rotation)
{
    Q_ASSERT(row == 0 || row == 1);
    rotation = Matrix::identity();
    if (std::fabs(h(row + 1, row)) < 1e-8) { // the element that should vanish
        return true;
    }
    double const x = h(row, row);
    double const y = h(row + 1, row);
    double r = std::sqrt(x * x + y * y);
    if (x < 0.0) {
        r = -r;
    }
    if (r == 0.0) {
        return false;
    }
    double const c = x / r;
    double const s = -y / r;
    rotation(row, row) = rotation(row + 1, row + 1) = c;
    rotation(row, row + 1) = -s;
    rotation(row + 1, row) = s;
    for (int column = 0; column < 3; ++column) {
        double const upper = h(row, column);
        double const lower = h(row + 1, column);
        h(row, column) = c * upper - s * lower;
        h(row + 1, column) = s * upper + c * lower;
    }
    return true;
}

double sumOffDiagonal(Matrix const &h)
{
    double sum = 0.0;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            if (row != column) {
                sum += std::fabs(h(row, column));
            }
        }
    }
    return sum;
}

/// Runs QR passes until `h` is diagonal; `basis` follows. Writes the eigenvalues, signed.
bool diagonalize(Matrix &h, Matrix &basis, Vector &eigenvalues)
{
    for (int counter = 500;; --counter) { // 501 passes at most: it returns for every matrix
        snapSmallCells(h);
        double const shift = findShift(h);
        addToDiagonal(h, -shift);

        Matrix first, second;
        if (!rotateRows(h, 0, first) || !rotateRows(h, 1, second)) {
            return false;
        }
        for (int i = 0; i < 3; ++i) {
            eigenvalues[i] = h(i, i) + shift;
        }

        Matrix const back = transposed(second * first);
        h = h * back;
        basis = basis * back;
        if (shift > 0.0) {
            addToDiagonal(h, shift);
        }
        if (counter < 1) {
            return true;
        }
        if (!(sumOffDiagonal(h) > 1e-8)) { // sum of six magnitudes
            return true;
        }
    }
}

} // namespace

bool EigenVectorAlgorithms::shiftedQR(matrixC3x3<double> const &matrix, Result &result)
{
    Matrix basis;
    Matrix h = reduce(matrix, basis);
    Vector eigenvalues;
    if (!diagonalize(h, basis, eigenvalues)) {
        return false;
    }

    Vector magnitudes;
    for (int i = 0; i < 3; ++i) {
        magnitudes[i] = std::fabs(eigenvalues[i]);
    }
    int largest = magnitudes[0] > magnitudes[1] ? 0 : 1;
    int smallest = 1 - largest;
    if (magnitudes[smallest] > magnitudes[2]) {
        smallest = 2;
    } else if (magnitudes[2] >= magnitudes[largest]) {
        largest = 2;
    }

    result.first = basis.axis(largest);
    result.second = basis.axis(smallest);
    engine::sortComponents(magnitudes);
    result.values = magnitudes;
    return true;
}
