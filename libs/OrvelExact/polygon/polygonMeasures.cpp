#include <OrvelExact/polygon/polygonMeasures.h>

#include <OrvelExact/base/CompensatedSum_p.h>
#include <OrvelExact/predicates/Expansion_p.h>
#include <OrvelExact/predicates/orientation.h>

#include <algorithm>
#include <cmath>

namespace orvelExact {

namespace {

constexpr double largestComponent = 1e150; // its square is far from overflow

/// A sum in twice the digits of a double.
class WideSum
{
public:
    void add(double value)
    {
        DoublePair const sum = twoSum(m_sum.high, value);
        m_sum = fastTwoSum(sum.high, sum.low + m_sum.low);
    }
    double value() const { return m_sum.high + m_sum.low; }

private:
    DoublePair m_sum{0.0, 0.0};
};

Status statusOf(QVector<Point2> const &polygon)
{
    bool isLarge = false;
    for (Point2 const &p : polygon) {
        if (!isFinite(p)) {
            return Status::NotFinite;
        }
        isLarge =
            isLarge || std::fabs(p.x()) > largestComponent || std::fabs(p.y()) > largestComponent;
    }
    return isLarge ? Status::OutOfRange : Status::Ok;
}

Point2 const &after(QVector<Point2> const &polygon, int i)
{
    return polygon.at(i + 1 == polygon.size() ? 0 : i + 1);
}

bool precedes(Point2 const &a, Point2 const &b)
{
    return a.x() != b.x() ? a.x() < b.x() : a.y() < b.y();
}

/// The next corner in a direction that differs from corner i, or i itself if all are equal.
int differentCorner(QVector<Point2> const &polygon, int i, int step)
{
    int const n = polygon.size();
    for (int k = (i + step) % n; k != i; k = (k + step) % n) {
        if (polygon.at(k) != polygon.at(i)) {
            return k;
        }
    }
    return i;
}

} // namespace

PolygonArea polygonArea(QVector<Point2> const &polygon)
{
    PolygonArea area{statusOf(polygon), 0.0};
    if (area.status != Status::Ok || polygon.size() < 3) {
        return area;
    }
    WideSum sum;
    for (int i = 0; i < polygon.size(); ++i) {
        Point2 const &a = polygon.at(i);
        Point2 const &b = after(polygon, i);
        DoublePair const left = twoProduct(a.x(), b.y());
        DoublePair const right = twoProduct(a.y(), b.x());
        sum.add(left.high);
        sum.add(-right.high);
        sum.add(left.low);
        sum.add(-right.low);
    }
    area.value = 0.5 * sum.value();
    return area;
}

Sign polygonSense(QVector<Point2> const &polygon)
{
    if (!areFinite(polygon)) {
        return Sign::NotFinite;
    }
    if (polygon.size() < 3) {
        return Sign::Zero;
    }
    int lowest = 0;
    for (int i = 1; i < polygon.size(); ++i) {
        lowest = precedes(polygon.at(i), polygon.at(lowest)) ? i : lowest;
    }
    int const before = differentCorner(polygon, lowest, polygon.size() - 1);
    int const behind = differentCorner(polygon, lowest, 1);
    return orientation2d(polygon.at(before), polygon.at(lowest), polygon.at(behind));
}

PolygonCentroid polygonCentroid(QVector<Point2> const &polygon)
{
    PolygonArea const area = polygonArea(polygon);
    PolygonCentroid centroid{area.status, {}};
    if (area.status == Status::Ok && area.value == 0.0) {
        centroid.status = Status::Degenerate;
    }
    if (centroid.status != Status::Ok) {
        return centroid;
    }
    // Moments are products of three lengths: the lengths are scaled by a power of two.
    Box2 const box = polygonBox(polygon).box;
    Point2 const extent = box.maximum - box.minimum;
    double const scale =
        std::ldexp(1.0, std::clamp(std::ilogb(std::max(extent.x(), extent.y())), -1000, 1000));
    Point2 const origin = polygon.first();
    CompensatedSum weight;
    CompensatedSum moment[2];
    for (int i = 0; i < polygon.size(); ++i) {
        Point2 const a = (polygon.at(i) - origin) / scale;
        Point2 const b = (after(polygon, i) - origin) / scale;
        double const doubled = a.x() * b.y() - a.y() * b.x();
        weight.add(doubled);
        moment[0].add(doubled * (a.x() + b.x()));
        moment[1].add(doubled * (a.y() + b.y()));
    }
    double const factor = scale / (3.0 * weight.value());
    centroid.point = origin + Point2(moment[0].value() * factor, moment[1].value() * factor);
    return centroid;
}

PolygonBox polygonBox(QVector<Point2> const &polygon)
{
    PolygonBox result;
    if (polygon.isEmpty()) {
        result.status = Status::Empty;
        return result;
    }
    if (!areFinite(polygon)) {
        result.status = Status::NotFinite;
        return result;
    }
    result.box = {polygon.first(), polygon.first()};
    for (Point2 const &p : polygon) {
        for (int k = 0; k < 2; ++k) {
            result.box.minimum[k] = std::min(result.box.minimum[k], p[k]);
            result.box.maximum[k] = std::max(result.box.maximum[k], p[k]);
        }
    }
    return result;
}

} // namespace orvelExact
