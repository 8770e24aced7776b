#pragma once

/// @file
/// The definitions behind the functions of Math2D.h that take shortcuts. Not part of the interface.

#include <OrvelMath/geom2d/Math2D.h>

/// What the functions of the same names answer, without a shortcut. Arguments and results as there.
namespace definition {

IntersectionType Math2DIntersect2Lines(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                       Point2D const &p3, Point2D &out, double tol);

IntersectionType Math2DIntersect2LinesWrong(Point2D const &p0, Point2D const &p1, Point2D const &p2,
                                            Point2D const &p3, Point2D &out, double tol);

InsidePolyType Math2DInsidePolygon(Point2D *points, int count, Point2D const &p, double *xmin,
                                   double *xmax, double tol);

} // namespace definition
