#pragma once

/// @file
/// The convex hull with all its corners.

#include "Mesh.h"

#include <string>
#include <vector>

/// A convex hull over a mesh's vertices, measured.
struct Hull
{
    int dimension = -1;                        ///< 0 one location, 1 a line, 2 a plane, 3 a solid
    std::vector<int> vertexIndices;            ///< into the mesh's vertices
    std::vector<std::array<int, 3>> triangles; ///< indices into the mesh's vertices
    double area = 0.0;                         ///< of a flat hull, that of one side
    double volume = 0.0;
};

/// The hull of a mesh's vertices, exactly: orvelExact::ConvexHull.
Hull hullOf(Mesh const &mesh);

/// What ConvexHullBuilderC gives, which works to an absolute length of 1e-8 and may leave out
/// corners of symmetric bodies. Without `triangles`.
Hull plainHullOf(Mesh const &mesh);

/// Why `plain` isn't the hull, with its figures; empty where it is.
std::string differenceOf(Hull const &hull, Hull const &plain);
