// The polygon tests and the segment crossings take short cuts. Plain twins, which take none, have
// to come to the same answers and the same bits, above all where a short cut nearly applies.

#include "PlaneFixtures.h"

#include <OrvelMath/geom2d/Math2D.h>
#include <OrvelMath/geom2d/concav2d.h>

#include <array>
#include <random>

namespace {

enum class Level { Below, Above, InBand };

struct Ray
{
    Point2D p;
    Point2D end;
    double tol;

    Level level(double y) const
    {
        if (p.y() - tol > y) {
            return Level::Below;
        }
        return y > p.y() + tol ? Level::Above : Level::InBand;
    }

    /// First vertex that is not strictly within the band, or the size.
    size_t start(std::vector<Point2D> const &v) const
    {
        size_t i = 0;
        while (i < v.size() && p.y() - tol < v[i].y() && v[i].y() < p.y() + tol) {
            ++i;
        }
        return i;
    }

    Level firstSide(Point2D const &vertex) const
    {
        return p.y() - tol > vertex.y() ? Level::Below : Level::Above;
    }
};

IntersectionType plainIntersect(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                Point2D const &p3, Point2D &out, double tol, bool careful)
{
    if (careful) {
        for (Point2D const *end : {&p0, &p1}) {
            if (Math2DComparePoints(*end, p3, tol) == 0 ||
                Math2DComparePoints(*end, p2, tol) == 0) {
                out = *end;
                return EndToEnd;
            }
        }
    }
    Point2D const d = p1 - p0;
    Point2D const e = p3 - p2;
    double const c = d.x() * e.y() - d.y() * e.x();
    if (careful ? tol * tol > std::fabs(c) : c == 0.0) {
        return NoIntersection;
    }
    double const t = ((p2.x() - p0.x()) * e.y() - (p2.y() - p0.y()) * e.x()) / c;
    if (t < 0 || t > 1) {
        return NoIntersection;
    }
    double const u =
        ((p1.y() - p3.y()) * (p0.x() - p1.x()) - (p1.x() - p3.x()) * (p0.y() - p1.y())) / c;
    if (u < 0 || u > 1) {
        return NoIntersection;
    }
    out = Point2D(p0.x() + t * d.x(), p0.y() + t * d.y());
    double const s1 = d.Length() * t;
    double const s2 = e.Length() * u;
    bool const first = tol > s1 || s1 > d.Length() - tol;
    bool const second = tol > s2 || s2 > e.Length() - tol;
    if (first && second) {
        return EndToEnd;
    }
    return first || second ? EndOnSegment : ProperCrossing;
}

concav2d::IntersectionType plainEdgeEdge(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                         Point2D const &p3, Point2D &out, double tol)
{
    Point2D const d = p1 - p0;
    Point2D const e = p3 - p2;
    double const c = d.x() * e.y() - d.y() * e.x();
    if (1e-100 > std::fabs(c)) {
        return concav2d::NoIntersection;
    }
    double const t = ((p2.x() - p0.x()) * e.y() - (p2.y() - p0.y()) * e.x()) / c;
    Point2D const x(p0.x() + t * d.x(), p0.y() + t * d.y());
    out = x;
    double const d0 = (p0 - x).Length();
    double const d1 = (p1 - x).Length();
    double const e0 = (p2 - x).Length();
    double const e1 = (p3 - x).Length();
    if (std::fabs((p0 - p1).Length() - d0 - d1) > tol) {
        return concav2d::NoIntersection;
    }
    if (std::fabs((p2 - p3).Length() - e0 - e1) > tol) {
        return concav2d::NoIntersection;
    }
    bool const first = tol >= d0 || tol >= d1;
    bool const second = tol >= e0 || tol >= e1;
    if (first && second) {
        return concav2d::EndToEnd;
    }
    return first || second ? concav2d::EndOnEdge : concav2d::Crossing;
}

concav2d::LocationType plainPointInsidePolygone(std::vector<Point2D> const &v, Point2D const &p,
                                                double tol)
{
    if (v.size() < 3) {
        return concav2d::Outside;
    }
    double min = 2147483647.0;
    double max = -2147483648.0;
    for (Point2D const &q : v) {
        min = q.x() < min ? q.x() : min;
        max = q.x() > max ? q.x() : max;
    }
    if (p.x() > max + tol || min - tol > p.x()) {
        return concav2d::Outside;
    }
    Ray const ray{p, {max + 10000.0, p.y()}, tol};
    size_t const start = ray.start(v);
    if (start == v.size()) {
        return concav2d::Outside;
    }
    Level last = ray.firstSide(v[start]);
    int count = 0;
    for (size_t k = 0; k < v.size(); ++k) {
        Point2D const &cur = v[(start + k) % v.size()];
        Point2D const &next = v[(start + k + 1) % v.size()];
        Level const a = ray.level(cur.y());
        Level const b = ray.level(next.y());
        auto const at = [&](Point2D const &q) {
            return q.x() >= p.x() - tol && q.x() <= p.x() + tol;
        };
        if (a == Level::InBand && b == Level::InBand &&
            ((cur.x() <= p.x() && p.x() <= next.x()) || (next.x() <= p.x() && p.x() <= cur.x()))) {
            return concav2d::OnBoundary;
        }
        if ((a == Level::InBand && at(cur)) || (b == Level::InBand && at(next))) {
            return concav2d::OnBoundary;
        }
        if (a != Level::InBand && b != Level::InBand && a != b) {
            Point2D out;
            auto const type = plainEdgeEdge(cur, next, p, ray.end, out, tol);
            if (type == concav2d::EndToEnd || type == concav2d::EndOnEdge) {
                return concav2d::OnBoundary;
            }
            count += type == concav2d::Crossing ? 1 : 0;
        } else if (a == Level::InBand && b != Level::InBand && cur.x() > p.x() - tol && b != last) {
            ++count;
        }
        if (a != Level::InBand) {
            last = a;
        }
    }
    return count % 2 != 0 ? concav2d::Inside : concav2d::Outside;
}

InsidePolyType plainInsidePolygon(std::vector<Point2D> const &v, Point2D const &p, double tol)
{
    if (v.size() < 3) {
        return OutsidePolygon;
    }
    double min = 1e300;
    double max = -1e300;
    for (Point2D const &q : v) {
        min = q.x() < min ? q.x() : min;
        max = q.x() > max ? q.x() : max;
    }
    if (p.x() > max || min > p.x()) {
        return OutsidePolygon;
    }
    Ray const ray{p, {max + 100.0, p.y()}, tol};
    size_t const start = ray.start(v);
    if (start == v.size()) {
        return OutsidePolygon;
    }
    Level last = ray.firstSide(v[start]);
    int count = 0;
    for (size_t k = 0; k < v.size(); ++k) {
        Point2D const &cur = v[(start + k) % v.size()];
        Point2D const &next = v[(start + k + 1) % v.size()];
        Level const a = ray.level(cur.y());
        Level const b = ray.level(next.y());
        if (a == Level::InBand) {
            if (b == Level::InBand &&
                ((cur.x() < p.x() && p.x() < next.x()) || (next.x() < p.x() && p.x() < cur.x()))) {
                return OnPolygonEdge;
            }
            if (b != Level::InBand && cur.x() > p.x() - tol && b != last) {
                ++count;
            }
            continue;
        }
        if (b != Level::InBand && a != b) {
            Point2D out;
            auto const type = plainIntersect(cur, next, p, ray.end, out, tol, false);
            if (type == EndOnSegment || type == EndToEnd) {
                return OnPolygonEdge;
            }
            count += type == ProperCrossing ? 1 : 0;
        }
        last = a;
    }
    return count % 2 != 0 ? InsidePolygon : OutsidePolygon;
}

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
        static constexpr std::array<double, 8> strange = {nan64, inf,    -inf,   1e300,
                                                          1e160, 1e-310, 1e-160, -0.0};
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
        double const noise = 5e-14 * (3 * m_scale + 10000.0);
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
    auto const same = [](double x, double y) {
        return std::isnan(y) ? std::isnan(x) : x == y && std::signbit(x) == std::signbit(y);
    };
    return same(a.x(), b.x()) && same(a.y(), b.y());
}

