#include <OrvelMath/hull/ConvexHullBuilderC_p.h>

#include <cmath>

namespace {

/// Two unit vectors of a plane; with the plane's normal they are right-handed.
struct PlaneBasis
{
    vectorC3d<double> u;
    vectorC3d<double> v;
};

PlaneBasis planeBasis(vectorC3d<double> const &normal)
{
    vectorC3d<double> const n = hullUnit(normal);
    bool const nearX = std::abs(n.x()) > 0.7; // a cosine
    vectorC3d<double> const auxiliary =
        nearX ? vectorC3d<double>(0.0, 1.0, 0.0) : vectorC3d<double>(1.0, 0.0, 0.0);
    vectorC3d<double> const u = hullUnit(n.cross(auxiliary));
    return {u, hullUnit(n.cross(u))};
}

vectorC3d<double> arithmeticMean(HullPoints const &points)
{
    vectorC3d<double> sum;
    for (vectorC3d<double> const &p : points) {
        sum += p;
    }
    return sum / static_cast<double>(points.size());
}

} // namespace

/// Replaces the face that the simplex has found by the fan of the hull polygon in its plane.
void ConvexHullBuilderCPrivate::buildPlanar(HullPoints const &coordinates)
{
    vectorC3d<double> const normal = faces.back()->normal;
    destroyFaces();

    vectorC3d<double> const mean = arithmeticMean(coordinates);
    PlaneBasis const basis = planeBasis(normal);
    QVector<vectorC2d<double>> projected;
    projected.reserve(static_cast<int>(coordinates.size()));
    for (vectorC3d<double> const &p : coordinates) {
        vectorC3d<double> const offset = p - mean;
        projected.append({offset.dot(basis.u), offset.dot(basis.v)});
    }

    QList<int> const polygon = ConvexHullBuilderC::computeConvexHullIndices2D(projected);
    HullEdge *lastOfPrevious = nullptr;
    for (int i = 2; i < polygon.size(); ++i) {
        HullEdge *const first = makeHullEdge(polygon[0], polygon[i - 1]);
        HullEdge *const second = makeHullEdge(polygon[i - 1], polygon[i]);
        HullEdge *const third = makeHullEdge(polygon[i], polygon[0]);
        makeFace(coordinates, first, second, third);
        if (lastOfPrevious) {
            joinTwins(first, lastOfPrevious);
        }
        lastOfPrevious = third;
    }
    hullIndices = polygon;
}
