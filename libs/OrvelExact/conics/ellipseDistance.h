#pragma once

/// @file
/// The nearest point of an ellipse, a circle or an arc of one, in the plane and in space.

#include <OrvelExact/conics/Ellipse.h>

namespace orvelExact {

/// An arc of an ellipse in space: the points `centre + c u + s v` for the directions (c, s) from
/// `from` over (0, 1) to `to`. u and v span its plane; a circle has them perpendicular and of one
/// length.
struct EllipseArc3
{
    Point3 centre;
    Point3 u;
    Point3 v;
    Point2 from{1.0, 0.0};
    Point2 to{1.0, 0.0};
};

/// The nearest point of a curve of the plane.
struct NearestOnEllipse
{
    Status status = Status::Ok;
    double distance = 0.0; ///< model units
    Point2 point;
    Point2 direction; ///< on the ellipse, of unit length
};

/// The nearest point of a curve of space.
struct NearestOnEllipse3
{
    Status status = Status::Ok;
    double distance = 0.0; ///< model units
    Point3 point;
    Point2 direction; ///< on the ellipse, of unit length
};

/// How far a point is from the boundary of an ellipse, and the nearest point of the boundary.
///
/// Of several nearest points that differ by less than the rounding, the first one from u over v is
/// taken; of a circle seen from its centre, the end of u.
///
/// The distance is within one unit in its last place plus 2^-90 of the input's size (the distance
/// of the centre plus u and v); a distance below the latter is 0. The point's own distance exceeds
/// it by no more than its coordinates are rounded; the point itself is as sharp as the minimum is.
/// @return `NotFinite` for NaN or infinity, `Degenerate` for parallel u and v, `OutOfRange` for
///     lengths above 1e270, a size of the ellipse below 1e-270 or a distance above 2^200 times it
ORVELEXACT_EXPORT NearestOnEllipse nearestOnEllipse(Ellipse const &ellipse, Point2 const &p);

/// The same for an arc, whose ends belong to it.
/// @return as for the whole ellipse, and `Degenerate` for a direction of (0, 0)
ORVELEXACT_EXPORT NearestOnEllipse nearestOnArc(EllipseArc const &arc, Point2 const &p);

/// The same in space. Here u and v may be parallel or 0, which makes a segment or a point.
/// @return as for the plane, but `Degenerate` only for a direction of (0, 0)
ORVELEXACT_EXPORT NearestOnEllipse3 nearestOnArc(EllipseArc3 const &arc, Point3 const &p);

} // namespace orvelExact
