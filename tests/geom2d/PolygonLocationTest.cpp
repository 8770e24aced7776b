#include "PlaneFixtures.h"

#include <OrvelMath/geom2d/Math2D.h>
#include <OrvelMath/geom2d/concav2d.h>

// GCC 12 takes the limbs of a small rational for uninitialised.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <boost/multiprecision/cpp_int.hpp>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <random>

using concav2d::pointInsidePolygone;

namespace {

concav2d::LocationType locate(std::vector<Point2D> points, Point2D const &p, double tol)
{
    Polygon const polygon(std::move(points));
    return pointInsidePolygone(polygon.pointers(), p, tol);
}

InsidePolyType locateFirst(std::vector<Point2D> points, Point2D const &p, double tol)
{
    Polygon polygon(std::move(points));
    return Math2DInsidePolygon(polygon.data(), polygon.count(), p, nullptr, nullptr, tol);
}

std::vector<Point2D> const square = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
/// A square with a notch from the left: the vertex (3, 5) lies between its neighbours in height.
std::vector<Point2D> const notched = {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {3, 5}};
std::vector<Point2D> const diamond = {{0, -1}, {1, 0}, {0, 1}, {-1, 0}};

TEST(LocationType, TheTwoEnumerationsCountInOppositeOrder)
{
    EXPECT_EQ(int(concav2d::Outside), 0);
    EXPECT_EQ(int(concav2d::OnBoundary), 1);
    EXPECT_EQ(int(concav2d::Inside), 2);
    EXPECT_EQ(int(InsidePolygon), 0);
    EXPECT_EQ(int(OnPolygonEdge), 1);
    EXPECT_EQ(int(OutsidePolygon), 2);
}

TEST(PointInsidePolygone, Square)
{
    EXPECT_EQ(locate(square, {5, 5}, 1e-6), concav2d::Inside);
    EXPECT_EQ(locate(square, {15, 5}, 1e-6), concav2d::Outside);
    EXPECT_EQ(locate(square, {-5, 5}, 1e-6), concav2d::Outside);
    EXPECT_EQ(locate(square, {5, 15}, 1e-6), concav2d::Outside);
    EXPECT_EQ(locate(square, {5, -5}, 1e-6), concav2d::Outside);
    for (Point2D const &vertex : square) {
        EXPECT_EQ(locate(square, vertex, 1e-6), concav2d::OnBoundary);
    }
    for (Point2D const middle : {Point2D(5, 0), Point2D(10, 5), Point2D(5, 10), Point2D(0, 5)}) {
        EXPECT_EQ(locate(square, middle, 1e-6), concav2d::OnBoundary);
    }
}

TEST(PointInsidePolygone, TheSenseDoesNotMatter)
{
    std::vector<Point2D> reversed(square.rbegin(), square.rend());
    EXPECT_EQ(locate(reversed, {5, 5}, 1e-6), concav2d::Inside);
    EXPECT_EQ(locate(reversed, {0, 5}, 1e-6), concav2d::OnBoundary);
}

TEST(PointInsidePolygone, AVertexInTheBandCountsOnceAndOnlyToTheRight)
{
    EXPECT_EQ(locate(notched, {1, 5}, 1e-6), concav2d::Outside);
    EXPECT_EQ(locate(notched, {5, 5}, 1e-6), concav2d::Inside);
    // A spike that only touches the height of p does not count.
    std::vector<Point2D> const spike = {{0, 0}, {10, 0}, {10, 10}, {6, 10},
                                        {5, 5}, {4, 10}, {0, 10}};
    EXPECT_EQ(locate(spike, {2, 5}, 1e-6), concav2d::Inside);
    EXPECT_EQ(locate(spike, {8, 5}, 1e-6), concav2d::Inside);
    // A passage along a level edge counts once.
    std::vector<Point2D> const stair = {{0, 0}, {10, 0}, {10, 10}, {5, 10},
                                        {5, 5}, {2, 5},  {2, 10},  {0, 10}};
    EXPECT_EQ(locate(stair, {1, 5}, 1e-6), concav2d::Inside);
    EXPECT_EQ(locate(stair, {3, 5}, 1e-6), concav2d::OnBoundary);
    EXPECT_EQ(locate(stair, {3, 6}, 1e-6), concav2d::Outside);
}

TEST(PointInsidePolygone, TheBandIsInclusive)
{
    // The level edge stands exactly tol above p and its ends belong to it.
    EXPECT_EQ(locate(square, {5, 9.5}, 0.5), concav2d::OnBoundary);
    EXPECT_EQ(locate(square, {0, 9.5}, 0.5), concav2d::OnBoundary);
    EXPECT_EQ(locate(square, {5, 9.25}, 0.5), concav2d::Inside);
}

TEST(PointInsidePolygone, TheToleranceReachesBeyondTheExtent)
{
    EXPECT_EQ(locate(square, {10.0625, 5}, 0.25), concav2d::OnBoundary);
    EXPECT_EQ(locate(square, {10.5, 5}, 0.25), concav2d::Outside);
    EXPECT_EQ(locate(square, {10.25, 10}, 0.25), concav2d::OnBoundary); // the vertex, inclusively
}

TEST(PointInsidePolygone, TooFewVerticesOrAFlatPolygonHaveNoInside)
{
    EXPECT_EQ(locate({}, {0, 0}, 1.0), concav2d::Outside);
    EXPECT_EQ(locate({{0, 0}, {1, 1}}, {0, 0}, 1.0), concav2d::Outside);
    EXPECT_EQ(locate({{0, 0}, {5, 0.25}, {10, -0.25}}, {5, 0}, 0.5), concav2d::Outside);
    // A vertex at the very border of the band ends the flatness.
    EXPECT_EQ(locate({{0, 0}, {5, 0.5}, {10, -0.25}}, {5, 0}, 0.5), concav2d::OnBoundary);
}

TEST(PointInsidePolygone, NanInHeightPutsEveryVertexInTheBand)
{
    EXPECT_EQ(locate(square, {nan64, 5}, 1e-6), concav2d::Outside);
    EXPECT_EQ(locate(square, {5, nan64}, 1e-6), concav2d::OnBoundary);
    EXPECT_EQ(locate(square, {5, 5}, nan64), concav2d::OnBoundary);
    EXPECT_EQ(locate(square, {inf, 5}, 1e-6), concav2d::Outside);
}

TEST(Math2DInsidePolygon, Square)
{
    EXPECT_EQ(locateFirst(square, {5, 5}, 1e-6), InsidePolygon);
    EXPECT_EQ(locateFirst(square, {15, 5}, 1e-6), OutsidePolygon);
    EXPECT_EQ(locateFirst(square, {5, 15}, 1e-6), OutsidePolygon);
    EXPECT_EQ(locateFirst(square, {0, 5}, 1e-6), OnPolygonEdge);
    EXPECT_EQ(locateFirst(square, {5, 0}, 1e-6), OnPolygonEdge);
}

TEST(Math2DInsidePolygon, AVertexHasNoTestOfItsOwn)
{
    // The outline passes the right vertex from below to above and the left one beyond the ray.
    EXPECT_EQ(locateFirst(diamond, {1, 0}, 1e-6), InsidePolygon);
    EXPECT_EQ(locateFirst(diamond, {-1, 0}, 1e-6), OutsidePolygon);
    EXPECT_EQ(locate(diamond, {1, 0}, 1e-6), concav2d::OnBoundary);
    EXPECT_EQ(locate(diamond, {-1, 0}, 1e-6), concav2d::OnBoundary);
}

TEST(Math2DInsidePolygon, TheEndsOfALevelEdgeDoNotCount)
{
    EXPECT_EQ(locateFirst(square, {0, 0}, 1e-6), OutsidePolygon);
    EXPECT_EQ(locateFirst(square, {1e-9, 0}, 1e-6), OnPolygonEdge);
}

TEST(Math2DInsidePolygon, TheExtentHasNoTolerance)
{
    EXPECT_EQ(locateFirst(square, {10.0625, 5}, 0.25), OutsidePolygon);
    EXPECT_EQ(locateFirst(square, {-0.0625, 5}, 0.25), OutsidePolygon);
}

TEST(Math2DInsidePolygon, TakesTheExtentOnTrust)
{
    Polygon polygon(square);
    double xmin = 2;
    double xmax = 8;
    EXPECT_EQ(Math2DInsidePolygon(polygon.data(), 4, {9, 5}, &xmin, &xmax, 1e-6), OutsidePolygon);
    EXPECT_EQ(Math2DInsidePolygon(polygon.data(), 4, {1, 5}, &xmin, &xmax, 1e-6), OutsidePolygon);
    EXPECT_EQ(Math2DInsidePolygon(polygon.data(), 4, {8, 5}, &xmin, &xmax, 1e-6), InsidePolygon);
    EXPECT_EQ(xmin, 2.0);
    EXPECT_EQ(xmax, 8.0);
    // One of the two alone is not used.
    EXPECT_EQ(Math2DInsidePolygon(polygon.data(), 4, {9, 5}, &xmin, nullptr, 1e-6), InsidePolygon);
    EXPECT_EQ(Math2DInsidePolygon(polygon.data(), 4, {9, 5}, nullptr, &xmax, 1e-6), InsidePolygon);
}

TEST(Math2DInsidePolygon, TheRayEndsAHundredBeyondTheExtent)
{
    Polygon wide({{0, 0}, {1000, 0}, {1000, 10}, {0, 10}});
    double xmin = 0;
    double xmax = 10;
    EXPECT_EQ(Math2DInsidePolygon(wide.data(), 4, {5, 5}, &xmin, &xmax, 1e-6), OutsidePolygon);
    xmax = 901;
    EXPECT_EQ(Math2DInsidePolygon(wide.data(), 4, {5, 5}, &xmin, &xmax, 1e-6), InsidePolygon);
}

TEST(Math2DInsidePolygon, TooFewVerticesOrAFlatPolygonHaveNoInside)
{
    EXPECT_EQ(Math2DInsidePolygon(nullptr, 0, {0, 0}, nullptr, nullptr, 1.0), OutsidePolygon);
    EXPECT_EQ(locateFirst({{0, 0}, {1, 1}}, {0, 0}, 1.0), OutsidePolygon);
    EXPECT_EQ(locateFirst({{0, 0}, {5, 0.25}, {10, -0.25}}, {4, 0}, 0.5), OutsidePolygon);
    Polygon polygon(square);
    EXPECT_EQ(Math2DInsidePolygon(polygon.data(), -1, {5, 5}, nullptr, nullptr, 1.0),
              OutsidePolygon);
}

TEST(Math2DInsidePolygon, NanInHeightPutsEveryVertexInTheBand)
{
    EXPECT_EQ(locateFirst(square, {5, nan64}, 1e-6), OnPolygonEdge);
    EXPECT_EQ(locateFirst(square, {5, 5}, nan64), OnPolygonEdge);
}

/// Exact location under the even-odd rule.
enum class Exact { Outside, OnBoundary, Inside };

using Rational = boost::multiprecision::cpp_rational;

Exact exactLocation(std::vector<Point2D> const &points, Point2D const &p)
{
    Rational const px(p.x());
    Rational const py(p.y());
    bool inside = false;
    for (size_t i = 0; i < points.size(); ++i) {
        Point2D const &a = points[i];
        Point2D const &b = points[(i + 1) % points.size()];
        bool const boxHolds = std::min(a.x(), b.x()) <= p.x() && p.x() <= std::max(a.x(), b.x()) &&
                              std::min(a.y(), b.y()) <= p.y() && p.y() <= std::max(a.y(), b.y());
        bool const passes = (a.y() > p.y()) != (b.y() > p.y());
        if (!boxHolds && !passes) {
            continue;
        }
        Rational const ax(a.x());
        Rational const ay(a.y());
        Rational const bx(b.x());
        Rational const by(b.y());
        Rational const cross = (bx - ax) * (py - ay) - (by - ay) * (px - ax);
        if (boxHolds && cross == 0) {
            return Exact::OnBoundary;
        }
        if (passes && (cross > 0) == (b.y() > a.y())) {
            inside = !inside;
        }
    }
    return inside ? Exact::Inside : Exact::Outside;
}

Exact as(concav2d::LocationType type)
{
    switch (type) {
    case concav2d::Outside:
        return Exact::Outside;
    case concav2d::OnBoundary:
        return Exact::OnBoundary;
    default:
        return Exact::Inside;
    }
}

Exact as(InsidePolyType type)
{
    switch (type) {
    case OutsidePolygon:
        return Exact::Outside;
    case OnPolygonEdge:
        return Exact::OnBoundary;
    default:
        return Exact::Inside;
    }
}

double distanceFromOutline(std::vector<Point2D> const &points, Point2D const &p)
{
    double least = inf;
    for (size_t i = 0; i < points.size(); ++i) {
        Point2D const &a = points[i];
        Point2D const d = points[(i + 1) % points.size()] - a;
        Point2D const e = p - a;
        double const q = d.Length2();
        double const t = q > 0 ? std::clamp((d.x() * e.x() + d.y() * e.y()) / q, 0.0, 1.0) : 0.0;
        least = std::min(least, distanceOf(e, Point2D(t * d.x(), t * d.y())));
    }
    return least;
}

RC_GTEST_PROP(PolygonLocation, AgreesWithExactArithmeticOnTheGrid, ())
{
    // Vertices and points on a small grid meet in every degenerate way: level edges, repeated
    // vertices, spikes, self-crossings, points on vertices and edges.
    int const span = *rc::gen::inRange(2, 12);
    auto const place = rc::gen::inRange(0, span);
    std::vector<std::pair<int, int>> const grid = *rc::gen::resize(
        14, rc::gen::container<std::vector<std::pair<int, int>>>(rc::gen::pair(place, place)));
    RC_PRE(grid.size() >= 3);
    std::vector<Point2D> points;
    for (auto const &[x, y] : grid) {
        points.emplace_back(x, y);
    }
    Polygon polygon(points);
    for (int i = 0; i < 20; ++i) {
        Point2D const p(*place, *place);
        Exact const truth = exactLocation(points, p);
        bool const flat = std::all_of(points.begin(), points.end(),
                                      [&](Point2D const &v) { return v.y() == p.y(); });
        Exact const expected = flat ? Exact::Outside : truth;
        RC_ASSERT(as(pointInsidePolygone(polygon.pointers(), p, 1e-6)) == expected);
        if (truth != Exact::OnBoundary) {
            RC_ASSERT(as(Math2DInsidePolygon(polygon.data(), polygon.count(), p, nullptr, nullptr,
                                             1e-6)) == truth);
        }
    }
}

TEST(PolygonLocation, AgreesWithExactArithmeticAwayFromTheBand)
{
    std::mt19937_64 random(20);
    std::uniform_real_distribution<double> coordinate(-100.0, 100.0);
    double const tol = 1e-6;
    int outcomes[3] = {0, 0, 0};
    for (int round = 0; round < 300; ++round) {
        std::vector<Point2D> points;
        for (size_t n = 3 + random() % 40; points.size() < n;) {
            points.emplace_back(coordinate(random), coordinate(random));
        }
        Polygon polygon(points);
        for (int i = 0; i < 30; ++i) {
            Point2D p(coordinate(random), coordinate(random));
            if (i % 3 == 0) { // at the very height of a vertex, or within its band
                p.y(points[random() % points.size()].y() + (i % 2 == 0 ? 0.0 : tol / 2));
            }
            Exact const truth = exactLocation(points, p);
            if (distanceFromOutline(points, p) < 10 * tol) {
                continue;
            }
            ++outcomes[static_cast<int>(truth)];
            EXPECT_EQ(as(pointInsidePolygone(polygon.pointers(), p, tol)), truth);
            EXPECT_EQ(
                as(Math2DInsidePolygon(polygon.data(), polygon.count(), p, nullptr, nullptr, tol)),
                truth);
        }
    }
    EXPECT_GT(outcomes[static_cast<int>(Exact::Inside)], 1000);
    EXPECT_GT(outcomes[static_cast<int>(Exact::Outside)], 1000);
}

} // namespace
