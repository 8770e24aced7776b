#pragma once

/// @file
/// Vectors of the plane and of space to 106 bits.

#include <OrvelExact/measures/DoubleDouble_p.h>
#include <OrvelExact/measures/scaling_p.h>

#include <algorithm>

namespace orvelExact {

struct Vector2
{
    DoubleDouble x;
    DoubleDouble y;
};

struct Vector3
{
    DoubleDouble x;
    DoubleDouble y;
    DoubleDouble z;
};

/// a - b without error.
inline Vector2 differenceOf(Point2 const &a, Point2 const &b)
{
    return {wideDifference(a.x(), b.x()), wideDifference(a.y(), b.y())};
}
inline Vector3 differenceOf(Point3 const &a, Point3 const &b)
{
    return {wideDifference(a.x(), b.x()), wideDifference(a.y(), b.y()),
            wideDifference(a.z(), b.z())};
}

inline Vector2 operator+(Vector2 const &a, Vector2 const &b)
{
    return {a.x + b.x, a.y + b.y};
}
inline Vector3 operator+(Vector3 const &a, Vector3 const &b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
inline Vector2 operator-(Vector2 const &a, Vector2 const &b)
{
    return {a.x - b.x, a.y - b.y};
}
inline Vector3 operator-(Vector3 const &a, Vector3 const &b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
inline Vector2 operator*(Vector2 const &a, DoubleDouble const &s)
{
    return {a.x * s, a.y * s};
}
inline Vector3 operator*(Vector3 const &a, DoubleDouble const &s)
{
    return {a.x * s, a.y * s, a.z * s};
}

inline DoubleDouble dotOf(Vector2 const &a, Vector2 const &b)
{
    return a.x * b.x + a.y * b.y;
}
inline DoubleDouble dotOf(Vector3 const &a, Vector3 const &b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline DoubleDouble crossOf(Vector2 const &a, Vector2 const &b)
{
    return a.x * b.y - a.y * b.x;
}
inline DoubleDouble crossOf(Vector2 const &a, Point2 const &b)
{
    return a.x * b.y() - a.y * b.x();
}
inline DoubleDouble crossOf(Point2 const &a, Point2 const &b)
{
    return wideProduct(a.x(), b.y()) - wideProduct(a.y(), b.x());
}
inline Vector3 crossOf(Vector3 const &a, Vector3 const &b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline Point2 rounded(Vector2 const &v)
{
    return {rounded(v.x), rounded(v.y)};
}
inline Point3 rounded(Vector3 const &v)
{
    return {rounded(v.x), rounded(v.y), rounded(v.z)};
}

/// The largest size of a component.
inline double largestOf(Point2 const &p)
{
    return std::max(std::fabs(p.x()), std::fabs(p.y()));
}
inline double largestOf(Point3 const &p)
{
    return std::max({std::fabs(p.x()), std::fabs(p.y()), std::fabs(p.z())});
}
inline Point2 timesPowerOfTwo(Point2 const &p, int exponent)
{
    return {timesPowerOfTwo(p.x(), exponent), timesPowerOfTwo(p.y(), exponent)};
}
inline Point3 timesPowerOfTwo(Point3 const &p, int exponent)
{
    return {timesPowerOfTwo(p.x(), exponent), timesPowerOfTwo(p.y(), exponent),
            timesPowerOfTwo(p.z(), exponent)};
}

} // namespace orvelExact
