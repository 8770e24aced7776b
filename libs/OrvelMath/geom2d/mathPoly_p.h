#pragma once

/// @file
/// Helpers shared by the files of the namespace `mathPoly`. Not part of the interface.

#include <OrvelMath/geom2d/mathPoly.h>

#include <cmath>

namespace mathPoly {

/// Cosine and sine of a turn, so that the functions of the crossing search share them.
struct Turn
{
    double c;
    double s;

    Turn back() const { return {c, -s}; }
};

inline Turn turnBy(double angle)
{
    return {std::cos(angle), std::sin(angle)};
}

/// Puts a turn after the map m.
inline void rotate(TMat &m, Turn turn)
{
    TMat const old = m;
    m.m00 = turn.c * old.m00 - turn.s * old.m10;
    m.m10 = turn.s * old.m00 + turn.c * old.m10;
    m.m01 = turn.c * old.m01 - turn.s * old.m11;
    m.m11 = turn.s * old.m01 + turn.c * old.m11;
    m.tx = turn.c * old.tx - turn.s * old.ty;
    m.ty = turn.s * old.tx + turn.c * old.ty;
}

/// The conic of e, given the turn by e's angle.
Conic conicOf(Ellipse const &e, Turn turn);

/// Half the angle whose tangent is 2 B / (A - C): the turn, in radians, that a conic's own axes
/// have against the coordinate axes. NaN when A = C and B = 0.
double axisAngle(double A, double B, double C);

/// The curve carried along with its points by the map m.
Conic transformed(Conic const &conic, TMat const &m);

/// The map under which e becomes the unit circle, given the turn by e's angle.
TMat ellipseToUnit(Ellipse const &e, Turn turn);

/// Working space of the crossing search: at most three members of the pencil, two lines each,
/// two points a line.
constexpr int maxCandidates = 12;

/// The crossings of e1 and e2, not yet merged, in the order of discovery; returns their number.
int crossingCandidates(Ellipse const &e1, Ellipse const &e2, Point (&candidates)[maxCandidates]);

} // namespace mathPoly
