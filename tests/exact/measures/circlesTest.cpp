#include "support.h"

#include <OrvelExact/measures/circumscribed.h>
#include <OrvelExact/measures/enclosing.h>

#include <support/Bits.h>

#include <algorithm>
#include <array>
#include <vector>

namespace {

using namespace orvelExact;
using measures::cases;
using measures::Random;
using measures::Real;
using measures::ulpOf;
using measures::Within;

using RealPoint = std::array<Real, 3>;

RealPoint real(Point3 const &p)
{
    return {Real(p.x()), Real(p.y()), Real(p.z())};
}
RealPoint minus(RealPoint const &a, RealPoint const &b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}
Real dot(RealPoint const &a, RealPoint const &b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// Centre of the ball through points, all on its boundary, in their plane; false if none.
bool centreThrough(std::vector<RealPoint> const &p, RealPoint &centre)
{
    std::size_t const n = p.size() - 1;
    std::vector<RealPoint> edge;
    for (std::size_t i = 0; i < n; ++i) {
        edge.push_back(minus(p[i + 1], p[0]));
    }
    std::array<std::array<Real, 4>, 3> m{};
    for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t k = 0; k < n; ++k) {
            m[i][k] = dot(edge[i], edge[k]);
        }
        m[i][3] = dot(edge[i], edge[i]) / 2;
    }
    for (std::size_t i = 0; i < n; ++i) {
        if (m[i][i] <= dot(edge[i], edge[i]) * Real(1e-60)) {
            return false;
        }
        for (std::size_t row = 0; row < n; ++row) {
            Real const part = m[row][i] / m[i][i];
            for (std::size_t k = i; k < 4 && row != i; ++k) {
                m[row][k] -= part * m[i][k];
            }
        }
    }
    centre = p[0];
    for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t k = 0; k < 3; ++k) {
            centre[k] += m[i][3] / m[i][i] * edge[i][k];
        }
    }
    return true;
}

/// The radius of the smallest ball around up to four points, by all of its subsets.
Real smallestTruth(std::vector<RealPoint> const &points)
{
    Real best = -1;
    for (unsigned mask = 1; mask < 1u << points.size(); ++mask) {
        std::vector<RealPoint> some;
        for (std::size_t i = 0; i < points.size(); ++i) {
            if ((mask >> i & 1) != 0) {
                some.push_back(points[i]);
            }
        }
        RealPoint centre;
        if (!centreThrough(some, centre)) {
            continue;
        }
        Real const square = dot(minus(some[0], centre), minus(some[0], centre));
        bool holdsAll = true;
        for (RealPoint const &p : points) {
            holdsAll =
                holdsAll && dot(minus(p, centre), minus(p, centre)) <= square * (1 + Real(1e-30));
        }
        if (holdsAll && (best < 0 || square < best)) {
            best = square;
        }
    }
    return sqrt(best);
}

double sizeOf(std::vector<Point3> const &points)
{
    double size = 0.0;
    for (Point3 const &p : points) {
        Point3 const way = p - points[0];
        size = std::max({size, std::fabs(way.x()), std::fabs(way.y()), std::fabs(way.z())});
    }
    return size;
}

/// The smallest ball of the support alone is no larger than that of all points, and a ball about
/// the centre that holds all is no smaller: the radius given is between them.
void expectSmallest(std::vector<Point3> const &points, Point3 const &centre, double radius,
                    QVector<int> const &support)
{
    std::vector<RealPoint> some;
    for (int const i : support) {
        some.push_back(real(points[static_cast<std::size_t>(i)]));
    }
    double const slack = 0x1p-70 * sizeOf(points) + ulpOf(radius);
    ASSERT_TRUE(Within(0, smallestTruth(some), radius, slack));
    Real farthest = 0;
    for (Point3 const &p : points) {
        farthest = std::max<Real>(farthest,
                                  dot(minus(real(p), real(centre)), minus(real(p), real(centre))));
    }
    double const rounding =
        2 * ulpOf(std::max({std::fabs(centre.x()), std::fabs(centre.y()), std::fabs(centre.z())}));
    ASSERT_LE(sqrt(farthest), Real(radius) + slack + rounding);
    ASSERT_TRUE(std::is_sorted(support.begin(), support.end()));
}

