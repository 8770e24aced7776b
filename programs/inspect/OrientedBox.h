#pragma once

/// @file
/// A small box about a mesh that need not be parallel to the axes.

#include "Hull.h"

#include <OrvelMath/base/matrixC.h>

/// A box with edges along the columns of `axes`.
struct OrientedBox
{
    matrixC3x3<double> axes; ///< unit columns, right-handed
    Vector centre;
    Vector extent; ///< full lengths along the axes
    double volume() const { return extent.x() * extent.y() * extent.z(); }
    std::array<Vector, 8> corners() const;
};

/// The smallest of some boxes about the hull: the one along the coordinate axes, those along
/// `principalAxes`, and those with a side in the plane of one of the hull's 32 largest triangles
/// and an edge along an edge of the hull as seen from above it. No smaller box was sought; for a
/// body with few sides it is the smallest one that has a side in common with the hull.
OrientedBox orientedBoxOf(Mesh const &mesh, Hull const &hull,
                          matrixC3x3<double> const &principalAxes);
