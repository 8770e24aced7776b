#include <OrvelMath/engine/angles_p.h>
#include <OrvelMath/geom2d/mathPoly_p.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace mathPoly {

namespace {

/// A crossing's direction from the first ellipse's centre, in that ellipse's own frame.
struct Direction
{
    double degrees;
    int index;
};

int compareDirections(void const *left, void const *right)
{
    double const a = static_cast<Direction const *>(left)->degrees;
    double const b = static_cast<Direction const *>(right)->degrees;
    if (a < b) {
        return -1;
    }
    return a > b ? 1 : 0;
}

double directionFrom(Ellipse const &e, Point2D const &p)
{
    Point w{p.x() - e.cx, p.y() - e.cy};
    TMat turn;
    turn.rotate(-e.angle);
    turn.apply(w);
    double const degrees = WinVec(w.x, w.y);
    return degrees < 0.0 ? degrees + 360.0 : degrees;
}

/// Which place of the order the selectors choose; -1 for none.
int chosenPlace(int count, bool last, bool inner)
{
    switch (count) {
    case 1:
        return 0;
    case 2:
        return inner ? -1 : (last ? 1 : 0);
    case 3:
        return inner ? 1 : (last ? 2 : 0);
    case 4:
        return inner ? (last ? 2 : 1) : (last ? 3 : 0);
    default:
        return -1;
    }
}

} // namespace

void FindIntersections(Ellipse &e1, Ellipse &e2, int &count, Point2D *const points)
{
    Point candidates[maxCandidates];
    int const found = crossingCandidates(e1, e2, candidates);
    count = 0;
    for (int i = 0; i < found; ++i) {
        Point const &p = candidates[i];
        bool const known = std::any_of(points, points + count, [&p](Point2D const &q) {
            // half-width of the square in which crossings count as one, a length
            return std::abs(p.x - q.x()) <= 0.0001 && std::abs(p.y - q.y()) <= 0.0001;
        });
        if (!known) {
            points[count] = Point2D(p.x, p.y);
            ++count;
        }
    }
}

bool FindIntersections2(Ellipse &e1, Ellipse &e2, bool last, bool inner, Point2D &point)
{
    Point2D points[maxCandidates]; // four for distinct conics; identical ones may give more
    int count = 0;
    FindIntersections(e1, e2, count, points);
    Direction order[maxCandidates];
    for (int i = 0; i < count; ++i) {
        order[i] = {directionFrom(e1, points[i]), i};
    }
    // The exchange of equal directions is the C library's, which std::sort does not share.
    std::qsort(order, static_cast<std::size_t>(count), sizeof order[0], compareDirections);
    int const place = chosenPlace(count, last, inner);
    if (place < 0) {
        return false;
    }
    point = points[order[place].index];
    return true;
}

} // namespace mathPoly

int intersect_circle_ellipse(Point2D const &c, double r, Point2D const &centre, double angle,
                             double a, double b, Point2D *const points, int &count, double)
{
    mathPoly::Ellipse circle(c, r);
    mathPoly::Ellipse ellipse(centre, angle, a, b);
    mathPoly::FindIntersections(circle, ellipse, count, points);
    return count > 0 ? 1 : 0;
}

int intersect_ellipse_ellipse(Point2D const &c1, double angle1, double a1, double b1,
                              Point2D const &c2, double angle2, double a2, double b2,
                              Point2D *const points, int &count, double)
{
    mathPoly::Ellipse first(c1, angle1, a1, b1);
    mathPoly::Ellipse second(c2, angle2, a2, b2);
    mathPoly::FindIntersections(first, second, count, points);
    count = std::min(count, 4);
    return count > 0 ? 1 : 0;
}

int intersect_line_ellipse(Point2D const &p0, Point2D const &p1, Point2D const &centre,
                           double angle, double a, double b, bool other, Point2D &out, double eps)
{
    double const radians = engine::degreesTimesPiBy180(angle);
    double const c = std::cos(radians);
    double const s = std::sin(radians);
    auto const toOwnFrame = [&](Point2D const &p) {
        Point2D const w = p - centre;
        return Point2D(c * w.x() + s * w.y(), c * w.y() - s * w.x());
    };
    Point2D const q0 = toOwnFrame(p0);
    Point2D const d = toOwnFrame(p1) - q0;
    double const length = d.Length();
    // a line of no length keeps e at zero and ends in a point that is not a number
    Point2D const e = length > 1e-100 ? d / length : Point2D(); // a length

    double const aa = a * a;
    double const bb = b * b;
    // y before x in the sums; the other order gives other last bits.
    double const B = 2.0 * (e.y() * q0.y() * aa + q0.x() * e.x() * bb);
    double const G = e.y() * e.y() * aa + e.x() * e.x() * bb;
    double D = B * B - (q0.x() * q0.x() * bb + q0.y() * q0.y() * aa - aa * bb) * (4.0 * G);
    if (-eps > D) {
        return 0;
    }
    if (D < 0.0) {
        D = 0.0;
    }
    double const root = std::sqrt(D);
    double const t = other ? (-B - root) / (2.0 * G) : (root - B) / (2.0 * G);
    double const x = q0.x() + t * e.x();
    double const y = q0.y() + t * e.y();
    out = Point2D(c * x - s * y + centre.x(), s * x + c * y + centre.y());
    return 1;
}
