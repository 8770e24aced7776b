#include <OrvelMath/geom2d/Math2D_p.h>
#include <OrvelMath/geom2d/quick/segmentCrossings_p.h>

#include <cmath>

namespace {

struct Vector
{
    Vector(Point2D const &from, Point2D const &to)
        : x(to.x() - from.x())
        , y(to.y() - from.y())
    {
    }

    double length() const { return std::sqrt(x * x + y * y); }

    double x;
    double y;
};

/// Whether a place along a segment is within tol of one of its ends.
bool isAtEnd(double place, double length, double tol)
{
    return tol > place || place > length - tol;
}

bool coincide(Point2D const &a, Point2D const &b, double tol)
{
    return Math2DComparePoints(a, b, tol) == 0;
}

/// Where two segments p0 + t d and p2 + s e cut.
struct Cut
{
    Cut(Point2D const &p0, Point2D const &p1, Point2D const &p2, Point2D const &p3)
        : d(p0, p1)
        , e(p2, p3)
        , divisor(d.x * e.y - d.y * e.x)
        , tNumerator((p2.x() - p0.x()) * e.y - (p2.y() - p0.y()) * e.x)
        , uNumerator((p1.y() - p3.y()) * (p0.x() - p1.x()) - (p1.x() - p3.x()) * (p0.y() - p1.y()))
    {
    }

    Vector d;
    Vector e;
    double divisor;
    double tNumerator;
    /// Along the second segment from p3 back to p2.
    double uNumerator;
};

/// Crossing and class of two segments that aren't parallel.
IntersectionType cross(Cut const &cut, Point2D const &p0, Point2D &out, double tol)
{
    double const t = cut.tNumerator / cut.divisor;
    if (t < 0 || t > 1) {
        return NoIntersection;
    }
    double const u = cut.uNumerator / cut.divisor;
    if (u < 0 || u > 1) {
        return NoIntersection;
    }
    out = Point2D(p0.x() + t * cut.d.x, p0.y() + t * cut.d.y);

    double const firstLength = cut.d.length();
    double const secondLength = cut.e.length();
    bool const atEndOfFirst = isAtEnd(firstLength * t, firstLength, tol);
    bool const atEndOfSecond = isAtEnd(secondLength * u, secondLength, tol);
    if (atEndOfFirst && atEndOfSecond) {
        return EndToEnd;
    }
    return atEndOfFirst || atEndOfSecond ? EndOnSegment : ProperCrossing;
}

} // namespace

int Math2DComparePoints(Point2D const &a, Point2D const &b, double tol)
{
    if (a.x() > b.x() + tol) {
        return 1;
    }
    if (b.x() - tol > a.x()) {
        return -1;
    }
    if (a.y() > b.y() + tol) {
        return 1;
    }
    return b.y() - tol > a.y() ? -1 : 0;
}

// The definitions are functions of their own, so that a quick answer need not save any registers.

[[gnu::noinline]] IntersectionType
definition::Math2DIntersect2Lines(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                  Point2D const &p3, Point2D &out, double tol)
{
    bool const isAtFirst = coincide(p0, p3, tol) || coincide(p0, p2, tol);
    if (isAtFirst || coincide(p1, p3, tol) || coincide(p1, p2, tol)) {
        out = isAtFirst ? p0 : p1;
        return EndToEnd;
    }
    Cut const cut(p0, p1, p2, p3);
    if (tol * tol > std::fabs(cut.divisor)) { // an area
        return NoIntersection;
    }
    return cross(cut, p0, out, tol);
}

[[gnu::noinline]] IntersectionType
definition::Math2DIntersect2LinesWrong(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                       Point2D const &p3, Point2D &out, double tol)
{
    Cut const cut(p0, p1, p2, p3);
    return cut.divisor == 0.0 ? NoIntersection : cross(cut, p0, out, tol);
}

IntersectionType Math2DIntersect2Lines(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                       Point2D const &p3, Point2D &out, double tol)
{
    segmentCrossings::ByParameters const quick(p0, p1, p2, p3, tol);
    bool const areEndsApart = quick.areEndsApart(p2, p3, tol);
    bool const isParallel = tol * tol > quick.area();
    if (quick.isProved & areEndsApart & !isParallel) {
        quick.deliver(out);
        return quick.crosses ? ProperCrossing : NoIntersection;
    }
    return definition::Math2DIntersect2Lines(p0, p1, p2, p3, out, tol);
}

IntersectionType Math2DIntersect2LinesWrong(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                            Point2D const &p3, Point2D &out, double tol)
{
    segmentCrossings::ByParameters const quick(p0, p1, p2, p3, tol);
    if (quick.isProved) {
        quick.deliver(out);
        return quick.crosses ? ProperCrossing : NoIntersection;
    }
    return definition::Math2DIntersect2LinesWrong(p0, p1, p2, p3, out, tol);
}

Point2D inter_lin_lin(Point2D const &p, Point2D const &d, Point2D const &q, Point2D const &e,
                      double /*tol*/)
{
    double const crossProduct = d.x() * e.y() - e.x() * d.y();
    if (crossProduct == 0.0) {
        return Point2D(p.x() + (q.x() - p.x()) * 0.5, p.y() + (q.y() - p.y()) * 0.5);
    }
    double const t = ((q.x() - p.x()) * e.y() - (q.y() - p.y()) * e.x()) / crossProduct;
    return Point2D(p.x() + t * d.x(), p.y() + t * d.y());
}
