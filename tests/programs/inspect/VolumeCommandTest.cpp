#include "ProgramRun.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <regex>
#include <utility>
#include <vector>

namespace {

// Meshes as files of a folder, named by their full paths.
class MeshFiles
{
public:
    QString add(char const *name, std::string const &content)
    {
        QFile file(m_folder.filePath(name));
        if (file.open(QIODevice::WriteOnly)) {
            file.write(content.data(), qint64(content.size()));
        }
        return file.fileName();
    }

private:
    QTemporaryDir m_folder;
};

// The value of a row of the printed table.
std::string valueOf(ProgramRun const &run, std::string const &row)
{
    std::string const output = run.output();
    std::smatch match;
    std::regex const line("  " + row + "  +(.*)\n");
    return std::regex_search(output, match, line) ? match[1].str() : "no such row";
}

double numberOf(ProgramRun const &run, std::string const &row)
{
    return std::atof(valueOf(run, row).c_str());
}

// The volume in "123, volume 4.5".
double volumeOf(ProgramRun const &run, std::string const &row)
{
    std::string const text = valueOf(run, row);
    std::size_t const at = text.find("volume ");
    return at == std::string::npos ? -1.0 : std::atof(text.c_str() + at + 7);
}

// An axis-aligned box as a mesh, its sides oriented outwards; without its last side if asked.
std::string box(double x0, double x1, double y0, double y1, double z0, double z1,
                bool withLid = true)
{
    std::string text;
    for (int i = 0; i < 8; ++i) {
        text += "v " + std::to_string((i & 1) != 0 ? x1 : x0) + " " +
                std::to_string((i & 2) != 0 ? y1 : y0) + " " +
                std::to_string((i & 4) != 0 ? z1 : z0) + "\n";
    }
    text += "f 1 3 4 2\nf 1 2 6 5\nf 3 7 8 4\nf 1 5 7 3\nf 2 4 8 6\n";
    return withLid ? text + "f 5 6 8 7\n" : text;
}

} // namespace

TEST(InspectVolume, MeasuresABox)
{
    MeshFiles files;
    ProgramRun const run(
        {"volume", files.add("box.obj", box(0, 4, 0, 3, 0, 2)), "--resolution", "0.05"});
    EXPECT_EQ(0, run.exitCode()) << run.errors();
    EXPECT_EQ("", run.errors());
    EXPECT_EQ("12", valueOf(run, "triangles"));
    EXPECT_EQ("0.05", valueOf(run, "resolution"));
    EXPECT_EQ("yes", valueOf(run, "closed"));
    double const enclosed = volumeOf(run, "enclosed cells");
    double const surface = volumeOf(run, "surface cells");
    EXPECT_LE(enclosed, 24.0);
    EXPECT_GE(enclosed + surface, 24.0);
    EXPECT_GT(enclosed, 18.0);
    EXPECT_EQ((QStringList{"report.html", "volume.bits"}), run.filesLeft());
    EXPECT_NE("no such row", valueOf(run, "time"));
    EXPECT_NE("no such row", valueOf(run, "peak memory"));
}

TEST(InspectVolume, BitsInTheFileAreOneWholeTree)
{
    MeshFiles files;
    ProgramRun const run({"volume", files.add("box.obj", box(0, 4, 0, 3, 0, 2)), "--resolution",
                          "0.1", "--bits", "b", "--report", "r.html"});
    EXPECT_EQ((QStringList{"b", "r.html"}), run.filesLeft());
    std::string const bytes = run.fileLeft("b");
    std::size_t const bitCount = std::size_t(numberOf(run, "bits"));
    ASSERT_EQ((bitCount + 7) / 8, bytes.size());
    std::size_t open = 1;
    std::size_t leaves = 0;
    std::size_t index = 0;
    while (open > 0 && index < bitCount) {
        bool const inner = (bytes[index / 8] >> (index % 8) & 1) != 0;
        index += inner ? 1 : 2;
        open += inner ? 1 : std::size_t(-1);
        leaves += !inner;
    }
    EXPECT_EQ(bitCount, index);
    EXPECT_EQ(0U, open);
    EXPECT_EQ(std::to_string(leaves), valueOf(run, "leaves stored"));
}

