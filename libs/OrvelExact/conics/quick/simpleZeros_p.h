#pragma once

/// @file
/// Zeros of a trigonometric polynomial where none is near a contact.

namespace orvelExact {

/// A direction in doubles, of length 1 within a few units in the last place.
struct PlainDirection
{
    double c;
    double s;
};

/// The zeros of k0 + k1 c + k2 s + k3 (c² - s²) + k4 2 c s, if they are all simple.
///
/// What is proven when true is returned: each function that differs from the given one by a
/// constant of a size up to `band` has as many zeros, each in an arc of its own that it shares with
/// just one zero given. So no extremum lies within the band. The proof is Descartes' rule for the
/// coefficients after Bernstein on halved arcs (Lane and Riesenfeld 1981).
/// @param band must cover the rounding of the coefficients and of this computation
/// @param zeros four places; without meaning when false is returned
bool simpleZeros(double const (&k)[5], double band, PlainDirection (&zeros)[4], int &count);

} // namespace orvelExact
