#include "PlaneFixtures.h"

#include <OrvelMath/geom2d/Math2D.h>

#include <rapidcheck/gtest.h>

#include <algorithm>
#include <random>

namespace {

/// A segment that `clipline` moves in place.
struct Segment
{
    double x1, y1, x2, y2;

    bool clip(double xmin, double ymin, double xmax, double ymax)
    {
        return clipline(xmin, ymin, xmax, ymax, x1, y1, x2, y2);
    }
};

void expectSegment(Segment const &s, double x1, double y1, double x2, double y2)
{
    EXPECT_EQ(s.x1, x1);
    EXPECT_EQ(s.y1, y1);
    EXPECT_EQ(s.x2, x2);
    EXPECT_EQ(s.y2, y2);
}

TEST(Clipline, LeavesWhatIsInsideAlone)
{
    Segment s{1, 2, 8, 9};
    EXPECT_TRUE(s.clip(0, 0, 10, 10));
    expectSegment(s, 1, 2, 8, 9);
    Segment border{0, 0, 10, 10};
    EXPECT_TRUE(border.clip(0, 0, 10, 10));
    expectSegment(border, 0, 0, 10, 10);
}

TEST(Clipline, RefusesAtOnceWhatLiesBesideABorder)
{
    for (Segment const given : {Segment{-1, 5, -2, 6}, Segment{11, 5, 12, 6}, Segment{5, -1, 6, -2},
                                Segment{5, 11, 6, 12}}) {
        Segment s = given;
        EXPECT_FALSE(s.clip(0, 0, 10, 10));
        expectSegment(s, given.x1, given.y1, given.x2, given.y2);
    }
}

TEST(Clipline, MovesEachEndToItsBorder)
{
    Segment level{-5, 5, 15, 5};
    EXPECT_TRUE(level.clip(0, 0, 10, 10));
    expectSegment(level, 0, 5, 10, 5);
    Segment upright{5, 25, 5, -15};
    EXPECT_TRUE(upright.clip(0, 0, 10, 10));
    expectSegment(upright, 5, 10, 5, 0);
    Segment diagonal{-10, -20, 15, 30};
    EXPECT_TRUE(diagonal.clip(0, 0, 10, 10));
    expectSegment(diagonal, 0, 0, 5, 10);
}

TEST(Clipline, MovesInXAndYInOnePass)
{
    // The first move reaches (0, 3), which is inside; the second one, from the same outcode, leaves
    // again to (-7.5, 0), and the next pass comes back.
    Segment s{-10, -1, 5, 5};
    EXPECT_TRUE(s.clip(0, 0, 10, 10));
    double const y = -1 + (0.0 - -10) * 6 / 15;
    double const x = 0 + (0 - y) * 15 / 6;
    expectSegment(s, 0, 0 + (0 - x) * 6 / 15, 5, 5);
}

TEST(Clipline, RefusalMayHaveMovedAnEnd)
{
    Segment s{-1, 9, 1, 12};
    EXPECT_FALSE(s.clip(0, 0, 10, 10));
    expectSegment(s, 0, 10.5, 1, 12);
}

TEST(Clipline, ADegenerateSegmentIsAPoint)
{
    Segment inside{3, 3, 3, 3};
    EXPECT_TRUE(inside.clip(0, 0, 10, 10));
    Segment outside{13, 3, 13, 3};
    EXPECT_FALSE(outside.clip(0, 0, 10, 10));
}

TEST(Clipline, NanCountsAsInsideAndInfinityEnds)
{
    Segment s{nan64, 3, 5, 5};
    EXPECT_TRUE(s.clip(0, 0, 10, 10));
    for (double const x1 : {-inf, inf, -1e308, 1e308, 5.0}) {
        for (double const y1 : {-inf, inf, -1e308, 1e308, 5.0}) {
            Segment one{x1, y1, 5, 5};
            one.clip(0, 0, 10, 10);
            Segment two{x1, y1, -y1, x1};
            two.clip(0, 0, 10, 10);
            SUCCEED();
        }
    }
}

TEST(Clipline, ExchangedBordersEndAndKeepNothingOutside)
{
    double const numbers[] = {nan64, -inf, inf, 1e300, -20, -5, 0, 5, 20};
    for (double const x1 : numbers) {
        for (double const y1 : numbers) {
            for (double const x2 : numbers) {
                Segment x{x1, y1, x2, 3};
                Segment y{x1, y1, 3, x2};
                bool const keptInX = x.clip(10, 0, 0, 10);
                bool const keptInY = y.clip(0, 10, 10, 0);
                // Only what is no number is not outside.
                EXPECT_TRUE(!keptInX || (std::isnan(x.x1) && std::isnan(x.x2)));
                EXPECT_TRUE(!keptInY || (std::isnan(y.y1) && std::isnan(y.y2)));
            }
        }
    }
    Segment s{20, -5, -20, 15};
    EXPECT_FALSE(s.clip(10, 10, 0, 0));
}

TEST(Clipline, ASegmentThatEndsInACornerDoesNotGoToAndFroForEver)
{
    std::mt19937_64 random(4);
    std::uniform_real_distribution<double> around(-20.0, 20.0);
    std::uniform_real_distribution<double> size(0.1, 9.0);
    for (int i = 0; i < 20000; ++i) {
        double const xmin = around(random);
        double const ymin = around(random);
        double const xmax = xmin + size(random);
        double const ymax = ymin + size(random);
        double const cornerX = random() % 2 == 0 ? xmin : xmax;
        double const cornerY = random() % 2 == 0 ? ymin : ymax;
        Segment s{around(random), around(random), cornerX, cornerY};
        bool const kept = s.clip(xmin, ymin, xmax, ymax);
        // The corner itself is inside, and whatever is kept is in the rectangle.
        if (kept) {
            ASSERT_TRUE(xmin <= s.x1 && s.x1 <= xmax && ymin <= s.y1 && s.y1 <= ymax);
            ASSERT_TRUE(xmin <= s.x2 && s.x2 <= xmax && ymin <= s.y2 && s.y2 <= ymax);
        }
    }
}

rc::Gen<int> small()
{
    return rc::gen::inRange(-20, 21);
}

RC_GTEST_PROP(Clipline, KeepsWhatIsInTheRectangleAndOnTheLine, ())
{
    int const xmin = *small();
    int const ymin = *small();
    int const xmax = xmin + *rc::gen::inRange(1, 20);
    int const ymax = ymin + *rc::gen::inRange(1, 20);
    int const x1 = *small();
    int const y1 = *small();
    int const x2 = *small();
    int const y2 = *small();
    auto const side = [&](int x, int y) { return (x2 - x1) * (y - y1) - (y2 - y1) * (x - x1); };
    int const sides[4] = {side(xmin, ymin), side(xmax, ymin), side(xmax, ymax), side(xmin, ymax)};
    int const low = *std::min_element(sides, sides + 4);
    int const high = *std::max_element(sides, sides + 4);
    bool const boxesMeet = std::max(x1, x2) >= xmin && std::min(x1, x2) <= xmax &&
                           std::max(y1, y2) >= ymin && std::min(y1, y2) <= ymax;
    bool const grazes = low == 0 || high == 0;

    Segment s{double(x1), double(y1), double(x2), double(y2)};
    bool const kept = s.clip(xmin, ymin, xmax, ymax);
    if (!grazes) {
        RC_ASSERT(kept == (boxesMeet && low < 0 && high > 0));
    }
    if (!kept) {
        return;
    }
    double const length = std::hypot(x2 - x1, y2 - y1);
    for (Point2D const &p : {Point2D(s.x1, s.y1), Point2D(s.x2, s.y2)}) {
        RC_ASSERT(xmin <= p.x() && p.x() <= xmax && ymin <= p.y() && p.y() <= ymax);
        double const off = (x2 - x1) * (p.y() - y1) - (y2 - y1) * (p.x() - x1);
        RC_ASSERT(std::fabs(off) <= 1e-12 * (1 + length) * (1 + length));
        RC_ASSERT(p.x() >= std::min(x1, x2) - 1e-12 && p.x() <= std::max(x1, x2) + 1e-12);
        RC_ASSERT(p.y() >= std::min(y1, y2) - 1e-12 && p.y() <= std::max(y1, y2) + 1e-12);
    }
}

} // namespace
