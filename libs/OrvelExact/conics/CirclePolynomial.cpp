#include <OrvelExact/conics/CirclePolynomial_p.h>

#include <OrvelExact/conics/quadrantPolynomial_p.h>
#include <OrvelExact/conics/quick/simpleZeros_p.h>

#include <algorithm>

namespace orvelExact {

namespace {

constexpr int mostBounds = 32; // eight roots of each quadrant

/// A place where the derivative vanishes, and what the function is there.
struct Bound
{
    Place place;
    int order;
    Direction at;
    int sign; ///< 0 within the tolerance
};

/// The direction turned by a small angle, to second order.
Direction turnedBy(Direction const &d, double angle)
{
    double const shorter = 1.0 - 0.5 * angle * angle;
    return {d.c * shorter - d.s * angle, d.s * shorter + d.c * angle};
}

Direction ofLengthOne(Direction const &d)
{
    DoubleDouble const excess = d.c * d.c + d.s * d.s - 1.0;
    DoubleDouble const factor = DoubleDouble(1.0) - excess * 0.5 + excess * excess * 0.375;
    return {d.c * factor, d.s * factor};
}

/// Adds what the roots of the derivative in a quadrant bound, unless it is there already.
void addBounds(CirclePolynomial const &slope, int quadrant, Bound *bounds, int &count)
{
    DoubleDouble a[5];
    quadrantPolynomial(slope.k, quadrant, a);
    PolynomialRoot roots[8];
    int const found = rootsInUnit(a, 4, 4.0 * slope.noise, roots);
    for (int i = 0; i < found; ++i) {
        Place const place = quadrant + roots[i].t;
        bool const isKnown = count > 0 && place - bounds[count - 1].place <= 0x1p-50;
        if (isKnown) {
            bounds[count - 1].order = std::max(bounds[count - 1].order, roots[i].order);
        } else {
            bounds[count++] = {place, roots[i].order, directionAt(place), 0};
        }
    }
}

/// All bounds counter-clockwise; the end of the last quadrant is the start of the first.
int boundsOf(CirclePolynomial const &f, Bound *bounds)
{
    CirclePolynomial const slope = derivativeOf(f);
    int count = 0;
    for (int quadrant = 0; quadrant < 4; ++quadrant) {
        addBounds(slope, quadrant, bounds, count);
    }
    if (count > 1 && bounds[count - 1].place - 4.0 >= bounds[0].place - 0x1p-50) {
        --count;
        bounds[0].order = std::max(bounds[0].order, bounds[count].order);
    }
    return count;
}

/// The zero between two places of opposite sign with none of the derivative between them; `above`
/// may lie beyond 4, on the next turn. The Illinois form of the rule of false position (Dowell and
/// Jarratt 1971), then Newton's.
Direction zeroBetween(CirclePolynomial const &f, Place below, Place above)
{
    double valueBelow = valueAt(f, directionAt(below)).high;
    double valueAbove = valueAt(f, directionAt(above)).high;
    for (int step = 0; step < 100 && above - below > 0x1p-50; ++step) {
        Place middle = below + (above - below) * (valueBelow / (valueBelow - valueAbove));
        if (step % 3 == 2 || !(middle > below && middle < above)) {
            middle = 0.5 * (below + above);
        }
        double const value = valueAt(f, directionAt(middle)).high;
        if (value == 0.0) {
            return refinedZero(f, directionAt(middle));
        }
        if ((value > 0.0) == (valueAbove > 0.0)) {
            above = middle;
            valueAbove = value;
            valueBelow *= 0.5;
        } else {
            below = middle;
            valueBelow = value;
            valueAbove *= 0.5;
        }
    }
    return refinedZero(f, directionAt(0.5 * (below + above)));
}

/// Where a run of bounds within the tolerance is best told: at the deepest contact, and else in its
/// middle.
Direction contactOf(CirclePolynomial const &f, Bound const *run, int count, bool crosses)
{
    int deepest = 0;
    int equals = 0;
    for (int i = 0; i < count; ++i) {
        if (run[i].order > run[deepest].order) {
            deepest = i;
            equals = 0;
        }
        equals += run[i].order == run[deepest].order ? 1 : 0;
    }
    if (equals == 1) {
        return run[deepest].at;
    }
    Bound const &left = run[(count - 1) / 2];
    Bound const &right = run[count / 2];
    if (crosses && valueAt(f, left.at).high * valueAt(f, right.at).high < 0.0) {
        Place const above = right.place < left.place ? right.place + 4.0 : right.place;
        return zeroBetween(f, left.place, above);
    }
    return left.at;
}

/// The zeros by the extrema: between neighbours of opposite sign lies one zero, and neighbours
/// within the tolerance are one contact.
CircleZeros zerosByExtrema(CirclePolynomial const &f, Gradient const &gradient, double tolerance)
{
    Bound bounds[2 * mostBounds];
    int const count = boundsOf(f, bounds);
    int start = -1;
    for (int i = 0; i < count; ++i) {
        Direction const &d = bounds[i].at;
        double const value = valueAt(f, d).high;
        double const near = std::max(f.noise, tolerance * gradient.lengthAt(d.c.high, d.s.high));
        bounds[i].sign = value > near ? 1 : value < -near ? -1 : 0;
        if (bounds[i].sign != 0 && start < 0) {
            start = i;
        }
    }
    CircleZeros result;
    if (start < 0) {
        result.isEverywhere = true;
        return result;
    }
    std::rotate(bounds, bounds + start, bounds + count);
    bounds[count] = bounds[0];
    for (int before = 0; before < count && result.count < 4;) {
        int next = before + 1;
        while (bounds[next].sign == 0) {
            ++next;
        }
        bool const crosses = bounds[before].sign != bounds[next].sign;
        int const run = next - before - 1;
        if (run > 0) {
            result.zeros[result.count++] = {contactOf(f, bounds + before + 1, run, crosses), true,
                                            crosses};
        } else if (crosses) {
            Place const below = bounds[before].place;
            Place const above = bounds[next].place;
            result.zeros[result.count++] = {
                zeroBetween(f, below, above < below ? above + 4.0 : above), false, true};
        }
        before = next;
    }
    return result;
}

} // namespace

Direction refinedZero(CirclePolynomial const &f, Direction const &start)
{
    CirclePolynomial const slope = derivativeOf(f);
    double const curvature = 4.0 * sizeOf(f);
    Direction d = ofLengthOne(start);
    for (int step = 0; step < 8; ++step) {
        double const rise = valueAt(slope, d).high;
        double const turn = -valueAt(f, d).high / rise;
        if (!(std::fabs(turn) < 1e-6)) { // an angle: beyond it the start was no near zero
            break;
        }
        d = ofLengthOne(turnedBy(d, turn));
        if (turn * turn * curvature <= 0x1p-57 * std::fabs(rise)) {
            break;
        }
    }
    return d;
}

DoubleDouble valueAt(CirclePolynomial const &f, Direction const &d)
{
    DoubleDouble const cosineOfTwice = (d.c - d.s) * (d.c + d.s);
    DoubleDouble const halfSineOfTwice = d.c * d.s;
    return f.k[0] + f.k[1] * d.c + f.k[2] * d.s + f.k[3] * cosineOfTwice +
           f.k[4] * halfSineOfTwice * 2.0;
}

CirclePolynomial derivativeOf(CirclePolynomial const &f)
{
    return {{0.0, f.k[2], -f.k[1], f.k[4] * 2.0, f.k[3] * -2.0}, 2.0 * f.noise};
}

double sizeOf(CirclePolynomial const &f)
{
    double size = 0.0;
    for (DoubleDouble const &k : f.k) {
        size += std::fabs(k.high);
    }
    return size;
}

int extremaOf(CirclePolynomial const &f, Direction (&at)[8])
{
    Bound bounds[mostBounds];
    int const count = std::min(boundsOf(f, bounds), 8);
    for (int i = 0; i < count; ++i) {
        at[i] = bounds[i].at;
    }
    return count;
}

CircleZeros zerosOf(CirclePolynomial const &f, Gradient const &gradient, double tolerance)
{
    double const plain[5] = {f.k[0].high, f.k[1].high, f.k[2].high, f.k[3].high, f.k[4].high};
    double const rounding = 0x1p-46 * sizeOf(f); // of the quick computation, in doubles
    double const band = f.noise + rounding + tolerance * gradient.bound();
    CircleZeros result;
    PlainDirection zeros[4];
    if (!simpleZeros(plain, band, zeros, result.count)) {
        return zerosByExtrema(f, gradient, tolerance);
    }
    for (int i = 0; i < result.count; ++i) {
        result.zeros[i] = {refinedZero(f, {zeros[i].c, zeros[i].s}), false, true};
    }
    return result;
}

} // namespace orvelExact
