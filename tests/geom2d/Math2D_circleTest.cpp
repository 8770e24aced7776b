#include "PlaneFixtures.h"

#include <OrvelMath/geom2d/Math2D.h>

#include <rapidcheck/gtest.h>

namespace {

/// The cut of a line with a circle, every step stored in a type of choice.
template <typename Real>
struct Cut
{
    Cut(float a1, float b1, float a2, float b2, float a3, float b3, float radius)
    {
        volatile Real const x1 = a1, y1 = b1, x2 = a2, y2 = b2, cx = a3, cy = b3, r = radius;
        volatile Real const dx = x2 - x1, dy = y2 - y1;
        volatile Real const dxx = dx * dx, dyy = dy * dy, a = dxx + dyy;
        volatile Real const ex = x1 - cx, ey = y1 - cy, hx = ex * dx, hy = ey * dy, h = hx + hy;
        volatile Real const b = h + h, gx = x1 * cx, gy = y1 * cy, g = gx + gy, gg = g + g;
        volatile Real const c1 = cx * cx, c2 = cy * cy, c3 = x1 * x1, c4 = y1 * y1, c5 = r * r;
        volatile Real c = c1 + c2;
        c = c + c3;
        c = c + c4;
        c = c - gg;
        c = c - c5;
        volatile Real const a4 = 4 * a, bb = b * b, ca4 = c * a4, d = bb - ca4;
        discriminant = d;
        if (d < 0) {
            return;
        }
        count = 2;
        volatile Real const aa = a + a;
        double const volatile s = std::sqrt(static_cast<double>(d)), w = aa, wide = b;
        double const volatile n1 = s - wide, n2 = -wide - s, q1 = n1 / w, q2 = n2 / w;
        volatile Real const t1 = static_cast<Real>(q1), t2 = static_cast<Real>(q2);
        volatile Real const ux = t1 * dx, uy = t1 * dy, vx = t2 * dx, vy = t2 * dy;
        ox1 = x1 + ux;
        oy1 = y1 + uy;
        ox2 = x1 + vx;
        oy2 = y1 + vy;
    }

