#include <OrvelExact/measures/distances.h>

#include <OrvelExact/measures/vectors_p.h>

#include <initializer_list>

namespace orvelExact {

namespace {

constexpr double farthestCoordinate = 1e270;
constexpr double resolution = 0x1p-90; // of the input's size

/// Two points and the square of their distance.
struct Feet
{
    DoubleDouble square;
    Vector3 first;
    Vector3 second;
};

Feet feetAt(Vector3 const &first, Vector3 const &second)
{
    Vector3 const way = second - first;
    return {dotOf(way, way), first, second};
}

Feet const &nearerOf(Feet const &a, Feet const &b)
{
    return b.square < a.square ? b : a;
}

Feet swapped(Feet const &f)
{
    return {f.square, f.second, f.first};
}

/// From a point to a segment.
Feet fromSegment(Vector3 const &p, Vector3 const &a, Vector3 const &b)
{
    Vector3 const along = b - a;
    DoubleDouble const square = dotOf(along, along);
    DoubleDouble const part = dotOf(p - a, along);
    if (!(part.high > 0.0) || square.high == 0.0) {
        return feetAt(p, a);
    }
    return part < square ? feetAt(p, a + along * (part / square)) : feetAt(p, b);
}

/// Where two segments come nearest inside, if the lines do so at all: a guess from the common
/// normal, set right by two projections, which no error of the guess spoils.
Feet betweenLines(Vector3 const (&a)[2], Vector3 const (&b)[2])
{
    Vector3 const alongA = a[1] - a[0];
    Vector3 const alongB = b[1] - b[0];
    Vector3 const normal = crossOf(alongA, alongB);
    DoubleDouble const square = dotOf(normal, normal);
    Vector3 guess = a[0];
    if (square.high > 0.0) {
        DoubleDouble const part = dotOf(crossOf(b[0] - a[0], alongB), normal) / square;
        if (part.high > 0.0) {
            guess = part < DoubleDouble(1.0) ? a[0] + alongA * part : a[1];
        }
    }
    Vector3 const onB = fromSegment(guess, b[0], b[1]).second;
    return swapped(fromSegment(onB, a[0], a[1]));
}

Feet betweenSegments(Vector3 const (&a)[2], Vector3 const (&b)[2])
{
    Feet best = fromSegment(a[0], b[0], b[1]);
    best = nearerOf(best, fromSegment(a[1], b[0], b[1]));
    best = nearerOf(best, swapped(fromSegment(b[0], a[0], a[1])));
    best = nearerOf(best, swapped(fromSegment(b[1], a[0], a[1])));
    return nearerOf(best, betweenLines(a, b));
}

/// The normal of a triangle, upright to the longest edge even where the triangle is a sliver, and
/// the number of the vertex where that edge starts.
Vector3 normalOf(Vector3 const (&t)[3], int &start)
{
    DoubleDouble longest(-1.0);
    for (int i = 0; i < 3; ++i) {
        Vector3 const edge = t[(i + 1) % 3] - t[i];
        DoubleDouble const square = dotOf(edge, edge);
        if (longest < square) {
            longest = square;
            start = i;
        }
    }
    Vector3 const edge = t[(start + 1) % 3] - t[start];
    Vector3 const normal = crossOf(edge, t[(start + 2) % 3] - t[start]);
    return longest.high > 0.0 ? normal - edge * (dotOf(normal, edge) / longest) : normal;
}

/// From a point to a triangle: to its edges, and to its plane where the foot lies inside.
Feet fromTriangle(Vector3 const &p, Vector3 const (&t)[3])
{
    Feet best = fromSegment(p, t[0], t[1]);
    best = nearerOf(best, fromSegment(p, t[1], t[2]));
    best = nearerOf(best, fromSegment(p, t[2], t[0]));
    int start = 0;
    Vector3 const normal = normalOf(t, start);
    DoubleDouble const square = dotOf(normal, normal);
    if (!(square.high > 0.0)) {
        return best;
    }
    for (int i = 0; i < 3; ++i) {
        Vector3 const inward = crossOf(normal, t[(i + 1) % 3] - t[i]);
        if (dotOf(p - t[i], inward).high < 0.0) {
            return best;
        }
    }
    Vector3 const foot = p - normal * (dotOf(p - t[start], normal) / square);
    return nearerOf(best, feetAt(p, foot));
}

/// From the corners of a triangle and from where its edges meet the plane of another one.
Feet fromCornersAndEdges(Vector3 const (&a)[3], Vector3 const (&b)[3])
{
    int start = 0;
    Vector3 const normal = normalOf(b, start);
    Feet best = fromTriangle(a[0], b);
    for (int i = 0; i < 3; ++i) {
        best = nearerOf(best, fromTriangle(a[i], b));
        Vector3 const &next = a[(i + 1) % 3];
        DoubleDouble const here = dotOf(a[i] - b[start], normal);
        DoubleDouble const there = dotOf(next - b[start], normal);
        if ((here.high < 0.0) != (there.high < 0.0)) {
            Vector3 const through = a[i] + (next - a[i]) * (here / (here - there));
            best = nearerOf(best, fromTriangle(through, b));
        }
    }
    return best;
}

Feet betweenTriangles(Vector3 const (&a)[3], Vector3 const (&b)[3])
{
    Feet best = nearerOf(fromCornersAndEdges(a, b), swapped(fromCornersAndEdges(b, a)));
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 3; ++k) {
            best = nearerOf(best, betweenSegments({a[i], a[(i + 1) % 3]}, {b[k], b[(k + 1) % 3]}));
        }
    }
    return best;
}

