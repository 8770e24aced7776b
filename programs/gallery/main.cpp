// Draws the figures of the documentation through the library's own functions.

#include "CommandLine.h"
#include "Interrupt.h"
#include "Outputs.h"
#include "errors.h"
#include "figures.h"

#include <QtCore/QDir>
#include <QtCore/QProcess>
#include <QtCore/QStringList>

#include <algorithm>
#include <map>

namespace {

struct Options
{
    std::string folder;
    std::vector<std::string> names; ///< of figures; all when empty
    std::string theme = "system";
    bool list = false;
    bool png = false;
};

std::string nameOf(gallery::Figure const &figure)
{
    return figure.file.substr(0, figure.file.rfind('.'));
}

std::vector<gallery::Figure> chosenFigures(Options const &options)
{
    std::vector<gallery::Figure> const all = gallery::allFigures();
    if (options.names.empty()) {
        return all;
    }
    std::vector<gallery::Figure> chosen;
    for (std::string const &name : options.names) {
        auto const found = std::find_if(all.begin(), all.end(), [&](gallery::Figure const &figure) {
            return name == nameOf(figure) || name == figure.file;
        });
        if (found == all.end()) {
            throw UsageError(name + ": no such figure; see --list");
        }
        chosen.push_back(*found);
    }
    return chosen;
}

int list(std::vector<gallery::Figure> const &figures)
{
    QByteArray text;
    for (gallery::Figure const &figure : figures) {
        text += QByteArray::fromStdString(nameOf(figure) + "  " + figure.title + "\n");
    }
    printOut(text);
    return 0;
}

// The picture in dots, two for a pixel, by librsvg's program.
QByteArray pngOf(QByteArray const &svg)
{
    QProcess converter;
    converter.start(QStringLiteral("rsvg-convert"), {QStringLiteral("--zoom=2")});
    if (!converter.waitForStarted()) {
        throw UsageError("--png needs rsvg-convert, of the package librsvg2-bin");
    }
    converter.write(svg);
    converter.closeWriteChannel();
    if (!converter.waitForFinished() || converter.exitCode() != 0) {
        throw OutputError("rsvg-convert: " + converter.readAllStandardError().toStdString());
    }
    return converter.readAllStandardOutput();
}

int draw(Options const &options, std::vector<gallery::Figure> const &figures)
{
    static std::map<std::string, gallery::Theme> const themes{{"light", gallery::Theme::Light},
                                                              {"dark", gallery::Theme::Dark},
                                                              {"system", gallery::Theme::System}};
    QDir const folder(QString::fromStdString(options.folder));
    if (!folder.mkpath(QStringLiteral("."))) {
        throw OutputError("cannot make the folder " + options.folder);
    }
    Outputs outputs;
    for (gallery::Figure const &figure : figures) {
        QByteArray const svg =
            QByteArray::fromStdString(gallery::render(figure, themes.at(options.theme)));
        std::string const path =
            folder.filePath(QString::fromStdString(nameOf(figure))).toStdString();
        outputs.announce(path + ".svg");
        outputs.put(path + ".svg", svg);
        if (options.png) {
            outputs.announce(path + ".png");
            outputs.put(path + ".png", pngOf(svg));
        }
    }
    outputs.write();
    printOut(QByteArray::number(int(figures.size())) +
             (figures.size() == 1 ? " figure" : " figures") + " written to " +
             QByteArray::fromStdString(options.folder) + "\n");
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    CLI::App app("Draws the figures of the documentation", "orvel-gallery");
    Options options;
    app.add_option("FIGURE", options.names, "Names of figures; all of them unless named");
    app.add_option("--out", options.folder, "Folder for the pictures; made when missing")
        ->type_name("FOLDER");
    app.add_flag("--list", options.list, "Print the figures' names and titles");
    app.add_flag("--png", options.png, "Write a PNG file beside each SVG file");
    app.add_option("--theme", options.theme,
                   "Colours: light, dark, or system, which follows the reader's settings")
        ->check(CLI::IsMember({"light", "dark", "system"}))
        ->capture_default_str()
        ->type_name("THEME");
    addStandardOptions(app);
    return runProgram(app, argc, argv, [&] {
        installInterrupt();
        std::vector<gallery::Figure> const figures = chosenFigures(options);
        if (options.list) {
            return list(figures);
        }
        if (options.folder.empty()) {
            throw UsageError("--out is required");
        }
        return draw(options, figures);
    });
}
