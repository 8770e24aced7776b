/// @file
/// The definitions behind the functions of Math2D.h that take shortcuts. Not part of the interface.
#pragma once

#include <OrvelMath/geom2d/Math2D.h>

/// What the functions of the same names answer, without a shortcut. Arguments and results as there.
namespace definition {

InsidePolyType Math2DInsidePolygon(Point2D *points, int count, Point2D const &p, double *xmin,
                                   double *xmax, double tol);

} // namespace definition
