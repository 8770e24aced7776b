#include "polygons.h"

#include "exact/support/WholePoints.h"
#include "support/Bits.h"

#include <OrvelExact/polygon/polygonMeasures.h>

#include <gtest/gtest.h>

using namespace orvelExact;

namespace {

/// Twice the area in whole units of 2^-200, for coordinates that are multiples of 2^-100.
boost::multiprecision::cpp_int wholeDoubledArea(QVector<Point2> const &polygon)
{
    using Whole = boost::multiprecision::cpp_int;
    Whole sum = 0;
    for (int i = 0; i < polygon.size(); ++i) {
        Point2 const &a = polygon.at(i);
        Point2 const &b = polygon.at((i + 1) % polygon.size());
        sum += support::wholeOf<Whole>(a.x(), -100) * support::wholeOf<Whole>(b.y(), -100) -
               support::wholeOf<Whole>(a.y(), -100) * support::wholeOf<Whole>(b.x(), -100);
    }
    return sum;
}

} // namespace

TEST(PolygonArea, IsThatOfWholeNumbersRounded)
{
    for (unsigned seed = 1; seed <= 200; ++seed) {
        QVector<Point2> polygon = polygons::star(3 + static_cast<int>(seed), seed);
        double const offset = seed % 3 == 0 ? 0.0 : std::pow(10.0, seed % 10);
        for (Point2 &p : polygon) {
            p += Point2(offset, -offset);
        }
        double const expected = std::ldexp(static_cast<double>(wholeDoubledArea(polygon)), -201);
        ASSERT_NEAR(expected, polygonArea(polygon).value,
                    std::ldexp(expected, -52) +
                        polygon.size() * std::ldexp((1 + offset) * (1 + offset), -102))
            << seed;
    }
}

TEST(PolygonArea, IsPositiveCounterClockwise)
{
    QVector<Point2> const square = {{0, 0}, {2, 0}, {2, 2}, {0, 2}};
    EXPECT_EQ(4.0, polygonArea(square).value);
    EXPECT_EQ(-4.0, polygonArea(polygons::reversed(square)).value);
    EXPECT_EQ(0.0, polygonArea({{0, 0}, {2, 2}, {2, 0}, {0, 2}}).value);
    EXPECT_EQ(0.0, polygonArea({{0, 0}, {2, 2}}).value);
    EXPECT_EQ(Status::Ok, polygonArea({}).status);
}

TEST(PolygonArea, RefusesWhatItCannotHold)
{
    EXPECT_EQ(Status::NotFinite, polygonArea({{0, 0}, {1, 0}, {0, support::nan}}).status);
    EXPECT_EQ(Status::NotFinite, polygonArea({{0, 0}, {support::inf, 0}, {0, 1}}).status);
    EXPECT_EQ(Status::OutOfRange, polygonArea({{0, 0}, {1e200, 0}, {0, 1e200}}).status);
}

TEST(PolygonSense, IsExactForASliver)
{
    double const up = std::nextafter(1.0, 2.0);
    EXPECT_EQ(Sign::Positive, polygonSense({{0, 0}, {1, 1}, {2, 2 * up}}));
    EXPECT_EQ(Sign::Negative, polygonSense({{0, 0}, {1, up}, {2, 2}}));
    EXPECT_EQ(Sign::Zero, polygonSense({{0, 0}, {1, 1}, {2, 2}}));
    EXPECT_EQ(Sign::Zero, polygonSense({{0, 0}, {1, 1}}));
    EXPECT_EQ(Sign::NotFinite, polygonSense({{0, 0}, {1, 1}, {2, support::nan}}));
    for (unsigned seed = 1; seed < 50; ++seed) {
        QVector<Point2> polygon = polygons::star(40, seed);
        polygon.insert(7, polygon.at(7));
        EXPECT_EQ(Sign::Positive, polygonSense(polygon));
        EXPECT_EQ(Sign::Negative, polygonSense(polygons::reversed(polygon)));
    }
}

TEST(PolygonCentroid, IsTheCentreOfTheArea)
{
    PolygonCentroid const square =
        polygonCentroid({{1e8, 1}, {1e8 + 2, 1}, {1e8 + 2, 3}, {1e8, 3}});
    EXPECT_EQ(Point2(1e8 + 1, 2), square.point);
    // An L of three unit squares.
    PolygonCentroid const corner =
        polygonCentroid({{0, 0}, {2, 0}, {2, 1}, {1, 1}, {1, 2}, {0, 2}});
    EXPECT_NEAR(2.5 / 3, corner.point.x(), 1e-15);
    EXPECT_NEAR(2.5 / 3, corner.point.y(), 1e-15);
    PolygonCentroid const tiny = polygonCentroid({{0, 0}, {3e-140, 0}, {0, 3e-140}});
    EXPECT_NEAR(1e-140, tiny.point.x(), 1e-155);
    EXPECT_EQ(Status::Degenerate, polygonCentroid({{0, 0}, {1, 1}, {2, 2}}).status);
    EXPECT_EQ(Status::NotFinite, polygonCentroid({{0, 0}, {1, support::inf}, {2, 2}}).status);
}

TEST(PolygonBox, IsExact)
{
    PolygonBox const box = polygonBox({{3, -1}, {0.1, 7}, {2, 2}});
    EXPECT_EQ(Point2(0.1, -1), box.box.minimum);
    EXPECT_EQ(Point2(3, 7), box.box.maximum);
    EXPECT_EQ(Status::Empty, polygonBox({}).status);
    EXPECT_EQ(Status::NotFinite, polygonBox({{0, support::nan}}).status);
}
