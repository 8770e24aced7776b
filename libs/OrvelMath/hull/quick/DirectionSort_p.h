#pragma once

/// @file
/// A rough sort of points by their direction.

#include <OrvelMath/base/vectorC.h>

#include <QtCore/QVector>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

/// Points in the order of their direction from a start point, roughly: to a 32-bit number.
///
/// The number grows with the angle and costs a division, where the angle costs an arctangent; and
/// whole numbers sort without comparisons. It tells apart what differs by much. Where it doesn't,
/// the caller looks at the angles themselves.
///
/// The points go with their numbers: first into parts by the highest digit, then each part is
/// sorted and read while it is in the nearest cache. Reading points where they were, all over the
/// memory, took longer than the sort.
class DirectionSort
{
public:
    /// A point with the number of its direction.
    struct Item
    {
        double x, y;
        std::uint32_t direction;
        int index;

        vectorC2d<double> position() const { return {x, y}; }
    };

    /// What the numbers of two directions must differ by at least to show that the angles differ by
    /// more than 1e-8 radians, rounding of the arctangent included.
    ///
    /// The number counts steps of 2^-31 in y / (x + |y|), which grows by at most 1 per radian. 44
    /// steps are 2e-8, and rounding takes away less than two of them.
    static constexpr std::uint32_t distinctSteps = 44;

    /// What the numbers of two directions may differ by at most to show that the angles differ by
    /// less than 1e-8 radians, rounding included: y / (x + |y|) grows by at least 1/2 per radian,
    /// rounding adds less than two steps, and 2 * 10 steps are 9.4e-9.
    static constexpr std::uint32_t oneRunSteps = 8;

    /// In `directions()`: the start or a copy of it. No direction has this number.
    static constexpr std::uint32_t noDirection = 0xffffffffu;

    /// The number of the direction of an offset from the leftmost point; the offset is not 0.
    static std::uint32_t directionOf(vectorC2d<double> const &offset)
    {
        double const span = offset.x() + std::abs(offset.y());
        return static_cast<std::uint32_t>((offset.y() / span + 1.0) * 2147483647.0);
    }

    /// Sorts all points but the start and its copies within 1e-8. False if a point is too far away
    /// or no number; the start must be the leftmost point.
    bool sort(QVector<vectorC2d<double>> const &points, int start);

    std::size_t size() const { return m_size; }
    /// The items by their direction; equal directions in no order.
    Item const &operator[](std::size_t i) const { return m_items[i]; }

    /// The number of each point's direction, in the order of the points.
    std::vector<std::uint32_t> const &directions() const { return m_directions; }

    /// The first place after `first` whose direction differs for sure from the one before.
    std::size_t endOfCluster(std::size_t first) const
    {
        std::size_t end = first + 1;
        while (end < m_size &&
               m_items[end].direction - m_items[end - 1].direction < distinctSteps) {
            ++end;
        }
        return end;
    }

private:
    bool readDirections(QVector<vectorC2d<double>> const &points, int start);
    void partByHighestDigit(QVector<vectorC2d<double>> const &points);
    void sortPart(std::size_t first, std::size_t end, unsigned bitsLeft);
    void partByNextDigit(std::size_t first, std::size_t end, unsigned bitsLeft);
    void sortSmallPart(std::size_t first, std::size_t end);

    std::vector<std::uint32_t> m_directions;
    std::unique_ptr<Item[]> m_items;
    std::size_t m_size = 0;
    std::vector<Item> m_spare;           ///< for a part while it is sorted
    std::vector<std::uint32_t> m_keys;   ///< of a small part
    std::vector<std::uint32_t> m_others; ///< the same between two digits
};
