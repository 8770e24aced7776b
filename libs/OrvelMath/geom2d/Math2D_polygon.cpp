#include <OrvelMath/geom2d/Math2D.h>
#include <OrvelMath/geom2d/rayBand_p.h>

namespace {

bool isStrictlyBetween(double x, double a, double b)
{
    return (a < x && x < b) || (b < x && x < a);
}

} // namespace

InsidePolyType Math2DInsidePolygon(Point2D *points, int count, Point2D const &p, double *xmin,
                                   double *xmax, double tol)
{
    using rayBand::Level;

    if (count < 3)
        return OutsidePolygon;
    auto const at = [points](int i) -> Point2D const & { return points[i]; };
    bool const extentIsGiven = xmin != nullptr && xmax != nullptr;
    rayBand::Extent const extent = extentIsGiven ? rayBand::Extent{*xmin, *xmax}
                                                 : rayBand::xExtent(at, count, {1e300, -1e300});
    if (p.x() > extent.max || extent.min > p.x())
        return OutsidePolygon;

    Point2D const rayEnd(extent.max + 100.0, p.y());
    rayBand::Band const band{p.y() - tol, p.y() + tol};
    int const start = rayBand::firstOutside(at, count, band);
    if (start < 0)
        return OutsidePolygon;

    rayBand::EdgeFilter const filter(p, rayEnd.x(), extent.min, tol);
    int crossings = 0;
    auto const onEdge = [&](Point2D const &cur, Level curLevel, Point2D const &next,
                            Level nextLevel, Level last) {
        if (curLevel == Level::InBand) {
            if (nextLevel == Level::InBand)
                return isStrictlyBetween(p.x(), cur.x(), next.x());
            if (cur.x() > p.x() - tol && nextLevel != last)
                ++crossings;
        } else if (nextLevel != Level::InBand && nextLevel != curLevel) {
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
            IntersectionType const type =
                Math2DIntersect2LinesWrong(cur, next, p, rayEnd, crossing, tol);
            if (type == EndOnSegment || type == EndToEnd)
                return true;
            if (type == ProperCrossing)
                ++crossings;
        }
        return false;
    };
    if (rayBand::walk(at, count, start, band, onEdge))
        return OnPolygonEdge;
    return crossings % 2 != 0 ? InsidePolygon : OutsidePolygon;
}
