#pragma once

/// @file
/// Three axes and an origin.

#include <OrvelMath/base/Point3D.h>
#include <OrvelMath/base/classAllocation.h>

#include <QtCore/qglobal.h>

/// Three axes and an origin, model units. A plain value: a copy shares nothing. Nothing checks that
/// the axes are perpendicular or of length 1.
///
/// @see Matrix4X4C::SetFromCoordSystem and Matrix4X4C::GetCoordinateSystem
struct CoordinateSystem
{
    /// Zeroes the four points; `reserved` is left as it is found.
    CoordinateSystem() {}

    qint64 reserved; ///< neither read nor written by the library; copies carry it along
    Point3D xAxis;
    Point3D yAxis;
    Point3D zAxis;
    Point3D origin;

    ORVELMATH_CLASS_ALLOCATION
};
