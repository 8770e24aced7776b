#include "fingerprint/Rows.h"

#include <OrvelMath/geom2d/mathPoly.h>

#include <algorithm>

namespace fingerprint {

namespace {

using mathPoly::Conic;
using mathPoly::Ellipse;
using mathPoly::TMat;

template <typename Solve>
Row solverRow(std::string name, int degree, Solve solve)
{
    return withLibrary(std::move(name), [=](Stream &stream, Hash &hash) {
        double c[5];
        for (double &value : c) {
            value = stream.number();
        }
        double roots[4] = {-9.0, -8.0, -7.0, -6.0};
        hash.add(solve(c, roots));
        for (int i = 0; i < degree; ++i) {
            hash.add(roots[i]);
        }
    });
}

std::vector<Row> polynomialRows()
{
    return {
        own("mathPoly::isZero", mathPoly::isZero, {100000, true, false}),
        solverRow("mathPoly::solveLinear", 1, mathPoly::solveLinear),
        solverRow("mathPoly::solveQuadratic", 2, mathPoly::solveQuadratic),
        solverRow("mathPoly::solveCubic", 3, mathPoly::solveCubic),
        solverRow("mathPoly::solveQuartic", 4, mathPoly::solveQuartic),
    };
}

std::vector<Row> transformRows()
{
    using mathPoly::Point;
    return {
        withLibrary("mathPoly::TMat",
                    [](TMat &m, Stream &stream, Point &p) {
                        m.rotate(stream.number());
                        m.apply(p);
                        double const dx = stream.number();
                        m.translate(dx, stream.number());
                        double const sx = stream.number();
                        m.scale(sx, stream.number());
                        m.rotate(stream.number());
                    }),
        withLibrary("mathPoly::Ellipse", [](Point2D const &c, double angle, double a,
                                            double b) { return Ellipse(c, angle, a, b); }),
        withLibrary("mathPoly::Conic", [](Ellipse const &e) { return Conic(e); }),
        withLibrary("mathPoly::Conic::centred", [](Ellipse const &e) { return Conic::centred(e); }),
        withLibrary("mathPoly::unitToEllipse", mathPoly::unitToEllipse),
        own("mathPoly::transformCentred", mathPoly::transformCentred),
        withLibrary("mathPoly::ellipseOfCentred", mathPoly::ellipseOfCentred),
        withLibrary("mathPoly::transformEllipse", mathPoly::transformEllipse),
    };
}

template <typename Call>
void addCrossings(Hash &hash, Call call)
{
    Point2D points[8];
    std::fill(points, points + 8, Point2D(support::preset, support::preset));
    int count = -5;
    call(points, count);
    hash.add(count);
    for (Point2D const &p : points) {
        hash.add(p);
    }
}

std::vector<Row> crossingRows()
{
    Drawing const drawing{20000, false, true};
    return {
        withLibrary(
            "mathPoly::FindIntersections",
            [](Ellipse &e1, Ellipse &e2, Hash &hash) {
                addCrossings(hash, [&](Point2D *points, int &count) {
                    mathPoly::FindIntersections(e1, e2, count, points);
                });
            },
            drawing),
        withLibrary("mathPoly::FindIntersections2", mathPoly::FindIntersections2, drawing),
        withLibrary(
            "intersect_circle_ellipse",
            [](Point2D const &c, double r, Ellipse const &e, Hash &hash, double tol) {
                addCrossings(hash, [&](Point2D *points, int &count) {
                    hash.add(intersect_circle_ellipse(c, r, {e.cx, e.cy}, e.angle, e.a, e.b, points,
                                                      count, tol));
                });
            },
            drawing),
        withLibrary(
            "intersect_ellipse_ellipse",
            [](Ellipse const &e, Ellipse const &f, Hash &hash, double tol) {
                addCrossings(hash, [&](Point2D *points, int &count) {
                    hash.add(intersect_ellipse_ellipse({e.cx, e.cy}, e.angle, e.a, e.b,
                                                       {f.cx, f.cy}, f.angle, f.a, f.b, points,
                                                       count, tol));
                });
            },
            drawing),
        withLibrary("intersect_line_ellipse", intersect_line_ellipse),
    };
}

} // namespace

std::vector<Row> conicRows()
{
    std::vector<Row> rows;
    for (auto const &part : {polynomialRows(), transformRows(), crossingRows()}) {
        rows.insert(rows.end(), part.begin(), part.end());
    }
    return rows;
}

} // namespace fingerprint
