#pragma once

/// @file
/// Small dense linear systems.

#include <cmath>

/// A small dense linear system of R rows and C columns, reduced once and solved for any number of
/// right-hand sides.
///
/// The constructor brings the matrix to row echelon form with unit pivots by Gaussian elimination
/// with partial pivoting and keeps the product of its row operations. From that one reduction
/// come rank, determinant, solutions and a basis of the null space, so a geometric caller can tell
/// "one answer", "a line of answers" and "no answer" apart.
///
/// All matrices are stored column by column: element (r, c) of a matrix of R rows is cell r + R*c,
/// which is the memory image of matrixC3x3<double>.
///
/// A value type without heap and without shared state. Infinities and NaN run through the
/// arithmetic; nothing is thrown.
template <int R, int C>
class LinearSystemT
{
public:
    /// Copies the R*C values of `columns` and reduces them at once. A column whose candidates for
    /// the pivot are not above `epsilon` in magnitude has no pivot (strict: a pivot of exactly
    /// `epsilon` counts as missing, and so does a NaN in the first candidate row).
    LinearSystemT(double const *columns, double epsilon);

    /// Solves for the R values of `rhs`. Returns -1 if the system is inconsistent, and otherwise
    /// the dimension of the null space: 0 says that `solution` is the only one.
    ///
    /// `solution` receives C values, its free variables being 0.0. `nullSpace` receives C*C values:
    /// null vector t stands in the cells t*C to t*C + C-1 and has 1.0 in its own free column and
    /// 0.0 in those of the others; the vectors come in descending order of their free columns and
    /// are neither normalised nor orthogonal. All cells beyond are 0.0, and on -1 both arrays hold
    /// zeros only. The three arrays must not overlap.
    ///
    /// A row without pivot is consistent up to 1e-12, whatever the epsilon of the reduction.
    int solve(double const *rhs, double *solution, double *nullSpace) const;

    /// The same without the null space.
    int solve(double const *rhs, double *solution) const;

    double reduced[R * C];   ///< the row echelon form U
    double source[R * C];    ///< the matrix as given
    double transform[R * R]; ///< T, the product of the row operations: T * source = U
    int rank;                ///< number of pivots found
    double determinant;      ///< 0.0 unless the matrix is square and of full rank
    double epsilon;          ///< pivot threshold

private:
    double &u(int row, int column) { return reduced[row + R * column]; }
    double u(int row, int column) const { return reduced[row + R * column]; }

    /// What the reduction of one column does to the rows: exchange, scale, subtract.
    struct Step
    {
        bool hasPivot;
        int row;             ///< where the pivot goes
        int pivotRow;        ///< where it stood
        double scale;        ///< 1 / pivot
        double multiples[R]; ///< of the unscaled pivot row, added to each row below it
    };

    int reduce(Step *steps);
    int findPivotRow(int column, int firstRow) const;
    void eliminate(int column, Step &step);
    void applyToTransform(Step const &step);
    void multiplyTransform(Step const *steps, int count);

    bool isConsistent(double const *y) const;
    int findPivotColumn(int row, int end) const;
    double backSubstitute(int row, int column, double value, double const *known, int skip) const;
};

namespace LinearSystemDetail {

template <int N>
void setIdentity(double *matrix)
{
    for (int cell = 0; cell < N * N; ++cell) {
        matrix[cell] = cell % (N + 1) == 0 ? 1.0 : 0.0;
    }
}

template <int N>
bool isFinite(double const (&values)[N])
{
    for (double value : values) {
        if (!std::isfinite(value)) {
            return false;
        }
    }
    return true;
}

template <int N>
void swapRows(double *matrix, int first, int second, int columnCount)
{
    for (int cell = 0; cell < N * columnCount; cell += N) {
        double const swapped = matrix[first + cell];
        matrix[first + cell] = matrix[second + cell];
        matrix[second + cell] = swapped;
    }
}

} // namespace LinearSystemDetail

template <int R, int C>
LinearSystemT<R, C>::LinearSystemT(double const *columns, double pivotEpsilon)
    : rank(0)
    , determinant(0.0)
    , epsilon(pivotEpsilon)
{
    for (int cell = 0; cell < R * C; ++cell) {
        reduced[cell] = source[cell] = columns[cell];
    }
    Step steps[C];
    int const stepCount = reduce(steps);
    if (!LinearSystemDetail::isFinite(transform)) {
        multiplyTransform(steps, stepCount);
    }
}

template <int R, int C>
int LinearSystemT<R, C>::reduce(Step *steps)
{
    LinearSystemDetail::setIdentity<R>(transform);
    double pivotProduct = 1.0;
    int column = 0;
    for (; column < C && rank < R; ++column) {
        Step &step = steps[column];
        step.row = rank;
        step.pivotRow = findPivotRow(column, rank);
        double const pivot = u(step.pivotRow, column);
        step.hasPivot = std::fabs(pivot) > epsilon;
        if (!step.hasPivot) {
            for (int i = rank; i < R; ++i) {
                u(i, column) = 0.0;
            }
            continue;
        }
        if (step.pivotRow != rank) {
            pivotProduct = -pivotProduct;
        }
        pivotProduct *= pivot;
        eliminate(column, step);
        applyToTransform(step);
        ++rank;
    }
    if (rank >= (R > C ? R : C)) {
        determinant = pivotProduct;
    }
    return column;
}

/// The first row of the greatest magnitude; a NaN neither displaces nor is displaced.
template <int R, int C>
int LinearSystemT<R, C>::findPivotRow(int column, int firstRow) const
{
    int best = firstRow;
    for (int i = firstRow + 1; i < R; ++i) {
        if (std::fabs(u(i, column)) > std::fabs(u(best, column))) {
            best = i;
        }
    }
    return best;
}

