#include <OrvelExact/conics/bezierCrossings.h>

#include <OrvelExact/conics/curves_p.h>

namespace orvelExact {

namespace {

constexpr double leastGap = 1e-13;   // of the size of the curves, which is about 1 here
constexpr int mostPairs = 20000;     // more come up only where the curves share a piece
constexpr double sameTurn = 0x1p-40; // parameters nearer than that are one crossing

double crossed(Point2 const &a, Point2 const &b)
{
    return a.x() * b.y() - a.y() * b.x();
}

/// A part of a curve, with its own control points.
struct Piece
{
    Point2 p[4];
    double from = 0.0;
    double width = 1.0;

    double middle() const { return from + 0.5 * width; }
    bool holds(double t, double slack) const
    {
        return t >= from - slack && t <= from + width + slack;
    }
};

/// Cuts a piece in the middle (de Casteljau 1959): the left half stays, the right one is returned.
Piece cutInHalf(Piece &piece)
{
    piece.width *= 0.5;
    Piece right = piece;
    right.from += piece.width;
    for (int level = 0; level < 3; ++level) {
        for (int i = 3; i > level; --i) {
            piece.p[i] = 0.5 * (piece.p[i - 1] + piece.p[i]);
        }
        right.p[2 - level] = piece.p[3];
    }
    return right;
}

/// True if the control points of two pieces are further apart than a gap along a direction.
bool areApartAlong(Point2 const &direction, Piece const &a, Piece const &b, double gap)
{
    double low[2], high[2];
    Piece const *const pieces[2] = {&a, &b};
    for (int k = 0; k < 2; ++k) {
        low[k] = high[k] = direction.dot(pieces[k]->p[0] - a.p[0]);
        for (int i = 1; i < 4; ++i) {
            double const height = direction.dot(pieces[k]->p[i] - a.p[0]);
            low[k] = std::min(low[k], height);
            high[k] = std::max(high[k], height);
        }
    }
    double const room = gap * direction.length();
    return low[0] > high[1] + room || low[1] > high[0] + room;
}

/// True if two pieces are further apart than a gap: by their boxes, or across either's chord.
bool areApart(Piece const &a, Piece const &b, double gap)
{
    Point2 const chordA = a.p[3] - a.p[0];
    Point2 const chordB = b.p[3] - b.p[0];
    return areApartAlong({1.0, 0.0}, a, b, gap) || areApartAlong({0.0, 1.0}, a, b, gap) ||
           areApartAlong({-chordA.y(), chordA.x()}, a, b, gap) ||
           areApartAlong({-chordB.y(), chordB.x()}, a, b, gap);
}

/// True if both pieces lie in one strip of a width, along the chord of the first.
bool areInStrip(Piece const &a, Piece const &b, double width)
{
    Point2 const chord = a.p[3] - a.p[0];
    double low = 0.0;
    double high = 0.0;
    for (int i = 0; i < 4; ++i) {
        for (Piece const *piece : {&a, &b}) {
            double const height = crossed(chord, piece->p[i] - a.p[0]);
            low = std::min(low, height);
            high = std::max(high, height);
        }
    }
    return high - low <= width * chord.length();
}

/// True if no tangent of one piece is parallel to one of the other: then they cross once at most,
/// because the chord between two crossings would be parallel to a tangent of both.
bool haveTangentsApart(Piece const &a, Piece const &b)
{
    int sign = 0;
    for (int i = 0; i < 3; ++i) {
        Point2 const tangentA = a.p[i + 1] - a.p[i];
        for (int k = 0; k < 3; ++k) {
            Point2 const tangentB = b.p[k + 1] - b.p[k];
            double const turn = crossed(tangentA, tangentB);
            double const least = 1e-12 * (tangentA.length() * tangentB.length());
            if (!(std::fabs(turn) > least) || (turn > 0.0 ? 1 : -1) == -sign) {
                return false;
            }
            sign = turn > 0.0 ? 1 : -1;
        }
    }
    return true;
}

/// A curve to 106 bits: its point and derivatives.
struct Along
{
    Vector2 point;
    Point2 first;
    Point2 second;
};

/// The curve by powers of t, exact but for the last of 106 bits.
class WideCurve
{
public:
    /// The curve seen from a point, by a power of two.
    WideCurve(CubicBezier const &curve, Point2 const &origin, int exponent)
    {
        Vector2 p[4];
        for (int i = 0; i < 4; ++i) {
            Vector2 const way = differenceOf(curve.p[i], origin);
            p[i] = {timesPowerOfTwo(way.x, -exponent), timesPowerOfTwo(way.y, -exponent)};
            m_piece.p[i] = rounded(p[i]);
        }
        m_a[0] = p[0];
        m_a[1] = (p[1] - p[0]) * 3.0;
        m_a[2] = (p[0] - p[1] * 2.0 + p[2]) * 3.0;
        m_a[3] = p[3] - p[0] + (p[1] - p[2]) * 3.0;
    }
    Along at(DoubleDouble const &t) const
    {
        Along result;
        result.point = ((m_a[3] * t + m_a[2]) * t + m_a[1]) * t + m_a[0];
        Point2 const a1 = rounded(m_a[1]), a2 = rounded(m_a[2]), a3 = rounded(m_a[3]);
        double const x = t.high;
        result.first = (3.0 * x * a3 + 2.0 * a2) * x + a1;
        result.second = 6.0 * x * a3 + 2.0 * a2;
        return result;
    }

