#pragma once

/// @file
/// The dimension of a point set, and the simplex from which its hull grows.

#include <OrvelMath/hull/HullSurface_p.h>
#include <OrvelMath/hull/HullWay_p.h>

/// Classifies the points by four extreme ones and appends what a hull begins with: one face if they
/// lie in a plane, the four faces of a tetrahedron, with twins, if they don't.
///
/// @return the dimension: -1 without points, 0 for one location, 1 for a line, 2 or 3
int makeSimplex(HullSurface &surface, HullPoints const &points, HullWay way);
