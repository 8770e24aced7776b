#include <OrvelMath/geom3d/CutPlane.h>

#include <OrvelMath/base/Matrix4X4C.h>

#include <cstring>

namespace {

// The vector of the given amount along the axis that the plane lies across; of a free plane the
// given column of its frame; zero for an unknown type.
Point3D alongType(CutPlane const &plane, double amount, int column)
{
    switch (plane.type) {
    case CutPlane::CutPlaneX:
        return Point3D(amount, 0.0, 0.0);
    case CutPlane::CutPlaneY:
        return Point3D(0.0, amount, 0.0);
    case CutPlane::CutPlaneZ:
        return Point3D(0.0, 0.0, amount);
    case CutPlane::CutPlaneFree:
        return Point3D(plane.frame[0][column], plane.frame[1][column], plane.frame[2][column]);
    default:
        return Point3D();
    }
}

} // namespace

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
    if (type != other.type || direction != other.direction || distance != other.distance) {
        return false;
    }
    return Math3DCompareMatrix(frame, other.frame, 0.0001); // per element
}

Point3D CutPlane::getPosition() const
{
    return alongType(*this, direction * distance, 3);
}

Point3D CutPlane::getNormal() const
{
    return alongType(*this, direction, 1);
}

void CutPlane::setFrame(double const (&values)[4][4])
{
    std::memmove(frame, values, sizeof frame);
}
