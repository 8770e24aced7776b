// Arcs: samples, boxes, and where a point lies on one; shapes against a rectangle. Names are
// arc/case/who. No peer has these questions.

#include <OrvelMath/geom2d/BezierApproximation.h>
#include <OrvelMath/geom2d/concav2d.h>

#include <QtCore/QtAlgorithms>

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

namespace {

constexpr size_t calls = 4096; // more than a branch predictor learns by heart

std::vector<Point2D> points(size_t count)
{
    std::mt19937_64 random(12);
    std::uniform_real_distribution<double> coordinate(-100.0, 100.0);
    std::vector<Point2D> drawn;
    while (drawn.size() < count) {
        double const x = coordinate(random);
        drawn.emplace_back(x, coordinate(random));
    }
    return drawn;
}

/// Calls a function with four points anywhere, after the other four.
template <typename Function>
void measure(benchmark::State &state, Function function)
{
    std::vector<Point2D> drawn = points(4 * calls);
    size_t i = 0;
    for (auto _ : state) {
        Point2D *p = drawn.data() + 4 * i;
        benchmark::DoNotOptimize(function(p[0], p[1], p[2], p[3]));
        i = (i + 1) % calls;
    }
}

/// One point of an arc, its list node included.
void sample(benchmark::State &state)
{
    QLinkedList<Point2D *> list;
    int64_t samples = 0;
    for (auto _ : state) {
        concav2d::getArcPoints({100, 0}, {0, 100}, {-100, 0}, list, 0.0, 0.001);
        samples += list.size();
        qDeleteAll(list);
    }
    state.SetItemsProcessed(samples);
}
BENCHMARK(sample)->Name("arc/sample/orvel.getArcPoints");

/// The 73 points that the step of five degrees gives on a circle.
void circle(benchmark::State &state)
{
    QLinkedList<Point2D *> list;
    for (auto _ : state) {
        concav2d::getCirclePoints({3, 4}, 100, list, 0.0);
        qDeleteAll(list);
    }
}
BENCHMARK(circle)->Name("arc/circle/orvel.getCirclePoints");

void insideRectangle(benchmark::State &state)
{
    Point2D r0(-80, -80), r1(80, -80), r2(80, 80), r3(-80, 80);
    measure(state, [&](Point2D &a, Point2D &b, Point2D &c, Point2D &) {
        return concav2d::arcInsideRectangle(a, b, c, r0, r1, r2, r3, 0.0);
    });
}
BENCHMARK(insideRectangle)->Name("arc/rectangle/orvel.arcInsideRectangle");

void pointInside(benchmark::State &state)
{
    Point2D r0(-80, -80), r1(80, -80), r2(80, 80), r3(-80, 80);
    measure(state, [&](Point2D &a, Point2D &, Point2D &, Point2D &) {
        return concav2d::pointInsideRectangle(a, r0, r1, r2, r3, 0.0);
    });
}
BENCHMARK(pointInside)->Name("arc/rectangle/orvel.pointInsideRectangle");

void lineInside(benchmark::State &state)
{
    Point2D r0(-80, -80), r1(80, -80), r2(80, 80), r3(-80, 80);
    measure(state, [&](Point2D &a, Point2D &b, Point2D &, Point2D &) {
        return concav2d::lineInsideRectangle(a, b, r0, r1, r2, r3, 0.0, true, true, true, true);
    });
}
BENCHMARK(lineInside)->Name("arc/rectangle/orvel.lineInsideRectangle");

void extrema(benchmark::State &state)
{
    measure(state, [](Point2D &a, Point2D &b, Point2D &c, Point2D &) {
        double box[4];
        concav2d::getArcExtrema(a, b, c, box[0], box[1], box[2], box[3]);
        return box[0] + box[1] + box[2] + box[3];
    });
}
BENCHMARK(extrema)->Name("arc/box/orvel.getArcExtrema");

void pointOn(benchmark::State &state)
{
    measure(state, [](Point2D &a, Point2D &b, Point2D &c, Point2D &d) {
        double angle;
        return concav2d::isPointOnArc(a, b, c, d, angle, 1e-6);
    });
}
BENCHMARK(pointOn)->Name("arc/point/orvel.isPointOnArc");

void parallel(benchmark::State &state)
{
    measure(state, [](Point2D &a, Point2D &b, Point2D &c, Point2D &d) {
        return concav2d::areLinesParallel(a, b, c, d, 1e-6);
    });
}
BENCHMARK(parallel)->Name("arc/parallel/orvel.areLinesParallel");

void bezier(benchmark::State &state)
{
    measure(state, [](Point2D &a, Point2D &b, Point2D &c, Point2D &d) {
        return BezierApproximation::interpolateCubic(a, b, c, d, 1.0).size();
    });
}
BENCHMARK(bezier)->Name("arc/bezier/orvel.interpolateCubic");

} // namespace
