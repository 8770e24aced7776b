#include <OrvelExact/base/CompensatedSum_p.h>
#include <OrvelExact/hull/ConvexHull.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvelExact {

namespace {

/// Volume and first moments of tetrahedra that share a corner, or area and moments of triangles.
class WeightedPoints
{
public:
    void add(double weight, Point3 const &point)
    {
        m_weight.add(weight);
        for (int k = 0; k < 3; ++k) {
            m_moment[k].add(weight * point[k]);
        }
    }
    double weight() const { return m_weight.value(); }
    Point3 center() const
    {
        double const total = weight();
        return {m_moment[0].value() / total, m_moment[1].value() / total,
                m_moment[2].value() / total};
    }

private:
    CompensatedSum m_weight;
    CompensatedSum m_moment[3];
};

/// Calls `visit(a, b, c)` for each triangle of the facets; b to c is an edge of the facet, so that
/// the product of the lengths of (b - a) and (c - b) stays near to the area.
template <typename Corner, typename Visit>
void forTriangles(QVector<int> const &starts, Corner const &corner, Visit const &visit)
{
    for (int f = 0; f + 1 < starts.size(); ++f) {
        for (int i = starts.at(f) + 2; i < starts.at(f + 1); ++i) {
            visit(corner(starts.at(f)), corner(i - 1), corner(i));
        }
    }
}

/// Twice the area, as a vector along the normal.
Point3 doubledArea(Point3 const &a, Point3 const &b, Point3 const &c)
{
    return (b - a).cross(c - b);
}

/// The power of two next to the size of the box, so that products of scaled lengths don't overflow.
double scaleOf(QVector<Point3> const &points, QVector<int> const &vertices)
{
    double size = 0.0;
    for (int const v : vertices) {
        for (int k = 0; k < 3; ++k) {
            size = std::max(size, 0.5 * std::fabs(0.5 * points.at(v)[k] -
                                                  0.5 * points.at(vertices.first())[k]));
        }
    }
    return size == 0.0 ? 1.0 : std::ldexp(1.0, std::clamp(std::ilogb(size), -1000, 1000));
}

} // namespace

double ConvexHull::volume() const
{
    if (m_dimension < 3) {
        return 0.0;
    }
    double const scale = scaleOf(m_points, m_vertices);
    Point3 const origin = m_points.at(m_vertices.first()) / scale;
    CompensatedSum sum;
    forTriangles(
        m_starts, [&](int i) { return corner(i) / scale - origin; },
        [&](Point3 const &a, Point3 const &b, Point3 const &c) {
            sum.add(doubledArea(a, b, c).dot(a));
        });
    return sum.value() / 6.0 * scale * scale * scale;
}

double ConvexHull::area() const
{
    if (m_dimension < 2) {
        return 0.0;
    }
    double const scale = scaleOf(m_points, m_vertices);
    Point3 const origin = m_points.at(m_vertices.first()) / scale;
    CompensatedSum sum;
    forTriangles(
        m_starts, [&](int i) { return corner(i) / scale - origin; },
        [&](Point3 const &a, Point3 const &b, Point3 const &c) {
            sum.add(doubledArea(a, b, c).length());
        });
    return sum.value() / 2.0 * scale * scale;
}

Point3 ConvexHull::centroid() const
{
    if (m_dimension < 0) {
        return {};
    }
    double const scale = scaleOf(m_points, m_vertices);
    Point3 const origin = m_points.at(m_vertices.first()) / scale;
    if (m_dimension < 2) {
        return 0.5 * m_points.at(m_vertices.first()) + 0.5 * m_points.at(m_vertices.last());
    }
    WeightedPoints sum;
    forTriangles(
        m_starts, [&](int i) { return corner(i) / scale - origin; },
        [&](Point3 const &a, Point3 const &b, Point3 const &c) {
            Point3 const area = doubledArea(a, b, c);
            if (m_dimension == 3) {
                sum.add(area.dot(a), 0.25 * (a + b + c)); // the fourth corner is the origin
            } else {
                sum.add(area.length(), (a + b + c) / 3.0);
            }
        });
    return scale * (sum.center() + origin);
}

} // namespace orvelExact
