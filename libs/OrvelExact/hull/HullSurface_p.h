#pragma once

/// @file
/// A hull as polygons: what the points alone determine.

#include <OrvelExact/base/points.h>

#include <vector>

namespace orvelExact {

class HullMesh;
class WorkPoints;

/// A hull as polygons over indices: what the points alone determine.
struct HullSurface
{
    int dimension = -1;        ///< so it stays if a point is not finite
    std::vector<int> vertices; ///< ascending
    std::vector<int> starts;   ///< of the polygons in `corners`, and the end
    std::vector<int> corners;

    /// Moves the polygons so that each begins with its lowest corner, and sorts them.
    void sortPolygons();
};

/// The hull of at least one point.
HullSurface computeHullSurface(Point3 const *points, int count);

/// The same by several threads: of parts first, then of the points that these leave.
HullSurface computeHullSurface(Point3 const *points, int count, int threadCount);

/// Merges the triangles of each plane. Sets vertices, starts and corners.
void mergeFacets(HullMesh const &mesh, WorkPoints const &points, HullSurface &surface);

/// The hull of points of one line or one plane, of which `corner` has three or two that span it.
HullSurface computeFlatHull(Point3 const *points, int count, int dimension, int const *corner);

} // namespace orvelExact
