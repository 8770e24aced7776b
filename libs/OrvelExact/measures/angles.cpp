#include <OrvelExact/measures/angles.h>

#include <OrvelExact/measures/circularFunctions_p.h>
#include <OrvelExact/measures/vectors_p.h>

namespace orvelExact {

namespace {

Vector2 wide(Point2 const &p)
{
    return differenceOf(p, {});
}
Vector3 wide(Point3 const &p)
{
    return differenceOf(p, {});
}

template <typename Point>
Status statusOf(Point const &a, Point const &b)
{
    if (!isFinite(a) || !isFinite(b)) {
        return Status::NotFinite;
    }
    bool const isZero = largestOf(a) == 0.0 || largestOf(b) == 0.0;
    return isZero ? Status::Degenerate : Status::Ok;
}

/// The vector with its largest component from 0.5 to 1.
template <typename Point>
Point ofUnitSize(Point const &p)
{
    return timesPowerOfTwo(p, -exponentOf(largestOf(p)));
}

/// The length of a vector whose squares might vanish.
DoubleDouble lengthOf(Vector3 const &v)
{
    double const size = std::max({std::fabs(v.x.high), std::fabs(v.y.high), std::fabs(v.z.high)});
    if (size == 0.0) {
        return {};
    }
    int const exponent = exponentOf(size);
    Vector3 const near{timesPowerOfTwo(v.x, -exponent), timesPowerOfTwo(v.y, -exponent),
                       timesPowerOfTwo(v.z, -exponent)};
    return timesPowerOfTwo(squareRoot(dotOf(near, near)), exponent);
}

} // namespace

Angle turnBetween(Point2 const &a, Point2 const &b)
{
    Status const status = statusOf(a, b);
    if (status != Status::Ok) {
        return {status, 0.0};
    }
    Vector2 const u = wide(ofUnitSize(a));
    Vector2 const v = wide(ofUnitSize(b));
    return {Status::Ok, rounded(arcTangentOf(crossOf(u, v), dotOf(u, v)))};
}

Angle angleBetween(Point2 const &a, Point2 const &b)
{
    Angle const turn = turnBetween(a, b);
    return {turn.status, std::fabs(turn.radians)};
}

Angle angleBetween(Point3 const &a, Point3 const &b)
{
    Status const status = statusOf(a, b);
    if (status != Status::Ok) {
        return {status, 0.0};
    }
    Vector3 const u = wide(ofUnitSize(a));
    Vector3 const v = wide(ofUnitSize(b));
    return {Status::Ok, rounded(arcTangentOf(lengthOf(crossOf(u, v)), dotOf(u, v)))};
}

} // namespace orvelExact
