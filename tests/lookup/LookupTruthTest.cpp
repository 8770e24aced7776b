// The shortcuts of the lookups against their definitions on a plain tree, bit by bit and in the
// same order, and both against the sight of all points.

#include "PlainTree.h"

#include "support/Bits.h"

#include <OrvelCore/runtime/PRefPtr.h>
#include <OrvelMath/lookup/LookupNeighbours_p.h>
#include <OrvelMath/lookup/LookupTree_p.h>
#include <OrvelMath/lookup/Point2DLookupC.h>
#include <OrvelMath/lookup/Point3DLookupC.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace {

using support::inf;
using support::SameBits;

using Random = std::mt19937_64;

double uniform(Random &random, double low, double high)
{
    return std::uniform_real_distribution<double>(low, high)(random);
}

template <int K>
using Points = std::vector<LookupPoint<K>>;

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
        {"copies in a row", [](Random &, int i) { return std::floor(i / 40 * 7919 % 23); }},
        {"strips as of a mesh",
         [](Random &r, int i) {
             return 0.125 * static_cast<double>(i / 3 % 29) + 0.25 * static_cast<double>(r() % 3);
         }},
        {"one place", [](Random &, int) { return 3.0; }},
        {"special values",
         [special](Random &r, int) { return special[static_cast<std::size_t>(r() % 12)]; }},
    };
}

template <int K>
LookupPoint<K> draw(Sample const &sample, Random &random, int index)
{
    LookupPoint<K> p;
    for (double &c : p.coordinates) {
        c = sample.coordinate(random, index);
    }
    return p;
}

