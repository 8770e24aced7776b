#pragma once

/// @file
/// Random ellipses, and how many of them.

#include <OrvelExact/conics/Ellipse.h>

#include <cmath>
#include <cstdlib>
#include <random>

namespace samples {

using orvelExact::circle;
using orvelExact::Ellipse;
using orvelExact::ellipseAtAngle;
using orvelExact::Point2;

/// How many cases: more with ORVEL_LONG_TESTS=1.
inline int cases(int few)
{
    char const *const isLong = std::getenv("ORVEL_LONG_TESTS");
    return isLong != nullptr && *isLong == '1' ? 30 * few : few;
}

class AnyEllipse
{
public:
    explicit AnyEllipse(unsigned seed)
        : m_engine(seed)
    {
    }
    double number(double lo, double hi)
    {
        return lo + (hi - lo) * static_cast<double>(m_engine() >> 11) * 0x1p-53;
    }
    int whole(int lo, int hi)
    {
        return lo + static_cast<int>(m_engine() % static_cast<unsigned>(hi - lo + 1));
    }
    double power(double lo, double hi) { return std::pow(10.0, number(lo, hi)); }
    Ellipse operator()(double spread, double smallest, double largest)
    {
        double const x = number(-spread, spread);
        double const y = number(-spread, spread);
        double const angle = number(0, 6.28);
        double const a = number(smallest, largest);
        return ellipseAtAngle({x, y}, angle, a, number(smallest, largest)).ellipse;
    }
    Ellipse onLattice(int reach)
    {
        Point2 const centre(whole(-reach, reach), whole(-reach, reach));
        switch (whole(0, 2)) {
        case 0:
            return circle(centre, whole(1, reach));
        case 1:
            return {centre, Point2(whole(1, reach), 0.0), Point2(0.0, whole(1, reach))};
        default:
            break;
        }
        for (;;) {
            Point2 const u(whole(-reach, reach), whole(-reach, reach));
            Point2 const v(whole(-reach, reach), whole(-reach, reach));
            if (u.x() * v.y() != u.y() * v.x()) {
                return {centre, u, v};
            }
        }
    }

private:
    std::mt19937_64 m_engine;
};

} // namespace samples
