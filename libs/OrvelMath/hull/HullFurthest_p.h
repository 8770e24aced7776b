#pragma once

/// @file
/// The point furthest from an axis or a plane.

#include <OrvelMath/hull/HullFace_p.h>

/// The point with the largest measure so far; of equal ones the lexicographically smallest.
struct Furthest
{
    double measure;
    int index;
    vectorC3d<double> point;

    void offer(double candidateMeasure, std::size_t candidate, vectorC3d<double> const &p)
    {
        if (candidateMeasure > measure ||
            (candidateMeasure == measure && lexicographicallyLess(p, point))) {
            measure = candidateMeasure;
            index = static_cast<int>(candidate);
            point = p;
        }
    }
};

/// By the squared distance from the axis through `start` along the unit vector `axis`. Beyond the
/// start the axial part counts twice instead of not at all: the absolute value of `t` stays, since
/// the corner that is found, and with it the order of all faces, depends on it.
///
/// The search begins with the measure 0, the index 0 and the coordinates of `start`.
inline Furthest furthestFromAxis(HullPoints const &points, vectorC3d<double> const &start,
                                 vectorC3d<double> const &axis)
{
    Furthest furthest{0.0, 0, start};
    for (std::size_t i = 0; i < points.size(); ++i) {
        vectorC3d<double> const w = start - points[i];
        double const t = axis.dot(w);
        furthest.offer((w + axis * std::abs(t)).squaredLength(), i, points[i]);
    }
    return furthest;
}

/// By the distance from the plane through `start` with the unit normal `normal`, on either side.
/// The search begins as the other one does.
inline Furthest furthestFromPlane(HullPoints const &points, vectorC3d<double> const &start,
                                  vectorC3d<double> const &normal)
{
    Furthest furthest{0.0, 0, start};
    for (std::size_t i = 0; i < points.size(); ++i) {
        furthest.offer(std::abs((start - points[i]).dot(normal)), i, points[i]);
    }
    return furthest;
}
