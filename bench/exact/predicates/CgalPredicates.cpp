#if defined(ORVEL_HAVE_CGAL)

#include "PredicateBench.h"

#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>

namespace {

using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;
using Point2 = Kernel::Point_2;
using Point3 = Kernel::Point_3;

void orientation2dCgal(benchmark::State &state)
{
    measureSigns<Point2, 2, 3>(state,
                               [](Point2 const *p) { return CGAL::orientation(p[0], p[1], p[2]); });
}

void orientation3dCgal(benchmark::State &state)
{
    measureSigns<Point3, 3, 4>(
        state, [](Point3 const *p) { return CGAL::orientation(p[0], p[1], p[2], p[3]); });
}

void inCircleCgal(benchmark::State &state)
{
    measureSigns<Point2, 2, 4>(state, [](Point2 const *p) {
        return CGAL::side_of_oriented_circle(p[0], p[1], p[2], p[3]);
    });
}

void inSphereCgal(benchmark::State &state)
{
    measureSigns<Point3, 3, 5>(state, [](Point3 const *p) {
        return CGAL::side_of_oriented_sphere(p[0], p[1], p[2], p[3], p[4]);
    });
}

bool registerAll()
{
    forNumbers("orientation2d", "cgal", orientation2dCgal);
    forNumbers("orientation3d", "cgal", orientation3dCgal);
    forNumbers("inCircle", "cgal", inCircleCgal);
    forNumbers("inSphere", "cgal", inSphereCgal);
    return true;
}

bool const registered = registerAll();

} // namespace

#endif
