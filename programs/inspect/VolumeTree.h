#pragma once

/// @file
/// The tree of a mesh's volume.

#include "Mesh.h"
#include "Progress.h"

#include <OrvelMath/volume/BinTreeBuilder.h>

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// The smallest box around some meshes.
Box boxAround(std::vector<Mesh const *> const &meshes);

/// The cube in which trees of what lies in `content` are built: about its middle, with two cells of
/// margin, so that the fill begins outside. Its cells have edges from `resolution` up to below
/// twice that.
///
/// Throws UsageError when `resolution` is no positive number, so coarse that no tree can be built
/// (the library's constructor would not return), or finer than the coordinates.
Box cubeFor(Box const &content, double resolution);

/// What one kind of cell amounts to.
struct CellSum
{
    std::size_t count = 0;
    double volume = 0.0;
};

/// A mesh's tree, filled and condensed, and what was found on the way.
struct VolumeTree
{
    std::unique_ptr<VolumeComparison::BinTreeBuilder> builder;
    CellSum outer; ///< cells before condensing, here and in the next two
    CellSum surface;
    CellSum enclosed;
    std::size_t nodes = 0; ///< before condensing
    double seconds = 0.0;
    std::string closed; ///< "yes", or "no" and why
};

/// Builds the tree of a mesh in `cube`. Takes the bar's stages up to `end`.
///
/// Throws UsageError when the tree would need more memory than the machine has.
VolumeTree treeOf(Mesh const &mesh, Box const &cube, Box const &content, double resolution,
                  Progress &progress, double end);
