#include <OrvelMath/geom3d/CutPlane.h>

#include <OrvelMath/base/Matrix4X4C.h>

#include <cstring>

CutPlane::CutPlane()
    : CutPlane(CutPlaneNone, 0, 0.0)
{
}

CutPlane::CutPlane(CutPlane::CutPlaneType planeType, int planeDirection, double planeDistance)
    : type(planeType)
    , direction(planeDirection)
    , distance(planeDistance)
    , frame{{1.0, 0.0, 0.0, 0.0}, {0.0, 1.0, 0.0, 0.0}, {0.0, 0.0, 1.0, 0.0}, {0.0, 0.0, 0.0, 1.0}}
{
}

CutPlane::CutPlane(CutPlane const &) = default;
CutPlane::CutPlane(CutPlane &&) noexcept = default;
CutPlane &CutPlane::operator=(CutPlane const &) = default;
CutPlane &CutPlane::operator=(CutPlane &&) noexcept = default;

bool CutPlane::operator==(CutPlane const &other) const
{
    if (type != other.type || direction != other.direction || distance != other.distance)
        return false;
    return Math3DCompareMatrix(frame, other.frame, 0.0001); // per element
}

Point3D CutPlane::getPosition() const
{
    const double along = direction * distance;
    switch (type) {
    case CutPlaneX:
        return Point3D(along, 0.0, 0.0);
    case CutPlaneY:
        return Point3D(0.0, along, 0.0);
    case CutPlaneZ:
        return Point3D(0.0, 0.0, along);
    case CutPlaneFree:
        return Point3D(frame[0][3], frame[1][3], frame[2][3]);
    default:
        return Point3D();
    }
}

Point3D CutPlane::getNormal() const
{
    const double along = direction;
    switch (type) {
    case CutPlaneX:
        return Point3D(along, 0.0, 0.0);
    case CutPlaneY:
        return Point3D(0.0, along, 0.0);
    case CutPlaneZ:
        return Point3D(0.0, 0.0, along);
    case CutPlaneFree:
        return Point3D(frame[0][1], frame[1][1], frame[2][1]);
    default:
        return Point3D();
    }
}

void CutPlane::setFrame(double const (&values)[4][4])
{
    std::memmove(frame, values, sizeof frame);
}
