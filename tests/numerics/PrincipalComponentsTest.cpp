#include "support/Bits.h"

#include <OrvelMath/numerics/runPCA.h>

#include <Eigen/Eigenvalues>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <fstream>
#include <random>
#include <sstream>
#include <string>

namespace {

using support::preset;
using support::SameBits;

struct Analysis
{
    double values[3] = {preset, preset, preset};
    double center[3] = {preset, preset, preset};
    Point3D axes[3] = {{preset, 0, 0}, {preset, 0, 0}, {preset, 0, 0}};
};

Analysis analyse(PValOrderedVector<Point3D> const &points)
{
    Analysis a;
    runPCA(a.values[0], a.center[0], a.axes[0], a.values[1], a.center[1], a.axes[1], a.values[2],
           a.center[2], a.axes[2], points);
    return a;
}

void expectAxis(Point3D const &axis, double x, double y, double z, double tolerance)
{
    double const sign = axis.x() * x + axis.y() * y + axis.z() * z < 0.0 ? -1.0 : 1.0;
    EXPECT_NEAR(sign * axis.x(), x, tolerance);
    EXPECT_NEAR(sign * axis.y(), y, tolerance);
    EXPECT_NEAR(sign * axis.z(), z, tolerance);
}

/// Eigenpairs, centre and orthonormality against Eigen's solution of the same covariance.
void expectLikeEigen(PValOrderedVector<Point3D> const &points)
{
    Eigen::MatrixXd m(points.size(), 3);
    for (int i = 0; i < points.size(); ++i) {
        m.row(i) << points[i].x(), points[i].y(), points[i].z();
    }
    Eigen::RowVector3d const mean = m.colwise().mean();
    Eigen::MatrixXd const centred = m.rowwise() - mean;
    Eigen::Matrix3d const covariance = centred.transpose() * centred / double(points.size() - 1);
    Eigen::Vector3d const expected =
        Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d>(covariance).eigenvalues();

    Analysis const a = analyse(points);
    double const scale = std::max(expected[2], 1e-300);
    for (int i = 0; i < 3; ++i) {
        EXPECT_NEAR(a.center[i], mean[i], 1e-11 * (1.0 + m.cwiseAbs().maxCoeff()));
        EXPECT_NEAR(a.values[i], expected[2 - i], 1e-7 * scale + 1e-8);
        Eigen::Vector3d const axis(a.axes[i].x(), a.axes[i].y(), a.axes[i].z());
        EXPECT_NEAR(1.0, axis.norm(), 1e-12);
        EXPECT_LT((covariance * axis - a.values[i] * axis).norm(), 1e-7 * scale + 1e-8);
    }
    EXPECT_GE(a.values[0], a.values[1]);
    EXPECT_GE(a.values[1], a.values[2]);
}

TEST(RunPCA, FewerThanThreePointsLeaveAllOutputsAlone)
{
    PValOrderedVector<Point3D> points;
    for (int count = 0; count < 3; ++count) {
        Analysis const a = analyse(points);
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(preset, a.values[i]);
            EXPECT_EQ(preset, a.center[i]);
            EXPECT_EQ(preset, a.axes[i].x());
        }
        points.append(Point3D(count, 1, 2));
    }
}

TEST(RunPCA, CollinearPoints)
{
    Analysis const a = analyse({{0, 0, 0}, {1, 2, 2}, {2, 4, 4}});
    EXPECT_NEAR(9.0, a.values[0], 1e-14); // squared distances 9, 0, 9, divided by 2
    EXPECT_NEAR(0.0, a.values[1], 1e-14);
    EXPECT_NEAR(0.0, a.values[2], 1e-14);
    expectAxis(a.axes[0], 1.0 / 3, 2.0 / 3, 2.0 / 3, 1e-14);
    EXPECT_EQ(1.0, a.center[0]);
    EXPECT_EQ(2.0, a.center[1]);
    EXPECT_EQ(2.0, a.center[2]);
}

TEST(RunPCA, ReturnsWhileTheSquaredDistancesSumUpBelowTheLimit)
{
    std::mt19937_64 random(20261122);
    std::normal_distribution<double> normal;
    std::uniform_real_distribution<double> exponent(-320.0, 152.5);
    for (int trial = 0; trial < 2000; ++trial) {
        double const sizes[3] = {std::pow(10.0, exponent(random)), std::pow(10.0, exponent(random)),
                                 trial % 2 == 0 ? 1e152 : std::pow(10.0, exponent(random))};
        PValOrderedVector<Point3D> points;
        for (int i = 0; i < 3 + trial % 8; ++i) {
            points.append(Point3D(sizes[0] * normal(random), sizes[1] * normal(random),
                                  sizes[2] * normal(random)));
        }
        Analysis const a = analyse(points);
        ASSERT_TRUE(std::isfinite(a.values[0]));
        ASSERT_GE(a.values[0], a.values[2]);
    }
}

TEST(RunPCA, OverflowInOneCoordinateGivesAnInfiniteVariance)
{
    Analysis const a =
        analyse({{1e200, 0, 0}, {-1e200, 1, 0}, {1e200, 0, 1}, {-1e200, 3, 0}, {0, 0, 0}});
    EXPECT_EQ(support::inf, a.values[0]);
    EXPECT_TRUE(std::isfinite(a.values[1]));
}

