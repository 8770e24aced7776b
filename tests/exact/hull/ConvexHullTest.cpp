#include "HullChecks.h"
#include "clouds.h"

#include "support/Bits.h"

#include <OrvelExact/hull/ConvexHull.h>

#include <boost/multiprecision/cpp_int.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace orvelExact;

TEST(ConvexHull, OfACubeHasItsEightCorners)
{
    ConvexHull const hull(clouds::lattice(2));
    checks::expectSolid(hull);
    EXPECT_EQ(QVector<int>({0, 1, 2, 3, 4, 5, 6, 7}), hull.vertices());
    EXPECT_EQ(6, hull.facetCount());
    EXPECT_EQ(12, hull.triangles().size());
    EXPECT_EQ(24, hull.halfEdges().size());
    EXPECT_EQ(1.0, hull.volume());
    EXPECT_EQ(6.0, hull.area());
    EXPECT_EQ(Point3(0.5, 0.5, 0.5), hull.centroid());
}

TEST(ConvexHull, OfALatticeHasTheEightOuterCorners)
{
    for (int const side : {3, 5}) {
        ConvexHull const hull(clouds::lattice(side));
        checks::expectSolid(hull);
        EXPECT_EQ(8, hull.vertices().size());
        EXPECT_EQ(6, hull.facetCount());
        EXPECT_EQ(std::pow(side - 1, 3), hull.volume());
    }
}

TEST(ConvexHull, KeepsEveryPointOfACone)
{
    // Each point lies on a line of its own from the apex, so all of them are extreme.
    std::mt19937_64 generator(7);
    std::uniform_real_distribution<double> uniform(0.0, 1.0);
    clouds::Cloud cloud;
    for (int i = 0; i < 100000; ++i) {
        double const angle = 6.283185307179586 * (i + 0.5 * uniform(generator)) / 100000;
        double const radius = 0.2 + uniform(generator);
        cloud.append({radius * std::cos(angle), radius * std::sin(angle), 3.0 - 2.0 * radius});
    }
    ConvexHull const hull(cloud);
    EXPECT_EQ(100000, hull.vertices().size());
    checks::expectClosed(hull);
    checks::expectStrictlyConvex(hull);
}

TEST(ConvexHull, OfATorusIsConvex)
{
    ConvexHull const hull(clouds::torus(1000000, 11));
    checks::expectClosed(hull);
    checks::expectStrictlyConvex(hull);
    // Of the torus: the tube's outer half and two discs, which 10^6 points nearly reach.
    double const pi = std::acos(-1.0);
    double const outerHalf = 2.0 * pi * (pi * 3.0 + 2.0);
    double const discs = 2.0 * pi * 9.0;
    EXPECT_NEAR(outerHalf + discs, hull.area(), 1e-4 * (outerHalf + discs));
}

TEST(ConvexHull, KeepsTheCornersOfATinyBox)
{
    // The same corners as those of the cloud a million times larger, where no rounding differs.
    clouds::Cloud large;
    for (Point3 const &p : clouds::ball(300, 12)) {
        large.append({std::round(p.x() * 1e6), std::round(p.y() * 1e6), std::round(p.z() * 1e6)});
    }
    double const factor = std::ldexp(1.0, -41); // 1e6 becomes 4.5e-7
    ConvexHull const hull(clouds::scaled(large, factor, {}));
    checks::expectSolid(hull);
    EXPECT_TRUE(checks::areSame(ConvexHull(large), hull));
    EXPECT_GT(hull.vertices().size(), 45);
}

TEST(ConvexHull, IsTheSameForEveryThreadCount)
{
    for (clouds::Cloud const &cloud :
         {clouds::ball(60000, 1), clouds::sphere(40000, 2), clouds::lattice(40, 0.1),
          clouds::repeated(clouds::sphere(300, 4), 200, 5), clouds::coplanarClusters(50000, 3)}) {
        ConvexHull const single(cloud);
        for (int const threads : {2, 3, 4}) {
            EXPECT_TRUE(checks::areSame(single, ConvexHull(cloud, threads)));
        }
    }
}

