#include "exact/support/WholePoints.h"
#include "exact/support/caseCount.h"
#include "support/Bits.h"

#include <OrvelExact/segments/segmentCrossing.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

using namespace orvelExact;

namespace {

using Whole = boost::multiprecision::cpp_int;

/// The segments in whole numbers.
struct Truth
{
    Truth(Point2 const (&p)[4], int lowestBit)
        : unit(lowestBit)
    {
        for (int i = 0; i < 4; ++i) {
            x[i] = support::wholeOf<Whole>(p[i].x(), unit);
            y[i] = support::wholeOf<Whole>(p[i].y(), unit);
        }
    }

    Whole turn(int a, int b, int c) const
    {
        return (x[b] - x[a]) * (y[c] - y[a]) - (y[b] - y[a]) * (x[c] - x[a]);
    }
    bool isOn(int p, int a, int b) const
    {
        return turn(a, b, p) == 0 && std::min(x[a], x[b]) <= x[p] && x[p] <= std::max(x[a], x[b]) &&
               std::min(y[a], y[b]) <= y[p] && y[p] <= std::max(y[a], y[b]);
    }
    CrossingKind kind() const
    {
        int const a = turn(2, 3, 0).sign() * turn(2, 3, 1).sign();
        int const b = turn(0, 1, 2).sign() * turn(0, 1, 3).sign();
        if (a < 0 && b < 0) {
            return CrossingKind::Proper;
        }
        int const touching[] = {isOn(0, 2, 3) ? 0 : -1, isOn(1, 2, 3) ? 1 : -1,
                                isOn(2, 0, 1) ? 2 : -1, isOn(3, 0, 1) ? 3 : -1};
        int first = -1;
        for (int const i : touching) {
            if (i >= 0 && first >= 0 && (x[i] != x[first] || y[i] != y[first])) {
                return CrossingKind::Overlap;
            }
            first = first < 0 ? i : first;
        }
        return first < 0 ? CrossingKind::None : CrossingKind::AtEnd;
    }
    /// How far a component is from the true one, in units of its last place.
    double errorOf(double value, bool isY) const
    {
        Whole const d0 = turn(2, 3, 0);
        Whole const d1 = turn(2, 3, 1);
        Whole const numerator = isY ? y[0] * d1 - y[1] * d0 : x[0] * d1 - x[1] * d0;
        Whole const weight = d1 - d0;
        int const place = std::max(value == 0.0 ? -1074 : std::ilogb(value) - 52, -1074);
        // The error in units of 2^place, times 2^30.
        Whole const lifted = support::wholeOf<Whole>(value, std::min(place, unit) - 60);
        Whole error = (numerator << (unit - std::min(place, unit) + 60)) - lifted * weight;
        error = (error << 30) / weight;
        error >>= place - std::min(place, unit) + 60;
        return std::fabs(static_cast<double>(error)) / 1073741824.0;
    }

    int unit;
    Whole x[4];
    Whole y[4];
};

/// Ends of segments that often touch: a lattice, a line's points, or any doubles.
class Segments
{
public:
    void draw(Point2 (&p)[4])
    {
        int const kind = below(4);
        for (Point2 &point : p) {
            point = {component(kind), component(kind)};
        }
        int const touch = below(4);
        if (touch == 0) {
            double const t = below(5) * 0.25;
            p[2] = p[0] + t * (p[1] - p[0]);
        } else if (touch == 1) {
            p[2] = p[0] + (below(9) * 0.25 - 0.5) * (p[1] - p[0]);
            p[3] = p[0] + (below(9) * 0.25 - 0.5) * (p[1] - p[0]);
        }
        double const scale = std::ldexp(1.0, below(3) == 0 ? below(401) - 200 : 0);
        for (Point2 &point : p) {
            point *= scale;
        }
    }
    int below(int limit) { return static_cast<int>(m_generator() % static_cast<unsigned>(limit)); }

private:
    double component(int kind)
    {
        switch (kind) {
        case 0:
            return below(7);
        case 1:
            return 0.1 * below(50);
        case 2:
            return below(2000001) - 1000000;
        default:
            return std::uniform_real_distribution<double>(-1.0, 1.0)(m_generator);
        }
    }

    std::mt19937_64 m_generator{17};
};

int unitOf(Point2 const (&p)[4])
{
    int unit = 1000;
    for (Point2 const &point : p) {
        for (double const c : {point.x(), point.y()}) {
            unit = c == 0.0 ? unit : std::min(unit, support::lowestBit(c));
        }
    }
    return unit == 1000 ? 0 : unit;
}

} // namespace

