#if defined(ORVEL_HAVE_QHULL)

#include "HullBench.h"

#include <cstdio>
#include <memory>

extern "C" {
#include <libqhull_r/qhull_ra.h>
}

namespace {

/// A hull of qhull, with triangles as faces.
class QhullHull
{
public:
    QhullHull(int dimension, std::vector<double> &coordinates)
        : m_output(std::fopen("/dev/null", "w"))
    {
        qh_zero(&m_qh, m_output);
        char options[] = "qhull Qt";
        qh_new_qhull(&m_qh, dimension, static_cast<int>(coordinates.size()) / dimension,
                     coordinates.data(), False, options, m_output, m_output);
    }
    ~QhullHull()
    {
        qh_freeqhull(&m_qh, !qh_ALL);
        int left, total;
        qh_memfreeshort(&m_qh, &left, &total);
        std::fclose(m_output);
    }

private:
    qhT m_qh;
    std::FILE *m_output;
};

template <typename Cloud>
void measureQhull(benchmark::State &state, Cloud const &cloud)
{
    std::vector<double> coordinates;
    for (auto const &p : cloud) {
        coordinates.insert(coordinates.end(), p.begin(), p.end());
    }
    int const dimension = static_cast<int>(std::tuple_size<typename Cloud::value_type>::value);
    measureBuild(state, [&] { return std::make_unique<QhullHull>(dimension, coordinates); });
}

void inSpace(benchmark::State &state, std::vector<Point3> const &cloud)
{
    measureQhull(state, cloud);
}

void inThePlane(benchmark::State &state, std::vector<Point2> const &cloud)
{
    measureQhull(state, cloud);
}

bool const registered =
    (forSpaceClouds("qhull", inSpace), forPlaneClouds("qhull", inThePlane), true);

} // namespace

#endif
