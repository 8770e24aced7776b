#include <OrvelMath/geom3d/MatUtil.h>

#include <utility>

namespace {

void sortPair(vectorC3d<double> &v, matrixC3x3<double> &m, int first, int second)
{
    if (!(v[first] > v[second])) {
        return;
    }
    std::swap(v[first], v[second]);
    for (int row = 0; row < 3; ++row) {
        std::swap(m[3 * first + row], m[3 * second + row]);
    }
}

} // namespace

// Sorting by insertion: stable, and free of undefined behaviour when a component is NaN.
void MatUtil::sortVectorComponents(vectorC3d<double> &v)
{
    for (int end = 1; end < 3; ++end) {
        for (int i = end; i > 0 && v[i] < v[i - 1]; --i) {
            std::swap(v[i], v[i - 1]);
        }
    }
}

void MatUtil::sortVectorComponents(vectorC3d<double> &v, matrixC3x3<double> &m)
{
    sortPair(v, m, 0, 1);
    sortPair(v, m, 0, 2);
    sortPair(v, m, 1, 2);
}
