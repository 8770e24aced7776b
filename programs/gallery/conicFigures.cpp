#include "figures.h"

#include <OrvelMath/geom2d/BezierApproximation.h>
#include <OrvelMath/geom2d/mathPoly.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace gallery {

namespace {

using mathPoly::Ellipse;

void draw(Panel &panel, Ellipse const &e, Role role)
{
    double const radiansPerDegree = std::acos(-1.0) / 180.0;
    panel.ellipse({e.cx, e.cy}, e.a, e.b, e.angle / radiansPerDegree, role);
}

/// The crossings in the order in which FindIntersections2 counts them.
std::vector<Point2D> orderedCrossings(Ellipse e1, Ellipse e2)
{
    Point2D points[12];
    int count = 0;
    mathPoly::FindIntersections(e1, e2, count, points);
    std::vector<Point2D> ordered(points, points + count);
    auto const direction = [&e1](Point2D const &p) {
        double const x = p.x() - e1.cx;
        double const y = p.y() - e1.cy;
        double const c = std::cos(e1.angle);
        double const s = std::sin(e1.angle);
        return WinVec(c * x + s * y, c * y - s * x);
    };
    std::sort(ordered.begin(), ordered.end(),
              [&](Point2D const &p, Point2D const &q) { return direction(p) < direction(q); });
    return ordered;
}

void drawChoice(SvgCanvas &canvas, Ellipse e1, Ellipse e2, bool last, bool inner)
{
    std::vector<Point2D> const order = orderedCrossings(e1, e2);
    Point2D chosen;
    bool const found = mathPoly::FindIntersections2(e1, e2, last, inner, chosen);
    Panel &panel = canvas.panel(std::to_string(order.size()) + " crossings: last " +
                                    (last ? "true" : "false") + ", inner " +
                                    (inner ? "true" : "false") + (found ? "" : ": none"),
                                {{-3.4, -2.9}, {3.4, 2.9}});
    draw(panel, e1, Role::Given);
    draw(panel, e2, Role::Accent);
    double const c = std::cos(e1.angle);
    double const s = std::sin(e1.angle);
    panel.arrow({e1.cx, e1.cy}, {e1.cx + 1.2 * c, e1.cy + 1.2 * s}, Role::Helper);
    panel.point({e1.cx, e1.cy}, Role::Given, "e1", Side::W);
    for (std::size_t k = 0; k < order.size(); ++k) {
        Side const side = order[k].y() >= 0 ? (order[k].x() >= 0 ? Side::NE : Side::NW)
                                            : (order[k].x() >= 0 ? Side::SE : Side::SW);
        std::string const name = "order[" + std::to_string(k) + "]";
        if (found && order[k] == chosen) {
            panel.solutionPoint(order[k], name, side);
        } else {
            panel.point(order[k], Role::Helper, name, side);
        }
    }
}

void drawChoices(SvgCanvas &canvas)
{
    canvas.layout(4, 250, 210);
    Ellipse const e1(Point2D(0, 0), 20, 2.2, 1.2);
    std::pair<Ellipse, Ellipse> const pairs[] = {
        {e1, Ellipse(Point2D(0.1, 0), 110, 2.2, 1.2)},
        // three crossings need a contact: a circle that touches the end of an axis from within
        {Ellipse(Point2D(0, 0), 0, 2, 1), Ellipse(Point2D(1, 0), 1)},
        {e1, Ellipse(Point2D(1.7, 0.4), 1.4)}};
    for (auto const &[first, second] : pairs) {
        for (bool const inner : {false, true}) {
            for (bool const last : {false, true}) {
                drawChoice(canvas, first, second, last, inner);
            }
        }
    }
    canvas.legend(Role::Given, "first ellipse");
    canvas.legend(Role::Accent, "second");
    canvas.legend(Role::Helper, "x axis of the first, where the count starts");
    canvas.legend(Role::Result, "chosen");
}

void drawCrossings(SvgCanvas &canvas, char const *caption, Ellipse e1, Ellipse e2)
{
    Panel &panel = canvas.panel(caption, {{-3.4, -2.6}, {3.4, 2.6}});
    draw(panel, e1, Role::Given);
    draw(panel, e2, Role::Accent);
    Point2D points[12];
    int count = 0;
    mathPoly::FindIntersections(e1, e2, count, points);
    for (int i = 0; i < count; ++i) {
        Side const side = points[i].y() >= 0 ? Side::N : Side::S;
        panel.solutionPoint(points[i], "points[" + std::to_string(i) + "]", side);
    }
}

void drawAllCrossings(SvgCanvas &canvas)
{
    canvas.layout(3, 300, 230);
    Ellipse const wide(Point2D(0, 0), 0, 2.4, 1.2);
    drawCrossings(canvas, "two ellipses, four crossings", wide,
                  Ellipse(Point2D(0.2, 0.1), 75, 2.2, 1));
    drawCrossings(canvas, "two crossings", wide, Ellipse(Point2D(1.6, 0.5), 30, 1.5, 1.1));
    drawCrossings(canvas, "circle and ellipse, four crossings", Ellipse(Point2D(0.2, 0), 1.7),
                  wide);
    drawCrossings(canvas, "one within the other: none", wide, Ellipse(Point2D(-0.4, 0.1), 0.8));
    drawCrossings(canvas, "contact at the end of an axis and two\ncrossings: three points",
                  Ellipse(Point2D(0, 0), 0, 2, 1), Ellipse(Point2D(1, 0), 1));
    drawCrossings(canvas, "concentric circles: none", Ellipse(Point2D(0, 0), 2),
                  Ellipse(Point2D(0, 0), 1));
    canvas.legend(Role::Given, "first ellipse");
    canvas.legend(Role::Accent, "second");
    canvas.legend(Role::Result, "crossings in the order of discovery");
}

void drawLineCuts(SvgCanvas &canvas)
{
    canvas.layout(3, 300, 230);
    Point2D const centre(0, 0);
    double const angle = 25;
    double const a = 2.2;
    double const b = 1.2;
    struct
    {
        char const *caption;
        Point2D p0, p1;
        bool other;
        double eps;
    } const cases[] = {
        {"other = false: further along p0 to p1", {-3.1, -1}, {-2.5, -0.8}, false, 1e-9},
        {"other = true", {-3.1, -1}, {-2.5, -0.8}, true, 1e-9},
        {"a miss within eps: the nearest approach", {-2.8, 1.53}, {-1.9, 1.53}, false, 10.0}};
    for (auto const &one : cases) {
        Panel &panel = canvas.panel(one.caption, {{-3.4, -2.6}, {3.4, 2.6}});
        panel.ellipse(centre, a, b, angle, Role::Given);
        panel.infiniteLine(one.p0, one.p1, Role::Helper);
        panel.arrow(one.p0, one.p1, Role::Given);
        panel.label(one.p0, "p0", Side::S);
        panel.label(one.p1, "p1", Side::S);
        Point2D out;
        if (intersect_line_ellipse(one.p0, one.p1, centre, angle, a, b, one.other, out, one.eps) !=
            0) {
            panel.solutionPoint(out, "out", Side::N);
        }
    }
    canvas.legend(Role::Given, "given");
    canvas.legend(Role::Result, "the crossing chosen");
}

void drawBezier(SvgCanvas &canvas)
{
    canvas.layout(3, 300, 230);
    struct
    {
        char const *caption;
        Point2D p[4];
        double tol;
    } const cases[] = {
        {"two arcs through B(0.2) and B(0.8),\nmeeting in B(0.5)",
         {Point2D(-3, -1.5), Point2D(-2, 2), Point2D(1.5, 2.6), Point2D(3, -0.5)},
         0.1},
        {"tol above the distance of B(0.5) from an end:\none arc",
         {Point2D(-3, -1.5), Point2D(-2, 2), Point2D(1.5, 2.6), Point2D(3, -0.5)},
         4},
        {"an S: nothing measures the error",
         {Point2D(-3, -1.5), Point2D(0.5, 2.8), Point2D(-0.5, -2.4), Point2D(3, 1.5)},
         0.1}};
    for (auto const &one : cases) {
        Panel &panel = canvas.panel(one.caption, {{-3.8, -2.6}, {3.8, 3}});
        Point2D const *const p = one.p;
        panel.polyline({p[0], p[1], p[2], p[3]}, Role::Helper);
        std::vector<Vec2> curve;
        int const steps = 80;
        for (int i = 0; i <= steps; ++i) {
            double const t = static_cast<double>(i) / steps;
            double const s = 1.0 - t;
            curve.push_back(s * s * s * Vec2(p[0]) + 3.0 * s * s * t * Vec2(p[1]) +
                            3.0 * s * t * t * Vec2(p[2]) + t * t * t * Vec2(p[3]));
        }
        panel.polyline(curve, Role::Given);
        Role const roles[] = {Role::Result, Role::Accent};
        int which = 0;
        for (QList<Point2D> const &arc :
             BezierApproximation::interpolateCubic(p[0], p[1], p[2], p[3], one.tol)) {
            Role const role = roles[which++];
            panel.solution([&] {
                panel.arcThrough(arc[0], arc[1], arc[2], role);
                panel.point(arc[0], role);
                panel.point(arc[1], role, "through", Side::N);
                panel.point(arc[2], role);
            });
        }
        for (int i = 0; i < 4; ++i) {
            panel.point(p[i], Role::Helper, "p" + std::to_string(i), Side::SE);
        }
    }
    canvas.legend(Role::Given, "the curve");
    canvas.legend(Role::Helper, "its control points");
    canvas.legend(Role::Result, "first arc");
    canvas.legend(Role::Accent, "second arc");
}

} // namespace

std::vector<Figure> conicFigures()
{
    return {
        {"FindIntersections2.svg",
         "mathPoly::FindIntersections2: one crossing, chosen by its order", 10, drawChoices},
        {"ellipse_crossings.svg", "mathPoly::FindIntersections: all crossings of two ellipses", 13,
         drawAllCrossings},
        {"intersect_line_ellipse.svg", "intersect_line_ellipse", 3, drawLineCuts},
        {"BezierApproximation.svg", "BezierApproximation::interpolateCubic", 5, drawBezier},
    };
}

} // namespace gallery
