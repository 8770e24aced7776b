#include "commands.h"

#include "CommandLine.h"
#include "Measure.h"
#include "Report.h"
#include "Spacing.h"
#include "errors.h"
#include "exportMesh.h"
#include "meshFacts.h"
#include "viewData.h"

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFileInfo>

#include <assimp/Importer.hpp>

#include <algorithm>
#include <memory>

namespace {

struct Options
{
    CommonOptions common;
    std::vector<std::string> meshes;
    bool recursive = false;
    bool noReport = false;
    std::string nearest; ///< a place, "X,Y,Z", or nothing
    std::string hullFile;
    std::string boxFile;
};

constexpr std::size_t mostShown = 40000; // triangles of the mesh on the page
constexpr std::size_t mostHullShown = 8000;

// Files of a folder that have a suffix of a mesh, by name.
std::vector<std::string> meshesIn(std::string const &folder, bool recursive)
{
    aiString known; // "*.3ds;*.obj;..."
    Assimp::Importer().GetExtensionList(known);
    QStringList const patterns = QString::fromLatin1(known.C_Str()).split(QLatin1Char(';'));
    QDirIterator files(QString::fromStdString(folder), patterns, QDir::Files,
                       recursive ? QDirIterator::Subdirectories : QDirIterator::NoIteratorFlags);
    std::vector<std::string> found;
    while (files.hasNext()) {
        found.push_back(files.next().toStdString());
    }
    std::sort(found.begin(), found.end());
    return found;
}

std::vector<std::string> expanded(Options const &options)
{
    std::vector<std::string> paths;
    for (std::string const &path : options.meshes) {
        if (!QFileInfo(QString::fromStdString(path)).isDir()) {
            paths.push_back(path);
            continue;
        }
        std::vector<std::string> const found = meshesIn(path, options.recursive);
        if (found.empty()) {
            throw UsageError(path + ": no meshes in this folder" +
                             (options.recursive ? "" : "; -r looks in those below"));
        }
        paths.insert(paths.end(), found.begin(), found.end());
    }
    if (paths.empty()) {
        throw UsageError("no mesh is named; see --help");
    }
    return paths;
}

ViewPart partOf(Mesh const &mesh)
{
    ViewPart part;
    part.name = mesh.triangles.empty() ? "points" : "mesh";
    part.style = mesh.triangles.empty() ? ViewPart::Style::points : ViewPart::Style::surface;
    part.colour = "#9fb3c8";
    part.vertices = mesh.vertices;
    part.triangles = mesh.triangles;
    return decimated(part, mostShown);
}

ViewPart hullPart(Mesh const &mesh, Hull const &hull)
{
    ViewPart part;
    part.name = "hull";
    part.style = ViewPart::Style::wire;
    part.colour = "#d1495b";
    for (int const index : hull.vertexIndices) {
        part.vertices.push_back(mesh.vertices[std::size_t(index)]);
    }
    std::vector<int> number(mesh.vertices.size(), 0);
    for (std::size_t i = 0; i < hull.vertexIndices.size(); ++i) {
        number[std::size_t(hull.vertexIndices[i])] = int(i);
    }
    for (auto const &t : hull.triangles) {
        part.triangles.push_back(
            {number[std::size_t(t[0])], number[std::size_t(t[1])], number[std::size_t(t[2])]});
    }
    return decimated(part, mostHullShown);
}

ViewPart linePart(std::string const &name, char const *colour, std::vector<Vector> vertices,
                  std::vector<std::array<int, 2>> lines, bool isOn)
{
    ViewPart part;
    part.name = name;
    part.style = ViewPart::Style::lines;
    part.colour = colour;
    part.vertices = std::move(vertices);
    part.lines = std::move(lines);
    part.isOn = isOn;
    return part;
}

// The axes of the file, from the lowest corner of its box.
void addAxes(View &view, Mesh const &mesh)
{
    static char const *const colours[] = {"#d62828", "#2a9d3a", "#2667c9"};
    double const length = mesh.extent().length() * 0.5;
    for (int axis = 0; axis < 3; ++axis) {
        Vector end = mesh.lowest;
        end[axis] += length;
        view.parts.push_back(linePart(std::string(1, "xyz"[axis]) + " axis", colours[axis],
                                      {mesh.lowest, end}, {{0, 1}}, true));
    }
}

View viewOf(Mesh const &mesh, Findings const &found)
{
    View view{mesh.lowest, mesh.highest, mesh.up, mesh.unit, {partOf(mesh)}};
    if (found.hull.dimension >= 2) {
        view.parts.push_back(hullPart(mesh, found.hull));
    }
    std::array<Vector, 8> const corners = found.box.corners();
    view.parts.push_back(
        linePart("oriented box", "#e09f3e", {corners.begin(), corners.end()}, boxEdges(), false));
    addAxes(view, mesh);
    return view;
}

std::string noteOn(Mesh const &mesh, View const &view)
{
    ViewPart const &part = view.parts.front();
    if (part.triangles.size() == mesh.triangles.size() &&
        part.vertices.size() == mesh.vertices.size()) {
        return {};
    }
    bool const isCloud = mesh.triangles.empty();
    return "The view shows " +
           std::to_string(isCloud ? part.vertices.size() : part.triangles.size()) + " of " +
           std::to_string(isCloud ? mesh.vertices.size() : mesh.triangles.size()) +
           (isCloud ? " points." : " triangles, a mesh simplified for the page.");
}

QByteArray pageOf(Mesh const &mesh, Findings const &found)
{
    Report report(mesh.name);
    for (std::string const &warning : mesh.warnings) {
        report.addSection("Warning", "<p class=\"warning\">" + escapedHtml(warning) + "</p>\n");
    }
    View const view = viewOf(mesh, found);
    report.addView("Mesh and hull", viewJson(view), stillPicture(view), noteOn(mesh, view));
    report.addFacts("Measures", found.facts);
    if (!found.spacings.empty()) {
        report.addSection("Distance from each vertex to the nearest other one",
                          spacingPicture(found.spacings));
    }
    return report.html();
}

void inspect(std::string const &path, Options const &options, Outputs &outputs, Progress &progress,
             Listing &listing)
{
    Stopwatch const watch;
    Mesh const mesh = readMesh(path, options.common.read, progress, 0.35);
    warnOf(mesh, path);
    Findings found = findingsOf(mesh, options.nearest, progress, 0.9);
    progress.stage("writing", 1.0);
    double const seconds = watch.seconds();
    found.facts = withFile(found.facts, path, mesh);
    found.facts.push_back({"seconds", "time", seconds, timeText(seconds)});
    found.facts.push_back({"peakMemory", "peak memory", peakMemory(), sizeText(peakMemory())});

    if (!options.common.report.empty()) {
        outputs.put(options.common.report, pageOf(mesh, found));
    }
    if (!options.hullFile.empty()) {
        outputs.put(options.hullFile, exported(hullMesh(mesh, found.hull), options.hullFile));
    }
    if (!options.boxFile.empty()) {
        outputs.put(options.boxFile, exported(boxMesh(found.box), options.boxFile));
    }
    outputs.write();
    Progress::erase();
    listing.add(mesh.name, found.facts);
}

void checkUse(Options &options, std::vector<std::string> const &paths, Outputs &outputs)
{
    if (!options.nearest.empty()) {
        placeOf(options.nearest);
    }
    if (options.noReport) {
        options.common.report.clear();
    }
    for (std::string const &path : paths) {
        outputs.addInput(path);
    }
    for (std::string const &path : {options.common.report, options.hullFile, options.boxFile}) {
        if (!path.empty() && paths.size() > 1) {
            throw UsageError(path + ": one file for several meshes");
        }
        outputs.announce(path);
    }
    refuseUnknownFormats({options.hullFile, options.boxFile});
    if (outputs.usesStandardOutput()) {
        options.common.form = Listing::Form::none;
    }
}

int run(Options options)
{
    std::vector<std::string> const paths = expanded(options);
    Outputs outputs;
    checkUse(options, paths, outputs);
    Listing listing(options.common.form);
    Progress progress;
    int failed = 0;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        progress.restart(int(i), int(paths.size()));
        try {
            inspect(paths[i], options, outputs, progress, listing);
        } catch (InputError const &error) {
            ++failed;
            complain("orvel-inspect", error.what());
            listing.addError(paths[i], error.what());
        }
    }
    listing.end();
    return failed > 0 ? 1 : 0;
}

} // namespace

Work addMeshCommand(CLI::App &app)
{
    auto const options = std::make_shared<Options>();
    addCommonOptions(app, options->common);
    app.add_option("MESH", options->meshes,
                   "The meshes to inspect, in any format that Assimp reads; folders of them; - for "
                   "standard input");
    app.add_flag("-r,--recursive", options->recursive, "Look into the folders below folders");
    app.add_flag("--no-report", options->noReport, "Write no page, whatever --report says");
    app.add_option("--nearest", options->nearest,
                   "A place X,Y,Z: find the vertex that is nearest to it")
        ->type_name("X,Y,Z");
    app.add_option("--hull", options->hullFile,
                   "Write the convex hull to this file (.obj, .ply, .stl, .glb, .gltf)")
        ->type_name("PATH");
    app.add_option("--box", options->boxFile, "Write the oriented box to this file, likewise")
        ->type_name("PATH");
    return [options] { return run(*options); };
}
