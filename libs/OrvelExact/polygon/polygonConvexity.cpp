#include <OrvelExact/polygon/polygonShape.h>

#include <OrvelExact/predicates/orientation.h>

namespace orvelExact {

namespace {

bool precedes(Point2 const &a, Point2 const &b)
{
    return a.x() != b.x() ? a.x() < b.x() : a.y() < b.y();
}

QVector<Point2> withoutRepeated(QVector<Point2> const &polygon)
{
    QVector<Point2> result;
    for (Point2 const &p : polygon) {
        if (result.isEmpty() || result.last() != p) {
            result.append(p);
        }
    }
    while (result.size() > 1 && result.last() == result.first()) {
        result.removeLast();
    }
    return result;
}

} // namespace

/// All turns to one side, and once from left to right and back: that is one turn around.
PolygonConvexity polygonConvexity(QVector<Point2> const &polygon)
{
    PolygonConvexity result;
    if (!areFinite(polygon)) {
        result.status = Status::NotFinite;
        return result;
    }
    QVector<Point2> const corners = withoutRepeated(polygon);
    int const n = corners.size();
    Sign sense = Sign::Zero;
    int reversals = 0;
    for (int i = 0; i < n; ++i) {
        Point2 const &a = corners.at(i);
        Point2 const &b = corners.at((i + 1) % n);
        Point2 const &c = corners.at((i + 2) % n);
        Sign const turn = orientation2d(a, b, c);
        bool const isReversal = precedes(a, b) != precedes(b, c);
        if ((turn == Sign::Zero && isReversal) || (turn != Sign::Zero && turn == opposite(sense))) {
            return result;
        }
        sense = turn == Sign::Zero ? sense : turn;
        reversals += isReversal ? 1 : 0;
    }
    result.isConvex = n >= 3 && sense != Sign::Zero && reversals == 2;
    result.sense = result.isConvex ? sense : Sign::Zero;
    return result;
}

} // namespace orvelExact
