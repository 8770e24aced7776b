#pragma once

/// @file
/// Graham's scan and the records that it sees (Graham, 1972).

#include <OrvelMath/base/vectorC.h>

#include <QtCore/QList>
#include <QtCore/QVector>

#include <cmath>
#include <cstddef>
#include <vector>

/// A point as seen from the start point of a scan.
struct PolarRecord
{
    vectorC2d<double> position;
    double angle;    ///< direction from the start, radians
    double distance; ///< from the start, in the units of the points
    int index;       ///< position in the input

    /// By angle, then by distance; exact.
    bool operator<(PolarRecord const &o) const
    {
        return angle < o.angle || (angle == o.angle && distance < o.distance);
    }
};

/// The record of the point `index`, seen from the point `start`.
inline PolarRecord polarRecord(QVector<vectorC2d<double>> const &points, int start, int index)
{
    vectorC2d<double> const offset = points[index] - points[start];
    return {points[index], std::atan2(offset.y(), offset.x()), offset.length(), index};
}

/// True if an offset from the start is so short that its point counts as a copy of the start.
inline bool isCopyOfStart(vectorC2d<double> const &offset)
{
    return offset.length() < 1e-8; // a length
}

/// Takes points in the order of their angle around the start and keeps the corners of the convex
/// polygon.
class GrahamScan
{
public:
    /// @param start,index  the start point and its index
    GrahamScan(vectorC2d<double> const &start, int index) { m_stack.push_back({start, index}); }

    /// The next point: the farthest at its angle.
    void add(vectorC2d<double> const &position, int index)
    {
        if (m_ended) {
            return;
        }
        if (!m_hasFirst) {
            m_hasFirst = true;
            m_stack.push_back({position, index});
            return;
        }
        while (m_stack.size() >= 2) {
            if (turnsLeft(position)) {
                m_stack.push_back({position, index});
                return;
            }
            m_stack.pop_back();
        }
        m_ended = true;
    }

    /// Closes the polygon and returns the indices of its corners.
    QList<int> close()
    {
        add(m_stack.front().position, m_stack.front().index);
        QList<int> indices;
        indices.reserve(static_cast<int>(m_stack.size()));
        // The last entry is the start once more, which closed the polygon. It is left out by its
        // place, whatever it is: a scan that has ended leaves the start alone on the stack.
        for (std::size_t i = 0; i + 1 < m_stack.size(); ++i) {
            indices.append(m_stack[i].index);
        }
        return indices;
    }

private:
    struct Corner
    {
        vectorC2d<double> position;
        int index;
    };

    /// True if the way from the entry under the top over the top turns left to `p`; no tolerance.
    bool turnsLeft(vectorC2d<double> const &p) const
    {
        vectorC2d<double> const &a = m_stack[m_stack.size() - 2].position;
        vectorC2d<double> const &b = m_stack[m_stack.size() - 1].position;
        return (a.y() - p.y()) * (b.x() - p.x()) - (b.y() - p.y()) * (a.x() - p.x()) < 0.0;
    }

    std::vector<Corner> m_stack;
    bool m_hasFirst = false;
    bool m_ended = false; ///< the stack has fallen to one entry: nothing can follow
};

/// Gives the scan the farthest record of each run of equal angles; the records are sorted.
template <typename Records>
void addFarthestPerAngle(Records const &sorted, GrahamScan &scan)
{
    PolarRecord const *kept = nullptr;
    double lastAngle = -1e6; // far from every angle
    double lastDistance = -1.0;
    for (PolarRecord const &record : sorted) {
        // Radians. A run is measured against its first angle, not against the neighbour's.
        if (!(std::abs(lastAngle - record.angle) < 1e-8)) {
            if (kept) {
                scan.add(kept->position, kept->index);
            }
            lastAngle = record.angle;
        } else if (!(record.distance > lastDistance)) {
            continue;
        }
        kept = &record;
        lastDistance = record.distance;
    }
    if (kept) {
        scan.add(kept->position, kept->index);
    }
}
