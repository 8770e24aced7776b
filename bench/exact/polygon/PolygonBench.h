#pragma once

/// @file
/// A polygon and the points that are located in it.

#include <OrvelExact/base/points.h>

#include <cmath>
#include <random>

constexpr int queryCount = 4096; ///< more than a branch predictor keeps

/// Star-shaped, with a ragged radius.
inline QVector<orvelExact::Point2> raggedPolygon(int corners)
{
    std::mt19937_64 generator(42);
    std::uniform_real_distribution<double> radius(0.3, 1.0);
    QVector<orvelExact::Point2> polygon;
    for (int i = 0; i < corners; ++i) {
        double const angle = 6.283185307179586 * i / corners;
        polygon.append(radius(generator) * orvelExact::Point2(std::cos(angle), std::sin(angle)));
    }
    return polygon;
}

/// Points about the polygon; every eighth one is a corner.
inline QVector<orvelExact::Point2> queriesOf(QVector<orvelExact::Point2> const &polygon)
{
    std::mt19937_64 generator(43);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    QVector<orvelExact::Point2> points;
    for (int i = 0; i < queryCount; ++i) {
        double const x = uniform(generator);
        points.append({x, uniform(generator)});
        if (i % 8 == 0) {
            points.last() = polygon.at(i % polygon.size());
        }
    }
    return points;
}
