#include "HullBench.h"

#if defined(ORVEL_HAVE_BOOST)

#include <boost/geometry.hpp>
#include <boost/geometry/geometries/geometries.hpp>

namespace {

void withBoost(benchmark::State &state, std::vector<Point2> const &cloud)
{
    using Point = boost::geometry::model::d2::point_xy<double>;
    boost::geometry::model::multi_point<Point> points;
    for (Point2 const &p : cloud) {
        points.emplace_back(p[0], p[1]);
    }
    measureBuild(state, [&points] {
        boost::geometry::model::polygon<Point> hull;
        boost::geometry::convex_hull(points, hull);
        return hull;
    });
}

bool const registeredBoost = (forPlaneClouds("boost", withBoost), true);

} // namespace

#endif

#if defined(ORVEL_HAVE_GEOS)

#include <geos/algorithm/ConvexHull.h>
#include <geos/geom/CoordinateArraySequence.h>
#include <geos/geom/CoordinateSequenceFactory.h>
#include <geos/geom/Geometry.h>
#include <geos/geom/GeometryFactory.h>
#include <geos/geom/LineString.h>

namespace {

void withGeos(benchmark::State &state, std::vector<Point2> const &cloud)
{
    std::vector<geos::geom::Coordinate> coordinates;
    for (Point2 const &p : cloud) {
        coordinates.emplace_back(p[0], p[1]);
    }
    auto const factory = geos::geom::GeometryFactory::create();
    auto const line = factory->createLineString(
        std::make_unique<geos::geom::CoordinateArraySequence>(std::move(coordinates)));
    measureBuild(state, [&line] {
        geos::algorithm::ConvexHull hull(line.get());
        return hull.getConvexHull();
    });
}

bool const registeredGeos = (forPlaneClouds("geos", withGeos), true);

} // namespace

#endif
