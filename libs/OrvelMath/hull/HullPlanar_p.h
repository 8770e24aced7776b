#pragma once

/// @file
/// The hull of points that lie in a plane of space.

#include <OrvelMath/hull/HullSurface_p.h>
#include <OrvelMath/hull/HullWay_p.h>

#include <QtCore/QList>

/// Replaces all faces, of which the last spans the plane, by the fan of the hull polygon.
/// @return the indices of the polygon's corners, in its order.
QList<int> buildPlanar(HullSurface &surface, HullPoints const &points, HullWay way);
