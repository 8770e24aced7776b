#include "HullTestSupport.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using Vector = vectorC3d<double>;
using Indices = QList<int>;

double const notANumber = std::numeric_limits<double>::quiet_NaN();
double const infinity = std::numeric_limits<double>::infinity();

Points3 tetrahedron()
{
    return {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
}

/// The library's hull and the literal one, compared bit by bit.
void expectSameAsLiteral(Points3 const &points, std::string const &what)
{
    LiteralHull const expected = literalHull3D(points);
    ConvexHullBuilderC builder(points);
    ASSERT_TRUE(builder.buildHull()) << what;
    ASSERT_EQ(builder.dimension(), expected.dimension) << what;
    ASSERT_EQ(builder.hullVertexIndices(), expected.indices) << what;
    ASSERT_EQ(builder.triangleCount(), int(expected.triangles.size())) << what;
    std::vector<HullTriangle> const triangles = trianglesOf(builder);
    for (std::size_t i = 0; i < triangles.size(); ++i) {
        HullTriangle const &t = triangles[i];
        LiteralTriangle const &e = expected.triangles[i];
        ASSERT_EQ(bitsOf(t.a), bitsOf(points[e.corners[0]])) << what << ", triangle " << i;
        ASSERT_EQ(bitsOf(t.b), bitsOf(points[e.corners[1]])) << what << ", triangle " << i;
        ASSERT_EQ(bitsOf(t.c), bitsOf(points[e.corners[2]])) << what << ", triangle " << i;
        for (int k = 0; k < 3; ++k) {
            if (std::isnan(e.normal[k])) { // the sign of a NaN has no meaning
                ASSERT_TRUE(std::isnan(t.normal[k])) << what << ", triangle " << i;
            } else {
                ASSERT_EQ(t.normal[k], e.normal[k]) << what << ", triangle " << i;
            }
        }
    }
}

} // namespace

TEST(Hull3D, EmptyListBuildsNothing)
{
    ConvexHullBuilderC builder;
    EXPECT_EQ(builder.dimension(), -1);
    EXPECT_TRUE(builder.buildHull());
    EXPECT_EQ(builder.dimension(), -1);
    EXPECT_EQ(builder.triangleCount(), 0);
    EXPECT_TRUE(builder.hullVertexIndices().isEmpty());
    EXPECT_TRUE(builder.hullVertices().isEmpty());
}

TEST(Hull3D, LoadedButNotBuiltHasNoDimension)
{
    ConvexHullBuilderC const builder(tetrahedron());
    EXPECT_EQ(builder.dimension(), -1);
    EXPECT_EQ(builder.triangleCount(), 0);
}

TEST(Hull3D, OneLocationHasDimensionZero)
{
    for (Points3 const &points : {Points3{{1, 2, 3}}, Points3{{1, 2, 3}, {1, 2, 3}},
                                  Points3{{1, 2, 3}, {1, 2, 3 + 9e-9}}}) {
        ConvexHullBuilderC builder(points);
        EXPECT_TRUE(builder.buildHull());
        EXPECT_EQ(builder.dimension(), 0);
        EXPECT_EQ(builder.triangleCount(), 0);
        EXPECT_TRUE(builder.hullVertexIndices().isEmpty());
    }
}

TEST(Hull3D, ExtremesOfExactlyTheToleranceAreTwoLocations)
{
    ConvexHullBuilderC builder(Points3{{0, 0, 0}, {1e-8, 0, 0}});
    EXPECT_TRUE(builder.buildHull());
    EXPECT_EQ(builder.dimension(), 1);
}

TEST(Hull3D, CollinearPointsHaveDimensionOneAndNoVertices)
{
    ConvexHullBuilderC builder(Points3{{0, 0, 0}, {1, 1, 1}, {2, 2, 2}, {5, 5, 5}});
    EXPECT_TRUE(builder.buildHull());
    EXPECT_EQ(builder.dimension(), 1);
    EXPECT_EQ(builder.triangleCount(), 0);
    EXPECT_TRUE(builder.hullVertexIndices().isEmpty());
    EXPECT_TRUE(builder.hullVertices().isEmpty());
}

