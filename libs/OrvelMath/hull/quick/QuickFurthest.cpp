#include <OrvelMath/hull/quick/QuickFurthest_p.h>

#include <OrvelMath/hull/quick/HullLanes_p.h>

#include <algorithm>

namespace {

using hullLanes::Doubles;
using hullLanes::LanePoints;

/// The measures of furthestFromAxis for four points.
struct AxisMeasure
{
    vectorC3d<double> start;
    vectorC3d<double> axis;

    ORVEL_INLINE void operator()(Doubles &measure, LanePoints const &p) const
    {
        LanePoints w{start.x() - p.x, start.y() - p.y, start.z() - p.z};
        Doubles t;
        hullLanes::dot(t, w, axis);
        t = t < 0.0 ? -t : t;
        w.x += axis.x() * t;
        w.y += axis.y() * t;
        w.z += axis.z() * t;
        measure = 0.0 + w.x * w.x + w.y * w.y + w.z * w.z;
    }
};

/// The measures of furthestFromPlane for four points.
struct PlaneMeasure
{
    vectorC3d<double> start;
    vectorC3d<double> normal;

    ORVEL_INLINE void operator()(Doubles &measure, LanePoints const &p) const
    {
        LanePoints const w{start.x() - p.x, start.y() - p.y, start.z() - p.z};
        hullLanes::dot(measure, w, normal);
        measure = measure < 0.0 ? -measure : measure;
    }
};

template <typename Measure>
ORVEL_INLINE Furthest findFurthest(HullPoints const &points, Measure const &measure)
{
    constexpr std::size_t width = hullLanes::width;
    Furthest furthest{0.0, 0, measure.start};
    for (std::size_t i = 0; i < points.size(); i += width) {
        vectorC3d<double> tail[width]; // the last points, filled up
        std::size_t const count = std::min(points.size() - i, width);
        bool const whole = count == width;
        if (!whole) {
            std::copy_n(points.data() + i, count, tail);
        }
        LanePoints lanes = {};
        hullLanes::loadPoints(lanes, whole ? points.data() + i : tail);
        Doubles measures;
        measure(measures, lanes);
        if (hullLanes::FourDoubles::any(measures >= furthest.measure)) {
            for (std::size_t k = 0; k < count; ++k) {
                furthest.offer(measures[k], i + k, points[i + k]);
            }
        }
    }
    return furthest;
}

template <typename Measure>
ORVEL_TARGET("avx2")
Furthest findFurthestWide(HullPoints const &points, Measure const &measure)
{
    return findFurthest(points, measure);
}

template <typename Measure>
Furthest furthestBy(Measure const &measure, HullPoints const &points)
{
    return hullLanes::registersAreWide() ? findFurthestWide(points, measure)
                                         : findFurthest(points, measure);
}

} // namespace

Furthest quickFurthestFromAxis(HullPoints const &points, vectorC3d<double> const &start,
                               vectorC3d<double> const &axis)
{
    return furthestBy(AxisMeasure{start, axis}, points);
}

Furthest quickFurthestFromPlane(HullPoints const &points, vectorC3d<double> const &start,
                                vectorC3d<double> const &normal)
{
    return furthestBy(PlaneMeasure{start, normal}, points);
}
