#include <OrvelMath/geom3d/TriangleCuboidIntersector.h>

#include <OrvelMath/geom3d/PairLanes_p.h>

namespace MatUtil {

namespace {

using Vector = vectorC3d<double>;

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

// A vector in lanes, seen from the coordinate S: the two other coordinates side by side, and S in
// both lanes. The cross products of the two other axes with an edge pair each of them with S.
template <int S>
struct Lanes
{
    static constexpr int first = S == 0 ? 1 : 0;
    static constexpr int second = S == 2 ? 1 : 2;

    explicit Lanes(Vector const &v)
        : split{v[S], v[S]}
        , others{v[first], v[second]}
    {
    }
    Lanes(Pair splitLanes, Pair otherLanes)
        : split(splitLanes)
        , others(otherLanes)
    {
    }
    Lanes operator+(Lanes const &o) const { return {split + o.split, others + o.others}; }
    Lanes operator-(Lanes const &o) const { return {split - o.split, others - o.others}; }
    Lanes halved() const { return {split * 0.5, others * 0.5}; }

    Pair split;
    Pair others;
};

// A lane is true where the projections on (axis x e) come within the box's, [-radius, radius].
// Both ends of the edge e have the same projection, so `end`, one of them, and `apex`, the opposite
// vertex, span the triangle's interval; its sign is free, since the box's is symmetric. A NaN in
// the radius or in either projection makes a comparison fail, and so separates.
template <int S>
inline PairMask edgeAxesMeet(Lanes<S> const &e, Lanes<S> const &end, Lanes<S> const &apex,
                             Lanes<S> const &half)
{
    Pair const p = e.others * end.split - e.split * end.others;
    Pair const q = e.others * apex.split - e.split * apex.others;
    Pair const radius = magnitude(e.others) * half.split + magnitude(e.split) * half.others;
    Pair const lo = lesserOr(p, q);
    Pair const hi = greaterOr(q, p);
    return (radius >= lo) & (hi >= -radius);
}

// The plane with normal n through the vertex v misses the box. The sums are the product of n with
// the box's corner that lies lowest along n, seen from v, and that with the highest, negated:
// either separates if it is above 0. A NaN does not separate.
template <int S>
inline bool planeSeparates(Lanes<S> const &n, Lanes<S> const &v, Lanes<S> const &half)
{
    Pair const zero{0.0, 0.0};
    Pair const cornerSplit = negatedWhere(n.split > zero, half.split);
    Pair const cornerOthers = negatedWhere(n.others > zero, half.others);
    Pair const vSplit = negatedWhere(PairMask{0, -1}, v.split);
    Pair const lowestOthers = n.others * (cornerOthers - v.others);
    Pair const highestOthers = n.others * (cornerOthers + v.others);
    Pair const split = n.split * (cornerSplit - vSplit);
    Pair const first{lowestOthers[0], highestOthers[0]};
    Pair const second{lowestOthers[1], highestOthers[1]};
    // Summed in the order x, y, z.
    Pair const sum = S == 0   ? split + first + second
                     : S == 1 ? first + split + second
                              : first + second + split;
    return answerBits(sum > zero) != 0;
}

// A triangle beside a box, both relative to the box's centre.
template <int S>
struct CentredScene
{
    CentredScene(Vector const &p0, Vector const &p1, Vector const &p2, Vector const &minCorner,
                 Vector const &maxCorner)
        : CentredScene(p0, p1, p2, Lanes<S>(minCorner), Lanes<S>(maxCorner))
    {
    }
    CentredScene(Vector const &p0, Vector const &p1, Vector const &p2, Lanes<S> const &lo,
                 Lanes<S> const &hi)
        : half((hi - lo).halved())
        , v0(Lanes<S>(p0) - (lo + hi).halved())
        , v1(Lanes<S>(p1) - (lo + hi).halved())
        , v2(Lanes<S>(p2) - (lo + hi).halved())
    {
    }

    // No cross product of an edge with a coordinate axis other than S separates. The six answers
    // are gathered before they are asked: which of the axes separates cannot be foreseen, and a
    // wrong guess costs the processor more than the arithmetic.
    bool edgeAxesMeet(Vector const &e0, Vector const &e1, Vector const &e2) const
    {
        return answerBits(MatUtil::edgeAxesMeet(Lanes<S>(e2), v0, v2, half) &
                          MatUtil::edgeAxesMeet(Lanes<S>(e0), v1, v0, half) &
                          MatUtil::edgeAxesMeet(Lanes<S>(e1), v2, v1, half)) == 3;
    }
    bool planeSeparates(Vector const &normal) const
    {
        return MatUtil::planeSeparates(Lanes<S>(normal), v0, half);
    }

