#include "ProgramRun.h"

#include <gtest/gtest.h>

#include <regex>

namespace {

// The value of a row of the printed table.
std::string valueOf(std::string const &output, std::string const &row)
{
    std::smatch match;
    std::regex const line("  " + row + " +(.*)\n");
    return std::regex_search(output, match, line) ? match[1].str() : "no such row";
}

std::string const tetrahedron = "v 0 0 0\nv 3 0 0\nv 0 4 0\nv 0 0 5\n"
                                "f 1 3 2\nf 1 2 4\nf 1 4 3\nf 2 3 4\n";

TEST(Inspect, MeasuresATetrahedron)
{
    ProgramRun const run("t.obj", tetrahedron);
    EXPECT_EQ(0, run.exitCode()) << run.errors();
    EXPECT_EQ("4", valueOf(run.output(), "vertices"));
    EXPECT_EQ("4", valueOf(run.output(), "triangles"));
    EXPECT_EQ("3 x 4 x 5", valueOf(run.output(), "extents"));
    EXPECT_EQ("3 (a solid)", valueOf(run.output(), "hull dimension"));
    EXPECT_EQ("4", valueOf(run.output(), "hull vertices"));
    EXPECT_EQ("4", valueOf(run.output(), "hull triangles"));
    EXPECT_EQ("10", valueOf(run.output(), "hull volume"));
    // 6 + 7.5 + 10 and the slanted side, half the root of 12^2 + 15^2 + 20^2
    EXPECT_EQ("37.36542", valueOf(run.output(), "hull area"));
    EXPECT_EQ("", run.errors()) << "no progress unless on a terminal";
}

TEST(Inspect, PageStandsOnItsOwn)
{
    ProgramRun const run("t.obj", tetrahedron);
    EXPECT_EQ(QStringList{"report.html"}, run.filesLeft());
    std::string const page = run.fileLeft("report.html");
    EXPECT_NE(std::string::npos, page.find("<td>3 (a solid)</td>"));
    EXPECT_NE(std::string::npos, page.find("</html>"));
    EXPECT_EQ(std::string::npos, page.find("http")) << "no network";
    EXPECT_EQ(std::string::npos, page.find("/*views*/")) << "the pictures' data is there";
    for (char const *view : {"front", "side", "top", "turn"}) {
        EXPECT_NE(std::string::npos, page.find(std::string("data-view=\"") + view));
    }
}

TEST(Inspect, FlatMeshHasAFlatHull)
{
    ProgramRun const run("flat.obj", "v 0 0 1\nv 2 0 1\nv 2 2 1\nv 0 2 1\nf 1 2 3 4\n");
    EXPECT_EQ(0, run.exitCode()) << run.errors();
    EXPECT_EQ("2 (a plane)", valueOf(run.output(), "hull dimension"));
    EXPECT_EQ("2", valueOf(run.output(), "triangles")) << "the square is cut in two";
    EXPECT_EQ("4", valueOf(run.output(), "hull area"));
}

TEST(Inspect, ReadsAModelOfTheTestCollection)
{
    QString const model = "/usr/share/assimp/models/OBJ/spider.obj";
    if (!QFile::exists(model)) {
        GTEST_SKIP() << "assimp-testmodels is not installed";
    }
    ProgramRun const run({model, "--report", "page.html"});
    EXPECT_EQ(0, run.exitCode()) << run.errors();
    EXPECT_EQ("1368", valueOf(run.output(), "triangles"));
    EXPECT_EQ("72", valueOf(run.output(), "hull vertices"));
    EXPECT_EQ("140", valueOf(run.output(), "hull triangles"));
    EXPECT_EQ(QStringList{"page.html"}, run.filesLeft());
}

TEST(Inspect, NamesAreEscapedOnThePage)
{
    ProgramRun const run("a<b>&.obj", tetrahedron);
    EXPECT_EQ(0, run.exitCode()) << run.errors();
    EXPECT_NE(std::string::npos, run.fileLeft("report.html").find("<h1>a&lt;b&gt;&amp;.obj</h1>"));
}

TEST(Inspect, RefusesBadFilesInOneLine)
{
    EXPECT_TRUE(ProgramRun(QStringList{"nowhere.obj"}).isRefused("nowhere.obj: no such file"));
    EXPECT_TRUE(ProgramRun(QStringList{"."}).isRefused("not a file"));
    EXPECT_TRUE(ProgramRun("letter.txt", "Dear reader\n").isRefused("letter.txt: not a mesh"));
    EXPECT_TRUE(ProgramRun("short.obj", "?").isRefused("short.obj: not a mesh"));
    EXPECT_TRUE(ProgramRun("empty.ply", "").isRefused("empty.ply: not a mesh"));
    EXPECT_TRUE(ProgramRun("points.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\np 1 2 3\n")
                    .isRefused("points.obj: the mesh has no triangles"));
}

TEST(Inspect, RefusesCoordinatesThatAreNoNumbers)
{
    std::string const rest = "\nv 1 0 0\nv 0 1 0\nf 1 2 3\n";
    EXPECT_TRUE(ProgramRun("n.obj", "v nan 0 0" + rest).isRefused("not a finite number"));
    EXPECT_TRUE(ProgramRun("i.obj", "v 0 0 inf" + rest).isRefused("not a finite number"));
}

TEST(Inspect, RefusesBadArguments)
{
    EXPECT_TRUE(ProgramRun(QStringList{}).isRefused("no mesh is named"));
    EXPECT_TRUE(ProgramRun(QStringList{"--nonsense"}).isRefused("--nonsense"));
    EXPECT_TRUE(ProgramRun(QStringList{"a.obj", "b.obj"}).isRefused("b.obj"));
}

TEST(Inspect, UnwritablePageIsToldAndNothingIsLeft)
{
    QString const model = "/usr/share/assimp/models/OBJ/box.obj";
    if (!QFile::exists(model)) {
        GTEST_SKIP() << "assimp-testmodels is not installed";
    }
    ProgramRun const run({model, "--report", "no/such/folder/page.html"});
    EXPECT_TRUE(run.isRefused("no/such/folder/page.html")) << run.output() << run.errors();
}

TEST(Inspect, HelpIsNoFailure)
{
    ProgramRun const run(QStringList{"--help"});
    EXPECT_EQ(0, run.exitCode());
    EXPECT_NE(std::string::npos, run.output().find("--report"));
}

} // namespace
