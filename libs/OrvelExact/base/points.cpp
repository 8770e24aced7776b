#include <OrvelExact/base/points.h>

namespace orvelExact {

namespace {

template <typename Point>
bool allFinite(QVector<Point> const &points)
{
    for (Point const &p : points) {
        if (!isFinite(p)) {
            return false;
        }
    }
    return true;
}

} // namespace

bool areFinite(QVector<Point2> const &points)
{
    return allFinite(points);
}

bool areFinite(QVector<Point3> const &points)
{
    return allFinite(points);
}

} // namespace orvelExact
