#include <OrvelMath/hull/quick/QuickPolygon_p.h>

#include <OrvelMath/hull/GrahamScan_p.h>
#include <OrvelMath/hull/quick/DirectionSort_p.h>

#include <algorithm>

namespace {

using Points = QVector<vectorC2d<double>>;

/// Index of a record of which only the position is known.
constexpr int undecided = -1;

/// How many points ahead one is fetched: far enough for the memory, and still in the nearest cache
/// when its turn comes.
constexpr std::size_t fetchDistance = 16;

/// Marks the records that equal another one: which of them stays depends on the course of the sort.
/// False if such records are different points.
bool markEqualRecords(QVector<PolarRecord> &sorted)
{
    for (int i = 1; i < sorted.size(); ++i) {
        if (!(sorted.at(i - 1) < sorted.at(i))) {
            if (sorted.at(i - 1).position != sorted.at(i).position) {
                return false;
            }
            sorted[i - 1].index = undecided;
            sorted[i].index = undecided;
        }
    }
    return true;
}

/// Gives the scan the points whose directions are sorted. False if different points have equal
/// records.
bool addByDirection(Points const &points, int start, DirectionSort const &directions,
                    GrahamScan &scan)
{
    QVector<PolarRecord> cluster;
    for (std::size_t first = 0; first < directions.size();) {
        if (first + fetchDistance < directions.size()) {
            __builtin_prefetch(&points[directions.index(first + fetchDistance)]);
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
    return true;
}

} // namespace

bool quickPolygon(Points const &points, int start, QList<int> &hull)
{
    DirectionSort directions;
    if (!directions.sort(points, start)) {
        return false;
    }
    GrahamScan scan({points[start], 0.0, 0.0, start});
    if (!addByDirection(points, start, directions, scan)) {
        return false;
    }
    QList<int> const corners = scan.close();
    if (corners.contains(undecided)) {
        return false;
    }
    hull = corners;
    return true;
}