    /// The whole curve in doubles.
    Piece const &piece() const { return m_piece; }

private:
    Vector2 m_a[4];
    Piece m_piece;
};

/// A pair of parameters.
struct Place
{
    DoubleDouble t;
    DoubleDouble s;
};

/// The finder of crossings, for curves of about unit size.
class Search
{
public:
    Search(WideCurve const &first, WideCurve const &second, double tolerance)
        : m_first(first)
        , m_second(second)
        , m_tolerance(std::max(tolerance, leastGap))
    {
    }

    void run(BezierCrossings &result)
    {
        Piece const &a = m_first.piece();
        Piece const &b = m_second.piece();
        m_result = &result;
        look(a, b);
        noteEnds(a, b);
        if (m_pairs >= mostPairs || m_isFull) {
            result = {};
            result.coincide = true;
            return;
        }
        dropNeighboursOfContacts();
        sortAlongFirst();
    }

private:
    /// Newton's steps to where the curves meet; false if they lead out of the curves.
    bool settleOnCrossing(Place &place) const
    {
        for (int step = 0; step < 12; ++step) {
            Along const a = m_first.at(place.t);
            Along const b = m_second.at(place.s);
            Point2 const way = rounded(b.point - a.point);
            double const turn = crossed(a.first, b.first);
            double const dt = crossed(way, b.first) / turn;
            double const ds = crossed(way, a.first) / turn;
            if (!(std::fabs(dt) < 2.0 && std::fabs(ds) < 2.0)) {
                return false;
            }
            place.t = place.t + dt;
            place.s = place.s + ds;
            if (std::max(std::fabs(dt), std::fabs(ds)) < 0x1p-45) {
                return true;
            }
        }
        return false;
    }

    /// Newton's steps to where the tangents are parallel and the way between the points is upright
    /// to them.
    bool settleOnContact(Place &place) const
    {
        for (int step = 0; step < 20; ++step) {
            Along const a = m_first.at(place.t);
            Along const b = m_second.at(place.s);
            Point2 const way = rounded(a.point - b.point);
            double const f = crossed(a.first, b.first);
            double const g = way.dot(a.first);
            double const ft = crossed(a.second, b.first), fs = crossed(a.first, b.second);
            double const gt = a.first.dot(a.first) + way.dot(a.second);
            double const gs = -b.first.dot(a.first);
            double const whole = ft * gs - fs * gt;
            double const dt = (fs * g - f * gs) / whole;
            double const ds = (f * gt - ft * g) / whole;
            if (!(std::fabs(dt) < 0.5 && std::fabs(ds) < 0.5)) {
                return false;
            }
            place.t = place.t + dt;
            place.s = place.s + ds;
            if (std::max(std::fabs(dt), std::fabs(ds)) < 0x1p-40) {
                return true;
            }
        }
        return false;
    }

