// Predicates, sampling, clipping and crossings of the plane.

#include "figures.h"

#include <OrvelMath/geom2d/Math2D.h>
#include <OrvelMath/geom2d/concav2d.h>
#include <OrvelMath/geom2d/construct2d.h>

#include <QtCore/QtAlgorithms>

#include <array>

namespace gallery {

namespace {

using Points = std::vector<Point2D>;

/// Colours a grid of points by a class that a predicate gives them; class 0 is not drawn.
template <class Classify>
void classifyGrid(Panel &panel, double spacing, std::array<Role, 4> const &roles, Classify classify)
{
    Bounds const bounds = panel.bounds();
    panel.solution([&] {
        for (double y = bounds.lo.y + spacing / 2; y < bounds.hi.y; y += spacing) {
            for (double x = bounds.lo.x + spacing / 2; x < bounds.hi.x; x += spacing) {
                int const type = classify(Point2D(x, y));
                if (type != 0) {
                    panel.disc({x, y}, spacing * 0.32, roles[static_cast<size_t>(type)], 0.8);
                }
            }
        }
    });
}

void drawPolygon(Panel &panel, Points const &points, Role role)
{
    panel.polygon(std::vector<Vec2>(points.begin(), points.end()), role);
}

// Crossings of segments

struct SegmentPair
{
    Point2D p0, p1, p2, p3;
    char const *name;
};

char const *className(IntersectionType type)
{
    switch (type) {
    case ProperCrossing:
        return "ProperCrossing";
    case EndOnSegment:
        return "EndOnSegment";
    case EndToEnd:
        return "EndToEnd";
    default:
        return "NoIntersection";
    }
}

void drawSegmentCrossings(SvgCanvas &canvas)
{
    canvas.layout(3, 260, 220);
    double const tol = 0.6;
    SegmentPair const pairs[] = {
        {{0, 0}, {6, 4}, {1, 4}, {5, 0}, "away from all ends"},
        {{0, 1}, {6, 1}, {3, 0.7}, {4, 4}, "near an end of one"},
        {{0, 1}, {5, 1}, {0.85, 1.42}, {-0.9, -0.68}, "near ends of both"},
        {{0, 0.5}, {4, 1}, {4.4, 1.4}, {2, 4}, "ends coincide"},
        {{0, 1}, {2.9, 1}, {3, 0}, {3, 4}, "ranges have no tolerance"},
        {{0, 2}, {6, 2}, {1.5, 1.97}, {4.5, 2.02}, "cross product below tol²"},
    };
    for (SegmentPair const &s : pairs) {
        Point2D out;
        IntersectionType const type = Math2DIntersect2Lines(s.p0, s.p1, s.p2, s.p3, out, tol);
        Panel &panel =
            canvas.panel(std::string(className(type)) + "\n" + s.name, {{-1.8, -1.6}, {7, 5.2}});
        for (Point2D const &end : {s.p0, s.p1, s.p2, s.p3}) {
            panel.disc(end, tol, Role::Helper);
        }
        panel.line(s.p0, s.p1, Role::Given);
        panel.line(s.p2, s.p3, Role::Second);
        if (type != NoIntersection) {
            panel.solutionPoint(out, "out", Side::E);
        }
    }
    canvas.legend(Role::Given, "first segment");
    canvas.legend(Role::Second, "second segment");
    canvas.legend(Role::Helper, "tol about the ends");
    canvas.legend(Role::Result, "crossing");
}

// Lines and circles

void drawLineCircle(Panel &panel, double height, double eps)
{
    Point2D const p0(-4, height);
    Point2D const p1(4, height + 1);
    Point2D const centre(0, 0);
    panel.circle(centre, 2.5, Role::Given);
    panel.infiniteLine(p0, p1, Role::Second);
    panel.arrow(p0, Point2D(-2.6, height + 0.175), Role::Second);
    for (int const which : {0, 1}) {
        Point2D out;
        if (intersect_line_circle(p0, p1, centre, 2.5, which, out, eps) == 1) {
            panel.solutionPoint(out, "which " + std::to_string(which),
                                which == 0 ? Side::SE : Side::SW);
        }
    }
}

void drawCircleCrossings(SvgCanvas &canvas)
{
    canvas.layout(3, 270, 240);
    Bounds const bounds{{-4.5, -4}, {4.5, 4}};
    drawLineCircle(canvas.panel("intersect_line_circle\ntwo crossings", bounds), 0.4, 1e-6);
    drawLineCircle(
        canvas.panel("intersect_line_circle\nwithin eps: the foot of the centre", bounds), 2.2,
        0.5);

    Panel &circles =
        canvas.panel("intersect_circle_circle\nleft and right of the centre line", bounds);
    Point2D const c1(-1.5, 0);
    Point2D const c2(1.8, 0);
    circles.circle(c1, 2.4, Role::Given);
    circles.circle(c2, 2.1, Role::Second);
    circles.arrow(c1, c2, Role::Helper);
    circles.point(c1, Role::Given, "c1", Side::S);
    circles.point(c2, Role::Second, "c2", Side::S);
    for (int const which : {0, 1}) {
        Point2D out;
        intersect_circle_circle(c1, 2.4, c2, 2.1, which, out, 1e-6);
        circles.solutionPoint(out, "which " + std::to_string(which),
                              which == 0 ? Side::N : Side::S);
    }

    Panel &foot = canvas.panel("projektion_punkt_auf_linie\nthe foot of p", bounds);
    Point2D const p(-1, 3);
    Point2D const a(-3, -2);
    Point2D const b(3, 1);
    Point2D out;
    projektion_punkt_auf_linie(p, a, b, out, 1e-12);
    foot.infiniteLine(a, b, Role::Given);
    foot.line(p, out, Role::Helper);
    foot.point(p, Role::Second, "p", Side::E);
    foot.solutionPoint(out, "out", Side::SE);

    Panel &nearest = canvas.panel("projektion_punkt_auf_kreis\nthe nearest point", bounds);
    Point2D const centre(0, -0.5);
    projektion_punkt_auf_kreis(p, centre, 2.2, out, 1e-12);
    nearest.circle(centre, 2.2, Role::Given);
    nearest.line(p, centre, Role::Helper);
    nearest.point(p, Role::Second, "p", Side::E);
    nearest.point(centre, Role::Given, "c", Side::SE);
    nearest.solutionPoint(out, "out", Side::E);

    Panel &cut = canvas.panel("circleLineIntersect\nboth points, in single precision", bounds);
    Point2D o1;
    Point2D o2;
    circleLineIntersect(a, b, centre, 2.2f, o1, o2);
    cut.circle(centre, 2.2, Role::Given);
    cut.infiniteLine(a, b, Role::Second);
    cut.arrow(a, Point2D(-1.6, -1.3), Role::Second);
    cut.solutionPoint(o1, "o1", Side::E);
    cut.solutionPoint(o2, "o2", Side::S);

    canvas.legend(Role::Given, "circle, base line");
    canvas.legend(Role::Second, "line, second circle, point");
    canvas.legend(Role::Result, "result");
}

// Sampling

void drawSamples(Panel &panel, QLinkedList<Point2D *> &points)
{
    panel.solution([&] {
        std::vector<Vec2> line;
        for (Point2D const *p : points) {
            line.emplace_back(*p);
        }
        panel.polyline(line, Role::Result);
        for (Vec2 const &p : line) {
            panel.smallPoint(p, Role::Result);
        }
    });
    panel.label(*points.first(), "first", Side::SE, Role::Result);
    qDeleteAll(points); // the next sampling empties the list
}

void drawArcSamples(Panel &panel, Point2D const &p0, Point2D const &p1, Point2D const &p2)
{
    panel.arcThrough(p0, p1, p2, Role::Helper);
    panel.point(p0, Role::Given, "p0", Side::NE);
    panel.point(p1, Role::Given, "p1", Side::N);
    panel.point(p2, Role::Given, "p2", Side::NW);
    QLinkedList<Point2D *> points;
    concav2d::getArcPoints(p0, p1, p2, points, 0.0, 0.6);
    panel.label(*points.last(), "last", Side::SW, Role::Result);
    drawSamples(panel, points);
}

void drawSampling(SvgCanvas &canvas)
{
    canvas.layout(3, 270, 230);
    Bounds const bounds{{-4, -3.2}, {4, 3.6}};
    Point2D const p0(2.8, -0.6);
    Point2D const p1(0.4, 2.6);
    Point2D const p2(-2.6, -0.8);
    drawArcSamples(canvas.panel("getArcPoints, step 0.6\ncounter-clockwise", bounds), p0, p1, p2);
    drawArcSamples(canvas.panel("getArcPoints, step 0.6\ngiven clockwise: turned round", bounds),
                   p2, p1, p0);

    QLinkedList<Point2D *> points;
    Point2D const centre(0, 0);
    Panel &coarse = canvas.panel("getCirclePoints, step 1\nthe last chord is shorter", bounds);
    coarse.circle(centre, 2.6, Role::Helper);
    concav2d::getCirclePoints(centre, 2.6, points, 1.0);
    drawSamples(coarse, points);

    Panel &fine = canvas.panel("getCirclePoints, step 0\nfive degrees", bounds);
    concav2d::getCirclePoints(centre, 2.6, points, 0.0);
    drawSamples(fine, points);

    Panel &arc = canvas.panel("getEllipseArcPoints, 300 to 120\nstep 0.5 of the parameter", bounds);
    Point2D const axisA(3, 1);
    Point2D const axisB(0, 1.6);
    arc.ellipse(centre, axisA.Length(), axisB.Length(), WinVec(axisA), Role::Helper);
    arc.arrow(centre, axisA, Role::Given);
    concav2d::getEllipseArcPoints(centre, axisA, axisB, 300, 120, points, 0.5);
    drawSamples(arc, points);

    Panel &whole = canvas.panel("getEllipsePoints, rotation 60\nthe axes are only lengths", bounds);
    whole.ellipse(centre, axisA.Length(), axisB.Length(), 60, Role::Helper);
    concav2d::getEllipsePoints(centre, axisA, axisB, 60, points, 0.5);
    drawSamples(whole, points);

    canvas.legend(Role::Given, "given points, first semi-axis");
    canvas.legend(Role::Helper, "curve");
    canvas.legend(Role::Result, "samples");
}

// Clipping

void drawClipping(SvgCanvas &canvas)
{
    canvas.layout(2, 380, 300);
    double const segments[][4] = {{0.5, 0.8, 3, 1.6},    {-2, 2.2, 7, 3.4},   {-2, -2, 4, 4.6},
                                  {4.4, -1.6, 5.8, 5.8}, {-1.8, 3, 0.8, 5.6}, {5.4, 0.4, 7.2, 2}};
    Panel &panel = canvas.panel("clipline", {{-2.5, -2.5}, {7.5, 6}});
    panel.polygon({{0, 0}, {5, 0}, {5, 4}, {0, 4}}, Role::Given);
    for (double const(&s)[4] : segments) {
        panel.line({s[0], s[1]}, {s[2], s[3]}, Role::Muted);
        double x1 = s[0];
        double y1 = s[1];
        double x2 = s[2];
        double y2 = s[3];
        if (clipline(0, 0, 5, 4, x1, y1, x2, y2)) {
            panel.solution([&] {
                panel.line({x1, y1}, {x2, y2}, Role::Result);
                panel.smallPoint({x1, y1}, Role::Result);
                panel.smallPoint({x2, y2}, Role::Result);
            });
        }
    }

    Panel &picked = canvas.panel("lineInsideRectangle, no flag set", {{-2.5, -2.5}, {7.5, 6}});
    Points corners = {{0, 0}, {5, 0}, {5, 4}, {0, 4}};
    drawPolygon(picked, corners, Role::Given);
    struct Pick
    {
        Point2D from, to;
    };
    Pick const picks[] = {{{1, 3.2}, {6.5, 5.2}},
                          {{6.5, 3}, {3, 2.6}},
                          {{0, 1.6}, {2.6, 1}},
                          {{1, 0}, {3, 0}},
                          {{3.6, 1.2}, {4.4, 2}}};
    for (Pick pick : picks) {
        bool const inside =
            concav2d::lineInsideRectangle(pick.from, pick.to, corners[0], corners[1], corners[2],
                                          corners[3], 0, false, false, false, false) == 1;
        if (inside) {
            picked.solution([&] { picked.arrow(pick.from, pick.to, Role::Result); });
        } else {
            picked.arrow(pick.from, pick.to, Role::Second);
        }
    }
    canvas.legend(Role::Given, "rectangle");
    canvas.legend(Role::Muted, "clipped away");
    canvas.legend(Role::Result, "kept, counted as inside");
    canvas.legend(Role::Second, "not counted");
}

// Where points lie

void drawLocation(SvgCanvas &canvas)
{
    canvas.layout(3, 280, 260);
    double const tol = 0.5;
    Bounds const bounds{{-1.2, -1.2}, {9.2, 9.2}};
    Points polygon = {{0, 0}, {8, 0}, {8, 8}, {4.6, 8}, {4.6, 5}, {2, 5}, {0, 8}};
    PPtrOrderedVector<Point2D> pointers;
    for (Point2D &p : polygon) {
        pointers.append(&p);
    }
    double const spacing = 0.26;
    Panel &second = canvas.panel("concav2d::pointInsidePolygone\ntol 0.5", bounds);
    classifyGrid(second, spacing, {Role::Muted, Role::Result, Role::Accent, Role::Muted},
                 [&](Point2D const &p) { return concav2d::pointInsidePolygone(pointers, p, tol); });
    drawPolygon(second, polygon, Role::Given);

    Panel &first = canvas.panel("Math2DInsidePolygon\ntol 0.5", bounds);
    classifyGrid(first, spacing, {Role::Muted, Role::Result, Role::Accent, Role::Muted},
                 [&](Point2D const &p) {
                     return 2 - Math2DInsidePolygon(polygon.data(), int(polygon.size()), p, nullptr,
                                                    nullptr, tol);
                 });
    drawPolygon(first, polygon, Role::Given);

    Panel &rectangle =
        canvas.panel("concav2d::pointInsideRectangle\nany convex quadrilateral", bounds);
    Points corners = {{1, 0.5}, {8, 2}, {7, 7.5}, {0.5, 6}};
    classifyGrid(rectangle, spacing, {Role::Muted, Role::Accent, Role::Accent, Role::Muted},
                 [&](Point2D p) {
                     return concav2d::pointInsideRectangle(p, corners[0], corners[1], corners[2],
                                                           corners[3], 0);
                 });
    drawPolygon(rectangle, corners, Role::Given);
    canvas.legend(Role::Accent, "inside");
    canvas.legend(Role::Result, "on the boundary");
    canvas.legend(Role::Given, "region");
}

void drawOnCurves(SvgCanvas &canvas)
{
    canvas.layout(2, 340, 250);
    std::array<Role, 4> const roles = {Role::Muted, Role::Second, Role::Result, Role::Accent};
    double const spacing = 0.2;
    Bounds const bounds{{-4.5, -3.2}, {4.5, 3.2}};

    Panel &line = canvas.panel("pointOnLine, tol 0.6\nthe detour by way of p counts", bounds);
    Point2D const p0(-3, -1);
    Point2D const p1(3, 1);
    classifyGrid(line, spacing, roles,
                 [&](Point2D const &p) { return concav2d::pointOnLine(p0, p1, p, 0.6); });
    line.line(p0, p1, Role::Given);

    Panel &points =
        canvas.panel("pointOnArc, three points, tolDist 0.6\nonly the direction counts", bounds);
    Point2D const start(2.4, 0.6);
    Point2D const through(-0.4, 2.44);
    Point2D const end(-2.3, -0.9);
    classifyGrid(points, spacing, roles, [&](Point2D const &p) {
        return concav2d::pointOnArc(start, through, end, p, 0.6, 1e-6);
    });
    points.arcThrough(start, through, end, Role::Given);

    Panel &angles = canvas.panel("pointOnArc, 20 to 200 degrees\ntol 12 degrees", bounds);
    classifyGrid(angles, spacing, roles,
                 [](Point2D const &p) { return concav2d::pointOnArc(20, 200, p, 12); });
    angles.arc({0, 0}, 2.5 * Vec2(VecWin(20)), 2.5 * Vec2(VecWin(200)), Role::Given);

    Panel &ellipse =
        canvas.panel("pointOnEllipsearc, 20 to 200 degrees\nof the parameter, tol 12", bounds);
    classifyGrid(ellipse, spacing, roles, [](Point2D const &p) {
        return concav2d::pointOnEllipsearc(20, 200, 30, p, 3.6, 1.4, 12);
    });
    ellipse.ellipse({0, 0}, 3.6, 1.4, 30, Role::Given);

    canvas.legend(Role::Second, "1: first end");
    canvas.legend(Role::Result, "2: second end");
    canvas.legend(Role::Accent, "3: between");
    canvas.legend(Role::Given, "curve");
}

// Boxes

void drawBox(Panel &panel, double xmin, double xmax, double ymin, double ymax)
{
    panel.solution([&] {
        panel.polygon({{xmin, ymin}, {xmax, ymin}, {xmax, ymax}, {xmin, ymax}}, Role::Result);
    });
}

void drawExtrema(SvgCanvas &canvas)
{
    canvas.layout(3, 250, 230);
    Bounds const bounds{{-3.6, -3.4}, {3.6, 3.4}};
    Point2D const centre(0, 0);
    double xmin = 0;
    double xmax = 0;
    double ymin = 0;
    double ymax = 0;
    double const sweeps[][2] = {{20, 70}, {60, 210}, {300, 100}, {200, 170}};
    for (double const(&sweep)[2] : sweeps) {
        Panel &panel = canvas.panel("getArcExtrema\n" + std::to_string(int(sweep[0])) + " to " +
                                        std::to_string(int(sweep[1])) + " degrees",
                                    bounds);
        concav2d::getArcExtrema(centre, 2.6, sweep[0], sweep[1], xmin, xmax, ymin, ymax);
        panel.circle(centre, 2.6, Role::Helper);
        drawBox(panel, xmin, xmax, ymin, ymax);
        panel.arc(centre, 2.6 * Vec2(VecWin(sweep[0])), 2.6 * Vec2(VecWin(sweep[1])), Role::Given);
    }
    for (double const a : {3.0, 1.2}) {
        double const b = a > 2 ? 1.2 : 3.0;
        Panel &panel = canvas.panel(a > 2 ? "getEllipseExtrema\nthe larger semi-axis as a"
                                          : "getEllipseExtrema\nthe smaller one: too small a box",
                                    bounds);
        concav2d::getEllipseExtrema(centre, a, b, 35, xmin, xmax, ymin, ymax, 0);
        drawBox(panel, xmin, xmax, ymin, ymax);
        panel.ellipse(centre, a, b, 35, Role::Given);
    }
    canvas.legend(Role::Given, "curve");
    canvas.legend(Role::Result, "box");
}

} // namespace

std::vector<Figure> planeFigures()
{
    return {
        {"segment_crossings.svg", "Math2DIntersect2Lines, tol 0.6", 4, drawSegmentCrossings},
        {"circle_crossings.svg", "Lines and circles: crossings and projections", 10,
         drawCircleCrossings},
        {"sampling.svg", "Points along arcs, circles and ellipses", 6, drawSampling},
        {"clipping.svg", "Segments and a rectangle", 7, drawClipping},
        {"point_location.svg", "Where a point lies in a region", 3, drawLocation},
        {"points_on_curves.svg", "Where a point lies on a curve", 4, drawOnCurves},
        {"extrema.svg", "Boxes about curves", 6, drawExtrema},
    };
}

} // namespace gallery
