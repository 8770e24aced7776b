#include "HullDefinition.h"

#include <OrvelMath/hull/quick/QuickPolygon_p.h>

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

/// Index of the lexicographically smallest point.
int startOf(Points2 const &points)
{
    int start = 0;
    for (int i = 1; i < points.size(); ++i) {
        bool const less = points[i].x() < points[start].x() ||
                          (points[i].x() == points[start].x() && points[i].y() < points[start].y());
        start = less ? i : start;
    }
    return start;
}

/// A list of points of one of many kinds: whole numbers, copies, near copies, a start far away, all
/// in a sliver, steps about the tolerance, on a circle, noise of the last bits, directions that the
/// shortcut can just tell apart or just not.
Points2 randomList(std::mt19937_64 &generator)
{
    auto const whole = [&](unsigned n) { return double(generator() % n); };
    auto const uniform = [&] { return double(generator() >> 11) * 0x1p-53; };
    unsigned const kind = unsigned(generator() % 9);
    int const count = 1 + int(generator() % 40);
    unsigned const steps = 2u << generator() % 12;
    double const scale = std::pow(10.0, double(generator() % 17) - 9.0);
    Points2 points;
    while (points.size() < count) {
        vectorC2d<double> p(uniform(), uniform());
        if (kind == 1) {
            p = {whole(steps), whole(steps)};
        } else if (kind == 2 && !points.isEmpty() && generator() % 2) {
            p = points[int(generator() % unsigned(points.size()))];
        } else if (kind == 3) {
            p = {1.0 + 1e-9 * whole(9), whole(3) + 1e-9 * whole(40)};
        } else if (kind == 4) {
            p = {p.x(), p.y() * 1e-7};
        } else if (kind == 5) {
            p = {std::cos(whole(64)), std::sin(whole(64))};
        } else if (kind == 6 && !points.isEmpty()) {
            p = points[int(generator() % unsigned(points.size()))] +
                vectorC2d<double>(whole(3) * 0x1p-52, whole(3) * 0x1p-52);
        } else if (kind == 7 && points.isEmpty()) {
            p = {-1e4, 0.0};
        } else if (kind == 8) { // directions so many steps apart as the shortcut can tell
            double const x = 1.0 + whole(3);
            p = points.isEmpty() ? vectorC2d<double>()
                                 : vectorC2d<double>(x, x * whole(60) * 0x1p-31);
        }
        points.append(kind == 6 ? p : p * scale);
    }
    return points;
}

} // namespace

TEST(QuickPolygon, IsAsDefinedOrDeclines)
{
    // ORVEL_LONG_TESTS=1 runs a million lists.
    int const rounds = std::getenv("ORVEL_LONG_TESTS") ? 1000000 : 100000;
    std::mt19937_64 generator(5);
    int answered = 0;
    for (int round = 0; round < rounds; ++round) {
        Points2 const points = randomList(generator);
        QList<int> hull{-7};
        if (quickPolygon(points, startOf(points), hull)) {
            ++answered;
            ASSERT_EQ(definedPolygon(points), hull) << "round " << round;
        } else {
            ASSERT_EQ(QList<int>{-7}, hull) << "round " << round;
        }
    }
    EXPECT_LT(rounds / 2, answered);
}
