#pragma once

/// @file
/// Fourier and Legendre transforms on arrays of the caller.
///
/// Complex data are always two arrays, real parts and imaginary parts. Nothing here allocates, and
/// nothing outside the given arrays is touched. Sizes are trusted. There is no state: concurrent
/// calls on separate arrays are safe. NaN and infinity run through the arithmetic.
///
/// THE FORWARD TRANSFORM HAS THE POSITIVE EXPONENT, contrary to most other libraries:
///
/// | Function          | Result                                                | Scaled by |
/// |-------------------|-------------------------------------------------------|-----------|
/// | computeFFT        | X[k] = sum over j of x[j] * exp(+2*pi*i*j*k/n)        | 1         |
/// | computeInverseFFT | x[j] = 1/n sum over k of X[k] * exp(-2*pi*i*j*k/n)    | 1/n       |
///
/// The transforms give the same bits on every processor: vector units take independent butterflies
/// or rows side by side and never split a sum. (The roots come from the C library's sine and
/// cosine.)

#include <OrvelMath/OrvelMathExport.h>

/// Fills the table of roots for transforms of size `n`: entry k is exp(+2*pi*i*k/n), its parts in
/// `re[k]` and `im[k]`. Nothing happens for n <= 0.
///
/// @param re, im n doubles each, written
/// @param n      the size of the transform
ORVELMATH_EXPORT void generateRoots(double *re, double *im, int n);

/// Radix-2 Fourier transform with decimation in frequency (W. M. Gentleman and G. Sande, 1966).
///
/// The input is not changed, unless the output is given the same arrays, which is allowed, as is
/// writing over the roots. Neither input nor output may overlap `scratch`. Cost: O(n log n).
///
/// @param inRe, inIm       n doubles each
/// @param outRe, outIm     n doubles each, written
/// @param n                the size, a power of two; another positive one gives meaningless output
///                         inside the arrays, and n <= 0 none
/// @param rootsRe, rootsIm the table of generateRoots() for this n
/// @param scratch          2*n doubles; what it holds afterwards is unspecified
/// @see computeInverseFFT, which undoes it
ORVELMATH_EXPORT void computeFFT(double *inRe, double *inIm, double *outRe, double *outIm, int n,
                                 double *rootsRe, double *rootsIm, double *scratch);

/// The inverse of computeFFT(): negative exponent, each value divided by n. Same arguments, same
/// cost.
///
/// @see computeFFT
ORVELMATH_EXPORT void computeInverseFFT(double *inRe, double *inIm, double *outRe, double *outIm,
                                        int n, double *rootsRe, double *rootsIm, double *scratch);

/// Legendre transform of one order, a direct product with a table of associated Legendre functions.
///
/// `data` holds `size` samples and `weights` the quadrature weight of each. `table` has
/// size/2 - order rows of `size` doubles, row l being of degree order + l. `result` receives
/// size/2 - order coefficients, none when that is below 1:
///
///     result[l] = sum over j of table[l*size + j] * (s * data[j] * weights[j])
///
/// with s = sqrt(4*pi) for order 0 and sqrt(2*pi) otherwise: for coefficients of orthonormal
/// harmonics the table of order 0 holds the normalised Legendre functions divided by sqrt(2), that
/// of any other order the functions themselves. `scratch` has `size` doubles and
/// afterwards holds the weighted samples. The arrays must not overlap. Cost: one pass over the
/// table, O(size * (size/2 - order)).
ORVELMATH_EXPORT void legendreTrafo(double *data, double *result, int size, int order,
                                    double const *weights, double const *table, double *scratch);

/// Forward spherical transform on a regular grid: a Fourier transform along each row, then a direct
/// Legendre transform for each order.
///
/// With b the bandwidth and N = 2*b, a power of two: `rdata` and `idata` have N rows of N samples,
/// the columns along the periodic coordinate. `weights` has N doubles. The Legendre table of order
/// m, as in legendreTrafo(), begins at table + offsets[m]; `offsets` has b entries. The caller
/// chooses the positions of the rows and makes weights and tables that fit them.
///
/// `rcoeffs` and `icoeffs` receive real and imaginary parts of the coefficients, orders one after
/// another, within an order by ascending degree:
///
/// 1. orders 0 to b-1, degrees m to b-1 each;
/// 2. only if `realData` is false: orders -(b-1) to -1, degrees |m| to b-1 each.
///
/// These are b*(b+1)/2 values each for real data and b*b otherwise.
///
/// `workspace` has 2*N*N + 5*N doubles. The input is not changed. Cost: O(b^3), called slow for
/// that.
ORVELMATH_EXPORT void computeFSTSlow(double *rdata, double *idata, double *rcoeffs, double *icoeffs,
                                     double *workspace, bool realData, double const *table,
                                     double const *weights, int const *offsets, int bandwidth);
