#pragma once

/// @file
/// What the lookups answer: the searches of the tree as they are defined, node by node.
///
/// The lookups take the shortcuts in quick/ where these prove the same answer; tests run both. A
/// subtree is any class with isEmpty, point, payload, left and right, so that the definitions run
/// on other trees too. They recurse as deep as the tree, which has 1002 levels at most.

#include <OrvelMath/lookup/LookupRegion_p.h>

#include <cmath>

/// No value is below this level; the root has level 0.
constexpr int lookupDeepestLevel = 1001;

/// Lets every value be the answer.
struct LookupAcceptAll
{
    template <typename Point>
    bool operator()(Point const &) const
    {
        return true;
    }
};

/// Passes over the values equal to a point.
template <int K>
struct LookupAcceptOthers
{
    LookupPoint<K> point;

    bool operator()(LookupPoint<K> const &p) const { return !areEqual(p, point); }
};

/// What a search for the nearest value found; without a payload when it found nothing.
template <int K, typename Payload>
struct LookupNearest
{
    LookupPoint<K> point = {};
    Payload const *payload = nullptr;
    double distance = 0.0; ///< not squared
};

/// One search for the nearest value. Distances are squared and compared exactly.
template <typename Nearest, int K, typename Accept>
struct NearestDefinition
{
    LookupPoint<K> query;
    double maxSq; ///< squared distance of the best value, or the squared limit while there is none
    Accept accept;
    Nearest best;

    template <typename Subtree>
    void search(Subtree const &subtree, int d)
    {
        LookupPoint<K> const p = subtree.point();
        double const d2 = squaredDistance(query, p);
        if (accept(p) && maxSq >= d2) { // of equally near ones the last
            maxSq = d2;
            best.point = p;
            best.payload = &subtree.payload();
        }
        bool const leftFirst = p[d] > query[d];
        Subtree const towards = leftFirst ? subtree.left() : subtree.right();
        Subtree const away = leftFirst ? subtree.right() : subtree.left();
        int const next = d + 1 == K ? 0 : d + 1;
        if (!towards.isEmpty()) {
            search(towards, next);
        }
        double const toPlane = query[d] - p[d];
        if (!away.isEmpty() && maxSq >= toPlane * toPlane) {
            search(away, next);
        }
    }
};

/// The value nearest to `query` among those whose point `accept` allows and that are at most
/// `maxDistance` away.
///
/// Of several at the same distance it is the last one in the order of the search: a node comes
/// before its subtrees, and the subtree on the query's side of the node before the other one.
template <typename Nearest, typename Subtree, int K, typename Accept>
Nearest findNearestAsDefined(Subtree const &root, LookupPoint<K> const &query, double maxDistance,
                             Accept accept)
{
    NearestDefinition<Nearest, K, Accept> definition = {
        query, maxDistance * maxDistance, accept, {}};
    if (!root.isEmpty()) {
        definition.search(root, 0);
    }
    if (definition.best.payload) {
        definition.best.distance = std::sqrt(definition.maxSq);
    }
    return definition.best;
}

/// Calls `visit(point, payload)` with every value of the subtree inside the closed box, in
/// pre-order: a node, its left subtree, its right subtree. `bounds` is what the splits above leave
/// of the box. A point with a NaN is outside of no box and may come too.
template <typename Subtree, int K, typename Visit>
void collectInRegionAsDefined(Subtree const &subtree, int d, LookupRegion<K> const &bounds,
                              LookupRegion<K> const &region, Visit &visit)
{
    LookupPoint<K> const p = subtree.point();
    if (region.encloses(p)) {
        visit(p, subtree.payload());
    }
    int const next = d + 1 == K ? 0 : d + 1;
    Subtree const left = subtree.left();
    Subtree const right = subtree.right();
    LookupRegion<K> side = bounds;
    side.high[d] = p[d];
    if (!left.isEmpty() && side.intersects(region)) {
        collectInRegionAsDefined(left, next, side, region, visit);
    }
    side = bounds;
    side.low[d] = p[d];
    if (!right.isEmpty() && side.intersects(region)) {
        collectInRegionAsDefined(right, next, side, region, visit);
    }
}

/// Calls `visit(point, payload, squared distance)` with every value in the open disc or ball, in
/// pre-order: those inside its box whose squared distance is below the square of the radius.
///
/// A radius of 0 finds nothing. So does a negative one, unless it is so small beside the centre
/// that the box is the centre: then the values equal to the centre are found.
template <typename Subtree, int K, typename Visit>
void collectInDiscAsDefined(Subtree const &root, LookupPoint<K> const &centre, double radius,
                            Visit visit)
{
    if (root.isEmpty()) {
        return;
    }
    auto const visitInside = [&](LookupPoint<K> const &p, auto const &payload) {
        double const d2 = squaredDistance(centre, p);
        if (radius * radius > d2) {
            visit(p, payload, d2);
        }
    };
    auto const region = LookupRegion<K>::around(centre, radius);
    collectInRegionAsDefined(root, 0, region, region, visitInside);
}
