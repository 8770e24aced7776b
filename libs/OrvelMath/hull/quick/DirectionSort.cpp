#include <OrvelMath/hull/quick/DirectionSort_p.h>

#include <OrvelMath/hull/GrahamScan_p.h>

#include <array>
#include <cmath>

bool DirectionSort::sort(QVector<vectorC2d<double>> const &points, int start)
{
    if (!readDirections(points, start)) {
        return false;
    }
    sortItems();
    return true;
}

bool DirectionSort::readDirections(QVector<vectorC2d<double>> const &points, int start)
{
    m_items.reset(new std::uint64_t[static_cast<std::size_t>(points.size())]);
    m_size = 0;
    vectorC2d<double> const origin = points[start];
    for (int i = 0; i < points.size(); ++i) {
        vectorC2d<double> const offset = points[i] - origin;
        double const span = offset.x() + std::abs(offset.y());
        if (!(span < 1e150)) { // a square must not overflow
            return false;
        }
        // The start itself or a copy of it. The length is at least span / sqrt(2), so that most
        // points need no root.
        if (span < 1e-7 && isCopyOfStart(offset)) {
            continue;
        }
        std::uint64_t const direction = directionOf(offset);
        m_items[m_size++] = direction << 32 | static_cast<std::uint32_t>(i);
    }
    return true;
}

/// Radix sort by the direction, from its lowest digit to its highest.
void DirectionSort::sortItems()
{
    constexpr unsigned digitBits = 11;
    constexpr std::size_t digitCount = 3;
    constexpr std::uint64_t mask = (1u << digitBits) - 1;
    auto const digit = [](std::uint64_t item, std::size_t place) {
        return item >> (32 + place * digitBits) & mask;
    };

    std::array<std::array<std::uint32_t, mask + 1>, digitCount> places{};
    for (std::size_t i = 0; i < m_size; ++i) {
        for (std::size_t place = 0; place < digitCount; ++place) {
            ++places[place][digit(m_items[i], place)];
        }
    }
    std::unique_ptr<std::uint64_t[]> other(new std::uint64_t[m_size]);
    for (std::size_t place = 0; place < digitCount; ++place) {
        std::uint32_t next = 0;
        for (std::uint32_t &count : places[place]) {
            next += count;
            count = next - count; // from here on the place of the next item with this digit
        }
        for (std::size_t i = 0; i < m_size; ++i) {
            other[places[place][digit(m_items[i], place)]++] = m_items[i];
        }
        m_items.swap(other);
    }
}
