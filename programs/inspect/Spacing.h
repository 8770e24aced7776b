#pragma once

#include "Mesh.h"
#include "Report.h"

#include <string>
#include <vector>

/// The distance from every vertex to the nearest other one, ascending; empty for a single vertex.
/// Vertices at the same place count as one.
std::vector<double> vertexSpacings(Mesh const &mesh);

/// Smallest, median and largest spacing.
Table spacingTable(std::vector<double> const &spacings);

/// How many vertices have which spacing: an SVG picture with logarithmic classes.
std::string spacingPicture(std::vector<double> const &spacings);

/// The vertex nearest to `place`, "X,Y,Z", and its distance. Throws InputError when `place` is not
/// three finite numbers.
Table nearestTable(Mesh const &mesh, std::string const &place);
