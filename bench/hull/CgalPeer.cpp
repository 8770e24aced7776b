#if defined(ORVEL_HAVE_CGAL)

#include "HullBench.h"

#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Surface_mesh.h>
#include <CGAL/convex_hull_3.h>

namespace {

using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;

void inSpace(benchmark::State &state, std::vector<Point3> const &cloud)
{
    std::vector<Kernel::Point_3> points;
    for (Point3 const &p : cloud) {
        points.emplace_back(p[0], p[1], p[2]);
    }
    measureBuild(state, [&points] {
        CGAL::Surface_mesh<Kernel::Point_3> hull;
        CGAL::convex_hull_3(points.begin(), points.end(), hull);
        return hull;
    });
}

bool const registered = (forSpaceClouds("cgal", inSpace), true);

} // namespace

#endif
