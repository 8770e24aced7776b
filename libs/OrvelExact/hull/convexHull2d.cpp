#include <OrvelExact/hull/convexHull2d.h>

#include <OrvelExact/predicates/orientation.h>

#include <algorithm>
#include <vector>

namespace orvelExact {

namespace {

struct Candidate
{
    Point2 position;
    int index;

    bool operator<(Candidate const &o) const
    {
        if (position.x() != o.position.x()) {
            return position.x() < o.position.x();
        }
        if (position.y() != o.position.y()) {
            return position.y() < o.position.y();
        }
        return index < o.index;
    }
};

/// Four points of the hull, counter-clockwise; equal ones may be among them.
struct Quadrangle
{
    Point2 corner[4];

    explicit Quadrangle(QVector<Point2> const &points)
    {
        constexpr double direction[4][2] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
        double farthest[4];
        for (int k = 0; k < 4; ++k) {
            corner[k] = points.first();
            farthest[k] = direction[k][0] * corner[k].x() + direction[k][1] * corner[k].y();
        }
        for (Point2 const &p : points) {
            double const sum = p.x() + p.y();
            double const difference = p.x() - p.y();
            double const reach[4] = {-sum, difference, sum, -difference};
            for (int k = 0; k < 4; ++k) {
                if (reach[k] > farthest[k]) {
                    farthest[k] = reach[k];
                    corner[k] = p;
                }
            }
        }
    }

    /// True for points left of all four edges. A corner of the hull is left of no line on whose
    /// left lie none but points of the hull.
    bool holdsInside(Point2 const &p) const
    {
        for (int k = 0; k < 4; ++k) {
            if (orientation2d(corner[k], corner[(k + 1) % 4], p) != Sign::Positive) {
                return false;
            }
        }
        return true;
    }
};

/// The candidates in order, each location once.
std::vector<Candidate> sortedCandidates(QVector<Point2> const &points)
{
    Quadrangle const inner(points);
    std::vector<Candidate> candidates;
    for (int i = 0; i < points.size(); ++i) {
        if (!inner.holdsInside(points.at(i))) {
            candidates.push_back({points.at(i), i});
        }
    }
    std::sort(candidates.begin(), candidates.end());
    auto const areEqual = [](Candidate const &a, Candidate const &b) {
        return a.position == b.position;
    };
    candidates.erase(std::unique(candidates.begin(), candidates.end(), areEqual), candidates.end());
    return candidates;
}

/// Appends the chain of left turns from the first to the last candidate; the last is left out.
template <typename Iterator>
void appendChain(Iterator begin, Iterator end, QVector<int> &corners)
{
    std::vector<Candidate> chain;
    for (Iterator it = begin; it != end; ++it) {
        while (chain.size() >= 2 &&
               orientation2d(chain[chain.size() - 2].position, chain.back().position,
                             it->position) != Sign::Positive) {
            chain.pop_back();
        }
        chain.push_back(*it);
    }
    for (std::size_t i = 0; i + 1 < chain.size(); ++i) {
        corners.append(chain[i].index);
    }
}

} // namespace

ConvexPolygon convexHull2d(QVector<Point2> const &points)
{
    ConvexPolygon hull;
    if (points.isEmpty()) {
        return hull;
    }
    if (!areFinite(points)) {
        hull.status = Status::NotFinite;
        return hull;
    }
    hull.status = Status::Ok;
    std::vector<Candidate> const candidates = sortedCandidates(points);
    if (candidates.size() == 1) {
        hull.dimension = 0;
        hull.corners.append(candidates.front().index);
        return hull;
    }
    appendChain(candidates.begin(), candidates.end(), hull.corners);
    appendChain(candidates.rbegin(), candidates.rend(), hull.corners);
    hull.dimension = hull.corners.size() == 2 ? 1 : 2;
    return hull;
}

} // namespace orvelExact
