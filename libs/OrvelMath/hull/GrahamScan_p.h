#pragma once

#include <OrvelMath/hull/PolarRecord_p.h>

#include <QtCore/QList>
#include <QtCore/QVector>

/// Graham's scan: takes points in the order of their angle around the start and keeps the corners
/// of the convex polygon.
class GrahamScan
{
public:
    /// Index of a record of which only the position is known.
    static constexpr int undecided = -1;

    explicit GrahamScan(PolarRecord const &start)
        : m_start(start)
    {
        m_stack.append(start);
    }

    /// The next point: the farthest at its angle.
    void add(PolarRecord const &record)
    {
        if (m_ended) {
            return;
        }
        if (!m_hasFirst) {
            m_hasFirst = true;
            m_stack.append(record);
            return;
        }
        while (m_stack.size() >= 2) {
            if (turnsLeft(record.position)) {
                m_stack.append(record);
                return;
            }
            m_stack.removeLast();
        }
        m_ended = true;
    }

    /// Closes the polygon and returns the indices of its corners.
    QList<int> close()
    {
        add(m_start);
        QList<int> indices;
        indices.reserve(m_stack.size());
        // The last entry is the start once more, which closed the polygon.
        for (int i = 0; i + 1 < m_stack.size(); ++i) {
            indices.append(m_stack.at(i).index);
        }
        return indices;
    }

private:
    /// True if the way from the entry under the top over the top turns left to `p`; no tolerance.
    bool turnsLeft(vectorC2d<double> const &p) const
    {
        vectorC2d<double> const &a = m_stack.at(m_stack.size() - 2).position;
        vectorC2d<double> const &b = m_stack.at(m_stack.size() - 1).position;
        return (a.y() - p.y()) * (b.x() - p.x()) - (b.y() - p.y()) * (a.x() - p.x()) < 0.0;
    }

    PolarRecord m_start;
    QVector<PolarRecord> m_stack;
    bool m_hasFirst = false;
    bool m_ended = false; ///< the stack has fallen to one entry: nothing can follow
};
