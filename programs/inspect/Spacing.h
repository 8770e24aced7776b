#pragma once

/// @file
/// How close the vertices of a mesh lie together.

#include "Facts.h"
#include "Mesh.h"
#include "Progress.h"

#include <string>
#include <vector>

/// Distances from vertices to the nearest other one. Vertices at one place count as one.
struct Spacings
{
    std::vector<double> sorted; ///< ascending; empty where there is one place only
    std::size_t places = 0;     ///< how many places there are; `sorted` may be a sample of them
};

/// The spacing of every vertex, or of 50 000 vertices drawn at random (always the same ones) where
/// there are more than 200 000. Each is exact: the nearest of all others.
Spacings vertexSpacings(Mesh const &mesh, Progress &progress);

/// Smallest, median and largest spacing.
Facts spacingFacts(Spacings const &spacings);

/// How many vertices have which spacing: an SVG picture with logarithmic classes.
std::string spacingPicture(std::vector<double> const &sorted);

/// Three finite numbers "X,Y,Z". Throws UsageError for anything else.
Vector placeOf(std::string const &text);

/// The vertex nearest to `place`, "X,Y,Z", and its distance; nothing for an empty place.
Facts nearestFacts(Mesh const &mesh, std::string const &place);
