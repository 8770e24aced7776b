#include "NearDegenerate.h"

#include "exact/support/WholePoints.h"
#include "exact/support/caseCount.h"
#include "support/Bits.h"

#include <OrvelExact/predicates/inSphere.h>
#include <OrvelExact/predicates/orientation.h>

#include <gtest/gtest.h>

using namespace orvelExact;

namespace {

using Wide = boost::multiprecision::number<boost::multiprecision::cpp_int_backend<
    2048, 2048, boost::multiprecision::signed_magnitude, boost::multiprecision::unchecked, void>>;
using Any = boost::multiprecision::cpp_int;

template <typename Integer>
int expectedInCircle(Point2 const (&points)[4])
{
    support::WholeRows<Integer, Point2, 4> const rows(points);
    Integer const determinant = rows.lift[0] * rows.minor2(1, 2) -
                                rows.lift[1] * rows.minor2(0, 2) + rows.lift[2] * rows.minor2(0, 1);
    return determinant.sign();
}

template <typename Integer>
int expectedInSphere(Point3 const (&points)[5])
{
    support::WholeRows<Integer, Point3, 5> const rows(points);
    Integer const determinant =
        rows.lift[0] * rows.minor3(1, 2, 3) - rows.lift[1] * rows.minor3(0, 2, 3) +
        rows.lift[2] * rows.minor3(0, 1, 3) - rows.lift[3] * rows.minor3(0, 1, 2);
    return determinant.sign();
}

/// A point of a circle or a sphere around the origin: exact for the whole numbers, where the signs
/// and the order of three fixed components change; else rounded.
Point3 onSphere(NearDegenerate &cases, bool isWhole, double radius, bool isFlat)
{
    if (isWhole) {
        double c[3] = {isFlat ? 7.0 : 2.0, isFlat ? 24.0 : 3.0, isFlat ? 0.0 : 6.0};
        std::swap(c[0], c[cases.below(isFlat ? 2 : 3)]);
        if (!isFlat) {
            std::swap(c[1], c[1 + cases.below(2)]);
        }
        auto const signedOf = [&cases](double v) { return cases.below(2) == 0 ? v : -v; };
        return {signedOf(c[0]), signedOf(c[1]), signedOf(c[2])};
    }
    double const u = 6.283185307179586 * cases.below(100000) / 100000.0;
    double const v = isFlat ? 0.0 : 3.0 * (cases.below(100000) / 100000.0 - 0.5);
    return {radius * std::cos(v) * std::cos(u), radius * std::cos(v) * std::sin(u),
            radius * std::sin(v)};
}

struct Counts
{
    int of[3] = {0, 0, 0};
    void add(int sign) { ++of[sign + 1]; }
    bool areAllAbove(int least) const { return of[0] > least && of[1] > least && of[2] > least; }
};

} // namespace

TEST(InCircle, HasTheSignOfWholeNumbersNearACircle)
{
    NearDegenerate cases(4);
    Counts counts;
    for (int i = 0; i < support::caseCount(); ++i) {
        bool const isWhole = cases.below(2) == 0;
        double const scale = cases.scale();
        Point2 const center(cases.below(1001) - 500, cases.below(1001) - 500);
        Point2 points[4];
        for (Point2 &p : points) {
            Point3 const q = onSphere(cases, isWhole, 25.0, true);
            p = center + Point2(q.x(), q.y());
        }
        points[3] = {cases.nudged(points[3].x()), cases.nudged(points[3].y())};
        int const expected = expectedInCircle<Wide>(points);
        counts.add(expected);
        ASSERT_EQ(expected, static_cast<int>(inCircle(scale * points[0], scale * points[1],
                                                      scale * points[2], scale * points[3])))
            << "case " << i;
    }
    EXPECT_TRUE(counts.areAllAbove(support::caseCount() / 20));
}

TEST(InSphere, HasTheSignOfWholeNumbersNearASphere)
{
    NearDegenerate cases(5);
    Counts counts;
    for (int i = 0; i < support::caseCount(); ++i) {
        bool const isWhole = cases.below(2) == 0;
        double const scale = cases.scale();
        Point3 const center(cases.below(1001) - 500, cases.below(1001) - 500, cases.below(9));
        Point3 points[5];
        for (Point3 &p : points) {
            p = center + onSphere(cases, isWhole, 7.0, false);
        }
        points[4] = {cases.nudged(points[4].x()), cases.nudged(points[4].y()), points[4].z()};
        int const expected = expectedInSphere<Wide>(points);
        counts.add(expected);
        ASSERT_EQ(expected,
                  static_cast<int>(inSphere(scale * points[0], scale * points[1], scale * points[2],
                                            scale * points[3], scale * points[4])))
            << "case " << i;
    }
    EXPECT_TRUE(counts.areAllAbove(support::caseCount() / 20));
}

