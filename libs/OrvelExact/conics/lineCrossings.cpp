#include <OrvelExact/conics/conicCrossings.h>
#include <OrvelExact/conics/curves_p.h>

namespace orvelExact {

namespace {

/// The crossings of an ellipse and a line, all lengths of about unit size or below.
LineCrossings crossingsOfScaled(Ellipse const &e, Point2 const &p0, Point2 const &p1,
                                double tolerance)
{
    Vector2 const along = differenceOf(p1, p0);
    Vector2 const fromLine = differenceOf(e.centre, p0);
    DoubleDouble const square = dotOf(along, along);
    double const length = std::sqrt(square.high);
    // the distance from the line, times the length of its vector
    CirclePolynomial f{
        {crossOf(along, fromLine), crossOf(along, e.u), crossOf(along, e.v), 0.0, 0.0}, 0.0};
    double const lengths = std::sqrt(dotOf(fromLine, fromLine).high) + e.u.length() + e.v.length();
    f.noise = 0x1p-99 * length * lengths;

    LineCrossings result;
    double const swing = sizeOf(f) - std::fabs(f.k[0].high);
    if (f.noise > 0x1p-30 * swing && std::fabs(f.k[0].high) <= swing + f.noise) {
        result.status = Status::OutOfRange;
        return result;
    }
    CircleZeros const zeros = zerosOf(f, {{length, 0.0}, {}, {}}, tolerance);
    CircleZeros found = zeros;
    if (zeros.isEverywhere) {
        Direction extrema[8];
        found.count = std::min(extremaOf(f, extrema), 2);
        for (int i = 0; i < found.count; ++i) {
            found.zeros[i] = {extrema[i], true, false};
        }
    }
    result.count = std::min(found.count, 2);
    for (int i = 0; i < result.count; ++i) {
        Direction const &d = found.zeros[i].at;
        Vector2 const way{d.c * e.u.x() + d.s * e.v.x() + fromLine.x,
                          d.c * e.u.y() + d.s * e.v.y() + fromLine.y};
        result.crossings[i] = {pointAt(e, d), plain(d), rounded(dotOf(way, along) / square),
                               found.zeros[i].isTouch};
    }
    if (result.count == 2 && result.crossings[1].parameter < result.crossings[0].parameter) {
        std::swap(result.crossings[0], result.crossings[1]);
    }
    return result;
}

LineCrossings withStatus(Status status)
{
    LineCrossings result;
    result.status = status;
    return result;
}

} // namespace

LineCrossings lineCrossings(Ellipse const &ellipse, Point2 const &p0, Point2 const &p1,
                            double tolerance)
{
    Status const status = statusOf(ellipse);
    if (!isFinite(p0) || !isFinite(p1) || !std::isfinite(tolerance)) {
        return withStatus(Status::NotFinite);
    }
    if (status != Status::Ok) {
        return withStatus(status);
    }
    if (p0 == p1) {
        return withStatus(Status::Degenerate);
    }
    double const farthest = std::max(largestOf(p0), largestOf(p1));
    double const base = largestOf(p1 - p0);
    if (farthest > longestLength || base < shortestLength) {
        return withStatus(Status::OutOfRange);
    }
    int const exponent = exponentOf(std::max(extentOf(ellipse), base));
    Ellipse const e = timesPowerOfTwo(ellipse, -exponent);
    if (std::min(extentOf(e), timesPowerOfTwo(base, -exponent)) < leastRatio ||
        timesPowerOfTwo(std::max(farthest, largestOf(ellipse.centre)), -exponent) >
            1.0 / leastRatio) {
        return withStatus(Status::OutOfRange);
    }
    LineCrossings result =
        crossingsOfScaled(e, timesPowerOfTwo(p0, -exponent), timesPowerOfTwo(p1, -exponent),
                          std::max(0.0, timesPowerOfTwo(tolerance, -exponent)));
    for (int i = 0; i < result.count; ++i) {
        result.crossings[i].point = timesPowerOfTwo(result.crossings[i].point, exponent);
    }
    return result;
}

LineCrossings segmentCrossings(EllipseArc const &arc, Point2 const &p0, Point2 const &p1,
                               double tolerance)
{
    Status const status = statusOf(arc);
    if (status != Status::Ok) {
        return withStatus(status);
    }
    LineCrossings result = lineCrossings(arc.ellipse, p0, p1, tolerance);
    double const length = (p1 - p0).length();
    double const near = std::max(tolerance, 0x1p-50 * length);
    auto const isOff = [&](LineCrossing const &x) {
        double const beyond = std::max(-x.parameter, x.parameter - 1.0);
        return beyond * length > near || !isOnArc(arc, x.direction, tolerance);
    };
    LineCrossing *const end = result.crossings + result.count;
    result.count =
        static_cast<int>(std::remove_if(result.crossings, end, isOff) - result.crossings);
    return result;
}

} // namespace orvelExact
