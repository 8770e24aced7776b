#include "HullDefinition.h"

#include <OrvelMath/hull/GrahamScan_p.h>
#include <OrvelMath/hull/quick/SortReplay_p.h>

#include <QtCore/qalgorithms.h>

#include <gtest/gtest.h>

namespace {

/// The records but that of the start, the point 0, as qSort leaves them.
QList<PolarRecord> sortedRecords(Points2 const &points)
{
    QList<PolarRecord> records;
    for (int i = 1; i < points.size(); ++i) {
        records.append(polarRecord(points, 0, i));
    }
    qSort(records);
    return records;
}

/// Asks for the first of each kind of equal records, by the last one of them in the input.
void expectFirstOfEqual(Points2 const &points)
{
    DirectionSort directions;
    ASSERT_TRUE(directions.sort(points, 0));
    QList<PolarRecord> const records = sortedRecords(points);
    std::vector<int> wanted;
    std::vector<int> expected;
    for (int i = 0; i < records.size(); ++i) {
        if (i == 0 || records[i - 1] < records[i]) {
            expected.push_back(records[i].index);
            wanted.push_back(records[i].index);
        }
        wanted.back() = std::max(wanted.back(), records[i].index);
    }
    ASSERT_EQ(expected, SortReplay(points, 0, directions).firstOfEqual(wanted))
        << points.size() << " points";
    // One of them alone leaves most parts unsorted.
    for (std::size_t i = 0; i < wanted.size(); i += 1 + wanted.size() / 3) {
        ASSERT_EQ(std::vector<int>{expected[i]},
                  SortReplay(points, 0, directions).firstOfEqual({wanted[i]}));
    }
}

} // namespace

TEST(SortReplay, FindsWhatTheSortPutsFirst)
{
    std::mt19937_64 generator(8);
    for (int round = 0; round < 20000; ++round) {
        Points2 points{{0.0, 0.0}};
        int const count = 1 + int(generator() % (round % 100 == 0 ? 2000 : 30));
        unsigned const columns = 1 + unsigned(generator() % 12);
        unsigned const rows = 1 + unsigned(generator() % 12);
        for (int i = 0; i < count; ++i) {
            points.append({1.0 + double(generator() % columns), double(generator() % rows)});
        }
        expectFirstOfEqual(points);
    }
}

TEST(SortReplay, FindsWhatTheSortPutsFirstAmongNearDirections)
{
    // Directions about as far apart as the sort of directions can tell.
    std::mt19937_64 generator(9);
    for (int round = 0; round < 5000; ++round) {
        Points2 points{{0.0, 0.0}};
        for (int i = 0; i < 40; ++i) {
            points.append({1.0 + double(generator() % 2), 5e-9 * double(generator() % 12)});
        }
        expectFirstOfEqual(points);
    }
}
