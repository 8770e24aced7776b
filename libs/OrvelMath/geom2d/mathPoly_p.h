#pragma once

#include <OrvelMath/geom2d/mathPoly.h>

namespace mathPoly {

/// Half the angle whose tangent is 2 B / (A - C): the turn, in radians, that a conic's own axes
/// have against the coordinate axes. NaN when A = C and B = 0.
double axisAngle(double A, double B, double C);

/// The curve carried along with its points by the map m.
Conic transformed(Conic const &conic, TMat const &m);

/// The map under which e becomes the unit circle.
TMat ellipseToUnit(Ellipse const &e);

/// Working space of the crossing search: at most three members of the pencil, two lines each,
/// two points a line.
constexpr int kMaxCandidates = 12;

/// The crossings of e1 and e2, not yet merged, in the order of discovery; returns their number.
int crossingCandidates(Ellipse const &e1, Ellipse const &e2, Point (&candidates)[kMaxCandidates]);

} // namespace mathPoly
