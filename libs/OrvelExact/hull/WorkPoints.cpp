#include <OrvelExact/hull/WorkPoints_p.h>

#include <algorithm>
#include <cmath>

namespace orvelExact {

namespace {

constexpr double stepsPerUnit = 32768.0; // of the grid

/// The nearest whole number, for sizes below 2^51.
double nearestWhole(double value)
{
    constexpr double shift = 6755399441055744.0; // 1.5 * 2^52
    return (value + shift) - shift;
}

/// Where the lowest point of an axis is among the extremes; the highest follows.
std::size_t lowPlace(int axis)
{
    return 2 * static_cast<std::size_t>(axis);
}

} // namespace

WorkPoints::WorkPoints(Point3 const *points, int count)
    : m_points(points)
    , m_count(count)
{
    findExtremes();
    if (m_isFinite) {
        fitBox();
        m_isExact = isOnGrid();
    }
}

void WorkPoints::findExtremes()
{
    Point3 minimum = m_points[0];
    Point3 maximum = m_points[0];
    double zeros = 0.0; // unless a component is NaN or infinite
    for (int i = 0; i < m_count; ++i) {
        for (int k = 0; k < 3; ++k) {
            double const value = m_points[i][k];
            zeros += value * 0.0;
            if (value < minimum[k]) {
                minimum[k] = value;
                m_extremes[lowPlace(k)] = i;
            }
            if (value > maximum[k]) {
                maximum[k] = value;
                m_extremes[lowPlace(k) + 1] = i;
            }
        }
    }
    m_isFinite = zeros == 0.0;
}

void WorkPoints::fitBox()
{
    Point3 minimum;
    Point3 maximum;
    for (int k = 0; k < 3; ++k) {
        minimum[k] = m_points[m_extremes[lowPlace(k)]][k];
        maximum[k] = m_points[m_extremes[lowPlace(k) + 1]][k];
    }
    for (int k = 0; k < 3; ++k) {
        double const half = 0.5 * maximum[k] - 0.5 * minimum[k];
        if (half == 0.0) { // one value, or the two smallest doubles apart
            m_scale[k] = 0.0;
            m_center[k] = 0.0;
            continue;
        }
        int const exponent = std::min(-std::ilogb(half) - 1, 1000);
        m_scale[k] = std::ldexp(1.0, exponent);
        double const middle = (0.5 * maximum[k] + 0.5 * minimum[k]) * m_scale[k];
        bool const fitsGrid = std::fabs(middle) < 1e9;
        m_center[k] = fitsGrid ? nearestWhole(middle * stepsPerUnit) / stepsPerUnit : middle;
    }
}

bool WorkPoints::isOnGrid() const
{
    for (int k = 0; k < 3; ++k) {
        if (m_scale[k] == 0.0) {
            return false; // such points are flat or nearly so
        }
        for (int i = 0; i < m_count; ++i) {
            double const steps = m_points[i][k] * m_scale[k] * stepsPerUnit;
            if (!(std::fabs(steps) < 1e14) || steps != nearestWhole(steps)) {
                return false;
            }
        }
    }
    return true;
}

} // namespace orvelExact
