#include "figures.h"

#include <OrvelMath/geom2d/construct2d.h>

#include <algorithm>
#include <cmath>

namespace gallery {

namespace {

double const kEps = 1e-6;

std::string selector(char const *name, int value)
{
    return std::string(name) + " = " + std::to_string(value);
}

/// An arc of a fillet with its centre and ends, as one solution.
void drawFillet(Panel &panel, Point2D const &m, Point2D const &t1, Point2D const &t2, double r)
{
    panel.circle(m, r, Role::Helper);
    panel.solution([&] {
        panel.arc(m, t1, t2, Role::Result);
        panel.point(m, Role::Result, "m");
        panel.point(t1, Role::Result, "t1");
        panel.point(t2, Role::Result, "t2");
    });
}

void legendOfFillets(SvgCanvas &canvas)
{
    canvas.legend(Role::Given, "given");
    canvas.legend(Role::Result, "the fillet, counter-clockwise from t1 to t2");
    canvas.legend(Role::Helper, "its whole circle");
}

void drawPointTangents(SvgCanvas &canvas)
{
    Point2D const c(0, 0);
    double const r = 2;
    struct
    {
        char const *caption;
        Point2D p;
        int side;
    } const cases[] = {{"side = 0: touches left of c to p", Point2D(4.5, 0.5), 0},
                       {"side = 1: touches right of c to p", Point2D(4.5, 0.5), 1},
                       {"p inside: no tangent, but the result is 1\nand touch lies on the line c p",
                        Point2D(1.2, 0.4), 0}};
    for (auto const &one : cases) {
        Panel &panel = canvas.panel(one.caption, {{-2.8, -2.8}, {5.4, 3.4}});
        Point2D from;
        Point2D touch;
        tangente_punkt_kreis(one.p, c, r, one.side, from, touch, kEps);
        panel.circle(c, r, Role::Given);
        panel.line(c, one.p, Role::Helper);
        panel.line(c, touch, Role::Helper);
        panel.point(c, Role::Given, "c", Side::SW);
        panel.point(one.p, Role::Given, "p", Side::SE);
        panel.solution([&] {
            panel.line(from, touch, Role::Result);
            panel.point(touch, Role::Result, "touch", Side::N);
        });
    }
    canvas.legend(Role::Given, "given");
    canvas.legend(Role::Result, "from p to touch");
    canvas.legend(Role::Helper, "centre line and radius");
}

void drawCircleTangent(SvgCanvas &canvas, double r1, double r2, int side, int cross, int magnitudes)
{
    Point2D const c1(0, 0);
    Point2D const c2(6, 0);
    char const *const sizes = r1 > r2 ? "r1 > r2" : "r1 < r2";
    Panel &panel = canvas.panel(selector("cross", cross) + ", " + selector("side", side) + "\n" +
                                    sizes + ", " + selector("magnitudes", magnitudes),
                                {{-2.6, -2.7}, {8.6, 2.7}});
    Point2D t1;
    Point2D t2;
    tangente_kreis_kreis(c1, r1, c2, r2, side, cross, t1, t2, magnitudes, kEps);
    panel.line(c1, c2, Role::Helper);
    panel.circle(c1, r1, Role::Given);
    panel.circle(c2, r2, Role::Given);
    panel.point(c1, Role::Given, "c1", Side::W);
    panel.point(c2, Role::Given, "c2", Side::E);
    panel.solution([&] {
        panel.line(t1, t2, Role::Result);
        panel.point(t1, Role::Result, "t1", t1.y() > 0 ? Side::N : Side::S);
        panel.point(t2, Role::Result, "t2", t2.y() > 0 ? Side::N : Side::S);
    });
}

void drawCircleTangents(SvgCanvas &canvas)
{
    canvas.layout(4, 256, 132);
    for (int const cross : {0, 1}) {
        for (int const side : {0, 1}) {
            drawCircleTangent(canvas, 2, 1, side, cross, 0);
        }
    }
    for (int const magnitudes : {0, 1}) {
        for (int const side : {0, 1}) {
            drawCircleTangent(canvas, 1, 2, side, 0, magnitudes);
        }
    }
    canvas.legend(Role::Given, "given");
    canvas.legend(Role::Result, "the tangent from t1 to t2");
}

void drawApollonius(SvgCanvas &canvas)
{
    canvas.layout(4, 240, 240);
    Point2D const c[3] = {Point2D(-3, -1.5), Point2D(3.2, -1), Point2D(0.3, 3.6)};
    double const r[3] = {1.4, 1, 0.7};
    for (int signs = 0; signs < 8; ++signs) {
        bool const s[3] = {(signs & 4) != 0, (signs & 2) != 0, (signs & 1) != 0};
        Point2D centre;
        double radius = 0;
        int const found =
            apolloniusCCC(c[0], r[0], s[0], c[1], r[1], s[1], c[2], r[2], s[2], centre, radius);
        std::string caption;
        for (int i = 0; i < 3; ++i) {
            caption += (i > 0 ? ", s" : "s") + std::to_string(i + 1) + (s[i] ? " true" : " false");
        }
        Panel &panel = canvas.panel(caption, {{-6.5, -6}, {6.5, 7}});
        for (int i = 0; i < 3; ++i) {
            panel.disc(c[i], r[i], s[i] ? Role::Accent : Role::Given);
            panel.circle(c[i], r[i], s[i] ? Role::Accent : Role::Given);
            panel.label(c[i], "c" + std::to_string(i + 1), Side::Centre,
                        s[i] ? Role::Accent : Role::Given);
        }
        if (found != 0) {
            panel.solution([&] {
                panel.circle(centre, std::fabs(radius), Role::Result);
                panel.point(centre, Role::Result, "centre");
            });
        }
    }
    canvas.legend(Role::Given, "false: touched from outside");
    canvas.legend(Role::Accent, "true: contained");
    canvas.legend(Role::Result, "the answer");
}

void drawLineLineFillets(SvgCanvas &canvas)
{
    canvas.layout(4, 240, 240);
    Point2D const p0(-4, -1);
    Point2D const p1(4, 1);
    Point2D const p2(-1.5, -4);
    Point2D const p3(1.5, 4);
    double const r = 1.6;
    for (int const side1 : {0, 1}) {
        for (int const side2 : {0, 1}) {
            Panel &panel = canvas.panel(selector("side1", side1) + ", " + selector("side2", side2),
                                        {{-5, -5}, {5, 5}});
            panel.arrow(p0, p1, Role::Given);
            panel.arrow(p2, p3, Role::Given);
            panel.label(p0, "p0", Side::NE);
            panel.label(p1, "p1", Side::SE);
            panel.label(p2, "p2", Side::NW);
            panel.label(p3, "p3", Side::NE);
            Point2D m;
            Point2D t1;
            Point2D t2;
            fillet_line_line(p0, p1, p2, p3, r, side1, side2, m, t1, t2, kEps);
            drawFillet(panel, m, t1, t2, r);
        }
    }
    legendOfFillets(canvas);
}

void drawCircleCircleFillets(SvgCanvas &canvas)
{
    canvas.layout(4, 240, 240);
    Point2D const c1(-2.2, 0);
    Point2D const c2(2.2, 0);
    double const r1 = 1.6;
    double const r2 = 1.1;
    for (int const inner : {0, 1}) {
        double const r = inner != 0 ? 4.4 : 2;
        for (int const side : {0, 1}) {
            Panel &panel = canvas.panel(selector("inner", inner) + ", " + selector("side", side),
                                        {{-6.2, -6.2}, {6.2, 6.2}});
            panel.circle(c1, r1, Role::Given);
            panel.circle(c2, r2, Role::Given);
            panel.point(c1, Role::Given, "c1", Side::E);
            panel.point(c2, Role::Given, "c2", Side::W);
            Point2D m;
            Point2D t1;
            Point2D t2;
            fillet_kreis_kreis(c1, r1, c2, r2, r, side, inner, m, t1, t2, kEps);
            drawFillet(panel, m, t1, t2, r);
        }
    }
    legendOfFillets(canvas);
}

void drawLineCircleFillets(SvgCanvas &canvas)
{
    canvas.layout(4, 240, 220);
    Point2D const p0(-5, 0);
    Point2D const p1(5, 0);
    Point2D const c(0, 1);
    double const rc = 3;
    double const r = 0.8;
    for (int const inner : {0, 1}) {
        for (int const far : {0, 1}) {
            for (int const side : {0, 1}) {
                Panel &panel = canvas.panel(selector("inner", inner) + ", " + selector("far", far) +
                                                ", " + selector("side", side),
                                            {{-5.4, -3.6}, {5.4, 5}});
                panel.arrow(p0, p1, Role::Given);
                panel.circle(c, rc, Role::Given);
                panel.label(p0, "p0", Side::NE);
                panel.label(p1, "p1", Side::NW);
                panel.point(c, Role::Given, "c", Side::N);
                Point2D m;
                Point2D t1;
                Point2D t2;
                fillet_line_circle(p0, p1, c, rc, r, side, far, m, t1, t2, inner, kEps);
                drawFillet(panel, m, t1, t2, r);
            }
        }
    }
    legendOfFillets(canvas);
}

void drawAdjustedArcs(SvgCanvas &canvas)
{
    canvas.layout(4, 240, 220);
    Point2D const m(0, 0);
    Point2D const ends[2] = {Point2D(2, 0.5), Point2D(-1, std::sqrt(3.25))};
    for (int const mode : {1, 0}) {
        for (int const first : {0, 1}) {
            Point2D a = ends[first];
            Point2D b = ends[1 - first];
            Point2D const given = a;
            Point2D centre = m;
            adjust_arc_m2pnt(centre, a, b, 0.0, mode, kEps);
            bool const swapped = !(a == given);
            Panel &panel = canvas.panel(
                selector("mode", mode) + (mode != 0 ? ": the shorter arc" : ": the longer arc") +
                    "\n" + (swapped ? "ends swapped" : "ends left as they are"),
                {{-3.2, -2.8}, {3.2, 2.8}});
            panel.line(m, a, Role::Helper);
            panel.line(m, b, Role::Helper);
            panel.point(m, Role::Given, "m", Side::S);
            panel.solution([&] {
                panel.arc(m, a, b, Role::Result);
                panel.point(a, Role::Result, swapped ? "a (was b)" : "a", Side::E);
                panel.point(b, Role::Result, swapped ? "b (was a)" : "b", Side::N);
            });
        }
    }
    canvas.legend(Role::Result, "the arc, counter-clockwise from a to b");
}

Point2D atAngle(Point2D const &m, double r, double degrees)
{
    Point2D const u = VecWin(degrees);
    return Point2D(m.x() + r * u.x(), m.y() + r * u.y());
}

void drawBoxes(SvgCanvas &canvas)
{
    canvas.layout(4, 240, 220);
    Point2D const m(0, 0);
    double const r = 2;
    struct
    {
        char const *caption;
        double from, to;
    } const cases[] = {{"from 30 to 200 degrees", 30, 200},
                       {"from 300 to 40 degrees:\nacross the positive x axis", 300, 40},
                       {"from 60 to 20 degrees:\nacross all four", 60, 20},
                       {"equal ends at 135 degrees:\nruns up to 360 only", 135, 135}};
    for (auto const &one : cases) {
        Point2D const a = atAngle(m, r, one.from);
        Point2D const b = atAngle(m, r, one.to);
        Panel &panel = canvas.panel(one.caption, {{-3.2, -2.8}, {3.2, 2.8}});
        Point2D lo;
        Point2D hi;
        mat_bounding_box_of_arc_m2pnt(m, a, b, r, lo, hi, kEps);
        panel.solution([&] {
            panel.area({lo, {hi.x(), lo.y()}, hi, {lo.x(), hi.y()}}, Role::Result, 0.08);
            panel.polygon({lo, {hi.x(), lo.y()}, hi, {lo.x(), hi.y()}}, Role::Result);
            panel.label(lo, "lo", Side::SW, Role::Result);
            panel.label(hi, "hi", Side::NE, Role::Result);
        });
        if (one.from == one.to) {
            panel.arc(m, a, atAngle(m, r, 360), Role::Given);
            panel.point(a, Role::Given, "a = b", Side::SE);
        } else {
            panel.arc(m, a, b, Role::Given);
            panel.point(a, Role::Given, "a", Side::SW);
            panel.point(b, Role::Given, "b", Side::SW);
        }
        panel.point(m, Role::Given, "m", Side::S);
    }
    canvas.legend(Role::Given, "the arc, counter-clockwise from a to b");
    canvas.legend(Role::Result, "its box");
}

void drawArcsBetweenLines(SvgCanvas &canvas)
{
    struct
    {
        char const *caption;
        Point2D p2, p3;
    } const cases[] = {
        {"m as far from p2 as from p1:\ntangent at both ends", Point2D(2, 2), Point2D(2, 4)},
        {"m further from p2: radius is\nthe distance to p1", Point2D(3, 2), Point2D(3, 4)}};
    canvas.layout(2, 320, 280);
    for (auto const &one : cases) {
        Point2D const p0(-3, 0);
        Point2D const p1(0, 0);
        Panel &panel = canvas.panel(one.caption, {{-3.8, -1}, {4.4, 5}});
        Point2D m;
        double radius = 0;
        arc_line1end_to_line2anf(p0, p1, one.p2, one.p3, m, radius, kEps);
        panel.line(m, p1, Role::Helper);
        panel.line(m, one.p2, Role::Helper);
        panel.arrow(p0, p1, Role::Given);
        panel.arrow(one.p2, one.p3, Role::Given);
        panel.label(p0, "p0", Side::N);
        panel.label(p1, "p1", Side::S);
        panel.label(one.p2, "p2", Side::E);
        panel.label(one.p3, "p3", Side::E);
        panel.solution([&] {
            panel.arc(m, p1, Point2D(m.x() + radius, m.y()), Role::Result);
            panel.point(m, Role::Result, "m", Side::NW);
        });
    }
    canvas.legend(Role::Given, "the two lines");
    canvas.legend(Role::Result, "the arc about m, from p1");
}

} // namespace

std::vector<Figure> constructionFigures()
{
    return {
        {"tangente_punkt_kreis.svg", "tangente_punkt_kreis: from a point to a circle", 3,
         drawPointTangents},
        {"tangente_kreis_kreis.svg", "tangente_kreis_kreis: common tangents of two circles", 8,
         drawCircleTangents},
        {"apolloniusCCC.svg", "apolloniusCCC: a circle that touches three", 8, drawApollonius},
        {"fillet_line_line.svg", "fillet_line_line: the four sides", 4, drawLineLineFillets},
        {"fillet_kreis_kreis.svg", "fillet_kreis_kreis: outside or around both circles", 4,
         drawCircleCircleFillets},
        {"fillet_line_circle.svg", "fillet_line_circle: all selectors", 8, drawLineCircleFillets},
        {"adjust_arc_m2pnt.svg", "adjust_arc_m2pnt: the order of the ends decides the sweep", 4,
         drawAdjustedArcs},
        {"mat_bounding_box_of_arc_m2pnt.svg", "mat_bounding_box_of_arc_m2pnt", 4, drawBoxes},
        {"arc_line1end_to_line2anf.svg", "arc_line1end_to_line2anf", 2, drawArcsBetweenLines},
    };
}

} // namespace gallery
