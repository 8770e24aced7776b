#include <OrvelExact/hull/HullSimplex_p.h>

#include <OrvelExact/predicates/orientation.h>

#include <cmath>

namespace orvelExact {

namespace {

Point2 without(int axis, Point3 const &p)
{
    return {p[axis == 0 ? 1 : 0], p[axis == 2 ? 1 : 2]};
}

/// One of the extreme points for which `size` is largest, if `isValid` holds for it. Else the first
/// of all points for which `size` is largest, if it holds for that; else the first for which it
/// holds, -1 if there is none.
template <typename Size, typename IsValid>
int findLargest(WorkPoints const &points, Size const &size, IsValid const &isValid)
{
    int best = points.extremes()[0];
    double largest = -1.0;
    auto const offer = [&](int i) {
        double const value = size(points.rounded(i));
        if (value > largest) {
            largest = value;
            best = i;
        }
    };
    for (int const i : points.extremes()) {
        offer(i);
    }
    if (isValid(best)) {
        return best;
    }
    largest = -1.0;
    for (int i = 0; i < points.count(); ++i) {
        offer(i);
    }
    if (isValid(best)) {
        return best;
    }
    for (int i = 0; i < points.count(); ++i) {
        if (isValid(i)) {
            return i;
        }
    }
    return -1;
}

} // namespace

bool areCollinear(Point3 const &a, Point3 const &b, Point3 const &c)
{
    for (int axis = 0; axis < 3; ++axis) {
        if (orientation2d(without(axis, a), without(axis, b), without(axis, c)) != Sign::Zero) {
            return false;
        }
    }
    return true;
}

HullSimplex findSimplex(WorkPoints const &points)
{
    HullSimplex simplex{0, {points.extremes()[0], -1, -1, -1}};
    Point3 const a = points.exact(simplex.corner[0]);
    Point3 const roundA = points.rounded(simplex.corner[0]);
    simplex.corner[1] = findLargest(
        points, [&](Point3 const &p) { return (p - roundA).squaredLength(); },
        [&](int i) { return points.exact(i) != a; });
    if (simplex.corner[1] < 0) {
        return simplex;
    }
    simplex.dimension = 1;
    Point3 const b = points.exact(simplex.corner[1]);
    Point3 const along = points.rounded(simplex.corner[1]) - roundA;
    simplex.corner[2] = findLargest(
        points, [&](Point3 const &p) { return along.cross(p - roundA).squaredLength(); },
        [&](int i) { return !areCollinear(a, b, points.exact(i)); });
    if (simplex.corner[2] < 0) {
        return simplex;
    }
    simplex.dimension = 2;
    Point3 const c = points.exact(simplex.corner[2]);
    Point3 const normal = along.cross(points.rounded(simplex.corner[2]) - roundA);
    simplex.corner[3] = findLargest(
        points, [&](Point3 const &p) { return std::fabs(normal.dot(p - roundA)); },
        [&](int i) { return orientation3d(a, b, c, points.exact(i)) != Sign::Zero; });
    if (simplex.corner[3] >= 0) {
        simplex.dimension = 3;
    }
    return simplex;
}

} // namespace orvelExact
