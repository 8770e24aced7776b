// Reads the bytes as segments, on a small lattice or any bit patterns. The sweep finds what all
// pairs give.

#include <OrvelExact/segments/allCrossings.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

using namespace orvelExact;

namespace {

void require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

/// A small whole number, a multiple of 0.1, or any double.
double readNumber(std::uint8_t const *&data, std::uint8_t const *end)
{
    if (end - data < 1) {
        return 0.0;
    }
    int const first = *data++;
    if (first % 16 != 0 || end - data < 8) {
        return (first >> 5) * (first % 2 == 0 ? 1.0 : 0.1);
    }
    double value = 0.0;
    std::memcpy(&value, data, sizeof value);
    data += sizeof value;
    return value;
}

bool isFiniteSegment(Segment2 const &s)
{
    return isFinite(s.from) && isFinite(s.to);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size)
{
    std::uint8_t const *const end = data + size;
    QVector<Segment2> segments;
    bool areAllFinite = true;
    while (data < end && segments.size() < 24) {
        double c[4];
        for (double &value : c) {
            value = readNumber(data, end);
        }
        segments.append({{c[0], c[1]}, {c[2], c[3]}});
        areAllFinite = areAllFinite && isFiniteSegment(segments.last());
    }
    SegmentCrossings const found = allCrossings(segments);
    if (!areAllFinite) {
        require(found.status == Status::NotFinite && found.pairs.isEmpty());
        return 0;
    }
    int count = 0;
    for (int i = 0; i < segments.size(); ++i) {
        for (int j = i + 1; j < segments.size(); ++j) {
            Segment2 const &a = segments.at(i);
            Segment2 const &b = segments.at(j);
            SegmentCrossing const crossing = crossSegments(a.from, a.to, b.from, b.to);
            if (crossing.kind == CrossingKind::None) {
                continue;
            }
            require(count < found.pairs.size());
            CrossingPair const &pair = found.pairs.at(count++);
            require(pair.first == i && pair.second == j && pair.crossing.kind == crossing.kind);
            require(pair.crossing.point == crossing.point && pair.crossing.last == crossing.last);
        }
    }
    require(count == found.pairs.size());
    return 0;
}
