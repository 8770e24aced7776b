#include "HullBench.h"

#include <OrvelMath/hull/ConvexHullBuilderC.h>

#include <memory>

namespace {

void inSpace(benchmark::State &state, std::vector<Point3> const &cloud)
{
    QList<vectorC3d<double>> points;
    for (Point3 const &p : cloud) {
        points.append({p[0], p[1], p[2]});
    }
    measureBuild(state, [&points] {
        auto builder = std::make_unique<ConvexHullBuilderC>(points);
        builder->buildHull();
        return builder;
    });
}

void inThePlane(benchmark::State &state, std::vector<Point2> const &cloud)
{
    QVector<vectorC2d<double>> points;
    for (Point2 const &p : cloud) {
        points.append({p[0], p[1]});
    }
    measureBuild(state,
                 [&points] { return ConvexHullBuilderC::computeConvexHullIndices2D(points); });
}

bool const registered =
    (forSpaceClouds("orvel", inSpace), forPlaneClouds("orvel", inThePlane), true);

} // namespace
