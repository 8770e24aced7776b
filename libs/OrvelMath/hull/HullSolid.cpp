#include <OrvelMath/hull/ConvexHullBuilderC_p.h>
#include <OrvelMath/hull/HullHorizon_p.h>
#include <OrvelMath/hull/HullOutside_p.h>
#include <OrvelMath/hull/HullQueue_p.h>

#include <algorithm>

namespace {

/// Quickhull from a tetrahedron on: the furthest point of the face with the largest outside
/// distance sees part of the hull, and a fan from its horizon to the point takes the place of that
/// part.
class HullSolid
{
public:
    HullSolid(ConvexHullBuilderCPrivate &hull, HullPoints const &points)
        : m_hull(hull)
        , m_points(points)
        , m_outside(points)
    {
        m_fan.reserve(1000);
    }

    /// Builds from the four faces of the tetrahedron, the last ones of the hull.
    void build();
    /// True if a face that stays has lost an edge to a new one, as rounding may bring about.
    bool hasTornSurface() const { return m_torn; }

private:
    void waitForTetrahedron();
    HullFace *nextFace();
    void fetchAhead() const;
    void removeFaces(int eye);
    void makeFan(int eye);
    void distribute();

    ConvexHullBuilderCPrivate &m_hull;
    HullPoints const &m_points;
    HullOutside m_outside;
    HullHorizon m_horizon;
    HullQueue m_queue;
    HullVector<HullFace *> m_fan; ///< the newest faces
    bool m_torn = false;
};

void HullSolid::build()
{
    m_fan.assign(m_hull.faces.end() - 4, m_hull.faces.end());
    waitForTetrahedron();
    distribute();
    while (HullFace *const face = nextFace()) {
        int const eye = face->furthestPoint;
        removeFaces(eye);
        makeFan(eye);
        distribute();
    }
}

/// Lets all points but the four corners wait, in the order of their indices.
void HullSolid::waitForTetrahedron()
{
    int corners[12];
    for (std::size_t i = 0; i < 12; ++i) {
        corners[i] = m_fan[i / 3]->edges[i % 3]->tail;
    }
    std::sort(corners, corners + 12);
    int const *corner = corners;
    for (int i = 0; i < static_cast<int>(m_points.size()); ++i) {
        while (corner != corners + 12 && *corner < i) {
            ++corner;
        }
        if (corner == corners + 12 || *corner != i) {
            m_outside.append(i);
        }
    }
}

/// The next face to expand, with its horizon; null when no face has outside points.
HullFace *HullSolid::nextFace()
{
    while (HullFace *const face = m_queue.takeLargest()) {
        fetchAhead();
        // A horizon that doesn't close leaves the hull as it is.
        if (face->alive &&
            m_horizon.collect(face, m_points[static_cast<std::size_t>(face->furthestPoint)],
                              m_points)) {
            return face;
        }
    }
    return nullptr;
}

/// Fetches what the next faces need: they lie anywhere in the memory, each thing is found through
/// the one before, and waiting for them would take most of the time of a large hull.
void HullSolid::fetchAhead() const
{
    if (HullFace const *const face = m_queue.lookAhead(24)) {
        __builtin_prefetch(face);
        __builtin_prefetch(&face->normal);
    }
    if (HullFace const *const face = m_queue.lookAhead(18)) {
        __builtin_prefetch(&m_points[static_cast<std::size_t>(face->furthestPoint)]);
        for (HullEdge const *edge : face->edges) {
            __builtin_prefetch(edge);
        }
    }
    if (HullFace const *const face = m_queue.lookAhead(12)) {
        for (HullEdge const *edge : face->edges) {
            __builtin_prefetch(edge->twin);
        }
    }
    if (HullFace const *const face = m_queue.lookAhead(8)) {
        for (HullEdge const *edge : face->edges) {
            __builtin_prefetch(edge->twin->face);
            __builtin_prefetch(&edge->twin->face->corner);
        }
    }
    if (HullFace const *const face = m_queue.lookAhead(4)) {
        for (HullEdge const *edge : face->edges) {
            HullFace const *const neighbour = edge->twin->face;
            __builtin_prefetch(&m_points[static_cast<std::size_t>(neighbour->corner)]);
            for (HullEdge const *further : neighbour->edges) {
                __builtin_prefetch(further);
            }
        }
    }
    if (HullFace const *const face = m_queue.lookAhead(2)) {
        for (HullEdge const *edge : face->edges) {
            for (HullEdge const *further : edge->twin->face->edges) {
                __builtin_prefetch(further->twin);
            }
        }
    }
    if (HullFace const *const face = m_queue.lookAhead(0)) {
        for (HullEdge const *edge : face->edges) {
            for (HullEdge const *further : edge->twin->face->edges) {
                __builtin_prefetch(&further->twin->face->normal);
            }
        }
    }
}

/// Ends the life of the faces that the eye replaces and lets their outside points wait for the new
/// ones.
void HullSolid::removeFaces(int eye)
{
    for (HullFace *face : m_horizon.removedFaces()) {
        for (int index : qAsConst(face->outsidePoints)) {
            if (index != eye) {
                m_outside.append(index);
            }
        }
        face->alive = false;
        face->outsidePoints.clear();
    }
}

/// Makes a face from each edge of the horizon to the eye. The edge goes over to the new face and
/// keeps its twin: the neighbour beyond needs no change.
void HullSolid::makeFan(int eye)
{
    m_fan.clear();
    HullEdge *firstIn = nullptr;
    HullEdge *previousOut = nullptr;
    for (HullEdge *edge : m_horizon.edges()) {
        m_torn = m_torn || edge->face->alive;
        HullEdge *const out = makeHullEdge(edge->head, eye);
        HullEdge *const in = makeHullEdge(eye, edge->tail);
        m_fan.push_back(m_hull.makeFace(m_points, edge, out, in));
        if (previousOut) {
            joinTwins(in, previousOut);
        } else {
            firstIn = in;
        }
        previousOut = out;
    }
    joinTwins(firstIn, previousOut);
}

/// Distributes the waiting points among the newest faces and queues those that got some. Faces
/// without are never expanded: they would only leave the queue again.
void HullSolid::distribute()
{
    m_outside.distribute(m_fan);
    for (HullFace *face : m_fan) {
        if (face->furthestPoint >= 0) {
            m_queue.insert(face);
        }
    }
}

} // namespace

void ConvexHullBuilderCPrivate::buildSolid(HullPoints const &coordinates)
{
    HullSolid solid(*this, coordinates);
    solid.build();
    if (solid.hasTornSurface()) {
        claimEdges();
    }
}

/// Appends the indices of the vertices of all live faces, ascending.
void ConvexHullBuilderCPrivate::collectHullIndices()
{
    HullVector<char> isVertex(static_cast<std::size_t>(points.size()), 0);
    for (HullFace const *face : faces) {
        if (face->alive) {
            for (HullEdge const *edge : face->edges) {
                isVertex[static_cast<std::size_t>(edge->tail)] = 1;
            }
        }
    }
    for (int i = 0; i < points.size(); ++i) {
        if (isVertex[static_cast<std::size_t>(i)]) {
            hullIndices.append(i);
        }
    }
}
