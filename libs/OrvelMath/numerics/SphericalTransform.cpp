#include <OrvelMath/numerics/Transforms.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace {

/// In place and tile by tile, so that the rows and the columns at work stay in the cache.
void transpose(double *grid, std::ptrdiff_t size)
{
    constexpr std::ptrdiff_t tile = 16;
    for (std::ptrdiff_t top = 0; top < size; top += tile) {
        for (std::ptrdiff_t left = top; left < size; left += tile) {
            for (std::ptrdiff_t i = top; i < std::min(top + tile, size); ++i) {
                std::ptrdiff_t const begin = std::max(left, i + 1);
                for (std::ptrdiff_t j = begin; j < std::min(left + tile, size); ++j) {
                    std::swap(grid[i * size + j], grid[j * size + i]);
                }
            }
        }
    }
}

/// The caller's workspace, cut up.
struct Workspace
{
    Workspace(double *memory, std::ptrdiff_t size)
        : rootsRe(memory)
        , rootsIm(rootsRe + size)
        , gridRe(rootsIm + size)
        , gridIm(gridRe + size * size)
        , fourierScratch(gridIm + size * size)
        , legendreScratch(fourierScratch + 2 * size)
    {
    }

    double *rootsRe;
    double *rootsIm;
    double *gridRe;
    double *gridIm;
    double *fourierScratch;
    double *legendreScratch;
};

} // namespace

void computeFSTSlow(double *rdata, double *idata, double *rcoeffs, double *icoeffs,
                    double *workspace, bool realData, double const *table, double const *weights,
                    int const *offsets, int bandwidth)
{
    int const n = 2 * bandwidth;
    std::ptrdiff_t const size = n;
    Workspace const w(workspace, size);

    generateRoots(w.rootsRe, w.rootsIm, n);
    for (std::ptrdiff_t row = 0; row < size; ++row) {
        computeInverseFFT(rdata + row * size, idata + row * size, w.gridRe + row * size,
                          w.gridIm + row * size, n, w.rootsRe, w.rootsIm, w.fourierScratch);
    }
    transpose(w.gridRe, size);
    transpose(w.gridIm, size);

    // Row m of the grids now holds Fourier coefficient m, row n - m coefficient -m.
    auto const transformRow = [&](std::ptrdiff_t row, int order) {
        double const *const orderTable = table + offsets[order];
        legendreTrafo(w.gridRe + row * size, rcoeffs, n, order, weights, orderTable,
                      w.legendreScratch);
        legendreTrafo(w.gridIm + row * size, icoeffs, n, order, weights, orderTable,
                      w.legendreScratch);
    };
    for (int m = 0; m < bandwidth; ++m) {
        transformRow(m, m);
        rcoeffs += bandwidth - m;
        icoeffs += bandwidth - m;
    }
    if (realData) {
        return;
    }
    for (int m = bandwidth - 1; m >= 1; --m) {
        int const count = bandwidth - m;
        transformRow(size - m, m);
        if (m % 2 == 1) {
            for (int l = 0; l < count; ++l) {
                rcoeffs[l] = -rcoeffs[l];
                icoeffs[l] = -icoeffs[l];
            }
        }
        rcoeffs += count;
        icoeffs += count;
    }
}
