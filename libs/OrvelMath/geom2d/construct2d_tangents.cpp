#include <OrvelMath/geom2d/construct2d_tangents.h>

#include <OrvelMath/geom2d/construct2d_crossings.h>
#include <OrvelMath/geom2d/planeVectors_p.h>

#include <algorithm>
#include <cmath>

namespace {

using planeVectors::combined;

/// Two circles in the frame of their centre line.
struct CirclePair
{
    Point2D c1;
    double r1;
    Point2D c2;
    double r2;
    double L;  // distance of the centres
    Point2D u; // direction from c1 to c2
    Point2D n; // u turned a quarter left
};

/// The tangent that crosses the centre line between the circles.
int innerTangent(CirclePair const &p, int side, bool magnitudes, Point2D &t1, Point2D &t2,
                 double eps)
{
    double const S = p.r1 + p.r2;
    if (mat_round_to_grid(S - p.L, eps) >= 0.0) {
        return 0;
    }
    if (mat_round_to_grid(p.r1, eps) == 0.0 && mat_round_to_grid(p.r2, eps) == 0.0) {
        return 0;
    }
    double const k = p.L * p.r1 / S; // from c1 to the crossing with the centre line
    double const g = std::sqrt(p.L * p.L - S * S) * p.r1 / S;
    double const a1 = p.r1 * p.r1 / k;
    double const a2 = p.r1 * p.r2 / k;
    double o1 = g * p.r1 / k;
    double o2 = g * p.r2 / k;
    if (magnitudes) {
        o1 = std::fabs(o1);
        o2 = std::fabs(o2);
    }
    double const sign = side == 0 ? 1.0 : -1.0;
    t1 = combined(p.c1, a1, p.u, sign * o1, p.n);
    t2 = combined(p.c2, -a2, p.u, -sign * o2, p.n);
    return 1;
}

/// The tangent that has both circles on one side.
int outerTangent(CirclePair const &p, int side, bool magnitudes, Point2D &t1, Point2D &t2,
                 double eps)
{
    double const sign = side == 0 ? 1.0 : -1.0;
    double const D = p.r1 - p.r2;
    if (mat_round_to_grid(D, eps) == 0.0) {
        double const o1 = sign * p.r1;
        double const o2 = sign * p.r2;
        t1 = Point2D(p.c1.x() + o1 * p.n.x(), p.c1.y() + o1 * p.n.y());
        t2 = Point2D(p.c2.x() + o2 * p.n.x(), p.c2.y() + o2 * p.n.y());
        return 1;
    }
    if (!(mat_round_to_grid(p.L * p.L - D * D, eps) > 0.0)) {
        return 0;
    }
    double const w = (p.L * p.L + D * D - std::max(p.L * p.L - D * D, 0.0)) / (2.0 * p.L);
    double const g = std::sqrt(D * D - w * w);
    double const a = w * p.r1 / D;
    double o1 = g * p.r1 / D;
    double o2 = o1 - g;
    if (magnitudes) {
        o1 = std::fabs(o1);
        o2 = std::fabs(o2);
    }
    t1 = combined(p.c1, a, p.u, sign * o1, p.n);
    t2 = combined(p.c2, a - w, p.u, sign * o2, p.n);
    return 1;
}

} // namespace

int tangente_punkt_kreis(Point2D const &p, Point2D const &c, double r, int side, Point2D &from,
                         Point2D &touch, double const &eps)
{
    Point2D const v = p - c;
    double const L = v.Length();
    if (eps > L) {
        return 0;
    }
    double const a = r * r / L;
    Point2D const u = v / L;
    double const h = std::sqrt(std::max(L * L - r * r, 0.0)) * r / L;
    touch = combined(c, a, u, side == 0 ? h : -h, u.Normale());
    from = p;
    return 1;
}

int tangente_kreis_kreis(Point2D const &c1, double r1, Point2D const &c2, double r2, int side,
                         int cross, Point2D &t1, Point2D &t2, int magnitudes, double eps)
{
    Point2D const d = c2 - c1;
    double const L = d.Length();
    Point2D const u = d / L;
    if (mat_round_to_grid(L, eps) == 0.0) {
        return 0;
    }
    CirclePair const pair{c1, r1, c2, r2, L, u, u.Normale()};
    return cross != 0 ? innerTangent(pair, side, magnitudes != 0, t1, t2, eps)
                      : outerTangent(pair, side, magnitudes != 0, t1, t2, eps);
}
