#include "fingerprint/Rows.h"

#include <OrvelCore/runtime/PPtrOrderedVector.h>
#include <OrvelMath/geom2d/BezierApproximation.h>
#include <OrvelMath/geom2d/Math2D.h>
#include <OrvelMath/geom2d/concav2d.h>

namespace fingerprint {

namespace {

using P = Point2D const &;

/// A drawn outline: simple or not, with copies, combs and corners on one line.
std::vector<Point2D> outline(Stream &stream)
{
    int const count = stream.below(8) == 0 ? stream.below(40) : stream.below(12);
    bool const comb = stream.below(6) == 0;
    std::vector<Point2D> points;
    for (int i = 0; i < count; ++i) {
        points.push_back(comb ? Point2D(0.25 * i, i % 2 == 0 ? -3.0 : 3.0) : stream.point2());
    }
    return points;
}

template <typename Sample>
void addSamples(Hash &hash, Sample sample)
{
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    QLinkedList<Point2D *> points;
    hash.add(sample(points));
    hash.add(int(points.size()));
    for (Point2D *p : points) {
        hash.add(*p);
        delete p;
    }
    QT_WARNING_POP
}

double step(Stream &stream)
{
    return 5.0 + double(stream.below(30));
}

std::vector<Row> lineRows()
{
    using namespace concav2d;
    return {
        own("concav2d::comparePoints", comparePoints),
        own("concav2d::isColinear", isColinear),
        withLibrary("concav2d::areLinesParallel", areLinesParallel),
        withLibrary("concav2d::distanceBetweenParallels", distanceBetweenParallels),
        own("concav2d::pointOnLine", pointOnLine),
        own("concav2d::intersectLineLine", intersectLineLine),
        own("concav2d::intersectEdgeEdge", intersectEdgeEdge),
        own("concav2d::doOverlap",
            [](P p0, P p1, P p2, P p3, Hash &hash, double tol) {
                Point2D sorted[4] = {{9, 9}, {8, 8}, {7, 7}, {6, 6}};
                bool const result = doOverlap(p0, p1, p2, p3, sorted, tol);
                for (P p : sorted) {
                    hash.add(p);
                }
                return result;
            }),
        own("intersect_line_line", intersect_line_line),
    };
}

std::vector<Row> regionRows()
{
    using namespace concav2d;
    return {
        own("concav2d::pointInsidePolygone",
            [](Stream &stream, Hash &hash, double tol) {
                std::vector<Point2D> corners = outline(stream);
                PPtrOrderedVector<Point2D> polygon;
                for (Point2D &corner : corners) {
                    polygon.append(&corner);
                }
                for (int i = 0; i < 8; ++i) {
                    hash.add(int(pointInsidePolygone(polygon, stream.point2(), tol)));
                }
            },
            {40000, true, true}),
        own("Math2DInsidePolygon",
            [](Stream &stream, Hash &hash, double tol) {
                std::vector<Point2D> corners = outline(stream);
                if (corners.empty()) {
                    return;
                }
                double xmin = -3.0;
                double xmax = 3.0;
                for (int i = 0; i < 8; ++i) {
                    bool const bounded = stream.below(2) == 1;
                    hash.add(int(Math2DInsidePolygon(corners.data(), int(corners.size()),
                                                     stream.point2(), bounded ? &xmin : nullptr,
                                                     bounded ? &xmax : nullptr, tol)));
                }
                hash.add(xmin);
                hash.add(xmax);
            },
            {40000, true, true}),
        withLibrary("concav2d::pointInsideRectangle", pointInsideRectangle),
        withLibrary("concav2d::lineInsideRectangle", lineInsideRectangle),
        withLibrary("concav2d::arcInsideRectangle", arcInsideRectangle),
        withLibrary("concav2d::ellipsearcInsideRectangle", ellipsearcInsideRectangle),
        withLibrary("concav2d::arcInsideRectangle upright",
                    [](Stream &stream, P a, P b, P p0, P p1, P p2, double tol) {
                        Point2D r[4] = {a, {b.x(), a.y()}, b, {a.x(), b.y()}};
                        Point2D q[3] = {p0, p1, p2};
                        int const turn = stream.below(4);
                        return arcInsideRectangle(q[0], q[1], q[2], r[turn], r[(turn + 1) % 4],
                                                  r[(turn + 2) % 4], r[(turn + 3) % 4], tol);
                    }),
        withLibrary("concav2d::lineInsideRectangle upright",
                    [](Stream &stream, P a, P b, P p0, P p1, double tol) {
                        Point2D r[4] = {a, {b.x(), a.y()}, b, {a.x(), b.y()}};
                        Point2D q[2] = {p0, p1};
                        std::uint64_t const edges = stream.bits();
                        return lineInsideRectangle(q[0], q[1], r[0], r[1], r[2], r[3], tol,
                                                   edges & 1, edges & 2, edges & 4, edges & 8);
                    }),
    };
}

std::vector<Row> arcRows()
{
    using namespace concav2d;
    return {
        own("concav2d::ccw_angle_origin", ccw_angle_origin),
        own("concav2d::getArcMiddle", getArcMiddle),
        withLibrary("concav2d::getCirclePoint", getCirclePoint),
        withLibrary("concav2d::getEllipsePointAngle", getEllipsePointAngle, {100000, true, false}),
        withLibrary("concav2d::pointOnArc points",
                    [](P a, P m, P b, P p, double d, double tol) {
                        return pointOnArc(a, m, b, p, d, tol);
                    }),
        withLibrary("concav2d::pointOnArc three angles",
                    [](double a, double m, double b, P p, double d, double tol) {
                        return pointOnArc(a, m, b, p, d, tol);
                    }),
        withLibrary("concav2d::pointOnArc two angles",
                    [](double a, double b, P p, double tol) { return pointOnArc(a, b, p, tol); }),
        withLibrary("concav2d::pointOnEllipsearc", pointOnEllipsearc),
        withLibrary("concav2d::isPointOnArc points",
                    [](P a, P m, P b, P p, double &angle, double tol) {
                        return isPointOnArc(a, m, b, p, angle, tol);
                    }),
        withLibrary("concav2d::isPointOnArc angles",
                    [](P c, double r, double a, double b, P p, double &angle, double tol) {
                        return isPointOnArc(c, r, a, b, p, angle, tol);
                    }),
        withLibrary("concav2d::getArcAngle",
                    [](P a, P m, P b, double &angle, bool start, double tol) {
                        return getArcAngle(a, m, b, angle, start, tol);
                    }),
        withLibrary("concav2d::getArcAngle centre",
                    [](P a, P m, P b, P c, double &angle, bool start, double tol) {
                        return getArcAngle(a, m, b, c, angle, start, tol);
                    }),
        own("concav2d::getArcRadius",
            [](P a, P m, P b, double &r, double tol) { return getArcRadius(a, m, b, r, tol); }),
        own("concav2d::getArcRadius centre",
            [](P a, P m, P b, P c, double &r) { return getArcRadius(a, m, b, c, r); }),
        withLibrary("concav2d::getEllipsearcExtrema", getEllipsearcExtrema),
        withLibrary("concav2d::getEllipseExtrema", getEllipseExtrema),
        withLibrary("concav2d::getEllipseExtremaAngles", getEllipseExtremaAngles),
        withLibrary("concav2d::getArcExtrema points",
                    [](P a, P m, P b, double &x0, double &x1, double &y0, double &y1) {
                        return getArcExtrema(a, m, b, x0, x1, y0, y1);
                    },
                    {100000, true, false}),
        withLibrary("concav2d::getArcExtrema angles",
                    [](P c, double r, double a, double b, double &x0, double &x1, double &y0,
                       double &y1) { return getArcExtrema(c, r, a, b, x0, x1, y0, y1); },
                    {100000, true, false}),
        withLibrary("concav2d::getEllipsePointNormal", getEllipsePointNormal),
        withLibrary("concav2d::getEllipsePointTangent", getEllipsePointTangent),
        own("concav2d::getCirclePointTangent", getCirclePointTangent),
        withLibrary("concav2d::getEllipsePoint axes",
                    [](P c, double a, double b, Point2D &out, double rotation, double angle) {
                        return getEllipsePoint(c, a, b, out, rotation, angle);
                    },
                    {100000, true, false}),
        withLibrary("concav2d::getEllipsePoint points",
                    [](P c, P a, P b, Point2D &out, double rotation, double angle) {
                        return getEllipsePoint(c, a, b, out, rotation, angle);
                    },
                    {100000, true, false}),
    };
}

std::vector<Row> samplingRows()
{
    using namespace concav2d;
    return {
        withLibrary("concav2d::getArcPoints",
                    [](Stream &stream, Hash &hash, P a, P m, P b, double tol) {
                        double const s = step(stream);
                        addSamples(hash,
                                   [&](auto &out) { return getArcPoints(a, m, b, out, tol, s); });
                    },
                    {5000, false, true}),
        withLibrary("concav2d::getCirclePoints",
                    [](Stream &stream, Hash &hash, P c) {
                        double const r = stream.unit() * 5.0;
                        double const s = step(stream);
                        addSamples(hash, [&](auto &out) { return getCirclePoints(c, r, out, s); });
                    },
                    {5000, false, true}),
        withLibrary("concav2d::getEllipseArcPoints",
                    [](Stream &stream, Hash &hash, P c, P a, P b) {
                        double const start = stream.unit() * 360.0;
                        double const end = stream.unit() * 360.0;
                        double const s = step(stream);
                        addSamples(hash, [&](auto &out) {
                            return getEllipseArcPoints(c, a, b, start, end, out, s);
                        });
                    },
                    {5000, false, true}),
        withLibrary("concav2d::getEllipsePoints",
                    [](Stream &stream, Hash &hash, P c, P a, P b) {
                        double const rotation = stream.unit() * 360.0;
                        double const s = step(stream);
                        addSamples(hash, [&](auto &out) {
                            return getEllipsePoints(c, a, b, rotation, out, s);
                        });
                    },
                    {5000, false, true}),
        withLibrary("BezierApproximation::interpolateCubic",
                    [](Stream &stream, Hash &hash, P a, P b, P c, P d) {
                        double const tol = stream.below(4) == 0 ? 1.0 : 1e-3;
                        hash.add(BezierApproximation::interpolateCubic(a, b, c, d, tol));
                    },
                    {3000, false, true}),
        withLibrary("BezierApproximation::cubicToArc",
                    [](Point2D a, Point2D b, Point2D c, Point2D d) {
                        return BezierApproximation::cubicToArc(a, b, c, d);
                    },
                    {30000, true, true}),
        withLibrary(
            "BezierApproximation::quatToArc",
            [](Point2D a, Point2D b, Point2D c) { return BezierApproximation::quatToArc(a, b, c); },
            {30000, true, true}),
    };
}

std::vector<Row> firstGenerationRows()
{
    return {
        own("Math2DComparePoints", Math2DComparePoints),
        own("Math2DIntersect2Lines", Math2DIntersect2Lines),
        own("Math2DIntersect2LinesWrong", Math2DIntersect2LinesWrong),
        own("inter_lin_lin", inter_lin_lin),
        own("circleLineIntersect floats",
            [](float x1, float y1, float x2, float y2, float cx, float cy, float r, float &a,
               float &b, float &c,
               float &d) { return circleLineIntersect(x1, y1, x2, y2, cx, cy, r, a, b, c, d); }),
        own("circleLineIntersect points",
            [](Point2D a, Point2D b, Point2D c, float r, Point2D &o1, Point2D &o2) {
                return circleLineIntersect(a, b, c, r, o1, o2);
            }),
        own("clipline", clipline, {100000, false, false}),
    };
}

} // namespace

std::vector<Row> planeRows()
{
    std::vector<Row> rows;
    for (auto const &part :
         {lineRows(), regionRows(), arcRows(), samplingRows(), firstGenerationRows()}) {
        rows.insert(rows.end(), part.begin(), part.end());
    }
    return rows;
}

} // namespace fingerprint
