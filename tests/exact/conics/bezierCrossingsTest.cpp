#include "CrossingsTruth.h"
#include "samples.h"

#include <OrvelExact/conics/bezierCrossings.h>
#include <OrvelExact/predicates/orientation.h>

#include <support/Bits.h>

namespace {

using namespace orvelExact;
using conicsTruth::Real;
using samples::AnyEllipse;
using samples::cases;

Point2 anyPoint(AnyEllipse &any)
{
    double const x = any.number(-1, 1);
    return {x, any.number(-1, 1)};
}

CubicBezier anyCurve(AnyEllipse &any)
{
    return {{anyPoint(any), anyPoint(any), anyPoint(any), anyPoint(any)}};
}

struct RealCurve
{
    Real x, y, dx, dy;
};

RealCurve at(CubicBezier const &curve, Real const &t)
{
    Real const s = 1 - t;
    Real const weight[4] = {s * s * s, 3 * s * s * t, 3 * s * t * t, t * t * t};
    Real const slope[4] = {-3 * s * s, 3 * s * (s - 2 * t), 3 * t * (2 * s - t), 3 * t * t};
    RealCurve result{0, 0, 0, 0};
    for (int i = 0; i < 4; ++i) {
        result.x += weight[i] * curve.p[i].x();
        result.y += weight[i] * curve.p[i].y();
        result.dx += slope[i] * curve.p[i].x();
        result.dy += slope[i] * curve.p[i].y();
    }
    return result;
}

/// How far a crossing is from the true one that Newton's steps in a hundred digits lead to.
double errorOf(CubicBezier const &a, CubicBezier const &b, BezierCrossing const &x)
{
    Real t = x.onFirst, s = x.onSecond;
    for (int step = 0; step < 60; ++step) {
        RealCurve const p = at(a, t), q = at(b, s);
        Real const turn = p.dx * q.dy - p.dy * q.dx;
        if (turn == 0) {
            break;
        }
        Real const dt = ((q.x - p.x) * q.dy - (q.y - p.y) * q.dx) / turn;
        t += dt;
        s += ((q.x - p.x) * p.dy - (q.y - p.y) * p.dx) / turn;
        if (abs(dt) < 1e-40) {
            break;
        }
    }
    RealCurve const p = at(a, t);
    if (t < -1e-12 || t > 1 + 1e-12 || s < -1e-12 || s > 1 + 1e-12) {
        return 1.0;
    }
    return static_cast<double>(std::max<Real>(abs(p.x - x.point.x()), abs(p.y - x.point.y())));
}

/// How often the chords of two curves cross, by exact signs.
int crossingsOfChords(CubicBezier const &a, CubicBezier const &b, int chords)
{
    std::vector<Point2> p, q;
    for (int i = 0; i <= chords; ++i) {
        p.push_back(pointAt(a, static_cast<double>(i) / chords));
        q.push_back(pointAt(b, static_cast<double>(i) / chords));
    }
    int count = 0;
    auto const isSplit = [](Point2 const &a0, Point2 const &a1, Point2 const &b0,
                            Point2 const &b1) {
        return orientation2d(a0, a1, b0) != orientation2d(a0, a1, b1);
    };
    for (std::size_t i = 0; i + 1 < p.size(); ++i) {
        for (std::size_t k = 0; k + 1 < q.size(); ++k) {
            count +=
                isSplit(p[i], p[i + 1], q[k], q[k + 1]) && isSplit(q[k], q[k + 1], p[i], p[i + 1])
                    ? 1
                    : 0;
        }
    }
    return count;
}

TEST(BezierCrossings, EachOneIsACrossing)
{
    AnyEllipse any(51);
    int found = 0;
    // not 10^5, which takes about 6 s
    for (int i = 0; i < cases(50000); ++i) {
        CubicBezier const a = anyCurve(any), b = anyCurve(any);
        BezierCrossings const x = bezierCrossings(a, b, 0.0);
        ASSERT_EQ(Status::Ok, x.status);
        ASSERT_FALSE(x.coincide);
        for (int k = 0; k < x.count; ++k) {
            ASSERT_LT(errorOf(a, b, x.crossings[k]), 1e-12) << i;
            ASSERT_TRUE(k == 0 || x.crossings[k - 1].onFirst < x.crossings[k].onFirst);
        }
        found += x.count;
    }
    EXPECT_GT(found, 30000);
}

/// Chords miss or invent crossings only where two crossings, or a crossing and an end, are close.
TEST(BezierCrossings, NoneIsMissing)
{
    AnyEllipse any(52);
    int compared = 0;
    // not 10^5, which takes about 7 s
    for (int i = 0; i < cases(3000); ++i) {
        CubicBezier const a = anyCurve(any), b = anyCurve(any);
        int const wanted = crossingsOfChords(a, b, 90);
        BezierCrossings const x = bezierCrossings(a, b, 0.0);
        if (wanted == crossingsOfChords(a, b, 64)) {
            ++compared;
            if (wanted != x.count) { // once more with fine chords
                ASSERT_EQ(crossingsOfChords(a, b, 3000), x.count) << i;
            }
        }
    }
    EXPECT_GT(compared, 2900);
}

TEST(BezierCrossings, SwappedCurvesGiveTheSamePlaces)
{
    AnyEllipse any(53);
    for (int i = 0; i < cases(100000); ++i) {
        CubicBezier const a = anyCurve(any), b = anyCurve(any);
        BezierCrossings const x = bezierCrossings(a, b, 0.0);
        BezierCrossings const y = bezierCrossings(b, a, 0.0);
        ASSERT_EQ(x.count, y.count) << i;
        for (int k = 0; k < x.count; ++k) {
            double nearest = 1.0;
            for (int j = 0; j < y.count; ++j) {
                nearest = std::min(nearest, (x.crossings[k].point - y.crossings[j].point).length());
            }
            ASSERT_LT(nearest, 1e-12);
        }
    }
}

/// The second curve turned and moved until it touches the first one, up to a gap.
CubicBezier touching(AnyEllipse &any, CubicBezier const &a, CubicBezier b, double gap)
{
    double const t = any.number(0.1, 0.9), s = any.number(0.1, 0.9);
    RealCurve const p = at(a, t), q = at(b, s);
    Point2 const u(static_cast<double>(p.dx), static_cast<double>(p.dy));
    Point2 const v(static_cast<double>(q.dx), static_cast<double>(q.dy));
    double const lengths = u.length() * v.length();
    double const c = u.dot(v) / lengths, w = (v.x() * u.y() - v.y() * u.x()) / lengths;
    for (Point2 &x : b.p) {
        x = {c * x.x() - w * x.y(), w * x.x() + c * x.y()};
    }
    Point2 const normal = Point2(-u.y(), u.x()) / u.length();
    Point2 const shift = pointAt(a, t) + gap * normal - pointAt(b, s);
    for (Point2 &x : b.p) {
        x += shift;
    }
    return b;
}

TEST(BezierCrossings, NearContacts)
{
    AnyEllipse any(56);
    int touches = 0, closePairs = 0;
    // not 10^5, which takes some minutes
    for (int i = 0; i < cases(1000); ++i) {
        CubicBezier const a = anyCurve(any);
        double const gap = any.power(-16, -3) * any.number(-1, 1);
        CubicBezier const b = touching(any, a, anyCurve(any), gap);
        BezierCrossings const x = bezierCrossings(a, b, 0.0);
        ASSERT_EQ(Status::Ok, x.status);
        ASSERT_FALSE(x.coincide) << i;
        for (int k = 0; k < x.count; ++k) {
            touches += x.crossings[k].isTouch ? 1 : 0;
            if (!x.crossings[k].isTouch) {
                ASSERT_LT(errorOf(a, b, x.crossings[k]), 1e-12) << i;
            }
            closePairs +=
                k > 0 && (x.crossings[k].point - x.crossings[k - 1].point).length() < 1e-4;
        }
        // one sign of the gap gives two crossings, the other none; no gap a contact
        BezierCrossings const wide = bezierCrossings(a, b, 2.0 * std::fabs(gap) + 1e-12);
        bool isToldWithin = wide.coincide;
        for (int k = 0; k < wide.count; ++k) {
            isToldWithin = isToldWithin || wide.crossings[k].isTouch;
        }
        ASSERT_TRUE(isToldWithin) << i;
    }
    EXPECT_GT(touches, 60);
    EXPECT_GT(closePairs, 60);
}

TEST(BezierCrossings, NineOfThem)
{
    CubicBezier const a{{{0, 0}, {1.5, 10}, {-0.5, -9}, {1, 1}}};
    CubicBezier const b{{{0, 0.2}, {10, 1.6}, {-9, -0.6}, {1, 0.8}}};
    BezierCrossings const x = bezierCrossings(a, b, 0.0);
    EXPECT_EQ(9, x.count);
}

TEST(BezierCrossings, ContactsAreToldByTheTolerance)
{
    CubicBezier const arch{{{0, 0}, {0, 4}, {4, 4}, {4, 0}}}; // its top is (2, 3)
    auto const hanging = [](double low) {                     // its lowest point is (2, low)
        return CubicBezier{{{-1, low + 6}, {0, low - 2}, {4, low - 2}, {5, low + 6}}};
    };
    BezierCrossings const touch = bezierCrossings(arch, hanging(3.0), 0.0);
    ASSERT_EQ(1, touch.count);
    EXPECT_TRUE(touch.crossings[0].isTouch);
    EXPECT_LT((Point2(2, 3) - touch.crossings[0].point).length(), 1e-12);
    double const gap = 0x1p-20;
    EXPECT_EQ(0, bezierCrossings(arch, hanging(3 + gap), 0.99 * gap).count);
    EXPECT_EQ(1, bezierCrossings(arch, hanging(3 + gap), 1.01 * gap).count);
    EXPECT_EQ(2, bezierCrossings(arch, hanging(3 - gap), 0.99 * gap).count);
    ASSERT_EQ(1, bezierCrossings(arch, hanging(3 - gap), 1.01 * gap).count);
    EXPECT_TRUE(bezierCrossings(arch, hanging(3 - gap), 1.01 * gap).crossings[0].isTouch);
    for (double const fine : {0x1p-30, 0x1p-36, 0x1p-38}) {
        EXPECT_EQ(2, bezierCrossings(arch, hanging(3 - fine), 0.0).count) << fine;
        EXPECT_EQ(0, bezierCrossings(arch, hanging(3 + fine), 0.0).count) << fine;
    }
}

TEST(BezierCrossings, EndsMeet)
{
    CubicBezier const a{{{0, 0}, {1, 2}, {2, 2}, {3, 0}}};
    CubicBezier const b{{{3, 0}, {4, 2}, {5, -2}, {6, 0}}};
    BezierCrossings const x = bezierCrossings(a, b, 0.0);
    ASSERT_EQ(1, x.count);
    EXPECT_EQ(Point2(3, 0), x.crossings[0].point);
    EXPECT_EQ(1.0, x.crossings[0].onFirst);
    EXPECT_EQ(0.0, x.crossings[0].onSecond);
    CubicBezier const c{{{3, 1e-6}, {4, 2}, {5, -2}, {6, 0}}};
    EXPECT_EQ(0, bezierCrossings(a, c, 0.0).count);
    EXPECT_EQ(1, bezierCrossings(a, c, 2e-6).count);
}

TEST(BezierCrossings, SharedPiecesAreSaidToCoincide)
{
    AnyEllipse any(54);
    for (int i = 0; i < 20; ++i) {
        CubicBezier const a = anyCurve(any);
        EXPECT_TRUE(bezierCrossings(a, a, 0.0).coincide);
        CubicBezier const turned{{a.p[3], a.p[2], a.p[1], a.p[0]}};
        EXPECT_TRUE(bezierCrossings(a, turned, 0.0).coincide);
    }
}

TEST(BezierCrossings, EverySizeGivesTheSameDigits)
{
    AnyEllipse any(55);
    for (int i = 0; i < 1000; ++i) {
        CubicBezier const a = anyCurve(any), b = anyCurve(any);
        BezierCrossings const plain = bezierCrossings(a, b, 0.0);
        for (double const power : {0x1p-800, 0x1p800}) {
            CubicBezier c = a, d = b;
            for (int k = 0; k < 4; ++k) {
                c.p[k] *= power;
                d.p[k] *= power;
            }
            BezierCrossings const found = bezierCrossings(c, d, 0.0);
            ASSERT_EQ(plain.count, found.count);
            for (int k = 0; k < plain.count; ++k) {
                ASSERT_EQ(plain.crossings[k].point * power, found.crossings[k].point);
            }
        }
    }
}

TEST(BezierCrossings, RefuseWhatIsNoCurve)
{
    CubicBezier const arch{{{0, 0}, {0, 4}, {4, 4}, {4, 0}}};
    CubicBezier bad = arch;
    bad.p[2] = {support::nan, 0.0};
    EXPECT_EQ(Status::NotFinite, bezierCrossings(arch, bad, 0.0).status);
    EXPECT_EQ(Status::NotFinite, bezierCrossings(bad, arch, 0.0).status);
    EXPECT_EQ(Status::NotFinite, bezierCrossings(arch, arch, support::inf).status);
    bad.p[2] = {1e280, 0.0};
    EXPECT_EQ(Status::OutOfRange, bezierCrossings(arch, bad, 0.0).status);
    EXPECT_EQ(Status::Degenerate,
              bezierCrossings(arch, {{{1, 1}, {1, 1}, {1, 1}, {1, 1}}}, 0.0).status);
}

} // namespace
