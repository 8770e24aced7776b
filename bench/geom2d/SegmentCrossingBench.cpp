// Crossings of two segments, and samples of an arc.

#include <OrvelMath/geom2d/Math2D.h>
#include <OrvelMath/geom2d/concav2d.h>

#include <QtCore/QtAlgorithms>

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

#ifdef ORVEL_HAVE_BOOST_GEOMETRY
#include <boost/geometry/algorithms/intersection.hpp>
#include <boost/geometry/geometries/linestring.hpp>
#include <boost/geometry/geometries/multi_point.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/segment.hpp>
#endif
#ifdef ORVEL_HAVE_CGAL
#include <CGAL/Simple_cartesian.h>
#include <CGAL/intersections.h>
#endif

namespace {

constexpr size_t pairs = 1024;

/// Random segments in a square; about a quarter of the pairs cross.
std::vector<Point2D> const &ends()
{
    static std::vector<Point2D> const points = [] {
        std::mt19937_64 random(11);
        std::uniform_real_distribution<double> coordinate(-100.0, 100.0);
        std::vector<Point2D> drawn;
        for (size_t i = 0; i < 4 * pairs; ++i) {
            drawn.emplace_back(coordinate(random), coordinate(random));
        }
        return drawn;
    }();
    return points;
}

template <typename Cross>
void run(benchmark::State &state, Cross cross)
{
    size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(cross(i));
        i = (i + 1) % pairs;
    }
}

void intersect2Lines(benchmark::State &state)
{
    Point2D const *p = ends().data();
    Point2D out;
    run(state, [&](size_t i) {
        Point2D const *s = p + 4 * i;
        auto const type = Math2DIntersect2Lines(s[0], s[1], s[2], s[3], out, 1e-6);
        benchmark::DoNotOptimize(out);
        return type;
    });
}
BENCHMARK(intersect2Lines);

void intersectEdgeEdge(benchmark::State &state)
{
    Point2D const *p = ends().data();
    Point2D out;
    run(state, [&](size_t i) {
        Point2D const *s = p + 4 * i;
        auto const type = concav2d::intersectEdgeEdge(s[0], s[1], s[2], s[3], out, 1e-6);
        benchmark::DoNotOptimize(out);
        return type;
    });
}
BENCHMARK(intersectEdgeEdge);

#ifdef ORVEL_HAVE_BOOST_GEOMETRY
void boostIntersection(benchmark::State &state)
{
    using Point = boost::geometry::model::d2::point_xy<double>;
    using Segment = boost::geometry::model::segment<Point>;
    std::vector<Segment> segments;
    for (size_t i = 0; i < 4 * pairs; i += 2) {
        segments.emplace_back(Point(ends()[i].x(), ends()[i].y()),
                              Point(ends()[i + 1].x(), ends()[i + 1].y()));
    }
    boost::geometry::model::multi_point<Point> out;
    run(state, [&](size_t i) {
        out.clear();
        boost::geometry::intersection(segments[2 * i], segments[2 * i + 1], out);
        return out.size();
    });
}
BENCHMARK(boostIntersection);
#endif

#ifdef ORVEL_HAVE_CGAL
using Kernel = CGAL::Simple_cartesian<double>;

/// Behind a call, as ours are, and with the point delivered.
[[gnu::noinline]] bool cgalCross(Kernel::Segment_2 const &a, Kernel::Segment_2 const &b,
                                 Point2D &out)
{
    auto const result = CGAL::intersection(a, b);
    if (!result) {
        return false;
    }
    if (auto const *point = boost::get<Kernel::Point_2>(&*result)) {
        out = Point2D(point->x(), point->y());
    }
    return true;
}

void cgalIntersection(benchmark::State &state)
{
    std::vector<Kernel::Segment_2> segments;
    for (size_t i = 0; i < 4 * pairs; i += 2) {
        segments.emplace_back(Kernel::Point_2(ends()[i].x(), ends()[i].y()),
                              Kernel::Point_2(ends()[i + 1].x(), ends()[i + 1].y()));
    }
    Point2D out;
    run(state, [&](size_t i) {
        bool const found = cgalCross(segments[2 * i], segments[2 * i + 1], out);
        benchmark::DoNotOptimize(out);
        return found;
    });
}
BENCHMARK(cgalIntersection);
#endif

/// One point of an arc, its list node included.
void arcSample(benchmark::State &state)
{
    QLinkedList<Point2D *> points;
    int64_t samples = 0;
    for (auto _ : state) {
        concav2d::getArcPoints({100, 0}, {0, 100}, {-100, 0}, points, 0.0, 0.001);
        samples += points.size();
        qDeleteAll(points);
    }
    state.SetItemsProcessed(samples);
}
BENCHMARK(arcSample);

} // namespace
