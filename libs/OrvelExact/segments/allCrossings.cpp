#include <OrvelExact/segments/allCrossings.h>

#include <OrvelExact/predicates/orientation.h>
#include <OrvelExact/segments/SweepGeometry_p.h>
#include <OrvelExact/segments/crossingPoint_p.h>

#include <algorithm>
#include <queue>
#include <set>
#include <vector>

namespace orvelExact {

namespace {

bool precedes(Point2 const &a, Point2 const &b)
{
    return a.x() != b.x() ? a.x() < b.x() : a.y() < b.y();
}

/// A sweep over the ends and crossings of segments by x, then by y. `m_active` holds the segments
/// that go on beyond the current point, from below; only neighbours are tested for crossings ahead.
class CrossingSweep
{
public:
    explicit CrossingSweep(QVector<Segment2> const &segments)
        : m_input(segments)
        , m_active(Below{this})
        , m_passedAt(static_cast<std::size_t>(segments.size()), -1)
    {
        for (int i = 0; i < segments.size(); ++i) {
            Point2 const &a = segments.at(i).from;
            Point2 const &b = segments.at(i).to;
            bool const isForward = !precedes(b, a);
            m_segments.push_back({isForward ? a : b, isForward ? b : a});
            m_starts.push_back(i);
            m_ends.push_back(i);
        }
        std::sort(m_starts.begin(), m_starts.end(), [this](int i, int j) {
            Point2 const &p = segment(i).left;
            Point2 const &q = segment(j).left;
            return p == q ? i < j : precedes(p, q);
        });
        std::sort(m_ends.begin(), m_ends.end(),
                  [this](int i, int j) { return precedes(segment(i).right, segment(j).right); });
    }

    void run()
    {
        while (findNextPoint()) {
            ++m_step;
            passPoint();
        }
        auto const comesBefore = [](CrossingPair const &a, CrossingPair const &b) {
            return a.first != b.first ? a.first < b.first : a.second < b.second;
        };
        std::sort(pairs.begin(), pairs.end(), comesBefore);
    }

    QVector<CrossingPair> pairs;

private:
    struct Here
    {
    };
    /// The order of the segments just behind the current point. It is asked of segments through the
    /// point and of their neighbours; segments of one line are in the order of their indices.
    struct Below
    {
        using is_transparent = void;
        CrossingSweep const *sweep;

        bool operator()(int e, int f) const { return sweep->isBelow(e, f); }
        bool operator()(int e, Here) const { return sweep->sideOfCurrent(e) == Sign::Positive; }
        bool operator()(Here, int e) const { return sweep->sideOfCurrent(e) == Sign::Negative; }
    };
    struct Later
    {
        bool operator()(SweepPoint const &a, SweepPoint const &b) const
        {
            return compareExactly(a, b) > 0;
        }
    };

    SweepSegment const &segment(int i) const { return m_segments[static_cast<std::size_t>(i)]; }
    Sign sideOfCurrent(int e) const { return sideOfPoint(segment(e), m_current); }
    bool isPassed(int e) const { return m_passedAt[static_cast<std::size_t>(e)] == m_step; }

    bool isBelow(int e, int f) const
    {
        if (isPassed(e) && isPassed(f)) {
            Sign const turn = turnOfDirections(segment(e), segment(f));
            return turn == Sign::Zero ? e < f : turn == Sign::Positive;
        }
        return isPassed(e) ? sideOfCurrent(f) == Sign::Negative
                           : sideOfCurrent(e) == Sign::Positive;
    }

    /// Sets the current point to the first of all that are left; false if there is none.
    bool findNextPoint()
    {
        bool isFound = false;
        auto const offer = [&](SweepPoint const &p) {
            if (!isFound || compareExactly(p, m_current) < 0) {
                m_current = p;
            }
            isFound = true;
        };
        if (m_nextStart < m_starts.size()) {
            offer({segment(m_starts[m_nextStart]).left});
        }
        if (m_nextEnd < m_ends.size()) {
            offer({segment(m_ends[m_nextEnd]).right});
        }
        if (!m_crossings.empty()) {
            offer(m_crossings.top());
        }
        return isFound;
    }

