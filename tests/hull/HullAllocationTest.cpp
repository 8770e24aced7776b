#include "FailingAllocation.h"
#include "HullTestSupport.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>

namespace {

class HullAllocation : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!FailingAllocation::isPossible()) {
            GTEST_SKIP() << "allocations can't be watched here";
        }
    }
};

/// What came of a run in which one allocation failed.
struct Outcome
{
    bool failed;
    bool threw;
    long leakedBlocks;
};

/// Runs `task` with one failing allocation after `before` others.
template <typename Task>
Outcome runWithFailure(long before, Task const &task)
{
    FailingAllocation watch(before);
    bool threw = false;
    try {
        task();
    } catch (std::bad_alloc const &) {
        threw = true;
    }
    return {watch.hasFailed(), threw, watch.heldBlocks()};
}

/// Lets each allocation of `task` fail in turn; the number of them.
template <typename Task>
long failEachAllocation(Task const &task)
{
    for (long before = 0;; ++before) {
        Outcome const outcome = runWithFailure(before, task);
        EXPECT_EQ(outcome.failed, outcome.threw) << "allocation " << before;
        EXPECT_EQ(0, outcome.leakedBlocks) << "allocation " << before;
        if (!outcome.failed || testing::Test::HasFailure()) {
            return before;
        }
    }
}

/// Builds, and after a failure builds again with the same object.
/// @return the number of allocations of a build.
long failEachAllocationOfABuild(Points3 const &points)
{
    ConvexHullBuilderC whole(points);
    whole.buildHull();
    QList<int> const expected = whole.hullVertexIndices();
    int const triangles = whole.triangleCount();

    return failEachAllocation([&] {
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

TEST_F(HullAllocation, AFailedBuildOfATornSurfaceLeaksNothing)
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
        EXPECT_LT(1, failEachAllocation([&] { ConvexHullBuilderC::computeConvexHull2D(points); }));
    }
}

TEST_F(HullAllocation, AFailedConstructorLeaksNothing)
{
    Points3 const points = cubeCorners();
    EXPECT_EQ(1, failEachAllocation([&] { ConvexHullBuilderC{points}; }));
}
