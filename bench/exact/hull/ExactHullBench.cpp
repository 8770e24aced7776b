#include "ExactHullBench.h"

#include <cmath>
#include <ctime>
#include <map>
#include <random>
#include <utility>

namespace {

using orvelExact::Point3;

constexpr double fullTurn = 6.283185307179586;

Cloud makeGrid(double step, int count)
{
    int const side = static_cast<int>(std::lround(std::cbrt(count)));
    Cloud points;
    for (int i = 0; i < side * side * side; ++i) {
        points.append(step * Point3(i / (side * side), i / side % side, i % side));
    }
    return points;
}

Cloud makeRandom(std::string const &kind, int count)
{
    std::mt19937_64 generator(42);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    std::normal_distribution<double> normal;
    Cloud points;
    while (points.size() < count) {
        Point3 p(uniform(generator), uniform(generator), uniform(generator));
        if (kind == "gauss" || kind == "sphere") {
            p = {normal(generator), normal(generator), normal(generator)};
        }
        if (kind == "ball" && p.length() > 1.0) {
            continue;
        }
        if (kind == "sphere") {
            p /= p.length();
        }
        if (kind == "torus") {
            double const radius = 3.0 + std::cos(3.2 * p.y());
            p = {radius * std::cos(3.2 * p.x()), radius * std::sin(3.2 * p.x()),
                 std::sin(3.2 * p.y())};
        }
        if (kind == "cone") { // each on a line of its own from the apex, so that all are extreme
            double const radius = 0.5 + 0.5 * p.x();
            p = {radius * std::cos(3.1 * p.y()), radius * std::sin(3.1 * p.y()),
                 3.0 * (1.0 - radius)};
        }
        points.append(p);
    }
    return points;
}

} // namespace

double processorSeconds()
{
    std::timespec time;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

Cloud const &spaceCloud(std::string const &kind, int count)
{
    static std::map<std::pair<std::string, int>, Cloud> clouds;
    Cloud &cloud = clouds[{kind, count}];
    if (cloud.isEmpty()) {
        cloud = kind == "grid"      ? makeGrid(1.0, count)
                : kind == "lattice" ? makeGrid(0.1, count)
                                    : makeRandom(kind, count);
    }
    return cloud;
}

void forSpaceClouds(std::string const &name,
                    void (*measure)(benchmark::State &, std::string const &kind, int count))
{
    for (std::string const kind :
         {"ball", "cube", "gauss", "sphere", "cone", "lattice", "grid", "torus"}) {
        for (int const count : {10000, 100000, 1000000}) {
            std::string const row = "exactHull/" + kind + "/" + std::to_string(count) + "/" + name;
            benchmark::RegisterBenchmark(row.c_str(), measure, kind, count)
                ->UseManualTime()
                ->Unit(benchmark::kMillisecond);
        }
    }
}
