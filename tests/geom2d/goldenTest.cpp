#include "support/Golden.h"
#include "goldenCalls.h"
#include "support/Bits.h"

#include <cstdio>

namespace {

/// Results as a golden file writes them, to be pasted there when they are meant to change.
std::string written(golden::Numbers const &results)
{
    std::string line = "->";
    for (double const value : results) {
        char text[40];
        std::snprintf(text, sizeof text, " %a", value);
        line += text;
    }
    return line;
}

void expectGolden(std::string const &file, std::initializer_list<char const *> functions)
{
    for (char const *const name : functions) {
        for (support::GoldenCase const &item : support::goldenCases(file, name)) {
            golden::Numbers const actual = golden::calls().at(name)(item.arguments);
            ASSERT_EQ(item.results.size(), actual.size()) << item.where << ' ' << written(actual);
            for (size_t i = 0; i < actual.size(); ++i) {
                EXPECT_TRUE(support::SameBits(item.results[i], actual[i]))
                    << item.where << ' ' << written(actual);
            }
        }
    }
}

TEST(GoldenPlane, TangentsAndFillets)
{
    expectGolden("general/plane.txt",
                 {"tangente_punkt_kreis", "tangente_kreis_kreis", "fillet_line_line",
                  "fillet_kreis_kreis", "fillet_line_circle"});
}

TEST(GoldenPlane, PolygonLocation)
{
    expectGolden("general/plane.txt", {"pointInsidePolygone", "Math2DInsidePolygon"});
}

TEST(GoldenPlane, SegmentCrossings)
{
    expectGolden("general/plane.txt",
                 {"Math2DIntersect2Lines", "Math2DIntersect2LinesWrong", "intersectEdgeEdge"});
}

TEST(GoldenPlane, WhatOnceWentWrong)
{
    expectGolden("regression/plane.txt", {"pointInsidePolygone"});
}

TEST(GoldenPlane, WhatSurprises)
{
    expectGolden("known/plane.txt",
                 {"tangente_kreis_kreis", "fillet_line_circle", "Math2DIntersect2LinesWrong",
                  "pointInsidePolygone", "Math2DInsidePolygon"});
}

} // namespace
