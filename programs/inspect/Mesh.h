#pragma once

#include <OrvelMath/base/vectorC.h>

#include <QtCore/QList>

#include <array>
#include <string>
#include <vector>

/// Triangles over a list of vertices, as they stand in a file.
struct Mesh
{
    std::string name; ///< file name without folders
    QList<vectorC3d<double>> vertices;
    std::vector<std::array<int, 3>> triangles; ///< indices into `vertices`
    vectorC3d<double> lowest;                  ///< smallest coordinate on each axis
    vectorC3d<double> highest;                 ///< largest coordinate on each axis
};

/// Reads any mesh that Assimp reads: all its parts in one, polygons cut into triangles, equal
/// vertices joined, points and lines left out.
///
/// Throws InputError when the file is missing, is no mesh, has no triangles or has a coordinate
/// that is not a finite number.
Mesh readMesh(std::string const &path);
