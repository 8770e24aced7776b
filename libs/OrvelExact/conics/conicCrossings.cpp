#include <OrvelExact/conics/conicCrossings.h>

#include <OrvelExact/conics/curves_p.h>

namespace orvelExact {

namespace {

/// A point of one ellipse, c and s times its own vectors, in the measure of another whose inside
/// is the disc of radius `area`: `constant + c cosine + s sine`.
struct InMeasure
{
    Vector2 constant;
    Vector2 cosine;
    Vector2 sine;
    DoubleDouble area;
};

Vector2 measured(Vector2 const &p, Ellipse const &by)
{
    return {crossOf(p, by.v), -crossOf(p, by.u)};
}
Vector2 measured(Point2 const &p, Ellipse const &by)
{
    return {crossOf(p, by.v), crossOf(by.u, p)};
}
InMeasure measured(Ellipse const &e, Ellipse const &by)
{
    return {measured(differenceOf(e.centre, by.centre), by), measured(e.u, by), measured(e.v, by),
            crossOf(by.u, by.v)};
}

double lengthOf(Vector2 const &v)
{
    return std::sqrt(v.x.high * v.x.high + v.y.high * v.y.high);
}
double reachOf(InMeasure const &m)
{
    return lengthOf(m.constant) + lengthOf(m.cosine) + lengthOf(m.sine);
}

/// The squared distance from the centre of the measuring ellipse less that of its boundary.
CirclePolynomial implicitAlong(InMeasure const &m, double roundingOfMeasure)
{
    DoubleDouble const cosineSquare = dotOf(m.cosine, m.cosine);
    DoubleDouble const sineSquare = dotOf(m.sine, m.sine);
    DoubleDouble const areaSquare = m.area * m.area;
    CirclePolynomial f{
        {dotOf(m.constant, m.constant) + scaled(cosineSquare + sineSquare, 0.5) - areaSquare,
         scaled(dotOf(m.constant, m.cosine), 2.0), scaled(dotOf(m.constant, m.sine), 2.0),
         scaled(cosineSquare - sineSquare, 0.5), dotOf(m.cosine, m.sine)},
        0.0};
    double const reach = reachOf(m);
    f.noise = 2.0 * (reach + std::fabs(m.area.high)) * roundingOfMeasure +
              0x1p-99 * (reach * reach + areaSquare.high);
    return f;
}

Point2 high(Vector2 const &v)
{
    return {v.x.high, v.y.high};
}

/// The gradient of the implicit function at a point in the measure.
Point2 gradientAt(Point2 const &p, Ellipse const &by)
{
    return {2.0 * (p.x() * by.v.y() - p.y() * by.u.y()),
            2.0 * (p.y() * by.u.x() - p.x() * by.v.x())};
}

/// The direction on the measuring ellipse of the point in a direction of the measured one.
Point2 directionOnMeasure(InMeasure const &m, Direction const &d)
{
    DoubleDouble const x = m.constant.x + m.cosine.x * d.c + m.sine.x * d.s;
    DoubleDouble const y = m.constant.y + m.cosine.y * d.c + m.sine.y * d.s;
    Point2 const p(rounded(x), rounded(y));
    return (m.area.high < 0.0 ? -p : p) / p.length();
}

/// Half plane first, then the turn: which of two directions comes first from (1, 0) on.
bool isBefore(Point2 const &a, Point2 const &b)
{
    bool const aIsLow = a.y() < 0.0 || (a.y() == 0.0 && a.x() < 0.0);
    bool const bIsLow = b.y() < 0.0 || (b.y() == 0.0 && b.x() < 0.0);
    return aIsLow != bIsLow ? bIsLow : a.x() * b.y() - a.y() * b.x() > 0.0;
}

void sortAlongFirst(ConicCrossings &result)
{
    for (int i = 1; i < result.count; ++i) {
        for (int j = i;
             j > 0 && isBefore(result.crossings[j].onFirst, result.crossings[j - 1].onFirst); --j) {
            std::swap(result.crossings[j], result.crossings[j - 1]);
        }
    }
}

/// How large the measured ellipse is by the measuring one.
double relativeReach(InMeasure const &m)
{
    return reachOf(m) / std::fabs(m.area.high);
}

/// The crossings of two ellipses of about unit size.
ConicCrossings crossingsOfScaled(Ellipse const &first, Ellipse const &second, double tolerance)
{
    InMeasure const firstBySecond = measured(first, second);
    InMeasure const secondByFirst = measured(second, first);
    // The smaller one of the two keeps more digits along its way.
    bool const isSwapped = relativeReach(secondByFirst) < relativeReach(firstBySecond);
    InMeasure const &m = isSwapped ? secondByFirst : firstBySecond;
    Ellipse const &along = isSwapped ? second : first;
    Ellipse const &by = isSwapped ? first : second;

    double const lengths =
        lengthOf(differenceOf(along.centre, by.centre)) + along.u.length() + along.v.length();
    double const rounding = 0x1p-101 * lengths * (by.u.length() + by.v.length());
    CirclePolynomial const f = implicitAlong(m, rounding);
    Gradient const gradient{gradientAt(high(m.constant), by), gradientAt(high(m.cosine), by),
                            gradientAt(high(m.sine), by)};

    ConicCrossings result;
    double const swing = sizeOf(f) - std::fabs(f.k[0].high);
    if (f.noise > 0x1p-30 * swing && std::fabs(f.k[0].high) <= swing + f.noise &&
        tolerance * gradient.bound() < swing) {
        result.status = Status::OutOfRange;
        return result;
    }
    CircleZeros const zeros = zerosOf(f, gradient, tolerance);
    result.coincide = zeros.isEverywhere;
    result.count = zeros.count;
    for (int i = 0; i < zeros.count; ++i) {
        CircleZero const &zero = zeros.zeros[i];
        Point2 const own = plain(zero.at);
        Point2 const other = directionOnMeasure(m, zero.at);
        result.crossings[i] = {pointAt(along, zero.at), isSwapped ? other : own,
                               isSwapped ? own : other, zero.isTouch, zero.crosses};
    }
    sortAlongFirst(result);
    return result;
}

/// Both of two arguments in order, or what is wrong with the first that isn't.
Status worseOf(Status a, Status b)
{
    if (a == Status::NotFinite || b == Status::NotFinite) {
        return Status::NotFinite;
    }
    return a != Status::Ok ? a : b;
}

ConicCrossings withStatus(Status status)
{
    ConicCrossings result;
    result.status = status;
    return result;
}

} // namespace

ConicCrossings ellipseCrossings(Ellipse const &first, Ellipse const &second, double tolerance)
{
    Status const status = worseOf(worseOf(statusOf(first), statusOf(second)),
                                  std::isfinite(tolerance) ? Status::Ok : Status::NotFinite);
    if (status != Status::Ok) {
        return withStatus(status);
    }
    int const exponent = exponentOf(std::max(extentOf(first), extentOf(second)));
    double const near = std::max(0.0, timesPowerOfTwo(tolerance, -exponent));
    double const apart = timesPowerOfTwo(largestOf(first.centre - second.centre), -exponent);
    if (apart > 6.0 + near) { // two ellipses reach at most 2 sqrt(2) each
        return {};
    }
    Ellipse const e1 = timesPowerOfTwo(first, -exponent);
    Ellipse const e2 = timesPowerOfTwo(second, -exponent);
    if (std::min(extentOf(e1), extentOf(e2)) < leastRatio ||
        largestOf(e1.centre) > 1.0 / leastRatio) {
        return withStatus(Status::OutOfRange);
    }
    ConicCrossings result = crossingsOfScaled(e1, e2, near);
    for (int i = 0; i < result.count; ++i) {
        result.crossings[i].point = timesPowerOfTwo(result.crossings[i].point, exponent);
    }
    return result;
}

ConicCrossings arcCrossings(EllipseArc const &first, EllipseArc const &second, double tolerance)
{
    Status const status = worseOf(statusOf(first), statusOf(second));
    if (status != Status::Ok) {
        return withStatus(status);
    }
    ConicCrossings result = ellipseCrossings(first.ellipse, second.ellipse, tolerance);
    auto const isOff = [&](ConicCrossing const &x) {
        return !isOnArc(first, x.onFirst, tolerance) || !isOnArc(second, x.onSecond, tolerance);
    };
    ConicCrossing *const end = result.crossings + result.count;
    result.count =
        static_cast<int>(std::remove_if(result.crossings, end, isOff) - result.crossings);
    return result;
}

} // namespace orvelExact
