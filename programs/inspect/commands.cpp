#include "commands.h"

#include "CommandLine.h"
#include "errors.h"

#include <QtCore/QJsonArray>

void addCommonOptions(CLI::App &app, CommonOptions &options)
{
    app.add_option("--report", options.report, "Write a page with pictures to this file (HTML)")
        ->type_name("PATH");
    app.add_option("--up", options.read.up,
                   "The axis that points up, for pictures: y for OBJ, glTF, Collada and their "
                   "like, else z, unless the file says it")
        ->check(CLI::IsMember({"x", "y", "z"}))
        ->type_name("AXIS");
    app.add_option("--format", options.read.format,
                   "The format of the mesh, by its suffix: stl, obj; needed for standard input")
        ->type_name("SUFFIX");
    addListingOptions(app, options);
}

void addListingOptions(CLI::App &app, CommonOptions &options)
{
    CLI::Option *const json = app.add_flag_callback(
        "--json", [&options] { options.form = Listing::Form::json; },
        "Print one JSON object a mesh, one line each");
    CLI::Option *const csv = app.add_flag_callback(
        "--csv", [&options] { options.form = Listing::Form::csv; },
        "Print comma-separated values, one row a mesh");
    CLI::Option *const quiet = app.add_flag_callback(
        "--quiet", [&options] { options.form = Listing::Form::none; },
        "Print nothing but warnings and errors");
    json->excludes(csv, quiet);
    csv->excludes(quiet);
}

void warnOf(Mesh const &mesh, std::string const &path)
{
    for (std::string const &warning : mesh.warnings) {
        complain("orvel-inspect", path + ": warning: " + warning);
    }
}

void refuseWithoutTriangles(Mesh const &mesh)
{
    if (mesh.triangles.empty()) {
        throw InputError(mesh.name + ": the mesh has no triangles, and no volume without them");
    }
}

Facts withFile(Facts const &facts, std::string const &path, Mesh const &mesh)
{
    QJsonArray warnings;
    for (std::string const &warning : mesh.warnings) {
        warnings.append(QString::fromStdString(warning));
    }
    Facts all{{"file", "file", QString::fromStdString(path), ""},
              {"warnings", "warnings", warnings, ""}};
    all.insert(all.end(), facts.begin(), facts.end());
    return all;
}
