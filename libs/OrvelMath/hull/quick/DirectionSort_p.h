#pragma once

/// @file
/// A rough sort of points by their direction.

#include <OrvelMath/base/vectorC.h>

#include <QtCore/QVector>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>

/// Points in the order of their direction from a start point, roughly: to a 32-bit number.
///
/// The number grows with the angle and costs a division, where the angle costs an arctangent; and
/// whole numbers sort without comparisons. It tells apart what differs by much. Where it doesn't,
/// the caller looks at the angles themselves.
class DirectionSort
{
public:
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
    std::uint32_t direction(std::size_t i) const
    {
        return static_cast<std::uint32_t>(m_items[i] >> 32);
    }
    /// Index of the point.
    int index(std::size_t i) const { return static_cast<int>(m_items[i] & 0xffffffffu); }

    /// The first place after `first` whose direction differs for sure from the one before.
    std::size_t endOfCluster(std::size_t first) const
    {
        std::size_t end = first + 1;
        while (end < size() && direction(end) - direction(end - 1) < distinctSteps) {
            ++end;
        }
        return end;
    }

private:
    bool readDirections(QVector<vectorC2d<double>> const &points, int start);
    void sortItems();

    std::unique_ptr<std::uint64_t[]> m_items; ///< direction in the upper half, index in the lower
    std::size_t m_size = 0;
};
