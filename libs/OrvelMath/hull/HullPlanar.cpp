#include <OrvelMath/hull/HullPlanar_p.h>

#include <OrvelMath/hull/HullPolygon_p.h>

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
    // A cosine: the axis across is at least 45 degrees away from a normal near the x axis, and at
    // least as far from any other.
    bool const nearX = std::abs(n.x()) > 0.7;
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

QVector<vectorC2d<double>> projected(HullPoints const &points, vectorC3d<double> const &normal)
{
    vectorC3d<double> const mean = arithmeticMean(points);
    PlaneBasis const basis = planeBasis(normal);
    QVector<vectorC2d<double>> flat;
    flat.reserve(static_cast<int>(points.size()));
    for (vectorC3d<double> const &p : points) {
        vectorC3d<double> const offset = p - mean;
        flat.append({offset.dot(basis.u), offset.dot(basis.v)});
    }
    return flat;
}

} // namespace

QList<int> buildPlanar(HullSurface &surface, HullPoints const &points, HullWay way)
{
    vectorC3d<double> const normal = surface[surface.size() - 1].normal;
    surface.clear();

    QList<int> const polygon = hullPolygon(projected(points, normal), way);
    HullEdge *lastOfPrevious = nullptr;
    for (int i = 2; i < polygon.size(); ++i) {
        HullFace const *const face =
            surface.makeTriangle(points, polygon[0], polygon[i - 1], polygon[i]);
        if (lastOfPrevious) {
            joinTwins(face->edges[0], lastOfPrevious);
        }
        lastOfPrevious = face->edges[2];
    }
    return polygon;
}
