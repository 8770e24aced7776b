#pragma once

/// @file
/// What the tests of a prepared triangle read of it, and their definitions. Not part of the
/// interface.

#include <OrvelMath/geom3d/TriangleCuboidIntersector.h>

namespace MatUtil {

using Vector = vectorC3d<double>;

/// The parts of a `TriangleCuboidIntersector`, which must outlive the view.
struct TriangleCuboidView
{
    explicit TriangleCuboidView(TriangleCuboidIntersector const &t)
        : p0(t.m_p0)
        , p1(t.m_p1)
        , p2(t.m_p2)
        , e0(t.m_e0)
        , e1(t.m_e1)
        , e2(t.m_e2)
        , normal(t.m_normal)
        , minimum(t.m_minimum)
        , maximum(t.m_maximum)
        , centroid(t.m_centroid)
    {
    }

    /// Whether the centroid lies in the closed span of coordinate q.
    bool isCentroidWithin(Vector const &minCorner, Vector const &maxCorner, int q) const
    {
        return maxCorner[q] >= centroid[q] && centroid[q] >= minCorner[q];
    }

    /// Whether triangle and box are apart in coordinate q.
    bool areRangesApart(Vector const &minCorner, Vector const &maxCorner, int q) const
    {
        return minimum[q] > maxCorner[q] || minCorner[q] > maximum[q];
    }

    Vector const &p0;
    Vector const &p1;
    Vector const &p2;
    Vector const &e0;
    Vector const &e1;
    Vector const &e2;
    Vector const &normal;
    Vector const &minimum;
    Vector const &maximum;
    Vector const &centroid;
};

/// What `triangleIntersectsCuboid` and `TriangleCuboidIntersector::intersect` answer, axis by axis.
/// Arguments and results as there.
namespace definition {

bool triangleIntersectsCuboid(Vector const &a, Vector const &b, Vector const &c,
                              Vector const &minCorner, Vector const &maxCorner);

TriangleCuboidIntersectionType intersect(TriangleCuboidIntersector const &intersector,
                                         Vector const &minCorner, Vector const &maxCorner,
                                         int splitAxis, TriangleCuboidIntersectionType parentType);

} // namespace definition

} // namespace MatUtil
