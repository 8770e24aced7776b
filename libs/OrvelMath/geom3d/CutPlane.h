#pragma once

/// @file
/// A cutting plane.

#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/valueTypes.h>

/// A cutting plane: across one of the coordinate axes, or free, given by a frame.
///
/// ~~~
///                  normal (direction, 0, 0)
///     |           |---->
///     0    direction * distance              CutPlaneX
/// ~~~
///
/// A plain value: position and normal are derived when asked for, nothing is checked or
/// normalised. A copy shares nothing with its source.
class ORVELMATH_EXPORT CutPlane
{
public:
    enum CutPlaneType {
        CutPlaneNone = 0, ///< no plane
        CutPlaneX = 1,    ///< across the x axis
        CutPlaneY = 2,    ///< across the y axis
        CutPlaneZ = 3,    ///< across the z axis
        CutPlaneFree = 4, ///< the plane of the frame
    };

    /// No plane: direction and distance 0, frame the identity.
    CutPlane();

    /// A plane across an axis; the frame is the identity. For a free plane follow with setFrame.
    CutPlane(CutPlane::CutPlaneType type, int direction, double distance);

    CutPlane(CutPlane const &other);
    CutPlane(CutPlane &&other) noexcept;
    CutPlane &operator=(CutPlane const &other);
    CutPlane &operator=(CutPlane &&other) noexcept;

    /// Type and direction equal, distance exactly equal (so never with a NaN), and all 16 elements
    /// of the frames nearer than 0.0001. The frames count for the axis planes too.
    bool operator==(CutPlane const &other) const;

    /// A point of the plane: direction * distance along the axis, or column 3 of the frame. The
    /// origin for CutPlaneNone and for values that are no CutPlaneType.
    Point3D getPosition() const;

    /// The normal, not normalised: direction along the axis, or column 1 of the frame. Zero for
    /// CutPlaneNone and for values that are no CutPlaneType.
    Point3D getNormal() const;

    /// Copies the 16 values to `frame`; the type stays.
    void setFrame(double const (&values)[4][4]);

    CutPlaneType type;
    int direction;      ///< signed factor along the axis
    double distance;    ///< along the axis, in model units
    double frame[4][4]; ///< row-major; column 1 is the normal, column 3 the position
};
