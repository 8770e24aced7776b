#include <OrvelMath/geom2d/concav2d_lines.h>
#include <OrvelMath/geom2d/concav2d_regions.h>
#include <OrvelMath/geom2d/raySides_p.h>

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
    if (count < 3) {
        return Outside;
    }
    auto const first = polygon.begin();
    auto const at = [first](int i) -> Point2D const & { return **(first + i); };
    rayBand::Band const band{p.y() - tol, p.y() + tol};
    rayBand::Extent extent{2147483647.0, -2147483648.0};
    rayBand::Sides const sides(at, count, band, &extent);
    if (p.x() > extent.max + tol || extent.min - tol > p.x()) {
        return Outside;
    }

    Point2D const rayEnd(extent.max + 10000.0, p.y());
    rayBand::EdgeFilter const filter(p, rayEnd.x(), extent.min, tol,
                                     rayBand::EdgeFilter::Measure::Lengths);
    int crossings = 0;
    auto const isRayStartOn = [&](Point2D const &cur, Point2D const &next) {
        auto const answer = filter(cur, next);
        if (answer != rayBand::EdgeFilter::Answer::Unclear) {
            crossings += answer == rayBand::EdgeFilter::Answer::Crosses ? 1 : 0;
            return false;
        }
        Point2D crossing;
        IntersectionType const type = intersectEdgeEdge(cur, next, p, rayEnd, crossing, tol);
        crossings += type == Crossing ? 1 : 0;
        return type == EndToEnd || type == EndOnEdge;
    };
    if (sides.areComplete()) {
        if (sides.visitCrossings([&](int i, int next) { return isRayStartOn(at(i), at(next)); })) {
            return OnBoundary;
        }
        return crossings % 2 != 0 ? Inside : Outside;
    }

    int const start = rayBand::firstOutside(at, count, band);
    if (start < 0) {
        return Outside;
    }
    auto const onBoundary = [&](Point2D const &cur, Level curLevel, Point2D const &next,
                                Level nextLevel, Level last) {
        bool const curInBand = curLevel == Level::InBand;
        bool const nextInBand = nextLevel == Level::InBand;
        if (curInBand && nextInBand && isBetween(p.x(), cur.x(), next.x())) {
            return true;
        }
        if (curInBand && isWithin(cur.x(), p.x(), tol)) {
            return true;
        }
        if (nextInBand && isWithin(next.x(), p.x(), tol)) {
            return true;
        }
        if (!curInBand) {
            return !nextInBand && nextLevel != curLevel && isRayStartOn(cur, next);
        }
        if (!nextInBand && cur.x() > p.x() - tol && nextLevel != last) {
            ++crossings;
        }
        return false;
    };
    if (rayBand::walk(at, count, start, band, onBoundary)) {
        return OnBoundary;
    }
    return crossings % 2 != 0 ? Inside : Outside;
}

} // namespace concav2d
