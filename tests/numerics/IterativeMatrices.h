#pragma once

#include <OrvelMath/numerics/JacobiMethod.h>
#include <OrvelMath/numerics/MatrixNXN.h>

#include <Eigen/Core>

#include <algorithm>
#include <initializer_list>
#include <map>
#include <random>
#include <utility>
#include <vector>

namespace iterative {

template <typename Matrix>
Matrix makeMatrix(unsigned int n, std::initializer_list<double> rows)
{
    Matrix matrix(n);
    unsigned int cell = 0;
    for (double value : rows) {
        matrix.setElement(cell / n, cell % n, value);
        ++cell;
    }
    return matrix;
}

/// Fills in place, because a MatrixNXN must not be copied and destroyed twice.
inline void fill(MatrixIF &matrix, unsigned int n, std::initializer_list<double> rows)
{
    unsigned int cell = 0;
    for (double value : rows) {
        matrix.setElement(cell / n, cell % n, value);
        ++cell;
    }
}

inline std::vector<double> eigenvector(JacobiMethod &method, unsigned int i)
{
    PValOrderedVector<double> list;
    method.getEigenvector(i, list);
    return std::vector<double>(list.begin(), list.end());
}

inline int sweepsToTheEnd(JacobiMethod &method)
{
    int sweeps = 1;
    while (!method.iterate()) {
        ++sweeps;
    }
    return sweeps;
}

inline Eigen::MatrixXd randomSymmetric(int n, unsigned int seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> values(-10.0, 10.0);
    Eigen::MatrixXd a(n, n);
    for (int i = 0; i < n; ++i) {
        for (int j = i; j < n; ++j) {
            a(i, j) = a(j, i) = values(random);
        }
    }
    return a;
}

inline void copyTo(MatrixIF &matrix, Eigen::MatrixXd const &a)
{
    for (int i = 0; i < a.rows(); ++i) {
        for (int j = 0; j < a.cols(); ++j) {
            matrix.setElement(unsigned(i), unsigned(j), a(i, j));
        }
    }
}

/// A symmetric matrix as a user might write one: a map that holds what is not zero.
class SparseMatrix : public SymmetricMatrixIF
{
public:
    explicit SparseMatrix(unsigned int n)
        : m_size(n)
    {
    }
    double getElement(unsigned int row, unsigned int column) override
    {
        auto const found = m_elements.find(std::minmax(row, column));
        return found == m_elements.end() ? 0.0 : found->second;
    }
    void setElement(unsigned int row, unsigned int column, double value) override
    {
        if (checkBounds(row) && checkBounds(column)) {
            m_elements[std::minmax(row, column)] = value;
        }
    }
    void getSize(unsigned int &size) override { size = m_size; }
    void makeIdentity() override { MatrixIF::makeIdentity(); }
    void makeNull() override { m_elements.clear(); }

private:
    unsigned int m_size;
    std::map<std::pair<unsigned int, unsigned int>, double> m_elements;
};

} // namespace iterative
