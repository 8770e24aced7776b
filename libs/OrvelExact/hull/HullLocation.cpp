#include <OrvelExact/hull/ConvexHull.h>

#include <OrvelExact/hull/HullSimplex_p.h>
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

Point3 nearestOfSegment(Point3 const &p, Point3 const &a, Point3 const &b)
{
    Point3 const along = b - a;
    double const squared = along.squaredLength();
    double const t = squared > 0.0 ? std::clamp((p - a).dot(along) / squared, 0.0, 1.0) : 0.0;
    return t < 0.5 ? a + t * along : b - (1.0 - t) * along;
}

double distanceToSegment(Point3 const &p, Point3 const &a, Point3 const &b)
{
    return (p - nearestOfSegment(p, a, b)).length();
}

/// Distance to a triangle with an area: to its plane above the inside, else to the nearest edge.
double distanceToTriangle(Point3 const &p, Point3 const &a, Point3 const &b, Point3 const &c)
{
    Point3 const normal = (b - a).cross(c - b);
    bool const isAboveInside = normal.cross(b - a).dot(p - a) >= 0.0 &&
                               normal.cross(c - b).dot(p - b) >= 0.0 &&
                               normal.cross(a - c).dot(p - c) >= 0.0;
    double const length = normal.length();
    if (isAboveInside && length > 0.0) {
        return std::fabs(normal.dot(p - a)) / length;
    }
    return std::min(
        {distanceToSegment(p, a, b), distanceToSegment(p, b, c), distanceToSegment(p, c, a)});
}

} // namespace

PointLocation ConvexHull::contains(Point3 const &point) const
{
    if (m_dimension < 0 || !isFinite(point)) {
        return PointLocation::NotFinite;
    }
    if (m_dimension < 2) {
        return locateOnSegment(point);
    }
    if (m_dimension == 2) {
        return locateInPolygon(point);
    }
    PointLocation location = PointLocation::Inside;
    for (int f = 0; f < facetCount(); ++f) {
        int const first = m_starts.at(f);
        Sign const side = orientation3d(corner(first), corner(first + 1), corner(first + 2), point);
        if (side == Sign::Positive) {
            return PointLocation::Outside;
        }
        location = side == Sign::Zero ? PointLocation::Boundary : location;
    }
    return location;
}

PointLocation ConvexHull::locateOnSegment(Point3 const &point) const
{
    Point3 const a = m_points.at(m_vertices.first());
    Point3 const b = m_points.at(m_vertices.last());
    bool isOn = areCollinear(a, b, point);
    for (int k = 0; k < 3; ++k) {
        isOn = isOn && isBetween(point[k], a[k], b[k]);
    }
    return isOn ? PointLocation::Boundary : PointLocation::Outside;
}

PointLocation ConvexHull::locateInPolygon(Point3 const &point) const
{
    if (orientation3d(corner(0), corner(1), corner(2), point) != Sign::Zero) {
        return PointLocation::Outside;
    }
    constexpr int axes[3][2] = {{0, 1}, {1, 2}, {2, 0}};
    for (auto const &axis : axes) {
        auto const flat = [&](Point3 const &p) { return Point2(p[axis[0]], p[axis[1]]); };
        Sign const turn = orientation2d(flat(corner(0)), flat(corner(1)), flat(corner(2)));
        if (turn == Sign::Zero) {
            continue; // the plane stands on this one
        }
        int const count = m_corners.size();
        for (int i = 0; i < count; ++i) {
            Sign const side =
                orientation2d(flat(corner(i)), flat(corner((i + 1) % count)), flat(point));
            if (side == opposite(turn)) {
                return PointLocation::Outside;
            }
        }
        return PointLocation::Boundary;
    }
    return PointLocation::Outside;
}

double ConvexHull::distanceToSurface(Point3 const &point) const
{
    if (m_dimension < 0 || !isFinite(point)) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    if (m_dimension < 2) {
        return distanceToSegment(point, m_points.at(m_vertices.first()),
                                 m_points.at(m_vertices.last()));
    }
    double least = std::numeric_limits<double>::infinity();
    for (int f = 0; f < facetCount(); ++f) {
        int const first = m_starts.at(f);
        for (int i = first + 2; i < m_starts.at(f + 1); ++i) {
            least =
                std::min(least, distanceToTriangle(point, corner(first), corner(i - 1), corner(i)));
        }
    }
    return least;
}

} // namespace orvelExact
