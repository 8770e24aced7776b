#include <OrvelExact/conics/bezierCrossings.h>

#include <OrvelExact/conics/curves_p.h>
#include <OrvelExact/conics/quadrantPolynomial_p.h>

namespace orvelExact {

namespace {

/// The distance from the line, times the length of its vector, as a polynomial in t.
struct DistancePolynomial
{
    DoubleDouble a[4];
    double noise;

    int signAt(double t, double near) const
    {
        double const value = valueOf(a, 3, t).high;
        return value > near ? 1 : value < -near ? -1 : 0;
    }
};

DistancePolynomial distanceAlong(CubicBezier const &curve, Point2 const &p0, Vector2 const &along)
{
    DoubleDouble b[4];
    double size = 0.0;
    for (int i = 0; i < 4; ++i) {
        Vector2 const way = differenceOf(curve.p[i], p0);
        b[i] = crossOf(along, way);
        size = std::max(size, std::fabs(way.x.high) + std::fabs(way.y.high));
    }
    DistancePolynomial f;
    f.a[0] = b[0];
    f.a[1] = (b[1] - b[0]) * 3.0;
    f.a[2] = (b[2] - b[1] - (b[1] - b[0])) * 3.0;
    f.a[3] = b[3] - b[0] - (b[2] - b[1]) * 3.0;
    f.noise = 0x1p-96 * size * (std::fabs(along.x.high) + std::fabs(along.y.high));
    return f;
}

/// A place where the curve is at an end or runs along the line's direction.
struct Stop
{
    double t;
    bool isEnd;
    int sign; ///< of the distance, 0 within the tolerance
};

/// Where a run of stops within the tolerance is told, with `before` and `after` the stops beside it
/// or null at the ends of the curve.
double placeOf(DistancePolynomial const &f, Stop const *run, int count, Stop const *before,
               Stop const *after)
{
    bool const crosses = before != nullptr && after != nullptr && before->sign != after->sign;
    Stop const &left = run[(count - 1) / 2];
    Stop const &right = run[count / 2];
    if (crosses && f.signAt(left.t, 0.0) * f.signAt(right.t, 0.0) < 0) {
        return rootBetween(f.a, 3, left.t, right.t);
    }
    // an end within the tolerance may hide the crossing next to it
    bool const isLoneEnd = count == 1 && run->isEnd;
    Stop const *const beside = before != nullptr ? before : after;
    if (isLoneEnd && beside != nullptr && f.signAt(run->t, 0.0) == -beside->sign) {
        return rootBetween(f.a, 3, std::min(run->t, beside->t), std::max(run->t, beside->t));
    }
    for (int i = 0; i < count; ++i) {
        if (!run[i].isEnd && count <= 2) {
            return run[i].t; // the contact rather than the end beside it
        }
    }
    return left.t;
}

/// The places on the curve, those of contacts among them; false when the whole curve is near.
bool placesOf(DistancePolynomial const &f, double near, BezierLineCrossings &result)
{
    PolynomialRoot roots[8];
    DoubleDouble const slope[3] = {f.a[1], f.a[2] * 2.0, f.a[3] * 3.0};
    int const found = rootsInUnit(slope, 2, 6.0 * f.noise, roots);
    Stop stops[10] = {{0.0, true, f.signAt(0.0, near)}};
    int last = 0;
    for (int i = 0; i < found; ++i) {
        if (roots[i].t > 0.0 && roots[i].t < 1.0) {
            stops[++last] = {roots[i].t, false, f.signAt(roots[i].t, near)};
        }
    }
    stops[++last] = {1.0, true, f.signAt(1.0, near)};
    for (int i = 0; i <= last && result.count < 3;) {
        int next = i;
        while (next <= last && stops[next].sign == 0) {
            ++next;
        }
        Stop const *const before = i > 0 ? &stops[i - 1] : nullptr;
        Stop const *const after = next <= last ? &stops[next] : nullptr;
        if (next > i) {
            if (before == nullptr && after == nullptr) {
                return false;
            }
            BezierLineCrossing &x = result.crossings[result.count++];
            x.t = placeOf(f, stops + i, next - i, before, after);
            for (int k = i; k < next; ++k) {
                x.isTouch = x.isTouch || !stops[k].isEnd;
            }
        } else if (before != nullptr && before->sign == -after->sign) {
            result.crossings[result.count++].t = rootBetween(f.a, 3, before->t, after->t);
        }
        i = next + 1;
    }
    return true;
}

/// The point at t to 106 bits, seen from p0.
Vector2 wayTo(CubicBezier const &curve, double t, Point2 const &p0)
{
    Vector2 p[4];
    for (int i = 0; i < 4; ++i) {
        p[i] = differenceOf(curve.p[i], p0);
    }
    for (int level = 3; level > 0; --level) {
        for (int i = 0; i < level; ++i) {
            p[i] = p[i] + (p[i + 1] - p[i]) * t;
        }
    }
    return p[0];
}

BezierLineCrossings withStatus(Status status)
{
    BezierLineCrossings result;
    result.status = status;
    return result;
}

/// Whether there is a curve and a line, and the exponent that makes their sizes about 1.
Status statusOf(CubicBezier const &curve, Point2 const &p0, Point2 const &p1, double tolerance,
                int &exponent)
{
    bool isAllFinite = isFinite(p0) && isFinite(p1) && std::isfinite(tolerance);
    double farthest = std::max(largestOf(p0), largestOf(p1));
    double extent = 0.0;
    double reach = 0.0;
    for (Point2 const &p : curve.p) {
        isAllFinite = isAllFinite && isFinite(p);
        farthest = std::max(farthest, largestOf(p));
        extent = std::max(extent, largestOf(p - curve.p[0]));
        reach = std::max(reach, largestOf(p - p0));
    }
    if (!isAllFinite) {
        return Status::NotFinite;
    }
    if (p0 == p1 || extent == 0.0) {
        return Status::Degenerate;
    }
    double const base = largestOf(p1 - p0);
    double const size = std::max(reach, base);
    exponent = exponentOf(size);
    bool const isOutOfRange = farthest > longestLength || size < shortestLength ||
                              std::min(extent, base) < size * leastRatio;
    return isOutOfRange ? Status::OutOfRange : Status::Ok;
}

} // namespace

Point2 pointAt(CubicBezier const &curve, double t)
{
    Point2 p[4] = {curve.p[0], curve.p[1], curve.p[2], curve.p[3]};
    for (int level = 3; level > 0; --level) {
        for (int i = 0; i < level; ++i) {
            p[i] = (1.0 - t) * p[i] + t * p[i + 1];
        }
    }
    return p[0];
}

BezierLineCrossings bezierLineCrossings(CubicBezier const &curve, Point2 const &p0,
                                        Point2 const &p1, double tolerance)
{
    int exponent = 0;
    Status const status = statusOf(curve, p0, p1, tolerance, exponent);
    if (status != Status::Ok) {
        return withStatus(status);
    }
    CubicBezier near;
    for (int i = 0; i < 4; ++i) {
        near.p[i] = timesPowerOfTwo(curve.p[i], -exponent);
    }
    Point2 const start = timesPowerOfTwo(p0, -exponent);
    Vector2 const along = differenceOf(timesPowerOfTwo(p1, -exponent), start);
    DoubleDouble const square = dotOf(along, along);
    DistancePolynomial const f = distanceAlong(near, start, along);
    double const gap = std::max(0.0, timesPowerOfTwo(tolerance, -exponent));
    BezierLineCrossings result;
    result.coincide = !placesOf(f, std::max(f.noise, gap * std::sqrt(square.high)), result);
    for (int i = 0; i < result.count; ++i) {
        BezierLineCrossing &x = result.crossings[i];
        Vector2 const way = wayTo(near, x.t, start);
        x.parameter = rounded(dotOf(way, along) / square);
        x.point = timesPowerOfTwo(rounded(way + differenceOf(start, {})), exponent);
    }
    return result;
}

BezierLineCrossings bezierSegmentCrossings(CubicBezier const &curve, Point2 const &p0,
                                           Point2 const &p1, double tolerance)
{
    BezierLineCrossings result = bezierLineCrossings(curve, p0, p1, tolerance);
    double const length = (p1 - p0).length();
    double const near = std::max(tolerance, 0x1p-50 * length);
    int kept = 0;
    for (int i = 0; i < result.count; ++i) {
        BezierLineCrossing const &x = result.crossings[i];
        double const beyond = std::max(-x.parameter, x.parameter - 1.0);
        if (beyond * length <= near) {
            result.crossings[kept++] = x;
        }
    }
    result.count = kept;
    return result;
}

} // namespace orvelExact
