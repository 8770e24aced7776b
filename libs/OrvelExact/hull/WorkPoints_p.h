#pragma once

/// @file
/// Rounded coordinates for the filters of a hull.

#include <OrvelExact/base/points.h>

#include <array>

namespace orvelExact {

/// Points in rounded coordinates for filters: each axis moved and scaled by a power of two of its
/// own, so that the components lie in [-1, 1].
///
/// Scaling an axis keeps the sign of every orientation. A component is off by at most 2^-53, which
/// the bounds of `HullPlane` count in. `isExact` tells that none is off and that all of them are
/// multiples of 2^-15: then the height of a point over a plane is exact in doubles.
class WorkPoints
{
public:
    /// At least one point. The array stays with the caller and must outlive this object.
    WorkPoints(Point3 const *points, int count);

    int count() const { return m_count; }
    /// False if a component is NaN or infinite; then nothing else holds.
    bool isFinite() const { return m_isFinite; }
    bool isExact() const { return m_isExact; }
    /// The coordinates for filters.
    Point3 rounded(int index) const
    {
        Point3 const &p = m_points[index];
        return {p.x() * m_scale.x() - m_center.x(), p.y() * m_scale.y() - m_center.y(),
                p.z() * m_scale.z() - m_center.z()};
    }
    /// For each axis the first point that is lowest and the first that is highest.
    std::array<int, 6> const &extremes() const { return m_extremes; }
    /// The point as it was given.
    Point3 const &exact(int index) const { return m_points[index]; }

private:
    void findExtremes();
    void fitBox();
    bool isOnGrid() const;

    Point3 const *m_points;
    int m_count;
    Point3 m_scale;
    Point3 m_center; ///< scaled
    std::array<int, 6> m_extremes{};
    bool m_isFinite = true;
    bool m_isExact = false;
};

} // namespace orvelExact
