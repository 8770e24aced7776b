#include "CrossingsTruth.h"
#include "samples.h"

#include <OrvelExact/conics/bezierCrossings.h>

#include <support/Bits.h>

namespace {

using namespace orvelExact;
using conicsTruth::Integer;
using conicsTruth::Real;
using samples::AnyEllipse;
using samples::cases;

/// The distance from the line as whole numbers by powers of t / (1 - t), from 0 to infinity.
conicsTruth::Polynomial polynomialOf(CubicBezier const &curve, Point2 const &p0, Point2 const &p1)
{
    constexpr int unit = -120; // every bit of the samples is above
    auto const number = [](double x) { return conicsTruth::scaledInteger(x, unit); };
    Integer const dx = number(p1.x()) - number(p0.x());
    Integer const dy = number(p1.y()) - number(p0.y());
    int const binomial[4] = {1, 3, 3, 1};
    conicsTruth::Polynomial p;
    for (int i = 0; i < 4; ++i) {
        p.push_back(binomial[i] * (dx * (number(curve.p[i].y()) - number(p0.y())) -
                                   dy * (number(curve.p[i].x()) - number(p0.x()))));
    }
    return p;
}

/// How often the curve meets the line, by Sturm's count of the roots above 0.
int meetingsOf(CubicBezier const &curve, Point2 const &p0, Point2 const &p1)
{
    conicsTruth::Polynomial p = polynomialOf(curve, p0, p1);
    int const atEnd = p[3] == 0 ? 1 : 0;
    conicsTruth::trim(p);
    if (p.empty()) {
        return -1;
    }
    int atStart = 0;
    while (p.front() == 0) {
        p.erase(p.begin());
        atStart = 1;
    }
    return atEnd + atStart + conicsTruth::distinctPositiveRoots(p);
}

/// The distance of the true root of f next to t, and of t's point from the one given.
double errorOf(CubicBezier const &curve, Point2 const &p0, Point2 const &p1,
               BezierLineCrossing const &x)
{
    Real t = x.t;
    Real const dx = Real(p1.x()) - p0.x(), dy = Real(p1.y()) - p0.y();
    Real px = 0, py = 0;
    for (int step = 0; step < 60; ++step) {
        Real const s = 1 - t;
        Real const weight[4] = {s * s * s, 3 * s * s * t, 3 * s * t * t, t * t * t};
        Real const slope[4] = {-3 * s * s, 3 * s * (s - 2 * t), 3 * t * (2 * s - t), 3 * t * t};
        Real ax = 0, ay = 0;
        px = py = 0;
        for (int i = 0; i < 4; ++i) {
            px += weight[i] * curve.p[i].x();
            py += weight[i] * curve.p[i].y();
            ax += slope[i] * curve.p[i].x();
            ay += slope[i] * curve.p[i].y();
        }
        Real const rise = dx * ay - dy * ax;
        if (rise == 0) {
            break;
        }
        Real const by = (dx * (py - p0.y()) - dy * (px - p0.x())) / rise;
        t -= by;
        if (abs(by) < 1e-40) {
            break;
        }
    }
    return static_cast<double>(std::max<Real>(abs(px - x.point.x()), abs(py - x.point.y())));
}

void expectTruth(CubicBezier const &curve, Point2 const &p0, Point2 const &p1)
{
    BezierLineCrossings const found = bezierLineCrossings(curve, p0, p1, 0.0);
    ASSERT_EQ(Status::Ok, found.status);
    int const wanted = meetingsOf(curve, p0, p1);
    ASSERT_EQ(wanted < 0, found.coincide);
    ASSERT_EQ(std::max(wanted, 0), found.count);
    for (int i = 0; i < found.count; ++i) {
        ASSERT_LT(errorOf(curve, p0, p1, found.crossings[i]), 1e-12);
        ASSERT_GE(found.crossings[i].t, i == 0 ? 0.0 : found.crossings[i - 1].t);
        ASSERT_LE(found.crossings[i].t, 1.0);
    }
}

Point2 anyPoint(AnyEllipse &any)
{
    double const x = any.number(-1, 1);
    return {x, any.number(-1, 1)};
}

Point2 latticePoint(AnyEllipse &any)
{
    double const x = any.whole(-3, 3);
    return {x, static_cast<double>(any.whole(-3, 3))};
}

TEST(BezierLineCrossings, RandomCurves)
{
    AnyEllipse any(41);
    for (int i = 0; i < cases(100000) && !HasFatalFailure(); ++i) {
        CubicBezier const curve{{anyPoint(any), anyPoint(any), anyPoint(any), anyPoint(any)}};
        Point2 const p0 = anyPoint(any);
        SCOPED_TRACE(i);
        expectTruth(curve, p0, anyPoint(any));
    }
}

TEST(BezierLineCrossings, LatticeCurvesMeetAtEndsAndContacts)
{
    AnyEllipse any(42);
    int touches = 0;
    for (int i = 0; i < cases(100000) && !HasFatalFailure(); ++i) {
        CubicBezier const curve{
            {latticePoint(any), latticePoint(any), latticePoint(any), latticePoint(any)}};
        Point2 const p0 = latticePoint(any);
        Point2 const p1(p0.x() + any.whole(-2, 2), p0.y() + any.whole(1, 3));
        bool const isPoint =
            curve.p[0] == curve.p[1] && curve.p[1] == curve.p[2] && curve.p[2] == curve.p[3];
        if (isPoint) {
            continue;
        }
        SCOPED_TRACE(i);
        expectTruth(curve, p0, p1);
        BezierLineCrossings const found = bezierLineCrossings(curve, p0, p1, 0.0);
        for (int k = 0; k < found.count; ++k) {
            touches += found.crossings[k].isTouch ? 1 : 0;
        }
    }
    EXPECT_GT(touches, 40);
}

TEST(BezierLineCrossings, NearContacts)
{
    AnyEllipse any(43);
    // not 10^5, which takes about 7 s
    for (int i = 0; i < cases(30000) && !HasFatalFailure(); ++i) {
        CubicBezier const curve{{anyPoint(any), anyPoint(any), anyPoint(any), anyPoint(any)}};
        double const t = any.number(0.1, 0.9), h = 1e-4;
        Point2 const tangent = (pointAt(curve, t + h) - pointAt(curve, t - h)) / (2 * h);
        Point2 const normal(-tangent.y(), tangent.x());
        Point2 const p0 = pointAt(curve, t) + any.number(-1, 1) * any.power(-18, -2) * normal;
        SCOPED_TRACE(i);
        expectTruth(curve, p0, p0 + tangent);
    }
}

TEST(BezierLineCrossings, ToleranceIsADistance)
{
    CubicBezier const arch{{{0, 0}, {0, 4}, {4, 4}, {4, 0}}}; // its top is (2, 3)
    double const gap = 0x1p-30;
    EXPECT_EQ(0, bezierLineCrossings(arch, {0, 3 + gap}, {9, 3 + gap}, 0.99 * gap).count);
    ASSERT_EQ(1, bezierLineCrossings(arch, {0, 3 + gap}, {9, 3 + gap}, 1.01 * gap).count);
    EXPECT_EQ(Point2(2, 3),
              bezierLineCrossings(arch, {0, 3 + gap}, {9, 3 + gap}, 1.01 * gap).crossings[0].point);
    EXPECT_TRUE(bezierLineCrossings(arch, {0, 3}, {9, 3}, 0.0).crossings[0].isTouch);
    EXPECT_EQ(2, bezierLineCrossings(arch, {0, 3 - gap}, {9, 3 - gap}, 0.99 * gap).count);
    EXPECT_EQ(1, bezierLineCrossings(arch, {0, 3 - gap}, {9, 3 - gap}, 1.01 * gap).count);
    EXPECT_EQ(2, bezierLineCrossings(arch, {0, 0}, {9, 0}, 0.0).count); // both ends
    EXPECT_EQ(0, bezierLineCrossings(arch, {0, -gap}, {9, -gap}, 0.0).count);
    EXPECT_EQ(2, bezierLineCrossings(arch, {0, -gap}, {9, -gap}, 2 * gap).count);
    EXPECT_TRUE(bezierLineCrossings(arch, {0, 0}, {9, 0}, 5.0).coincide);
    CubicBezier const straight{{{0, 0}, {1, 1}, {2, 2}, {3, 3}}};
    EXPECT_TRUE(bezierLineCrossings(straight, {7, 7}, {8, 8}, 0.0).coincide);
}

TEST(BezierSegmentCrossings, KeepWhatLiesOnTheSegment)
{
    CubicBezier const arch{{{0, 0}, {0, 4}, {4, 4}, {4, 0}}};
    EXPECT_EQ(2, bezierSegmentCrossings(arch, {-1, 1}, {5, 1}, 0.0).count);
    EXPECT_EQ(1, bezierSegmentCrossings(arch, {-1, 1}, {2, 1}, 0.0).count);
    EXPECT_EQ(0, bezierSegmentCrossings(arch, {1, 1}, {2, 1}, 0.0).count);
    EXPECT_EQ(1, bezierSegmentCrossings(arch, {2, 2}, {2, 3}, 0.0).count);
    EXPECT_EQ(0, bezierSegmentCrossings(arch, {2, 2}, {2, 2.999}, 0.0).count);
    EXPECT_EQ(1, bezierSegmentCrossings(arch, {2, 2}, {2, 2.999}, 0.0011).count);
}

TEST(BezierLineCrossings, EverySizeGivesTheSameDigits)
{
    AnyEllipse any(44);
    for (int i = 0; i < 2000; ++i) {
        CubicBezier const curve{{anyPoint(any), anyPoint(any), anyPoint(any), anyPoint(any)}};
        Point2 const p0 = anyPoint(any), p1 = anyPoint(any);
        BezierLineCrossings const plain = bezierLineCrossings(curve, p0, p1, 0.0);
        for (double const power : {0x1p-800, 0x1p800}) {
            CubicBezier scaled = curve;
            for (Point2 &p : scaled.p) {
                p *= power;
            }
            BezierLineCrossings const found =
                bezierLineCrossings(scaled, p0 * power, p1 * power, 0.0);
            ASSERT_EQ(plain.count, found.count);
            for (int k = 0; k < plain.count; ++k) {
                ASSERT_EQ(plain.crossings[k].t, found.crossings[k].t);
                ASSERT_EQ(plain.crossings[k].point * power, found.crossings[k].point);
            }
        }
    }
}

TEST(BezierLineCrossings, RefuseWhatIsNoCurveOrLine)
{
    CubicBezier const arch{{{0, 0}, {0, 4}, {4, 4}, {4, 0}}};
    EXPECT_EQ(Status::Degenerate, bezierLineCrossings(arch, {1, 1}, {1, 1}, 0.0).status);
    EXPECT_EQ(Status::Degenerate,
              bezierLineCrossings({{{1, 1}, {1, 1}, {1, 1}, {1, 1}}}, {0, 1}, {1, 1}, 0.0).status);
    for (double const bad : {support::nan, support::inf}) {
        EXPECT_EQ(Status::NotFinite, bezierLineCrossings(arch, {bad, 1}, {1, 1}, 0.0).status);
        EXPECT_EQ(Status::NotFinite, bezierLineCrossings(arch, {0, 1}, {1, 1}, bad).status);
        EXPECT_EQ(
            Status::NotFinite,
            bezierLineCrossings({{{0, 0}, {0, bad}, {4, 4}, {4, 0}}}, {0, 1}, {1, 1}, 0.0).status);
    }
    EXPECT_EQ(Status::OutOfRange, bezierLineCrossings(arch, {0, 1e280}, {1, 1}, 0.0).status);
}

} // namespace
