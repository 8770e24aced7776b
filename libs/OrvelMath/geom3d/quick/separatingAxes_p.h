#pragma once

/// @file
/// The separating axis tests of a triangle and a box in lanes. Not part of the interface.
///
/// What it proves: each lane does the arithmetic of the definition in
/// TriangleCuboidIntersector.cpp, operation by operation, so every comparison has the same operands
/// to the bit (but for the sign of a projection, which a symmetric interval doesn't notice, and the
/// order of the two terms of a sum). Only the order in which the axes are asked differs, and the
/// answer is whether any of them separates.

#include <OrvelMath/engine/Pair_p.h>
#include <OrvelMath/geom3d/TriangleCuboidView_p.h>

namespace MatUtil::quick {

using engine::answerBits;
using engine::greaterOr;
using engine::lesserOr;
using engine::magnitude;
using engine::negatedWhere;
using engine::Pair;
using engine::PairMask;

/// A vector in lanes, seen from the coordinate S: the two other coordinates side by side, and S in
/// both lanes. The cross products of the two other axes with an edge pair each of them with S.
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

/// A lane is true where the projections on (axis x e) come within the box's, [-radius, radius].
/// Both ends of the edge e have the same projection, so `end`, one of them, and `apex`, the
/// opposite vertex, span the triangle's interval; its sign is free, since the box's is symmetric. A
/// NaN in the radius or in either projection makes a comparison fail, and so separates.
template <int S>
ORVEL_INLINE PairMask edgeAxesMeet(Lanes<S> const &e, Lanes<S> const &end, Lanes<S> const &apex,
                                   Lanes<S> const &half)
{
    Pair const p = e.others * end.split - e.split * end.others;
    Pair const q = e.others * apex.split - e.split * apex.others;
    Pair const radius = magnitude(e.others) * half.split + magnitude(e.split) * half.others;
    Pair const lo = lesserOr(p, q);
    Pair const hi = greaterOr(q, p);
    return (radius >= lo) & (hi >= -radius);
}

/// The plane with normal n through the vertex v misses the box. The sums are the product of n with
/// the box's corner that lies lowest along n, seen from v, and that with the highest, negated:
/// either separates if it is above 0. A NaN does not separate.
template <int S>
ORVEL_INLINE bool planeSeparates(Lanes<S> const &n, Lanes<S> const &v, Lanes<S> const &half)
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

/// A triangle beside a box, both relative to the box's centre.
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

    /// No cross product of an edge with a coordinate axis other than S separates. The six answers
    /// are gathered before they are asked: which of the axes separates cannot be foreseen, and a
    /// wrong guess costs the processor more than the arithmetic.
    bool edgeAxesMeet(Vector const &e0, Vector const &e1, Vector const &e2) const
    {
        return answerBits(quick::edgeAxesMeet(Lanes<S>(e2), v0, v2, half) &
                          quick::edgeAxesMeet(Lanes<S>(e0), v1, v0, half) &
                          quick::edgeAxesMeet(Lanes<S>(e1), v2, v1, half)) == 3;
    }
    bool planeSeparates(Vector const &normal) const
    {
        return quick::planeSeparates(Lanes<S>(normal), v0, half);
    }

    Lanes<S> half;
    Lanes<S> v0, v1, v2;
};

/// `triangleIntersectsCuboid`.
inline bool meets(Vector const &a, Vector const &b, Vector const &c, Vector const &minCorner,
                  Vector const &maxCorner)
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

/// One half of a box that was split along Axis. Within the two other coordinates it is its parent,
/// so these can neither push out a centroid that the parent held nor part the ranges; and the
/// products of Axis with the edges see only them. Cheap tests come first.
template <int Axis, bool ParentHoldsCentroid>
inline TriangleCuboidIntersectionType testHalf(TriangleCuboidView const &t, Vector const &minCorner,
                                               Vector const &maxCorner)
{
    constexpr int A = (Axis + 1) % 3;
    constexpr int B = (Axis + 2) % 3;
    bool within = t.isCentroidWithin(minCorner, maxCorner, Axis);
    if constexpr (!ParentHoldsCentroid) {
        within = within && t.isCentroidWithin(minCorner, maxCorner, A) &&
                 t.isCentroidWithin(minCorner, maxCorner, B);
    }
    if (within) {
        return TriangleCuboidContainsCentroid;
    }
    if (t.areRangesApart(minCorner, maxCorner, Axis)) {
        return TriangleCuboidDisjoint;
    }
    CentredScene<Axis> const scene(t.p0, t.p1, t.p2, minCorner, maxCorner);
    bool const edgesMeet = scene.edgeAxesMeet(t.e0, t.e1, t.e2);
    bool const planeSeparates = scene.planeSeparates(t.normal);
    bool const meets = edgesMeet & !planeSeparates; // no branch between the two
    return meets ? TriangleCuboidOverlap : TriangleCuboidDisjoint;
}

/// A box of which nothing is known.
inline TriangleCuboidIntersectionType testAll(TriangleCuboidView const &t, Vector const &minCorner,
                                              Vector const &maxCorner)
{
    if (t.isCentroidWithin(minCorner, maxCorner, 0) &&
        t.isCentroidWithin(minCorner, maxCorner, 1) &&
        t.isCentroidWithin(minCorner, maxCorner, 2)) {
        return TriangleCuboidContainsCentroid;
    }
    if (t.areRangesApart(minCorner, maxCorner, 0) || t.areRangesApart(minCorner, maxCorner, 1) ||
        t.areRangesApart(minCorner, maxCorner, 2)) {
        return TriangleCuboidDisjoint;
    }
    CentredScene<0> const seenFromX(t.p0, t.p1, t.p2, minCorner, maxCorner);
    CentredScene<1> const seenFromY(t.p0, t.p1, t.p2, minCorner, maxCorner);
    bool const meets = seenFromX.edgeAxesMeet(t.e0, t.e1, t.e2) &&
                       seenFromY.edgeAxesMeet(t.e0, t.e1, t.e2) &&
                       !seenFromX.planeSeparates(t.normal);
    return meets ? TriangleCuboidOverlap : TriangleCuboidDisjoint;
}

} // namespace MatUtil::quick