TEST(ConvexHull, DoesNotDependOnTheOrderOfThePoints)
{
    clouds::Cloud const cloud = clouds::coplanarClusters(3000, 6) + clouds::lattice(9, 0.25);
    QVector<Point3> const expected = checks::sortedCorners(ConvexHull(cloud));
    for (unsigned seed = 1; seed <= 10; ++seed) {
        ConvexHull const hull(clouds::repeated(cloud, 1, seed));
        EXPECT_EQ(expected, checks::sortedCorners(hull));
    }
}

TEST(ConvexHull, TellsTheDimensionExactly)
{
    EXPECT_EQ(-1, ConvexHull().dimension());
    EXPECT_EQ(Status::Empty, ConvexHull(QVector<Point3>()).status());
    ConvexHull const point({{1, 2, 3}, {1, 2, 3}, {1, 2, 3}});
    EXPECT_EQ(0, point.dimension());
    EXPECT_EQ(QVector<int>({0}), point.vertices());
    ConvexHull const segment({{0.5, 0.5, 0.5}, {2, 2, 2}, {1, 1, 1}, {-1, -1, -1}, {2, 2, 2}});
    EXPECT_EQ(1, segment.dimension());
    EXPECT_EQ(QVector<int>({1, 3}), segment.vertices());
    ConvexHull const bent({{0, 0, 0}, {1, 1, 1}, {2, 2, std::nextafter(2.0, 3.0)}});
    EXPECT_EQ(2, bent.dimension());
    ConvexHull const polygon({{0, 0, 1}, {4, 0, 1}, {4, 4, 1}, {0, 4, 1}, {2, 0, 1}, {1, 1, 1}});
    EXPECT_EQ(2, polygon.dimension());
    EXPECT_EQ(1, polygon.facetCount());
    EXPECT_EQ(QVector<int>({0, 1, 2, 3}), polygon.facet(0));
    ConvexHull const solid({{0, 0, 1}, {4, 0, 1}, {4, 4, 1}, {0, 4, std::nextafter(1.0, 2.0)}});
    EXPECT_EQ(3, solid.dimension());
    EXPECT_EQ(4, solid.facetCount());
}

TEST(ConvexHull, OfAnObliquePlaneIsItsPolygon)
{
    clouds::Cloud cloud;
    for (int i = 0; i < 50; ++i) {
        for (int j = 0; j < 50; ++j) {
            cloud.append({0.25 * i, 0.5 * j, 0.25 * i - 1.5 * j});
        }
    }
    ConvexHull const hull(cloud);
    EXPECT_EQ(2, hull.dimension());
    EXPECT_EQ(QVector<int>({0, 49, 2499, 2450}), hull.facet(0));
    EXPECT_EQ(0.0, hull.volume());
    double const expected = 49 * 0.25 * 49 * 0.5 * std::sqrt(1 + 1 + 9.0);
    EXPECT_NEAR(expected, hull.area(), 1e-12 * expected);
    EXPECT_EQ(PointLocation::Boundary, hull.contains({1.25, 1.5, 1.25 - 4.5}));
    EXPECT_EQ(PointLocation::Outside, hull.contains({1.25, 1.5, 1.0 - 4.5}));
    EXPECT_EQ(PointLocation::Outside, hull.contains({-0.25, 0, -0.25}));
}

TEST(ConvexHull, RefusesNanAndInfinity)
{
    for (double const bad : {support::nan, support::inf, -support::inf}) {
        clouds::Cloud cloud = clouds::ball(50000, 1);
        cloud[49999].z() = bad;
        for (int const threads : {1, 4}) {
            ConvexHull const hull(cloud, threads);
            EXPECT_EQ(Status::NotFinite, hull.status());
            EXPECT_EQ(-1, hull.dimension());
            EXPECT_EQ(0, hull.facetCount());
            EXPECT_TRUE(hull.vertices().isEmpty());
            EXPECT_EQ(PointLocation::NotFinite, hull.contains({0, 0, 0}));
            EXPECT_TRUE(std::isnan(hull.distanceToSurface({0, 0, 0})));
        }
    }
}

TEST(ConvexHull, ServesTheLargestAndTheSmallestDoubles)
{
    for (double const size : {1e308, 1e-300, 5e-324}) {
        ConvexHull const hull({{-size, 0, 0},
                               {size, 0, 0},
                               {0, -size, 0},
                               {0, size, 0},
                               {0, 0, -size},
                               {0, 0, size},
                               {0, 0, 0}});
        checks::expectSolid(hull);
        EXPECT_EQ(QVector<int>({0, 1, 2, 3, 4, 5}), hull.vertices());
        EXPECT_EQ(8, hull.facetCount());
        EXPECT_EQ(PointLocation::Inside, hull.contains({0, 0, 0}));
    }
}

