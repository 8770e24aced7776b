#include <OrvelExact/conics/ellipseDistance.h>

#include <OrvelExact/conics/curves_p.h>

namespace orvelExact {

namespace {

/// The arc seen from a point: all lengths by a power of two.
struct Seen
{
    Vector3 centre;
    Vector3 u;
    Vector3 v;
    double size;

    Vector3 at(Direction const &d) const { return centre + u * d.c + v * d.s; }
};

Seen seenFrom(EllipseArc3 const &arc, Point3 const &p, int exponent)
{
    Seen seen;
    seen.centre =
        differenceOf(timesPowerOfTwo(arc.centre, -exponent), timesPowerOfTwo(p, -exponent));
    seen.u = differenceOf(timesPowerOfTwo(arc.u, -exponent), {});
    seen.v = differenceOf(timesPowerOfTwo(arc.v, -exponent), {});
    seen.size = std::sqrt(dotOf(seen.centre, seen.centre).high) +
                std::sqrt(dotOf(seen.u, seen.u).high) + std::sqrt(dotOf(seen.v, seen.v).high);
    return seen;
}

/// The squared distance along the ellipse.
CirclePolynomial squaredDistance(Seen const &seen)
{
    DoubleDouble const uu = dotOf(seen.u, seen.u);
    DoubleDouble const vv = dotOf(seen.v, seen.v);
    return {{dotOf(seen.centre, seen.centre) + scaled(uu + vv, 0.5),
             scaled(dotOf(seen.centre, seen.u), 2.0), scaled(dotOf(seen.centre, seen.v), 2.0),
             scaled(uu - vv, 0.5), dotOf(seen.u, seen.v)},
            0x1p-98 * seen.size * seen.size};
}

/// The direction of an end with a length of 1 to 106 bits.
Direction directionOf(Point2 const &end)
{
    Point2 const near = timesPowerOfTwo(end, -exponentOf(largestOf(end)));
    DoubleDouble const length =
        squareRoot(wideProduct(near.x(), near.x()) + wideProduct(near.y(), near.y()));
    return {DoubleDouble(near.x()) / length, DoubleDouble(near.y()) / length};
}

/// The directions among which the nearest one is: the extrema on the arc, then its ends.
int candidatesOf(EllipseArc3 const &arc, CirclePolynomial const &f, Direction (&at)[10])
{
    EllipseArc const flat{{}, arc.from, arc.to};
    Direction extrema[8];
    int const found = extremaOf(f, extrema);
    int count = 0;
    for (int i = 0; i < found; ++i) {
        Direction const d = refinedZero(derivativeOf(f), extrema[i]);
        if (isOnArc(flat, plain(d))) {
            at[count++] = d;
        }
    }
    at[count++] = directionOf(arc.from);
    at[count++] = directionOf(arc.to);
    return count;
}

/// The nearest point of an arc whose lengths by the power of two are about 1.
NearestOnEllipse3 nearestOf(EllipseArc3 const &arc, Point3 const &p, int exponent)
{
    Seen const seen = seenFrom(arc, p, exponent);
    CirclePolynomial const f = squaredDistance(seen);
    Direction at[10];
    int const count = candidatesOf(arc, f, at);
    int best = 0;
    DoubleDouble least(1e300);
    for (int i = 0; i < count; ++i) {
        Vector3 const way = seen.at(at[i]);
        DoubleDouble const square = dotOf(way, way);
        if (square < least - f.noise) {
            least = square;
            best = i;
        }
    }
    double const distance = rounded(squareRoot(least));
    Direction const &d = at[best];
    NearestOnEllipse3 result;
    result.distance = distance <= 0x1p-90 * seen.size ? 0.0 : timesPowerOfTwo(distance, exponent);
    result.direction = plain(d);
    Vector3 const centre = differenceOf(timesPowerOfTwo(arc.centre, -exponent), {});
    result.point = timesPowerOfTwo(rounded(centre + seen.u * d.c + seen.v * d.s), exponent);
    return result;
}

NearestOnEllipse3 withStatus(Status status)
{
    NearestOnEllipse3 result;
    result.status = status;
    return result;
}

NearestOnEllipse inPlane(NearestOnEllipse3 const &result)
{
    return {result.status, result.distance, {result.point.x(), result.point.y()}, result.direction};
}

Point3 inSpace(Point2 const &p)
{
    return {p.x(), p.y(), 0.0};
}

} // namespace

NearestOnEllipse3 nearestOnArc(EllipseArc3 const &arc, Point3 const &p)
{
    if (!isFinite(arc.centre) || !isFinite(arc.u) || !isFinite(arc.v) || !isFinite(arc.from) ||
        !isFinite(arc.to) || !isFinite(p)) {
        return withStatus(Status::NotFinite);
    }
    if (largestOf(arc.from) == 0.0 || largestOf(arc.to) == 0.0) {
        return withStatus(Status::Degenerate);
    }
    double const extent = std::max(largestOf(arc.u), largestOf(arc.v));
    double const size = std::max(extent, largestOf(arc.centre - p));
    double const farthest = std::max(largestOf(arc.centre), largestOf(p));
    if (size > longestLength || farthest > longestLength) {
        return withStatus(Status::OutOfRange);
    }
    if (size == 0.0) {
        return {Status::Ok, 0.0, p, plain(directionOf(arc.from))};
    }
    int const exponent = exponentOf(size);
    bool const isTooFar = extent != 0.0 && timesPowerOfTwo(extent, -exponent) < leastRatio;
    if (isTooFar || size < shortestLength ||
        timesPowerOfTwo(farthest, -exponent) > 1.0 / leastRatio) {
        return withStatus(Status::OutOfRange);
    }
    return nearestOf(arc, p, exponent);
}

NearestOnEllipse nearestOnArc(EllipseArc const &arc, Point2 const &p)
{
    Status const status = isFinite(p) ? statusOf(arc) : Status::NotFinite;
    if (status != Status::Ok) {
        return inPlane(withStatus(status));
    }
    Ellipse const &e = arc.ellipse;
    return inPlane(nearestOnArc(
        EllipseArc3{inSpace(e.centre), inSpace(e.u), inSpace(e.v), arc.from, arc.to}, inSpace(p)));
}

NearestOnEllipse nearestOnEllipse(Ellipse const &ellipse, Point2 const &p)
{
    return nearestOnArc(EllipseArc{ellipse, {1.0, 0.0}, {1.0, 0.0}}, p);
}

} // namespace orvelExact
