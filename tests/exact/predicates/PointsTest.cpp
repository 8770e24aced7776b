#include "support/Bits.h"

#include <OrvelExact/base/points.h>

#include <gtest/gtest.h>

using namespace orvelExact;

TEST(PointsAreFinite, UnlessOneComponentIsNot)
{
    EXPECT_TRUE(areFinite(QVector<Point2>()));
    EXPECT_TRUE(areFinite(QVector<Point2>{{1e308, -1e308}}));
    EXPECT_FALSE(areFinite(QVector<Point2>{{0, 0}, {0, support::nan}}));
    EXPECT_FALSE(areFinite(QVector<Point2>{{-support::inf, 0}, {0, 0}}));
    EXPECT_TRUE(areFinite(QVector<Point3>{{5e-324, 0, -0.0}}));
    EXPECT_FALSE(areFinite(QVector<Point3>{{0, 0, support::inf}, {1, 2, 3}}));
}

TEST(PointsOfTheOtherTypes, GoOverUnchanged)
{
    EXPECT_EQ(Point2(1.5, -2), toPoint(Point2D(1.5, -2)));
    EXPECT_EQ(Point3(1.5, -2, 7), toPoint(Point3D(1.5, -2, 7)));
}
