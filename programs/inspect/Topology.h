#pragma once

/// @file
/// How the triangles of a mesh hang together.

#include "Mesh.h"

#include <cstddef>
#include <string>

/// Counts over a mesh; an edge is a pair of vertices that a triangle joins.
struct Topology
{
    std::size_t usedVertices = 0; ///< vertices that belong to a triangle
    std::size_t edges = 0;
    std::size_t openEdges = 0;           ///< at one triangle only
    std::size_t nonManifoldEdges = 0;    ///< at more than two triangles
    std::size_t flippedEdges = 0;        ///< at two triangles that run along it in one direction
    std::size_t duplicateTriangles = 0;  ///< further triangles over the same three vertices
    std::size_t degenerateTriangles = 0; ///< with corners on a line, see `thinness`
    std::size_t components = 0;          ///< parts that share no vertex
    bool isClosed =
        false; ///< each edge is run along as often forwards as backwards, and there is one

    /// Vertices less edges plus triangles.
    long euler(Mesh const &mesh) const;
    /// Handles of all components together, -1 where the surface has none: open or not a manifold.
    long genus(Mesh const &mesh) const;
    /// "yes", or "no" and why.
    std::string closedText() const;
};

/// Cost: about that of sorting the triangles round each vertex.
Topology topologyOf(Mesh const &mesh);

/// The height of a triangle over its longest side divided by that side: 0.866 for equal sides, 0
/// for corners on a line. Below 1e-12 a triangle counts as degenerate.
double thinness(Corners const &triangle);
constexpr double degenerateThinness = 1e-12;
