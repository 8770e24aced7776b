#include "PlaneFixtures.h"

#include <OrvelMath/geom2d/concav2d.h>

#include <rapidcheck/gtest.h>

#include <set>

using namespace concav2d;

namespace {

constexpr double radians = 0.017453292519943295;
constexpr double fullTurn = 6.283185307179586;
constexpr double fiveDegrees = 0.08726646259971647;

/// A list of samples that deletes them.
struct Samples
{
    Samples() = default;
    Samples(Samples const &) = delete;
    Samples &operator=(Samples const &) = delete;
    ~Samples() { qDeleteAll(list); }

    Point2D at(int i) const { return **(list.begin() + i); }
    int count() const { return list.size(); }
    Point2D last() const { return *list.last(); }

    QLinkedList<Point2D *> list;
};

TEST(GetCirclePoints, StepZeroIsFiveDegrees)
{
    Samples samples;
    EXPECT_EQ(getCirclePoints({1, 2}, 3.0, samples.list, 0.0), 0);
    // 72 steps add up to at most the full turn, so the full turn stands twice.
    int stepped = 0;
    for (double t = 0.0; fullTurn >= t; t += fiveDegrees) {
        EXPECT_POINT(samples.at(stepped), 1 + 3.0 * std::cos(t), 2 + 3.0 * std::sin(t));
        ++stepped;
    }
    EXPECT_EQ(samples.count(), stepped + 1);
    EXPECT_EQ(stepped, 73);
    EXPECT_POINT(samples.last(), 1 + 3.0 * std::cos(fullTurn), 2 + 3.0 * std::sin(fullTurn));
}

TEST(GetCirclePoints, AStepAboveAFullTurnGivesTheFirstAndTheClosingPoint)
{
    Samples samples;
    EXPECT_EQ(getCirclePoints({1, 2}, 3.0, samples.list, 7.0), 0);
    ASSERT_EQ(samples.count(), 2);
    EXPECT_POINT(samples.at(0), 4.0, 2.0);
    EXPECT_POINT(samples.at(1), 4.0, 2 + 3.0 * std::sin(fullTurn));
}

TEST(GetCirclePoints, NanStepEnds)
{
    Samples samples;
    EXPECT_EQ(getCirclePoints({1, 2}, 3.0, samples.list, nan64), 0);
    EXPECT_EQ(samples.count(), 2);
}

TEST(Sampling, EmptiesTheListWithoutDeletingItsPoints)
{
    Point2D mine(7, 8);
    QLinkedList<Point2D *> list;
    list.append(&mine);
    EXPECT_EQ(getArcPoints({0, 0}, {1, 0}, {2, 0}, list, 0.0, 0.1), 1);
    EXPECT_TRUE(list.isEmpty());
    EXPECT_POINT(mine, 7.0, 8.0);

    for (int function = 0; function < 4; ++function) {
        list.append(&mine);
        QLinkedList<Point2D *> const shared = list;
        switch (function) {
        case 0:
            getArcPoints({1, 0}, {0, 1}, {-1, 0}, list, 0.0, 10.0);
            break;
        case 1:
            getCirclePoints({0, 0}, 1.0, list, 10.0);
            break;
        case 2:
            getEllipseArcPoints({0, 0}, {2, 0}, {0, 1}, 0, 90, list, 10.0);
            break;
        default:
            getEllipsePoints({0, 0}, {2, 0}, {0, 1}, 0, list, 10.0);
        }
        EXPECT_EQ(list.size(), 2);
        EXPECT_FALSE(list.contains(&mine));
        EXPECT_EQ(shared.size(), 1); // a copy of the list keeps its entries
        EXPECT_POINT(mine, 7.0, 8.0);
        qDeleteAll(list);
        list.clear();
    }
}

TEST(GetArcPoints, AThirdOfTheSweepAsStepMayDoubleTheEnd)
{
    // From 90 to 180 degrees. The accumulated angle decides between four points and five.
    double const low = 90.0 * radians;
    double const high = 180.0 * radians;
    std::set<int> counts;
    for (double const step : {(high - low) / 3, std::nextafter((high - low) / 3, 0.0),
                              std::nextafter((high - low) / 3, 1.0)}) {
        int stepped = 0;
        for (double t = low; high >= t; t += step) {
            ++stepped;
        }
        Samples samples;
        EXPECT_EQ(getArcPoints({0, 5}, {-3, 4}, {-5, 0}, samples.list, 0.0, step), 0);
        EXPECT_EQ(samples.count(), stepped + 1);
        EXPECT_TRUE(samples.count() == 4 || samples.count() == 5);
        EXPECT_POINT_NEAR(samples.last(), -5.0, 0.0, 1e-12);
        EXPECT_POINT_NEAR(samples.at(2), -5 * std::sqrt(0.75), 2.5, 1e-12);
        counts.insert(samples.count());
    }
    EXPECT_EQ(counts, (std::set<int>{4, 5}));
}

TEST(GetArcPoints, AClockwiseArcComesBackCounterClockwise)
{
    Samples samples;
    EXPECT_EQ(getArcPoints({-1, 0}, {0, 1}, {1, 0}, samples.list, 0.0, 1.0), 0);
    ASSERT_EQ(samples.count(), 5); // whole part of pi, plus 2
    EXPECT_POINT_NEAR(samples.at(0), 1.0, 0.0, 1e-15);
    EXPECT_POINT_NEAR(samples.at(1), std::cos(1.0), std::sin(1.0), 1e-15);
    EXPECT_POINT_NEAR(samples.last(), -1.0, 0.0, 1e-15);
}

TEST(GetArcPoints, ASweepThroughTheAxisRaisesTheEnd)
{
    Samples samples;
    // From 270 by way of 360 to 90 degrees about (5, 5).
    EXPECT_EQ(getArcPoints({5, 3}, {7, 5}, {5, 7}, samples.list, 0.0, 0.0), 0);
    double const low = 270.0 * radians;
    double const high = 90.0 * radians + fullTurn;
    EXPECT_POINT(samples.at(0), 5 + 2 * std::cos(low), 5 + 2 * std::sin(low));
    EXPECT_POINT(samples.at(1), 5 + 2 * std::cos(low + fiveDegrees),
                 5 + 2 * std::sin(low + fiveDegrees));
    EXPECT_POINT(samples.last(), 5 + 2 * std::cos(high), 5 + 2 * std::sin(high));
    EXPECT_GE(samples.count(), 37);
    EXPECT_LE(samples.count(), 38);
}

TEST(GetArcPoints, EqualEndsHaveNoCentre)
{
    Samples samples;
    EXPECT_EQ(getArcPoints({1, 2}, {5, 7}, {1, 2}, samples.list, 0.0, 0.1), 1);
    EXPECT_EQ(samples.count(), 0);
}

TEST(GetArcPoints, NanGivesTheEndPointAlone)
{
    Samples samples;
    EXPECT_EQ(getArcPoints({nan64, 2}, {5, 7}, {1, 2}, samples.list, 0.0, 0.1), 0);
    ASSERT_EQ(samples.count(), 1);
    EXPECT_TRUE(std::isnan(samples.last().x()));
}

TEST(GetEllipseArcPoints, LowersTheStart)
{
    Samples samples;
    // From 350 to 10 degrees: start becomes -10.
    EXPECT_EQ(getEllipseArcPoints({1, 2}, {3, 0}, {0, 2}, 350, 10, samples.list, 0.1), 0);
    double const r = 360.0 * radians; // the direction of (3, 0)
    double const c = std::cos(r);
    double const s = std::sin(r);
    double t = 350 * radians - fullTurn;
    double const end = 10 * radians;
    int i = 0;
    for (; end >= t; t += 0.1, ++i) {
        EXPECT_POINT(samples.at(i), 1 + c * 3 * std::cos(t) - s * 2 * std::sin(t),
                     2 + s * 3 * std::cos(t) + c * 2 * std::sin(t));
    }
    EXPECT_EQ(i, 4);
    EXPECT_EQ(samples.count(), 5);
    EXPECT_POINT(samples.last(), 1 + c * 3 * std::cos(end) - s * 2 * std::sin(end),
                 2 + s * 3 * std::cos(end) + c * 2 * std::sin(end));
}

TEST(GetEllipseArcPoints, TheFirstAxisTurnsTheEllipseAndTheSecondGivesALength)
{
    Samples samples;
    EXPECT_EQ(getEllipseArcPoints({0, 0}, {0, 3}, {0, -2}, 0, 90, samples.list, 10.0), 0);
    ASSERT_EQ(samples.count(), 2);
    EXPECT_POINT_NEAR(samples.at(0), 0.0, 3.0, 1e-15);
    EXPECT_POINT_NEAR(samples.last(), -2.0, 0.0, 1e-15);
}

TEST(GetEllipseArcPoints, EqualAnglesGiveThePointTwice)
{
    Samples samples;
    EXPECT_EQ(getEllipseArcPoints({0, 0}, {3, 0}, {0, 2}, 30, 30, samples.list, 0.0), 0);
    ASSERT_EQ(samples.count(), 2);
    EXPECT_EQ(samples.at(0).x(), samples.last().x());
}

TEST(GetEllipsePoints, TheRotationTurnsAndTheAxesGiveLengths)
{
    Samples samples;
    EXPECT_EQ(getEllipsePoints({1, 1}, {0, -3}, {2, 0}, 90, samples.list, 0.0), 0);
    EXPECT_EQ(samples.count(), 73 + 1);
    EXPECT_POINT_NEAR(samples.at(0), 1.0, 4.0, 1e-15);
    EXPECT_POINT_NEAR(samples.at(18), -1.0, 1.0, 1e-14);
    EXPECT_POINT_NEAR(samples.last(), 1.0, 4.0, 1e-15);
}

TEST(GetEllipsePoints, AStepAboveAFullTurnGivesTheFirstAndTheClosingPoint)
{
    Samples samples;
    EXPECT_EQ(getEllipsePoints({1, 1}, {3, 0}, {0, 2}, 0, samples.list, 7.0), 0);
    ASSERT_EQ(samples.count(), 2);
    EXPECT_POINT(samples.at(0), 4.0, 1.0);
}

TEST(GetEllipsePoint, TheRotationStandsBeforeTheAngle)
{
    Point2D p;
    EXPECT_EQ(getEllipsePoint({1, 2}, 3.0, 2.0, p, 90.0, 0.0), 0);
    EXPECT_POINT_NEAR(p, 1.0, 5.0, 1e-15);
    EXPECT_EQ(getEllipsePoint({1, 2}, 3.0, 2.0, p, 0.0, 90.0), 0);
    EXPECT_POINT_NEAR(p, 1.0, 4.0, 1e-15);
}

TEST(GetEllipsePoint, OnlyTheLengthsOfTheAxesAreRead)
{
    Point2D p;
    Point2D q;
    EXPECT_EQ(getEllipsePoint({1, 2}, Point2D(0, -5), Point2D(3, 4), p, 30.0, 70.0), 0);
    EXPECT_EQ(getEllipsePoint({1, 2}, 5.0, 5.0, q, 30.0, 70.0), 0);
    EXPECT_POINT(p, q.x(), q.y());
}

rc::Gen<double> number(int low, int high)
{
    return rc::gen::map(rc::gen::inRange(low * 64, high * 64), [](int i) { return i / 64.0; });
}

RC_GTEST_PROP(GetArcPoints, SamplesLieOnTheCircleInOrderAndOnTheArc, ())
{
    Point2D const c(*number(-50, 50), *number(-50, 50));
    double const r = *number(1, 20);
    double const start = *number(0, 360) * radians;
    double const sweep = *number(20, 340) * radians;
    double const step = *number(1, 40) / 20.0;
    auto const at = [&](double t) {
        return Point2D(c.x() + r * std::cos(t), c.y() + r * std::sin(t));
    };
    bool const clockwise = *rc::gen::arbitrary<bool>();
    Point2D const p0 = at(start);
    Point2D const p1 = at(start + sweep / 2);
    Point2D const p2 = at(start + sweep);
    Samples samples;
    RC_ASSERT(getArcPoints(clockwise ? p2 : p0, p1, clockwise ? p0 : p2, samples.list, 0.0, step) ==
              0);
    int const whole = static_cast<int>(sweep / step);
    RC_ASSERT(std::abs(samples.count() - (whole + 2)) <= 1);
    for (int i = 0; i + 1 < samples.count(); ++i) {
        RC_ASSERT(std::fabs(distanceOf(samples.at(i), c) - r) < 1e-9);
        RC_ASSERT(distanceOf(samples.at(i), at(start + i * step)) < 1e-8);
    }
    RC_ASSERT(distanceOf(samples.last(), p2) < 1e-8);
}

RC_GTEST_PROP(GetEllipseArcPoints, SamplesSatisfyTheEllipse, ())
{
    Point2D const c(*number(-50, 50), *number(-50, 50));
    double const a = *number(1, 20);
    double const b = *number(1, 20);
    double const turn = *number(0, 360);
    Point2D const axisA(a * std::cos(turn * radians), a * std::sin(turn * radians));
    double const start = *number(0, 360);
    double const end = *number(0, 360);
    Samples samples;
    getEllipseArcPoints(c, axisA, {b, 0}, start, end, samples.list, *number(1, 40) / 20.0);
    RC_ASSERT(samples.count() >= 2);
    for (Point2D const *p : samples.list) {
        double const x = p->x() - c.x();
        double const y = p->y() - c.y();
        double const u = (x * axisA.x() + y * axisA.y()) / a / a;
        double const v = (y * axisA.x() - x * axisA.y()) / a / b;
        RC_ASSERT(std::fabs(u * u + v * v - 1.0) < 1e-9);
    }
}

} // namespace
