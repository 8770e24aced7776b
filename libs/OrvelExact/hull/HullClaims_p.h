#pragma once

/// @file
/// Which of some planes a point lies above.

#include <OrvelExact/hull/HullPlane_p.h>
#include <OrvelExact/hull/OutsidePool_p.h>

namespace orvelExact {

constexpr int noClaim = -1;   ///< the point lies below all planes for sure, or on some
constexpr int openClaim = -2; ///< it lies above none for sure, and too near to one to tell

/// For each point the first of the planes above which it lies highest, among those above which it
/// lies for sure, and the height there, less the plane's error.
///
/// Heights are in the units of each plane's normal, so a large facet goes before a small one.
void claimPoints(HullPlane const *planes, int planeCount, OutsidePoint const *points, int count,
                 int *claimants, double *heights);

} // namespace orvelExact
