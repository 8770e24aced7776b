#include <OrvelMath/hull/quick/SortReplay_p.h>

#include <OrvelMath/hull/GrahamScan_p.h>

#include <algorithm>
#include <numeric>
#include <utility>

SortReplay::SortReplay(QVector<vectorC2d<double>> const &points, int start,
                       DirectionSort const &directions)
    : m_points(points)
    , m_start(start)
    , m_directions(directions)
{
    m_items.reserve(directions.size());
    for (int i = 0; i < points.size(); ++i) {
        Item const item = itemOf(i);
        if (item.direction != DirectionSort::noDirection) {
            m_items.push_back(item);
        }
    }
}

SortReplay::Item SortReplay::itemOf(int index) const
{
    return {m_directions.directions()[static_cast<std::size_t>(index)], index};
}

bool SortReplay::less(Item const &a, Item const &b) const
{
    bool const lower = a.direction < b.direction;
    std::uint32_t const difference = lower ? b.direction - a.direction : a.direction - b.direction;
    return difference >= DirectionSort::distinctSteps ? lower : isLessByRecord(a.index, b.index);
}

bool SortReplay::isLessByRecord(int a, int b) const
{
    return m_points[a] != m_points[b] &&
           polarRecord(m_points, m_start, a) < polarRecord(m_points, m_start, b);
}

std::vector<int> SortReplay::firstOfEqual(std::vector<int> const &wanted)
{
    std::vector<std::size_t> order(wanted.size()); // of the wanted records
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return less(itemOf(wanted[a]), itemOf(wanted[b]));
    });
    for (std::size_t place : order) {
        m_wanted.push_back(itemOf(wanted[place]));
    }
    m_found.assign(wanted.size(), -1);

    std::vector<Part> parts{{0, static_cast<std::ptrdiff_t>(m_items.size()) - 1, 0, wanted.size()}};
    while (!parts.empty()) {
        Part const part = parts.back();
        parts.pop_back();
        if (part.firstWanted == part.endWanted || part.first > part.last) {
            continue;
        }
        orderEnds(part);
        if (part.last - part.first < 3) {
            lookThrough(part);
            continue;
        }
        std::ptrdiff_t const pivot = placePivot(part);
        Item const &item = m_items[static_cast<std::size_t>(pivot)];
        std::size_t endBefore = part.firstWanted;
        while (endBefore < part.endWanted && less(m_wanted[endBefore], item)) {
            ++endBefore;
        }
        std::size_t firstAfter = endBefore;
        if (firstAfter < part.endWanted && !less(item, m_wanted[firstAfter])) {
            m_found[firstAfter] = item.index; // unless an equal one turns up before it
            ++firstAfter;
        }
        parts.push_back({pivot + 1, part.last, firstAfter, part.endWanted});
        parts.push_back({part.first, pivot - 1, part.firstWanted, firstAfter});
    }

    std::vector<int> found(wanted.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        found[order[i]] = m_found[i];
    }
    return found;
}

/// Puts the first, the middle and the last item in order, as far as there are so many.
void SortReplay::orderEnds(Part const &part)
{
    Item *const items = m_items.data();
    std::ptrdiff_t const middle = part.first + (part.last - part.first + 1) / 2;
    auto const order = [&](std::ptrdiff_t low, std::ptrdiff_t high) {
        if (less(items[high], items[low])) {
            std::swap(items[low], items[high]);
        }
    };
    if (part.last > part.first) {
        order(part.first, part.last);
    }
    if (part.last > part.first + 1) {
        order(part.first, middle);
        order(middle, part.last);
    }
}

/// Parts four items or more, whose ends are in order, by the middle one.
/// @return the place where the middle one comes to lie.
std::ptrdiff_t SortReplay::placePivot(Part const &part)
{
    Item *const items = m_items.data();
    std::swap(items[part.first + (part.last - part.first + 1) / 2], items[part.last]);
    Item const pivot = items[part.last];
    std::ptrdiff_t low = part.first;
    std::ptrdiff_t high = part.last - 1;
    while (low < high) {
        while (low < high && less(items[low], pivot)) {
            ++low;
        }
        while (high > low && less(pivot, items[high])) {
            --high;
        }
        if (low >= high) {
            break;
        }
        std::swap(items[low], items[high]);
        ++low;
        --high;
    }
    if (less(items[low], pivot)) {
        ++low;
    }
    std::swap(items[low], items[part.last]);
    return low;
}

/// Notes the wanted records among three items or fewer, which are in order.
void SortReplay::lookThrough(Part const &part)
{
    for (std::size_t w = part.firstWanted; w < part.endWanted; ++w) {
        for (std::ptrdiff_t i = part.first; i <= part.last; ++i) {
            Item const &item = m_items[static_cast<std::size_t>(i)];
            if (!less(item, m_wanted[w]) && !less(m_wanted[w], item)) {
                m_found[w] = item.index;
                break;
            }
        }
    }
}
