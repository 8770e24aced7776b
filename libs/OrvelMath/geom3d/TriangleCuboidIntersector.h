#pragma once

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/valueTypes.h>

/// @file
/// Overlap of a triangle and an axis-aligned cuboid.
///
/// | Take this                     | for                                                         |
/// |-------------------------------|-------------------------------------------------------------|
/// | `triangleIntersectsCuboid`    | one question about one triangle and one cuboid              |
/// | `TriangleCuboidIntersector`   | one triangle pushed down a hierarchy of halved cuboids      |
///
/// Both use the separating axis test for triangle and box: three coordinate axes, the triangle's
/// normal, and nine cross products of a coordinate axis with an edge (Gottschalk, Lin and Manocha
/// 1996; Akenine-Moeller 2001). Touching counts as overlap.

namespace MatUtil {

struct TriangleCuboidView;

/// How a triangle lies to a cuboid.
enum TriangleCuboidIntersectionType {
    TriangleCuboidDisjoint = 0, ///< no point in common
    TriangleCuboidContainsCentroid =
        1,                    ///< overlap; the closed cuboid holds the triangle's centroid
    TriangleCuboidOverlap = 2 ///< overlap; the centroid lies outside the cuboid
};

/// Tells whether the triangle @p a, @p b, @p c and the closed cuboid from @p minCorner to
/// @p maxCorner have a point in common. The triangle is the filled one; touching is overlap.
///
/// All points are in model units. The corners are taken as they come: unless every coordinate of
/// @p minCorner is at most that of @p maxCorner, the answer is wrong. A triangle that degenerates
/// to a segment or a point is tested as such, but by the edge and range axes only. A NaN in a
/// vertex gives false.
ORVELMATH_EXPORT bool triangleIntersectsCuboid(vectorC3d<double> const &a,
                                               vectorC3d<double> const &b,
                                               vectorC3d<double> const &c,
                                               vectorC3d<double> const &minCorner,
                                               vectorC3d<double> const &maxCorner);

/// One triangle, prepared for tests against the many cuboids of a hierarchy in which each cuboid
/// is half of its parent.
///
/// The constructor computes what depends on the triangle alone. Each test gets the axis along
/// which the parent was halved and the parent's result, and leaves out the axes whose answer it
/// must share with the parent.
///
/// A value: copies are independent. `intersect` only reads, so threads may share one object.
class ORVELMATH_EXPORT TriangleCuboidIntersector
{
public:
    /// Prepares the triangle @p p0, @p p1, @p p2 (model units, any orientation, may be degenerate).
    TriangleCuboidIntersector(vectorC3d<double> const &p0, vectorC3d<double> const &p1,
                              vectorC3d<double> const &p2);

    TriangleCuboidIntersector(TriangleCuboidIntersector const &) = default;
    TriangleCuboidIntersector &operator=(TriangleCuboidIntersector const &other);
    TriangleCuboidIntersector &operator=(TriangleCuboidIntersector &&other);

    /// Tells how the triangle lies to the closed cuboid from @p minCorner to @p maxCorner.
    ///
    /// @param splitAxis   0, 1 or 2: the cuboid is one half of a cuboid split along x, y or z.
    ///                    Any other value: nothing is known of its history, and every axis is
    ///                    tested. A hierarchy's root is tested with such a value.
    /// @param parentType  what this function answered for the parent; read only when @p splitAxis
    ///                    is 0, 1 or 2, and only in whether it is `TriangleCuboidContainsCentroid`.
    ///
    /// With @p splitAxis 0, 1 or 2 the answer is that of the full test only if the cuboid is half
    /// of its parent along that axis and the parent was not disjoint; otherwise it is wrong, and
    /// nothing reports it. The corners must be sorted as for `triangleIntersectsCuboid`.
    ///
    /// A zero normal never separates, so a degenerate triangle is decided by the other axes. A NaN
    /// in a vertex gives `TriangleCuboidDisjoint` in the full test.
    TriangleCuboidIntersectionType intersect(vectorC3d<double> const &minCorner,
                                             vectorC3d<double> const &maxCorner, int splitAxis,
                                             TriangleCuboidIntersectionType parentType) const;

private:
    friend struct TriangleCuboidView;

    vectorC3d<double> m_p0;
    vectorC3d<double> m_p1;
    vectorC3d<double> m_p2;
    vectorC3d<double> m_e0;      ///< p2 - p1
    vectorC3d<double> m_e1;      ///< p0 - p2
    vectorC3d<double> m_e2;      ///< p1 - p0
    vectorC3d<double> m_normal;  ///< e0 x e1, not normalised
    vectorC3d<double> m_minimum; ///< componentwise over the vertices
    vectorC3d<double> m_maximum;
    vectorC3d<double> m_centroid;
};

} // namespace MatUtil
