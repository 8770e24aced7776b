#include <OrvelMath/hull/ConvexHullBuilderC_p.h>
#include <OrvelMath/hull/HullLanes_p.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// Indices of the lexicographically smallest and largest point, the first of equal ones.
std::pair<int, int> lexicographicExtremes(HullPoints const &points)
{
    int smallest = 0;
    int largest = 0;
    vectorC3d<double> low = points.front();
    vectorC3d<double> high = low;
    for (std::size_t i = 1; i < points.size(); ++i) {
        vectorC3d<double> const &p = points[i];
        // Most points are told apart by x alone.
        if (p.x() <= low.x() && lexicographicallyLess(p, low)) {
            low = p;
            smallest = static_cast<int>(i);
        }
        if (p.x() >= high.x() && lexicographicallyLess(high, p)) {
            high = p;
            largest = static_cast<int>(i);
        }
    }
    return {smallest, largest};
}

/// Squared distance from the axis through `start` along the unit vector `axis`. Beyond the start
/// the axial part counts twice instead of not at all: required so.
struct AxisMeasure
{
    vectorC3d<double> start;
    vectorC3d<double> axis;

    HULL_LANES_INLINE void operator()(Lanes &measure, LanePoints const &p) const
    {
        LanePoints w{start.x() - p.x, start.y() - p.y, start.z() - p.z};
        Lanes t;
        dotLanes(t, w, axis);
        t = t < 0.0 ? -t : t;
        w.x += axis.x() * t;
        w.y += axis.y() * t;
        w.z += axis.z() * t;
        measure = 0.0 + w.x * w.x + w.y * w.y + w.z * w.z;
    }
};

/// Distance from the plane through `start` with the unit normal `normal`, on either side.
struct PlaneMeasure
{
    vectorC3d<double> start;
    vectorC3d<double> normal;

    HULL_LANES_INLINE void operator()(Lanes &measure, LanePoints const &p) const
    {
        LanePoints const w{start.x() - p.x, start.y() - p.y, start.z() - p.z};
        dotLanes(measure, w, normal);
        measure = measure < 0.0 ? -measure : measure;
    }
};

/// The point with the largest measure so far; of equal ones the lexicographically smallest.
struct Furthest
{
    double measure;
    int index;
    vectorC3d<double> point;

    void offer(double candidateMeasure, std::size_t candidate, vectorC3d<double> const &p)
    {
        if (candidateMeasure > measure ||
            (candidateMeasure == measure && lexicographicallyLess(p, point))) {
            measure = candidateMeasure;
            index = static_cast<int>(candidate);
            point = p;
        }
    }
};

template <typename Measure>
HULL_LANES_INLINE Furthest findFurthest(HullPoints const &points, Measure const &measure)
{
    Furthest furthest{0.0, 0, measure.start};
    for (std::size_t i = 0; i < points.size(); i += laneCount) {
        vectorC3d<double> tail[laneCount]; // the last points, filled up
        std::size_t const count = std::min(points.size() - i, laneCount);
        bool const whole = count == laneCount;
        if (!whole) {
            std::copy_n(points.data() + i, count, tail);
        }
        LanePoints lanes = {};
        readPoints(lanes, whole ? points.data() + i : tail);
        Lanes measures;
        measure(measures, lanes);
        if (anyLane(measures >= furthest.measure)) {
            for (std::size_t k = 0; k < count; ++k) {
                furthest.offer(measures[k], i + k, points[i + k]);
            }
        }
    }
    return furthest;
}

template <typename Measure>
HULL_WIDE_LANES Furthest findFurthestWide(HullPoints const &points, Measure const &measure)
{
    return findFurthest(points, measure);
}

template <typename Measure>
Furthest furthestBy(Measure const &measure, HullPoints const &points)
{
    return hasWideLanes() ? findFurthestWide(points, measure) : findFurthest(points, measure);
}

/// A triangle by the indices of its corners.
struct Corners
{
    int a, b, c;
};

/// True if the triangle must be reversed so that `reference` doesn't lie above it. A reference in
/// its plane reverses nothing.
bool orientFace(HullPoints const &points, Corners const &triangle, int reference)
{
    auto const at = [&](int index) { return points[static_cast<std::size_t>(index)]; };
    vectorC3d<double> const normal = triangleNormal(at(triangle.a), at(triangle.b), at(triangle.c));
    return (at(reference) - at(triangle.a)).dot(normal) > 0.0;
}

} // namespace

/// Classifies the input. Makes one face for planar input, four with twins for a solid; returns the
/// dimension.
int ConvexHullBuilderCPrivate::computeInitialSimplex(HullPoints const &coordinates)
{
    if (coordinates.empty()) {
        return -1;
    }
    auto const at = [&](int index) { return coordinates[static_cast<std::size_t>(index)]; };

    auto const [a, b] = lexicographicExtremes(coordinates);
    vectorC3d<double> const ab = at(b) - at(a);
    if (ab.length() < 1e-8) { // a length
        return 0;
    }

    Furthest const fromAxis = furthestBy(AxisMeasure{at(a), ab / ab.length()}, coordinates);
    if (std::sqrt(fromAxis.measure) < 1e-8) { // a length
        return 1;
    }
    int const c = fromAxis.index;

    vectorC3d<double> const normal = hullUnit((at(c) - at(a)).cross(ab));
    Furthest const fromPlane = furthestBy(PlaneMeasure{at(a), normal}, coordinates);
    int const d = fromPlane.index;
    if (fromPlane.measure < 1e-8) { // a length
        bool const reversed = orientFace(coordinates, {a, b, c}, d);
        int const second = reversed ? c : b;
        int const third = reversed ? b : c;
        makeFace(coordinates, makeHullEdge(a, second), makeHullEdge(second, third),
                 makeHullEdge(third, a));
        return 2;
    }

    makeTetrahedron(coordinates, {a, b, c, d});
    return 3;
}

/// Makes the four faces of the tetrahedron, each turned away from the corner that it doesn't hold,
/// and joins the edges that have the same two ends.
///
/// Rounding can turn two neighbours against each other, and can name one point for two corners.
/// Edges therefore are told apart by the places of their ends among the corners, and in any sense.
void ConvexHullBuilderCPrivate::makeTetrahedron(HullPoints const &coordinates,
                                                int const (&corners)[4])
{
    static constexpr int places[4][4] = {{0, 1, 2, 3}, {0, 3, 1, 2}, {0, 2, 3, 1}, {2, 1, 3, 0}};
    HullEdge *edgeBetween[4][4] = {};
    for (auto const &[a, b, c, opposite] : places) {
        int ends[3] = {a, b, c};
        Corners const triangle{corners[a], corners[b], corners[c]};
        if (orientFace(coordinates, triangle, corners[opposite])) {
            std::swap(ends[1], ends[2]);
        }
        HullEdge *edges[3];
        for (int i = 0; i < 3; ++i) {
            int const tail = ends[i];
            int const head = ends[(i + 1) % 3];
            edges[i] = makeHullEdge(corners[tail], corners[head]);
            HullEdge *&known = edgeBetween[std::min(tail, head)][std::max(tail, head)];
            if (known) {
                joinTwins(known, edges[i]);
            }
            known = edges[i];
        }
        makeFace(coordinates, edges[0], edges[1], edges[2]);
    }
}
