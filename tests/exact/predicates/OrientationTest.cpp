#include "NearDegenerate.h"

#include "exact/support/WholePoints.h"
#include "exact/support/caseCount.h"
#include "support/Bits.h"

#include <OrvelExact/predicates/orientation.h>

#include <gtest/gtest.h>

using namespace orvelExact;

namespace {

using Wide = boost::multiprecision::number<boost::multiprecision::cpp_int_backend<
    1024, 1024, boost::multiprecision::signed_magnitude, boost::multiprecision::unchecked, void>>;
using Any = boost::multiprecision::cpp_int;

template <typename Integer>
int expectedTurn(Point2 const &a, Point2 const &b, Point2 const &c)
{
    Point2 const points[] = {a, b, c};
    return support::WholeRows<Integer, Point2, 3>(points).minor2(0, 1).sign();
}

template <typename Integer>
int expectedSide(Point3 const &a, Point3 const &b, Point3 const &c, Point3 const &d)
{
    Point3 const points[] = {a, b, c, d};
    return -support::WholeRows<Integer, Point3, 4>(points).minor3(0, 1, 2).sign();
}

/// How often each sign came up.
struct Counts
{
    int of[3] = {0, 0, 0};
    void add(int sign) { ++of[sign + 1]; }
    bool areAllAbove(int least) const { return of[0] > least && of[1] > least && of[2] > least; }
};

} // namespace

TEST(Orientation2d, HasTheSignOfWholeNumbersNearALine)
{
    NearDegenerate cases(1);
    Counts counts;
    for (int i = 0; i < support::caseCount(); ++i) {
        cases.next();
        double const scale = cases.scale();
        Point2 const a(cases.component(), cases.component());
        Point2 const b(cases.component(), cases.component());
        double const t = cases.fraction();
        Point2 const c(cases.nudged(a.x() + t * (b.x() - a.x())),
                       cases.nudged(a.y() + t * (b.y() - a.y())));
        int const expected = expectedTurn<Wide>(a, b, c);
        counts.add(expected);
        ASSERT_EQ(expected, static_cast<int>(orientation2d(scale * a, scale * b, scale * c)))
            << "case " << i;
    }
    EXPECT_TRUE(counts.areAllAbove(support::caseCount() / 20));
}

TEST(Orientation3d, HasTheSignOfWholeNumbersNearAPlane)
{
    NearDegenerate cases(2);
    Counts counts;
    for (int i = 0; i < support::caseCount(); ++i) {
        cases.next();
        double const scale = cases.scale();
        Point3 const a(cases.component(), cases.component(), cases.component());
        Point3 const b(cases.component(), cases.component(), cases.component());
        Point3 const c(cases.component(), cases.component(), cases.component());
        Point3 d = a + cases.fraction() * (b - a) + cases.fraction() * (c - a);
        if (cases.below(2) == 0) {
            d = {cases.nudged(d.x()), cases.nudged(d.y()), cases.nudged(d.z())};
        }
        int const expected = expectedSide<Wide>(a, b, c, d);
        counts.add(expected);
        ASSERT_EQ(expected,
                  static_cast<int>(orientation3d(scale * a, scale * b, scale * c, scale * d)))
            << "case " << i;
    }
    EXPECT_TRUE(counts.areAllAbove(support::caseCount() / 20));
}

TEST(Orientation, ServesEveryFiniteDouble)
{
    NearDegenerate cases(3);
    Counts turns;
    Counts sides;
    auto const any = [&cases] {
        return std::ldexp(double(cases.below(2001) - 1000), cases.below(2085) - 1074);
    };
    for (int i = 0; i < 20000; ++i) {
        Point2 const a(any(), any()), b(any(), any());
        Point2 const c = cases.below(2) == 0 ? Point2(any(), any()) : 0.5 * a;
        Point2 const origin = cases.below(2) == 0 ? Point2() : b;
        int const turn = expectedTurn<Any>(a, origin, c);
        turns.add(turn);
        ASSERT_EQ(turn, static_cast<int>(orientation2d(a, origin, c))) << "case " << i;
        Point3 const p(any(), any(), any()), q(any(), any(), any());
        Point3 const r = cases.below(2) == 0 ? Point3(any(), any(), any()) : 2.0 * (0.25 * q);
        Point3 const s = cases.below(2) == 0 ? Point3() : p;
        int const side = expectedSide<Any>(p, q, r, s);
        sides.add(side);
        ASSERT_EQ(side, static_cast<int>(orientation3d(p, q, r, s))) << "case " << i;
    }
    EXPECT_TRUE(turns.areAllAbove(1000));
    EXPECT_TRUE(sides.areAllAbove(1000));
}

TEST(Orientation, TellsTheSmallestAndTheLargestDoublesApart)
{
    double const least = 5e-324;
    double const most = 1.7976931348623157e308;
    EXPECT_EQ(Sign::Positive, orientation2d({0, 0}, {least, 0}, {0, least}));
    EXPECT_EQ(Sign::Zero, orientation2d({0, 0}, {least, least}, {2 * least, 2 * least}));
    EXPECT_EQ(Sign::Negative, orientation2d({-most, -most}, {most, most}, {most, -most}));
    EXPECT_EQ(Sign::Negative, orientation2d({-most, least}, {most, least}, {0, 0}));
    EXPECT_EQ(Sign::Positive, orientation3d({0, 0, 0}, {most, 0, 0}, {0, least, 0}, {0, 0, least}));
    EXPECT_EQ(Sign::Zero, orientation3d({-most, 0, 1}, {most, 0, 1}, {0, most, 1}, {0, -most, 1}));
}

TEST(Orientation, IsPositiveToTheLeftAndWhereTheNormalPoints)
{
    EXPECT_EQ(Sign::Positive, orientation2d({0, 0}, {1, 0}, {0, 1}));
    EXPECT_EQ(Sign::Negative, orientation2d({0, 0}, {0, 1}, {1, 0}));
    EXPECT_EQ(Sign::Zero, orientation2d({3, 4}, {3, 4}, {1, 0}));
    EXPECT_EQ(Sign::Positive, orientation3d({0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}));
    EXPECT_EQ(Sign::Negative, orientation3d({0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, -1}));
    EXPECT_EQ(Sign::Zero, orientation3d({0, 0, 0}, {1, 1, 1}, {2, 2, 2}, {0, 5, -1}));
}

TEST(Orientation, RefusesNanAndInfinityInEveryComponent)
{
    for (double const bad : {support::nan, support::inf, -support::inf}) {
        for (int i = 0; i < 6; ++i) {
            Point2 points[] = {{0, 0}, {1, 0}, {0, 1}};
            points[i / 2][i % 2] = bad;
            EXPECT_EQ(Sign::NotFinite, orientation2d(points[0], points[1], points[2]));
        }
        for (int i = 0; i < 12; ++i) {
            Point3 points[] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
            points[i / 3][i % 3] = bad;
            EXPECT_EQ(Sign::NotFinite, orientation3d(points[0], points[1], points[2], points[3]));
        }
    }
}
