#pragma once

/// @file
/// Vectors of the second generation. NaN and infinity run through the arithmetic; every operation
/// takes constant time.

#include <cmath>

/// Vector of two components, kept as an array. A plain value: a copy shares nothing.
///
/// No operation guards against a zero divisor: infinities and NaN come out as the arithmetic gives
/// them. There is no normalisation; who wants one tests the length.
template <typename T>
class vectorC2d
{
public:
    /// The zero vector.
    vectorC2d()
        : m_v{T(0), T(0)}
    {
    }
    vectorC2d(T x, T y)
        : m_v{x, y}
    {
    }

    T x() const { return m_v[0]; }
    T y() const { return m_v[1]; }
    T &x() { return m_v[0]; }
    T &y() { return m_v[1]; }
    /// Component `i`, 0 for x and 1 for y.
    T operator[](int i) const { return m_v[i]; }
    T &operator[](int i) { return m_v[i]; }
    T const *data() const { return m_v; }
    T *data() { return m_v; }

    /// Scalar product, summed from 0 in the order of the components.
    T dot(vectorC2d const &o) const { return T(0) + m_v[0] * o.m_v[0] + m_v[1] * o.m_v[1]; }
    T squaredLength() const { return dot(*this); }
    T length() const { return std::sqrt(squaredLength()); }

    friend vectorC2d operator+(vectorC2d const &a, vectorC2d const &b)
    {
        return {a.m_v[0] + b.m_v[0], a.m_v[1] + b.m_v[1]};
    }
    friend vectorC2d operator-(vectorC2d const &a, vectorC2d const &b)
    {
        return {a.m_v[0] - b.m_v[0], a.m_v[1] - b.m_v[1]};
    }
    friend vectorC2d operator-(vectorC2d const &a) { return {-a.m_v[0], -a.m_v[1]}; }
    friend vectorC2d operator*(vectorC2d const &a, T s) { return {a.m_v[0] * s, a.m_v[1] * s}; }
    friend vectorC2d operator*(T s, vectorC2d const &a) { return {s * a.m_v[0], s * a.m_v[1]}; }
    friend vectorC2d operator/(vectorC2d const &a, T s) { return {a.m_v[0] / s, a.m_v[1] / s}; }
    vectorC2d &operator+=(vectorC2d const &o) { return *this = *this + o; }
    vectorC2d &operator-=(vectorC2d const &o) { return *this = *this - o; }
    vectorC2d &operator*=(T s) { return *this = *this * s; }
    vectorC2d &operator/=(T s) { return *this = *this / s; }

    /// Exact, component by component.
    friend bool operator==(vectorC2d const &a, vectorC2d const &b)
    {
        return a.m_v[0] == b.m_v[0] && a.m_v[1] == b.m_v[1];
    }
    friend bool operator!=(vectorC2d const &a, vectorC2d const &b) { return !(a == b); }

private:
    T m_v[2];
};

/// Vector of three components, kept as an array. A plain value: a copy shares nothing.
///
/// As with vectorC2d nothing guards against a zero divisor.
template <typename T>
class vectorC3d
{
public:
    /// The zero vector.
    vectorC3d()
        : m_v{T(0), T(0), T(0)}
    {
    }
    vectorC3d(T x, T y, T z)
        : m_v{x, y, z}
    {
    }

    T x() const { return m_v[0]; }
    T y() const { return m_v[1]; }
    T z() const { return m_v[2]; }
    T &x() { return m_v[0]; }
    T &y() { return m_v[1]; }
    T &z() { return m_v[2]; }
    /// Component `i`, 0 for x, 1 for y and 2 for z.
    T operator[](int i) const { return m_v[i]; }
    T &operator[](int i) { return m_v[i]; }
    T const *data() const { return m_v; }
    T *data() { return m_v; }

    /// Scalar product, summed from 0 in the order of the components.
    T dot(vectorC3d const &o) const
    {
        return T(0) + m_v[0] * o.m_v[0] + m_v[1] * o.m_v[1] + m_v[2] * o.m_v[2];
    }
    /// Right-handed vector product of this and `o`, in that order.
    vectorC3d cross(vectorC3d const &o) const
    {
        return {m_v[1] * o.m_v[2] - m_v[2] * o.m_v[1], m_v[2] * o.m_v[0] - m_v[0] * o.m_v[2],
                m_v[0] * o.m_v[1] - m_v[1] * o.m_v[0]};
    }
    T squaredLength() const { return dot(*this); }
    T length() const { return std::sqrt(squaredLength()); }

    friend vectorC3d operator+(vectorC3d const &a, vectorC3d const &b)
    {
        return {a.m_v[0] + b.m_v[0], a.m_v[1] + b.m_v[1], a.m_v[2] + b.m_v[2]};
    }
    friend vectorC3d operator-(vectorC3d const &a, vectorC3d const &b)
    {
        return {a.m_v[0] - b.m_v[0], a.m_v[1] - b.m_v[1], a.m_v[2] - b.m_v[2]};
    }
    friend vectorC3d operator-(vectorC3d const &a) { return {-a.m_v[0], -a.m_v[1], -a.m_v[2]}; }
    friend vectorC3d operator*(vectorC3d const &a, T s)
    {
        return {a.m_v[0] * s, a.m_v[1] * s, a.m_v[2] * s};
    }
    friend vectorC3d operator*(T s, vectorC3d const &a)
    {
        return {s * a.m_v[0], s * a.m_v[1], s * a.m_v[2]};
    }
    friend vectorC3d operator/(vectorC3d const &a, T s)
    {
        return {a.m_v[0] / s, a.m_v[1] / s, a.m_v[2] / s};
    }
    vectorC3d &operator+=(vectorC3d const &o) { return *this = *this + o; }
    vectorC3d &operator-=(vectorC3d const &o) { return *this = *this - o; }
    vectorC3d &operator*=(T s) { return *this = *this * s; }
    vectorC3d &operator/=(T s) { return *this = *this / s; }

    /// Exact, component by component.
    friend bool operator==(vectorC3d const &a, vectorC3d const &b)
    {
        return a.m_v[0] == b.m_v[0] && a.m_v[1] == b.m_v[1] && a.m_v[2] == b.m_v[2];
    }
    friend bool operator!=(vectorC3d const &a, vectorC3d const &b) { return !(a == b); }

private:
    T m_v[3];
};
