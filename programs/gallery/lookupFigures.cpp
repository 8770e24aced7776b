#include "figures.h"

#include <OrvelCore/runtime/PRefPtr.h>
#include <OrvelMath/base/Point2D.h>
#include <OrvelMath/lookup/Point2DLookupC.h>

#include <QVariant>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace gallery {

namespace {

Bounds const square = {{0.0, 0.0}, {10.0, 10.0}};

/// Points in the order of their insertion.
std::vector<Point2D> const &points()
{
    static std::vector<Point2D> const list = {
        {5.2, 5.6}, {2.6, 3.4}, {7.4, 4.3}, {3.6, 7.8}, {8.6, 7.5}, {6.3, 1.6},
        {1.2, 6.4}, {4.2, 1.9}, {6.6, 8.8}, {9.2, 2.4}, {1.4, 1.3}, {7.1, 6.3},
        {2.3, 8.9}, {4.4, 4.6}, {8.2, 9.3}, {9.4, 5.4}, {6.2, 3.2}, {3.2, 5.7},
    };
    return list;
}

/// The tree that the lookup makes of the points, with the cell that each of them splits.
struct Cell
{
    int left = -1;
    int right = -1;
    int level = 0;
    Bounds bounds = square;
};

std::vector<Cell> cellsOf(std::vector<Point2D> const &p)
{
    std::vector<Cell> cells(p.size());
    for (std::size_t i = 1; i < p.size(); ++i) {
        std::size_t at = 0;
        for (;;) {
            Cell &node = cells[at];
            int const d = node.level % 2;
            bool const isLeft = p[at][d] > p[i][d];
            Cell below;
            below.level = node.level + 1;
            below.bounds = node.bounds;
            Vec2 &corner = isLeft ? below.bounds.hi : below.bounds.lo;
            (d == 0 ? corner.x : corner.y) = p[at][d];
            int &child = isLeft ? node.left : node.right;
            if (child < 0) {
                child = static_cast<int>(i);
                cells[i] = below;
                break;
            }
            at = static_cast<std::size_t>(child);
        }
    }
    return cells;
}

/// The nodes in the order in which the search for the point nearest to `query` examines them.
void search(std::vector<Point2D> const &p, std::vector<Cell> const &cells, int at,
            Point2D const &query, double &nearest, std::vector<int> &examined)
{
    if (at < 0) {
        return;
    }
    std::size_t const i = static_cast<std::size_t>(at);
    Cell const &node = cells[i];
    examined.push_back(at);
    nearest = std::min(nearest, (query - p[i]).Length());
    int const d = node.level % 2;
    bool const leftFirst = p[i][d] > query[d];
    search(p, cells, leftFirst ? node.left : node.right, query, nearest, examined);
    if (nearest >= std::fabs(query[d] - p[i][d])) {
        search(p, cells, leftFirst ? node.right : node.left, query, nearest, examined);
    }
}

void drawSplits(Panel &panel, std::vector<Cell> const &cells, Role even, Role odd)
{
    for (std::size_t i = 0; i < cells.size(); ++i) {
        Bounds const &b = cells[i].bounds;
        Point2D const &p = points()[i];
        if (cells[i].level % 2 == 0) {
            panel.line({p.x(), b.lo.y}, {p.x(), b.hi.y}, even);
        } else {
            panel.line({b.lo.x, p.y()}, {b.hi.x, p.y()}, odd);
        }
    }
}

void drawCells(Panel &panel)
{
    drawSplits(panel, cellsOf(points()), Role::Accent, Role::Second);
    for (std::size_t i = 0; i < points().size(); ++i) {
        panel.point(points()[i], Role::Given, std::to_string(i + 1));
    }
}

void drawSearch(Panel &panel)
{
    PRefPtr<Point2DLookupC> const lookup(new Point2DLookupC);
    for (std::size_t i = 0; i < points().size(); ++i) {
        lookup->insert(points()[i], static_cast<int>(i));
    }
    Point2D const query(5.6, 4.1);
    double const noLimit = std::numeric_limits<double>::infinity();
    auto const hit = lookup->findNearest(query, noLimit);

    std::vector<Cell> const cells = cellsOf(points());
    drawSplits(panel, cells, Role::Muted, Role::Muted);
    std::vector<int> examined;
    double nearest = noLimit;
    search(points(), cells, 0, query, nearest, examined);
    for (Point2D const &p : points()) {
        panel.smallPoint(p, Role::Given);
    }
    int step = 0;
    for (int const at : examined) {
        panel.point(points()[static_cast<std::size_t>(at)], Role::Accent, std::to_string(++step));
    }
    panel.disc(query, hit->getDistance(), Role::Result);
    panel.circle(query, hit->getDistance(), Role::Helper);
    panel.line(query, hit->getPoint(), Role::Helper);
    panel.point(query, Role::Given, "query", Side::NW);
    panel.solutionPoint(hit->getPoint());
}

void drawLookup(SvgCanvas &canvas)
{
    canvas.layout(2, 380.0, 380.0);
    drawCells(
        canvas.panel("Points in the order of insertion,\nand the cell that each splits", square));
    drawSearch(
        canvas.panel("The nodes that a search for\nthe nearest examines, in their order", square));
    canvas.legend(Role::Accent, "split by x; node examined by the search");
    canvas.legend(Role::Second, "split by y");
    canvas.legend(Role::Result, "nearest point, disc that no other point lies in");
}

} // namespace

std::vector<Figure> lookupFigures()
{
    return {{"lookup_tree.svg", "A small lookup of the plane and one search", 1, drawLookup}};
}

} // namespace gallery
