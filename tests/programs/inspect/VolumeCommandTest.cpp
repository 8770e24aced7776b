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

double numberOf(ProgramRun const &run, std::string const &row)
{
    return std::atof(run.valueOf(row).c_str());
}

// The bounds in "1.2 to 3.4".
std::pair<double, double> rangeOf(ProgramRun const &run, std::string const &row)
{
    std::string const text = run.valueOf(row);
    std::size_t const at = text.find(" to ");
    return at == std::string::npos
               ? std::make_pair(-1.0, -1.0)
               : std::make_pair(std::atof(text.c_str()), std::atof(text.c_str() + at + 4));
}

// The volume in "123, volume 4.5".
double volumeOf(ProgramRun const &run, std::string const &row)
{
    std::string const text = run.valueOf(row);
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
    EXPECT_EQ("12", run.valueOf("triangles"));
    EXPECT_EQ("0.05", run.valueOf("resolution"));
    EXPECT_EQ("yes", run.valueOf("closed"));
    double const enclosed = volumeOf(run, "enclosed cells");
    double const surface = volumeOf(run, "surface cells");
    EXPECT_LE(enclosed, 24.0);
    EXPECT_GE(enclosed + surface, 24.0);
    EXPECT_GT(enclosed, 18.0);
    EXPECT_EQ(QStringList{}, run.filesLeft());
    EXPECT_LE(numberOf(run, "volume at least"), 24.0);
    EXPECT_GE(numberOf(run, "volume at most"), 24.0);
    EXPECT_NE("no such row", run.valueOf("time"));
    EXPECT_NE("no such row", run.valueOf("peak memory"));
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
    EXPECT_EQ(std::to_string(leaves), run.valueOf("leaves stored"));
}

TEST(InspectVolume, PageShowsThreeSlices)
{
    MeshFiles files;
    ProgramRun const run({"volume", files.add("box.obj", box(0, 4, 0, 3, 0, 2)), "--resolution",
                          "0.1", "--report", "page.html"});
    std::string const page = run.fileLeft("page.html");
    for (char const *slice : {"slice across x", "slice across y", "slice across z"}) {
        EXPECT_NE(std::string::npos, page.find(slice));
    }
    EXPECT_EQ(std::string::npos, page.find(" d=\"\"")) << "both kinds are met in every slice";
    EXPECT_NE(std::string::npos, page.find("</html>"));
    EXPECT_EQ(std::string::npos, page.find("http"));
}

TEST(InspectVolume, CountOfCellsIsAResolution)
{
    MeshFiles files;
    QString const mesh = files.add("box.obj", box(0, 4, 0, 3, 0, 2));
    EXPECT_EQ("0.03125", ProgramRun({"volume", mesh}).valueOf("resolution"));
    EXPECT_EQ("0.1", ProgramRun({"volume", mesh, "--cells", "40"}).valueOf("resolution"));
    EXPECT_TRUE(
        ProgramRun({"volume", mesh, "--cells", "40", "--resolution", "1"}).isRefused("excludes"));
    EXPECT_TRUE(ProgramRun({"volume", mesh, "--cells", "1"}).isRefused("--cells"));
}

TEST(InspectVolume, BitsHaveAReader)
{
    MeshFiles files;
    QString const mesh = files.add("box.obj", box(0, 4, 0, 3, 0, 2));
    QString const bits = files.add("box.bits", "");
    ProgramRun const volume({"volume", mesh, "--cells", "40", "--bits", bits});
    ProgramRun const run({"bits", bits});
    EXPECT_EQ(0, run.exitCode()) << run.errors();
    EXPECT_EQ(volume.valueOf("bits"), run.valueOf("bits"));
    EXPECT_EQ(volume.valueOf("leaves stored"), run.valueOf("leaves"));
    double const edge = numberOf(volume, "its edge");
    double const stored = numberOf(run, "share of the box inside") * edge * edge * edge;
    EXPECT_NEAR(numberOf(volume, "volume at most"), stored, 1e-4);
    EXPECT_TRUE(ProgramRun({"bits", mesh}).hasFailed("does not hold one whole tree"));
    EXPECT_TRUE(ProgramRun({"bits", files.add("none", "")}).hasFailed("whole tree"));
}

TEST(InspectVolume, VoxelsAndSlicesAreExported)
{
    MeshFiles files;
    QString const mesh = files.add("box.obj", box(0, 4, 0, 3, 0, 2));
    ProgramRun const run({"volume", mesh, "--cells", "20", "--voxels", files.add("v.stl", ""),
                          "--slices", files.add("s.svg", "")});
    EXPECT_EQ(0, run.exitCode()) << run.errors();
    ProgramRun const voxels(QStringList{files.add("empty", "").replace("empty", "v.stl")});
    EXPECT_EQ("yes", voxels.valueOf("closed"));
    EXPECT_NEAR(numberOf(run, "volume at most"), numberOf(voxels, "volume"), 1e-4);
    EXPECT_TRUE(ProgramRun({"volume", mesh, "--voxels", "v.doc"}).isRefused("write .obj, .ply"));
}

