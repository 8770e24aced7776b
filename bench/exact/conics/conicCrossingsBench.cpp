// Crossings of two ellipses, per pair: all of them, beside OrvelMath's way by the pencil of conics.

#include <OrvelExact/conics/conicCrossings.h>
#include <OrvelMath/geom2d/mathPoly.h>

#include <benchmark/benchmark.h>

#include <random>
#include <utility>
#include <vector>

namespace {

struct Pair
{
    mathPoly::Ellipse first;
    mathPoly::Ellipse second;
    orvelExact::Ellipse exactFirst;
    orvelExact::Ellipse exactSecond;
};

/// Pairs with semi-axes from 0.3 to 3 times a scale, far more than a branch predictor keeps.
std::vector<Pair> pairsOf(double scale)
{
    std::mt19937_64 engine(20240607);
    auto const number = [&engine](double lo, double hi) {
        return lo + (hi - lo) * static_cast<double>(engine() >> 11) * 0x1p-53;
    };
    auto const ellipse = [&] {
        double const x = scale * number(-1.5, 1.5);
        double const y = scale * number(-1.5, 1.5);
        double const angle = number(0, 360);
        double const a = scale * number(0.3, 3);
        return mathPoly::Ellipse(Point2D(x, y), angle, a, scale * number(0.3, 3));
    };
    auto const exact = [](mathPoly::Ellipse const &e) {
        return orvelExact::ellipseAtAngle({e.cx, e.cy}, e.angle, e.a, e.b).ellipse;
    };
    std::vector<Pair> pairs;
    for (int i = 0; i < 16384; ++i) {
        mathPoly::Ellipse const first = ellipse();
        mathPoly::Ellipse const second = ellipse();
        pairs.push_back({first, second, exact(first), exact(second)});
    }
    return pairs;
}

template <class Cut>
void overPairs(benchmark::State &state, double scale, Cut cut)
{
    std::vector<Pair> pairs = pairsOf(scale);
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(cut(pairs[i]));
        i = (i + 1) % pairs.size();
    }
}

int byPencil(Pair &pair)
{
    Point2D points[12];
    int count = 0;
    mathPoly::FindIntersections(pair.first, pair.second, count, points);
    return count;
}

void FindIntersections(benchmark::State &state)
{
    overPairs(state, 1.0, byPencil);
}
BENCHMARK(FindIntersections)->Name("ellipses/moderate/16384/OrvelMath");

void EllipseCrossings(benchmark::State &state)
{
    overPairs(state, 1.0, [](Pair const &pair) {
        return orvelExact::ellipseCrossings(pair.exactFirst, pair.exactSecond, 0.0).count;
    });
}
BENCHMARK(EllipseCrossings)->Name("ellipses/moderate/16384/orvel");

void EllipseCrossingsWithinTolerance(benchmark::State &state)
{
    overPairs(state, 1.0, [](Pair const &pair) {
        return orvelExact::ellipseCrossings(pair.exactFirst, pair.exactSecond, 1e-6).count;
    });
}
BENCHMARK(EllipseCrossingsWithinTolerance)->Name("ellipses/tolerance/16384/orvel");

void FindIntersectionsOfLarge(benchmark::State &state)
{
    overPairs(state, 100.0, byPencil);
}
BENCHMARK(FindIntersectionsOfLarge)->Name("ellipses/large/16384/OrvelMath");

void EllipseCrossingsOfLarge(benchmark::State &state)
{
    overPairs(state, 100.0, [](Pair const &pair) {
        return orvelExact::ellipseCrossings(pair.exactFirst, pair.exactSecond, 0.0).count;
    });
}
BENCHMARK(EllipseCrossingsOfLarge)->Name("ellipses/large/16384/orvel");

void EllipseCrossingsInContact(benchmark::State &state)
{
    overPairs(state, 1.0, [](Pair const &pair) {
        // a circle that touches at the end of u from within
        orvelExact::Ellipse const e{{}, {2.0, 0.0}, {0.0, 1.0 + 0.1 * pair.first.a}};
        return orvelExact::ellipseCrossings(e, orvelExact::circle({1.5, 0.0}, 0.5), 0.0).count;
    });
}
BENCHMARK(EllipseCrossingsInContact)->Name("ellipses/contact/16384/orvel");

void LineCrossings(benchmark::State &state)
{
    overPairs(state, 1.0, [](Pair const &pair) {
        return orvelExact::lineCrossings(pair.exactFirst, pair.exactFirst.centre,
                                         pair.exactSecond.centre, 0.0)
            .count;
    });
}
BENCHMARK(LineCrossings)->Name("ellipseLine/moderate/16384/orvel");

} // namespace
