#include "CgalHull.h"
#include "HullChecks.h"
#include "clouds.h"

#include "exact/support/caseCount.h"

#include <assimp/Importer.hpp>
#include <assimp/scene.h>

#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

using namespace orvelExact;

namespace {

/// The hull of CGAL's exact kernel has the same corners, and ours is a convex surface.
void expectTrueHull(clouds::Cloud const &cloud)
{
    ConvexHull const hull(cloud);
    checks::expectSolid(hull);
    EXPECT_EQ(cgalHullCorners(cloud), checks::sortedCorners(hull));
}

clouds::Cloud verticesOf(std::filesystem::path const &path)
{
    clouds::Cloud cloud;
    Assimp::Importer importer;
    aiScene const *const scene = importer.ReadFile(path.string(), 0);
    for (unsigned m = 0; scene && m < scene->mNumMeshes; ++m) {
        for (unsigned i = 0; i < scene->mMeshes[m]->mNumVertices; ++i) {
            aiVector3D const &v = scene->mMeshes[m]->mVertices[i];
            cloud.append({double(v.x), double(v.y), double(v.z)});
        }
    }
    return cloud;
}

} // namespace

TEST(HullTruth, HoldsForLattices)
{
    for (int side = 2; side <= 30; side += side < 8 ? 1 : 11) {
        for (double const step : {1.0, 0.1, 1e-7}) {
            SCOPED_TRACE(side * step);
            expectTrueHull(clouds::lattice(side, step));
        }
    }
}

TEST(HullTruth, HoldsForPrisms)
{
    for (int sides = 3; sides <= 1000; sides += sides < 20 ? 1 : 245) {
        SCOPED_TRACE(sides);
        expectTrueHull(clouds::prism(sides));
    }
}

TEST(HullTruth, HoldsForConesAndCylinders)
{
    expectTrueHull(clouds::cone(1, 500));
    expectTrueHull(clouds::cone(20, 60));
    expectTrueHull(clouds::cone(7, 12));
    expectTrueHull(clouds::cylinder(2, 500));
    expectTrueHull(clouds::cylinder(30, 48));
}

TEST(HullTruth, HoldsForRandomSolids)
{
    for (unsigned seed = 1; seed <= 5; ++seed) {
        expectTrueHull(clouds::ball(4000, seed));
        expectTrueHull(clouds::cube(4000, seed));
        expectTrueHull(clouds::gauss(4000, seed));
        expectTrueHull(clouds::twoSpheres(600, seed));
        expectTrueHull(clouds::torus(1500, seed));
        expectTrueHull(clouds::sphere(4 + 100 * static_cast<int>(seed), seed));
    }
}

TEST(HullTruth, HoldsForSmallSolids)
{
    for (unsigned seed = 1; seed <= 300; ++seed) {
        SCOPED_TRACE(seed);
        expectTrueHull(clouds::ball(4 + static_cast<int>(seed) % 9, seed));
        clouds::Cloud rounded;
        for (Point3 const &p : clouds::gauss(30, seed)) {
            rounded.append({std::round(p.x()), std::round(p.y()), std::round(p.z())});
        }
        if (ConvexHull(rounded).dimension() == 3) {
            expectTrueHull(rounded);
        }
    }
}

TEST(HullTruth, HoldsForMinkowskiSums)
{
    expectTrueHull(clouds::minkowskiSum(clouds::lattice(2), clouds::prism(12)));
    expectTrueHull(clouds::minkowskiSum(clouds::prism(24), clouds::cylinder(3, 16)));
    expectTrueHull(clouds::minkowskiSum(clouds::sphere(60, 3), clouds::lattice(2, 0.3)));
}

TEST(HullTruth, HoldsForCopiesAndClusters)
{
    expectTrueHull(clouds::repeated(clouds::sphere(100, 4), 20, 1));
    expectTrueHull(clouds::repeated(clouds::lattice(3, 0.1), 30, 2));
    for (unsigned seed = 1; seed <= 10; ++seed) {
        expectTrueHull(clouds::coplanarClusters(2000, seed));
    }
}

TEST(HullTruth, HoldsFarFromTheOriginAndInTinyAndHugeBoxes)
{
    for (clouds::Cloud const &cloud :
         {clouds::ball(1000, 9), clouds::lattice(6, 0.1), clouds::prism(40)}) {
        expectTrueHull(clouds::scaled(cloud, 1e-6, {1, 1, 1}));
        expectTrueHull(clouds::scaled(cloud, 1e-3, {1e9, -1e9, 1e9}));
        expectTrueHull(clouds::scaled(cloud, 1e-60, {}));
        expectTrueHull(clouds::scaled(cloud, 1e60, {}));
        clouds::Cloud flat;
        for (Point3 const &p : cloud) {
            flat.append({p.x(), 1e-12 * p.y(), 1e8 * p.z()});
        }
        expectTrueHull(flat);
    }
}

TEST(HullTruth, HoldsForTenThousandPoints)
{
    if (!support::runsLong()) {
        GTEST_SKIP() << "ORVEL_LONG_TESTS=1 runs it";
    }
    expectTrueHull(clouds::sphere(10000, 21));
    expectTrueHull(clouds::ball(10000, 22));
    expectTrueHull(clouds::coplanarClusters(10000, 23));
    expectTrueHull(clouds::cone(1, 10000));
}

TEST(HullTruth, HoldsForTheModelsOfTheAssimpTestSet)
{
    std::vector<std::filesystem::path> paths;
    for (auto const &entry :
         std::filesystem::recursive_directory_iterator("/usr/share/assimp/models")) {
        bool const isBroken = entry.path().string().find("invalid") != std::string::npos;
        if (entry.is_regular_file() && !isBroken) {
            paths.push_back(entry.path());
        }
    }
    std::sort(paths.begin(), paths.end());
    int solids = 0;
    for (std::filesystem::path const &path : paths) {
        clouds::Cloud const cloud = verticesOf(path);
        ConvexHull const hull(cloud);
        if (hull.dimension() != 3) {
            continue;
        }
        SCOPED_TRACE(path.string());
        ++solids;
        EXPECT_EQ(cgalHullCorners(cloud), checks::sortedCorners(hull));
        checks::expectClosed(hull);
        checks::expectStrictlyConvex(hull);
        checks::expectLowestIndices(hull);
        qint64 const pairs = qint64(cloud.size()) * hull.facetCount();
        if (pairs < 4000000 || (support::runsLong() && cloud.size() <= 10000)) {
            checks::expectNoPointOutside(hull);
        }
    }
    EXPECT_GE(solids, 100);
}
