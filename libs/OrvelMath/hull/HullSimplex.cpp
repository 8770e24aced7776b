#include <OrvelMath/hull/ConvexHullBuilderC_p.h>

#include <cmath>
#include <utility>

namespace {

/// The point with the largest measure so far; of equal ones the lexicographically smallest.
class Furthest
{
public:
    explicit Furthest(vectorC3d<double> const &start)
        : m_point(start)
    {
    }

    void offer(double measure, int candidate, vectorC3d<double> const &point)
    {
        if (measure >= m_measure) {
            take(measure, candidate, point);
        }
    }

    double measure() const { return m_measure; }
    int index() const { return m_index; }

private:
    void take(double measure, int candidate, vectorC3d<double> const &point)
    {
        if (measure > m_measure || lexicographicallyLess(point, m_point)) {
            m_measure = measure;
            m_index = candidate;
            m_point = point;
        }
    }

    double m_measure = 0.0;
    int m_index = 0;
    vectorC3d<double> m_point;
};

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
Furthest furthestFromAxis(HullPoints const &points, vectorC3d<double> const &start,
                          vectorC3d<double> const &axis)
{
    Furthest furthest(start);
    for (std::size_t i = 0; i < points.size(); ++i) {
        vectorC3d<double> const w = start - points[i];
        double const t = axis.dot(w);
        furthest.offer((w + axis * std::abs(t)).squaredLength(), static_cast<int>(i), points[i]);
    }
    return furthest;
}

/// Distance from the plane through `start` with the unit normal `normal`, on either side.
Furthest furthestFromPlane(HullPoints const &points, vectorC3d<double> const &start,
                           vectorC3d<double> const &normal)
{
    Furthest furthest(start);
    for (std::size_t i = 0; i < points.size(); ++i) {
        furthest.offer(std::abs((start - points[i]).dot(normal)), static_cast<int>(i), points[i]);
    }
    return furthest;
}

/// A triangle by its corners, counter-clockwise seen from outside.
struct Corners
{
    int a, b, c;
};

/// Turns the triangle so that `reference` doesn't lie above it. One in its plane changes nothing.
void orientFace(HullPoints const &points, Corners &triangle, int reference)
{
    auto const at = [&](int index) { return points[static_cast<std::size_t>(index)]; };
    vectorC3d<double> const normal = triangleNormal(at(triangle.a), at(triangle.b), at(triangle.c));
    if ((at(reference) - at(triangle.a)).dot(normal) > 0.0) {
        std::swap(triangle.b, triangle.c);
    }
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

    Furthest const fromAxis = furthestFromAxis(coordinates, at(a), ab / ab.length());
    if (std::sqrt(fromAxis.measure()) < 1e-8) { // a length
        return 1;
    }
    int const c = fromAxis.index();

    vectorC3d<double> const normal = hullUnit((at(c) - at(a)).cross(ab));
    Furthest const fromPlane = furthestFromPlane(coordinates, at(a), normal);
    int const d = fromPlane.index();
    if (fromPlane.measure() < 1e-8) { // a length
        Corners triangle{a, b, c};
        orientFace(coordinates, triangle, d);
        makeFace(coordinates, makeHullEdge(triangle.a, triangle.b),
                 makeHullEdge(triangle.b, triangle.c), makeHullEdge(triangle.c, triangle.a));
        return 2;
    }

    makeTetrahedron(coordinates, {a, b, c, d});
    return 3;
}

/// Makes the four faces of the tetrahedron, each turned away from the corner that it doesn't hold,
/// and joins their edges.
void ConvexHullBuilderCPrivate::makeTetrahedron(HullPoints const &coordinates,
                                                int const (&corners)[4])
{
    auto const [a, b, c, d] = corners;
    std::pair<Corners, int> const facesAndOpposites[4] = {
        {{a, b, c}, d}, {{a, d, b}, c}, {{a, c, d}, b}, {{c, b, d}, a}};
    HullEdge *edges[12];
    int count = 0;
    for (auto [triangle, opposite] : facesAndOpposites) {
        orientFace(coordinates, triangle, opposite);
        edges[count] = makeHullEdge(triangle.a, triangle.b);
        edges[count + 1] = makeHullEdge(triangle.b, triangle.c);
        edges[count + 2] = makeHullEdge(triangle.c, triangle.a);
        makeFace(coordinates, edges[count], edges[count + 1], edges[count + 2]);
        count += 3;
    }
    for (int i = 0; i < 12; ++i) {
        for (int j = i + 1; j < 12; ++j) {
            if (edges[i]->tail == edges[j]->head && edges[i]->head == edges[j]->tail) {
                joinTwins(edges[i], edges[j]);
            }
        }
    }
}
