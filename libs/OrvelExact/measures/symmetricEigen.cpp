#include <OrvelExact/measures/matrices.h>

#include <OrvelExact/measures/matrixChecks_p.h>
#include <OrvelExact/measures/symmetricJacobi_p.h>
#include <OrvelExact/measures/vectors_p.h>

namespace orvelExact {

namespace {

/// The vector or its opposite, with its component of the largest size positive.
Vector3 pointedUp(Vector3 const &v)
{
    Point3 const plain = rounded(v);
    int component = 0;
    for (int k = 1; k < 3; ++k) {
        component = std::fabs(plain[k]) > std::fabs(plain[component]) ? k : component;
    }
    return plain[component] < 0.0 ? v * -1.0 : v;
}

} // namespace

Eigen3 symmetricEigen(matrixC3x3<double> const &m)
{
    Eigen3 result;
    double const largest = largestOf(m);
    if (!isFinite(m) || largest > 1e300) {
        result.status = isFinite(m) ? Status::OutOfRange : Status::NotFinite;
        return result;
    }
    int const exponent = exponentOf(largest);
    auto const near = [&](int row, int column) {
        return timesPowerOfTwo(m(row, column), -exponent);
    };
    SymmetricJacobi<3> jacobi;
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 3; ++k) {
            jacobi.a[i][k] = scaled(wideSum(near(i, k), near(k, i)), 0.5);
        }
    }
    jacobi.run();
    int order[3] = {0, 1, 2};
    for (int i = 1; i < 3; ++i) { // equal values stay in the order of the axes
        for (int k = i;
             k > 0 && jacobi.a[order[k - 1]][order[k - 1]] < jacobi.a[order[k]][order[k]]; --k) {
            std::swap(order[k], order[k - 1]);
        }
    }
    Vector3 vectors[3];
    for (int i = 0; i < 3; ++i) {
        int const column = order[i];
        result.values[i] = timesPowerOfTwo(rounded(jacobi.a[column][column]), exponent);
        vectors[i] = pointedUp(
            {jacobi.vectors[0][column], jacobi.vectors[1][column], jacobi.vectors[2][column]});
    }
    result.vectors[0] = rounded(vectors[0]);
    result.vectors[1] = rounded(vectors[1]);
    result.vectors[2] = rounded(crossOf(vectors[0], vectors[1]));
    return result;
}

} // namespace orvelExact