TEST(RunPCA, EqualPointsKeepTheCoordinateAxes)
{
    Analysis const a = analyse({{5, 6, 7}, {5, 6, 7}, {5, 6, 7}});
    for (double value : a.values) {
        EXPECT_EQ(0.0, value);
    }
    EXPECT_TRUE(a.axes[0] == Point3D(0, 0, 1));
    EXPECT_TRUE(a.axes[1] == Point3D(0, 1, 0));
    EXPECT_TRUE(a.axes[2] == Point3D(1, 0, 0));
}

TEST(RunPCA, PointsOnTheZAxis)
{
    Analysis const a = analyse({{0, 0, 1}, {0, 0, -3}, {0, 0, 5}, {0, 0, 1}});
    expectAxis(a.axes[0], 0, 0, 1, 0.0);
    EXPECT_EQ(0.0, a.center[0]);
    EXPECT_EQ(0.0, a.center[1]);
    EXPECT_EQ(1.0, a.center[2]);
    EXPECT_NEAR(32.0 / 3.0, a.values[0], 1e-14);
    EXPECT_EQ(0.0, a.values[1]);
}

TEST(RunPCA, EqualVariancesFollowTheOrderOfTheColumns)
{
    PValOrderedVector<Point3D> cube;
    for (int corner = 0; corner < 8; ++corner) {
        cube.append(Point3D(corner & 1 ? 1 : -1, corner & 2 ? 1 : -1, corner & 4 ? 1 : -1));
    }
    Analysis const a = analyse(cube);
    for (double value : a.values) {
        EXPECT_EQ(8.0 / 7.0, value); // divided by n - 1
    }
    EXPECT_TRUE(a.axes[0] == Point3D(0, 0, 1));
    EXPECT_TRUE(a.axes[1] == Point3D(0, 1, 0));
    EXPECT_TRUE(a.axes[2] == Point3D(1, 0, 0));

    // y is the widest; x and z are equal, z counts as the larger
    Analysis const b =
        analyse({{1, 0, 0}, {-1, 0, 0}, {0, 3, 0}, {0, -3, 0}, {0, 0, 1}, {0, 0, -1}});
    EXPECT_TRUE(b.axes[0] == Point3D(0, 1, 0));
    EXPECT_TRUE(b.axes[1] == Point3D(0, 0, 1));
    EXPECT_TRUE(b.axes[2] == Point3D(1, 0, 0));
}

TEST(RunPCA, MeanHasTheBitsOfThePlainSums)
{
    std::mt19937 random(3);
    std::normal_distribution<double> normal(10.0, 3.0);
    PValOrderedVector<Point3D> points;
    double sums[3] = {0.0, 0.0, 0.0};
    for (int i = 0; i < 1001; ++i) {
        double const x = normal(random), y = normal(random), z = normal(random);
        points.append(Point3D(x, y, z));
        sums[0] += x;
        sums[1] += y;
        sums[2] += z;
    }
    Analysis const a = analyse(points);
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(SameBits(sums[i] / 1001, a.center[i]));
    }
}

TEST(RunPCA, AgreesWithEigenOnRandomClouds)
{
    std::mt19937 random(9);
    std::normal_distribution<double> normal(0.0, 1.0);
    for (int cloud = 0; cloud < 50; ++cloud) {
        PValOrderedVector<Point3D> points;
        double const stretch[3] = {normal(random) * 5, normal(random) * 2, normal(random)};
        for (int i = 0; i < 300; ++i) {
            double const u = normal(random) * stretch[0], v = normal(random) * stretch[1];
            double const w = normal(random) * stretch[2];
            points.append(Point3D(u + v - w, u - v, 0.5 * u + w + 100.0));
        }
        expectLikeEigen(points);
    }
}

PValOrderedVector<Point3D> readVertices(std::string const &file)
{
    std::ifstream stream(file);
    PValOrderedVector<Point3D> points;
    std::string line;
    while (std::getline(stream, line)) {
        std::istringstream words(line);
        std::string kind;
        double x, y, z;
        if (words >> kind >> x >> y >> z && kind == "v") {
            points.append(Point3D(x, y, z));
        }
    }
    return points;
}

TEST(RunPCA, AgreesWithEigenOnRealClouds)
{
    int clouds = 0;
    for (char const *name : {"WusonOBJ.obj", "spider.obj", "regr01.obj"}) {
        auto const points = readVertices(std::string("/usr/share/assimp/models/OBJ/") + name);
        if (points.size() < 3) {
            continue;
        }
        ++clouds;
        SCOPED_TRACE(name);
        expectLikeEigen(points);
    }
    if (clouds == 0) {
        GTEST_SKIP() << "the test models of Assimp are not installed";
    }
}

RC_GTEST_PROP(RunPCA, ShiftMovesTheCentreOnly, ())
{
    auto const number = rc::gen::inRange(-1000, 1000);
    PValOrderedVector<Point3D> points, shifted;
    int const count = *rc::gen::inRange(3, 30);
    for (int i = 0; i < count; ++i) {
        double const x = *number, y = *number, z = *number;
        points.append(Point3D(x, y, z));
        shifted.append(Point3D(x + 64, y - 128, z + 32));
    }
    Analysis const a = analyse(points), b = analyse(shifted);
    RC_ASSERT(std::fabs(b.center[0] - a.center[0] - 64) < 1e-9);
    RC_ASSERT(std::fabs(b.center[1] - a.center[1] + 128) < 1e-9);
    RC_ASSERT(std::fabs(b.center[2] - a.center[2] - 32) < 1e-9);
    for (int i = 0; i < 3; ++i) {
        RC_ASSERT(std::fabs(a.values[i] - b.values[i]) < 1e-6);
    }
}

} // namespace
