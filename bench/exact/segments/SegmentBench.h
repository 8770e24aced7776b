#pragma once

/// @file
/// Segments of the measurements.

#include <OrvelExact/segments/allCrossings.h>

#include <cmath>
#include <random>
#include <string>

/// `short`: crossings about as many as segments. `long`: about a quarter of all pairs. `lattice`:
/// short ones between points of a lattice, which share ends and touch.
inline QVector<orvelExact::Segment2> segmentsOf(std::string const &kind, int count)
{
    std::mt19937_64 generator(42);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    double const length = kind == "long" ? 1.0 : 2.0 / std::sqrt(double(count));
    QVector<orvelExact::Segment2> segments;
    for (int i = 0; i < count; ++i) {
        orvelExact::Point2 from(uniform(generator), uniform(generator));
        orvelExact::Point2 to =
            from + length * orvelExact::Point2(uniform(generator), uniform(generator));
        if (kind == "lattice") {
            for (int k = 0; k < 2; ++k) {
                from[k] = length * std::round(from[k] / length);
                to[k] = from[k] + length * static_cast<double>(generator() % 3);
            }
        }
        segments.append({from, to});
    }
    return segments;
}
