// The lookups against a plain recursive tree, answer by answer and in the same order.

#include "PlainTree.h"

#include <OrvelCore/runtime/PRefPtr.h>
#include <OrvelMath/lookup/Point2DLookupC.h>
#include <OrvelMath/lookup/Point3DLookupC.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <random>
#include <string>

namespace {

double const inf = std::numeric_limits<double>::infinity();

using Random = std::mt19937_64;

double uniform(Random &random, double low, double high)
{
    return std::uniform_real_distribution<double>(low, high)(random);
}

template <std::size_t K>
using Points = std::vector<std::array<double, K>>;

/// Sets of points that reach the tree's branches: spread out, full of ties, repeated, in chains.
struct Sample
{
    std::string name;
    std::function<double(Random &, int index)> coordinate;
};

std::vector<Sample> samples()
{
    double const special[] = {0.0,   -0.0,   1.0,    -1.0, inf,          -inf,
                              1e200, -1e200, 1e-170, 2.0,  std::nan(""), 3.0};
    return {
        {"uniform", [](Random &r, int) { return uniform(r, -1.0, 1.0); }},
        {"grid", [](Random &r, int) { return std::floor(uniform(r, 0.0, 9.0)); }},
        {"coarse grid", [](Random &r, int) { return std::floor(uniform(r, 0.0, 3.0)); }},
        {"clusters",
         [](Random &r, int) {
             return std::floor(uniform(r, 0.0, 4.0)) + 1e-6 * uniform(r, -1.0, 1.0);
         }},
        {"ascending", [](Random &, int i) { return 0.5 * i; }},
        {"descending with noise",
         [](Random &r, int i) { return uniform(r, -3.0, 0.0) - 0.25 * i; }},
        {"special values",
         [special](Random &r, int) { return special[static_cast<std::size_t>(r() % 12)]; }},
    };
}

template <std::size_t K>
std::array<double, K> draw(Sample const &sample, Random &random, int index)
{
    std::array<double, K> p;
    for (double &c : p) {
        c = sample.coordinate(random, index);
    }
    return p;
}

/// Stored points, near misses, and points between.
template <std::size_t K>
std::array<double, K> drawQuery(Sample const &sample, Points<K> const &points, Random &random)
{
    std::array<double, K> q = points[static_cast<std::size_t>(random() % points.size())];
    for (double &c : q) {
        switch (random() % 4) {
        case 0:
            c += 0.5;
            break;
        case 1:
            c = sample.coordinate(random, static_cast<int>(random() % points.size()));
            break;
        default:
            break;
        }
    }
    return q;
}

double drawLimit(Random &random)
{
    double const limits[] = {inf, 0.0, 0.5, 1.0, 2.0, 1e300, 1e100, -1.5};
    return random() % 3 == 0 ? uniform(random, 0.0, 3.0)
                             : limits[static_cast<std::size_t>(random() % 8)];
}

/// The same bits, so that 0 and -0 are told apart and NaN equals itself.
bool sameBits(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

struct Model2
{
    PRefPtr<Point2DLookupC> lookup{new Point2DLookupC};
    PlainTree<2> plain;
    Points<2> points;

    void insert(std::array<double, 2> const &p)
    {
        int const id = static_cast<int>(points.size());
        lookup->insert({p[0], p[1]}, id);
        plain.insert(p, id);
        points.push_back(p);
    }

    static void expectSame(PRefPtr<Point2DLookupResultC> const &hit,
                           PlainTree<2>::Node const *expected, double distance)
    {
        ASSERT_EQ(static_cast<bool>(hit), expected != nullptr);
        if (hit) {
            EXPECT_EQ(hit->getUserData().toInt(), expected->id);
            EXPECT_TRUE(sameBits(hit->getDistance(), distance));
        }
    }

    void checkNearest(std::array<double, 2> const &q, double limit) const
    {
        Point2D const query(q[0], q[1]);
        double distance = -1.0;
        auto const all = [](PlainTree<2>::Node const &) { return true; };
        auto const *const expected = plain.findNearest(q, limit, all, &distance);
        expectSame(lookup->findNearest(query, limit), expected, distance);
        auto const others = [&q](PlainTree<2>::Node const &n) {
            return n.point[0] != q[0] || n.point[1] != q[1];
        };
        auto const *const other = plain.findNearest(q, limit, others, &distance);
        expectSame(lookup->findNearestNotEqual(query, limit), other, distance);
    }

    void checkRange(std::array<double, 2> const &q, double radius) const
    {
        auto const expected = plain.findWithinRange(q, radius);
        auto const pairs = lookup->findWithinRangeUserData({q[0], q[1]}, radius);
        auto const bare = lookup->findWithinRange({q[0], q[1]}, radius);
        ASSERT_EQ(static_cast<std::size_t>(pairs.size()), expected.size());
        ASSERT_EQ(bare.size(), pairs.size());
        for (int i = 0; i < pairs.size(); ++i) {
            ASSERT_EQ(pairs[i].second.toInt(), expected[static_cast<std::size_t>(i)]->id);
            ASSERT_TRUE(bare[i] == pairs[i].first);
        }
    }
};

TEST(LookupTruth, PlaneAnswersAreThoseOfThePlainTree)
{
    for (Sample const &sample : samples()) {
        SCOPED_TRACE(sample.name);
        Random random(7);
        for (int size : {1, 2, 5, 30, 64, 65, 66, 130, 700, 1500}) {
            SCOPED_TRACE(size);
            Model2 model;
            for (int i = 0; i < size; ++i) {
                model.insert(draw<2>(sample, random, i));
            }
            for (int i = 0; i < 400 && !::testing::Test::HasFatalFailure(); ++i) {
                auto const q = drawQuery(sample, model.points, random);
                model.checkNearest(q, drawLimit(random));
                model.checkRange(q, drawLimit(random));
            }
        }
    }
}

TEST(LookupTruth, SpaceAnswersAreThoseOfThePlainTree)
{
    for (Sample const &sample : samples()) {
        SCOPED_TRACE(sample.name);
        Random random(11);
        for (int size : {1, 2, 5, 30, 64, 65, 66, 130, 700, 1500}) {
            SCOPED_TRACE(size);
            PRefPtr<Point3DLookupC> const lookup(new Point3DLookupC);
            PlainTree<3> plain;
            Points<3> points;
            for (int i = 0; i < size; ++i) {
                points.push_back(draw<3>(sample, random, i));
                auto const &p = points.back();
                lookup->insert({p[0], p[1], p[2]});
                plain.insert(p, i);
            }
            auto const same = [](Point3D const &p, std::array<double, 3> const &e) {
                return sameBits(p.x(), e[0]) && sameBits(p.y(), e[1]) && sameBits(p.z(), e[2]);
            };
            for (int i = 0; i < 400; ++i) {
                auto const q = drawQuery(sample, points, random);
                double const limit = drawLimit(random);
                auto const nearest = lookup->findNearest({q[0], q[1], q[2]}, limit);
                auto const *const expected = plain.findNearest(q, limit);
                ASSERT_EQ(nearest.second, expected != nullptr);
                ASSERT_TRUE(same(nearest.first,
                                 expected ? expected->point : std::array<double, 3>{0, 0, 0}));

                auto const range = lookup->findWithinRange({q[0], q[1], q[2]}, limit);
                auto const inRange = plain.findWithinRange(q, limit);
                ASSERT_EQ(static_cast<std::size_t>(range.size()), inRange.size());
                for (int j = 0; j < range.size(); ++j) {
                    ASSERT_TRUE(same(range[j], inRange[static_cast<std::size_t>(j)]->point));
                }
            }
        }
    }
}

TEST(LookupTruth, SearchesBetweenInsertionsSeeEveryPointSoFar)
{
    for (Sample const &sample : samples()) {
        SCOPED_TRACE(sample.name);
        Random random(13);
        Model2 model;
        for (int i = 0; i < 1200 && !::testing::Test::HasFatalFailure(); ++i) {
            model.insert(draw<2>(sample, random, i));
            auto const q = drawQuery(sample, model.points, random);
            model.checkNearest(q, drawLimit(random));
        }
    }
}

/// Distances of the k nearest by sorting them all.
std::vector<double> sortedDistances(Points<2> const &points, std::array<double, 2> const &q)
{
    std::vector<double> distances;
    for (auto const &p : points) {
        distances.push_back(std::sqrt(PlainTree<2>::squaredDistance(q, p)));
    }
    std::sort(distances.begin(), distances.end());
    return distances;
}

TEST(LookupTruth, NeighboursAreTheNearestOfAll)
{
    for (Sample const &sample : samples()) {
        if (sample.name == "special values") {
            continue; // sorting needs an order
        }
        SCOPED_TRACE(sample.name);
        Random random(17);
        Model2 model;
        for (int i = 0; i < 600; ++i) {
            model.insert(draw<2>(sample, random, i));
        }
        for (int i = 0; i < 300; ++i) {
            auto const q = drawQuery(sample, model.points, random);
            int const k = 2 + static_cast<int>(random() % 20);
            auto const hits = model.lookup->findKNearestNeighbors({q[0], q[1]}, k, inf);
            auto const expected = sortedDistances(model.points, q);
            ASSERT_EQ(hits.size(), k);
            for (int j = 0; j < k; ++j) {
                ASSERT_EQ(hits[j]->getDistance(), expected[static_cast<std::size_t>(j)]);
            }
        }
    }
}

TEST(LookupTruth, NearestIsTheNearestOfAll)
{
    Random random(19);
    Sample const sample = samples().front();
    PRefPtr<Point3DLookupC> const lookup(new Point3DLookupC);
    Points<3> points;
    for (int i = 0; i < 5000; ++i) {
        points.push_back(draw<3>(sample, random, i));
        lookup->insert({points.back()[0], points.back()[1], points.back()[2]});
    }
    for (int i = 0; i < 500; ++i) {
        auto const q = draw<3>(sample, random, i);
        auto const expected =
            *std::min_element(points.begin(), points.end(), [&q](auto const &a, auto const &b) {
                return PlainTree<3>::squaredDistance(q, a) < PlainTree<3>::squaredDistance(q, b);
            });
        auto const answer = lookup->findNearest({q[0], q[1], q[2]}, inf);
        ASSERT_TRUE(answer.second);
        ASSERT_EQ(answer.first, Point3D(expected[0], expected[1], expected[2]));
    }
}

} // namespace
