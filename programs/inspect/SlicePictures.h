#pragma once

/// @file
/// Slices through trees of cells as pictures.

#include "VolumeTree.h"

#include <string>
#include <vector>

/// A cell to be drawn, in the colour of its kind.
struct SliceCell
{
    Box bounds;
    int kind; ///< index into the kinds' names and colours
};

/// A kind of cell in the legend.
struct SliceKind
{
    std::string name;
    std::string colour;
};

/// Three slices across `content`, normal to its axes and with `up` upwards, as inline SVG with a
/// legend. Each lies where most cells that don't belong to the most frequent kind are crossed, the
/// one nearest to the middle among equals. Cells that a slice does not cross are left out.
std::string slicePictures(std::vector<SliceCell> const &cells, std::vector<SliceKind> const &kinds,
                          Box const &content, int up);

/// The same slices side by side as an SVG document.
std::string sliceDocument(std::vector<SliceCell> const &cells, std::vector<SliceKind> const &kinds,
                          Box const &content, int up);
