#include <OrvelMath/geom2d/concav2d_arcs.h>
#include <OrvelMath/geom2d/concav2d_lines.h>
#include <OrvelMath/geom2d/concav2d_p.h>
#include <OrvelMath/geom2d/quick/directions_p.h>

#include <cmath>

namespace concav2d {

namespace {

/// Whether two angles in degrees, differing by `difference`, name the same direction.
bool sameDirection(double difference, double tol)
{
    return tol >= difference || tol >= std::fabs(difference - 360);
}

} // namespace

int ccw_angle_origin(double a, double m, double b, double tol)
{
    if (b > 360 && a > m) {
        m = m + 360;
    }
    if (sameDirection(std::fabs(a - m), tol) || sameDirection(std::fabs(m - b), tol)) {
        return 2;
    }
    if (sameDirection(std::fabs(a - b), tol)) {
        return 0;
    }
    bool const beforeEnd = b - m > tol;
    bool const afterStart = m - a > tol;
    if (a - b > tol) {
        return beforeEnd || afterStart ? 1 : -1;
    }
    return beforeEnd && afterStart ? 1 : -1;
}

int definition::ccw_vectors_origin(Point2D const &u, Point2D const &v, Point2D const &w, double tol)
{
    double const coincide = 1e-6; // a length
    if (comparePoints(u, v, coincide) == 0 || comparePoints(u, w, coincide) == 0 ||
        comparePoints(v, w, coincide) == 0) {
        return 0;
    }
    return ccw_angle_origin(WinVec(u), WinVec(v), WinVec(w), tol);
}

int ccw_vectors_origin(Point2D const &u, Point2D const &v, Point2D const &w, double tol)
{
    int const order = directions::orderOf(u, v, w, tol);
    return order != 0 ? order : definition::ccw_vectors_origin(u, v, w, tol);
}

Sweep arcSweep(Point2D const &p0, Point2D const &p1, Point2D const &p2, Point2D const &centre,
               double tol)
{
    Point2D const u = p0 - centre;
    Point2D const w = p2 - centre;
    if (ccw_vectors_origin(u, p1 - centre, w, tol) < 0) {
        return {WinVec(w), WinVec(u)};
    }
    return {WinVec(u), WinVec(w)};
}

int getArcMiddle(Point2D const &p0, Point2D const &p1, Point2D const &p2, Point2D &centre,
                 double /*tol*/)
{
    double const dx = p1.x() - p0.x();
    double const dy = p1.y() - p0.y();
    double const ex = p1.x() - p2.x();
    double const ey = p1.y() - p2.y();
    Point2D const m1(p0.x() + dx * 0.5, p0.y() + dy * 0.5);
    Point2D const m2(p2.x() + ex * 0.5, p2.y() + ey * 0.5);
    return intersectLineLine(m1, Point2D(m1.x() + -dy, m1.y() + dx), m2,
                             Point2D(m2.x() + -ey, m2.y() + ex), centre);
}

int getCirclePoint(Point2D const &centre, double radius, double angle, Point2D &out)
{
    double const t = engine::degreesTimesPiBy180(angle);
    out = Point2D(centre.x() + radius * std::cos(t), centre.y() + radius * std::sin(t));
    return 0;
}

double getEllipsePointAngle(Point2D const &p, double semiA, double semiB, double rotation)
{
    Point2D const local = turned(p, engine::degreesTimesPiBy180(-rotation));
    return WinVec(local.x() / semiA, local.y() / semiB);
}

int pointOnArc(Point2D const &start, Point2D const &through, Point2D const &end, Point2D const &p,
               double tolDist, double tolAngle)
{
    if (comparePoints(start, p, tolDist) == 0) {
        return 1;
    }
    if (comparePoints(end, p, tolDist) == 0) {
        return 2;
    }
    double const a = WinVec(start);
    double const b = WinVec(end);
    int const sideOfThrough = ccw_angle_origin(a, WinVec(through), b, tolAngle);
    int const sideOfPoint = ccw_angle_origin(a, WinVec(p), b, tolAngle);
    return sideOfThrough == sideOfPoint ? 3 : 0;
}

int pointOnArc(double a, double m, double b, Point2D const &p, double tolDist, double tolAngle)
{
    if (ccw_angle_origin(a, m, b, tolAngle) == 1) {
        return pointOnArc(a, b, p, tolDist);
    }
    return pointOnArc(b, a, p, tolDist);
}

int pointOnArc(double a, double b, Point2D const &p, double tol)
{
    if (sameDirection(std::fabs(a - b), tol)) {
        return 3;
    }
    double const t = WinVec(p);
    if (sameDirection(std::fabs(a - t), tol)) {
        return 1;
    }
    if (sameDirection(std::fabs(b - t), tol)) {
        return 2;
    }
    return ccw_angle_origin(a, t, b, tol) == 1 ? 3 : 0;
}

int pointOnEllipsearc(double a, double b, double rotation, Point2D const &p, double semiA,
                      double semiB, double tol)
{
    double const t = getEllipsePointAngle(p, semiA, semiB, rotation);
    if (sameDirection(std::fabs(a - t), tol)) {
        return 1;
    }
    if (sameDirection(std::fabs(b - t), tol)) {
        return 2;
    }
    return ccw_angle_origin(a, t, b, tol) == 1 ? 3 : 0;
}

int isPointOnArc(Point2D const &start, Point2D const &through, Point2D const &end, Point2D const &p,
                 double &angle, double tol)
{
    Point2D centre;
    if (getArcMiddle(start, through, end, centre, tol) != 0) {
        return 1;
    }
    Sweep sweep = arcSweep(start, through, end, centre, tol);
    if (sweep.low > sweep.high) {
        sweep.high += 360;
    }
    double direction = WinVec(p - centre);
    if (sweep.low > direction) {
        direction += 360;
    }
    angle = direction;
    if (direction <= sweep.low + tol) {
        return 1;
    }
    return direction >= sweep.high - tol ? 1 : 0;
}

int isPointOnArc(Point2D const &centre, double /*radius*/, double a, double b, Point2D const &p,
                 double &angle, double tol)
{
    double direction = WinVec(p - centre);
    if (a > direction) {
        direction += 360;
    }
    angle = direction;
    if (direction <= a + tol) {
        return 1;
    }
    double const end = a > b ? b + 360 : b;
    return direction >= end - tol ? 1 : 0;
}

} // namespace concav2d
