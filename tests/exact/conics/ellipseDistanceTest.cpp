#include "CrossingsTruth.h"
#include "samples.h"

#include <OrvelExact/conics/ellipseDistance.h>

#include <support/Bits.h>

namespace {

using namespace orvelExact;
using conicsTruth::meetingsOf;
using samples::AnyEllipse;
using samples::cases;

/// The circle through the nearest point cannot meet the ellipse when it shrinks a little, by
/// Sturm's count, which errs in no digit; and the point given is on the ellipse at the distance
/// given.
void expectTruth(Ellipse const &e, Point2 const &p, double slack)
{
    NearestOnEllipse const found = nearestOnEllipse(e, p);
    ASSERT_EQ(Status::Ok, found.status);
    if (found.distance > slack) {
        ASSERT_EQ(0, meetingsOf(circle(p, found.distance - slack), e));
    }
    ASSERT_NEAR(found.distance, (found.point - p).length(), 4 * slack);
    ASSERT_NEAR(0.0, (found.point - pointAt(e, found.direction)).length(), 4 * slack);
}

TEST(NearestOnEllipse, RandomPoints)
{
    AnyEllipse any(31);
    for (int i = 0; i < cases(100000) && !HasFatalFailure(); ++i) {
        Ellipse const e = any(1.5, 0.3, 3);
        SCOPED_TRACE(i);
        expectTruth(e, {any.number(-4, 4), any.number(-4, 4)}, 2e-15);
    }
}

TEST(NearestOnEllipse, LatticePointsAndCentres)
{
    AnyEllipse any(32);
    for (int i = 0; i < cases(100000) && !HasFatalFailure(); ++i) {
        Ellipse const e = any.onLattice(3);
        SCOPED_TRACE(i);
        expectTruth(e, i % 4 == 0 ? e.centre : Point2(any.whole(-4, 4), any.whole(-4, 4)), 4e-15);
    }
}

TEST(NearestOnEllipse, PointsOnTheCurveAndOnItsEvolute)
{
    AnyEllipse any(33);
    // not 10^5, which takes about 9 s
    for (int i = 0; i < cases(20000) && !HasFatalFailure(); ++i) {
        double const a = any.number(0.3, 3), b = any.number(0.3, 3);
        Ellipse const e = ellipseAtAngle({any.number(-1, 1), 0.5}, any.number(0, 6), a, b).ellipse;
        double const t = any.number(0, 6.28), c = std::cos(t), s = std::sin(t);
        SCOPED_TRACE(i);
        expectTruth(e, pointAt(e, {c, s}) + any.power(-18, -3) * e.u, 4e-15);
        double const k = a * a - b * b; // the centre of curvature
        expectTruth(e, pointAt(e, {k / (a * a) * c * c * c, -k / (b * b) * s * s * s}), 2e-14);
    }
}

TEST(NearestOnEllipse, KnownPoints)
{
    Ellipse const e{{1, 2}, {3.0, 0.0}, {0.0, 2.0}};
    EXPECT_EQ(2.0, nearestOnEllipse(e, {1, 2}).distance); // from the centre: the end of an axis
    EXPECT_EQ(Point2(1, 4), nearestOnEllipse(e, {1, 2}).point);
    EXPECT_EQ(7.0, nearestOnEllipse(e, {11, 2}).distance);
    EXPECT_EQ(Point2(4, 2), nearestOnEllipse(e, {11, 2}).point);
    EXPECT_EQ(0.0, nearestOnEllipse(e, {4, 2}).distance);
    EXPECT_EQ(5.0, nearestOnEllipse(circle({0, 0}, 5), {0, 0}).distance);
    EXPECT_EQ(Point2(5, 0), nearestOnEllipse(circle({0, 0}, 5), {0, 0}).point);
    EXPECT_EQ(5.0, nearestOnEllipse(circle({0, 0}, 5), {6, 8}).distance);
    EXPECT_EQ(Point2(3, 4), nearestOnEllipse(circle({0, 0}, 5), {6, 8}).point);
}

TEST(NearestOnEllipse, EverySizeGivesTheSameDigits)
{
    AnyEllipse any(34);
    for (int i = 0; i < 2000; ++i) {
        Ellipse const e = any(1.5, 0.3, 3);
        Point2 const p(any.number(-4, 4), any.number(-4, 4));
        NearestOnEllipse const plain = nearestOnEllipse(e, p);
        for (double const power : {0x1p-800, 0x1p-200, 0x1p200, 0x1p800}) {
            NearestOnEllipse const found =
                nearestOnEllipse({e.centre * power, e.u * power, e.v * power}, p * power);
            ASSERT_EQ(plain.distance * power, found.distance);
            ASSERT_EQ(plain.point * power, found.point);
        }
    }
}

/// No point of a fine sample is nearer, and the point itself is on the arc.
TEST(NearestOnArc, BeatsASampleOfTheArc)
{
    AnyEllipse any(35);
    int ends = 0;
    for (int i = 0; i < 3000; ++i) {
        Ellipse const e = any(1.5, 0.3, 3);
        double const from = any.number(0, 6.28), sweep = any.number(0.1, 6.1);
        auto const direction = [](double t) { return Point2(std::cos(t), std::sin(t)); };
        EllipseArc const arc{e, direction(from) * any.power(-3, 3), direction(from + sweep)};
        Point2 const p(any.number(-4, 4), any.number(-4, 4));
        NearestOnEllipse const found = nearestOnArc(arc, p);
        double least = support::inf;
        for (int k = 0; k <= 500; ++k) {
            Point2 const q = pointAt(e, direction(from + sweep * k / 500));
            least = std::min(least, (q - p).length());
        }
        ASSERT_LE(found.distance, least + 1e-14);
        ASSERT_GE(found.distance, least - 0.05);
        double t = std::atan2(found.direction.y(), found.direction.x()) - from;
        t -= 6.283185307179586 * std::floor((t + 1e-9) / 6.283185307179586);
        ASSERT_LE(t, sweep + 1e-9);
        ends += t < 1e-9 || t > sweep - 1e-9 ? 1 : 0;
    }
    EXPECT_GT(ends, 300);
}

TEST(NearestOnArc3, AgreesWithThePlaneWhenTurned)
{
    AnyEllipse any(36);
    for (int i = 0; i < 5000; ++i) {
        EllipseArc const flat{
            any(1.5, 0.3, 3), {any.number(-1, 1), 1.0}, {any.number(-1, 1), -1.0}};
        Point2 const p(any.number(-4, 4), any.number(-4, 4));
        auto const lift = [](Point2 const &q) { return Point3(0.6 * q.x(), q.y(), 0.8 * q.x()); };
        Ellipse const &e = flat.ellipse;
        EllipseArc3 const arc{lift(e.centre), lift(e.u), lift(e.v), flat.from, flat.to};
        double const height = any.number(-1, 1);
        Point3 const above = lift(p) + height * Point3(-0.8, 0.0, 0.6);
        double const wanted = std::hypot(nearestOnArc(flat, p).distance, height);
        NearestOnEllipse3 const found = nearestOnArc(arc, above);
        ASSERT_NEAR(wanted, found.distance, 1e-14);
        ASSERT_NEAR(found.distance, (found.point - above).length(), 1e-14);
    }
}

TEST(NearestOnArc3, SegmentAndPointAreArcsToo)
{
    EXPECT_EQ(5.0, nearestOnArc(EllipseArc3{{0, 0, 0}, {1, 0, 0}, {0, 0, 0}}, {4, 4, 0}).distance);
    EXPECT_EQ(2.0,
              nearestOnArc(EllipseArc3{{0, 0, 0}, {1, 0, 0}, {0, 0, 0}}, {0.5, 0, 2}).distance);
    EXPECT_EQ(13.0,
              nearestOnArc(EllipseArc3{{0, 0, 0}, {0, 0, 0}, {0, 0, 0}}, {3, 4, 12}).distance);
    EXPECT_EQ(0.0,
              nearestOnArc(EllipseArc3{{3, 4, 12}, {0, 0, 0}, {0, 0, 0}}, {3, 4, 12}).distance);
}

TEST(NearestOnArc, RefuseWhatIsNoArc)
{
    for (double const bad : {support::nan, support::inf}) {
        EXPECT_EQ(Status::NotFinite, nearestOnEllipse(circle({0, 0}, 1), {bad, 0}).status);
        EXPECT_EQ(Status::NotFinite, nearestOnEllipse(circle({0, bad}, 1), {0, 0}).status);
        EXPECT_EQ(Status::NotFinite,
                  nearestOnArc(EllipseArc3{{0, 0, bad}, {1, 0, 0}, {0, 1, 0}}, {0, 0, 0}).status);
    }
    EXPECT_EQ(Status::Degenerate, nearestOnEllipse(circle({0, 0}, 0), {1, 0}).status);
    EXPECT_EQ(Status::Degenerate,
              nearestOnArc(circleArc({0, 0}, 1, {0, 0}, {1, 0}), {1, 0}).status);
    EXPECT_EQ(Status::OutOfRange, nearestOnEllipse(circle({0, 0}, 1e280), {1, 0}).status);
    EXPECT_EQ(Status::OutOfRange, nearestOnEllipse(circle({0, 0}, 1e-280), {0, 0}).status);
}

} // namespace
