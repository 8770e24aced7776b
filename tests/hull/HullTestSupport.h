#pragma once

/// @file
/// Clouds of points and what the tests ask of their hulls.

#include "support/Bits.h"

#include <OrvelMath/hull/ConvexHullBuilderC.h>

#include <array>
#include <cmath>
#include <random>
#include <vector>

using Points2 = QVector<vectorC2d<double>>;
using Points3 = QList<vectorC3d<double>>;

/// A triangle as the builder hands it out.
struct HullTriangle
{
    vectorC3d<double> a, b, c, normal;
};

inline std::vector<HullTriangle> trianglesOf(ConvexHullBuilderC const &builder)
{
    std::vector<HullTriangle> triangles(static_cast<std::size_t>(builder.triangleCount()));
    for (int i = 0; i < builder.triangleCount(); ++i) {
        HullTriangle &t = triangles[static_cast<std::size_t>(i)];
        builder.triangle(i, t.a, t.b, t.c, t.normal);
    }
    return triangles;
}

/// Equal to the last bit, component by component; any NaN equals any NaN.
inline testing::AssertionResult SameBits(vectorC3d<double> const &expected,
                                         vectorC3d<double> const &actual)
{
    for (int i = 0; i < 3; ++i) {
        if (!support::sameBits(expected[i], actual[i])) {
            return support::SameBits(expected[i], actual[i]) << ", component " << i;
        }
    }
    return testing::AssertionSuccess();
}

/// Twice the signed area of the triangle; positive when it runs counter-clockwise.
inline double doubleArea(vectorC2d<double> const &a, vectorC2d<double> const &b,
                         vectorC2d<double> const &c)
{
    return (b.x() - a.x()) * (c.y() - a.y()) - (b.y() - a.y()) * (c.x() - a.x());
}

/// The eight corners of the unit cube, x slowest.
inline Points3 cubeCorners()
{
    Points3 corners;
    for (int i = 0; i < 8; ++i) {
        corners.append({double(i >> 2), double((i >> 1) & 1), double(i & 1)});
    }
    return corners;
}

/// Kinds of clouds, from general position to heaps of copies.
enum class Cloud { Ball, Cube, Sphere, Gauss, Grid, Copies, FineGrid, Sliver, Plane, Last = Plane };

inline Points3 makeCloud(Cloud kind, int count, unsigned seed)
{
    std::mt19937 generator(seed);
    // Drawn by hand: the standard's distributions differ from library to library.
    auto const uniform = [&] { return double(generator()) / 4294967296.0 * 2.0 - 1.0; };
    auto const whole = [&](unsigned n) { return double(generator() % n); };
    Points3 points;
    while (points.size() < count) {
        vectorC3d<double> p(uniform(), uniform(), uniform());
        switch (kind) {
        case Cloud::Ball:
            if (p.squaredLength() > 1.0) {
                continue;
            }
            break;
        case Cloud::Cube:
            break;
        case Cloud::Sphere:
            p = p / p.length();
            break;
        case Cloud::Gauss:
            for (int i = 0; i < 9; ++i) {
                p += {uniform(), uniform(), uniform()};
            }
            break;
        case Cloud::Grid:
            p = {whole(4), whole(4), whole(4)};
            break;
        case Cloud::Copies:
            if (points.size() >= count / 4 + 1) {
                p = points[int(generator() % unsigned(points.size()))];
            }
            break;
        case Cloud::FineGrid: // steps about the tolerance
            p = vectorC3d<double>(whole(9), whole(9), whole(9)) * 5e-9;
            break;
        case Cloud::Sliver:
            p = {p.x() * 1e6, p.y(), p.z() * 3e-8};
            break;
        case Cloud::Plane:
            p = {p.x(), p.y(), p.x() * 2.0 + p.y()};
            break;
        }
        points.append(p);
    }
    return points;
}
