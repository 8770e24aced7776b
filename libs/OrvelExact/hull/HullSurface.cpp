#include <OrvelExact/hull/HullSurface_p.h>

#include <OrvelExact/hull/HullBuilder_p.h>
#include <OrvelExact/hull/HullSimplex_p.h>
#include <OrvelExact/hull/convexHull2d.h>

#include <algorithm>
#include <cstdint>
#include <thread>

namespace orvelExact {

namespace {

/// Below this a part is not worth a thread.
constexpr int minPointsPerPart = 10000;

bool precedes(Point3 const &a, Point3 const &b)
{
    for (int k = 0; k < 3; ++k) {
        if (a[k] != b[k]) {
            return a[k] < b[k];
        }
    }
    return false;
}

HullSurface computeSegment(Point3 const *points, int count)
{
    int lowest = 0;
    int highest = 0;
    for (int i = 1; i < count; ++i) {
        lowest = precedes(points[i], points[lowest]) ? i : lowest;
        highest = precedes(points[highest], points[i]) ? i : highest;
    }
    HullSurface surface;
    surface.dimension = 1;
    surface.vertices = {std::min(lowest, highest), std::max(lowest, highest)};
    return surface;
}

/// Leaves out one component, so that the three points stay apart from a line.
QVector<Point2> projected(Point3 const *points, int count, int const *corner)
{
    constexpr int axes[3][2] = {{0, 1}, {1, 2}, {2, 0}};
    for (auto const &axis : axes) {
        auto const flat = [&](int i) { return Point2(points[i][axis[0]], points[i][axis[1]]); };
        if (orientation2d(flat(corner[0]), flat(corner[1]), flat(corner[2])) == Sign::Zero) {
            continue;
        }
        QVector<Point2> result;
        result.reserve(count);
        for (int i = 0; i < count; ++i) {
            result.append(flat(i));
        }
        return result;
    }
    return {};
}

HullSurface computePolygon(Point3 const *points, int count, int const *corner)
{
    ConvexPolygon const polygon = convexHull2d(projected(points, count, corner));
    HullSurface surface;
    surface.dimension = 2;
    surface.corners.assign(polygon.corners.begin(), polygon.corners.end());
    auto const lowest = std::min_element(surface.corners.begin(), surface.corners.end());
    std::rotate(surface.corners.begin(), lowest, surface.corners.end());
    if (surface.corners.back() < surface.corners[1]) {
        std::reverse(surface.corners.begin() + 1, surface.corners.end());
    }
    surface.starts = {0, static_cast<int>(surface.corners.size())};
    surface.vertices = surface.corners;
    std::sort(surface.vertices.begin(), surface.vertices.end());
    return surface;
}

/// True if of a sample a third are extreme, as on a sphere. Then parts leave too many points for
/// their hulls to pay.
bool areMostlyExtreme(Point3 const *points, int count)
{
    constexpr int sampleSize = 2000;
    std::vector<Point3> sample;
    sample.reserve(sampleSize);
    for (int i = 0; i < sampleSize; ++i) {
        sample.push_back(points[static_cast<std::int64_t>(count) * i / sampleSize]);
    }
    HullSurface const surface = computeHullSurface(sample.data(), sampleSize);
    return surface.vertices.size() > static_cast<std::size_t>(sampleSize / 3);
}

/// Replaces indices into a selection by the indices that were selected.
void translate(std::vector<int> &indices, std::vector<int> const &selected)
{
    for (int &index : indices) {
        index = selected[static_cast<std::size_t>(index)];
    }
}

} // namespace

void HullSurface::sortPolygons()
{
    struct Entry
    {
        std::uint64_t key; // the first two corners
        int start;
        int end;
    };
    std::vector<Entry> order;
    for (std::size_t i = 0; i + 1 < starts.size(); ++i) {
        auto const begin = corners.begin() + starts[i];
        auto const end = corners.begin() + starts[i + 1];
        std::rotate(begin, std::min_element(begin, end), end);
        std::uint64_t const key = std::uint64_t(*begin) << 32 | std::uint64_t(*(begin + 1));
        order.push_back({key, starts[i], starts[i + 1]});
    }
    std::sort(order.begin(), order.end(),
              [](Entry const &a, Entry const &b) { return a.key < b.key; });
    std::vector<int> const unsorted = std::move(corners);
    corners.clear();
    corners.reserve(unsorted.size());
    starts.assign(1, 0);
    for (Entry const &entry : order) {
        corners.insert(corners.end(), unsorted.begin() + entry.start, unsorted.begin() + entry.end);
        starts.push_back(static_cast<int>(corners.size()));
    }
}

HullSurface computeFlatHull(Point3 const *points, int count, int dimension, int const *corner)
{
    if (dimension == 2) {
        return computePolygon(points, count, corner);
    }
    if (dimension == 1) {
        return computeSegment(points, count);
    }
    HullSurface surface;
    surface.dimension = 0;
    surface.vertices = {0};
    return surface;
}

HullSurface computeHullSurface(Point3 const *points, int count)
{
    WorkPoints const work(points, count);
    if (!work.isFinite()) {
        return {};
    }
    HullSimplex const simplex = findSimplex(work);
    if (simplex.dimension < 3) {
        return computeFlatHull(points, count, simplex.dimension, simplex.corner);
    }
    HullBuilder builder(work);
    builder.build(simplex.corner);
    HullSurface surface;
    surface.dimension = 3;
    mergeFacets(builder.mesh(), work, surface);
    surface.sortPolygons();
    return surface;
}

HullSurface computeHullSurface(Point3 const *points, int count, int threadCount)
{
    int const partCount = std::min(threadCount, count / minPointsPerPart);
    if (partCount < 2 || areMostlyExtreme(points, count)) {
        return computeHullSurface(points, count);
    }
    auto const startOf = [&](int part) {
        return static_cast<int>(static_cast<std::int64_t>(count) * part / partCount);
    };
    std::vector<HullSurface> parts(static_cast<std::size_t>(partCount));
    auto const compute = [&](int part) {
        parts[static_cast<std::size_t>(part)] =
            computeHullSurface(points + startOf(part), startOf(part + 1) - startOf(part));
    };
    std::vector<std::thread> threads;
    for (int part = 1; part < partCount; ++part) {
        threads.emplace_back(compute, part);
    }
    compute(0);
    for (std::thread &thread : threads) {
        thread.join();
    }
    std::vector<int> selected;
    std::vector<Point3> left;
    for (int part = 0; part < partCount; ++part) {
        if (parts[static_cast<std::size_t>(part)].dimension < 0) {
            return {};
        }
        for (int const vertex : parts[static_cast<std::size_t>(part)].vertices) {
            selected.push_back(startOf(part) + vertex);
            left.push_back(points[selected.back()]);
        }
    }
    HullSurface surface = computeHullSurface(left.data(), static_cast<int>(left.size()));
    translate(surface.vertices, selected);
    translate(surface.corners, selected);
    return surface;
}

} // namespace orvelExact
