#include "FacesTruth.h"

#include <OrvelExact/measures/distances.h>

#include <support/Bits.h>

namespace {

using namespace orvelExact;
using measures::cases;
using measures::distanceTruth;
using measures::Random;
using measures::Within;

/// Points in general position, on a small lattice, nearly on one line, and of all sizes.
class AnyPoints
{
public:
    explicit AnyPoints(unsigned seed)
        : m_any(seed)
    {
    }
    void next()
    {
        m_kind = m_any.whole(0, 4);
        m_line[0] = m_any.point3();
        m_line[1] = m_any.point3();
        m_size = m_any.power(-60, 60);
    }
    Point3 operator()()
    {
        switch (m_kind) {
        case 0:
            return m_any.point3();
        case 1:
            return m_any.lattice3(2);
        case 2:
            return m_line[0] + m_any.number(-1, 1) * m_line[1] +
                   m_any.power(-18, -3) * m_any.point3();
        case 3:
            return m_any.point3() * m_size;
        default:
            return m_any.lattice3(1) + m_any.power(-18, -6) * m_any.point3();
        }
    }

private:
    Random m_any;
    int m_kind = 0;
    Point3 m_line[2];
    double m_size = 1.0;
};

double sizeOf(std::vector<Point3> const &points)
{
    double size = 0.0;
    for (Point3 const &p : points) {
        Point3 const way = p - points[0];
        size = std::max({size, std::fabs(way.x()), std::fabs(way.y()), std::fabs(way.z())});
    }
    return size;
}

/// The distance is the truth, and the points are at that distance up to their rounding.
void expectTruth(std::vector<Point3> const &a, std::vector<Point3> const &b,
                 NearestPair3 const &found)
{
    ASSERT_EQ(Status::Ok, found.status);
    std::vector<Point3> all = a;
    all.insert(all.end(), b.begin(), b.end());
    double const slack = 0x1p-90 * sizeOf(all);
    ASSERT_TRUE(Within(1, distanceTruth(a, b), found.distance, slack));
    double largest = 0.0;
    for (Point3 const &p : all) {
        largest = std::max({largest, std::fabs(p.x()), std::fabs(p.y()), std::fabs(p.z())});
    }
    ASSERT_NEAR(found.distance, (found.onFirst - found.onSecond).length(), 1e-15 * largest);
    ASSERT_TRUE(Within(0, distanceTruth({found.onFirst}, a), 0.0, 4e-16 * largest));
    ASSERT_TRUE(Within(0, distanceTruth({found.onSecond}, b), 0.0, 4e-16 * largest));
}

TEST(NearestOnSegment, AnyPoints)
{
    AnyPoints any(1);
    for (int i = 0; i < cases(100000) && !HasFatalFailure(); ++i) {
        any.next();
        Point3 const p = any(), a = any(), b = any();
        Nearest3 const found = nearestOnSegment(p, a, b);
        SCOPED_TRACE(i);
        expectTruth({p}, {a, b}, {found.status, found.distance, p, found.point});
    }
}

TEST(NearestOfSegments, AnyPoints)
{
    AnyPoints any(2);
    // not 10^5, which takes about 9 s
    for (int i = 0; i < cases(30000) && !HasFatalFailure(); ++i) {
        any.next();
        Point3 const a0 = any(), a1 = any(), b0 = any(), b1 = any();
        SCOPED_TRACE(i);
        expectTruth({a0, a1}, {b0, b1}, nearestOfSegments(a0, a1, b0, b1));
    }
}

TEST(NearestOnTriangle, AnyPoints)
{
    AnyPoints any(3);
    // not 10^5, which takes about 8 s
    for (int i = 0; i < cases(5000) && !HasFatalFailure(); ++i) {
        any.next();
        Point3 const p = any(), a = any(), b = any(), c = any();
        Nearest3 const found = nearestOnTriangle(p, a, b, c);
        SCOPED_TRACE(i);
        expectTruth({p}, {a, b, c}, {found.status, found.distance, p, found.point});
    }
}

TEST(NearestOfTriangles, AnyPoints)
{
    AnyPoints any(4);
    int meeting = 0;
    // not 10^5, which takes about 40 s
    for (int i = 0; i < cases(1500) && !HasFatalFailure(); ++i) {
        any.next();
        Point3 const a[3] = {any(), any(), any()};
        Point3 const b[3] = {any(), any(), any()};
        NearestPair3 const found = nearestOfTriangles(a, b);
        meeting += found.distance == 0.0 ? 1 : 0;
        SCOPED_TRACE(i);
        expectTruth({a[0], a[1], a[2]}, {b[0], b[1], b[2]}, found);
    }
    EXPECT_GT(meeting, 50);
}

TEST(NearestInThePlane, AgreesWithSpace)
{
    Random any(5);
    for (int i = 0; i < 5000; ++i) {
        auto const lift = [](Point2 const &p) { return Point3(p.x(), p.y(), 0.0); };
        bool const isLattice = i % 2 == 0;
        auto const point = [&] { return isLattice ? any.lattice2(3) : any.point2(); };
        Point2 const a[3] = {point(), point(), point()};
        Point2 const b[3] = {point(), point(), point()};
        Point3 const c[3] = {lift(a[0]), lift(a[1]), lift(a[2])};
        Point3 const d[3] = {lift(b[0]), lift(b[1]), lift(b[2])};
        ASSERT_EQ(nearestOnSegment(c[0], d[0], d[1]).distance,
                  nearestOnSegment(a[0], b[0], b[1]).distance);
        ASSERT_EQ(nearestOfSegments(c[0], c[1], d[0], d[1]).distance,
                  nearestOfSegments(a[0], a[1], b[0], b[1]).distance);
        ASSERT_EQ(nearestOnTriangle(c[0], d[0], d[1], d[2]).distance,
                  nearestOnTriangle(a[0], b[0], b[1], b[2]).distance);
        ASSERT_EQ(nearestOfTriangles(c, d).distance, nearestOfTriangles(a, b).distance);
    }
}

TEST(NearestOnSegment, KnownDistances)
{
    EXPECT_EQ(5.0, nearestOnSegment(Point2(-3, 4), Point2(0, 0), Point2(9, 0)).distance);
    EXPECT_EQ(4.0, nearestOnSegment(Point2(3, 4), Point2(0, 0), Point2(9, 0)).distance);
    EXPECT_EQ(Point2(3, 0), nearestOnSegment(Point2(3, 4), Point2(0, 0), Point2(9, 0)).point);
    EXPECT_EQ(0.0, nearestOnSegment(Point2(3, 0), Point2(0, 0), Point2(9, 0)).distance);
    EXPECT_EQ(5.0, nearestOnSegment(Point2(3, 4), Point2(0, 0), Point2(0, 0)).distance);
    EXPECT_EQ(5e-320,
              nearestOnSegment(Point2(3e-320, 4e-320), Point2(0, 0), Point2(0, 0)).distance);
}

TEST(NearestOfSegments, KnownDistances)
{
    NearestPair2 const cross =
        nearestOfSegments(Point2(0, 0), Point2(4, 4), Point2(0, 4), Point2(4, 0));
    EXPECT_EQ(0.0, cross.distance);
    EXPECT_EQ(Point2(2, 2), cross.onFirst);
    EXPECT_EQ(Point2(2, 2), cross.onSecond);
    EXPECT_EQ(
        1.0, nearestOfSegments(Point3(-1, 0, 0), Point3(1, 0, 0), Point3(0, -1, 1), Point3(0, 1, 1))
                 .distance);
    EXPECT_EQ(2.0,
              nearestOfSegments(Point2(0, 0), Point2(4, 0), Point2(1, 2), Point2(9, 2)).distance);
}

TEST(Nearest, RefusesWhatIsNotFinite)
{
    for (double const bad : {support::nan, support::inf}) {
        Point3 const p(0, 0, 0), q(1, 0, 0), r(0, 1, 0), x(0, bad, 0);
        EXPECT_EQ(Status::NotFinite, nearestOnSegment(x, p, q).status);
        EXPECT_EQ(Status::NotFinite, nearestOnSegment(p, q, x).status);
        EXPECT_EQ(Status::NotFinite, nearestOfSegments(p, q, r, x).status);
        EXPECT_EQ(Status::NotFinite, nearestOnTriangle(p, q, r, x).status);
        EXPECT_EQ(Status::NotFinite, nearestOfTriangles({p, q, r}, {p, x, q}).status);
        EXPECT_EQ(Status::NotFinite, nearestOnSegment(Point2(bad, 0), {}, {}).status);
    }
    EXPECT_EQ(Status::OutOfRange, nearestOnSegment(Point2(1e280, 0), {}, {}).status);
}

} // namespace
