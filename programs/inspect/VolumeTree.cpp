#include "VolumeTree.h"

#include "Measure.h"
#include "errors.h"
#include "windingNumber.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <unistd.h>

namespace {

using Node = VolumeComparison::BinTreeNode<int>;
using VolumeComparison::BinTreeBuilder;

double edgeOf(Box const &cube)
{
    return cube.second.x() - cube.first.x();
}

bool holds(Box const &cell, Box const &box)
{
    for (int axis = 0; axis < 3; ++axis) {
        if (!(cell.first[axis] <= box.first[axis] && cell.second[axis] >= box.second[axis])) {
            return false;
        }
    }
    return true;
}

// The builder's constructor follows the content down the tree and has to come to a cell that no
// half holds before the cells can no longer be split.
bool constructionEnds(Box cell, double resolution, Box const &content)
{
    for (int axis = 0;; axis = (axis + 1) % 3) {
        double const lowest = cell.first[axis];
        double const highest = cell.second[axis];
        if (resolution > (highest - lowest) * 0.5) {
            return false;
        }
        double const middle = (lowest + highest) * 0.5;
        Box lower = cell;
        Box upper = cell;
        lower.second[axis] = middle;
        upper.first[axis] = middle;
        if (holds(lower, content)) {
            cell = lower;
        } else if (holds(upper, content)) {
            cell = upper;
        } else {
            return true;
        }
    }
}

// A surface crosses about two cells for each square of a cell's edge, and a tree has about four
// nodes for each of those.
double expectedBytes(Mesh const &mesh, Box const &cube, double resolution)
{
    double const cellsPerEdge = std::exp2(std::floor(std::log2(edgeOf(cube) / resolution)));
    double const cell = edgeOf(cube) / cellsPerEdge;
    double area = 0.0;
    for (auto const &t : mesh.triangles) {
        Vector const a = mesh.vertices[std::size_t(t[0])];
        area += (mesh.vertices[std::size_t(t[1])] - a)
                    .cross(mesh.vertices[std::size_t(t[2])] - a)
                    .length() /
                2.0;
    }
    return 2.0 * area / (cell * cell) * 4.0 * double(sizeof(Node));
}

template <typename Visit>
void forEachNode(Node const *top, Visit visit)
{
    std::vector<Node const *> open{top};
    while (!open.empty()) {
        Node const *const node = open.back();
        open.pop_back();
        visit(*node);
        if (!node->isLeaf()) {
            open.push_back(node->children[1]);
            open.push_back(node->children[0]);
        }
    }
}

double volumeOf(Node const &node)
{
    Vector const extent = node.bounds.second - node.bounds.first;
    return extent.x() * extent.y() * extent.z();
}

void sumUp(VolumeTree &tree)
{
    forEachNode(tree.builder->root, [&](Node const &node) {
        ++tree.nodes;
        if (node.isLeaf()) {
            CellSum &sum = node.outer()      ? tree.outer
                           : node.boundary() ? tree.surface
                                             : tree.enclosed;
            ++sum.count;
            sum.volume += volumeOf(node);
        }
    });
}

// The largest outer cells about the mesh are asked how often the surface winds round them: what
// lies inside although the fill came there tells that the surface has a gap.
bool fillCameInside(Mesh const &mesh, VolumeTree const &tree)
{
    constexpr std::size_t asked = 64;
    std::vector<Node const *> cells;
    forEachNode(tree.builder->root, [&](Node const &node) {
        Vector const m = (node.bounds.first + node.bounds.second) * 0.5;
        if (node.isLeaf() && node.outer() && holds({mesh.lowest, mesh.highest}, {m, m})) {
            cells.push_back(&node);
        }
    });
    auto const cut = cells.begin() + std::ptrdiff_t(std::min(asked, cells.size()));
    std::partial_sort(cells.begin(), cut, cells.end(),
                      [](Node const *a, Node const *b) { return volumeOf(*a) > volumeOf(*b); });
    return std::any_of(cells.begin(), cut, [&](Node const *node) {
        Vector const m = (node->bounds.first + node->bounds.second) * 0.5;
        return std::fabs(windingNumber(mesh, m)) > 0.5;
    });
}

} // namespace

Box boxAround(std::vector<Mesh const *> const &meshes)
{
    Box box{meshes.front()->lowest, meshes.front()->highest};
    for (Mesh const *mesh : meshes) {
        for (int axis = 0; axis < 3; ++axis) {
            box.first[axis] = std::min(box.first[axis], mesh->lowest[axis]);
            box.second[axis] = std::max(box.second[axis], mesh->highest[axis]);
        }
    }
    return box;
}

Box cubeFor(Box const &content, double resolution)
{
    if (!(resolution > 0.0) || std::isinf(resolution)) {
        throw UsageError("--resolution: not a positive number");
    }
    Vector const extent = content.second - content.first;
    double const longest = std::max({extent.x(), extent.y(), extent.z()});
    double const half = longest * 0.5 + 5.0 * resolution; // a cell is below two resolutions
    // Off the middle by odd parts of a cell: a face that lies in a plane between two cells to the
    // last bit may be lost to both by rounding, and parts of a model often lie at round fractions.
    Vector const offset = Vector(0.23713, 0.31127, 0.17291) * resolution;
    Vector const middle = (content.first + content.second) * 0.5 + offset;
    Vector const reach(half, half, half);
    Box const cube{middle - reach, middle + reach};

    double farthest = 0.0;
    for (int axis = 0; axis < 3; ++axis) {
        farthest = std::max({farthest, std::fabs(cube.first[axis]), std::fabs(cube.second[axis])});
    }
    if (!std::isfinite(farthest) ||
        resolution < 1e3 * std::numeric_limits<double>::epsilon() * farthest) {
        throw UsageError("--resolution " + numberText(resolution) +
                         ": finer than the coordinates can tell apart");
    }
    if (resolution > longest * 0.5 || !constructionEnds(cube, resolution, content)) {
        throw UsageError("--resolution " + numberText(resolution) +
                         ": too coarse, the longest extent is only " + numberText(longest));
    }
    return cube;
}

VolumeTree treeOf(Mesh const &mesh, Box const &cube, Box const &content, double resolution,
                  Progress &progress, double end)
{
    double const needed = expectedBytes(mesh, cube, resolution);
    if (needed > 0.7 * double(sysconf(_SC_PHYS_PAGES)) * double(sysconf(_SC_PAGESIZE))) {
        throw UsageError("--resolution " + numberText(resolution) + ": too fine, the tree of " +
                         mesh.name + " would take about " + sizeText(needed));
    }
    Stopwatch const watch;
    VolumeTree tree;
    tree.builder = std::make_unique<BinTreeBuilder>(cube, resolution, content);
    progress.stage("adding triangles of " + mesh.name, 0.8 * end);
    for (std::size_t i = 0; i < mesh.triangles.size(); ++i) {
        Corners const c = mesh.corners(mesh.triangles[i]);
        tree.builder->addTriangle(c[0], c[1], c[2]);
        if (i % 256 == 0) {
            progress.show(double(i) / double(mesh.triangles.size()));
        }
    }
    progress.stage("finding the outside of " + mesh.name, end);
    tree.builder->findOuterArea();
    sumUp(tree);
    tree.builder->condense();
    tree.seconds = watch.seconds();
    if (tree.enclosed.count == 0) {
        tree.closed = "no: it encloses no cell at this resolution";
    } else if (fillCameInside(mesh, tree)) {
        tree.closed = "no: the outside reaches the inside through a gap";
    } else {
        tree.closed = "yes";
    }
    return tree;
}
