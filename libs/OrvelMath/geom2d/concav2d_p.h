#pragma once

/// @file
/// Helpers shared by the files of the namespace `concav2d`. Not part of the interface.

#include <OrvelMath/base/Point2D.h>
#include <OrvelMath/engine/angles_p.h>
#include <OrvelMath/geom2d/concav2d_lines.h>
#include <OrvelMath/geom2d/concav2d_regions.h>
#include <OrvelMath/geom2d/planeVectors_p.h>

namespace concav2d {

using planeVectors::distance;
using planeVectors::length;
using planeVectors::turned;

/// `ccw_angle_origin` of the directions of three vectors; 0 if two of them are within 1e-6 of
/// each other.
int ccw_vectors_origin(Point2D const &u, Point2D const &v, Point2D const &w, double tol);

/// Turn from a over b to c. The tolerance is an area. 1 left, -1 right, -2 straight and c behind
/// a, 2 straight and c beyond b, 0 straight and between.
int ccw_points(Point2D const &a, Point2D const &b, Point2D const &c, double tol);

/// Side of the directed edge a to b on which p lies, told on the circle through the three; tol in
/// degrees. 1 left, -1 right, 0 exactly collinear or coinciding, 2 the end b falls on another
/// point.
int edgeSide(Point2D const &a, Point2D const &b, Point2D const &p, double tol);

/// Low and high angle, in degrees, of an arc in its counter-clockwise sense.
struct Sweep
{
    double low;
    double high;
};

/// Counter-clockwise sweep of the arc p0, p1, p2 about its centre; tol in degrees.
Sweep arcSweep(Point2D const &p0, Point2D const &p1, Point2D const &p2, Point2D const &centre,
               double tol);

/// What the functions of the same names answer, without a shortcut. Arguments and results as there.
namespace definition {

int ccw_vectors_origin(Point2D const &u, Point2D const &v, Point2D const &w, double tol);

bool areLinesParallel(Point2D const &p0, Point2D const &p1, Point2D const &p2, Point2D const &p3,
                      double tol);

IntersectionType intersectEdgeEdge(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                   Point2D const &p3, Point2D &out, double tol);

LocationType pointInsidePolygone(PPtrOrderedVector<Point2D> const &polygon, Point2D const &p,
                                 double tol);

} // namespace definition

} // namespace concav2d
