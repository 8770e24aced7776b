#include "polygons.h"

#include "exact/support/caseCount.h"
#include "support/Bits.h"

#include <OrvelExact/hull/convexHull2d.h>
#include <OrvelExact/polygon/polygonShape.h>
#include <OrvelExact/predicates/orientation.h>
#include <OrvelExact/segments/segmentCrossing.h>

#include <gtest/gtest.h>

using namespace orvelExact;

namespace {

/// Whether two edges meet where they should not, by definition.
bool meet(QVector<Point2> const &p, int e, int f)
{
    int const n = p.size();
    SegmentCrossing const crossing =
        crossSegments(p.at(e), p.at((e + 1) % n), p.at(f), p.at((f + 1) % n));
    bool const isNext = (e + 1) % n == f;
    bool const isPrevious = (f + 1) % n == e;
    if (!isNext && !isPrevious) {
        return crossing.kind != CrossingKind::None;
    }
    bool const isPoint = p.at(e) == p.at((e + 1) % n) || p.at(f) == p.at((f + 1) % n);
    return isPoint || crossing.kind != CrossingKind::AtEnd ||
           (isNext && crossing.point != p.at(f)) || (isPrevious && crossing.point != p.at(e));
}

bool isSimpleByDefinition(QVector<Point2> const &polygon)
{
    for (int e = 0; e < polygon.size(); ++e) {
        for (int f = e + 1; f < polygon.size(); ++f) {
            if (meet(polygon, e, f)) {
                return false;
            }
        }
    }
    return polygon.size() >= 3;
}

} // namespace

TEST(PolygonSimplicity, IsThatOfAllPairsOfEdges)
{
    int simple = 0;
    int const count = support::runsLong() ? 3000000 : 30000;
    for (int i = 0; i < count; ++i) {
        int const corners = 3 + i % 8;
        double const unit = i % 2 == 0 ? 1.0 : 0.1;
        QVector<Point2> const polygon =
            polygons::onLattice(corners, 3 + i % 13, unit, static_cast<unsigned>(i));
        bool const expected = isSimpleByDefinition(polygon);
        simple += expected ? 1 : 0;
        PolygonSimplicity const actual = polygonSimplicity(polygon);
        ASSERT_EQ(expected, actual.isSimple) << "case " << i;
        if (expected) {
            ASSERT_EQ(-1, actual.firstEdge);
        } else {
            ASSERT_LT(actual.firstEdge, actual.secondEdge);
            ASSERT_TRUE(meet(polygon, actual.firstEdge, actual.secondEdge)) << "case " << i;
        }
    }
    EXPECT_GT(simple, count / 20);
    EXPECT_LT(simple, count / 2);
}

TEST(PolygonSimplicity, FindsTheOneCrossingOfALargeStar)
{
    for (unsigned seed = 1; seed <= 20; ++seed) {
        QVector<Point2> polygon = polygons::star(2000, seed);
        ASSERT_TRUE(polygonSimplicity(polygon).isSimple);
        int const i = static_cast<int>(seed) * 90;
        std::swap(polygon[i], polygon[i + 1]);
        PolygonSimplicity const crossed = polygonSimplicity(polygon);
        ASSERT_EQ(isSimpleByDefinition(polygon), crossed.isSimple);
        if (!crossed.isSimple) {
            ASSERT_TRUE(meet(polygon, crossed.firstEdge, crossed.secondEdge));
        }
    }
}

TEST(PolygonSimplicity, SeesATouchOfOneStep)
{
    double const above = std::nextafter(0.0, 1.0);
    EXPECT_TRUE(polygonSimplicity({{0, 0}, {4, 0}, {4, 4}, {2, above}, {0, 4}}).isSimple);
    PolygonSimplicity const touching = polygonSimplicity({{0, 0}, {4, 0}, {4, 4}, {2, 0}, {0, 4}});
    EXPECT_FALSE(touching.isSimple);
    EXPECT_EQ(0, touching.firstEdge);
    EXPECT_FALSE(polygonSimplicity({{0, 0}, {1, 0}, {1, 0}, {0, 1}}).isSimple);
    EXPECT_FALSE(polygonSimplicity({{0, 0}, {1, 0}}).isSimple);
    EXPECT_FALSE(polygonSimplicity({}).isSimple);
    EXPECT_EQ(Status::NotFinite, polygonSimplicity({{0, 0}, {1, 0}, {0, support::nan}}).status);
}

TEST(PolygonConvexity, IsThatOfTheHull)
{
    int convex = 0;
    for (int i = 0; i < 50000; ++i) {
        QVector<Point2> const polygon =
            polygons::onLattice(3 + i % 4, 3 + i % 4, i % 2 == 0 ? 1.0 : 0.1, unsigned(i));
        PolygonConvexity const actual = polygonConvexity(polygon);
        // Convex: simple once corners are not repeated, and none is left out by the hull but those
        // on its edges. Then the corners of the hull come in its order, forwards or backwards.
        QVector<Point2> distinct;
        for (Point2 const &p : polygon) {
            if (distinct.isEmpty() || distinct.last() != p) {
                distinct.append(p);
            }
        }
        while (distinct.size() > 1 && distinct.last() == distinct.first()) {
            distinct.removeLast();
        }
        ConvexPolygon const hull = convexHull2d(distinct);
        bool expected = hull.dimension == 2 && polygonSimplicity(distinct).isSimple;
        for (Point2 const &p : distinct) {
            bool isOnBorder = false;
            for (int k = 0; k < hull.corners.size(); ++k) {
                Point2 const &a = distinct.at(hull.corners.at(k));
                Point2 const &b = distinct.at(hull.corners.at((k + 1) % hull.corners.size()));
                isOnBorder = isOnBorder || orientation2d(a, b, p) == Sign::Zero;
            }
            expected = expected && isOnBorder;
        }
        ASSERT_EQ(expected, actual.isConvex) << "case " << i;
        convex += expected ? 1 : 0;
    }
    EXPECT_GT(convex, 5000);
}

TEST(PolygonConvexity, KeepsACornerABillionthOffALine)
{
    // A corner that a tolerance of angles drops: 1e-9 of an angle off the line of its neighbours.
    QVector<Point2> const inward = {{0, 0}, {1, 1e-9}, {2, 0}, {2, 2}, {0, 2}};
    QVector<Point2> const outward = {{0, 0}, {1, -1e-9}, {2, 0}, {2, 2}, {0, 2}};
    EXPECT_FALSE(polygonConvexity(inward).isConvex);
    EXPECT_TRUE(polygonConvexity(outward).isConvex);
    EXPECT_EQ(4, convexHull2d(inward).corners.size());
    EXPECT_EQ(5, convexHull2d(outward).corners.size());
}

TEST(PolygonConvexity, TellsTheSense)
{
    QVector<Point2> const square = {{0, 0}, {1, 0}, {1, 0}, {1, 1}, {0, 1}, {0, 0.5}};
    EXPECT_EQ(Sign::Positive, polygonConvexity(square).sense);
    EXPECT_EQ(Sign::Negative, polygonConvexity(polygons::reversed(square)).sense);
    QVector<Point2> const pentagram = {{0, 0}, {4, 3}, {-1, 3}, {3, 0}, {1.5, 5}};
    EXPECT_FALSE(polygonConvexity(pentagram).isConvex);
    EXPECT_FALSE(polygonConvexity(square + square).isConvex);
    EXPECT_FALSE(polygonConvexity({{0, 0}, {1, 1}, {2, 2}}).isConvex);
    EXPECT_EQ(Status::NotFinite, polygonConvexity({{0, 0}, {support::inf, 1}, {2, 2}}).status);
}
