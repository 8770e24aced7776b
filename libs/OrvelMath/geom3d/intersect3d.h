#pragma once

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/valueTypes.h>

/// @file
/// Lines, planes, spheres and cylinders in space, on the first generation of value types.
///
/// A line is two positions and runs on beyond them; ProjectOntoLine alone takes a direction and a
/// position. A plane is a position and a normal. What is called unit below is not normalised here:
/// the caller sees to its length.
///
/// Every function has a limit of its own, absolute, with its own sense of comparison. Which to
/// take where two do the same job:
///
/// | Function                            | Fails when                                 | Limit     |
/// |-------------------------------------|--------------------------------------------|-----------|
/// | IntersectLinePlane (coefficients)   | denominator not above                      | 1e-200    |
/// | IntersectLinePlane (point, normal)  | denominator below                          | 1e-200    |
/// | CalcXLinePlane                      | denominator below                          | 1e-9      |
/// | IntersectLineLine                   | all components, or denominator, at most    | 0.0001    |
/// | IntersectPlanePlane                 | scalar product of the normals equal to     | 1 exactly |
/// | IntersectThreePlanes                | determinant equal to                       | 0 exactly |
/// | IntersectLineCylinder               | length of the cross product equal to       | 0 exactly |
///
/// NaN and infinities run through the arithmetic; where a NaN does something else than
/// pass on into the outputs, the function says so. Outputs that are not named for a result are left
/// alone; an output may be the same object as an input. No function keeps state or allocates, and
/// each takes constant time.

/// Crosses the line p0 p1 with the plane A x + B y + C z + D = 0.
///
/// Returns true and writes `out`, or returns false if the plane equation changes by no more than
/// 1e-200 from p0 to p1: the line runs along the plane, or is a point, or has a NaN.
///
/// @see IntersectLinePlane with a position and a normal, CalcXLinePlane,
/// MatUtil::intersectLinePlane
ORVELMATH_EXPORT bool IntersectLinePlane(Point3D const &p0, Point3D const &p1, double A, double B,
                                         double C, double D, Point3D &out);

/// Crosses the line p0 p1 with the plane through `planePoint` across `normal`, of any length.
///
/// Returns true and writes `out`, or returns false if the scalar product of p1 - p0 and `normal`
/// is below 1e-200 in magnitude. If `planePoint` equals p0 exactly, the result is p0 and true,
/// whatever the direction: this is tested first, so a line along the plane passes from there.
ORVELMATH_EXPORT bool IntersectLinePlane(Point3D const &p0, Point3D const &p1,
                                         Point3D const &normal, Point3D const &planePoint,
                                         Point3D &out);

/// Crosses the line p0 p1 with a plane, as IntersectLinePlane, but refuses a denominator below
/// 1e-9 and has `planePoint` and `normal` in the other order.
///
/// On true writes `out` and, unless `t` is null, the parameter in units of p1 - p0 to `*t`. The
/// parameter is not limited to the segment.
///
/// @see IntersectLinePlane, MatUtil::intersectLinePlane
ORVELMATH_EXPORT bool CalcXLinePlane(Point3D const &p0, Point3D const &p1,
                                     Point3D const &planePoint, Point3D const &normal, Point3D &out,
                                     double *t);

/// Returns the foot of `q` in the plane, for a unit `normal`. There is no division: another length
/// overshoots by its square.
///
/// @see MatUtil::projectPointOntoPlane, which takes a normal of any length
ORVELMATH_EXPORT Point3D ProjectOntoPlane(Point3D const &normal, Point3D const &planePoint,
                                          Point3D const &q);

/// Returns the foot of `q` on the line through `linePoint`, for a unit `direction`.
///
/// @see MatUtil::projectPointOntoLine, which takes a direction of any length
ORVELMATH_EXPORT Point3D ProjectOntoLine(Point3D const &direction, Point3D const &linePoint,
                                         Point3D const &q);

/// The same, and writes to `s` the signed distance of the foot from `linePoint` along `direction`.
/// With `q` on `linePoint`, `s` is 0.
ORVELMATH_EXPORT Point3D ProjectOntoLine(Point3D const &direction, Point3D const &linePoint,
                                         Point3D const &q, double &s);

/// Returns the scalar product of `normal` and a - b: with a unit `normal`, the signed distance of
/// `a` from the plane through `b`, positive on the side of the normal.
ORVELMATH_EXPORT double CalcDistancePointPlane(Point3D const &normal, Point3D const &a,
                                               Point3D const &b);

/// Writes two unit vectors in the plane across `normal`, which may have any length: `u` in some
/// direction, and `v` along normal x u. A zero `normal` gives u along (1, 1, 1) and v zero.
ORVELMATH_EXPORT void getPlanarVectors(Point3D const &normal, Point3D &u, Point3D &v);

