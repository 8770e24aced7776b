/// Crossings of two ellipses, per pair. The twin takes another road to the same points: the first
/// ellipse's parameter as a quartic on the unit circle, all roots at once after Weierstrass.

#include <OrvelMath/geom2d/mathPoly.h>

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <complex>
#include <random>
#include <utility>
#include <vector>

namespace {

using mathPoly::Ellipse;
using Complex = std::complex<double>;

std::vector<std::pair<Ellipse, Ellipse>> anyPairs()
{
    std::mt19937_64 engine(20240607);
    auto const number = [&engine](double lo, double hi) {
        return lo + (hi - lo) * static_cast<double>(engine() >> 11) * 0x1p-53;
    };
    auto const ellipse = [&number] {
        double const x = number(-1.5, 1.5);
        double const y = number(-1.5, 1.5);
        double const angle = number(0, 360);
        double const a = number(0.3, 3);
        return Ellipse(Point2D(x, y), angle, a, number(0.3, 3));
    };
    std::vector<std::pair<Ellipse, Ellipse>> pairs;
    for (int i = 0; i < 1024; ++i) {
        Ellipse const first = ellipse();
        pairs.emplace_back(first, ellipse());
    }
    return pairs;
}

std::array<Complex, 5> quartic(Ellipse const &e1, Ellipse const &e2)
{
    double const c = std::cos(e1.angle - e2.angle), s = std::sin(e1.angle - e2.angle);
    double const c2 = std::cos(e2.angle), s2 = std::sin(e2.angle);
    double const dx = e1.cx - e2.cx, dy = e1.cy - e2.cy;
    double const p[3] = {(c2 * dx + s2 * dy) / e2.a, c * e1.a / e2.a, -s * e1.b / e2.a};
    double const q[3] = {(c2 * dy - s2 * dx) / e2.b, s * e1.a / e2.b, c * e1.b / e2.b};
    double const cosCos = p[1] * p[1] + q[1] * q[1];
    double const sinSin = p[2] * p[2] + q[2] * q[2];
    double const cosSin = p[1] * p[2] + q[1] * q[2];
    Complex const one(p[0] * p[1] + q[0] * q[1], p[0] * p[2] + q[0] * q[2]);
    Complex const two((cosCos - sinSin) / 4, cosSin / 2);
    return {two, one, p[0] * p[0] + q[0] * q[0] - 1 + (cosCos + sinSin) / 2, std::conj(one),
            std::conj(two)};
}

int crossingsByQuartic(Ellipse const &e1, Ellipse const &e2, Point2D (&points)[4])
{
    std::array<Complex, 5> const k = quartic(e1, e2);
    std::array<Complex, 4> z{Complex(1, 0), Complex(0.4, 0.9), Complex(-0.65, 0.72),
                             Complex(-0.908, -0.297)};
    for (int step = 0; step < 60; ++step) {
        double moved = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            Complex const value =
                (((k[4] * z[i] + k[3]) * z[i] + k[2]) * z[i] + k[1]) * z[i] + k[0];
            Complex others = k[4];
            for (std::size_t j = 0; j < 4; ++j) {
                if (j != i) {
                    others *= z[i] - z[j];
                }
            }
            Complex const by = value / others;
            z[i] -= by;
            moved += std::norm(by);
        }
        if (moved < 1e-28) {
            break;
        }
    }
    double const c = std::cos(e1.angle), s = std::sin(e1.angle);
    int count = 0;
    for (Complex const &root : z) {
        if (std::abs(std::abs(root) - 1) < 1e-9) {
            points[count] = Point2D(c * e1.a * root.real() - s * e1.b * root.imag() + e1.cx,
                                    s * e1.a * root.real() + c * e1.b * root.imag() + e1.cy);
            ++count;
        }
    }
    return count;
}

template <class Cut>
void overPairs(benchmark::State &state, Cut cut)
{
    auto pairs = anyPairs();
    for (auto _ : state) {
        for (auto &[e1, e2] : pairs) {
            benchmark::DoNotOptimize(cut(e1, e2));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(pairs.size()));
}

void ellipseCrossing(benchmark::State &state)
{
    overPairs(state, [](Ellipse &e1, Ellipse &e2) {
        Point2D points[12];
        int count = 0;
        mathPoly::FindIntersections(e1, e2, count, points);
        return count;
    });
}
BENCHMARK(ellipseCrossing)->Name("ellipseCrossing/anyPairs/1024/orvel");

void ellipseCrossingTwin(benchmark::State &state)
{
    overPairs(state, [](Ellipse const &e1, Ellipse const &e2) {
        Point2D points[4];
        return crossingsByQuartic(e1, e2, points);
    });
}
BENCHMARK(ellipseCrossingTwin)->Name("ellipseCrossing/anyPairs/1024/quartic");

void ellipseCrossingChosen(benchmark::State &state)
{
    overPairs(state, [](Ellipse &e1, Ellipse &e2) {
        Point2D point;
        return mathPoly::FindIntersections2(e1, e2, true, false, point);
    });
}
BENCHMARK(ellipseCrossingChosen)->Name("ellipseCrossing/chosen/1024/orvel");

void lineEllipseCrossing(benchmark::State &state)
{
    overPairs(state, [](Ellipse const &e1, Ellipse const &e2) {
        Point2D out;
        return intersect_line_ellipse(Point2D(e1.cx, e1.cy), Point2D(e2.cx, e2.cy),
                                      Point2D(e1.cx, e1.cy), 30.0, e1.a, e1.b, false, out, 1e-9);
    });
}
BENCHMARK(lineEllipseCrossing)->Name("lineEllipseCrossing/anyPairs/1024/orvel");

} // namespace
