#include "HullTestSupport.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <map>
#include <set>
#include <thread>
#include <tuple>
#include <vector>

namespace {

using Key = std::tuple<double, double, double>;

Key keyOf(vectorC3d<double> const &p)
{
    return {p.x(), p.y(), p.z()};
}

/// How often each directed edge occurs.
std::map<std::pair<Key, Key>, int> directedEdges(std::vector<HullTriangle> const &triangles)
{
    std::map<std::pair<Key, Key>, int> edges;
    for (HullTriangle const &t : triangles) {
        ++edges[{keyOf(t.a), keyOf(t.b)}];
        ++edges[{keyOf(t.b), keyOf(t.c)}];
        ++edges[{keyOf(t.c), keyOf(t.a)}];
    }
    return edges;
}

double volumeOf(std::vector<HullTriangle> const &triangles)
{
    double volume = 0.0;
    for (HullTriangle const &t : triangles) {
        volume += t.a.dot(t.b.cross(t.c)) / 6.0;
    }
    return volume;
}

} // namespace

RC_GTEST_PROP(HullProperty, ContainsItsPointsAndIsClosed, ())
{
    Cloud const kind = *rc::gen::element(Cloud::Ball, Cloud::Cube, Cloud::Sphere, Cloud::Gauss);
    int const count = *rc::gen::inRange(4, 600);
    Points3 const points = makeCloud(kind, count, *rc::gen::arbitrary<unsigned>());
    ConvexHullBuilderC builder(points);
    RC_ASSERT(builder.buildHull());
    RC_ASSERT(builder.dimension() == 3);
    std::vector<HullTriangle> const triangles = trianglesOf(builder);

    for (HullTriangle const &t : triangles) {
        for (vectorC3d<double> const &p : points) {
            RC_ASSERT((p - t.a).dot(t.normal) <= 1e-7);
        }
    }
    auto const edges = directedEdges(triangles);
    for (auto const &[edge, times] : edges) {
        RC_ASSERT(times == 1);
        RC_ASSERT(edges.count({edge.second, edge.first}) == 1);
    }
    int const faces = builder.triangleCount();
    int const vertices = int(builder.hullVertexIndices().size());
    RC_ASSERT(int(edges.size()) == 3 * faces);
    RC_ASSERT(vertices - int(edges.size()) / 2 + faces == 2);
}

RC_GTEST_PROP(HullProperty, SphereKeepsAllItsPoints, ())
{
    int const count = *rc::gen::inRange(4, 300);
    ConvexHullBuilderC builder(makeCloud(Cloud::Sphere, count, *rc::gen::arbitrary<unsigned>()));
    RC_ASSERT(builder.buildHull());
    RC_ASSERT(builder.hullVertexIndices().size() == count);
}

RC_GTEST_PROP(HullProperty, HullOfItsVerticesHasTheSameVolume, ())
{
    Points3 const points =
        makeCloud(Cloud::Ball, *rc::gen::inRange(4, 400), *rc::gen::arbitrary<unsigned>());
    ConvexHullBuilderC builder(points);
    builder.buildHull();
    Points3 vertices;
    for (vectorC3d<double> const &p : builder.hullVertices()) {
        vertices.append(p);
    }
    ConvexHullBuilderC again(vertices);
    RC_ASSERT(again.buildHull());
    RC_ASSERT(again.hullVertexIndices().size() == vertices.size());
    RC_ASSERT(std::abs(volumeOf(trianglesOf(builder)) - volumeOf(trianglesOf(again))) < 1e-12);
}

RC_GTEST_PROP(HullProperty, PlanarHullHasTheAreaOfThePolygon, ())
{
    Points3 const points =
        makeCloud(Cloud::Plane, *rc::gen::inRange(3, 300), *rc::gen::arbitrary<unsigned>());
    ConvexHullBuilderC builder(points);
    RC_ASSERT(builder.buildHull());
    RC_ASSERT(builder.dimension() == 2);
    RC_ASSERT(builder.triangleCount() == builder.hullVertexIndices().size() - 2);
    Points2 flat;
    double area = 0.0;
    for (vectorC3d<double> const &p : points) {
        flat.append({p.x(), p.y()});
    }
    Points2 const polygon = ConvexHullBuilderC::computeConvexHull2D(flat);
    for (int i = 2; i < polygon.size(); ++i) {
        area += doubleArea(polygon[0], polygon[i - 1], polygon[i]) / 2.0;
    }
    double spatialArea = 0.0;
    for (HullTriangle const &t : trianglesOf(builder)) {
        RC_ASSERT((t.normal - trianglesOf(builder)[0].normal).length() < 1e-6);
        spatialArea += (t.b - t.a).cross(t.c - t.a).length() / 2.0;
    }
    RC_ASSERT(std::abs(spatialArea - area * std::sqrt(6.0)) < 1e-6); // z = 2x + y
}

/// Vertices are the corners of the triangles that have all other points on one side. In whole
/// numbers every product is exact.
RC_GTEST_PROP(HullProperty, VerticesMatchBruteForceInWholeNumbers, ())
{
    auto const coordinate = rc::gen::inRange(-50, 51);
    auto const raw = *rc::gen::container<std::vector<std::tuple<int, int, int>>>(
        std::size_t(*rc::gen::inRange(4, 13)), rc::gen::tuple(coordinate, coordinate, coordinate));
    Points3 points;
    for (auto const &[x, y, z] : raw) {
        points.append({double(x), double(y), double(z)});
    }
    std::set<int> corners;
    for (int i = 0; i < points.size(); ++i) {
        for (int j = i + 1; j < points.size(); ++j) {
            for (int k = j + 1; k < points.size(); ++k) {
                int above = 0;
                int below = 0;
                for (int l = 0; l < points.size(); ++l) {
                    vectorC3d<double> const normal =
                        (points[j] - points[i]).cross(points[k] - points[i]);
                    double const side = (points[l] - points[i]).dot(normal);
                    RC_PRE(side != 0.0 || l == i || l == j || l == k); // four points of a plane
                    above += side > 0.0;
                    below += side < 0.0;
                }
                if (above == 0 || below == 0) {
                    corners.insert({i, j, k});
                }
            }
        }
    }
    ConvexHullBuilderC builder(points);
    RC_ASSERT(builder.buildHull());
    RC_ASSERT(builder.dimension() == 3);
    QList<int> const indices = builder.hullVertexIndices();
    RC_ASSERT(std::vector<int>(corners.begin(), corners.end()) ==
              std::vector<int>(indices.begin(), indices.end()));
}

TEST(HullProperty, VolumeOfManyBallPointsNearsTheBall)
{
    ConvexHullBuilderC builder(makeCloud(Cloud::Ball, 50000, 1));
    builder.buildHull();
    EXPECT_NEAR(volumeOf(trianglesOf(builder)), 4.0 / 3.0 * 3.141592653589793, 0.1);
}

TEST(HullProperty, SeparateBuildersWorkInParallel)
{
    Points3 const points = makeCloud(Cloud::Ball, 3000, 9);
    QList<int> results[4];
    std::vector<std::thread> threads;
    for (QList<int> &result : results) {
        threads.emplace_back([&points, &result] {
            ConvexHullBuilderC builder(points);
            builder.buildHull();
            result = builder.hullVertexIndices();
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_FALSE(results[0].isEmpty());
    for (QList<int> const &result : results) {
        EXPECT_EQ(results[0], result);
    }
}
