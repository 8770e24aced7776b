#pragma once

/// @file
/// Points of the plane of the first generation, in two precisions, and directions in degrees. NaN
/// and infinity run through the arithmetic; every operation takes constant time.

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/classAllocation.h>
#include <OrvelMath/base/vectorC.h>

#include <cmath>

/// A point or a vector of the plane, two doubles, model units. A plain value: a copy shares
/// nothing.
///
/// The comparison operators give 0 or 1. `<` and `>` order by x within a band of 1e-4 model units
/// and then by y; the band makes them no strict weak ordering, so sort by other means where one is
/// needed. A comparison that comes to a NaN gives 0, but `!=` gives 1.
///
/// @see vectorC2d, of the second generation, which has no guard in its divisions
class Point2D
{
public:
    /// The origin.
    Point2D()
        : m_v{0.0, 0.0}
    {
    }
    Point2D(double x, double y)
        : m_v{x, y}
    {
    }
    /// From two consecutive values, x first.
    Point2D(double const *xy)
        : m_v{xy[0], xy[1]}
    {
    }
    Point2D(Point2D const &) = default;
    Point2D(vectorC2d<double> const &v)
        : m_v{v.x(), v.y()}
    {
    }
    Point2D &operator=(Point2D const &) = default;
    Point2D &operator=(vectorC2d<double> const &v) { return *this = Point2D(v); }

    double &x() { return m_v[0]; }
    double &y() { return m_v[1]; }
    double const &x() const { return m_v[0]; }
    double const &y() const { return m_v[1]; }
    void x(double value) { m_v[0] = value; }
    void y(double value) { m_v[1] = value; }
    /// Index 0 gives x, any other index y.
    double operator[](int i) const { return i == 0 ? m_v[0] : m_v[1]; }
    double &operator[](int i) { return i == 0 ? m_v[0] : m_v[1]; }

    /// Exact, without tolerance.
    int operator==(Point2D const &o) const { return m_v[0] == o.m_v[0] && m_v[1] == o.m_v[1]; }
    int operator!=(Point2D const &o) const { return !(*this == o); }
    /// By x when the difference is not below 1e-4 model units, otherwise by exact y.
    int operator<(Point2D const &o) const
    {
        return sharesColumn(o) ? o.m_v[1] > m_v[1] : o.m_v[0] > m_v[0];
    }
    int operator>(Point2D const &o) const
    {
        return sharesColumn(o) ? m_v[1] > o.m_v[1] : m_v[0] > o.m_v[0];
    }

    /// Both members 1e300: a large finite value to start a search for the smallest from.
    void PlusInf() { m_v[0] = m_v[1] = 1e300; }
    void PlusInfinity() { PlusInf(); }
    /// Both members -1e300.
    void MinusInf() { m_v[0] = m_v[1] = -1e300; }
    void MinusInfinity() { MinusInf(); }

    double Length() const { return std::sqrt(Length2()); }
    /// Squared length.
    double Length2() const { return m_v[0] * m_v[0] + m_v[1] * m_v[1]; }
    /// The vector of length 1, or (0, 0) when the length is not above 1e-100. The object itself
    /// stays as it is.
    Point2D Normalize()
    {
        double const length = Length();
        if (!(std::fabs(length) > 1e-100)) { // a length
            return {0.0, 0.0};
        }
        return {m_v[0] / length, m_v[1] / length};
    }
    /// The vector turned a quarter to the left: (-y, x).
    Point2D Normale() const { return {-m_v[1], m_v[0]}; }
    Point2D Scale(double sx, double sy) const { return {m_v[0] * sx, m_v[1] * sy}; }
    Point2D Scale(double s) const { return {m_v[0] * s, m_v[1] * s}; }
    /// Sets each member to 0 whose size is below `tolerance`, strictly.
    void Correct(double tolerance)
    {
        if (tolerance > std::fabs(m_v[0])) {
            m_v[0] = 0.0;
        }
        if (tolerance > std::fabs(m_v[1])) {
            m_v[1] = 0.0;
        }
    }

    /// Both signs flipped, so that 0 becomes -0.
    Point2D operator-() const { return {-m_v[0], -m_v[1]}; }
    void operator+=(Point2D const &o)
    {
        m_v[0] += o.m_v[0];
        m_v[1] += o.m_v[1];
    }
    void operator-=(Point2D const &o)
    {
        m_v[0] -= o.m_v[0];
        m_v[1] -= o.m_v[1];
    }
    void operator*=(double s)
    {
        m_v[0] *= s;
        m_v[1] *= s;
    }
    /// No guard against a zero divisor.
    void operator/=(double s)
    {
        m_v[0] /= s;
        m_v[1] /= s;
    }

    ORVELMATH_CLASS_ALLOCATION

private:
    bool sharesColumn(Point2D const &o) const
    {
        return std::fabs(o.m_v[0] - m_v[0]) < 1e-4; // a difference of x
    }

    double m_v[2];
};

inline Point2D operator+(Point2D const &a, Point2D const &b)
{
    return {a.x() + b.x(), a.y() + b.y()};
}
inline Point2D operator-(Point2D const &a, Point2D const &b)
{
    return {a.x() - b.x(), a.y() - b.y()};
}
/// No guard against a zero divisor, where Point3D has one.
inline Point2D operator/(Point2D const &a, double s)
{
    return {a.x() / s, a.y() / s};
}

