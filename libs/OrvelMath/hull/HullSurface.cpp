#include <OrvelMath/hull/HullSurface_p.h>

#include <OrvelCore/runtime/QtAllocation.h>

#include <memory>
#include <new>

namespace {

void freeFace(HullFace *face)
{
    face->~HullFace();
    orvelFree(face);
}

void freeEdge(HullEdge *edge)
{
    orvelFree(edge); // a plain record
}

struct FreeFace
{
    void operator()(HullFace *face) const { freeFace(face); }
};
struct FreeEdge
{
    void operator()(HullEdge *edge) const { freeEdge(edge); }
};
using FaceGuard = std::unique_ptr<HullFace, FreeFace>;
using EdgeGuard = std::unique_ptr<HullEdge, FreeEdge>;

/// Frees the face and the edges that it still owns.
void destroyFace(HullFace *face)
{
    for (HullEdge *edge : face->edges) {
        if (edge->face == face) {
            freeEdge(edge);
        }
    }
    freeFace(face);
}

/// Fetches the faces that are destroyed next and their edges: they lie anywhere in the memory.
void fetchAhead(HullVector<HullFace *> const &faces, std::size_t current)
{
    if (current + 24 < faces.size()) {
        __builtin_prefetch(faces[current + 24]);
        __builtin_prefetch(&faces[current + 24]->alive);
    }
    if (current + 16 < faces.size()) {
        for (HullEdge const *edge : faces[current + 16]->edges) {
            __builtin_prefetch(edge);
        }
    }
}

} // namespace

/// A face that is not part of the surface yet.
HullFace *HullSurface::takeFace()
{
    if (!m_spareFaces) {
        return new (orvelAllocate(sizeof(HullFace))) HullFace;
    }
    HullFace *const face = m_spareFaces;
    m_spareFaces = face->nextSpare;
    *face = HullFace();
    return face;
}

/// An edge that is not part of a face yet.
HullEdge *HullSurface::takeEdge()
{
    if (!m_spareEdges) {
        return new (orvelAllocate(sizeof(HullEdge))) HullEdge{};
    }
    HullEdge *const edge = m_spareEdges;
    m_spareEdges = edge->next;
    *edge = {};
    return edge;
}

HullFace *HullSurface::makeTriangle(HullPoints const &points, int a, int b, int c)
{
    EdgeGuard first(takeEdge());
    EdgeGuard second(takeEdge());
    EdgeGuard third(takeEdge());
    first->tail = third->head = a;
    second->tail = first->head = b;
    third->tail = second->head = c;
    HullFace *const face = appendFace(points, first.get(), second.get(), third.get());
    // The face owns them now.
    static_cast<void>(first.release());
    static_cast<void>(second.release());
    static_cast<void>(third.release());
    return face;
}

HullFace *HullSurface::makeFanTriangle(HullPoints const &points, HullEdge *base, int apex)
{
    EdgeGuard out(takeEdge());
    EdgeGuard in(takeEdge());
    out->tail = base->head;
    out->head = in->tail = apex;
    in->head = base->tail;
    HullFace *const face = appendFace(points, base, out.get(), in.get());
    // The face owns them now.
    static_cast<void>(out.release());
    static_cast<void>(in.release());
    return face;
}

/// Appends the face bounded by the three edges, in this order. It takes them over once nothing can
/// fail any more.
HullFace *HullSurface::appendFace(HullPoints const &points, HullEdge *first, HullEdge *second,
                                  HullEdge *third)
{
    Q_ASSERT(first->head == second->tail && second->head == third->tail &&
             third->head == first->tail);
    FaceGuard guard(takeFace());
    m_faces.push_back(guard.get());
    HullFace *const face = guard.release();
    HullEdge *const edges[3] = {first, second, third};
    for (int i = 0; i < 3; ++i) {
        face->edges[i] = edges[i];
        edges[i]->face = face;
        edges[i]->next = edges[(i + 1) % 3];
        edges[i]->prev = edges[(i + 2) % 3];
    }
    face->normal = triangleNormal(pointAt(points, first->tail), pointAt(points, second->tail),
                                  pointAt(points, third->tail));
    face->corner = first->tail;
    face->number = static_cast<unsigned>(m_faces.size() - 1);
    return face;
}

void HullSurface::recycle(HullFace *face)
{
    Q_ASSERT(!face->alive && face->outsidePoints.isEmpty() && m_faces[face->number] == face);
    m_faces[face->number] = nullptr;
    for (HullEdge *edge : face->edges) {
        if (edge->face == face) {
            edge->next = m_spareEdges;
            m_spareEdges = edge;
        }
    }
    face->nextSpare = m_spareFaces;
    m_spareFaces = face;
}

/// Gives each live face the edges that it is made of. Only on a torn surface can it happen that an
/// edge of a face that stays names one that goes.
void HullSurface::claimEdges()
{
    for (HullFace *face : m_faces) {
        if (face && face->alive) {
            for (HullEdge *edge : face->edges) {
                edge->face = face;
            }
        }
    }
}

void HullSurface::removeReplaced(std::size_t first)
{
    freeSpares();
    claimEdges();
    std::size_t kept = first;
    for (std::size_t i = first; i < m_faces.size(); ++i) {
        HullFace *const face = m_faces[i];
        if (face && face->alive) {
            m_faces[kept++] = face;
        } else if (face) {
            destroyFace(face);
        }
    }
    m_faces.resize(kept);
}

/// An edge names the last face that took it over, and all others that know it are older. So none of
/// them looks at an edge that is gone.
void HullSurface::clear()
{
    for (std::size_t i = 0; i < m_faces.size(); ++i) {
        fetchAhead(m_faces, i);
        if (m_faces[i]) {
            destroyFace(m_faces[i]);
        }
    }
    m_faces.clear();
    freeSpares();
}

void HullSurface::freeSpares()
{
    while (m_spareFaces) {
        HullFace *const face = m_spareFaces;
        m_spareFaces = face->nextSpare;
        freeFace(face);
    }
    while (m_spareEdges) {
        HullEdge *const edge = m_spareEdges;
        m_spareEdges = edge->next;
        freeEdge(edge);
    }
}
