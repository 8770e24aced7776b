#pragma once

/// @file
/// Convex hulls in the plane and in space.

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/vectorC.h>

#include <QtCore/QList>
#include <QtCore/QVector>
#include <QtCore/qglobal.h>

class ConvexHullBuilderCPrivate;

/// Convex hulls of point lists: a polygon in the plane, a triangulated polyhedron in space.
///
/// | question                   | answered by                                                    |
/// |----------------------------|----------------------------------------------------------------|
/// | hull polygon of 2-d points | the static `computeConvexHullIndices2D`, `computeConvexHull2D` |
/// | hull of 3-d points         | `setData`, `buildHull`, then the accessors                     |
///
/// The hull in space is built by Quickhull (Barber, Dobkin and Huhdanpaa, 1996), the polygon by
/// Graham's scan (Graham, 1972). `buildHull` finds the dimension of the input first:
///
/// | `dimension()` | input                          | triangles          | `hullVertexIndices()` |
/// |---------------|--------------------------------|--------------------|---------------------------|
/// | -1            | empty, or not built yet        | none               | empty | | 0 | one
/// location, within 1e-8      | none               | empty                     | | 1             |
/// points of a line, within 1e-8  | none               | empty                     | | 2 | points
/// of a plane, within 1e-8 | fan of the polygon | the polygon, in its order | | 3             | a
/// solid                        | closed surface     | ascending                 |
///
/// **Units.** Coordinates, results and tolerances are in model units; no angle comes in or goes
/// out. Vertices are never merged or moved: each is an index into the given list, from 0.
///
/// **Where the hull is not the true one.** Each of these is the answer of the arithmetic and stays
/// as it is:
/// - Every tolerance is the length 1e-8, whatever the size of the model. Where coordinates exceed
///   about 1e6, rounding exceeds the tolerance. The build ends, but the surface can have gaps.
/// - Where many vertices lie closer to one plane than 1e-8, faces can overlap and lie inside out:
///   with 2 * 10^4 points of a cone, tens of 31000 faces do, and the area comes out too large by
///   0.1 percent; a torus of 10^6 points had three such faces. Whoever sums areas or volumes of
///   dense, smooth clouds should thin them out first.
/// - Faces wait for expansion under their largest outside distance, and that key is unique. When
/// two
///   faces have exactly the same distance, the later one takes the place of the earlier one. On
///   symmetric input, such as the corners of a cube, the hull may lack vertices.
/// - From extents of about 1e77 on, products of coordinates overflow: such points have dimension 2
///   and no triangles.
/// - NaN and infinity are not rejected: they pass through the arithmetic and give some hull of
/// valid
///   indices. A list that begins with a NaN point has dimension 1.
///
/// **Ownership.** An object owns its faces and shares the given list with the caller (copy on
/// write). It can't be copied. One object belongs to one thread at a time; separate objects may
/// work in parallel. Every function ends on any input. Functions that allocate throw
/// std::bad_alloc when there is no memory; then nothing leaks, and the object can be used again.
/// @see orvelExact::ConvexHull, orvelExact::convexHull2d: every extreme point and no other
class ORVELMATH_EXPORT ConvexHullBuilderC
{
public:
    /// An empty builder: no points, `dimension()` -1.
    ConvexHullBuilderC();
    /// A builder loaded with `points`, as after `setData`.
    ConvexHullBuilderC(QList<vectorC3d<double>> const &points);
    ~ConvexHullBuilderC();

    /// Indices of the corners of the convex polygon of 2-d points.
    ///
    /// The polygon runs counter-clockwise (x to the right, y up), begins at the lexicographically
    /// smallest point, doesn't repeat it, and has no corner on the line of its neighbours. A turn
    /// is judged without tolerance. Points within 1e-8 of the start count as copies of it. Of
    /// points whose directions from the start differ by less than 1e-8 radians the farthest counts;
    /// such a run of directions is measured from its first one.
    ///
    /// | input                                  | result                                       |
    /// |----------------------------------------|----------------------------------------------|
    /// | no point                               | the list of 0, an index of no point          |
    /// | one location, within 1e-8              | the list of the smallest point's index       |
    /// | two points, or points of one line      | an empty list                                |
    /// | corners that occur several times       | one index of each, not always the lowest,    |
    /// |                                        | the same in each call                        |
    /// | NaN or infinity among the coordinates  | some list of valid indices, or an empty one  |
    ///
    /// Cost: about n log n steps. Points that fall back to the plain sort, as different points of
    /// one angle and distance make them, can take up to n^2.
    ///
    /// @see orvelExact::convexHull2d, which has no tolerance
    static QList<int> computeConvexHullIndices2D(QVector<vectorC2d<double>> const &points);

    /// The points at `computeConvexHullIndices2D`, in its order. The empty vector gives the one
    /// point (0, 0), since the index that is reported for it has no point.
    /// @see orvelExact::convexHull2d, which has no tolerance
    static QVector<vectorC2d<double>> computeConvexHull2D(QVector<vectorC2d<double>> const &points);

    /// Discards points and results and takes over `points`; the list is shared, not copied.
    void setData(QList<vectorC3d<double>> const &points);
    /// Discards points and results: `dimension()` is -1 again.
    void reset();

    /// Builds the hull of the points. `dimension()` tells what was found.
    ///
    /// Call it once after the points were given. It clears nothing of an earlier build: a second
    /// call on a solid adds the same faces and indices once more, on planar input it gives the same
    /// result again. If it throws, all results are gone and the points are still there.
    ///
    /// Cost: about n log n steps where few points are vertices, or where all are and lie on a
    /// curved surface. Up to n^2 steps where many vertices lie in one plane, such as the rim of a
    /// finely divided cylinder: each of them replaces the faces in that plane. Memory: 48 bytes per
    /// point where few points are vertices, about 580 where all are; what is not part of the hull
    /// is given back at the end.
    ///
    /// @return true on any input
    bool buildHull();

    /// Dimension of the input as the last build found it: 0 to 3; -1 before a build and for an
    /// empty list.
    int dimension() const;

    /// Indices of the hull's vertices into the given list, as the table above says; the list is
    /// shared.
    QList<int> hullVertexIndices() const;
    /// Copies of the points at `hullVertexIndices`, in its order.
    QVector<vectorC3d<double>> hullVertices() const;

    /// Number of triangles of the hull.
    int triangleCount() const;

    /// One triangle of the hull. Triangles are in the order in which the build made them.
    ///
    /// @param index   0 to `triangleCount() - 1`
    /// @param a,b,c   corners, counter-clockwise seen from outside; copies of given points
    /// @param normal  unit normal, pointing out of the hull; the components of a triangle without
    ///                area are NaN
    /// @return true, with all four outputs written; false for any other index, a negative one
    ///         included, with all four left alone
    bool triangle(int index, vectorC3d<double> &a, vectorC3d<double> &b, vectorC3d<double> &c,
                  vectorC3d<double> &normal) const;

private:
    Q_DISABLE_COPY(ConvexHullBuilderC)

    ConvexHullBuilderCPrivate *d;
};
