#pragma once

/// @file
/// The namespace `MatUtil`: vector geometry on the second generation of value types.

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/valueTypes.h>
#include <OrvelMath/geom3d/TriangleCuboidIntersector.h>

/// Vector geometry on the second generation of value types.
///
/// A line is a point and a direction, a plane is a point and a normal. Directions and normals need
/// not be unit vectors unless stated. Each function has a fixed limit of its own, named below;
/// none of them reads the accuracy class of the thread. A result of type bool is false when there
/// is no answer, and the outputs are then of no use. A construction without bool tells failure by
/// the radius -1.0.
///
/// NaN and infinities run through the arithmetic. The tests of getCircleCenter, intersectLinePlane
/// and rayIntersectsTriangle fail on NaN, which so comes out in the results. Where a system of
/// equations is solved, by intersectPlanes, intersectLines, bisectingPlane and getSphereCenter, a
/// NaN can also take a pivot away and so count as degenerate.
///
/// All functions are pure apart from their outputs, may be called from any thread, allocate
/// nothing and take constant time.
namespace MatUtil {

/// Returns (v.y, -v.x): `v` turned a quarter clockwise, of the same length. The counter-clockwise
/// neighbour is Point2D::Normale.
ORVELMATH_EXPORT Point2D getPerpendicularVector(Point2D const &v);

/// Returns the centre of the circle through three points, by barycentric weights, and writes its
/// radius.
///
/// Three points count as collinear when twice the squared cross product of two sides is below
/// 1e-6: a fourth power of a length, so a triangle with sides near 0.02 is refused already, at any
/// angle. The radius is -1.0 then and the result (0, 0).
///
/// @see concav2d::getArcMiddle, which refuses exactly collinear points only
/// @see orvelExact::circleThrough, which takes triangles of any size
ORVELMATH_EXPORT Point2D getCircleCenter(Point2D const &a, Point2D const &b, Point2D const &c,
                                         double &radius);

/// Returns the foot of the perpendicular from `point` to the line. A zero `direction` gives NaN.
///
/// @see ProjectOntoLine
/// @see orvelExact::nearestOnSegment, where the ends count
ORVELMATH_EXPORT vectorC3d<double> projectPointOntoLine(vectorC3d<double> const &point,
                                                        vectorC3d<double> const &linePoint,
                                                        vectorC3d<double> const &direction);

/// Returns the foot of the perpendicular from `point` to the plane. A zero `normal` gives NaN.
///
/// @see ProjectOntoPlane
ORVELMATH_EXPORT vectorC3d<double> projectPointOntoPlane(vectorC3d<double> const &point,
                                                         vectorC3d<double> const &planePoint,
                                                         vectorC3d<double> const &normal);

/// Returns `point` turned half way round the line. A zero `direction` gives NaN.
ORVELMATH_EXPORT vectorC3d<double> reflectThroughLine(vectorC3d<double> const &point,
                                                      vectorC3d<double> const &linePoint,
                                                      vectorC3d<double> const &direction);

/// Returns the mirror image of `point` in the plane. A zero `normal` gives NaN.
ORVELMATH_EXPORT vectorC3d<double> reflectThroughPlane(vectorC3d<double> const &point,
                                                       vectorC3d<double> const &planePoint,
                                                       vectorC3d<double> const &normal);

/// Finds the line common to two planes. Returns false for parallel planes, distinct or not; pivots
/// of the two normals at or below 1e-12 count as missing.
///
/// `direction` is a unit vector and is written only on true. `linePoint` is the point of the line
/// with 0.0 in the coordinate that found no pivot, which is not the nearest to anything; it is
/// overwritten on false too: by one solution where the planes coincide, by zeros where there is
/// none.
///
/// @see IntersectPlanePlane
ORVELMATH_EXPORT bool intersectPlanes(vectorC3d<double> const &point1,
                                      vectorC3d<double> const &normal1,
                                      vectorC3d<double> const &point2,
                                      vectorC3d<double> const &normal2,
                                      vectorC3d<double> &linePoint, vectorC3d<double> &direction);

/// Finds the common point of two lines. Returns false, and leaves `point` alone, for parallel,
/// coincident and skew lines alike.
///
/// Lines are skew as soon as the third equation has a residual above 1e-12, in model units: two
/// lines that meet only to within the rounding of large coordinates may be reported as not
/// meeting. See IntersectLineLine for the closest points of two lines.
///
/// @see IntersectLineLine
ORVELMATH_EXPORT bool intersectLines(vectorC3d<double> const &point1,
                                     vectorC3d<double> const &direction1,
                                     vectorC3d<double> const &point2,
                                     vectorC3d<double> const &direction2, vectorC3d<double> &point);

/// Finds the common point of a line and a plane. Returns false, and leaves `point` alone, when the
/// scalar product of `direction` and `normal` is below 1e-5 in magnitude. That test is absolute,
/// so both should be of reasonable length: a short direction is refused although it would cross.
///
/// @see IntersectLinePlane, CalcXLinePlane
ORVELMATH_EXPORT bool intersectLinePlane(vectorC3d<double> const &linePoint,
                                         vectorC3d<double> const &direction,
                                         vectorC3d<double> const &planePoint,
                                         vectorC3d<double> const &normal, vectorC3d<double> &point);

/// Finds a plane that halves two planes: it holds their common line and the sum of their normals.
/// With unit normals it is one of the two planes that have equal distances to both. `normal` is a
/// unit vector then, and `point` the line point of intersectPlanes.
///
/// Where intersectPlanes fails, `point` is half way between the two points and `normal` is
/// `normal2` as it came, not normalised.
ORVELMATH_EXPORT void bisectingPlane(vectorC3d<double> const &point1,
                                     vectorC3d<double> const &normal1,
                                     vectorC3d<double> const &point2,
                                     vectorC3d<double> const &normal2, vectorC3d<double> &point,
                                     vectorC3d<double> &normal);

/// Returns the centre of the sphere through four points and writes its radius. When the points are
/// coplanar, which is a pivot of their differences at or below 1e-6, the radius is -1.0 and the
/// result the zero vector.
/// @see orvelExact::sphereThrough
ORVELMATH_EXPORT vectorC3d<double> getSphereCenter(vectorC3d<double> const &a,
                                                   vectorC3d<double> const &b,
                                                   vectorC3d<double> const &c,
                                                   vectorC3d<double> const &d, double &radius);

/// Tests the LINE through `origin` along `direction` against the triangle a, b, c (Möller and
/// Trumbore, 1997). Both faces count, and so does the boundary.
///
/// On true `t` is the parameter of the hit, in units of `direction`; it is negative for a hit
/// behind the origin, so a caller who wants a ray tests its sign. On false `t` is left alone. A
/// determinant strictly between -1e-6 and 1e-6 (a volume: parallel direction, but also a small
/// triangle or a short direction) counts as no hit. NaN passes the tests and arrives in `t`.
///
/// @see LineInsideTriangle
/// @see orvelExact::orientation3d for the exact side of a plane
ORVELMATH_EXPORT bool rayIntersectsTriangle(vectorC3d<double> const &a, vectorC3d<double> const &b,
                                            vectorC3d<double> const &c,
                                            vectorC3d<double> const &origin,
                                            vectorC3d<double> const &direction, double &t);

/// Sorts the three components ascending; equal ones (0.0 and -0.0) keep their order. With a NaN
/// the order is unspecified.
ORVELMATH_EXPORT void sortVectorComponents(vectorC3d<double> &v);

/// Sorts the three components ascending and moves the columns of `m` along: eigenvalues with their
/// vectors. Compares the components 0 and 1, 0 and 2, 1 and 2, and exchanges a pair only if the
/// first is strictly greater: three equal ones, and a NaN, stay in their places.
ORVELMATH_EXPORT void sortVectorComponents(vectorC3d<double> &v, matrixC3x3<double> &m);

} // namespace MatUtil
