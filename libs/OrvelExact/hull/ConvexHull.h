#pragma once

#include <OrvelExact/OrvelExactExport.h>
#include <OrvelExact/base/PointLocation.h>
#include <OrvelExact/base/Status.h>
#include <OrvelExact/base/points.h>

#include <QtCore/QVector>

/// @file
/// The convex hull of points of space.

namespace orvelExact {

/// Three indices of points, counter-clockwise seen from outside.
struct HullTriangle
{
    int corner[3];
    int facet; ///< the facet it is a part of
};

/// A directed edge of a facet, its facet to the left as seen from outside.
struct HullHalfEdge
{
    int origin; ///< index of the point where it begins
    int twin;   ///< the half-edge back, in the neighbouring facet; -1 if the hull is flat
    int next;   ///< the next one of the facet, counter-clockwise
    int facet;
};

/// The convex hull of points of space: every extreme point and no other, exactly.
///
/// | `dimension()` | points           | `vertices()`       | facets                        |
/// |---------------|------------------|--------------------|-------------------------------|
/// | -1            | none, or refused | none               | none                          |
/// | 0             | one location     | one                | none                          |
/// | 1             | of one line      | the two ends       | none                          |
/// | 2             | of one plane     | the corners        | one, the polygon              |
/// | 3             | a solid          | the extreme points | a closed surface, one a plane |
///
/// All of it is decided without tolerance, by exact predicates on the coordinates as given. Points
/// in a face or on an edge are no vertices. A facet is the whole polygon of a plane: its corners
/// are strictly convex, counter-clockwise seen from outside, and begin with the lowest index.
/// Facets are in the order of their first two corners. Of points with equal coordinates the one
/// with the lowest index is reported; 0 and -0 are equal. So the result depends on the points
/// alone, not on the number of threads, and every finite input is served.
///
/// The hull is built by Quickhull (Barber, Dobkin and Huhdanpaa, 1996), in about n log n steps,
/// with a bound of the rounding error for each plane and exact predicates for what it leaves open.
///
/// A value: it shares the list of points with the caller and its own lists with copies (copy on
/// write). Reading it from several threads is safe.
///
/// @see ConvexHullBuilderC, whose tolerance of 1e-8 and whose rule for equal distances leave
/// vertices out on symmetric or small input.
class ORVELEXACT_EXPORT ConvexHull
{
public:
    /// The hull of no points.
    ConvexHull() = default;
    /// @param points       of which indices are reported
    /// @param threadCount  how many threads may work, at least 1; the result is the same for all
    explicit ConvexHull(QVector<Point3> const &points, int threadCount = 1);

    /// `Ok`; `Empty` for no points; `NotFinite` if a component is NaN or infinite. The latter two
    /// have dimension -1.
    Status status() const { return m_status; }
    int dimension() const { return m_dimension; }

    /// The points as they were given.
    QVector<Point3> const &points() const { return m_points; }
    /// Indices of the extreme points, ascending.
    QVector<int> const &vertices() const { return m_vertices; }

    int facetCount() const { return m_starts.isEmpty() ? 0 : m_starts.size() - 1; }
    /// Corners of a facet, which must be from 0 to `facetCount() - 1`. A polygon of dimension 2 has
    /// no outside: it runs from its lowest corner to the lower one of its neighbours.
    QVector<int> facet(int index) const;

    /// The facets cut into triangles, by diagonals from their first corners, in the facets' order.
    QVector<HullTriangle> triangles() const;
    /// The edges of the facets, one facet after the other, each from its first corner on.
    QVector<HullHalfEdge> halfEdges() const;

    /// Volume of a solid, in cubed units; 0 for flat hulls. The error is below 1e-14 times the cube
    /// of the diagonal of the points' box. Infinite if it is too large for a double.
    double volume() const;
    /// Area of the surface, of a polygon that of one side; 0 below dimension 2. The error is below
    /// 1e-14 times the square of the diagonal. Infinite if it is too large for a double.
    double area() const;
    /// Centre of mass of the solid, the polygon, the segment or the point; the origin for dimension
    /// -1. The error is below 1e-14 times the diagonal times the ratio of its cube to the volume,
    /// of its square to the area for a polygon, plus a unit in the last place of the coordinate.
    /// The first part must be below half the diagonal: of flatter solids and thinner polygons no
    /// digit counts, and the result may be NaN or infinite.
    Point3 centroid() const;

    /// Where a point lies, exactly. On a flat hull there is no inside: its points are `Boundary`.
    /// `NotFinite` for a point that is not finite, and for dimension -1. Looks at all facets in the
    /// worst case.
    PointLocation contains(Point3 const &point) const;
    /// Distance from a point to the surface, from inside as from outside; to the polygon, the
    /// segment or the point of a flat hull. Looks at all facets. NaN for a point that is not
    /// finite, and for dimension -1. The error is below 1e-14 times the largest component, of the
    /// point and the hull.
    double distanceToSurface(Point3 const &point) const;

private:
    Point3 const &corner(int place) const { return m_points.at(m_corners.at(place)); }
    PointLocation locateInPolygon(Point3 const &point) const;
    PointLocation locateOnSegment(Point3 const &point) const;

    QVector<Point3> m_points;
    QVector<int> m_vertices;
    QVector<int> m_starts;  ///< of the facets in `m_corners`, and the end
    QVector<int> m_corners; ///< of one facet after the other
    Status m_status = Status::Empty;
    int m_dimension = -1;
};

} // namespace orvelExact
