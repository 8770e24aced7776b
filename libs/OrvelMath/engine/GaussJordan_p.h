/// @file
/// The elimination behind the matrix inverses of the library.
#pragma once

namespace engine {

/// Inverts a matrix of N rows in place by Gauss-Jordan elimination without a search for large
/// pivots.
///
/// 1. A zero on the diagonal is repaired first: the first row with an element in its column is
///    added.
/// 2. Column by column, the pivot row is added to each other row so that its element vanishes. A
///    pivot of 0 is repaired by the first row below it that begins in its column. A factor of size
///    up to `tolerance` is passed over, and its element stays.
/// 3. Each row is multiplied by the reciprocal of its diagonal element, unless that is 1.
///
/// Every value that a step writes becomes 0.0 when its size is below the tolerance. That snap is
/// why the order of the steps shows in the result: a row with nothing to add is not written, and
/// not snapped.
template <int N>
class GaussJordan
{
public:
    /// @param rows      the matrix, row by row; it is reduced in place
    /// @param tolerance of an element, or of the ratio of two
    GaussJordan(double (*rows)[N], double tolerance)
        : m_rows(rows)
        , m_tolerance(tolerance)
    {
        for (int row = 0; row < N; ++row) {
            for (int column = 0; column < N; ++column) {
                m_inverse[row][column] = row == column ? 1.0 : 0.0;
            }
        }
    }

    /// Runs the three steps. False for a singular matrix: the rows are then left half reduced.
    bool run()
    {
        if (!fillDiagonal()) {
            return false;
        }
        for (int pivot = 0; pivot < N; ++pivot) {
            for (int row = 0; row < N; ++row) {
                if (row != pivot && !eliminate(row, pivot)) {
                    return false;
                }
            }
        }
        scaleRows();
        return true;
    }

    /// The inverse, row by row, after run() has answered true.
    double const (&inverse() const)[N][N] { return m_inverse; }

private:
    double snapped(double value) const
    {
        return value > -m_tolerance && value < m_tolerance ? 0.0 : value;
    }

    void addRow(int target, double factor, int source)
    {
        for (int c = 0; c < N; ++c) {
            m_rows[target][c] = snapped(factor * m_rows[source][c] + m_rows[target][c]);
            m_inverse[target][c] = snapped(factor * m_inverse[source][c] + m_inverse[target][c]);
        }
    }

    bool fillDiagonal()
    {
        for (int i = 0; i < N; ++i) {
            if (m_rows[i][i] != 0.0) {
                continue;
            }
            int row = 0;
            while (row < N && m_rows[row][i] == 0.0) {
                ++row;
            }
            if (row == N) {
                return false;
            }
            addRow(i, 1.0, row);
        }
        return true;
    }

    /// True when the elements of `row` left of `column` are all 0.0 and that of `column` is not.
    bool startsAt(int row, int column) const
    {
        for (int c = 0; c < column; ++c) {
            if (m_rows[row][c] != 0.0) {
                return false;
            }
        }
        return m_rows[row][column] != 0.0;
    }

    bool repairPivot(int pivot)
    {
        for (int row = pivot + 1; row < N; ++row) {
            if (startsAt(row, pivot)) {
                addRow(pivot, 1.0, row);
                return true;
            }
        }
        return false;
    }

    bool eliminate(int row, int pivot)
    {
        if (m_rows[pivot][pivot] == 0.0 && !repairPivot(pivot)) {
            return false;
        }
        double const factor = -(m_rows[row][pivot] / m_rows[pivot][pivot]);
        if (factor > m_tolerance || -m_tolerance > factor) {
            addRow(row, factor, pivot);
        }
        return true;
    }

    void scaleRows()
    {
        for (int i = 0; i < N; ++i) {
            if (m_rows[i][i] == 1.0) {
                continue;
            }
            double const scale = 1.0 / m_rows[i][i];
            for (int c = 0; c < N; ++c) {
                m_rows[i][c] = snapped(m_rows[i][c] * scale);
                m_inverse[i][c] = snapped(m_inverse[i][c] * scale);
            }
        }
    }

    double (*m_rows)[N];
    double m_inverse[N][N];
    double m_tolerance;
};

} // namespace engine
