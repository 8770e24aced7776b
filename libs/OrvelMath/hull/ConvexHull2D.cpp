#include <OrvelMath/hull/ConvexHullBuilderC.h>

#include <OrvelMath/hull/GrahamScan_p.h>

#include <QtCore/qalgorithms.h>

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

QList<PolarRecord> polarRecords(Points const &points, int start)
{
    QList<PolarRecord> records;
    for (int i = 0; i < points.size(); ++i) {
        if (i == start) {
            continue;
        }
        vectorC2d<double> const offset = points[i] - points[start];
        double const distance = offset.length();
        if (distance < 1e-8) { // a length: a copy of the start
            continue;
        }
        records.append({points[i], std::atan2(offset.y(), offset.x()), distance, i});
    }
    return records;
}

/// Gives the scan the farthest record of each run of equal angles.
void addFarthestPerAngle(QList<PolarRecord> const &sorted, GrahamScan &scan)
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

} // namespace

QList<int> ConvexHullBuilderC::computeConvexHullIndices2D(Points const &points)
{
    int const start = startIndex(points);
    QList<PolarRecord> records = polarRecords(points, start);
    qSort(records);

    vectorC2d<double> const origin = points.isEmpty() ? vectorC2d<double>() : points[start];
    GrahamScan scan({origin, 0.0, 0.0, start});
    addFarthestPerAngle(records, scan);

    QVector<PolarRecord> const &stack = scan.close();
    QList<int> indices;
    indices.reserve(stack.size());
    // The last entry is the start once more, which closed the polygon.
    for (int i = 0; i + 1 < stack.size(); ++i) {
        indices.append(stack[i].index);
    }
    return indices;
}

Points ConvexHullBuilderC::computeConvexHull2D(Points const &points)
{
    QList<int> const indices = computeConvexHullIndices2D(points);
    Points hull;
    hull.reserve(indices.size());
    for (int index : indices) {
        if (index < points.size()) { // the empty input has no point 0
            hull.append(points[index]);
        }
    }
    return hull;
}
