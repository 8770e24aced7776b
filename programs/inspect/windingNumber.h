#pragma once

/// @file
/// How often a surface winds round a point.

#include "Mesh.h"

/// How often the mesh's surface winds round a point, as the solid angle of its triangles over that
/// of a sphere: 0 outside and 1 or -1 inside of a closed, consistently oriented surface, something
/// between where it has gaps (Van Oosterom and Strackee 1983). Linear in the number of triangles.
double windingNumber(Mesh const &mesh, Vector const &point);
