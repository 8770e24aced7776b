#include "CrossingsTruth.h"
#include "samples.h"

#include <OrvelMath/geom2d/mathPoly.h>

#include <support/Bits.h>

namespace {

using namespace orvelExact;
using conicsTruth::meetingsOf;
using conicsTruth::worstError;
using samples::AnyEllipse;
using samples::cases;

void expectTruth(Ellipse const &e1, Ellipse const &e2, double bound = 1e-12)
{
    ConicCrossings const found = ellipseCrossings(e1, e2, 0.0);
    ASSERT_EQ(Status::Ok, found.status);
    int const wanted = meetingsOf(e1, e2);
    ASSERT_EQ(wanted < 0, found.coincide);
    ASSERT_EQ(std::max(wanted, 0), found.count);
    ASSERT_LT(worstError(e1, e2, found), bound);
}

TEST(EllipseCrossings, RandomPairsAreAllRight)
{
    AnyEllipse any(1);
    // not 10^5, which takes about 12 s
    for (int i = 0; i < cases(30000) && !HasFatalFailure(); ++i) {
        Ellipse const e1 = any(1.5, 0.3, 3);
        SCOPED_TRACE(i);
        expectTruth(e1, any(1.5, 0.3, 3));
    }
}

/// mathPoly::FindIntersections is right for 960 of these pairs; see LargePairsLoseCrossings.
TEST(EllipseCrossings, TwoThousandLargePairsAreAllRight)
{
    AnyEllipse any(2);
    for (int i = 0; i < 2000 && !HasFatalFailure(); ++i) {
        Ellipse const e1 = any(150, 30, 300);
        SCOPED_TRACE(i);
        expectTruth(e1, any(150, 30, 300));
    }
}

TEST(EllipseCrossings, LatticePairsTouchAndOsculateExactly)
{
    AnyEllipse any(3);
    int touches = 0;
    // not 10^5, which takes about 7 s
    for (int i = 0; i < cases(30000) && !HasFatalFailure(); ++i) {
        Ellipse const e1 = any.onLattice(3);
        Ellipse const e2 = any.onLattice(3);
        SCOPED_TRACE(i);
        expectTruth(e1, e2);
        ConicCrossings const found = ellipseCrossings(e1, e2, 0.0);
        for (int k = 0; k < found.count; ++k) {
            touches += found.crossings[k].isTouch ? 1 : 0;
        }
    }
    EXPECT_GT(touches, 1000);
}

/// A circle beside an ellipse, its contact off by a gap; the doubles round it by 1e-16 or so.
struct NearContact
{
    Ellipse ellipse;
    Ellipse circle;
};

NearContact anyNearContact(AnyEllipse &any)
{
    Ellipse const e = any(1.5, 0.3, 3);
    double const angle = any.number(0, 6.28);
    double const c = std::cos(angle), s = std::sin(angle);
    Point2 const tangent = c * e.v - s * e.u;
    Point2 const outward = Point2(tangent.y(), -tangent.x()) / tangent.length();
    double const gap = any.power(-19, -3) * (any.whole(0, 1) == 0 ? 1 : -1);
    double const radius = any.number(0.05, 2) * (any.whole(0, 1) == 0 ? 1 : -1); // outside, inside
    return {e, circle(pointAt(e, {c, s}) + (radius + gap) * outward, std::fabs(radius))};
}

/// Crossings are right down to pairs that the last bits of the input bring about.
TEST(EllipseCrossings, NearContactsAreParted)
{
    AnyEllipse any(4);
    int closePairs = 0;
    // not 10^5, which takes about 12 s
    for (int i = 0; i < cases(30000) && !HasFatalFailure(); ++i) {
        NearContact const near = anyNearContact(any);
        SCOPED_TRACE(i);
        expectTruth(near.ellipse, near.circle);
        ConicCrossings const found = ellipseCrossings(near.ellipse, near.circle, 0.0);
        for (int k = 1; k < found.count; ++k) {
            Point2 const apart = found.crossings[k].point - found.crossings[k - 1].point;
            closePairs += apart.length() < 1e-6 ? 1 : 0;
        }
    }
    EXPECT_GT(closePairs, 500);
}

TEST(EllipseCrossings, FlatEllipses)
{
    AnyEllipse any(5);
    // not 10^5, which takes about 14 s
    for (int i = 0; i < cases(10000) && !HasFatalFailure(); ++i) {
        auto const flat = [&any] {
            Ellipse e = any(0.5, 0.3, 3);
            e.v *= any.power(-4, 0);
            return e;
        };
        Ellipse const e1 = flat();
        SCOPED_TRACE(i);
        expectTruth(e1, flat());
    }
}

TEST(EllipseCrossings, SmallOnesOnTheBoundaryOfLargeOnes)
{
    AnyEllipse any(6);
    int crossing = 0;
    // not 10^5, which takes about 13 s
    for (int i = 0; i < cases(10000) && !HasFatalFailure(); ++i) {
        Ellipse const large = any(1.5, 0.3, 3);
        double const size = any.power(-6, -1);
        Ellipse small = any(0.0, 0.3 * size, 3 * size);
        double const angle = any.number(0, 6.28);
        small.centre =
            pointAt(large, {std::cos(angle), std::sin(angle)}) + any.number(-1, 1) * small.u;
        SCOPED_TRACE(i);
        if (i % 2 == 0) {
            expectTruth(large, small);
        } else {
            expectTruth(small, large);
        }
        crossing += ellipseCrossings(large, small, 0.0).count > 0 ? 1 : 0;
    }
    EXPECT_GT(crossing, 5000);
}

TEST(EllipseCrossings, FarFromTheOrigin)
{
    AnyEllipse any(7);
    // not 10^5, which takes about 9 s
    for (int i = 0; i < cases(10000) && !HasFatalFailure(); ++i) {
        Point2 const away(any.power(0, 9), -any.power(0, 9));
        Ellipse e1 = any(1.5, 0.3, 3);
        Ellipse e2 = any(1.5, 0.3, 3);
        e1.centre += away;
        e2.centre += away;
        SCOPED_TRACE(i);
        expectTruth(e1, e2);
    }
}

/// Powers of two change no digit, so that every size gives the points of unit size, scaled.
TEST(EllipseCrossings, HugeAndTinyOnesGiveTheSameDigits)
{
    AnyEllipse any(8);
    auto const times = [](Ellipse const &e, double power) {
        return Ellipse{e.centre * power, e.u * power, e.v * power};
    };
    for (int i = 0; i < 2000; ++i) {
        Ellipse const e1 = any(1.5, 0.3, 3);
        Ellipse const e2 = any(1.5, 0.3, 3);
        ConicCrossings const plain = ellipseCrossings(e1, e2, 0.0);
        for (double const power : {0x1p-600, 0x1p-200, 0x1p200, 0x1p600}) {
            ConicCrossings const found = ellipseCrossings(times(e1, power), times(e2, power), 0.0);
            ASSERT_EQ(plain.count, found.count);
            for (int k = 0; k < plain.count; ++k) {
                ASSERT_EQ(plain.crossings[k].point * power, found.crossings[k].point);
                ASSERT_EQ(plain.crossings[k].onSecond, found.crossings[k].onSecond);
            }
        }
    }
}

TEST(EllipseCrossings, BothDirectionsNameThePoint)
{
    AnyEllipse any(9);
    for (int i = 0; i < 5000; ++i) {
        Ellipse const e1 = any(1.5, 0.3, 3);
        Ellipse const e2 = any(1.5, 0.3, 3);
        ConicCrossings const found = ellipseCrossings(e1, e2, 0.0);
        for (int k = 0; k < found.count; ++k) {
            ConicCrossing const &x = found.crossings[k];
            ASSERT_LT((pointAt(e1, x.onFirst) - x.point).length(), 3e-15);
            ASSERT_LT((pointAt(e2, x.onSecond) - x.point).length(), 3e-15);
            ASSERT_NEAR(1.0, x.onFirst.length(), 1e-15);
            ASSERT_NEAR(1.0, x.onSecond.length(), 1e-15);
            ASSERT_TRUE(x.crosses);
            ASSERT_FALSE(x.isTouch);
        }
    }
}

TEST(EllipseCrossings, CountCounterClockwiseAlongTheFirst)
{
    AnyEllipse any(10);
    for (int i = 0; i < 5000; ++i) {
        Ellipse const e1 = any(1.5, 0.3, 3);
        ConicCrossings const found = ellipseCrossings(e1, any(1.5, 0.3, 3), 0.0);
        auto const angle = [&found](int k) {
            Point2 const &d = found.crossings[k].onFirst;
            double const a = std::atan2(d.y(), d.x());
            return a < 0.0 ? a + 6.283185307179586 : a;
        };
        for (int k = 1; k < found.count; ++k) {
            ASSERT_LT(angle(k - 1), angle(k));
        }
    }
}

struct ContactCase
{
    Ellipse first;
    Ellipse second;
    Point2 point;
    bool crosses;
};

TEST(EllipseCrossings, ContactsStandWhereTheCurvesMeet)
{
    Ellipse const oval{{}, {2.0, 0.0}, {0.0, 1.0}};
    ContactCase const contacts[] = {
        {circle({0, 0}, 1), circle({3, 0}, 2), {1, 0}, false},
        {circle({0, 0}, 2), circle({1, 0}, 1), {2, 0}, false},
        {circle({0, 0}, 5), circle({6, 8}, 5), {3, 4}, false},
        {oval, circle({1.5, 0}, 0.5), {2, 0}, false}, // four-fold, the circle of curvature
        {oval, circle({-1.5, 0}, 0.5), {-2, 0}, false},
        {oval, circle({0, -3}, 4), {0, 1}, false}, // four-fold
        {oval, circle({0, 2.5}, 1.5), {0, 1}, false},
    };
    for (ContactCase const &one : contacts) {
        for (double const tolerance : {0.0, 1e-15, 1e-9}) {
            ConicCrossings const found = ellipseCrossings(one.first, one.second, tolerance);
            ASSERT_EQ(Status::Ok, found.status);
            ASSERT_EQ(1, found.count) << one.point.x() << ' ' << one.point.y() << ' ' << tolerance;
            EXPECT_TRUE(found.crossings[0].isTouch);
            EXPECT_EQ(one.crosses, found.crossings[0].crosses);
            EXPECT_LT((one.point - found.crossings[0].point).length(), 1e-15);
        }
    }
}

/// The circle of curvature at (sqrt(2), sqrt(2)/2) of the ellipse with semi-axes 2 and 1 meets it
/// three-fold there. The rounding of the input leaves one crossing without an extremum beside it.
TEST(EllipseCrossings, CircleOfCurvatureCrosses)
{
    Ellipse const oval{{}, {2.0, 0.0}, {0.0, 1.0}};
    double const root = std::sqrt(0.5);
    Point2 const middle(0.75 * 2 * root * root * root * 1.0, -3.0 * root * root * root);
    Point2 const contact(2 * root, root);
    Ellipse const osculating = circle(middle, (contact - middle).length());
    ConicCrossings const found = ellipseCrossings(oval, osculating, 1e-12);
    ASSERT_EQ(2, found.count);
    EXPECT_TRUE(found.crossings[0].crosses);
    EXPECT_LT((contact - found.crossings[0].point).length(), 1e-4);
    EXPECT_FALSE(found.crossings[1].isTouch);
    EXPECT_TRUE(found.crossings[1].crosses);
}

TEST(EllipseCrossings, ToleranceDecidesWhatTouches)
{
    double const gap = 0x1p-30;
    Ellipse const left = circle({0, 0}, 1);
    Ellipse const apart = circle({3 + gap, 0}, 2);
    EXPECT_EQ(0, ellipseCrossings(left, apart, 0.0).count);
    EXPECT_EQ(0, ellipseCrossings(left, apart, 0.99 * gap).count);
    ASSERT_EQ(1, ellipseCrossings(left, apart, 1.01 * gap).count);
    EXPECT_TRUE(ellipseCrossings(left, apart, 1.01 * gap).crossings[0].isTouch);

    Ellipse const into = circle({3 - gap, 0}, 2);
    EXPECT_EQ(2, ellipseCrossings(left, into, 0.0).count);
    EXPECT_EQ(2, ellipseCrossings(left, into, 0.99 * gap).count);
    ASSERT_EQ(1, ellipseCrossings(left, into, 1.01 * gap).count);
    EXPECT_TRUE(ellipseCrossings(left, into, 1.01 * gap).crossings[0].isTouch);
    EXPECT_FALSE(ellipseCrossings(left, into, 1.01 * gap).crossings[0].crosses);
    EXPECT_NEAR(1.0, ellipseCrossings(left, into, 1.01 * gap).crossings[0].point.x(), gap);
}

TEST(EllipseCrossings, CoincidingCurvesAreSaidToBe)
{
    AnyEllipse any(11);
    for (int i = 0; i < 1000; ++i) {
        Ellipse const e = any(1.5, 0.3, 3);
        Ellipse const turned{e.centre, -e.v, e.u}; // the same curve from another start
        EXPECT_TRUE(ellipseCrossings(e, e, 0.0).coincide);
        EXPECT_TRUE(ellipseCrossings(e, turned, 0.0).coincide);
        EXPECT_EQ(0, ellipseCrossings(e, turned, 0.0).count);
    }
    EXPECT_FALSE(ellipseCrossings(circle({0, 0}, 1), circle({0, 0}, 1 + 1e-9), 1e-10).coincide);
    EXPECT_TRUE(ellipseCrossings(circle({0, 0}, 1), circle({0, 0}, 1 + 1e-9), 1e-8).coincide);
    EXPECT_FALSE(ellipseCrossings(circle({0, 0}, 1), circle({0, 0}, 1 + 0x1p-52), 0.0).coincide);
}

TEST(EllipseCrossings, RefuseWhatIsNoEllipse)
{
    Ellipse const good = circle({0, 0}, 1);
    for (double const bad : {support::nan, support::inf, -support::inf}) {
        EXPECT_EQ(Status::NotFinite, ellipseCrossings(circle({bad, 0}, 1), good, 0.0).status);
        EXPECT_EQ(Status::NotFinite, ellipseCrossings(good, circle({0, bad}, 1), 0.0).status);
        EXPECT_EQ(Status::NotFinite, ellipseCrossings(good, circle({0, 0}, bad), 0.0).status);
        EXPECT_EQ(Status::NotFinite, ellipseCrossings(good, good, bad).status);
        EXPECT_EQ(Status::NotFinite, ellipseAtAngle({0, 0}, bad, 1, 1).status);
        EXPECT_EQ(Status::NotFinite, ellipseAtAngle({bad, 0}, 0, 1, 1).status);
        EXPECT_EQ(Status::NotFinite, ellipseAtAngle({0, 0}, 0, bad, 1).status);
        EXPECT_EQ(Status::NotFinite, ellipseAtAngle({0, 0}, 0, 1, bad).status);
    }
    EXPECT_EQ(Status::Degenerate, ellipseCrossings(circle({0, 0}, 0), good, 0.0).status);
    EXPECT_EQ(Status::Degenerate,
              ellipseCrossings(good, {{}, {1.0, 2.0}, {-2.0, -4.0}}, 0.0).status);
    EXPECT_EQ(Status::Degenerate, ellipseAtAngle({0, 0}, 0, 0, 1).status);
    EXPECT_EQ(Status::Degenerate, ellipseAtAngle({0, 0}, 0, 1, -1).status);
    EXPECT_EQ(Status::OutOfRange, ellipseAtAngle({0, 0}, 2e9, 1, 1).status);
    EXPECT_EQ(Status::OutOfRange, ellipseCrossings(circle({0, 0}, 1e280), good, 0.0).status);
    EXPECT_EQ(Status::OutOfRange, ellipseCrossings(circle({0, 0}, 1e-280), good, 0.0).status);
    EXPECT_EQ(Status::OutOfRange, ellipseCrossings(circle({1, 0}, 1e-25), good, 0.0).status);
    EXPECT_EQ(Status::Ok, ellipseCrossings(circle({2, 0}, 1e-25), good, 0.0).status);
}

TEST(ArcCrossings, KeepWhatLiesOnBothArcs)
{
    EllipseArc const upper = circleArc({0, 0}, 5, {1, 0}, {-1, 0});
    EllipseArc const lower = circleArc({0, 0}, 5, {-1, 0}, {1, 0});
    EllipseArc const other{circle({6, 0}, 5), {1.0, 0.0}, {1.0, 0.0}};
    ConicCrossings const above = arcCrossings(upper, other, 0.0);
    ASSERT_EQ(1, above.count);
    EXPECT_EQ(Point2(3, 4), above.crossings[0].point);
    ConicCrossings const below = arcCrossings(lower, other, 0.0);
    ASSERT_EQ(1, below.count);
    EXPECT_EQ(Point2(3, -4), below.crossings[0].point);
    EXPECT_EQ(1, arcCrossings(other, upper, 0.0).count);
    EXPECT_EQ(0, arcCrossings(upper, circleArc({6, 0}, 5, {-1, 0}, {1, 0}), 0.0).count);
}

TEST(ArcCrossings, EndsCountAndToleranceWidensThem)
{
    EllipseArc const other{circle({6, 0}, 5), {1.0, 0.0}, {1.0, 0.0}};
    EXPECT_EQ(1, arcCrossings(circleArc({0, 0}, 5, {3, 4}, {0, 1}), other, 0.0).count);
    EXPECT_EQ(1, arcCrossings(circleArc({0, 0}, 5, {1, 0}, {3, 4}), other, 0.0).count);
    EXPECT_EQ(0, arcCrossings(circleArc({0, 0}, 5, {3, 4.001}, {0, 1}), other, 0.0).count);
    EXPECT_EQ(1, arcCrossings(circleArc({0, 0}, 5, {3, 4.001}, {0, 1}), other, 0.001).count);
    // more than half a turn: all but a piece about (3, 4)
    EXPECT_EQ(1, arcCrossings(circleArc({0, 0}, 5, {3, 4.1}, {3, 3.9}), other, 0.0).count);
    EXPECT_EQ(2, arcCrossings(circleArc({0, 0}, 5, {-3, 3.9}, {-3, 4.1}), other, 0.0).count);
}

TEST(ArcCrossings, AgreeWithTheAngles)
{
    AnyEllipse any(12);
    int kept = 0;
    for (int i = 0; i < 20000; ++i) {
        EllipseArc const a{any(1.5, 0.3, 3),
                           {any.number(-1, 1), any.number(-1, 1)},
                           {any.number(-1, 1), any.number(-1, 1)}};
        EllipseArc const b{any(1.5, 0.3, 3), {1.0, 0.0}, {1.0, 0.0}};
        auto const angle = [](Point2 const &d) {
            double const t = std::atan2(d.y(), d.x());
            return t < 0.0 ? t + 6.283185307179586 : t;
        };
        ConicCrossings const all = ellipseCrossings(a.ellipse, b.ellipse, 0.0);
        int wanted = 0;
        for (int k = 0; k < all.count; ++k) {
            double const t = angle(all.crossings[k].onFirst);
            double const from = angle(a.from), to = angle(a.to);
            bool const isBetween = from <= to ? t >= from && t <= to : t >= from || t <= to;
            wanted += isBetween ? 1 : 0;
        }
        ConicCrossings const found = arcCrossings(a, b, 0.0);
        ASSERT_EQ(wanted, found.count);
        kept += found.count;
    }
    EXPECT_GT(kept, 5000);
}

TEST(ArcCrossings, RefuseADirectionOfNoLength)
{
    EllipseArc const good = circleArc({0, 0}, 1, {1, 0}, {0, 1});
    EXPECT_EQ(Status::Degenerate,
              arcCrossings(good, circleArc({0, 0}, 1, {0, 0}, {0, 1}), 0.0).status);
    EXPECT_EQ(Status::NotFinite,
              arcCrossings(circleArc({0, 0}, 1, {1, 0}, {support::nan, 1}), good, 0.0).status);
}

} // namespace
