#pragma once

/// @file
/// The constructions with German names: crossings, projections, tangents, fillets, arc helpers.
///
/// Each call delivers one solution; an `int` selector chooses among the possible ones. The result
/// is 1 for found and 0 for none, and the outputs are written only with 1. Lines are infinite and
/// circles whole. All functions are reentrant, allocate nothing and take constant time.
///
/// What an argument named eps is compared with differs from function to function:
///
/// | Compared with eps                          | Where                                          |
/// |--------------------------------------------|------------------------------------------------|
/// | a length, rounded to a grid of width eps   | `intersect_line_circle` (a miss), all three tests
/// of `intersect_circle_circle` after the first, `tangente_kreis_kreis` (centres, radii, contact) |
/// | a squared length, rounded to that grid     | `tangente_kreis_kreis` (one circle in the other)
/// | | a length as it is                          | `intersect_line_circle` (length of the line,
/// contact), `intersect_circle_circle` (distance of the centres), `tangente_punkt_kreis`,
/// `fillet_line_circle` (distance of the centre from the line) | | a squared length as it is |
/// `projektion_punkt_auf_linie`, `projektion_punkt_auf_kreis`, `fillet_line_line` (lengths of the
/// lines), `adjust_arc_m2pnt` | | an area as it is                           |
/// `intersect_line_line`, `fillet_line_line` (parallels), `arc_line1end_to_line2anf` | | a
/// discriminant as it is                    | `intersect_line_ellipse` |
///
/// A value that is rounded to the grid counts as zero up to eps / 2; one that is compared as it is
/// counts as zero up to eps. `apolloniusCCC` and `fillet_kreis_kreis` have fixed limits.

#include <OrvelMath/geom2d/construct2d_apollonius.h>
#include <OrvelMath/geom2d/construct2d_arcs.h>
#include <OrvelMath/geom2d/construct2d_crossings.h>
#include <OrvelMath/geom2d/construct2d_fillets.h>
#include <OrvelMath/geom2d/construct2d_tangents.h>
