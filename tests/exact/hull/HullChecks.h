#pragma once

/// @file
/// What holds for every hull.

#include <OrvelExact/hull/ConvexHull.h>
#include <OrvelExact/predicates/orientation.h>

#include <gtest/gtest.h>

#include <algorithm>

/// What holds for every hull.
namespace checks {

using namespace orvelExact;

inline bool precedes(Point3 const &a, Point3 const &b)
{
    return std::lexicographical_compare(a.data(), a.data() + 3, b.data(), b.data() + 3);
}

inline QVector<Point3> sortedCorners(ConvexHull const &hull)
{
    QVector<Point3> corners;
    for (int const v : hull.vertices()) {
        corners.append(hull.points().at(v));
    }
    std::sort(corners.begin(), corners.end(), precedes);
    return corners;
}

/// Every half-edge has its way back, and corners, edges and facets are those of a sphere.
inline void expectClosed(ConvexHull const &hull)
{
    QVector<HullHalfEdge> const edges = hull.halfEdges();
    QVector<int> origins;
    for (int i = 0; i < edges.size(); ++i) {
        HullHalfEdge const &edge = edges.at(i);
        ASSERT_GE(edge.twin, 0);
        HullHalfEdge const &twin = edges.at(edge.twin);
        ASSERT_EQ(i, twin.twin);
        ASSERT_EQ(edges.at(edge.next).origin, twin.origin);
        ASSERT_NE(edge.facet, twin.facet);
        origins.append(edge.origin);
    }
    std::sort(origins.begin(), origins.end());
    origins.erase(std::unique(origins.begin(), origins.end()), origins.end());
    EXPECT_EQ(origins, hull.vertices());
    EXPECT_EQ(2, hull.vertices().size() - edges.size() / 2 + hull.facetCount());
}

/// Corners of a facet turn strictly to one side, the next facet's corners lie strictly below.
inline void expectStrictlyConvex(ConvexHull const &hull)
{
    QVector<HullHalfEdge> const edges = hull.halfEdges();
    QVector<Point3> const &p = hull.points();
    for (HullHalfEdge const &edge : edges) {
        HullHalfEdge const &next = edges.at(edge.next);
        HullHalfEdge const &afterTwin = edges.at(edges.at(edges.at(edge.twin).next).next);
        ASSERT_EQ(Sign::Negative,
                  orientation3d(p.at(edge.origin), p.at(next.origin),
                                p.at(edges.at(next.next).origin), p.at(afterTwin.origin)));
    }
}

/// No point lies above a facet; those that lie in one are inside the hull's own corners.
inline void expectNoPointOutside(ConvexHull const &hull)
{
    QVector<Point3> const &p = hull.points();
    for (int f = 0; f < hull.facetCount(); ++f) {
        QVector<int> const corners = hull.facet(f);
        for (Point3 const &q : p) {
            ASSERT_NE(Sign::Positive,
                      orientation3d(p.at(corners[0]), p.at(corners[1]), p.at(corners[2]), q));
        }
    }
}

inline void expectLowestIndices(ConvexHull const &hull)
{
    QVector<int> order(hull.points().size());
    for (int i = 0; i < order.size(); ++i) {
        order[i] = i;
    }
    QVector<Point3> const &p = hull.points();
    auto const comesBefore = [&p](int a, int b) {
        return p.at(a) == p.at(b) ? a < b : precedes(p.at(a) + Point3(), p.at(b) + Point3());
    };
    std::sort(order.begin(), order.end(), comesBefore);
    for (int i = 1; i < order.size(); ++i) {
        if (p.at(order[i]) == p.at(order[i - 1])) {
            ASSERT_FALSE(
                std::binary_search(hull.vertices().begin(), hull.vertices().end(), order[i]))
                << order[i] << " has a copy before it";
        }
    }
}

inline void expectCanonical(ConvexHull const &hull)
{
    EXPECT_TRUE(std::is_sorted(hull.vertices().begin(), hull.vertices().end()));
    for (int f = 0; f < hull.facetCount(); ++f) {
        QVector<int> const corners = hull.facet(f);
        ASSERT_EQ(corners.first(), *std::min_element(corners.begin(), corners.end()));
        if (f > 0) {
            QVector<int> const before = hull.facet(f - 1);
            ASSERT_TRUE(std::lexicographical_compare(before.begin(), before.begin() + 2,
                                                     corners.begin(), corners.begin() + 2));
        }
    }
}

inline void expectSolid(ConvexHull const &hull)
{
    ASSERT_EQ(Status::Ok, hull.status());
    ASSERT_EQ(3, hull.dimension());
    expectClosed(hull);
    expectStrictlyConvex(hull);
    expectNoPointOutside(hull);
    expectLowestIndices(hull);
    expectCanonical(hull);
}

inline bool areSame(ConvexHull const &a, ConvexHull const &b)
{
    bool same = a.dimension() == b.dimension() && a.vertices() == b.vertices() &&
                a.facetCount() == b.facetCount();
    for (int f = 0; same && f < a.facetCount(); ++f) {
        same = a.facet(f) == b.facet(f);
    }
    return same;
}

} // namespace checks
