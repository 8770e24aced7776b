#include <OrvelExact/conics/quick/simpleZeros_p.h>

#include <OrvelExact/conics/quadrantPolynomial_p.h>

#include <cmath>

namespace orvelExact {

namespace {

constexpr int deepest = 12; // halvings of a quadrant

/// A part of a quadrant, by the coefficients after Bernstein of (1 + t²)² f.
struct Piece
{
    double b[5];
    double from;
    double width;
    int depth;
};

/// How often the coefficients plus `shift` change sign.
int changes(double const (&b)[5], double shift)
{
    int count = 0;
    for (int i = 0; i < 4; ++i) {
        count += (b[i] + shift > 0.0) != (b[i + 1] + shift > 0.0) ? 1 : 0;
    }
    return count;
}

Piece wholeQuadrant(double const (&a)[5])
{
    return {{a[0], a[0] + 0.25 * a[1], a[0] + 0.5 * a[1] + a[2] / 6.0,
             a[0] + 0.75 * a[1] + 0.5 * a[2] + 0.25 * a[3], a[0] + a[1] + a[2] + a[3] + a[4]},
            0.0,
            1.0,
            0};
}

/// Cuts a piece in the middle (de Casteljau 1959): the left half stays, the right one is returned.
Piece cutInHalf(Piece &piece)
{
    piece.width *= 0.5;
    ++piece.depth;
    Piece right = piece;
    right.from += piece.width;
    for (int level = 0; level < 4; ++level) {
        for (int i = 4; i > level; --i) {
            piece.b[i] = 0.5 * (piece.b[i - 1] + piece.b[i]);
        }
        right.b[3 - level] = piece.b[4];
    }
    return right;
}

double rootOf(double const (&a)[5], Piece const &piece)
{
    bool const rises = piece.b[4] > 0.0;
    double below = piece.from;
    double above = piece.from + piece.width;
    double t = below + piece.width * (piece.b[0] / (piece.b[0] - piece.b[4]));
    for (int step = 0; step < 60; ++step) {
        double const value = (((a[4] * t + a[3]) * t + a[2]) * t + a[1]) * t + a[0];
        double const slope = ((4.0 * a[4] * t + 3.0 * a[3]) * t + 2.0 * a[2]) * t + a[1];
        ((value > 0.0) == rises ? above : below) = t;
        double next = t - value / slope;
        if (!(next >= below && next <= above)) {
            next = 0.5 * (below + above);
        }
        if (std::fabs(next - t) <= 0x1p-40) { // the next step would be below the last bit
            return next;
        }
        t = next;
    }
    return t;
}

PlainDirection directionOf(double t, int quadrant)
{
    double const whole = 1.0 / (1.0 + t * t);
    PlainDirection d{(1.0 - t * t) * whole, 2.0 * t * whole};
    turnByQuarters(quadrant, d.c, d.s);
    return d;
}

} // namespace

bool simpleZeros(double const (&k)[5], double band, PlainDirection (&zeros)[4], int &count)
{
    double const shift = 4.0 * band; // the largest (1 + t²)²
    count = 0;
    for (int quadrant = 0; quadrant < 4; ++quadrant) {
        double a[5];
        quadrantPolynomial(k, quadrant, a);
        Piece stack[deepest + 1];
        stack[0] = wholeQuadrant(a);
        for (int height = 1; height > 0;) {
            Piece &top = stack[height - 1];
            int const high = changes(top.b, shift);
            int const low = changes(top.b, -shift);
            if (high == low && high <= 1 && std::fabs(top.b[0]) > shift) {
                if (high == 1 && count < 4) {
                    zeros[count++] = directionOf(rootOf(a, top), quadrant);
                }
                --height;
            } else if (top.depth == deepest) {
                return false;
            } else {
                stack[height] = cutInHalf(top);
                ++height;
            }
        }
    }
    return true;
}

} // namespace orvelExact
