#include "figures.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

namespace {

using gallery::Figure;
using gallery::Role;
using gallery::SvgCanvas;

struct Content
{
    bool wellFormed = false;
    int solutions = 0;
    int shapes = 0;
};

Content contentOf(QByteArray const &svg)
{
    Content content;
    QXmlStreamReader xml(svg);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        if (xml.attributes().value(QLatin1String("class")) == QLatin1String("solution")) {
            ++content.solutions;
        }
        if (xml.name() == QLatin1String("path") || xml.name() == QLatin1String("ellipse") ||
            xml.name() == QLatin1String("circle")) {
            ++content.shapes;
        }
    }
    content.wellFormed = !xml.hasError();
    return content;
}

TEST(Gallery, EveryFigureIsWellFormedAndShowsItsSolutions)
{
    for (Figure const &figure : gallery::allFigures()) {
        SCOPED_TRACE(figure.file);
        Content const content = contentOf(QByteArray::fromStdString(gallery::render(figure)));
        EXPECT_TRUE(content.wellFormed);
        EXPECT_EQ(content.solutions, figure.expectedSolutions);
        EXPECT_GT(content.shapes, 0);
    }
}

TEST(Gallery, NoLabelOverlapsAnotherOrLeavesItsPanel)
{
    for (Figure const &figure : gallery::allFigures()) {
        SvgCanvas canvas(figure.title);
        figure.draw(canvas);
        for (std::string const &fault : canvas.labelFaults()) {
            ADD_FAILURE() << figure.file << ": " << fault;
        }
    }
}

TEST(Gallery, FileNamesAreDistinctAndStandInTheDocumentation)
{
    QSet<QString> seen;
    for (Figure const &figure : gallery::allFigures()) {
        QString const file = QString::fromStdString(figure.file);
        EXPECT_FALSE(seen.contains(file)) << figure.file;
        seen.insert(file);
        EXPECT_TRUE(QFile::exists(QStringLiteral(ORVEL_SOURCE_DIR "/docs/figures/") + file))
            << figure.file;
    }
}

TEST(GalleryProgram, WritesEveryFigureAndNothingElse)
{
    QTemporaryDir const temporary;
    QString const out = temporary.path() + QStringLiteral("/made/on/the/way");
    QProcess program;
    program.start(QStringLiteral(ORVEL_GALLERY), {QStringLiteral("--out"), out});
    ASSERT_TRUE(program.waitForFinished(60000));
    ASSERT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();

    std::vector<Figure> const figures = gallery::allFigures();
    EXPECT_EQ(QDir(out).entryList(QDir::Files).size(), static_cast<int>(figures.size()));
    for (Figure const &figure : figures) {
        QFile file(out + QLatin1Char('/') + QString::fromStdString(figure.file));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << figure.file;
        EXPECT_EQ(file.readAll().toStdString(), gallery::render(figure)) << figure.file;
    }
}

TEST(GalleryProgram, RefusesAFolderThatCannotBeMade)
{
    QTemporaryDir const temporary;
    QString const blocker = temporary.path() + QStringLiteral("/file");
    QFile file(blocker);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    QProcess program;
    program.start(QStringLiteral(ORVEL_GALLERY),
                  {QStringLiteral("--out"), blocker + QStringLiteral("/below")});
    ASSERT_TRUE(program.waitForFinished(60000));
    EXPECT_NE(program.exitCode(), 0);
    EXPECT_TRUE(program.readAllStandardError().contains("cannot make the folder"));
}

TEST(GalleryProgram, AsksForItsFolder)
{
    QProcess program;
    program.start(QStringLiteral(ORVEL_GALLERY), QStringList());
    ASSERT_TRUE(program.waitForFinished(60000));
    EXPECT_NE(program.exitCode(), 0);
}

TEST(SvgCanvas, RefusesCoordinatesThatAreNotFinite)
{
    SvgCanvas canvas("broken");
    gallery::Panel &panel = canvas.panel("", {{0, 0}, {1, 1}});
    EXPECT_THROW(panel.line({0, 0}, {std::nan(""), 1}, Role::Given), std::runtime_error);
    EXPECT_THROW(panel.circle({0, 0}, HUGE_VAL, Role::Given), std::runtime_error);
}

TEST(Axonometric, LooksFromTheAzimuthAndTheElevation)
{
    gallery::Axonometric const front(0, 0); // from the positive x axis: y to the right, z up
    EXPECT_NEAR(front(5.0, 1.0, 2.0).x, 1, 1e-15);
    EXPECT_NEAR(front(5.0, 1.0, 2.0).y, 2, 1e-15);
    EXPECT_NEAR(front.depth(5.0, 1.0, 2.0), 5, 1e-15);
    gallery::Axonometric const top(0, 90);
    EXPECT_NEAR(top.depth(5.0, 1.0, 2.0), 2, 1e-15);
}

TEST(SvgCanvas, EscapesTextAndKeepsTheNumbersShort)
{
    SvgCanvas canvas("a < b & \"c\"");
    canvas.layout(1, 100, 100);
    canvas.panel("caption", {{0, 0}, {1, 1}}).line({0, 0}, {1.0 / 3.0, 1}, Role::Given);
    std::string const svg = canvas.svg();
    EXPECT_NE(svg.find("a &lt; b &amp; &quot;c&quot;"), std::string::npos);
    EXPECT_NE(svg.find("M16 136 L49.33 36"), std::string::npos);
    EXPECT_TRUE(contentOf(QByteArray::fromStdString(svg)).wellFormed);
}

