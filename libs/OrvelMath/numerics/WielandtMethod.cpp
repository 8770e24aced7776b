#include <OrvelMath/numerics/MatrixNXN.h>
#include <OrvelMath/numerics/WielandtMethod.h>

#include <algorithm>
#include <cmath>
#include <memory>

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

/// w = y with a zero inserted at the pivot.
void insertZero(double *w, double const *y, unsigned int pivot, unsigned int size)
{
    std::copy(y, y + pivot, w);
    w[pivot] = 0.0;
    std::copy(y + pivot, y + size, w + pivot + 1);
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

    // A matrix without rows leaves one without rows, and no row vector.
    std::unique_ptr<double[]> rowVector(size != 0 ? new double[size] : nullptr);
    for (unsigned int i = 0; i < size; ++i) {
        rowVector[i] = matrix->getElement(m_pivot, i) / (v[m_pivot] * lambda);
    }

    MatrixNXN deflated(size);
    for (unsigned int i = 0; i < size; ++i) {
        for (unsigned int j = 0; j < size; ++j) {
            deflated.setElement(i, j, matrix->getElement(i, j) - v[i] * lambda * rowVector[j]);
        }
    }
    auto reduced = std::make_unique<MatrixNXN>(size != 0 ? size - 1 : 0);
    copyWithoutPivot(deflated, m_pivot, *reduced);
    m_innerMethod = new PowerMethod(reduced.get(), m_accuracy);
    m_deflatedMatrix = reduced.release();
    m_rowVector = rowVector.release();
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
    unsigned int const size = m_rowVector != nullptr ? reducedSize + 1 : 0;
    double const mu = m_innerMethod->getEigenvalue();
    double const lambda = m_knownEigenvalue;
    double const *const y = m_innerMethod->getEigenvector();

    double *const w = new double[size];
    if (size != 0) {
        insertZero(w, y, m_pivot, reducedSize);
    }

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
