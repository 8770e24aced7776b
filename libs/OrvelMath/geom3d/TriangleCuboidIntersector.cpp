#include <OrvelMath/geom3d/TriangleCuboidIntersector.h>

#include <cmath>

namespace MatUtil {

namespace {

using Vector = vectorC3d<double>;

// Sets of coordinate axes, used to select the tests of a path at compile time.
constexpr unsigned X = 1;
constexpr unsigned Y = 2;
constexpr unsigned Z = 4;

template <unsigned Axes, typename Predicate>
inline bool allOf(Predicate holds)
{
    if constexpr ((Axes & X) != 0) {
        if (!holds(0))
            return false;
    }
    if constexpr ((Axes & Y) != 0) {
        if (!holds(1))
            return false;
    }
    if constexpr ((Axes & Z) != 0) {
        if (!holds(2))
            return false;
    }
    return true;
}

// The smaller (larger) of two; a NaN in the second is passed over.
inline double smaller(double a, double b)
{
    return b < a ? b : a;
}

inline double larger(double a, double b)
{
    return b > a ? b : a;
}

inline Vector componentMinimum(Vector const &a, Vector const &b, Vector const &c)
{
    return Vector(smaller(smaller(a.x(), b.x()), c.x()), smaller(smaller(a.y(), b.y()), c.y()),
                  smaller(smaller(a.z(), b.z()), c.z()));
}

inline Vector componentMaximum(Vector const &a, Vector const &b, Vector const &c)
{
    return Vector(larger(larger(a.x(), b.x()), c.x()), larger(larger(a.y(), b.y()), c.y()),
                  larger(larger(a.z(), b.z()), c.z()));
}

// A cuboid as the tests see it: by its centre and its half extents.
struct CentredBox
{
    CentredBox(Vector const &minCorner, Vector const &maxCorner)
        : centre((minCorner + maxCorner) * 0.5)
        , half((maxCorner - minCorner) * 0.5)
    {
    }

