#include <OrvelMath/hull/HullSolid_p.h>

#include <OrvelMath/hull/HullHorizon_p.h>
#include <OrvelMath/hull/HullOutside_p.h>
#include <OrvelMath/hull/HullQueue_p.h>
#include <OrvelMath/hull/quick/QuickOutside_p.h>
#include <OrvelMath/hull/quick/QuickQueue_p.h>

#include <algorithm>

namespace {

/// Quickhull from a tetrahedron on: the furthest point of the face with the largest outside
/// distance sees part of the hull, and a fan from its horizon to the point takes the place of that
/// part.
template <typename Queue, typename Outside>
class Quickhull
{
public:
    Quickhull(HullSurface &surface, HullPoints const &points)
        : m_surface(surface)
        , m_points(points)
        , m_outside(points)
        , m_queue(surface, points)
    {
        m_fan.reserve(1000); // enough for nearly every horizon
    }

    void build();

private:
    void waitForTetrahedron();
    HullFace *nextFace();
    void removeFaces(int eye);
    void makeFan(int eye);
    void recycleFaces();
    void distribute();

    HullSurface &m_surface;
    HullPoints const &m_points;
    Outside m_outside;
    HullHorizon m_horizon;
    Queue m_queue;
    HullVector<HullFace *> m_fan; ///< the newest faces
    bool m_isIntact = true;       ///< nothing that is alive leads to a replaced face
};

template <typename Queue, typename Outside>
void Quickhull<Queue, Outside>::build()
{
    std::size_t const first = m_surface.size() - 4;
    for (std::size_t i = first; i < first + 4; ++i) {
        m_fan.push_back(m_surface.liveFace(static_cast<unsigned>(i)));
    }
    waitForTetrahedron();
    distribute();
    while (HullFace *const face = nextFace()) {
        int const eye = face->furthestPoint;
        removeFaces(eye);
        makeFan(eye);
        recycleFaces();
        distribute();
    }
}

/// Lets all points but the four corners wait, in the order of their indices.
template <typename Queue, typename Outside>
void Quickhull<Queue, Outside>::waitForTetrahedron()
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
template <typename Queue, typename Outside>
HullFace *Quickhull<Queue, Outside>::nextFace()
{
    unsigned number;
    while (m_queue.takeLargest(number)) {
        HullFace *const face = m_surface.liveFace(number);
        // A horizon that doesn't close leaves the hull as it is.
        if (face && face->furthestPoint >= 0 &&
            m_horizon.collect(face, pointAt(m_points, face->furthestPoint), m_points)) {
            return face;
        }
    }
    return nullptr;
}

/// Ends the life of the faces that the eye replaces and lets their outside points wait for the new
/// ones.
template <typename Queue, typename Outside>
void Quickhull<Queue, Outside>::removeFaces(int eye)
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
template <typename Queue, typename Outside>
void Quickhull<Queue, Outside>::makeFan(int eye)
{
    Q_ASSERT(!m_horizon.edges().empty());
    m_fan.clear();
    for (HullEdge *edge : m_horizon.edges()) {
        Q_ASSERT(!m_isIntact || (!edge->face->alive && edge->twin->twin == edge));
        m_fan.push_back(m_surface.makeFanTriangle(m_points, edge, eye));
    }
    HullFace const *previous = m_fan.back();
    for (HullFace const *face : m_fan) {
        joinTwins(face->edges[2], previous->edges[1]);
        previous = face;
    }
}

/// Gives the replaced faces back, as long as nothing that is alive leads to them. A horizon that is
/// the whole boundary of the seen faces cuts them off from the rest.
template <typename Queue, typename Outside>
void Quickhull<Queue, Outside>::recycleFaces()
{
    m_isIntact = m_isIntact && m_horizon.isWholeBoundary();
    if (m_isIntact) {
        for (HullFace *face : m_horizon.removedFaces()) {
            m_surface.recycle(face);
        }
    }
}

/// Distributes the waiting points among the newest faces and queues these.
template <typename Queue, typename Outside>
void Quickhull<Queue, Outside>::distribute()
{
    m_outside.distribute(m_fan);
    for (HullFace const *face : m_fan) {
        m_queue.insert(*face);
    }
}

} // namespace

void buildSolid(HullSurface &surface, HullPoints const &points, HullWay way)
{
    if (way == HullWay::Quick) {
        Quickhull<QuickQueue, QuickOutside>(surface, points).build();
    } else {
        Quickhull<HullQueue, HullOutside>(surface, points).build();
    }
}
