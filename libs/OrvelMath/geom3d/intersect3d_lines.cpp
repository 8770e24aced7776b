#include <OrvelMath/geom3d/intersect3d.h>

#include <cmath>

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

bool IntersectLineLine(Point3D const &p1, Point3D const &p2, Point3D const &p3, Point3D const &p4,
                       Point3D &pa, Point3D &pb)
{
    auto const isShort = [](Point3D const &d) {
        return std::fabs(d.x()) <= 0.0001 && std::fabs(d.y()) <= 0.0001 &&
               std::fabs(d.z()) <= 0.0001; // lengths
    };
    Point3D const p13 = p1 - p3;
    Point3D const p43 = p4 - p3;
    Point3D const p21 = p2 - p1;
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
    Point3D const onFirst = p1 + ma * p21;
    pb = p3 + mb * p43;
    pa = onFirst;
    return true;
}
