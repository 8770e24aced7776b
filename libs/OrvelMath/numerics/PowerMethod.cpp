#include <OrvelMath/numerics/PowerMethod.h>

#include <OrvelMath/numerics/quick/MatrixProduct_p.h>

#include <cmath>
#include <cstdlib>
#include <memory>

namespace {

void normalize(double *vector, unsigned int size)
{
    double sum = 0.0;
    for (unsigned int i = 0; i < size; ++i) {
        sum += vector[i] * vector[i];
    }
    double const length = std::sqrt(sum);
    for (unsigned int i = 0; i < size; ++i) {
        vector[i] /= length;
    }
}

/// product = matrix * vector, through the operations of the matrix.
void multiply(MatrixIF &matrix, unsigned int size, double const *vector, double *product)
{
    for (unsigned int i = 0; i < size; ++i) {
        double sum = 0.0;
        for (unsigned int j = 0; j < size; ++j) {
            sum += matrix.getElement(i, j) * vector[j];
        }
        product[i] = sum;
    }
}

} // namespace

PowerMethod::PowerMethod(MatrixIF *matrix, double accuracy)
    : m_matrix(matrix)
    , m_vector(nullptr)
    , m_product(nullptr)
    , m_accuracy(accuracy)
    , m_iterations(0)
    , m_quality(0.0)
{
    if (!m_matrix) {
        return;
    }
    unsigned int size;
    m_matrix->getSize(size);
    std::unique_ptr<double[]> vector(new double[size]); // given back if the next one fails
    m_product = new double[size];
    m_vector = vector.release();
}

PowerMethod::PowerMethod(PowerMethod const &) = default;
PowerMethod &PowerMethod::operator=(PowerMethod const &) = default;

PowerMethod::~PowerMethod()
{
    delete[] m_product;
    delete[] m_vector;
}

bool PowerMethod::iterate()
{
    if (!m_vector || !m_product || !m_matrix) {
        return true;
    }
    if (m_iterations == 0) {
        unsigned int size;
        m_matrix->getSize(size);
        for (unsigned int i = 0; i < size; ++i) {
            m_vector[i] = std::rand() * 3.0517578125e-5; // 1/32768; made a unit vector below
        }
        normalize(m_vector, size);
    }
    ++m_iterations;
    return iterateVector();
}

bool PowerMethod::iterateVector()
{
    unsigned int size;
    m_matrix->getSize(size);
    if (!MatrixProduct::multiply(*m_matrix, size, m_vector, m_product)) {
        multiply(*m_matrix, size, m_vector, m_product);
    }

    double dot = 0.0;
    for (unsigned int i = 0; i < size; ++i) {
        dot += m_product[i] * m_vector[i];
    }
    m_eigenvalue = dot;
    normalize(m_product, size);

    // A negative eigenvalue turns the vector round at each step. The turn is no movement, but the
    // stored vector keeps it.
    double const sign = m_eigenvalue < 0.0 ? -1.0 : 1.0;
    double squaredDistance = 0.0;
    for (unsigned int i = 0; i < size; ++i) {
        double const difference = m_vector[i] - sign * m_product[i];
        squaredDistance += difference * difference;
        m_vector[i] = m_product[i];
    }
    m_quality = squaredDistance;
    return m_accuracy > std::sqrt(squaredDistance);
}

double PowerMethod::getQuality()
{
    return m_quality;
}

double PowerMethod::getEigenvalue()
{
    return m_eigenvalue;
}

double *PowerMethod::getEigenvector()
{
    return m_vector;
}
