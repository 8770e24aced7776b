#include <OrvelMath/geom2d/Math2D.h>
#include <OrvelMath/geom2d/raySides_p.h>

namespace {

bool isStrictlyBetween(double x, double a, double b)
{
    return (a < x && x < b) || (b < x && x < a);
}

bool isBeyond(double x, rayBand::Extent const &extent)
{
    return x > extent.max || extent.min > x;
}

} // namespace

InsidePolyType Math2DInsidePolygon(Point2D *points, int count, Point2D const &p, double *xmin,
                                   double *xmax, double tol)
{
    using rayBand::Level;

    if (count < 3) {
        return OutsidePolygon;
    }
    auto const at = [points](int i) -> Point2D const & { return points[i]; };
    rayBand::Band const band{p.y() - tol, p.y() + tol};
    bool const extentIsGiven = xmin != nullptr && xmax != nullptr;
    rayBand::Extent extent{1e300, -1e300};
    if (extentIsGiven) {
        extent = {*xmin, *xmax};
        if (isBeyond(p.x(), extent)) {
            return OutsidePolygon;
        }
    }
    rayBand::Sides const sides(at, count, band, extentIsGiven ? nullptr : &extent);
    if (isBeyond(p.x(), extent)) {
        return OutsidePolygon;
    }

    Point2D const rayEnd(extent.max + 100.0, p.y());
    rayBand::EdgeFilter const filter(p, rayEnd.x(), extent.min, tol,
                                     rayBand::EdgeFilter::Measure::Parameters);
    int crossings = 0;
    auto const isRayStartOn = [&](Point2D const &cur, Point2D const &next) {
        auto const answer = filter(cur, next);
        if (answer != rayBand::EdgeFilter::Answer::Unclear) {
            crossings += answer == rayBand::EdgeFilter::Answer::Crosses ? 1 : 0;
            return false;
        }
        Point2D crossing;
        IntersectionType const type =
            Math2DIntersect2LinesWrong(cur, next, p, rayEnd, crossing, tol);
        crossings += type == ProperCrossing ? 1 : 0;
        return type == EndOnSegment || type == EndToEnd;
    };
    if (sides.areComplete()) {
        if (sides.visitCrossings([&](int i, int next) { return isRayStartOn(at(i), at(next)); })) {
            return OnPolygonEdge;
        }
        return crossings % 2 != 0 ? InsidePolygon : OutsidePolygon;
    }

    int const start = rayBand::firstOutside(at, count, band);
    if (start < 0) {
        return OutsidePolygon;
    }
    auto const onEdge = [&](Point2D const &cur, Level curLevel, Point2D const &next,
                            Level nextLevel, Level last) {
        if (curLevel != Level::InBand) {
            return nextLevel != Level::InBand && nextLevel != curLevel && isRayStartOn(cur, next);
        }
        if (nextLevel == Level::InBand) {
            return isStrictlyBetween(p.x(), cur.x(), next.x());
        }
        if (cur.x() > p.x() - tol && nextLevel != last) {
            ++crossings;
        }
        return false;
    };
    if (rayBand::walk(at, count, start, band, onEdge)) {
        return OnPolygonEdge;
    }
    return crossings % 2 != 0 ? InsidePolygon : OutsidePolygon;
}
