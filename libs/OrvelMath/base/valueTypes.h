#pragma once

/// @file
/// The value types that all geometry of the library is written in.
///
/// Two generations stand side by side, each pair with the same memory image:
///
/// | first generation | second generation  | what differs                                      |
/// |------------------|--------------------|---------------------------------------------------|
/// | Point2D          | vectorC2d<double>  | Point2D::Normalize guards short vectors           |
/// | Point3D          | vectorC3d<double>  | Point3D / 0.0 is the zero point; Dot adds y first |
/// | Matrix4X4C       | matrixC4x4<double> | row-major against column-major memory             |
///
/// Points are columns, p' = M p, in every matrix type.

#include <OrvelMath/base/CoordinateSystem.h>
#include <OrvelMath/base/Point2D.h>
#include <OrvelMath/base/Point3D.h>
#include <OrvelMath/base/matrixC.h>
#include <OrvelMath/base/vectorC.h>
