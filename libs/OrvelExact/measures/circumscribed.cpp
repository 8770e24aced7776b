#include <OrvelExact/measures/circumscribed.h>

#include <OrvelExact/measures/vectors_p.h>
#include <OrvelExact/predicates/orientation.h>

#include <initializer_list>

namespace orvelExact {

namespace {

constexpr double farthestCoordinate = 1e270;
constexpr double worstCondition = 0x1p90;

double lengthOf(Vector3 const &v)
{
    return std::sqrt(dotOf(v, v).high);
}

/// A point seen from another one, by a power of two.
Vector3 seen(Point3 const &p, Point3 const &from, int exponent)
{
    Vector3 const way = differenceOf(p, from);
    return {timesPowerOfTwo(way.x, -exponent), timesPowerOfTwo(way.y, -exponent),
            timesPowerOfTwo(way.z, -exponent)};
}

/// Whether all is finite and in range, and the exponent of the largest difference from the first.
Status measure(std::initializer_list<Point3> points, int &exponent)
{
    double size = 0.0;
    Status status = Status::Ok;
    for (Point3 const &p : points) {
        if (!isFinite(p)) {
            return Status::NotFinite;
        }
        if (largestOf(p) > farthestCoordinate) {
            status = Status::OutOfRange;
        }
        size = std::max(size, largestOf(p - *points.begin()));
    }
    exponent = exponentOf(size);
    return status;
}

/// The result for the centre seen from a point, in units of the power of two.
CircleThrough3 placed(Point3 const &origin, Vector3 const &centre, int exponent, double condition)
{
    CircleThrough3 result;
    Vector3 const way{timesPowerOfTwo(centre.x, exponent), timesPowerOfTwo(centre.y, exponent),
                      timesPowerOfTwo(centre.z, exponent)};
    result.centre = rounded(way + differenceOf(origin, {}));
    result.radius = timesPowerOfTwo(rounded(squareRoot(dotOf(centre, centre))), exponent);
    result.condition = condition;
    result.isIllConditioned = condition > illCondition;
    if (!(condition <= worstCondition) || !isFinite(result.centre) ||
        !std::isfinite(result.radius)) {
        result = {};
        result.status = Status::OutOfRange;
    }
    return result;
}

CircleThrough3 refused(Status status)
{
    CircleThrough3 result;
    result.status = status;
    return result;
}

/// True if three points of space are of one line: then they are so in all three projections.
bool areCollinear(Point3 const &a, Point3 const &b, Point3 const &c)
{
    auto const areSeenSo = [&](int i, int k) {
        return orientation2d({a[i], a[k]}, {b[i], b[k]}, {c[i], c[k]}) == Sign::Zero;
    };
    return areSeenSo(0, 1) && areSeenSo(1, 2) && areSeenSo(2, 0);
}

} // namespace

CircleThrough3 circleThrough(Point3 const &a, Point3 const &b, Point3 const &c)
{
    int exponent = 0;
    Status const status = measure({a, b, c}, exponent);
    if (status != Status::Ok) {
        return refused(status);
    }
    if (areCollinear(a, b, c)) {
        return refused(Status::Degenerate);
    }
    Vector3 const u = seen(b, a, exponent);
    Vector3 const v = seen(c, a, exponent);
    Vector3 const normal = crossOf(u, v);
    DoubleDouble const square = dotOf(normal, normal);
    if (!(square.high > 0.0)) {
        return refused(Status::OutOfRange);
    }
    Vector3 const lifted = u * dotOf(v, v) - v * dotOf(u, u);
    Vector3 const centre = crossOf(normal, lifted) * (DoubleDouble(0.5) / square);
    double const length = std::sqrt(square.high);
    double const third = lengthOf(v - u);
    double const longest = std::max({lengthOf(u), lengthOf(v), third});
    CircleThrough3 result = placed(a, centre, exponent, longest * longest / length);
    if (result.status == Status::Ok) {
        result.normal = rounded(normal * (DoubleDouble(1.0) / squareRoot(square)));
    }
    return result;
}

CircleThrough2 circleThrough(Point2 const &a, Point2 const &b, Point2 const &c)
{
    CircleThrough3 const result = circleThrough(
        Point3(a.x(), a.y(), 0.0), Point3(b.x(), b.y(), 0.0), Point3(c.x(), c.y(), 0.0));
    return {result.status,
            {result.centre.x(), result.centre.y()},
            result.radius,
            result.condition,
            result.isIllConditioned};
}

CircleThrough3 sphereThrough(Point3 const &a, Point3 const &b, Point3 const &c, Point3 const &d)
{
    int exponent = 0;
    Status const status = measure({a, b, c, d}, exponent);
    if (status != Status::Ok) {
        return refused(status);
    }
    if (orientation3d(a, b, c, d) == Sign::Zero) {
        return refused(Status::Degenerate);
    }
    Vector3 const u = seen(b, a, exponent);
    Vector3 const v = seen(c, a, exponent);
    Vector3 const w = seen(d, a, exponent);
    Vector3 const vw = crossOf(v, w);
    DoubleDouble const volume = dotOf(u, vw);
    if (volume.high == 0.0) {
        return refused(Status::OutOfRange);
    }
    Vector3 const sum =
        vw * dotOf(u, u) + crossOf(w, u) * dotOf(v, v) + crossOf(u, v) * dotOf(w, w);
    double const longest = std::max(
        {lengthOf(u), lengthOf(v), lengthOf(w), lengthOf(v - u), lengthOf(w - v), lengthOf(u - w)});
    return placed(a, sum * (DoubleDouble(0.5) / volume), exponent,
                  longest * longest * longest / std::fabs(volume.high));
}

} // namespace orvelExact