constexpr std::array<double, 12> tolerances = {0.0,  1e-15, 1e-10, 5e-10, 1e-9, 1e-6,
                                               1e-3, 0.5,   1.0,   -1.0,  1e4,  nan64};

TEST(PlainTwins, PolygonTestsAgreeOnEveryInput)
{
    std::mt19937_64 random(31);
    int locations[3] = {0, 0, 0};
    int insides[3] = {0, 0, 0};
    for (int round = 0; round < 200000; ++round) {
        double const tol = tolerances[random() % tolerances.size()];
        double const scale = std::pow(10.0, static_cast<double>(random() % 9) - 2.0);
        Coordinates coordinate(random, scale, tol);
        Point2D const p(coordinate(0.0), coordinate(0.0));
        std::vector<Point2D> points;
        // Half of the outlines keep out of the band: those are located without a walk.
        bool const avoidsBand = random() % 2 == 0;
        size_t const size = random() % 4 == 0 ? random() % 140 : random() % 24;
        while (points.size() < size) {
            Point2D q(coordinate(p.x()), coordinate(p.y()));
            Ray const ray{p, p, tol};
            if (avoidsBand && ray.level(q.y()) == Level::InBand) {
                static constexpr std::array<double, 3> clearances = {1e-15, 1e-13, 1.0};
                double const height = tol + scale * clearances[random() % clearances.size()];
                q.y(p.y() + (random() % 2 == 0 ? height : -height));
            }
            points.push_back(q);
        }
        Polygon polygon(points);
        auto const location = concav2d::pointInsidePolygone(polygon.pointers(), p, tol);
        ASSERT_EQ(location, plainPointInsidePolygone(points, p, tol)) << "round " << round;
        auto const inside =
            Math2DInsidePolygon(polygon.data(), polygon.count(), p, nullptr, nullptr, tol);
        ASSERT_EQ(inside, plainInsidePolygon(points, p, tol)) << "round " << round;
        ++locations[location];
        ++insides[inside];
    }
    for (int type = 0; type < 3; ++type) {
        EXPECT_GT(locations[type], 5000);
        EXPECT_GT(insides[type], 5000);
    }
}

