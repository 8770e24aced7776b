#include <OrvelMath/geom2d/construct2d_apollonius.h>

#include <OrvelMath/geom2d/construct2d_crossings.h>

#include <cmath>

int apolloniusCCC(Point2D const &c1, double r1, bool inside1, Point2D const &c2, double r2,
                  bool inside2, Point2D const &c3, double r3, bool inside3, Point2D &centre,
                  double &radius)
{
    double const grid = 0.0001; // lengths and quotients of lengths
    double const s1 = inside1 ? 1.0 : -1.0;
    double const s2 = inside2 ? 1.0 : -1.0;
    double const s3 = inside3 ? 1.0 : -1.0;
    double const x1 = c1.x(), y1 = c1.y();
    double const x2 = c2.x(), y2 = c2.y();
    double const x3 = c3.x(), y3 = c3.y();

    // first circle less second: x + w12 y + w14 = w13 radius
    double const k1 = 2.0 * x2 - 2.0 * x1;
    if (mat_round_to_grid(k1, grid) == 0.0) {
        return 0;
    }
    double const k2 = 2.0 * y2 - 2.0 * y1;
    double const k3 = 2.0 * s2 * r2 - 2.0 * s1 * r1;
    double const k4 = x1 * x1 - x2 * x2 + y1 * y1 - y2 * y2 - r1 * r1 + r2 * r2;
    double const w12 = k2 / k1;
    double const w13 = k3 / k1;
    double const w14 = k4 / k1;

    // second circle less third, and x eliminated: w22 y = (w23 - w13) radius - (w24 - w14)
    double const z1 = 2.0 * x3 - 2.0 * x2;
    double const z2 = 2.0 * y3 - 2.0 * y2;
    double const w22 = z2 / z1 - w12;
    if (mat_round_to_grid(w22, grid) == 0.0) {
        return 0;
    }
    double const z3 = 2.0 * s3 * r3 - 2.0 * s2 * r2;
    double const z4 = x2 * x2 - x3 * x3 + y2 * y2 - y3 * y3 - r2 * r2 + r3 * r3;
    double const w23 = z3 / z1;
    double const w24 = z4 / z1;

    // centre = (N radius + M, Q radius + P)
    double const P = -(w24 - w14) / w22;
    double const Q = (w23 - w13) / w22;
    double const M = -w12 * P - w14;
    double const N = w13 - Q * w12;

    // in the first circle's equation: a radius² + b radius + c = 0
    double const a = N * N + Q * Q - 1.0;
    double const b = 2.0 * M * N - 2.0 * N * x1 + 2.0 * P * Q - 2.0 * Q * y1 + 2.0 * s1 * r1;
    double const c = M * M + x1 * x1 - 2.0 * M * x1 + P * P + y1 * y1 - 2.0 * P * y1 - r1 * r1;
    double const D = b * b - 4.0 * a * c;
    if (0.0001 > D || 0.0001 > std::fabs(a)) { // a squared length; a number without unit
        return 0;
    }
    radius = (-b - std::sqrt(D)) / (2.0 * a);
    centre = Point2D(N * radius + M, Q * radius + P);
    return 1;
}
