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
    engine::GaussJordan<3> elimination(rows, 1e-12); // an element
    if (!elimination.run()) {
        return false;
    }
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            inverse(row, column) = elimination.inverse()[row][column];
        }
    }
    return true;
}

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
