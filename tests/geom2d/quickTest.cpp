// The polygon tests and the segment crossings take shortcuts. Their definitions, which take none,
// have to come to the same answers and the same bits, above all where a shortcut nearly applies.

#include "PlaneFixtures.h"
#include "longRuns.h"
#include "support/Bits.h"

#include <OrvelMath/geom2d/Math2D_p.h>
#include <OrvelMath/geom2d/concav2d_p.h>

#include <array>
#include <random>

namespace {

/// Coordinates that meet: a small grid, places a tolerance or a few units of rounding away from a
/// given one, anything, and now and then what is not a number or out of all scale.
class Coordinates
{
public:
    Coordinates(std::mt19937_64 &random, double scale, double tol)
        : m_random(random)
        , m_scale(scale)
        , m_tol(tol)
    {
    }

    double operator()(double near)
    {
        static constexpr std::array<double, 8> strange = {
            support::nan, support::inf, -support::inf, 1e300, 1e160, 1e-310, 1e-160, -0.0};
        switch (m_random() % 64) {
        case 0:
            return strange[m_random() % strange.size()];
        case 1:
        case 2:
        case 3:
        case 4:
        case 5:
        case 6:
        case 7:
        case 8:
            return static_cast<double>(m_random() % 9) - 4.0;
        default:
            break;
        }
        std::uniform_real_distribution<double> anything(-m_scale, m_scale);
        if (m_random() % 2 == 0) {
            return anything(m_random);
        }
        // What the shortcuts leave free for rounding: of the sizes that take part, of those that
        // are assumed before the outline is known, and of a segment.
        double const reaches[] = {100.0, 10000.0};
        double const assumed = 3.2e-12 * std::max(m_scale, reaches[m_random() % 2]);
        double const noises[] = {5e-14 * (3 * m_scale + 10000.0), assumed, 1e-13 * m_scale};
        double const noise = noises[m_random() % 3];
        double const steps = static_cast<double>(m_random() % 9) - 4.0;
        double const sign = static_cast<double>(m_random() % 3) - 1.0;
        return near + sign * m_tol + steps / 2 * noise;
    }

private:
    std::mt19937_64 &m_random;
    double m_scale;
    double m_tol;
};

/// Equal to the bit, but for the payload of NaN.
bool areSameBits(Point2D const &a, Point2D const &b)
{
    return support::sameBits(a.x(), b.x()) && support::sameBits(a.y(), b.y());
}

constexpr std::array<double, 12> tolerances = {0.0,  1e-15, 1e-10, 5e-10, 1e-9, 1e-6,
                                               1e-3, 0.5,   1.0,   -1.0,  1e4,  support::nan};

TEST(ShortcutsOfThePlane, PolygonTestsAgreeOnEveryInput)
{
    std::mt19937_64 random(31);
    int locations[3] = {0, 0, 0};
    int insides[3] = {0, 0, 0};
    for (int round = 0; round < caseCount(); ++round) {
        double const tol = tolerances[random() % tolerances.size()];
        double const scale = std::pow(10.0, static_cast<double>(random() % 9) - 2.0);
        bool const isTall = random() % 4 == 0; // much wider in y than in x
        Coordinates coordinate(random, scale, tol);
        Coordinates coordinateInY(random, isTall ? scale * 1e9 : scale, tol);
        double const px = coordinate(0.0);
        Point2D const p(px, coordinateInY(0.0));
        std::vector<Point2D> points;
        // Half of the outlines keep out of the band: those are located without a walk.
        bool const avoidsBand = random() % 2 == 0;
        size_t const size = random() % 4 == 0 ? random() % 140 : random() % 24;
        while (points.size() < size) {
            double const x = coordinate(p.x());
            Point2D q(x, coordinateInY(p.y()));
            bool const isInBand = !(p.y() - tol > q.y()) && !(q.y() > p.y() + tol);
            if (avoidsBand && isInBand) {
                static constexpr std::array<double, 4> clearances = {1e-15, 1e-13, 4e-12, 1.0};
                double const height = tol + scale * clearances[random() % clearances.size()];
                q.y(p.y() + (random() % 2 == 0 ? height : -height));
            }
            points.push_back(q);
        }
        Polygon polygon(points);
        auto const location = concav2d::pointInsidePolygone(polygon.pointers(), p, tol);
        ASSERT_EQ(concav2d::definition::pointInsidePolygone(polygon.pointers(), p, tol), location)
            << "round " << round;
        auto const inside =
            Math2DInsidePolygon(polygon.data(), polygon.count(), p, nullptr, nullptr, tol);
        ASSERT_EQ(definition::Math2DInsidePolygon(polygon.data(), polygon.count(), p, nullptr,
                                                  nullptr, tol),
                  inside)
            << "round " << round;
        ++locations[location];
        ++insides[inside];
    }
    for (int type = 0; type < 3; ++type) {
        EXPECT_LT(2500, locations[type]);
        EXPECT_LT(2500, insides[type]);
    }
}

/// Ends of two segments that meet, or nearly do, at all kinds of places.
struct Segments
{
    Segments(Coordinates &coordinate)
        : p0(coordinate(0.0), coordinate(0.0))
        , p1(coordinate(p0.x()), coordinate(0.0))
        , p2(coordinate(p0.x()), coordinate(p1.y()))
        , p3(coordinate(p1.x()), coordinate(p0.y()))
    {
    }