TEST(Hull3D, SquareIsAFanInPolygonOrder)
{
    ConvexHullBuilderC builder(Points3{{1, 1, 0}, {0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
    EXPECT_TRUE(builder.buildHull());
    EXPECT_EQ(builder.dimension(), 2);
    ASSERT_EQ(builder.triangleCount(), 2);
    EXPECT_EQ(builder.hullVertexIndices(),
              literalHull3D({{1, 1, 0}, {0, 0, 0}, {1, 0, 0}, {0, 1, 0}}).indices);
    QList<int> const indices = builder.hullVertexIndices();
    ASSERT_EQ(indices.size(), 4);
    EXPECT_FALSE(std::is_sorted(indices.begin(), indices.end()));
    std::vector<HullTriangle> const t = trianglesOf(builder);
    EXPECT_EQ(t[0].normal, t[1].normal);
    EXPECT_EQ(std::abs(t[0].normal.z()), 1.0);
    // The fan: both begin at the first corner, and the diagonal is theirs.
    EXPECT_EQ(t[0].a, builder.hullVertices()[0]);
    EXPECT_EQ(t[1].a, builder.hullVertices()[0]);
    EXPECT_EQ(t[0].c, t[1].b);
    EXPECT_EQ(t[1].c, builder.hullVertices()[3]);
}

TEST(Hull3D, TetrahedronHasFourOutwardFaces)
{
    ConvexHullBuilderC builder(tetrahedron());
    EXPECT_TRUE(builder.buildHull());
    EXPECT_EQ(builder.dimension(), 3);
    EXPECT_EQ(builder.triangleCount(), 4);
    EXPECT_EQ(builder.hullVertexIndices(), (Indices{0, 1, 2, 3}));
    EXPECT_EQ(builder.hullVertices(),
              (QVector<Vector>{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
    Vector const inside(0.1, 0.1, 0.1);
    for (HullTriangle const &t : trianglesOf(builder)) {
        EXPECT_LT((inside - t.a).dot(t.normal), 0.0);
        EXPECT_NEAR(t.normal.length(), 1.0, 1e-15);
        EXPECT_NEAR(((t.b - t.a).cross(t.c - t.b)).dot(t.normal),
                    ((t.b - t.a).cross(t.c - t.b)).length(), 1e-15);
    }
}

TEST(Hull3D, CornersOfTheCubeShareKeysAndLackACorner)
{
    Points3 const corners = cubeCorners();
    expectSameAsLiteral(corners, "cube");
    ConvexHullBuilderC builder(corners);
    EXPECT_TRUE(builder.buildHull());
    EXPECT_EQ(builder.dimension(), 3);
    EXPECT_EQ(builder.hullVertexIndices(), (Indices{0, 1, 2, 3, 4, 6, 7}));
    EXPECT_EQ(builder.triangleCount(), 10);
}

TEST(Hull3D, APointInTheToleranceAboveAFaceIsNoVertex)
{
    for (double height : {0.0, 1e-8, -1e-3}) {
        Points3 points = tetrahedron();
        points.append({0.25, 0.25, -height});
        ConvexHullBuilderC builder(points);
        EXPECT_TRUE(builder.buildHull());
        EXPECT_EQ(builder.hullVertexIndices(), (Indices{0, 1, 2, 3})) << height;
    }
    Points3 points = tetrahedron();
    points.append({0.25, 0.25, -std::nextafter(1e-8, 1.0)});
    ConvexHullBuilderC builder(points);
    EXPECT_TRUE(builder.buildHull());
    EXPECT_EQ(builder.hullVertexIndices(), (Indices{0, 1, 2, 3, 4}));
}

TEST(Hull3D, ACopyOfAVertexIsNoSecondVertex)
{
    ConvexHullBuilderC builder(tetrahedron() + tetrahedron());
    EXPECT_TRUE(builder.buildHull());
    EXPECT_EQ(builder.hullVertexIndices(), (Indices{0, 1, 2, 3}));
    EXPECT_EQ(builder.triangleCount(), 4);
}

TEST(Hull3D, TriangleOutOfRangeLeavesOutputsAlone)
{
    ConvexHullBuilderC builder(tetrahedron());
    EXPECT_TRUE(builder.buildHull());
    Vector const preset(7, 8, 9);
    for (int index : {-1, 4, 5, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        Vector a = preset;
        Vector b = preset;
        Vector c = preset;
        Vector n = preset;
        EXPECT_FALSE(builder.triangle(index, a, b, c, n));
        EXPECT_EQ(a, preset);
        EXPECT_EQ(b, preset);
        EXPECT_EQ(c, preset);
        EXPECT_EQ(n, preset);
    }
}

TEST(Hull3D, ASecondBuildRepeatsThePlaneAndAddsToTheSolid)
{
    Points3 const square{{1, 1, 0}, {0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0.5, 0.5, 0}};
    ConvexHullBuilderC flat(square);
    flat.buildHull();
    QList<int> const indices = flat.hullVertexIndices();
    std::vector<HullTriangle> const once = trianglesOf(flat);
    EXPECT_TRUE(flat.buildHull());
    EXPECT_EQ(flat.hullVertexIndices(), indices);
    ASSERT_EQ(flat.triangleCount(), int(once.size()));
    EXPECT_EQ(bitsOf(trianglesOf(flat)[1].normal), bitsOf(once[1].normal));

    ConvexHullBuilderC solid(tetrahedron());
    solid.buildHull();
    EXPECT_TRUE(solid.buildHull());
    EXPECT_EQ(solid.triangleCount(), 8);
    EXPECT_EQ(solid.hullVertexIndices(), (Indices{0, 1, 2, 3, 0, 1, 2, 3}));
    solid.setData(tetrahedron());
    EXPECT_EQ(solid.dimension(), -1);
    EXPECT_EQ(solid.triangleCount(), 0);
    EXPECT_TRUE(solid.buildHull());
    EXPECT_EQ(solid.triangleCount(), 4);
}

TEST(Hull3D, ASecondBuildWithoutPointsToAddKeepsEarlierIndices)
{
    Points3 const line{{0, 0, 0}, {1, 0, 0}};
    ConvexHullBuilderC builder(line);
    builder.buildHull();
    EXPECT_TRUE(builder.buildHull());
    EXPECT_EQ(builder.dimension(), 1);
    EXPECT_TRUE(builder.hullVertexIndices().isEmpty());
}

TEST(Hull3D, ResetGivesTheEmptyState)
{
    ConvexHullBuilderC builder(tetrahedron());
    builder.buildHull();
    builder.reset();
    EXPECT_EQ(builder.dimension(), -1);
    EXPECT_EQ(builder.triangleCount(), 0);
    EXPECT_TRUE(builder.hullVertexIndices().isEmpty());
    EXPECT_TRUE(builder.buildHull());
    EXPECT_EQ(builder.dimension(), -1);
}

TEST(Hull3D, TheGivenListStaysTheCallers)
{
    Points3 points = tetrahedron();
    ConvexHullBuilderC builder(points);
    points[0] = {100, 100, 100};
    points.append({-50, 0, 0});
    EXPECT_TRUE(builder.buildHull());
    EXPECT_EQ(builder.hullVertexIndices(), (Indices{0, 1, 2, 3}));
    EXPECT_EQ(builder.hullVertices()[0], Vector(0, 0, 0));
}

TEST(Hull3D, TheExamplesOfTheHandWrittenPageHold)
{
    QList<vectorC3d<double>> points;
    points << vectorC3d<double>(0, 0, 0) << vectorC3d<double>(4, 0, 0) << vectorC3d<double>(0, 4, 0)
           << vectorC3d<double>(0, 0, 4) << vectorC3d<double>(1, 1, 1);
    ConvexHullBuilderC builder(points);
    builder.buildHull();
    double volume = 0.0;
    for (int i = 0; i < builder.triangleCount(); ++i) {
        vectorC3d<double> a, b, c, normal;
        builder.triangle(i, a, b, c, normal);
        volume += a.dot(b.cross(c)) / 6.0;
    }
    EXPECT_EQ(builder.dimension(), 3);
    EXPECT_EQ(builder.hullVertexIndices(), (Indices{0, 1, 2, 3}));
    EXPECT_DOUBLE_EQ(volume, 32.0 / 3.0);

    QVector<vectorC2d<double>> const flat{{0, 0}, {1, 0}, {2, 0}, {2, 2}, {0, 2}};
    EXPECT_EQ(ConvexHullBuilderC::computeConvexHullIndices2D(flat), (Indices{0, 2, 3, 4}));
}

TEST(Hull3D, AZeroAreaFaceTakesNothingAndBuildsOn)
{
    // Far out, rounding hides that the eye lies on the line of a horizon edge.
    int facesWithoutNormal = 0;
    for (unsigned seed = 0; seed < 400; ++seed) {
        Points3 points = makeCloud(Cloud::Grid, 40, seed);
        for (Vector &p : points) {
            p = (p + Vector(seed % 7, seed % 5, 1.0 / 3.0)) * (1e9 * (1.0 + seed));
        }
        expectSameAsLiteral(points, "seed " + std::to_string(seed));
        ConvexHullBuilderC builder(points);
        EXPECT_TRUE(builder.buildHull());
        for (HullTriangle const &t : trianglesOf(builder)) {
            facesWithoutNormal += std::isnan(t.normal.x());
        }
    }
    EXPECT_GT(facesWithoutNormal, 0);
}

TEST(Hull3D, TheSameBitsAsTheLiteralBuild)
{
    for (int kind = 0; kind <= int(Cloud::Last); ++kind) {
        for (unsigned seed = 0; seed < 60; ++seed) {
            int const count = 4 + int(seed * seed) / 8;
            expectSameAsLiteral(makeCloud(Cloud(kind), count, seed),
                                "cloud " + std::to_string(kind) + ", seed " + std::to_string(seed));
        }
    }
}

TEST(Hull3D, TheSameBitsAsTheLiteralBuildOnLargerClouds)
{
    for (Cloud kind : {Cloud::Ball, Cloud::Cube, Cloud::Gauss, Cloud::Copies}) {
        expectSameAsLiteral(makeCloud(kind, 20000, 5), "cloud " + std::to_string(int(kind)));
    }
    expectSameAsLiteral(makeCloud(Cloud::Sphere, 1500, 5), "sphere");
}

TEST(Hull3D, TheSameBitsAsTheLiteralBuildWhereRoundingExceedsTheTolerance)
{
    // Heights are then wrong by more than 1e-8: faces without area, torn surfaces, open horizons.
    for (unsigned seed = 0; seed < 400; ++seed) {
        std::mt19937 generator(seed);
        Points3 points = makeCloud(seed % 2 ? Cloud::Grid : Cloud::Cube, 8 + int(seed % 50), seed);
        double const scale = std::pow(10.0, 6.0 + double(generator() % 10));
        vectorC3d<double> const shift(double(generator() % 7), double(generator() % 5), 1.0 / 3.0);
        for (Vector &p : points) {
            p = (p + shift) * scale;
        }
        expectSameAsLiteral(points, "seed " + std::to_string(seed));
    }
}

TEST(Hull3D, NaNAndInfinityEndLikeTheLiteralBuild)
{
    double const odd[] = {notANumber, infinity, -infinity, 0.0,    1.0,
                          2.0,        1e308,    -1e160,    5e-324, 1e-160};
    for (unsigned seed = 0; seed < 3000; ++seed) {
        std::mt19937 generator(seed);
        Points3 points = makeCloud(Cloud::Grid, int(generator() % 12), seed);
        unsigned const rate = 1 + unsigned(generator() % 12);
        for (int i = 0; i < 8; ++i) {
            Vector p;
            for (int k = 0; k < 3; ++k) {
                p[k] = generator() % rate ? double(generator() % 3) : odd[generator() % 10];
            }
            points.insert(int(generator() % unsigned(points.size() + 1)), p);
        }
        expectSameAsLiteral(points, "seed " + std::to_string(seed));
    }
}

TEST(Hull3D, AllNaNIsALineWithoutVertices)
{
    ConvexHullBuilderC builder(
        Points3{{notANumber, notANumber, notANumber}, {1, 2, 3}, {4, 5, 6}, {7, 8, 10}, {1, 0, 0}});
    EXPECT_TRUE(builder.buildHull());
    EXPECT_EQ(builder.dimension(), 1);
}
