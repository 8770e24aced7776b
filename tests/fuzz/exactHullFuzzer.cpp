// Reads the bytes as points of space, on a small lattice or any bit patterns, and builds their
// hull. It is refused, or is the one that all triples of points give.

#include <OrvelExact/hull/ConvexHull.h>
#include <OrvelExact/predicates/orientation.h>

#include <algorithm>
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

bool hasAbove(QVector<Point3> const &points, int a, int b, int c)
{
    return std::any_of(points.begin(), points.end(), [&](Point3 const &p) {
        return orientation3d(points.at(a), points.at(b), points.at(c), p) == Sign::Positive;
    });
}

bool hasOff(QVector<Point3> const &points, int a, int b, int c)
{
    return std::any_of(points.begin(), points.end(), [&](Point3 const &p) {
        return orientation3d(points.at(a), points.at(b), points.at(c), p) != Sign::Zero;
    });
}

/// A triple with nothing above and something below is part of a facet, and the other way round.
void compareWithTriples(ConvexHull const &hull)
{
    QVector<Point3> const &points = hull.points();
    for (int f = 0; f < hull.facetCount(); ++f) {
        QVector<int> const corners = hull.facet(f);
        require(!hasAbove(points, corners[0], corners[1], corners[2]));
    }
    for (int a = 0; a < points.size(); ++a) {
        for (int b = 0; b < points.size(); ++b) {
            for (int c = 0; c < points.size(); ++c) {
                if (a < b && a < c && b != c && hasOff(points, a, b, c) &&
                    !hasAbove(points, a, b, c)) {
                    require(hull.dimension() == 3);
                    require(hull.contains(points.at(a)) == PointLocation::Boundary);
                }
            }
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size)
{
    std::uint8_t const *const end = data + size;
    QVector<Point3> points;
    while (data < end && points.size() < 14) {
        double const x = readNumber(data, end);
        double const y = readNumber(data, end);
        points.append({x, y, readNumber(data, end)});
    }
    ConvexHull const hull(points);
    if (points.isEmpty() || !areFinite(points)) {
        require(hull.dimension() == -1 && hull.vertices().isEmpty());
        return 0;
    }
    require(hull.status() == Status::Ok && !hull.vertices().isEmpty());
    for (Point3 const &p : points) {
        require(hull.contains(p) == PointLocation::Boundary ||
                (hull.dimension() == 3 && hull.contains(p) == PointLocation::Inside));
    }
    compareWithTriples(hull);
    QVector<Point3> corners;
    for (int const v : hull.vertices()) {
        corners.append(points.at(v));
    }
    ConvexHull const again(corners);
    require(again.vertices().size() == corners.size());
    require(again.facetCount() == hull.facetCount());
    return 0;
}
