#pragma once

/// @file
/// Triangles and half edges of a hull in space, and the vector algebra on them.

#include <OrvelCore/runtime/OrvelAllocatorT.h>
#include <OrvelMath/base/vectorC.h>

#include <QtCore/QList>

#include <cstdint>
#include <vector>

/// Contiguous storage of the hull's working data.
template <typename T>
using HullVector = std::vector<T, OrvelAllocatorT<T>>;

/// The coordinates of a build, read out of the caller's list once.
using HullPoints = HullVector<vectorC3d<double>>;

/// The point with an index of the caller's, which is an int.
inline vectorC3d<double> const &pointAt(HullPoints const &points, int index)
{
    return points[static_cast<std::size_t>(index)];
}

struct HullFace;

/// Directed half edge of a triangle.
struct HullEdge
{
    HullFace *face; ///< the face that owns this edge at present
    HullEdge *twin; ///< the opposite edge of the neighbour; null on the rim of a planar fan
    int tail;       ///< index of the start point
    int head;       ///< index of the end point
    HullEdge *next; ///< along the boundary of the face
    HullEdge *prev; ///< along the boundary of the face
};

/// What the search for the horizon knows of a face.
enum class HullFaceMark : std::uint8_t {
    None,
    Seen,    ///< its plane lies below the eye; it waits on the stack
    Visible, ///< its neighbours have been looked at
    Hidden   ///< its plane lies above the eye
};

/// Triangle of the hull with the points that still lie outside of it.
struct HullFace
{
    HullEdge *edges[3];
    int furthestPoint = -1; ///< index of the furthest outside point, -1 without outside points
    int corner;             ///< edges[0]->tail, without the way over the edge
    double furthestDistance = 0.0; ///< of the furthest outside point above the plane
    QList<int> outsidePoints;      ///< in order of assignment
    vectorC3d<double> normal;      ///< unit normal, pointing out of the hull
    bool alive = true;             ///< false once the face has been replaced
    HullFaceMark mark = HullFaceMark::None;
    unsigned number; ///< place in the order of creation

    /// The next face of which only the memory is kept.
    HullFace *nextSpare = nullptr;

    /// Signed distance of `p` above the plane of the face.
    double height(vectorC3d<double> const &p, HullPoints const &points) const
    {
        return (p - pointAt(points, corner)).dot(normal);
    }
};

/// Makes the two edges twins of each other.
inline void joinTwins(HullEdge *a, HullEdge *b)
{
    a->twin = b;
    b->twin = a;
}

/// True if `p` comes before `q` in the order of x, then y, then z; exact.
inline bool lexicographicallyLess(vectorC3d<double> const &p, vectorC3d<double> const &q)
{
    return p.x() < q.x() ||
           (p.x() == q.x() && (p.y() < q.y() || (p.y() == q.y() && p.z() < q.z())));
}

/// `v` multiplied by the reciprocal of its length, not divided by it: the bits differ. NaN for the
/// zero vector.
inline vectorC3d<double> hullUnit(vectorC3d<double> const &v)
{
    return v * (1.0 / v.length());
}

/// Unit normal of the triangle `a`, `b`, `c`: out of the side from which it runs counter-clockwise.
inline vectorC3d<double> triangleNormal(vectorC3d<double> const &a, vectorC3d<double> const &b,
                                        vectorC3d<double> const &c)
{
    return hullUnit((b - a).cross(c - b));
}
