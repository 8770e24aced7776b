#pragma once

/// @file
/// The searches for the corners of the simplex, four points in one step.

#include <OrvelMath/hull/HullFurthest_p.h>

/// Answers what furthestFromAxis answers. The lanes give the bits of the definition's measures, and
/// a point whose measure is below the largest so far can't take its place; all others are offered
/// one by one, in their order.
Furthest quickFurthestFromAxis(HullPoints const &points, vectorC3d<double> const &start,
                               vectorC3d<double> const &axis);

/// Answers what furthestFromPlane answers, in the same way.
Furthest quickFurthestFromPlane(HullPoints const &points, vectorC3d<double> const &start,
                                vectorC3d<double> const &normal);