    void passPoint()
    {
        while (!m_crossings.empty() && compareExactly(m_crossings.top(), m_current) == 0) {
            m_crossings.pop();
        }
        auto const range = m_active.equal_range(Here());
        std::vector<int> passed(range.first, range.second);
        auto const above = m_active.erase(range.first, range.second);
        std::size_t const startCount = takeStarts(passed);
        takeEnds();
        reportPairs(passed, passed.size() - startCount);
        for (int const e : passed) {
            m_passedAt[static_cast<std::size_t>(e)] = m_step;
        }
        goOn(passed, above);
    }

    /// Appends the segments that begin at the current point.
    std::size_t takeStarts(std::vector<int> &passed)
    {
        std::size_t const before = passed.size();
        while (m_nextStart < m_starts.size() && !m_current.isCrossing() &&
               segment(m_starts[m_nextStart]).left == m_current.rounded) {
            passed.push_back(m_starts[m_nextStart++]);
        }
        return passed.size() - before;
    }
    void takeEnds()
    {
        while (m_nextEnd < m_ends.size() && !m_current.isCrossing() &&
               segment(m_ends[m_nextEnd]).right == m_current.rounded) {
            ++m_nextEnd;
        }
    }
    bool endsHere(int e) const
    {
        return !m_current.isCrossing() && segment(e).right == m_current.rounded;
    }

    /// Of segments on one line a pair is reported where the second of them begins.
    void reportPairs(std::vector<int> const &passed, std::size_t firstStart)
    {
        for (std::size_t j = 1; j < passed.size(); ++j) {
            for (std::size_t i = 0; i < j; ++i) {
                int const first = std::min(passed[i], passed[j]);
                int const second = std::max(passed[i], passed[j]);
                if (j < firstStart &&
                    turnOfDirections(segment(first), segment(second)) == Sign::Zero) {
                    continue;
                }
                Segment2 const &a = m_input.at(first);
                Segment2 const &b = m_input.at(second);
                pairs.append({first, second, crossSegments(a.from, a.to, b.from, b.to)});
            }
        }
    }

    /// Puts what doesn't end here in its new order below the segments above the point.
    void goOn(std::vector<int> &passed, std::set<int, Below>::iterator above)
    {
        auto const ends = [this](int e) { return endsHere(e); };
        passed.erase(std::remove_if(passed.begin(), passed.end(), ends), passed.end());
        std::sort(passed.begin(), passed.end(), Below{this});
        auto lowest = above;
        for (std::size_t i = 0; i < passed.size(); ++i) {
            auto const place = m_active.insert(above, passed[i]);
            lowest = i == 0 ? place : lowest;
        }
        if (lowest != m_active.begin() && lowest != m_active.end()) {
            lookAhead(*std::prev(lowest), *lowest);
        }
        if (!passed.empty() && above != m_active.end()) {
            lookAhead(passed.back(), *above);
        }
    }

    /// Of two neighbours: they cross ahead if the one that ends first ends on the other's far side.
    /// Where one ends on the other that end is a point of the sweep already.
    void lookAhead(int below, int above)
    {
        SweepSegment const &lower = segment(below);
        SweepSegment const &upper = segment(above);
        bool const crosses =
            precedes(lower.right, upper.right)
                ? orientation2d(upper.left, upper.right, lower.right) == Sign::Positive
                : orientation2d(lower.left, lower.right, upper.right) == Sign::Negative;
        if (crosses) {
            m_crossings.push({roundedCrossing(lower.left, lower.right, upper.left, upper.right),
                              &segment(std::min(below, above)), &segment(std::max(below, above))});
        }
    }

    QVector<Segment2> const &m_input;
    std::vector<SweepSegment> m_segments;
    std::vector<int> m_starts; ///< by left ends
    std::vector<int> m_ends;   ///< by right ends
    std::size_t m_nextStart = 0;
    std::size_t m_nextEnd = 0;
    std::priority_queue<SweepPoint, std::vector<SweepPoint>, Later> m_crossings;
    std::set<int, Below> m_active;
    std::vector<int> m_passedAt; ///< the last step whose point a segment goes through
    int m_step = 0;
    SweepPoint m_current;
};

} // namespace

SegmentCrossings allCrossings(QVector<Segment2> const &segments)
{
    SegmentCrossings result;
    for (Segment2 const &s : segments) {
        if (!isFinite(s.from) || !isFinite(s.to)) {
            result.status = Status::NotFinite;
            return result;
        }
    }
    CrossingSweep sweep(segments);
    sweep.run();
    result.pairs = sweep.pairs;
    return result;
}

} // namespace orvelExact
