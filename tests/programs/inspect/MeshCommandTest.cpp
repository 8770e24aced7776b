#include "ProgramRun.h"

#include <gtest/gtest.h>

namespace {

std::string const tetrahedron = "v 0 0 0\nv 3 0 0\nv 0 4 0\nv 0 0 5\n"
                                "f 1 3 2\nf 1 2 4\nf 1 4 3\nf 2 3 4\n";

std::string const cubeFaces = "f 1 3 4 2\nf 1 2 6 5\nf 3 7 8 4\nf 1 5 7 3\nf 2 4 8 6\nf 5 6 8 7\n";
std::string const cube =
    "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 1 1 0\nv 0 0 1\nv 1 0 1\nv 0 1 1\nv 1 1 1\n" + cubeFaces;

TEST(Inspect, MeasuresATetrahedron)
{
    ProgramRun const run("t.obj", tetrahedron);
    EXPECT_EQ(0, run.exitCode()) << run.errors();
    EXPECT_EQ("4", run.valueOf("vertices"));
    EXPECT_EQ("4", run.valueOf("triangles"));
    EXPECT_EQ("3 x 4 x 5", run.valueOf("extents"));
    EXPECT_EQ("3 (a solid)", run.valueOf("hull dimension"));
    EXPECT_EQ("4", run.valueOf("hull vertices"));
    EXPECT_EQ("4", run.valueOf("hull triangles"));
    EXPECT_EQ("10", run.valueOf("hull volume"));
    // 6 + 7.5 + 10 and the slanted side, half the root of 12^2 + 15^2 + 20^2
    EXPECT_EQ("37.36542", run.valueOf("hull area"));
    EXPECT_EQ("", run.errors()) << "no progress unless on a terminal";
}

TEST(Inspect, WritesNoFileUnlessAskedFor)
{
    ProgramRun const run("t.obj", tetrahedron);
    EXPECT_EQ(0, run.exitCode()) << run.errors();
    EXPECT_EQ(QStringList{}, run.filesLeft());
}

TEST(Inspect, PageHasItsParts)
{
    ProgramRun const run("t.obj", tetrahedron, {"--report", "page.html"});
    EXPECT_EQ(QStringList{"page.html"}, run.filesLeft());
    std::string const page = run.fileLeft("page.html");
    EXPECT_NE(std::string::npos, page.find("<td>3 (a solid)</td>"));
    EXPECT_NE(std::string::npos, page.find("</html>"));
    EXPECT_NE(std::string::npos, page.find("orvelView({"));
    EXPECT_NE(std::string::npos, page.find("<figure id=\"still\"><svg"));
    EXPECT_LT(page.size(), 3000000u);
}

TEST(Inspect, NoReportWins)
{
    ProgramRun const run("t.obj", tetrahedron, {"--report", "page.html", "--no-report"});
    EXPECT_EQ(0, run.exitCode()) << run.errors();
    EXPECT_EQ(QStringList{}, run.filesLeft());
}

TEST(Inspect, HullOfACubeHasAllItsCorners)
{
    ProgramRun const run("cube.obj", cube);
    EXPECT_EQ("8", run.valueOf("hull vertices"));
    EXPECT_EQ("12", run.valueOf("hull triangles"));
    EXPECT_EQ("1", run.valueOf("hull volume"));
    EXPECT_EQ("6", run.valueOf("hull area"));
    std::string const builder = run.valueOf("ConvexHullBuilderC alone");
    EXPECT_NE(std::string::npos, builder.find("volume 0.8333333")) << builder;
}

TEST(Inspect, BuildersAnswerIsNotNamedWhereItAgrees)
{
    ProgramRun const run("t.obj", tetrahedron);
    EXPECT_EQ("no such row", run.valueOf("ConvexHullBuilderC alone"));
}

TEST(Inspect, MeasuresACube)
{
    ProgramRun const run("cube.obj", cube);
    EXPECT_EQ("6", run.valueOf("area"));
    EXPECT_EQ("1", run.valueOf("volume"));
    EXPECT_EQ("0.5, 0.5, 0.5", run.valueOf("centroid"));
    EXPECT_EQ("yes", run.valueOf("closed"));
    EXPECT_EQ("1", run.valueOf("components"));
    EXPECT_EQ("2", run.valueOf("Euler number"));
    EXPECT_EQ("0", run.valueOf("genus"));
    EXPECT_EQ("1 x 1 x 1", run.valueOf("oriented box"));
    EXPECT_EQ("0.5, number 0", run.valueOf("thinnest triangle"));
}

TEST(Inspect, MeasuresATurnedBox)
{
    // A box of 4 x 2 x 1, turned about z by the angle whose cosine is 0.6.
    std::string text;
    for (int i = 0; i < 8; ++i) {
        double const x = (i & 1) != 0 ? 4.0 : 0.0;
        double const y = (i & 2) != 0 ? 2.0 : 0.0;
        text += "v " + std::to_string(0.6 * x - 0.8 * y) + " " + std::to_string(0.8 * x + 0.6 * y) +
                ((i & 4) != 0 ? " 1\n" : " 0\n");
    }
    ProgramRun const run("turned.obj", text + cubeFaces);
    EXPECT_EQ("8", run.valueOf("volume"));
    EXPECT_EQ("28", run.valueOf("area"));
    std::string const box = run.valueOf("oriented box");
    EXPECT_NE(std::string::npos, box.find('4')) << box;
    EXPECT_NE(std::string::npos, box.find('2')) << box;
    EXPECT_EQ(9u, box.size()) << "whole numbers, in some order: " << box;
}

TEST(Inspect, SaysWhyAMeshIsOpen)
{
    std::string const lidless = cube.substr(0, cube.rfind("f "));
    ProgramRun const run("open.obj", lidless);
    EXPECT_EQ("no: 4 open edges", run.valueOf("closed"));
    EXPECT_EQ("none: not closed", run.valueOf("volume"));
    EXPECT_EQ("none: not a closed manifold", run.valueOf("genus"));
    EXPECT_EQ("1", run.valueOf("Euler number"));
}

TEST(Inspect, CountsDoubleAndFlippedAndDegenerateTriangles)
{
    ProgramRun const run("odd.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 1 1 0\nv 2 0 0\n"
                                    "f 1 2 3\nf 2 3 4\nf 3 1 2\nf 1 2 5\n");
    EXPECT_EQ("1", run.valueOf("duplicate triangles"));
    EXPECT_EQ("1", run.valueOf("degenerate triangles"));
    std::string const closed = run.valueOf("closed");
    EXPECT_NE(std::string::npos, closed.find("non-manifold edges")) << closed;
    ProgramRun const flipped("flip.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 1 1 0\n"
                                         "f 1 2 3\nf 2 3 4\n");
    EXPECT_EQ("no: 4 open edges, 1 edge between flipped faces", flipped.valueOf("closed"));
}

TEST(Inspect, LostTrianglesAreCounted)
{
    ProgramRun const run("miss.ply", "ply\nformat ascii 1.0\nelement vertex 4\nproperty float x\n"
                                     "property float y\nproperty float z\nelement face 3\n"
                                     "property list uchar int vertex_indices\nend_header\n"
                                     "0 0 0\n1 0 0\n0 1 0\n0 0 1\n3 0 1 2\n3 0 1 77\n3 0 2 3\n");
    EXPECT_EQ(0, run.exitCode());
    EXPECT_EQ("2", run.valueOf("triangles"));
    EXPECT_NE(std::string::npos, run.errors().find("warning: 1 triangle was left out"))
        << run.errors();
}

TEST(Inspect, WhatTheReaderComplainsAboutIsAWarning)
{
    ProgramRun const run("miss.off",
                         "OFF\n4 3 0\n0 0 0\n1 0 0\n0 1 0\n0 0 1\n3 0 1 2\n3 0 1 77\n3 0 2 3\n");
    EXPECT_NE(std::string::npos, run.errors().find("warning: OFF: Vertex index is out of range"))
        << run.errors();
}

TEST(Inspect, PointCloudsAreWelcome)
{
    ProgramRun const run("cloud.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 0 0 1\nv 0.1 0.1 0.1\n",
                         {"--report", "page.html"});
    EXPECT_EQ(0, run.exitCode()) << run.errors();
    EXPECT_EQ("0", run.valueOf("triangles"));
    EXPECT_EQ("4", run.valueOf("hull vertices"));
    EXPECT_EQ("0.1666667", run.valueOf("hull volume"));
    EXPECT_NE(std::string::npos, run.fileLeft("page.html").find("\"style\":\"points\""));
}

TEST(Inspect, FormatsHaveTheirAxisUpwards)
{
    EXPECT_EQ("y", ProgramRun("t.obj", tetrahedron).valueOf("axis upwards"));
    EXPECT_EQ("x", ProgramRun("t.obj", tetrahedron, {"--up", "x"}).valueOf("axis upwards"));
    ProgramRun const off("t.off", "OFF\n3 1 0\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n");
    EXPECT_EQ("z", off.valueOf("axis upwards"));
    EXPECT_TRUE(ProgramRun("t.obj", tetrahedron, {"--up", "w"}).isRefused("--up"));
}

TEST(Inspect, UnitsComeFromTheFile)
{
    QString const models = "/usr/share/assimp/models/";
    if (!QFile::exists(models + "FBX/box.fbx")) {
        GTEST_SKIP() << "assimp-testmodels is not installed";
    }
    EXPECT_EQ("m", ProgramRun(QStringList{models + "FBX/box.fbx"}).valueOf("unit"));
    EXPECT_EQ("m", ProgramRun(QStringList{models + "Collada/duck.dae"}).valueOf("unit"));
    EXPECT_EQ("not in the file", ProgramRun("t.obj", tetrahedron).valueOf("unit"));
}

TEST(Inspect, FlatMeshHasAFlatHull)
{
    ProgramRun const run("flat.obj", "v 0 0 1\nv 2 0 1\nv 2 2 1\nv 0 2 1\nf 1 2 3 4\n");
    EXPECT_EQ(0, run.exitCode()) << run.errors();
    EXPECT_EQ("2 (a plane)", run.valueOf("hull dimension"));
    EXPECT_EQ("2", run.valueOf("triangles")) << "the square is cut in two";
    EXPECT_EQ("4", run.valueOf("hull area"));
    EXPECT_EQ("no such row", run.valueOf("hull volume"));
}

TEST(Inspect, ReadsAModelOfTheTestCollection)
{
    QString const model = "/usr/share/assimp/models/OBJ/spider.obj";
    if (!QFile::exists(model)) {
        GTEST_SKIP() << "assimp-testmodels is not installed";
    }
    ProgramRun const run({model, "--report", "page.html"});
    EXPECT_EQ(0, run.exitCode()) << run.errors();
    EXPECT_EQ("1368", run.valueOf("triangles"));
    EXPECT_EQ("72", run.valueOf("hull vertices"));
    EXPECT_EQ("140", run.valueOf("hull triangles"));
    EXPECT_LT(run.fileLeft("page.html").size(), 3000000u);
    EXPECT_EQ(QStringList{"page.html"}, run.filesLeft());
}

TEST(Inspect, NamesAreEscapedOnThePage)
{
    ProgramRun const run("a<b>&.obj", tetrahedron, {"--report", "page.html"});
    EXPECT_EQ(0, run.exitCode()) << run.errors();
    EXPECT_NE(std::string::npos, run.fileLeft("page.html").find("<h1>a&lt;b&gt;&amp;.obj</h1>"));
}

TEST(Inspect, BadFilesFailInOneLine)
{
    EXPECT_TRUE(ProgramRun(QStringList{"nowhere.obj"}).hasFailed("nowhere.obj: no such file"));
    EXPECT_TRUE(ProgramRun("letter.txt", "Dear reader\n").hasFailed("letter.txt: not a mesh"));
    EXPECT_TRUE(ProgramRun("short.obj", "?").hasFailed("short.obj: not a mesh"));
    EXPECT_TRUE(ProgramRun("empty.ply", "").hasFailed("empty.ply: not a mesh"));
    EXPECT_TRUE(ProgramRun("miss.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 9\n")
                    .hasFailed("vertex index out of range"));
}

TEST(Inspect, CoordinatesThatAreNoNumbersFail)
{
    std::string const rest = "\nv 1 0 0\nv 0 1 0\nf 1 2 3\n";
    EXPECT_TRUE(ProgramRun("n.obj", "v nan 0 0" + rest).hasFailed("not a finite number"));
    EXPECT_TRUE(ProgramRun("i.obj", "v 0 0 inf" + rest).hasFailed("not a finite number"));
}

TEST(Inspect, RefusesBadArguments)
{
    EXPECT_TRUE(ProgramRun(QStringList{}).isRefused("no mesh is named"));
    EXPECT_TRUE(ProgramRun(QStringList{"--nonsense"}).isRefused("--nonsense"));
    EXPECT_TRUE(ProgramRun(QStringList{"."}).isRefused("no meshes in this folder"));
    EXPECT_TRUE(ProgramRun(QStringList{"-"}).isRefused("--format"));
    EXPECT_TRUE(ProgramRun({"a.obj", "b.obj", "--report", "p"}).isRefused("several meshes"));
    EXPECT_TRUE(ProgramRun({"a.obj", "--json", "--csv"}).isRefused("excludes"));
}

TEST(Inspect, HelpIsNoFailure)
{
    ProgramRun const run(QStringList{"--help"});
    EXPECT_EQ(0, run.exitCode());
    EXPECT_NE(std::string::npos, run.output().find("--report"));
}

} // namespace
