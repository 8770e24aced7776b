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
/// The 3-d hull is built by Quickhull (Barber, Dobkin and Huhdanpaa, 1996), the polygon by Graham's
/// scan (Graham, 1972). A call of `buildHull` tells the dimension of the input while it starts:
///
/// | `dimension()` | input                   | triangles          | `hullVertexIndices()`     |
/// |---------------|-------------------------|--------------------|---------------------------|
/// | -1            | empty, or not built yet | none               | empty                     |
/// | 0             | one location            | none               | empty                     |
/// | 1             | points of a line        | none               | empty                     |
/// | 2             | points of a plane       | fan of the polygon | the polygon, in its order |
/// | 3             | a solid                 | closed surface     | ascending                 |
///
/// Vertices are never merged or moved: each is an index into the given list. All tolerances are the
/// absolute length 1e-8 in the units of the input; nothing is scaled by the extent of the data, so
/// coordinates far above 1e6 leave less room for rounding than the tolerance takes.
///
/// Faces wait for expansion under their largest outside distance, and that key is unique: when two
/// faces have exactly the same distance, the later one replaces the earlier one in the queue. On
/// symmetric input, such as the corners of a cube, the hull may therefore lack vertices.
///
/// NaN and infinity are not rejected: they pass through the arithmetic and give some hull. A build
/// ends on any input.
///
/// An object owns its faces and shares the given list with the caller (copy on write). It is bound
/// to one thread at a time; separate objects may work in parallel. It can't be copied.
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
    /// smallest point, doesn't repeat it, and has no corner on the line of its neighbours; the turn
    /// is judged without tolerance. Points within 1e-8 of the start are copies of it; of points
    /// seen from the start within 1e-8 radians the farthest counts.
    ///
    /// Two points, or points of one line, give an empty list. One location gives the list holding
    /// the index of its smallest point. The empty vector gives the list holding 0, an index of no
    /// point. NaN and infinity give some list of valid indices.
    ///
    /// Cost: that of sorting. Of points that coincide exactly any one index may be reported, the
    /// same in each call.
    static QList<int> computeConvexHullIndices2D(QVector<vectorC2d<double>> const &points);

    /// The points at `computeConvexHullIndices2D`, in its order. The empty vector gives the one
    /// point (0, 0), since the index that is reported for it has no point.
    static QVector<vectorC2d<double>> computeConvexHull2D(QVector<vectorC2d<double>> const &points);

    /// Discards points and results and takes over `points`; the list is shared, not copied.
    void setData(QList<vectorC3d<double>> const &points);
    /// Discards points and results: `dimension()` is -1 again.
    void reset();

    /// Builds the hull of the points. True on any input; `dimension()` tells what was found.
    ///
    /// Call it once after the points were given. It clears nothing of an earlier build: a second
    /// call on a solid adds the same faces and indices once more, on planar input it gives the same
    /// result again.
    ///
    /// Cost: about n log n for points of which few lie on the hull, or all do. Working memory is at
    /// most 64 bytes a point beside the faces, their edges and their sets of outside points, and it
    /// is given back at the end.
    bool buildHull();

    /// Dimension of the input as the last build found it, -1 before.
    int dimension() const;

    /// Indices of the hull's vertices, see the table above.
    QList<int> hullVertexIndices() const;
    /// Copies of the points at `hullVertexIndices`, in its order.
    QVector<vectorC3d<double>> hullVertices() const;

    /// Number of triangles of the hull.
    int triangleCount() const;

    /// One triangle of the hull.
    ///
    /// @param index   0 to `triangleCount() - 1`
    /// @param a,b,c   corners, counter-clockwise seen from outside
    /// @param normal  unit normal, pointing out of the hull; the components of a triangle without
    ///                area are NaN
    /// @return false for any other index; then the outputs are left alone
    bool triangle(int index, vectorC3d<double> &a, vectorC3d<double> &b, vectorC3d<double> &c,
                  vectorC3d<double> &normal) const;

private:
    Q_DISABLE_COPY(ConvexHullBuilderC)

    ConvexHullBuilderCPrivate *d;
};