TEST(InSphere, ServesEveryFiniteDouble)
{
    NearDegenerate cases(6);
    Counts circles;
    Counts spheres;
    auto const any = [&cases] {
        return std::ldexp(double(cases.below(2001) - 1000), cases.below(2085) - 1074);
    };
    for (int i = 0; i < 5000; ++i) {
        Point2 circle[4];
        for (Point2 &p : circle) {
            p = {any(), any()};
        }
        Point3 sphere[5];
        for (Point3 &p : sphere) {
            p = {any(), any(), any()};
        }
        if (cases.below(3) == 0) { // the corners of a rectangle, and of a box
            circle[2] = {circle[0].x(), circle[1].y()};
            circle[3] = {circle[1].x(), circle[0].y()};
            for (int k = 0; k < 3; ++k) {
                sphere[2 + k] = sphere[0];
                sphere[2 + k][k] = sphere[1][k];
            }
        }
        int const expected = expectedInCircle<Any>(circle);
        circles.add(expected);
        ASSERT_EQ(expected, static_cast<int>(inCircle(circle[0], circle[1], circle[2], circle[3])));
        int const inside = expectedInSphere<Any>(sphere);
        spheres.add(inside);
        ASSERT_EQ(inside, static_cast<int>(
                              inSphere(sphere[0], sphere[1], sphere[2], sphere[3], sphere[4])));
    }
    EXPECT_TRUE(circles.areAllAbove(500));
    EXPECT_TRUE(spheres.areAllAbove(500));
}

TEST(InSphere, IsPositiveInsideForPositiveOrientation)
{
    EXPECT_EQ(Sign::Positive, inCircle({0, 0}, {1, 0}, {0, 1}, {0.5, 0.5}));
    EXPECT_EQ(Sign::Negative, inCircle({0, 0}, {0, 1}, {1, 0}, {0.5, 0.5}));
    EXPECT_EQ(Sign::Zero, inCircle({0, 0}, {1, 0}, {0, 1}, {1, 1}));
    EXPECT_EQ(Sign::Negative, inCircle({0, 0}, {1, 0}, {0, 1}, {2, 0}));
    Point3 const o, x(1, 0, 0), y(0, 1, 0), z(0, 0, 1);
    ASSERT_EQ(Sign::Positive, orientation3d(o, x, y, z));
    EXPECT_EQ(Sign::Positive, inSphere(o, x, y, z, {0.5, 0.5, 0.5}));
    EXPECT_EQ(Sign::Negative, inSphere(o, x, y, z, {1, 1, 1.5}));
    EXPECT_EQ(Sign::Zero, inSphere(o, x, y, z, {1, 1, 1}));
    EXPECT_EQ(Sign::Negative, inSphere(x, o, y, z, {0.5, 0.5, 0.5}));
    EXPECT_EQ(Sign::Zero, inSphere(o, x, y, z, y));
}

TEST(InCircle, TakesALineForACircle)
{
    Sign const above = inCircle({0, 0}, {1, 0}, {2, 0}, {0, 1});
    Sign const below = inCircle({0, 0}, {1, 0}, {2, 0}, {0, -1});
    EXPECT_EQ(above, opposite(below));
    EXPECT_EQ(below, inCircle({1, 0}, {0, 0}, {2, 0}, {0, 1}));
    EXPECT_EQ(Sign::Zero, inCircle({0, 0}, {1, 0}, {2, 0}, {7, 0}));
}

TEST(InSphere, RefusesNanAndInfinityInEveryComponent)
{
    for (double const bad : {support::nan, support::inf, -support::inf}) {
        for (int i = 0; i < 8; ++i) {
            Point2 p[] = {{0, 0}, {1, 0}, {0, 1}, {5, 3}};
            p[i / 2][i % 2] = bad;
            EXPECT_EQ(Sign::NotFinite, inCircle(p[0], p[1], p[2], p[3]));
        }
        for (int i = 0; i < 15; ++i) {
            Point3 p[] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {3, 4, 5}};
            p[i / 3][i % 3] = bad;
            EXPECT_EQ(Sign::NotFinite, inSphere(p[0], p[1], p[2], p[3], p[4]));
        }
    }
}
