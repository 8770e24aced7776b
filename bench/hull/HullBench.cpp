#include "HullBench.h"

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

std::vector<Point3> grid(int count)
{
    int const side = static_cast<int>(std::lround(std::cbrt(count)));
    std::vector<Point3> points;
    for (int i = 0; i < side * side * side; ++i) {
        points.push_back({double(i / (side * side)), double(i / side % side), double(i % side)});
    }
    return points;
}

std::vector<Point3> makeSpaceCloud(std::string const &kind, int count)
{
    if (kind == "mesh") {
        return meshVertices();
    }
    if (kind == "grid") {
        return grid(count);
    }
    std::mt19937_64 generator(42);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    std::normal_distribution<double> normal;
    std::vector<Point3> points;
    while (static_cast<int>(points.size()) < count) {
        Point3 p{uniform(generator), uniform(generator), uniform(generator)};
        if (kind == "gauss" || kind == "sphere") {
            p = {normal(generator), normal(generator), normal(generator)};
        }
        double const length = std::sqrt(p[0] * p[0] + p[1] * p[1] + p[2] * p[2]);
        if (kind == "ball" && length > 1.0) {
            continue;
        }
        if (kind == "sphere") {
            p = {p[0] / length, p[1] / length, p[2] / length};
        }
        if (kind == "copies" && static_cast<int>(points.size()) >= count / 100) {
            p = points[generator() % static_cast<unsigned>(count / 100)];
        }
        points.push_back(p);
    }
    return points;
}

std::vector<Point2> makePlaneCloud(std::string const &kind, int count)
{
    std::mt19937_64 generator(42);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    std::vector<Point2> points;
    while (static_cast<int>(points.size()) < count) {
        Point2 p{uniform(generator), uniform(generator)};
        double const length = std::sqrt(p[0] * p[0] + p[1] * p[1]);
        if (kind != "square" && length > 1.0) {
            continue;
        }
        if (kind == "circle") {
            p = {p[0] / length, p[1] / length};
        }
        points.push_back(p);
    }
    return points;
}

template <typename Cloud>
Cloud const &kept(Cloud (*make)(std::string const &, int), std::string const &kind, int count)
{
    static std::map<std::pair<std::string, int>, Cloud> clouds;
    auto const found = clouds.find({kind, count});
    if (found != clouds.end()) {
        return found->second;
    }
    Cloud &cloud = clouds[{kind, count}];
    cloud = make(kind, count);
    return cloud;
}

} // namespace

std::vector<Point3> const &spaceCloud(std::string const &kind, int count)
{
    return kept(makeSpaceCloud, kind, count);
}

std::vector<Point2> const &planeCloud(std::string const &kind, int count)
{
    return kept(makePlaneCloud, kind, count);
}

void forSpaceClouds(std::string const &name,
                    void (*measure)(benchmark::State &, std::string const &kind))
{
    for (std::string const kind : {"ball", "cube", "gauss", "sphere", "grid", "copies", "mesh"}) {
        if (kind == "mesh" && spaceCloud(kind, 0).empty()) {
            continue;
        }
        auto *const entry =
            benchmark::RegisterBenchmark(("Hull3D/" + kind + "/" + name).c_str(), measure, kind);
        entry->UseManualTime()->Unit(benchmark::kMillisecond);
        if (kind == "mesh") {
            entry->Arg(0);
        } else {
            entry->RangeMultiplier(10)->Range(1000, 1000000);
        }
    }
}

void forPlaneClouds(std::string const &name,
                    void (*measure)(benchmark::State &, std::string const &kind))
{
    for (std::string const kind : {"square", "disc", "circle"}) {
        benchmark::RegisterBenchmark(("Hull2D/" + kind + "/" + name).c_str(), measure, kind)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond)
            ->RangeMultiplier(10)
            ->Range(1000, 1000000);
    }
}
