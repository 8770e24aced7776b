#pragma once

/// @file
/// How far one surface is from another.

#include "Mesh.h"

/// A distance and the place where it was found.
struct Deviation
{
    double distance = 0.0;
    Vector at;
};

/// The vertex of `mesh` that is farthest from the surface of `other`, and its distance: a lower
/// bound of the one-sided Hausdorff distance, which is exact where it is reached at a vertex. Both
/// meshes have triangles. Cost: about n log m.
Deviation deviationFrom(Mesh const &mesh, Mesh const &other);