    void look(Piece a, Piece b)
    {
        if (++m_pairs > mostPairs || areApart(a, b, m_tolerance + 1e-15)) {
            return;
        }
        Place place{a.middle(), b.middle()};
        if (haveTangentsApart(a, b)) {
            if (settleOnCrossing(place) && a.holds(place.t.high, 1e-14) &&
                b.holds(place.s.high, 1e-14)) {
                note(place, false);
                return;
            }
        } else if (a.width < 0.3 && !isContactKnown(a, b) && settleOnContact(place)) {
            noteContact(place);
        }
        // Pieces that are within the tolerance all along belong to a contact, or to a piece that
        // the curves share; so do those that doubles can't tell from it.
        constexpr double narrowest = 0x1p-26;
        bool const isNarrow = a.width < narrowest && b.width < narrowest;
        if (isNarrow || areInStrip(a, b, m_tolerance)) {
            Place crossing{a.middle(), b.middle()};
            if (settleOnCrossing(crossing) && a.holds(crossing.t.high, 1e-14) &&
                b.holds(crossing.s.high, 1e-14)) {
                note(crossing, false);
            }
            return;
        }
        Piece const aRight = a.width >= b.width ? cutInHalf(a) : a;
        bool const isFirstCut = aRight.from != a.from;
        Piece const bRight = isFirstCut ? b : cutInHalf(b);
        look(a, b);
        look(aRight, bRight);
    }

    static bool isOnCurve(DoubleDouble const &t) { return t.high > -1e-14 && t.high < 1.0 + 1e-14; }

    /// True if a place with parallel tangents was found in or beside the pieces before.
    bool isContactKnown(Piece const &a, Piece const &b) const
    {
        for (int i = 0; i < m_contactCount; ++i) {
            if (a.holds(m_contacts[i].t.high, a.width) && b.holds(m_contacts[i].s.high, b.width)) {
                return true;
            }
        }
        return false;
    }

    void noteContact(Place const &place)
    {
        if (!isOnCurve(place.t) || !isOnCurve(place.s)) {
            return;
        }
        if (m_contactCount < mostFound) {
            m_contacts[m_contactCount++] = place;
        }
        Point2 const way = rounded(m_first.at(place.t).point - m_second.at(place.s).point);
        if (way.length() <= m_tolerance) {
            note(place, true);
        }
    }

    /// The ends of each curve that are within the tolerance of an end of the other.
    void noteEnds(Piece const &a, Piece const &b)
    {
        for (int i = 0; i < 2; ++i) {
            for (int k = 0; k < 2; ++k) {
                Point2 const end = a.p[3 * i];
                if ((end - b.p[3 * k]).length() <= m_tolerance && !isFoundNear(end)) {
                    note({static_cast<double>(i), static_cast<double>(k)}, false);
                }
            }
        }
    }

    bool isFoundNear(Point2 const &p) const
    {
        for (int i = 0; i < m_count; ++i) {
            if ((m_found[i].point - p).length() <= 4.0 * m_tolerance) {
                return true;
            }
        }
        return false;
    }

    void note(Place const &place, bool isTouch)
    {
        double const t = std::min(std::max(place.t.high, 0.0), 1.0);
        double const s = std::min(std::max(place.s.high, 0.0), 1.0);
        for (int i = 0; i < m_count; ++i) {
            if (std::fabs(m_found[i].onFirst - t) <= sameTurn &&
                std::fabs(m_found[i].onSecond - s) <= sameTurn) {
                m_found[i].isTouch = m_found[i].isTouch || isTouch;
                return;
            }
        }
        if (m_count == mostFound) {
            m_isFull = true;
            return;
        }
        m_found[m_count++] = {rounded(m_first.at(t).point), t, s, isTouch};
    }

