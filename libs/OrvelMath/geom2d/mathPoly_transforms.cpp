#include <OrvelMath/engine/angles_p.h>
#include <OrvelMath/geom2d/mathPoly_p.h>

#include <cmath>
#include <utility>

namespace mathPoly {

namespace {

/// The angle after full turns are taken off while it is above 360 and put on while it is below 0.
/// The remainder is exact, so it equals the repeated subtraction, without its endless run on
/// infinities.
double reducedDegrees(double angle)
{
    if (angle > 360.0) {
        double const rest = std::fmod(angle, 360.0);
        return rest == 0.0 ? 360.0 : rest;
    }
    if (angle < 0.0) {
        double const rest = std::fmod(angle, 360.0);
        return rest == 0.0 ? 0.0 : rest + 360.0;
    }
    return angle;
}

Conic centredConic(Ellipse const &e, Turn turn)
{
    double const c = turn.c;
    double const s = turn.s;
    double const aa = e.a * e.a;
    double const bb = e.b * e.b;
    return {c * c / aa + s * s / bb,
            (bb - aa) * (2.0 * s * c) / (2.0 * aa * bb),
            c * c / bb + s * s / aa,
            0.0,
            0.0,
            -1.0};
}

TMat inverse(TMat const &m)
{
    double const det = m.m00 * m.m11 - m.m01 * m.m10;
    TMat inv;
    inv.m00 = m.m11 / det;
    inv.m10 = -m.m10 / det;
    inv.m01 = -m.m01 / det;
    inv.m11 = m.m00 / det;
    inv.tx = -(inv.m00 * m.tx + inv.m01 * m.ty);
    inv.ty = -(inv.m10 * m.tx + inv.m11 * m.ty);
    return inv;
}

} // namespace

Ellipse::Ellipse(Point2D centre, double degrees, double semiA, double semiB)
    : cx(centre.x())
    , cy(centre.y())
    , a(semiA)
    , b(semiB)
    , angle(engine::degreesTimesPiBy180(reducedDegrees(degrees)))
{
}

Ellipse::Ellipse(Point2D centre, double radius)
    : cx(centre.x())
    , cy(centre.y())
    , a(radius)
    , b(radius)
    , angle(0.0)
{
}

Conic::Conic(double a, double b, double c, double d, double e, double f)
    : A(a)
    , B(b)
    , C(c)
    , D(d)
    , E(e)
    , F(f)
{
}

Conic::Conic(Ellipse const &e)
    : Conic(conicOf(e, turnBy(e.angle)))
{
}

Conic Conic::centred(Ellipse const &e)
{
    return centredConic(e, turnBy(e.angle));
}

Conic conicOf(Ellipse const &e, Turn turn)
{
    Conic q = centredConic(e, turn);
    double const c = turn.c;
    double const s = turn.s;
    double const aa = e.a * e.a;
    double const bb = e.b * e.b;
    double const cx = e.cx;
    double const cy = e.cy;
    q.D = -cy * q.B - q.A * cx;
    q.E = -cx * q.B - q.C * cy;
    q.F = (1.0 / bb + 1.0 / aa) * (cx * cx + cy * cy) / 2.0 - 1.0 +
          (cx * cx - cy * cy) * (c * c - s * s) * (1.0 / aa - 1.0 / bb) / 2.0 +
          cx * cy * (1.0 / aa - 1.0 / bb) * 2.0 * s * c;
    return q;
}

void TMat::translate(double dx, double dy)
{
    tx += dx;
    ty += dy;
}

void TMat::rotate(double angle)
{
    mathPoly::rotate(*this, turnBy(angle));
}

void TMat::scale(double sx, double sy)
{
    m00 *= sx;
    m01 *= sx;
    tx *= sx;
    m10 *= sy;
    m11 *= sy;
    ty *= sy;
}

void TMat::apply(Point &p) const
{
    double const x = m00 * p.x + m01 * p.y + tx;
    p.y = m10 * p.x + m11 * p.y + ty;
    p.x = x;
}

double axisAngle(double A, double B, double C)
{
    double const w = A - C;
    double const z = 2.0 * B;
    double const quarterTurn = 1.5707963267948966;
    double const r = std::abs(w) > std::abs(z) ? std::atan(z / w) : quarterTurn - std::atan(w / z);
    return r * 0.5;
}

Conic transformed(Conic const &q, TMat const &m)
{
    TMat const i = inverse(m);
    // left = transpose(inverse(m)) * Q, row by row
    double const l00 = i.m00 * q.A + i.m10 * q.B;
    double const l01 = i.m00 * q.B + i.m10 * q.C;
    double const l02 = i.m00 * q.D + i.m10 * q.E;
    double const l10 = i.m01 * q.A + i.m11 * q.B;
    double const l11 = i.m01 * q.B + i.m11 * q.C;
    double const l12 = i.m01 * q.D + i.m11 * q.E;
    double const l20 = i.tx * q.A + i.ty * q.B + q.D;
    double const l21 = i.tx * q.B + i.ty * q.C + q.E;
    double const l22 = i.tx * q.D + i.ty * q.E + q.F;
    return {l00 * i.m00 + l01 * i.m10,     l00 * i.m01 + l01 * i.m11,
            l10 * i.m01 + l11 * i.m11,     l00 * i.tx + l01 * i.ty + l02,
            l10 * i.tx + l11 * i.ty + l12, l20 * i.tx + l21 * i.ty + l22};
}

TMat ellipseToUnit(Ellipse const &e, Turn turn)
{
    TMat m;
    m.translate(-e.cx, -e.cy);
    rotate(m, turn.back());
    m.scale(1.0 / e.a, 1.0 / e.b);
    return m;
}

TMat unitToEllipse(Ellipse const &e)
{
    TMat m;
    m.scale(e.a, e.b);
    m.rotate(e.angle);
    m.translate(e.cx, e.cy);
    return m;
}

Conic transformCentred(Conic const &q, TMat const &m)
{
    double const det = m.m00 * m.m11 - m.m01 * m.m10;
    double const area = det * det;
    return {(q.A * m.m11 * m.m11 - 2.0 * q.B * m.m11 * m.m10 + q.C * m.m10 * m.m10) / area,
            (q.B * (m.m00 * m.m11 + m.m01 * m.m10) - q.A * m.m01 * m.m11 - q.C * m.m00 * m.m10) /
                area,
            (q.A * m.m01 * m.m01 - 2.0 * q.B * m.m00 * m.m01 + q.C * m.m00 * m.m00) / area,
            q.D,
            q.E,
            q.F};
}

Ellipse ellipseOfCentred(Conic const &q)
{
    Ellipse e;
    e.cx = 0.0;
    e.cy = 0.0;
    e.angle = axisAngle(q.A, q.B, q.C);
    double const c = std::cos(e.angle);
    double const s = std::sin(e.angle);
    e.a = 1.0 / std::sqrt(q.A * c * c + 2.0 * q.B * s * c + q.C * s * s);
    e.b = 1.0 / std::sqrt(q.A * s * s - 2.0 * q.B * s * c + q.C * c * c);
    if (e.b > e.a) {
        std::swap(e.a, e.b);
        e.angle += 1.5707963267948966; // a quarter turn
    }
    return e;
}

Ellipse transformEllipse(Ellipse const &e, TMat const &m)
{
    Ellipse image = ellipseOfCentred(transformCentred(Conic::centred(e), m));
    Point centre{e.cx, e.cy};
    m.apply(centre);
    image.cx = centre.x;
    image.cy = centre.y;
    return image;
}

} // namespace mathPoly