TEST(InspectVolume, PageShowsThreeSlices)
{
    MeshFiles files;
    ProgramRun const run(
        {"volume", files.add("box.obj", box(0, 4, 0, 3, 0, 2)), "--resolution", "0.1"});
    std::string const page = run.fileLeft("report.html");
    for (char const *slice : {"slice across x", "slice across y", "slice across z"}) {
        EXPECT_NE(std::string::npos, page.find(slice));
    }
    EXPECT_EQ(std::string::npos, page.find(" d=\"\"")) << "both kinds are met in every slice";
    EXPECT_NE(std::string::npos, page.find("</html>"));
    EXPECT_EQ(std::string::npos, page.find("http"));
}

TEST(InspectVolume, OpenMeshesAreReported)
{
    MeshFiles files;
    ProgramRun const open(
        {"volume", files.add("open.obj", box(0, 4, 0, 3, 0, 2, false)), "--resolution", "0.1"});
    EXPECT_EQ(0, open.exitCode()) << open.errors();
    EXPECT_EQ("no: it encloses no cell at this resolution", valueOf(open, "closed"));

    // An open box beside a closed one: something is enclosed, but not all that should be.
    std::string both = box(0, 4, 0, 4, 0, 4, false);
    both += "v 6 0 0\nv 7 0 0\nv 6 1 0\nv 7 1 0\nv 6 0 1\nv 7 0 1\nv 6 1 1\nv 7 1 1\n"
            "f 9 11 12 10\nf 9 10 14 13\nf 11 15 16 12\nf 9 13 15 11\nf 10 12 16 14\n"
            "f 13 14 16 15\n";
    ProgramRun const run({"volume", files.add("both.obj", both), "--resolution", "0.1"});
    EXPECT_EQ("no: the outside reaches the inside through a gap", valueOf(run, "closed"));
}

TEST(InspectVolume, RefusesResolutionsThatNoTreeCanHave)
{
    MeshFiles files;
    QString const mesh = files.add("box.obj", box(0, 4, 0, 3, 0, 2));
    std::vector<std::pair<char const *, char const *>> const refusals{
        {"0", "not a positive number"},
        {"-1", "not a positive number"},
        {"nan", "not a positive number"},
        {"inf", "not a positive number"},
        {"3", "too coarse"},
        {"1e300", "too coarse"},
        {"1e-7", "too fine"},
        {"1e-15", "finer than the coordinates"},
        {"coarse", "--resolution"}};
    for (auto const &[value, said] : refusals) {
        ProgramRun const run({"volume", mesh, QString("--resolution=") + value});
        EXPECT_TRUE(run.isRefused(said)) << value << ": " << run.output() << run.errors();
    }
    EXPECT_TRUE(ProgramRun({"volume", mesh}).isRefused("--resolution is required"));
}

TEST(InspectVolume, RefusesBadInput)
{
    EXPECT_TRUE(
        ProgramRun({"volume", "nowhere.obj", "--resolution", "1"}).isRefused("no such file"));
    EXPECT_TRUE(ProgramRun({"volume", "--resolution", "1"}).isRefused("MESH"));
    MeshFiles files;
    QString const mesh = files.add("box.obj", box(0, 4, 0, 3, 0, 2));
    EXPECT_TRUE(ProgramRun({"volume", mesh, "--resolution", "0.1", "--bits", "no/such/folder"})
                    .isRefused("no/such/folder"));
    EXPECT_TRUE(
        ProgramRun({"volume", files.add("letter.txt", "Dear reader\n"), "--resolution", "1"})
            .isRefused("not a mesh"));
}

