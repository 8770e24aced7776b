#pragma once

/// @file
/// The hull of points that don't lie in a plane.

#include <OrvelMath/hull/HullSurface_p.h>
#include <OrvelMath/hull/HullWay_p.h>

/// Grows the tetrahedron, the last four faces of the surface, to the hull of the points (Quickhull:
/// Barber, Dobkin and Huhdanpaa, 1996). The replaced faces are left to removeReplaced.
void buildSolid(HullSurface &surface, HullPoints const &points, HullWay way);
