#include <OrvelMath/geom3d/intersect3d.h>

#include <cmath>

namespace {

/// The determinant of the matrix with these rows, expanded along the first.
double determinant(Point3D const &a, Point3D const &b, Point3D const &c)
{
    return a.x() * (b.y() * c.z() - b.z() * c.y()) - a.y() * (b.x() * c.z() - b.z() * c.x()) +
           a.z() * (b.x() * c.y() - b.y() * c.x());
}

} // namespace

bool IntersectLinePlane(Point3D const &p0, Point3D const &p1, double A, double B, double C,
                        double D, Point3D &out)
{
    double const f0 = A * p0.x() + B * p0.y() + C * p0.z() + D;
    double const f1 = A * p1.x() + B * p1.y() + C * p1.z() + D;
    double const denominator = f0 - f1;
    if (!(std::fabs(denominator) > 1e-200)) { // change of the plane equation; catches NaN
        return false;
    }
    double const t = f0 / denominator;
    out = p0 + t * (p1 - p0);
    return true;
}

bool IntersectLinePlane(Point3D const &p0, Point3D const &p1, Point3D const &normal,
                        Point3D const &planePoint, Point3D &out)
{
    if (planePoint == p0) {
        out = p0;
        return true;
    }
    Point3D const direction = p1 - p0;
    double const denominator = direction.Dot(normal);
    if (std::fabs(denominator) < 1e-200) { // sine of the angle, times both lengths
        return false;
    }
    double const t = (planePoint - p0).Dot(normal) / denominator;
    out = p0 + t * direction;
    return true;
}

bool CalcXLinePlane(Point3D const &p0, Point3D const &p1, Point3D const &planePoint,
                    Point3D const &normal, Point3D &out, double *t)
{
    double const f0 = (planePoint - p0).Dot(normal);
    double const f1 = (planePoint - p1).Dot(normal);
    double const denominator = f0 - f1;
    if (std::fabs(denominator) < 1e-9) { // sine of the angle, times both lengths
        return false;
    }
    double const parameter = f0 / denominator;
    out = p0 + parameter * (p1 - p0);
    if (t) {
        *t = parameter;
    }
    return true;
}

Point3D ProjectOntoPlane(Point3D const &normal, Point3D const &planePoint, Point3D const &q)
{
    double const distance = (planePoint - q).Dot(normal);
    return q + distance * normal;
}

double CalcDistancePointPlane(Point3D const &normal, Point3D const &a, Point3D const &b)
{
    return (a - b).Dot(normal);
}

void getPlanarVectors(Point3D const &normal, Point3D &u, Point3D &v)
{
    Point3D inPlane(1.0, 1.0, 1.0);
    if (normal.x() != 0.0) {
        inPlane.x((-normal.y() - normal.z()) / normal.x());
    } else if (normal.y() != 0.0) {
        inPlane.y((-normal.x() - normal.z()) / normal.y());
    } else if (normal.z() != 0.0) {
        inPlane.z((-normal.x() - normal.y()) / normal.z());
    }
    inPlane = inPlane.Normalize();
    v = Math3DVektorprodukt(normal, inPlane).Normalize();
    u = inPlane;
}

bool IntersectPlanePlane(Point3D const &p1, Point3D const &n1, Point3D const &p2, Point3D const &n2,
                         Point3D &linePoint, Point3D &lineDirection)
{
    if (n1.Dot(n2) == 1.0) {
        return false;
    }
    Point3D const direction = Math3DVektorprodukt(n1, n2);
    Point3D const acrossTheLine = p1 + Math3DVektorprodukt(direction, n1);
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
