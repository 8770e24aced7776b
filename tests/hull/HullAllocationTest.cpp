#include "HullTestSupport.h"

#include "support/AllocationCount.h"

#include <gtest/gtest.h>

#include <new>

namespace {

using HullAllocation = support::AllocationCounting;

/// Builds, and after a failure builds again with the same object.
/// @return the number of allocations of a build.
long failEachAllocationOfABuild(Points3 const &points)
{
    ConvexHullBuilderC whole(points);
    whole.buildHull();
    QList<int> const expected = whole.hullVertexIndices();
    int const triangles = whole.triangleCount();

    return support::failEachAllocation([&] {
        ConvexHullBuilderC builder(points);
        try {
            builder.buildHull();
        } catch (std::bad_alloc const &) {
            EXPECT_EQ(-1, builder.dimension());
            EXPECT_EQ(0, builder.triangleCount());
            EXPECT_TRUE(builder.hullVertexIndices().isEmpty());
            EXPECT_TRUE(builder.buildHull()); // the points are still there
            EXPECT_EQ(expected, builder.hullVertexIndices());
            EXPECT_EQ(triangles, builder.triangleCount());
            throw;
        }
        EXPECT_EQ(expected, builder.hullVertexIndices());
    });
}

} // namespace

TEST_F(HullAllocation, AFailedSolidBuildLeaksNothingAndCanBeRepeated)
{
    // Two edges and a face per triangle at least, and every step hands points on.
    EXPECT_LT(500, failEachAllocationOfABuild(makeCloud(Cloud::Sphere, 80, 3)));
}

TEST_F(HullAllocation, AFailedPlanarBuildLeaksNothingAndCanBeRepeated)
{
    EXPECT_LT(50, failEachAllocationOfABuild(makeCloud(Cloud::Plane, 400, 3)));
}

TEST_F(HullAllocation, AFailedBuildOfStepsAboutTheToleranceLeaksNothing)
{
    for (unsigned seed = 0; seed < 8; ++seed) {
        EXPECT_LT(4, failEachAllocationOfABuild(makeCloud(Cloud::FineGrid, 40, seed)));
    }
}

TEST_F(HullAllocation, AFailedPolygonLeaksNothing)
{
    for (int count : {1, 3, 50, 400}) {
        Points2 points;
        for (vectorC3d<double> const &p : makeCloud(Cloud::Copies, count, 7)) {
            points.append({p.x(), p.y()});
        }
        EXPECT_LT(1, support::failEachAllocation(
                         [&] { ConvexHullBuilderC::computeConvexHull2D(points); }));
    }
}

TEST_F(HullAllocation, AFailedConstructorLeaksNothing)
{
    Points3 const points = cubeCorners();
    EXPECT_EQ(1, support::failEachAllocation([&] { ConvexHullBuilderC{points}; }));
}
