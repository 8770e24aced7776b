#include <OrvelMath/hull/ConvexHullBuilderC.h>

#include <OrvelMath/hull/DirectionSort_p.h>
#include <OrvelMath/hull/GrahamScan_p.h>

#include <QtCore/qalgorithms.h>

#include <algorithm>
#include <cmath>

namespace {

using Points = QVector<vectorC2d<double>>;

/// Index of the lexicographically smallest point, the first of equal ones; 0 without points.
int startIndex(Points const &points)
{
    int start = 0;
    for (int i = 1; i < points.size(); ++i) {
        vectorC2d<double> const &p = points[i];
        vectorC2d<double> const &s = points[start];
        if (p.x() < s.x() || (p.x() == s.x() && p.y() < s.y())) {
            start = i;
        }
    }
    return start;
}

PolarRecord polarRecord(Points const &points, int start, int index)
{
    vectorC2d<double> const offset = points[index] - points[start];
    return {points[index], std::atan2(offset.y(), offset.x()), offset.length(), index};
}

/// Gives the scan the farthest record of each run of equal angles.
template <typename Records>
void addFarthestPerAngle(Records const &sorted, GrahamScan &scan)
{
    PolarRecord const *kept = nullptr;
    double lastAngle = -1e6;
    double lastDistance = -1.0;
    for (PolarRecord const &record : sorted) {
        // Radians. A run is measured against its first angle, not against the neighbour's.
        if (!(std::abs(lastAngle - record.angle) < 1e-8)) {
            if (kept) {
                scan.add(*kept);
            }
            lastAngle = record.angle;
        } else if (!(record.distance > lastDistance)) {
            continue;
        }
        kept = &record;
        lastDistance = record.distance;
    }
    if (kept) {
        scan.add(*kept);
    }
}

/// The hull by a sort of all records.
QList<int> hullBySorting(Points const &points, int start)
{
    QList<PolarRecord> records;
    for (int i = 0; i < points.size(); ++i) {
        // A length: what is nearer is a copy of the start.
        if (i != start && !((points[i] - points[start]).length() < 1e-8)) {
            records.append(polarRecord(points, start, i));
        }
    }
    qSort(records);

    vectorC2d<double> const origin = points.isEmpty() ? vectorC2d<double>() : points[start];
    GrahamScan scan({origin, 0.0, 0.0, start});
    addFarthestPerAngle(records, scan);
    return scan.close();
}

/// Marks the records that equal another one: which of them stays depends on the course of the sort.
/// False if such records are different points.
bool markEqualRecords(QVector<PolarRecord> &sorted)
{
    for (int i = 1; i < sorted.size(); ++i) {
        if (!(sorted.at(i - 1) < sorted.at(i))) {
            if (sorted.at(i - 1).position != sorted.at(i).position) {
                return false;
            }
            sorted[i - 1].index = GrahamScan::undecided;
            sorted[i].index = GrahamScan::undecided;
        }
    }
    return true;
}

/// The same hull by a sort of rough directions, for many points several times as fast. Angles are
/// computed where directions come close to each other. False if the hull has a corner at equal
/// records, or if a point is no number or very far away; then the course of the sort counts.
bool hullByDirections(Points const &points, int start, QList<int> &hull)
{
    DirectionSort directions;
    if (!directions.sort(points, start)) {
        return false;
    }
    GrahamScan scan({points[start], 0.0, 0.0, start});
    QVector<PolarRecord> cluster;
    for (std::size_t first = 0; first < directions.size();) {
        if (first + 16 < directions.size()) {
            __builtin_prefetch(&points[directions.index(first + 16)]);
        }
        std::size_t const end = directions.endOfCluster(first);
        if (end == first + 1) {
            int const index = directions.index(first);
            scan.add({points[index], 0.0, 0.0, index});
        } else {
            cluster.clear();
            for (std::size_t i = first; i < end; ++i) {
                cluster.append(polarRecord(points, start, directions.index(i)));
            }
            std::sort(cluster.begin(), cluster.end());
            if (!markEqualRecords(cluster)) {
                return false;
            }
            addFarthestPerAngle(cluster, scan);
        }
        first = end;
    }
    hull = scan.close();
    return !hull.contains(GrahamScan::undecided);
}

} // namespace

QList<int> ConvexHullBuilderC::computeConvexHullIndices2D(Points const &points)
{
    int const start = startIndex(points);
    QList<int> hull;
    if (points.size() >= 200 && hullByDirections(points, start, hull)) {
        return hull;
    }
    return hullBySorting(points, start);
}

Points ConvexHullBuilderC::computeConvexHull2D(Points const &points)
{
    QList<int> const indices = computeConvexHullIndices2D(points);
    Points hull;
    hull.reserve(indices.size());
    for (int index : indices) {
        hull.append(points.value(index)); // the empty input has no point 0
    }
    return hull;
}
