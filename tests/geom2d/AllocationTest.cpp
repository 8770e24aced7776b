#include "PlaneFixtures.h"
#include "support/AllocationCount.h"

#include <OrvelMath/geom2d/Math2D.h>
#include <OrvelMath/geom2d/concav2d.h>
#include <OrvelMath/geom2d/construct2d.h>

#include <new>

using namespace concav2d;
using support::allocationsOf;

namespace {

class PlaneAllocations : public support::AllocationCounting
{
protected:
    Point2D a{0, 0};
    Point2D b{10, 0};
    Point2D c{10, 10};
    Point2D d{0, 10};
    Point2D p{3, 4};
    Point2D out;
    double value = 0.0;
};

TEST_F(PlaneAllocations, TheCounterCounts)
{
    EXPECT_EQ(allocationsOf([] { ::operator delete(::operator new(8)); }), 1);
    EXPECT_EQ(allocationsOf([] { delete new Point2D; }), 1);
}

TEST_F(PlaneAllocations, PredicatesAndCrossingsMakeNone)
{
    Point2D sorted[4];
    EXPECT_EQ(allocationsOf([&] {
                  comparePoints(a, b, 1e-6);
                  isColinear(a, b, c, 1e-6);
                  pointOnLine(a, b, p, 1e-6);
                  pointOnArc(b, c, d, p, 1e-6, 1e-6);
                  pointOnArc(1, 2, 3, p, 1e-6, 1e-6);
                  pointOnEllipsearc(1, 2, 3, p, 4, 5, 1e-6);
                  isPointOnArc(a, b, c, p, value, 1e-6);
                  doOverlap(a, b, a, b, sorted, 1e-6);
                  intersectLineLine(a, c, b, d, out);
                  intersect_line_line(a, c, b, d, out, 1e-6);
                  intersectEdgeEdge(a, c, b, d, out, 1e-6);
                  Math2DIntersect2Lines(a, c, b, d, out, 1e-6);
                  Math2DIntersect2LinesWrong(a, c, b, d, out, 1e-6);
                  inter_lin_lin(a, c, b, d, 1e-6);
                  circleLineIntersect(a, c, b, 3.0f, out, out);
                  intersect_line_circle(a, c, b, 9, 0, out, 1e-6);
                  intersect_circle_circle(a, 8, b, 9, 0, out, 1e-6);
                  projektion_punkt_auf_linie(p, a, b, out, 1e-6);
                  projektion_punkt_auf_kreis(p, a, 3, out, 1e-6);
              }),
              0);
}

TEST_F(PlaneAllocations, RegionsMakeNone)
{
    Polygon polygon({a, b, c, d});
    double x1 = -5, y1 = 5, x2 = 15, y2 = 6;
    EXPECT_EQ(allocationsOf([&] {
                  pointInsidePolygone(polygon.pointers(), p, 1e-6);
                  Math2DInsidePolygon(polygon.data(), 4, p, nullptr, nullptr, 1e-6);
                  pointInsideRectangle(p, a, b, c, d, 0);
                  lineInsideRectangle(p, a, a, b, c, d, 0, true, true, true, true);
                  arcInsideRectangle(p, a, b, a, b, c, d, 0);
                  ellipsearcInsideRectangle(p, a, b, 1, 2, 3, a, b, c, d, 0);
                  clipline(0, 0, 10, 10, x1, y1, x2, y2);
              }),
              0);
}

TEST_F(PlaneAllocations, ASampleCostsAPointAndAListNode)
{
    QLinkedList<Point2D *> points;
    long const allocations = allocationsOf([&] { getCirclePoints(p, 2.0, points, 1.0); });
    EXPECT_EQ(points.size(), 8);
    EXPECT_EQ(allocations, 2 * 8 + 1); // and the list itself once
    qDeleteAll(points);
}

/// What a sampling function appends, freed again, whatever it throws.
template <typename Sample>
void expectNoLeaks(Sample sample)
{
    long const failures = support::failEachAllocation([&] {
        QLinkedList<Point2D *> points;
        struct Owner
        {
            ~Owner() { qDeleteAll(list); }
            QLinkedList<Point2D *> &list;
        } const owner{points};
        sample(points);
    });
    EXPECT_LT(10, failures);
}

TEST_F(PlaneAllocations, SamplingLeaksNothingWhenMemoryRunsOut)
{
    expectNoLeaks([&](auto &points) { getArcPoints(b, c, d, points, 0, 0.5); });
    expectNoLeaks([&](auto &points) { getCirclePoints(a, 2, points, 0.5); });
    expectNoLeaks([&](auto &points) { getEllipseArcPoints(a, b, d, 10, 300, points, 0.5); });
    expectNoLeaks([&](auto &points) { getEllipsePoints(a, b, d, 30, points, 0.5); });
}

} // namespace