TEST(PlainTwins, SegmentCrossingsAgreeToTheBitOnEveryInput)
{
    std::mt19937_64 random(32);
    int types[2][4] = {{0, 0, 0, 0}, {0, 0, 0, 0}};
    int edgeTypes[5] = {0, 0, 0, 0, 0};
    for (int round = 0; round < 200000; ++round) {
        double const tol = tolerances[random() % tolerances.size()];
        double const scale = std::pow(10.0, static_cast<double>(random() % 9) - 2.0);
        Coordinates coordinate(random, scale, tol);
        Point2D const p0(coordinate(0.0), coordinate(0.0));
        Point2D const p1(coordinate(p0.x()), coordinate(0.0));
        Point2D const p2(coordinate(p0.x()), coordinate(p1.y()));
        Point2D const p3(coordinate(p1.x()), coordinate(p0.y()));
        for (bool const careful : {false, true}) {
            Point2D out = untouchedPoint();
            Point2D expected = untouchedPoint();
            auto const type = careful ? Math2DIntersect2Lines(p0, p1, p2, p3, out, tol)
                                      : Math2DIntersect2LinesWrong(p0, p1, p2, p3, out, tol);
            ASSERT_EQ(type, plainIntersect(p0, p1, p2, p3, expected, tol, careful));
            ASSERT_TRUE(areSameBits(out, expected)) << "round " << round;
            ++types[careful ? 1 : 0][type];
        }
        Point2D out = untouchedPoint();
        Point2D expected = untouchedPoint();
        auto const type = concav2d::intersectEdgeEdge(p0, p1, p2, p3, out, tol);
        ASSERT_EQ(type, plainEdgeEdge(p0, p1, p2, p3, expected, tol)) << "round " << round;
        ASSERT_TRUE(areSameBits(out, expected)) << "round " << round;
        ++edgeTypes[type];
    }
    for (auto const &counts : types) {
        for (int const count : counts) {
            EXPECT_GT(count, 1000);
        }
    }
    for (int const type : {0, 1, 2, 4}) {
        EXPECT_GT(edgeTypes[type], 1000);
    }
}

TEST(PlainTwins, TinyCrossProductsLeaveTheOutputAlone)
{
    Point2D out = untouchedPoint();
    EXPECT_EQ(concav2d::intersectEdgeEdge({2, 0}, {2, 1e-160}, {0, 1e-160}, {3, 0}, out, 0.0),
              concav2d::NoIntersection);
    EXPECT_TRUE(areSameBits(out, untouchedPoint()));
}

/// A polygon of a hundred and thirty thousand vertices and more, where not all sides can be kept.
TEST(PlainTwins, PolygonTestsAgreeOnVeryManyVertices)
{
    std::mt19937_64 random(33);
    std::uniform_real_distribution<double> radius(60.0, 100.0);
    for (int const size : {131071, 131072, 131073, 200000}) {
        std::vector<Point2D> points;
        for (int i = 0; i < size; ++i) {
            double const angle = 6.283185307179586 * i / size;
            double const r = radius(random);
            points.emplace_back(r * std::cos(angle), r * std::sin(angle));
        }
        Polygon polygon(points);
        for (int round = 0; round < 20; ++round) {
            Point2D const p(radius(random) - 60.0, radius(random) - 30.0);
            EXPECT_EQ(concav2d::pointInsidePolygone(polygon.pointers(), p, 1e-9),
                      plainPointInsidePolygone(points, p, 1e-9));
            EXPECT_EQ(
                Math2DInsidePolygon(polygon.data(), polygon.count(), p, nullptr, nullptr, 1e-9),
                plainInsidePolygon(points, p, 1e-9));
        }
    }
}

} // namespace
