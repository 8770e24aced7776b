#include <OrvelMath/numerics/JacobiMethod.h>

#include <OrvelMath/numerics/JacobiRotation_p.h>
#include <OrvelMath/numerics/MatrixNXN.h>
#include <OrvelMath/numerics/quick/JacobiSweep_p.h>
#include <OrvelMath/numerics/quick/MatrixCells_p.h>

#include <cmath>

namespace {

/// Adds up row by row, whichever way the elements are reached.
double sumOfUpperTriangle(SymmetricMatrixIF &matrix, unsigned int size)
{
    double const *cell = MatrixCells::packed(matrix, size);
    double sum = 0.0;
    for (unsigned int p = 0; p < size; ++p) {
        for (unsigned int q = p + 1; q < size; ++q) {
            sum += std::fabs(cell != nullptr ? cell[q - p] : matrix.getElement(p, q));
        }
        if (cell != nullptr) {
            cell += size - p;
        }
    }
    return sum;
}

} // namespace

JacobiMethod::JacobiMethod(SymmetricMatrixIF *matrix)
    : m_matrix(matrix)
    , m_eigenvectors(nullptr)
    , m_size(0)
    , m_iterations(0)
    , m_quality(0.0)
{
    m_matrix->getSize(m_size);
    m_eigenvectors = new MatrixNXN(m_size);
    m_eigenvectors->makeIdentity();
}

JacobiMethod::JacobiMethod(JacobiMethod const &) = default;
JacobiMethod &JacobiMethod::operator=(JacobiMethod const &) = default;

JacobiMethod::~JacobiMethod()
{
    delete m_eigenvectors;
}

bool JacobiMethod::iterate()
{
    ++m_iterations;
    double const sum = sumOfUpperTriangle(*m_matrix, m_size);
    m_quality = sum;
    if (std::fabs(sum) <= 1e-8) { // sum of magnitudes; false for a NaN
        return true;
    }

    // Small elements are passed over in the first three sweeps only, although the threshold has a
    // value in the fourth too.
    double const threshold =
        m_iterations <= 4 ? 0.2 * sum / (double(m_size) * double(m_size)) : 0.0;
    double const lowest = m_iterations < 4 ? threshold : 0.0;
    if (JacobiSweep::run(*m_matrix, *m_eigenvectors, m_size, lowest)) {
        return false;
    }
    for (unsigned int p = 0; p < m_size; ++p) {
        for (unsigned int q = p + 1; q < m_size; ++q) {
            double const apq = m_matrix->getElement(p, q);
            double const app = m_matrix->getElement(p, p);
            double const aqq = m_matrix->getElement(q, q);
            if (lowest > std::fabs(apq)) {
                continue;
            }
            if (JacobiRotation::isNegligible(apq, app, aqq)) {
                m_matrix->setElement(p, q, 0.0);
            } else {
                rotate(p, q);
            }
        }
    }
    return false;
}

double JacobiMethod::getQuality()
{
    return m_quality;
}

double JacobiMethod::getEigenvalue(unsigned int i)
{
    return m_matrix->getElement(i, i);
}

void JacobiMethod::getEigenvector(unsigned int i, PValOrderedVector<double> &result)
{
    for (unsigned int row = 0; row < m_size; ++row) {
        result.append(m_eigenvectors->getElement(row, i));
    }
}

void JacobiMethod::rotate(unsigned int p, unsigned int q)
{
    double const app = m_matrix->getElement(p, p);
    double const aqq = m_matrix->getElement(q, q);
    double const apq = m_matrix->getElement(p, q);
    JacobiRotation const r(app, aqq, apq);

    m_matrix->setElement(p, q, 0.0);
    m_matrix->setElement(p, p, app - r.t * apq);
    m_matrix->setElement(q, q, aqq + r.t * apq);

    auto const turn = [=](MatrixIF *matrix, unsigned int i) {
        double const g = matrix->getElement(i, p);
        double const h = matrix->getElement(i, q);
        matrix->setElement(i, p, g - r.s * (g * r.tau + h));
        matrix->setElement(i, q, h + r.s * (g - h * r.tau));
    };
    for (unsigned int i = 0; i < m_size; ++i) {
        if (i != p && i != q) {
            turn(m_matrix, i);
        }
    }
    for (unsigned int i = 0; i < m_size; ++i) {
        turn(m_eigenvectors, i);
    }
}
