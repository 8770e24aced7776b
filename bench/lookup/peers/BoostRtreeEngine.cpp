#include "Engine.h"

#include <boost/geometry.hpp>
#include <boost/geometry/index/rtree.hpp>

#include <iterator>
#include <vector>

namespace {

namespace bg = boost::geometry;
namespace bgi = boost::geometry::index;

template <std::size_t K>
using BoostPoint = bg::model::point<double, K, bg::cs::cartesian>;

template <std::size_t K>
BoostPoint<K> converted(Point<K> const &p)
{
    BoostPoint<K> q;
    bg::set<0>(q, p[0]);
    bg::set<1>(q, p[1]);
    if constexpr (K == 3) {
        bg::set<2>(q, p[2]);
    }
    return q;
}

template <std::size_t K>
class RtreeEngine : public Engine<K>
{
public:
    void build(Points<K> const &points) override
    {
        // Built at once, which packs the nodes.
        std::vector<BoostPoint<K>> all;
        all.reserve(points.size());
        for (Point<K> const &p : points) {
            all.push_back(converted<K>(p));
        }
        m_tree = Tree(all);
    }
    void insert(Point<K> const &p) override { m_tree.insert(converted<K>(p)); }
    double nearest(Point<K> const &q) const override
    {
        auto const query = converted<K>(q);
        return bg::comparable_distance(*m_tree.qbegin(bgi::nearest(query, 1)), query);
    }
    std::size_t neighbours(Point<K> const &q, int k) const override
    {
        std::vector<BoostPoint<K>> found;
        return m_tree.query(bgi::nearest(converted<K>(q), static_cast<unsigned>(k)),
                            std::back_inserter(found));
    }
    std::size_t range(Point<K> const &q, double radius) const override
    {
        auto const centre = converted<K>(q);
        Point<K> low = q;
        Point<K> high = q;
        for (std::size_t i = 0; i < K; ++i) {
            low[i] -= radius;
            high[i] += radius;
        }
        bg::model::box<BoostPoint<K>> const box(converted<K>(low), converted<K>(high));
        auto const inside = [&](BoostPoint<K> const &p) {
            return bg::comparable_distance(p, centre) < radius * radius;
        };
        std::vector<BoostPoint<K>> found;
        return m_tree.query(bgi::intersects(box) && bgi::satisfies(inside),
                            std::back_inserter(found));
    }

private:
    using Tree = bgi::rtree<BoostPoint<K>, bgi::quadratic<16>>;

    Tree m_tree;
};

} // namespace

template <std::size_t K>
std::unique_ptr<Engine<K>> makeBoostRtree()
{
    return std::make_unique<RtreeEngine<K>>();
}

template std::unique_ptr<Engine<2>> makeBoostRtree<2>();
template std::unique_ptr<Engine<3>> makeBoostRtree<3>();
