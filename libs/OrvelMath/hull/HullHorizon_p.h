#pragma once

#include <OrvelMath/hull/HullFace_p.h>

/// The edge of what can be seen of the hull from a point outside of it.
class HullHorizon
{
public:
    HullHorizon();

    /// Searches the faces seen from `eye`, beginning with `first`, and walks along their boundary.
    ///
    /// Returns false if the boundary doesn't close, which only faces without a normal can bring
    /// about; then the results mean nothing.
    bool collect(HullFace *first, vectorC3d<double> const &eye, HullPoints const &points);

    /// The horizon, in order around the eye; each edge belongs to a seen face.
    HullVector<HullEdge *> const &edges() const { return m_edges; }
    /// The seen faces, then the unseen neighbours that the walk never met.
    HullVector<HullFace *> const &removedFaces() const { return m_removed; }

private:
    HullEdge *findVisibleFaces(HullFace *first, vectorC3d<double> const &eye,
                               HullPoints const &points);
    bool walkBoundary(HullEdge *start);

    HullVector<HullEdge *> m_edges;
    HullVector<HullFace *> m_removed;
    HullVector<HullFace *> m_hidden;
    HullVector<HullFace *> m_stack;
};