    Point2D p0, p1, p2, p3;
};

/// Calls a crossing function and its definition on the same segments, and counts the answers.
template <typename Function>
void expectSameCrossings(Function shipped, Function definition, int (&counts)[5])
{
    std::mt19937_64 random(32);
    for (int round = 0; round < caseCount(); ++round) {
        double const tol = tolerances[random() % tolerances.size()];
        double const scale = std::pow(10.0, static_cast<double>(random() % 9) - 2.0);
        Coordinates coordinate(random, scale, tol);
        Segments const s(coordinate);
        Point2D out(support::preset, support::preset);
        Point2D expected = out;
        auto const expectedType = definition(s.p0, s.p1, s.p2, s.p3, expected, tol);
        auto const type = shipped(s.p0, s.p1, s.p2, s.p3, out, tol);
        ASSERT_EQ(expectedType, type) << "round " << round;
        ASSERT_TRUE(areSameBits(expected, out)) << "round " << round;
        ++counts[type];
    }
}

TEST(ShortcutsOfThePlane, CarefulCrossingsAgreeToTheBit)
{
    int counts[5] = {0, 0, 0, 0, 0};
    expectSameCrossings(Math2DIntersect2Lines, definition::Math2DIntersect2Lines, counts);
    for (int const type : {NoIntersection, ProperCrossing, EndOnSegment, EndToEnd}) {
        EXPECT_LT(500, counts[type]);
    }
}

TEST(ShortcutsOfThePlane, CarelessCrossingsAgreeToTheBit)
{
    int counts[5] = {0, 0, 0, 0, 0};
    expectSameCrossings(Math2DIntersect2LinesWrong, definition::Math2DIntersect2LinesWrong, counts);
    for (int const type : {NoIntersection, ProperCrossing, EndOnSegment, EndToEnd}) {
        EXPECT_LT(500, counts[type]);
    }
}

TEST(ShortcutsOfThePlane, CrossingsByLengthsAgreeToTheBit)
{
    int counts[5] = {0, 0, 0, 0, 0};
    expectSameCrossings(concav2d::intersectEdgeEdge, concav2d::definition::intersectEdgeEdge,
                        counts);
    for (int const type :
         {concav2d::NoIntersection, concav2d::EndToEnd, concav2d::EndOnEdge, concav2d::Crossing}) {
        EXPECT_LT(500, counts[type]);
    }
}

/// Vectors whose directions are often a tolerance and a little more or less apart.
class Directions
{
public:
    Directions(std::mt19937_64 &random, double tol)
        : m_random(random)
        , m_tol(tol)
    {
    }