    /// True if the curves stay within the tolerance from a contact to a crossing beside it: the
    /// gap between them is no larger on the way than at the contact.
    bool belongsTo(BezierCrossing const &contact, BezierCrossing const &x) const
    {
        if (!contact.isTouch || &contact == &x) {
            return false;
        }
        for (int i = 1; i < 16; ++i) {
            double const part = i / 16.0;
            double const t = contact.onFirst + part * (x.onFirst - contact.onFirst);
            double const s = contact.onSecond + part * (x.onSecond - contact.onSecond);
            Along const a = m_first.at(t);
            Along const b = m_second.at(s);
            Point2 const way = rounded(b.point - a.point);
            double const gap = std::fabs(crossed(way, a.first)) / a.first.length();
            if (!(gap <= m_tolerance)) {
                return false;
            }
        }
        return true;
    }

    void dropNeighboursOfContacts()
    {
        for (int i = 0; i < m_count; ++i) {
            bool isPart = false;
            for (int k = 0; k < m_count; ++k) {
                bool const isEarlier = !m_found[i].isTouch || k < i;
                isPart = isPart || (isEarlier && belongsTo(m_found[k], m_found[i]));
            }
            if (!isPart && m_result->count < 9) {
                m_result->crossings[m_result->count++] = m_found[i];
            } else if (!isPart) {
                m_isFull = true;
            }
        }
    }

    void sortAlongFirst()
    {
        BezierCrossing *const x = m_result->crossings;
        for (int i = 1; i < m_result->count; ++i) {
            for (int k = i; k > 0 && x[k].onFirst < x[k - 1].onFirst; --k) {
                std::swap(x[k], x[k - 1]);
            }
        }
    }

    static constexpr int mostFound = 40;

    WideCurve m_first;
    WideCurve m_second;
    double m_tolerance;
    BezierCrossings *m_result = nullptr;
    BezierCrossing m_found[mostFound];
    Place m_contacts[mostFound]; ///< of parallel tangents, within the tolerance or not
    int m_count = 0;
    int m_contactCount = 0;
    int m_pairs = 0;
    bool m_isFull = false;
};

/// Whether there are two curves, and the exponent that makes their size about 1.
Status statusOf(CubicBezier const &first, CubicBezier const &second, double tolerance,
                int &exponent)
{
    double farthest = 0.0;
    double size = 0.0;
    for (CubicBezier const *curve : {&first, &second}) {
        double extent = 0.0;
        for (Point2 const &p : curve->p) {
            if (!isFinite(p) || !std::isfinite(tolerance)) {
                return Status::NotFinite;
            }
            farthest = std::max(farthest, largestOf(p));
            extent = std::max(extent, largestOf(p - curve->p[0]));
            size = std::max({size, extent, largestOf(p - first.p[0])});
        }
        if (extent == 0.0) {
            return Status::Degenerate;
        }
    }
    exponent = exponentOf(size);
    return farthest > longestLength || size < shortestLength ? Status::OutOfRange : Status::Ok;
}

} // namespace

BezierCrossings bezierCrossings(CubicBezier const &first, CubicBezier const &second,
                                double tolerance)
{
    BezierCrossings result;
    int exponent = 0;
    result.status = statusOf(first, second, tolerance, exponent);
    if (result.status != Status::Ok) {
        return result;
    }
    Point2 const &origin = first.p[0];
    Search search(WideCurve(first, origin, exponent), WideCurve(second, origin, exponent),
                  timesPowerOfTwo(tolerance, -exponent));
    search.run(result);
    for (int i = 0; i < result.count; ++i) {
        Point2 &p = result.crossings[i].point;
        p = timesPowerOfTwo(p, exponent) + origin;
    }
    return result;
}

} // namespace orvelExact
