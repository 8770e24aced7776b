#include <OrvelMath/numerics/Transforms.h>

#include <OrvelMath/engine/vectorWidth_p.h>
#include <OrvelMath/numerics/FourierButterfly_p.h>
#include <OrvelMath/numerics/quick/FourierPasses_p.h>

#include <cmath>
#include <cstring>

using namespace Fourier;

namespace {

/// The definition: log2(n) stages of single butterflies in `scratch`, then the values in the order
/// of their places' reversed bits to `out`. Of an n that is no power of two, floor(log2(n)) stages
/// are run. A stage halves each of its groups:
///
///     upper  a ---+--- a + b               group of 2 * half values, j < half;
///                 |                        upper = 2 * half * group + j, lower = upper + half
///     lower  b ---+--- (a - b) * root      root number j * groups
///
/// It serves all that the passes don't: sizes too small for vectors, those that are no power of
/// two, and outputs that take the place of the roots.
template <bool Inverse>
void plainTransform(ComplexIn in, ComplexOut out, ComplexOut scratch, int n, ComplexIn roots)
{
    std::memmove(scratch.re, in.re, std::size_t(n) * sizeof(double));
    std::memmove(scratch.im, in.im, std::size_t(n) * sizeof(double));
    int const stages = log2Of(n);
    int half = n / 2;
    int groups = 1;
    for (int stage = 0; stage < stages; ++stage) {
        for (int group = 0; group < groups; ++group) {
            for (int j = 0; j < half; ++j) {
                int const upper = 2 * half * group + j;
                int const lower = upper + half;
                int const root = j * groups;
                butterfly<Inverse>(scratch.re[upper], scratch.im[upper], scratch.re[lower],
                                   scratch.im[lower], roots.re[root], roots.im[root]);
            }
        }
        groups *= 2;
        half /= 2;
    }
    for (int i = 0; i < n; ++i) {
        int const target = reverseBits(i, stages);
        out.re[target] = Inverse ? scratch.re[i] / n : scratch.re[i];
        out.im[target] = Inverse ? scratch.im[i] / n : scratch.im[i];
    }
}

#if defined(__x86_64__)
template <bool Inverse>
ORVEL_TARGET("avx512f")
void transform8(ComplexIn in, ComplexOut out, ComplexOut scratch, int n, ComplexIn roots)
{
    transform<8, Inverse>(in, out, scratch, n, roots);
}

template <bool Inverse>
ORVEL_TARGET("avx2")
void transform4(ComplexIn in, ComplexOut out, ComplexOut scratch, int n, ComplexIn roots)
{
    transform<4, Inverse>(in, out, scratch, n, roots);
}
#endif

template <bool Inverse>
void transform2(ComplexIn in, ComplexOut out, ComplexOut scratch, int n, ComplexIn roots)
{
    transform<2, Inverse>(in, out, scratch, n, roots);
}

template <bool Inverse>
void run(ComplexIn in, ComplexOut out, ComplexOut scratch, int n, ComplexIn roots)
{
    // The passes keep results in `out` while they still need the roots.
    bool const inPasses = n > 0 && (n & (n - 1)) == 0 && !overlap(out, roots, n);
#if defined(__x86_64__)
    int const width = engine::vectorWidth();
    if (inPasses && width >= 8 && n >= smallestSize(8)) {
        return transform8<Inverse>(in, out, scratch, n, roots);
    }
    if (inPasses && width >= 4 && n >= smallestSize(4)) {
        return transform4<Inverse>(in, out, scratch, n, roots);
    }
#endif
    if (inPasses && n >= smallestSize(2)) {
        return transform2<Inverse>(in, out, scratch, n, roots);
    }
    if (n > 0) {
        plainTransform<Inverse>(in, out, scratch, n, roots);
    }
}

} // namespace

void generateRoots(double *re, double *im, int n)
{
    double const step =
        -6.283185307179586 / n; // -2 pi / n, so that the imaginary part below is +sin(2 pi k / n)
    for (int k = 0; k < n; ++k) {
        double const x = k * step;
        re[k] = std::cos(x);
        im[k] = -std::sin(x);
    }
}

void computeFFT(double *inRe, double *inIm, double *outRe, double *outIm, int n, double *rootsRe,
                double *rootsIm, double *scratch)
{
    run<false>({inRe, inIm}, {outRe, outIm}, {scratch, scratch + n}, n, {rootsRe, rootsIm});
}

void computeInverseFFT(double *inRe, double *inIm, double *outRe, double *outIm, int n,
                       double *rootsRe, double *rootsIm, double *scratch)
{
    run<true>({inRe, inIm}, {outRe, outIm}, {scratch, scratch + n}, n, {rootsRe, rootsIm});
}
