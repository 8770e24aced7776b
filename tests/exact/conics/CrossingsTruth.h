#pragma once

/// @file
/// How often two ellipses meet and where, without a rounding error that could change it.
///
/// With t the tangent of half the angle, the first ellipse in the implicit equation of the second
/// is a polynomial of degree 4 in t with rational coefficients. Sturm's chain counts its roots.

#include <OrvelExact/conics/conicCrossings.h>

#include <boost/multiprecision/cpp_bin_float.hpp>
#include <boost/multiprecision/cpp_int.hpp>

#include <algorithm>
#include <array>
#include <vector>

namespace conicsTruth {

using Integer = boost::multiprecision::cpp_int;
using Real = boost::multiprecision::number<boost::multiprecision::cpp_bin_float<100>,
                                           boost::multiprecision::et_off>;
using Polynomial = std::vector<Integer>; // from the constant on
using orvelExact::Ellipse;
using orvelExact::Point2;

inline void trim(Polynomial &p)
{
    while (!p.empty() && p.back() == 0) {
        p.pop_back();
    }
}

/// The remainder with its sign, times some positive number.
inline Polynomial remainderOf(Polynomial a, Polynomial const &b)
{
    Integer const lead = abs(b.back());
    int const sign = b.back() < 0 ? -1 : 1;
    while (a.size() >= b.size()) {
        Integer const top = a.back() * sign;
        std::size_t const shift = a.size() - b.size();
        for (Integer &x : a) {
            x *= lead;
        }
        for (std::size_t i = 0; i < b.size(); ++i) {
            a[i + shift] -= top * b[i];
        }
        trim(a);
    }
    return a;
}

/// The polynomial, its derivative and the remainders with opposite signs (Sturm 1829).
inline std::vector<Polynomial> sturmChain(Polynomial p)
{
    trim(p);
    std::vector<Polynomial> chain{p};
    Polynomial next;
    for (std::size_t i = 1; i < p.size(); ++i) {
        next.push_back(p[i] * i);
    }
    while (!next.empty()) {
        chain.push_back(next);
        next = remainderOf(chain[chain.size() - 2], chain.back());
        for (Integer &x : next) {
            x = -x;
        }
    }
    return chain;
}

/// How often the signs change along the chain; zeros are left out.
template <class Sign>
int changesAlong(std::vector<Polynomial> const &chain, Sign signOf)
{
    int changes = 0;
    int before = 0;
    for (Polynomial const &p : chain) {
        int const sign = signOf(p);
        changes += sign * before < 0 ? 1 : 0;
        before = sign != 0 ? sign : before;
    }
    return changes;
}

inline int signAtInfinity(Polynomial const &p)
{
    return p.back() > 0 ? 1 : -1;
}

/// The number of distinct real roots.
inline int distinctRealRoots(Polynomial const &p)
{
    std::vector<Polynomial> const chain = sturmChain(p);
    auto const atMinusInfinity = [](Polynomial const &q) {
        return q.size() % 2 == 0 ? -signAtInfinity(q) : signAtInfinity(q);
    };
    return changesAlong(chain, atMinusInfinity) - changesAlong(chain, signAtInfinity);
}

/// The number of distinct roots above 0 of a polynomial that isn't 0 there.
inline int distinctPositiveRoots(Polynomial const &p)
{
    std::vector<Polynomial> const chain = sturmChain(p);
    auto const atZero = [](Polynomial const &q) { return q.front().sign(); };
    return changesAlong(chain, atZero) - changesAlong(chain, signAtInfinity);
}

/// The six components as integers, with one power of two for all of them.
inline Integer scaledInteger(double value, int exponent)
{
    int own = 0;
    double const fraction = std::frexp(value, &own);
    Integer const digits = static_cast<long long>(std::ldexp(fraction, 53));
    return value == 0.0 ? Integer(0) : Integer(digits << (own - 53 - exponent));
}

/// The least exponent that makes integers of all components.
inline int commonExponent(std::array<Ellipse, 2> const &ellipses)
{
    int least = 10000;
    for (Ellipse const &e : ellipses) {
        for (double const x : {e.centre.x(), e.centre.y(), e.u.x(), e.u.y(), e.v.x(), e.v.y()}) {
            int own = 0;
            std::frexp(x, &own);
            least = x == 0.0 ? least : std::min(least, own - 53);
        }
    }
    return least;
}

/// The first ellipse in the equation of the second, by powers of t.
inline Polynomial polynomialOf(Ellipse const &e1, Ellipse const &e2)
{
    int const exponent = commonExponent({e1, e2});
    auto const number = [exponent](double x) { return scaledInteger(x, exponent); };
    Integer const dx = number(e1.centre.x()) - number(e2.centre.x());
    Integer const dy = number(e1.centre.y()) - number(e2.centre.y());
    Integer const ux = number(e1.u.x()), uy = number(e1.u.y());
    Integer const vx = number(e1.v.x()), vy = number(e1.v.y());
    // (1 + t²) times the way from the second centre
    std::array<Integer, 3> const x{dx + ux, 2 * vx, dx - ux};
    std::array<Integer, 3> const y{dy + uy, 2 * vy, dy - uy};
    Integer const u2x = number(e2.u.x()), u2y = number(e2.u.y());
    Integer const v2x = number(e2.v.x()), v2y = number(e2.v.y());
    Integer const area = u2x * v2y - u2y * v2x;
    Polynomial p(5, Integer(0));
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            p[i + j] += (x[i] * v2y - y[i] * v2x) * (x[j] * v2y - y[j] * v2x) +
                        (u2x * y[i] - u2y * x[i]) * (u2x * y[j] - u2y * x[j]);
        }
    }
    p[0] -= area * area;
    p[2] -= 2 * area * area;
    p[4] -= area * area;
    return p;
}

