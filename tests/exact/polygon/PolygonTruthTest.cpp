// Centroid and nearest point of polygons against numbers of a hundred digits.

#include "exact/measures/support.h"
#include "polygons.h"

#include <OrvelExact/polygon/polygonLocation.h>
#include <OrvelExact/polygon/polygonMeasures.h>
#include <OrvelExact/polygon/polygonShape.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace orvelExact;

namespace {

using measures::Random;
using measures::Real;
using polygons::Polygon;

/// Random, lattice, thin ones, and all of these far from the origin.
Polygon anyPolygon(Random &any)
{
    int const kind = any.whole(0, 2);
    int const count = any.whole(1, 7);
    double const height = any.power(-15, 0);
    Point2 const offset = any.whole(0, 2) == 0 ? any.power(0, 9) * any.point2() : Point2();
    Polygon polygon;
    for (int i = 0; i < count; ++i) {
        Point2 p = kind == 1 ? any.lattice2(2) : any.point2();
        if (kind == 2) {
            p = {p.x(), p.x() + height * p.y()};
        }
        polygon.append(p + offset);
    }
    return polygon;
}

double largestOf(Polygon const &polygon)
{
    double largest = 0.0;
    for (Point2 const &p : polygon) {
        largest = std::max({largest, std::fabs(p.x()), std::fabs(p.y())});
    }
    return largest;
}

/// Twice the area, and that times three centroids, about the first corner.
struct Moments
{
    Real area = 0;
    Real x = 0;
    Real y = 0;
};

Moments momentsOf(Polygon const &polygon)
{
    Moments sum;
    for (int i = 0; i < polygon.size(); ++i) {
        Point2 const &a = polygon.at(i), &b = polygon.at((i + 1) % polygon.size());
        Real const ax = Real(a.x()) - polygon.first().x(), ay = Real(a.y()) - polygon.first().y();
        Real const bx = Real(b.x()) - polygon.first().x(), by = Real(b.y()) - polygon.first().y();
        Real const cross = ax * by - ay * bx;
        sum.area += cross;
        sum.x += cross * (ax + bx);
        sum.y += cross * (ay + by);
    }
    return sum;
}

Real squareToEdge(Point2 const &p, Point2 const &a, Point2 const &b)
{
    Real const x = Real(b.x()) - a.x(), y = Real(b.y()) - a.y();
    Real const u = Real(p.x()) - a.x(), v = Real(p.y()) - a.y();
    Real const square = x * x + y * y;
    Real part = square == 0 ? Real(0) : Real((u * x + v * y) / square);
    part = part < 0 ? Real(0) : part > 1 ? Real(1) : part;
    Real const dx = u - part * x, dy = v - part * y;
    return dx * dx + dy * dy;
}

Real distanceToBorder(Point2 const &p, Polygon const &polygon)
{
    Real least = squareToEdge(p, polygon.last(), polygon.first());
    for (int i = 1; i < polygon.size(); ++i) {
        least = std::min(least, squareToEdge(p, polygon.at(i - 1), polygon.at(i)));
    }
    return sqrt(least);
}

} // namespace

TEST(PolygonTruth, CentroidIsWithinItsBound)
{
    Random any(1);
    int degenerate = 0, bounded = 0;
    for (int i = 0; i < measures::cases(100000); ++i) {
        Polygon const polygon = anyPolygon(any);
        PolygonCentroid const found = polygonCentroid(polygon);
        Moments const truth = momentsOf(polygon);
        if (truth.area == 0) {
            ++degenerate;
            ASSERT_TRUE(found.status == Status::Degenerate || polygonArea(polygon).value != 0.0);
            continue;
        }
        Box2 const box = polygonBox(polygon).box;
        double const size = (box.maximum - box.minimum).length();
        double const area = std::fabs(static_cast<double>(truth.area)) / 2;
        double const bound = polygon.size() * 0x1p-48 * size * size / area * size;
        if (bound > size / 2) {
            continue;
        }
        ++bounded;
        bool const isSimple = polygonSimplicity(polygon).isSimple;
        double const slack = isSimple ? bound : bound * std::max(1.0, size * size / area);
        ASSERT_EQ(Status::Ok, found.status) << i;
        Real const x = truth.x / (3 * truth.area) + polygon.first().x();
        Real const y = truth.y / (3 * truth.area) + polygon.first().y();
        ASSERT_TRUE(measures::Within(1, x, found.point.x(), slack)) << i;
        ASSERT_TRUE(measures::Within(1, y, found.point.y(), slack)) << i;
    }
    EXPECT_GT(degenerate, 1000);
    EXPECT_GT(bounded, 50000);
}

TEST(PolygonTruth, NearestPointIsWithinItsBound)
{
    Random any(2);
    int onBorder = 0;
    // not 10^5, which takes about 6 s
    for (int i = 0; i < measures::cases(50000); ++i) {
        Polygon const polygon = anyPolygon(any);
        Point2 p = polygon.first() + (i % 2 == 0 ? any.lattice2(2) : 3.0 * any.point2());
        if (i % 5 == 0) { // near the border
            p = polygon.first() + any.number(0, 1) * (polygon.last() - polygon.first());
        }
        NearestOnPolygon const found = nearestOnPolygon(polygon, p);
        Polygon all = polygon;
        all.append(p);
        Box2 const box = polygonBox(all).box;
        double const size =
            std::max(box.maximum.x() - box.minimum.x(), box.maximum.y() - box.minimum.y());
        double const bound = 0x1p-48 * size + measures::ulpOf(largestOf(all));
        ASSERT_EQ(Status::Ok, found.status);
        ASSERT_TRUE(measures::Within(0, distanceToBorder(p, polygon), found.distance, bound)) << i;
        ASSERT_TRUE(measures::Within(0, distanceToBorder(found.point, polygon), 0.0, bound)) << i;
        Point2 const &a = polygon.at(found.edge);
        Point2 const &b = polygon.at((found.edge + 1) % polygon.size());
        ASSERT_TRUE(measures::Within(0, sqrt(squareToEdge(p, a, b)), found.distance, bound)) << i;
        onBorder += found.distance == 0.0 ? 1 : 0;
    }
    EXPECT_GT(onBorder, 500);
}
