#include "Engine.h"

#include <nanoflann.hpp>

namespace {

template <std::size_t K>
struct Cloud
{
    Points<K> points;

    std::size_t kdtree_get_point_count() const { return points.size(); }
    double kdtree_get_pt(std::size_t i, std::size_t d) const { return points[i][d]; }
    template <class Box>
    bool kdtree_get_bbox(Box &) const
    {
        return false;
    }
};

template <std::size_t K>
using Metric = nanoflann::L2_Simple_Adaptor<double, Cloud<K>>;
template <std::size_t K>
using StaticIndex = nanoflann::KDTreeSingleIndexAdaptor<Metric<K>, Cloud<K>, int(K)>;
template <std::size_t K>
using DynamicIndex = nanoflann::KDTreeSingleIndexDynamicAdaptor<Metric<K>, Cloud<K>, int(K)>;

int const leafSize = 10;

template <std::size_t K, class Index>
double nearestOf(Index const &index, Point<K> const &q)
{
    std::size_t found = 0;
    double squared = 0.0;
    nanoflann::KNNResultSet<double> result(1);
    result.init(&found, &squared);
    index.findNeighbors(result, q.data(), nanoflann::SearchParams());
    return squared;
}

template <std::size_t K, class Index>
std::size_t neighboursOf(Index const &index, Point<K> const &q, int k)
{
    std::vector<std::size_t> found(static_cast<std::size_t>(k));
    std::vector<double> squared(found.size());
    nanoflann::KNNResultSet<double> result(found.size());
    result.init(found.data(), squared.data());
    index.findNeighbors(result, q.data(), nanoflann::SearchParams());
    return result.size();
}

template <std::size_t K, class Index>
std::size_t rangeOf(Index const &index, Point<K> const &q, double radius)
{
    std::vector<std::pair<std::size_t, double>> found;
    nanoflann::RadiusResultSet<double, std::size_t> result(radius * radius, found);
    index.findNeighbors(result, q.data(), nanoflann::SearchParams(32, 0.0f, false));
    return found.size();
}

template <std::size_t K>
class StaticEngine : public Engine<K>
{
public:
    void build(Points<K> const &points) override
    {
        m_cloud.points = points;
        m_index.buildIndex();
    }
    void insert(Point<K> const &p) override
    {
        m_cloud.points.push_back(p);
        m_index.buildIndex();
    }
    double nearest(Point<K> const &q) const override { return nearestOf<K>(m_index, q); }
    std::size_t neighbours(Point<K> const &q, int k) const override
    {
        return neighboursOf<K>(m_index, q, k);
    }
    std::size_t range(Point<K> const &q, double radius) const override
    {
        return rangeOf<K>(m_index, q, radius);
    }

private:
    Cloud<K> m_cloud;
    StaticIndex<K> m_index{int(K), m_cloud, nanoflann::KDTreeSingleIndexAdaptorParams(leafSize)};
};

template <std::size_t K>
class DynamicEngine : public Engine<K>
{
public:
    void build(Points<K> const &points) override
    {
        for (Point<K> const &p : points) {
            insert(p);
        }
    }
    void insert(Point<K> const &p) override
    {
        std::size_t const index = m_cloud.points.size();
        m_cloud.points.push_back(p);
        m_index.addPoints(index, index);
    }
    double nearest(Point<K> const &q) const override { return nearestOf<K>(m_index, q); }
    std::size_t neighbours(Point<K> const &q, int k) const override
    {
        return neighboursOf<K>(m_index, q, k);
    }
    std::size_t range(Point<K> const &q, double radius) const override
    {
        return rangeOf<K>(m_index, q, radius);
    }

private:
    Cloud<K> m_cloud;
    DynamicIndex<K> m_index{int(K), m_cloud, nanoflann::KDTreeSingleIndexAdaptorParams(leafSize)};
};

} // namespace

template <std::size_t K>
std::unique_ptr<Engine<K>> makeNanoflannStatic()
{
    return std::make_unique<StaticEngine<K>>();
}

template <std::size_t K>
std::unique_ptr<Engine<K>> makeNanoflannDynamic()
{
    return std::make_unique<DynamicEngine<K>>();
}

template std::unique_ptr<Engine<2>> makeNanoflannStatic<2>();
template std::unique_ptr<Engine<3>> makeNanoflannStatic<3>();
template std::unique_ptr<Engine<2>> makeNanoflannDynamic<2>();
template std::unique_ptr<Engine<3>> makeNanoflannDynamic<3>();
