#include <OrvelMath/hull/ConvexHullBuilderC_p.h>

ConvexHullBuilderCPrivate::ConvexHullBuilderCPrivate(ConvexHullBuilderC *publicObject)
    : PPrivateData<ConvexHullBuilderC>(publicObject)
{
}

ConvexHullBuilderCPrivate::~ConvexHullBuilderCPrivate()
{
    destroyFaces();
}

void ConvexHullBuilderCPrivate::reset()
{
    points.clear();
    destroyFaces();
    hullIndices.clear();
    hullDimension = -1;
}

bool ConvexHullBuilderCPrivate::buildHull()
{
    HullPoints coordinates;
    coordinates.reserve(static_cast<std::size_t>(points.size()));
    for (vectorC3d<double> const &p : qAsConst(points)) {
        coordinates.push_back(p);
    }

    std::size_t const facesBefore = faces.size();
    hullDimension = computeInitialSimplex(coordinates);
    std::size_t const facesMade = faces.size() - facesBefore;
    if (hullDimension == 2) {
        if (facesMade != 1) {
            return false;
        }
        buildPlanar(coordinates);
    } else if (hullDimension == 3) {
        if (facesMade != 4) {
            return false;
        }
        buildSolid(coordinates);
        // Large blocks come and go before the many small ones are freed: the allocator then has no
        // cause to put the small ones together one by one.
        collectHullIndices();
        coordinates = HullPoints();
        removeDeadFaces(facesBefore);
    }
    return true;
}
