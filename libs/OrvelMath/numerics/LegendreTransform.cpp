#include <OrvelMath/engine/vectorWidth_p.h>
#include <OrvelMath/numerics/LegendreRows_p.h>
#include <OrvelMath/numerics/Transforms.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

using namespace Legendre;

namespace {

using Rows = double const *[rowsTogether];

#if defined(__x86_64__)
ORVEL_TARGET("avx512f")
void multiplyRows8(Rows const &rows, double const *x, int size, double (&sums)[rowsTogether])
{
    multiplyRows<8>(rows, x, size, sums);
}
#endif

void multiplyRows2(Rows const &rows, double const *x, int size, double (&sums)[rowsTogether])
{
    multiplyRows<2>(rows, x, size, sums);
}

using Multiply = void (*)(Rows const &, double const *, int, double (&)[rowsTogether]);

/// Vectors of four would not be faster than those of two: a transposition across their halves costs
/// more than it saves.
Multiply chooseMultiply()
{
#if defined(__x86_64__)
    if (engine::vectorWidth() >= 8) {
        return multiplyRows8;
    }
#endif
    return multiplyRows2;
}

} // namespace

void legendreTrafo(double *data, double *result, int size, int order, double const *weights,
                   double const *table, double *scratch)
{
    // sqrt(4*pi) and sqrt(2*pi)
    double const s = order == 0 ? std::sqrt(12.566370614359172) : std::sqrt(6.283185307179586);
    for (int j = 0; j < size; ++j) {
        scratch[j] = s * data[j] * weights[j];
    }

    Multiply const multiply = chooseMultiply();
    int const count = size / 2 - order;
    for (int first = 0; first < count; first += rowsTogether) {
        Rows rows;
        for (int r = 0; r < rowsTogether; ++r) { // the last row serves for those beyond it, too
            rows[r] = table + std::ptrdiff_t(std::min(first + r, count - 1)) * size;
        }
        double sums[rowsTogether];
        multiply(rows, scratch, size, sums);
        std::copy_n(sums, std::min(rowsTogether, count - first), result + first);
    }
}
