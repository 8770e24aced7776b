#include <OrvelExact/hull/OutsidePool_p.h>

namespace orvelExact {

OutsidePoint *OutsidePool::take(int count)
{
    if (count == 0) {
        return nullptr;
    }
    int const size = classOf(count);
    if (size >= classCount) {
        return std::allocator<OutsidePoint>().allocate(static_cast<std::size_t>(count));
    }
    if (!m_free[size].empty()) {
        OutsidePoint *const points = m_free[size].back();
        m_free[size].pop_back();
        return points;
    }
    int const length = step * (size + 1);
    if (m_usedOfSlab + length > pointsPerSlab) {
        m_slabs.push_back(std::make_unique<OutsidePoint[]>(pointsPerSlab));
        m_usedOfSlab = 0;
    }
    OutsidePoint *const points = m_slabs.back().get() + m_usedOfSlab;
    m_usedOfSlab += length;
    return points;
}

void OutsidePool::give(OutsidePoint *points, int count)
{
    if (count == 0) {
        return;
    }
    int const size = classOf(count);
    if (size >= classCount) {
        std::allocator<OutsidePoint>().deallocate(points, static_cast<std::size_t>(count));
        return;
    }
    m_free[size].push_back(points);
}

} // namespace orvelExact
