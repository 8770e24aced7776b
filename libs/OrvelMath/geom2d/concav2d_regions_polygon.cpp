#include <OrvelMath/geom2d/concav2d_lines.h>
#include <OrvelMath/geom2d/concav2d_p.h>
#include <OrvelMath/geom2d/polygonCrossings_p.h>
#include <OrvelMath/geom2d/quick/polygonCrossings_p.h>

namespace concav2d {

namespace {

using polygonCrossings::Extent;
using polygonCrossings::Meeting;
using polygonCrossings::Place;
using polygonCrossings::Ray;
using polygonCrossings::Vertex;

bool isBetween(double x, double a, double b)
{
    return (a <= x && x <= b) || (b <= x && x <= a);
}

bool isWithin(double x, double middle, double tol)
{
    return x >= middle - tol && x <= middle + tol;
}

/// The rules of `pointInsidePolygone`.
struct LengthTest
{
    static constexpr Extent emptyExtent{2147483647.0, -2147483648.0};
    static constexpr double reach = 10000.0;
    static constexpr bool measuresLengths = true;

    static bool isBeyond(double x, Extent const &extent, double tol)
    {
        return x > extent.max + tol || extent.min - tol > x;
    }

    static bool isOnOutline(Vertex const &cur, Vertex const &next, Ray const &ray)
    {
        double const x = ray.start.x();
        if (cur.isInBand() && next.isInBand() && isBetween(x, cur.point.x(), next.point.x())) {
            return true;
        }
        return (cur.isInBand() && isWithin(cur.point.x(), x, ray.tol)) ||
               (next.isInBand() && isWithin(next.point.x(), x, ray.tol));
    }

    static Meeting meeting(Point2D const &cur, Point2D const &next, Ray const &ray)
    {
        Point2D crossing;
        switch (intersectEdgeEdge(cur, next, ray.start, ray.end, crossing, ray.tol)) {
        case NoIntersection:
            return Meeting::Misses;
        case Crossing:
            return Meeting::Crosses;
        default:
            return Meeting::AtStart;
        }
    }
};

LocationType locationOf(Place place)
{
    switch (place) {
    case Place::Inside:
        return Inside;
    case Place::OnOutline:
        return OnBoundary;
    default:
        return Outside;
    }
}

/// Gives the vertex at an index.
auto verticesOf(PPtrOrderedVector<Point2D> const &polygon)
{
    return [first = polygon.begin()](int i) -> Point2D const & { return **(first + i); };
}

} // namespace

LocationType definition::pointInsidePolygone(PPtrOrderedVector<Point2D> const &polygon,
                                             Point2D const &p, double tol)
{
    return locationOf(
        polygonCrossings::locate<LengthTest>(verticesOf(polygon), polygon.size(), p, tol, nullptr));
}

LocationType pointInsidePolygone(PPtrOrderedVector<Point2D> const &polygon, Point2D const &p,
                                 double tol)
{
    Place place;
    if (polygonCrossings::quick::locate<LengthTest>(verticesOf(polygon), polygon.size(), p, tol,
                                                    nullptr, place)) {
        return locationOf(place);
    }
    return definition::pointInsidePolygone(polygon, p, tol);
}

} // namespace concav2d
