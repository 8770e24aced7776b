#pragma once

#include <OrvelMath/hull/HullFace_p.h>

#include <algorithm>

/// Faces that wait for expansion, the largest outside distance first.
///
/// Behaves as a sorted map from distance to face with unique keys: a face that comes in under a key
/// that is present takes the place of the one stored there. It is a heap nevertheless, several
/// times as fast: faces come in by ascending number, so among equal keys the largest number is the
/// one a map would hold, and when it is taken the others leave with it.
class HullQueue
{
public:
    /// Puts in a face with outside points. Faces come in the order of their numbers.
    void insert(HullFace *face)
    {
        m_heap.push_back({face->furthestDistance, face});
        std::push_heap(m_heap.begin(), m_heap.end());
    }

    /// Takes out the entry with the largest key; null if there is none.
    HullFace *takeLargest()
    {
        if (m_heap.empty()) {
            return nullptr;
        }
        Entry const largest = m_heap.front();
        do {
            std::pop_heap(m_heap.begin(), m_heap.end());
            m_heap.pop_back();
        } while (!m_heap.empty() && m_heap.front().distance == largest.distance);
        return largest.face;
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

    HullVector<Entry> m_heap;
};
