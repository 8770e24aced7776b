#include <OrvelMath/geom2d/concav2d_lines.h>
#include <OrvelMath/geom2d/concav2d_regions.h>

namespace concav2d {

namespace {

enum class Level { Below, Above, InBand };

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
    double min = 2147483647.0;
    double max = -2147483648.0;
};

Extent xExtent(PPtrOrderedVector<Point2D> const &polygon)
{
    Extent extent;
    int const count = polygon.size();
    for (int i = 0; i < count; ++i) {
        double const x = polygon[i]->x();
        if (x < extent.min)
            extent.min = x;
        if (x > extent.max)
            extent.max = x;
    }
    return extent;
}

/// Index of the first vertex that is not strictly within the band, or -1.
int firstOutside(PPtrOrderedVector<Point2D> const &polygon, Band const &band)
{
    int const count = polygon.size();
    for (int i = 0; i < count; ++i) {
        double const y = polygon[i]->y();
        if (!(band.low < y && y < band.high))
            return i;
    }
    return -1;
}

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
    int const count = polygon.size();
    if (count < 3)
        return Outside;
    Extent const extent = xExtent(polygon);
    if (p.x() > extent.max + tol || extent.min - tol > p.x())
        return Outside;

    Point2D const rayEnd(extent.max + 10000.0, p.y());
    Band const band{p.y() - tol, p.y() + tol};
    int const start = firstOutside(polygon, band);
    if (start < 0)
        return Outside;

    int crossings = 0;
    Point2D const *cur = polygon[start];
    Level curLevel = band.levelOf(cur->y());
    Level last = band.low > cur->y() ? Level::Below : Level::Above;
    for (int step = 0, i = start; step < count; ++step) {
        i = i + 1 == count ? 0 : i + 1;
        Point2D const *const next = polygon[i];
        Level const nextLevel = band.levelOf(next->y());
        bool const curInBand = curLevel == Level::InBand;
        bool const nextInBand = nextLevel == Level::InBand;

        if (curInBand && nextInBand && isBetween(p.x(), cur->x(), next->x()))
            return OnBoundary;
        if (curInBand && isWithin(cur->x(), p.x(), tol))
            return OnBoundary;
        if (nextInBand && isWithin(next->x(), p.x(), tol))
            return OnBoundary;

        if (!curInBand && !nextInBand) {
            if (curLevel != nextLevel) {
                Point2D crossing;
                IntersectionType const type =
                    intersectEdgeEdge(*cur, *next, p, rayEnd, crossing, tol);
                if (type == EndToEnd || type == EndOnEdge)
                    return OnBoundary;
                if (type == Crossing)
                    ++crossings;
            }
        } else if (curInBand && !nextInBand && cur->x() > p.x() - tol && nextLevel != last) {
            ++crossings;
        }
        if (!curInBand)
            last = curLevel;
        cur = next;
        curLevel = nextLevel;
    }
    return crossings % 2 != 0 ? Inside : Outside;
}

} // namespace concav2d
