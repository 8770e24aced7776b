#include <OrvelMath/hull/HullHorizon_p.h>

#include <OrvelMath/engine/CycleGuard_p.h>

namespace {

bool isVisible(HullEdge const *edge)
{
    return edge->twin->face->mark == HullFaceMark::Visible;
}

} // namespace

HullHorizon::HullHorizon()
{
    // Enough for nearly every step of a build, so that the lists don't grow during it.
    m_edges.reserve(1000);
    m_removed.reserve(1000);
}

bool HullHorizon::collect(HullFace *first, vectorC3d<double> const &eye, HullPoints const &points)
{
    m_edges.clear();
    m_removed.clear();
    m_hidden.clear();
    m_stack.clear();
    m_boundarySize = 0;
    m_isWhole = false;

    HullEdge *const start = findVisibleFaces(first, eye, points);
    bool const closed = start && walkBoundary(start);

    for (HullFace *face : m_removed) {
        face->mark = HullFaceMark::None;
    }
    for (HullFace *face : m_hidden) {
        if (face->mark == HullFaceMark::Hidden) {
            face->mark = HullFaceMark::None;
            if (closed) {
                m_removed.push_back(face);
            }
        }
    }
    return closed;
}

/// Depth-first search. Fills the seen faces and their unseen neighbours, both in the order in which
/// they are met, and returns the edge across which the plane lies highest above the eye.
HullEdge *HullHorizon::findVisibleFaces(HullFace *first, vectorC3d<double> const &eye,
                                        HullPoints const &points)
{
    HullEdge *start = nullptr;
    // A neighbour at this height or above never begins the walk. Where all are so high, the hull
    // is left as it is.
    double lowest = 100000.0;
    m_stack.push_back(first);
    while (!m_stack.empty()) {
        HullFace *const face = m_stack.back();
        m_stack.pop_back();
        if (face->mark == HullFaceMark::Visible) {
            continue;
        }
        face->mark = HullFaceMark::Visible;
        m_removed.push_back(face);
        for (HullEdge *edge : face->edges) {
            HullFace *const neighbour = edge->twin->face;
            // A second look at a face gives the same height, which is never below the lowest then.
            if (neighbour->mark == HullFaceMark::Seen) {
                m_stack.push_back(neighbour);
            } else if (neighbour->mark == HullFaceMark::Hidden) {
                ++m_boundarySize;
            }
            if (neighbour->mark != HullFaceMark::None) {
                continue;
            }
            double const height = neighbour->height(eye, points);
            if (height > -1e-8) { // a length: a face in the plane of the eye is replaced
                neighbour->mark = HullFaceMark::Seen;
                m_stack.push_back(neighbour);
            } else {
                neighbour->mark = HullFaceMark::Hidden;
                ++m_boundarySize;
                m_hidden.push_back(neighbour);
            }
            if (height < lowest) {
                lowest = height;
                start = edge;
            }
        }
    }
    return start;
}

/// Fills the horizon from `start` on; faces beyond it lose their mark. False if the walk never
/// comes back to the start.
bool HullHorizon::walkBoundary(HullEdge *start)
{
    engine::CycleGuard<HullEdge const *> horizon;
    bool leadsOut = true;
    HullEdge *edge = start;
    do {
        HullFace *const beyond = edge->twin->face;
        leadsOut = leadsOut && beyond->mark != HullFaceMark::Visible;
        if (beyond->mark == HullFaceMark::Hidden) {
            beyond->mark = HullFaceMark::None;
        }
        m_edges.push_back(edge);

        edge = edge->next;
        HullEdge *const anchor = edge;
        engine::CycleGuard<HullEdge const *> fan;
        while (isVisible(edge)) {
            edge = edge->twin->next;
            if (edge == anchor) {
                break;
            }
            if (fan.comesAgain(edge)) {
                return false;
            }
        }
        if (edge != start && horizon.comesAgain(edge)) {
            return false;
        }
    } while (edge != start);
    // Then the walk has taken every edge of the boundary: from edge to edge it goes by a way that
    // can be gone back, so it meets none of them twice before it comes back to the start.
    m_isWhole = leadsOut && m_edges.size() == m_boundarySize;
    return true;
}
