// The test of a triangle against a cuboid: the calls that a tree makes while it takes in a mesh,
// recorded once and run again through our tests and through CGAL's inexact one.

#include "ClosedMeshes.h"

#include <OrvelMath/geom3d/TriangleCuboidIntersector.h>

#include <benchmark/benchmark.h>

#ifdef ORVEL_HAVE_CGAL
#include <CGAL/Bbox_3.h>
#include <CGAL/Intersections_3/Bbox_3_Triangle_3.h>
#include <CGAL/Simple_cartesian.h>
#endif

#include <cstdint>
#include <string>
#include <vector>

namespace {

using meshes::Mesh;
using meshes::Vector;

struct Call
{
    std::size_t triangle;
    Vector lo, hi;
    int splitAxis;
    MatUtil::TriangleCuboidIntersectionType parentType;
};

void record(std::vector<Call> &calls, MatUtil::TriangleCuboidIntersector const &intersector,
            Call const &call, int axis, int levels)
{
    calls.push_back(call);
    auto const type = intersector.intersect(call.lo, call.hi, call.splitAxis, call.parentType);
    if (type == MatUtil::TriangleCuboidDisjoint || levels == 0) {
        return;
    }
    for (int side = 0; side < 2; ++side) {
        Call child{call.triangle, call.lo, call.hi, axis, type};
        double const m = (call.lo[axis] + call.hi[axis]) * 0.5;
        (side == 0 ? child.hi : child.lo)[axis] = m;
        record(calls, intersector, child, (axis + 1) % 3, levels - 1);
    }
}

// The torus has 4 segments^2 triangles.
struct Size
{
    std::size_t segments;
    int depth;
};

// The calls for a torus in a tree of the depth given. Triangles from all
// over the torus are taken until the calls fill the cache: it is the tests that are measured, and
// not the way of the recorded calls from memory.
struct Descent
{
    explicit Descent(Size size)
        : mesh(meshes::torus(Vector(0.5, 0.5, 0.5), 0.3, 0.12, size.segments))
    {
        std::size_t const count = mesh.triangles.size();
        for (std::size_t i = 0; i < count && calls.size() < 16000; ++i) {
            std::size_t const t = i * 389 % count; // prime, and no divisor of the count
            MatUtil::TriangleCuboidIntersector const intersector(
                mesh.corner(t, 0), mesh.corner(t, 1), mesh.corner(t, 2));
            record(calls, intersector,
                   Call{t, Vector(0, 0, 0), Vector(1, 1, 1), 3, MatUtil::TriangleCuboidDisjoint}, 0,
                   size.depth);
        }
    }

    Mesh mesh;
    std::vector<Call> calls;
};

void finish(benchmark::State &state, Descent const &descent)
{
    state.SetItemsProcessed(std::int64_t(descent.calls.size()) * state.iterations());
    state.counters["calls"] = double(descent.calls.size());
}

// As the tree asks: the triangle prepared once, the axes reduced.
void intersectorInDescent(benchmark::State &state, Size size)
{
    Descent const descent(size);
    for (auto _ : state) {
        int sum = 0;
        std::size_t current = descent.mesh.triangles.size();
        MatUtil::TriangleCuboidIntersector intersector{Vector(), Vector(), Vector()};
        for (Call const &c : descent.calls) {
            if (c.triangle != current) {
                current = c.triangle;
                intersector = MatUtil::TriangleCuboidIntersector(descent.mesh.corner(current, 0),
                                                                 descent.mesh.corner(current, 1),
                                                                 descent.mesh.corner(current, 2));
            }
            sum += intersector.intersect(c.lo, c.hi, c.splitAxis, c.parentType);
        }
        benchmark::DoNotOptimize(sum);
    }
    finish(state, descent);
}

void intersectorFullTest(benchmark::State &state, Size size)
{
    Descent const descent(size);
    for (auto _ : state) {
        int sum = 0;
        std::size_t current = descent.mesh.triangles.size();
        MatUtil::TriangleCuboidIntersector intersector{Vector(), Vector(), Vector()};
        for (Call const &c : descent.calls) {
            if (c.triangle != current) {
                current = c.triangle;
                intersector = MatUtil::TriangleCuboidIntersector(descent.mesh.corner(current, 0),
                                                                 descent.mesh.corner(current, 1),
                                                                 descent.mesh.corner(current, 2));
            }
            sum += intersector.intersect(c.lo, c.hi, 3, c.parentType);
        }
        benchmark::DoNotOptimize(sum);
    }
    finish(state, descent);
}

void singleQuestion(benchmark::State &state, Size size)
{
    Descent const descent(size);
    for (auto _ : state) {
        int sum = 0;
        for (Call const &c : descent.calls) {
            sum += MatUtil::triangleIntersectsCuboid(
                descent.mesh.corner(c.triangle, 0), descent.mesh.corner(c.triangle, 1),
                descent.mesh.corner(c.triangle, 2), c.lo, c.hi);
        }
        benchmark::DoNotOptimize(sum);
    }
    finish(state, descent);
}

#ifdef ORVEL_HAVE_CGAL

void cgalBoxTriangle(benchmark::State &state, Size size)
{
    using Kernel = CGAL::Simple_cartesian<double>;
    Descent const descent(size);
    std::vector<Kernel::Triangle_3> triangles;
    for (std::size_t t = 0; t < descent.mesh.triangles.size(); ++t) {
        auto const point = [&](std::size_t i) {
            Vector const &v = descent.mesh.corner(t, i);
            return Kernel::Point_3(v.x(), v.y(), v.z());
        };
        triangles.emplace_back(point(0), point(1), point(2));
    }
    std::vector<CGAL::Bbox_3> boxes;
    for (Call const &c : descent.calls) {
        boxes.emplace_back(c.lo.x(), c.lo.y(), c.lo.z(), c.hi.x(), c.hi.y(), c.hi.z());
    }
    for (auto _ : state) {
        int sum = 0;
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            sum += CGAL::do_intersect(boxes[i], triangles[descent.calls[i].triangle]);
        }
        benchmark::DoNotOptimize(sum);
    }
    finish(state, descent);
}

#endif

// Rows named cellTest/case of some depth/triangles/who.
template <typename Run>
void add(std::string const &name, std::string const &who, Run run)
{
    for (std::size_t segments : {16, 50, 160}) {
        for (int depth : {12, 18, 24}) {
            std::string const title = "cellTest/" + name + ".depth" + std::to_string(depth) + '/' +
                                      std::to_string(4 * segments * segments) + '/' + who;
            benchmark::RegisterBenchmark(title.c_str(), [=](benchmark::State &state) {
                run(state, Size{segments, depth});
            })->Unit(benchmark::kMicrosecond);
        }
    }
}

[[maybe_unused]] bool const areRegistered = [] {
    add("descent", "orvel", intersectorInDescent);
    add("descent", "orvel.fullTest", intersectorFullTest);
    add("descent", "orvel.singleQuestion", singleQuestion);
#ifdef ORVEL_HAVE_CGAL
    add("descent", "cgal", cgalBoxTriangle);
#endif
    return true;
}();

} // namespace
