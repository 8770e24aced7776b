#include <OrvelMath/numerics/LinearDiophantineEquationC.h>

#include <algorithm>
#include <utility>

namespace {

// Wrapping arithmetic: through unsigned, whose overflow is defined, and back.

int sum(int p, int q)
{
    return int(unsigned(p) + unsigned(q));
}

int difference(int p, int q)
{
    return int(unsigned(p) - unsigned(q));
}

int product(int p, int q)
{
    return int(unsigned(p) * unsigned(q));
}

int negated(int p)
{
    return int(0u - unsigned(p));
}

/// Quotient truncated towards zero. A divisor of 0, and -2147483648 by -1, are left to the
/// processor, which faults.
#if defined(__GNUC__)
__attribute__((no_sanitize("undefined")))
#endif
int quotient(int p, int d)
{
    return p / d;
}

bool divides(int d, int p)
{
    return difference(p, product(quotient(p, d), d)) == 0;
}

/// p/d, its fraction rounded up in magnitude for a positive p and dropped for a negative one; a
/// quotient of magnitude below 1 stays 0, since the sign that decides is that of the truncated one.
int roundedQuotient(int p, int d)
{
    int const q = quotient(p, d);
    if (difference(p, product(q, d)) == 0) {
        return q;
    }
    if (d > 0 && q > 0) {
        return sum(q, 1);
    }
    if (d < 0 && q < 0) {
        return difference(q, 1);
    }
    return q;
}

} // namespace

LinearDiophantineEquationC::LinearDiophantineEquationC(int a, int b)
    : m_a(a)
    , m_b(b)
{
    init();
}

void LinearDiophantineEquationC::init()
{
    // Invariant: a*s0 + b*t0 = r0 and a*s1 + b*t1 = r1. With b = 0 the loop has no pass.
    int r0 = m_a, r1 = m_b;
    int s0 = 1, s1 = 0;
    int t0 = 0, t1 = 1;
    auto const advance = [](int &older, int &newer, int q) {
        int const next = difference(older, product(q, newer));
        older = newer;
        newer = next;
    };
    while (r1 != 0) {
        int const q = quotient(r0, r1);
        advance(r0, r1, q);
        advance(s0, s1, q);
        advance(t0, t1, q);
    }
    m_g = r0;
    m_x0 = s0;
    m_y0 = t0;
    m_xStep = quotient(m_b, m_g);
    m_yStep = negated(quotient(m_a, m_g));
}

LinearDiophantineEquationC::LinearDiophantineEquationC(LinearDiophantineEquationC const &) =
    default;
LinearDiophantineEquationC::LinearDiophantineEquationC(LinearDiophantineEquationC &&) noexcept =
    default;
LinearDiophantineEquationC &
LinearDiophantineEquationC::operator=(LinearDiophantineEquationC const &) = default;
LinearDiophantineEquationC &
LinearDiophantineEquationC::operator=(LinearDiophantineEquationC &&) noexcept = default;

bool LinearDiophantineEquationC::solve(int c, int &x, int &y, int &xStep, int &yStep) const
{
    if (!divides(m_g, c)) {
        return false;
    }
    int const k = quotient(c, m_g);
    x = product(k, m_x0);
    y = product(k, m_y0);
    xStep = m_xStep;
    yStep = m_yStep;
    return true;
}

bool LinearDiophantineEquationC::findSolutionInRange(int c, int xMin, int xMax, int yMin, int yMax,
                                                     int &x, int &y) const
{
    int x1, y1, xStep, yStep;
    if (!solve(c, x1, y1, xStep, yStep) || xStep == 0 || yStep == 0) {
        return false;
    }

    // Intervals of t within which x1 + t*xStep and y1 + t*yStep lie in their ranges.
    int t1 = roundedQuotient(difference(xMin, x1), xStep);
    int t2 = roundedQuotient(difference(x1, xMax), negated(xStep));
    int t3 = roundedQuotient(difference(yMin, y1), yStep);
    int t4 = roundedQuotient(difference(y1, yMax), negated(yStep));
    if (t1 > t2) {
        std::swap(t1, t2);
    }
    if (t3 > t4) {
        std::swap(t3, t4);
    }
    int const low = std::max(t1, t3);
    int const high = std::min(t2, t4);
    if (low > high) {
        return false;
    }
    x = sum(product(low, xStep), x1);
    y = sum(product(high, yStep), y1);
    return true;
}

bool LinearDiophantineEquationC::testSolution(int c, int x, int y) const
{
    return sum(product(x, m_a), product(y, m_b)) == c;
}
