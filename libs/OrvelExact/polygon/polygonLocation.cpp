#include <OrvelExact/polygon/polygonLocation.h>

#include <OrvelExact/predicates/orientation.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvelExact {

namespace {

bool isBetween(double value, double a, double b)
{
    return std::min(a, b) <= value && value <= std::max(a, b);
}

Point2 nearestOfEdge(Point2 const &p, Point2 const &a, Point2 const &b)
{
    Point2 const along = b - a;
    double const squared = along.squaredLength();
    double const t = squared > 0.0 ? std::clamp((p - a).dot(along) / squared, 0.0, 1.0) : 0.0;
    return t < 0.5 ? a + t * along : b - (1.0 - t) * along;
}

} // namespace

/// Counts the edges that cross the ray from the point to the right; an edge has its lower end and
/// not its upper one.
PolygonLocation locateInPolygon(QVector<Point2> const &polygon, Point2 const &point, FillRule rule)
{
    if (!isFinite(point) || !areFinite(polygon)) {
        return {PolygonPlace::NotFinite, -1, 0};
    }
    int const n = polygon.size();
    int edge = -1;
    int crossings = 0;
    int winding = 0;
    for (int i = 0; i < n; ++i) {
        Point2 const &a = polygon.at(i);
        Point2 const &b = polygon.at(i + 1 == n ? 0 : i + 1);
        if (a == point) {
            return {PolygonPlace::Vertex, i, 0};
        }
        if (edge >= 0 || b == point || !isBetween(point.y(), a.y(), b.y())) {
            continue;
        }
        bool const isBelowA = a.y() > point.y();
        bool const isBelowB = b.y() > point.y();
        Sign const side = orientation2d(a, b, point);
        if (side == Sign::Zero && isBetween(point.x(), a.x(), b.x())) {
            edge = i;
        } else if (isBelowA != isBelowB && (side == Sign::Positive) == isBelowB) {
            ++crossings;
            winding += isBelowB ? 1 : -1;
        }
    }
    if (edge >= 0) {
        return {PolygonPlace::Edge, edge, 0};
    }
    bool const isInside = rule == FillRule::EvenOdd ? crossings % 2 != 0 : winding != 0;
    return {isInside ? PolygonPlace::Inside : PolygonPlace::Outside, -1, winding};
}

NearestOnPolygon nearestOnPolygon(QVector<Point2> const &polygon, Point2 const &point)
{
    NearestOnPolygon nearest;
    if (!isFinite(point) || !areFinite(polygon)) {
        nearest.status = Status::NotFinite;
        return nearest;
    }
    if (polygon.isEmpty()) {
        nearest.status = Status::Empty;
        return nearest;
    }
    double least = std::numeric_limits<double>::infinity();
    for (int i = 0; i < polygon.size(); ++i) {
        Point2 const p =
            nearestOfEdge(point, polygon.at(i), polygon.at(i + 1 == polygon.size() ? 0 : i + 1));
        double const distance = (p - point).length();
        if (distance < least || i == 0) {
            least = distance;
            nearest = {Status::Ok, distance, p, i};
        }
    }
    return nearest;
}

} // namespace orvelExact
