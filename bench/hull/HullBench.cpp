#include "HullBench.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <random>
#include <utility>

#if defined(ORVEL_HAVE_ASSIMP)
#include <assimp/Importer.hpp>
#include <assimp/scene.h>
#endif

namespace {

/// Vertices of a mesh of Debian's assimp-testmodels; empty if it isn't there.
std::vector<Point3> meshVertices()
{
    std::vector<Point3> points;
#if defined(ORVEL_HAVE_ASSIMP)
    Assimp::Importer importer;
    aiScene const *const scene = importer.ReadFile("/usr/share/assimp/models/PLY/Wuson.ply", 0);
    for (unsigned m = 0; scene && m < scene->mNumMeshes; ++m) {
        for (unsigned i = 0; i < scene->mMeshes[m]->mNumVertices; ++i) {
            aiVector3D const &v = scene->mMeshes[m]->mVertices[i];
            points.push_back({double(v.x), double(v.y), double(v.z)});
        }
    }
#endif
    return points;
}

constexpr double pi = 3.141592653589793;

/// Draws numbers in the same order on every machine; the seed is fixed.
class Drawing
{
public:
    double uniform() { return double(m_generator() >> 11) * 0x1p-52 - 1.0; } ///< -1 to 1
    double normal() { return m_normal(m_generator); }
    unsigned whole(unsigned below) { return unsigned(m_generator() % below); }

private:
    std::mt19937_64 m_generator{42};
    std::normal_distribution<double> m_normal;
};

Point3 unit(Point3 const &p)
{
    double const length = std::sqrt(p[0] * p[0] + p[1] * p[1] + p[2] * p[2]);
    return {p[0] / length, p[1] / length, p[2] / length};
}

Point3 normalPoint(Drawing &draw)
{
    double const x = draw.normal();
    double const y = draw.normal();
    return {x, y, draw.normal()};
}

Point3 onCone(Drawing &draw)
{
    double const angle = pi * draw.uniform();
    double const radius = std::abs(draw.uniform());
    return {radius * std::cos(angle), radius * std::sin(angle), 1.0 - radius};
}

Point3 onTorus(Drawing &draw)
{
    double const around = pi * draw.uniform();
    double const across = pi * draw.uniform();
    double const radius = 2.0 + std::cos(across);
    return {radius * std::cos(around), radius * std::sin(around), std::sin(across)};
}

/// A point of one of the clouds without order and copies.
Point3 spacePoint(std::string const &kind, Drawing &draw)
{
    if (kind == "gauss") {
        return normalPoint(draw);
    }
    if (kind == "sphere") {
        return unit(normalPoint(draw));
    }
    if (kind == "spheres") { // two of them, apart
        Point3 p = unit(normalPoint(draw));
        p[0] += draw.whole(2) ? 3.0 : 0.0;
        return p;
    }
    if (kind == "cone") {
        return onCone(draw);
    }
    if (kind == "torus") {
        return onTorus(draw);
    }
    Point3 p{draw.uniform(), draw.uniform(), draw.uniform()};
    if (kind == "ball" && p[0] * p[0] + p[1] * p[1] + p[2] * p[2] > 1.0) {
        return spacePoint(kind, draw);
    }
    if (kind == "paraboloid") {
        p[2] = p[0] * p[0] + p[1] * p[1];
    }
    if (kind == "integers") {
        p = {std::floor(500.0 * p[0]), std::floor(500.0 * p[1]), std::floor(500.0 * p[2])};
    }
    return p;
}

std::vector<Point3> makeSpaceCloud(std::string const &kind, int count)
{
    if (kind == "mesh") {
        return meshVertices();
    }
    Drawing draw;
    int const side = static_cast<int>(std::lround(std::cbrt(count)));
    std::vector<Point3> points;
    for (int i = 0; i < count; ++i) {
        if (kind == "lattice") {
            points.push_back(
                {double(i / (side * side)), double(i / side % side), double(i % side)});
        } else if (kind == "copies" && i >= count / 100) {
            points.push_back(points[draw.whole(static_cast<unsigned>(count) / 100)]);
        } else {
            points.push_back(spacePoint(kind, draw));
        }
    }
    if (kind == "sorted") {
        std::sort(points.begin(), points.end());
    }
    return points;
}

Point2 planePoint(std::string const &kind, Drawing &draw)
{
    if (kind == "gauss") {
        double const x = draw.normal();
        return {x, draw.normal()};
    }
    double const x = draw.uniform();
    double const y = draw.uniform();
    if (kind == "circle" || kind == "circleCopies") {
        return {std::cos(pi * x), std::sin(pi * x)};
    }
    if (kind == "disc" && x * x + y * y > 1.0) {
        return planePoint(kind, draw);
    }
    if (kind == "integers") {
        return {std::floor(500.0 * x), std::floor(500.0 * y)};
    }
    return {x, y};
}

std::vector<Point2> makePlaneCloud(std::string const &kind, int count)
{
    Drawing draw;
    int const side = static_cast<int>(std::lround(std::sqrt(count)));
    bool const copies = kind == "copies" || kind == "circleCopies";
    std::vector<Point2> points;
    for (int i = 0; i < count; ++i) {
        if (kind == "lattice") {
            points.push_back({double(i / side), double(i % side)});
        } else if (copies && i >= count / 100) {
            points.push_back(points[draw.whole(static_cast<unsigned>(count) / 100)]);
        } else {
            points.push_back(planePoint(kind, draw));
        }
    }
    if (kind == "sorted") {
        std::sort(points.begin(), points.end());
    }
    return points;
}

/// The cloud, made once for all libraries.
template <typename Cloud>
Cloud const &kept(Cloud (*make)(std::string const &, int), std::string const &kind, int count)
{
    static std::map<std::pair<std::string, int>, Cloud> clouds;
    auto const found = clouds.find({kind, count});
    if (found != clouds.end()) {
        return found->second;
    }
    return clouds[{kind, count}] = make(kind, count);
}

template <typename Cloud>
void addRow(std::string const &family, std::string const &kind, int count, std::string const &who,
            Cloud (*make)(std::string const &, int),
            void (*measure)(benchmark::State &, Cloud const &))
{
    std::string const size = count ? std::to_string(count) : "whole";
    benchmark::RegisterBenchmark(
        (family + "/" + kind + "/" + size + "/" + who).c_str(),
        [=](benchmark::State &state) { measure(state, kept(make, kind, count)); })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

} // namespace

void forSpaceClouds(std::string const &who,
                    void (*measure)(benchmark::State &, std::vector<Point3> const &))
{
    for (char const *kind : {"ball", "cube", "gauss", "lattice", "integers", "copies", "sorted",
                             "sphere", "spheres", "torus", "paraboloid"}) {
        for (int count : {1000, 10000, 100000, 1000000}) {
            addRow("hullSpace", kind, count, who, makeSpaceCloud, measure);
        }
    }
    // Many vertices nearly in one plane: the steps grow with the square of their number.
    for (int count : {1000, 10000}) {
        addRow("hullSpace", "cone", count, who, makeSpaceCloud, measure);
    }
    if (!meshVertices().empty()) {
        addRow("hullSpace", "mesh", 0, who, makeSpaceCloud, measure);
    }
}

void forPlaneClouds(std::string const &who,
                    void (*measure)(benchmark::State &, std::vector<Point2> const &))
{
    for (char const *kind : {"square", "disc", "gauss", "circle", "lattice", "integers", "copies",
                             "circleCopies", "sorted"}) {
        for (int count : {1000, 10000, 100000, 1000000}) {
            addRow("hullPlane", kind, count, who, makePlaneCloud, measure);
        }
    }
}
