#include "commands.h"

#include "CommandLine.h"
#include "Measure.h"
#include "Report.h"
#include "Resolution.h"
#include "SlicePictures.h"
#include "VolumeTree.h"
#include "exportMesh.h"

#include <memory>

namespace {

using VolumeComparison::SimpleBitVector;

struct Options
{
    CommonOptions common;
    std::string mesh;
    Resolution resolution;
    std::string bits;
    std::string voxels;
    std::string slices;
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

void addCells(Facts &facts, std::string const &key, std::string const &label, CellSum const &sum)
{
    facts.push_back(countFact(key + "Cells", label + " cells", sum.count));
    facts.back().text += ", volume " + numberText(sum.volume);
    facts.push_back({key + "Volume", label + " volume", sum.volume, ""});
}

Facts factsOf(Mesh const &mesh, double resolution, Box const &cube, VolumeTree const &tree,
              SimpleBitVector const &bits)
{
    Facts facts{
        countFact("triangles", "triangles", mesh.triangles.size()),
        numberFact("resolution", "resolution", resolution, mesh.unit),
        numbersFact("boxLowest", "box from", {cube.first.x(), cube.first.y(), cube.first.z()}),
        numberFact("boxEdge", "its edge", cube.second.x() - cube.first.x(), mesh.unit)};
    addCells(facts, "enclosed", "enclosed", tree.enclosed);
    addCells(facts, "surface", "surface", tree.surface);
    addCells(facts, "outer", "outer", tree.outer);
    facts.push_back(numberFact("volumeBelow", "volume at least", tree.enclosed.volume));
    facts.push_back(
        numberFact("volumeAbove", "volume at most", tree.enclosed.volume + tree.surface.volume));
    facts.push_back(textFact("closed", "closed", tree.closed));
    facts.push_back(countFact("nodes", "nodes", tree.nodes));
    facts.push_back(countFact("leaves", "leaves stored", (bits.bitCount + 1) / 3));
    facts.push_back(countFact("bits", "bits", bits.bitCount));
    facts.push_back({"seconds", "time", tree.seconds, timeText(tree.seconds)});
    facts.push_back({"peakMemory", "peak memory", peakMemory(), sizeText(peakMemory())});
    return facts;
}

std::vector<SliceKind> const kinds{{"surface", "#c0392b"}, {"enclosed", "#2a6f97"}};

QByteArray pageOf(Mesh const &mesh, Facts const &facts, std::vector<SliceCell> const &cells,
                  Box const &content)
{
    Report report(mesh.name);
    report.addFacts("Volume", facts);
    report.addSection("Slices", slicePictures(cells, kinds, content, mesh.up));
    return report.html();
}

QByteArray voxelsOf(std::vector<SliceCell> const &cells, std::string const &path)
{
    std::vector<Box> boxes;
    boxes.reserve(cells.size());
    for (SliceCell const &cell : cells) {
        boxes.push_back(cell.bounds);
    }
    return exported(boxesMesh(boxes), path);
}

int run(Options options)
{
    Outputs outputs;
    outputs.addInput(options.mesh);
    for (std::string const &path :
         {options.common.report, options.bits, options.voxels, options.slices}) {
        outputs.announce(path);
    }
    refuseUnknownFormats({options.voxels});
    Progress progress;
    Mesh const mesh = readMesh(options.mesh, options.common.read, progress, 0.2);
    refuseWithoutTriangles(mesh);
    Box const content = boxAround({&mesh});
    double const resolution = options.resolution.sizeFor(content);
    Box const cube = cubeFor(content, resolution);
    VolumeTree const tree = treeOf(mesh, cube, content, resolution, progress, 0.9);
    progress.stage("writing", 1.0);
    SimpleBitVector const bits = tree.builder->exportBitVector();
    Facts const facts = factsOf(mesh, resolution, cube, tree, bits);
    std::vector<SliceCell> const cells = cellsOf(*tree.builder);

    if (!options.common.report.empty()) {
        outputs.put(options.common.report, pageOf(mesh, facts, cells, content));
    }
    outputs.put(options.bits, QByteArray(reinterpret_cast<char const *>(bits.bytes.data()),
                                         int(bits.bytes.size())));
    if (!options.voxels.empty()) {
        outputs.put(options.voxels, voxelsOf(cells, options.voxels));
    }
    if (!options.slices.empty()) {
        outputs.put(options.slices,
                    QByteArray::fromStdString(sliceDocument(cells, kinds, content, mesh.up)));
    }
    outputs.write();
    Progress::erase();
    Listing listing(outputs.usesStandardOutput() ? Listing::Form::none : options.common.form);
    warnOf(mesh, options.mesh);
    listing.add(mesh.name, withFile(facts, options.mesh, mesh));
    listing.end();
    return 0;
}

} // namespace

Work addVolumeCommand(CLI::App &command)
{
    auto const options = std::make_shared<Options>();
    addCommonOptions(command, options->common);
    command.add_option("MESH", options->mesh, "The mesh to measure; - for standard input")
        ->required();
    options->resolution.addTo(command);
    command.add_option("--bits", options->bits, "Write the tree's bits to this file")
        ->type_name("PATH");
    command
        .add_option("--voxels", options->voxels,
                    "Write the cells that are not outside as boxes to this file (.obj, .ply, .stl, "
                    ".glb, .gltf)")
        ->type_name("PATH");
    command.add_option("--slices", options->slices, "Write three slices to this file (SVG)")
        ->type_name("PATH");
    return [options] { return run(*options); };
}
