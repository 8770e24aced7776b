#include "ProgramRun.h"

#include <gtest/gtest.h>

#include <iterator>
#include <regex>

namespace {

/// A mesh file that stays while several runs read it.
class SpacingReport : public ::testing::Test
{
protected:
    QString meshOf(std::string const &content)
    {
        QFile file(m_folder.filePath("mesh.obj"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content.data(), qint64(content.size()));
        return file.fileName();
    }

    std::string const tetrahedron = "v 0 0 0\nv 3 0 0\nv 0 4 0\nv 0 0 5\n"
                                    "f 1 3 2\nf 1 2 4\nf 1 4 3\nf 2 3 4\n";

private:
    QTemporaryDir m_folder;
};

TEST_F(SpacingReport, MeasuresTheNearestOtherVertex)
{
    ProgramRun const run(QStringList{meshOf(tetrahedron)});
    ASSERT_EQ(0, run.exitCode()) << run.errors();
    EXPECT_EQ("3", run.valueOf("smallest vertex spacing"));
    EXPECT_EQ("4", run.valueOf("median vertex spacing"));
    EXPECT_EQ("5", run.valueOf("largest vertex spacing"));
    EXPECT_EQ("no such row", run.valueOf("nearest vertex"));
}

TEST_F(SpacingReport, PageHasTheHistogram)
{
    ProgramRun const run({meshOf(tetrahedron), "--report", "page.html"});
    std::string const page = run.fileLeft("page.html");
    EXPECT_NE(std::string::npos, page.find("highest bar: 2 vertices"));
    std::size_t const picture = page.find("<svg viewBox=\"0 0 640 202\"");
    ASSERT_NE(std::string::npos, picture);
    std::string const svg = page.substr(picture, page.find("</svg>", picture) - picture);
    std::regex const bar("<rect ");
    EXPECT_EQ(3, std::distance(std::sregex_iterator(svg.begin(), svg.end(), bar), {}));
}

TEST_F(SpacingReport, VerticesAtOnePlaceCountOnce)
{
    // Two objects that share an edge, each with vertices of its own.
    ProgramRun const run(QStringList{meshOf("o a\nv 0 0 0\nv 2 0 0\nv 0 3 0\nf 1 2 3\n"
                                            "o b\nv 0 0 0\nv 2 0 0\nv 0 -3 0\nf 4 6 5\n")});
    EXPECT_EQ("2", run.valueOf("smallest vertex spacing"));
    EXPECT_EQ("3", run.valueOf("largest vertex spacing"));
}

TEST_F(SpacingReport, EqualSpacingsAreOneBar)
{
    ProgramRun const run(
        {meshOf("v 0 0 1\nv 2 0 1\nv 2 2 1\nv 0 2 1\nf 1 2 3 4\n"), "--report", "page.html"});
    EXPECT_EQ("2", run.valueOf("smallest vertex spacing"));
    EXPECT_EQ("2", run.valueOf("largest vertex spacing"));
    EXPECT_NE(std::string::npos, run.fileLeft("page.html").find("highest bar: 4 vertices"));
}

TEST_F(SpacingReport, TellsTheVertexNearestToAPlace)
{
    ProgramRun const run({meshOf(tetrahedron), "--nearest", "0,0,6.5"});
    ASSERT_EQ(0, run.exitCode()) << run.errors();
    EXPECT_EQ("0, 0, 5", run.valueOf("nearest vertex"));
    EXPECT_EQ("1.5", run.valueOf("its distance"));
    ProgramRun const negative({meshOf(tetrahedron), "--nearest", "-1,0,0"});
    EXPECT_EQ("0, 0, 0", negative.valueOf("nearest vertex"));
    EXPECT_EQ("1", negative.valueOf("its distance"));
}

TEST_F(SpacingReport, RefusesAPlaceThatIsNone)
{
    for (char const *place : {"1,2", "1,2,3,4", "1,2,x", "nan,0,0", "inf,0,0", ",,"}) {
        ProgramRun const run({meshOf(tetrahedron), "--nearest", place});
        EXPECT_TRUE(run.isRefused(std::string("and not ") + place)) << run.errors();
    }
}

} // namespace
