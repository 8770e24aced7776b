#pragma once

/// @file
/// The dimension of points and a simplex to begin with.

#include <OrvelExact/hull/WorkPoints_p.h>

namespace orvelExact {

/// The dimension of some points, exactly, and as many of them as span it: dimension + 1.
struct HullSimplex
{
    int dimension;
    int corner[4];
};

/// Looks for points far apart; of equal ones the first is taken. At least one point.
HullSimplex findSimplex(WorkPoints const &points);

/// True if the three points lie on one line.
bool areCollinear(Point3 const &a, Point3 const &b, Point3 const &c);

} // namespace orvelExact
