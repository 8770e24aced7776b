#include <OrvelMath/geom2d/concav2d_arcs.h>
#include <OrvelMath/geom2d/concav2d_p.h>
#include <OrvelMath/geom2d/concav2d_regions.h>
#include <OrvelMath/geom2d/concav2d_sampling.h>

namespace concav2d {

int edgeSide(Point2D const &a, Point2D const &b, Point2D const &p, double tol)
{
    Point2D centre;
    if (getArcMiddle(a, b, p, centre, tol) != 0) {
        return 0;
    }
    return ccw_vectors_origin(a - centre, b - centre, p - centre, tol);
}

namespace {

constexpr double sideTolerance = 1e-6; // degrees

/// The four sides of a point against a rectangle, up to the first on which it lies outside.
struct Sides
{
    Sides(Point2D const &p, Point2D const *const (&corners)[4])
    {
        for (int i = 0; i < 4 && !outside; ++i) {
            side[i] = edgeSide(*corners[i], *corners[(i + 1) % 4], p, sideTolerance);
            outside = side[i] == -1;
        }
    }

    bool strictlyInside() const
    {
        return side[0] == 1 && side[1] == 1 && side[2] == 1 && side[3] == 1;
    }

    int side[4] = {0, 0, 0, 0};
    bool outside = false;
};

} // namespace

int pointInsideRectangle(Point2D &p, Point2D &r0, Point2D &r1, Point2D &r2, Point2D &r3,
                         double /*tol*/)
{
    return Sides(p, {&r0, &r1, &r2, &r3}).outside ? 0 : 1;
}

int lineInsideRectangle(Point2D &p0, Point2D &p1, Point2D &r0, Point2D &r1, Point2D &r2,
                        Point2D &r3, double /*tol*/, bool onEdge30, bool onEdge12, bool onEdge01,
                        bool onEdge23)
{
    Point2D const *const corners[4] = {&r0, &r1, &r2, &r3};
    Sides const first(p0, corners);
    if (first.outside) {
        return 0;
    }
    if (first.strictlyInside()) {
        return 1;
    }
    bool const edgeCounts[4] = {onEdge01, onEdge12, onEdge23, onEdge30};
    for (int i = 0; i < 4; ++i) {
        int const side = edgeSide(*corners[i], *corners[(i + 1) % 4], p1, sideTolerance);
        bool const runsAlongEdge = side != 1 && first.side[i] != 1;
        if (side == -1 || (runsAlongEdge && !edgeCounts[i])) {
            return 0;
        }
    }
    return 1;
}

int arcInsideRectangle(Point2D &p0, Point2D &p1, Point2D & /*p2*/, Point2D &r0, Point2D &r1,
                       Point2D &r2, Point2D &r3, double /*tol*/)
{
    Point2D const *const corners[4] = {&r0, &r1, &r2, &r3};
    Sides const through(p1, corners);
    if (through.outside) {
        return 0;
    }
    if (through.strictlyInside()) {
        return 1;
    }
    return Sides(p0, corners).outside ? 0 : 1;
}

int ellipsearcInsideRectangle(Point2D &centre, Point2D &axisA, Point2D &axisB, double rotation,
                              double start, double end, Point2D &r0, Point2D &r1, Point2D &r2,
                              Point2D &r3, double /*tol*/)
{
    Point2D const *const corners[4] = {&r0, &r1, &r2, &r3};
    Point2D p;
    getEllipsePoint(centre, axisA, axisB, p, rotation, start);
    Sides const first(p, corners);
    if (first.outside) {
        return 0;
    }
    if (first.strictlyInside()) {
        return 1;
    }
    getEllipsePoint(centre, axisA, axisB, p, rotation, (start + end) * 0.5);
    return Sides(p, corners).outside ? 0 : 1;
}

} // namespace concav2d
