#include <OrvelMath/geom3d/TriangleCuboidIntersector.h>

#include <OrvelMath/geom3d/TriangleCuboidView_p.h>
#include <OrvelMath/geom3d/quick/separatingAxes_p.h>

#include <cmath>

namespace MatUtil {

namespace {

/// The smaller (larger) of two; a NaN in the second is passed over.
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

/// A triangle beside a box, both relative to the box's centre.
struct Scene
{
    Scene(Vector const &a, Vector const &b, Vector const &c, Vector const &minCorner,
          Vector const &maxCorner)
        : half((maxCorner - minCorner) * 0.5)
        , v0(a - (minCorner + maxCorner) * 0.5)
        , v1(b - (minCorner + maxCorner) * 0.5)
        , v2(c - (minCorner + maxCorner) * 0.5)
    {
    }

    Vector half;
    Vector v0, v1, v2;
};

/// Whether the projections on the cross product of a coordinate axis with the edge e part triangle
/// and box. Both ends of the edge have the same projection, so one of them and the opposite vertex
/// span the triangle's interval. NaN parts them.
bool edgeAxisSeparates(int axis, Vector const &e, Vector const &end, Vector const &apex,
                       Vector const &half)
{
    int const i = (axis + 1) % 3;
    int const j = (axis + 2) % 3;
    double const p = e[j] * end[i] - e[i] * end[j];
    double const q = e[j] * apex[i] - e[i] * apex[j];
    double const radius = std::fabs(e[i]) * half[j] + std::fabs(e[j]) * half[i];
    double const low = p < q ? p : q;
    double const high = q > p ? q : p;
    return !(radius >= low && high >= -radius);
}

/// Whether one of the axes that belong to the edge e separates, the one of `skipped` left out.
bool edgeSeparates(Vector const &e, Vector const &end, Vector const &apex, Vector const &half,
                   int skipped)
{
    for (int axis = 0; axis < 3; ++axis) {
        if (axis != skipped && edgeAxisSeparates(axis, e, end, apex, half)) {
            return true;
        }
    }
    return false;
}

/// Whether all three edges' axes leave triangle and box together; e0 runs from vertex 1 to 2, e1
/// from 2 to 0, e2 from 0 to 1.
bool anyEdgeSeparates(Scene const &s, Vector const &e0, Vector const &e1, Vector const &e2,
                      int skipped)
{
    return edgeSeparates(e2, s.v0, s.v2, s.half, skipped) ||
           edgeSeparates(e0, s.v1, s.v0, s.half, skipped) ||
           edgeSeparates(e1, s.v2, s.v1, s.half, skipped);
}

/// Whether the plane through the vertex v across n misses the box: its corners that lie lowest and
/// highest along n are on one side. NaN does not separate.
bool planeSeparates(Vector const &n, Vector const &v, Vector const &half)
{
    Vector lowest;
    Vector highest;
    for (int q = 0; q < 3; ++q) {
        bool const ascends = n[q] > 0.0;
        lowest[q] = ascends ? -half[q] - v[q] : half[q] - v[q];
        highest[q] = ascends ? half[q] - v[q] : -half[q] - v[q];
    }
    return n.dot(lowest) > 0.0 || 0.0 > n.dot(highest);
}

} // namespace

bool definition::triangleIntersectsCuboid(Vector const &a, Vector const &b, Vector const &c,
                                          Vector const &minCorner, Vector const &maxCorner)
{
    Scene const s(a, b, c, minCorner, maxCorner);
    Vector const ab = s.v1 - s.v0;
    Vector const bc = s.v2 - s.v1;
    Vector const ca = s.v0 - s.v2;
    if (anyEdgeSeparates(s, bc, ca, ab, -1)) {
        return false;
    }
    for (int q = 0; q < 3; ++q) {
        double const h = s.half[q];
        if ((s.v0[q] > h && s.v1[q] > h && s.v2[q] > h) ||
            (s.v0[q] < -h && s.v1[q] < -h && s.v2[q] < -h)) {
            return false;
        }
    }
    return !planeSeparates(bc.cross(ca), s.v0, s.half);
}

TriangleCuboidIntersectionType definition::intersect(TriangleCuboidIntersector const &intersector,
                                                     Vector const &minCorner,
                                                     Vector const &maxCorner, int splitAxis,
                                                     TriangleCuboidIntersectionType parentType)
{
    TriangleCuboidView const t(intersector);
    bool const isHalf = splitAxis >= 0 && splitAxis < 3;
    bool const parentHoldsCentroid = parentType == TriangleCuboidContainsCentroid;
    bool isWithin = true;
    for (int q = 0; q < 3; ++q) {
        // A half has its parent's spans in the other coordinates.
        bool const isKnown = isHalf && parentHoldsCentroid && q != splitAxis;
        isWithin = isWithin && (isKnown || t.isCentroidWithin(minCorner, maxCorner, q));
    }
    if (isWithin) {
        return TriangleCuboidContainsCentroid;
    }
    for (int q = 0; q < 3; ++q) {
        if ((!isHalf || q == splitAxis) && t.areRangesApart(minCorner, maxCorner, q)) {
            return TriangleCuboidDisjoint;
        }
    }
    Scene const s(t.p0, t.p1, t.p2, minCorner, maxCorner);
    if (anyEdgeSeparates(s, t.e0, t.e1, t.e2, isHalf ? splitAxis : -1) ||
        planeSeparates(t.normal, s.v0, s.half)) {
        return TriangleCuboidDisjoint;
    }
    return TriangleCuboidOverlap;
}

bool triangleIntersectsCuboid(Vector const &a, Vector const &b, Vector const &c,
                              Vector const &minCorner, Vector const &maxCorner)
{
    return quick::meets(a, b, c, minCorner, maxCorner);
}

TriangleCuboidIntersector::TriangleCuboidIntersector(Vector const &a, Vector const &b,
                                                     Vector const &c)
    : m_p0(a)
    , m_p1(b)
    , m_p2(c)
    , m_e0(c - b)
    , m_e1(a - c)
    , m_e2(b - a)
    , m_normal(m_e0.cross(m_e1))
    , m_minimum(componentMinimum(a, b, c))
    , m_maximum(componentMaximum(a, b, c))
    , m_centroid((a + b + c) / 3.0)
{
}

TriangleCuboidIntersector &
TriangleCuboidIntersector::operator=(TriangleCuboidIntersector const &other) = default;

TriangleCuboidIntersector &
TriangleCuboidIntersector::operator=(TriangleCuboidIntersector &&other) = default;

TriangleCuboidIntersectionType
TriangleCuboidIntersector::intersect(Vector const &minCorner, Vector const &maxCorner,
                                     int splitAxis, TriangleCuboidIntersectionType parentType) const
{
    TriangleCuboidView const t(*this);
    bool const parentHoldsCentroid = parentType == TriangleCuboidContainsCentroid;
    switch (splitAxis) {
    case 0:
        return parentHoldsCentroid ? quick::testHalf<0, true>(t, minCorner, maxCorner)
                                   : quick::testHalf<0, false>(t, minCorner, maxCorner);
    case 1:
        return parentHoldsCentroid ? quick::testHalf<1, true>(t, minCorner, maxCorner)
                                   : quick::testHalf<1, false>(t, minCorner, maxCorner);
    case 2:
        return parentHoldsCentroid ? quick::testHalf<2, true>(t, minCorner, maxCorner)
                                   : quick::testHalf<2, false>(t, minCorner, maxCorner);
    default:
        return quick::testAll(t, minCorner, maxCorner);
    }
}

} // namespace MatUtil