    Vector centre;
    Vector half;
};

// Two projections against the box's interval [-radius, radius]. Positive comparisons: a NaN in
// the radius or in either projection makes one of them fail, and so separates.
inline bool intervalsMeet(double first, double second, double radius)
{
    const double lo = first > second ? second : first;
    const double hi = first > second ? first : second;
    return radius >= lo && hi >= -radius;
}

// The axes crossed with the edge e. Both ends of the edge project onto the same value, so `end`,
// one of them, and `apex`, the opposite vertex, span the triangle's interval.
template <unsigned CrossAxes>
inline bool edgeAxesMeet(Vector const &e, Vector const &end, Vector const &apex, Vector const &h)
{
    if constexpr ((CrossAxes & X) != 0) {
        if (!intervalsMeet(e.z() * end.y() - e.y() * end.z(), e.z() * apex.y() - e.y() * apex.z(),
                           std::fabs(e.y()) * h.z() + std::fabs(e.z()) * h.y()))
            return false;
    }
    if constexpr ((CrossAxes & Y) != 0) {
        if (!intervalsMeet(e.x() * end.z() - e.z() * end.x(), e.x() * apex.z() - e.z() * apex.x(),
                           std::fabs(e.x()) * h.z() + std::fabs(e.z()) * h.x()))
            return false;
    }
    if constexpr ((CrossAxes & Z) != 0) {
        if (!intervalsMeet(e.y() * end.x() - e.x() * end.y(), e.y() * apex.x() - e.x() * apex.y(),
                           std::fabs(e.x()) * h.y() + std::fabs(e.y()) * h.x()))
            return false;
    }
    return true;
}

// Tells whether the plane with normal n through v, a point relative to the box's centre, misses
// the box. A NaN does not separate here.
inline bool planeSeparates(Vector const &n, Vector const &v, Vector const &h)
{
    Vector lowest;
    Vector highest;
    for (int q = 0; q < 3; ++q) {
        const double negative = -h[q] - v[q];
        const double positive = h[q] - v[q];
        lowest[q] = n[q] > 0.0 ? negative : positive;
        highest[q] = n[q] > 0.0 ? positive : negative;
    }
    return n.dot(lowest) > 0.0 || 0.0 > n.dot(highest);
}

} // namespace

bool triangleIntersectsCuboid(Vector const &a, Vector const &b, Vector const &c,
                              Vector const &minCorner, Vector const &maxCorner)
{
    const CentredBox box(minCorner, maxCorner);
    const Vector &h = box.half;
    const Vector va = a - box.centre;
    const Vector vb = b - box.centre;
    const Vector vc = c - box.centre;
    const Vector ab = vb - va;
    const Vector bc = vc - vb;
    const Vector ca = va - vc;

    if (!edgeAxesMeet<X | Y | Z>(ab, va, vc, h) || !edgeAxesMeet<X | Y | Z>(bc, vb, va, h) ||
        !edgeAxesMeet<X | Y | Z>(ca, vc, vb, h))
        return false;
    for (int q = 0; q < 3; ++q) {
        if (va[q] > h[q] && vb[q] > h[q] && vc[q] > h[q])
            return false;
        if (va[q] < -h[q] && vb[q] < -h[q] && vc[q] < -h[q])
            return false;
    }
    return !planeSeparates(bc.cross(ca), va, h);
}

TriangleCuboidIntersector::TriangleCuboidIntersector(Vector const &a, Vector const &b,
                                                     Vector const &c)
    : p0(a)
    , p1(b)
    , p2(c)
    , e0(c - b)
    , e1(a - c)
    , e2(b - a)
    , normal(e0.cross(e1))
    , minimum(componentMinimum(a, b, c))
    , maximum(componentMaximum(a, b, c))
    , centroid((a + b + c) / 3.0)
{
}

TriangleCuboidIntersector &
TriangleCuboidIntersector::operator=(TriangleCuboidIntersector const &other) = default;

TriangleCuboidIntersector &
TriangleCuboidIntersector::operator=(TriangleCuboidIntersector &&other) = default;

// CentroidAxes: coordinates that can push the centroid out of the cuboid. ChangedAxes: coordinates
// in which the cuboid differs from its parent. CrossAxes: axes whose products with the edges can
// separate although they did not separate the parent. Cheap tests come first.
template <unsigned CentroidAxes, unsigned ChangedAxes, unsigned CrossAxes>
inline TriangleCuboidIntersectionType TriangleCuboidIntersector::test(Vector const &minCorner,
                                                                      Vector const &maxCorner) const
{
    if (allOf<CentroidAxes>(
            [&](int q) { return maxCorner[q] >= centroid[q] && centroid[q] >= minCorner[q]; }))
        return TriangleCuboidContainsCentroid;

    if (!allOf<ChangedAxes>(
            [&](int q) { return !(minimum[q] > maxCorner[q] || minCorner[q] > maximum[q]); }))
        return TriangleCuboidDisjoint;

    const CentredBox box(minCorner, maxCorner);
    const Vector v0 = p0 - box.centre;
    const Vector v1 = p1 - box.centre;
    const Vector v2 = p2 - box.centre;
    if (!edgeAxesMeet<CrossAxes>(e2, v0, v2, box.half) ||
        !edgeAxesMeet<CrossAxes>(e0, v1, v0, box.half) ||
        !edgeAxesMeet<CrossAxes>(e1, v2, v1, box.half))
        return TriangleCuboidDisjoint;

    return planeSeparates(normal, v0, box.half) ? TriangleCuboidDisjoint : TriangleCuboidOverlap;
}

TriangleCuboidIntersectionType
TriangleCuboidIntersector::intersect(Vector const &minCorner, Vector const &maxCorner,
                                     int splitAxis, TriangleCuboidIntersectionType parentType) const
{
    const bool parentHoldsCentroid = parentType == TriangleCuboidContainsCentroid;
    switch (splitAxis) {
    case 0:
        return parentHoldsCentroid ? test<X, X, Y | Z>(minCorner, maxCorner)
                                   : test<X | Y | Z, X, Y | Z>(minCorner, maxCorner);
    case 1:
        return parentHoldsCentroid ? test<Y, Y, X | Z>(minCorner, maxCorner)
                                   : test<X | Y | Z, Y, X | Z>(minCorner, maxCorner);
    case 2:
        return parentHoldsCentroid ? test<Z, Z, X | Y>(minCorner, maxCorner)
                                   : test<X | Y | Z, Z, X | Y>(minCorner, maxCorner);
    default:
        return test<X | Y | Z, X | Y | Z, X | Y | Z>(minCorner, maxCorner);
    }
}

} // namespace MatUtil
