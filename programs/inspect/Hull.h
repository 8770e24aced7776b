#pragma once

/// @file
/// The convex hull with all its corners.

#include "Mesh.h"

#include <string>
#include <vector>

/// A convex hull as the library's builder gives it, measured.
struct Hull
{
    int dimension = -1;                        ///< 0 one location, 1 a line, 2 a plane, 3 a solid
    std::vector<int> vertexIndices;            ///< into the mesh's vertices
    std::vector<std::array<int, 3>> triangles; ///< indices into the mesh's vertices
    double area = 0.0;                         ///< of a flat hull, that of one side
    double volume = 0.0;
};

/// The hull of a mesh's vertices, with every corner to within a relative `tolerance` of the mesh's
/// longest extent.
///
/// ConvexHullBuilderC works to an absolute length of 1e-8 and may leave out corners of symmetric
/// bodies, whose distances are equal. Here it is given an affine image of the vertices, of unit
/// size and askew to the axes: an affine map keeps which points are corners, and makes equal
/// distances different. When a vertex still lies outside, another image is taken.
Hull hullOf(Mesh const &mesh);

/// What ConvexHullBuilderC gives for the vertices as they are.
Hull plainHullOf(Mesh const &mesh);

/// Why `plain` isn't the hull, with its figures; empty where it is.
std::string differenceOf(Hull const &hull, Hull const &plain);
