#include <OrvelMath/hull/HullSimplex_p.h>

#include <OrvelMath/hull/HullFurthest_p.h>
#include <OrvelMath/hull/quick/QuickFurthest_p.h>

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

/// A triangle by the indices of its corners.
struct Corners
{
    int a, b, c;
};

/// True if the triangle must be reversed so that `reference` doesn't lie above it. A reference in
/// its plane reverses nothing.
bool orientFace(HullPoints const &points, Corners const &triangle, int reference)
{
    vectorC3d<double> const &a = pointAt(points, triangle.a);
    vectorC3d<double> const normal =
        triangleNormal(a, pointAt(points, triangle.b), pointAt(points, triangle.c));
    return (pointAt(points, reference) - a).dot(normal) > 0.0;
}

/// Makes the four faces of the tetrahedron, each turned away from the corner that it doesn't hold,
/// and joins the edges that have the same two ends.
///
/// Rounding can turn two neighbours against each other, and can name one point for two corners.
/// Edges therefore are told apart by the places of their ends among the corners, and in any sense.
void makeTetrahedron(HullSurface &surface, HullPoints const &points, int const (&corners)[4])
{
    static constexpr int places[4][4] = {{0, 1, 2, 3}, {0, 3, 1, 2}, {0, 2, 3, 1}, {2, 1, 3, 0}};
    HullEdge *edgeBetween[4][4] = {};
    for (auto const &[a, b, c, opposite] : places) {
        int ends[3] = {a, b, c};
        if (orientFace(points, {corners[a], corners[b], corners[c]}, corners[opposite])) {
            std::swap(ends[1], ends[2]);
        }
        HullFace *const face =
            surface.makeTriangle(points, corners[ends[0]], corners[ends[1]], corners[ends[2]]);
        for (int i = 0; i < 3; ++i) {
            auto const [low, high] = std::minmax(ends[i], ends[(i + 1) % 3]);
            HullEdge *&known = edgeBetween[low][high];
            if (known) {
                joinTwins(known, face->edges[i]);
            }
            known = face->edges[i];
        }
    }
}

} // namespace

int makeSimplex(HullSurface &surface, HullPoints const &points, HullWay way)
{
    if (points.empty()) {
        return -1;
    }
    bool const quick = way == HullWay::Quick;

    auto const [a, b] = lexicographicExtremes(points);
    vectorC3d<double> const start = pointAt(points, a);
    vectorC3d<double> const ab = pointAt(points, b) - start;
    if (ab.length() < 1e-8) { // a length
        return 0;
    }

    vectorC3d<double> const axis = ab / ab.length();
    Furthest const fromAxis =
        quick ? quickFurthestFromAxis(points, start, axis) : furthestFromAxis(points, start, axis);
    if (std::sqrt(fromAxis.measure) < 1e-8) { // a length
        return 1;
    }
    int const c = fromAxis.index;

    vectorC3d<double> const normal = hullUnit((pointAt(points, c) - start).cross(ab));
    Furthest const fromPlane = quick ? quickFurthestFromPlane(points, start, normal)
                                     : furthestFromPlane(points, start, normal);
    int const d = fromPlane.index;
    if (fromPlane.measure < 1e-8) { // a length
        bool const reversed = orientFace(points, {a, b, c}, d);
        surface.makeTriangle(points, a, reversed ? c : b, reversed ? b : c);
        return 2;
    }

    makeTetrahedron(surface, points, {a, b, c, d});
    return 3;
}
