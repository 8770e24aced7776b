#include <OrvelMath/hull/HullPolygon_p.h>

#include <OrvelMath/hull/GrahamScan_p.h>
#include <OrvelMath/hull/quick/QuickPolygon_p.h>

#include <QtCore/qalgorithms.h>

namespace {

using Points = QVector<vectorC2d<double>>;

/// Fewer points are sorted faster by their angles: the other sort has tables to fill.
constexpr int manyPoints = 200;

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

/// The records of all points but the start and its copies, by angle and distance.
QList<PolarRecord> sortedRecords(Points const &points, int start)
{
    QList<PolarRecord> records;
    for (int i = 0; i < points.size(); ++i) {
        if (i != start && !isCopyOfStart(points[i] - points[start])) {
            records.append(polarRecord(points, start, i));
        }
    }
    // Of points that coincide, the one that this very sort puts first is reported; std::sort puts
    // another one first.
    qSort(records);
    return records;
}

} // namespace

QList<int> hullPolygon(Points const &points, HullWay way)
{
    int const start = startIndex(points);
    if (way == HullWay::Quick && points.size() >= manyPoints) {
        QList<int> hull;
        if (quickPolygon(points, start, hull)) {
            return hull;
        }
    }
    vectorC2d<double> const origin = points.isEmpty() ? vectorC2d<double>() : points[start];
    GrahamScan scan(origin, start);
    addFarthestPerAngle(sortedRecords(points, start), scan);
    return scan.close();
}
