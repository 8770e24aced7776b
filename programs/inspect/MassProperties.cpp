#include "MassProperties.h"

#include "Topology.h"

#include <OrvelMath/numerics/EigenVectorComputationC.h>

#include <algorithm>
#include <cmath>

namespace {

// Moments of order 0, 1 and 2 of a surface or of points.
struct Moments
{
    double weight = 0.0;
    Vector first;
    matrixC3x3<double> second;

    void add(Vector const &p, double w)
    {
        weight += w;
        first = first + p * w;
        for (int i = 0; i < 3; ++i) {
            for (int j = 0; j < 3; ++j) {
                second(i, j) += p[i] * p[j] * w;
            }
        }
    }
};

// A quadratic function over a triangle is a third of its area times its sum over the middles of the
// sides.
void addTriangle(Moments &moments, Corners const &c, double area)
{
    for (std::size_t k = 0; k < 3; ++k) {
        moments.add((c[k] + c[(k + 1) % 3]) * 0.5, area / 3.0);
    }
}

void setAxes(MassProperties &found, Moments const &moments)
{
    Vector const mean = moments.first / moments.weight;
    matrixC3x3<double> covariance;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
            covariance(i, j) = moments.second(i, j) / moments.weight - mean[i] * mean[j];
        }
    }
    EigenVectorComputationC const eigen(covariance);
    Vector const values = eigen.getEigenValues();
    int order[3] = {0, 1, 2};
    std::stable_sort(order, order + 3, [&](int a, int b) { return values[a] > values[b]; });
    for (int k = 0; k < 3; ++k) {
        found.axes.setAxis(k, eigen.getEigenVectors().axis(order[k]));
        found.spreads[k] = std::sqrt(std::max(0.0, values[order[k]]));
    }
    found.axes.setAxis(2, found.axes.axis(0).cross(found.axes.axis(1)));
}

} // namespace

// All is computed in a frame of unit size about the mesh's lowest corner.
MassProperties massPropertiesOf(Mesh const &mesh, bool isClosed)
{
    Vector const extent = mesh.extent();
    double const longest = std::max({extent.x(), extent.y(), extent.z()});
    double const scale = longest > 0.0 ? longest : 1.0;
    auto const inFrame = [&](Vector const &v) { return (v - mesh.lowest) / scale; };

    MassProperties found;
    Moments surface;
    Vector solidFirst;
    double doubleArea = 0.0;
    double sixfoldVolume = 0.0; // whole numbers stay whole until the end
    for (std::size_t i = 0; i < mesh.triangles.size(); ++i) {
        Corners c = mesh.corners(mesh.triangles[i]);
        for (Vector &corner : c) {
            corner = inFrame(corner);
        }
        Vector const cross = (c[1] - c[0]).cross(c[2] - c[0]);
        double const cone = c[0].dot(cross);
        sixfoldVolume += cone;
        doubleArea += cross.length();
        solidFirst = solidFirst + (c[0] + c[1] + c[2]) * cone;
        addTriangle(surface, c, cross.length() / 2.0);
        double const thin = thinness(c);
        if (thin >= degenerateThinness && thin < found.thinnest) {
            found.thinnest = thin;
            found.thinnestTriangle = int(i);
        }
    }
    found.area = doubleArea / 2.0 * scale * scale;
    if (!(surface.weight > 0.0)) {
        surface = Moments();
        for (Vector const &v : mesh.vertices) {
            surface.add(inFrame(v), 1.0);
        }
    }
    setAxes(found, surface);
    found.spreads = found.spreads * scale;
    bool const isSolid = isClosed && sixfoldVolume != 0.0;
    Vector const centre =
        isSolid ? solidFirst / (4.0 * sixfoldVolume) : surface.first / surface.weight;
    found.centroid = mesh.lowest + centre * scale;
    found.volume = isClosed ? sixfoldVolume / 6.0 * scale * scale * scale : 0.0;
    return found;
}
