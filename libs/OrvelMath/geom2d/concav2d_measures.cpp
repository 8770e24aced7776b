#include <OrvelMath/geom2d/concav2d_measures.h>

#include <OrvelMath/geom2d/concav2d_arcs.h>
#include <OrvelMath/geom2d/concav2d_p.h>

#include <algorithm>
#include <cmath>

namespace concav2d {

namespace {

/// Takes whole turns off an angle above 360 degrees; the result lies above 0 and at most at 360.
/// The remainder is exact, as the repeated subtraction of 360 is.
double reducedTurn(double angle)
{
    if (!(angle > 360)) {
        return angle;
    }
    double const rest = std::fmod(angle, 360.0);
    return rest == 0.0 ? 360.0 : rest;
}

/// Whether the sweep from start to end, in degrees, passes a direction strictly.
bool passes(double start, double end, double direction)
{
    return (direction > start && end > direction) || (start > direction && end > direction + 360);
}

void squareBox(Point2D const &centre, double halfWidth, double &xmin, double &xmax, double &ymin,
               double &ymax)
{
    xmin = centre.x() - halfWidth;
    xmax = centre.x() + halfWidth;
    ymin = centre.y() - halfWidth;
    ymax = centre.y() + halfWidth;
}

} // namespace

int getArcAngle(Point2D const &p0, Point2D const &p1, Point2D const &p2, double &angle, bool start,
                double tol)
{
    Point2D centre;
    if (getArcMiddle(p0, p1, p2, centre, tol) != 0) {
        return 1;
    }
    return getArcAngle(p0, p1, p2, centre, angle, start, tol);
}

int getArcAngle(Point2D const &p0, Point2D const &p1, Point2D const &p2, Point2D const &centre,
                double &angle, bool start, double tol)
{
    Sweep const sweep = arcSweep(p0, p1, p2, centre, tol);
    angle = start ? sweep.low : sweep.high;
    return 0;
}

int getArcRadius(Point2D const &p0, Point2D const &p1, Point2D const &p2, double &radius,
                 double tol)
{
    Point2D centre;
    if (getArcMiddle(p0, p1, p2, centre, tol) != 0) {
        return 1;
    }
    return getArcRadius(p0, p1, p2, centre, radius);
}

int getArcRadius(Point2D const &p0, Point2D const & /*p1*/, Point2D const & /*p2*/,
                 Point2D const &centre, double &radius)
{
    radius = distance(p0, centre);
    return 0;
}

int getEllipsearcExtrema(Point2D const &centre, double a, double /*b*/, double /*rotation*/,
                         double /*start*/, double /*end*/, double &xmin, double &xmax, double &ymin,
                         double &ymax, double /*tol*/)
{
    squareBox(centre, a, xmin, xmax, ymin, ymax);
    return 0;
}

int getEllipseExtrema(Point2D const &centre, double a, double /*b*/, double /*rotation*/,
                      double &xmin, double &xmax, double &ymin, double &ymax, double /*tol*/)
{
    squareBox(centre, a, xmin, xmax, ymin, ymax);
    return 0;
}

int getEllipseExtremaAngles(Point2D const & /*centre*/, double a, double b, double rotation,
                            double &t1, double &t2, double tol)
{
    if (tol > std::fabs(rotation - 90) || tol > std::fabs(rotation - 270) ||
        tol > std::fabs(rotation - 180) || tol > std::fabs(rotation) ||
        tol > std::fabs(rotation - 360)) {
        t1 = engine::degreesTimesFactor(360 - rotation);
        t2 = engine::degreesTimesFactor(360 - rotation + 90);
        return 0;
    }
    double const k = std::tan(engine::degreesTimesFactor(rotation));
    double const q = a / b;
    t1 = std::atan(-q * k);
    t2 = std::atan(q / k);
    return 0;
}

int getArcExtrema(Point2D const &p0, Point2D const &p1, Point2D const &p2, double &xmin,
                  double &xmax, double &ymin, double &ymax)
{
    double const tol = 1e-6; // degrees
    Point2D centre;
    if (getArcMiddle(p0, p1, p2, centre, tol) != 0) {
        return 1;
    }
    Sweep const sweep = arcSweep(p0, p1, p2, centre, tol);
    return getArcExtrema(centre, distance(p0, centre), sweep.low, sweep.high, xmin, xmax, ymin,
                         ymax);
}

int getArcExtrema(Point2D const &centre, double radius, double start, double end, double &xmin,
                  double &xmax, double &ymin, double &ymax)
{
    squareBox(centre, radius, xmin, xmax, ymin, ymax);
    Point2D first;
    Point2D last;
    getCirclePoint(centre, radius, start, first);
    getCirclePoint(centre, radius, end, last);

    double const from = reducedTurn(start);
    double const reducedEnd = reducedTurn(end);
    double const to = from > reducedEnd ? reducedEnd + 360 : reducedEnd;
    // The reduced start is at most 360, so the right-most direction has no second turn to look at.
    if (!(360 > from && to > 360)) {
        xmax = std::max(first.x(), last.x());
    }
    if (!passes(from, to, 180)) {
        xmin = std::min(first.x(), last.x());
    }
    if (!passes(from, to, 90)) {
        ymax = std::max(first.y(), last.y());
    }
    if (!passes(from, to, 270)) {
        ymin = std::min(first.y(), last.y());
    }
    return 0;
}

int getEllipsePointNormal(Point2D const &centre, double a, double b, double rotation,
                          Point2D const &p, Point2D &out)
{
    double const r = engine::degreesTimesFactor(rotation);
    Point2D const q = turned(p - centre, -r);
    // The root of the sum of the squares, not of their difference: these are not the foci.
    double const f = std::sqrt(a * a + b * b);
    double const g1 = WinVec(f - q.x(), -q.y());
    double const g2 = WinVec(-f - q.x(), -q.y());
    double h = g2 * 0.5;
    if (g1 > 180) {
        h += 180;
    }
    h -= 180;
    double const direction = engine::degreesTimesFactor(h);
    Point2D const normal(std::cos(direction), std::sin(direction));
    out = centre + turned(q + normal, r);
    return 0;
}

int getEllipsePointTangent(Point2D const &centre, double a, double b, double rotation,
                           Point2D const &p, Point2D &out)
{
    double const r = engine::degreesTimesFactor(rotation);
    Point2D normalPoint;
    getEllipsePointNormal(centre, a, b, rotation, p, normalPoint);
    Point2D const q = turned(p - centre, -r);
    Point2D const d = turned(normalPoint - centre, -r) - q;
    out = centre + turned(q + Point2D(-d.y(), d.x()), r);
    return 0;
}

int getCirclePointTangent(Point2D const &centre, Point2D const &p, Point2D &out)
{
    Point2D const v = p - centre;
    out = p + Point2D(-v.y(), v.x());
    return 0;
}

} // namespace concav2d
