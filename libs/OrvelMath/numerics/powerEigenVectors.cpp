#include <OrvelMath/engine/GaussJordan_p.h>
#include <OrvelMath/numerics/EigenVectorAlgorithms_p.h>

#include <cmath>

namespace {

/// Writes the inverse of `matrix`; false when it is singular.
bool invert(matrixC3x3<double> const &matrix, matrixC3x3<double> &inverse)
{
    double rows[3][3];
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            rows[row][column] = matrix(row, column);
        }
    }
    if (!engine::GaussJordan<3>(rows, 1e-12).run(rows)) { // an element
        return false;
    }
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            inverse(row, column) = rows[row][column];
        }
    }
    return true;
}

/// Equal with the signs of zeros; a NaN is equal to nothing.
bool hasSameBits(vectorC3d<double> const &a, vectorC3d<double> const &b)
{
    return a == b && std::signbit(a.x()) == std::signbit(b.x()) &&
           std::signbit(a.y()) == std::signbit(b.y()) && std::signbit(a.z()) == std::signbit(b.z());
}

vectorC3d<double> iteratePowers(matrixC3x3<double> const &matrix)
{
    constexpr int passes = 500;
    vectorC3d<double> v(1.0, 1.0, 1.0);
    vectorC3d<double> previous;
    for (int pass = 1; pass <= passes; ++pass) {
        vectorC3d<double> const w = matrix * v;
        vectorC3d<double> const u = w / w.length();
        if ((v - u).length() < 1e-7) { // distance of successive unit vectors
            return u;
        }
        // A negative eigenvalue turns the vector round in each pass. Once it comes back to its very
        // bits, all further passes give these two vectors by turns, equally far from each other.
        if (pass > 1 && hasSameBits(u, previous)) {
            return (passes - pass) % 2 == 0 ? u : v;
        }
        previous = v;
        v = u;
    }
    return v;
}

} // namespace

bool EigenVectorAlgorithms::power(matrixC3x3<double> const &matrix, Result &result)
{
    result.first = iteratePowers(matrix);
    matrixC3x3<double> inverse;
    if (!invert(matrix, inverse)) {
        return false;
    }
    result.second = iteratePowers(inverse);
    result.values[0] = (matrix * result.second).length();
    result.values[1] = (matrix * result.first.cross(result.second)).length();
    result.values[2] = (matrix * result.first).length();
    return true;
}
