#include <OrvelExact/hull/ConvexHull.h>

#include <OrvelExact/hull/HullSurface_p.h>

#include <algorithm>

namespace orvelExact {

namespace {

QVector<int> toVector(std::vector<int> const &values)
{
    QVector<int> result(static_cast<int>(values.size()));
    std::copy(values.begin(), values.end(), result.begin());
    return result;
}

/// Finds the half-edge from one point to another.
class HalfEdgeIndex
{
public:
    HalfEdgeIndex(QVector<HullHalfEdge> const &edges, int pointCount)
        : m_edges(edges)
        , m_starts(static_cast<std::size_t>(pointCount) + 1, 0)
        , m_sorted(static_cast<std::size_t>(edges.size()))
    {
        for (HullHalfEdge const &edge : edges) {
            ++m_starts[static_cast<std::size_t>(edge.origin) + 1];
        }
        for (std::size_t i = 1; i < m_starts.size(); ++i) {
            m_starts[i] += m_starts[i - 1];
        }
        std::vector<int> places = m_starts;
        for (int i = 0; i < edges.size(); ++i) {
            int &place = places[static_cast<std::size_t>(edges.at(i).origin)];
            m_sorted[static_cast<std::size_t>(place++)] = i;
        }
    }

    int find(int origin, int head) const
    {
        std::size_t const from = static_cast<std::size_t>(origin);
        for (int i = m_starts[from]; i < m_starts[from + 1]; ++i) {
            int const edge = m_sorted[static_cast<std::size_t>(i)];
            if (m_edges.at(m_edges.at(edge).next).origin == head) {
                return edge;
            }
        }
        return -1;
    }

private:
    QVector<HullHalfEdge> const &m_edges;
    std::vector<int> m_starts;
    std::vector<int> m_sorted; ///< by origin
};

} // namespace

ConvexHull::ConvexHull(QVector<Point3> const &points, int threadCount)
    : m_points(points)
{
    if (points.isEmpty()) {
        return;
    }
    HullSurface const surface = computeHullSurface(points.constData(), points.size(), threadCount);
    m_status = surface.dimension < 0 ? Status::NotFinite : Status::Ok;
    m_dimension = surface.dimension;
    m_vertices = toVector(surface.vertices);
    m_starts = toVector(surface.starts);
    m_corners = toVector(surface.corners);
}

QVector<int> ConvexHull::facet(int index) const
{
    return m_corners.mid(m_starts.at(index), m_starts.at(index + 1) - m_starts.at(index));
}

QVector<HullTriangle> ConvexHull::triangles() const
{
    QVector<HullTriangle> result;
    for (int f = 0; f < facetCount(); ++f) {
        int const first = m_starts.at(f);
        for (int i = first + 2; i < m_starts.at(f + 1); ++i) {
            result.append({{m_corners.at(first), m_corners.at(i - 1), m_corners.at(i)}, f});
        }
    }
    return result;
}

QVector<HullHalfEdge> ConvexHull::halfEdges() const
{
    QVector<HullHalfEdge> edges;
    edges.reserve(m_corners.size());
    for (int f = 0; f < facetCount(); ++f) {
        int const first = m_starts.at(f);
        int const end = m_starts.at(f + 1);
        for (int i = first; i < end; ++i) {
            edges.append({m_corners.at(i), -1, i + 1 == end ? first : i + 1, f});
        }
    }
    if (m_dimension == 3) {
        HalfEdgeIndex const index(edges, m_points.size());
        for (HullHalfEdge &edge : edges) {
            edge.twin = index.find(edges.at(edge.next).origin, edge.origin);
        }
    }
    return edges;
}

} // namespace orvelExact
