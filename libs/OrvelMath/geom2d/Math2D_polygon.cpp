#include <OrvelMath/geom2d/Math2D.h>

namespace {

enum class Level { Above, Below, InBand };

/// A horizontal band, borders included.
struct Band
{
    double low;
    double high;

    Level levelOf(double y) const
    {
        if (low > y)
            return Level::Below;
        return y > high ? Level::Above : Level::InBand;
    }
};

struct Extent
{
    double min;
    double max;
};

Extent xExtent(Point2D const *points, int count, double const *xmin, double const *xmax)
{
    if (xmin != nullptr && xmax != nullptr)
        return {*xmin, *xmax};
    Extent extent{1e300, -1e300};
    for (int i = 0; i < count; ++i) {
        double const x = points[i].x();
        if (x < extent.min)
            extent.min = x;
        if (x > extent.max)
            extent.max = x;
    }
    return extent;
}

/// Index of the first vertex that is not strictly within the band, or -1.
int firstOutside(Point2D const *points, int count, Band const &band)
{
    for (int i = 0; i < count; ++i) {
        double const y = points[i].y();
        if (!(band.low < y && y < band.high))
            return i;
    }
    return -1;
}

bool isStrictlyBetween(double x, double a, double b)
{
    return (a < x && x < b) || (b < x && x < a);
}

} // namespace

InsidePolyType Math2DInsidePolygon(Point2D *points, int count, Point2D const &p, double *xmin,
                                   double *xmax, double tol)
{
    if (count < 3)
        return OutsidePolygon;
    Extent const extent = xExtent(points, count, xmin, xmax);
    if (p.x() > extent.max || extent.min > p.x())
        return OutsidePolygon;

    Point2D const rayEnd(extent.max + 100.0, p.y());
    Band const band{p.y() - tol, p.y() + tol};
    int const start = firstOutside(points, count, band);
    if (start < 0)
        return OutsidePolygon;

    int crossings = 0;
    Point2D const *cur = points + start;
    Level curLevel = band.levelOf(cur->y());
    Level last = band.low > cur->y() ? Level::Below : Level::Above;
    for (int step = 0, i = start; step < count; ++step) {
        i = i + 1 == count ? 0 : i + 1;
        Point2D const *const next = points + i;
        Level const nextLevel = band.levelOf(next->y());

        if (curLevel == Level::InBand) {
            if (nextLevel == Level::InBand) {
                if (isStrictlyBetween(p.x(), cur->x(), next->x()))
                    return OnPolygonEdge;
            } else if (cur->x() > p.x() - tol && nextLevel != last) {
                ++crossings;
            }
        } else {
            if (nextLevel != Level::InBand && nextLevel != curLevel) {
                Point2D crossing;
                IntersectionType const type =
                    Math2DIntersect2LinesWrong(*cur, *next, p, rayEnd, crossing, tol);
                if (type == EndOnSegment || type == EndToEnd)
                    return OnPolygonEdge;
                if (type == ProperCrossing)
                    ++crossings;
            }
            last = curLevel;
        }
        cur = next;
        curLevel = nextLevel;
    }
    return crossings % 2 != 0 ? InsidePolygon : OutsidePolygon;
}
