#pragma once

/// @file
/// The surface of triangles that grows to a hull.

#include <OrvelExact/hull/HullPlane_p.h>
#include <OrvelExact/hull/OutsidePool_p.h>

#include <vector>

namespace orvelExact {

/// A triangle of a hull that grows, and the points that wait outside of it.
struct HullFacet
{
    HullPlane plane;
    int corner[3];   ///< indices of points, counter-clockwise seen from outside
    int neighbor[3]; ///< facet over the edge from corner i to corner i + 1
    bool isAlive = true;
    quint32 seenAt = 0;     ///< the last step that looked at the facet
    bool isVisible = false; ///< what that step saw

    OutsidePoint *outside = nullptr;
    int outsideCount = 0;
    int farthest = 0; ///< among the outside points

    /// The edge that ends where the neighbour's edge begins and the other way round.
    int edgeFrom(int tail) const { return corner[0] == tail ? 0 : corner[1] == tail ? 1 : 2; }
};

/// A closed surface of triangles; the places of dead ones are used again.
class HullMesh
{
public:
    std::vector<HullFacet> facets;

    int add()
    {
        if (m_free.empty()) {
            facets.emplace_back();
            return static_cast<int>(facets.size()) - 1;
        }
        int const place = m_free.back();
        m_free.pop_back();
        facets[static_cast<std::size_t>(place)] = HullFacet();
        return place;
    }
    void remove(int place)
    {
        facets[static_cast<std::size_t>(place)].isAlive = false;
        m_free.push_back(place);
    }
    HullFacet &operator[](int place) { return facets[static_cast<std::size_t>(place)]; }
    HullFacet const &operator[](int place) const { return facets[static_cast<std::size_t>(place)]; }

private:
    std::vector<int> m_free;
};

} // namespace orvelExact
