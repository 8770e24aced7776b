#pragma once

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

/// Three slices across the middle of `content`, normal to x, y and z, as inline SVG with a legend.
/// Cells that a slice does not cross are left out.
std::string slicePictures(std::vector<SliceCell> const &cells, std::vector<SliceKind> const &kinds,
                          Box const &content);
