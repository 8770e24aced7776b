#include <OrvelExact/hull/HullMesh_p.h>
#include <OrvelExact/hull/HullSurface_p.h>
#include <OrvelExact/hull/WorkPoints_p.h>
#include <OrvelExact/predicates/orientation.h>

namespace orvelExact {

namespace {

constexpr int next(int i)
{
    return i == 2 ? 0 : i + 1;
}

/// Which edges of the triangles part two planes, and which corners are extreme.
class PlaneBorders
{
public:
    PlaneBorders(HullMesh const &mesh, WorkPoints const &points)
        : m_mesh(mesh)
        , m_points(points)
        , m_borders(mesh.facets.size())
        , m_polygonsAt(static_cast<std::size_t>(points.count()), 0)
    {
        int const count = static_cast<int>(mesh.facets.size());
        for (int facet = 0; facet < count; ++facet) {
            for (int edge = 0; mesh[facet].isAlive && edge < 3; ++edge) {
                markEdge(facet, edge);
            }
        }
    }

    bool isBorder(int facet, int edge) const
    {
        return (m_borders[static_cast<std::size_t>(facet)] >> edge & 1) != 0;
    }
    /// Three planes meet in an extreme point; two in an edge's inner point, of a face's there is
    /// one alone. Each plane's polygon passes a point on its border once.
    bool isExtreme(int point) const { return m_polygonsAt[static_cast<std::size_t>(point)] >= 3; }

private:
    void markEdge(int facet, int edge)
    {
        HullFacet const &from = m_mesh[facet];
        int const neighbor = from.neighbor[edge];
        HullFacet const &to = m_mesh[neighbor];
        int const back = to.edgeFrom(from.corner[next(edge)]);
        if (neighbor < facet) {
            return; // done from the other side
        }
        if (!areCoplanar(from, to.corner[next(next(back))])) {
            setBorder(facet, edge);
            setBorder(neighbor, back);
        }
    }
    void setBorder(int facet, int edge)
    {
        std::size_t const tail = static_cast<std::size_t>(m_mesh[facet].corner[edge]);
        auto &borders = m_borders[static_cast<std::size_t>(facet)];
        borders = static_cast<unsigned char>(borders | 1 << edge);
        m_polygonsAt[tail] =
            static_cast<unsigned char>(m_polygonsAt[tail] < 3 ? m_polygonsAt[tail] + 1 : 3);
    }
    bool areCoplanar(HullFacet const &facet, int apex) const
    {
        if (facet.plane.height(m_points.rounded(apex)) < -facet.plane.maxError) {
            return false;
        }
        return m_points.isExact() ||
               orientation3d(m_points.exact(facet.corner[0]), m_points.exact(facet.corner[1]),
                             m_points.exact(facet.corner[2]), m_points.exact(apex)) == Sign::Zero;
    }

    HullMesh const &m_mesh;
    WorkPoints const &m_points;
    std::vector<unsigned char> m_borders;    ///< a bit an edge
    std::vector<unsigned char> m_polygonsAt; ///< for each point, 3 for more
};

struct Place
{
    int facet;
    int edge;
};

/// The next border of the same plane, counter-clockwise.
Place nextBorder(HullMesh const &mesh, PlaneBorders const &borders, Place place)
{
    place.edge = next(place.edge);
    while (!borders.isBorder(place.facet, place.edge)) {
        int const tail = mesh[place.facet].corner[place.edge];
        place.facet = mesh[place.facet].neighbor[place.edge];
        place.edge = mesh[place.facet].edgeFrom(tail);
    }
    return place;
}

} // namespace

void mergeFacets(HullMesh const &mesh, WorkPoints const &points, HullSurface &surface)
{
    PlaneBorders const borders(mesh, points);
    std::vector<unsigned char> isDone(mesh.facets.size(), 0);
    surface.starts.assign(1, 0);
    int const count = static_cast<int>(mesh.facets.size());
    for (int facet = 0; facet < count; ++facet) {
        for (int edge = 0; edge < 3; ++edge) {
            if (!mesh[facet].isAlive || !borders.isBorder(facet, edge) ||
                (isDone[static_cast<std::size_t>(facet)] >> edge & 1) != 0) {
                continue;
            }
            Place place{facet, edge};
            do {
                auto &done = isDone[static_cast<std::size_t>(place.facet)];
                done = static_cast<unsigned char>(done | 1 << place.edge);
                int const tail = mesh[place.facet].corner[place.edge];
                if (borders.isExtreme(tail)) {
                    surface.corners.push_back(tail);
                }
                place = nextBorder(mesh, borders, place);
            } while (place.facet != facet || place.edge != edge);
            surface.starts.push_back(static_cast<int>(surface.corners.size()));
        }
    }
    for (int i = 0; i < points.count(); ++i) {
        if (borders.isExtreme(i)) {
            surface.vertices.push_back(i);
        }
    }
}

} // namespace orvelExact
