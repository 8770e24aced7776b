#include <OrvelMath/hull/HullQueue_p.h>

#include <algorithm>

void HullQueue::insert(HullFace *face)
{
    Entry const entry{face->furthestDistance, face};
    if (entry.distance >= m_floor) {
        m_late.push_back(entry);
        std::push_heap(m_late.begin(), m_late.end());
    } else {
        m_rest.push_back(entry);
    }
}

HullFace *HullQueue::takeLargest()
{
    if (m_front.empty() && m_late.empty()) {
        sortNextFront();
        if (m_front.empty()) {
            return nullptr;
        }
    }
    Entry const taken = largest();
    // Equal keys are all here: the rest lies below the floor.
    do {
        removeLargest();
    } while (!(m_front.empty() && m_late.empty()) && largest().distance == taken.distance);
    return taken.face;
}

void HullQueue::removeLargest()
{
    if (largestIsLate()) {
        std::pop_heap(m_late.begin(), m_late.end());
        m_late.pop_back();
    } else {
        m_front.pop_back();
    }
}

/// Moves the largest eighth of the rest to the front, with all that equal the smallest of them.
void HullQueue::sortNextFront()
{
    if (m_rest.empty()) {
        return;
    }
    auto const largerKey = [](Entry const &a, Entry const &b) { return a.distance > b.distance; };
    auto const last = m_rest.begin() + static_cast<std::ptrdiff_t>(m_rest.size() / 8);
    std::nth_element(m_rest.begin(), last, m_rest.end(), largerKey);
    m_floor = last->distance;
    auto const begin = std::partition(m_rest.begin(), m_rest.end(), [this](Entry const &entry) {
        return entry.distance < m_floor;
    });
    m_front.assign(begin, m_rest.end());
    m_rest.erase(begin, m_rest.end());
    std::sort(m_front.begin(), m_front.end());
}
