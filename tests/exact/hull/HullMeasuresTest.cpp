// Area, centroid and distance of hulls against numbers of a hundred digits.

#include "clouds.h"

#include "exact/measures/FacesTruth.h"

#include <OrvelExact/hull/ConvexHull.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace orvelExact;

namespace {

using measures::Random;
using measures::Real;
using measures::RealPoint;
using measures::Within;

RealPoint crossOf(RealPoint const &a, RealPoint const &b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

/// Solids and flat clouds, of all sizes, flattened, and far from the origin.
clouds::Cloud anyCloud(Random &any, unsigned seed)
{
    clouds::Cloud cloud;
    switch (any.whole(0, 4)) {
    case 0:
        cloud = clouds::ball(40, seed);
        break;
    case 1:
        cloud = clouds::prism(any.whole(3, 20));
        break;
    case 2:
        cloud = clouds::lattice(any.whole(2, 4), any.power(-3, 3));
        break;
    case 3:
        cloud = clouds::sphere(any.whole(4, 40), seed);
        break;
    default: // of the plane z = x + y
        for (int i = 0; i < 20; ++i) {
            Point3 const p = any.lattice3(100);
            cloud.append({p.x(), p.y(), p.x() + p.y()});
        }
    }
    if (any.whole(0, 2) == 0) {
        double const height = any.power(-6, 0);
        for (Point3 &p : cloud) {
            p = {p.x(), p.y(), height * p.z()};
        }
    }
    Point3 const offset = any.whole(0, 1) == 0 ? any.power(0, 9) * any.point3() : Point3();
    return clouds::scaled(cloud, any.whole(0, 1) == 0 ? any.power(-6, 6) : 1.0, offset);
}

double diagonalOf(ConvexHull const &hull)
{
    Point3 low = hull.points().first(), high = low;
    for (Point3 const &p : hull.points()) {
        for (int k = 0; k < 3; ++k) {
            low[k] = std::min(low[k], p[k]);
            high[k] = std::max(high[k], p[k]);
        }
    }
    return (high - low).length();
}

std::vector<Point3> cornersOf(ConvexHull const &hull, HullTriangle const &triangle)
{
    std::vector<Point3> corners;
    for (int const i : triangle.corner) {
        corners.push_back(hull.points().at(i));
    }
    return corners;
}

/// Volume or area, and the moments about the first corner.
struct Weights
{
    Real area = 0;
    Real volume = 0;
    RealPoint moment{};
};

Weights weightsOf(ConvexHull const &hull)
{
    Weights sum;
    RealPoint const origin = measures::real(hull.points().at(hull.vertices().first()));
    for (HullTriangle const &triangle : hull.triangles()) {
        RealPoint v[3];
        for (int i = 0; i < 3; ++i) {
            v[i] = measures::minus(measures::real(hull.points().at(triangle.corner[i])), origin);
        }
        RealPoint const normal = crossOf(measures::minus(v[1], v[0]), measures::minus(v[2], v[0]));
        Real const area = sqrt(measures::dot(normal, normal)) / 2;
        Real const volume = measures::dot(normal, v[0]) / 6;
        bool const isSolid = hull.dimension() == 3;
        sum.area += area;
        sum.volume += volume;
        for (std::size_t k = 0; k < 3; ++k) {
            Real const corners = v[0][k] + v[1][k] + v[2][k];
            sum.moment[k] += isSolid ? Real(volume * corners / 4) : Real(area * corners / 3);
        }
    }
    return sum;
}

} // namespace

TEST(HullMeasures, AreaAndCentroidAreWithinTheirBounds)
{
    Random any(1);
    int solid = 0, flat = 0;
    for (int i = 0; i < measures::cases(1000); ++i) {
        ConvexHull const hull(anyCloud(any, static_cast<unsigned>(i + 1)));
        if (hull.dimension() < 2) {
            continue;
        }
        Weights const truth = weightsOf(hull);
        double const size = diagonalOf(hull);
        ASSERT_TRUE(Within(0, truth.area, hull.area(), 1e-14 * size * size)) << i;
        ASSERT_TRUE(Within(0, truth.volume, hull.volume(), 1e-14 * size * size * size)) << i;
        bool const isSolid = hull.dimension() == 3;
        Real const weight = isSolid ? truth.volume : truth.area;
        double const ratio = static_cast<double>(
            (isSolid ? Real(Real(size) * size * size) : Real(Real(size) * size)) / weight);
        if (1e-14 * ratio > 0.5) {
            continue;
        }
        (isSolid ? solid : flat) += 1;
        RealPoint const origin = measures::real(hull.points().at(hull.vertices().first()));
        Point3 const found = hull.centroid();
        for (int k = 0; k < 3; ++k) {
            auto const axis = static_cast<std::size_t>(k);
            Real const expected = origin[axis] + truth.moment[axis] / weight;
            ASSERT_TRUE(Within(1, expected, found[k], 1e-14 * size * ratio)) << i;
        }
    }
    EXPECT_GT(solid, 500);
    EXPECT_GT(flat, 50);
}

TEST(HullMeasures, DistanceToTheSurfaceIsWithinItsBound)
{
    Random any(2);
    for (int i = 0; i < measures::cases(150); ++i) {
        ConvexHull const hull(anyCloud(any, static_cast<unsigned>(i + 1)));
        if (hull.dimension() < 2) {
            continue;
        }
        Point3 const &start = hull.points().at(hull.vertices().first());
        for (int k = 0; k < 4; ++k) {
            Point3 const p = start + diagonalOf(hull) * any.power(-3, 1) * any.point3();
            Real least = -1;
            for (HullTriangle const &triangle : hull.triangles()) {
                Real const distance = measures::distanceTruth({p}, cornersOf(hull, triangle));
                least = least < 0 || distance < least ? distance : least;
            }
            double largest = 0.0;
            clouds::Cloud all = hull.points();
            all.append(p);
            for (Point3 const &q : all) {
                largest = std::max({largest, std::fabs(q.x()), std::fabs(q.y()), std::fabs(q.z())});
            }
            ASSERT_TRUE(Within(0, least, hull.distanceToSurface(p), 1e-14 * largest)) << i;
        }
    }
}
