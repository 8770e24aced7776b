#pragma once

/// @file
/// The namespace `concav2d`: where points lie against lines, arcs, ellipse arcs, rectangles and
/// polygons, how curves are sampled and measured, and how straight lines cross.
///
/// Habits of the whole namespace:
/// - A function that constructs something returns 0 when it is done and a positive code when it
///   cannot be done. A failed construction leaves its outputs alone, unless its text says more.
/// - Tolerances are arguments. Each function says whether its tolerance is a length in model
///   units, an area, or an angle in degrees. "At most tol" includes equality.
/// - Angles are degrees, counter-clockwise from the positive x axis, and come from `WinVec`: they
///   lie above 0 and at most at 360, and the positive x axis itself is 360. Steps of the sampling
///   functions and the results of `getEllipseExtremaAngles` are radians.
/// - Input is not checked. A comparison with NaN is false, and the functions follow from there;
///   each says what it gives. Infinite coordinates turn to NaN in the first difference.
/// - All functions are reentrant and touch only their arguments. Only the sampling functions
///   allocate memory, and only they may not return: see concav2d_sampling.h. All others take
///   constant time, but for `pointInsidePolygone`, which is linear.

#include <OrvelMath/geom2d/concav2d_arcs.h>
#include <OrvelMath/geom2d/concav2d_lines.h>
#include <OrvelMath/geom2d/concav2d_measures.h>
#include <OrvelMath/geom2d/concav2d_regions.h>
#include <OrvelMath/geom2d/concav2d_sampling.h>
