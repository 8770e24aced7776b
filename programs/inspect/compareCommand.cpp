#include "commands.h"

#include "Measure.h"
#include "Report.h"
#include "SlicePictures.h"
#include "VolumeTree.h"

#include <algorithm>
#include <iostream>
#include <memory>

namespace {

using Node = VolumeComparison::BinTreeNode<int>;

struct Options
{
    std::string meshes[2];
    double resolution = 0.0;
    bool resolutionGiven = false;
    std::string report = "report.html";
};

enum Kind { common, onlyInFirst, onlyInSecond };

struct Comparison
{
    double volumes[3] = {0.0, 0.0, 0.0}; ///< by kind
    std::vector<SliceCell> cells;        ///< those in either volume
};

// Walks two trees of one box side by side; where one of them has a leaf, that leaf stands for all
// cells below the other's node.
Comparison compare(Node const *first, Node const *second)
{
    Comparison result;
    std::vector<std::pair<Node const *, Node const *>> open{{first, second}};
    while (!open.empty()) {
        auto const [a, b] = open.back();
        open.pop_back();
        if (!a->isLeaf() || !b->isLeaf()) {
            for (int side = 0; side < 2; ++side) {
                open.emplace_back(a->isLeaf() ? a : a->children[side],
                                  b->isLeaf() ? b : b->children[side]);
            }
            continue;
        }
        if (a->outer() && b->outer()) {
            continue;
        }
        Kind const kind = a->outer() ? onlyInSecond : b->outer() ? onlyInFirst : common;
        // The cells nest, so the smaller one is what the two have in common.
        vectorC3d<double> const extentA = a->bounds.second - a->bounds.first;
        vectorC3d<double> const extentB = b->bounds.second - b->bounds.first;
        double const volumeA = extentA.x() * extentA.y() * extentA.z();
        double const volumeB = extentB.x() * extentB.y() * extentB.z();
        result.volumes[kind] += volumeA < volumeB ? volumeA : volumeB;
        result.cells.push_back({volumeA < volumeB ? a->bounds : b->bounds, kind});
    }
    return result;
}

Table tableOf(Options const &options, VolumeTree const (&trees)[2], Comparison const &found)
{
    double const all =
        found.volumes[common] + found.volumes[onlyInFirst] + found.volumes[onlyInSecond];
    return {{"resolution", numberText(options.resolution)},
            {"common volume", numberText(found.volumes[common])},
            {"only in A", numberText(found.volumes[onlyInFirst])},
            {"only in B", numberText(found.volumes[onlyInSecond])},
            {"intersection over union", numberText(found.volumes[common] / all)},
            {"A closed", trees[0].closed},
            {"B closed", trees[1].closed},
            {"time", timeText(trees[0].seconds + trees[1].seconds)},
            {"peak memory", sizeText(peakMemory())}};
}

void run(Options options)
{
    Mesh const meshes[2] = {readMesh(options.meshes[0]), readMesh(options.meshes[1])};
    Box const content = boxAround({&meshes[0], &meshes[1]});
    if (!options.resolutionGiven) {
        vectorC3d<double> const extent = content.second - content.first;
        options.resolution = std::max({extent.x(), extent.y(), extent.z()}) / 128.0;
    }
    Box const cube = cubeFor(content, options.resolution);
    VolumeTree const trees[2] = {treeOf(meshes[0], cube, content, options.resolution),
                                 treeOf(meshes[1], cube, content, options.resolution)};
    Comparison const found = compare(trees[0].builder->root, trees[1].builder->root);
    Table const table = tableOf(options, trees, found);

    std::string const title = meshes[0].name + " and " + meshes[1].name;
    Report report(title);
    report.addTable("A: " + meshes[0].name + ", B: " + meshes[1].name, table);
    report.addSection("Slices", slicePictures(found.cells,
                                              {{"in both", "#8d99ae"},
                                               {"only in A: " + meshes[0].name, "#c0392b"},
                                               {"only in B: " + meshes[1].name, "#2a6f97"}},
                                              content));
    report.write(options.report);

    std::cout << "A: " << meshes[0].name << "\nB: " << meshes[1].name << '\n';
    printTable(std::cout, table);
    std::cout << "report: " << options.report << '\n';
}

} // namespace

void addCompareCommand(CLI::App &app)
{
    auto const options = std::make_shared<Options>();
    CLI::App *const command =
        app.add_subcommand("compare", "what the volumes of two closed meshes have in common");
    command->add_option("A", options->meshes[0], "the first mesh")->required();
    command->add_option("B", options->meshes[1], "the second mesh")->required();
    CLI::Option const *const resolution =
        command->add_option("--resolution", options->resolution,
                            "smallest half extent of a cell that is still split, in units of the "
                            "meshes; 1/128 of their longest extent unless given");
    command->add_option("--report", options->report, "the page to write")->capture_default_str();
    command->callback([options, resolution] {
        options->resolutionGiven = resolution->count() > 0;
        run(*options);
    });
}
