#include <OrvelMath/geom2d/Math2D.h>

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

// Which of the comparisons below holds is hard to predict, so they are counted and not chained.

/// 1 if `Math2DComparePoints` gives 0, otherwise 0.
int coincide(Point2D const &a, Point2D const &b, double tol)
{
    int const apart = (a.x() > b.x() + tol) + (b.x() - tol > a.x()) + (a.y() > b.y() + tol) +
                      (b.y() - tol > a.y());
    return apart == 0;
}

/// 1 if a quotient lies outside 0 to 1 by so much that no rounding or underflow of the division
/// changes it, otherwise 0. Most pairs of segments are refused here, without a division.
int isSurelyOff(double numerator, double divisor)
{
    double const n = divisor < 0 ? -numerator : numerator;
    double const d = std::fabs(divisor);
    return (n < d * -1e-200) + (n > d * (1 + 1e-15));
}

/// Crossing and class of the segments p0 + t d and p2 + s e, whose cross product is given.
IntersectionType cross(Point2D const &p0, Point2D const &p1, Point2D const &p2, Point2D const &p3,
                       Vector const &d, Vector const &e, double crossProduct, Point2D &out,
                       double tol)
{
    double const tNumerator = (p2.x() - p0.x()) * e.y - (p2.y() - p0.y()) * e.x;
    // Along the second segment from p3 back to p2.
    double const uNumerator =
        (p1.y() - p3.y()) * (p0.x() - p1.x()) - (p1.x() - p3.x()) * (p0.y() - p1.y());
    if (isSurelyOff(tNumerator, crossProduct) + isSurelyOff(uNumerator, crossProduct) > 0)
        return NoIntersection;
    double const t = tNumerator / crossProduct;
    if (t < 0 || t > 1)
        return NoIntersection;
    double const u = uNumerator / crossProduct;
    if (u < 0 || u > 1)
        return NoIntersection;
    out = Point2D(p0.x() + t * d.x, p0.y() + t * d.y);

    double const firstLength = d.length();
    double const secondLength = e.length();
    bool const atEndOfFirst = isAtEnd(firstLength * t, firstLength, tol);
    bool const atEndOfSecond = isAtEnd(secondLength * u, secondLength, tol);
    if (atEndOfFirst && atEndOfSecond)
        return EndToEnd;
    return atEndOfFirst || atEndOfSecond ? EndOnSegment : ProperCrossing;
}

} // namespace

int Math2DComparePoints(Point2D const &a, Point2D const &b, double tol)
{
    if (a.x() > b.x() + tol)
        return 1;
    if (b.x() - tol > a.x())
        return -1;
    if (a.y() > b.y() + tol)
        return 1;
    return b.y() - tol > a.y() ? -1 : 0;
}

IntersectionType Math2DIntersect2Lines(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                       Point2D const &p3, Point2D &out, double tol)
{
    int const atFirst = coincide(p0, p3, tol) + coincide(p0, p2, tol);
    int const atSecond = coincide(p1, p3, tol) + coincide(p1, p2, tol);
    if (atFirst + atSecond > 0) {
        out = atFirst > 0 ? p0 : p1;
        return EndToEnd;
    }
    Vector const d(p0, p1);
    Vector const e(p2, p3);
    double const crossProduct = d.x * e.y - d.y * e.x;
    if (tol * tol > std::fabs(crossProduct))
        return NoIntersection;
    return cross(p0, p1, p2, p3, d, e, crossProduct, out, tol);
}

IntersectionType Math2DIntersect2LinesWrong(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                            Point2D const &p3, Point2D &out, double tol)
{
    Vector const d(p0, p1);
    Vector const e(p2, p3);
    double const crossProduct = d.x * e.y - d.y * e.x;
    if (crossProduct == 0.0)
        return NoIntersection;
    return cross(p0, p1, p2, p3, d, e, crossProduct, out, tol);
}

Point2D inter_lin_lin(Point2D const &p, Point2D const &d, Point2D const &q, Point2D const &e,
                      double /*tol*/)
{
    double const crossProduct = d.x() * e.y() - e.x() * d.y();
    if (crossProduct == 0.0)
        return Point2D(p.x() + (q.x() - p.x()) * 0.5, p.y() + (q.y() - p.y()) * 0.5);
    double const t = ((q.x() - p.x()) * e.y() - (q.y() - p.y()) * e.x()) / crossProduct;
    return Point2D(p.x() + t * d.x(), p.y() + t * d.y());
}
