#pragma once

/// @file
/// What the page's view in space shows, as data for the page and as a still picture.

#include "Mesh.h"

#include <QtCore/QByteArray>

#include <string>
#include <vector>

/// A part of the view that can be switched on and off.
struct ViewPart
{
    /// How it is drawn.
    enum class Style { surface, wire, lines, points };

    std::string name;
    Style style = Style::surface;
    std::string colour; ///< "#rrggbb"
    std::vector<Vector> vertices;
    std::vector<std::array<int, 3>> triangles; ///< of a surface or a wire frame
    std::vector<std::array<int, 2>> lines;
    bool isOn = true;
};

/// Parts over the extents of a mesh, in whose axis `up` points up.
struct View
{
    Vector lowest;
    Vector highest;
    int up = 2;
    std::string unit;
    std::vector<ViewPart> parts;
};

/// A mesh with at most about `most` triangles that keeps the shape of `part`, by clustering
/// vertices (meshoptimizer); `part` itself when it is small enough. Points are thinned out evenly.
ViewPart decimated(ViewPart const &part, std::size_t most);

/// The argument of reportView.js: JSON with coordinates of single precision in base64.
QByteArray viewJson(View const &view);

/// The surfaces of the view from a corner, as inline SVG; hidden sides are hidden, far triangles
/// first.
std::string stillPicture(View const &view);

/// The edges of a box, as lines between its corners: bit k of a corner's index is its side on
/// axis k.
std::vector<std::array<int, 2>> boxEdges();
