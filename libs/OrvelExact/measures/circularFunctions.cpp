#include <OrvelExact/measures/circularFunctions_p.h>

namespace orvelExact {

namespace {

// a quarter turn in three parts
constexpr double quarterHigh = 0x1.921fb54442d18p+0;
constexpr double quarterMiddle = 0x1.1a62633145c07p-54;
constexpr double quarterLow = -0x1.f1976b7ed8fbcp-110;
constexpr double negligible = 0x1p-112;

/// x - x^3/3! + ... from the first term on; `step` is the number of the next factor.
DoubleDouble alternatingSeries(DoubleDouble const &first, DoubleDouble const &square, int step)
{
    DoubleDouble sum = first;
    DoubleDouble term = first;
    while (std::fabs(term.high) > negligible) {
        term = -(term * square) / DoubleDouble(static_cast<double>(step * (step + 1)));
        sum = sum + term;
        step += 2;
    }
    return sum;
}

/// For an angle of at most an eighth of a turn.
SineCosine smallSineCosine(DoubleDouble const &angle)
{
    DoubleDouble const square = angle * angle;
    return {alternatingSeries(angle, square, 2), alternatingSeries(1.0, square, 1)};
}

SineCosine turnedByQuarters(SineCosine const &v, long long quarters)
{
    switch (quarters & 3) {
    case 1:
        return {v.cosine, -v.sine};
    case 2:
        return {-v.sine, -v.cosine};
    case 3:
        return {-v.cosine, v.sine};
    default:
        return v;
    }
}

/// The angle of a slope from 0 to 1 within 1e-5 (Hastings 1955).
double roughArcTangent(double slope)
{
    double const q = slope * slope;
    return slope *
           (0.9998660 + q * (-0.3302995 + q * (0.1801410 + q * (-0.0851330 + q * 0.0208351))));
}

} // namespace

SineCosine sineCosineOf(double angle)
{
    double const quarters = std::floor(angle / quarterHigh + 0.5);
    DoubleDouble rest = DoubleDouble(angle) - wideProduct(quarters, quarterHigh);
    rest = rest - wideProduct(quarters, quarterMiddle);
    rest = rest - quarters * quarterLow;
    return turnedByQuarters(smallSineCosine(rest), static_cast<long long>(quarters));
}

DoubleDouble arcTangentOf(DoubleDouble const &y, DoubleDouble const &x)
{
    DoubleDouble const up = magnitude(y);
    DoubleDouble const along = magnitude(x);
    bool const isSteep = up > along;
    DoubleDouble const opposite = isSteep ? along : up;
    DoubleDouble const adjacent = isSteep ? up : along;

    // One turn by a rough angle leaves a rest whose tangent is its own series.
    double const rough = roughArcTangent(opposite.high / adjacent.high);
    SineCosine const turn = smallSineCosine(rough);
    DoubleDouble const slope = (opposite * turn.cosine - adjacent * turn.sine) /
                               (adjacent * turn.cosine + opposite * turn.sine);
    DoubleDouble const square = slope * slope;
    DoubleDouble angle =
        slope * (DoubleDouble(1.0) - square * (DoubleDouble(1.0) / 3.0 - square * 0.2));
    angle = angle + rough;

    DoubleDouble const quarter(quarterHigh, quarterMiddle);
    if (isSteep) {
        angle = quarter - angle;
    }
    if (x.high < 0.0) {
        angle = quarter * 2.0 - angle;
    }
    return y.high < 0.0 ? -angle : angle;
}

} // namespace orvelExact
