#pragma once

#include <OrvelMath/hull/HullFace_p.h>

#include <limits>

/// Faces that wait for expansion, the largest outside distance first.
///
/// Behaves as a sorted map from distance to face with unique keys: a face that comes in under a key
/// that is present takes the place of the one stored there. Faces come in by ascending number, so
/// among equal keys the largest number is the one a map would hold; when it is taken the others
/// leave with it.
///
/// A hull can have a million faces, and a map or heap of them lies all over the memory. Only the
/// largest entries are kept in order, as a sorted front; the rest waits unsorted for its turn. Thus
/// it is known which faces come next, and they can be fetched in time.
class HullQueue
{
public:
    /// Puts in a face with outside points.
    void insert(HullFace *face);

    /// Takes out the entry with the largest key; null if there is none.
    HullFace *takeLargest();

    /// The face that comes `steps` after the next one, as far as is known now; null if it isn't.
    HullFace *lookAhead(std::size_t steps) const
    {
        return steps < m_front.size() ? m_front[m_front.size() - 1 - steps].face : nullptr;
    }

private:
    struct Entry
    {
        double distance; ///< never NaN
        HullFace *face;

        bool operator<(Entry const &o) const
        {
            return distance < o.distance ||
                   (distance == o.distance && face->number < o.face->number);
        }
    };

    bool largestIsLate() const
    {
        return m_front.empty() || (!m_late.empty() && m_front.back() < m_late.front());
    }
    Entry const &largest() const { return largestIsLate() ? m_late.front() : m_front.back(); }
    void removeLargest();
    void sortNextFront();

    HullVector<Entry> m_front; ///< ascending: the largest is the last
    HullVector<Entry> m_late;  ///< a heap of what came in above the floor since
    HullVector<Entry> m_rest;  ///< below the floor
    double m_floor = std::numeric_limits<double>::infinity(); ///< smallest key of the front
};
