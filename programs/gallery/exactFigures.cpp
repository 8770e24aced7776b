#include "figures.h"

#include <OrvelExact/conics/conicCrossings.h>
#include <OrvelExact/hull/ConvexHull.h>
#include <OrvelExact/hull/convexHull2d.h>
#include <OrvelMath/geom2d/mathPoly.h>
#include <OrvelMath/hull/ConvexHullBuilderC.h>

namespace gallery {

namespace {

using orvelExact::Point2;
using orvelExact::Point3;

QVector<Point3> cubeCorners()
{
    QVector<Point3> corners;
    for (int i = 0; i < 8; ++i) {
        corners.append({static_cast<double>(i & 1), static_cast<double>(i >> 1 & 1),
                        static_cast<double>(i >> 2 & 1)});
    }
    return corners;
}

/// The cube's edges, and the corners that are in a hull.
void drawCube(SvgCanvas &canvas, char const *caption, QVector<int> const &found)
{
    Panel &panel = canvas.panel(caption, {{-1.2, -0.9}, {1.2, 1.3}});
    Axonometric const view(30, 25);
    QVector<Point3> const corners = cubeCorners();
    for (int i = 0; i < 8; ++i) {
        for (int const bit : {1, 2, 4}) {
            if ((i & bit) == 0) {
                panel.line(view(corners[i]), view(corners[i | bit]), Role::Helper);
            }
        }
        if (found.contains(i)) {
            panel.solutionPoint(view(corners[i]));
        } else {
            panel.point(view(corners[i]), Role::Given, "not in the hull", Side::W);
        }
    }
}

/// A wide ellipse, and a smaller one that dips into its top.
mathPoly::Ellipse const wide(Point2D(0.0, 0.0), 0.0, 200.0, 100.0);
mathPoly::Ellipse const grazing(Point2D(0.0, 172.0), 0.0, 60.0, 80.0);

void drawEllipses(SvgCanvas &canvas, char const *caption, std::vector<Vec2> const &found)
{
    Panel &panel = canvas.panel(caption, {{-220.0, -110.0}, {220.0, 260.0}});
    panel.ellipse({wide.cx, wide.cy}, wide.a, wide.b, 0.0, Role::Given);
    panel.ellipse({grazing.cx, grazing.cy}, grazing.a, grazing.b, 0.0, Role::Accent);
    for (Vec2 const &p : found) {
        panel.solutionPoint(p);
    }
}

/// A triangle 2 long and 1e-9 high, drawn with stretched heights.
QVector<Point2> sliver()
{
    return {{0.0, 0.0}, {1.0, -1e-9}, {2.0, 0.0}};
}

void drawSliver(SvgCanvas &canvas, char const *caption, QVector<int> const &found)
{
    Panel &panel = canvas.panel(caption, {{-0.3, -1.6e-9}, {2.3, 0.6e-9}}, Scaling::Stretch);
    QVector<Point2> const corners = sliver();
    panel.polygon({corners[0], corners[1], corners[2]}, Role::Helper);
    for (int i = 0; i < 3; ++i) {
        if (found.contains(i)) {
            panel.solutionPoint(corners[i]);
        } else {
            panel.point(corners[i], Role::Given);
        }
    }
}

std::vector<Vec2> crossingsByPencil()
{
    mathPoly::Ellipse first = wide;
    mathPoly::Ellipse second = grazing;
    Point2D points[12];
    int count = 0;
    mathPoly::FindIntersections(first, second, count, points);
    return {points, points + count};
}

std::vector<Vec2> allCrossings()
{
    orvelExact::ConicCrossings const found = orvelExact::ellipseCrossings(
        {{wide.cx, wide.cy}, {wide.a, 0.0}, {0.0, wide.b}},
        {{grazing.cx, grazing.cy}, {grazing.a, 0.0}, {0.0, grazing.b}}, 0.0);
    std::vector<Vec2> points;
    points.reserve(std::size_t(found.count));
    for (int i = 0; i < found.count; ++i) {
        points.emplace_back(found.crossings[i].point);
    }
    return points;
}

void drawSisters(SvgCanvas &canvas)
{
    canvas.layout(3, 300, 230);
    QVector<Point3> const cube = cubeCorners();
    ConvexHullBuilderC builder(QList<Point3>(cube.begin(), cube.end()));
    builder.buildHull();
    QVector<int> const built = builder.hullVertexIndices().toVector();
    QVector<int> const flat = ConvexHullBuilderC::computeConvexHullIndices2D(sliver()).toVector();

    drawCube(canvas, "ConvexHullBuilderC: 7 corners of a cube", built);
    drawEllipses(canvas, "FindIntersections, semi-axes 60 to 200:\nnone", crossingsByPencil());
    drawSliver(canvas, "computeConvexHullIndices2D, a sliver\n1e-9 high: no corners", flat);
    drawCube(canvas, "ConvexHull: 8 corners", orvelExact::ConvexHull(cube).vertices());
    drawEllipses(canvas, "ellipseCrossings: both", allCrossings());
    drawSliver(canvas, "convexHull2d: all three", orvelExact::convexHull2d(sliver()).corners);
    canvas.legend(Role::Given, "given");
    canvas.legend(Role::Accent, "second ellipse");
    canvas.legend(Role::Result, "found: above by OrvelMath, below by OrvelExact");
}

} // namespace

std::vector<Figure> exactFigures()
{
    return {
        {"exact_sisters.svg", "Three inputs, and what either library answers", 20, drawSisters}};
}

} // namespace gallery
