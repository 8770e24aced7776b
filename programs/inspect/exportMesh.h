#pragma once

/// @file
/// Meshes as files of other programs.

#include "Hull.h"
#include "OrientedBox.h"

#include <QtCore/QByteArray>

#include <string>
#include <vector>

/// Throws UsageError for a path whose suffix is none of .obj, .ply, .stl, .glb and .gltf; an empty
/// path is none.
void refuseUnknownFormats(std::vector<std::string> const &paths);

/// The file for `path`, in the format of its suffix: PLY and STL binary, glTF 2.0 in one file. The
/// coordinates are those of the mesh, rounded to single precision.
QByteArray exported(Mesh const &mesh, std::string const &path);

/// The hull as a mesh.
Mesh hullMesh(Mesh const &mesh, Hull const &hull);
/// The box as a mesh of twelve triangles, counter-clockwise seen from outside.
Mesh boxMesh(OrientedBox const &box);
/// Boxes parallel to the axes as one mesh, each with its twelve triangles.
Mesh boxesMesh(std::vector<Box> const &boxes);
