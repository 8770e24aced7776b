#include "CrossingsTruth.h"
#include "samples.h"

#include <OrvelExact/conics/conicCrossings.h>

#include <support/Bits.h>

namespace {

using namespace orvelExact;
using conicsTruth::Real;
using samples::AnyEllipse;
using samples::cases;

struct Truth
{
    int count = 0;
    Real x[2];
    Real y[2];
};

/// The distance of the ellipse's points from the line is k0 + k1 c + k2 s; two directions make it
/// 0 when k0 is the smaller.
Truth truthOf(Ellipse const &e, Point2 const &p0, Point2 const &p1)
{
    Real const dx = Real(p1.x()) - p0.x(), dy = Real(p1.y()) - p0.y();
    Real const k0 = dx * (Real(e.centre.y()) - p0.y()) - dy * (Real(e.centre.x()) - p0.x());
    Real const k1 = dx * e.u.y() - dy * e.u.x();
    Real const k2 = dx * e.v.y() - dy * e.v.x();
    Real const square = k1 * k1 + k2 * k2;
    Real const rest = square - k0 * k0; // exact in a hundred digits
    Truth truth;
    truth.count = rest < 0 ? 0 : rest == 0 ? 1 : 2;
    for (int i = 0; i < truth.count; ++i) {
        Real const root = (i == 0 ? 1 : -1) * sqrt(rest);
        Real const c = (-k0 * k1 - root * k2) / square;
        Real const s = (-k0 * k2 + root * k1) / square;
        truth.x[i] = e.centre.x() + c * e.u.x() + s * e.v.x();
        truth.y[i] = e.centre.y() + c * e.u.y() + s * e.v.y();
    }
    return truth;
}

void expectTruth(Ellipse const &e, Point2 const &p0, Point2 const &p1)
{
    LineCrossings const found = lineCrossings(e, p0, p1, 0.0);
    Truth const truth = truthOf(e, p0, p1);
    ASSERT_EQ(Status::Ok, found.status);
    ASSERT_EQ(truth.count, found.count);
    double const axis = conicsTruth::largerSemiAxis(e);
    for (int i = 0; i < found.count; ++i) {
        LineCrossing const &x = found.crossings[i];
        double nearest = support::inf;
        for (int k = 0; k < truth.count; ++k) {
            Real const off =
                std::max<Real>(abs(truth.x[k] - x.point.x()), abs(truth.y[k] - x.point.y()));
            nearest = std::min(nearest, static_cast<double>(off));
        }
        double const ulp = 0x1p-53 * std::max(std::fabs(x.point.x()), std::fabs(x.point.y()));
        ASSERT_LT(nearest - ulp, 1e-12 * axis);
        ASSERT_EQ(truth.count == 1, x.isTouch);
    }
    if (found.count == 2) {
        ASSERT_LE(found.crossings[0].parameter, found.crossings[1].parameter);
    }
}

TEST(LineCrossings, RandomLines)
{
    AnyEllipse any(21);
    for (int i = 0; i < cases(100000) && !HasFatalFailure(); ++i) {
        Ellipse const e = any(1.5, 0.3, 3);
        SCOPED_TRACE(i);
        expectTruth(e, {any.number(-3, 3), any.number(-3, 3)},
                    {any.number(-3, 3), any.number(-3, 3)});
    }
}

TEST(LineCrossings, LatticeLinesTouchExactly)
{
    AnyEllipse any(22);
    int touches = 0;
    for (int i = 0; i < cases(100000) && !HasFatalFailure(); ++i) {
        Ellipse const e = any.onLattice(3);
        Point2 const p0(any.whole(-4, 4), any.whole(-4, 4));
        Point2 const p1(p0.x() + any.whole(-3, 3), p0.y() + any.whole(1, 4));
        SCOPED_TRACE(i);
        expectTruth(e, p0, p1);
        touches += lineCrossings(e, p0, p1, 0.0).count == 1 ? 1 : 0;
    }
    EXPECT_GT(touches, 1000);
}

TEST(LineCrossings, NearTangents)
{
    AnyEllipse any(23);
    for (int i = 0; i < cases(100000) && !HasFatalFailure(); ++i) {
        Ellipse const e = any(1.5, 0.3, 3);
        double const angle = any.number(0, 6.28);
        double const c = std::cos(angle), s = std::sin(angle);
        Point2 const tangent = c * e.v - s * e.u;
        Point2 const normal(tangent.y(), -tangent.x());
        Point2 const p0 = pointAt(e, {c, s}) + any.number(-1, 1) * any.power(-19, -3) * normal;
        SCOPED_TRACE(i);
        expectTruth(e, p0, p0 + any.power(-3, 3) * tangent);
    }
}

TEST(LineCrossings, ParametersNameThePoints)
{
    LineCrossings const found = lineCrossings(circle({0, 0}, 5), {-10, 3}, {-9, 3}, 0.0);
    ASSERT_EQ(2, found.count);
    EXPECT_EQ(Point2(-4, 3), found.crossings[0].point);
    EXPECT_EQ(6.0, found.crossings[0].parameter);
    EXPECT_EQ(Point2(4, 3), found.crossings[1].point);
    EXPECT_EQ(14.0, found.crossings[1].parameter);
    EXPECT_EQ(Point2(0.8, 0.6), found.crossings[1].direction);
}

TEST(LineCrossings, ToleranceIsADistance)
{
    double const gap = 0x1p-30;
    Ellipse const e{{}, {3.0, 0.0}, {0.0, 2.0}};
    EXPECT_EQ(0, lineCrossings(e, {-7, 2 + gap}, {9, 2 + gap}, 0.99 * gap).count);
    ASSERT_EQ(1, lineCrossings(e, {-7, 2 + gap}, {9, 2 + gap}, 1.01 * gap).count);
    EXPECT_EQ(Point2(0, 2),
              lineCrossings(e, {-7, 2 + gap}, {9, 2 + gap}, 1.01 * gap).crossings[0].point);
    EXPECT_EQ(2, lineCrossings(e, {-7, 2 - gap}, {9, 2 - gap}, 0.99 * gap).count);
    EXPECT_EQ(1, lineCrossings(e, {-7, 2 - gap}, {9, 2 - gap}, 1.01 * gap).count);
    EXPECT_EQ(2, lineCrossings(e, {-7, 0}, {9, 0}, 10.0).count); // all of it is near
}

TEST(SegmentCrossings, KeepWhatLiesOnBoth)
{
    EllipseArc const whole = circleArc({0, 0}, 5, {1, 0}, {1, 0});
    EXPECT_EQ(2, segmentCrossings(whole, {-10, 3}, {10, 3}, 0.0).count);
    EXPECT_EQ(1, segmentCrossings(whole, {0, 3}, {10, 3}, 0.0).count);
    EXPECT_EQ(0, segmentCrossings(whole, {-3, 3}, {3, 3}, 0.0).count);
    EXPECT_EQ(2, segmentCrossings(whole, {-4, 3}, {4, 3}, 0.0).count); // ends count
    EXPECT_EQ(0, segmentCrossings(whole, {0, 3}, {3.999, 3}, 0.0).count);
    EXPECT_EQ(1, segmentCrossings(whole, {0, 3}, {3.999, 3}, 0.0011).count);
    EllipseArc const right = circleArc({0, 0}, 5, {0, -1}, {0, 1});
    ASSERT_EQ(1, segmentCrossings(right, {-10, 3}, {10, 3}, 0.0).count);
    EXPECT_EQ(Point2(4, 3), segmentCrossings(right, {-10, 3}, {10, 3}, 0.0).crossings[0].point);
}

TEST(LineCrossings, RefuseWhatIsNoLine)
{
    Ellipse const e = circle({0, 0}, 1);
    EXPECT_EQ(Status::Degenerate, lineCrossings(e, {1, 2}, {1, 2}, 0.0).status);
    for (double const bad : {support::nan, support::inf}) {
        EXPECT_EQ(Status::NotFinite, lineCrossings(e, {bad, 2}, {1, 2}, 0.0).status);
        EXPECT_EQ(Status::NotFinite, lineCrossings(e, {0, 2}, {1, bad}, 0.0).status);
        EXPECT_EQ(Status::NotFinite, lineCrossings(e, {0, 2}, {1, 2}, bad).status);
        EXPECT_EQ(Status::NotFinite, lineCrossings(circle({0, 0}, bad), {0, 2}, {1, 2}, 0).status);
    }
    EXPECT_EQ(Status::OutOfRange, lineCrossings(e, {0, 0}, {1e-280, 0}, 0.0).status);
}

} // namespace
