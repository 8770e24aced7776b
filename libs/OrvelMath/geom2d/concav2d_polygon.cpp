#include <OrvelMath/geom2d/concav2d_lines.h>
#include <OrvelMath/geom2d/concav2d_regions.h>
#include <OrvelMath/geom2d/rayBand_p.h>

namespace concav2d {

namespace {

bool isBetween(double x, double a, double b)
{
    return (a <= x && x <= b) || (b <= x && x <= a);
}

bool isWithin(double x, double middle, double tol)
{
    return x >= middle - tol && x <= middle + tol;
}

} // namespace

LocationType pointInsidePolygone(PPtrOrderedVector<Point2D> const &polygon, Point2D const &p,
                                 double tol)
{
    using rayBand::Level;

    int const count = polygon.size();
    if (count < 3)
        return Outside;
    auto const at = [&polygon](int i) -> Point2D const & { return *polygon[i]; };
    rayBand::Extent const extent = rayBand::xExtent(at, count, {2147483647.0, -2147483648.0});
    if (p.x() > extent.max + tol || extent.min - tol > p.x())
        return Outside;

    Point2D const rayEnd(extent.max + 10000.0, p.y());
    rayBand::Band const band{p.y() - tol, p.y() + tol};
    int const start = rayBand::firstOutside(at, count, band);
    if (start < 0)
        return Outside;

    rayBand::EdgeFilter const filter(p, rayEnd.x(), extent.min, tol);
    int crossings = 0;
    auto const onBoundary = [&](Point2D const &cur, Level curLevel, Point2D const &next,
                                Level nextLevel, Level last) {
        bool const curInBand = curLevel == Level::InBand;
        bool const nextInBand = nextLevel == Level::InBand;
        if (curInBand && nextInBand && isBetween(p.x(), cur.x(), next.x()))
            return true;
        if (curInBand && isWithin(cur.x(), p.x(), tol))
            return true;
        if (nextInBand && isWithin(next.x(), p.x(), tol))
            return true;
        if (curInBand) {
            if (!nextInBand && cur.x() > p.x() - tol && nextLevel != last)
                ++crossings;
        } else if (!nextInBand && nextLevel != curLevel) {
            switch (filter(cur, next)) {
            case rayBand::EdgeFilter::Answer::Misses:
                return false;
            case rayBand::EdgeFilter::Answer::Crosses:
                ++crossings;
                return false;
            case rayBand::EdgeFilter::Answer::Unclear:
                break;
            }
            Point2D crossing;
            IntersectionType const type = intersectEdgeEdge(cur, next, p, rayEnd, crossing, tol);
            if (type == EndToEnd || type == EndOnEdge)
                return true;
            if (type == Crossing)
                ++crossings;
        }
        return false;
    };
    if (rayBand::walk(at, count, start, band, onBoundary))
        return OnBoundary;
    return crossings % 2 != 0 ? Inside : Outside;
}

} // namespace concav2d
