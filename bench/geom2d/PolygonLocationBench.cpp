// Where a point lies in a polygon: both of our tests, a plain ray cast, and the peers. Names are
// polygonLocation/case/vertices/who.

#include <OrvelMath/geom2d/Math2D.h>
#include <OrvelMath/geom2d/concav2d.h>

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <string>
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
constexpr double turn = 6.283185307179586;
constexpr size_t queryCount = 8192; // more than a branch predictor learns by heart

using Outline = std::vector<Point2D>;

/// A star-shaped outline with a ragged radius.
Outline star(int count, std::mt19937_64 &random)
{
    std::uniform_real_distribution<double> radius(60.0, 100.0);
    Outline outline;
    for (int i = 0; i < count; ++i) {
        double const angle = turn * i / count;
        double const r = radius(random);
        outline.emplace_back(r * std::cos(angle), r * std::sin(angle));
    }
    return outline;
}

/// A comb of slanted teeth: all edges but one pass the heights of most queries.
Outline comb(int count, std::mt19937_64 &random)
{
    std::uniform_real_distribution<double> shift(-0.2, 0.2);
    Outline outline;
    int const teeth = count - 1;
    for (int i = 0; i < teeth; ++i) {
        double const x = -100.0 + 200.0 * (i + shift(random)) / teeth;
        outline.emplace_back(x, i % 2 == 0 ? -90.0 + shift(random) : 90.0 + shift(random));
    }
    outline.emplace_back(0.0, -100.0);
    return outline;
}

/// A staircase on whole numbers, up and back, as ground plans have it. Its queries are whole
/// numbers too, so that vertices lie on the ray.
Outline stairs(int count, std::mt19937_64 &random)
{
    Outline outline;
    int const steps = count / 2 - 1;
    double x = -100.0;
    double y = -100.0;
    outline.emplace_back(-100.0, 100.0);
    for (int i = 0; i < steps; ++i) {
        outline.emplace_back(x, y);
        x = std::floor(-100.0 + 200.0 * (i + 1) / steps);
        outline.emplace_back(x, y);
        y = std::floor(-100.0 + 180.0 * (i + 1) / steps) + static_cast<double>(random() % 2);
    }
    outline.emplace_back(100.0, 100.0);
    return outline;
}

struct Query
{
    Point2D point;
    size_t outline;
};

/// Outlines of one kind and size, and points all over their box. Small outlines come in many
/// copies of different shape.
struct Scene
{
    using Draw = Outline (*)(int, std::mt19937_64 &);

    Scene(Draw draw, int count, bool areQueriesWhole)
    {
        std::mt19937_64 random(7);
        std::uniform_real_distribution<double> coordinate(-100.0, 100.0);
        size_t const copies = count <= 100 ? 64 : 1;
        for (size_t i = 0; i < copies; ++i) {
            outlines.push_back(draw(count, random));
        }
        for (size_t i = 0; i < queryCount; ++i) {
            double const x = coordinate(random);
            double const y = coordinate(random);
            Point2D const whole(std::floor(x), std::floor(y));
            queries.push_back({areQueriesWhole ? whole : Point2D(x, y), random() % copies});
        }
    }

    std::vector<Outline> outlines;
    std::vector<Query> queries;
};

/// Asks for one point after the other. `locate` gets the index of the outline and the point.
template <typename Locate>
void run(benchmark::State &state, Scene const &scene, Locate locate)
{
    size_t i = 0;
    for (auto _ : state) {
        Query const &query = scene.queries[i];
        benchmark::DoNotOptimize(locate(query.outline, query.point));
        i = (i + 1) % queryCount;
    }
}

void pointInsidePolygone(benchmark::State &state, Scene scene)
{
    std::vector<PPtrOrderedVector<Point2D>> polygons;
    for (Outline &outline : scene.outlines) {
        polygons.emplace_back();
        for (Point2D &p : outline) {
            polygons.back().append(&p);
        }
    }
    run(state, scene, [&](size_t outline, Point2D const &p) {
        return concav2d::pointInsidePolygone(polygons[outline], p, tol);
    });
}

void insidePolygon(benchmark::State &state, Scene scene)
{
    run(state, scene, [&](size_t index, Point2D const &p) {
        Outline &outline = scene.outlines[index];
        return Math2DInsidePolygon(outline.data(), static_cast<int>(outline.size()), p, nullptr,
                                   nullptr, tol);
    });
}

void insidePolygonWithExtent(benchmark::State &state, Scene scene)
{
    double xmin = -101.0;
    double xmax = 101.0;
    run(state, scene, [&](size_t index, Point2D const &p) {
        Outline &outline = scene.outlines[index];
        return Math2DInsidePolygon(outline.data(), static_cast<int>(outline.size()), p, &xmin,
                                   &xmax, tol);
    });
}

/// The textbook ray cast, without a tolerance.
void plainRayCast(benchmark::State &state, Scene const &scene)
{
    run(state, scene, [&](size_t index, Point2D const &p) {
        Outline const &outline = scene.outlines[index];
        bool inside = false;
        Point2D const *a = &outline.back();
        for (Point2D const &b : outline) {
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

void boostWithin(benchmark::State &state, Scene const &scene)
{
    std::vector<Ring> rings;
    for (Outline const &outline : scene.outlines) {
        rings.emplace_back();
        for (Point2D const &p : outline) {
            rings.back().emplace_back(p.x(), p.y());
        }
    }
    run(state, scene,
        [&](size_t outline, Point2D const &p) { return boostLocate(rings[outline], p); });
}
#endif

#ifdef ORVEL_HAVE_CGAL
using Kernel = CGAL::Simple_cartesian<double>;

[[gnu::noinline]] CGAL::Bounded_side cgalLocate(std::vector<Kernel::Point_2> const &outline,
                                                Point2D const &p)
{
    return CGAL::bounded_side_2(outline.begin(), outline.end(), Kernel::Point_2(p.x(), p.y()),
                                Kernel());
}

void cgalBoundedSide(benchmark::State &state, Scene const &scene)
{
    std::vector<std::vector<Kernel::Point_2>> outlines;
    for (Outline const &outline : scene.outlines) {
        outlines.emplace_back();
        for (Point2D const &p : outline) {
            outlines.back().emplace_back(p.x(), p.y());
        }
    }
    run(state, scene,
        [&](size_t outline, Point2D const &p) { return cgalLocate(outlines[outline], p); });
}
#endif

void registerCase(std::string const &name, Scene::Draw draw, int count, bool areQueriesWhole)
{
    auto const add = [&](char const *who, auto measure) {
        std::string const title =
            "polygonLocation/" + name + '/' + std::to_string(count) + '/' + who;
        benchmark::RegisterBenchmark(title.c_str(), [=](benchmark::State &state) {
            measure(state, Scene(draw, count, areQueriesWhole));
        });
    };
    add("orvel.pointInsidePolygone", pointInsidePolygone);
    add("orvel.Math2DInsidePolygon", insidePolygon);
    add("orvel.Math2DInsidePolygon.extent", insidePolygonWithExtent);
    add("plain", plainRayCast);
#ifdef ORVEL_HAVE_BOOST_GEOMETRY
    add("boost", boostWithin);
#endif
#ifdef ORVEL_HAVE_CGAL
    add("cgal", cgalBoundedSide);
#endif
}

[[maybe_unused]] bool const areRegistered = [] {
    for (int const count : {4, 6, 8, 12, 16, 32, 100, 1000, 10000, 100000}) {
        registerCase("star", star, count, false);
        registerCase("comb", comb, count, false);
        registerCase("stairs", stairs, count, true);
    }
    return true;
}();

} // namespace
