#include "HullTestSupport.h"

#include "support/Golden.h"

#include <gtest/gtest.h>

namespace {

/// What buildHull gives, as the golden files write it.
std::vector<double> solidResults(Points3 const &points)
{
    ConvexHullBuilderC builder(points);
    std::vector<double> results;
    results.push_back(builder.buildHull());
    results.push_back(builder.dimension());
    QList<int> const indices = builder.hullVertexIndices();
    results.push_back(indices.size());
    results.insert(results.end(), indices.begin(), indices.end());
    results.push_back(builder.triangleCount());
    for (HullTriangle const &t : trianglesOf(builder)) {
        for (vectorC3d<double> const &v : {t.a, t.b, t.c, t.normal}) {
            results.insert(results.end(), v.data(), v.data() + 3);
        }
    }
    return results;
}

void expectSame(std::vector<double> const &expected, std::vector<double> const &actual,
                std::string const &where)
{
    ASSERT_EQ(expected.size(), actual.size()) << where;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_TRUE(support::SameBits(expected[i], actual[i])) << where << ", result " << i;
    }
}

void expectSolids(char const *file)
{
    for (support::GoldenCase const &item : support::goldenCases(file, "buildHull")) {
        std::vector<double> const &a = item.arguments;
        Points3 points;
        for (std::size_t i = 1; i + 2 < a.size(); i += 3) {
            points.append({a[i], a[i + 1], a[i + 2]});
        }
        EXPECT_EQ(a[0], points.size()) << item.where;
        expectSame(item.results, solidResults(points), item.where);
    }
}

void expectPolygons(char const *file)
{
    for (support::GoldenCase const &item :
         support::goldenCases(file, "computeConvexHullIndices2D")) {
        std::vector<double> const &a = item.arguments;
        Points2 points;
        for (std::size_t i = 1; i + 1 < a.size(); i += 2) {
            points.append({a[i], a[i + 1]});
        }
        EXPECT_EQ(a[0], points.size()) << item.where;
        QList<int> const indices = ConvexHullBuilderC::computeConvexHullIndices2D(points);
        std::vector<double> results(1, indices.size());
        results.insert(results.end(), indices.begin(), indices.end());
        expectSame(item.results, results, item.where);
    }
}

} // namespace

TEST(HullGolden, PolygonsOfEverydayAndDegenerateInput)
{
    expectPolygons("general/hull.txt");
}

TEST(HullGolden, SolidsOfEverydayAndDegenerateInput)
{
    expectSolids("general/hull.txt");
}

TEST(HullGolden, AnswersThatSurpriseAreKept)
{
    expectPolygons("known/hull.txt");
    expectSolids("known/hull.txt");
}

TEST(HullGolden, InputThatOnceWentWrong)
{
    expectSolids("regression/hull.txt");
}