TEST(InspectVolume, OpenMeshesAreReported)
{
    MeshFiles files;
    ProgramRun const open(
        {"volume", files.add("open.obj", box(0, 4, 0, 3, 0, 2, false)), "--resolution", "0.1"});
    EXPECT_EQ(0, open.exitCode()) << open.errors();
    EXPECT_EQ("no: it encloses no cell at this resolution", open.valueOf("closed"));

    // An open box beside a closed one: something is enclosed, but not all that should be.
    std::string both = box(0, 4, 0, 4, 0, 4, false);
    both += "v 6 0 0\nv 7 0 0\nv 6 1 0\nv 7 1 0\nv 6 0 1\nv 7 0 1\nv 6 1 1\nv 7 1 1\n"
            "f 9 11 12 10\nf 9 10 14 13\nf 11 15 16 12\nf 9 13 15 11\nf 10 12 16 14\n"
            "f 13 14 16 15\n";
    ProgramRun const run({"volume", files.add("both.obj", both), "--resolution", "0.1"});
    EXPECT_EQ("no: the outside reaches the inside through a gap", run.valueOf("closed"));
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
}

TEST(InspectVolume, RefusesBadInput)
{
    EXPECT_TRUE(
        ProgramRun({"volume", "nowhere.obj", "--resolution", "1"}).hasFailed("no such file"));
    EXPECT_TRUE(ProgramRun({"volume", "--resolution", "1"}).isRefused("MESH"));
    MeshFiles files;
    QString const mesh = files.add("box.obj", box(0, 4, 0, 3, 0, 2));
    EXPECT_TRUE(ProgramRun({"volume", mesh, "--resolution", "0.1", "--bits", "no/such/folder"})
                    .isRefused("no/such/folder"));
    EXPECT_TRUE(
        ProgramRun({"volume", files.add("letter.txt", "Dear reader\n"), "--resolution", "1"})
            .hasFailed("not a mesh"));
}

TEST(InspectCompare, FindsWhatTwoBoxesShare)
{
    MeshFiles files;
    QString const a = files.add("a.obj", box(0, 4, 0, 4, 0, 4));
    QString const b = files.add("b.obj", box(2, 6, 0, 4, 0, 4));
    ProgramRun const run({"compare", a, b, "--resolution", "0.04", "--report", "page.html",
                          "--difference", "d.ply"});
    EXPECT_EQ(0, run.exitCode()) << run.errors();
    for (char const *row : {"common volume", "only in A", "only in B"}) {
        auto const [below, above] = rangeOf(run, row);
        EXPECT_LE(below, 32.0) << row;
        EXPECT_GE(above, 32.0) << row;
        EXPECT_LT(above - below, 16.0) << row;
    }
    auto const [below, above] = rangeOf(run, "intersection over union");
    EXPECT_LE(below, 1.0 / 3.0);
    EXPECT_GE(above, 1.0 / 3.0);
    EXPECT_EQ("yes", run.valueOf("A closed"));
    EXPECT_EQ("yes", run.valueOf("B closed"));
    EXPECT_EQ(0u, run.valueOf("largest deviation of A from B").find("2 at 0, ")) << run.output();
    EXPECT_EQ(0u, run.valueOf("largest deviation of B from A").find("2 at 6, ")) << run.output();
    EXPECT_EQ((QStringList{"d.ply", "page.html"}), run.filesLeft());
}

TEST(InspectCompare, MeshEqualsItself)
{
    MeshFiles files;
    QString const a = files.add("a.obj", box(0, 4, 0, 3, 0, 2));
    ProgramRun const run({"compare", a, a});
    EXPECT_EQ(0, run.exitCode()) << run.errors();
    EXPECT_EQ(1.0, rangeOf(run, "intersection over union").second);
    EXPECT_EQ(0.0, rangeOf(run, "only in A").first);
    EXPECT_EQ(0.0, rangeOf(run, "only in B").first);
    auto const [below, above] = rangeOf(run, "common volume");
    EXPECT_LE(below, 24.0);
    EXPECT_GE(above, 24.0);
    EXPECT_EQ(0u, run.valueOf("largest deviation of A from B").find("0 at "));
    EXPECT_EQ("0.03125", run.valueOf("resolution")) << "1/128 of the longest extent";
}

TEST(InspectCompare, MeshesThatShareNothing)
{
    MeshFiles files;
    QString const a = files.add("a.obj", box(0, 1, 0, 1, 0, 1));
    QString const b = files.add("b.obj", box(3, 4, 0, 1, 0, 1, false));
    ProgramRun const run({"compare", a, b, "--resolution", "0.05"});
    EXPECT_EQ("0 to 0", run.valueOf("common volume"));
    EXPECT_EQ("0 to 0", run.valueOf("intersection over union"));
    EXPECT_EQ("yes", run.valueOf("A closed"));
    EXPECT_EQ("no: it encloses no cell at this resolution", run.valueOf("B closed"));
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
    EXPECT_GT(rangeOf(run, "intersection over union").second, 0.99);
    EXPECT_EQ("yes", run.valueOf("A closed"));
}

TEST(InspectCompare, RefusesBadInput)
{
    MeshFiles files;
    QString const a = files.add("a.obj", box(0, 4, 0, 3, 0, 2));
    EXPECT_TRUE(ProgramRun({"compare", a}).isRefused("B"));
    EXPECT_TRUE(ProgramRun({"compare", a, "nowhere.obj"}).hasFailed("nowhere.obj: no such file"));
    EXPECT_TRUE(ProgramRun({"compare", a, a, "--resolution=0"}).isRefused("not a positive number"));
    EXPECT_TRUE(ProgramRun({"compare", a, a, "--resolution=9"}).isRefused("too coarse"));
    EXPECT_TRUE(
        ProgramRun({"compare", a, a, "--report", "no/such/page"}).isRefused("no/such/page"));
}
