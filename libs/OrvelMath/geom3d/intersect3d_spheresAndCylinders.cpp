#include <OrvelMath/geom3d/intersect3d.h>

#include <OrvelMath/base/Accuracy3D.h>

#include <cmath>

int IntersectLineSphereDst(Point3D const &p0, Point3D const &p1, Point3D const &centre,
                           double radius, double &t1, double &t2)
{
    Point3D const direction = p1 - p0;
    Point3D const fromCentre = p0 - centre;
    return ResolveQuadrat(direction.Dot(direction), 2.0 * fromCentre.Dot(direction),
                          fromCentre.Dot(fromCentre) - radius * radius, t1, t2);
}

int IntersectLineSphere(Point3D const &p0, Point3D const &p1, Point3D const &centre, double radius,
                        Point3D &o1, Point3D &o2)
{
    double t1 = 0.0;
    double t2 = 0.0;
    int const count = IntersectLineSphereDst(p0, p1, centre, radius, t1, t2);
    if (count == 0) {
        return 0;
    }
    Point3D const direction = p1 - p0;
    Point3D const first = p0 + t1 * direction;
    if (count == 2) {
        o2 = p0 + t2 * direction;
    }
    o1 = first;
    return count;
}

int IntersectLineCylinder(Point3D const &p0, Point3D const &p1, Point3D const &a0,
                          Point3D const &a1, double radius, double &t1, Point3D &o1, double &t2,
                          Point3D &o2)
{
    Point3D const axis = a1 - a0;
    Point3D const direction = p1 - p0;
    Point3D const fromAxis = p0 - a0;
    Point3D const normal = Math3DVektorprodukt(direction, axis);
    double const normalLength = normal.Length();
    if (normalLength == 0.0) {
        return 0;
    }
    Point3D const unitNormal = normal / normalLength;
    double const distance = std::fabs(fromAxis.Dot(unitNormal));
    if (!(radius > distance)) { // a tangent line misses
        return 0;
    }

    double const closest = -Math3DVektorprodukt(fromAxis, axis).Dot(unitNormal) / normalLength;
    Point3D const across = Math3DVektorprodukt(unitNormal, axis).Normalize();
    // The root alone is taken absolutely: the quotient may be negative, and t1 then exceeds t2.
    double const halfChord =
        std::fabs(std::sqrt(radius * radius - distance * distance)) / across.Dot(direction);
    double const first = closest - halfChord;
    double const second = closest + halfChord;
    Point3D const firstPoint = p0 + first * direction;
    Point3D const secondPoint = p0 + second * direction;

    Point3D const inward = axis.Normalize();
    Point3D const outward = (-axis).Normalize();
    auto const isBetweenEnds = [&](Point3D const &point) {
        return (point - a0).Dot(inward) >= 0.0 && (point - a1).Dot(outward) >= 0.0;
    };
    bool const firstCounts = isBetweenEnds(firstPoint);
    bool const secondCounts = isBetweenEnds(secondPoint);

    bool const onlySecondCounts = secondCounts && !firstCounts;
    t1 = onlySecondCounts ? second : first;
    o1 = onlySecondCounts ? secondPoint : firstPoint;
    t2 = second;
    o2 = secondPoint;
    return static_cast<int>(firstCounts) + static_cast<int>(secondCounts);
}
