#pragma once

#include <OrvelCore/runtime/PPrivateData.h>
#include <OrvelMath/hull/ConvexHullBuilderC.h>
#include <OrvelMath/hull/HullFace_p.h>

/// Points, faces and result of a ConvexHullBuilderC. Owns the faces.
///
/// A face owns those of its edges that still name it as theirs; an edge of the horizon goes over to
/// the new face and outlives the old one. A replaced face stays in `faces`, without outside points,
/// until the build has ended.
class ConvexHullBuilderCPrivate : public PPrivateData<ConvexHullBuilderC>
{
public:
    explicit ConvexHullBuilderCPrivate(ConvexHullBuilderC *publicObject);
    ~ConvexHullBuilderCPrivate() override;

    void reset();
    bool buildHull();

    /// Appends the face bounded by the three edges, in this order; it takes them over.
    HullFace *makeFace(HullPoints const &coordinates, HullEdge *first, HullEdge *second,
                       HullEdge *third);

    QList<vectorC3d<double>> points;
    HullVector<HullFace *> faces; ///< in order of creation
    QList<int> hullIndices;
    int hullDimension = -1;

private:
    int computeInitialSimplex(HullPoints const &coordinates);
    void makeTetrahedron(HullPoints const &coordinates, int const (&corners)[4]);
    void buildPlanar(HullPoints const &coordinates);
    void buildSolid(HullPoints const &coordinates);
    void collectHullIndices();

    void claimEdges();
    void removeDeadFaces(std::size_t firstFace);
    void destroyFaces();
};

/// A new edge without face and twin; the face that is made from it takes it over.
HullEdge *makeHullEdge(int tail, int head);

/// Makes the two edges twins of each other.
inline void joinTwins(HullEdge *a, HullEdge *b)
{
    a->twin = b;
    b->twin = a;
}