/// The single-precision twin of Point2D: the same members on two floats.
class Point2Df
{
public:
    /// The origin.
    Point2Df()
        : m_v{0.0f, 0.0f}
    {
    }
    Point2Df(float x, float y)
        : m_v{x, y}
    {
    }
    Point2Df(Point2Df const &) = default;
    /// Narrows each member.
    Point2Df(Point2D const &p)
        : m_v{static_cast<float>(p.x()), static_cast<float>(p.y())}
    {
    }
    Point2Df(vectorC2d<double> const &v)
        : m_v{static_cast<float>(v.x()), static_cast<float>(v.y())}
    {
    }
    Point2Df &operator=(Point2Df const &) = default;
    Point2Df &operator=(Point2D const &p) { return *this = Point2Df(p); }
    Point2Df &operator=(vectorC2d<double> const &v) { return *this = Point2Df(v); }

    float &x() { return m_v[0]; }
    float &y() { return m_v[1]; }
    float const &x() const { return m_v[0]; }
    float const &y() const { return m_v[1]; }
    void x(float value) { m_v[0] = value; }
    void y(float value) { m_v[1] = value; }
    /// Index 0 gives x, any other index y.
    float operator[](int i) const { return i == 0 ? m_v[0] : m_v[1]; }
    float &operator[](int i) { return i == 0 ? m_v[0] : m_v[1]; }

    /// Exact, without tolerance.
    int operator==(Point2Df const &o) const { return m_v[0] == o.m_v[0] && m_v[1] == o.m_v[1]; }
    int operator!=(Point2Df const &o) const { return !(*this == o); }
    /// By x when the difference is not below 1e-4 model units, otherwise by exact y.
    int operator<(Point2Df const &o) const
    {
        return sharesColumn(o) ? o.m_v[1] > m_v[1] : o.m_v[0] > m_v[0];
    }
    int operator>(Point2Df const &o) const
    {
        return sharesColumn(o) ? m_v[1] > o.m_v[1] : m_v[0] > o.m_v[0];
    }

    /// Both members 1e38.
    void PlusInf() { m_v[0] = m_v[1] = 1e38f; }
    void PlusInfinity() { PlusInf(); }
    /// Both members -1e38.
    void MinusInf() { m_v[0] = m_v[1] = -1e38f; }
    void MinusInfinity() { MinusInf(); }

    /// The sum of squares is formed in float, the root in double.
    float Length() const { return static_cast<float>(std::sqrt(static_cast<double>(Length2()))); }
    /// Squared length.
    float Length2() const { return m_v[0] * m_v[0] + m_v[1] * m_v[1]; }
    /// The vector of length 1, or (0, 0) for a length of 0. The object itself stays as it is.
    Point2Df Normalize()
    {
        float const length = Length();
        if (!(std::fabs(static_cast<double>(length)) > 1e-100)) { // a length
            return {0.0f, 0.0f};
        }
        return {m_v[0] / length, m_v[1] / length};
    }
    /// The vector turned a quarter to the left: (-y, x).
    Point2Df Normale() const { return {-m_v[1], m_v[0]}; }
    Point2Df Scale(float sx, float sy) const { return {m_v[0] * sx, m_v[1] * sy}; }
    Point2Df Scale(float s) const { return {m_v[0] * s, m_v[1] * s}; }
    /// Sets each member to 0 whose size, widened, is below `tolerance`, strictly.
    void Correct(double tolerance)
    {
        if (tolerance > std::fabs(static_cast<double>(m_v[0]))) {
            m_v[0] = 0.0f;
        }
        if (tolerance > std::fabs(static_cast<double>(m_v[1]))) {
            m_v[1] = 0.0f;
        }
    }

    /// Both signs flipped, so that 0 becomes -0.
    Point2Df operator-() const { return {-m_v[0], -m_v[1]}; }
    void operator+=(Point2Df const &o)
    {
        m_v[0] += o.m_v[0];
        m_v[1] += o.m_v[1];
    }
    void operator-=(Point2Df const &o)
    {
        m_v[0] -= o.m_v[0];
        m_v[1] -= o.m_v[1];
    }
    void operator*=(float s)
    {
        m_v[0] *= s;
        m_v[1] *= s;
    }
    /// No guard against a zero divisor.
    void operator/=(float s)
    {
        m_v[0] /= s;
        m_v[1] /= s;
    }

    ORVELMATH_CLASS_ALLOCATION

private:
    bool sharesColumn(Point2Df const &o) const
    {
        float const difference = o.m_v[0] - m_v[0];
        return std::fabs(static_cast<double>(difference)) < 1e-4; // a difference of x
    }

    float m_v[2];
};

/// No guard against a zero divisor.
inline Point2Df operator/(Point2Df const &a, float s)
{
    return {a.x() / s, a.y() / s};
}

/// Unit vector (cos, sin) of a direction. Not snapped: VecWin(90).x() is about 6.1e-17.
///
/// @param angle degrees, of any size; NaN and infinity give NaN
/// @see WinVec, which takes the direction back
ORVELMATH_EXPORT Point2D VecWin(double angle);

/// Direction of a vector, counter-clockwise from the positive x axis: the positive x axis itself is
/// 360, never 0. The zero vector gives 90. NaN in either member gives NaN, except that x = 0 with y
/// NaN gives 90; two infinities give NaN.
///
/// @param x, y model units, of any length
/// @return degrees, above 0 and at most 360
/// @see VecWin, the other way
/// @see orvelExact::turnBetween, orvelExact::angleBetween, of two vectors; radians
ORVELMATH_EXPORT double WinVec(double x, double y);
/// The same of a point.
ORVELMATH_EXPORT double WinVec(Point2D const &v);

namespace MatUtil {

/// Squared length of `v`, the same computation as Point2D::Length2; squared model units.
ORVELMATH_EXPORT double getSquareOfLength(Point2D const &v);

} // namespace MatUtil
