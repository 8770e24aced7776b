#include <OrvelMath/hull/ConvexHullBuilderC_p.h>

#include <OrvelCore/runtime/qtAllocation.h>

#include <new>

namespace {

/// Fetches the face after the next ones and its edges: they lie anywhere in the memory.
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

void freeFace(HullFace *face)
{
    face->~HullFace();
    orvelFree(face);
}

/// Frees the face and the edges that it still owns.
void destroyFace(HullFace *face)
{
    for (HullEdge *edge : face->edges) {
        if (edge->face == face) {
            orvelFree(edge);
        }
    }
    freeFace(face);
}

} // namespace

HullEdge *makeHullEdge(int tail, int head)
{
    return new (orvelAllocate(sizeof(HullEdge)))
        HullEdge{nullptr, nullptr, tail, head, nullptr, nullptr};
}

HullFace *ConvexHullBuilderCPrivate::makeFace(HullPoints const &coordinates, HullEdge *first,
                                              HullEdge *second, HullEdge *third)
{
    HullFace *const face = new (orvelAllocate(sizeof(HullFace))) HullFace;
    HullEdge *const edges[3] = {first, second, third};
    for (int i = 0; i < 3; ++i) {
        face->edges[i] = edges[i];
        edges[i]->face = face;
        edges[i]->next = edges[(i + 1) % 3];
        edges[i]->prev = edges[(i + 2) % 3];
    }
    auto const at = [&](int index) { return coordinates[static_cast<std::size_t>(index)]; };
    vectorC3d<double> const along = at(first->head) - at(first->tail);
    face->normal = hullUnit(along.cross(at(second->head) - at(second->tail)));
    face->corner = first->tail;
    face->number = static_cast<unsigned>(faces.size());
    faces.push_back(face);
    return face;
}

/// Gives each live face the edges that it is made of. Only on a torn surface can it happen that an
/// edge of a face that stays names one that goes.
void ConvexHullBuilderCPrivate::claimEdges()
{
    for (HullFace *face : faces) {
        if (face->alive) {
            for (HullEdge *edge : face->edges) {
                edge->face = face;
            }
        }
    }
}

/// Destroys the replaced faces with the edges that they own; the others keep their order.
///
/// Each edge is freed where it was made, not where it went: so memory is given back in the order of
/// its addresses, which spares the allocator much time. The first four faces from `firstFace` on
/// made all their edges, those of a fan their second and third.
void ConvexHullBuilderCPrivate::removeDeadFaces(std::size_t firstFace)
{
    for (std::size_t i = firstFace; i < faces.size(); ++i) {
        fetchAhead(faces, i);
        if (faces[i]->alive) {
            continue;
        }
        for (std::size_t k = i < firstFace + 4 ? 0 : 1; k < 3; ++k) {
            HullEdge *const edge = faces[i]->edges[k];
            if (!edge->face->alive) {
                orvelFree(edge);
            }
        }
    }
    std::size_t kept = firstFace;
    for (std::size_t i = firstFace; i < faces.size(); ++i) {
        HullFace *const face = faces[i];
        if (face->alive) {
            faces[kept++] = face;
        } else {
            freeFace(face);
        }
    }
    faces.resize(kept);
}

void ConvexHullBuilderCPrivate::destroyFaces()
{
    for (std::size_t i = 0; i < faces.size(); ++i) {
        fetchAhead(faces, i);
        destroyFace(faces[i]);
    }
    faces.clear();
}
