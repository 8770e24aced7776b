#include "CgalHull.h"

#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Surface_mesh.h>
#include <CGAL/convex_hull_3.h>

#include <set>

namespace {

using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;

} // namespace

/// CGAL cuts flat faces into triangles and may keep points inside of them or of edges as corners of
/// these. A corner is extreme when at least three planes meet in it.
QVector<orvelExact::Point3> cgalHullCorners(QVector<orvelExact::Point3> const &points)
{
    std::vector<Kernel::Point_3> input;
    for (orvelExact::Point3 const &p : points) {
        input.emplace_back(p.x(), p.y(), p.z());
    }
    using Mesh = CGAL::Surface_mesh<Kernel::Point_3>;
    Mesh mesh;
    CGAL::convex_hull_3(input.begin(), input.end(), mesh);
    QVector<orvelExact::Point3> corners;
    for (auto const v : mesh.vertices()) {
        int planes = 0;
        for (auto const h : CGAL::halfedges_around_target(v, mesh)) {
            auto const back = mesh.opposite(h);
            bool const isFlat = CGAL::coplanar(
                mesh.point(mesh.source(h)), mesh.point(mesh.target(h)),
                mesh.point(mesh.target(mesh.next(h))), mesh.point(mesh.target(mesh.next(back))));
            planes += isFlat ? 0 : 1;
        }
        if (planes >= 3) {
            Kernel::Point_3 const &p = mesh.point(v);
            corners.append({p.x(), p.y(), p.z()});
        }
    }
    std::sort(corners.begin(), corners.end(), [](auto const &a, auto const &b) {
        return std::lexicographical_compare(a.data(), a.data() + 3, b.data(), b.data() + 3);
    });
    return corners;
}
