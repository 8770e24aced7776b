#include "PredicateBench.h"

#include <OrvelExact/predicates/inSphere.h>
#include <OrvelExact/predicates/orientation.h>

using namespace orvelExact;

namespace {

int signOf(double value)
{
    return value > 0.0 ? 1 : value < 0.0 ? -1 : 0;
}

void orientation2dNaive(benchmark::State &state)
{
    measureSigns<Point2, 2, 3>(state, [](Point2 const *p) {
        return signOf((p[0].x() - p[2].x()) * (p[1].y() - p[2].y()) -
                      (p[0].y() - p[2].y()) * (p[1].x() - p[2].x()));
    });
}

void orientation2dOrvel(benchmark::State &state)
{
    measureSigns<Point2, 2, 3>(state,
                               [](Point2 const *p) { return orientation2d(p[0], p[1], p[2]); });
}

void orientation3dNaive(benchmark::State &state)
{
    measureSigns<Point3, 3, 4>(state, [](Point3 const *p) {
        return signOf((p[1] - p[0]).cross(p[2] - p[0]).dot(p[3] - p[0]));
    });
}

void orientation3dOrvel(benchmark::State &state)
{
    measureSigns<Point3, 3, 4>(
        state, [](Point3 const *p) { return orientation3d(p[0], p[1], p[2], p[3]); });
}

double lifted(Point2 const &a, Point2 const &b, Point2 const &c)
{
    return a.dot(a) * (b.x() * c.y() - b.y() * c.x()) + b.dot(b) * (c.x() * a.y() - c.y() * a.x()) +
           c.dot(c) * (a.x() * b.y() - a.y() * b.x());
}

void inCircleNaive(benchmark::State &state)
{
    measureSigns<Point2, 2, 4>(state, [](Point2 const *p) {
        return signOf(lifted(p[0] - p[3], p[1] - p[3], p[2] - p[3]));
    });
}

void inCircleOrvel(benchmark::State &state)
{
    measureSigns<Point2, 2, 4>(state,
                               [](Point2 const *p) { return inCircle(p[0], p[1], p[2], p[3]); });
}

double lifted(Point3 const &a, Point3 const &b, Point3 const &c, Point3 const &d)
{
    double const ab = a.x() * b.y() - b.x() * a.y(), bc = b.x() * c.y() - c.x() * b.y();
    double const cd = c.x() * d.y() - d.x() * c.y(), da = d.x() * a.y() - a.x() * d.y();
    double const ac = a.x() * c.y() - c.x() * a.y(), bd = b.x() * d.y() - d.x() * b.y();
    return (c.dot(c) * (d.z() * ab + a.z() * bd + b.z() * da) -
            d.dot(d) * (a.z() * bc - b.z() * ac + c.z() * ab)) +
           (a.dot(a) * (b.z() * cd - c.z() * bd + d.z() * bc) -
            b.dot(b) * (c.z() * da + d.z() * ac + a.z() * cd));
}

void inSphereNaive(benchmark::State &state)
{
    measureSigns<Point3, 3, 5>(state, [](Point3 const *p) {
        return signOf(lifted(p[0] - p[4], p[1] - p[4], p[2] - p[4], p[3] - p[4]));
    });
}

void inSphereOrvel(benchmark::State &state)
{
    measureSigns<Point3, 3, 5>(
        state, [](Point3 const *p) { return inSphere(p[0], p[1], p[2], p[3], p[4]); });
}

bool registerAll()
{
    forNumbers("orientation2d", "naive", orientation2dNaive);
    forNumbers("orientation2d", "orvel", orientation2dOrvel);
    forNumbers("orientation3d", "naive", orientation3dNaive);
    forNumbers("orientation3d", "orvel", orientation3dOrvel);
    forNumbers("inCircle", "naive", inCircleNaive);
    forNumbers("inCircle", "orvel", inCircleOrvel);
    forNumbers("inSphere", "naive", inSphereNaive);
    forNumbers("inSphere", "orvel", inSphereOrvel);
    return true;
}

bool const registered = registerAll();

} // namespace
