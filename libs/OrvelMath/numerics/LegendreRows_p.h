// Products of table rows with one vector, eight rows side by side.
#pragma once

#include <OrvelMath/numerics/Lanes_p.h>

namespace Legendre {

constexpr int rowsTogether = 8;

/// sums[r] becomes the sum over j of rows[r][j] * x[j], from 0.0 in the order of j. Each sum is one
/// lane's own, so the rows hide each other's latency while no sum is split.
template <int W>
ORVEL_INLINE void multiplyRows(const double *const (&rows)[rowsTogether], const double *x, int size,
                               double (&sums)[rowsTogether])
{
    using L = Lanes<W>;
    using Vector = typename L::Vector;
    constexpr int groups = rowsTogether / W;

    Vector accumulated[groups] = {};
    int j = 0;
    for (; j + W <= size; j += W) {
        for (int g = 0; g < groups; ++g) {
            Vector block[W];
            for (int r = 0; r < W; ++r)
                L::load(block[r], rows[g * W + r] + j);
            L::transpose(block);
            for (int k = 0; k < W; ++k) {
                Vector factor;
                L::broadcast(factor, x[j + k]);
                accumulated[g] += block[k] * factor;
            }
        }
    }
    for (int g = 0; g < groups; ++g)
        L::store(sums + g * W, accumulated[g]);
    for (; j < size; ++j) {
        for (int r = 0; r < rowsTogether; ++r)
            sums[r] += rows[r][j] * x[j];
    }
}

} // namespace Legendre
