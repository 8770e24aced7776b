#include "Topology.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

// Things sorted by the smallest of their vertices: those of vertex v lie in
// [start[v], start[v + 1]).
template <typename Item>
struct Buckets
{
    std::vector<std::size_t> start;
    std::vector<Item> items;
};

// `forEach` calls its argument with (smallest vertex, item) for each item, twice in one order.
template <typename Item, typename ForEach>
Buckets<Item> bucketsOf(std::size_t vertexCount, ForEach forEach)
{
    Buckets<Item> buckets;
    buckets.start.assign(vertexCount + 2, 0);
    forEach([&](int vertex, Item const &) { ++buckets.start[std::size_t(vertex) + 2]; });
    std::partial_sum(buckets.start.begin(), buckets.start.end(), buckets.start.begin());
    buckets.items.resize(buckets.start.back());
    forEach([&](int vertex, Item const &item) {
        buckets.items[buckets.start[std::size_t(vertex) + 1]++] = item;
    });
    buckets.start.pop_back();
    for (std::size_t v = 0; v < vertexCount; ++v) {
        std::sort(buckets.items.begin() + std::ptrdiff_t(buckets.start[v]),
                  buckets.items.begin() + std::ptrdiff_t(buckets.start[v + 1]));
    }
    return buckets;
}

// The larger vertex of an edge, and whether the triangle runs towards it.
struct HalfEdge
{
    int other;
    bool forward;

    bool operator<(HalfEdge const &b) const { return other < b.other; }
};

void countEdges(Topology &found, Mesh const &mesh)
{
    auto const forEach = [&](auto const &take) {
        for (auto const &t : mesh.triangles) {
            for (std::size_t k = 0; k < 3; ++k) {
                int const a = t[k];
                int const b = t[(k + 1) % 3];
                if (a != b) {
                    take(std::min(a, b), HalfEdge{std::max(a, b), a < b});
                }
            }
        }
    };
    auto const buckets = bucketsOf<HalfEdge>(mesh.vertices.size(), forEach);
    found.isClosed = true;
    for (std::size_t v = 0; v < mesh.vertices.size(); ++v) {
        for (std::size_t i = buckets.start[v]; i < buckets.start[v + 1];) {
            std::size_t count[2] = {0, 0};
            for (int const other = buckets.items[i].other;
                 i < buckets.start[v + 1] && buckets.items[i].other == other; ++i) {
                ++count[buckets.items[i].forward ? 1 : 0];
            }
            std::size_t const all = count[0] + count[1];
            ++found.edges;
            found.openEdges += all == 1 ? 1 : 0;
            found.nonManifoldEdges += all > 2 ? 1 : 0;
            found.flippedEdges += all == 2 && count[0] != 1 ? 1 : 0;
            found.isClosed = found.isClosed && count[0] == count[1];
        }
    }
    found.isClosed = found.isClosed && found.edges > 0;
}

void countDuplicates(Topology &found, Mesh const &mesh)
{
    using Pair = std::pair<int, int>;
    auto const forEach = [&](auto const &take) {
        for (auto t : mesh.triangles) {
            std::sort(t.begin(), t.end());
            take(t[0], Pair(t[1], t[2]));
        }
    };
    auto const buckets = bucketsOf<Pair>(mesh.vertices.size(), forEach);
    for (std::size_t v = 0; v < mesh.vertices.size(); ++v) {
        for (std::size_t i = buckets.start[v] + 1; i < buckets.start[v + 1]; ++i) {
            found.duplicateTriangles += buckets.items[i] == buckets.items[i - 1] ? 1 : 0;
        }
    }
}

// The root of a vertex's tree; halves the path to it.
int rootOf(std::vector<int> &parent, int v)
{
    while (parent[std::size_t(v)] != v) {
        int &up = parent[std::size_t(v)];
        up = parent[std::size_t(up)];
        v = up;
    }
    return v;
}

void countComponents(Topology &found, Mesh const &mesh)
{
    std::vector<int> parent(mesh.vertices.size());
    std::vector<bool> isUsed(mesh.vertices.size(), false);
    std::iota(parent.begin(), parent.end(), 0);
    for (auto const &t : mesh.triangles) {
        for (int const corner : t) {
            isUsed[std::size_t(corner)] = true;
            parent[std::size_t(rootOf(parent, corner))] = rootOf(parent, t[0]);
        }
    }
    for (std::size_t v = 0; v < parent.size(); ++v) {
        found.usedVertices += isUsed[v] ? 1 : 0;
        found.components += isUsed[v] && parent[v] == int(v) ? 1 : 0;
    }
}

std::string counted(std::size_t count, char const *what)
{
    return std::to_string(count) + " " + what;
}

} // namespace

long Topology::euler(Mesh const &mesh) const
{
    return long(usedVertices) - long(edges) + long(mesh.triangles.size());
}

long Topology::genus(Mesh const &mesh) const
{
    bool const isManifold =
        isClosed && nonManifoldEdges == 0 && flippedEdges == 0 && duplicateTriangles == 0;
    long const doubled = 2 * long(components) - euler(mesh);
    return isManifold && doubled >= 0 && doubled % 2 == 0 ? doubled / 2 : -1;
}

std::string Topology::closedText() const
{
    if (isClosed) {
        return "yes";
    }
    std::string why;
    auto const add = [&](std::size_t count, char const *what) {
        if (count > 0) {
            why += (why.empty() ? "" : ", ") + counted(count, what);
        }
    };
    add(openEdges, openEdges == 1 ? "open edge" : "open edges");
    add(nonManifoldEdges, nonManifoldEdges == 1 ? "non-manifold edge" : "non-manifold edges");
    add(flippedEdges,
        flippedEdges == 1 ? "edge between flipped faces" : "edges between flipped faces");
    return "no: " + (why.empty() ? "no triangles" : why);
}

Topology topologyOf(Mesh const &mesh)
{
    Topology found;
    countEdges(found, mesh);
    countDuplicates(found, mesh);
    countComponents(found, mesh);
    for (auto const &t : mesh.triangles) {
        found.degenerateTriangles += thinness(mesh.corners(t)) < degenerateThinness ? 1 : 0;
    }
    return found;
}

double thinness(Corners const &triangle)
{
    Vector const u = triangle[1] - triangle[0];
    Vector const v = triangle[2] - triangle[0];
    double const longest = std::max(
        {u.squaredLength(), v.squaredLength(), (triangle[2] - triangle[1]).squaredLength()});
    return longest > 0.0 ? u.cross(v).length() / longest : 0.0;
}
