// Reads the bytes as a polygon and a point, on a small lattice or any bit patterns. Whether it
// meets itself is told by all pairs of edges; where the point lies, by a ray to the left.

#include <OrvelExact/polygon/polygonLocation.h>
#include <OrvelExact/polygon/polygonMeasures.h>
#include <OrvelExact/polygon/polygonShape.h>
#include <OrvelExact/predicates/orientation.h>
#include <OrvelExact/segments/segmentCrossing.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

using namespace orvelExact;

namespace {

void require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

/// A small whole number, a multiple of 0.1, or any double.
double readNumber(std::uint8_t const *&data, std::uint8_t const *end)
{
    if (end - data < 1) {
        return 0.0;
    }
    int const first = *data++;
    if (first % 16 != 0 || end - data < 8) {
        return (first >> 5) * (first % 2 == 0 ? 1.0 : 0.1);
    }
    double value = 0.0;
    std::memcpy(&value, data, sizeof value);
    data += sizeof value;
    return value;
}

bool meet(QVector<Point2> const &p, int e, int f)
{
    int const n = p.size();
    SegmentCrossing const crossing =
        crossSegments(p.at(e), p.at((e + 1) % n), p.at(f), p.at((f + 1) % n));
    bool const isNext = (e + 1) % n == f;
    bool const isPrevious = (f + 1) % n == e;
    if (!isNext && !isPrevious) {
        return crossing.kind != CrossingKind::None;
    }
    bool const isPoint = p.at(e) == p.at((e + 1) % n) || p.at(f) == p.at((f + 1) % n);
    return isPoint || crossing.kind != CrossingKind::AtEnd ||
           (isNext && crossing.point != p.at(f)) || (isPrevious && crossing.point != p.at(e));
}

void compareWithAllPairs(QVector<Point2> const &polygon)
{
    bool isSimple = polygon.size() >= 3;
    for (int e = 0; e < polygon.size(); ++e) {
        for (int f = e + 1; f < polygon.size(); ++f) {
            isSimple = isSimple && !meet(polygon, e, f);
        }
    }
    PolygonSimplicity const found = polygonSimplicity(polygon);
    require(found.isSimple == isSimple);
    require(found.firstEdge < 0 || meet(polygon, found.firstEdge, found.secondEdge));
    PolygonConvexity const convexity = polygonConvexity(polygon);
    if (isSimple) {
        require(polygonSense(polygon) == Sign::Positive || polygonSense(polygon) == Sign::Negative);
        require(!convexity.isConvex || convexity.sense == polygonSense(polygon));
    }
}

/// Counts the edges to the left of the point, where the library counts to the right.
void compareWithRay(QVector<Point2> const &polygon, Point2 const &point)
{
    PolygonLocation const found = locateInPolygon(polygon, point, FillRule::Winding);
    int const n = polygon.size();
    if (found.place == PolygonPlace::Vertex) {
        require(polygon.at(found.index) == point);
        return;
    }
    if (found.place == PolygonPlace::Edge) {
        require(classifyCrossing(polygon.at(found.index), polygon.at((found.index + 1) % n), point,
                                 point) == CrossingKind::AtEnd);
        return;
    }
    int winding = 0;
    for (int i = 0; i < n; ++i) {
        Point2 const &a = polygon.at(i);
        Point2 const &b = polygon.at((i + 1) % n);
        Sign const side = orientation2d(a, b, point);
        if (a.y() > point.y() && b.y() <= point.y() && side == Sign::Positive) {
            ++winding; // down, with the point on its left: the edge is to the left
        } else if (a.y() <= point.y() && b.y() > point.y() && side == Sign::Negative) {
            --winding;
        }
    }
    require(found.winding == winding);
    require((found.place == PolygonPlace::Inside) == (winding != 0));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size)
{
    std::uint8_t const *const end = data + size;
    double const x = readNumber(data, end);
    Point2 const point(x, readNumber(data, end));
    QVector<Point2> polygon;
    while (data < end && polygon.size() < 24) {
        double const cornerX = readNumber(data, end);
        polygon.append({cornerX, readNumber(data, end)});
    }
    if (!areFinite(polygon)) {
        require(polygonSimplicity(polygon).status == Status::NotFinite);
        require(polygonConvexity(polygon).status == Status::NotFinite);
        require(polygonArea(polygon).status == Status::NotFinite);
        require(locateInPolygon(polygon, point).place == PolygonPlace::NotFinite);
        return 0;
    }
    compareWithAllPairs(polygon);
    if (isFinite(point)) {
        compareWithRay(polygon, point);
    }
    return 0;
}
