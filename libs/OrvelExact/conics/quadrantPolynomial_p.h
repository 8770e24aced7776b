#pragma once

/// @file
/// A trigonometric polynomial of degree 2 along one quadrant of the circle, as a polynomial.

#include <OrvelExact/conics/CirclePolynomial_p.h>

namespace orvelExact {

/// A place on the circle: the number of the quadrant plus t from 0 to 1, where the direction in the
/// quadrant is ((1 - t²) / (1 + t²), 2 t / (1 + t²)). Half-angle tangents need no sine.
using Place = double;

Direction directionAt(Place place);

/// The direction turned by a number of quarter turns.
template <typename Real>
void turnByQuarters(int quarters, Real &c, Real &s)
{
    for (; quarters > 0; --quarters) {
        Real const before = c;
        c = -s;
        s = before;
    }
}

/// (1 + t²)² f for the directions of a quadrant, a polynomial of degree 4 in t from 0 to 1; its
/// coefficients from the constant on.
template <typename Real>
void quadrantPolynomial(Real const (&k)[5], int quadrant, Real (&a)[5])
{
    Real k1 = k[1];
    Real k2 = k[2];
    Real k3 = k[3];
    Real k4 = k[4];
    for (int turn = 0; turn < quadrant; ++turn) {
        Real const before = k1;
        k1 = k2;
        k2 = -before;
        k3 = -k3;
        k4 = -k4;
    }
    a[0] = k[0] + k1 + k3;
    a[1] = (k2 + k4 * 2.0) * 2.0;
    a[2] = (k[0] - k3 * 3.0) * 2.0;
    a[3] = (k2 - k4 * 2.0) * 2.0;
    a[4] = k[0] - k1 + k3;
}

/// a[0] + a[1] t + ... after Horner.
DoubleDouble valueOf(DoubleDouble const *a, int degree, double t);

/// The place between two places of opposite sign where a polynomial vanishes, to the last bits of a
/// double: Newton's steps, bisection where they leave the bracket or shrink it too little.
double rootBetween(DoubleDouble const *a, int degree, double below, double above);

/// A root and how many derivatives vanish there within the noise, plus one.
struct PolynomialRoot
{
    double t;
    int order;
};

/// The roots from 0 to 1 of a[0] + a[1] t + ..., ascending; values of a size up to `noise` count
/// as 0. Between the roots of the derivative the polynomial is monotone, so that a change of sign
/// brackets exactly one root.
/// @param degree from 1 to 4
/// @param roots eight places, of which at most 2 `degree` are filled
int rootsInUnit(DoubleDouble const *a, int degree, double noise, PolynomialRoot *roots);

} // namespace orvelExact
