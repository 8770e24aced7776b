#include <OrvelExact/base/points.h>
#include <OrvelExact/predicates/FixedInteger_p.h>
#include <OrvelExact/predicates/inSphere.h>

#include "exact/support/WholePoints.h"

#include <gtest/gtest.h>

#include <random>

using namespace orvelExact;

namespace {

using Any = boost::multiprecision::cpp_int;

template <int n>
Any valueOf(FixedInteger<n> const &number)
{
    Any value = number.isNegative() ? -1 : 0;
    for (int i = n - 1; i >= 0; --i) {
        value = value * (Any(1) << 64) + number.digit[i];
    }
    return value;
}

/// Digits of random bits, or of all bits equal, which carry and borrow furthest.
template <int n>
FixedInteger<n> randomInteger(std::mt19937_64 &generator)
{
    FixedInteger<n> result;
    for (std::uint64_t &digit : result.digit) {
        std::uint64_t const kind = generator() % 4;
        digit = kind == 0 ? 0 : kind == 1 ? ~std::uint64_t(0) : generator();
    }
    return result;
}

/// A quarter of the number, so that a sum of two has room.
template <int n>
FixedInteger<n> withRoom(FixedInteger<n> number)
{
    auto &top = number.digit[n - 1];
    top = static_cast<std::uint64_t>(static_cast<std::int64_t>(top) / 4);
    return number;
}

template <int m, int n>
void compareProducts(std::mt19937_64 &generator)
{
    for (int i = 0; i < 20000; ++i) {
        auto const a = randomInteger<m>(generator);
        auto const b = randomInteger<n>(generator);
        ASSERT_EQ(valueOf(a) * valueOf(b), valueOf(a * b)) << "case " << i;
    }
}

} // namespace

TEST(FixedInteger, MultipliesAsWholeNumbersDo)
{
    std::mt19937_64 generator(1);
    compareProducts<1, 1>(generator);
    compareProducts<2, 1>(generator);
    compareProducts<2, 2>(generator);
    compareProducts<3, 2>(generator);
}

TEST(FixedInteger, AddsSubtractsAndHasASign)
{
    std::mt19937_64 generator(2);
    for (int i = 0; i < 20000; ++i) {
        auto const a = withRoom(randomInteger<5>(generator));
        auto const b = i % 8 == 0 ? a : withRoom(randomInteger<5>(generator));
        ASSERT_EQ(valueOf(a) + valueOf(b), valueOf(a + b)) << "case " << i;
        ASSERT_EQ(valueOf(a) - valueOf(b), valueOf(a - b)) << "case " << i;
        ASSERT_EQ(valueOf(a).sign(), a.sign()) << "case " << i;
        ASSERT_EQ((valueOf(a) - valueOf(b)).sign(), (a - b).sign()) << "case " << i;
    }
}

TEST(GridRows, HoldTheDifferencesOrNone)
{
    // 2^60 units to the largest: the lowest bit of the other may be 2^-60, not 2^-61.
    for (double const scale : {1.0, 0x1p-800, 0x1p900}) {
        GridRows<Point2, 2, 2> const fine({{scale, -scale * 0x1p-60}, {0.0, scale * 0x1p-59}});
        ASSERT_TRUE(fine.isValid());
        EXPECT_EQ(Any(1) << 60, valueOf(fine.difference(0, 0)));
        EXPECT_EQ(-3, valueOf(fine.difference(0, 1)));
        GridRows<Point2, 2, 2> const finer({{scale, -scale * 0x1p-61}, {0.0, 0.0}});
        EXPECT_FALSE(finer.isValid());
        GridRows<Point2, 2, 2> const far({{scale, 5e-324}, {0.0, 0.0}});
        EXPECT_FALSE(far.isValid());
    }
    double const most = 1.9999999999999998; // the largest number below 2^61 units
    GridRows<Point2, 2, 2> const widest({{most, 0.0}, {-most, 1.0}});
    ASSERT_TRUE(widest.isValid());
    EXPECT_EQ((Any(1) << 62) - 512, valueOf(widest.difference(0, 0)));
    GridRows<Point2, 2, 2> const zero({{0.0, 0.0}, {-0.0, 0.0}});
    EXPECT_FALSE(zero.isValid());
    GridRows<Point2, 2, 2> const large({{1e300, 0.0}, {0.0, 0.0}});
    EXPECT_FALSE(large.isValid());
}

TEST(InSphere, HasTheSignOfWholeNumbersOnALatticeOfTenths)
{
    std::mt19937_64 generator(3);
    int zeros = 0;
    for (int i = 0; i < 50000; ++i) {
        auto const tenth = [&generator] { return 0.1 * double(generator() % 11); };
        Point2 circle[4];
        for (Point2 &p : circle) {
            p = {tenth(), tenth()};
        }
        Point3 sphere[5];
        for (Point3 &p : sphere) {
            p = {tenth(), tenth(), tenth()};
        }
        if (i % 2 == 0) { // the corners of a rectangle, and of a box
            circle[2] = {circle[0].x(), circle[1].y()};
            circle[3] = {circle[1].x(), circle[0].y()};
            for (int k = 0; k < 3; ++k) {
                sphere[2 + k] = sphere[0];
                sphere[2 + k][k] = sphere[1][k];
            }
        }
        support::WholeRows<Any, Point2, 4> const c(circle);
        Any const inside =
            c.lift[0] * c.minor2(1, 2) - c.lift[1] * c.minor2(0, 2) + c.lift[2] * c.minor2(0, 1);
        ASSERT_EQ(inside.sign(),
                  static_cast<int>(inCircle(circle[0], circle[1], circle[2], circle[3])));
        support::WholeRows<Any, Point3, 5> const s(sphere);
        Any const within = s.lift[0] * s.minor3(1, 2, 3) - s.lift[1] * s.minor3(0, 2, 3) +
                           s.lift[2] * s.minor3(0, 1, 3) - s.lift[3] * s.minor3(0, 1, 2);
        ASSERT_EQ(within.sign(), static_cast<int>(inSphere(sphere[0], sphere[1], sphere[2],
                                                           sphere[3], sphere[4])));
        zeros += inside == 0 && within == 0;
    }
    EXPECT_GT(zeros, 20000);
}
