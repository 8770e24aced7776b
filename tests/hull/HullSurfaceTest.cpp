#include "HullDefinition.h"

#include "support/AllocationCount.h"

#include <OrvelMath/hull/HullSimplex_p.h>
#include <OrvelMath/hull/HullSolid_p.h>
#include <OrvelMath/hull/HullSurface_p.h>

#include <gtest/gtest.h>

#include <set>

namespace {

/// Ten points of a flake 3e-8 thick. Some of its faces are seen from a point, others beside them
/// are not, and the horizon misses a part of the boundary: a face that is replaced is met again,
/// and an edge of a face that stays goes over to a new one.
Points3 tornFlake()
{
    return {{0x1.be8fdc0a3f587p-12, 0x1.3fe1cd19e39bep-11, 0x1.29fd7653f64acp-27},
            {-0x1.b687ce0e8180ep-12, 0x1.6ca37f78a9d64p-11, -0x1.b61c3e902b386p-28},
            {-0x1.02f78fadc2821p-10, -0x1.c6c243c5a9085p-14, 0x1.3a816ba7ee9p-33},
            {0x1.efe46a733271dp-12, 0x1.cda5acf949ce6p-11, 0x1.ba21ac22ec2ap-32},
            {0x1.ef0ab34aa5fbcp-11, 0x1.2e7d08033e079p-12, -0x1.b575b8963dfp-30},
            {0x1.ee6be140c52bp-13, -0x1.0eed4d2d14a3ap-10, 0x1.f668ae98463dep-29},
            {0x1.322d897cb4f59p-11, 0x1.7841f36667f32p-11, -0x1.e57ce4f9f75d5p-29},
            {-0x1.18687e944c89ap-11, 0x1.a438d7838a7e2p-11, 0x1.cd10270d1b4ap-29},
            {0x1.b0541b542847bp-14, 0x1.0547cedb25c04p-10, 0x1.0ec8c4d15ae9dp-34},
            {0x1.630ddd49e51b3p-11, 0x1.208a22a6a4637p-11, -0x1.a4f264eaed03bp-28}};
}

HullPoints coordinatesOf(Points3 const &points)
{
    HullPoints coordinates;
    for (vectorC3d<double> const &p : points) {
        coordinates.push_back(p);
    }
    return coordinates;
}

/// Edges of live faces that name another face as theirs.
int lostEdges(HullSurface const &surface)
{
    int lost = 0;
    for (unsigned i = 0; i < surface.size(); ++i) {
        if (HullFace const *const face = surface.liveFace(i)) {
            for (HullEdge const *edge : face->edges) {
                lost += edge->face != face;
            }
        }
    }
    return lost;
}

} // namespace

TEST(HullSurface, AFaceIsACycleOfEdges)
{
    HullSurface surface;
    HullPoints const points = coordinatesOf({{0, 0, 0}, {2, 0, 0}, {0, 3, 0}, {0, 0, 1}});
    HullFace *const face = surface.makeTriangle(points, 2, 0, 1);
    int const expected[3][2] = {{2, 0}, {0, 1}, {1, 2}};
    for (int i = 0; i < 3; ++i) {
        HullEdge const *const edge = face->edges[i];
        EXPECT_EQ(expected[i][0], edge->tail);
        EXPECT_EQ(expected[i][1], edge->head);
        EXPECT_EQ(face->edges[(i + 1) % 3], edge->next);
        EXPECT_EQ(face->edges[(i + 2) % 3], edge->prev);
        EXPECT_EQ(face, edge->face);
        EXPECT_EQ(nullptr, edge->twin);
    }
    EXPECT_EQ(vectorC3d<double>(0, 0, 1), face->normal);
    EXPECT_EQ(-1, face->furthestPoint);
    EXPECT_EQ(0.0, face->furthestDistance);
    EXPECT_TRUE(face->alive);
}

TEST(HullSurface, AFanFaceTakesItsBaseOver)
{
    HullSurface surface;
    HullPoints const points = coordinatesOf({{0, 0, 0}, {2, 0, 0}, {0, 3, 0}, {0, 0, 1}});
    HullFace const *const old = surface.makeTriangle(points, 0, 1, 2);
    HullEdge *const base = old->edges[1];
    HullFace const *const face = surface.makeFanTriangle(points, base, 3);
    EXPECT_EQ(base, face->edges[0]);
    EXPECT_EQ(face, base->face);
    EXPECT_EQ(2, face->edges[1]->tail);
    EXPECT_EQ(3, face->edges[1]->head);
    EXPECT_EQ(3, face->edges[2]->tail);
    EXPECT_EQ(1, face->edges[2]->head);
    EXPECT_EQ(2u, surface.size());
}

TEST(HullSurface, ARecycledFaceGivesItsMemoryToTheNext)
{
    HullSurface surface;
    HullPoints const points = coordinatesOf({{0, 0, 0}, {2, 0, 0}, {0, 3, 0}, {0, 0, 1}});
    HullFace *const old = surface.makeTriangle(points, 0, 1, 2);
    std::set<HullEdge const *> const edges(old->edges, old->edges + 3);
    old->furthestPoint = 3;
    old->alive = false;
    surface.recycle(old);
    EXPECT_EQ(nullptr, surface.liveFace(0));
    HullFace const *const face = surface.makeTriangle(points, 1, 2, 3);
    EXPECT_EQ(old, face);
    EXPECT_EQ(edges, std::set<HullEdge const *>(face->edges, face->edges + 3));
    EXPECT_EQ(-1, face->furthestPoint);
    EXPECT_TRUE(face->alive);
    EXPECT_EQ(nullptr, surface.liveFace(0));
    EXPECT_EQ(face, surface.liveFace(1));
    surface.removeReplaced(0);
    ASSERT_EQ(1u, surface.size());
    EXPECT_EQ(face, &surface[0]);
}

TEST(HullSurface, EachFaceOfATornSurfaceGetsItsEdgesBack)
{
    long const before = support::livingAllocations();
    {
        HullPoints const points = coordinatesOf(tornFlake());
        HullSurface surface;
        ASSERT_EQ(3, makeSimplex(surface, points, HullWay::Quick));
        buildSolid(surface, points, HullWay::Quick);
        EXPECT_LT(0, lostEdges(surface));
        surface.removeReplaced(0);
        // Two live faces can share an edge; then it is the later one's.
        for (unsigned i = 0; i < surface.size(); ++i) {
            for (HullEdge const *edge : surface[i].edges) {
                HullEdge *const *const owned = edge->face->edges;
                EXPECT_EQ(1, std::count(owned, owned + 3, edge));
                EXPECT_TRUE(edge->face->alive);
            }
        }
    }
    EXPECT_EQ(before, support::livingAllocations());
}

TEST(HullSurface, ATornSurfaceIsAsDefined)
{
    expectAsDefined(tornFlake(), "torn flake");
    DefinedHull const hull(tornFlake());
    EXPECT_EQ(3, hull.dimension());
}

TEST(HullSurface, AWholeSurfaceLeavesNoReplacedFace)
{
    for (Cloud kind : {Cloud::Ball, Cloud::Sphere, Cloud::Grid}) {
        HullPoints const points = coordinatesOf(makeCloud(kind, 500, 2));
        HullSurface surface;
        ASSERT_EQ(3, makeSimplex(surface, points, HullWay::Quick));
        buildSolid(surface, points, HullWay::Quick);
        for (unsigned i = 0; i < surface.size(); ++i) {
            EXPECT_EQ(surface.place(i), surface.liveFace(i)) << i; // both null where recycled
        }
        EXPECT_EQ(0, lostEdges(surface));
    }
}
