#pragma once

/// @file
/// The order in which the faces of a hull are expanded.

#include <OrvelMath/hull/HullSurface_p.h>

#include <QtCore/QMap>

#include <iterator>

/// Numbers of the faces that wait for expansion, the largest outside distance first.
///
/// Keys are unique: a face that comes in under a key that is present takes the place of the one
/// stored there, which is then not expanded from the queue any more. On symmetric input, where two
/// faces can have exactly the same distance, the hull may therefore miss points.
class HullQueue
{
public:
    HullQueue(HullSurface const &, HullPoints const &) {}

    void insert(HullFace const &face) { m_faces.insert(face.furthestDistance, face.number); }

    /// Takes out the entry with the largest key. False if there is none.
    bool takeLargest(unsigned &number)
    {
        if (m_faces.isEmpty()) {
            return false;
        }
        number = m_faces.last();
        m_faces.erase(std::prev(m_faces.end()));
        return true;
    }

private:
    QMap<double, unsigned> m_faces;
};
