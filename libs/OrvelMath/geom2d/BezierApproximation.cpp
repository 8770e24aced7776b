#include <OrvelMath/geom2d/BezierApproximation.h>

namespace {

/// The values of the four Bernstein polynomials of degree three at one parameter.
struct BernsteinWeights
{
    double w0, w1, w2, w3;
};

// As the parameters 0.5, 0.2 and 0.8 give them in double precision.
constexpr BernsteinWeights atHalf{0.125, 0.375, 0.375, 0.125};
constexpr BernsteinWeights atFifth{0.5120000000000001, 0.3840000000000001, 0.09600000000000003,
                                   0.008000000000000002};
constexpr BernsteinWeights atFourFifths{0.007999999999999995, 0.09599999999999997, 0.384,
                                        0.5120000000000001};

Point2D curvePoint(BernsteinWeights const &w, Point2D const &p0, Point2D const &p1,
                   Point2D const &p2, Point2D const &p3)
{
    return Point2D(w.w0 * p0.x() + w.w1 * p1.x() + w.w2 * p2.x() + w.w3 * p3.x(),
                   w.w0 * p0.y() + w.w1 * p1.y() + w.w2 * p2.y() + w.w3 * p3.y());
}

QList<Point2D> arcThrough(Point2D const &start, Point2D const &through, Point2D const &end)
{
    QList<Point2D> arc;
    arc.append(start);
    arc.append(through);
    arc.append(end);
    return arc;
}

} // namespace

QList<QList<Point2D>> BezierApproximation::interpolateCubic(Point2D p0, Point2D p1, Point2D p2,
                                                            Point2D p3, double tol)
{
    QList<QList<Point2D>> arcs;
    Point2D const m = curvePoint(atHalf, p0, p1, p2, p3);
    if ((m - p0).Length() < tol || (m - p3).Length() < tol) {
        arcs.append(arcThrough(p0, m, p3));
    } else {
        arcs.append(arcThrough(p0, curvePoint(atFifth, p0, p1, p2, p3), m));
        arcs.append(arcThrough(m, curvePoint(atFourFifths, p0, p1, p2, p3), p3));
    }
    return arcs;
}

QList<Point2D> BezierApproximation::cubicToArc(Point2D p0, Point2D p1, Point2D p2, Point2D p3)
{
    return arcThrough(p0, curvePoint(atHalf, p0, p1, p2, p3), p3);
}

QList<Point2D> BezierApproximation::quatToArc(Point2D, Point2D, Point2D)
{
    return QList<Point2D>();
}
