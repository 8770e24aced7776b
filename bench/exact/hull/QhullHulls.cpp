#if defined(ORVEL_HAVE_QHULL)

#include "ExactHullBench.h"

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
    explicit QhullHull(Cloud const &points)
        : m_output(std::fopen("/dev/null", "w"))
    {
        qh_zero(&m_qh, m_output);
        char options[] = "qhull Qt";
        qh_new_qhull(&m_qh, 3, points.size(), const_cast<double *>(points.constData()->data()),
                     False, options, m_output, m_output);
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

void withQhull(benchmark::State &state, std::string const &kind, int count)
{
    Cloud const &points = spaceCloud(kind, count);
    measureBuild(state, [&points] { return std::make_unique<QhullHull>(points); });
}

bool const registered = (forSpaceClouds("qhull", withQhull), true);

} // namespace

#endif
