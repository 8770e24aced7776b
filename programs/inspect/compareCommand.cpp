#include "commands.h"

#include "CommandLine.h"
#include "Deviation.h"
#include "Measure.h"
#include "Report.h"
#include "Resolution.h"
#include "SlicePictures.h"
#include "VolumeTree.h"
#include "exportMesh.h"

#include <algorithm>
#include <memory>

namespace {

using Node = VolumeComparison::BinTreeNode<int>;

struct Options
{
    CommonOptions common;
    std::string meshes[2];
    Resolution resolution;
    std::string difference;
};

enum Kind { common, onlyInFirst, onlyInSecond, unsure };

// What is known of a volume.
struct Range
{
    double below = 0.0;
    double above = 0.0;

    void add(double volume, bool surely, bool maybe)
    {
        below += surely ? volume : 0.0;
        above += maybe ? volume : 0.0;
    }
};

struct Comparison
{
    Range ranges[3];              ///< by kind
    std::vector<SliceCell> cells; ///< those in either volume
};

double volumeOf(Node const &node)
{
    Vector const extent = node.bounds.second - node.bounds.first;
    return extent.x() * extent.y() * extent.z();
}

// A leaf of either tree over one piece of space. An enclosed cell is inside for sure, an outer one
// outside; a surface cell may hold both.
void addPiece(Comparison &result, Node const *a, Node const *b)
{
    Node const *const smaller = volumeOf(*a) < volumeOf(*b) ? a : b;
    double const volume = volumeOf(*smaller);
    auto const surely = [](Node const *n) { return !n->outer() && !n->boundary(); };
    auto const maybe = [](Node const *n) { return !n->outer(); };
    auto const surelyNot = [](Node const *n) { return n->outer(); };
    auto const maybeNot = [](Node const *n) { return n->outer() || n->boundary(); };
    result.ranges[common].add(volume, surely(a) && surely(b), maybe(a) && maybe(b));
    result.ranges[onlyInFirst].add(volume, surely(a) && surelyNot(b), maybe(a) && maybeNot(b));
    result.ranges[onlyInSecond].add(volume, surely(b) && surelyNot(a), maybe(b) && maybeNot(a));
    if (a->outer() && b->outer()) {
        return;
    }
    Kind kind = common;
    if (a->boundary() != b->boundary() && !a->outer() && !b->outer()) {
        kind = unsure;
    } else if (a->outer()) {
        kind = onlyInSecond;
    } else if (b->outer()) {
        kind = onlyInFirst;
    }
    result.cells.push_back({smaller->bounds, kind});
}

// Walks two trees of one box side by side; where one of them has a leaf, that leaf stands for all
// cells below the other's node.
Comparison compare(Node const *first, Node const *second)
{
    Comparison result;
    std::vector<std::pair<Node const *, Node const *>> open{{first, second}};
    while (!open.empty()) {
        auto const [a, b] = open.back();
        open.pop_back();
        if (a->isLeaf() && b->isLeaf()) {
            addPiece(result, a, b);
            continue;
        }
        for (int side = 0; side < 2; ++side) {
            open.emplace_back(a->isLeaf() ? a : a->children[side],
                              b->isLeaf() ? b : b->children[side]);
        }
    }
    return result;
}

void addRange(Facts &facts, std::string const &key, std::string const &label, Range const &range)
{
    facts.push_back({key + "Below", label, range.below,
                     numberText(range.below) + " to " + numberText(range.above)});
    facts.push_back({key + "Above", label + " at most", range.above, ""});
}

// The common volume over that of both together.
Range overUnion(Comparison const &found)
{
    Range const &both = found.ranges[common];
    Range const &a = found.ranges[onlyInFirst];
    Range const &b = found.ranges[onlyInSecond];
    auto const ratio = [](double part, double rest) {
        return part > 0.0 ? part / (part + rest) : 0.0;
    };
    return {ratio(both.below, a.above + b.above), ratio(both.above, a.below + b.below)};
}

void addDeviation(Facts &facts, std::string const &key, std::string const &label,
                  Deviation const &deviation, std::string const &unit)
{
    Fact const at =
        numbersFact(key + "At", "", {deviation.at.x(), deviation.at.y(), deviation.at.z()});
    facts.push_back(numberFact(key, label, deviation.distance, unit));
    facts.back().text += " at " + at.text;
    facts.push_back({at.key, "its place", at.value, ""});
}

Facts factsOf(Mesh const (&meshes)[2], double resolution, VolumeTree const (&trees)[2],
              Comparison const &found)
{
    Facts facts{numberFact("resolution", "resolution", resolution, meshes[0].unit)};
    addRange(facts, "common", "common volume", found.ranges[common]);
    addRange(facts, "onlyA", "only in A", found.ranges[onlyInFirst]);
    addRange(facts, "onlyB", "only in B", found.ranges[onlyInSecond]);
    addRange(facts, "overUnion", "intersection over union", overUnion(found));
    addDeviation(facts, "deviationA", "largest deviation of A from B",
                 deviationFrom(meshes[0], meshes[1]), meshes[0].unit);
    addDeviation(facts, "deviationB", "largest deviation of B from A",
                 deviationFrom(meshes[1], meshes[0]), meshes[0].unit);
    facts.push_back(textFact("closedA", "A closed", trees[0].closed));
    facts.push_back(textFact("closedB", "B closed", trees[1].closed));
    double const seconds = trees[0].seconds + trees[1].seconds;
    facts.push_back({"seconds", "time", seconds, timeText(seconds)});
    facts.push_back({"peakMemory", "peak memory", peakMemory(), sizeText(peakMemory())});
    return facts;
}

QByteArray pageOf(Mesh const (&meshes)[2], Facts const &facts, Comparison const &found,
                  Box const &content)
{
    Report report(meshes[0].name + " and " + meshes[1].name);
    report.addFacts("A: " + meshes[0].name + ", B: " + meshes[1].name, facts);
    report.addSection("Slices", slicePictures(found.cells,
                                              {{"in both", "#8d99ae"},
                                               {"only in A: " + meshes[0].name, "#c0392b"},
                                               {"only in B: " + meshes[1].name, "#2a6f97"},
                                               {"surface of one of them", "#d9b44a"}},
                                              content, meshes[0].up));
    return report.html();
}

QByteArray differenceOf(Comparison const &found, std::string const &path)
{
    std::vector<Box> boxes;
    for (SliceCell const &cell : found.cells) {
        if (cell.kind == onlyInFirst || cell.kind == onlyInSecond) {
            boxes.push_back(cell.bounds);
        }
    }
    return exported(boxesMesh(boxes), path);
}

int run(Options options)
{
    Outputs outputs;
    outputs.addInput(options.meshes[0]);
    outputs.addInput(options.meshes[1]);
    outputs.announce(options.common.report);
    outputs.announce(options.difference);
    refuseUnknownFormats({options.difference});
    Progress progress;
    Mesh const meshes[2] = {readMesh(options.meshes[0], options.common.read, progress, 0.1),
                            readMesh(options.meshes[1], options.common.read, progress, 0.2)};
    for (Mesh const &mesh : meshes) {
        refuseWithoutTriangles(mesh);
    }
    Box const content = boxAround({&meshes[0], &meshes[1]});
    double const resolution = options.resolution.sizeFor(content);
    Box const cube = cubeFor(content, resolution);
    VolumeTree const trees[2] = {treeOf(meshes[0], cube, content, resolution, progress, 0.5),
                                 treeOf(meshes[1], cube, content, resolution, progress, 0.8)};
    progress.stage("comparing", 1.0);
    Comparison const found = compare(trees[0].builder->root, trees[1].builder->root);
    Facts const facts = factsOf(meshes, resolution, trees, found);

    if (!options.common.report.empty()) {
        outputs.put(options.common.report, pageOf(meshes, facts, found, content));
    }
    if (!options.difference.empty()) {
        outputs.put(options.difference, differenceOf(found, options.difference));
    }
    outputs.write();
    Progress::erase();
    Listing listing(outputs.usesStandardOutput() ? Listing::Form::none : options.common.form);
    Facts all{{"fileA", "A", QString::fromStdString(options.meshes[0]), ""},
              {"fileB", "B", QString::fromStdString(options.meshes[1]), ""}};
    all.insert(all.end(), facts.begin(), facts.end());
    warnOf(meshes[0], options.meshes[0]);
    warnOf(meshes[1], options.meshes[1]);
    listing.add("A: " + meshes[0].name + "\nB: " + meshes[1].name, all);
    listing.end();
    return 0;
}

} // namespace

Work addCompareCommand(CLI::App &command)
{
    auto const options = std::make_shared<Options>();
    addCommonOptions(command, options->common);
    command.add_option("A", options->meshes[0], "The first mesh")->required();
    command.add_option("B", options->meshes[1], "The second mesh")->required();
    options->resolution.addTo(command);
    command
        .add_option("--difference", options->difference,
                    "Write the cells that only one of them has as boxes to this file (.obj, .ply, "
                    ".stl, .glb, .gltf)")
        ->type_name("PATH");
    return [options] { return run(*options); };
}
