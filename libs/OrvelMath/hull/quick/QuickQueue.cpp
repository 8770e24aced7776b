#include <OrvelMath/hull/quick/QuickQueue_p.h>

#include <algorithm>

namespace {

/// Fetches something that the expansion of a face needs and that was found through what the stage
/// before has fetched.
struct FetchStage
{
    std::size_t steps; ///< how many faces before its turn
    void (*fetch)(HullFace const &face, HullPoints const &points);
};

void fetchFace(HullFace const &face, HullPoints const &)
{
    __builtin_prefetch(&face);
    __builtin_prefetch(&face.normal);
}

void fetchEdges(HullFace const &face, HullPoints const &points)
{
    __builtin_prefetch(&pointAt(points, face.furthestPoint));
    for (HullEdge const *edge : face.edges) {
        __builtin_prefetch(edge);
    }
}

void fetchTwins(HullFace const &face, HullPoints const &)
{
    for (HullEdge const *edge : face.edges) {
        __builtin_prefetch(edge->twin);
    }
}

void fetchNeighbours(HullFace const &face, HullPoints const &)
{
    for (HullEdge const *edge : face.edges) {
        __builtin_prefetch(edge->twin->face);
        __builtin_prefetch(&edge->twin->face->normal);
    }
}

void fetchEdgesOfNeighbours(HullFace const &face, HullPoints const &points)
{
    for (HullEdge const *edge : face.edges) {
        HullFace const &neighbour = *edge->twin->face;
        __builtin_prefetch(&pointAt(points, neighbour.corner));
        for (HullEdge const *further : neighbour.edges) {
            __builtin_prefetch(further);
        }
    }
}

constexpr FetchStage fetchStages[] = {{24, fetchFace},
                                      {18, fetchEdges},
                                      {12, fetchTwins},
                                      {8, fetchNeighbours},
                                      {4, fetchEdgesOfNeighbours}};

} // namespace

void QuickQueue::insert(HullFace const &face)
{
    if (face.furthestPoint < 0) {
        return;
    }
    Entry const entry{face.furthestDistance, face.number};
    if (entry.distance >= m_floor) {
        m_late.push_back(entry);
        std::push_heap(m_late.begin(), m_late.end());
    } else {
        m_rest.push_back(entry);
    }
}

bool QuickQueue::takeLargest(unsigned &number)
{
    if (m_front.empty() && m_late.empty()) {
        sortNextFront();
        if (m_front.empty()) {
            return false;
        }
    }
    Entry const taken = largest();
    // Equal keys are all here: the rest lies below the floor.
    do {
        removeLargest();
    } while (!(m_front.empty() && m_late.empty()) && largest().distance == taken.distance);
    fetchAhead();
    number = taken.number;
    return true;
}

void QuickQueue::removeLargest()
{
    if (largestIsLate()) {
        std::pop_heap(m_late.begin(), m_late.end());
        m_late.pop_back();
    } else {
        m_front.pop_back();
    }
}

/// Moves the largest eighth of the rest to the front, with all that equal the smallest of them.
void QuickQueue::sortNextFront()
{
    if (m_rest.empty()) {
        return;
    }
    auto const largerKey = [](Entry const &a, Entry const &b) { return a.distance > b.distance; };
    auto const last = m_rest.begin() + static_cast<std::ptrdiff_t>(m_rest.size() / 8);
    std::nth_element(m_rest.begin(), last, m_rest.end(), largerKey);
    m_floor = last->distance;
    auto const begin = std::partition(m_rest.begin(), m_rest.end(), [this](Entry const &entry) {
        return entry.distance < m_floor;
    });
    m_front.assign(begin, m_rest.end());
    m_rest.erase(begin, m_rest.end());
    std::sort(m_front.begin(), m_front.end());
}

/// What the face that comes `steps` after the next one needs, as far as it is known now: the faces
/// lie anywhere in the memory, each thing is found through the one before, and waiting for them
/// would take most of the time of a large hull.
void QuickQueue::fetchAhead() const
{
    for (FetchStage const &stage : fetchStages) {
        if (stage.steps < m_front.size()) {
            HullFace const *const face =
                m_surface.place(m_front[m_front.size() - 1 - stage.steps].number);
            if (face) {
                stage.fetch(*face, m_points);
            }
        }
    }
}
