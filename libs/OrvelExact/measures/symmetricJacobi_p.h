#pragma once

/// @file
/// Eigenvalues and eigenvectors of small symmetric matrices to 106 bits.

#include <OrvelExact/measures/DoubleDouble_p.h>

#include <algorithm>

namespace orvelExact {

/// The eigenvalues on the diagonal of `a` and the eigenvectors in the columns of `vectors`.
template <int n>
struct SymmetricJacobi
{
    DoubleDouble a[n][n];
    DoubleDouble vectors[n][n];

    /// Turns planes until nothing is left beside the diagonal (Jacobi 1846); the elements of `a`
    /// are of about unit size.
    void run()
    {
        for (int i = 0; i < n; ++i) {
            for (int k = 0; k < n; ++k) {
                vectors[i][k] = i == k ? 1.0 : 0.0;
            }
        }
        constexpr int mostSweeps = 40; // it takes 5 to 8
        for (int sweep = 0; sweep < mostSweeps && largestBeside() > 0x1p-106; ++sweep) {
            for (int p = 0; p < n; ++p) {
                for (int q = p + 1; q < n; ++q) {
                    turn(p, q);
                }
            }
        }
    }

private:
    double largestBeside() const
    {
        double largest = 0.0;
        for (int i = 0; i < n; ++i) {
            for (int k = 0; k < i; ++k) {
                largest = std::max(largest, std::fabs(a[i][k].high));
            }
        }
        return largest;
    }

    void turn(int p, int q)
    {
        if (std::fabs(a[p][q].high) < 0x1p-500) { // nothing that could turn another digit
            a[p][q] = a[q][p] = 0.0;
            return;
        }
        // tangent of the smaller angle that makes a[p][q] vanish
        DoubleDouble const half = (a[q][q] - a[p][p]) * 0.5;
        DoubleDouble const beside = a[p][q];
        DoubleDouble const root = squareRoot(half * half + beside * beside);
        DoubleDouble const t = half.high < 0.0 ? beside / (half - root) : beside / (half + root);
        DoubleDouble const c = DoubleDouble(1.0) / squareRoot(t * t + 1.0);
        DoubleDouble const s = t * c;
        for (int i = 0; i < n; ++i) {
            turnPair(a[i][p], a[i][q], c, s);
            turnPair(vectors[i][p], vectors[i][q], c, s);
        }
        for (int i = 0; i < n; ++i) {
            turnPair(a[p][i], a[q][i], c, s);
        }
        a[p][q] = a[q][p] = 0.0;
    }

    static void turnPair(DoubleDouble &x, DoubleDouble &y, DoubleDouble const &c,
                         DoubleDouble const &s)
    {
        DoubleDouble const before = x;
        x = c * x - s * y;
        y = s * before + c * y;
    }
};

} // namespace orvelExact