/// Stored points, near misses, and points between.
template <int K>
LookupPoint<K> drawQuery(Sample const &sample, Points<K> const &points, Random &random)
{
    LookupPoint<K> q = points[static_cast<std::size_t>(random() % points.size())];
    for (double &c : q.coordinates) {
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

/// 10^5 questions in all by default, 10^6 when long tests are asked for.
int questionsOf(int byDefault)
{
    char const *const asked = std::getenv("ORVEL_LONG_TESTS");
    return asked && asked[0] == '1' ? 10 * byDefault : byDefault;
}

/// The shipped tree beside the plain one.
template <int K>
struct Model
{
    LookupTree<K, int> tree;
    PlainTree<K> plain;
    Points<K> points;

    void insert(LookupPoint<K> const &p)
    {
        int const id = static_cast<int>(points.size());
        tree.insert(p, id);
        plain.insert(p, id);
        points.push_back(p);
    }

    static void expectSame(LookupNearest<K, int> const &expected,
                           LookupNearest<K, int> const &actual)
    {
        ASSERT_EQ(expected.payload != nullptr, actual.payload != nullptr);
        if (expected.payload) {
            ASSERT_EQ(*expected.payload, *actual.payload);
            ASSERT_TRUE(SameBits(expected.distance, actual.distance));
        }
        for (int i = 0; i < K; ++i) {
            ASSERT_TRUE(SameBits(expected.point[i], actual.point[i]));
        }
    }

    void checkNearest(LookupPoint<K> const &q, double limit) const
    {
        expectSame(plain.findNearest(q, limit, LookupAcceptAll()),
                   tree.findNearest(q, limit, LookupAcceptAll()));
        LookupAcceptOthers<K> const others = {q};
        expectSame(plain.findNearest(q, limit, others), tree.findNearest(q, limit, others));
    }

    void checkRange(LookupPoint<K> const &q, double radius) const
    {
        std::vector<std::pair<int, double>> expected;
        std::vector<std::pair<int, double>> actual;
        plain.collectInDisc(q, radius, [&](LookupPoint<K> const &, int id, double d2) {
            expected.emplace_back(id, d2);
        });
        tree.collectInDisc(q, radius, [&](LookupPoint<K> const &, int id, double d2) {
            actual.emplace_back(id, d2);
        });
        ASSERT_EQ(expected, actual);
    }

    void checkNeighbours(LookupPoint<K> const &q, int k, double limit) const
    {
        auto const expected = findNearestValuesAsDefined(plain, q, k, limit);
        auto const actual = findNearestValues(tree, q, k, limit);
        ASSERT_EQ(expected.size(), actual.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            expectSame(expected[i], actual[i]);
        }
    }
};

template <int K>
class LookupTruth : public ::testing::Test
{
protected:
    /// Asks trees of all samples and sizes so many questions each.
    template <typename Ask>
    void ask(int questions, Ask question)
    {
        for (Sample const &sample : samples()) {
            SCOPED_TRACE(sample.name);
            Random random(7);
            for (int size : {1, 2, 5, 30, 64, 65, 130, 700, 1500, 6000}) {
                SCOPED_TRACE(size);
                Model<K> model;
                for (int i = 0; i < size; ++i) {
                    model.insert(draw<K>(sample, random, i));
                }
                ASSERT_EQ(model.plain.size(), model.tree.size());
                for (int i = 0; i < questions && !HasFatalFailure(); ++i) {
                    question(model, drawQuery(sample, model.points, random), random);
                }
            }
        }
    }
};

using Plane = LookupTruth<2>;
using Space = LookupTruth<3>;

TEST_F(Plane, NearestIsThatOfTheDefinition)
{
    ask(questionsOf(1000), [](Model<2> const &model, LookupPoint<2> const &q, Random &random) {
        model.checkNearest(q, drawLimit(random));
    });
}

TEST_F(Space, NearestIsThatOfTheDefinition)
{
    ask(questionsOf(1000), [](Model<3> const &model, LookupPoint<3> const &q, Random &random) {
        model.checkNearest(q, drawLimit(random));
    });
}

TEST_F(Plane, RangesAreThoseOfTheDefinition)
{
    ask(questionsOf(1000), [](Model<2> const &model, LookupPoint<2> const &q, Random &random) {
        model.checkRange(q, drawLimit(random));
    });
}

TEST_F(Space, RangesAreThoseOfTheDefinition)
{
    ask(questionsOf(1000), [](Model<3> const &model, LookupPoint<3> const &q, Random &random) {
        model.checkRange(q, drawLimit(random));
    });
}

TEST_F(Plane, RangesBesideLargeCoordinates)
{
    // Radii that rounding takes away, above 0 and below.
    Model<2> model;
    for (double const x : {1e9, 1e9 + 1e-6, 1e9 + 2e-6, 1e9 - 1e-6}) {
        model.insert({{x, 1e9}});
        model.insert({{x, 1e9 + 1e-6}});
    }
    for (LookupPoint<2> const &q : model.points) {
        for (double const radius : {1e-8, -1e-8, 1e-7, -1e-7, 1e-6, 2.4e-7, -1e-3}) {
            model.checkRange(q, radius);
        }
    }
    int found = 0;
    model.tree.collectInDisc({{1e9, 1e9}}, -1e-8, [&](auto const &, int, double) { ++found; });
    EXPECT_EQ(1, found);
}

TEST_F(Plane, NeighboursAreThoseOfTheDefinition)
{
    ask(questionsOf(500), [](Model<2> const &model, LookupPoint<2> const &q, Random &random) {
        int const ks[] = {2, 3, 8, 8, 20, 100, 199, 250, 2000};
        model.checkNeighbours(q, ks[random() % 9], drawLimit(random));
    });
}

TEST_F(Plane, NeighboursWhoseSquaresShareARoot)
{
    // Squared distances a unit of rounding apart have the same root; the order of the tree decides.
    Random random(3);
    for (int round = 0; round < questionsOf(300); ++round) {
        Model<2> model;
        double const radius = uniform(random, 0.5, 3.0);
        for (int i = 0; i < 60; ++i) {
            double const angle = uniform(random, 0.0, 7.0);
            model.insert({{radius * std::cos(angle), radius * std::sin(angle)}});
        }
        model.insert({{uniform(random, 0.2, 1.0) * radius, 0.0}});
        for (int k : {2, 5, 20, 59}) {
            model.checkNeighbours({{0, 0}}, k, random() % 2 == 0 ? inf : radius);
        }
    }
}

TEST_F(Plane, SearchesBetweenInsertionsSeeEveryPointSoFar)
{
    for (Sample const &sample : samples()) {
        SCOPED_TRACE(sample.name);
        Random random(13);
        Model<2> model;
        for (int i = 0; i < 1200 && !::testing::Test::HasFatalFailure(); ++i) {
            model.insert(draw<2>(sample, random, i));
            auto const q = drawQuery(sample, model.points, random);
            model.checkNearest(q, drawLimit(random));
            model.checkRange(q, drawLimit(random));
        }
    }
}

/// Distances of the k nearest by sorting them all.
std::vector<double> sortedDistances(Points<2> const &points, LookupPoint<2> const &q)
{
    std::vector<double> distances;
    for (auto const &p : points) {
        distances.push_back(std::sqrt(squaredDistance(q, p)));
    }
    std::sort(distances.begin(), distances.end());
    return distances;
}

TEST_F(Plane, NeighboursAreTheNearestOfAll)
{
    for (Sample const &sample : samples()) {
        if (sample.name == "special values") {
            continue; // sorting needs an order
        }
        SCOPED_TRACE(sample.name);
        Random random(17);
        PRefPtr<Point2DLookupC> const lookup(new Point2DLookupC);
        Points<2> points;
        for (int i = 0; i < 600; ++i) {
            points.push_back(draw<2>(sample, random, i));
            lookup->insert({points.back()[0], points.back()[1]}, i);
        }
        for (int i = 0; i < 300; ++i) {
            auto const q = drawQuery(sample, points, random);
            int const k = 2 + static_cast<int>(random() % 20);
            auto const hits = lookup->findKNearestNeighbors({q[0], q[1]}, k, inf);
            auto const expected = sortedDistances(points, q);
            bool const allEqual = expected.back() == 0.0;
            ASSERT_EQ(allEqual ? 0 : k, hits.size());
            for (int j = 0; j < hits.size(); ++j) {
                ASSERT_EQ(expected[static_cast<std::size_t>(j)], hits[j]->getDistance());
            }
        }
    }
}

TEST_F(Space, NearestIsTheNearestOfAll)
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
                return squaredDistance(q, a) < squaredDistance(q, b);
            });
        auto const answer = lookup->findNearest({q[0], q[1], q[2]}, inf);
        ASSERT_TRUE(answer.second);
        ASSERT_EQ(Point3D(expected[0], expected[1], expected[2]), answer.first);
    }
}

} // namespace
