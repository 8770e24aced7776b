#include "ClosedMeshes.h"
#include "TreeInspection.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace VolumeComparison;
using inspection::leaves;
using inspection::Node;
using meshes::Box;
using meshes::Mesh;
using meshes::Vector;

namespace {

Box const whole(Vector(0, 0, 0), Vector(8, 8, 8));
// No half holds it, so the whole box is reached.
Box const content(Vector(0.5, 0.5, 0.5), Vector(7.5, 7.5, 7.5));

inspection::Volumes volumesAt(Mesh const &mesh, double resolution)
{
    BinTreeBuilder builder(whole, resolution, content);
    meshes::addTo(builder, mesh);
    builder.findOuterArea();
    return inspection::volumes(builder);
}

// The closed form lies between the enclosed volume and that with the surface cells; both limits
// come together as the resolution halves. Their middle is nearer still, by `middleShare` of the
// gap: flat faces all lie at the same place in their cells, curved ones at every place.
void expectConvergence(Mesh const &mesh, double closedForm, double meshDefect, double middleShare)
{
    double formerSurface = std::numeric_limits<double>::infinity();
    for (double resolution : {0.25, 0.125, 0.0625, 0.03125}) {
        inspection::Volumes const v = volumesAt(mesh, resolution);
        EXPECT_NEAR(v.enclosed + v.surface + v.outer, 512.0, 1e-9);
        EXPECT_LE(v.enclosed, closedForm);
        EXPECT_GE(v.enclosed + v.surface, closedForm - meshDefect);
        EXPECT_LT(v.surface, 0.6 * formerSurface);
        EXPECT_NEAR(v.enclosed + 0.5 * v.surface, closedForm, middleShare * v.surface + meshDefect);
        formerSurface = v.surface;
    }
}

// The squared distance from p to the triangle (Ericson, Real-Time Collision Detection, 2005).
double squaredDistance(Vector const &p, Vector const &a, Vector const &b, Vector const &c)
{
    auto const toSegment = [&](Vector const &s, Vector const &e) {
        Vector const d = e - s;
        double const t = std::min(1.0, std::max(0.0, (p - s).dot(d) / d.squaredLength()));
        return (p - (s + d * t)).squaredLength();
    };
    Vector const n = (b - a).cross(c - a);
    bool const above = n.cross(b - a).dot(p - a) >= 0.0 && n.cross(c - b).dot(p - b) >= 0.0 &&
                       n.cross(a - c).dot(p - c) >= 0.0;
    if (above) {
        double const height = n.dot(p - a);
        return height * height / n.squaredLength();
    }
    return std::min(toSegment(a, b), std::min(toSegment(b, c), toSegment(c, a)));
}

// How far p lies outside of the torus or inside of it.
double torusDistance(Vector const &p, Vector const &centre, double radius, double tube)
{
    Vector const d = p - centre;
    double const ring = std::sqrt(d.x() * d.x() + d.y() * d.y()) - radius;
    return std::sqrt(ring * ring + d.z() * d.z()) - tube;
}

} // namespace

TEST(Volume, OfABoxConvergesToTheClosedForm)
{
    expectConvergence(meshes::box(Vector(1.3, 2.1, 0.7), Vector(6.45, 5.9, 7.05)),
                      5.15 * 3.8 * 6.35, 1e-12, 0.2);
}

TEST(Volume, OfASphereConvergesToTheClosedForm)
{
    Mesh const mesh = meshes::sphere(Vector(4.01, 3.98, 4.03), 2.9, 160);
    double const closedForm = 4.0 / 3.0 * meshes::pi * 2.9 * 2.9 * 2.9;
    double const defect = closedForm - meshes::enclosedVolume(mesh);
    ASSERT_GT(defect, 0.0);
    ASSERT_LT(defect, 0.001 * closedForm);
    expectConvergence(mesh, closedForm, defect, 0.05);
}

TEST(Volume, OfATorusConvergesToTheClosedForm)
{
    Mesh const mesh = meshes::torus(Vector(4.01, 3.98, 4.03), 2.2, 0.9, 120);
    double const closedForm = 2.0 * meshes::pi * meshes::pi * 2.2 * 0.9 * 0.9;
    double const defect = closedForm - meshes::enclosedVolume(mesh);
    ASSERT_GT(defect, 0.0);
    ASSERT_LT(defect, 0.002 * closedForm);
    expectConvergence(mesh, closedForm, defect, 0.05);
}