Point3 anyPoint(Random &any, int kind)
{
    switch (kind) {
    case 0:
        return any.point3();
    case 1:
        return any.lattice3(2);
    case 2: { // on a sphere, up to rounding
        Point3 const p = any.point3();
        return p / p.length();
    }
    case 3: // a thin disc
        return {any.number(-1, 1), any.number(-1, 1), 1e-9 * any.number(-1, 1)};
    case 4: // far away
        return any.point3() + Point3(1e6, -3e5, 2e7);
    default: // two clusters
        return (any.whole(0, 1) == 0 ? Point3(1, 2, 3) : Point3(-1, 0, 1)) + 1e-8 * any.point3();
    }
}

TEST(SmallestSphere, AnyPoints)
{
    Random any(1);
    // not 10^5, which takes about 14 s
    for (int i = 0; i < cases(6000) && !HasFatalFailure(); ++i) {
        QVector<Point3> points;
        int const kind = any.whole(0, 5);
        double const size = any.whole(0, 3) == 0 ? any.power(-100, 100) : 1.0;
        int const count = any.whole(1, i % 50 == 0 ? 1000 : 12);
        for (int k = 0; k < count; ++k) {
            points.append(anyPoint(any, kind) * size);
        }
        EnclosingSphere const found = smallestSphere(points);
        ASSERT_EQ(Status::Ok, found.status);
        SCOPED_TRACE(i);
        expectSmallest({points.begin(), points.end()}, found.centre, found.radius, found.support);
    }
}

TEST(SmallestCircle, AnyPoints)
{
    Random any(2);
    // not 10^5, which takes about 8 s
    for (int i = 0; i < cases(10000) && !HasFatalFailure(); ++i) {
        QVector<Point2> points;
        std::vector<Point3> lifted;
        int const kind = any.whole(0, 5);
        int const count = any.whole(1, i % 50 == 0 ? 1000 : 12);
        for (int k = 0; k < count; ++k) {
            Point3 const p = anyPoint(any, kind);
            points.append({p.x(), p.y()});
            lifted.emplace_back(p.x(), p.y(), 0.0);
        }
        EnclosingCircle const found = smallestCircle(points);
        ASSERT_EQ(Status::Ok, found.status);
        SCOPED_TRACE(i);
        expectSmallest(lifted, {found.centre.x(), found.centre.y(), 0.0}, found.radius,
                       found.support);
    }
}

TEST(SmallestCircle, KnownCircles)
{
    EnclosingCircle const square = smallestCircle({{0, 0}, {2, 0}, {2, 2}, {0, 2}});
    EXPECT_EQ(Point2(1, 1), square.centre);
    EXPECT_EQ(std::sqrt(2.0), square.radius);
    EnclosingCircle const same = smallestCircle({{3, 4}, {3, 4}, {3, 4}});
    EXPECT_EQ(0.0, same.radius);
    EXPECT_EQ(QVector<int>{0}, same.support);
    EnclosingCircle const line = smallestCircle({{0, 0}, {0, 0}, {1, 0}, {4, 0}, {4, 0}});
    EXPECT_EQ(Point2(2, 0), line.centre);
    EXPECT_EQ((QVector<int>{0, 3}), line.support);
    EnclosingSphere const cube = smallestSphere(
        {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}, {0, 0, 1}, {1, 0, 1}, {0, 1, 1}, {1, 1, 1}});
    EXPECT_EQ(Point3(0.5, 0.5, 0.5), cube.centre);
    EXPECT_EQ(std::sqrt(0.75), cube.radius);
    EXPECT_EQ(Status::Ok, smallestCircle({{0, 0}, {4e-323, 0}}).status);
    EXPECT_EQ(2e-323, smallestCircle({{0, 0}, {4e-323, 0}}).radius);
}

TEST(SmallestCircle, RefusesWhatHasNone)
{
    EXPECT_EQ(Status::Empty, smallestCircle({}).status);
    EXPECT_EQ(Status::Empty, smallestSphere({}).status);
    EXPECT_EQ(Status::NotFinite, smallestCircle({{0, 0}, {support::nan, 0}}).status);
    EXPECT_EQ(Status::NotFinite, smallestSphere({{0, 0, support::inf}}).status);
    EXPECT_EQ(Status::OutOfRange, smallestSphere({{0, 0, 1e280}}).status);
}

