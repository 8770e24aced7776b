#include "support/Bits.h"
#include "support/Golden.h"

#include <OrvelCore/runtime/PRefPtr.h>
#include <OrvelMath/lookup/Point2DLookupC.h>
#include <OrvelMath/lookup/Point3DLookupC.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using support::GoldenCase;
using support::SameBits;

/// Takes the arguments of a case one after another.
class Arguments
{
public:
    explicit Arguments(GoldenCase const &item)
        : m_values(item.arguments)
    {
    }
    double number() { return m_values.at(m_next++); }
    int integer() { return static_cast<int>(number()); }
    Point2D point2D()
    {
        double const x = number();
        return {x, number()};
    }
    Point3D point3D()
    {
        double const x = number();
        double const y = number();
        return {x, y, number()};
    }

private:
    std::vector<double> const &m_values;
    std::size_t m_next = 0;
};

/// A lookup with the points of the case; user data are their indices.
PRefPtr<Point2DLookupC> plane(Arguments &arguments)
{
    PRefPtr<Point2DLookupC> lookup(new Point2DLookupC);
    int const count = arguments.integer();
    for (int i = 0; i < count; ++i) {
        lookup->insert(arguments.point2D(), i);
    }
    return lookup;
}

PRefPtr<Point3DLookupC> space(Arguments &arguments)
{
    PRefPtr<Point3DLookupC> lookup(new Point3DLookupC);
    int const count = arguments.integer();
    for (int i = 0; i < count; ++i) {
        lookup->insert(arguments.point3D());
    }
    return lookup;
}

void expectResults(GoldenCase const &item, std::vector<double> const &results)
{
    ASSERT_EQ(item.results.size(), results.size()) << item.where;
    for (std::size_t i = 0; i < results.size(); ++i) {
        EXPECT_TRUE(SameBits(item.results[i], results[i])) << item.where << ", result " << i;
    }
}

void appendHit(std::vector<double> &results, PRefPtr<Point2DLookupResultC> const &hit)
{
    results.push_back(hit ? hit->getUserData().toInt() : -1);
    results.push_back(hit ? hit->getDistance() : -1);
}

void runNearest(std::string const &file, std::string const &function)
{
    for (GoldenCase const &item : support::goldenCases(file, "Point2DLookupC." + function)) {
        Arguments arguments(item);
        auto const lookup = plane(arguments);
        Point2D const query = arguments.point2D();
        double const limit = arguments.number();
        auto const hit = function == "findNearest" ? lookup->findNearest(query, limit)
                                                   : lookup->findNearestNotEqual(query, limit);
        std::vector<double> results = {hit ? 1.0 : 0.0};
        if (hit) {
            appendHit(results, hit);
        }
        expectResults(item, results);
    }
}

void runNeighbours(std::string const &file)
{
    for (GoldenCase const &item :
         support::goldenCases(file, "Point2DLookupC.findKNearestNeighbors")) {
        Arguments arguments(item);
        auto const lookup = plane(arguments);
        Point2D const query = arguments.point2D();
        int const k = arguments.integer();
        auto const hits = lookup->findKNearestNeighbors(query, k, arguments.number());
        std::vector<double> results = {static_cast<double>(hits.size())};
        for (auto const &hit : hits) {
            appendHit(results, hit);
        }
        expectResults(item, results);
    }
}

void runRange(std::string const &file)
{
    for (GoldenCase const &item :
         support::goldenCases(file, "Point2DLookupC.findWithinRangeUserData")) {
        Arguments arguments(item);
        auto const lookup = plane(arguments);
        Point2D const query = arguments.point2D();
        double const radius = arguments.number();
        auto const pairs = lookup->findWithinRangeUserData(query, radius);
        std::vector<double> results = {static_cast<double>(pairs.size())};
        for (auto const &pair : pairs) {
            results.push_back(pair.second.toInt());
        }
        expectResults(item, results);
        EXPECT_EQ(pairs.size(), lookup->findWithinRange(query, radius).size()) << item.where;
    }
}

void runNearestInSpace(std::string const &file)
{
    for (GoldenCase const &item : support::goldenCases(file, "Point3DLookupC.findNearest")) {
        Arguments arguments(item);
        auto const lookup = space(arguments);
        Point3D const query = arguments.point3D();
        auto const answer = lookup->findNearest(query, arguments.number());
        expectResults(item, {answer.second ? 1.0 : 0.0, answer.first.x(), answer.first.y(),
                             answer.first.z()});
    }
}

void runRangeInSpace(std::string const &file)
{
    for (GoldenCase const &item : support::goldenCases(file, "Point3DLookupC.findWithinRange")) {
        Arguments arguments(item);
        auto const lookup = space(arguments);
        Point3D const query = arguments.point3D();
        auto const points = lookup->findWithinRange(query, arguments.number());
        std::vector<double> results = {static_cast<double>(points.size())};
        for (Point3D const &p : points) {
            results.insert(results.end(), {p.x(), p.y(), p.z()});
        }
        expectResults(item, results);
    }
}

} // namespace

TEST(LookupGolden, EverydayAndDegenerateInput)
{
    runNearest("general/lookup.txt", "findNearest");
    runNearest("general/lookup.txt", "findNearestNotEqual");
    runNeighbours("general/lookup.txt");
    runRange("general/lookup.txt");
    runNearestInSpace("general/lookup.txt");
    runRangeInSpace("general/lookup.txt");
}

TEST(LookupGolden, AnswersThatSurpriseAreKept)
{
    runNearest("known/lookup.txt", "findNearest");
    runNeighbours("known/lookup.txt");
    runRange("known/lookup.txt");
    runNearestInSpace("known/lookup.txt");
}

TEST(LookupGolden, InputThatOnceWentWrong)
{
    runNeighbours("regression/lookup.txt");
}