TEST(Volume, FillNeverLeaksIntoAClosedMesh)
{
    // At every resolution, cells away from the surface are outer exactly outside of the torus.
    Vector const centre(4.01, 3.98, 4.03);
    Mesh const mesh = meshes::torus(centre, 2.2, 0.9, 64);
    double const sag = 0.01; // the facets lie inside the torus by less than this
    for (double resolution : {0.5, 0.37, 0.25, 0.19, 0.11, 0.0625, 0.041}) {
        BinTreeBuilder builder(whole, resolution, content);
        meshes::addTo(builder, mesh);
        builder.findOuterArea();
        for (Node const *leaf : leaves(builder)) {
            if (leaf->boundary()) {
                continue;
            }
            Vector const m = (leaf->bounds.first + leaf->bounds.second) * 0.5;
            double const distance = torusDistance(m, centre, 2.2, 0.9);
            if (std::fabs(distance) > sag) {
                ASSERT_EQ(leaf->outer(), distance > 0.0) << "resolution " << resolution;
            }
        }
    }
}

TEST(Volume, FillNeverLeaksIntoCoarseMeshesOfAnyPlace)
{
    // Large facets that lie across many cells, in general position and along the cell planes.
    for (int round = 0; round < 40; ++round) {
        Vector const centre(4 + 0.01 * round, 4 - 0.013 * round, 4 + 0.007 * round);
        Mesh const mesh = meshes::sphere(centre, 2.0 + 0.01 * round, 3 + std::size_t(round % 4));
        double const inner = 0.7; // share of the radius that surely lies inside
        BinTreeBuilder builder(whole, 0.125, content);
        meshes::addTo(builder, mesh);
        builder.findOuterArea();
        for (Node const *leaf : leaves(builder)) {
            if (leaf->boundary()) {
                continue;
            }
            Vector const m = (leaf->bounds.first + leaf->bounds.second) * 0.5;
            double const distance = (m - centre).length() / (2.0 + 0.01 * round);
            if (distance < inner) {
                ASSERT_FALSE(leaf->outer());
            } else if (distance > 1.0) {
                ASSERT_TRUE(leaf->outer());
            }
        }
    }
}

TEST(Volume, BoundaryCellsLieWithinACellsDiagonalOfTheSurface)
{
    Mesh const mesh = meshes::torus(Vector(4.01, 3.98, 4.03), 2.2, 0.9, 10);
    BinTreeBuilder builder(whole, 0.125, content);
    meshes::addTo(builder, mesh);
    std::size_t boundaries = 0;
    for (Node const *leaf : leaves(builder)) {
        if (!leaf->boundary()) {
            continue;
        }
        Vector const diagonal = leaf->bounds.second - leaf->bounds.first;
        Vector const m = (leaf->bounds.first + leaf->bounds.second) * 0.5;
        double nearest = std::numeric_limits<double>::infinity();
        for (std::size_t t = 0; t < mesh.triangles.size(); ++t) {
            nearest = std::min(nearest, squaredDistance(m, mesh.corner(t, 0), mesh.corner(t, 1),
                                                        mesh.corner(t, 2)));
        }
        // The surface passes through the cell, so even half the diagonal holds it.
        ASSERT_LE(nearest, 0.2500001 * diagonal.squaredLength());
        ++boundaries;
    }
    EXPECT_GT(boundaries, 1000U);
}

TEST(Volume, TreeOfTenMillionNodesIsBuiltFilledAndStored)
{
    // Slanted walls through cells of 8 / 1024, one from side to side.
    BinTreeBuilder builder(whole, 8.0 / 1024.0, content);
    Vector const a(-1, -1, 2.9);
    Vector const b(9, -1, 3.7);
    Vector const c(9, 9, 4.6);
    Vector const up(0, 0, 2.1);
    builder.addTriangle(a, b, c);
    builder.addTriangle(a, c, Vector(-1, 9, 3.8));
    builder.addTriangle(a + up, b + up, c + up);
    builder.addTriangle(a - up, b - up, c - up);
    EXPECT_GE(inspection::nodeCount(builder), 10000000U);
    builder.findOuterArea();
    inspection::Volumes const v = inspection::volumes(builder);
    EXPECT_GT(v.outer, 200.0);
    EXPECT_GT(v.enclosed, 200.0);
    builder.condense();
    SimpleBitVector const bits = builder.exportBitVector();
    quint64 count = 0;
    EXPECT_TRUE(isWholeTree(BitView{bits.bytes.data()}, bits.bitCount, &count));
    EXPECT_EQ(count, leaves(builder).size());
}
