#include <OrvelMath/geom2d/concav2d_lines.h>
#include <OrvelMath/geom2d/concav2d_p.h>
#include <OrvelMath/geom2d/quick/directions_p.h>
#include <OrvelMath/geom2d/quick/segmentCrossings_p.h>

#include <cmath>
#include <utility>

int intersect_line_line(Point2D const &p0, Point2D const &p1, Point2D const &p2, Point2D const &p3,
                        Point2D &out, double const &eps)
{
    double const dx = p1.x() - p0.x();
    double const dy = p1.y() - p0.y();
    double const ex = p3.x() - p2.x();
    double const ey = p3.y() - p2.y();
    double const cross = dx * ey - dy * ex;
    if (eps > std::fabs(cross)) {
        return 0;
    }
    double const t = ((p2.x() - p0.x()) * ey - (p2.y() - p0.y()) * ex) / cross;
    out = Point2D(p0.x() + t * dx, p0.y() + t * dy);
    return 1;
}

namespace concav2d {

int comparePoints(Point2D const &p, Point2D const &q, double tol)
{
    if (distance(p, q) <= tol) {
        return 0;
    }
    double const dx = q.x() - p.x();
    if (dx > tol) {
        return -1;
    }
    if (dx < -tol) {
        return 1;
    }
    return q.y() - p.y() > tol ? -1 : 1;
}

int isColinear(Point2D const &p0, Point2D const &p1, Point2D const &p2, double tol)
{
    double const d01 = distance(p0, p1);
    double const d02 = distance(p0, p2);
    double const d12 = distance(p1, p2);
    if (tol >= std::fabs(d01 - d02 - d12)) {
        return comparePoints(p0, p1, tol) == -1 ? 2 : 4;
    }
    if (tol >= std::fabs(d02 - d01 - d12)) {
        return comparePoints(p0, p2, tol) == -1 ? 1 : 6;
    }
    if (tol >= std::fabs(d12 - d01 - d02)) {
        return comparePoints(p1, p2, tol) == -1 ? 3 : 5;
    }
    return 0;
}

int ccw_points(Point2D const &a, Point2D const &b, Point2D const &c, double tol)
{
    double const dx = b.x() - a.x();
    double const dy = b.y() - a.y();
    double const ex = c.x() - a.x();
    double const ey = c.y() - a.y();
    double const turn = ey * dx - ex * dy;
    if (turn > tol) {
        return 1;
    }
    if (turn < -tol) {
        return -1;
    }
    if (ex * dx < -tol || ey * dy < -tol) {
        return -2;
    }
    if ((dx * dx + dy * dy) - (ex * ex + ey * ey) < -tol) {
        return 2;
    }
    return 0;
}

bool definition::areLinesParallel(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                  Point2D const &p3, double tol)
{
    return tol >= std::fabs(WinVec(p0 - p1) - WinVec(p2 - p3));
}

bool areLinesParallel(Point2D const &p0, Point2D const &p1, Point2D const &p2, Point2D const &p3,
                      double tol)
{
    if (directions::areApart(p0 - p1, p2 - p3, tol)) {
        return false;
    }
    return definition::areLinesParallel(p0, p1, p2, p3, tol);
}

int distanceBetweenParallels(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                             Point2D const &p3, double &dist, double /*tol*/)
{
    Point2D const normal(p1.y() - p0.y(), -(p1.x() - p0.x()));
    double const ex = p3.x() - p2.x();
    double const ey = p3.y() - p2.y();
    double const cross = normal.x() * ey - normal.y() * ex;
    if (std::fabs(cross) < 1e-100) { // an area
        return 1;
    }
    double const t = ((p2.x() - p0.x()) * ey - (p2.y() - p0.y()) * ex) / cross;
    dist = distance(p0, Point2D(p0.x() + t * normal.x(), p0.y() + t * normal.y()));
    return 0;
}

int pointOnLine(Point2D const &p0, Point2D const &p1, Point2D const &p, double tol)
{
    double const d0 = distance(p0, p);
    double const d1 = distance(p1, p);
    if (tol >= d0) {
        return 1;
    }
    if (tol >= d1) {
        return 2;
    }
    return std::fabs(distance(p0, p1) - d0 - d1) > tol ? 0 : 3;
}

int intersectLineLine(Point2D const &p0, Point2D const &p1, Point2D const &p2, Point2D const &p3,
                      Point2D &out)
{
    double const dx = p0.x() - p1.x();
    double const dy = p0.y() - p1.y();
    double const ex = p2.x() - p3.x();
    double const ey = p2.y() - p3.y();
    double const determinant = dx * ey - ex * dy;
    if (determinant == 0.0) {
        return 1;
    }
    double const first = p1.y() * p0.x() - p1.x() * p0.y();
    double const second = p3.y() * p2.x() - p3.x() * p2.y();
    out =
        Point2D((ex * first - dx * second) / determinant, (ey * first - dy * second) / determinant);
    return 0;
}

// A function of its own, so that a quick answer need not save any registers.
[[gnu::noinline]] IntersectionType
definition::intersectEdgeEdge(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                              Point2D const &p3, Point2D &out, double tol)
{
    Point2D crossing;
    if (intersect_line_line(p0, p1, p2, p3, crossing, 1e-100) == 0) { // an area
        return NoIntersection;
    }

    double const d0 = distance(p0, crossing);
    double const d1 = distance(p1, crossing);
    double const e0 = distance(p2, crossing);
    double const e1 = distance(p3, crossing);
    bool const offFirst = std::fabs(distance(p0, p1) - d0 - d1) > tol;
    bool const offSecond = std::fabs(distance(p2, p3) - e0 - e1) > tol;
    out = crossing;
    if (offFirst || offSecond) {
        return NoIntersection;
    }

    bool const atEndOfFirst = tol >= d0 || tol >= d1;
    bool const atEndOfSecond = tol >= e0 || tol >= e1;
    if (atEndOfFirst && atEndOfSecond) {
        return EndToEnd;
    }
    return atEndOfFirst || atEndOfSecond ? EndOnEdge : Crossing;
}

IntersectionType intersectEdgeEdge(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                   Point2D const &p3, Point2D &out, double tol)
{
    segmentCrossings::ByLengths const quick(p0, p1, p2, p3, tol);
    if (quick.isProved) {
        quick.deliver(out);
        return quick.isOff ? NoIntersection : Crossing;
    }
    return definition::intersectEdgeEdge(p0, p1, p2, p3, out, tol);
}

bool doOverlap(Point2D const &p0, Point2D const &p1, Point2D const &p2, Point2D const &p3,
               Point2D *const sorted, double tol)
{
    if (tol >= distance(p0, p1) || tol >= distance(p2, p3)) {
        return false;
    }
    for (Point2D const *p : {&p2, &p3}) {
        int const turn = ccw_points(p0, p1, *p, tol);
        if (turn == 1 || turn == -1) {
            return false;
        }
    }
    int const order = comparePoints(p0, p2, tol);
    if (order != 0 && order == comparePoints(p1, p2, tol) && order == comparePoints(p0, p3, tol) &&
        order == comparePoints(p1, p3, tol)) {
        return false;
    }

    sorted[0] = p0;
    sorted[1] = p1;
    sorted[2] = p2;
    sorted[3] = p3;
    // The comparison is no strict weak order, so the exchanges are spelled out: no library sort.
    for (int i = 0; i < 4; ++i) {
        for (int j = i + 1; j < 4; ++j) {
            if (comparePoints(sorted[i], sorted[j], tol) == 1) {
                std::swap(sorted[i], sorted[j]);
            }
        }
    }
    return comparePoints(sorted[1], sorted[2], tol) != 0;
}

} // namespace concav2d
