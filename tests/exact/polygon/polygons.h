#pragma once

/// @file
/// Polygons for tests.

#include <OrvelExact/base/points.h>

#include <QtCore/QVector>

#include <algorithm>
#include <cmath>
#include <random>

namespace polygons {

using orvelExact::Point2;
using Polygon = QVector<Point2>;

/// Star-shaped around the origin, with a ragged radius: doesn't cross itself.
inline Polygon star(int corners, unsigned seed)
{
    std::mt19937_64 generator(seed);
    std::uniform_real_distribution<double> radius(0.3, 1.0);
    Polygon polygon;
    for (int i = 0; i < corners; ++i) {
        double const angle = 6.283185307179586 * i / corners;
        polygon.append(radius(generator) * Point2(std::cos(angle), std::sin(angle)));
    }
    return polygon;
}

/// Corners of a small lattice, which often meet; `unit` apart.
inline Polygon onLattice(int corners, int side, double unit, unsigned seed)
{
    std::mt19937_64 generator(seed);
    Polygon polygon;
    for (int i = 0; i < corners; ++i) {
        double const x = static_cast<double>(generator() % static_cast<unsigned>(side));
        polygon.append(
            {unit * x, unit * static_cast<double>(generator() % static_cast<unsigned>(side))});
    }
    return polygon;
}

inline Polygon reversed(Polygon polygon)
{
    std::reverse(polygon.begin(), polygon.end());
    return polygon;
}

} // namespace polygons
