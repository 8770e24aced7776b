#include <OrvelMath/hull/quick/QuickPolygon_p.h>

#include <OrvelMath/hull/GrahamScan_p.h>
#include <OrvelMath/hull/quick/DirectionSort_p.h>
#include <OrvelMath/hull/quick/SortReplay_p.h>

#include <algorithm>
#include <vector>

namespace {

using Points = QVector<vectorC2d<double>>;

/// Marks the index of a record that equals another one: which of them stays depends on the course
/// of the sort. Any of them will do until the corners are known.
constexpr int tied(int index)
{
    return index < 0 ? index : ~index;
}

/// Marks the records that equal another one. False if such records are different points.
bool markEqualRecords(QVector<PolarRecord> &sorted)
{
    for (int i = 1; i < sorted.size(); ++i) {
        if (!(sorted.at(i - 1) < sorted.at(i))) {
            if (sorted.at(i - 1).position != sorted.at(i).position) {
                return false;
            }
            sorted[i - 1].index = tied(sorted.at(i - 1).index);
            sorted[i].index = tied(sorted.at(i).index);
        }
    }
    return true;
}

/// Appends the record of the point, or marks the last record if the point is a copy of it.
void appendRecord(QVector<PolarRecord> &cluster, Points const &points, int start, int index)
{
    if (!cluster.isEmpty() && cluster.last().position == points[index]) {
        cluster.last().index = tied(cluster.last().index);
    } else {
        cluster.append(polarRecord(points, start, index));
    }
}

/// Replaces each marked corner by the one of its equals that the sort puts first.
void resolveTies(Points const &points, int start, DirectionSort const &directions,
                 QList<int> &corners)
{
    std::vector<int> wanted;
    for (int corner : qAsConst(corners)) {
        if (corner < 0) {
            wanted.push_back(~corner);
        }
    }
    if (wanted.empty()) {
        return;
    }
    std::vector<int> const found = SortReplay(points, start, directions).firstOfEqual(wanted);
    auto next = found.begin();
    for (int &corner : corners) {
        if (corner < 0) {
            corner = *next++;
        }
    }
}

/// Gives the scan the farthest point of a cluster whose angles all lie within 1e-8 radians: they
/// are one run, whatever their order. False if different points are the farthest; then their order
/// counts.
bool addFarthest(Points const &points, int start, DirectionSort const &directions,
                 std::size_t first, std::size_t end, GrahamScan &scan)
{
    vectorC2d<double> const origin = points[start];
    vectorC2d<double> farthest = directions[first].position();
    int farthestIndex = directions[first].index;
    double distance = (farthest - origin).length();
    for (std::size_t i = first + 1; i < end; ++i) {
        vectorC2d<double> const p = directions[i].position();
        double const other = (p - origin).length();
        if (other > distance) {
            farthest = p;
            farthestIndex = directions[i].index;
            distance = other;
        } else if (other == distance) {
            if (p != farthest) {
                return false;
            }
            farthestIndex = tied(farthestIndex);
        }
    }
    scan.add(farthest, farthestIndex);
    return true;
}

/// Gives the scan the farthest points of a cluster by their angles. False if different points have
/// equal records.
bool addByAngle(Points const &points, int start, DirectionSort const &directions, std::size_t first,
                std::size_t end, GrahamScan &scan)
{
    QVector<PolarRecord> cluster;
    for (std::size_t i = first; i < end; ++i) {
        appendRecord(cluster, points, start, directions[i].index);
    }
    std::sort(cluster.begin(), cluster.end());
    if (!markEqualRecords(cluster)) {
        return false;
    }
    addFarthestPerAngle(cluster, scan);
    return true;
}

/// Gives the scan the points whose directions are sorted. False if different points have equal
/// records.
bool addByDirection(Points const &points, int start, DirectionSort const &directions,
                    GrahamScan &scan)
{
    std::size_t end;
    for (std::size_t first = 0; first < directions.size(); first = end) {
        end = directions.endOfCluster(first);
        if (end == first + 1) {
            scan.add(directions[first].position(), directions[first].index);
            continue;
        }
        bool const isOneRun = directions[end - 1].direction - directions[first].direction <=
                              DirectionSort::oneRunSteps;
        if (!(isOneRun && addFarthest(points, start, directions, first, end, scan)) &&
            !addByAngle(points, start, directions, first, end, scan)) {
            return false;
        }
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
    GrahamScan scan(points[start], start);
    if (!addByDirection(points, start, directions, scan)) {
        return false;
    }
    hull = scan.close();
    resolveTies(points, start, directions, hull);
    return true;
}
