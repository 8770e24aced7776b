#include <OrvelExact/measures/matrices.h>

#include <OrvelExact/measures/vectors_p.h>

namespace orvelExact {

namespace {

/// A matrix beside the unit matrix, made the unit matrix beside its inverse.
template <int n>
class Elimination
{
public:
    template <typename Matrix>
    explicit Elimination(Matrix const &m)
    {
        for (int column = 0; column < n; ++column) {
            double largest = 0.0;
            for (int row = 0; row < n; ++row) {
                largest = std::max(largest, std::fabs(m(row, column)));
            }
            m_exponents[column] = exponentOf(largest);
            for (int row = 0; row < n; ++row) {
                m_left[row][column] = timesPowerOfTwo(m(row, column), -m_exponents[column]);
                m_right[row][column] = row == column ? 1.0 : 0.0;
            }
        }
    }

    /// False when a pivot is lost in rounding.
    bool run()
    {
        for (int step = 0; step < n; ++step) {
            int row = 0;
            int column = 0;
            if (!findPivot(row, column)) {
                return false;
            }
            m_rowOfColumn[column] = row;
            m_isUsed[row] = true;
            clear(row, column);
        }
        return true;
    }

    double element(int row, int column) const
    {
        return timesPowerOfTwo(rounded(m_right[m_rowOfColumn[row]][column]), -m_exponents[row]);
    }

private:
    /// The largest element left; the columns that had a pivot are 0 in the rows that are left.
    bool findPivot(int &row, int &column) const
    {
        double largest = 0x1p-98;
        bool isFound = false;
        for (int i = 0; i < n; ++i) {
            for (int k = 0; k < n && !m_isUsed[i]; ++k) {
                double const size = std::fabs(m_left[i][k].high);
                if (size > largest) {
                    largest = size;
                    row = i;
                    column = k;
                    isFound = true;
                }
            }
        }
        return isFound;
    }

    void clear(int pivotRow, int pivotColumn)
    {
        DoubleDouble const factor = DoubleDouble(1.0) / m_left[pivotRow][pivotColumn];
        for (int k = 0; k < n; ++k) {
            m_left[pivotRow][k] = m_left[pivotRow][k] * factor;
            m_right[pivotRow][k] = m_right[pivotRow][k] * factor;
        }
        for (int i = 0; i < n; ++i) {
            if (i == pivotRow) {
                continue;
            }
            DoubleDouble const part = m_left[i][pivotColumn];
            for (int k = 0; k < n; ++k) {
                m_left[i][k] = m_left[i][k] - part * m_left[pivotRow][k];
                m_right[i][k] = m_right[i][k] - part * m_right[pivotRow][k];
            }
            m_left[i][pivotColumn] = 0.0;
        }
    }

    DoubleDouble m_left[n][n];
    DoubleDouble m_right[n][n];
    int m_exponents[n];
    int m_rowOfColumn[n] = {};
    bool m_isUsed[n] = {};
};

/// The largest sum of sizes in a column.
template <int n, typename Matrix>
double normOf(Matrix const &m)
{
    double largest = 0.0;
    for (int column = 0; column < n; ++column) {
        double sum = 0.0;
        for (int row = 0; row < n; ++row) {
            sum += std::fabs(m(row, column));
        }
        largest = std::max(largest, sum);
    }
    return largest;
}

template <int n, typename Result, typename Matrix>
Result inverted(Matrix const &m)
{
    Result result;
    Determinant const determinant = determinantOf(m);
    result.status = determinant.status;
    if (determinant.status == Status::NotFinite) {
        return result;
    }
    if (determinant.status == Status::Ok && determinant.value == 0.0) {
        result.status = Status::Degenerate;
        return result;
    }
    Elimination<n> elimination(m);
    result.status = elimination.run() ? Status::Ok : Status::OutOfRange;
    if (result.status != Status::Ok) {
        return result;
    }
    for (int row = 0; row < n; ++row) {
        for (int column = 0; column < n; ++column) {
            result.matrix(row, column) = elimination.element(row, column);
        }
    }
    double const norm = normOf<n>(result.matrix);
    if (!std::isfinite(norm)) {
        Result refused;
        refused.status = Status::OutOfRange;
        return refused;
    }
    result.condition = normOf<n>(m) * norm;
    return result;
}

} // namespace

Inverse3 inverseOf(matrixC3x3<double> const &m)
{
    return inverted<3, Inverse3>(m);
}

Inverse4 inverseOf(matrixC4x4<double> const &m)
{
    return inverted<4, Inverse4>(m);
}

} // namespace orvelExact