TEST(InspectCompare, FindsWhatTwoBoxesShare)
{
    MeshFiles files;
    QString const a = files.add("a.obj", box(0, 4, 0, 4, 0, 4));
    QString const b = files.add("b.obj", box(2, 6, 0, 4, 0, 4));
    ProgramRun const run({"compare", a, b, "--resolution", "0.04"});
    EXPECT_EQ(0, run.exitCode()) << run.errors();
    // Surface cells count as volume, so all is a little too large.
    EXPECT_NEAR(32.0, numberOf(run, "common volume"), 3.0);
    EXPECT_NEAR(32.0, numberOf(run, "only in A"), 3.0);
    EXPECT_NEAR(32.0, numberOf(run, "only in B"), 3.0);
    EXPECT_NEAR(1.0 / 3.0, numberOf(run, "intersection over union"), 0.02);
    EXPECT_EQ("yes", valueOf(run, "A closed"));
    EXPECT_EQ("yes", valueOf(run, "B closed"));
    EXPECT_EQ(QStringList{"report.html"}, run.filesLeft());
    // The slice across x, at 3, goes through what they share only.
    std::string const page = run.fileLeft("report.html");
    std::size_t const first = page.find("class=\"kind1\"");
    EXPECT_LT(page.find(" d=\"\"", first), page.find(">", first));
    std::size_t const second = page.find("class=\"kind1\"", first + 1);
    EXPECT_GT(page.find(" d=\"\"", second), page.find(">", second));
}

TEST(InspectCompare, MeshEqualsItself)
{
    MeshFiles files;
    QString const a = files.add("a.obj", box(0, 4, 0, 3, 0, 2));
    ProgramRun const run({"compare", a, a});
    EXPECT_EQ(0, run.exitCode()) << run.errors();
    EXPECT_EQ("1", valueOf(run, "intersection over union"));
    EXPECT_EQ("0", valueOf(run, "only in A"));
    EXPECT_EQ("0", valueOf(run, "only in B"));
    EXPECT_EQ("0.03125", valueOf(run, "resolution")) << "1/128 of the longest extent";
}

TEST(InspectCompare, MeshesThatShareNothing)
{
    MeshFiles files;
    QString const a = files.add("a.obj", box(0, 1, 0, 1, 0, 1));
    QString const b = files.add("b.obj", box(3, 4, 0, 1, 0, 1, false));
    ProgramRun const run({"compare", a, b, "--resolution", "0.05"});
    EXPECT_EQ("0", valueOf(run, "common volume"));
    EXPECT_EQ("0", valueOf(run, "intersection over union"));
    EXPECT_EQ("yes", valueOf(run, "A closed"));
    EXPECT_EQ("no: it encloses no cell at this resolution", valueOf(run, "B closed"));
}

TEST(InspectCompare, ReadsModelsOfTheTestCollection)
{
    QString const models = "/usr/share/assimp/models/";
    if (!QFile::exists(models + "STL/Wuson.stl")) {
        GTEST_SKIP() << "assimp-testmodels is not installed";
    }
    // One model in two formats.
    ProgramRun const run({"compare", models + "STL/Wuson.stl", models + "OFF/Wuson.off"});
    EXPECT_EQ(0, run.exitCode()) << run.errors();
    EXPECT_GT(numberOf(run, "intersection over union"), 0.99);
    EXPECT_EQ("yes", valueOf(run, "A closed"));
}

TEST(InspectCompare, RefusesBadInput)
{
    MeshFiles files;
    QString const a = files.add("a.obj", box(0, 4, 0, 3, 0, 2));
    EXPECT_TRUE(ProgramRun({"compare", a}).isRefused("B"));
    EXPECT_TRUE(ProgramRun({"compare", a, "nowhere.obj"}).isRefused("nowhere.obj: no such file"));
    EXPECT_TRUE(ProgramRun({"compare", a, a, "--resolution=0"}).isRefused("not a positive number"));
    EXPECT_TRUE(ProgramRun({"compare", a, a, "--resolution=9"}).isRefused("too coarse"));
    EXPECT_TRUE(
        ProgramRun({"compare", a, a, "--report", "no/such/page"}).isRefused("no/such/page"));
}
