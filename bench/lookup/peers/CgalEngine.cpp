#include "Engine.h"

#include <CGAL/Fuzzy_sphere.h>
#include <CGAL/Orthogonal_k_neighbor_search.h>
#include <CGAL/Search_traits_2.h>
#include <CGAL/Search_traits_3.h>
#include <CGAL/Simple_cartesian.h>

#include <iterator>
#include <type_traits>

namespace {

using Kernel = CGAL::Simple_cartesian<double>;

template <std::size_t K>
class CgalEngine : public Engine<K>
{
public:
    void build(Points<K> const &points) override
    {
        for (Point<K> const &p : points) {
            m_tree.insert(converted(p));
        }
        m_tree.build();
    }
    void insert(Point<K> const &p) override { m_tree.insert(converted(p)); }
    double nearest(Point<K> const &q) const override
    {
        CGAL::Orthogonal_k_neighbor_search<Traits> const search(m_tree, converted(q), 1);
        return search.begin()->second;
    }
    std::size_t neighbours(Point<K> const &q, int k) const override
    {
        CGAL::Orthogonal_k_neighbor_search<Traits> const search(m_tree, converted(q),
                                                                static_cast<unsigned>(k));
        return static_cast<std::size_t>(std::distance(search.begin(), search.end()));
    }
    std::size_t range(Point<K> const &q, double radius) const override
    {
        std::vector<CgalPoint> found;
        m_tree.search(std::back_inserter(found), CGAL::Fuzzy_sphere<Traits>(converted(q), radius));
        return found.size();
    }

private:
    using Traits =
        std::conditional_t<K == 2, CGAL::Search_traits_2<Kernel>, CGAL::Search_traits_3<Kernel>>;
    using CgalPoint = typename Traits::Point_d;

    static CgalPoint converted(Point<K> const &p)
    {
        if constexpr (K == 2) {
            return CgalPoint(p[0], p[1]);
        } else {
            return CgalPoint(p[0], p[1], p[2]);
        }
    }

    CGAL::Kd_tree<Traits> m_tree;
};

} // namespace

template <std::size_t K>
std::unique_ptr<Engine<K>> makeCgal()
{
    return std::make_unique<CgalEngine<K>>();
}

template std::unique_ptr<Engine<2>> makeCgal<2>();
template std::unique_ptr<Engine<3>> makeCgal<3>();
