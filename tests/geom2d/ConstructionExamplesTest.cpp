/// The code of docs/geom2d-constructions.md, compiled, run, and held to stand there word for word.

#include "PlaneFixtures.h"

#include <OrvelMath/geom2d/construct2d.h>
#include <OrvelMath/geom2d/mathPoly.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

namespace {

TEST(ConstructionExamples, FilletOfTwoLines)
{
    // [fillet]
    Point2D m, t1, t2;
    // the lines y = 0 and x = 0; side 0 is left of a line's direction, side 1 right of it
    int const found = fillet_line_line(Point2D(0, 0), Point2D(10, 0), Point2D(0, 0), Point2D(0, 10),
                                       2.0, 0, 1, m, t1, t2, 1e-6);
    // found is 1, m is (2, 2), the arc runs counter-clockwise from t1 (0, 2) to t2 (2, 0)
    // [end]
    EXPECT_EQ(found, 1);
    EXPECT_POINT(m, 2, 2);
    EXPECT_POINT(t1, 0, 2);
    EXPECT_POINT(t2, 2, 0);
}

TEST(ConstructionExamples, CrossingsOfTwoEllipses)
{
    // [ellipses]
    mathPoly::Ellipse wide(Point2D(0, 0), 0.0, 2.0, 1.0); // centre, degrees, semi-axes
    mathPoly::Ellipse high(Point2D(0, 0), 90.0, 2.0, 1.0);
    Point2D points[12];
    int count = 0;
    mathPoly::FindIntersections(wide, high, count, points);
    // count is 4: (±0.894, ±0.894)
    // [end]
    ASSERT_EQ(count, 4);
    for (int i = 0; i < 4; ++i) {
        EXPECT_NEAR(std::fabs(points[i].x()), 0.894, 0.001);
    }
}

std::string contentOf(char const *path)
{
    std::ifstream file(path);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

/// The lines between two markers, without the indent of a function's body.
std::string snippet(std::string const &source, std::string const &name)
{
    std::string const open = "    // [" + name + "]\n";
    std::size_t const begin = source.find(open) + open.size();
    std::istringstream lines(source.substr(begin, source.find("    // [end]", begin) - begin));
    std::string text;
    for (std::string line; std::getline(lines, line);) {
        text += line.substr(4) + '\n';
    }
    return text;
}

TEST(ConstructionExamples, StandInTheDocumentation)
{
    std::string const page = contentOf(ORVEL_SOURCE_DIR "/docs/geom2d-constructions.md");
    std::string const source =
        contentOf(ORVEL_SOURCE_DIR "/tests/geom2d/ConstructionExamplesTest.cpp");
    for (char const *name : {"fillet", "ellipses"}) {
        EXPECT_NE(page.find("```cpp\n" + snippet(source, name) + "```"), std::string::npos) << name;
    }
}

} // namespace
