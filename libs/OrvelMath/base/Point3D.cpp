#include <OrvelMath/base/Point3D.h>

Point3D Math3DVektorprodukt(Point3D const &a, Point3D const &b)
{
    return {b.z() * a.y() - b.y() * a.z(), b.x() * a.z() - a.x() * b.z(),
            a.x() * b.y() - b.x() * a.y()};
}
