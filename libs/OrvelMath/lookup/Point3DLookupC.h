#pragma once

#include <OrvelCore/runtime/PRefObject.h>
#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/Point3D.h>

#include <QList>

#include <utility>

class Point3DLookupCPrivate;

/// A growing set of points in space that answers which is nearest and which are within a radius.
///
/// Reference counted: hold it in a `PRefPtr`. The lookup owns copies of its points; they can't be
/// removed. Searches may run in many threads at once as long as no `insert` runs.
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
/// No function reports an error. A point with a NaN is stored and never found; a query point, limit
/// or radius of NaN finds nothing.
class ORVELMATH_EXPORT Point3DLookupC : public PRefObject
{
public:
    /// An empty lookup.
    Point3DLookupC();
    ~Point3DLookupC() override;

    Point3DLookupC(Point3DLookupC const &) = delete;
    Point3DLookupC &operator=(Point3DLookupC const &) = delete;

    /// Stores a copy of `point`, once more when it is stored already; nothing at the depth limit.
    /// When memory is exhausted it throws `std::bad_alloc` and the lookup stays as it was.
    void insert(Point3D const &point);

    /// The stored point nearest to `point` and true; or (0, 0, 0) and false when none is at most
    /// `maxDistance` (model units) away.
    ///
    /// The limit is inclusive, so that 0 finds a stored point itself, and only its size counts, not
    /// its sign; infinity sets no limit. Of several points at the same distance one is taken that
    /// depends on the order of insertion. Allocates nothing; logarithmic in the number of points
    /// that came in random order.
    std::pair<Point3D, bool> findNearest(Point3D const &point, double maxDistance) const;

    /// All stored points nearer to `point` than `radius` (model units), duplicates included.
    ///
    /// The sphere is open: a point at exactly `radius` is not in it, and a radius that is 0 or
    /// negative finds nothing. The order is that of the tree (a node before its left subtree before
    /// its right one), the same for the same order of insertion.
    QList<Point3D> findWithinRange(Point3D const &point, double radius) const;

private:
    Point3DLookupCPrivate *d;
};
