#include <OrvelMath/geom3d/intersect3d.h>

#include <cmath>

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
    const Point3D direction = p1 - p0;
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

Point3D ProjectOntoLine(Point3D const &direction, Point3D const &linePoint, Point3D const &q)
{
    double s;
    return ProjectOntoLine(direction, linePoint, q, s);
}

Point3D ProjectOntoLine(Point3D const &direction, Point3D const &linePoint, Point3D const &q,
                        double &s)
{
    Point3D offset = q - linePoint;
    double const length = offset.Length();
    if (length != 0.0) {
        offset = offset / length;
    }
    s = offset.Dot(direction) * length;
    return linePoint + s * direction;
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

bool IntersectLineLine(Point3D const &p1, Point3D const &p2, Point3D const &p3, Point3D const &p4,
                       Point3D &pa, Point3D &pb)
{
    auto const isShort = [](Point3D const &d) {
        return std::fabs(d.x()) <= 0.0001 && std::fabs(d.y()) <= 0.0001 &&
               std::fabs(d.z()) <= 0.0001; // lengths
    };
    const Point3D p13 = p1 - p3;
    const Point3D p43 = p4 - p3;
    const Point3D p21 = p2 - p1;
    if (isShort(p43) || isShort(p21)) {
        return false;
    }

    double const d1343 = p13.Dot(p43);
    double const d4321 = p43.Dot(p21);
    double const d1321 = p13.Dot(p21);
    double const d4343 = p43.Dot(p43);
    double const d2121 = p21.Dot(p21);
    double const denominator = d2121 * d4343 - d4321 * d4321;
    if (std::fabs(denominator) <= 0.0001) { // fourth power of a length, absolute
        return false;
    }

    double const ma = (d1343 * d4321 - d1321 * d4343) / denominator;
    double const mb = (d1343 + d4321 * ma) / d4343;
    const Point3D onFirst = p1 + ma * p21;
    pb = p3 + mb * p43;
    pa = onFirst;
    return true;
}
