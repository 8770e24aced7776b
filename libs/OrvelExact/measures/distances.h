#pragma once

/// @file
/// Distances among points, segments and triangles, with the nearest points.
///
/// Each distance is within one unit in its last place plus 2^-90 of the input's size, that is the
/// largest difference of two of its coordinates; a distance below the latter is 0, so that what
/// meets has a distance of 0. The nearest points have coordinates within the same bound and half
/// a unit in the last place, where they are unique; of several, one pair is given, the same on
/// every platform.
///
/// Segments may be points and triangles segments or points. Status `NotFinite` for NaN or
/// infinity, `OutOfRange` for a coordinate above 1e270. Constant cost, no allocation.
///
/// Distances to ellipses, circles and their arcs are in conics/ellipseDistance.h.

#include <OrvelExact/base/Status.h>
#include <OrvelExact/base/points.h>

namespace orvelExact {

/// A point of the plane and how far it is.
struct Nearest2
{
    Status status = Status::Ok;
    double distance = 0.0; ///< model units
    Point2 point;
};

/// A point of space and how far it is.
struct Nearest3
{
    Status status = Status::Ok;
    double distance = 0.0; ///< model units
    Point3 point;
};

/// The nearest points of two things in the plane.
struct NearestPair2
{
    Status status = Status::Ok;
    double distance = 0.0; ///< model units
    Point2 onFirst;
    Point2 onSecond;
};

/// The nearest points of two things in space.
struct NearestPair3
{
    Status status = Status::Ok;
    double distance = 0.0; ///< model units
    Point3 onFirst;
    Point3 onSecond;
};

/// The nearest point of the segment from a to b.
/// @see MatUtil::projectPointOntoLine for the foot on an infinite line
ORVELEXACT_EXPORT Nearest2 nearestOnSegment(Point2 const &p, Point2 const &a, Point2 const &b);
ORVELEXACT_EXPORT Nearest3 nearestOnSegment(Point3 const &p, Point3 const &a, Point3 const &b);

/// The nearest points of the segments from a0 to a1 and from b0 to b1; a crossing of the two if
/// there is one.
ORVELEXACT_EXPORT NearestPair2 nearestOfSegments(Point2 const &a0, Point2 const &a1,
                                                 Point2 const &b0, Point2 const &b1);
ORVELEXACT_EXPORT NearestPair3 nearestOfSegments(Point3 const &a0, Point3 const &a1,
                                                 Point3 const &b0, Point3 const &b1);

/// The nearest point of the triangle with its inside; in the plane a point of the inside is its own
/// nearest.
ORVELEXACT_EXPORT Nearest2 nearestOnTriangle(Point2 const &p, Point2 const &a, Point2 const &b,
                                             Point2 const &c);
ORVELEXACT_EXPORT Nearest3 nearestOnTriangle(Point3 const &p, Point3 const &a, Point3 const &b,
                                             Point3 const &c);

/// The nearest points of two triangles with their insides; a common one if there is any.
ORVELEXACT_EXPORT NearestPair2 nearestOfTriangles(Point2 const (&first)[3],
                                                  Point2 const (&second)[3]);
ORVELEXACT_EXPORT NearestPair3 nearestOfTriangles(Point3 const (&first)[3],
                                                  Point3 const (&second)[3]);

} // namespace orvelExact
