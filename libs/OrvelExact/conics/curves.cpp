#include <OrvelExact/conics/curves_p.h>

namespace orvelExact {

namespace {

double plainCross(Point2 const &a, Point2 const &b)
{
    return a.x() * b.y() - a.y() * b.x();
}

/// The direction with the same way and a length of 1.
Point2 unitOf(Point2 const &direction)
{
    Point2 const near = timesPowerOfTwo(direction, -exponentOf(largestOf(direction)));
    return near / near.length();
}

} // namespace

bool isOnArc(EllipseArc const &arc, Point2 const &direction)
{
    Point2 const from = unitOf(arc.from);
    Point2 const to = unitOf(arc.to);
    double const turn = plainCross(from, to);
    if (turn == 0.0 && from.dot(to) > 0.0) {
        return true;
    }
    bool const isAfterFrom = plainCross(from, direction) >= 0.0;
    bool const isBeforeTo = plainCross(direction, to) >= 0.0;
    return turn >= 0.0 ? isAfterFrom && isBeforeTo : isAfterFrom || isBeforeTo;
}

bool isOnArc(EllipseArc const &arc, Point2 const &direction, double tolerance)
{
    if (isOnArc(arc, direction)) {
        return true;
    }
    Ellipse const &e = arc.ellipse;
    double const near = std::max(tolerance, 0x1p-50 * (e.u.length() + e.v.length()));
    for (Point2 const &end : {arc.from, arc.to}) {
        Point2 const apart = direction - unitOf(end);
        if ((apart.x() * e.u + apart.y() * e.v).length() <= near) {
            return true;
        }
    }
    return false;
}

Status statusOf(Ellipse const &e)
{
    if (!isFinite(e)) {
        return Status::NotFinite;
    }
    double const extent = extentOf(e);
    if (extent == 0.0) {
        return Status::Degenerate;
    }
    if (extent > longestLength || extent < shortestLength || largestOf(e.centre) > longestLength) {
        return Status::OutOfRange;
    }
    int const exponent = -exponentOf(extent);
    DoubleDouble const area =
        crossOf(timesPowerOfTwo(e.u, exponent), timesPowerOfTwo(e.v, exponent));
    if (area.high == 0.0) {
        return Status::Degenerate;
    }
    return std::fabs(area.high) < leastRatio ? Status::OutOfRange : Status::Ok;
}

Status statusOf(EllipseArc const &arc)
{
    if (!isFinite(arc.from) || !isFinite(arc.to)) {
        return Status::NotFinite;
    }
    if (largestOf(arc.from) == 0.0 || largestOf(arc.to) == 0.0) {
        return Status::Degenerate;
    }
    return statusOf(arc.ellipse);
}

} // namespace orvelExact
