#include "PlaneFixtures.h"
#include "support/AllocationCount.h"

#include <OrvelMath/geom2d/construct2d.h>
#include <OrvelMath/geom2d/mathPoly.h>

namespace {

using ConstructionAllocations = support::AllocationCounting;
using support::allocationsOf;

TEST_F(ConstructionAllocations, TangentsAndFilletsMakeNone)
{
    Point2D const a(0, 0), b(10, 1), c(3, 8), d(2, -5);
    Point2D m, t1, t2;
    double radius = 0;
    EXPECT_EQ(allocationsOf([&] {
                  tangente_punkt_kreis(a, b, 3, 0, t1, t2, 1e-6);
                  tangente_kreis_kreis(a, 3, b, 2, 0, 0, t1, t2, 0, 1e-6);
                  tangente_kreis_kreis(a, 3, b, 2, 0, 1, t1, t2, 0, 1e-6);
                  apolloniusCCC(a, 3, true, b, 2, false, c, 1, true, m, radius);
                  fillet_line_line(a, b, c, d, 2, 0, 1, m, t1, t2, 1e-6);
                  fillet_kreis_kreis(a, 3, b, 2, 4, 0, 0, m, t1, t2, 1e-6);
                  fillet_line_circle(a, b, c, 7, 2, 0, 0, m, t1, t2, 0, 1e-6);
                  arc_line1end_to_line2anf(a, b, c, d, m, radius, 1e-6);
                  adjust_arc_m2pnt(m, t1, t2, 2, 1, 1e-6);
                  mat_bounding_box_of_arc_m2pnt(a, b, c, 2, t1, t2, 1e-6);
              }),
              0);
}

TEST_F(ConstructionAllocations, ConicsMakeNone)
{
    mathPoly::Ellipse e1(Point2D(0, 0), 0, 2, 1);
    mathPoly::Ellipse e2(Point2D(0, 0), 90, 2, 1);
    Point2D points[12];
    int count = 0;
    double const c[] = {24, -50, 35, -10, 1};
    double roots[4];
    EXPECT_EQ(allocationsOf([&] {
                  mathPoly::FindIntersections(e1, e2, count, points);
                  mathPoly::FindIntersections2(e1, e2, true, false, points[0]);
                  intersect_circle_ellipse(Point2D(0, 0), 1.5, Point2D(0, 0), 30, 2, 1, points,
                                           count, 0);
                  intersect_line_ellipse(Point2D(-5, 0), Point2D(5, 1), Point2D(0, 0), 30, 2, 1,
                                         false, points[0], 0);
                  mathPoly::solveQuartic(c, roots);
              }),
              0);
}

} // namespace