    int count = 0;
    Real discriminant = 0, ox1 = 0, oy1 = 0, ox2 = 0, oy2 = 0;
};

TEST(CircleLineIntersect, GivesBothPointsFurtherOneFirst)
{
    float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    EXPECT_EQ(circleLineIntersect(-5, 0, 5, 0, 0, 0, 2, x1, y1, x2, y2), 2);
    EXPECT_EQ(x1, 2.0f);
    EXPECT_EQ(y1, 0.0f);
    EXPECT_EQ(x2, -2.0f);
    EXPECT_EQ(y2, 0.0f);
    // A line is cut and not the segment.
    EXPECT_EQ(circleLineIntersect(10, 1, 11, 1, 0, 1, 2, x1, y1, x2, y2), 2);
    EXPECT_EQ(x1, 2.0f);
    EXPECT_EQ(x2, -2.0f);
}

TEST(CircleLineIntersect, ATangentGivesTheSamePointTwice)
{
    float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    EXPECT_EQ(circleLineIntersect(-4, 2, 4, 2, 0, 0, 2, x1, y1, x2, y2), 2);
    EXPECT_EQ(x1, 0.0f);
    EXPECT_EQ(y1, 2.0f);
    EXPECT_EQ(x2, 0.0f);
    EXPECT_EQ(y2, 2.0f);
}

TEST(CircleLineIntersect, AMissLeavesTheOutputsAlone)
{
    float x1 = 1, y1 = 2, x2 = 3, y2 = 4;
    EXPECT_EQ(circleLineIntersect(-4, 3, 4, 3, 0, 0, 2, x1, y1, x2, y2), 0);
    EXPECT_EQ(x1, 1.0f);
    EXPECT_EQ(y1, 2.0f);
    EXPECT_EQ(x2, 3.0f);
    EXPECT_EQ(y2, 4.0f);
}

TEST(CircleLineIntersect, EqualPointsGiveNanOrInfinity)
{
    float x1 = 1, y1 = 2, x2 = 3, y2 = 4;
    EXPECT_EQ(circleLineIntersect(1, 1, 1, 1, 0, 0, 2, x1, y1, x2, y2), 2);
    EXPECT_TRUE(std::isnan(x1));
    EXPECT_EQ(circleLineIntersect(std::nanf(""), 1, 1, 1, 0, 0, 2, x1, y1, x2, y2), 2);
    EXPECT_TRUE(std::isnan(x2));
}

TEST(CircleLineIntersect, DecidesInSinglePrecision)
{
    float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    // Found in single precision, missed in double precision.
    Cut<float> const found(2.0f, 9.72500038f, 3.625f, 9.72500038f, 6.125f, 2.625f, 7.0999999f);
    Cut<double> const missedInDouble(2.0f, 9.72500038f, 3.625f, 9.72500038f, 6.125f, 2.625f,
                                     7.0999999f);
    EXPECT_GT(found.discriminant, 0.0f);
    EXPECT_LT(missedInDouble.discriminant, 0.0);
    EXPECT_EQ(circleLineIntersect(2.0f, 9.72500038f, 3.625f, 9.72500038f, 6.125f, 2.625f,
                                  7.0999999f, x1, y1, x2, y2),
              2);
    EXPECT_EQ(x1, found.ox1);
    EXPECT_EQ(x2, found.ox2);
    // Missed in single precision, a tangent in double precision.
    Cut<double> const tangent(5.25f, 14.1750002f, 10.875f, 14.1750002f, 3.5f, 6.875f, 7.30000019f);
    EXPECT_EQ(tangent.count, 2);
    EXPECT_EQ(circleLineIntersect(5.25f, 14.1750002f, 10.875f, 14.1750002f, 3.5f, 6.875f,
                                  7.30000019f, x1, y1, x2, y2),
              0);
}

RC_GTEST_PROP(CircleLineIntersect, RoundsEveryStepToSinglePrecision, ())
{
    auto const number = [] { return static_cast<float>(*rc::gen::inRange(-9999, 9999)) / 37.0f; };
    float const x1 = number(), y1 = number(), x2 = number(), y2 = number();
    float const cx = number(), cy = number(), r = std::fabs(number()) * 2;
    Cut<float> const twin(x1, y1, x2, y2, cx, cy, r);
    float ox1 = 0, oy1 = 0, ox2 = 0, oy2 = 0;
    int const count = circleLineIntersect(x1, y1, x2, y2, cx, cy, r, ox1, oy1, ox2, oy2);
    RC_ASSERT(count == twin.count);
    RC_PRE(count == 2 && (x1 != x2 || y1 != y2));
    RC_ASSERT(ox1 == twin.ox1);
    RC_ASSERT(oy1 == twin.oy1);
    RC_ASSERT(ox2 == twin.ox2);
    RC_ASSERT(oy2 == twin.oy2);
}

TEST(CircleLineIntersectOfPoints, RoundsEachCoordinateAndWidensTheResult)
{
    Point2D o1;
    Point2D o2;
    EXPECT_EQ(
        circleLineIntersect(Point2D(-5.1, 0.1), Point2D(5.3, 0.7), Point2D(0.3, 0.2), 2.1f, o1, o2),
        2);
    Cut<float> const twin(-5.1f, 0.1f, 5.3f, 0.7f, 0.3f, 0.2f, 2.1f);
    EXPECT_POINT(o1, static_cast<double>(twin.ox1), static_cast<double>(twin.oy1));
    EXPECT_POINT(o2, static_cast<double>(twin.ox2), static_cast<double>(twin.oy2));
}

TEST(CircleLineIntersectOfPoints, OverwritesTheOutputsEvenAfterAMiss)
{
    Point2D o1 = untouchedPoint();
    Point2D o2 = untouchedPoint();
    EXPECT_EQ(circleLineIntersect(Point2D(-4, 3), Point2D(4, 3), Point2D(0, 0), 2.0f, o1, o2), 0);
    EXPECT_NE(o1.x(), untouched);
    EXPECT_NE(o2.y(), untouched);
}

} // namespace
