#pragma once

#include <OrvelMath/base/valueTypes.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

/// Closed triangle meshes of known shapes, for the tests and benchmarks of the volume trees.
/// Neighbouring triangles share their vertices to the last bit, so the surfaces have no gaps.
namespace meshes {

using Vector = vectorC3d<double>;
using Box = std::pair<Vector, Vector>;

constexpr double pi = 3.141592653589793;

struct Mesh
{
    std::vector<Vector> vertices;
    std::vector<std::array<std::size_t, 3>> triangles;

    Vector const &corner(std::size_t triangle, std::size_t i) const
    {
        return vertices[triangles[triangle][i]];
    }
};

/// Adds a quadrangle as two triangles.
inline void addQuad(Mesh &mesh, std::size_t a, std::size_t b, std::size_t c, std::size_t d)
{
    mesh.triangles.push_back({a, b, c});
    mesh.triangles.push_back({a, c, d});
}

/// The axis-aligned box from lo to hi, as twelve triangles.
inline Mesh box(Vector const &lo, Vector const &hi)
{
    Mesh mesh;
    for (int i = 0; i < 8; ++i) {
        mesh.vertices.push_back(Vector((i & 1) != 0 ? hi.x() : lo.x(),
                                       (i & 2) != 0 ? hi.y() : lo.y(),
                                       (i & 4) != 0 ? hi.z() : lo.z()));
    }
    addQuad(mesh, 0, 2, 3, 1);
    addQuad(mesh, 4, 5, 7, 6);
    addQuad(mesh, 0, 1, 5, 4);
    addQuad(mesh, 2, 6, 7, 3);
    addQuad(mesh, 0, 4, 6, 2);
    addQuad(mesh, 1, 3, 7, 5);
    return mesh;
}

/// A sphere of `rings` bands from pole to pole, with `2 * rings` sectors: 4 rings (rings - 1)
/// triangles. The vertices lie on the sphere, the poles on the z axis.
inline Mesh sphere(Vector const &centre, double radius, std::size_t rings)
{
    std::size_t const sectors = 2 * rings;
    Mesh mesh;
    auto const at = [&](double polar, double azimuth) {
        return centre + Vector(std::sin(polar) * std::cos(azimuth),
                               std::sin(polar) * std::sin(azimuth), std::cos(polar)) *
                            radius;
    };
    mesh.vertices.push_back(centre + Vector(0, 0, radius));
    for (std::size_t r = 1; r < rings; ++r) {
        for (std::size_t s = 0; s < sectors; ++s) {
            mesh.vertices.push_back(
                at(pi * double(r) / double(rings), 2.0 * pi * double(s) / double(sectors)));
        }
    }
    mesh.vertices.push_back(centre - Vector(0, 0, radius));

    std::size_t const south = mesh.vertices.size() - 1;
    auto const index = [&](std::size_t r, std::size_t s) {
        return 1 + (r - 1) * sectors + s % sectors;
    };
    for (std::size_t s = 0; s < sectors; ++s) {
        mesh.triangles.push_back({0, index(1, s), index(1, s + 1)});
        for (std::size_t r = 1; r + 1 < rings; ++r) {
            addQuad(mesh, index(r, s), index(r + 1, s), index(r + 1, s + 1), index(r, s + 1));
        }
        mesh.triangles.push_back({south, index(rings - 1, s + 1), index(rings - 1, s)});
    }
    return mesh;
}

/// A torus about the z axis with `2 * segments` steps round and `segments` steps about its tube:
/// 4 segments^2 triangles.
inline Mesh torus(Vector const &centre, double radius, double tube, std::size_t segments)
{
    std::size_t const around = 2 * segments;
    Mesh mesh;
    for (std::size_t i = 0; i < around; ++i) {
        double const u = 2.0 * pi * double(i) / double(around);
        for (std::size_t j = 0; j < segments; ++j) {
            double const v = 2.0 * pi * double(j) / double(segments);
            double const r = radius + tube * std::cos(v);
            mesh.vertices.push_back(centre +
                                    Vector(r * std::cos(u), r * std::sin(u), tube * std::sin(v)));
        }
    }
    auto const index = [&](std::size_t i, std::size_t j) {
        return i % around * segments + j % segments;
    };
    for (std::size_t i = 0; i < around; ++i) {
        for (std::size_t j = 0; j < segments; ++j) {
            addQuad(mesh, index(i, j), index(i + 1, j), index(i + 1, j + 1), index(i, j + 1));
        }
    }
    return mesh;
}

/// The volume that the mesh encloses, by the divergence theorem.
inline double enclosedVolume(Mesh const &mesh)
{
    double sixfold = 0.0;
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t) {
        sixfold += mesh.corner(t, 0).dot(mesh.corner(t, 1).cross(mesh.corner(t, 2)));
    }
    return std::fabs(sixfold / 6.0);
}

inline Box boundingBox(Mesh const &mesh)
{
    Box bounds(mesh.vertices.front(), mesh.vertices.front());
    for (Vector const &v : mesh.vertices) {
        for (int q = 0; q < 3; ++q) {
            bounds.first[q] = std::min(bounds.first[q], v[q]);
            bounds.second[q] = std::max(bounds.second[q], v[q]);
        }
    }
    return bounds;
}

/// Hands all triangles to a builder.
template <typename Builder>
void addTo(Builder &builder, Mesh const &mesh)
{
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t) {
        builder.addTriangle(mesh.corner(t, 0), mesh.corner(t, 1), mesh.corner(t, 2));
    }
}

} // namespace meshes