/// In how many points two ellipses meet, contacts counted once; -1 when they are the same.
inline int meetingsOf(Ellipse const &e1, Ellipse const &e2)
{
    Polynomial p = polynomialOf(e1, e2);
    int const atInfinity = p[4] == 0 ? 1 : 0; // the direction (-1, 0)
    trim(p);
    return p.empty() ? -1 : distinctRealRoots(p) + atInfinity;
}

struct RealPoint
{
    Real x;
    Real y;
};

/// What the implicit function of the second ellipse is along the first, in a hundred digits.
class Along
{
public:
    Along(Ellipse const &e1, Ellipse const &e2)
        : m_first(e1)
        , m_dx(Real(e1.centre.x()) - e2.centre.x())
        , m_dy(Real(e1.centre.y()) - e2.centre.y())
        , m_area(Real(e2.u.x()) * e2.v.y() - Real(e2.u.y()) * e2.v.x())
    {
        m_p = measured(m_dx, m_dy, e2);
        m_u = measured(e1.u.x(), e1.u.y(), e2);
        m_v = measured(e1.v.x(), e1.v.y(), e2);
    }

    /// Moves a direction to the nearest zero by Newton's steps; false if they don't settle.
    bool settle(Real &c, Real &s) const
    {
        Real last = 1;
        for (int step = 0; step < 250; ++step) {
            Real const length = sqrt(c * c + s * s);
            c /= length;
            s /= length;
            Real const x = m_p.x + m_u.x * c + m_v.x * s, dx = m_v.x * c - m_u.x * s;
            Real const y = m_p.y + m_u.y * c + m_v.y * s, dy = m_v.y * c - m_u.y * s;
            Real const slope = 2 * (x * dx + y * dy);
            Real const turn = slope == 0 ? Real(0) : Real(-(x * x + y * y - 1) / slope);
            Real const before = c;
            c -= turn * s;
            s += turn * before;
            last = abs(turn);
            if (last < 1e-40) {
                return true;
            }
        }
        return last < 1e-20; // a contact: each step only halves the distance, or less
    }
    RealPoint pointAt(Real const &c, Real const &s) const
    {
        return {m_first.centre.x() + c * m_first.u.x() + s * m_first.v.x(),
                m_first.centre.y() + c * m_first.u.y() + s * m_first.v.y()};
    }

private:
    RealPoint measured(Real const &x, Real const &y, Ellipse const &e) const
    {
        return {(x * e.v.y() - y * e.v.x()) / m_area, (e.u.x() * y - e.u.y() * x) / m_area};
    }

    Ellipse m_first;
    Real m_dx;
    Real m_dy;
    Real m_area;
    RealPoint m_p;
    RealPoint m_u;
    RealPoint m_v;
};

inline double largerSemiAxis(Ellipse const &e)
{
    double const uu = e.u.squaredLength(), vv = e.v.squaredLength(), uv = e.u.dot(e.v);
    double const half = 0.5 * (uu - vv);
    return std::sqrt(0.5 * (uu + vv) + std::sqrt(half * half + uv * uv));
}

/// The greatest distance of a crossing given from the true one that it belongs to, beyond half a
/// unit in the last place, by the larger semi-axis; 1 if it belongs to none or two share one.
inline double worstError(Ellipse const &e1, Ellipse const &e2,
                         orvelExact::ConicCrossings const &found)
{
    Along const along(e1, e2);
    double const axis = std::max(largerSemiAxis(e1), largerSemiAxis(e2));
    std::vector<RealPoint> seen;
    double worst = 0.0;
    for (int i = 0; i < found.count; ++i) {
        orvelExact::ConicCrossing const &x = found.crossings[i];
        Real c = x.onFirst.x(), s = x.onFirst.y();
        if (!along.settle(c, s)) {
            return 1.0;
        }
        RealPoint const p = along.pointAt(c, s);
        for (RealPoint const &other : seen) {
            if (abs(p.x - other.x) + abs(p.y - other.y) < 1e-20 * axis) {
                return 1.0;
            }
        }
        seen.push_back(p);
        double const ulp = 0x1p-53 * std::max(std::fabs(x.point.x()), std::fabs(x.point.y()));
        double const off =
            static_cast<double>(std::max<Real>(abs(p.x - x.point.x()), abs(p.y - x.point.y())));
        worst = std::max(worst, (off - ulp) / axis);
    }
    return worst;
}

} // namespace conicsTruth
