#pragma once

/// @file
/// What can be seen of a hull from a point outside of it.

#include <OrvelMath/hull/HullFace_p.h>

#include <cstddef>

/// The faces that can be seen from a point, the eye, and the closed line of edges around them.
class HullHorizon
{
public:
    HullHorizon();

    /// Searches the faces seen from `eye`, beginning with `first`, and walks along their boundary.
    ///
    /// A point must lie more than 1e-8 above a face to be outside of it, but a face counts as seen
    /// from a point less than 1e-8 below its plane: faces in the plane of the eye are replaced.
    ///
    /// @return false if the boundary doesn't close, which only rounding beyond the tolerance or
    ///         faces without a normal can bring about; then the results mean nothing
    bool collect(HullFace *first, vectorC3d<double> const &eye, HullPoints const &points);

    /// The horizon, in order around the eye; each edge belongs to a seen face.
    HullVector<HullEdge *> const &edges() const { return m_edges; }
    /// The seen faces, then the unseen neighbours that the walk never met.
    HullVector<HullFace *> const &removedFaces() const { return m_removed; }

    /// True if the horizon is the whole boundary of the seen faces. Then nothing else leads to
    /// them, and there is no neighbour that the walk never met.
    bool isWholeBoundary() const { return m_isWhole; }

private:
    HullEdge *findVisibleFaces(HullFace *first, vectorC3d<double> const &eye,
                               HullPoints const &points);
    bool walkBoundary(HullEdge *start);

    HullVector<HullEdge *> m_edges;
    HullVector<HullFace *> m_removed;
    HullVector<HullFace *> m_hidden;
    HullVector<HullFace *> m_stack;
    std::size_t m_boundarySize = 0; ///< edges of seen faces to unseen ones
    bool m_isWhole = false;
};
