#pragma once

/// @file
/// The distance of two simplices by all pairs of their faces, in a hundred digits.

#include "support.h"

#include <algorithm>
#include <array>
#include <vector>

namespace measures {

using RealPoint = std::array<Real, 3>;

inline RealPoint real(Point3 const &p)
{
    return {Real(p.x()), Real(p.y()), Real(p.z())};
}
inline RealPoint minus(RealPoint const &a, RealPoint const &b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}
inline Real dot(RealPoint const &a, RealPoint const &b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// The squared distance of the affine hulls of two faces if the feet lie in the faces, else -1.
inline Real squareOfFaces(std::vector<RealPoint> const &a, std::vector<RealPoint> const &b)
{
    std::vector<RealPoint> along;
    for (std::size_t i = 1; i < a.size(); ++i) {
        along.push_back(minus(a[i], a[0]));
    }
    for (std::size_t i = 1; i < b.size(); ++i) {
        along.push_back(minus(b[0], b[i]));
    }
    RealPoint const start = minus(a[0], b[0]);
    std::size_t const n = along.size();
    std::vector<std::vector<Real>> m(n, std::vector<Real>(n + 1));
    for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t k = 0; k < n; ++k) {
            m[i][k] = dot(along[i], along[k]);
        }
        m[i][n] = -dot(along[i], start);
    }
    for (std::size_t i = 0; i < n; ++i) {
        Real const whole = dot(along[i], along[i]);
        if (m[i][i] <= whole * Real(1e-60)) {
            return -1; // not independent: smaller faces do
        }
        for (std::size_t row = 0; row < n; ++row) {
            if (row != i) {
                Real const part = m[row][i] / m[i][i];
                for (std::size_t k = i; k <= n; ++k) {
                    m[row][k] -= part * m[i][k];
                }
            }
        }
    }
    RealPoint way = start;
    Real sumA = 0, sumB = 0;
    for (std::size_t i = 0; i < n; ++i) {
        Real const part = m[i][n] / m[i][i];
        if (part < 0) {
            return -1;
        }
        (i + 1 < a.size() ? sumA : sumB) += part;
        for (std::size_t k = 0; k < 3; ++k) {
            way[k] += part * along[i][k];
        }
    }
    return sumA > 1 || sumB > 1 ? Real(-1) : dot(way, way);
}

inline std::vector<RealPoint> faceOf(std::vector<Point3> const &simplex, unsigned mask)
{
    std::vector<RealPoint> face;
    for (std::size_t i = 0; i < simplex.size(); ++i) {
        if ((mask >> i & 1) != 0) {
            face.push_back(real(simplex[i]));
        }
    }
    return face;
}

inline Real distanceTruth(std::vector<Point3> const &a, std::vector<Point3> const &b)
{
    Real least = -1;
    for (unsigned maskA = 1; maskA < 1u << a.size(); ++maskA) {
        for (unsigned maskB = 1; maskB < 1u << b.size(); ++maskB) {
            Real const square = squareOfFaces(faceOf(a, maskA), faceOf(b, maskB));
            if (square >= 0 && (least < 0 || square < least)) {
                least = square;
            }
        }
    }
    return sqrt(least);
}

} // namespace measures
