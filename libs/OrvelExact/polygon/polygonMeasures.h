#pragma once

/// @file
/// Area, sense, centroid and box of a polygon.
///
/// A polygon is the list of its corners; its last edge leads back to the first corner. It may have
/// any number of corners and may cross itself.

#include <OrvelExact/OrvelExactExport.h>
#include <OrvelExact/base/Status.h>
#include <OrvelExact/base/points.h>
#include <OrvelExact/predicates/Sign.h>

#include <QtCore/QVector>

namespace orvelExact {

struct PolygonArea
{
    Status status = Status::Ok; ///< `Ok`, `NotFinite`, `OutOfRange` for a component above 1e150
    double value = 0.0;         ///< squared units
};

struct PolygonCentroid
{
    Status status = Status::Ok; ///< as of the area; `Degenerate` where that is 0
    Point2 point;
};

struct PolygonBox
{
    Status status = Status::Ok; ///< `Ok`, `NotFinite`, or `Empty` without corners
    Box2 box;
};

/// The area: positive for a polygon that runs counter-clockwise (y up), negative clockwise; 0 for
/// fewer than three corners. Where the polygon crosses itself, each part counts as often as it is
/// wound around.
///
/// The products are exact and their sum keeps twice the digits of a double: the error is below half
/// a unit in the last place plus n * 2^-102 * M^2, with n corners and M their largest component, so
/// the place of a polygon doesn't matter.
ORVELEXACT_EXPORT PolygonArea polygonArea(QVector<Point2> const &polygon);

/// `Positive` for a polygon that doesn't cross itself and runs counter-clockwise (y up), `Negative`
/// for clockwise, exactly: the turn at the smallest corner by x and then y. `Zero` for fewer than
/// three corners, and where the polygon goes back on itself in that corner. `NotFinite` for NaN or
/// infinity.
ORVELEXACT_EXPORT Sign polygonSense(QVector<Point2> const &polygon);

/// The centre of the area. The error is below n * 2^-48 * D^3 / |A|, with n corners, the diagonal D
/// of the box and the area A, plus a unit in the last place of the coordinate. The first part must
/// be below D / 2: of thinner polygons the result has no digit that counts. Where the polygon
/// crosses itself and |A| is below D^2, it is D^2 / |A| times as large, since the centre may lie
/// far outside.
ORVELEXACT_EXPORT PolygonCentroid polygonCentroid(QVector<Point2> const &polygon);

/// The smallest axis-parallel box, exact.
ORVELEXACT_EXPORT PolygonBox polygonBox(QVector<Point2> const &polygon);

} // namespace orvelExact