    Lanes<S> half;
    Lanes<S> v0, v1, v2;
};

} // namespace

bool triangleIntersectsCuboid(Vector const &a, Vector const &b, Vector const &c,
                              Vector const &minCorner, Vector const &maxCorner)
{
    Vector const centre = (minCorner + maxCorner) * 0.5;
    Vector const h = (maxCorner - minCorner) * 0.5;
    Vector const va = a - centre;
    Vector const vb = b - centre;
    Vector const vc = c - centre;
    Vector const ab = vb - va;
    Vector const bc = vc - vb;
    Vector const ca = va - vc;
    CentredScene<0> const seenFromX(a, b, c, minCorner, maxCorner);
    CentredScene<1> const seenFromY(a, b, c, minCorner, maxCorner);
    if (!seenFromX.edgeAxesMeet(bc, ca, ab) || !seenFromY.edgeAxesMeet(bc, ca, ab)) {
        return false;
    }
    for (int q = 0; q < 3; ++q) {
        if (va[q] > h[q] && vb[q] > h[q] && vc[q] > h[q]) {
            return false;
        }
        if (va[q] < -h[q] && vb[q] < -h[q] && vc[q] < -h[q]) {
            return false;
        }
    }
    return !seenFromX.planeSeparates(bc.cross(ca));
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

// The centroid lies in the closed span of coordinate q.
inline bool TriangleCuboidIntersector::centroidWithin(Vector const &minCorner,
                                                      Vector const &maxCorner, int q) const
{
    return maxCorner[q] >= centroid[q] && centroid[q] >= minCorner[q];
}

inline bool TriangleCuboidIntersector::rangesApart(Vector const &minCorner, Vector const &maxCorner,
                                                   int q) const
{
    return minimum[q] > maxCorner[q] || minCorner[q] > maximum[q];
}

// One half of a box split along Axis. Within the two other coordinates it is its parent, so these
// can neither push out a centroid that the parent held nor part the ranges; and the products of
// Axis with the edges see only them. Cheap tests come first.
template <int Axis, bool ParentHoldsCentroid>
inline TriangleCuboidIntersectionType
TriangleCuboidIntersector::testHalf(Vector const &minCorner, Vector const &maxCorner) const
{
    constexpr int A = (Axis + 1) % 3;
    constexpr int B = (Axis + 2) % 3;
    bool within = centroidWithin(minCorner, maxCorner, Axis);
    if constexpr (!ParentHoldsCentroid) {
        within = within && centroidWithin(minCorner, maxCorner, A) &&
                 centroidWithin(minCorner, maxCorner, B);
    }
    if (within) {
        return TriangleCuboidContainsCentroid;
    }
    if (rangesApart(minCorner, maxCorner, Axis)) {
        return TriangleCuboidDisjoint;
    }
    CentredScene<Axis> const scene(p0, p1, p2, minCorner, maxCorner);
    bool const edgesMeet = scene.edgeAxesMeet(e0, e1, e2);
    bool const planeSeparates = scene.planeSeparates(normal);
    bool const meets = edgesMeet & !planeSeparates; // no branch between the two
    return meets ? TriangleCuboidOverlap : TriangleCuboidDisjoint;
}

inline TriangleCuboidIntersectionType
TriangleCuboidIntersector::testAll(Vector const &minCorner, Vector const &maxCorner) const
{
    if (centroidWithin(minCorner, maxCorner, 0) && centroidWithin(minCorner, maxCorner, 1) &&
        centroidWithin(minCorner, maxCorner, 2)) {
        return TriangleCuboidContainsCentroid;
    }
    if (rangesApart(minCorner, maxCorner, 0) || rangesApart(minCorner, maxCorner, 1) ||
        rangesApart(minCorner, maxCorner, 2)) {
        return TriangleCuboidDisjoint;
    }
    CentredScene<0> const seenFromX(p0, p1, p2, minCorner, maxCorner);
    CentredScene<1> const seenFromY(p0, p1, p2, minCorner, maxCorner);
    bool const meets = seenFromX.edgeAxesMeet(e0, e1, e2) && seenFromY.edgeAxesMeet(e0, e1, e2) &&
                       !seenFromX.planeSeparates(normal);
    return meets ? TriangleCuboidOverlap : TriangleCuboidDisjoint;
}

TriangleCuboidIntersectionType
TriangleCuboidIntersector::intersect(Vector const &minCorner, Vector const &maxCorner,
                                     int splitAxis, TriangleCuboidIntersectionType parentType) const
{
    bool const parentHoldsCentroid = parentType == TriangleCuboidContainsCentroid;
    switch (splitAxis) {
    case 0:
        return parentHoldsCentroid ? testHalf<0, true>(minCorner, maxCorner)
                                   : testHalf<0, false>(minCorner, maxCorner);
    case 1:
        return parentHoldsCentroid ? testHalf<1, true>(minCorner, maxCorner)
                                   : testHalf<1, false>(minCorner, maxCorner);
    case 2:
        return parentHoldsCentroid ? testHalf<2, true>(minCorner, maxCorner)
                                   : testHalf<2, false>(minCorner, maxCorner);
    default:
        return testAll(minCorner, maxCorner);
    }
}

} // namespace MatUtil
