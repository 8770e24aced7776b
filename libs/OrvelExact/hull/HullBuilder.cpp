#include <OrvelExact/hull/HullBuilder_p.h>

#include <OrvelExact/hull/HullClaims_p.h>

#include <algorithm>
#include <utility>

namespace orvelExact {

namespace {

constexpr int next(int i)
{
    return i == 2 ? 0 : i + 1;
}

/// The extreme points along the axes, and for larger sets those along the diagonals of the box
/// among the first points: a hull of these holds most points of a ball or a cube, which then are
/// dropped at the first look. Of equal points the first is taken, as it is the first of all.
std::vector<int> startPoints(WorkPoints const &points)
{
    constexpr int worthDiagonals = 1000;
    std::vector<int> result(points.extremes().begin(), points.extremes().end());
    if (points.count() < worthDiagonals) {
        return result;
    }
    int diagonal[8] = {};
    double farthest[8];
    std::fill_n(farthest, 8, -4.0); // below all sums
    for (int i = 0; i < std::max(worthDiagonals, points.count() / 8); ++i) {
        Point3 const p = points.rounded(i);
        double const sums[4] = {p.x() + p.y() + p.z(), p.x() + p.y() - p.z(), p.x() - p.y() + p.z(),
                                p.x() - p.y() - p.z()};
        for (int k = 0; k < 4; ++k) {
            if (sums[k] > farthest[k]) {
                farthest[k] = sums[k];
                diagonal[k] = i;
            }
            if (-sums[k] > farthest[k + 4]) {
                farthest[k + 4] = -sums[k];
                diagonal[k + 4] = i;
            }
        }
    }
    result.insert(result.end(), diagonal, diagonal + 8);
    return result;
}

} // namespace

HullBuilder::~HullBuilder()
{
    for (HullFacet &facet : m_mesh.facets) {
        m_pool.give(facet.outside, facet.outsideCount);
    }
}

void HullBuilder::build(int const (&simplex)[4])
{
    makeSimplex(simplex);
    addExtremes();
    handOutAll();
    while (!m_waiting.empty()) {
        int const facet = m_waiting.back();
        m_waiting.pop_back();
        if (m_mesh[facet].isAlive && m_mesh[facet].outsideCount > 0) {
            expand(facet);
        }
    }
}

void HullBuilder::makeSimplex(int const (&simplex)[4])
{
    int corner[4] = {simplex[0], simplex[1], simplex[2], simplex[3]};
    Sign const side = orientation3d(m_points.exact(corner[0]), m_points.exact(corner[1]),
                                    m_points.exact(corner[2]), m_points.exact(corner[3]));
    if (side == Sign::Positive) {
        std::swap(corner[0], corner[1]); // the fourth lies below the first three
    }
    constexpr int cornersOf[4][3] = {{0, 1, 2}, {1, 0, 3}, {2, 1, 3}, {0, 2, 3}};
    constexpr int neighborsOf[4][3] = {{1, 2, 3}, {0, 3, 2}, {0, 1, 3}, {0, 2, 1}};
    m_newFacets.clear();
    m_newPlanes.clear();
    for (int f = 0; f < 4; ++f) {
        int const place = m_mesh.add();
        HullFacet &facet = m_mesh[place];
        for (int i = 0; i < 3; ++i) {
            facet.corner[i] = corner[cornersOf[f][i]];
            facet.neighbor[i] = neighborsOf[f][i];
        }
        facet.plane =
            HullPlane(m_points.rounded(facet.corner[0]), m_points.rounded(facet.corner[1]),
                      m_points.rounded(facet.corner[2]), m_points.isExact());
        m_newFacets.push_back(place);
        m_newPlanes.push_back(facet.plane);
    }
}

/// Adds what the simplex leaves of the start points; afterwards the new facets are all that there
/// are.
void HullBuilder::addExtremes()
{
    for (int const point : startPoints(m_points)) {
        Point3 const position = m_points.rounded(point);
        for (int place = 0; place < static_cast<int>(m_mesh.facets.size()); ++place) {
            HullFacet const &facet = m_mesh[place];
            if (facet.isAlive && isAbove(facet, facet.plane.height(position), point)) {
                findHorizon(place, position, point);
                makeCone(point);
                for (int const old : m_visible) {
                    m_mesh.remove(old);
                }
                break;
            }
        }
    }
    m_newFacets.clear();
    m_newPlanes.clear();
    for (int place = 0; place < static_cast<int>(m_mesh.facets.size()); ++place) {
        if (m_mesh[place].isAlive) {
            m_newFacets.push_back(place);
            m_newPlanes.push_back(m_mesh[place].plane);
        }
    }
}

/// Hands the points to the first facets, block by block, so that none is copied that lies inside.
void HullBuilder::handOutAll()
{
    constexpr int blockSize = 1024;
    std::vector<OutsidePoint> block(blockSize);
    std::vector<short> claimants(static_cast<std::size_t>(m_points.count()));
    m_highest.assign(m_newFacets.size(), 0.0);
    for (int first = 0; first < m_points.count(); first += blockSize) {
        int const count = std::min(blockSize, m_points.count() - first);
        for (int i = 0; i < count; ++i) {
            block[static_cast<std::size_t>(i)] = {m_points.rounded(first + i), first + i};
        }
        m_claimants.clear();
        m_heights.clear();
        claim(block.data(), count);
        for (int i = 0; i < count; ++i) {
            int const slot = m_claimants[static_cast<std::size_t>(i)];
            claimants[static_cast<std::size_t>(first) + static_cast<std::size_t>(i)] =
                static_cast<short>(slot);
            if (slot >= 0) {
                noteHeight(slot, m_heights[static_cast<std::size_t>(i)]);
            }
        }
    }
    takeArrays();
    for (int i = 0; i < m_points.count(); ++i) {
        int const slot = claimants[static_cast<std::size_t>(i)];
        if (slot >= 0) {
            HullFacet &facet = m_mesh[m_newFacets[static_cast<std::size_t>(slot)]];
            facet.outside[facet.outsideCount++] = {m_points.rounded(i), i};
        }
    }
    queueNewFacets();
}

/// Counts one more point for the new facet, and keeps which was the first of the highest.
void HullBuilder::noteHeight(int slot, double height)
{
    std::size_t const s = static_cast<std::size_t>(slot);
    HullFacet &facet = m_mesh[m_newFacets[s]];
    if (facet.outsideCount == 0 || height > m_highest[s]) {
        m_highest[s] = height;
        facet.farthest = facet.outsideCount;
    }
    ++facet.outsideCount;
}

/// Arrays for as many points as were counted; then the count begins again.
void HullBuilder::takeArrays()
{
    for (int const place : m_newFacets) {
        HullFacet &facet = m_mesh[place];
        facet.outside = m_pool.take(facet.outsideCount);
        facet.outsideCount = 0;
    }
}

void HullBuilder::queueNewFacets()
{
    for (int const facet : m_newFacets) {
        if (m_mesh[facet].outsideCount > 0) {
            m_waiting.push_back(facet);
        }
    }
}

/// Adds the farthest of the facet's outside points to the hull.
void HullBuilder::expand(int facet)
{
    OutsidePoint const apex = m_mesh[facet].outside[m_mesh[facet].farthest];
    findHorizon(facet, apex.position, apex.index);
    m_apex = apex.index;
    makeCone(apex.index);
    handOver();
    queueNewFacets();
}

bool HullBuilder::isAbove(HullFacet const &facet, double height, int index) const
{
    if (height > facet.plane.maxError) {
        return true;
    }
    if (height < -facet.plane.maxError || m_points.isExact()) {
        return false;
    }
    return orientation3d(m_points.exact(facet.corner[0]), m_points.exact(facet.corner[1]),
                         m_points.exact(facet.corner[2]), m_points.exact(index)) == Sign::Positive;
}

bool HullBuilder::sees(int facet, Point3 const &position, int index)
{
    HullFacet &seen = m_mesh[facet];
    if (seen.seenAt != m_step) {
        seen.seenAt = m_step;
        seen.isVisible = isAbove(seen, seen.plane.height(position), index);
        if (seen.isVisible) {
            m_visible.push_back(facet);
        }
    }
    return seen.isVisible;
}

/// Walks over the facets that the point sees, in depth and counter-clockwise, so that the edges of
/// the horizon come one after the other.
void HullBuilder::findHorizon(int facet, Point3 const &position, int index)
{
    ++m_step;
    m_visible.clear();
    m_horizon.clear();
    m_visible.push_back(facet);
    m_mesh[facet].seenAt = m_step;
    m_mesh[facet].isVisible = true;
    m_visits.push_back({facet, 0, 3});
    while (!m_visits.empty()) {
        Visit &visit = m_visits.back();
        if (visit.left == 0) {
            m_visits.pop_back();
            continue;
        }
        HullFacet const &from = m_mesh[visit.facet];
        int const edge = visit.edge;
        int const neighbor = from.neighbor[edge];
        visit.edge = next(edge);
        --visit.left;
        bool const isNew = m_mesh[neighbor].seenAt != m_step;
        int const tail = from.corner[edge];
        int const head = from.corner[next(edge)];
        if (!sees(neighbor, position, index)) {
            m_horizon.push_back({neighbor, tail, head});
        } else if (isNew) {
            m_visits.push_back({neighbor, next(m_mesh[neighbor].edgeFrom(head)), 2});
        }
    }
}

/// A new facet from each edge of the horizon to the apex.
void HullBuilder::makeCone(int apex)
{
    m_newFacets.clear();
    m_newPlanes.clear();
    Point3 const top = m_points.rounded(apex);
    for (HorizonEdge const &edge : m_horizon) {
        int const place = m_mesh.add();
        HullFacet &facet = m_mesh[place];
        facet.corner[0] = edge.tail;
        facet.corner[1] = edge.head;
        facet.corner[2] = apex;
        facet.plane = HullPlane(m_points.rounded(edge.tail), m_points.rounded(edge.head), top,
                                m_points.isExact());
        facet.neighbor[0] = edge.facet;
        HullFacet &under = m_mesh[edge.facet];
        under.neighbor[under.edgeFrom(edge.head)] = place;
        m_newFacets.push_back(place);
        m_newPlanes.push_back(facet.plane);
    }
    std::size_t const count = m_newFacets.size();
    for (std::size_t i = 0; i < count; ++i) {
        HullFacet &facet = m_mesh[m_newFacets[i]];
        facet.neighbor[1] = m_newFacets[i + 1 == count ? 0 : i + 1];
        facet.neighbor[2] = m_newFacets[i == 0 ? count - 1 : i - 1];
    }
}

/// Hands the outside points of the facets that go to the new ones.
void HullBuilder::handOver()
{
    m_claimants.clear();
    m_heights.clear();
    for (int const old : m_visible) {
        claim(m_mesh[old].outside, m_mesh[old].outsideCount);
    }
    shareOut();
    for (int const old : m_visible) {
        HullFacet &facet = m_mesh[old];
        m_pool.give(facet.outside, facet.outsideCount);
        facet.outside = nullptr;
        facet.outsideCount = 0;
        m_mesh.remove(old);
    }
}

/// Appends for each point the place among the new facets of one that it sees, -1 for none.
void HullBuilder::claim(OutsidePoint const *points, int count)
{
    std::size_t const first = m_claimants.size();
    std::size_t const size = first + static_cast<std::size_t>(count);
    m_claimants.resize(size);
    m_heights.resize(size);
    int *const claimants = m_claimants.data() + first;
    double *const heights = m_heights.data() + first;
    claimPoints(m_newPlanes.data(), static_cast<int>(m_newPlanes.size()), points, count, claimants,
                heights);
    if (m_points.isExact()) {
        return; // what is open lies in a plane
    }
    for (int i = 0; i < count; ++i) {
        if (points[i].index == m_apex) {
            claimants[i] = noClaim;
        } else if (claimants[i] == openClaim) {
            claimants[i] = claimant(points[i].position, points[i].index, heights[i]);
        }
    }
}

int HullBuilder::claimant(Point3 const &position, int index, double &height) const
{
    for (std::size_t i = 0; i < m_newFacets.size(); ++i) {
        height = m_newPlanes[i].height(position);
        if (isAbove(m_mesh[m_newFacets[i]], height, index)) {
            return static_cast<int>(i);
        }
    }
    return noClaim;
}

/// Copies the points to the facets that claimed them, in their order.
void HullBuilder::shareOut()
{
    m_highest.assign(m_newFacets.size(), 0.0);
    for (std::size_t i = 0; i < m_claimants.size(); ++i) {
        if (m_claimants[i] >= 0) {
            noteHeight(m_claimants[i], m_heights[i]);
        }
    }
    takeArrays();
    std::size_t i = 0;
    for (int const old : m_visible) {
        HullFacet const &from = m_mesh[old];
        for (int k = 0; k < from.outsideCount; ++k, ++i) {
            if (m_claimants[i] >= 0) {
                HullFacet &to = m_mesh[m_newFacets[static_cast<std::size_t>(m_claimants[i])]];
                to.outside[to.outsideCount++] = from.outside[k];
            }
        }
    }
}

} // namespace orvelExact
