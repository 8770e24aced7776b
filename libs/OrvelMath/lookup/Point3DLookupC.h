#pragma once

/// @file
/// Which points in space are near? A growing set of points.
///
/// @see Point2DLookupC.h for points of the plane, with user data and the k nearest

#include <OrvelCore/runtime/PRefObject.h>
#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/Point3D.h>

#include <QList>

#include <utility>

class Point3DLookupCPrivate;

/// A growing set of points in space that answers which is nearest and which are within a radius.
///
/// Reference counted: hold it in a `PRefPtr`; it can't be copied. The lookup owns copies of its
/// points; they can't be removed. Searches may run in many threads at once as long as no `insert`
/// runs.
///
/// | Question         | a point at exactly the limit | order of the answer                     |
/// |------------------|------------------------------|-----------------------------------------|
/// | findNearest      | is found                     | one point                               |
/// | findWithinRange  | is left out                  | set by the order of insertion, unsorted |
///
/// The points form a k-d tree (Bentley, 1975) that is never balanced. Points in random order make a
/// tree of logarithmic depth. Below 1001 levels **nothing is stored, without a report**: of a
/// million equal points 1002 are kept, of a row of a raster 1002, of points that ascend in all
/// coordinates 1002. Shuffle sorted input and drop copies before you insert points by the
/// thousand.
///
/// No function reports an error but `std::bad_alloc`, and every function returns. A point with a
/// NaN is stored and never found; a query point, limit or radius of NaN finds nothing. A point with
/// an infinite coordinate is infinitely far: `findNearest` gives it when the limit is infinite and
/// nothing nearer is stored, the range never does. Distances are compared as squares: below about
/// 1e-162 they are 0, above 1e154 infinite.
class ORVELMATH_EXPORT Point3DLookupC : public PRefObject
{
public:
    /// An empty lookup.
    Point3DLookupC();
    ~Point3DLookupC() override;

    Point3DLookupC(Point3DLookupC const &) = delete;
    Point3DLookupC &operator=(Point3DLookupC const &) = delete;

    /// Stores a copy of `point` (model units), once more when it is stored already; nothing at the
    /// depth limit. When memory is exhausted it throws `std::bad_alloc` and the lookup stays as it
    /// was. Logarithmic in the number of points that came in random order, at most 1002 steps; a
    /// point takes about 36 bytes.
    void insert(Point3D const &point);

    /// The stored point nearest to `point` and true; or (0, 0, 0) and false when none is at most
    /// `maxDistance` away.
    ///
    /// @param point        the place to search around (model units)
    /// @param maxDistance  inclusive (model units, not squared), so that 0 finds a stored point
    ///                     itself; only its size counts, not its sign; infinity sets no limit
    ///
    /// Of several points at the same distance one is taken that depends on the order of insertion.
    /// Allocates nothing; logarithmic in the number of points that came in random order.
    std::pair<Point3D, bool> findNearest(Point3D const &point, double maxDistance) const;

    /// All stored points nearer to `point` than `radius`, duplicates included.
    ///
    /// @param point   the centre of the ball (model units)
    /// @param radius  model units, not squared
    ///
    /// The ball is open: a point at exactly `radius` is not in it, and a radius of 0 finds nothing.
    /// Nor does a negative one, unless it is so small beside `point` that subtracting it changes no
    /// coordinate: then the points equal to `point` are found. The order is that of the tree (a
    /// node before its left subtree before its right one), the same for the same order of
    /// insertion. Linear in the number of points found, plus the logarithm of all where these came
    /// in random order.
    QList<Point3D> findWithinRange(Point3D const &point, double radius) const;

private:
    Point3DLookupCPrivate *d;
};
