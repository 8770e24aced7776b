#include <OrvelMath/numerics/MatrixNXN.h>
#include <OrvelMath/numerics/WielandtMethod.h>

#include <algorithm>
#include <cmath>

namespace {

unsigned int indexOfLargest(double const *v, unsigned int size)
{
    unsigned int largest = 0;
    for (unsigned int i = 1; i < size; ++i) {
        if (std::fabs(v[i]) > std::fabs(v[largest])) {
            largest = i;
        }
    }
    return largest;
}

/// Copies `full` without row and column `pivot`; nothing at all when the pivot is the last index.
void copyWithoutPivot(MatrixIF &full, unsigned int pivot, MatrixIF &reduced)
{
    unsigned int size;
    reduced.getSize(size);
    if (pivot >= size) {
        return;
    }
    for (unsigned int i = 0; i < size; ++i) {
        unsigned int const row = i < pivot ? i : i + 1;
        for (unsigned int j = 0; j < size; ++j) {
            unsigned int const column = j < pivot ? j : j + 1;
            reduced.setElement(i, j, full.getElement(row, column));
        }
    }
}

} // namespace

WielandtMethod::WielandtMethod(MatrixIF *matrix, double lambda, double *eigenvector,
                               double accuracy)
    : m_accuracy(accuracy)
    , m_eigenvectorDone(false)
    , m_knownEigenvalue(lambda)
    , m_knownEigenvector(eigenvector)
    , m_iterations(0)
    , m_eigenvector(nullptr)
{
    double const *const v = eigenvector;
    unsigned int size;
    matrix->getSize(size);
    m_pivot = indexOfLargest(v, size);

    m_rowVector = new double[size];
    for (unsigned int i = 0; i < size; ++i) {
        m_rowVector[i] = matrix->getElement(m_pivot, i) / (v[m_pivot] * lambda);
    }

    MatrixNXN deflated(size);
    for (unsigned int i = 0; i < size; ++i) {
        for (unsigned int j = 0; j < size; ++j) {
            deflated.setElement(i, j, matrix->getElement(i, j) - v[i] * lambda * m_rowVector[j]);
        }
    }
    m_deflatedMatrix = new MatrixNXN(size - 1);
    copyWithoutPivot(deflated, m_pivot, *m_deflatedMatrix);
    m_innerMethod = new PowerMethod(m_deflatedMatrix, m_accuracy);
}

WielandtMethod::WielandtMethod(WielandtMethod const &) = default;
WielandtMethod &WielandtMethod::operator=(WielandtMethod const &) = default;

WielandtMethod::~WielandtMethod()
{
    delete[] m_eigenvector;
    delete m_innerMethod;
    delete m_deflatedMatrix;
    delete[] m_rowVector;
}

bool WielandtMethod::iterate()
{
    ++m_iterations;
    return m_innerMethod->iterate();
}

double WielandtMethod::getQuality()
{
    return m_innerMethod->getQuality();
}

double WielandtMethod::getEigenvalue()
{
    return m_innerMethod->getEigenvalue();
}

MatrixIF *WielandtMethod::getDeflatedMatrix()
{
    return m_deflatedMatrix;
}

double *WielandtMethod::getEigenvector()
{
    if (m_eigenvectorDone) {
        return m_eigenvector;
    }

    unsigned int reducedSize;
    m_deflatedMatrix->getSize(reducedSize);
    unsigned int const size = reducedSize + 1;
    double const mu = m_innerMethod->getEigenvalue();
    double const lambda = m_knownEigenvalue;
    double const *const y = m_innerMethod->getEigenvector();

    // y with a zero inserted at the pivot
    double *const w = new double[size];
    std::copy(y, y + m_pivot, w);
    w[m_pivot] = 0.0;
    std::copy(y + m_pivot, y + reducedSize, w + m_pivot + 1);

    double dot = 0.0;
    for (unsigned int i = 0; i < size; ++i) {
        dot += m_rowVector[i] * w[i];
    }
    double squaredLength = 0.0;
    for (unsigned int i = 0; i < size; ++i) {
        w[i] = (mu - lambda) * w[i] + lambda * dot * m_knownEigenvector[i];
        squaredLength += w[i] * w[i];
    }
    double const length = std::sqrt(squaredLength);
    for (unsigned int i = 0; i < size; ++i) {
        w[i] /= length;
    }

    m_eigenvector = w;
    m_eigenvectorDone = true;
    return w;
}
