#pragma once

/// @file
/// Meshes from files and from standard input.

#include "Mesh.h"
#include "Progress.h"

#include <string>

/// How a mesh is to be read.
struct ReadOptions
{
    std::string up;     ///< "x", "y" or "z"; empty for what the format says
    std::string format; ///< "stl", "obj"; empty for the suffix of the file
};

/// Reads any mesh that Assimp reads: all its parts in one, polygons cut into triangles, vertices at
/// one place joined. A file with points alone gives a mesh without triangles. `-` is standard
/// input.
///
/// Triangles that name vertices which don't exist, or that are none, are left out; `warnings` has
/// their count. Takes the stages "reading" and "joining vertices" of the bar, up to `end`.
///
/// Throws InputError when the file is missing, is no mesh or has a coordinate that is not a finite
/// number.
Mesh readMesh(std::string const &path, ReadOptions const &options, Progress &progress, double end);
