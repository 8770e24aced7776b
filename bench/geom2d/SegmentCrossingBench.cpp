// Crossings of two segments. Names are segmentCrossing/case/who.

#include <OrvelMath/geom2d/Math2D.h>
#include <OrvelMath/geom2d/concav2d.h>

#include <benchmark/benchmark.h>

#include <random>
#include <string>
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

constexpr size_t pairs = 8192; // more than a branch predictor learns by heart
constexpr double tol = 1e-6;

using Ends = std::vector<Point2D>; // four for each pair

/// Segments anywhere in a square; about a quarter of the pairs cross.
Ends mixed(std::mt19937_64 &random)
{
    std::uniform_real_distribution<double> coordinate(-100.0, 100.0);
    Ends ends;
    while (ends.size() < 4 * pairs) {
        double const x = coordinate(random);
        ends.emplace_back(x, coordinate(random));
    }
    return ends;
}

/// Short segments in a wide square: hardly any pair crosses.
Ends apart(std::mt19937_64 &random)
{
    std::uniform_real_distribution<double> coordinate(-100.0, 100.0);
    std::uniform_real_distribution<double> step(-5.0, 5.0);
    Ends ends;
    while (ends.size() < 4 * pairs) {
        double const x = coordinate(random);
        Point2D const start(x, coordinate(random));
        double const dx = step(random);
        ends.push_back(start);
        ends.push_back(start + Point2D(dx, step(random)));
    }
    return ends;
}

/// Ends on a coarse grid: shared ends, ends on edges and parallels are common.
Ends grid(std::mt19937_64 &random)
{
    Ends ends;
    while (ends.size() < 4 * pairs) {
        double const x = static_cast<double>(random() % 8);
        ends.emplace_back(x, static_cast<double>(random() % 8));
    }
    return ends;
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

/// One of our functions, which take and give the same.
template <typename Function>
void measure(benchmark::State &state, Ends const &ends, Function function)
{
    Point2D out;
    run(state, [&](size_t i) {
        Point2D const *s = ends.data() + 4 * i;
        auto const type = function(s[0], s[1], s[2], s[3], out, tol);
        benchmark::DoNotOptimize(out);
        return type;
    });
}

#ifdef ORVEL_HAVE_BOOST_GEOMETRY
void boostIntersection(benchmark::State &state, Ends const &ends)
{
    using Point = boost::geometry::model::d2::point_xy<double>;
    using Segment = boost::geometry::model::segment<Point>;
    std::vector<Segment> segments;
    for (size_t i = 0; i < 4 * pairs; i += 2) {
        segments.emplace_back(Point(ends[i].x(), ends[i].y()),
                              Point(ends[i + 1].x(), ends[i + 1].y()));
    }
    boost::geometry::model::multi_point<Point> out;
    run(state, [&](size_t i) {
        out.clear();
        boost::geometry::intersection(segments[2 * i], segments[2 * i + 1], out);
        return out.size();
    });
}
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

void cgalIntersection(benchmark::State &state, Ends const &ends)
{
    std::vector<Kernel::Segment_2> segments;
    for (size_t i = 0; i < 4 * pairs; i += 2) {
        segments.emplace_back(Kernel::Point_2(ends[i].x(), ends[i].y()),
                              Kernel::Point_2(ends[i + 1].x(), ends[i + 1].y()));
    }
    Point2D out;
    run(state, [&](size_t i) {
        bool const found = cgalCross(segments[2 * i], segments[2 * i + 1], out);
        benchmark::DoNotOptimize(out);
        return found;
    });
}
#endif

void registerCase(std::string const &name, Ends (*draw)(std::mt19937_64 &))
{
    auto const add = [&](char const *who, auto run) {
        std::string const title = "segmentCrossing/" + name + '/' + who;
        benchmark::RegisterBenchmark(title.c_str(), [=](benchmark::State &state) {
            std::mt19937_64 random(11);
            run(state, draw(random));
        });
    };
    add("orvel.Math2DIntersect2Lines", [](benchmark::State &state, Ends const &ends) {
        measure(state, ends, Math2DIntersect2Lines);
    });
    add("orvel.Math2DIntersect2LinesWrong", [](benchmark::State &state, Ends const &ends) {
        measure(state, ends, Math2DIntersect2LinesWrong);
    });
    add("orvel.intersectEdgeEdge", [](benchmark::State &state, Ends const &ends) {
        measure(state, ends, concav2d::intersectEdgeEdge);
    });
#ifdef ORVEL_HAVE_BOOST_GEOMETRY
    add("boost", boostIntersection);
#endif
#ifdef ORVEL_HAVE_CGAL
    add("cgal", cgalIntersection);
#endif
}

[[maybe_unused]] bool const areRegistered = [] {
    registerCase("mixed", mixed);
    registerCase("apart", apart);
    registerCase("grid", grid);
    return true;
}();

} // namespace
