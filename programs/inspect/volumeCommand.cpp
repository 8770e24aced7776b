#include "commands.h"

#include "InputError.h"
#include "Measure.h"
#include "Report.h"
#include "SlicePictures.h"
#include "VolumeTree.h"

#include <QtCore/QSaveFile>

#include <iostream>
#include <memory>

namespace {

using VolumeComparison::SimpleBitVector;

struct Options
{
    std::string mesh;
    double resolution = 0.0;
    std::string bits = "volume.bits";
    std::string report = "report.html";
};

std::vector<SliceCell> cellsOf(VolumeComparison::BinTreeBuilder const &builder)
{
    std::vector<SliceCell> cells;
    std::vector<VolumeComparison::BinTreeNode<int> const *> open{builder.root};
    while (!open.empty()) {
        auto const *const node = open.back();
        open.pop_back();
        if (!node->isLeaf()) {
            open.push_back(node->children[0]);
            open.push_back(node->children[1]);
        } else if (!node->outer()) {
            cells.push_back({node->bounds, node->boundary() ? 0 : 1});
        }
    }
    return cells;
}

// Written aside and renamed, so that there is never half a description.
void writeBits(std::string const &path, SimpleBitVector const &bits)
{
    QSaveFile file(QString::fromStdString(path));
    char const *const data = reinterpret_cast<char const *>(bits.bytes.data());
    qint64 const size = qint64(bits.bytes.size());
    if (!file.open(QIODevice::WriteOnly) || file.write(data, size) != size || !file.commit()) {
        throw InputError(path + ": " + file.errorString().toStdString());
    }
}

std::string cellText(CellSum const &sum)
{
    return std::to_string(sum.count) + ", volume " + numberText(sum.volume);
}

Table tableOf(Mesh const &mesh, Options const &options, Box const &cube, VolumeTree const &tree,
              SimpleBitVector const &bits)
{
    return {{"triangles", std::to_string(mesh.triangles.size())},
            {"resolution", numberText(options.resolution)},
            {"box", "cube of edge " + numberText(cube.second.x() - cube.first.x())},
            {"enclosed cells", cellText(tree.enclosed)},
            {"surface cells", cellText(tree.surface)},
            {"outer cells", cellText(tree.outer)},
            {"closed", tree.closed},
            {"nodes", std::to_string(tree.nodes)},
            {"leaves stored", std::to_string((bits.bitCount + 1) / 3)},
            {"bits", std::to_string(bits.bitCount)},
            {"time", timeText(tree.seconds)},
            {"peak memory", sizeText(peakMemory())}};
}

void run(Options const &options)
{
    Mesh const mesh = readMesh(options.mesh);
    Box const content = boxAround({&mesh});
    Box const cube = cubeFor(content, options.resolution);
    VolumeTree const tree = treeOf(mesh, cube, content, options.resolution);
    SimpleBitVector const bits = tree.builder->exportBitVector();
    Table const table = tableOf(mesh, options, cube, tree, bits);

    Report report(mesh.name);
    report.addTable("Volume", table);
    report.addSection("Slices",
                      slicePictures(cellsOf(*tree.builder),
                                    {{"surface", "#c0392b"}, {"enclosed", "#2a6f97"}}, content));
    writeBits(options.bits, bits);
    report.write(options.report);

    std::cout << mesh.name << '\n';
    printTable(std::cout, table);
    std::cout << "bits: " << options.bits << "\nreport: " << options.report << '\n';
}

} // namespace

void addVolumeCommand(CLI::App &app)
{
    auto const options = std::make_shared<Options>();
    CLI::App *const command =
        app.add_subcommand("volume", "the volume that a closed mesh occupies, as a tree of cells");
    command->add_option("MESH", options->mesh, "the mesh to measure")->required();
    command
        ->add_option("--resolution", options->resolution,
                     "smallest half extent of a cell that is still split, in units of the mesh")
        ->required();
    command->add_option("--bits", options->bits, "file for the tree's bits")->capture_default_str();
    command->add_option("--report", options->report, "the page to write")->capture_default_str();
    command->callback([options] { run(*options); });
}
