#include "exact/support/caseCount.h"
#include "support/Bits.h"

#include <OrvelExact/hull/convexHull2d.h>
#include <OrvelExact/predicates/orientation.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

using namespace orvelExact;

namespace {

bool isOnSegment(Point2 const &p, Point2 const &a, Point2 const &b)
{
    return orientation2d(a, b, p) == Sign::Zero && std::min(a.x(), b.x()) <= p.x() &&
           p.x() <= std::max(a.x(), b.x()) && std::min(a.y(), b.y()) <= p.y() &&
           p.y() <= std::max(a.y(), b.y());
}

/// Extreme by definition: in no segment and no triangle of other points, and the first of its
/// copies.
QVector<int> extremePoints(QVector<Point2> const &p)
{
    QVector<int> result;
    for (int i = 0; i < p.size(); ++i) {
        bool isExtreme = std::find(p.begin(), p.begin() + i, p.at(i)) == p.begin() + i;
        for (int a = 0; isExtreme && a < p.size(); ++a) {
            for (int b = a + 1; isExtreme && b < p.size(); ++b) {
                bool const isCorner = p.at(a) == p.at(i) || p.at(b) == p.at(i);
                isExtreme = isCorner || !isOnSegment(p.at(i), p.at(a), p.at(b));
                for (int c = b + 1; isExtreme && !isCorner && c < p.size(); ++c) {
                    Sign const s = orientation2d(p.at(a), p.at(b), p.at(c));
                    isExtreme = s == Sign::Zero || p.at(c) == p.at(i) ||
                                orientation2d(p.at(a), p.at(b), p.at(i)) != s ||
                                orientation2d(p.at(b), p.at(c), p.at(i)) != s ||
                                orientation2d(p.at(c), p.at(a), p.at(i)) != s;
                }
            }
        }
        if (isExtreme) {
            result.append(i);
        }
    }
    return result;
}

} // namespace

TEST(ConvexHull2d, HasTheExtremePointsByDefinition)
{
    std::mt19937_64 generator(3);
    std::normal_distribution<double> normal;
    for (int round = 0; round < 400; ++round) {
        QVector<Point2> points;
        double const unit = round % 3 == 0 ? 1.0 : round % 3 == 1 ? 0.1 : 1e-9;
        for (int i = 0; i < 1 + round % 25; ++i) {
            points.append({unit * std::round(1.5 * normal(generator)),
                           unit * std::round(1.5 * normal(generator))});
            if (round % 2 == 1) {
                points.last().x() += 1e-16 * normal(generator);
            }
        }
        ConvexPolygon const hull = convexHull2d(points);
        QVector<int> corners = hull.corners;
        std::sort(corners.begin(), corners.end());
        ASSERT_EQ(extremePoints(points), corners) << round;
        ASSERT_EQ(std::min(2, hull.corners.size() - 1), hull.dimension);
        for (int i = 0; hull.dimension == 2 && i < hull.corners.size(); ++i) {
            int const n = hull.corners.size();
            ASSERT_EQ(Sign::Positive, orientation2d(points.at(hull.corners.at(i)),
                                                    points.at(hull.corners.at((i + 1) % n)),
                                                    points.at(hull.corners.at((i + 2) % n))));
        }
    }
}

TEST(ConvexHull2d, HoldsAllPointsOfLargeSets)
{
    std::mt19937_64 generator(4);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    for (bool const isCircle : {false, true}) {
        QVector<Point2> points;
        while (points.size() < 20000) {
            Point2 p(uniform(generator), uniform(generator));
            points.append(isCircle ? p / p.length() : p);
        }
        ConvexPolygon const hull = convexHull2d(points);
        ASSERT_EQ(2, hull.dimension);
        if (isCircle) {
            EXPECT_GT(hull.corners.size(), 19900);
        }
        for (int i = 0; i < std::min(200, hull.corners.size()); ++i) {
            Point2 const a = points.at(hull.corners.at(i));
            Point2 const b = points.at(hull.corners.at((i + 1) % hull.corners.size()));
            for (Point2 const &p : points) {
                ASSERT_NE(Sign::Negative, orientation2d(a, b, p));
            }
        }
    }
}

TEST(ConvexHull2d, BeginsAtTheSmallestPointAndTurnsLeft)
{
    ConvexPolygon const hull = convexHull2d({{1, 1}, {0, 1}, {1, 0}, {0, 0}, {0.5, 0}, {0, 0}});
    EXPECT_EQ(Status::Ok, hull.status);
    EXPECT_EQ(QVector<int>({3, 2, 0, 1}), hull.corners);
}

TEST(ConvexHull2d, KeepsACornerThatIsOneStepOffALine)
{
    ConvexPolygon const hull =
        convexHull2d({{0, 0}, {1, std::nextafter(1.0, 0.0)}, {2, 2}, {0, 2}});
    EXPECT_EQ(QVector<int>({0, 1, 2, 3}), hull.corners);
    EXPECT_EQ(QVector<int>({0, 2, 3}), convexHull2d({{0, 0}, {1, 1}, {2, 2}, {0, 2}}).corners);
}

TEST(ConvexHull2d, TellsFlatAndRefusedInput)
{
    EXPECT_EQ(Status::Empty, convexHull2d({}).status);
    EXPECT_EQ(-1, convexHull2d({}).dimension);
    EXPECT_EQ(0, convexHull2d({{2, 3}, {2, 3}}).dimension);
    EXPECT_EQ(QVector<int>({0}), convexHull2d({{0.0, -0.0}, {-0.0, 0.0}}).corners);
    ConvexPolygon const line = convexHull2d({{1, 1}, {3, 3}, {0, 0}, {2, 2}, {3, 3}});
    EXPECT_EQ(1, line.dimension);
    EXPECT_EQ(QVector<int>({2, 1}), line.corners);
    for (double const bad : {support::nan, support::inf}) {
        ConvexPolygon const refused = convexHull2d({{0, 0}, {1, 0}, {0, bad}});
        EXPECT_EQ(Status::NotFinite, refused.status);
        EXPECT_EQ(-1, refused.dimension);
        EXPECT_TRUE(refused.corners.isEmpty());
    }
}
