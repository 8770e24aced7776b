#include <OrvelMath/geom3d/intersect3d.h>

#include <cmath>

namespace {

double triangleArea(Point2D const &a, Point2D const &b, Point2D const &c)
{
    Point2D const ab = b - a;
    Point2D const ac = c - a;
    return std::fabs((ab.x() * ac.y() - ab.y() * ac.x()) * 0.5);
}

} // namespace

int GetDropCoord(Point3D const &normal)
{
    double const x = std::fabs(normal.x());
    double const y = std::fabs(normal.y());
    double const z = std::fabs(normal.z());
    if (x >= y && x >= z) {
        return 1;
    }
    if (y >= x && y >= z) {
        return 2;
    }
    return 3;
}

Point2D DropCoord(Point3D const &p, int drop)
{
    switch (drop) {
    case 1:
        return Point2D(p.y(), p.z());
    case 2:
        return Point2D(p.x(), p.z());
    default:
        return Point2D(p.x(), p.y());
    }
}

bool LineInsideTriangle(Point3D const &t0, Point3D const &t1, Point3D const &t2, Point3D const &p0,
                        Point3D const &p1, double tol)
{
    Point3D const normal = Math3DVektorprodukt(t1 - t0, t2 - t0).Normalize();
    Point3D crossing;
    if (!CalcXLinePlane(p0, p1, t0, normal, crossing, nullptr)) {
        return false;
    }

    int const drop = GetDropCoord(normal);
    Point2D const x = DropCoord(crossing, drop);
    Point2D const a = DropCoord(t0, drop);
    Point2D const b = DropCoord(t1, drop);
    Point2D const c = DropCoord(t2, drop);
    double const sumOfParts = triangleArea(x, b, c) + triangleArea(x, c, a) + triangleArea(x, a, b);
    return triangleArea(a, b, c) + tol / 100 >= sumOfParts;
}
