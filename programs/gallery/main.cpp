// Draws every figure of the documentation through the library's own functions.

#include "figures.h"

#include <CLI/CLI.hpp>
#include <QDir>
#include <QSaveFile>
#include <QString>

#include <exception>
#include <iostream>
#include <stdexcept>

namespace {

/// Writes beside the target and renames, so that a reader never sees half a picture.
void writeFile(QString const &path, std::string const &content)
{
    QSaveFile file(path);
    qint64 const size = static_cast<qint64>(content.size());
    if (!file.open(QIODevice::WriteOnly) || file.write(content.data(), size) != size ||
        !file.commit()) {
        throw std::runtime_error("cannot write " + path.toStdString() + ": " +
                                 file.errorString().toStdString());
    }
}

int drawAll(std::string const &folder)
{
    QDir const dir(QString::fromStdString(folder));
    if (!dir.mkpath(QStringLiteral("."))) {
        throw std::runtime_error("cannot make the folder " + folder);
    }
    int written = 0;
    for (gallery::Figure const &figure : gallery::allFigures()) {
        try {
            writeFile(dir.filePath(QString::fromStdString(figure.file)), gallery::render(figure));
        } catch (std::exception const &e) {
            throw std::runtime_error(figure.file + ": " + e.what());
        }
        ++written;
    }
    std::cout << written << " figures written to " << folder << '\n';
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    CLI::App app("Draws the figures of the documentation as SVG files");
    std::string folder;
    app.add_option("--out", folder, "folder for the pictures; made when missing")->required();
    CLI11_PARSE(app, argc, argv);
    try {
        return drawAll(folder);
    } catch (std::exception const &e) {
        std::cerr << "orvel-gallery: " << e.what() << '\n';
        return 1;
    }
}