TEST(SvgCanvas, LabelsLeaveTheirSideForAFreeOne)
{
    SvgCanvas canvas("pair");
    canvas.layout(1, 200, 200);
    gallery::Panel &panel = canvas.panel("", {{0, 0}, {1, 1}});
    panel.point({0.5, 0.5}, Role::Given, "first", gallery::Side::N);
    panel.point({0.5, 0.5}, Role::Given, "second", gallery::Side::N);
    EXPECT_TRUE(canvas.labelFaults().empty());
}

TEST(SvgCanvas, CountsASolutionOnceWhateverItHolds)
{
    SvgCanvas canvas("marks");
    gallery::Panel &panel = canvas.panel("", {{0, 0}, {1, 1}});
    panel.solution([&panel] {
        panel.line({0, 0}, {1, 1}, Role::Result);
        panel.point({1, 1}, Role::Result, "end");
    });
    panel.solutionPoint({0.5, 0.2});
    EXPECT_EQ(contentOf(QByteArray::fromStdString(canvas.svg())).solutions, 2);
}

TEST(SvgCanvas, NamesCaptionsWiderThanTheirPanel)
{
    SvgCanvas canvas("wide");
    canvas.layout(1, 100, 100);
    canvas.panel("two short lines\nfit below it", {{0, 0}, {1, 1}});
    EXPECT_TRUE(canvas.labelFaults().empty());
    canvas.panel("one line that is far too long for it", {{0, 0}, {1, 1}});
    EXPECT_EQ(canvas.labelFaults().size(), 1U);
}

TEST(SvgCanvas, NamesLabelsThatFindNoRoom)
{
    SvgCanvas canvas("crowd");
    canvas.layout(1, 60, 30);
    gallery::Panel &panel = canvas.panel("", {{0, 0}, {1, 1}});
    panel.label({0.5, 0.5}, "a label too long for it");
    EXPECT_EQ(canvas.labelFaults().size(), 1U);
}

// What the program prints for some arguments; its exit code goes to `exitCode`.
QByteArray printed(QStringList const &arguments, int &exitCode)
{
    QProcess program;
    program.start(QStringLiteral(ORVEL_GALLERY), arguments);
    EXPECT_TRUE(program.waitForFinished(60000));
    exitCode = program.exitCode();
    return program.readAllStandardOutput();
}

TEST(GalleryProgram, ListsItsFigures)
{
    int exitCode = -1;
    QByteArray const list = printed({QStringLiteral("--list")}, exitCode);
    EXPECT_EQ(0, exitCode);
    EXPECT_EQ(int(gallery::allFigures().size()), list.count('\n'));
    EXPECT_TRUE(list.contains("rotations  The same 30 degrees"));
}

TEST(GalleryProgram, DrawsOneFigureByNameInAThemeAndAsPng)
{
    QTemporaryDir const folder;
    int exitCode = -1;
    printed({QStringLiteral("rotations"), QStringLiteral("--out"), folder.path(),
             QStringLiteral("--theme"), QStringLiteral("dark")},
            exitCode);
    EXPECT_EQ(0, exitCode);
    EXPECT_EQ(QStringList{QStringLiteral("rotations.svg")},
              QDir(folder.path()).entryList(QDir::Files));
    QFile file(folder.filePath(QStringLiteral("rotations.svg")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray const svg = file.readAll();
    EXPECT_TRUE(svg.contains(".ground { fill: #161a22; }"));
    EXPECT_FALSE(svg.contains("prefers-color-scheme"));
    printed({QStringLiteral("nonsense"), QStringLiteral("--out"), folder.path()}, exitCode);
    EXPECT_EQ(2, exitCode);
}

TEST(Gallery, LegendShowsWhatThePictureDraws)
{
    SvgCanvas canvas("title");
    gallery::Panel &panel = canvas.panel("caption", {{0, 0}, {1, 1}});
    panel.disc({0.5, 0.5}, 0.2, Role::Result, 0.15);
    panel.smallPoint({0.5, 0.5}, Role::Given);
    panel.line({0, 0}, {1, 1}, Role::Helper);
    canvas.legend(Role::Result, "disc");
    canvas.legend(Role::Given, "dot");
    canvas.legend(Role::Helper, "line");
    std::string const svg = canvas.svg();
    std::string const legend = svg.substr(svg.rfind("class=\"caption\""));
    EXPECT_NE(std::string::npos, legend.find("<rect class=\"fill result\""));
    EXPECT_NE(std::string::npos, legend.find("opacity=\"0.15\""));
    EXPECT_NE(std::string::npos, legend.find("<circle class=\"dot given\""));
    EXPECT_NE(std::string::npos, legend.find("<path class=\"helper\""));
}

TEST(Gallery, ThreeRotatedArrowsHaveOneLength)
{
    for (Figure const &figure : gallery::allFigures()) {
        if (figure.file == "rotations.svg") {
            // Each panel has labels for the three conventions at the tips.
            std::string const svg = gallery::render(figure);
            for (char const *name : {">S<", ">M, Q<", ">S, M<", ">Q<"}) {
                EXPECT_NE(std::string::npos, svg.find(name)) << name;
            }
        }
    }
}

} // namespace
