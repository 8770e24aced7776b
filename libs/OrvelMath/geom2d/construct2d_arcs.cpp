#include <OrvelMath/geom2d/construct2d_arcs.h>

#include <OrvelMath/engine/angles_p.h>
#include <OrvelMath/geom2d/concav2d_lines.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// Direction of v in degrees by the arc cosine of its cosine: 0 for the positive x axis.
///
/// Multiplied first, where `mat_vektor_winkel` divides first: the two differ in the last bits.
double directionOf(Point2D const &v, double cosine)
{
    double const angle = engine::radiansTimes180ByPi(std::acos(cosine));
    return v.y() < 0.0 ? 360.0 - angle : angle;
}

/// The same from the vector alone, with the cosine 1 for one without length.
double directionOrZero(Point2D const &v)
{
    double const length = v.Length();
    return directionOf(v, length == 0.0 ? 1.0 : v.x() / length);
}

} // namespace

int arc_line1end_to_line2anf(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                             Point2D const &p3, Point2D &m, double &radius, double const &eps)
{
    Point2D const n1 = (p1 - p0).Normale();
    Point2D const n2 = (p3 - p2).Normale();
    if (intersect_line_line(p1, p1 + n1, p2, p2 + n2, m, eps) == 0) {
        return 0;
    }
    radius = (m - p1).Length();
    return 1;
}

void adjust_arc_m2pnt(Point2D &m, Point2D &a, Point2D &b, double, int mode, double const &eps)
{
    Point2D const v = a - m;
    Point2D const w = b - m;
    if (eps > v.Length2() || eps > w.Length2()) { // squared lengths
        return;
    }
    double const a1 = directionOf(v, v.x() / v.Length());
    double a2 = directionOf(w, w.x() / w.Length());
    if (a2 - a1 < 0.0) {
        a2 += 360.0;
    }
    double const sweep = a2 - a1;
    bool const wanted = mode != 0 ? sweep <= 180.0 : sweep >= 180.0;
    if (!wanted) {
        std::swap(a, b);
    }
}

void mat_bounding_box_of_arc_m2pnt(Point2D const &m, Point2D const &a, Point2D const &b, double r,
                                   Point2D &lo, Point2D &hi, double)
{
    Point2D low(std::min(a.x(), b.x()), std::min(a.y(), b.y()));
    Point2D high(std::max(a.x(), b.x()), std::max(a.y(), b.y()));
    double a1 = directionOrZero(a - m);
    double a2 = directionOrZero(b - m);
    double const R = r < 0.0 ? 0.0 : r;
    if (a1 == a2) {
        a2 = 360.0; // a closed arc ends at 360, wherever it starts
    }
    if (a1 > a2) { // passes the positive x axis
        high.x(m.x() + R);
        if (a1 < 90.0) {
            high.y(m.y() + R);
        }
        if (a1 < 180.0) {
            low.x(m.x() - R);
        }
        if (a1 < 270.0) {
            low.y(m.y() - R);
        }
        a1 = 0.0;
    }
    if (a1 <= 90.0 && a2 >= 90.0) {
        high.y(m.y() + R);
    }
    if (a1 <= 180.0 && a2 >= 180.0) {
        low.x(m.x() - R);
    }
    if (a1 <= 270.0 && a2 >= 270.0) {
        low.y(m.y() - R);
    }
    if (a1 <= 360.0 && a2 >= 360.0) {
        high.x(m.x() + R);
    }
    lo = low;
    hi = high;
}
