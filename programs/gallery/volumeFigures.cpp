#include "SvgCanvas.h"
#include "figures.h"

#include <OrvelMath/volume/BinTreeBuilder.h>

#include <cmath>
#include <vector>

namespace gallery {

namespace {

using Vector = vectorC3d<double>;
using Node = VolumeComparison::BinTreeNode<int>;
using VolumeComparison::BinTreeBuilder;

// Off the middle, so that no cell plane is a plane of symmetry.
Vector const centre(4.03, 3.96, 4.01);
constexpr double radius = 2.3;
constexpr double tube = 0.85;

Vector onTorus(double u, double v)
{
    double const r = radius + tube * std::cos(v);
    return centre + Vector(r * std::cos(u), r * std::sin(u), tube * std::sin(v));
}

void addTorus(BinTreeBuilder &builder)
{
    constexpr int steps = 48;
    auto const at = [](int i, int j) {
        constexpr double step = 2.0 * 3.141592653589793 / steps;
        return onTorus(step * (i % steps), step * (j % steps)); // neighbours share their corners
    };
    for (int i = 0; i < steps; ++i) {
        for (int j = 0; j < steps; ++j) {
            builder.addTriangle(at(i, j), at(i + 1, j), at(i + 1, j + 1));
            builder.addTriangle(at(i, j), at(i + 1, j + 1), at(i, j + 1));
        }
    }
}

void drawCell(Panel &panel, Node const &cell)
{
    Vec2 const lo(cell.bounds.first.x(), cell.bounds.first.y());
    Vec2 const hi(cell.bounds.second.x(), cell.bounds.second.y());
    std::vector<Vec2> const corners{lo, {hi.x, lo.y}, hi, {lo.x, hi.y}};
    if (!cell.outer()) {
        panel.area(corners, cell.boundary() ? Role::Result : Role::Accent, 0.45);
    }
    panel.polygon(corners, Role::Muted);
}

// The leaves that the plane z = height crosses.
void drawSlice(Panel &panel, BinTreeBuilder const &builder, double height)
{
    std::vector<Node const *> open{builder.root};
    while (!open.empty()) {
        Node const *const node = open.back();
        open.pop_back();
        if (!(node->bounds.first.z() <= height && height < node->bounds.second.z())) {
            continue;
        }
        if (node->isLeaf()) {
            drawCell(panel, *node);
        } else {
            open.push_back(node->children[0]);
            open.push_back(node->children[1]);
        }
    }
}

// Slices of the tree of a torus, coarse to fine.
void drawTorusTrees(SvgCanvas &canvas)
{
    canvas.layout(4, 220, 220);
    for (int cellsPerAxis : {8, 16, 32, 64}) {
        double const cell = 8.0 / cellsPerAxis;
        BinTreeBuilder builder({Vector(0, 0, 0), Vector(8, 8, 8)}, cell,
                               {Vector(0.5, 0.5, 2.5), Vector(7.5, 7.5, 5.5)});
        addTorus(builder);
        builder.findOuterArea();
        builder.condense();
        quint64 const bits = builder.exportBitVector().bitCount;
        Panel &panel = canvas.panel(std::to_string(cellsPerAxis) + " cells an axis\n" +
                                        std::to_string(bits) + " bits",
                                    {{-0.2, -0.2}, {8.2, 8.2}});
        panel.solution([&] { drawSlice(panel, builder, centre.z() + 0.1); });
        panel.circle(Vec2(centre), radius - tube, Role::Given);
        panel.circle(Vec2(centre), radius + tube, Role::Given);
    }
    canvas.legend(Role::Result, "surface cells");
    canvas.legend(Role::Accent, "enclosed cells");
    canvas.legend(Role::Given, "the torus in its middle plane");
}

} // namespace

std::vector<Figure> volumeFigures()
{
    return {{"volume_torus.svg", "The tree of a torus, resolution halved", 4, drawTorusTrees}};
}

} // namespace gallery
