#include "PlaneFixtures.h"

#include <OrvelMath/geom2d/construct2d.h>

#include <rapidcheck/gtest.h>

namespace {

TEST(MatRoundToGrid, HalvesRoundUp)
{
    EXPECT_EQ(mat_round_to_grid(0.2, 0.5), 0.0);
    EXPECT_EQ(mat_round_to_grid(0.25, 0.5), 0.5);
    EXPECT_EQ(mat_round_to_grid(-0.25, 0.5), 0.0);
    EXPECT_EQ(mat_round_to_grid(-0.375, 0.5), -0.5);
    EXPECT_EQ(mat_round_to_grid(3.1, 0.5), 3.0);
    EXPECT_TRUE(std::isnan(mat_round_to_grid(1.0, 0.0)));
    EXPECT_TRUE(std::isnan(mat_round_to_grid(nan64, 0.5)));
}

TEST(IntersectLineCircle, TheSelectorPicksAlongTheDirection)
{
    Point2D out;
    EXPECT_EQ(intersect_line_circle({-5, 3}, {5, 3}, {1, 0}, 5, 0, out, 1e-6), 1);
    EXPECT_POINT(out, 5.0, 3.0);
    EXPECT_EQ(intersect_line_circle({-5, 3}, {5, 3}, {1, 0}, 5, 1, out, 1e-6), 1);
    EXPECT_POINT(out, -3.0, 3.0);
    EXPECT_EQ(intersect_line_circle({-5, 3}, {5, 3}, {1, 0}, 5, -7, out, 1e-6), 1);
    EXPECT_POINT(out, -3.0, 3.0);
    EXPECT_EQ(intersect_line_circle({5, 3}, {-5, 3}, {1, 0}, 5, 0, out, 1e-6), 1);
    EXPECT_POINT(out, -3.0, 3.0);
}

TEST(IntersectLineCircle, TouchingGivesTheFootForEverySelector)
{
    Point2D out;
    for (int const which : {0, 1}) {
        EXPECT_EQ(intersect_line_circle({-5, 2}, {5, 2}, {0, 0}, 2, which, out, 0.5), 1);
        EXPECT_POINT(out, 0.0, 2.0);
        // Outside by 0.4 eps: rounds to 0.
        EXPECT_EQ(intersect_line_circle({-5, 2.2}, {5, 2.2}, {0, 0}, 2, which, out, 0.5), 1);
        EXPECT_POINT(out, 0.0, 2.2);
        // Inside by less than eps.
        EXPECT_EQ(intersect_line_circle({-5, 1.625}, {5, 1.625}, {0, 0}, 2, which, out, 0.5), 1);
        EXPECT_POINT(out, 0.0, 1.625);
    }
    // Inside by exactly eps: two crossings.
    EXPECT_EQ(intersect_line_circle({-5, 1.5}, {5, 1.5}, {0, 0}, 2, 0, out, 0.5), 1);
    EXPECT_POINT(out, std::sqrt(1.75), 1.5);
}

TEST(IntersectLineCircle, RefusesAMissAndADegenerateLine)
{
    Point2D out = untouchedPoint();
    // Outside by half of eps rounds up.
    EXPECT_EQ(intersect_line_circle({-5, 2.25}, {5, 2.25}, {0, 0}, 2, 0, out, 0.5), 0);
    EXPECT_EQ(intersect_line_circle({1, 1}, {1, 1}, {0, 0}, 2, 0, out, 0.5), 0);
    EXPECT_EQ(intersect_line_circle({0, 0}, {0.25, 0}, {0, 0}, 2, 0, out, 0.5), 0);
    EXPECT_POINT(out, untouched, untouched);
    EXPECT_EQ(intersect_line_circle({0, 0}, {0.5, 0}, {0, 0}, 2, 0, out, 0.5), 1);
    EXPECT_POINT(out, 2.0, 0.0);
}

TEST(IntersectLineCircle, NanGivesNan)
{
    Point2D out;
    EXPECT_EQ(intersect_line_circle({nan64, 0}, {5, 0}, {0, 0}, 2, 0, out, 1e-6), 1);
    EXPECT_TRUE(std::isnan(out.x()));
}

TEST(IntersectCircleCircle, TheSelectorPicksLeftAndRight)
{
    Point2D out;
    EXPECT_EQ(intersect_circle_circle({0, 0}, 5, {6, 0}, 5, 0, out, 1e-6), 1);
    EXPECT_POINT(out, 3.0, 4.0);
    EXPECT_EQ(intersect_circle_circle({0, 0}, 5, {6, 0}, 5, 1, out, 1e-6), 1);
    EXPECT_POINT(out, 3.0, -4.0);
    EXPECT_EQ(intersect_circle_circle({6, 0}, 5, {0, 0}, 5, 0, out, 1e-6), 1);
    EXPECT_POINT(out, 3.0, -4.0);
}

TEST(IntersectCircleCircle, TouchingCirclesGiveOnePoint)
{
    Point2D out;
    for (int const which : {0, 1}) {
        EXPECT_EQ(intersect_circle_circle({0, 0}, 3, {1, 0}, 2, which, out, 1e-6), 1); // inside
        EXPECT_POINT(out, 3.0, 0.0);
        EXPECT_EQ(intersect_circle_circle({0, 0}, 2, {-1, 0}, 3, which, out, 1e-6), 1);
        EXPECT_POINT(out, 2.0, 0.0);
        EXPECT_EQ(intersect_circle_circle({0, 0}, 1, {3, 0}, 2, which, out, 1e-6), 1); // outside
        EXPECT_POINT(out, 1.0, 0.0);
    }
}

TEST(IntersectCircleCircle, RefusesApartNestedAndConcentric)
{
    Point2D out = untouchedPoint();
    EXPECT_EQ(intersect_circle_circle({0, 0}, 1, {3.5, 0}, 2, 0, out, 0.5), 0);
    EXPECT_EQ(intersect_circle_circle({0, 0}, 1, {1, 0}, 2.5, 0, out, 0.5), 0);
    EXPECT_EQ(intersect_circle_circle({0, 0}, 2.5, {1, 0}, 1, 0, out, 0.5), 0);
    EXPECT_EQ(intersect_circle_circle({0, 0}, 1, {0.25, 0}, 1, 0, out, 0.5), 0);
    EXPECT_POINT(out, untouched, untouched);
    // Half of eps apart rounds up to 0 and passes.
    EXPECT_EQ(intersect_circle_circle({0, 0}, 1, {3.25, 0}, 2, 0, out, 0.5), 1);
    EXPECT_EQ(intersect_circle_circle({0, 0}, 1, {0.5, 0}, 1, 0, out, 0.5), 1);
    EXPECT_EQ(out.x(), 0.25);
}

TEST(IntersectCircleCircle, NanGivesNan)
{
    Point2D out;
    EXPECT_EQ(intersect_circle_circle({nan64, 0}, 1, {3, 0}, 2, 0, out, 0.5), 1);
    EXPECT_TRUE(std::isnan(out.x()));
}

TEST(ProjektionPunktAufLinie, IsTheFoot)
{
    Point2D out;
    EXPECT_EQ(projektion_punkt_auf_linie({7, 9}, {1, 2}, {3, 2}, out, 1e-6), 1);
    EXPECT_POINT(out, 7.0, 2.0);
}

TEST(ProjektionPunktAufLinie, EpsLimitsTheSquaredLength)
{
    Point2D out = untouchedPoint();
    EXPECT_EQ(projektion_punkt_auf_linie({7, 9}, {0, 0}, {2, 0}, out, 4.0), 0);
    EXPECT_EQ(projektion_punkt_auf_linie({7, 9}, {1, 1}, {1, 1}, out, 0.0), 0);
    EXPECT_EQ(projektion_punkt_auf_linie({7, 9}, {nan64, 1}, {1, 1}, out, 0.0), 0);
    EXPECT_POINT(out, untouched, untouched);
    EXPECT_EQ(projektion_punkt_auf_linie({7, 9}, {0, 0}, {2, 0}, out, 3.0), 1);
    EXPECT_POINT(out, 7.0, 0.0);
}

TEST(ProjektionPunktAufKreis, IsTheNearestPoint)
{
    Point2D out;
    EXPECT_EQ(projektion_punkt_auf_kreis({4, 5}, {1, 1}, 10, out, 1e-6), 1);
    EXPECT_POINT(out, 7.0, 9.0);
}

TEST(ProjektionPunktAufKreis, RefusesTheCentre)
{
    Point2D out = untouchedPoint();
    EXPECT_EQ(projektion_punkt_auf_kreis({1, 1}, {1, 1}, 10, out, 0.0), 0);
    EXPECT_EQ(projektion_punkt_auf_kreis({4, 5}, {1, 1}, 10, out, 25.0), 0);
    EXPECT_EQ(projektion_punkt_auf_kreis({nan64, 5}, {1, 1}, 10, out, 0.0), 0);
    EXPECT_POINT(out, untouched, untouched);
}

TEST(MatVektorWinkel, StartsAtZero)
{
    EXPECT_EQ(mat_vektor_winkel({1, 0}), 0.0);
    EXPECT_EQ(WinVec(Point2D(1, 0)), 360.0);
    EXPECT_EQ(mat_vektor_winkel({1, -0.0}), 0.0);
    EXPECT_EQ(mat_vektor_winkel({0, 2}), 90.0);
    EXPECT_EQ(mat_vektor_winkel({-3, 0}), 180.0);
    EXPECT_EQ(mat_vektor_winkel({0, -2}), 270.0);
    EXPECT_NEAR(mat_vektor_winkel({1, -1}), 315.0, 1e-12);
    EXPECT_TRUE(std::isnan(mat_vektor_winkel({0, 0})));
    EXPECT_TRUE(std::isnan(mat_vektor_winkel({nan64, 1})));
}

double number(int low, int high)
{
    return *rc::gen::inRange(low * 64, high * 64) / 64.0;
}

RC_GTEST_PROP(IntersectLineCircle, CrossingsLieOnBoth, ())
{
    Point2D const p0(number(-50, 50), number(-50, 50));
    Point2D const p1(number(-50, 50), number(-50, 50));
    Point2D const c(number(-50, 50), number(-50, 50));
    double const r = number(1, 60);
    Point2D const d = p1 - p0;
    RC_PRE(d.Length() > 0.5);
    double const height =
        std::fabs(d.x() * (c.y() - p0.y()) - d.y() * (c.x() - p0.x())) / d.Length();
    double const eps = 1e-6;
    RC_PRE(std::fabs(height - r) > 10 * eps);
    Point2D a;
    Point2D b;
    int const found = intersect_line_circle(p0, p1, c, r, 0, a, eps);
    RC_ASSERT(found == (height < r ? 1 : 0));
    RC_ASSERT(intersect_line_circle(p0, p1, c, r, 1, b, eps) == found);
    if (found == 0) {
        return;
    }
    for (Point2D const &p : {a, b}) {
        RC_ASSERT(std::fabs(distanceOf(p, c) - r) < 1e-9);
        RC_ASSERT(std::fabs(d.x() * (p.y() - p0.y()) - d.y() * (p.x() - p0.x())) <
                  1e-8 * d.Length());
    }
    RC_ASSERT((a.x() - b.x()) * d.x() + (a.y() - b.y()) * d.y() > 0);
}

RC_GTEST_PROP(IntersectCircleCircle, CrossingsLieOnBoth, ())
{
    Point2D const c1(number(-50, 50), number(-50, 50));
    Point2D const c2(number(-50, 50), number(-50, 50));
    double const r1 = number(1, 60);
    double const r2 = number(1, 60);
    double const d = distanceOf(c1, c2);
    RC_PRE(d > 0.5);
    RC_PRE(std::fabs(r1 + r2 - d) > 1e-4 && std::fabs(std::fabs(r1 - r2) - d) > 1e-4);
    bool const meet = d < r1 + r2 && d > std::fabs(r1 - r2);
    for (int const which : {0, 1}) {
        Point2D p;
        RC_ASSERT(intersect_circle_circle(c1, r1, c2, r2, which, p, 1e-6) == (meet ? 1 : 0));
        if (!meet) {
            continue;
        }
        RC_ASSERT(std::fabs(distanceOf(p, c1) - r1) < 1e-8);
        RC_ASSERT(std::fabs(distanceOf(p, c2) - r2) < 1e-8);
        double const side =
            (c2.x() - c1.x()) * (p.y() - c1.y()) - (c2.y() - c1.y()) * (p.x() - c1.x());
        RC_ASSERT((side > 0) == (which == 0));
    }
}

RC_GTEST_PROP(Projections, AreFeetAndNearestPoints, ())
{
    Point2D const p(number(-50, 50), number(-50, 50));
    Point2D const a(number(-50, 50), number(-50, 50));
    Point2D const b(number(-50, 50), number(-50, 50));
    RC_PRE(distanceOf(a, b) > 0.5 && distanceOf(a, p) > 0.5);
    Point2D foot;
    RC_ASSERT(projektion_punkt_auf_linie(p, a, b, foot, 1e-9) == 1);
    Point2D const d = b - a;
    RC_ASSERT(std::fabs((p.x() - foot.x()) * d.x() + (p.y() - foot.y()) * d.y()) <
              1e-9 * d.Length2());
    RC_ASSERT(std::fabs(d.x() * (foot.y() - a.y()) - d.y() * (foot.x() - a.x())) <
              1e-9 * d.Length2());
    double const r = number(1, 20);
    Point2D nearest;
    RC_ASSERT(projektion_punkt_auf_kreis(p, a, r, nearest, 1e-9) == 1);
    RC_ASSERT(std::fabs(distanceOf(nearest, a) - r) < 1e-10);
    RC_ASSERT(std::fabs(distanceOf(nearest, p) - std::fabs(distanceOf(a, p) - r)) < 1e-10);
}

RC_GTEST_PROP(MatVektorWinkel, AgreesWithTheArcTangent, ())
{
    Point2D const v(number(-50, 50), number(-50, 50));
    RC_PRE(v.Length() > 0);
    double const truth = std::atan2(v.y(), v.x()) * 180 / pi;
    RC_ASSERT(std::fabs(mat_vektor_winkel(v) - (v.y() < 0 ? truth + 360 : truth)) < 1e-5);
}

} // namespace
