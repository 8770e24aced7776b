#include <OrvelExact/measures/matrices.h>

#include <OrvelExact/measures/matrixChecks_p.h>
#include <OrvelExact/measures/scaling_p.h>
#include <OrvelExact/measures/symmetricJacobi_p.h>

namespace orvelExact {

namespace {

/// The symmetric matrix K for which q K q is the sum of the products of the elements of m and of
/// the rotation by the unit quaternion q = (w, x, y, z).
SymmetricJacobi<4> davenportMatrix(double const (&m)[3][3])
{
    auto const sum = [](double a, double b, double c) { return wideSum(a, b) + c; };
    SymmetricJacobi<4> k;
    k.a[0][0] = sum(m[0][0], m[1][1], m[2][2]);
    k.a[1][1] = sum(m[0][0], -m[1][1], -m[2][2]);
    k.a[2][2] = sum(-m[0][0], m[1][1], -m[2][2]);
    k.a[3][3] = sum(-m[0][0], -m[1][1], m[2][2]);
    k.a[0][1] = k.a[1][0] = wideSum(m[2][1], -m[1][2]);
    k.a[0][2] = k.a[2][0] = wideSum(m[0][2], -m[2][0]);
    k.a[0][3] = k.a[3][0] = wideSum(m[1][0], -m[0][1]);
    k.a[1][2] = k.a[2][1] = wideSum(m[0][1], m[1][0]);
    k.a[1][3] = k.a[3][1] = wideSum(m[0][2], m[2][0]);
    k.a[2][3] = k.a[3][2] = wideSum(m[1][2], m[2][1]);
    return k;
}

matrixC3x3<double> rotationOf(DoubleDouble const &w, DoubleDouble const &x, DoubleDouble const &y,
                              DoubleDouble const &z)
{
    auto const twice = [](DoubleDouble const &a) { return rounded(a * 2.0); };
    auto const diagonal = [&twice](DoubleDouble const &a, DoubleDouble const &b) {
        return twice(DoubleDouble(0.5) - a * a - b * b);
    };
    matrixC3x3<double> r;
    r(0, 0) = diagonal(y, z);
    r(1, 1) = diagonal(x, z);
    r(2, 2) = diagonal(x, y);
    r(0, 1) = twice(x * y - w * z);
    r(1, 0) = twice(x * y + w * z);
    r(0, 2) = twice(x * z + w * y);
    r(2, 0) = twice(x * z - w * y);
    r(1, 2) = twice(y * z - w * x);
    r(2, 1) = twice(y * z + w * x);
    return r;
}

} // namespace

NearestRotation nearestRotation(matrixC3x3<double> const &m)
{
    NearestRotation result;
    if (!isFinite(m)) {
        result.status = Status::NotFinite;
        return result;
    }
    int const exponent = exponentOf(largestOf(m));
    double near[3][3];
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            near[row][column] = timesPowerOfTwo(m(row, column), -exponent);
        }
    }
    SymmetricJacobi<4> k = davenportMatrix(near);
    k.run();
    int best = 0;
    for (int i = 1; i < 4; ++i) {
        best = k.a[best][best] < k.a[i][i] ? i : best;
    }
    double gap = 8.0;
    for (int i = 0; i < 4; ++i) {
        gap = i == best ? gap : std::min(gap, (k.a[best][best] - k.a[i][i]).high);
    }
    if (!(gap > 0x1p-90)) {
        result.status = Status::Degenerate;
        return result;
    }
    auto const &v = k.vectors;
    result.rotation = rotationOf(v[0][best], v[1][best], v[2][best], v[3][best]);
    result.condition = 4.0 / gap;
    return result;
}

} // namespace orvelExact