/// Brings the pivot to its row, scales it to 1 and clears the column below it.
template <int R, int C>
void LinearSystemT<R, C>::eliminate(int column, Step &step)
{
    int const row = step.row;
    if (step.pivotRow != row) {
        LinearSystemDetail::swapRows<R>(reduced + R * column, row, step.pivotRow, C - column);
    }

    double const pivot = u(row, column);
    step.scale = 1.0 / pivot;
    for (int c = column + 1; c < C; ++c) {
        u(row, c) /= pivot;
    }
    u(row, column) = 1.0;

    for (int i = row + 1; i < R; ++i) {
        double const factor = u(i, column);
        for (int c = column + 1; c < C; ++c) {
            u(i, c) -= u(row, c) * factor;
        }
        u(i, column) = 0.0;
        step.multiples[i] = -factor * step.scale;
    }
}

/// T = P * T, P being the matrix of the step, without the products with the zeros of P.
template <int R, int C>
void LinearSystemT<R, C>::applyToTransform(Step const &step)
{
    int const row = step.row;
    if (step.pivotRow != row) {
        LinearSystemDetail::swapRows<R>(transform, row, step.pivotRow, R);
    }
    for (int cell = 0; cell < R * R; cell += R) {
        double const value = transform[row + cell];
        for (int i = row + 1; i < R; ++i) {
            transform[i + cell] += step.multiples[i] * value;
        }
        transform[row + cell] = 0.0 + step.scale * value; // a sum is never a negative zero
    }
}

/// T once more, by full products. The zeros of P count where T is not finite: they spread NaN from
/// one row to the others.
template <int R, int C>
void LinearSystemT<R, C>::multiplyTransform(Step const *steps, int count)
{
    LinearSystemDetail::setIdentity<R>(transform);
    for (Step const *step = steps; step != steps + count; ++step) {
        double operation[R * R];
        LinearSystemDetail::setIdentity<R>(operation);
        if (step->hasPivot) {
            if (step->pivotRow != step->row) {
                LinearSystemDetail::swapRows<R>(operation, step->row, step->pivotRow, R);
            }
            operation[step->row + R * step->pivotRow] = step->scale;
            for (int i = step->row + 1; i < R; ++i) {
                operation[i + R * step->pivotRow] = step->multiples[i];
            }
        }
        double product[R * R];
        for (int c = 0; c < R; ++c) {
            for (int r = 0; r < R; ++r) {
                double sum = 0.0;
                for (int k = 0; k < R; ++k) {
                    sum += operation[r + R * k] * transform[k + R * c];
                }
                product[r + R * c] = sum;
            }
        }
        for (int cell = 0; cell < R * R; ++cell) {
            transform[cell] = product[cell];
        }
    }
}

template <int R, int C>
int LinearSystemT<R, C>::solve(double const *rhs, double *solution, double *nullSpace) const
{
    for (int c = 0; c < C; ++c) {
        solution[c] = 0.0;
    }
    for (int cell = 0; cell < C * C; ++cell) {
        nullSpace[cell] = 0.0;
    }

    double y[R];
    for (int r = 0; r < R; ++r) {
        double sum = 0.0;
        for (int k = 0; k < R; ++k) {
            sum += transform[r + R * k] * rhs[k];
        }
        y[r] = sum;
    }
    if (!isConsistent(y)) {
        return -1;
    }

    int freeColumns[C];
    int freeCount = 0;
    int column = C - 1;
    auto const takeFreeColumn = [&] {
        nullSpace[freeCount * C + column] = 1.0;
        freeColumns[freeCount++] = column--;
    };
    for (int row = rank - 1; row >= 0; --row) {
        int const pivotColumn = findPivotColumn(row, column);
        while (column > pivotColumn) {
            takeFreeColumn();
        }
        solution[column] = backSubstitute(row, column, y[row], solution, C);
        for (int t = 0; t < freeCount; ++t) {
            double *const nullVector = nullSpace + t * C;
            int const skip = freeColumns[t];
            nullVector[column] = backSubstitute(row, column, -u(row, skip), nullVector, skip);
        }
        --column;
    }
    while (column >= 0) {
        takeFreeColumn();
    }
    return freeCount;
}

template <int R, int C>
int LinearSystemT<R, C>::solve(double const *rhs, double *solution) const
{
    double nullSpace[C * C];
    return solve(rhs, solution, nullSpace);
}

template <int R, int C>
bool LinearSystemT<R, C>::isConsistent(double const *y) const
{
    for (int i = R - 1; i >= rank; --i) {
        // residual of a row that the reduction found empty; not the epsilon of the pivots
        if (std::fabs(y[i]) > 1e-12) {
            return false;
        }
    }
    return true;
}

/// The pivot column of `row` among the columns before `end`, or `end` itself.
template <int R, int C>
int LinearSystemT<R, C>::findPivotColumn(int row, int end) const
{
    for (int column = 0; column < end; ++column) {
        if (std::fabs(u(row, column)) > 1e-12) { // a pivot is 1, what stands left of it is 0
            return column;
        }
    }
    return end;
}

/// The unknown of `column` from the equation of `row`, the unknowns right of it being known.
template <int R, int C>
double LinearSystemT<R, C>::backSubstitute(int row, int column, double value, double const *known,
                                           int skip) const
{
    double sum = 0.0;
    for (int j = column + 1; j < C; ++j) {
        if (j != skip) {
            sum += known[j] * u(row, j);
        }
    }
    return value - sum; // the pivot is exactly 1
}
