#include <OrvelExact/polygon/polygonShape.h>

#include <OrvelExact/predicates/orientation.h>
#include <OrvelExact/segments/segmentCrossing.h>

#include <algorithm>
#include <set>
#include <vector>

namespace orvelExact {

namespace {

bool precedes(Point2 const &a, Point2 const &b)
{
    return a.x() != b.x() ? a.x() < b.x() : a.y() < b.y();
}

/// A sweep over the edges of a polygon whose corners differ and whose consecutive edges have but
/// their corner in common. It ends at the first pair of neighbours that meet; until then the order
/// of the edges that the sweep line crosses cannot change.
class SimplicitySweep
{
public:
    explicit SimplicitySweep(QVector<Point2> const &polygon)
        : m_polygon(polygon)
        , m_active(Below{this})
        , m_places(static_cast<std::size_t>(polygon.size()))
    {
    }

    /// True if no two edges meet; else `first` and `second` are set.
    bool run(std::vector<int> const &order)
    {
        for (int const corner : order) {
            if (!passCorner(corner)) {
                return false;
            }
        }
        return true;
    }

    int first = -1;
    int second = -1;

private:
    /// The order along the sweep line, from below. The edges of a corner that is passed now are
    /// told apart by their other ends.
    struct Below
    {
        using is_transparent = void;
        SimplicitySweep const *sweep;

        bool operator()(int e, int f) const { return sweep->isBelow(e, f); }
        bool operator()(int e, Point2 const &p) const
        {
            return sweep->side(e, p) == Sign::Positive;
        }
        bool operator()(Point2 const &p, int e) const
        {
            return sweep->side(e, p) == Sign::Negative;
        }
    };
    /// The edge of an entry may be replaced by the one that goes on at its end.
    using Active = std::set<int, Below>;

    Point2 const &corner(int i) const { return m_polygon.at(i == m_polygon.size() ? 0 : i); }
    Point2 const &left(int e) const
    {
        return precedes(corner(e), corner(e + 1)) ? corner(e) : corner(e + 1);
    }
    Point2 const &right(int e) const
    {
        return precedes(corner(e), corner(e + 1)) ? corner(e + 1) : corner(e);
    }
    /// `Positive` for a point above the edge.
    Sign side(int e, Point2 const &p) const { return orientation2d(left(e), right(e), p); }
    bool isBelow(int e, int f) const
    {
        if (e == f) {
            return false;
        }
        if (left(e) == left(f)) {
            return side(e, right(f)) == Sign::Positive;
        }
        return precedes(left(e), left(f)) ? side(e, left(f)) == Sign::Positive
                                          : side(f, left(e)) == Sign::Negative;
    }

    bool areConsecutive(int e, int f) const
    {
        int const n = m_polygon.size();
        return (e + 1) % n == f || (f + 1) % n == e;
    }
    /// False, and the pair is kept, if the two edges meet where they should not.
    bool check(int e, int f)
    {
        if (areConsecutive(e, f) || classifyCrossing(corner(e), corner(e + 1), corner(f),
                                                     corner(f + 1)) == CrossingKind::None) {
            return true;
        }
        first = std::min(e, f);
        second = std::max(e, f);
        return false;
    }
    bool checkNeighbors(Active::iterator at)
    {
        if (at != m_active.begin() && !check(*std::prev(at), *at)) {
            return false;
        }
        return std::next(at) == m_active.end() || check(*at, *std::next(at));
    }

    bool passCorner(int i)
    {
        int const before = i == 0 ? m_polygon.size() - 1 : i - 1;
        bool const beforeEnds = right(before) == corner(i);
        bool const afterEnds = right(i) == corner(i);
        if (!beforeEnds && !afterEnds) {
            return begin(before, corner(i)) && begin(i, corner(i));
        }
        if (beforeEnds && afterEnds) {
            return end(before) && end(i);
        }
        return goOn(beforeEnds ? before : i, beforeEnds ? i : before);
    }
    bool begin(int edge, Point2 const &at)
    {
        auto const touched = m_active.find(at);
        if (touched != m_active.end() && !check(*touched, edge)) {
            return false;
        }
        auto const place = m_active.insert(edge).first;
        m_places[static_cast<std::size_t>(edge)] = place;
        return checkNeighbors(place);
    }
    bool end(int edge)
    {
        auto const next = m_active.erase(m_places[static_cast<std::size_t>(edge)]);
        return next == m_active.begin() || next == m_active.end() || check(*std::prev(next), *next);
    }
    bool goOn(int ended, int begun)
    {
        auto const next = m_active.erase(m_places[static_cast<std::size_t>(ended)]);
        auto const place = m_active.insert(next, begun);
        m_places[static_cast<std::size_t>(begun)] = place;
        return checkNeighbors(place);
    }

    QVector<Point2> const &m_polygon;
    Active m_active;
    std::vector<Active::iterator> m_places;
};

PolygonSimplicity meeting(int e, int f)
{
    return {Status::Ok, false, std::min(e, f), std::max(e, f)};
}

/// Edge e goes back over the edge before it, or has no length.
bool goesBack(Point2 const &a, Point2 const &b, Point2 const &c)
{
    return a == b || b == c ||
           (orientation2d(a, b, c) == Sign::Zero && precedes(a, b) != precedes(b, c));
}

} // namespace

PolygonSimplicity polygonSimplicity(QVector<Point2> const &polygon)
{
    PolygonSimplicity result;
    if (!areFinite(polygon)) {
        result.status = Status::NotFinite;
        return result;
    }
    int const n = polygon.size();
    if (n < 3) {
        return result;
    }
    std::vector<int> order;
    for (int i = 0; i < n; ++i) {
        if (goesBack(polygon.at(i), polygon.at((i + 1) % n), polygon.at((i + 2) % n))) {
            return meeting(i, (i + 1) % n);
        }
        order.push_back(i);
    }
    std::sort(order.begin(), order.end(), [&](int i, int j) {
        return polygon.at(i) == polygon.at(j) ? i < j : precedes(polygon.at(i), polygon.at(j));
    });
    for (std::size_t k = 1; k < order.size(); ++k) {
        if (polygon.at(order[k - 1]) == polygon.at(order[k])) {
            return meeting(order[k - 1], order[k]);
        }
    }
    SimplicitySweep sweep(polygon);
    result.isSimple = sweep.run(order);
    result.firstEdge = sweep.first;
    result.secondEdge = sweep.second;
    return result;
}

} // namespace orvelExact
