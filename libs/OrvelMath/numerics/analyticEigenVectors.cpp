#include <OrvelMath/engine/LinearSystemT_p.h>
#include <OrvelMath/engine/sortComponents_p.h>
#include <OrvelMath/numerics/EigenVectorAlgorithms_p.h>

#include <cmath>

namespace {

using Matrix = matrixC3x3<double>;
using Vector = vectorC3d<double>;

Matrix shifted(Matrix const &matrix, double value)
{
    Matrix m = matrix;
    for (int i = 0; i < 3; ++i) {
        m(i, i) -= value;
    }
    return m;
}

/// The three roots of the characteristic polynomial in trigonometric form, ascending.
Vector findEigenvalues(Matrix const &matrix)
{
    double const q = (matrix(0, 0) + matrix(1, 1) + matrix(2, 2)) / 3.0;
    Matrix const b = shifted(matrix, q);
    double const r = LinearSystemT<3, 3>(b.data(), 1e-12).determinant * 0.5;
    double sum = 0.0;
    for (int cell = 0; cell < 9; ++cell) {
        sum += b[cell] * b[cell];
    }
    double const p = sum / 6.0;

    // Not p * sqrt(p), and not phi / 3: they differ in the last bits.
    double const scale = std::pow(p, 1.5);
    double phi = std::acos(r / scale) * 0.3333333333333333;
    if (std::fabs(r) >= std::fabs(scale)) {
        phi = 0.0;
    } else if (phi < 0.0) {
        phi += 1.0471975511965976; // 60 degrees
    }

    double const radius = std::sqrt(p);
    double const cosine = std::cos(phi);
    double const sine = std::sqrt(3.0) * std::sin(phi);
    Vector e(q + 2 * radius * cosine, q - radius * (cosine + sine), q - radius * (cosine - sine));
    engine::sortComponents(e);
    return e;
}

} // namespace

bool EigenVectorAlgorithms::analytic(matrixC3x3<double> const &matrix, Result &result)
{
    Vector const e = findEigenvalues(matrix);
    Vector eigenvectors[3];
    int found = 0;
    while (found < 3) {
        // A double eigenvalue gives two null vectors at once, and its second copy is skipped.
        LinearSystemT<3, 3> const system(shifted(matrix, e[found]).data(), 0.0001);
        double const zero[3] = {0.0, 0.0, 0.0};
        double solution[3], nullSpace[9];
        int const dimension = system.solve(zero, solution, nullSpace);
        if (dimension < 1 || found + dimension > 3) {
            return false;
        }
        for (int t = 0; t < dimension; ++t) {
            Vector const v(nullSpace[3 * t], nullSpace[3 * t + 1], nullSpace[3 * t + 2]);
            eigenvectors[found + t] = v / v.length();
        }
        found += dimension;
    }
    result.first = eigenvectors[2];
    result.second = eigenvectors[0];
    result.values = e;
    return true;
}
