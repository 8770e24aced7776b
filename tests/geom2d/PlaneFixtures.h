#pragma once

/// @file
/// Values and comparisons that the tests of the plane share.

#include <OrvelCore/runtime/PPtrOrderedVector.h>
#include <OrvelMath/base/Point2D.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>
#include <vector>

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double nan64 = std::numeric_limits<double>::quiet_NaN();
constexpr double pi = 3.141592653589793;

/// An output that no function under test produces.
constexpr double untouched = -12345.5;

inline Point2D untouchedPoint()
{
    return Point2D(untouched, untouched);
}

inline double distanceOf(Point2D const &p, Point2D const &q)
{
    return std::sqrt((p.x() - q.x()) * (p.x() - q.x()) + (p.y() - q.y()) * (p.y() - q.y()));
}

inline void PrintTo(Point2D const &p, std::ostream *os)
{
    *os << '(' << p.x() << ", " << p.y() << ')';
}

/// Points with exactly these members.
#define EXPECT_POINT(p, px, py)                                                                    \
    do {                                                                                           \
        EXPECT_EQ((p).x(), px);                                                                    \
        EXPECT_EQ((p).y(), py);                                                                    \
    } while (false)

#define EXPECT_POINT_NEAR(p, px, py, tol)                                                          \
    do {                                                                                           \
        EXPECT_NEAR((p).x(), px, tol);                                                             \
        EXPECT_NEAR((p).y(), py, tol);                                                             \
    } while (false)

/// A polygon as both point-in-polygon tests want it.
class Polygon
{
public:
    Polygon(std::vector<Point2D> points)
        : m_points(std::move(points))
    {
        for (Point2D &p : m_points) {
            m_pointers.append(&p);
        }
    }
    Polygon(Polygon const &) = delete;
    Polygon &operator=(Polygon const &) = delete;

    PPtrOrderedVector<Point2D> const &pointers() const { return m_pointers; }
    Point2D *data() { return m_points.data(); }
    int count() const { return static_cast<int>(m_points.size()); }
    std::vector<Point2D> const &points() const { return m_points; }

private:
    std::vector<Point2D> m_points;
    PPtrOrderedVector<Point2D> m_pointers;
};
