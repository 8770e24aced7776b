#pragma once

#include <OrvelExact/OrvelExactExport.h>
#include <OrvelExact/base/points.h>
#include <OrvelExact/predicates/Sign.h>

/// @file
/// Whether a point lies in the circle or the sphere through others, exactly.
///
/// Filter and exact stages as in orientation.h.

namespace orvelExact {

/// Where d lies as to the circle through a, b and c.
///
/// With a, b, c counter-clockwise: `Positive` inside, `Negative` outside, `Zero` on the circle.
/// With a, b, c clockwise the signs are swapped. With a, b, c on one line that line is the circle,
/// and its sides change places when two of them do. `Zero` when two of the four points are equal.
///
/// Exact for all finite points. `NotFinite` if a component is NaN or infinite.
ORVELEXACT_EXPORT Sign inCircle(Point2 const &a, Point2 const &b, Point2 const &c, Point2 const &d);

/// Where e lies as to the sphere through a, b, c and d.
///
/// With `orientation3d(a, b, c, d)` positive: `Positive` inside, `Negative` outside, `Zero` on the
/// sphere. With a negative orientation the signs are swapped. `Zero` when two of the five are
/// equal, and when all five are on one circle or one plane.
///
/// Exact for all finite points. `NotFinite` if a component is NaN or infinite.
ORVELEXACT_EXPORT Sign inSphere(Point3 const &a, Point3 const &b, Point3 const &c, Point3 const &d,
                                Point3 const &e);

} // namespace orvelExact
