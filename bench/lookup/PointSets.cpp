#include "PointSets.h"

#include <assimp/Importer.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

unsigned const seed = 20240229;

template <std::size_t K>
double squaredDistance(Point<K> const &a, Point<K> const &b)
{
    double sum = 0.0;
    for (std::size_t i = 0; i < K; ++i) {
        sum += (a[i] - b[i]) * (a[i] - b[i]);
    }
    return sum;
}

template <std::size_t K>
void fitIntoUnitCube(Points<K> &points)
{
    Point<K> low = points.front();
    double size = 0.0;
    for (Point<K> const &p : points) {
        for (std::size_t i = 0; i < K; ++i) {
            low[i] = std::min(low[i], p[i]);
        }
    }
    for (Point<K> const &p : points) {
        for (std::size_t i = 0; i < K; ++i) {
            size = std::max(size, p[i] - low[i]);
        }
    }
    for (Point<K> &p : points) {
        for (std::size_t i = 0; i < K; ++i) {
            p[i] = (p[i] - low[i]) / size;
        }
    }
}

/// All vertices in the order of the file; none when it can't be read.
template <std::size_t K>
Points<K> vertices(std::string const &file)
{
    Assimp::Importer importer;
    aiScene const *const scene = importer.ReadFile(file, aiProcess_PreTransformVertices);
    Points<K> points;
    for (unsigned m = 0; scene && m < scene->mNumMeshes; ++m) {
        aiMesh const &mesh = *scene->mMeshes[m];
        for (unsigned v = 0; v < mesh.mNumVertices; ++v) {
            Point<K> p;
            for (std::size_t i = 0; i < K; ++i) {
                p[i] = static_cast<double>(mesh.mVertices[v][static_cast<unsigned>(i)]);
            }
            points.push_back(p);
        }
    }
    return points;
}

} // namespace

template <std::size_t K>
Points<K> uniformPoints(std::size_t count)
{
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> coordinate(0.0, 1.0);
    Points<K> points(count);
    for (Point<K> &p : points) {
        for (double &c : p) {
            c = coordinate(random);
        }
    }
    return points;
}

template <std::size_t K>
Points<K> clusteredPoints(std::size_t count)
{
    std::mt19937_64 random(seed);
    std::normal_distribution<double> offset(0.0, 0.01);
    Points<K> const centres = uniformPoints<K>(100);
    Points<K> points(count);
    for (Point<K> &p : points) {
        p = centres[random() % centres.size()];
        for (double &c : p) {
            c += offset(random);
        }
    }
    return points;
}

template <std::size_t K>
Points<K> ascendingPoints(std::size_t count)
{
    Points<K> points = uniformPoints<K>(count);
    std::sort(points.begin(), points.end());
    return points;
}

template <std::size_t K>
Points<K> loadedMesh(std::string const &name)
{
    std::string const file = name == "house"    ? "IFC/AC14-FZK-Haus.ifc"
                             : name == "wuson"  ? "STL/Wuson.stl"
                             : name == "earth"  ? "LWO/LWO2/MappingModes/earth_spherical_y.lwo"
                             : name == "spider" ? "OBJ/spider.obj"
                                                : "glTF2/2CylinderEngine-glTF-Binary/"
                                                  "2CylinderEngine.glb";
    Points<K> points = vertices<K>("/usr/share/assimp/models/" + file);
    if (!points.empty()) {
        fitIntoUnitCube<K>(points);
    }
    return points;
}

template <std::size_t K>
Points<K> meshPoints()
{
    Points<K> points = loadedMesh<K>("engine");
    std::sort(points.begin(), points.end());
    points.erase(std::unique(points.begin(), points.end()), points.end());
    std::shuffle(points.begin(), points.end(), std::mt19937_64(seed));
    return points;
}

template <std::size_t K>
Points<K> queriesFor(Points<K> const &points, std::size_t count)
{
    std::mt19937_64 random(seed + 1);
    double const spacing = std::pow(1.0 / static_cast<double>(points.size()), 1.0 / K);
    std::uniform_real_distribution<double> offset(-spacing, spacing);
    Points<K> queries(count);
    for (Point<K> &q : queries) {
        q = points[random() % points.size()];
        for (double &c : q) {
            c += offset(random);
        }
    }
    return queries;
}

template <std::size_t K>
double radiusFor(Points<K> const &points, Points<K> const &queries, std::size_t wanted)
{
    wanted = std::min(wanted, points.size() - 1);
    std::vector<double> radii;
    for (std::size_t i = 0; i < 9; ++i) {
        std::vector<double> squared;
        squared.reserve(points.size());
        for (Point<K> const &p : points) {
            squared.push_back(squaredDistance<K>(p, queries[i]));
        }
        auto const nth = squared.begin() + static_cast<std::ptrdiff_t>(wanted);
        std::nth_element(squared.begin(), nth, squared.end());
        radii.push_back(std::sqrt(*nth));
    }
    std::sort(radii.begin(), radii.end());
    return radii[radii.size() / 2];
}

template Points<2> uniformPoints<2>(std::size_t);
template Points<3> uniformPoints<3>(std::size_t);
template Points<2> clusteredPoints<2>(std::size_t);
template Points<3> clusteredPoints<3>(std::size_t);
template Points<2> ascendingPoints<2>(std::size_t);
template Points<3> ascendingPoints<3>(std::size_t);
template Points<2> loadedMesh<2>(std::string const &);
template Points<3> loadedMesh<3>(std::string const &);
template Points<2> meshPoints<2>();
template Points<3> meshPoints<3>();
template Points<2> queriesFor<2>(Points<2> const &, std::size_t);
template Points<3> queriesFor<3>(Points<3> const &, std::size_t);
template double radiusFor<2>(Points<2> const &, Points<2> const &, std::size_t);
template double radiusFor<3>(Points<3> const &, Points<3> const &, std::size_t);
