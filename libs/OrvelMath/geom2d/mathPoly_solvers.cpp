#include <OrvelMath/geom2d/mathPoly.h>

#include <cmath>

namespace mathPoly {

namespace {

constexpr double third = 0.3333333333333333;

double realCubeRoot(double x)
{
    return x < 0.0 ? -std::pow(-x, third) : std::pow(x, third);
}

/// Roots of y³ + 3 p3 y + 2 q2, the cubic without its square term (Cardano 1545; Viète's cosines
/// for three real roots).
int solveDepressedCubic(double p3, double q2, double *roots)
{
    double const D = q2 * q2 + p3 * p3 * p3;
    if (isZero(D)) {
        if (isZero(q2)) {
            roots[0] = 0.0;
            return 1;
        }
        double const k = realCubeRoot(-q2);
        roots[0] = 2.0 * k;
        roots[1] = -k;
        return 2;
    }
    if (D < 0.0) {
        double const phi = std::acos(-q2 / std::sqrt(-(p3 * p3 * p3))) * third;
        double const t = 2.0 * std::sqrt(-p3);
        double const sixtyDegrees = 1.0471975511965976;
        roots[0] = t * std::cos(phi);
        roots[1] = -t * std::cos(phi + sixtyDegrees);
        roots[2] = -t * std::cos(phi - sixtyDegrees);
        return 3;
    }
    double const g = realCubeRoot(std::sqrt(D) + std::abs(q2));
    double const h = p3 / g;
    roots[0] = q2 > 0.0 ? h - g : g - h;
    return 1;
}

/// The square root that Ferrari's factors need; false when there is none in the reals.
bool realRootOrZero(double square, double &root)
{
    if (isZero(square)) {
        root = 0.0;
        return true;
    }
    if (square > 0.0) {
        root = std::sqrt(square);
        return true;
    }
    return false;
}

/// Roots of y⁴ + p y² + q y + r with r not zero.
int solveDepressedQuartic(double p, double q, double r, double *roots)
{
    double const resolvent[] = {r * p / 2.0 - q * q / 8.0, -r, -(p / 2.0), 1.0};
    double resolventRoots[3];
    solveCubic(resolvent, resolventRoots);
    double const z = resolventRoots[0];
    double u = 0.0;
    double v = 0.0;
    if (!realRootOrZero(z * z - r, u) || !realRootOrZero(2.0 * z - p, v)) {
        return 0;
    }
    double const signedV = q < 0.0 ? -v : v;
    double const first[] = {z - u, signedV, 1.0};
    double const second[] = {z + u, -signedV, 1.0};
    int const count = solveQuadratic(first, roots);
    return count + solveQuadratic(second, roots + count);
}

} // namespace

bool isZero(double x)
{
    return x > -1e-9 && x < 1e-9; // the near-zero band of the namespace, open at both ends
}

int solveLinear(double const *c, double *roots)
{
    if (isZero(c[1])) {
        return 0;
    }
    roots[0] = -c[0] / c[1];
    return 1;
}

int solveQuadratic(double const *c, double *roots)
{
    if (isZero(c[2])) {
        return solveLinear(c, roots);
    }
    double const h = c[1] / (2.0 * c[2]);
    double const d = h * h - c[0] / c[2];
    if (isZero(d)) {
        roots[0] = -h;
        roots[1] = -h;
        return 1;
    }
    if (d < 0.0) {
        return 0;
    }
    double const s = std::sqrt(d);
    roots[0] = s - h;
    roots[1] = -s - h;
    return 2;
}

int solveCubic(double const *c, double *roots)
{
    double const a2 = c[2] / c[3];
    double const a1 = c[1] / c[3];
    double const a0 = c[0] / c[3];
    double const shift = a2 * third;
    double const p = a1 - a2 * a2 * third;
    double const p3 = p * third;
    double const twoOver27 = 0.07407407407407407;
    double const q2 = (a2 * twoOver27 * (a2 * a2) - shift * a1 + a0) * 0.5;
    int const count = solveDepressedCubic(p3, q2, roots);
    for (int i = 0; i < count; ++i) {
        roots[i] -= shift;
    }
    return count;
}

int solveQuartic(double const *c, double *roots)
{
    double const a3 = c[3] / c[4];
    double const a2 = c[2] / c[4];
    double const a1 = c[1] / c[4];
    double const a0 = c[0] / c[4];
    double const square = a3 * a3;
    double const cube = square * a3;
    double const fourth = cube * a3;
    double const p = a2 - square * 0.375;
    double const q = cube * 0.125 - a3 * a2 * 0.5 + a1;
    double const r = square * 0.0625 * a2 - fourth * 0.01171875 - a3 * 0.25 * a1 + a0;
    double const shift = a3 * 0.25;
    int count = 0;
    if (isZero(r)) {
        double const cubic[] = {q, p, 0.0, 1.0};
        count = solveCubic(cubic, roots);
        roots[count] = 0.0;
        ++count;
    } else {
        count = solveDepressedQuartic(p, q, r, roots);
    }
    for (int i = 0; i < count; ++i) {
        roots[i] -= shift;
    }
    return count;
}

} // namespace mathPoly
