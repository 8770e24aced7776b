#pragma once

/// @file
/// Area, volume, centroid and principal axes of a mesh.

#include "Mesh.h"

#include <OrvelMath/base/matrixC.h>

/// What a mesh amounts to. Sums are taken relative to a corner of its box, in the order of the
/// triangles; their relative error is about 1e-16 times the root of their number, for the
/// coordinates that Assimp gives, which are of single precision.
struct MassProperties
{
    double area = 0.0;
    double volume = 0.0;   ///< signed: negative for a surface turned inside out; only if closed
    double thinnest = 1.0; ///< smallest `thinness` of the triangles that aren't degenerate
    int thinnestTriangle = -1;
    Vector centroid;         ///< of the solid where closed, else of the surface or the points
    matrixC3x3<double> axes; ///< unit columns by falling spread, right-handed
    Vector spreads;          ///< standard deviations of surface (or points) along the axes
};

MassProperties massPropertiesOf(Mesh const &mesh, bool isClosed);
