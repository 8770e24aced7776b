#include "Deviation.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace {

// The closest point of a triangle, by the region of the plane in which the foot of the
// perpendicular lies (Ericson 2005, 5.1.5).
double squaredDistance(Vector const &p, Corners const &c)
{
    Vector const ab = c[1] - c[0];
    Vector const ac = c[2] - c[0];
    Vector const ap = p - c[0];
    double const d1 = ab.dot(ap);
    double const d2 = ac.dot(ap);
    Vector const bp = p - c[1];
    double const d3 = ab.dot(bp);
    double const d4 = ac.dot(bp);
    Vector const cp = p - c[2];
    double const d5 = ab.dot(cp);
    double const d6 = ac.dot(cp);
    if (d1 <= 0.0 && d2 <= 0.0) {
        return ap.squaredLength();
    }
    if (d3 >= 0.0 && d4 <= d3) {
        return bp.squaredLength();
    }
    if (d6 >= 0.0 && d5 <= d6) {
        return cp.squaredLength();
    }
    double const vc = d1 * d4 - d3 * d2;
    if (vc <= 0.0 && d1 >= 0.0 && d3 <= 0.0) {
        return (ap - ab * (d1 / (d1 - d3))).squaredLength();
    }
    double const vb = d5 * d2 - d1 * d6;
    if (vb <= 0.0 && d2 >= 0.0 && d6 <= 0.0) {
        return (ap - ac * (d2 / (d2 - d6))).squaredLength();
    }
    double const va = d3 * d6 - d5 * d4;
    if (va <= 0.0 && d4 >= d3 && d5 >= d6) {
        return (bp - (c[2] - c[1]) * ((d4 - d3) / ((d4 - d3) + (d5 - d6)))).squaredLength();
    }
    double const sum = va + vb + vc;
    return (ap - ab * (vb / sum) - ac * (vc / sum)).squaredLength();
}

// A tree of boxes over triangles, each node the middle half of its range by the longest axis.
class SurfaceTree
{
public:
    explicit SurfaceTree(Mesh const &mesh)
        : m_mesh(mesh)
        , m_order(mesh.triangles.size())
    {
        std::iota(m_order.begin(), m_order.end(), 0);
        m_nodes.reserve(2 * m_order.size() / leafSize + 2);
        build(0, m_order.size());
    }

    // Lowers `best`, a squared distance, to that of the surface where it is nearer.
    double lowered(Vector const &p, double best) const
    {
        std::vector<std::size_t> &open = m_open;
        open.assign(1, 0);
        while (!open.empty()) {
            Node const &node = m_nodes[open.back()];
            open.pop_back();
            if (squaredDistanceTo(node.box, p) >= best) {
                continue;
            }
            if (node.right == 0) {
                for (std::size_t i = node.first; i < node.last; ++i) {
                    auto const &t = m_mesh.triangles[std::size_t(m_order[i])];
                    best = std::min(best, squaredDistance(p, m_mesh.corners(t)));
                }
                continue;
            }
            std::size_t const left = std::size_t(&node - m_nodes.data()) + 1;
            bool const isLeftNearer = squaredDistanceTo(m_nodes[left].box, p) <
                                      squaredDistanceTo(m_nodes[node.right].box, p);
            open.push_back(isLeftNearer ? node.right : left);
            open.push_back(isLeftNearer ? left : node.right);
        }
        return best;
    }

private:
    static constexpr std::size_t leafSize = 8;

    struct Node
    {
        Box box;
        std::size_t first = 0;
        std::size_t last = 0;
        std::size_t right = 0; ///< 0 for a leaf; the left child follows its parent
    };

    static double squaredDistanceTo(Box const &box, Vector const &p)
    {
        double sum = 0.0;
        for (int axis = 0; axis < 3; ++axis) {
            double const out =
                std::max({box.first[axis] - p[axis], 0.0, p[axis] - box.second[axis]});
            sum += out * out;
        }
        return sum;
    }

    Box boxOf(std::size_t first, std::size_t last) const
    {
        double const huge = std::numeric_limits<double>::max();
        Box box{{huge, huge, huge}, {-huge, -huge, -huge}};
        for (std::size_t i = first; i < last; ++i) {
            for (Vector const &v : m_mesh.corners(m_mesh.triangles[std::size_t(m_order[i])])) {
                for (int axis = 0; axis < 3; ++axis) {
                    box.first[axis] = std::min(box.first[axis], v[axis]);
                    box.second[axis] = std::max(box.second[axis], v[axis]);
                }
            }
        }
        return box;
    }

    std::size_t build(std::size_t first, std::size_t last)
    {
        std::size_t const at = m_nodes.size();
        m_nodes.push_back({boxOf(first, last), first, last, 0});
        if (last - first > leafSize) {
            Vector const extent = m_nodes[at].box.second - m_nodes[at].box.first;
            int const axis = extent.x() >= extent.y() && extent.x() >= extent.z() ? 0
                             : extent.y() >= extent.z()                           ? 1
                                                                                  : 2;
            auto const begin = m_order.begin();
            std::size_t const middle = (first + last) / 2;
            auto const sumAlong = [&](int triangle) {
                Corners const c = m_mesh.corners(m_mesh.triangles[std::size_t(triangle)]);
                return c[0][axis] + c[1][axis] + c[2][axis];
            };
            std::nth_element(begin + std::ptrdiff_t(first), begin + std::ptrdiff_t(middle),
                             begin + std::ptrdiff_t(last),
                             [&](int a, int b) { return sumAlong(a) < sumAlong(b); });
            build(first, middle);
            std::size_t const right = build(middle, last);
            m_nodes[at].right = right;
        }
        return at;
    }

    Mesh const &m_mesh;
    std::vector<int> m_order;
    std::vector<Node> m_nodes;
    mutable std::vector<std::size_t> m_open;
};

} // namespace

Deviation deviationFrom(Mesh const &mesh, Mesh const &other)
{
    SurfaceTree const tree(other);
    double const noLimit = std::numeric_limits<double>::infinity();
    double farthest = -1.0;
    Deviation found;
    for (Vector const &v : mesh.vertices) {
        double const distance = tree.lowered(v, noLimit);
        if (distance > farthest) {
            farthest = distance;
            found = {std::sqrt(distance), v};
        }
    }
    return found;
}
