#pragma once

#include <OrvelExact/predicates/BigInteger_p.h>
#include <OrvelExact/predicates/Expansion_p.h>

/// @file
/// The determinants of the predicates, written once for every exact number.
///
/// A row is one point, seen from the last one: differences of components.

namespace orvelExact {

template <typename Number>
struct Row2
{
    Number x, y;
};

template <typename Number>
struct Row3
{
    Number x, y, z;
};

template <typename Number>
auto determinant(Row2<Number> const &a, Row2<Number> const &b)
{
    return a.x * b.y - a.y * b.x;
}

template <typename Number>
auto determinant(Row3<Number> const &a, Row3<Number> const &b, Row3<Number> const &c)
{
    return (b.x * c.y - b.y * c.x) * a.z + (c.x * a.y - c.y * a.x) * b.z +
           (a.x * b.y - a.y * b.x) * c.z;
}

template <typename Number>
auto squaredLength(Row2<Number> const &a)
{
    return a.x * a.x + a.y * a.y;
}

template <typename Number>
auto squaredLength(Row3<Number> const &a)
{
    return a.x * a.x + a.y * a.y + a.z * a.z;
}

/// The determinant of the rows (x, y, x² + y²).
template <typename Number>
auto liftedDeterminant(Row2<Number> const &a, Row2<Number> const &b, Row2<Number> const &c)
{
    return determinant(b, c) * squaredLength(a) + determinant(c, a) * squaredLength(b) +
           determinant(a, b) * squaredLength(c);
}

/// Minus the determinant of the rows (x, y, z, x² + y² + z²).
template <typename Number>
auto liftedDeterminant(Row3<Number> const &a, Row3<Number> const &b, Row3<Number> const &c,
                       Row3<Number> const &d)
{
    return (determinant(b, c, d) * squaredLength(a) - determinant(a, c, d) * squaredLength(b)) +
           (determinant(a, b, d) * squaredLength(c) - determinant(a, b, c) * squaredLength(d));
}

} // namespace orvelExact
