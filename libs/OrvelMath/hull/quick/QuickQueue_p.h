#pragma once

/// @file
/// The order in which the faces of a hull are expanded, for many faces.

#include <OrvelMath/hull/HullSurface_p.h>

#include <limits>

/// Does what HullQueue does.
///
/// A face without outside points is never expanded: it would only leave the queue again, and it
/// could only take the place of another such face, since all others have a distance above 1e-8. So
/// it doesn't come in. Faces come in by ascending number. So among equal keys the largest number is
/// the one that a map would hold; when it is taken the others leave with it.
///
/// A hull can have a million faces, and a map or heap of them lies all over the memory. Only the
/// largest entries are kept in order, as a sorted front; the rest waits unsorted for its turn. Thus
/// it is known which faces come next, and they are fetched in time.
class QuickQueue
{
public:
    QuickQueue(HullSurface const &surface, HullPoints const &points)
        : m_surface(surface)
        , m_points(points)
    {
    }

    void insert(HullFace const &face);

    /// Takes out the entry with the largest key. False if there is none.
    bool takeLargest(unsigned &number);

private:
    struct Entry
    {
        double distance; ///< never NaN
        unsigned number;

        bool operator<(Entry const &o) const
        {
            return distance < o.distance || (distance == o.distance && number < o.number);
        }
    };

    bool largestIsLate() const
    {
        return m_front.empty() || (!m_late.empty() && m_front.back() < m_late.front());
    }
    Entry const &largest() const { return largestIsLate() ? m_late.front() : m_front.back(); }
    void removeLargest();
    void sortNextFront();
    void fetchAhead() const;

    HullSurface const &m_surface;
    HullPoints const &m_points;
    HullVector<Entry> m_front; ///< ascending: the largest is the last
    HullVector<Entry> m_late;  ///< a heap of what came in above the floor since
    HullVector<Entry> m_rest;  ///< below the floor
    double m_floor = std::numeric_limits<double>::infinity(); ///< smallest key of the front
};
