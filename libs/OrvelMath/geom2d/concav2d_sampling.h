#pragma once

/// @file
/// Points along arcs, circles and ellipses.
///
/// The sampling functions empty the list without deleting the points that it refers to, and
/// append points that are each allocated alone, with `new Point2D`. From then on the caller owns
/// them and deletes each one:
///
/// @code
/// QLinkedList<Point2D *> points;
/// concav2d::getCirclePoints(centre, 2.0, points, 0.0);
/// // ...
/// qDeleteAll(points);
/// @endcode
///
/// The angle of a sample is the sum of the steps so far, not a multiple of the step, and the end
/// point is always appended once more at its own angle. If the sum reaches the end angle exactly,
/// the end point is there twice.
///
/// Cost: two allocations, a sine and a cosine per point. Of the instructions, the freeing included,
/// 60 in 100 go to memory and 20 to the sine and the cosine. When memory runs out, the list holds
/// the points so far, each of them the caller's to delete, and nothing is lost.
///
/// A step that is negative, or too small to change the angle, does not end: the list grows until
/// memory runs out. A step of NaN gives the first and the last point; NaN among the other arguments
/// ends too, with points that are NaN. An infinite end angle does not end.

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/Point2D.h>

// Qt 5.15 declares QLinkedList deprecated, and it is the type of this interface. The attribute is
// kept from it here, the one place, so that a client's own lists compile without a warning too; if
// the client included QLinkedList before, at least the declarations below stay silent. A client
// that leaves out what is deprecated, by QT_DISABLE_DEPRECATED_BEFORE, gets this class all the
// same.
#include <QtCore/qglobal.h>
#pragma push_macro("QT_DEPRECATED_VERSION_X_5_15")
#undef QT_DEPRECATED_VERSION_X_5_15
#define QT_DEPRECATED_VERSION_X_5_15(text)
#include <QtCore/qcontainertools_impl.h>
#include <QtCore/qdatastream.h>
#include <QtCore/qiterator.h>
#include <QtCore/qrefcount.h>
#if !QT_DEPRECATED_SINCE(5, 15)
#undef QLINKEDLIST_H // the client's own include, if there was one, gave nothing
#endif
#pragma push_macro("QT_DISABLE_DEPRECATED_BEFORE")
#undef QT_DISABLE_DEPRECATED_BEFORE
#define QT_DISABLE_DEPRECATED_BEFORE 0
#include <QtCore/QLinkedList>
#pragma pop_macro("QT_DISABLE_DEPRECATED_BEFORE")
#pragma pop_macro("QT_DEPRECATED_VERSION_X_5_15")

QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

namespace concav2d {

/// Samples a three-point arc counter-clockwise. An arc given clockwise runs from p2 to p0.
///
/// @param points receives the samples; emptied in any case.
/// @param tol not read.
/// @param step radians; exactly 0 means five degrees. A negative step, or one too small to change
///             the angle, does not end.
/// @return 0 done; 1 if the three points are exactly collinear, the list then is empty.
///
/// The number of points is the whole part of sweep / step, plus 2.
///
/// @image html sampling.svg
ORVELMATH_EXPORT int getArcPoints(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                  QLinkedList<Point2D *> &points, double tol, double step);

/// Samples a circle counter-clockwise from the angle 0, and closes it with a point at the full
/// turn.
///
/// @param points receives the samples; emptied first. Even a step above a full turn gives the
///               first and the closing point.
/// @param step radians; exactly 0 means five degrees. A negative step, or one too small to change
///             the angle, does not end.
/// @return always 0.
ORVELMATH_EXPORT int getCirclePoints(Point2D const &centre, double radius,
                                     QLinkedList<Point2D *> &points, double step);

/// Samples an ellipse arc counter-clockwise from start to end.
///
/// @param axisA first semi-axis as a vector: its length and its direction.
/// @param axisB second semi-axis; only its length is read.
/// @param start, end parameter angles in degrees. If start lies above end it is lowered by a full
///                   turn.
/// @param points receives the samples; emptied first.
/// @param step radians of the parameter angle; exactly 0 means five degrees. A negative step, or
///             one too small to change the angle, does not end.
/// @return always 0.
ORVELMATH_EXPORT int getEllipseArcPoints(Point2D const &centre, Point2D const &axisA,
                                         Point2D const &axisB, double start, double end,
                                         QLinkedList<Point2D *> &points, double step);

/// Samples a full ellipse counter-clockwise, and closes it with a point at the full turn.
///
/// @param axisA, axisB vectors whose lengths are the semi-axes; their directions are not read.
/// @param rotation of the ellipse's own x axis, in degrees.
/// @param points receives the samples; emptied first. Even a step above a full turn gives the
///               first and the closing point.
/// @param step radians of the parameter angle; exactly 0 means five degrees. A negative step, or
///             one too small to change the angle, does not end.
/// @return always 0.
///
/// @image html sampling.svg
ORVELMATH_EXPORT int getEllipsePoints(Point2D const &centre, Point2D const &axisA,
                                      Point2D const &axisB, double rotation,
                                      QLinkedList<Point2D *> &points, double step);

/// Point of an ellipse at a parameter angle.
///
/// @param a, b semi-axes.
/// @param rotation of the ellipse's own x axis, in degrees; mind that it comes before the angle.
/// @param angle parameter angle in degrees.
/// @return always 0.
ORVELMATH_EXPORT int getEllipsePoint(Point2D const &centre, double a, double b, Point2D &out,
                                     double rotation, double angle);

/// Point of an ellipse at a parameter angle, with the lengths of two vectors as semi-axes. The
/// directions of the vectors are not read.
ORVELMATH_EXPORT int getEllipsePoint(Point2D const &centre, Point2D const &axisA,
                                     Point2D const &axisB, Point2D &out, double rotation,
                                     double angle);

} // namespace concav2d

QT_WARNING_POP
