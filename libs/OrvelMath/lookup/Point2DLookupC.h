#pragma once

#include <OrvelCore/runtime/PRefObject.h>
#include <OrvelCore/runtime/PRefPtr.h>
#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/Point2D.h>

#include <QList>
#include <QPair>
#include <QVariant>

class Point2DLookupCPrivate;
class Point2DLookupResultCPrivate;

/// One hit of a Point2DLookupC: a stored point, its user data and its distance from the query.
///
/// Reference counted. All three are copies, so a hit stays valid when the lookup is gone.
class ORVELMATH_EXPORT Point2DLookupResultC : public PRefObject
{
public:
    /// The point (0, 0), invalid user data, a distance of -1.
    Point2DLookupResultC();
    Point2DLookupResultC(Point2D const &point, QVariant const &userData, double distance);
    ~Point2DLookupResultC() override;

    Point2DLookupResultC(Point2DLookupResultC const &) = delete;
    Point2DLookupResultC &operator=(Point2DLookupResultC const &) = delete;

    Point2D getPoint() const;
    /// Distance from the query to the point in model units, not squared.
    double getDistance() const;
    QVariant getUserData() const;

private:
    Point2DLookupResultCPrivate *d;
};

/// A growing set of points of the plane, each with a QVariant of user data, that answers which are
/// nearest and which are within a radius.
///
/// Reference counted: hold it in a `PRefPtr`. The lookup owns copies of its points and their user
/// data; they can't be removed. Searches may run in many threads at once as long as no `insert`
/// runs.
///
/// | Question               | a point at the limit     | an equal point | order              |
/// |------------------------|--------------------------|----------------|--------------------|
/// | findNearest            | is found                 | is found       | one hit            |
/// | findNearestNotEqual    | is found                 | is passed over | one hit            |
/// | findKNearestNeighbors  | k = 1: found, k > 1: not | is found       | ascending distance |
/// | findWithinRange (both) | is left out              | is found       | that of the tree   |
///
/// The points form a k-d tree (Bentley, 1975) that is never balanced. Points in random order make a
/// tree of logarithmic depth. Below 1001 levels **nothing is stored, without a report**: of a
/// million equal points 1002 are kept, of a row of a raster 1002, of points that ascend in both
/// coordinates 1002. Shuffle sorted input and drop copies before you insert points by the
/// thousand.
///
/// No function reports an error. A point with a NaN is stored and never found; a query point, limit
/// or radius of NaN finds nothing.
class ORVELMATH_EXPORT Point2DLookupC : public PRefObject
{
public:
    /// An empty lookup.
    Point2DLookupC();
    ~Point2DLookupC() override;

    Point2DLookupC(Point2DLookupC const &) = delete;
    Point2DLookupC &operator=(Point2DLookupC const &) = delete;

    /// Stores copies of `point` and `userData`, once more when the point is stored already; nothing
    /// at the depth limit. When memory is exhausted it throws `std::bad_alloc` and the lookup stays
    /// as it was.
    void insert(Point2D const &point, QVariant const &userData);

    /// The stored point nearest to `point`; null when none is at most `maxDistance` (model units)
    /// away.
    ///
    /// The limit is inclusive, so that 0 finds a stored point itself, and only its size counts, not
    /// its sign; infinity sets no limit. Of several points at the same distance one is taken that
    /// depends on the order of insertion. Logarithmic in the number of points that came in random
    /// order.
    PRefPtr<Point2DLookupResultC> findNearest(Point2D const &point, double maxDistance) const;

    /// As findNearest, but passes over every point whose x and y both equal those of `point`. There
    /// is no tolerance: a point that differs in the last bit is not equal.
    PRefPtr<Point2DLookupResultC> findNearestNotEqual(Point2D const &point,
                                                      double maxDistance) const;

    /// Up to `k` stored points nearest to `point`, by ascending distance; fewer when fewer are near
    /// enough.
    ///
    /// For k = 1 the list holds the answer of findNearest, one null entry when there is none. For a
    /// k below 1 it is empty. For a k above 1 it is empty when findNearestNotEqual finds nothing;
    /// otherwise it holds points that are nearer than `maxDistance`, strictly, among them those
    /// equal to `point`. Points at the same distance keep the order of the tree.
    ///
    /// Searches discs of doubling radius until one holds k points, the first of them twice as large
    /// as the distance to the nearest point that is not equal.
    QList<PRefPtr<Point2DLookupResultC>> findKNearestNeighbors(Point2D const &point, int k,
                                                               double maxDistance) const;

    /// All stored points nearer to `point` than `radius` (model units), duplicates included.
    ///
    /// The disc is open: a point at exactly `radius` is not in it, and a radius that is 0 or
    /// negative finds nothing. The order is that of the tree (a node before its left subtree before
    /// its right one), the same for the same order of insertion.
    QList<Point2D> findWithinRange(Point2D const &point, double radius) const;

    /// As findWithinRange, each point with its user data.
    QList<QPair<Point2D, QVariant>> findWithinRangeUserData(Point2D const &point,
                                                            double radius) const;

private:
    Point2DLookupCPrivate *d;
};
