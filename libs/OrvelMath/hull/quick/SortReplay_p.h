#pragma once

/// @file
/// Which one of equal records a sort puts first, without the sort of all records.

#include <OrvelMath/base/vectorC.h>
#include <OrvelMath/hull/quick/DirectionSort_p.h>

#include <QtCore/QVector>

#include <cstddef>
#include <cstdint>
#include <vector>

/// Replays qSort on the records of a polygon's points, only where it matters.
///
/// qSort is a quicksort that leaves equal records in an order of its own. A step of it puts a pivot
/// in its place and parts the rest into what is not greater and what is not smaller. Then each part
/// is sorted by itself, so the parts without a wanted record needn't be sorted at all. Each step
/// compares and exchanges as qSort does. Directions decide a comparison where they differ by enough
/// (see DirectionSort), equal positions show equal records, and else the records are compared.
class SortReplay
{
public:
    /// Takes the points but the start and its copies, in the order of the input.
    SortReplay(QVector<vectorC2d<double>> const &points, int start,
               DirectionSort const &directions);

    /// For each wanted point, of which no two have equal records, the index of the point with an
    /// equal record that the sort puts first. To be called once.
    std::vector<int> firstOfEqual(std::vector<int> const &wanted);

private:
    struct Item
    {
        std::uint32_t direction;
        int index;
    };
    /// A part that is to be sorted, both ends included, and which wanted records lie in it.
    struct Part
    {
        std::ptrdiff_t first;
        std::ptrdiff_t last;
        std::size_t firstWanted;
        std::size_t endWanted;
    };

    Item itemOf(int index) const;
    bool less(Item const &a, Item const &b) const;
    bool isLessByRecord(int a, int b) const;
    void orderEnds(Part const &part);
    std::ptrdiff_t placePivot(Part const &part);
    void lookThrough(Part const &part);

    QVector<vectorC2d<double>> const &m_points;
    int m_start;
    DirectionSort const &m_directions;
    std::vector<Item> m_items;
    std::vector<Item> m_wanted; ///< ascending
    std::vector<int> m_found;   ///< for each wanted record
};