/// Finds the points of closest approach of the lines p1 p2 and p3 p4: `pa` on the first, `pb` on
/// the second (P. Bourke, 1998). They need not meet.
///
/// Returns false if one of the two point pairs lies within 0.0001 in every coordinate, or if
/// |a|² |b|² - (a b)² is at most 0.0001, a and b being the differences of the pairs. That limit is
/// absolute and for a fourth power of a length: it catches parallel lines, and refuses short
/// segments at any angle. Take points far apart on the lines.
///
/// @see MatUtil::intersectLines, which asks whether they meet
ORVELMATH_EXPORT bool IntersectLineLine(Point3D const &p1, Point3D const &p2, Point3D const &p3,
                                        Point3D const &p4, Point3D &pa, Point3D &pb);

/// Finds the line common to the planes (p1, n1) and (p2, n2).
///
/// Returns false with nothing written if n1 · n2 is exactly 1, which catches two equal unit normals
/// and nothing else. Otherwise writes `lineDirection` = n1 x n2, not normalised, even if the result
/// is false in the end. On true `linePoint` is the crossing of the first plane's line through p1,
/// square to the common line, with the second plane.
///
/// Opposite normals have a zero direction and give false, but true with `linePoint` = p1 if p1
/// equals p2.
///
/// @see MatUtil::intersectPlanes
ORVELMATH_EXPORT bool IntersectPlanePlane(Point3D const &p1, Point3D const &n1, Point3D const &p2,
                                          Point3D const &n2, Point3D &linePoint,
                                          Point3D &lineDirection);

/// Finds the point common to three planes, each a position and a normal of any length. Returns
/// false if the determinant of the normals is exactly 0; no limit catches planes that are nearly
/// dependent.
ORVELMATH_EXPORT bool IntersectThreePlanes(Point3D const &p1, Point3D const &n1, Point3D const &p2,
                                           Point3D const &n2, Point3D const &p3, Point3D const &n3,
                                           Point3D &out);

/// Finds the parameters, in units of p1 - p0, at which a line cuts a sphere.
///
/// Returns the number of roots: with 2, `t1` is the larger and `t2` the smaller; with 1 (an exact
/// touch) `t2` is left alone, with 0 both are. If p0 and p1 coincide, the result is 1 with t1 = 0
/// for a point exactly on the sphere, otherwise 0. See ResolveQuadrat.
ORVELMATH_EXPORT int IntersectLineSphereDst(Point3D const &p0, Point3D const &p1,
                                            Point3D const &centre, double radius, double &t1,
                                            double &t2);

/// The same with points for parameters: `o1` belongs to the larger one.
ORVELMATH_EXPORT int IntersectLineSphere(Point3D const &p0, Point3D const &p1,
                                         Point3D const &centre, double radius, Point3D &o1,
                                         Point3D &o2);

/// Finds the points in which a line pierces the mantle of the cylinder about the segment a0 a1; the
/// cylinder ends there and has no caps.
///
/// ~~~
///        a0 ______________ a1
///          |              |        2: both points between the ends
///    ------|--o--------o--|-->     1: one of them, which is o1 then
///          |______________|        0: none
/// ~~~
///
/// Returns 0 with nothing written if the line runs along the axis (the cross product of the two is
/// exactly 0, which a cylinder of no length has too) or misses the endless cylinder; a tangent line
/// misses. Beyond that all four outputs are written even if the result is 0: the crossings with the
/// endless cylinder, at the parameters `t1` and `t2` in units of p1 - p0, in no certain order. A
/// result of 1 has its point in `o1` and `t1`. The ends belong to the cylinder.
ORVELMATH_EXPORT int IntersectLineCylinder(Point3D const &p0, Point3D const &p1, Point3D const &a0,
                                           Point3D const &a1, double radius, double &t1,
                                           Point3D &o1, double &t2, Point3D &o2);

/// Returns the coordinate to drop so that a plane figure across `normal` keeps most of its area:
/// 1, 2 or 3 for the component of the greatest magnitude. Ties go to the lower number.
ORVELMATH_EXPORT int GetDropCoord(Point3D const &normal);

/// Returns the coordinates that are kept, in their order: (y, z) for 1, (x, z) for 2 and (x, y) for
/// anything else. The turning sense is reversed for 2.
ORVELMATH_EXPORT Point2D DropCoord(Point3D const &p, int drop);

/// Tests whether the infinite line p0 p1 pierces the triangle t0 t1 t2, by the areas of the three
/// triangles that the crossing makes with the sides.
///
/// The areas are those of the projection along GetDropCoord. `tol` is an area, in squared model
/// units, and is divided by 100. A degenerate triangle, and a line along its plane, give false; so
/// does a NaN.
///
/// @see MatUtil::rayIntersectsTriangle
/// @see orvelExact::orientation3d for the exact side of a plane
ORVELMATH_EXPORT bool LineInsideTriangle(Point3D const &t0, Point3D const &t1, Point3D const &t2,
                                         Point3D const &p0, Point3D const &p1, double tol);
