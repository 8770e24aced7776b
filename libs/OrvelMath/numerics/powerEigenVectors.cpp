#include <OrvelMath/numerics/EigenVectorAlgorithms_p.h>

#include <cmath>

namespace {

/// Gauss-Jordan elimination of a copy of a matrix, the inverse beside it. Each value written is
/// snapped: a magnitude below 1e-12 becomes 0.0.
class Inversion
{
public:
    explicit Inversion(matrixC3x3<double> const &matrix)
        : m_matrix(matrix)
        , m_inverse(matrixC3x3<double>::identity())
    {
    }

    bool run()
    {
        if (!fillDiagonal()) {
            return false;
        }
        for (int pivot = 0; pivot < 3; ++pivot) {
            for (int row = 0; row < 3; ++row) {
                if (row != pivot && !eliminate(row, pivot)) {
                    return false;
                }
            }
        }
        scaleRows();
        return true;
    }

    matrixC3x3<double> const &inverse() const { return m_inverse; }

private:
    static double snapped(double value)
    {
        return std::fabs(value) < 1e-12 ? 0.0 : value; // an element of the matrix or its inverse
    }

    void addRow(int target, double factor, int source)
    {
        for (int c = 0; c < 3; ++c) {
            m_matrix(target, c) = snapped(m_matrix(target, c) + factor * m_matrix(source, c));
            m_inverse(target, c) = snapped(m_inverse(target, c) + factor * m_inverse(source, c));
        }
    }

    bool fillDiagonal()
    {
        for (int i = 0; i < 3; ++i) {
            if (m_matrix(i, i) != 0.0) {
                continue;
            }
            int row = 0;
            while (row < 3 && m_matrix(row, i) == 0.0) {
                ++row;
            }
            if (row == 3) {
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
            if (m_matrix(row, c) != 0.0) {
                return false;
            }
        }
        return m_matrix(row, column) != 0.0;
    }

    bool eliminate(int row, int pivot)
    {
        if (m_matrix(pivot, pivot) == 0.0) {
            int helper = pivot + 1;
            while (helper < 3 && !startsAt(helper, pivot)) {
                ++helper;
            }
            if (helper >= 3) {
                return false;
            }
            addRow(pivot, 1.0, helper);
        }
        double const factor = -m_matrix(row, pivot) / m_matrix(pivot, pivot);
        if (std::fabs(factor) > 1e-12) { // a ratio of two elements
            addRow(row, factor, pivot);
        }
        return true;
    }

    void scaleRows()
    {
        for (int i = 0; i < 3; ++i) {
            if (m_matrix(i, i) == 1.0) {
                continue;
            }
            double const factor = 1.0 / m_matrix(i, i);
            for (int c = 0; c < 3; ++c) {
                m_matrix(i, c) = snapped(m_matrix(i, c) * factor);
                m_inverse(i, c) = snapped(m_inverse(i, c) * factor);
            }
        }
    }

    matrixC3x3<double> m_matrix;
    matrixC3x3<double> m_inverse;
};

vectorC3d<double> iteratePowers(matrixC3x3<double> const &matrix)
{
    vectorC3d<double> v(1.0, 1.0, 1.0);
    for (int pass = 0; pass < 500; ++pass) {
        vectorC3d<double> const w = matrix * v;
        vectorC3d<double> const u = w / w.length();
        double const step = (v - u).length();
        v = u;
        if (step < 1e-7) { // distance of successive unit vectors
            break;
        }
    }
    return v;
}

} // namespace

bool EigenVectorAlgorithms::power(matrixC3x3<double> const &matrix, Result &result)
{
    result.first = iteratePowers(matrix);
    Inversion inversion(matrix);
    if (!inversion.run()) {
        return false;
    }
    result.second = iteratePowers(inversion.inverse());
    result.values[0] = (matrix * result.second).length();
    result.values[1] = (matrix * result.first.cross(result.second)).length();
    result.values[2] = (matrix * result.first).length();
    return true;
}
