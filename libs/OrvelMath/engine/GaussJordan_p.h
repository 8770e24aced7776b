#pragma once

/// @file
/// The elimination behind the matrix inverses of the library.

#include <OrvelMath/engine/Lanes_p.h>

#include <algorithm>
#include <utility>

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
/// not snapped. It is done by mask and not by a branch, whose way nobody foresees.
///
/// A row of the matrix and the row of the inverse beside it are one row of 2 * N cells, taken W at
/// a time: each cell is a result of its own, so every W gives the same bits.
template <int N, int W = 2>
class GaussJordan
{
    static_assert(2 * N % W == 0, "whole vectors in a row");

    using L = Lanes<double, W>;
    using Vector = typename L::Vector;

public:
    /// @param rows      the matrix, row by row; left half reduced when it is singular
    /// @param tolerance of an element, or of the ratio of two
    ORVEL_INLINE GaussJordan(double (*rows)[N], double tolerance)
        : m_source(rows)
        , m_tolerance(tolerance)
    {
        L::broadcast(m_tolerances, tolerance);
    }

    /// Runs the three steps.
    ///
    /// @param inverse written when the matrix is regular; it may be the matrix itself
    /// @return false for a singular matrix
    ORVEL_INLINE bool run(double (*inverse)[N])
    {
        for (int row = 0; row < N; ++row) {
            copyRow(m_cells[row], m_source[row]);
            copyRow(m_cells[row] + N, identity.cells[row]);
        }
        if (!fillDiagonal() || !eliminateAll(std::make_integer_sequence<int, N>())) {
            writeColumns(m_source, 0);
            return false;
        }
        scaleRows();
        writeColumns(inverse, N);
        return true;
    }

private:
    /// N columns, from `first` on.
    ORVEL_INLINE void writeColumns(double (*to)[N], int first) const
    {
        for (int row = 0; row < N; ++row) {
            copyRow(to[row], m_cells[row] + first);
        }
    }

    /// In whole vectors where a row has them: a vector can't be read at once where its parts have
    /// just been written.
    static ORVEL_INLINE void copyRow(double *to, double const *from)
    {
        if constexpr (N % W == 0) {
            for (int c = 0; c < N; c += W) {
                Vector cells;
                L::load(cells, from + c);
                L::store(to + c, cells);
            }
        } else {
            std::copy_n(from, N, to);
        }
    }

    ORVEL_INLINE void storeSnapped(double *to, Vector const &values) const
    {
        Vector size, kept;
        L::magnitude(size, values);
        L::keepWhere(kept, ~(size < m_tolerances), values); // NaN is kept
        L::store(to, kept);
    }

    ORVEL_INLINE void addRow(int target, double factor, int source)
    {
        Vector f;
        L::broadcast(f, factor);
        for (int c = 0; c < 2 * N; c += W) {
            Vector added, sum;
            L::load(added, m_cells[source] + c);
            L::load(sum, m_cells[target] + c);
            storeSnapped(m_cells[target] + c, f * added + sum);
        }
    }

    ORVEL_INLINE bool fillDiagonal()
    {
        for (int i = 0; i < N; ++i) {
            if (m_cells[i][i] != 0.0) {
                continue;
            }
            int row = 0;
            while (row < N && m_cells[row][i] == 0.0) {
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
    ORVEL_INLINE bool startsAt(int row, int column) const
    {
        for (int c = 0; c < column; ++c) {
            if (m_cells[row][c] != 0.0) {
                return false;
            }
        }
        return m_cells[row][column] != 0.0;
    }

    ORVEL_INLINE bool repairPivot(int pivot)
    {
        for (int row = pivot + 1; row < N; ++row) {
            if (startsAt(row, pivot)) {
                addRow(pivot, 1.0, row);
                return true;
            }
        }
        return false;
    }

    template <int... Pivot>
    ORVEL_INLINE bool eliminateAll(std::integer_sequence<int, Pivot...>)
    {
        return (eliminateColumn<Pivot>() && ...);
    }

    template <int Pivot>
    ORVEL_INLINE bool eliminateColumn()
    {
        for (int row = 0; row < N; ++row) {
            if (row == Pivot) {
                continue;
            }
            if (m_cells[Pivot][Pivot] == 0.0 && !repairPivot(Pivot)) {
                return false;
            }
            double const factor = -(m_cells[row][Pivot] / m_cells[Pivot][Pivot]);
            if (factor > m_tolerance || -m_tolerance > factor) {
                addRow(row, factor, Pivot);
            }
        }
        return true;
    }

    ORVEL_INLINE void scaleRows()
    {
        for (int i = 0; i < N; ++i) {
            if (m_cells[i][i] == 1.0) {
                continue;
            }
            Vector scale;
            L::broadcast(scale, 1.0 / m_cells[i][i]);
            for (int c = 0; c < 2 * N; c += W) {
                Vector cells;
                L::load(cells, m_cells[i] + c);
                storeSnapped(m_cells[i] + c, cells * scale);
            }
        }
    }

    struct Identity
    {
        double cells[N][N] = {};

        constexpr Identity()
        {
            for (int i = 0; i < N; ++i) {
                cells[i][i] = 1.0;
            }
        }
    };
    static constexpr Identity identity{};

    Vector m_tolerances;
    alignas(W * sizeof(double)) double m_cells[N][2 * N];
    double (*m_source)[N];
    double m_tolerance;
};

} // namespace engine
