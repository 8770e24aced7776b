#include <OrvelMath/geom3d/intersect3d.h>

namespace {

/// The determinant of the matrix with these rows, expanded along the first.
double determinant(Point3D const &a, Point3D const &b, Point3D const &c)
{
    return a.x() * (b.y() * c.z() - b.z() * c.y()) - a.y() * (b.x() * c.z() - b.z() * c.x()) +
           a.z() * (b.x() * c.y() - b.y() * c.x());
}

} // namespace

bool IntersectPlanePlane(Point3D const &p1, Point3D const &n1, Point3D const &p2, Point3D const &n2,
                         Point3D &linePoint, Point3D &lineDirection)
{
    if (n1.Dot(n2) == 1.0) {
        return false;
    }
    const Point3D direction = Math3DVektorprodukt(n1, n2);
    const Point3D acrossTheLine = p1 + Math3DVektorprodukt(direction, n1);
    bool const meet = IntersectLinePlane(p1, acrossTheLine, n2, p2, linePoint);
    lineDirection = direction;
    return meet;
}

bool IntersectThreePlanes(Point3D const &p1, Point3D const &n1, Point3D const &p2,
                          Point3D const &n2, Point3D const &p3, Point3D const &n3, Point3D &out)
{
    double const det = determinant(n1, n2, n3);
    if (det == 0.0) {
        return false;
    }
    double const d1 = n1.Dot(p1);
    double const d2 = n2.Dot(p2);
    double const d3 = n3.Dot(p3);
    out = (d1 * Math3DVektorprodukt(n2, n3) + d2 * Math3DVektorprodukt(n3, n1) +
           d3 * Math3DVektorprodukt(n1, n2)) /
          det;
    return true;
}
