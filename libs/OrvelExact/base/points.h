#pragma once

#include <OrvelExact/OrvelExactExport.h>
#include <OrvelMath/base/Point2D.h>
#include <OrvelMath/base/Point3D.h>
#include <OrvelMath/base/vectorC.h>

#include <QtCore/QVector>

#include <cmath>

/// @file
/// The points that OrvelExact takes and gives.
///
/// Of OrvelMath's value types it takes one of each dimension, the plain vector, because its
/// comparison is exact and its members are an array. `Point2D` and `Point3D` go over by `toPoint`,
/// and back by their constructors.

namespace orvelExact {

using Point2 = vectorC2d<double>; ///< a point or a vector of the plane
using Point3 = vectorC3d<double>; ///< a point or a vector of space

inline Point2 toPoint(Point2D const &p)
{
    return {p.x(), p.y()};
}
inline Point3 toPoint(Point3D const &p)
{
    return {p.x(), p.y(), p.z()};
}

/// True if no component is NaN or infinite.
inline bool isFinite(Point2 const &p)
{
    return std::isfinite(p.x()) && std::isfinite(p.y());
}
inline bool isFinite(Point3 const &p)
{
    return std::isfinite(p.x()) && std::isfinite(p.y()) && std::isfinite(p.z());
}

/// True if no component of any point is NaN or infinite; true for no points.
ORVELEXACT_EXPORT bool areFinite(QVector<Point2> const &points);
ORVELEXACT_EXPORT bool areFinite(QVector<Point3> const &points);

/// An axis-parallel box of the plane, bounds included.
struct Box2
{
    Point2 minimum;
    Point2 maximum;
};

/// An axis-parallel box of space, bounds included.
struct Box3
{
    Point3 minimum;
    Point3 maximum;
};

} // namespace orvelExact
