#pragma once

/// @file
/// The faces and edges of a hull in space.

#include <OrvelMath/hull/HullFace_p.h>

#include <QtCore/qglobal.h>

#include <cstddef>

/// Owns faces and edges, each of which is allocated by itself.
///
/// A face owns those of its edges that still name it as theirs. A face that is made on an edge of
/// another one takes this edge over; then the edge outlives the other face. Faces keep the order in
/// which they were made. If memory runs out while a face is made, the surface stays as it was.
class HullSurface
{
public:
    HullSurface() = default;
    ~HullSurface() { clear(); }

    /// Number of places. All of them hold a live face, except during a build.
    std::size_t size() const { return m_faces.size(); }
    /// The face at a place, which must hold one.
    HullFace const &operator[](std::size_t place) const { return *m_faces[place]; }

    /// The face that was made as number `number`; null if it has been replaced.
    HullFace *liveFace(unsigned number) const
    {
        HullFace *const face = m_faces[number];
        return face && face->alive ? face : nullptr;
    }

    /// What lies at a place, live or not; null after a recycled face.
    HullFace const *place(unsigned number) const { return m_faces[number]; }

    /// Appends the face `a`, `b`, `c` on three new edges without twins.
    HullFace *makeTriangle(HullPoints const &points, int a, int b, int c);

    /// Appends the face from `base` to `apex`: it takes over the edge `base`, which keeps its twin,
    /// and gets two new edges without twins.
    HullFace *makeFanTriangle(HullPoints const &points, HullEdge *base, int apex);

    /// Gives back the place, the memory and the edges of a replaced face for the next ones. Nothing
    /// that is alive may lead to it, by a twin or otherwise.
    void recycle(HullFace *face);

    /// Destroys the replaced faces from the place `first` on; the others keep their order.
    void removeReplaced(std::size_t first);

    /// Destroys all faces and edges.
    void clear();

private:
    Q_DISABLE_COPY(HullSurface)

    HullFace *takeFace();
    HullEdge *takeEdge();
    HullFace *appendFace(HullPoints const &points, HullEdge *first, HullEdge *second,
                         HullEdge *third);
    void claimEdges();
    void freeSpares();

    HullVector<HullFace *> m_faces;   ///< in order of creation; null after a recycled face
    HullFace *m_spareFaces = nullptr; ///< chained by `nextSpare`
    HullEdge *m_spareEdges = nullptr; ///< chained by `next`
};
