#if defined(ORVEL_HAVE_CGAL)

#include "ExactHullBench.h"

#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Surface_mesh.h>
#include <CGAL/convex_hull_3.h>

namespace {

using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;

void withCgal(benchmark::State &state, std::string const &kind, int count)
{
    std::vector<Kernel::Point_3> points;
    for (orvelExact::Point3 const &p : spaceCloud(kind, count)) {
        points.emplace_back(p.x(), p.y(), p.z());
    }
    measureBuild(state, [&points] {
        CGAL::Surface_mesh<Kernel::Point_3> hull;
        CGAL::convex_hull_3(points.begin(), points.end(), hull);
        return hull;
    });
}

bool const registered = (forSpaceClouds("cgal", withCgal), true);

} // namespace

#endif
