#pragma once

/// @file
/// The hand-over of points to new faces, many points at a time.

#include <OrvelMath/hull/HullFace_p.h>

/// Does what HullOutside does. Each point is compared with the same faces in the same order by the
/// same arithmetic; only the points take turns in another way: all points of a block look at one
/// face before the next one. A point's face doesn't depend on the other points, and each face gets
/// its points and its furthest point in the order of their coming.
class QuickOutside
{
public:
    explicit QuickOutside(HullPoints const &points);

    /// Lets the point wait for the next distribution.
    void append(int index)
    {
        if (m_waiting.size() < 512) { // more of them would have left the near caches again
            __builtin_prefetch(&pointAt(m_points, index));
        }
        m_waiting.push_back(index);
    }

    /// Offers each waiting point, in the order of their coming, to the faces in their order. It
    /// stays with the first that takes it; one that no face takes is forgotten. The faces come
    /// without outside points.
    void distribute(HullVector<HullFace *> const &faces);

private:
    /// What a face is going to get. The first slot stands for no face.
    struct Slot
    {
        double furthestDistance;
        int furthestPoint;
        int count;
    };

    void assign(HullVector<HullFace *> const &faces);
    void noteBlock(struct HullBlock const &block, std::size_t first);
    void noteFurthest(Slot &slot, int index, double height) const;
    void handOut(HullVector<HullFace *> const &faces);

    HullPoints const &m_points;
    HullVector<int> m_waiting;
    HullVector<int> m_slotOf; ///< for each waiting point
    HullVector<Slot> m_slots;
    QList<int> m_grouped; ///< the points by face; a list, of which parts are copied as a whole
};
