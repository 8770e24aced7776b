#pragma once

/// @file
/// Which points of the plane are near? A growing set of points with user data.
///
/// @see Point3DLookupC.h for points in space

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
/// Reference counted: hold it in a `PRefPtr`. All three are copies, so a hit stays valid when the
/// lookup is gone and doesn't change when the lookup grows. It can't be copied or changed; many
/// threads may read one.
class ORVELMATH_EXPORT Point2DLookupResultC : public PRefObject
{
public:
    /// The point (0, 0), invalid user data, a distance of -1.
    Point2DLookupResultC();
    /// Holds what it is given, unchecked.
    ///
    /// @param point     the stored point (model units)
    /// @param userData  what was stored with it; a copy is made, which most types share
    /// @param distance  from the query to the point (model units, not squared)
    Point2DLookupResultC(Point2D const &point, QVariant const &userData, double distance);
    ~Point2DLookupResultC() override;

    Point2DLookupResultC(Point2DLookupResultC const &) = delete;
    Point2DLookupResultC &operator=(Point2DLookupResultC const &) = delete;

    /// The stored point, to the bit.
    Point2D getPoint() const;
    /// Distance from the query to the point in model units, not squared.
    double getDistance() const;
    /// A copy of the user data; an invalid QVariant for a hit without.
    QVariant getUserData() const;

private:
    Point2DLookupResultCPrivate *d;
};

/// A growing set of points of the plane, each with a QVariant of user data, that answers which are
/// nearest and which are within a radius.
///
/// Reference counted: hold it in a `PRefPtr`; it can't be copied. The lookup owns copies of its
/// points and their user data; they can't be removed. Searches may run in many threads at once as
/// long as no `insert` runs.
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
/// No function reports an error but `std::bad_alloc`, and every function returns. A point with a
/// NaN is stored and never found; a query point, limit or radius of NaN finds nothing. A point with
/// an infinite coordinate is infinitely far: `findNearest` and `findNearestNotEqual` give it when
/// the limit is infinite and nothing nearer is stored, the ranges never do. Distances are compared
/// as squares: below about 1e-162 they are 0, above 1e154 infinite.
class ORVELMATH_EXPORT Point2DLookupC : public PRefObject
{
public:
    /// An empty lookup.
    Point2DLookupC();
    ~Point2DLookupC() override;

    Point2DLookupC(Point2DLookupC const &) = delete;
    Point2DLookupC &operator=(Point2DLookupC const &) = delete;

    /// Stores copies of `point` (model units) and `userData`, once more when the point is stored
    /// already; nothing at the depth limit. When memory is exhausted it throws `std::bad_alloc` and
    /// the lookup stays as it was. Logarithmic in the number of points that came in random order,
    /// at most 1002 steps; a point takes about 45 bytes and what its user data take.
    void insert(Point2D const &point, QVariant const &userData);

    /// The stored point nearest to `point`, in a hit of its own; null when none is at most
    /// `maxDistance` away.
    ///
    /// @param point        the place to search around (model units)
    /// @param maxDistance  inclusive (model units, not squared), so that 0 finds a stored point
    ///                     itself; only its size counts, not its sign; infinity sets no limit
    ///
    /// Of several points at the same distance one is taken that depends on the order of insertion,
    /// of equal points the last one stored. Logarithmic in the number of points that came in random
    /// order.
    PRefPtr<Point2DLookupResultC> findNearest(Point2D const &point, double maxDistance) const;

    /// As findNearest, but passes over every point whose x and y both equal those of `point`. There
    /// is no tolerance: a point that differs in the last bit is not equal; 0 and -0 are.
    PRefPtr<Point2DLookupResultC> findNearestNotEqual(Point2D const &point,
                                                      double maxDistance) const;

    /// Up to `k` stored points nearest to `point`, by ascending distance; fewer when fewer are near
    /// enough.
    ///
    /// @param point        the place to search around (model units)
    /// @param k            how many points are wanted
    /// @param maxDistance  model units, not squared; a negative one leaves only the case k = 1
    ///
    /// For k = 1 the list holds the answer of findNearest, one null entry when there is none. For a
    /// k below 1 it is empty. For a k above 1 it is empty when findNearestNotEqual finds nothing;
    /// otherwise it holds points that are nearer than `maxDistance`, strictly, among them those
    /// equal to `point`. Points at the same distance keep the order of the tree.
    ///
    /// The list is that of the first of the discs of doubling radius that holds k points; the first
    /// of them is twice as large as the distance to the nearest point that is not equal. Up to
    /// k = 200 it is found in one search, logarithmic in the number of points that came in random
    /// order; beyond that the discs are searched one after the other.
    QList<PRefPtr<Point2DLookupResultC>> findKNearestNeighbors(Point2D const &point, int k,
                                                               double maxDistance) const;

    /// All stored points nearer to `point` than `radius`, duplicates included.
    ///
    /// @param point   the centre of the disc (model units)
    /// @param radius  model units, not squared
    ///
    /// The disc is open: a point at exactly `radius` is not in it, and a radius of 0 finds nothing.
    /// Nor does a negative one, unless it is so small beside `point` that subtracting it changes no
    /// coordinate: then the points equal to `point` are found. The order is that of the tree (a
    /// node before its left subtree before its right one), the same for the same order of
    /// insertion. Linear in the number of points found, plus the logarithm of all where these came
    /// in random order.
    QList<Point2D> findWithinRange(Point2D const &point, double radius) const;

    /// As findWithinRange, each point with its user data.
    QList<QPair<Point2D, QVariant>> findWithinRangeUserData(Point2D const &point,
                                                            double radius) const;

private:
    Point2DLookupCPrivate *d;
};
