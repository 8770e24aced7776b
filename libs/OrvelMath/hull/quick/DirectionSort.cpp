#include <OrvelMath/hull/quick/DirectionSort_p.h>

#include <OrvelMath/hull/GrahamScan_p.h>

#include <algorithm>
#include <array>

namespace {

constexpr unsigned digitBits = 11;
constexpr unsigned bitsBelowHighest = 32 - digitBits;

/// A part of so many items fits in the nearest cache, and a place in it in the bits that a key has
/// left beside the direction.
constexpr std::size_t smallPart = std::size_t(1) << (32 - bitsBelowHighest);

/// Fewer keys are sorted faster by comparing them.
constexpr std::size_t fewKeys = 64;

/// For each digit the place of its next item, from the numbers of items.
template <typename Counts>
void countsToPlaces(Counts &counts)
{
    std::uint32_t next = 0;
    for (std::uint32_t &count : counts) {
        next += count;
        count = next - count;
    }
}

} // namespace

bool DirectionSort::sort(QVector<vectorC2d<double>> const &points, int start)
{
    if (!readDirections(points, start)) {
        return false;
    }
    partByHighestDigit(points);
    return true;
}

bool DirectionSort::readDirections(QVector<vectorC2d<double>> const &points, int start)
{
    m_directions.reserve(static_cast<std::size_t>(points.size()));
    vectorC2d<double> const origin = points[start];
    for (vectorC2d<double> const &p : points) {
        vectorC2d<double> const offset = p - origin;
        double const span = offset.x() + std::abs(offset.y());
        if (!(span < 1e150)) { // a square must not overflow
            return false;
        }
        // The start itself or a copy of it. The length is at least span / sqrt(2), so that most
        // points need no root.
        bool const isCopy = span < 1e-7 && isCopyOfStart(offset);
        m_directions.push_back(isCopy ? noDirection : directionOf(offset));
    }
    return true;
}

/// Makes the items in parts by the highest digit of their direction, and sorts each part.
void DirectionSort::partByHighestDigit(QVector<vectorC2d<double>> const &points)
{
    std::array<std::uint32_t, 1u << digitBits> places{};
    m_size = 0;
    for (std::uint32_t direction : m_directions) {
        if (direction != noDirection) {
            ++places[direction >> bitsBelowHighest];
            ++m_size;
        }
    }
    countsToPlaces(places);
    m_items.reset(new Item[m_size]);
    for (int i = 0; i < points.size(); ++i) {
        std::uint32_t const direction = m_directions[static_cast<std::size_t>(i)];
        if (direction != noDirection) {
            m_items[places[direction >> bitsBelowHighest]++] = {points[i].x(), points[i].y(),
                                                                direction, i};
        }
    }
    std::size_t first = 0;
    for (std::uint32_t end : places) { // by now each place is the end of its part
        sortPart(first, end, bitsBelowHighest);
        first = end;
    }
}

/// Sorts items that agree in all but the lowest bits of their direction.
void DirectionSort::sortPart(std::size_t first, std::size_t end, unsigned bitsLeft)
{
    if (end - first < 2 || bitsLeft == 0) {
        return;
    }
    if (end - first <= smallPart) {
        sortSmallPart(first, end);
    } else {
        partByNextDigit(first, end, bitsLeft);
    }
}

void DirectionSort::partByNextDigit(std::size_t first, std::size_t end, unsigned bitsLeft)
{
    unsigned const below = bitsLeft > digitBits ? bitsLeft - digitBits : 0;
    std::uint32_t const mask = (1u << std::min(bitsLeft, digitBits)) - 1;
    std::array<std::uint32_t, 1u << digitBits> places{};
    for (std::size_t i = first; i < end; ++i) {
        ++places[m_items[i].direction >> below & mask];
    }
    countsToPlaces(places);
    m_spare.assign(&m_items[first], &m_items[first] + (end - first));
    for (Item const &item : m_spare) {
        m_items[first + places[item.direction >> below & mask]++] = item;
    }
    std::size_t begin = first;
    for (std::uint32_t place : places) {
        sortPart(begin, first + place, below);
        begin = first + place;
    }
}

/// Sorts keys of the lower bits of the direction and the place, then moves the items once.
void DirectionSort::sortSmallPart(std::size_t first, std::size_t end)
{
    std::size_t const size = end - first;
    std::uint32_t const placeMask = (1u << (32 - bitsBelowHighest)) - 1;
    m_keys.resize(size);
    for (std::size_t i = 0; i < size; ++i) {
        m_keys[i] =
            m_items[first + i].direction << (32 - bitsBelowHighest) | static_cast<std::uint32_t>(i);
    }
    if (size <= fewKeys) {
        std::sort(m_keys.begin(), m_keys.end());
    } else {
        m_others.resize(size);
        constexpr unsigned keyDigitBits = 7; // three of them are the bits of the direction
        for (unsigned shift = 32 - bitsBelowHighest; shift < 32; shift += keyDigitBits) {
            std::array<std::uint32_t, 1u << keyDigitBits> places{};
            for (std::uint32_t key : m_keys) {
                ++places[key >> shift & ((1u << keyDigitBits) - 1)];
            }
            countsToPlaces(places);
            for (std::uint32_t key : m_keys) {
                m_others[places[key >> shift & ((1u << keyDigitBits) - 1)]++] = key;
            }
            m_keys.swap(m_others);
        }
    }
    m_spare.assign(&m_items[first], &m_items[first] + (end - first));
    for (std::size_t i = 0; i < size; ++i) {
        m_items[first + i] = m_spare[m_keys[i] & placeMask];
    }
}
