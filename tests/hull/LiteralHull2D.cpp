#include "LiteralHull.h"

#include <QtCore/qalgorithms.h>

#include <cmath>

namespace {

struct Record
{
    vectorC2d<double> position;
    double angle;
    double distance;
    int index;

    bool operator<(Record const &o) const
    {
        if (angle == o.angle) {
            return distance < o.distance;
        }
        return angle < o.angle;
    }
};

} // namespace

QList<int> literalHull2D(QVector<vectorC2d<double>> const &points)
{
    int start = 0;
    for (int i = 1; i < points.size(); ++i) {
        if (points[i].x() < points[start].x() ||
            (points[i].x() == points[start].x() && points[i].y() < points[start].y())) {
            start = i;
        }
    }
    vectorC2d<double> const origin = points.isEmpty() ? vectorC2d<double>() : points[start];

    QList<Record> records;
    for (int i = 0; i < points.size(); ++i) {
        if (i != start) {
            vectorC2d<double> const d = points[i] - origin;
            double const r = d.length();
            if (!(r < 1e-8)) {
                records.append({points[i], std::atan2(d.y(), d.x()), r, i});
            }
        }
    }
    qSort(records.begin(), records.end());

    QList<Record> kept;
    double lastAngle = -1e6;
    double lastDistance = -1.0;
    for (int i = 0; i < records.size(); ++i) {
        Record const &record = records[i];
        if (!(std::fabs(lastAngle - record.angle) < 1e-8)) {
            lastAngle = record.angle;
            lastDistance = record.distance;
            kept.append(record);
        } else if (record.distance > lastDistance) {
            lastDistance = record.distance;
            kept.removeLast();
            kept.append(record);
        }
    }
    Record const closing{origin, 0.0, 0.0, start};
    kept.append(closing);

    QVector<Record> stack;
    stack.append(closing);
    stack.append(kept[0]);
    int const m = kept.size();
    int i = 1;
    while (m >= 2 && stack.size() >= 2 && i < m) {
        vectorC2d<double> const a = stack[stack.size() - 2].position;
        vectorC2d<double> const b = stack[stack.size() - 1].position;
        vectorC2d<double> const p = kept[i].position;
        double const turn = (a.y() - p.y()) * (b.x() - p.x()) - (b.y() - p.y()) * (a.x() - p.x());
        if (turn < 0.0) {
            stack.append(kept[i]);
            ++i;
        } else {
            stack.removeLast();
        }
    }
    QList<int> result;
    for (int k = 0; k < stack.size() - 1; ++k) {
        result.append(stack[k].index);
    }
    return result;
}