TEST(CircleThrough, AnyPoints)
{
    Random any(3);
    int collinear = 0;
    for (int i = 0; i < cases(100000); ++i) {
        int const kind = any.whole(0, 5);
        Point3 const a = anyPoint(any, kind), b = anyPoint(any, kind);
        Point3 const c = i % 3 == 0
                             ? a + any.number(-1, 1) * (b - a) + any.power(-18, -3) * any.point3()
                             : anyPoint(any, kind);
        CircleThrough3 const found = circleThrough(a, b, c);
        RealPoint centre;
        if (!centreThrough({real(a), real(b), real(c)}, centre)) {
            ASSERT_EQ(Status::Degenerate, found.status);
            ++collinear;
            continue;
        }
        ASSERT_EQ(Status::Ok, found.status);
        Real const radius = sqrt(dot(minus(real(a), centre), minus(real(a), centre)));
        double const slack = 0x1p-95 * found.condition * found.radius;
        ASSERT_TRUE(Within(1, radius, found.radius, slack));
        for (std::size_t k = 0; k < 3; ++k) {
            ASSERT_TRUE(Within(1, centre[k], found.centre[static_cast<int>(k)], slack));
        }
        ASSERT_EQ(found.condition > illCondition, found.isIllConditioned);
        ASSERT_NEAR(1.0, found.normal.length(), 1e-15);
        ASSERT_TRUE(found.condition > 1e6 || (b - a).cross(c - a).dot(found.normal) > 0.0);
    }
    EXPECT_GT(collinear, 100);
}

TEST(SphereThrough, AnyPoints)
{
    Random any(4);
    int coplanar = 0;
    for (int i = 0; i < cases(100000); ++i) {
        int const kind = any.whole(0, 5);
        Point3 const a = anyPoint(any, kind), b = anyPoint(any, kind), c = anyPoint(any, kind),
                     d = anyPoint(any, kind);
        CircleThrough3 const found = sphereThrough(a, b, c, d);
        RealPoint centre;
        if (!centreThrough({real(a), real(b), real(c), real(d)}, centre)) {
            ASSERT_EQ(Status::Degenerate, found.status);
            ++coplanar;
            continue;
        }
        ASSERT_EQ(Status::Ok, found.status);
        Real const radius = sqrt(dot(minus(real(a), centre), minus(real(a), centre)));
        double const slack = 0x1p-95 * found.condition * found.radius;
        ASSERT_TRUE(Within(1, radius, found.radius, slack));
        for (std::size_t k = 0; k < 3; ++k) {
            ASSERT_TRUE(Within(1, centre[k], found.centre[static_cast<int>(k)], slack));
        }
    }
    EXPECT_GT(coplanar, 100);
}

TEST(CircleThrough, KnownCircles)
{
    CircleThrough2 const found = circleThrough(Point2(5, 0), Point2(3, 4), Point2(-4, 3));
    EXPECT_EQ(Point2(0, 0), found.centre);
    EXPECT_EQ(5.0, found.radius);
    EXPECT_FALSE(found.isIllConditioned);
    EXPECT_TRUE(circleThrough(Point2(0, 0), Point2(1, 1e-9), Point2(2, 0)).isIllConditioned);
    EXPECT_EQ(Status::Degenerate, circleThrough(Point2(0, 0), Point2(1, 1), Point2(2, 2)).status);
    EXPECT_EQ(Status::Degenerate, circleThrough(Point2(0, 0), Point2(0, 0), Point2(2, 2)).status);
    EXPECT_EQ(Status::NotFinite,
              circleThrough(Point2(0, support::nan), Point2(0, 0), Point2(2, 2)).status);
    EXPECT_EQ(Status::OutOfRange,
              circleThrough(Point2(0, 0), Point2(1e280, 0), Point2(2, 2)).status);
    EXPECT_EQ(Status::Degenerate, sphereThrough({0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}).status);
    EXPECT_EQ(Point3(0.5, 0.5, 0.5),
              sphereThrough({0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}).centre);
    EXPECT_EQ(Status::NotFinite,
              sphereThrough({0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, support::inf}).status);
}

} // namespace
