#pragma once

/// @file
/// What a ConvexHullBuilderC holds.

#include <OrvelCore/runtime/PPrivateData.h>
#include <OrvelMath/hull/ConvexHullBuilderC.h>
#include <OrvelMath/hull/HullSurface_p.h>
#include <OrvelMath/hull/HullWay_p.h>

/// Points and results of a ConvexHullBuilderC.
class ConvexHullBuilderCPrivate : public PPrivateData<ConvexHullBuilderC>
{
public:
    explicit ConvexHullBuilderCPrivate(ConvexHullBuilderC *publicObject);

    void reset();
    /// Builds the hull. If memory runs out, the points stay and all results go.
    bool buildHull(HullWay way = HullWay::Quick);

    QList<vectorC3d<double>> points;
    HullSurface surface;
    QList<int> hullIndices;
    int hullDimension = -1;

private:
    void discardResults();
    bool build(HullWay way);
    void appendHullIndices();
};
