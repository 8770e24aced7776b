#pragma once

/// @file
/// The k nearest values of a lookup.

#include <OrvelMath/lookup/LookupTree_p.h>
#include <OrvelMath/lookup/quick/NeighbourWalk_p.h>

#include <QtCore/QtGlobal>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

/// The values of `tree` in the open disc around `centre`, in the order of the tree, each with its
/// distance. A value is in the disc when its squared distance is below the square of the radius.
///
/// For radii of 0 and above a larger disc holds all that a smaller one holds, also as computed: its
/// box and its square are not smaller, since rounding is monotone.
template <typename Tree, typename Point>
std::vector<typename Tree::Nearest> valuesInDisc(Tree const &tree, Point const &centre,
                                                 double radius)
{
    std::vector<typename Tree::Nearest> values;
    tree.collectInDisc(centre, radius,
                       [&values](auto const &p, auto const &payload, double squaredDistance) {
                           values.push_back({p, &payload, std::sqrt(squaredDistance)});
                       });
    return values;
}

/// The values of the first disc that holds k of them, or of the largest one: the first radius is
/// twice `nearest`, the distance of the nearest value that is not at the centre, each further one
/// twice the one before, the last one `maxDistance`.
///
/// When pass after pass gains nothing, the disc of `maxDistance` is asked at once. If it holds less
/// than k values, it is where the passes would end; so values that no disc holds (with a NaN, or
/// too far away for the square of their distance) cost no thousand passes.
template <typename Tree, typename Point>
std::vector<typename Tree::Nearest> valuesInGrowingDisc(Tree const &tree, Point const &centre,
                                                        int k, double nearest, double maxDistance)
{
    Q_ASSERT(k > 1);
    constexpr int mostIdlePasses = 8;
    std::size_t const wanted = std::min<std::size_t>(static_cast<std::size_t>(k), tree.size());
    std::vector<typename Tree::Nearest> values;
    int idlePasses = 0;
    bool askedForAll = false;
    double radius = std::min(2.0 * nearest, maxDistance);
    while (values.size() < wanted) {
        std::size_t const before = values.size();
        values = valuesInDisc(tree, centre, radius);
        if (radius >= maxDistance) {
            break;
        }
        // A distance whose square underflows is 0 and stays 0 when doubled.
        radius = radius == 0.0 ? maxDistance : std::min(2.0 * radius, maxDistance);
        idlePasses = values.size() > before ? 0 : idlePasses + 1;
        bool const holdsMost = idlePasses > 0 && 2 * values.size() > tree.size();
        if (!askedForAll && (holdsMost || idlePasses == mostIdlePasses)) {
            askedForAll = true;
            auto all = valuesInDisc(tree, centre, maxDistance);
            if (all.size() < wanted) {
                return all;
            }
        }
    }
    return values;
}

/// The k nearest values by ascending distance, equal distances in the order of the tree: those of
/// the growing disc, sorted and cut off.
template <typename Tree, typename Point>
std::vector<typename Tree::Nearest> nearestByGrowingDisc(Tree const &tree, Point const &centre,
                                                         int k, double nearest, double maxDistance)
{
    using Value = typename Tree::Nearest;
    auto values = valuesInGrowingDisc(tree, centre, k, nearest, maxDistance);
    std::stable_sort(values.begin(), values.end(),
                     [](Value const &a, Value const &b) { return a.distance < b.distance; });
    values.resize(std::min(values.size(), static_cast<std::size_t>(k)));
    return values;
}

/// The k nearest values as they are defined, for a k above 1: those of the growing disc; none when
/// no value but those equal to the centre is at most `maxDistance` away.
template <typename Tree, int K>
std::vector<typename Tree::Nearest> findNearestValuesAsDefined(Tree const &tree,
                                                               LookupPoint<K> const &centre, int k,
                                                               double maxDistance)
{
    auto const other = tree.findNearest(centre, maxDistance, LookupAcceptOthers<K>{centre});
    if (!other.payload) {
        return {};
    }
    return nearestByGrowingDisc(tree, centre, k, other.distance, maxDistance);
}

/// As findNearestValuesAsDefined, by one search where that gives the same list. Beyond some hundred
/// values the insertion into a sorted list costs more than the passes.
template <int K, typename Payload>
std::vector<LookupNearest<K, Payload>> findNearestValues(LookupTree<K, Payload> const &tree,
                                                         LookupPoint<K> const &centre, int k,
                                                         double maxDistance)
{
    constexpr std::uint64_t mostByOneSearch = 200;
    std::uint64_t const wanted =
        std::min<std::uint64_t>(static_cast<std::uint64_t>(k), tree.size());
    if (wanted > 0 && wanted <= mostByOneSearch && maxDistance >= 0.0 && isFinite(centre)) {
        NeighbourWalk<K, Payload> walk(*tree.rootRun(), centre, static_cast<int>(wanted),
                                       maxDistance);
        double const firstRadius = std::min(2.0 * walk.nearestOther(), maxDistance);
        if (firstRadius > 0.0) {
            return walk.nearest(firstRadius, maxDistance);
        }
    }
    return findNearestValuesAsDefined(tree, centre, k, maxDistance);
}
