#pragma once

#include <OrvelMath/hull/HullFace_p.h>

/// Hands points on to new faces: each goes to the first face that it lies outside of.
class HullOutside
{
public:
    explicit HullOutside(HullPoints const &points);

    /// Lets the point wait for the next distribution.
    void append(int index)
    {
        if (m_waiting.size() < 512) { // more of them would have left the near caches again
            __builtin_prefetch(&m_points[static_cast<std::size_t>(index)]);
        }
        m_waiting.push_back(index);
    }

    /// Offers each waiting point, in the order of their coming, to the faces in their order. A
    /// point stays with the first face that it lies more than 1e-8 above; one that no face takes is
    /// forgotten. The faces come without outside points and get them in the order of the points.
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
