#include <OrvelCore/runtime/QtAllocation.h>
#include <OrvelMath/engine/LinearSystemT_p.h>
#include <OrvelMath/engine/sortComponents_p.h>
#include <OrvelMath/numerics/EigenVectorAlgorithms_p.h>
#include <OrvelMath/numerics/EigenVectorComputationC.h>

#include <cmath>
#include <new>
#include <utility>

using Matrix = matrixC3x3<double>;
using Vector = vectorC3d<double>;

bool MatUtil::getEigenVector3d(matrixC3x3<double> const &matrix, double *first, double *second,
                               double *values, EigenVectorAlgoE algorithm)
{
    using Algorithm = bool (*)(Matrix const &, EigenVectorAlgorithms::Result &);
    static Algorithm const algorithms[] = {EigenVectorAlgorithms::power,
                                           EigenVectorAlgorithms::shiftedQR,
                                           EigenVectorAlgorithms::analytic};
    if (algorithm < EigenVectorPower || algorithm > EigenVectorAnalytic) {
        return false;
    }

    EigenVectorAlgorithms::Result result;
    if (!algorithms[algorithm](matrix, result)) {
        return false;
    }
    for (int i = 0; i < 3; ++i) {
        first[i] = result.first[i];
        second[i] = result.second[i];
        values[i] = result.values[i];
    }
    return true;
}

struct EigenVectorComputationC::Record
{
    Matrix eigenvectors = Matrix::identity();
    Vector eigenvalues;
    bool valid = false;
};

EigenVectorComputationC::EigenVectorComputationC(matrixC3x3<double> const &matrix)
    : m_record(new (orvelAllocate(sizeof(Record))) Record)
{
    double best = 1e8; // a sum of residuals, in units of the matrix
    for (int algorithm = 0; algorithm < 3; ++algorithm) {
        double first[3], second[3], values[3];
        if (!MatUtil::getEigenVector3d(matrix, first, second, values,
                                       MatUtil::EigenVectorAlgoE(algorithm))) {
            continue;
        }
        Vector const a(first[0], first[1], first[2]);
        Vector const b(second[0], second[1], second[2]);
        Vector const cross = a.cross(b);
        Vector const m = cross / cross.length();
        double const score =
            check(matrix, m, values[1]) + check(matrix, b, values[0]) + check(matrix, a, values[2]);
        if (best > score) { // false for a NaN
            best = score;
            m_record->eigenvectors = Matrix(b, m, a);
            m_record->eigenvalues = Vector(values[0], values[1], values[2]);
        }
    }
    m_record->valid = 1e8 > best;
}

EigenVectorComputationC &
EigenVectorComputationC::operator=(EigenVectorComputationC const &) = default;

EigenVectorComputationC::~EigenVectorComputationC()
{
    m_record->~Record();
    orvelFree(m_record);
}

matrixC3x3<double> EigenVectorComputationC::getEigenVectors() const
{
    return m_record->eigenvectors;
}

vectorC3d<double> EigenVectorComputationC::getEigenValues() const
{
    return m_record->eigenvalues;
}

bool EigenVectorComputationC::isValid() const
{
    return m_record->valid;
}

double EigenVectorComputationC::check(matrixC3x3<double> const &matrix,
                                      vectorC3d<double> const &vector, double value)
{
    return (matrix * vector - value * vector).length();
}

namespace {

/// The index of the component of greatest magnitude, the first such one; 0 for the zero vector.
int dominantIndex(Vector const &v)
{
    int index = 0;
    double greatest = 0.0;
    for (int i = 0; i < 3; ++i) {
        if (std::fabs(v[i]) > greatest) {
            greatest = std::fabs(v[i]);
            index = i;
        }
    }
    return index;
}

void makeDominantPositive(Matrix &vectors, int column)
{
    Vector const v = vectors.axis(column);
    if (v[dominantIndex(v)] < 0.0) {
        vectors.setAxis(column, -v);
    }
}

/// Exchanges columns i < j of near-equal eigenvalues whose greatest components stand in the other
/// order.
void orderNearEqual(Matrix &vectors, int i, int j, double relativeDifference)
{
    Vector const u = vectors.axis(i);
    Vector const w = vectors.axis(j);
    if (std::fabs(relativeDifference) < 0.0001 && dominantIndex(u) > dominantIndex(w)) {
        vectors.setAxis(i, w);
        vectors.setAxis(j, u);
    }
}

} // namespace

void EigenVectorComputationC::standardize(matrixC3x3<double> &vectors, vectorC3d<double> &values)
{
    engine::sortComponents(values, vectors);
    makeDominantPositive(vectors, 2);
    makeDominantPositive(vectors, 0);
    Vector const middle = vectors.axis(2).cross(vectors.axis(0));
    vectors.setAxis(1, middle / middle.length());

    double const difference21 = (values[2] - values[1]) / values[2];
    double const difference20 = (values[2] - values[0]) / values[2];
    double const difference10 = (values[1] - values[0]) / values[1];
    orderNearEqual(vectors, 0, 1, difference10);
    orderNearEqual(vectors, 1, 2, difference21);
    orderNearEqual(vectors, 0, 2, difference20);

    makeDominantPositive(vectors, 2);
    makeDominantPositive(vectors, 0);
    if (LinearSystemT<3, 3>(vectors.data(), 1e-12).determinant < 0.0) {
        vectors.setAxis(1, -vectors.axis(1));
    }
}
