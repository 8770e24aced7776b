#include "Engine.h"

#include <flann/flann.hpp>

#include <deque>

namespace {

template <std::size_t K>
class FlannEngine : public Engine<K>
{
public:
    void build(Points<K> const &points) override
    {
        m_points.assign(points.begin(), points.end());
        m_flat = points;
        m_index = std::make_unique<Index>(rows(m_flat.front().data(), m_flat.size()),
                                          flann::KDTreeSingleIndexParams(10));
        m_index->buildIndex();
    }
    void insert(Point<K> const &p) override
    {
        if (!m_index) {
            build({p});
            return;
        }
        m_points.push_back(p); // the index keeps pointers to the rows
        m_index->addPoints(rows(m_points.back().data(), 1));
    }
    double nearest(Point<K> const &q) const override
    {
        int found = 0;
        double squared = 0.0;
        flann::Matrix<int> indices(&found, 1, 1);
        flann::Matrix<double> distances(&squared, 1, 1);
        m_index->knnSearch(query(q), indices, distances, 1, exact());
        return squared;
    }
    std::size_t neighbours(Point<K> const &q, int k) const override
    {
        std::vector<int> found(static_cast<std::size_t>(k));
        std::vector<double> squared(found.size());
        flann::Matrix<int> indices(found.data(), 1, found.size());
        flann::Matrix<double> distances(squared.data(), 1, found.size());
        return static_cast<std::size_t>(
            m_index->knnSearch(query(q), indices, distances, found.size(), exact()));
    }
    std::size_t range(Point<K> const &q, double radius) const override
    {
        std::vector<std::vector<int>> found;
        std::vector<std::vector<double>> squared;
        flann::SearchParams params = exact();
        params.sorted = false;
        m_index->radiusSearch(query(q), found, squared, static_cast<float>(radius * radius),
                              params);
        return found.front().size();
    }

private:
    using Index = flann::KDTreeSingleIndex<flann::L2_Simple<double>>;

    static flann::Matrix<double> rows(double *values, std::size_t count)
    {
        return flann::Matrix<double>(values, count, K);
    }
    static flann::Matrix<double> query(Point<K> const &q)
    {
        return flann::Matrix<double>(const_cast<double *>(q.data()), 1, K);
    }
    static flann::SearchParams exact()
    {
        return flann::SearchParams(flann::FLANN_CHECKS_UNLIMITED);
    }

    Points<K> m_flat;
    std::deque<Point<K>> m_points;
    std::unique_ptr<Index> m_index;
};

} // namespace

template <std::size_t K>
std::unique_ptr<Engine<K>> makeFlann()
{
    return std::make_unique<FlannEngine<K>>();
}

template std::unique_ptr<Engine<2>> makeFlann<2>();
template std::unique_ptr<Engine<3>> makeFlann<3>();
