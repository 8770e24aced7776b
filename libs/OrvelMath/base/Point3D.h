#pragma once

/// @file
/// The point of space of the first generation.

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/vectorC.h>

#include <cmath>

/// A point or a vector of space, three doubles, model units. A plain value: a copy shares nothing.
/// NaN and infinity run through the arithmetic; every operation takes constant time.
///
/// @see vectorC3d, of the second generation: its sums begin with x, and nothing guards its
///      divisions
class Point3D
{
public:
    /// The origin.
    Point3D()
        : m_v{0.0, 0.0, 0.0}
    {
    }
    Point3D(double x, double y, double z)
        : m_v{x, y, z}
    {
    }
    explicit Point3D(vectorC3d<double> const &v)
        : m_v{v.x(), v.y(), v.z()}
    {
    }
    explicit operator vectorC3d<double>() const { return {m_v[0], m_v[1], m_v[2]}; }

    double &x() { return m_v[0]; }
    double &y() { return m_v[1]; }
    double &z() { return m_v[2]; }
    double x() const { return m_v[0]; }
    double y() const { return m_v[1]; }
    double z() const { return m_v[2]; }
    void x(double value) { m_v[0] = value; }
    void y(double value) { m_v[1] = value; }
    void z(double value) { m_v[2] = value; }
    /// Component `i`, 0 for x, 1 for y and 2 for z.
    double operator[](int i) const { return m_v[i]; }
    double &operator[](int i) { return m_v[i]; }

    /// Scalar product, summed in the order y, x, z.
    double Dot(Point3D const &o) const
    {
        return m_v[1] * o.m_v[1] + m_v[0] * o.m_v[0] + m_v[2] * o.m_v[2];
    }
    /// Squared length, summed in the order x, y, z.
    double Length2() const { return m_v[0] * m_v[0] + m_v[1] * m_v[1] + m_v[2] * m_v[2]; }
    double Length() const { return std::sqrt(Length2()); }
    /// The copy of length 1; the point unchanged when its length is exactly 0, whereas
    /// Point2D::Normalize has a threshold.
    Point3D Normalize() const
    {
        double const length = Length();
        return length == 0.0 ? *this : Point3D(m_v[0] / length, m_v[1] / length, m_v[2] / length);
    }
    /// True when the distance to `o` is below 1e-4 model units; false with NaN.
    bool IsNear(Point3D const &o) const { return 1e-4 > (*this - o).Length(); }

    friend Point3D operator+(Point3D const &a, Point3D const &b)
    {
        return {a.m_v[0] + b.m_v[0], a.m_v[1] + b.m_v[1], a.m_v[2] + b.m_v[2]};
    }
    friend Point3D operator-(Point3D const &a, Point3D const &b)
    {
        return {a.m_v[0] - b.m_v[0], a.m_v[1] - b.m_v[1], a.m_v[2] - b.m_v[2]};
    }
    friend Point3D operator-(Point3D const &a) { return {-a.m_v[0], -a.m_v[1], -a.m_v[2]}; }
    friend Point3D operator*(double s, Point3D const &a)
    {
        return {s * a.m_v[0], s * a.m_v[1], s * a.m_v[2]};
    }
    friend Point3D operator*(Point3D const &a, double s)
    {
        return {a.m_v[0] * s, a.m_v[1] * s, a.m_v[2] * s};
    }
    /// Component by component; the zero point for a divisor of exactly 0, where Point2D has no
    /// guard.
    friend Point3D operator/(Point3D const &a, double s)
    {
        return s == 0.0 ? Point3D() : Point3D(a.m_v[0] / s, a.m_v[1] / s, a.m_v[2] / s);
    }

    /// Exact, component by component.
    friend bool operator==(Point3D const &a, Point3D const &b)
    {
        return a.m_v[0] == b.m_v[0] && a.m_v[1] == b.m_v[1] && a.m_v[2] == b.m_v[2];
    }
    friend bool operator!=(Point3D const &a, Point3D const &b) { return !(a == b); }

private:
    double m_v[3];
};

/// Vector product a x b, right-handed; squared model units. Parallel vectors give zeros, of either
/// sign, but for the rounding of the products.
///
/// @see vectorC3d::cross, the same products of the second generation
ORVELMATH_EXPORT Point3D Math3DVektorprodukt(Point3D const &a, Point3D const &b);
