/// @file
/// What the two point-in-polygon tests share: the band about a horizontal ray. Not part of the
/// interface.
#pragma once

#include <OrvelMath/base/Point2D.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace rayBand {

enum class Level { Below, Above, InBand };

/// A horizontal band, borders included.
struct Band
{
    double low;
    double high;

    Level levelOf(double y) const
    {
        if (low > y) {
            return Level::Below;
        }
        return y > high ? Level::Above : Level::InBand;
    }
};

struct Extent
{
    double min;
    double max;

    void include(double x)
    {
        // In this form NaN changes nothing.
        min = x < min ? x : min;
        max = x > max ? x : max;
    }
};

/// Extent in x of all vertices, from an empty one. `at` gives the vertex at an index.
template <typename At>
Extent xExtent(At const &at, int count, Extent const &empty)
{
    // Four lanes, because one would wait for itself; minima and maxima don't depend on the order.
    Extent a = empty;
    Extent b = empty;
    Extent c = empty;
    Extent d = empty;
    int i = 0;
    for (; i + 4 <= count; i += 4) {
        a.include(at(i).x());
        b.include(at(i + 1).x());
        c.include(at(i + 2).x());
        d.include(at(i + 3).x());
    }
    for (; i < count; ++i) {
        a.include(at(i).x());
    }
    return {std::min(std::min(a.min, b.min), std::min(c.min, d.min)),
            std::max(std::max(a.max, b.max), std::max(c.max, d.max))};
}

/// Index of the first vertex that is not strictly within the band, or -1.
template <typename At>
int firstOutside(At const &at, int count, Band const &band)
{
    for (int i = 0; i < count; ++i) {
        double const y = at(i).y();
        if (!(band.low < y && y < band.high)) {
            return i;
        }
    }
    return -1;
}

/// Last index up to `limit` of the vertices from `i` on that lie on the level of vertex `i`.
template <Level level, typename At>
int endOfRun(At const &at, int i, int limit, Band const &band)
{
    while (i < limit && band.levelOf(at(i + 1).y()) == level) {
        ++i;
    }
    return i;
}

/// Tells without a root how most edges from one side of the band to the other meet the ray,
/// wherever the crossing functions can come to no other answer.
///
/// With all coordinates within `scale`, those functions place the crossing, and measure lengths
/// over it, with errors that add up to less than 100 units of rounding (1.1e-14) times the scale,
/// and so does this one. An edge whose ends keep more than that, and the tolerance, from the ray's
/// line, and whose crossing keeps them from both ends of the ray, cannot be taken for another case.
class EdgeFilter
{
public:
    enum class Answer { Misses, Crosses, Unclear };
    /// Whether the crossing function tells by parameters or by sums of lengths what is on an edge.
    enum class Measure { Parameters, Lengths };

    EdgeFilter(Point2D const &p, double rayEndX, double xmin, double tol, Measure measure)
        : m_p(p)
        , m_scale(std::fabs(rayEndX) + std::fabs(xmin) + std::fabs(p.x()) + std::fabs(p.y()))
    {
        double const noise = 5e-14 * m_scale;
        m_clearance = tol + noise;
        m_left = p.x() - m_clearance;
        m_right = p.x() + m_clearance;
        // A tolerance below the noise may turn a crossing by lengths into none.
        bool const crossingsAreClear = measure == Measure::Parameters || tol >= noise;
        m_farEnd = crossingsAreClear ? rayEndX - m_clearance : m_left;
        // Where nothing is clear, no height is above the clearance.
        if (!(tol >= 0 && m_scale < 1e100)) {
            m_clearance = std::numeric_limits<double>::infinity();
        }
    }

    Answer operator()(Point2D const &cur, Point2D const &next) const
    {
        double const height = m_p.y() - cur.y();
        double const nextHeight = m_p.y() - next.y();
        double const x = cur.x() + height / (next.y() - cur.y()) * (next.x() - cur.x());
        // How the edge lies is hard to predict, so there is no branch before the answer.
        bool const isCurClear = isWithin(height, cur.x());
        bool const isNextClear = isWithin(nextHeight, next.x());
        bool const isClear = isCurClear & isNextClear;
        bool const misses = x < m_left;
        bool const crosses = (x > m_right) & (x < m_farEnd);
        if (!(isClear & (misses | crosses))) {
            return Answer::Unclear;
        }
        return misses ? Answer::Misses : Answer::Crosses;
    }

private:
    bool isWithin(double height, double x) const
    {
        double const size = std::fabs(height);
        double const distance = std::fabs(x);
        return (size > m_clearance) & (size <= m_scale) & (distance <= m_scale);
    }

    Point2D m_p;
    double m_scale;
    double m_clearance;
    double m_left;
    double m_right;
    double m_farEnd;
};

/// Walks around the polygon from the vertex `start`, through all its edges.
///
/// Calls `visit(cur, curLevel, next, nextLevel, last)` for each edge that touches the band or
/// passes it, until it returns true; `last` is the side of the last vertex outside the band so far.
/// Runs of edges on one side are passed over; `visit` may still see such an edge.
/// @return whether `visit` ended the walk.
template <typename At, typename Visit>
bool walk(At const &at, int count, int start, Band const &band, Visit visit)
{
    int i = start;
    Level level = band.levelOf(at(i).y());
    Level last = band.low > at(i).y() ? Level::Below : Level::Above;
    for (int edges = count; edges > 0; --edges) {
        if (level != Level::InBand) {
            last = level;
            int const limit = i + std::min(count - 1 - i, edges);
            int const end = level == Level::Below ? endOfRun<Level::Below>(at, i, limit, band)
                                                  : endOfRun<Level::Above>(at, i, limit, band);
            edges -= end - i;
            i = end;
            if (edges == 0) {
                return false;
            }
        }
        int const next = i + 1 == count ? 0 : i + 1;
        Level const nextLevel = band.levelOf(at(next).y());
        if (visit(at(i), level, at(next), nextLevel, last)) {
            return true;
        }
        i = next;
        level = nextLevel;
    }
    return false;
}

} // namespace rayBand
