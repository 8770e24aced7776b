#pragma once

/// @file
/// Points for hulls.

#include <OrvelExact/base/points.h>

#include <QtCore/QVector>

/// Points for hulls.
namespace clouds {

using orvelExact::Point3;
using Cloud = QVector<Point3>;

/// side^3 points, `step` apart.
Cloud lattice(int side, double step = 1.0);
/// The corners of a regular polygon below and above.
Cloud prism(int sides);
/// Points of circles that narrow to an apex; all extreme where the rings are one.
Cloud cone(int ringCount, int pointsPerRing);
Cloud cylinder(int ringCount, int pointsPerRing);
Cloud sphere(int count, unsigned seed, Point3 const &center = {});
Cloud ball(int count, unsigned seed);
Cloud gauss(int count, unsigned seed);
Cloud cube(int count, unsigned seed);
Cloud torus(int count, unsigned seed);
Cloud twoSpheres(int count, unsigned seed);
/// All sums of a corner of one with a corner of the other.
Cloud minkowskiSum(Cloud const &a, Cloud const &b);
/// Every point `copies` times, in another order each time.
Cloud repeated(Cloud const &cloud, int copies, unsigned seed);
/// Points near the planes of a cube's faces and on them.
Cloud coplanarClusters(int count, unsigned seed);
Cloud scaled(Cloud const &cloud, double factor, Point3 const &offset);

} // namespace clouds
