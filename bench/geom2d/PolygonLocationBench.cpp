// Where a point lies in a polygon: both of our tests, a plain ray cast, and the peers.

#include <OrvelMath/geom2d/Math2D.h>
#include <OrvelMath/geom2d/concav2d.h>

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

#ifdef ORVEL_HAVE_BOOST_GEOMETRY
#include <boost/geometry/algorithms/within.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/ring.hpp>
#endif
#ifdef ORVEL_HAVE_CGAL
#include <CGAL/Polygon_2_algorithms.h>
#include <CGAL/Simple_cartesian.h>
#endif

namespace {

constexpr double tol = 1e-6;

/// A star-shaped outline with a ragged radius, and points all over its box.
struct Scene
{
    explicit Scene(int count)
    {
        std::mt19937_64 random(7);
        std::uniform_real_distribution<double> radius(60.0, 100.0);
        std::uniform_real_distribution<double> coordinate(-100.0, 100.0);
        for (int i = 0; i < count; ++i) {
            double const angle = 6.283185307179586 * i / count;
            double const r = radius(random);
            outline.emplace_back(r * std::cos(angle), r * std::sin(angle));
        }
        for (int i = 0; i < 256; ++i) {
            queries.emplace_back(coordinate(random), coordinate(random));
        }
    }

    std::vector<Point2D> outline;
    std::vector<Point2D> queries;
};

/// Asks for one point after the other.
template <typename Locate>
void run(benchmark::State &state, Scene const &scene, Locate locate)
{
    size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(locate(scene.queries[i]));
        i = (i + 1) % scene.queries.size();
    }
}

void pointInsidePolygone(benchmark::State &state)
{
    Scene scene(static_cast<int>(state.range(0)));
    PPtrOrderedVector<Point2D> polygon;
    for (Point2D &p : scene.outline) {
        polygon.append(&p);
    }
    run(state, scene,
        [&](Point2D const &p) { return concav2d::pointInsidePolygone(polygon, p, tol); });
}

void insidePolygon(benchmark::State &state)
{
    Scene scene(static_cast<int>(state.range(0)));
    run(state, scene, [&](Point2D const &p) {
        return Math2DInsidePolygon(scene.outline.data(), static_cast<int>(scene.outline.size()), p,
                                   nullptr, nullptr, tol);
    });
}

void insidePolygonWithExtent(benchmark::State &state)
{
    Scene scene(static_cast<int>(state.range(0)));
    double xmin = -100.0;
    double xmax = 100.0;
    run(state, scene, [&](Point2D const &p) {
        return Math2DInsidePolygon(scene.outline.data(), static_cast<int>(scene.outline.size()), p,
                                   &xmin, &xmax, tol);
    });
}

/// The textbook ray cast, without a tolerance.
void plainRayCast(benchmark::State &state)
{
    Scene const scene(static_cast<int>(state.range(0)));
    run(state, scene, [&](Point2D const &p) {
        bool inside = false;
        Point2D const *a = &scene.outline.back();
        for (Point2D const &b : scene.outline) {
            if ((a->y() > p.y()) != (b.y() > p.y()) &&
                p.x() < (a->x() - b.x()) * (p.y() - b.y()) / (a->y() - b.y()) + b.x()) {
                inside = !inside;
            }
            a = &b;
        }
        return inside;
    });
}

// The peers stand behind a call, as ours do.

#ifdef ORVEL_HAVE_BOOST_GEOMETRY
using Point = boost::geometry::model::d2::point_xy<double>;
using Ring = boost::geometry::model::ring<Point, false, false>;

[[gnu::noinline]] bool boostLocate(Ring const &ring, Point2D const &p)
{
    return boost::geometry::within(Point(p.x(), p.y()), ring);
}

void boostWithin(benchmark::State &state)
{
    Scene const scene(static_cast<int>(state.range(0)));
    Ring ring;
    for (Point2D const &p : scene.outline) {
        ring.emplace_back(p.x(), p.y());
    }
    run(state, scene, [&](Point2D const &p) { return boostLocate(ring, p); });
}
BENCHMARK(boostWithin)->RangeMultiplier(10)->Range(10, 100000);
#endif

#ifdef ORVEL_HAVE_CGAL
using Kernel = CGAL::Simple_cartesian<double>;

[[gnu::noinline]] CGAL::Bounded_side cgalLocate(std::vector<Kernel::Point_2> const &outline,
                                                Point2D const &p)
{
    return CGAL::bounded_side_2(outline.begin(), outline.end(), Kernel::Point_2(p.x(), p.y()),
                                Kernel());
}

void cgalBoundedSide(benchmark::State &state)
{
    Scene const scene(static_cast<int>(state.range(0)));
    std::vector<Kernel::Point_2> outline;
    for (Point2D const &p : scene.outline) {
        outline.emplace_back(p.x(), p.y());
    }
    run(state, scene, [&](Point2D const &p) { return cgalLocate(outline, p); });
}
BENCHMARK(cgalBoundedSide)->RangeMultiplier(10)->Range(10, 100000);
#endif

BENCHMARK(pointInsidePolygone)->RangeMultiplier(10)->Range(10, 100000);
BENCHMARK(insidePolygon)->RangeMultiplier(10)->Range(10, 100000);
BENCHMARK(insidePolygonWithExtent)->RangeMultiplier(10)->Range(10, 100000);
BENCHMARK(plainRayCast)->RangeMultiplier(10)->Range(10, 100000);

} // namespace
