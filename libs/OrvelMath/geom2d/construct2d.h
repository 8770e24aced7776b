#pragma once

/// @file
/// The constructions with German names: crossings, projections, tangents, fillets, arc helpers.
///
/// Each call delivers one solution; an `int` selector chooses among the possible ones. The result
/// is 1 for found and 0 for none, and the outputs are written only with 1. Lines are infinite and
/// circles whole. The arguments named eps are tolerances; a length that is compared with one is
/// first rounded to a grid of that width.

#include <OrvelMath/geom2d/construct2d_apollonius.h>
#include <OrvelMath/geom2d/construct2d_arcs.h>
#include <OrvelMath/geom2d/construct2d_crossings.h>
#include <OrvelMath/geom2d/construct2d_fillets.h>
#include <OrvelMath/geom2d/construct2d_tangents.h>