TEST(SegmentCrossing, HasTheClassAndThePlaceOfWholeNumbers)
{
    Segments segments;
    int counts[4] = {0, 0, 0, 0};
    double worst = 0.0;
    for (int i = 0; i < support::caseCount(); ++i) {
        Point2 p[4];
        segments.draw(p);
        Truth const truth(p, unitOf(p));
        CrossingKind const expected = truth.kind();
        ++counts[static_cast<int>(expected)];
        SegmentCrossing const crossing = crossSegments(p[0], p[1], p[2], p[3]);
        ASSERT_EQ(expected, crossing.kind) << "case " << i;
        ASSERT_EQ(expected, classifyCrossing(p[2], p[3], p[1], p[0])) << "case " << i;
        if (expected == CrossingKind::Proper) {
            worst = std::max({worst, truth.errorOf(crossing.point.x(), false),
                              truth.errorOf(crossing.point.y(), true)});
            ASSERT_LE(worst, 0.500001) << "case " << i;
        }
    }
    for (int const count : counts) {
        EXPECT_GT(count, support::caseCount() / 50);
    }
    EXPECT_GT(worst, 0.49);
}

TEST(SegmentCrossing, IsAnEndExactlyWhereItIsOne)
{
    SegmentCrossing const t = crossSegments({0, 0}, {0.4, 0}, {0.1, 0}, {0.1, 7});
    EXPECT_EQ(CrossingKind::AtEnd, t.kind);
    EXPECT_EQ(Point2(0.1, 0), t.point);
    SegmentCrossing const v = crossSegments({0.1, 0.3}, {1, 1}, {2, -1}, {0.1, 0.3});
    EXPECT_EQ(CrossingKind::AtEnd, v.kind);
    EXPECT_EQ(Point2(0.1, 0.3), v.point);
    SegmentCrossing const chained = crossSegments({0, 0}, {1, 1}, {1, 1}, {2, 2});
    EXPECT_EQ(CrossingKind::AtEnd, chained.kind);
    EXPECT_EQ(Point2(1, 1), chained.point);
}

TEST(SegmentCrossing, HasBothEndsOfAnOverlap)
{
    SegmentCrossing const o = crossSegments({3, 3}, {0, 0}, {1, 1}, {5, 5});
    EXPECT_EQ(CrossingKind::Overlap, o.kind);
    EXPECT_EQ(Point2(1, 1), o.point);
    EXPECT_EQ(Point2(3, 3), o.last);
}

TEST(SegmentCrossing, TakesPointsForSegments)
{
    EXPECT_EQ(CrossingKind::AtEnd, classifyCrossing({1, 1}, {1, 1}, {0, 0}, {2, 2}));
    EXPECT_EQ(CrossingKind::None, classifyCrossing({1, 2}, {1, 2}, {0, 0}, {2, 2}));
    EXPECT_EQ(CrossingKind::None, classifyCrossing({3, 3}, {3, 3}, {0, 0}, {2, 2}));
    EXPECT_EQ(CrossingKind::AtEnd, classifyCrossing({1, 1}, {1, 1}, {1, 1}, {1, 1}));
    EXPECT_EQ(CrossingKind::None, classifyCrossing({1, 1}, {1, 1}, {1, 2}, {1, 2}));
}

TEST(SegmentCrossing, ServesEveryFiniteDouble)
{
    double const most = 1.7e308;
    SegmentCrossing const huge =
        crossSegments({-most, -most}, {most, most}, {-most, most}, {most, -most});
    EXPECT_EQ(CrossingKind::Proper, huge.kind);
    EXPECT_EQ(Point2(0, 0), huge.point);
    SegmentCrossing const mixed = crossSegments({-most, 5e-324}, {most, 5e-324}, {1, -1}, {1, 1});
    EXPECT_EQ(CrossingKind::Proper, mixed.kind);
    EXPECT_EQ(Point2(1, 5e-324), mixed.point);
    for (double const scale : {1e-300, 1e300}) {
        SegmentCrossing const third =
            crossSegments({0, 0}, {3 * scale, scale}, {scale, 0}, {scale, scale});
        EXPECT_EQ(CrossingKind::Proper, third.kind);
        EXPECT_EQ(scale, third.point.x());
        EXPECT_NEAR(scale / 3, third.point.y(), 2e-16 * scale);
    }
}

TEST(SegmentCrossing, RefusesNanAndInfinity)
{
    for (double const bad : {support::nan, support::inf, -support::inf}) {
        for (int i = 0; i < 8; ++i) {
            Point2 p[] = {{0, 0}, {1, 1}, {0, 1}, {1, 0}};
            p[i / 2][i % 2] = bad;
            EXPECT_EQ(CrossingKind::NotFinite, classifyCrossing(p[0], p[1], p[2], p[3]));
            EXPECT_EQ(CrossingKind::NotFinite, crossSegments(p[0], p[1], p[2], p[3]).kind);
        }
    }
}
