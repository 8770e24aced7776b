#include "polygons.h"

#include "exact/support/caseCount.h"
#include "support/Bits.h"

#include <OrvelExact/polygon/polygonLocation.h>
#include <OrvelExact/predicates/orientation.h>

#include <gtest/gtest.h>

using namespace orvelExact;

namespace {

bool isOnEdge(Point2 const &p, Point2 const &a, Point2 const &b)
{
    return orientation2d(a, b, p) == Sign::Zero && std::min(a.x(), b.x()) <= p.x() &&
           p.x() <= std::max(a.x(), b.x()) && std::min(a.y(), b.y()) <= p.y() &&
           p.y() <= std::max(a.y(), b.y());
}

struct Expected
{
    PolygonPlace place = PolygonPlace::Outside;
    int index = -1;
    int winding = 0;
    bool isKnown = true;
};

/// The triangles between the first corner and the edges, with their signs, wind around what the
/// polygon winds around. Unknown for points on a side of one of them.
Expected locateByTriangles(QVector<Point2> const &polygon, Point2 const &p)
{
    Expected expected;
    int const n = polygon.size();
    for (int i = 0; i < n; ++i) {
        if (polygon.at(i) == p) {
            return {PolygonPlace::Vertex, i, 0, true};
        }
    }
    for (int i = 0; i < n; ++i) {
        if (isOnEdge(p, polygon.at(i), polygon.at((i + 1) % n))) {
            return {PolygonPlace::Edge, i, 0, true};
        }
    }
    for (int i = 0; i < n; ++i) {
        Point2 const &a = polygon.at(0);
        Point2 const &b = polygon.at(i);
        Point2 const &c = polygon.at((i + 1) % n);
        Sign const sense = orientation2d(a, b, c);
        Sign const sides[] = {orientation2d(a, b, p), orientation2d(b, c, p),
                              orientation2d(c, a, p)};
        for (Sign const side : sides) {
            expected.isKnown = expected.isKnown && (side != Sign::Zero || sense == Sign::Zero);
        }
        if (sense != Sign::Zero && sides[0] == sense && sides[1] == sense && sides[2] == sense) {
            expected.winding += static_cast<int>(sense);
        }
    }
    return expected;
}

} // namespace

TEST(PolygonLocation, IsThatOfSignedTriangles)
{
    int places[4] = {0, 0, 0, 0};
    std::mt19937_64 generator(5);
    for (int i = 0; i < support::caseCount(); ++i) {
        double const unit = i % 2 == 0 ? 1.0 : 0.1;
        QVector<Point2> const polygon =
            polygons::onLattice(1 + i % 12, 7, unit, static_cast<unsigned>(i));
        Point2 p(unit * double(generator() % 7), unit * double(generator() % 7));
        if (i % 3 == 0) { // far from the lattice's lines
            p += unit * Point2(0.3718, 0.2391);
        }
        Expected const expected = locateByTriangles(polygon, p);
        PolygonLocation const winding = locateInPolygon(polygon, p, FillRule::Winding);
        PolygonLocation const evenOdd = locateInPolygon(polygon, p);
        if (expected.place != PolygonPlace::Outside) {
            ASSERT_EQ(expected.place, winding.place) << "case " << i;
            ASSERT_EQ(expected.index, winding.index) << "case " << i;
            ASSERT_EQ(expected.place, evenOdd.place) << "case " << i;
            ASSERT_EQ(expected.index, evenOdd.index) << "case " << i;
        } else if (expected.isKnown) {
            ASSERT_EQ(expected.winding, winding.winding) << "case " << i;
            ASSERT_EQ(expected.winding != 0 ? PolygonPlace::Inside : PolygonPlace::Outside,
                      winding.place);
            ASSERT_EQ(expected.winding % 2 != 0 ? PolygonPlace::Inside : PolygonPlace::Outside,
                      evenOdd.place);
        }
        ++places[static_cast<int>(winding.place)];
    }
    for (int const count : places) {
        EXPECT_GT(count, support::caseCount() / 50);
    }
}

TEST(PolygonLocation, TellsOneStepFromAnEdge)
{
    QVector<Point2> const triangle = {{0, 0}, {1, 0.1}, {0.3, 1}};
    Point2 const onEdge(0.5, 0.05);
    EXPECT_EQ(PolygonPlace::Edge, locateInPolygon(triangle, onEdge).place);
    EXPECT_EQ(0, locateInPolygon(triangle, onEdge).index);
    EXPECT_EQ(PolygonPlace::Inside,
              locateInPolygon(triangle, {0.5, std::nextafter(0.05, 1.0)}).place);
    EXPECT_EQ(PolygonPlace::Outside,
              locateInPolygon(triangle, {0.5, std::nextafter(0.05, 0.0)}).place);
}

TEST(PolygonLocation, DiffersByRuleWhereThePolygonCrossesItself)
{
    QVector<Point2> const twice = {{0, 0}, {4, 0}, {4, 4}, {0, 4}, {0, 0}, {4, 0}, {4, 4}, {0, 4}};
    EXPECT_EQ(PolygonPlace::Outside, locateInPolygon(twice, {1, 1}).place);
    EXPECT_EQ(PolygonPlace::Inside, locateInPolygon(twice, {1, 1}, FillRule::Winding).place);
    EXPECT_EQ(2, locateInPolygon(twice, {1, 1}).winding);
    EXPECT_EQ(-2, locateInPolygon(polygons::reversed(twice), {1, 1}).winding);
}

TEST(PolygonLocation, RefusesNanAndInfinity)
{
    QVector<Point2> const triangle = {{0, 0}, {1, 0}, {0, 1}};
    EXPECT_EQ(PolygonPlace::NotFinite, locateInPolygon(triangle, {0, support::nan}).place);
    EXPECT_EQ(PolygonPlace::NotFinite,
              locateInPolygon({{0, 0}, {support::inf, 0}, {0, 1}}, {0, 0}).place);
    EXPECT_EQ(PolygonPlace::Outside, locateInPolygon({}, {0, 0}).place);
    EXPECT_EQ(Status::NotFinite, nearestOnPolygon(triangle, {0, support::nan}).status);
    EXPECT_EQ(Status::Empty, nearestOnPolygon({}, {0, 0}).status);
}

TEST(NearestOnPolygon, IsOnTheNearestEdge)
{
    QVector<Point2> const square = {{0, 0}, {4, 0}, {4, 4}, {0, 4}};
    NearestOnPolygon const inside = nearestOnPolygon(square, {3.5, 1});
    EXPECT_EQ(0.5, inside.distance);
    EXPECT_EQ(Point2(4, 1), inside.point);
    EXPECT_EQ(1, inside.edge);
    NearestOnPolygon const corner = nearestOnPolygon(square, {7, 8});
    EXPECT_EQ(5.0, corner.distance);
    EXPECT_EQ(Point2(4, 4), corner.point);
    EXPECT_EQ(1, corner.edge);
    EXPECT_EQ(0.0, nearestOnPolygon(square, {2, 0}).distance);
    NearestOnPolygon const single = nearestOnPolygon({{1, 1}}, {4, 5});
    EXPECT_EQ(5.0, single.distance);
    EXPECT_EQ(0, single.edge);
}
