#include <OrvelMath/geom2d/Math2D_p.h>
#include <OrvelMath/geom2d/polygonCrossings_p.h>
#include <OrvelMath/geom2d/quick/polygonCrossings_p.h>

namespace {

using polygonCrossings::Extent;
using polygonCrossings::Meeting;
using polygonCrossings::Place;
using polygonCrossings::Ray;
using polygonCrossings::Vertex;

bool isStrictlyBetween(double x, double a, double b)
{
    return (a < x && x < b) || (b < x && x < a);
}

/// The rules of `Math2DInsidePolygon`.
struct ParameterTest
{
    static constexpr Extent emptyExtent{1e300, -1e300};
    static constexpr double reach = 100.0;
    static constexpr bool measuresLengths = false;

    static bool isBeyond(double x, Extent const &extent, double /*tol*/)
    {
        return x > extent.max || extent.min > x;
    }

    static bool isOnOutline(Vertex const &cur, Vertex const &next, Ray const &ray)
    {
        return cur.isInBand() && next.isInBand() &&
               isStrictlyBetween(ray.start.x(), cur.point.x(), next.point.x());
    }

    static Meeting meeting(Point2D const &cur, Point2D const &next, Ray const &ray)
    {
        Point2D crossing;
        switch (Math2DIntersect2LinesWrong(cur, next, ray.start, ray.end, crossing, ray.tol)) {
        case NoIntersection:
            return Meeting::Misses;
        case ProperCrossing:
            return Meeting::Crosses;
        default:
            return Meeting::AtStart;
        }
    }
};

InsidePolyType typeOf(Place place)
{
    switch (place) {
    case Place::Inside:
        return InsidePolygon;
    case Place::OnOutline:
        return OnPolygonEdge;
    default:
        return OutsidePolygon;
    }
}

/// Gives the vertex at an index.
auto verticesOf(Point2D const *points)
{
    return [points](int i) -> Point2D const & { return points[i]; };
}

/// The extent as the caller gives it; both ends have to be there.
class GivenExtent
{
public:
    GivenExtent(double const *xmin, double const *xmax)
        : m_isThere(xmin != nullptr && xmax != nullptr)
        , m_extent(m_isThere ? Extent{*xmin, *xmax} : Extent{})
    {
    }

    Extent const *orNull() const { return m_isThere ? &m_extent : nullptr; }

private:
    bool m_isThere;
    Extent m_extent;
};

} // namespace

InsidePolyType definition::Math2DInsidePolygon(Point2D *points, int count, Point2D const &p,
                                               double *xmin, double *xmax, double tol)
{
    GivenExtent const given(xmin, xmax);
    return typeOf(
        polygonCrossings::locate<ParameterTest>(verticesOf(points), count, p, tol, given.orNull()));
}

InsidePolyType Math2DInsidePolygon(Point2D *points, int count, Point2D const &p, double *xmin,
                                   double *xmax, double tol)
{
    GivenExtent const given(xmin, xmax);
    Place place;
    if (polygonCrossings::quick::locate<ParameterTest>(verticesOf(points), count, p, tol,
                                                       given.orNull(), place)) {
        return typeOf(place);
    }
    return definition::Math2DInsidePolygon(points, count, p, xmin, xmax, tol);
}
