#pragma once

/// @file
/// What both point-in-polygon tests stand on: how often the outline crosses a horizontal ray to the
/// right inside a band (M. Shimrat, 1962, for the ray; the band is our own). Not part of the
/// interface.
///
/// The two tests differ in a few rules. These come as a struct of static members, a `Test`:
///
/// - `emptyExtent`: the extent in x of no vertices, from which a scan begins;
/// - `reach`: how far beyond the outline the ray ends, a length;
/// - `isBeyond(x, extent, tol)`: whether a point at x is outside without a further look;
/// - `isOnOutline(cur, next, ray)`: whether an edge puts the point on the outline by an end that
///   lies in the band;
/// - `meeting(cur, next, ray)`: how an edge from one side of the band to the other meets the ray.

#include <OrvelMath/base/Point2D.h>

namespace polygonCrossings {

/// Where a height lies against the band about the ray.
enum class Level { Below, InBand, Above };

/// How an edge from one side of the band to the other meets the ray.
enum class Meeting { Misses, Crosses, AtStart };

/// The answer of both tests.
enum class Place { Outside, OnOutline, Inside };

/// A count of crossings that says instead: the point is on the outline.
constexpr int onOutline = -1;

/// An extent in x.
struct Extent
{
    double min;
    double max;
};

/// The ray from a point to the right, and the band of half-height tol about it, borders included.
struct Ray
{
    Ray(Point2D const &p, double endX, double tolerance)
        : start(p)
        , end(endX, p.y())
        , tol(tolerance)
        , low(p.y() - tolerance)
        , high(p.y() + tolerance)
    {
    }

    Level levelOf(double y) const
    {
        if (low > y) {
            return Level::Below;
        }
        return y > high ? Level::Above : Level::InBand;
    }

    Point2D start;
    Point2D end;
    double tol;
    double low;
    double high;
};

/// A vertex of the outline and its level.
struct Vertex
{
    Vertex(Point2D const &p, Ray const &ray)
        : point(p)
        , level(ray.levelOf(p.y()))
    {
    }

    bool isInBand() const { return level == Level::InBand; }

    Point2D point;
    Level level;
};

/// What one edge adds to the count: 0, 1 or `onOutline`.
///
/// @param last side of the last vertex outside the band, up to the vertex before `cur`.
///
/// Where the outline enters the band and leaves it again, it passes once, at the vertex where it
/// leaves, and only if it leaves to the other side than it came from.
template <typename Test>
int countOf(Vertex const &cur, Vertex const &next, Level last, Ray const &ray)
{
    if (Test::isOnOutline(cur, next, ray)) {
        return onOutline;
    }
    if (next.isInBand() || next.level == cur.level) {
        return 0;
    }
    if (cur.isInBand()) {
        return cur.point.x() > ray.start.x() - ray.tol && next.level != last ? 1 : 0;
    }
    switch (Test::meeting(cur.point, next.point, ray)) {
    case Meeting::Crosses:
        return 1;
    case Meeting::AtStart:
        return onOutline;
    default:
        return 0;
    }
}

/// Index of the first vertex that is not strictly within the band, or -1. The walk begins there.
template <typename At>
int startOfWalk(At const &at, int count, Ray const &ray)
{
    for (int i = 0; i < count; ++i) {
        double const y = at(i).y();
        if (!(ray.low < y && y < ray.high)) {
            return i;
        }
    }
    return -1;
}

/// How often the outline crosses the ray, or `onOutline`. `at` gives the vertex at an index.
template <typename Test, typename At>
int countCrossings(At const &at, int count, Ray const &ray)
{
    int const start = startOfWalk(at, count, ray);
    if (start < 0) {
        return 0; // an outline within the band has no inside
    }
    Level last = ray.low > at(start).y() ? Level::Below : Level::Above;
    int crossings = 0;
    int i = start;
    do {
        int const following = i + 1 == count ? 0 : i + 1;
        Vertex const cur(at(i), ray);
        int const added = countOf<Test>(cur, Vertex(at(following), ray), last, ray);
        if (added == onOutline) {
            return onOutline;
        }
        crossings += added;
        if (!cur.isInBand()) {
            last = cur.level;
        }
        i = following;
    } while (i != start);
    return crossings;
}

/// Extent in x of all vertices. NaN changes nothing.
template <typename Test, typename At>
Extent extentOf(At const &at, int count)
{
    Extent extent = Test::emptyExtent;
    for (int i = 0; i < count; ++i) {
        double const x = at(i).x();
        extent.min = x < extent.min ? x : extent.min;
        extent.max = x > extent.max ? x : extent.max;
    }
    return extent;
}

inline Place placeOf(int crossings)
{
    if (crossings == onOutline) {
        return Place::OnOutline;
    }
    return crossings % 2 != 0 ? Place::Inside : Place::Outside;
}

/// Where a point lies against an outline.
/// @param given extent in x as the caller knows it, or null.
template <typename Test, typename At>
Place locate(At const &at, int count, Point2D const &p, double tol, Extent const *given)
{
    if (count < 3) {
        return Place::Outside;
    }
    Extent const extent = given != nullptr ? *given : extentOf<Test>(at, count);
    if (Test::isBeyond(p.x(), extent, tol)) {
        return Place::Outside;
    }
    return placeOf(countCrossings<Test>(at, count, Ray(p, extent.max + Test::reach, tol)));
}

} // namespace polygonCrossings
