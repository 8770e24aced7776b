#include <OrvelMath/geom2d/construct2d_crossings.h>

#include <OrvelMath/engine/angles_p.h>

#include <algorithm>
#include <cmath>

double mat_round_to_grid(double x, double eps)
{
    return std::floor(x / eps + 0.5) * eps;
}

int intersect_line_circle(Point2D const &p0, Point2D const &p1, Point2D const &c, double r,
                          int which, Point2D &out, double eps)
{
    double const dx = p1.x() - p0.x();
    double const dy = p1.y() - p0.y();
    double const q = dx * dx + dy * dy;
    if (eps * eps > q) {
        return 0;
    }

    Point2D foot;
    if (q > 1e-100) { // a squared length
        double const t = ((c.x() - p0.x()) * dx + (c.y() - p0.y()) * dy) / q;
        foot = Point2D(p0.x() + t * dx, p0.y() + t * dy);
    }
    double fromCentre = (c - foot).Length();
    if (mat_round_to_grid(fromCentre - r, eps) > 0) {
        return 0;
    }
    if (fromCentre - r > 0) {
        fromCentre = r;
    }
    if (eps > std::fabs(fromCentre - r)) {
        out = foot;
        return 1;
    }

    double const h = std::sqrt(r * r - fromCentre * fromCentre);
    double const length = std::sqrt(q);
    double const x = h * dx / length;
    double const y = h * dy / length;
    out = which == 0 ? Point2D(foot.x() + x, foot.y() + y) : Point2D(foot.x() - x, foot.y() - y);
    return 1;
}

int intersect_circle_circle(Point2D const &c1, double r1, Point2D const &c2, double r2, int which,
                            Point2D &out, double eps)
{
    Point2D const d = c2 - c1;
    double const distance = d.Length();
    if (eps > distance) {
        return 0;
    }
    if (mat_round_to_grid(r1 + r2 - distance, eps) < 0 ||
        mat_round_to_grid(distance + r1 - r2, eps) < 0 ||
        mat_round_to_grid(distance + r2 - r1, eps) < 0) {
        return 0;
    }

    Point2D const u = d / distance;
    double const a = (distance * distance + r1 * r1 - r2 * r2) / (2 * distance);
    double const h = std::sqrt(std::max(r1 * r1 - a * a, 0.0));
    double const middleX = c1.x() + a * u.x();
    double const middleY = c1.y() + a * u.y();
    out = which == 0 ? Point2D(middleX + h * -u.y(), middleY + h * u.x())
                     : Point2D(middleX - h * -u.y(), middleY - h * u.x());
    return 1;
}

int projektion_punkt_auf_linie(Point2D const &p, Point2D const &a, Point2D const &b, Point2D &out,
                               double const &eps)
{
    Point2D const d = b - a;
    double const q = d.Length2();
    if (!(q > eps)) {
        return 0;
    }
    double const k = (p.x() - a.x()) * d.x() + (p.y() - a.y()) * d.y();
    out = Point2D(a.x() + k * d.x() / q, a.y() + k * d.y() / q);
    return 1;
}

int projektion_punkt_auf_kreis(Point2D const &p, Point2D const &c, double r, Point2D &out,
                               double const &eps)
{
    Point2D const v = p - c;
    double const q = v.Length2();
    if (!(q > eps)) {
        return 0;
    }
    double const length = std::sqrt(q);
    out = Point2D(c.x() + v.x() * r / length, c.y() + v.y() * r / length);
    return 1;
}

double mat_vektor_winkel(Point2D const &v)
{
    double w = v.x() / v.Length();
    if (w > 1) {
        w = 1;
    }
    if (w < -1) {
        w = -1;
    }
    // Divided first, where the arc helpers multiply first: the two differ in the last bits.
    double const angle = engine::radiansByPiTimes180(std::acos(w));
    return v.y() < 0 ? 360 - angle : angle;
}
