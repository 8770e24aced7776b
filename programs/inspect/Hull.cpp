#include "Hull.h"

#include "Measure.h"

#include <OrvelMath/base/matrixC.h>
#include <OrvelMath/hull/ConvexHullBuilderC.h>

#include <QtCore/QHash>
#include <QtCore/QList>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

constexpr double tolerance = 1e-7;    // of the longest extent
constexpr double checkedAtMost = 2e8; // points times faces
constexpr int imagesTried = 4;
constexpr double relativeDifference = 1e-6; // of area or volume, before it is worth a word

// Rows of a random matrix of about unit size, far from singular.
matrixC3x3<double> askew(unsigned seed)
{
    std::mt19937 random(seed);
    auto const off = [&] { return double(random()) / 4294967296.0 * 0.5 - 0.25; };
    matrixC3x3<double> m;
    for (int i = 0; i < 9; ++i) {
        m[i] = off() + (i % 4 == 0 ? 1.0 : 0.0);
    }
    return m;
}

QList<Vector> listOf(std::vector<Vector> const &points)
{
    QList<Vector> list;
    list.reserve(int(points.size()));
    for (Vector const &p : points) {
        list.append(p);
    }
    return list;
}

QList<Vector> askewImage(Mesh const &mesh, unsigned seed)
{
    matrixC3x3<double> const m = askew(seed);
    Vector const middle = mesh.lowest * 0.5 + mesh.highest * 0.5;
    Vector const extent = mesh.extent();
    double const longest = std::max({extent.x(), extent.y(), extent.z()});
    double const scale = longest > 0.0 ? longest : 1.0;
    QList<Vector> list;
    list.reserve(int(mesh.vertices.size()));
    for (Vector const &v : mesh.vertices) {
        Vector const p = (v - middle) / scale;
        list.append(m.axis(0) * p.x() + m.axis(1) * p.y() + m.axis(2) * p.z());
    }
    return list;
}

// The builder tells a triangle by the places of its corners: here they become indices again.
class IndexOfPlace
{
public:
    IndexOfPlace(QList<Vector> const &points, std::vector<int> const &indices)
        : m_points(points)
        , m_sorted(indices)
    {
        std::sort(m_sorted.begin(), m_sorted.end(),
                  [&](int a, int b) { return isBefore(m_points.at(a), m_points.at(b)); });
    }
    int operator()(Vector const &place) const
    {
        auto const found = std::lower_bound(
            m_sorted.begin(), m_sorted.end(), place,
            [&](int index, Vector const &p) { return isBefore(m_points.at(index), p); });
        return *found;
    }

private:
    static bool isBefore(Vector const &a, Vector const &b)
    {
        if (a.x() != b.x()) {
            return a.x() < b.x();
        }
        return a.y() != b.y() ? a.y() < b.y() : a.z() < b.z();
    }

    QList<Vector> m_points;
    std::vector<int> m_sorted;
};

// Area and volume are taken from the mesh's own vertices, relative to a corner of its box, which
// keeps the cones small.
void measure(Hull &hull, Mesh const &mesh)
{
    for (auto const &t : hull.triangles) {
        Corners const c = mesh.corners(t);
        Vector const cross = (c[1] - c[0]).cross(c[2] - c[0]);
        hull.area += cross.length() / 2.0;
        hull.volume += (c[0] - mesh.lowest).dot(cross) / 6.0;
    }
    hull.volume = hull.dimension == 3 ? std::fabs(hull.volume) : 0.0;
}

Hull builtHull(Mesh const &mesh, QList<Vector> const &points)
{
    ConvexHullBuilderC builder(points);
    builder.buildHull();
    Hull hull;
    hull.dimension = builder.dimension();
    for (int const index : builder.hullVertexIndices()) {
        hull.vertexIndices.push_back(index);
    }
    IndexOfPlace const indexOf(points, hull.vertexIndices);
    for (int i = 0; i < builder.triangleCount(); ++i) {
        Vector c[3];
        Vector normal;
        builder.triangle(i, c[0], c[1], c[2], normal);
        hull.triangles.push_back({indexOf(c[0]), indexOf(c[1]), indexOf(c[2])});
    }
    measure(hull, mesh);
    return hull;
}

// False when a vertex of `points` lies beyond a face by more than the tolerance; the question is
// left out where it would take more time than the hull.
bool holdsAll(QList<Vector> const &points, Hull const &hull)
{
    if (hull.dimension != 3 ||
        double(points.size()) * double(hull.triangles.size()) > checkedAtMost) {
        return true;
    }
    for (auto const &t : hull.triangles) {
        Vector const a = points.at(t[0]);
        Vector const cross = (points.at(t[1]) - a).cross(points.at(t[2]) - a);
        double const limit = tolerance * cross.length();
        for (Vector const &p : points) {
            if ((p - a).dot(cross) > limit) {
                return false;
            }
        }
    }
    return true;
}

bool isNear(double a, double b)
{
    return std::fabs(a - b) <= relativeDifference * std::max(std::fabs(a), std::fabs(b));
}

} // namespace

Hull hullOf(Mesh const &mesh)
{
    Hull best;
    for (unsigned seed = 1; seed <= unsigned(imagesTried); ++seed) {
        QList<Vector> const image = askewImage(mesh, seed);
        Hull const hull = builtHull(mesh, image);
        if (seed == 1 || hull.volume > best.volume) {
            best = hull;
        }
        if (holdsAll(image, hull)) {
            return hull;
        }
    }
    return best;
}

Hull plainHullOf(Mesh const &mesh)
{
    return builtHull(mesh, listOf(mesh.vertices));
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
