#include <OrvelExact/conics/quadrantPolynomial_p.h>

namespace orvelExact {

namespace {

double slopeOf(DoubleDouble const *a, int degree, double t)
{
    double slope = degree * a[degree].high;
    for (int i = degree - 1; i >= 1; --i) {
        slope = slope * t + i * a[i].high;
    }
    return slope;
}

int signWithin(DoubleDouble const &value, double noise)
{
    return value.high > noise ? 1 : value.high < -noise ? -1 : 0;
}

} // namespace

DoubleDouble valueOf(DoubleDouble const *a, int degree, double t)
{
    DoubleDouble value = a[degree];
    for (int i = degree - 1; i >= 0; --i) {
        value = value * t + a[i];
    }
    return value;
}

double rootBetween(DoubleDouble const *a, int degree, double below, double above)
{
    bool const rises = valueOf(a, degree, above).high > 0.0;
    double t = 0.5 * (below + above);
    double lastWidth = above - below;
    for (int step = 0; step < 200; ++step) {
        DoubleDouble const value = valueOf(a, degree, t);
        if (value.high == 0.0) {
            return t;
        }
        ((value.high > 0.0) == rises ? above : below) = t;
        double next = t - value.high / slopeOf(a, degree, t);
        if (std::fabs(next - t) <= 0x1p-56) {
            return t;
        }
        bool const shrinksSlowly = step % 4 == 3 && above - below > 0.5 * lastWidth;
        if (step % 4 == 3) {
            lastWidth = above - below;
        }
        if (!(next > below && next < above) || shrinksSlowly) {
            next = 0.5 * (below + above);
            if (next == below || next == above) {
                return t;
            }
        }
        t = next;
    }
    return t;
}

Direction directionAt(Place place)
{
    double const quadrant = std::floor(place);
    DoubleDouble const t(place - quadrant);
    DoubleDouble const square = t * t;
    DoubleDouble const whole = square + 1.0;
    Direction d{(DoubleDouble(1.0) - square) / whole, t * 2.0 / whole};
    turnByQuarters(static_cast<int>(quadrant) & 3, d.c, d.s);
    return d;
}

int rootsInUnit(DoubleDouble const *a, int degree, double noise, PolynomialRoot *roots)
{
    PolynomialRoot bounds[10]{{0.0, 0}};
    int last = 1;
    if (degree > 1) {
        DoubleDouble derivative[4];
        for (int i = 0; i < degree; ++i) {
            derivative[i] = a[i + 1] * (i + 1.0);
        }
        last += rootsInUnit(derivative, degree - 1, noise * degree, bounds + 1);
    }
    bounds[last] = {1.0, 0};

    int count = 0;
    int before = 0;
    for (int i = 0; i <= last; ++i) {
        int const sign = signWithin(valueOf(a, degree, bounds[i].t), noise);
        if (sign == 0) {
            roots[count++] = {bounds[i].t, bounds[i].order + 1};
        } else if (before == -sign) {
            roots[count++] = {rootBetween(a, degree, bounds[i - 1].t, bounds[i].t), 1};
        }
        before = sign;
    }
    return count;
}

} // namespace orvelExact
