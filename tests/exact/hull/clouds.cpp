#include "clouds.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace clouds {

namespace {

constexpr double fullTurn = 6.283185307179586;

Point3 onUnitSphere(std::mt19937_64 &generator)
{
    std::normal_distribution<double> normal;
    Point3 const p(normal(generator), normal(generator), normal(generator));
    return p / p.length();
}

} // namespace

Cloud lattice(int side, double step)
{
    Cloud cloud;
    for (int i = 0; i < side * side * side; ++i) {
        cloud.append({step * (i / (side * side)), step * (i / side % side), step * (i % side)});
    }
    return cloud;
}

Cloud prism(int sides)
{
    Cloud cloud;
    for (int i = 0; i < sides; ++i) {
        double const angle = fullTurn * i / sides;
        cloud.append({std::cos(angle), std::sin(angle), 0.0});
        cloud.append({std::cos(angle), std::sin(angle), 2.0});
    }
    return cloud;
}

Cloud cone(int ringCount, int pointsPerRing)
{
    Cloud cloud = {{0, 0, 3}};
    for (int ring = 1; ring <= ringCount; ++ring) {
        double const radius = double(ring) / ringCount;
        for (int i = 0; i < pointsPerRing; ++i) {
            double const angle = fullTurn * i / pointsPerRing;
            cloud.append(
                {radius * std::cos(angle), radius * std::sin(angle), 3.0 * (1.0 - radius)});
        }
    }
    return cloud;
}

Cloud cylinder(int ringCount, int pointsPerRing)
{
    Cloud cloud;
    for (int ring = 0; ring < ringCount; ++ring) {
        for (int i = 0; i < pointsPerRing; ++i) {
            double const angle = fullTurn * i / pointsPerRing;
            cloud.append({std::cos(angle), std::sin(angle), 0.1 * ring});
        }
    }
    return cloud;
}

Cloud sphere(int count, unsigned seed, Point3 const &center)
{
    std::mt19937_64 generator(seed);
    Cloud cloud;
    while (cloud.size() < count) {
        cloud.append(center + onUnitSphere(generator));
    }
    return cloud;
}

Cloud ball(int count, unsigned seed)
{
    std::mt19937_64 generator(seed);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    Cloud cloud;
    while (cloud.size() < count) {
        Point3 const p(uniform(generator), uniform(generator), uniform(generator));
        if (p.length() <= 1.0) {
            cloud.append(p);
        }
    }
    return cloud;
}

Cloud gauss(int count, unsigned seed)
{
    std::mt19937_64 generator(seed);
    std::normal_distribution<double> normal;
    Cloud cloud;
    while (cloud.size() < count) {
        cloud.append({normal(generator), normal(generator), normal(generator)});
    }
    return cloud;
}

Cloud cube(int count, unsigned seed)
{
    std::mt19937_64 generator(seed);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    Cloud cloud;
    while (cloud.size() < count) {
        cloud.append({uniform(generator), uniform(generator), uniform(generator)});
    }
    return cloud;
}

Cloud torus(int count, unsigned seed)
{
    std::mt19937_64 generator(seed);
    std::uniform_real_distribution<double> angle(0.0, fullTurn);
    Cloud cloud;
    while (cloud.size() < count) {
        double const u = angle(generator);
        double const v = angle(generator);
        double const radius = 3.0 + std::cos(v);
        cloud.append({radius * std::cos(u), radius * std::sin(u), std::sin(v)});
    }
    return cloud;
}

Cloud twoSpheres(int count, unsigned seed)
{
    return sphere(count / 2, seed) + sphere(count / 2, seed + 1, {5, 0.5, 0.25});
}

Cloud minkowskiSum(Cloud const &a, Cloud const &b)
{
    Cloud cloud;
    for (Point3 const &p : a) {
        for (Point3 const &q : b) {
            cloud.append(p + q);
        }
    }
    return cloud;
}

Cloud repeated(Cloud const &cloud, int copies, unsigned seed)
{
    std::mt19937_64 generator(seed);
    Cloud result;
    for (int i = 0; i < copies; ++i) {
        Cloud copy = cloud;
        std::shuffle(copy.begin(), copy.end(), generator);
        result += copy;
    }
    return result;
}

Cloud coplanarClusters(int count, unsigned seed)
{
    std::mt19937_64 generator(seed);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    Cloud cloud;
    while (cloud.size() < count) {
        Point3 p(uniform(generator), uniform(generator), uniform(generator));
        int const axis = static_cast<int>(generator() % 3);
        p[axis] = generator() % 2 == 0 ? 1.0 : -1.0;
        if (generator() % 2 == 0) {
            p[axis] = std::nextafter(p[axis], generator() % 2 == 0 ? 0.0 : 2.0 * p[axis]);
        }
        if (generator() % 8 == 0) { // on an edge of the cube
            p[(axis + 1) % 3] = 1.0;
        }
        cloud.append(p);
    }
    return cloud;
}

Cloud scaled(Cloud const &cloud, double factor, Point3 const &offset)
{
    Cloud result;
    for (Point3 const &p : cloud) {
        result.append(factor * p + offset);
    }
    return result;
}

} // namespace clouds
