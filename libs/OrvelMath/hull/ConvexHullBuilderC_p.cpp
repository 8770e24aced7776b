#include <OrvelMath/hull/ConvexHullBuilderC_p.h>

#include <OrvelMath/hull/HullPlanar_p.h>
#include <OrvelMath/hull/HullSimplex_p.h>
#include <OrvelMath/hull/HullSolid_p.h>

ConvexHullBuilderCPrivate::ConvexHullBuilderCPrivate(ConvexHullBuilderC *publicObject)
    : PPrivateData<ConvexHullBuilderC>(publicObject)
{
}

void ConvexHullBuilderCPrivate::reset()
{
    points.clear();
    discardResults();
}

void ConvexHullBuilderCPrivate::discardResults()
{
    surface.clear();
    hullIndices.clear();
    hullDimension = -1;
}

bool ConvexHullBuilderCPrivate::buildHull(HullWay way)
{
    try {
        return build(way);
    } catch (...) {
        discardResults();
        throw;
    }
}

bool ConvexHullBuilderCPrivate::build(HullWay way)
{
    HullPoints coordinates;
    coordinates.reserve(static_cast<std::size_t>(points.size()));
    for (vectorC3d<double> const &p : qAsConst(points)) {
        coordinates.push_back(p);
    }

    std::size_t const facesBefore = surface.size();
    hullDimension = makeSimplex(surface, coordinates, way);
    std::size_t const facesMade = surface.size() - facesBefore;
    if (hullDimension == 2) {
        if (facesMade != 1) {
            return false;
        }
        hullIndices = buildPlanar(surface, coordinates, way);
    } else if (hullDimension == 3) {
        if (facesMade != 4) {
            return false;
        }
        buildSolid(surface, coordinates, way);
        surface.removeReplaced(facesBefore);
        appendHullIndices();
    }
    return true;
}

/// Appends the indices of the vertices of all faces, ascending, those of an earlier build included.
void ConvexHullBuilderCPrivate::appendHullIndices()
{
    HullVector<char> isVertex(static_cast<std::size_t>(points.size()), 0);
    for (std::size_t i = 0; i < surface.size(); ++i) {
        for (HullEdge const *edge : surface[i].edges) {
            isVertex[static_cast<std::size_t>(edge->tail)] = 1;
        }
    }
    for (int i = 0; i < points.size(); ++i) {
        if (isVertex[static_cast<std::size_t>(i)]) {
            hullIndices.append(i);
        }
    }
}