TEST(ConvexHull, LocatesPointsExactly)
{
    ConvexHull const hull(clouds::lattice(3, 0.1));
    double const side = 0.1 * 2;
    EXPECT_EQ(PointLocation::Inside, hull.contains({0.1, 0.1, 0.1}));
    EXPECT_EQ(PointLocation::Boundary, hull.contains({0.1, side, 0.05}));
    EXPECT_EQ(PointLocation::Inside, hull.contains({0.1, std::nextafter(side, 0.0), 0.05}));
    EXPECT_EQ(PointLocation::Outside, hull.contains({0.1, std::nextafter(side, 1.0), 0.05}));
    EXPECT_EQ(PointLocation::Boundary, hull.contains({0, 0, 0}));
    EXPECT_EQ(PointLocation::Outside, hull.contains({0, 0, -5e-324}));
    EXPECT_EQ(PointLocation::NotFinite, hull.contains({0, support::nan, 0}));
}

TEST(ConvexHull, MeasuresTheDistanceToItsSurface)
{
    ConvexHull const hull(clouds::lattice(2, 2.0));
    EXPECT_EQ(1.0, hull.distanceToSurface({1, 1, 1}));
    EXPECT_EQ(0.25, hull.distanceToSurface({0.25, 1, 1.5}));
    EXPECT_EQ(3.0, hull.distanceToSurface({5, 1, 1}));
    EXPECT_EQ(5.0, hull.distanceToSurface({5, 6, 1}));
    EXPECT_NEAR(std::sqrt(3.0), hull.distanceToSurface({3, 3, 3}), 1e-15);
    EXPECT_EQ(0.0, hull.distanceToSurface({2, 1, 1}));
    EXPECT_EQ(5.0, ConvexHull({{0, 0, 0}, {1, 0, 0}}).distanceToSurface({4, 4, 0}));
    EXPECT_EQ(2.0,
              ConvexHull({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}).distanceToSurface({0.25, 0.25, 2}));
}

TEST(ConvexHull, HasTheVolumeOfRationalArithmetic)
{
    using Rational = boost::multiprecision::cpp_rational;
    for (unsigned seed = 1; seed <= 5; ++seed) {
        Point3 const offset(seed * 1e3, 0, 7);
        ConvexHull const hull(clouds::scaled(clouds::ball(300, seed), 0.01, offset));
        Rational sixfold = 0;
        for (HullTriangle const &triangle : hull.triangles()) {
            Rational v[3][3];
            for (int i = 0; i < 9; ++i) {
                v[i / 3][i % 3] = hull.points().at(triangle.corner[i / 3])[i % 3];
            }
            sixfold += v[0][0] * (v[1][1] * v[2][2] - v[1][2] * v[2][1]) +
                       v[0][1] * (v[1][2] * v[2][0] - v[1][0] * v[2][2]) +
                       v[0][2] * (v[1][0] * v[2][1] - v[1][1] * v[2][0]);
        }
        double const expected = static_cast<double>(Rational(sixfold / 6));
        double const diagonal = std::sqrt(3.0) * 0.02;
        EXPECT_NEAR(expected, hull.volume(), 1e-14 * std::pow(diagonal, 3));
    }
}

TEST(ConvexHull, HasTheVolumeAreaAndCentroidOfAPrism)
{
    for (int const sides : {3, 4, 17, 1000}) {
        ConvexHull const hull(clouds::scaled(clouds::prism(sides), 3.0, {100, 200, -50}));
        double const angle = 6.283185307179586 / sides;
        double const base = 9.0 * 0.5 * sides * std::sin(angle);
        double const rim = 3.0 * 2.0 * sides * std::sin(angle / 2);
        double const diagonal = std::sqrt(3 * 36.0);
        EXPECT_NEAR(6.0 * base, hull.volume(), 2e-13 * std::pow(diagonal, 3)) << sides;
        EXPECT_NEAR(2.0 * base + 6.0 * rim, hull.area(), 2e-13 * diagonal * diagonal) << sides;
        EXPECT_NEAR(0.0, (hull.centroid() - Point3(100, 200, -47)).length(), 1e-12) << sides;
    }
}
