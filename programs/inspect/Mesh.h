#pragma once

/// @file
/// A mesh as the program holds it.

#include <OrvelMath/base/vectorC.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

using Vector = vectorC3d<double>;

/// Minimum corner and maximum corner.
using Box = std::pair<Vector, Vector>;

/// The corners of a triangle that belongs to no list of vertices.
using Corners = std::array<Vector, 3>;

/// Triangles over a list of vertices, in the axes and units of the file.
struct Mesh
{
    std::string name; ///< file name without folders
    std::vector<Vector> vertices;
    std::vector<std::array<int, 3>> triangles; ///< indices into `vertices`; empty for a point cloud
    Vector lowest;                             ///< smallest coordinate on each axis
    Vector highest;                            ///< largest coordinate on each axis
    int up = 2;                                ///< the axis that points up: 0, 1 or 2 for x, y or z
    std::string unit;                          ///< "m", "mm"; empty where the file has none
    std::vector<std::string> warnings;         ///< what was lost or mended on the way in

    Corners corners(std::array<int, 3> const &t) const
    {
        return {vertices[std::size_t(t[0])], vertices[std::size_t(t[1])],
                vertices[std::size_t(t[2])]};
    }
    Vector extent() const { return highest - lowest; }
};

/// Sets `lowest` and `highest`. Throws InputError for a coordinate that is not a finite number, and
/// for coordinates so large that their extent is not.
void measureExtents(Mesh &mesh);
