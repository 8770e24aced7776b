#include "OrientedBox.h"

#include <OrvelMath/hull/ConvexHullBuilderC.h>

#include <QtCore/QVector>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr std::size_t facesTried = 32;
constexpr double sameDirection = 1e-9; // difference of two unit normals

std::vector<Vector> pointsOf(Mesh const &mesh, Hull const &hull)
{
    std::vector<Vector> points;
    for (int const index : hull.vertexIndices) {
        points.push_back(mesh.vertices[std::size_t(index)]);
    }
    return points.empty() ? mesh.vertices : points;
}

// Extents are measured from the box's lowest corner, which keeps them exact far from the origin.
OrientedBox boxAlong(matrixC3x3<double> const &axes, std::vector<Vector> const &points,
                     Vector const &origin)
{
    OrientedBox box;
    box.axes = axes;
    box.centre = origin;
    for (int k = 0; k < 3; ++k) {
        double low = std::numeric_limits<double>::infinity();
        double high = -low;
        for (Vector const &p : points) {
            double const at = (p - origin).dot(axes.axis(k));
            low = std::min(low, at);
            high = std::max(high, at);
        }
        box.extent[k] = high - low;
        box.centre = box.centre + axes.axis(k) * (0.5 * (low + high));
    }
    return box;
}

matrixC3x3<double> frameOf(Vector const &normal, Vector const &along)
{
    Vector const across = along - normal * along.dot(normal);
    Vector const first = across / across.length();
    return {first, normal.cross(first), normal};
}

// Unit normals of the largest triangles, no direction twice.
std::vector<Vector> directionsOf(Mesh const &mesh, Hull const &hull)
{
    std::vector<Vector> crosses;
    for (auto const &t : hull.triangles) {
        Corners const c = mesh.corners(t);
        crosses.push_back((c[1] - c[0]).cross(c[2] - c[0]));
    }
    std::stable_sort(crosses.begin(), crosses.end(), [](Vector const &a, Vector const &b) {
        return a.squaredLength() > b.squaredLength();
    });
    std::vector<Vector> directions;
    for (Vector const &cross : crosses) {
        if (directions.size() == facesTried || !(cross.length() > 0.0)) {
            break;
        }
        Vector const n = cross / cross.length();
        bool const isNew = std::none_of(directions.begin(), directions.end(), [&](Vector const &d) {
            return d.cross(n).length() < sameDirection;
        });
        if (isNew) {
            directions.push_back(n);
        }
    }
    return directions;
}

// The frame with the third axis along `normal` in which the body's shadow has the smallest
// rectangle: one of its sides lies along an edge of the shadow's hull (Freeman and Shapira 1975).
matrixC3x3<double> smallestFrame(Vector const &normal, std::vector<Vector> const &points,
                                 Vector const &origin, double scale)
{
    Vector const across = std::fabs(normal.x()) < 0.5 ? Vector(1, 0, 0) : Vector(0, 1, 0);
    matrixC3x3<double> const frame = frameOf(normal, across);
    QVector<vectorC2d<double>> shadow;
    for (Vector const &p : points) {
        Vector const q = (p - origin) / scale;
        shadow.append({q.dot(frame.axis(0)), q.dot(frame.axis(1))});
    }
    QVector<vectorC2d<double>> const hull = ConvexHullBuilderC::computeConvexHull2D(shadow);
    double smallest = std::numeric_limits<double>::infinity();
    matrixC3x3<double> best = frame;
    for (int i = 0; i < hull.size(); ++i) {
        vectorC2d<double> const edge = hull[(i + 1) % hull.size()] - hull[i];
        double const length = edge.length();
        if (!(length > 0.0)) {
            continue;
        }
        double const ux = edge.x() / length;
        double const uy = edge.y() / length;
        double low[2] = {0.0, 0.0};
        double high[2] = {0.0, 0.0};
        for (vectorC2d<double> const &p : hull) {
            vectorC2d<double> const d = p - hull[i];
            double const at[2] = {d.x() * ux + d.y() * uy, d.y() * ux - d.x() * uy};
            for (int k = 0; k < 2; ++k) {
                low[k] = std::min(low[k], at[k]);
                high[k] = std::max(high[k], at[k]);
            }
        }
        double const area = (high[0] - low[0]) * (high[1] - low[1]);
        if (area < smallest) {
            smallest = area;
            best = frameOf(normal, frame.axis(0) * ux + frame.axis(1) * uy);
        }
    }
    return best;
}

} // namespace

std::array<Vector, 8> OrientedBox::corners() const
{
    std::array<Vector, 8> found;
    for (std::size_t i = 0; i < 8; ++i) {
        found[i] = centre;
        for (int k = 0; k < 3; ++k) {
            double const side = ((i >> k) & 1) != 0 ? 0.5 : -0.5;
            found[i] = found[i] + axes.axis(k) * (side * extent[k]);
        }
    }
    return found;
}

OrientedBox orientedBoxOf(Mesh const &mesh, Hull const &hull,
                          matrixC3x3<double> const &principalAxes)
{
    std::vector<Vector> const points = pointsOf(mesh, hull);
    Vector const extent = mesh.extent();
    double const longest = std::max({extent.x(), extent.y(), extent.z()});
    OrientedBox best = boxAlong(matrixC3x3<double>::identity(), points, mesh.lowest);
    auto const consider = [&](matrixC3x3<double> const &axes) {
        OrientedBox const box = boxAlong(axes, points, mesh.lowest);
        // A gain below the rounding of the extents is none: the plainer box stays.
        if (box.volume() < best.volume() * (1.0 - 1e-9)) {
            best = box;
        }
    };
    consider(principalAxes);
    for (Vector const &normal : directionsOf(mesh, hull)) {
        consider(smallestFrame(normal, points, mesh.lowest, longest));
    }
    return best;
}
