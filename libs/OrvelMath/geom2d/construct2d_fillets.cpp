#include <OrvelMath/geom2d/construct2d_fillets.h>

#include <OrvelMath/geom2d/concav2d_lines.h>
#include <OrvelMath/geom2d/construct2d_arcs.h>
#include <OrvelMath/geom2d/construct2d_crossings.h>
#include <OrvelMath/geom2d/planeVectors_p.h>

#include <cmath>

namespace {

using planeVectors::combined;

/// The step of length r that leads from a line of direction d to its parallel on the side chosen.
Point2D offset(Point2D const &d, double r, int side)
{
    double const length = d.Length();
    Point2D const left(r * -d.y() / length, r * d.x() / length);
    return side != 0 ? -left : left;
}

/// Where a circle of radius r about m touches one about c at the distance R from m.
Point2D touchingPoint(Point2D const &m, Point2D const &c, double r, double R)
{
    return Point2D(m.x() + (c.x() - m.x()) * r / R, m.y() + (c.y() - m.y()) * r / R);
}

} // namespace

int fillet_line_line(Point2D const &p0, Point2D const &p1, Point2D const &p2, Point2D const &p3,
                     double r, int side1, int side2, Point2D &m, Point2D &t1, Point2D &t2,
                     double const &eps)
{
    Point2D const d1 = p1 - p0;
    Point2D const d2 = p3 - p2;
    if (eps > d1.Length2() || eps > d2.Length2()) { // squared lengths
        return 0;
    }
    Point2D const o1 = offset(d1, r, side1);
    Point2D const o2 = offset(d2, r, side2);
    if (intersect_line_line(p0 + o1, p1 + o1, p2 + o2, p3 + o2, m, eps) == 0) {
        return 0;
    }
    projektion_punkt_auf_linie(m, p0, p1, t1, eps);
    projektion_punkt_auf_linie(m, p2, p3, t2, eps);
    adjust_arc_m2pnt(m, t1, t2, r, 1, eps);
    return 1;
}

int fillet_kreis_kreis(Point2D const &c1, double r1, Point2D const &c2, double r2, double r,
                       int side, int inner, Point2D &m, Point2D &t1, Point2D &t2, double const &eps)
{
    Point2D const d = c2 - c1;
    double const L = d.Length();
    double const R1 = inner != 0 ? r - r1 : r + r1;
    double const R2 = inner != 0 ? r - r2 : r + r2;
    if (1e-5 > L || R1 < 0.0 || R2 < 0.0) { // a length, independent of eps
        return 0;
    }
    double const a = (L * L + R1 * R1 - R2 * R2) / (2.0 * L);
    double const hh = R1 * R1 - a * a;
    if (hh < 0.0) {
        return 0;
    }
    Point2D const u = d / L;
    Point2D const n = side != 0 ? -u.Normale() : u.Normale();
    m = combined(c1, a, u, std::sqrt(hh), n);
    t1 = touchingPoint(m, c1, r, R1);
    t2 = touchingPoint(m, c2, r, R2);
    adjust_arc_m2pnt(m, t1, t2, r, 1, eps);
    return 1;
}

int fillet_line_circle(Point2D const &p0, Point2D const &p1, Point2D const &c, double rc, double r,
                       int side, int far, Point2D &m, Point2D &t1, Point2D &t2, int inner,
                       double const &eps)
{
    Point2D foot; // stays the origin for a line without length
    projektion_punkt_auf_linie(c, p0, p1, foot, eps);
    Point2D const w = c - foot;
    double const D = w.Length();
    if (eps > D) {
        return 0;
    }
    Point2D const e = w / D;
    double const G = far == 0 ? D - r : D + r;     // circle's centre to the line of fillet centres
    double const H = inner == 0 ? rc + r : rc - r; // circle's centre to the fillet's centre
    if (std::fabs(G) > std::fabs(H)) {
        return 0;
    }
    double const along = std::sqrt(H * H - G * G);
    m = combined(foot, far == 0 ? r : -r, e, side != 0 ? -along : along, e.Normale());
    projektion_punkt_auf_linie(m, p0, p1, t1, eps);
    projektion_punkt_auf_kreis(m, c, rc, t2, eps);
    adjust_arc_m2pnt(m, t1, t2, r, 1, eps);
    return 1;
}
