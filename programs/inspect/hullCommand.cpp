#include "commands.h"

#include "InputError.h"
#include "Measure.h"
#include "Mesh.h"
#include "Progress.h"
#include "Report.h"
#include "Spacing.h"

#include <OrvelMath/hull/ConvexHullBuilderC.h>

#include <array>
#include <iostream>
#include <memory>

namespace {

struct Options
{
    std::string mesh;
    std::string report = "report.html";
    std::string nearest; ///< a place, "X,Y,Z", or nothing
};

using Triangle = std::array<vectorC3d<double>, 3>;

struct Hull
{
    int dimension = -1;
    int vertexCount = 0;
    std::vector<Triangle> triangles;
    double area = 0.0;
    double volume = 0.0;
    double seconds = 0.0;
};

Hull hullOf(Mesh const &mesh)
{
    ProgressClock const clock("building the hull");
    Stopwatch const watch;
    ConvexHullBuilderC builder(mesh.vertices);
    builder.buildHull();

    Hull hull;
    hull.seconds = watch.seconds();
    hull.dimension = builder.dimension();
    hull.vertexCount = builder.hullVertexIndices().size();
    for (int i = 0; i < builder.triangleCount(); ++i) {
        Triangle t;
        vectorC3d<double> normal;
        builder.triangle(i, t[0], t[1], t[2], normal);
        vectorC3d<double> const cross = (t[1] - t[0]).cross(t[2] - t[0]);
        hull.area += cross.length() / 2.0;
        // Measured from a corner of the box, which keeps the cones small.
        hull.volume += (t[0] - mesh.lowest).dot(cross) / 6.0;
        hull.triangles.push_back(t);
    }
    return hull;
}

std::string dimensionText(int dimension)
{
    static char const *const texts[] = {"0 (one location)", "1 (a line)", "2 (a plane)",
                                        "3 (a solid)"};
    return dimension < 0 ? "none" : texts[dimension];
}

Table hullTable(Mesh const &mesh, Hull const &hull)
{
    vectorC3d<double> const extent = mesh.highest - mesh.lowest;
    return {{"vertices", std::to_string(mesh.vertices.size())},
            {"triangles", std::to_string(mesh.triangles.size())},
            {"extents", numberText(extent.x()) + " x " + numberText(extent.y()) + " x " +
                            numberText(extent.z())},
            {"hull dimension", dimensionText(hull.dimension)},
            {"hull vertices", std::to_string(hull.vertexCount)},
            {"hull triangles", std::to_string(hull.triangles.size())},
            {"hull area", numberText(hull.area)},
            {"hull volume", numberText(hull.volume)},
            {"hull time", timeText(hull.seconds)},
            {"peak memory", sizeText(peakMemory())}};
}

void run(Options const &options)
{
    Mesh const mesh = readMesh(options.mesh);
    Table const nearest = options.nearest.empty() ? Table() : nearestTable(mesh, options.nearest);
    Hull const hull = hullOf(mesh);
    std::vector<double> const spacings = vertexSpacings(mesh);
    Table table = hullTable(mesh, hull);
    for (Table const &more : {spacingTable(spacings), nearest}) {
        table.insert(table.end(), more.begin(), more.end());
    }

    Report report(mesh.name);
    report.addTable("Measures", table);
    report.addViews(mesh, hull.triangles);
    report.addSection("Distance from each vertex to the nearest other one",
                      spacingPicture(spacings));
    report.write(options.report);

    std::cout << mesh.name << '\n';
    printTable(std::cout, table);
    std::cout << "report: " << options.report << '\n';
}

} // namespace

void addHullCommand(CLI::App &app)
{
    auto const options = std::make_shared<Options>();
    app.add_option("MESH", options->mesh, "the mesh to inspect, in any format that Assimp reads");
    app.add_option("--report", options->report, "the page to write")->capture_default_str();
    app.add_option("--nearest", options->nearest,
                   "a place X,Y,Z: tells the vertex that is nearest to it");
    app.final_callback([&app, options] {
        if (!app.get_subcommands().empty()) {
            return;
        }
        if (options->mesh.empty()) {
            throw InputError("no mesh is named; see --help");
        }
        run(*options);
    });
}
