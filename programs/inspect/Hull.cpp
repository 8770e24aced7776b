#include "Hull.h"

#include "Measure.h"

#include <OrvelExact/hull/ConvexHull.h>
#include <OrvelMath/hull/ConvexHullBuilderC.h>

#include <QtCore/QList>
#include <QtCore/QVector>

#include <algorithm>
#include <cmath>
#include <thread>

namespace {

constexpr double relativeDifference = 1e-6; // of area or volume, before it is worth a word

bool isNear(double a, double b)
{
    return std::fabs(a - b) <= relativeDifference * std::max(std::fabs(a), std::fabs(b));
}

} // namespace

Hull hullOf(Mesh const &mesh)
{
    QVector<orvelExact::Point3> points;
    points.reserve(int(mesh.vertices.size()));
    for (Vector const &v : mesh.vertices) {
        points.append(v);
    }
    int const threads = std::max(1, int(std::thread::hardware_concurrency()));
    orvelExact::ConvexHull const exact(points, threads);
    Hull hull;
    hull.dimension = exact.dimension();
    hull.area = exact.area();
    hull.volume = exact.volume();
    for (int const index : exact.vertices()) {
        hull.vertexIndices.push_back(index);
    }
    for (orvelExact::HullTriangle const &t : exact.triangles()) {
        hull.triangles.push_back({t.corner[0], t.corner[1], t.corner[2]});
    }
    return hull;
}

// Measured relative to a corner of the box, which keeps the cones small.
Hull plainHullOf(Mesh const &mesh)
{
    QList<Vector> points;
    points.reserve(int(mesh.vertices.size()));
    for (Vector const &v : mesh.vertices) {
        points.append(v);
    }
    ConvexHullBuilderC builder(points);
    builder.buildHull();
    Hull hull;
    hull.dimension = builder.dimension();
    for (int const index : builder.hullVertexIndices()) {
        hull.vertexIndices.push_back(index);
    }
    for (int i = 0; i < builder.triangleCount(); ++i) {
        Corners c;
        Vector normal;
        builder.triangle(i, c[0], c[1], c[2], normal);
        Vector const cross = (c[1] - c[0]).cross(c[2] - c[0]);
        hull.area += cross.length() / 2.0;
        hull.volume += (c[0] - mesh.lowest).dot(cross) / 6.0;
    }
    hull.volume = hull.dimension == 3 ? hull.volume : 0.0;
    return hull;
}

std::string differenceOf(Hull const &hull, Hull const &plain)
{
    if (hull.dimension != plain.dimension) {
        return "dimension " + std::to_string(plain.dimension) +
               ": it measures in an absolute 1e-8, which is coarse or fine for this mesh";
    }
    if (isNear(hull.area, plain.area) && isNear(hull.volume, plain.volume)) {
        return {};
    }
    return std::to_string(plain.vertexIndices.size()) + " vertices, area " +
           numberText(plain.area) + ", volume " + numberText(plain.volume) +
           ": of corners at equal distances it may leave some out";
}