    Point2D operator()()
    {
        static constexpr std::array<double, 10> angles = {0.0,  45.0,  90.0,  180.0, 270.0,
                                                          30.0, 359.0, 120.0, 240.0, 60.0};
        static constexpr std::array<double, 6> strange = {support::nan, support::inf, 0.0,
                                                          1e-200,       1e200,        -0.0};
        if (m_random() % 32 == 0) {
            double const x = strange[m_random() % strange.size()];
            return Point2D(x, strange[m_random() % strange.size()]);
        }
        std::uniform_real_distribution<double> any(0.0, 360.0);
        std::uniform_real_distribution<double> part(-1.5, 1.5);
        double angle = m_random() % 2 == 0 ? any(m_random) : angles[m_random() % angles.size()];
        double const noises[] = {0.0, m_tol, 1e-9, 5.7e-8, m_tol + 5.7e-8};
        angle += noises[m_random() % 5] * (m_random() % 2 == 0 ? 1.0 : part(m_random));
        double const radii[] = {1.0, 1.0, 3.5, 1e-6, 1e6, 1e-71, 1e71};
        double const radius = radii[m_random() % 7];
        return Point2D(radius * std::cos(angle * pi / 180), radius * std::sin(angle * pi / 180));
    }

private:
    std::mt19937_64 &m_random;
    double m_tol;
};

constexpr std::array<double, 10> angleTolerances = {0.0, 1e-12, 1e-9, 1e-6,  1e-3,
                                                    1.0, 50.0,  90.0, -1e-6, support::nan};

TEST(ShortcutsOfThePlane, OrdersOfDirectionsAgree)
{
    std::mt19937_64 random(35);
    int counts[4] = {0, 0, 0, 0};
    for (int round = 0; round < caseCount(); ++round) {
        double const tol = angleTolerances[random() % angleTolerances.size()];
        Directions direction(random, tol);
        Point2D const u = direction();
        Point2D const v = direction();
        Point2D const w = direction();
        int const expected = concav2d::definition::ccw_vectors_origin(u, v, w, tol);
        ASSERT_EQ(expected, concav2d::ccw_vectors_origin(u, v, w, tol)) << "round " << round;
        ++counts[expected + 1];
    }
    for (int const count : counts) {
        EXPECT_LT(1000, count);
    }
}

TEST(ShortcutsOfThePlane, ParallelsAgree)
{
    std::mt19937_64 random(36);
    int counts[2] = {0, 0};
    for (int round = 0; round < caseCount(); ++round) {
        double const tol = angleTolerances[random() % angleTolerances.size()];
        Directions direction(random, tol);
        Point2D const origin(0, 0);
        Point2D const u = direction();
        Point2D const v = direction();
        bool const expected = concav2d::definition::areLinesParallel(u, origin, v, origin, tol);
        ASSERT_EQ(expected, concav2d::areLinesParallel(u, origin, v, origin, tol))
            << "round " << round;
        ++counts[expected ? 1 : 0];
    }
    for (int const count : counts) {
        EXPECT_LT(1000, count);
    }
}

TEST(ShortcutsOfThePlane, TinyCrossProductsLeaveTheOutputAlone)
{
    Point2D out = Point2D(support::preset, support::preset);
    EXPECT_EQ(concav2d::intersectEdgeEdge({2, 0}, {2, 1e-160}, {0, 1e-160}, {3, 0}, out, 0.0),
              concav2d::NoIntersection);
    EXPECT_TRUE(areSameBits(Point2D(support::preset, support::preset), out));
}

/// Outlines of very many vertices, so that the words of bits and the second pass are full.
TEST(ShortcutsOfThePlane, PolygonTestsAgreeOnVeryManyVertices)
{
    std::mt19937_64 random(33);
    std::uniform_real_distribution<double> radius(60.0, 100.0);
    for (int const size : {31, 32, 33, 63, 64, 65, 131072, 200000}) {
        std::vector<Point2D> points;
        for (int i = 0; i < size; ++i) {
            double const angle = 6.283185307179586 * i / size;
            double const r = radius(random);
            points.emplace_back(r * std::cos(angle), r * std::sin(angle));
        }
        Polygon polygon(points);
        for (int round = 0; round < 20; ++round) {
            double const x = radius(random) - 60.0;
            Point2D const p(x, radius(random) - 30.0);
            EXPECT_EQ(concav2d::definition::pointInsidePolygone(polygon.pointers(), p, 1e-9),
                      concav2d::pointInsidePolygone(polygon.pointers(), p, 1e-9));
            EXPECT_EQ(
                definition::Math2DInsidePolygon(polygon.data(), size, p, nullptr, nullptr, 1e-9),
                Math2DInsidePolygon(polygon.data(), size, p, nullptr, nullptr, 1e-9));
        }
    }
}

/// Staircases on whole numbers: long runs in the band, more than the shortcut has room for.
TEST(ShortcutsOfThePlane, PolygonTestsAgreeOnStairs)
{
    std::mt19937_64 random(34);
    for (int round = 0; round < caseCount() / 100; ++round) {
        std::vector<Point2D> points;
        int const size = 3 + static_cast<int>(random() % 200);
        int const heights = 1 + static_cast<int>(random() % 4);
        for (int i = 0; i < size; ++i) {
            double const x = static_cast<double>(random() % 12);
            points.emplace_back(x, static_cast<double>(random() % heights));
        }
        Polygon polygon(points);
        double const tol = tolerances[random() % tolerances.size()];
        double const x = static_cast<double>(random() % 12);
        Point2D const p(x, static_cast<double>(random() % heights));
        double xmin = static_cast<double>(random() % 3);
        double xmax = static_cast<double>(8 + random() % 6);
        ASSERT_EQ(concav2d::definition::pointInsidePolygone(polygon.pointers(), p, tol),
                  concav2d::pointInsidePolygone(polygon.pointers(), p, tol));
        ASSERT_EQ(definition::Math2DInsidePolygon(polygon.data(), size, p, &xmin, &xmax, tol),
                  Math2DInsidePolygon(polygon.data(), size, p, &xmin, &xmax, tol));
    }
}

} // namespace