/// The input seen from its first point, by a power of two that makes it of unit size.
class Frame
{
public:
    Frame(std::initializer_list<Point3> points)
        : m_origin(*points.begin())
    {
        double size = 0.0;
        for (Point3 const &p : points) {
            if (!isFinite(p)) {
                m_status = Status::NotFinite;
                return;
            }
            if (largestOf(p) > farthestCoordinate) {
                m_status = Status::OutOfRange;
            }
            size = std::max(size, largestOf(p - m_origin));
        }
        m_exponent = exponentOf(size);
    }

    Status status() const { return m_status; }
    Vector3 operator()(Point3 const &p) const
    {
        Vector3 const way = differenceOf(p, m_origin);
        return {timesPowerOfTwo(way.x, -m_exponent), timesPowerOfTwo(way.y, -m_exponent),
                timesPowerOfTwo(way.z, -m_exponent)};
    }
    NearestPair3 result(Feet const &feet) const
    {
        double const distance = rounded(squareRoot(feet.square));
        bool const meet = distance <= resolution;
        return {Status::Ok, meet ? 0.0 : timesPowerOfTwo(distance, m_exponent), placed(feet.first),
                placed(feet.second)};
    }

private:
    Point3 placed(Vector3 const &v) const
    {
        Vector3 const way{timesPowerOfTwo(v.x, m_exponent), timesPowerOfTwo(v.y, m_exponent),
                          timesPowerOfTwo(v.z, m_exponent)};
        return rounded(way + differenceOf(m_origin, {}));
    }

    Point3 m_origin;
    int m_exponent = 0;
    Status m_status = Status::Ok;
};

NearestPair3 refused(Status status)
{
    NearestPair3 result;
    result.status = status;
    return result;
}

Nearest3 second(NearestPair3 const &pair)
{
    return {pair.status, pair.distance, pair.onSecond};
}

Point3 inSpace(Point2 const &p)
{
    return {p.x(), p.y(), 0.0};
}
Point2 inPlane(Point3 const &p)
{
    return {p.x(), p.y()};
}
Nearest2 inPlane(Nearest3 const &n)
{
    return {n.status, n.distance, inPlane(n.point)};
}
NearestPair2 inPlane(NearestPair3 const &n)
{
    return {n.status, n.distance, inPlane(n.onFirst), inPlane(n.onSecond)};
}

} // namespace

Nearest3 nearestOnSegment(Point3 const &p, Point3 const &a, Point3 const &b)
{
    Frame const frame{p, a, b};
    if (frame.status() != Status::Ok) {
        return second(refused(frame.status()));
    }
    return second(frame.result(fromSegment(frame(p), frame(a), frame(b))));
}

Nearest2 nearestOnSegment(Point2 const &p, Point2 const &a, Point2 const &b)
{
    return inPlane(nearestOnSegment(inSpace(p), inSpace(a), inSpace(b)));
}

NearestPair3 nearestOfSegments(Point3 const &a0, Point3 const &a1, Point3 const &b0,
                               Point3 const &b1)
{
    Frame const frame{a0, a1, b0, b1};
    if (frame.status() != Status::Ok) {
        return refused(frame.status());
    }
    return frame.result(betweenSegments({frame(a0), frame(a1)}, {frame(b0), frame(b1)}));
}

NearestPair2 nearestOfSegments(Point2 const &a0, Point2 const &a1, Point2 const &b0,
                               Point2 const &b1)
{
    return inPlane(nearestOfSegments(inSpace(a0), inSpace(a1), inSpace(b0), inSpace(b1)));
}

Nearest3 nearestOnTriangle(Point3 const &p, Point3 const &a, Point3 const &b, Point3 const &c)
{
    Frame const frame{p, a, b, c};
    if (frame.status() != Status::Ok) {
        return second(refused(frame.status()));
    }
    return second(frame.result(fromTriangle(frame(p), {frame(a), frame(b), frame(c)})));
}

Nearest2 nearestOnTriangle(Point2 const &p, Point2 const &a, Point2 const &b, Point2 const &c)
{
    return inPlane(nearestOnTriangle(inSpace(p), inSpace(a), inSpace(b), inSpace(c)));
}

NearestPair3 nearestOfTriangles(Point3 const (&first)[3], Point3 const (&other)[3])
{
    Frame const frame{first[0], first[1], first[2], other[0], other[1], other[2]};
    if (frame.status() != Status::Ok) {
        return refused(frame.status());
    }
    return frame.result(betweenTriangles({frame(first[0]), frame(first[1]), frame(first[2])},
                                         {frame(other[0]), frame(other[1]), frame(other[2])}));
}

NearestPair2 nearestOfTriangles(Point2 const (&first)[3], Point2 const (&other)[3])
{
    return inPlane(nearestOfTriangles({inSpace(first[0]), inSpace(first[1]), inSpace(first[2])},
                                      {inSpace(other[0]), inSpace(other[1]), inSpace(other[2])}));
}

} // namespace orvelExact
