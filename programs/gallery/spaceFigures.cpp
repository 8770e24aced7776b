#include "figures.h"

#include <OrvelMath/base/Quaternion4D.h>
#include <OrvelMath/base/TMatrix.h>
#include <OrvelMath/geom3d/CutPlane.h>
#include <OrvelMath/geom3d/MatUtil.h>
#include <OrvelMath/geom3d/intersect3d.h>
#include <OrvelMath/proxymath/proxymath.h>

#include <algorithm>
#include <cmath>

namespace gallery {

namespace {

using Vector3 = vectorC3d<double>;

double const kDegree = 3.141592653589793 / 180.0;

/// A view against a coordinate axis: right-handed turns about it run counter-clockwise.
struct AxisView
{
    int axis;

    Vec2 operator()(Point3D const &p) const { return {p[(axis + 1) % 3], p[(axis + 2) % 3]}; }
};

Point3D turnedByScript(double const (&angles)[3], Point3D const &p)
{
    mzComPtrT<prxMatrix3x3C> const matrix(new prxMatrix3x3C);
    matrix->rotAngle(angles[0], angles[1], angles[2]);
    matrixC3x3<double> const m = matrix->getValue();
    Point3D image;
    for (int row = 0; row < 3; ++row) {
        for (int axis = 0; axis < 3; ++axis) {
            image[row] += m(row, axis) * p[axis];
        }
    }
    return image;
}

/// One of the images of a vector, and who made it.
struct Turned
{
    Vec2 tip;
    Role role;
    char const *name;
};

/// Arrows of one length; those that agree to the eye share a label with all names.
void drawTurned(Panel &panel, std::vector<Turned> const &images)
{
    for (std::size_t i = 0; i < images.size(); ++i) {
        std::string names;
        bool isFirst = true;
        for (std::size_t j = 0; j < images.size(); ++j) {
            Vec2 const apart = images[j].tip - images[i].tip;
            if (std::fabs(apart.x) + std::fabs(apart.y) < 1e-6) {
                isFirst = isFirst && j >= i;
                names += (names.empty() ? "" : ", ") + std::string(images[j].name);
            }
        }
        panel.arrow({0.0, 0.0}, images[i].tip, images[i].role);
        if (isFirst) {
            panel.label(images[i].tip, names, images[i].tip.y > 0.0 ? Side::N : Side::S);
        }
    }
}

void drawRotations(SvgCanvas &canvas)
{
    char const *const names[] = {"x", "y", "z"};
    for (int axis = 0; axis < 3; ++axis) {
        Panel &panel = canvas.panel(std::string("30 degrees about ") + names[axis] +
                                        ",\nseen against the axis",
                                    {{-0.35, -0.85}, {1.45, 0.85}});
        AxisView const view{axis};
        double angles[3] = {0.0, 0.0, 0.0};
        angles[axis] = 30.0;
        Point3D unit;
        unit[(axis + 1) % 3] = 1.0;
        Point3D about;
        about[axis] = 1.0;

        Matrix4X4C euler;
        euler.Rotate(angles[0], angles[1], angles[2]);
        Matrix4X4C const fromQuaternion = Quaternion4D(about, 30.0 * kDegree).GetMatrix();
        panel.infiniteLine({0.0, 0.0}, {0.0, 1.0}, Role::Muted);
        panel.arrow({0.0, 0.0}, view(unit), Role::Given);
        panel.label(view(unit), names[(axis + 1) % 3], Side::E);
        panel.solution([&] {
            drawTurned(panel, {{view(turnedByScript(angles, unit)), Role::Accent, "S"},
                               {view(euler.MultMatrixVector(unit)), Role::Result, "M"},
                               {view(fromQuaternion.MultMatrixVector(unit)), Role::Second, "Q"}});
        });
    }
    canvas.legend(Role::Given, "before");
    canvas.legend(Role::Accent, "S script: right-handed");
    canvas.legend(Role::Result, "M Math3DRotateMatrix: x and z the other way");
    canvas.legend(Role::Second, "Q Quaternion4D: all the other way");
}

/// The z and w of a quaternion about the z axis.
Vec2 turnOf(Quaternion4D const &q)
{
    double x = 0.0;
    double y = 0.0;
    Vec2 result;
    q.GetComponents(x, y, result.y, result.x);
    return result;
}

void drawInterpolations(SvgCanvas &canvas)
{
    canvas.layout(2, 360, 300);
    Quaternion4D const from(Point3D(0.0, 0.0, 1.0), 0.0);
    Quaternion4D const near(Point3D(0.0, 0.0, 1.0), 150.0 * kDegree);
    Quaternion4D const far(Point3D(0.0, 0.0, 1.0), 250.0 * kDegree);
    struct
    {
        char const *caption;
        Quaternion4D to;
    } const cases[] = {{"150 degrees about z: w to the right, z up", near},
                       {"250 degrees: Slerp goes the short way to -q", far}};
    for (auto const &one : cases) {
        Panel &panel = canvas.panel(one.caption, {{-1.3, -1.2}, {1.5, 1.3}});
        panel.circle({0.0, 0.0}, 1.0, Role::Muted);
        panel.point(turnOf(from), Role::Given, "p", Side::E);
        panel.point(turnOf(one.to), Role::Given, "q", Side::NW);
        panel.line(turnOf(from), turnOf(one.to), Role::Helper);
        panel.solution([&] {
            for (double const t : {0.2, 0.4, 0.6, 0.8}) {
                panel.smallPoint(turnOf(from.Lerp(one.to, t)), Role::Accent);
                panel.smallPoint(turnOf(from.Slerp(one.to, t)), Role::Result);
            }
            panel.point(turnOf(from.Slerp(one.to, 1.0)), Role::Result, "t = 1", Side::SE);
        });
    }
    canvas.legend(Role::Given, "the two rotations");
    canvas.legend(Role::Result, "Slerp, in steps of 0.2");
    canvas.legend(Role::Accent, "Lerp");
}

void drawMirrors(SvgCanvas &canvas)
{
    char const *const captions[] = {"TMatrix(0): 30 becomes 330", "TMatrix(1): 30 becomes 150",
                                    "TMatrix(2): 30 becomes 60"};
    Vec2 const mirrors[] = {{1.0, 0.0}, {0.0, 1.0}, {1.0, 1.0}};
    Point2D const p(1.0, 0.4);
    double const angle = 30.0;
    for (int kind = 0; kind < 3; ++kind) {
        TMatrix const mirror(kind);
        Panel &panel = canvas.panel(captions[kind], {{-3.2, -2.6}, {3.2, 2.8}});
        panel.infiniteLine({0.0, 0.0}, mirrors[kind], Role::Helper);
        panel.arrow(p, p + VecWin(angle).Scale(1.8), Role::Given);
        panel.point(p, Role::Given, "p", Side::SE);
        Point2D const image = mirror * p;
        panel.solution([&] {
            panel.arrow(image, image + VecWin(mirror * angle).Scale(1.8), Role::Result);
            panel.point(image, Role::Result, "T * p", kind == 1 ? Side::SW : Side::NW);
        });
    }
    canvas.legend(Role::Given, "a point and a direction of 30 degrees");
    canvas.legend(Role::Result, "their images: T * point and T * angle");
    canvas.legend(Role::Helper, "the mirror");
}

void drawClosestPoints(SvgCanvas &canvas)
{
    canvas.layout(1, 460, 320);
    Panel &panel = canvas.panel("IntersectLineLine: neither point is at a given end",
                                {{-4.2, -2.2}, {4.2, 3.6}});
    Axonometric const view(-60.0, 22.0);
    Point3D const p[4] = {Point3D(-3.0, -1.0, 0.0), Point3D(-1.0, -0.4, 0.0),
                          Point3D(1.5, -2.5, 1.6), Point3D(0.9, -0.7, 1.9)};
    Point3D pa;
    Point3D pb;
    IntersectLineLine(p[0], p[1], p[2], p[3], pa, pb);
    panel.infiniteLine(view(p[0]), view(p[1]), Role::Helper);
    panel.infiniteLine(view(p[2]), view(p[3]), Role::Helper);
    panel.line(view(p[0]), view(p[1]), Role::Given);
    panel.line(view(p[2]), view(p[3]), Role::Given);
    char const *const names[] = {"p1", "p2", "p3", "p4"};
    for (int i = 0; i < 4; ++i) {
        panel.point(view(p[i]), Role::Given, names[i], i < 2 ? Side::SE : Side::NE);
    }
    panel.solution([&] {
        panel.line(view(pa), view(pb), Role::Result);
        panel.point(view(pa), Role::Result, "pa", Side::SE);
        panel.point(view(pb), Role::Result, "pb", Side::N);
    });
    canvas.legend(Role::Given, "two points of each line");
    canvas.legend(Role::Result, "the closest points");
}

void drawCylinderCases(SvgCanvas &canvas)
{
    canvas.layout(2, 360, 240);
    Point3D const a0(0.0, 0.0, 0.0);
    Point3D const a1(6.0, 0.0, 0.0);
    double const radius = 1.5;
    struct
    {
        char const *caption;
        Point3D p0;
        Point3D p1;
    } const cases[] = {
        {"2: both crossings between the ends", Point3D(1.5, 0.0, -2.2), Point3D(4.0, 0.0, 2.2)},
        {"1: the inner one is o1", Point3D(4.0, 0.0, -2.2), Point3D(7.6, 0.0, 2.2)},
        {"0: both beyond a1, but written", Point3D(6.6, 0.0, -2.2), Point3D(7.4, 0.0, 2.2)},
        {"0: a tangent line misses, nothing written", Point3D(1.0, 0.0, 1.5),
         Point3D(5.0, 0.0, 1.5)},
    };
    for (auto const &one : cases) {
        Panel &panel = canvas.panel(one.caption, {{-1.2, -2.9}, {8.6, 2.9}});
        panel.area({{0.0, -radius}, {6.0, -radius}, {6.0, radius}, {0.0, radius}}, Role::Given);
        panel.line({0.0, radius}, {6.0, radius}, Role::Given);
        panel.line({0.0, -radius}, {6.0, -radius}, Role::Given);
        panel.line({0.0, 0.0}, {6.0, 0.0}, Role::Helper);
        panel.point({0.0, 0.0}, Role::Given, "a0", Side::W);
        panel.point({6.0, 0.0}, Role::Given, "a1", Side::W);
        Vec2 const p0{one.p0.x(), one.p0.z()};
        panel.infiniteLine(p0, {one.p1.x(), one.p1.z()}, Role::Given);

        double t1 = 0.0;
        double t2 = 0.0;
        Point3D o1 = one.p0;
        Point3D o2 = one.p0;
        int const count = IntersectLineCylinder(one.p0, one.p1, a0, a1, radius, t1, o1, t2, o2);
        panel.solution([&] {
            if (o1 == o2 && count == 0) {
                return;
            }
            Role const role = count == 0 ? Role::Accent : Role::Result;
            panel.point({o1.x(), o1.z()}, role, "o1", Side::E);
            if (count != 1) {
                panel.point({o2.x(), o2.z()}, role, "o2", Side::E);
            }
        });
    }
    canvas.legend(Role::Given, "the line and the mantle, which has no caps");
    canvas.legend(Role::Result, "counted");
    canvas.legend(Role::Accent, "written, but not counted");
}

void drawSpaceAxes(Panel &panel, Axonometric const &view)
{
    panel.arrow(view(0.0, 0.0, 0.0), view(2.6, 0.0, 0.0), Role::Helper);
    panel.arrow(view(0.0, 0.0, 0.0), view(0.0, 2.6, 0.0), Role::Helper);
    panel.arrow(view(0.0, 0.0, 0.0), view(0.0, 0.0, 2.6), Role::Helper);
    panel.label(view(2.6, 0.0, 0.0), "x", Side::W);
    panel.label(view(0.0, 2.6, 0.0), "y", Side::E);
    panel.label(view(0.0, 0.0, 2.6), "z", Side::N);
}

void drawCutPlane(Panel &panel, Axonometric const &view, CutPlane const &plane)
{
    Point3D const position = plane.getPosition();
    Point3D const normal = plane.getNormal();
    Point3D u;
    Point3D v;
    getPlanarVectors(normal, u, v);
    std::vector<Vec2> corners;
    for (Point3D const &corner : {u, v, -u, -v}) {
        corners.push_back(view(position + 1.7 * corner));
    }
    drawSpaceAxes(panel, view);
    panel.solution([&] {
        panel.area(corners, Role::Result);
        panel.polygon(corners, Role::Result);
        panel.arrow(view(position), view(position + normal), Role::Accent);
        panel.point(view(position), Role::Result);
    });
}

void drawCutPlanes(SvgCanvas &canvas)
{
    canvas.layout(2, 320, 280);
    Axonometric const view(35.0, 25.0);
    Bounds const bounds{{-3.2, -2.6}, {3.2, 3.2}};
    drawCutPlane(canvas.panel("CutPlane(CutPlaneX, 1, 1.5)", bounds), view,
                 CutPlane(CutPlane::CutPlaneX, 1, 1.5));
    drawCutPlane(canvas.panel("CutPlane(CutPlaneY, -1, 1)", bounds), view,
                 CutPlane(CutPlane::CutPlaneY, -1, 1.0));
    drawCutPlane(canvas.panel("CutPlane(CutPlaneZ, 1, 1.2)", bounds), view,
                 CutPlane(CutPlane::CutPlaneZ, 1, 1.2));

    Matrix4X4C frame;
    frame.Rotate(-40.0, 0.0, 30.0);
    frame.Translate(0.4, 0.6, 0.8);
    CutPlane free(CutPlane::CutPlaneFree, 0, 0.0);
    free.setFrame(frame.GetConstMatrixRef());
    drawCutPlane(canvas.panel("CutPlaneFree: columns 1 and 3 of the frame", bounds), view, free);
    canvas.legend(Role::Result, "getPosition and the plane through it");
    canvas.legend(Role::Accent, "getNormal");
}

void drawBisectingPlanes(SvgCanvas &canvas)
{
    canvas.layout(2, 360, 300);
    double const tilt = 35.0 * kDegree;
    struct
    {
        char const *caption;
        Vector3 point2;
        Vector3 normal2;
    } const cases[] = {
        {"crossing: half way between the normals",
         Vector3(0.0, 1.0 + 1.8 * std::cos(tilt), 1.8 * std::sin(tilt)),
         Vector3(0.0, -std::sin(tilt), std::cos(tilt))},
        {"parallel: half way between the points,\nnormal2 as it came", Vector3(0.0, 1.4, 1.6),
         Vector3(0.0, 0.0, -1.3)},
    };
    AxisView const view{0}; // along x: y to the right, z up
    for (auto const &one : cases) {
        Panel &panel = canvas.panel(one.caption, {{-3.4, -2.4}, {3.4, 3.0}});
        Vector3 const point1(0.0, -1.6, 0.0);
        Vector3 const normal1(0.0, 0.0, 1.0);
        auto const drawPlane = [&](Vector3 const &point, Vector3 const &normal, Role role) {
            Vec2 const at = view(Point3D(point));
            Vec2 const across = view(Point3D(normal));
            panel.infiniteLine(at, at + Vec2(-across.y, across.x), role);
            panel.arrow(at, at + across, role);
        };
        drawPlane(point1, normal1, Role::Given);
        drawPlane(one.point2, one.normal2, Role::Given);
        panel.point(view(Point3D(point1)), Role::Given, "point1", Side::SW);
        panel.point(view(Point3D(one.point2)), Role::Given, "point2", Side::SE);
        Vector3 point;
        Vector3 normal;
        MatUtil::bisectingPlane(point1, normal1, one.point2, one.normal2, point, normal);
        panel.solution([&] {
            drawPlane(point, normal, Role::Result);
            panel.point(view(Point3D(point)), Role::Result, "point", Side::NW);
        });
    }
    canvas.legend(Role::Given, "the two planes, seen along x");
    canvas.legend(Role::Result, "bisectingPlane");
}

} // namespace

std::vector<Figure> spaceFigures()
{
    return {
        {"rotations.svg", "The same 30 degrees in three conventions", 3, drawRotations},
        {"quaternion_interpolation.svg", "Interpolating rotations", 2, drawInterpolations},
        {"TMatrix_mirrors.svg", "Mirrors of the plane", 3, drawMirrors},
        {"IntersectLineLine.svg", "Closest points of two lines", 1, drawClosestPoints},
        {"IntersectLineCylinder.svg", "A line and a cylinder", 4, drawCylinderCases},
        {"cut_planes.svg", "Cut planes", 4, drawCutPlanes},
        {"bisectingPlane.svg", "The plane that halves two planes", 2, drawBisectingPlanes},
    };
}

} // namespace gallery
