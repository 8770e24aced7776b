#pragma once

/// @file
/// The hulls by their definition, with every shortcut off.

#include "HullTestSupport.h"

#include <OrvelMath/hull/ConvexHullBuilderC_p.h>
#include <OrvelMath/hull/HullPolygon_p.h>

#include <string>

inline QList<int> definedPolygon(Points2 const &points)
{
    return hullPolygon(points, HullWay::Definition);
}

/// The hull in space by its definition.
class DefinedHull
{
public:
    explicit DefinedHull(Points3 const &points)
        : m_hull(nullptr)
    {
        m_hull.points = points;
        m_built = m_hull.buildHull(HullWay::Definition);
    }

    bool built() const { return m_built; }
    int dimension() const { return m_hull.hullDimension; }
    QList<int> indices() const { return m_hull.hullIndices; }
    int triangleCount() const { return static_cast<int>(m_hull.surface.size()); }
    HullTriangle triangle(int number) const
    {
        HullFace const &face = m_hull.surface[static_cast<std::size_t>(number)];
        auto const corner = [&](int i) { return m_hull.points.at(face.edges[i]->tail); };
        return {corner(0), corner(1), corner(2), face.normal};
    }

private:
    ConvexHullBuilderCPrivate m_hull;
    bool m_built;
};

/// The library's hull and the one by definition, compared bit by bit.
inline void expectAsDefined(Points3 const &points, std::string const &what)
{
    DefinedHull const expected(points);
    ConvexHullBuilderC builder(points);
    ASSERT_TRUE(expected.built() && builder.buildHull()) << what;
    ASSERT_EQ(expected.dimension(), builder.dimension()) << what;
    ASSERT_EQ(expected.indices(), builder.hullVertexIndices()) << what;
    ASSERT_EQ(expected.triangleCount(), builder.triangleCount()) << what;
    std::vector<HullTriangle> const triangles = trianglesOf(builder);
    for (int i = 0; i < expected.triangleCount(); ++i) {
        HullTriangle const e = expected.triangle(i);
        HullTriangle const &t = triangles[static_cast<std::size_t>(i)];
        ASSERT_TRUE(SameBits(e.a, t.a)) << what << ", triangle " << i;
        ASSERT_TRUE(SameBits(e.b, t.b)) << what << ", triangle " << i;
        ASSERT_TRUE(SameBits(e.c, t.c)) << what << ", triangle " << i;
        ASSERT_TRUE(SameBits(e.normal, t.normal)) << what << ", triangle " << i;
    }
}
