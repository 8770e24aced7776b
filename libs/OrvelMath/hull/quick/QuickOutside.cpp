#include <OrvelMath/hull/quick/QuickOutside_p.h>

#include <OrvelMath/hull/quick/HullBlock_p.h>

#include <algorithm>
#include <limits>

QuickOutside::QuickOutside(HullPoints const &points)
    : m_points(points)
{
    m_waiting.reserve(points.size());
}

void QuickOutside::distribute(HullVector<HullFace *> const &faces)
{
    // No height reaches the furthest distance of the slot that stands for no face.
    m_slots.assign(1, {std::numeric_limits<double>::infinity(), -1, 0});
    m_slots.resize(faces.size() + 1, {0.0, -1, 0});
    assign(faces);
    handOut(faces);
    m_waiting.clear();
}

/// Finds the face of each waiting point, a block at a time, and the furthest point of each face.
void QuickOutside::assign(HullVector<HullFace *> const &faces)
{
    m_slotOf.resize(m_waiting.size());
    HullBlock block;
    for (std::size_t first = 0; first < m_waiting.size(); first += HullBlock::capacity) {
        block.load(m_points, m_waiting.data() + first,
                   std::min(HullBlock::capacity, m_waiting.size() - first));
        long long slot = 0;
        for (HullFace const *face : faces) {
            if (!block.claim(++slot, pointAt(m_points, face->corner), face->normal)) {
                break;
            }
        }
        noteBlock(block, first);
    }
}

/// Notes the findings of a block whose first point is the waiting point `first`.
void QuickOutside::noteBlock(HullBlock const &block, std::size_t first)
{
    for (std::size_t i = 0; i < block.size; ++i) {
        std::size_t const number = static_cast<std::size_t>(block.slot[i]);
        m_slotOf[first + i] = static_cast<int>(number);
        Slot &slot = m_slots[number];
        ++slot.count;
        if (block.height[i] >= slot.furthestDistance && number > 0) {
            noteFurthest(slot, m_waiting[first + i], block.height[i]);
        }
    }
}

/// Of points equally far the lexicographically smallest is the furthest.
void QuickOutside::noteFurthest(Slot &slot, int index, double height) const
{
    if (height > slot.furthestDistance ||
        lexicographicallyLess(pointAt(m_points, index), pointAt(m_points, slot.furthestPoint))) {
        slot.furthestPoint = index;
        slot.furthestDistance = height;
    }
}

/// Sorts the waiting points by their face, keeping their order, and gives each face its part.
void QuickOutside::handOut(HullVector<HullFace *> const &faces)
{
    m_grouped.reserve(static_cast<int>(m_waiting.size()));
    while (static_cast<std::size_t>(m_grouped.size()) < m_waiting.size()) {
        m_grouped.append(0);
    }
    int end = 0;
    for (Slot &slot : m_slots) {
        end += slot.count;
        slot.count = end - slot.count; // from here on the place of its next point
    }
    QList<int>::iterator const grouped = m_grouped.begin();
    for (std::size_t i = 0; i < m_waiting.size(); ++i) {
        Slot &slot = m_slots[static_cast<std::size_t>(m_slotOf[i])];
        grouped[slot.count] = m_waiting[i];
        ++slot.count;
    }
    for (std::size_t i = 0; i < faces.size(); ++i) {
        Slot const &slot = m_slots[i + 1];
        int const begin = m_slots[i].count;
        faces[i]->outsidePoints = m_grouped.mid(begin, slot.count - begin);
        faces[i]->furthestPoint = slot.furthestPoint;
        faces[i]->furthestDistance = slot.furthestDistance;
    }
}
