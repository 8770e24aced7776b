#include <OrvelMath/geom2d/concav2d_sampling.h>

#include <OrvelMath/geom2d/concav2d_arcs.h>
#include <OrvelMath/geom2d/concav2d_p.h>

#include <cmath>
#include <memory>

namespace concav2d {

namespace {

constexpr double fullTurn = 6.283185307179586; // radians

double stepOrFiveDegrees(double step)
{
    return step == 0.0 ? 0.08726646259971647 : step;
}

/// An ellipse with its semi-axes and the cosine and sine of its rotation.
struct TurnedEllipse
{
    TurnedEllipse(Point2D const &middle, Point2D const &axisA, Point2D const &axisB, double turn)
        : centre(middle)
        , a(length(axisA))
        , b(length(axisB))
        , cosR(std::cos(turn))
        , sinR(std::sin(turn))
    {
    }

    Point2D pointAt(double t) const
    {
        double const cosT = std::cos(t);
        double const sinT = std::sin(t);
        return Point2D(centre.x() + cosR * a * cosT - sinR * b * sinT,
                       centre.y() + sinR * a * cosT + cosR * b * sinT);
    }

    Point2D centre;
    double a;
    double b;
    double cosR;
    double sinR;
};

/// Empties a list and leaves the points it refers to alone. `clear` would do the same, but
/// inlined GCC 12 takes its temporary for something that it deletes.
void removeAll(QLinkedList<Point2D *> &points)
{
    QLinkedList<Point2D *> former;
    points.swap(former);
}

Point2D circlePoint(Point2D const &centre, double radius, double t)
{
    return Point2D(centre.x() + radius * std::cos(t), centre.y() + radius * std::sin(t));
}

/// Appends a point of its own to the list. When memory for the list runs out, the point is freed.
void append(QLinkedList<Point2D *> &points, Point2D const &point)
{
    auto owned = std::make_unique<Point2D>(point);
    points.append(owned.get());
    static_cast<void>(owned.release()); // it is the list's now
}

} // namespace

int getArcPoints(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                 QLinkedList<Point2D *> &points, double tol, double step)
{
    removeAll(points);
    Point2D centre;
    if (getArcMiddle(p0, p1, p2, centre, tol) != 0) {
        return 1;
    }
    Sweep const sweep = arcSweep(p0, p1, p2, centre, 1e-6); // degrees
    double const low = engine::degreesTimesFactor(sweep.low);
    double high = engine::degreesTimesFactor(sweep.high);
    double const radius = distance(p0, centre);
    double const stride = stepOrFiveDegrees(step);
    if (low > high) {
        high += fullTurn;
    }
    for (double t = low; high >= t; t += stride) {
        append(points, circlePoint(centre, radius, t));
    }
    append(points, circlePoint(centre, radius, high));
    return 0;
}

int getCirclePoints(Point2D const &centre, double radius, QLinkedList<Point2D *> &points,
                    double step)
{
    removeAll(points);
    double const stride = stepOrFiveDegrees(step);
    double t = 0.0;
    do {
        append(points, circlePoint(centre, radius, t));
        t += stride;
    } while (fullTurn >= t);
    append(points, circlePoint(centre, radius, fullTurn));
    return 0;
}

int getEllipseArcPoints(Point2D const &centre, Point2D const &axisA, Point2D const &axisB,
                        double start, double end, QLinkedList<Point2D *> &points, double step)
{
    removeAll(points);
    TurnedEllipse const ellipse(centre, axisA, axisB, engine::degreesTimesFactor(WinVec(axisA)));
    double low = engine::degreesTimesFactor(start);
    double const high = engine::degreesTimesFactor(end);
    double const stride = stepOrFiveDegrees(step);
    // Here the start is lowered, where getArcPoints raises the end.
    if (low > high) {
        low -= fullTurn;
    }
    for (double t = low; high >= t; t += stride) {
        append(points, ellipse.pointAt(t));
    }
    append(points, ellipse.pointAt(high));
    return 0;
}

int getEllipsePoints(Point2D const &centre, Point2D const &axisA, Point2D const &axisB,
                     double rotation, QLinkedList<Point2D *> &points, double step)
{
    removeAll(points);
    TurnedEllipse const ellipse(centre, axisA, axisB, engine::degreesTimesFactor(rotation));
    double const stride = stepOrFiveDegrees(step);
    double t = 0.0;
    do {
        append(points, ellipse.pointAt(t));
        t += stride;
    } while (fullTurn >= t);
    append(points, ellipse.pointAt(fullTurn));
    return 0;
}

int getEllipsePoint(Point2D const &centre, double a, double b, Point2D &out, double rotation,
                    double angle)
{
    double const r = engine::degreesTimesFactor(rotation);
    double const t = engine::degreesTimesFactor(angle);
    Point2D const local(a * std::cos(t), b * std::sin(t));
    out = centre + turned(local, r);
    return 0;
}

int getEllipsePoint(Point2D const &centre, Point2D const &axisA, Point2D const &axisB, Point2D &out,
                    double rotation, double angle)
{
    return getEllipsePoint(centre, length(axisA), length(axisB), out, rotation, angle);
}

} // namespace concav2d
